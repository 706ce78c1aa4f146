#include "inspect/SchemaValidation.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "inspect/SourceText.h"
#include "inspect/XmlLibrary.h"

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

/// In front of the name of an attribute, behind that of its element.
constexpr std::wstring_view ATTRIBUTE = L"attribute '";

/// So many are listed.
constexpr std::size_t MOST_FAULTS = 1000;

using Document = std::unique_ptr<xmlDoc, LibraryFreer<xmlFreeDoc>>;
using ParserContext = std::unique_ptr<xmlSchemaParserCtxt, LibraryFreer<xmlSchemaFreeParserCtxt>>;
struct TextFreer
{
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using XmlText = std::unique_ptr<xmlChar, TextFreer>;
using Schema = std::unique_ptr<xmlSchema, LibraryFreer<xmlSchemaFree>>;
using Validation = std::unique_ptr<xmlSchemaValidCtxt, LibraryFreer<xmlSchemaFreeValidCtxt>>;

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

    static void TakeOfParser(void* gatherer, xmlErrorPtr error)
    {
        if (error->level == XML_ERR_FATAL)
        {
            static_cast<FaultGatherer*>(gatherer)->End(*error);
        }
    }

    SchemaFaults MoveOut() { return {std::move(faults_), more_, std::move(end_)}; }

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

    static XmlFault Fault(std::string_view path, const xmlError& error)
    {
        return {WideFromUtf8(path), ReasonOf(error), static_cast<std::size_t>(std::max(error.line, 0))};
    }

    /// Where the file isn't well-formed the parser stops, and the schema would only miss what it didn't read.
    void End(const xmlError& error)
    {
        if (!end_)
        {
            const std::string_view open = std::string_view(path_).substr(0, openLength_);
            end_ = Fault(open.empty() ? "/" : open, error);
        }
    }

    void Add(const xmlError& error)
    {
        if (end_)
        {
            return;
        }
        XmlFault fault = Fault(path_, error);
        // The path names the element already.
        if (error.code == XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1 || error.code == XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2)
        {
            const std::size_t attribute = fault.reason.find(ATTRIBUTE);
            fault.reason.erase(0, attribute != std::wstring::npos ? attribute : 0);
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
    std::vector<XmlFault> faults_;
    std::size_t more_ = 0;
    std::optional<XmlFault> end_;
    std::unordered_map<std::wstring, std::size_t>
        attributes_; ///< by their messages, which name them: the place among the faults
};

void Ignore(void*, xmlErrorPtr) {}

/// Puts blanks in the place of the XML declaration: the text is UTF-8 by now, whatever it was declared to be.
void BlankDeclaration(std::string& text)
{
    constexpr std::string_view OPEN = "<?xml";
    const bool isDeclared = text.starts_with(OPEN) && text.find_first_of(" \t\r\n", OPEN.size()) == OPEN.size();
    const std::size_t end = isDeclared ? text.find("?>") : std::string::npos;
    if (end != std::string::npos)
    {
        std::replace_if(
            text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end) + 2,
            [](char character) { return character != '\n'; }, ' ');
    }
}

/// Where other schemas lie is written as people name files; a reference has letters beyond ASCII and blanks escaped
/// (RFC 3986, 2.1).
std::string WithLocationsEscaped(const std::string& text)
{
    constexpr std::string_view LABEL = "schemaLocation";
    constexpr const char* HEXADECIMAL = "0123456789ABCDEF";
    std::string escaped;
    std::size_t done = 0;
    for (std::size_t label = text.find(LABEL); label != std::string::npos;
         label = text.find(LABEL, std::max(done, label + LABEL.size())))
    {
        const std::size_t open = text.find_first_not_of("= \t\r\n", label + LABEL.size());
        const bool isQuote = open != std::string::npos && (text[open] == '"' || text[open] == '\'');
        const std::size_t close = isQuote ? text.find(text[open], open + 1) : std::string::npos;
        if (close == std::string::npos)
        {
            continue;
        }
        escaped.append(text, done, open + 1 - done);
        for (done = open + 1; done < close; ++done)
        {
            const auto byte = static_cast<unsigned char>(text[done]);
            if (byte == ' ' || byte >= 0x80)
            {
                escaped.append({'%', HEXADECIMAL[byte >> 4U], HEXADECIMAL[byte & 15U]});
            }
            else
            {
                escaped += text[done];
            }
        }
    }
    return escaped.append(text, done);
}

/// The text of a schema for the library; nothing if it can't be opened.
std::optional<std::string> SchemaText(const std::wstring& path)
{
    std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes)
    {
        return {};
    }
    std::string text = DecodedText(*std::move(bytes));
    BlankDeclaration(text);
    text = WithLocationsEscaped(text);
    return text.size() > INT_MAX ? std::nullopt : std::optional(std::move(text));
}

