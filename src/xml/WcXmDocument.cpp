#include "xml/WcXmDocument.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"

#include <algorithm>
#include <cstring>
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

constexpr std::string_view SHIFT_JIS_IN_FILE = "SHIFT_JIS";
constexpr std::wstring_view SHIFT_JIS = L"Shift_JIS";
constexpr std::wstring_view UTF_16 = L"UTF-16";
constexpr const wchar_t* DECLARATION_NAME = L"xml";
constexpr const wchar_t* ENCODING = L"encoding";

/// As much of a file as its byte-order mark and its declaration need.
constexpr std::size_t ENCODING_PROBE_SIZE = 1024;

constexpr char UpperAscii(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

bool FirstLineNamesShiftJis(std::string_view bytes)
{
    const std::string_view line = bytes.substr(0, bytes.find('\n'));
    return std::search(line.begin(), line.end(), SHIFT_JIS_IN_FILE.begin(), SHIFT_JIS_IN_FILE.end(),
                       [](char inFile, char wanted) { return UpperAscii(inFile) == wanted; }) != line.end();
}

pugi::xml_encoding DetectEncoding(std::string_view bytes)
{
    pugi::xml_document probe;
    return probe.load_buffer(bytes.data(), std::min(bytes.size(), ENCODING_PROBE_SIZE), pugi::parse_minimal).encoding;
}

/// Puts U+FFFD in the place of every surrogate without a partner. The parser would drop or keep them depending on the
/// width of the platform's wide characters.
void RepairUtf16(char* bytes, std::size_t size, bool bigEndian)
{
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const auto unitAt = [&](std::size_t index) {
        return bigEndian ? byteAt(index) << 8 | byteAt(index + 1) : byteAt(index + 1) << 8 | byteAt(index);
    };
    const auto isHigh = [](int unit) { return unit >= 0xD800 && unit <= 0xDBFF; };
    const auto isLow = [](int unit) { return unit >= 0xDC00 && unit <= 0xDFFF; };
    for (std::size_t index = 0; index + 1 < size; index += 2)
    {
        if (isHigh(unitAt(index)) && index + 3 < size && isLow(unitAt(index + 2)))
        {
            index += 2;
        }
        else if (isHigh(unitAt(index)) || isLow(unitAt(index)))
        {
            bytes[index] = static_cast<char>(bigEndian ? 0xFF : 0xFD);
            bytes[index + 1] = static_cast<char>(bigEndian ? 0xFD : 0xFF);
        }
    }
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

bool LoadShiftJis(pugi::xml_document& document, std::string_view bytes)
{
    return Succeeds([&] {
        const std::optional<std::wstring> text = WideFromCp932(bytes);
        return text &&
               document.load_buffer(text->data(), text->size() * sizeof(wchar_t), PARSE_OPTIONS, pugi::encoding_wchar);
    });
}

bool LoadPlain(pugi::xml_document& document, ParserBuffer content)
{
    if (!IsWellFormedUtf8(content.View()))
    {
        const pugi::xml_encoding encoding = DetectEncoding(content.View());
        if (encoding == pugi::encoding_utf8)
        {
            const std::string repaired = RepairUtf8(content.View());
            content = ParserBuffer(repaired.size());
            std::memcpy(content.Data(), repaired.data(), repaired.size());
        }
        else if (encoding == pugi::encoding_utf16_le || encoding == pugi::encoding_utf16_be)
        {
            RepairUtf16(content.Data(), content.Size(), encoding == pugi::encoding_utf16_be);
        }
    }
    const std::size_t size = content.Size();
    return document.load_buffer_inplace_own(content.Release(), size, PARSE_OPTIONS);
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
    return Succeeds([&] {
        std::optional<ParserBuffer> content = ReadFile(path);
        return content && ((FirstLineNamesShiftJis(content->View()) && LoadShiftJis(*xmlDocument, content->View())) ||
                           LoadPlain(*xmlDocument, std::move(*content)));
    });
}

bool WcXmAppDocument::EnsureDeclaration()
{
    if (xmlDocument == nullptr)
    {
        return false;
    }
    pugi::xml_node declaration =
        xmlDocument->find_child([](const pugi::xml_node& node) { return node.type() == pugi::node_declaration; });
    if (!declaration)
    {
        declaration = xmlDocument->prepend_child(pugi::node_declaration);
        declaration.set_name(DECLARATION_NAME);
        declaration.append_attribute(L"version").set_value(L"1.0");
    }
    pugi::xml_attribute encoding = declaration.find_attribute(
        [](const pugi::xml_attribute& attribute) { return EqualsIgnoreCase(attribute.name(), ENCODING); });
    if (!encoding)
    {
        encoding = declaration.append_attribute(ENCODING);
    }
    encoding.set_value(L"UTF-8");
    return true;
}

bool WcXmAppDocument::SaveDocument(const std::wstring& path)
{
    if (xmlDocument == nullptr)
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
