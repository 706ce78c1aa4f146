#include "xml/WcXmDocument.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "xml/LoadContent.h"
#include "xml/WcXmJournal.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr unsigned int FORMAT_FLAGS = pugi::format_indent | pugi::format_no_declaration;
constexpr const wchar_t* INDENT = L"\t";

constexpr std::wstring_view SHIFT_JIS = L"Shift_JIS";
constexpr std::wstring_view UTF_16 = L"UTF-16";
constexpr const wchar_t* DECLARATION_NAME = L"xml";
constexpr const wchar_t* ENCODING = L"encoding";

/// A file of any size may come in, and a full disk be written to: what a step throws is its failure.
template <class Step>
bool Succeeds(Step&& step)
{
    try
    {
        return std::forward<Step>(step)();
    }
    catch (...)
    {
        return false;
    }
}

/// Finding a fault takes many times a file's size. A larger one than this is told without the place.
constexpr std::size_t LARGEST_SEARCHED = std::size_t{16} << 20;

/// Notes a file's fault with its place, as far as the file can be read a second time. What looks for the place is no
/// parameter of the function's: with it the closure would ask for memory, and here nobody may raise for want of it.
template <WarningPlace (*FIND)(std::string_view content)>
void WarnOfFault(WarningCause cause, const std::wstring& path, std::size_t size)
{
    WarnOf(cause, path, [&] {
        WarningPlace place;
        Succeeds([&] {
            const std::optional<ParserBuffer> content = size <= LARGEST_SEARCHED ? ReadContent(path) : std::nullopt;
            if (content)
            {
                place = FIND(content->View());
            }
            return content.has_value();
        });
        return place;
    });
}

WarningPlace PlaceOf(const FaultPlace& fault)
{
    WarningPlace place;
    place.row = fault.line;
    place.remark = std::to_wstring(fault.column) + L"文字目";
    return place;
}

WarningPlace PlaceOfFault(std::string_view content)
{
    const std::optional<FaultPlace> fault = FindFault(content);
    return fault ? PlaceOf(*fault) : WarningPlace();
}

bool IsShiftJis(std::string_view content)
{
    while (!content.empty())
    {
        const std::size_t end = std::min(content.find('\n'), content.size() - 1) + 1;
        if (SpeaksAgainstShiftJis(content.substr(0, end)))
        {
            return false;
        }
        content.remove_prefix(end);
    }
    return true;
}

WarningPlace PlaceOfMalformedUtf8(std::string_view content)
{
    WarningPlace place = PlaceOf(FindMalformedUtf8(content));
    place.remark += IsShiftJis(content) ? std::wstring(L"、") + SHIFT_JIS_REMARK : std::wstring();
    return place;
}

/// Turns the parser's wide output, which it never cuts within a surrogate pair, into UTF-8.
class Utf8Writer : public pugi::xml_writer
{
  public:
    explicit Utf8Writer(OutputFile& file) : file_(file) {}

    void write(const void* data, std::size_t size) override
    {
        AppendUtf8(block_, {static_cast<const wchar_t*>(data), size / sizeof(wchar_t)});
        if (block_.size() >= BLOCK_SIZE)
        {
            Flush();
        }
    }

    void Flush()
    {
        file_.Write(block_);
        block_.clear();
    }

  private:
    static constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 16;

    OutputFile& file_;
    std::string block_;
};

/// Gathers the whole of the parser's wide output.
struct WideWriter : pugi::xml_writer
{
    void write(const void* data, std::size_t size) override
    {
        text.append(static_cast<const wchar_t*>(data), size / sizeof(wchar_t));
    }

    std::wstring text;
};

/// The encoding that the declaration names, if the document begins with one.
std::wstring_view DeclaredEncoding(const pugi::xml_document& document)
{
    const pugi::xml_node first = document.first_child();
    return first.type() == pugi::node_declaration ? first.attribute(ENCODING).value() : L"";
}

pugi::xml_node FindDeclaration(const pugi::xml_document& document)
{
    return document.find_child([](const pugi::xml_node& node) { return node.type() == pugi::node_declaration; });
}

pugi::xml_node PrependDeclaration(pugi::xml_document& document)
{
    pugi::xml_node declaration = document.prepend_child(pugi::node_declaration);
    declaration.set_name(DECLARATION_NAME);
    declaration.append_attribute(L"version").set_value(L"1.0");
    return declaration;
}

void SetEncoding(pugi::xml_node declaration)
{
    pugi::xml_attribute encoding = declaration.find_attribute(
        [](const pugi::xml_attribute& attribute) { return EqualsIgnoreCase(attribute.name(), ENCODING); });
    if (!encoding)
    {
        encoding = declaration.append_attribute(ENCODING);
    }
    encoding.set_value(L"UTF-8");
}

