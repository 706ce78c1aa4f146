#include "xml/LoadContent.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "xml/CodeUnits.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <string>

namespace jlandxml
{

namespace
{

constexpr unsigned int PARSE_OPTIONS = pugi::parse_default | pugi::parse_declaration;

constexpr std::string_view SHIFT_JIS_IN_FILE = "shift_jis";
constexpr std::string_view REFERENCE = "&#";
constexpr std::string_view DECLARATION_START = "<?xml";

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
void Repair(ParserBuffer& content, pugi::xml_encoding encoding, bool& isUtf8Mended)
{
    isUtf8Mended = encoding == pugi::encoding_utf8 && !IsWellFormedUtf8(content.View());
    if (isUtf8Mended)
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

bool Parse(pugi::xml_document& document, ParserBuffer content, pugi::xml_encoding encoding, unsigned int options)
{
    const std::size_t size = content.Size();
    return document.load_buffer_inplace_own(content.Release(), size, options, encoding);
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
    return Parse(document, *std::move(content), pugi::encoding_wchar, PARSE_OPTIONS);
}

/// True if the front of the content shows what the parser would look for to tell its encoding.
bool IsDeclarationInProbe(std::string_view bytes)
{
    return bytes.size() <= ENCODING_PROBE_SIZE || !bytes.starts_with(DECLARATION_START) ||
           bytes.find('?', DECLARATION_START.size()) < ENCODING_PROBE_SIZE;
}

/// The text of a UTF-8 file as the parser takes it, with its terminator. What is malformed becomes U+FFFD on the way.
ParserBuffer DecodedUtf8(std::string_view bytes, bool& isUtf8Mended)
{
    ParserBuffer content((bytes.size() + 1) * sizeof(wchar_t));
    auto* const units = reinterpret_cast<wchar_t*>(content.Data());
    bool isWellFormed = true;
    const std::size_t count = DecodeUtf8(bytes, units, isWellFormed);
    isUtf8Mended = !isWellFormed;
    units[count] = L'\0';
    content.Shorten((count + 1) * sizeof(wchar_t));
    return content;
}

/// Decodes and parses in one pass what is UTF-8 for certain. The bytes are gone before the tree grows. A text that
/// stands first in its element becomes the element's own value and no node, as most texts do; an empty one, which only
/// a reference can leave, couldn't be told from none.
bool LoadUtf8(pugi::xml_document& document, ParserBuffer bytes, unsigned int options, bool& isUtf8Mended)
{
    const bool holdsReferences = bytes.View().find(REFERENCE) != std::string_view::npos;
    if (!holdsReferences || RepairReferences({bytes.Data(), bytes.Size(), 1, false}))
    {
        options |= pugi::parse_embed_pcdata;
    }
    ParserBuffer content = DecodedUtf8(bytes.View(), isUtf8Mended);
    bytes = ParserBuffer();
    return Parse(document, std::move(content), pugi::encoding_wchar, options);
}

/// Leaves all but the mending to the parser.
bool LoadByParser(pugi::xml_document& document, ParserBuffer content, unsigned int options, bool& isUtf8Mended)
{
    Repair(content, DetectEncoding(content.View()), isUtf8Mended);
    return Parse(document, std::move(content), pugi::encoding_auto, options);
}

bool LoadPlain(pugi::xml_document& document, ParserBuffer content, bool& isUtf8Mended,
               unsigned int options = PARSE_OPTIONS)
{
    const bool isUtf8 = IsDeclarationInProbe(content.View()) && DetectEncoding(content.View()) == pugi::encoding_utf8;
    return isUtf8 ? LoadUtf8(document, std::move(content), options, isUtf8Mended)
                  : LoadByParser(document, std::move(content), options, isUtf8Mended);
}

/// What the parser gets of a document with passages: each of them as its placeholder.
ParserBuffer WithPlaceholders(const WcXmPassages& passages)
{
    std::size_t size = 0;
    std::size_t passage = 0;
    for (const WcXmPassages::Piece& piece : passages.Pieces())
    {
        size += piece.isPassage ? PassagePlaceholder(passage++).size() : piece.bytes.size();
    }
    ParserBuffer content(size);
    char* out = content.Data();
    passage = 0;
    for (const WcXmPassages::Piece& piece : passages.Pieces())
    {
        const std::string placeholder = piece.isPassage ? PassagePlaceholder(passage++) : std::string();
        const std::string_view bytes = piece.isPassage ? placeholder : piece.bytes;
        out = std::copy(bytes.begin(), bytes.end(), out);
    }
    return content;
}

/// Of instructions there are none in the tree but the placeholders.
bool LoadWithPassages(pugi::xml_document& document, WcXmPassages& passages, std::string_view content,
                      bool& isUtf8Mended)
{
    const bool loaded = DetectEncoding(content) == pugi::encoding_utf8 && passages.Find(content) &&
                        LoadPlain(document, WithPlaceholders(passages), isUtf8Mended, PARSE_OPTIONS | pugi::parse_pi) &&
                        passages.AreIn(document);
    if (!loaded)
    {
        passages.Clear();
        document.reset();
    }
    return loaded;
}

/// The characters of content in the encoding that it is parsed in.
std::wstring WideText(std::string_view content)
{
    if (FirstLineNamesShiftJis(content))
    {
        if (std::optional<std::wstring> text = WideFromCp932(content))
        {
            return *std::move(text);
        }
    }
    const pugi::xml_encoding encoding = DetectEncoding(content);
    if (encoding == pugi::encoding_utf8)
    {
        return WideFromUtf8(content);
    }
    ParserBuffer bytes(content.size());
    std::copy(content.begin(), content.end(), bytes.Data());
    const CodeUnits units = UnitsOf(bytes, encoding);
    std::wstring text(units.Count(), L'\0');
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        text[index] = static_cast<wchar_t>(units.At(index));
    }
    return text;
}

} // namespace

std::optional<ParserBuffer> ReadContent(const std::wstring& path)
{
    ParserBuffer buffer;
    try
    {
        const bool isRead = ReadWholeFile(path, [&](std::size_t size) {
                                buffer = ParserBuffer(size);
                                return buffer.Data();
                            }).has_value();
        return isRead ? std::optional(std::move(buffer)) : std::nullopt;
    }
    catch (const CFileException&)
    {
        WarnOf(WarningCause::UnreadableFile, path, EIO);
        return std::nullopt;
    }
}

bool LoadContent(pugi::xml_document& document, WcXmPassages* passages, ParserBuffer& content, bool& isUtf8Mended)
{
    isUtf8Mended = false;
    if (FirstLineNamesShiftJis(content.View()))
    {
        return LoadShiftJis(document, content.View()) || LoadPlain(document, std::move(content), isUtf8Mended);
    }
    if (passages == nullptr)
    {
        return LoadByParser(document, std::move(content), PARSE_OPTIONS, isUtf8Mended);
    }
    return LoadWithPassages(document, *passages, content.View(), isUtf8Mended) ||
           LoadPlain(document, std::move(content), isUtf8Mended);
}

namespace
{

/// The place behind the last character of a text.
FaultPlace PlaceBehind(std::wstring_view text)
{
    const std::size_t lineStart = text.rfind(L'\n') + 1; // 0 in the first line
    return {static_cast<std::size_t>(std::count(text.begin(), text.end(), L'\n')) + 1, text.size() - lineStart + 1};
}

} // namespace

FaultPlace FindMalformedUtf8(std::string_view content)
{
    content.remove_prefix(content.starts_with(UTF8_BYTE_ORDER_MARK) ? UTF8_BYTE_ORDER_MARK.size() : 0);
    return PlaceBehind(WideFromUtf8(content.substr(0, WellFormedUtf8Length(content))));
}

std::optional<FaultPlace> FindFault(std::string_view content)
{
    constexpr wchar_t BYTE_ORDER_MARK = 0xFEFF;
    std::wstring text = WideText(content);
    text.erase(0, text.starts_with(BYTE_ORDER_MARK) ? 1 : 0);
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(text.data(), text.size() * sizeof(wchar_t), PARSE_OPTIONS, pugi::encoding_wchar);
    if (result)
    {
        return std::nullopt;
    }
    return PlaceBehind(
        std::wstring_view(text).substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0))));
}

} // namespace jlandxml