/// Opens a schema that another one includes, by the name that users see. No exception may pass through the library.
xmlParserInputPtr OpenIncluded(const char* uri, const char*, xmlParserCtxtPtr context)
{
    try
    {
        const XmlText path(reinterpret_cast<xmlChar*>(xmlURIUnescapeString(uri == nullptr ? "" : uri, 0, nullptr)));
        const std::optional<std::string> text = SchemaText(WideFromLibrary(reinterpret_cast<const char*>(path.get())));
        // An entity could take in any file, or grow without end.
        const bool isTaken = text && text->find("<!ENTITY") == std::string::npos;
        const xmlParserInputBufferPtr buffer =
            isTaken
                ? xmlParserInputBufferCreateMem(text->data(), static_cast<int>(text->size()), XML_CHAR_ENCODING_NONE)
                : nullptr;
        const xmlParserInputPtr input =
            buffer != nullptr ? xmlNewIOInputStream(context, buffer, XML_CHAR_ENCODING_NONE) : nullptr;
        if (input != nullptr)
        {
            // From there it includes others.
            input->filename = reinterpret_cast<char*>(xmlStrdup(reinterpret_cast<const xmlChar*>(uri)));
        }
        return input;
    }
    catch (...)
    {
        return nullptr;
    }
}

/// Takes what the parser says, which it would print.
class ParserErrors
{
  public:
    ParserErrors(void* context, xmlStructuredErrorFunc take) { xmlSetStructuredErrorFunc(context, take); }
    ParserErrors(const ParserErrors&) = delete;
    ParserErrors& operator=(const ParserErrors&) = delete;
    ~ParserErrors() { xmlSetStructuredErrorFunc(nullptr, nullptr); }
};

/// While schemas are read, they are opened as all other files are, and what the library says of them isn't printed.
class ReadingScope
{
  public:
    ReadingScope() : former_(xmlGetExternalEntityLoader()) { xmlSetExternalEntityLoader(OpenIncluded); }
    ReadingScope(const ReadingScope&) = delete;
    ReadingScope& operator=(const ReadingScope&) = delete;
    ~ReadingScope() { xmlSetExternalEntityLoader(former_); }

  private:
    xmlExternalEntityLoader former_;
    ParserErrors errors_{nullptr, Ignore};
};

Schema ReadSchema(const std::wstring& path)
{
    const std::optional<std::string> text = SchemaText(path);
    if (!text)
    {
        throw CFileException(L"スキーマを開けません: " + path);
    }
    const ReadingScope reading;
    // Under its path, from which it includes others.
    std::string place = Utf8FromWide(path);
    std::replace(place.begin(), place.end(), '\\', '/');
    const XmlText uri(
        xmlURIEscapeStr(reinterpret_cast<const xmlChar*>(place.c_str()), reinterpret_cast<const xmlChar*>("/:")));
    const Document document(xmlReadMemory(text->data(), static_cast<int>(text->size()),
                                          reinterpret_cast<const char*>(uri.get()), nullptr, XML_PARSE_NONET));
    const ParserContext context(document == nullptr ? nullptr : xmlSchemaNewDocParserCtxt(document.get()));
    Schema schema;
    if (context != nullptr)
    {
        xmlSchemaSetParserStructuredErrors(context.get(), Ignore, nullptr);
        schema.reset(xmlSchemaParse(context.get()));
    }
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

struct XmlSchema::Parsed
{
    explicit Parsed(const std::wstring& path) : schema(ReadSchema(path).release()) {}
    Parsed(const Parsed&) = delete;
    Parsed& operator=(const Parsed&) = delete;
    ~Parsed() { xmlSchemaFree(schema); }

    xmlSchema* const schema;
};

XmlSchema::XmlSchema(const std::wstring& path) : parsed_(std::make_unique<Parsed>(path)) {}

XmlSchema::~XmlSchema() = default;

SchemaFaults XmlSchema::Validate(std::string bytes) const
{
    std::string text = DecodedText(std::move(bytes));
    BlankDeclaration(text);
    if (text.size() > INT_MAX)
    {
        throw CFileException(L"ファイルが大きすぎるため、スキーマと照合できません");
    }
    const Validation validation(xmlSchemaNewValidCtxt(parsed_->schema));
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
    const ParserErrors errors(&gatherer, FaultGatherer::TakeOfParser);
    xmlSchemaValidateStream(validation.get(), input, XML_CHAR_ENCODING_UTF8, &events, &gatherer);
    return gatherer.MoveOut();
}

} // namespace jlandxml::inspect
