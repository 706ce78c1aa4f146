#include "inspect/SchemaValidation.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "inspect/SourceText.h"

#include <algorithm>
#include <climits>
#include <libxml/parser.h>
#include <libxml/uri.h>
#include <libxml/xmlschemas.h>
#include <memory>
#include <new>
#include <unordered_map>

namespace jlandxml::inspect
{

namespace
{

/// So many are listed.
constexpr std::size_t MOST_FAULTS = 1000;

template <auto Free>
struct Freer
{
    template <class Object>
    void operator()(Object* object) const
    {
        Free(object);
    }
};
using Document = std::unique_ptr<xmlDoc, Freer<xmlFreeDoc>>;
using ParserContext = std::unique_ptr<xmlSchemaParserCtxt, Freer<xmlSchemaFreeParserCtxt>>;
struct TextFreer
{
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using XmlText = std::unique_ptr<xmlChar, TextFreer>;
using Schema = std::unique_ptr<xmlSchema, Freer<xmlSchemaFree>>;
using Validation = std::unique_ptr<xmlSchemaValidCtxt, Freer<xmlSchemaFreeValidCtxt>>;

std::wstring Wide(const char* text)
{
    return text == nullptr ? std::wstring() : WideFromUtf8(text);
}

/// A message in one line, without the namespaces, which are the same everywhere.
std::wstring Reason(const char* message)
{
    std::wstring text = Wide(message);
    for (std::size_t open = text.find(L'{'); open != std::wstring::npos; open = text.find(L'{', open))
    {
        const std::size_t close = text.find(L'}', open);
        if (close == std::wstring::npos)
        {
            break;
        }
        text.erase(open, close + 1 - open);
    }
    return std::wstring(Trim(ReplaceAll(text, L"\n", L" ")));
}

/// Follows the elements as they are read and gathers what the library says of them. It says it of an element's start
/// behind StartElement, and of its end behind EndElement.
class FaultGatherer
{
  public:
    static void StartElement(void* gatherer, const xmlChar* name, const xmlChar*, const xmlChar*, int, const xmlChar**,
                             int, int, const xmlChar**)
    {
        static_cast<FaultGatherer*>(gatherer)->Open(reinterpret_cast<const char*>(name));
    }

    static void EndElement(void* gatherer, const xmlChar*, const xmlChar*, const xmlChar*)
    {
        static_cast<FaultGatherer*>(gatherer)->Close();
    }

    static void Take(void* gatherer, xmlErrorPtr error) { static_cast<FaultGatherer*>(gatherer)->Add(*error); }

    SchemaFaults MoveOut() { return {std::move(faults_), more_}; }

  private:
    void Open(std::string_view name)
    {
        path_.resize(openLength_);
        lengths_.push_back(openLength_);
        path_.append("/").append(name);
        openLength_ = path_.size();
    }

    /// The element's name stays until the next one begins, since more may be said of it.
    void Close()
    {
        path_.resize(openLength_);
        openLength_ = lengths_.empty() ? 0 : lengths_.back();
        lengths_.resize(lengths_.empty() ? 0 : lengths_.size() - 1);
    }

    void Add(const xmlError& error)
    {
        SchemaFault fault{WideFromUtf8(path_), Reason(error.message),
                          static_cast<std::size_t>(std::max(error.line, 0))};
        // The message names the attribute and the element, so that the same one is the same message.
        if (error.code == XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1 || error.code == XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2)
        {
            const auto [known, isNew] = attributes_.try_emplace(fault.reason, faults_.size());
            if (!isNew)
            {
                faults_[known->second].count += 1;
                return;
            }
        }
        if (faults_.size() < MOST_FAULTS)
        {
            faults_.push_back(std::move(fault));
        }
        else
        {
            attributes_.erase(fault.reason);
            ++more_;
        }
    }

    std::string path_;                 ///< of the open elements, and of the one that was closed last
    std::size_t openLength_ = 0;       ///< of the path of the open elements
    std::vector<std::size_t> lengths_; ///< of the paths around them
    std::vector<SchemaFault> faults_;
    std::size_t more_ = 0;
    std::unordered_map<std::wstring, std::size_t> attributes_; ///< by their messages: the place among the faults
};

void Ignore(void*, xmlErrorPtr) {}

/// Puts blanks in the place of the XML declaration: the text is UTF-8 by now, whatever it was declared to be.
void BlankDeclaration(std::string& text)
{
    const std::size_t end = text.starts_with("<?xml ") ? text.find("?>") : std::string::npos;
    if (end != std::string::npos)
    {
        std::replace_if(
            text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end) + 2,
            [](char character) { return character != '\n'; }, ' ');
    }
}

Schema ReadSchema(const std::wstring& path)
{
    const std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes || bytes->size() > INT_MAX)
    {
        throw CFileException(L"スキーマを開けません: " + path);
    }
    xmlSetStructuredErrorFunc(nullptr, Ignore);
    // Under its path, from which it includes others.
    std::string place = Utf8FromWide(path);
    std::replace(place.begin(), place.end(), '\\', '/');
    const XmlText uri(
        xmlURIEscapeStr(reinterpret_cast<const xmlChar*>(place.c_str()), reinterpret_cast<const xmlChar*>("/:")));
    const Document document(xmlReadMemory(bytes->data(), static_cast<int>(bytes->size()),
                                          reinterpret_cast<const char*>(uri.get()), nullptr, XML_PARSE_NONET));
    const ParserContext context(document == nullptr ? nullptr : xmlSchemaNewDocParserCtxt(document.get()));
    Schema schema;
    if (context != nullptr)
    {
        xmlSchemaSetParserStructuredErrors(context.get(), Ignore, nullptr);
        schema.reset(xmlSchemaParse(context.get()));
    }
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    if (schema == nullptr)
    {
        throw CFileException(L"スキーマとして読み込めません: " + path);
    }
    return schema;
}

} // namespace

bool CanValidate()
{
    return true;
}

SchemaFaults ValidateAgainstSchema(std::string bytes, const std::wstring& schemaPath)
{
    const Schema schema = ReadSchema(schemaPath);
    std::string text = DecodedText(std::move(bytes));
    BlankDeclaration(text);
    if (text.size() > INT_MAX)
    {
        throw CFileException(L"ファイルが大きすぎるため、スキーマと照合できません");
    }
    const Validation validation(xmlSchemaNewValidCtxt(schema.get()));
    // A copy of the text, which the validation frees.
    const xmlParserInputBufferPtr input =
        xmlParserInputBufferCreateMem(text.data(), static_cast<int>(text.size()), XML_CHAR_ENCODING_NONE);
    if (validation == nullptr || input == nullptr)
    {
        throw std::bad_alloc();
    }
    text = std::string();
    FaultGatherer gatherer;
    xmlSchemaSetValidStructuredErrors(validation.get(), FaultGatherer::Take, &gatherer);
    xmlSAXHandler events{};
    events.initialized = XML_SAX2_MAGIC;
    events.startElementNs = FaultGatherer::StartElement;
    events.endElementNs = FaultGatherer::EndElement;
    events.serror = Ignore;
    xmlSchemaValidateStream(validation.get(), input, XML_CHAR_ENCODING_UTF8, &events, &gatherer);
    return gatherer.MoveOut();
}

} // namespace jlandxml::inspect
