#include "inspect/SourceText.h"

#include "base/Text.h"
#include "inspect/WellFormedness.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <optional>
#include <string_view>

namespace jlandxml::inspect
{

namespace
{

/// The encodings that are read.
enum class KnownEncoding
{
    Utf8,
    Utf16,
    Cp932,
};

/// The names under which files call them.
struct EncodingName
{
    std::wstring_view name;
    KnownEncoding encoding;
};
constexpr EncodingName ENCODING_NAMES[] = {
    {L"UTF-8", KnownEncoding::Utf8},        {L"UTF8", KnownEncoding::Utf8},        {L"UTF-16", KnownEncoding::Utf16},
    {L"UTF16", KnownEncoding::Utf16},       {L"UTF-16LE", KnownEncoding::Utf16},   {L"UTF-16BE", KnownEncoding::Utf16},
    {L"Shift_JIS", KnownEncoding::Cp932},   {L"Shift-JIS", KnownEncoding::Cp932},  {L"SJIS", KnownEncoding::Cp932},
    {L"Windows-31J", KnownEncoding::Cp932}, {L"CP932", KnownEncoding::Cp932},      {L"MS932", KnownEncoding::Cp932},
    {L"MS_Kanji", KnownEncoding::Cp932},    {L"csShiftJIS", KnownEncoding::Cp932}, {L"x-sjis", KnownEncoding::Cp932},
};

/// Elements whose content is nothing but points or faces.
constexpr std::string_view PASSAGE_TAGS[] = {"<Pnts", "<Faces"};

struct ByteOrder
{
    std::string_view mark;
    std::size_t high; ///< which byte of a unit is the high one
};
constexpr ByteOrder UTF16_ORDERS[] = {{"\xFF\xFE", 1}, {"\xFE\xFF", 0}};

/// UTF-16 as UTF-8. A surrogate without its partner becomes U+FFFD on the way through wide text.
std::string Utf8FromUtf16(std::string_view bytes, std::size_t high, bool& isMalformed)
{
    std::wstring wide;
    wide.reserve(bytes.size() / 2);
    const auto unitAt = [&](std::size_t index) {
        return index + 1 < bytes.size() ? static_cast<char32_t>(static_cast<unsigned char>(bytes[index + high]) << 8U |
                                                                static_cast<unsigned char>(bytes[index + 1 - high]))
                                        : 0;
    };
    isMalformed = bytes.size() % 2 != 0;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2)
    {
        char32_t code = unitAt(index);
        const char32_t next = unitAt(index + 2);
        if (IsHighSurrogate(code) && IsLowSurrogate(next))
        {
            if constexpr (sizeof(wchar_t) == 4)
            {
                code = 0x10000 + ((code - 0xD800) << 10U) + (next - 0xDC00);
            }
            else
            {
                wide += static_cast<wchar_t>(code);
                code = next;
            }
            index += 2;
        }
        else
        {
            isMalformed = isMalformed || IsHighSurrogate(code) || IsLowSurrogate(code);
        }
        wide += static_cast<wchar_t>(code);
    }
    return Utf8FromWide(wide);
}

/// The encoding that the XML declaration names; empty if none.
std::wstring DeclaredEncoding(std::string_view bytes)
{
    std::string_view line = bytes.substr(0, std::min<std::size_t>(bytes.find('>'), 200));
    const std::size_t label = line.find("encoding");
    if (!line.starts_with("<?xml") || label == std::string_view::npos)
    {
        return {};
    }
    line.remove_prefix(label);
    const std::size_t open = line.find_first_of("\"'");
    const std::size_t close = open == std::string_view::npos ? open : line.find(line[open], open + 1);
    return close == std::string_view::npos ? std::wstring() : WideFromUtf8(line.substr(open + 1, close - open - 1));
}

/// Nothing for one that isn't known. A file that declares none is in UTF-8, or has a mark.
std::optional<KnownEncoding> FindEncoding(std::wstring_view name)
{
    const auto* const found = std::find_if(std::begin(ENCODING_NAMES), std::end(ENCODING_NAMES),
                                           [&](const EncodingName& one) { return EqualsIgnoreCase(one.name, name); });
    return found != std::end(ENCODING_NAMES) ? std::optional(found->encoding) : std::nullopt;
}

std::string_view WithoutMark(std::string_view text)
{
    text.remove_prefix(text.starts_with(UTF8_BYTE_ORDER_MARK) ? UTF8_BYTE_ORDER_MARK.size() : 0);
    return text;
}

/// True if all is ASCII, and so read alike in every encoding that isn't known. Some of them switch to other characters
/// by an escape.
bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char character) {
        return static_cast<unsigned char>(character) < 0x80 && character != '\x1B';
    });
}

/// Each byte beyond ASCII as a character of its own: what can't be read differs where it differed.
std::string BytesAsCharacters(std::string_view bytes)
{
    std::wstring wide(bytes.size(), L'\0');
    std::transform(bytes.begin(), bytes.end(), wide.begin(),
                   [](char one) { return static_cast<wchar_t>(static_cast<unsigned char>(one)); });
    return Utf8FromWide(wide);
}

/// A whole file as UTF-8, perhaps with a mark.
struct DecodedBytes
{
    std::string text;
    SourceEncoding encoding;
};