bool SaveUtf8(const pugi::xml_document& document, const std::wstring& path)
{
    OutputFile file(path);
    Utf8Writer writer(file);
    document.save(writer, INDENT, FORMAT_FLAGS, pugi::encoding_wchar);
    writer.Flush();
    file.Close();
    return true;
}

bool SaveShiftJis(const pugi::xml_document& document, const std::wstring& path)
{
    WideWriter writer;
    document.save(writer, INDENT, FORMAT_FLAGS, pugi::encoding_wchar);
    const std::string bytes = Cp932FromWide(writer.text);
    // A stream that fails says so only to those who ask it: nobody learns of a path that takes no file.
    Succeeds([&] {
        OutputFile file(path);
        file.Write(bytes);
        file.Close();
        return true;
    });
    return true;
}

} // namespace

WcXmAppDocument::WcXmAppDocument() : xmlDocument(new (std::nothrow) pugi::xml_document) {}

WcXmAppDocument::~WcXmAppDocument() = default;

bool WcXmAppDocument::Reset()
{
    journal.reset();
    passages.Clear();
    source_ = ParserBuffer();
    isWhole_ = true;
    if (xmlDocument != nullptr)
    {
        xmlDocument->reset();
    }
    return xmlDocument != nullptr;
}

template <class Source>
WcXmAppDocument::Loaded WcXmAppDocument::Load(Source&& source)
{
    if (!Reset())
    {
        return Loaded::NoMemory;
    }
    const auto load = [&] {
        std::optional<ParserBuffer> content = std::forward<Source>(source)();
        if (!content)
        {
            return Loaded::Unread;
        }
        source_ = *std::move(content);
        return LoadContent(*xmlDocument, keepsPassages ? &passages : nullptr, source_, isUtf8Mended_)
                   ? Loaded::Whole
                   : Loaded::Malformed;
    };
    try
    {
        return Change(load);
    }
    catch (...)
    {
        return Loaded::NoMemory; // nothing else is thrown here, whatever the file holds
    }
}

bool WcXmAppDocument::LoadDocument(const std::wstring& path)
{
    std::size_t size = 0;
    const Loaded loaded = Load([&] {
        std::optional<ParserBuffer> content = ReadContent(path);
        size = content ? content->Size() : 0;
        return content;
    });
    if (loaded == Loaded::Malformed)
    {
        WarnOfFault<PlaceOfFault>(WarningCause::MalformedXml, path, size);
    }
    else if (loaded == Loaded::Whole && isUtf8Mended_)
    {
        WarnOfFault<PlaceOfMalformedUtf8>(WarningCause::NotUtf8, path, size);
    }
    else if (loaded == Loaded::NoMemory)
    {
        WarnOf(WarningCause::NoMemoryForFile, path);
    }
    return loaded == Loaded::Whole;
}

bool WcXmAppDocument::LoadBytes(ParserBuffer content)
{
    return Load([&] { return std::optional(std::move(content)); }) == Loaded::Whole;
}

void WcXmAppDocument::ExpandPassages()
{
    Change([&] {
        passages.Expand(*xmlDocument);
        return true;
    });
    source_ = ParserBuffer();
}

void WcXmAppDocument::KeepJournal()
{
    journal = Change([this] { return std::make_unique<WcXmJournal>(*xmlDocument); });
}

bool WcXmAppDocument::EnsureDeclaration()
{
    return xmlDocument != nullptr && Change([&] {
               pugi::xml_node declaration = FindDeclaration(*xmlDocument);
               SetEncoding(declaration ? declaration : PrependDeclaration(*xmlDocument));
               return true;
           });
}

bool WcXmAppDocument::SaveDocument(const std::wstring& path)
{
    if (xmlDocument == nullptr || !isWhole_)
    {
        return false;
    }
    return Succeeds([&] {
        ExpandPassages();
        const std::wstring_view encoding = DeclaredEncoding(*xmlDocument);
        if (EqualsIgnoreCase(encoding, SHIFT_JIS))
        {
            return SaveShiftJis(*xmlDocument, path);
        }
        if (EqualsIgnoreCase(encoding, UTF_16))
        {
            return xmlDocument->save_file(path.c_str(), INDENT, FORMAT_FLAGS, pugi::encoding_utf16);
        }
        return SaveUtf8(*xmlDocument, path);
    });
}

bool WcXmDocument::Create()
{
    Close();
    appDocument = std::make_unique<WcXmAppDocument>();
    return appDocument->xmlDocument != nullptr;
}

void WcXmDocument::Close()
{
    appDocument.reset();
}

} // namespace jlandxml
