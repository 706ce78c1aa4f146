#include "xml/WcXmDocument.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "xml/CodeUnits.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <new>
#include <optional>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr unsigned int PARSE_OPTIONS = pugi::parse_default | pugi::parse_declaration;
constexpr unsigned int FORMAT_FLAGS = pugi::format_indent | pugi::format_no_declaration;
constexpr const wchar_t* INDENT = L"\t";

constexpr std::string_view SHIFT_JIS_IN_FILE = "shift_jis";
constexpr std::string_view REFERENCE = "&#";
constexpr std::wstring_view SHIFT_JIS = L"Shift_JIS";
constexpr std::wstring_view UTF_16 = L"UTF-16";
constexpr const wchar_t* DECLARATION_NAME = L"xml";
constexpr const wchar_t* ENCODING = L"encoding";

/// As much of a file as its byte-order mark and its declaration need.
constexpr std::size_t ENCODING_PROBE_SIZE = 1024;

bool FirstLineNamesShiftJis(std::string_view bytes)
{
    const std::string_view line = bytes.substr(0, bytes.find('\n'));
    return std::search(line.begin(), line.end(), SHIFT_JIS_IN_FILE.begin(), SHIFT_JIS_IN_FILE.end(),
                       [](char inFile, char wanted) { return FoldAscii(inFile) == wanted; }) != line.end();
}

pugi::xml_encoding DetectEncoding(std::string_view bytes)
{
    pugi::xml_document probe;
    const pugi::xml_parse_result result =
        probe.load_buffer(bytes.data(), std::min(bytes.size(), ENCODING_PROBE_SIZE), pugi::parse_minimal);
    if (result.status == pugi::status_out_of_memory)
    {
        throw std::bad_alloc();
    }
    return result.encoding;
}

/// Memory that the parser takes over with a document.
class ParserBuffer
{
  public:
    explicit ParserBuffer(std::size_t size)
        : data_(pugi::get_memory_allocation_function()(std::max<std::size_t>(size, 1))),
          size_(size)
    {
        if (data_ == nullptr)
        {
            throw std::bad_alloc();
        }
    }
    ParserBuffer(ParserBuffer&& other) noexcept : data_(other.Release()), size_(other.size_) {}
    ParserBuffer& operator=(ParserBuffer&& other) noexcept
    {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        return *this;
    }
    ~ParserBuffer()
    {
        if (data_ != nullptr)
        {
            pugi::get_memory_deallocation_function()(data_);
        }
    }

    char* Data() { return static_cast<char*>(data_); }
    std::size_t Size() const { return size_; }
    void Shorten(std::size_t size) { size_ = size; }
    std::string_view View() const { return {static_cast<const char*>(data_), size_}; }
    void* Release() { return std::exchange(data_, nullptr); }

  private:
    void* data_;
    std::size_t size_;
};

std::optional<ParserBuffer> ReadFile(const std::wstring& path)
{
    const FileHandle file = OpenForReading(path);
    const std::optional<std::size_t> length = file ? FileLength(file.get()) : std::nullopt;
    if (!length)
    {
        return std::nullopt;
    }
    ParserBuffer buffer(*length);
    buffer.Shorten(std::fread(buffer.Data(), 1, *length, file.get()));
    return std::ferror(file.get()) == 0 ? std::optional(std::move(buffer)) : std::nullopt;
}

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

/// How the units of an encoding lie in a file.
struct EncodingForm
{
    pugi::xml_encoding encoding;
    std::size_t unitSize;
    bool bigEndian;
};
constexpr EncodingForm ENCODING_FORMS[] = {
    {pugi::encoding_utf8, 1, false},     {pugi::encoding_utf16_le, 2, false}, {pugi::encoding_utf16_be, 2, true},
    {pugi::encoding_utf32_le, 4, false}, {pugi::encoding_utf32_be, 4, true},  {pugi::encoding_latin1, 1, false},
};

CodeUnits UnitsOf(ParserBuffer& content, pugi::xml_encoding encoding)
{
    const auto* const form = std::find_if(std::begin(ENCODING_FORMS), std::end(ENCODING_FORMS),
                                          [&](const EncodingForm& one) { return one.encoding == encoding; });
    return {content.Data(), content.Size(), form->unitSize, form->bigEndian};
}

ParserBuffer RepairedUtf8(std::string_view bytes)
{
    const std::string repaired = RepairUtf8(bytes);
    ParserBuffer content(repaired.size());
    std::memcpy(content.Data(), repaired.data(), repaired.size());
    return content;
}

/// Mends what the parser would make different things of on different platforms.
void Repair(ParserBuffer& content, pugi::xml_encoding encoding)
{
    if (encoding == pugi::encoding_utf8 && !IsWellFormedUtf8(content.View()))
    {
        content = RepairedUtf8(content.View());
    }
    const CodeUnits units = UnitsOf(content, encoding);
    if (units.Count() < content.Size())
    {
        RepairUnits(units);
        RepairReferences(units);
    }
    else if (content.View().find(REFERENCE) != std::string_view::npos)
    {
        RepairReferences(units);
    }
}

/// The bytes of a file of code page 932 as wide characters; nothing if they aren't that.
std::optional<ParserBuffer> WideContent(std::string_view bytes)
{
    ParserBuffer content(bytes.size() * sizeof(wchar_t));
    const std::optional<std::size_t> length = DecodeCp932(bytes, reinterpret_cast<wchar_t*>(content.Data()));
    content.Shorten(length.value_or(0) * sizeof(wchar_t));
    return length ? std::optional(std::move(content)) : std::nullopt;
}

bool Parse(pugi::xml_document& document, ParserBuffer content, pugi::xml_encoding encoding)
{
    const std::size_t size = content.Size();
    return document.load_buffer_inplace_own(content.Release(), size, PARSE_OPTIONS, encoding);
}

bool LoadShiftJis(pugi::xml_document& document, std::string_view bytes)
{
    std::optional<ParserBuffer> content = WideContent(bytes);
    if (!content)
    {
        return false;
    }
    if (bytes.find(REFERENCE) != std::string_view::npos)
    {
        RepairReferences({content->Data(), content->Size(), sizeof(wchar_t), std::endian::native == std::endian::big});
    }
    return Parse(document, *std::move(content), pugi::encoding_wchar);
}

bool LoadPlain(pugi::xml_document& document, ParserBuffer content)
{
    Repair(content, DetectEncoding(content.View()));
    return Parse(document, std::move(content), pugi::encoding_auto);
}

bool LoadFile(pugi::xml_document& document, const std::wstring& path)
{
    std::optional<ParserBuffer> content = ReadFile(path);
    return content && ((FirstLineNamesShiftJis(content->View()) && LoadShiftJis(document, content->View())) ||
                       LoadPlain(document, *std::move(content)));
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
    const bool isDeclaration =
        first.type() == pugi::node_declaration && EqualsIgnoreCase(first.name(), DECLARATION_NAME);
    return isDeclaration ? first.attribute(ENCODING).value() : L"";
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

bool WcXmAppDocument::LoadDocument(const std::wstring& path)
{
    if (xmlDocument == nullptr)
    {
        return false;
    }
    xmlDocument->reset();
    isWhole_ = true;
    return Succeeds([&] { return Change([&] { return LoadFile(*xmlDocument, path); }); });
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