/// The bytes of a file without a mark of UTF-16.
DecodedBytes DecodeMarkless(std::string bytes)
{
    const std::string_view text = WithoutMark(bytes);
    const bool isMarked = text.size() < bytes.size();
    SourceEncoding encoding{EncodingFault::None, DeclaredEncoding(text)};
    const std::optional<KnownEncoding> known =
        encoding.declared.empty() ? KnownEncoding::Utf8 : FindEncoding(encoding.declared);
    if (known == KnownEncoding::Cp932 && !isMarked)
    {
        if (const std::optional<std::wstring> wide = WideFromCp932(bytes))
        {
            encoding.read = L"Shift_JIS";
            return {Utf8FromWide(*wide), std::move(encoding)};
        }
    }
    if (!known && !isMarked)
    {
        encoding.fault = IsAscii(text) ? EncodingFault::None : EncodingFault::UnknownDeclared;
        if (!IsWellFormedUtf8(text))
        {
            bytes = BytesAsCharacters(text);
        }
    }
    else if (known != KnownEncoding::Utf8 && (isMarked || known == KnownEncoding::Utf16 || IsWellFormedUtf8(text)))
    {
        encoding.fault = EncodingFault::AnotherDeclared;
    }
    return {std::move(bytes), std::move(encoding)};
}

DecodedBytes Decode(std::string bytes)
{
    for (const ByteOrder& order : UTF16_ORDERS)
    {
        if (std::string_view(bytes).starts_with(order.mark))
        {
            bool isMalformed = false;
            std::string text =
                Utf8FromUtf16(std::string_view(bytes).substr(order.mark.size()), order.high, isMalformed);
            SourceEncoding encoding{EncodingFault::None, DeclaredEncoding(text), L"UTF-16"};
            const bool isAnother =
                !encoding.declared.empty() && FindEncoding(encoding.declared) != KnownEncoding::Utf16;
            encoding.fault = isAnother     ? EncodingFault::AnotherDeclared
                             : isMalformed ? EncodingFault::MalformedBytes
                                           : EncodingFault::None;
            return {std::move(text), std::move(encoding)};
        }
    }
    return DecodeMarkless(std::move(bytes));
}

/// Where the next element that holds a passage begins: behind its start tag. Nothing behind the last.
struct PassageTag
{
    std::size_t name;    ///< of the element's name
    std::size_t content; ///< behind the tag
};

std::optional<PassageTag> FindPassageTag(std::string_view bytes, std::size_t from)
{
    for (std::size_t tag = bytes.find('<', from); tag != std::string_view::npos; tag = bytes.find('<', tag + 1))
    {
        for (const std::string_view name : PASSAGE_TAGS)
        {
            const std::string_view rest = bytes.substr(tag);
            if (rest.starts_with(name) && rest.size() > name.size() && rest[name.size()] == '>')
            {
                return PassageTag{tag + 1, tag + name.size() + 1};
            }
        }
    }
    return {};
}

} // namespace

/// The stretches of a file as they are handed to the judge of its form.
struct SourceText::Stretches
{
    std::vector<FileStretch> all;
    std::deque<std::string> repaired; ///< in the place of those with malformed bytes

    void Add(const FileStretch& stretch)
    {
        if (stretch.Length() > 0)
        {
            all.push_back(stretch);
        }
    }
};

std::string DecodedText(std::string bytes)
{
    std::string text = Decode(std::move(bytes)).text;
    text.erase(0, text.size() - WithoutMark(text).size());
    return text;
}

SourceText::SourceText(std::string bytes)
{
    DecodedBytes decoded = Decode(std::move(bytes));
    encoding_ = std::move(decoded.encoding);
    Stretches stretches;
    CutPassages(WithoutMark(decoded.text), stretches);
    if (encoding_.fault != EncodingFault::UnknownDeclared) // else nobody knows what its characters are
    {
        formFault_ = FindFormFault(stretches.all);
    }
}

void SourceText::CutPassages(std::string_view bytes, Stretches& stretches)
{
    std::size_t done = 0;
    for (std::optional<PassageTag> tag = FindPassageTag(bytes, 0); tag; tag = FindPassageTag(bytes, tag->content))
    {
        Append(bytes.substr(done, tag->name - done), stretches);
        const std::size_t nameOffset = text_.size();
        Append(bytes.substr(tag->name, tag->content - tag->name), stretches);
        done = tag->content;
        if (std::optional<SurfacePassage> passage = ReadSurfacePassage(bytes.substr(done), lineStarts_.back().line))
        {
            done += passage->length;
            tag->content = done;
            lineStarts_.push_back({text_.size(), lineStarts_.back().line + passage->lines});
            stretches.Add({{}, passage->lines});
            passages_.emplace(nameOffset, *std::move(passage));
        }
    }
    Append(bytes.substr(done), stretches);
}

void SourceText::Append(std::string_view bytes, Stretches& stretches)
{
    if (IsWellFormedUtf8(bytes))
    {
        stretches.Add({bytes});
    }
    else
    {
        stretches.Add({stretches.repaired.emplace_back(RepairUtf8(bytes))});
        encoding_.fault = encoding_.fault == EncodingFault::None ? EncodingFault::MalformedBytes : encoding_.fault;
    }
    std::size_t place = text_.size();
    text_ += WideFromUtf8(bytes);
    while ((place = text_.find(L'\n', place)) != std::wstring::npos)
    {
        lineStarts_.push_back({++place, lineStarts_.back().line + 1});
    }
}

std::size_t SourceText::LineAt(std::ptrdiff_t offset) const
{
    const auto place = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
    const auto behind =
        std::upper_bound(lineStarts_.begin(), lineStarts_.end(), place,
                         [](std::size_t value, const LineStart& start) { return value < start.offset; });
    return std::prev(behind)->line;
}

SurfacePassage* SourceText::PassageAt(std::ptrdiff_t offset)
{
    const auto found = passages_.find(static_cast<std::size_t>(offset));
    return found != passages_.end() ? &found->second : nullptr;
}

} // namespace jlandxml::inspect
