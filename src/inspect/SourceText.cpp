#include "inspect/SourceText.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace jlandxml::inspect
{

namespace
{

/// The names under which files call code page 932.
constexpr std::wstring_view CP932_NAMES[] = {L"Shift_JIS", L"Shift-JIS", L"SJIS", L"Windows-31J", L"CP932", L"MS932"};

/// Elements whose content is nothing but points or faces.
constexpr std::string_view PASSAGE_TAGS[] = {"<Pnts", "<Faces"};

struct ByteOrder
{
    std::string_view mark;
    std::size_t high; ///< which byte of a unit is the high one
};
constexpr ByteOrder UTF16_ORDERS[] = {{"\xFF\xFE", 1}, {"\xFE\xFF", 0}};

/// UTF-16 as UTF-8. A surrogate without its partner becomes U+FFFD on the way through wide text.
std::string Utf8FromUtf16(std::string_view bytes, std::size_t high)
{
    std::wstring wide;
    wide.reserve(bytes.size() / 2);
    const auto unitAt = [&](std::size_t index) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[index + high]) << 8U |
                                     static_cast<unsigned char>(bytes[index + 1 - high]));
    };
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2)
    {
        char32_t code = unitAt(index);
        if constexpr (sizeof(wchar_t) == 4)
        {
            const bool isHigh = code >= 0xD800 && code < 0xDC00;
            const char32_t next = isHigh && index + 3 < bytes.size() ? unitAt(index + 2) : 0;
            if (next >= 0xDC00 && next < 0xE000)
            {
                code = 0x10000 + ((code - 0xD800) << 10U) + (next - 0xDC00);
                index += 2;
            }
        }
        wide += static_cast<wchar_t>(code);
    }
    return Utf8FromWide(wide);
}

/// The encoding that the declaration in the first line names; empty if none.
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

bool IsCp932(std::string_view bytes)
{
    const std::wstring encoding = DeclaredEncoding(bytes);
    return std::any_of(std::begin(CP932_NAMES), std::end(CP932_NAMES),
                       [&](std::wstring_view name) { return EqualsIgnoreCase(name, encoding); });
}

/// The same text as UTF-8, perhaps with a mark.
std::string Decode(std::string bytes)
{
    for (const ByteOrder& order : UTF16_ORDERS)
    {
        if (std::string_view(bytes).starts_with(order.mark))
        {
            return Utf8FromUtf16(std::string_view(bytes).substr(order.mark.size()), order.high);
        }
    }
    if (IsCp932(bytes))
    {
        if (const std::optional<std::wstring> wide = WideFromCp932(bytes))
        {
            return Utf8FromWide(*wide);
        }
    }
    return bytes;
}

std::string_view WithoutMark(std::string_view text)
{
    text.remove_prefix(text.starts_with(UTF8_BYTE_ORDER_MARK) ? UTF8_BYTE_ORDER_MARK.size() : 0);
    return text;
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

std::string DecodedText(std::string bytes)
{
    std::string text = Decode(std::move(bytes));
    text.erase(0, text.size() - WithoutMark(text).size());
    return text;
}

SourceText::SourceText(std::string bytes)
{
    const std::string text = Decode(std::move(bytes));
    CutPassages(WithoutMark(text));
}

void SourceText::CutPassages(std::string_view bytes)
{
    std::size_t done = 0;
    for (std::optional<PassageTag> tag = FindPassageTag(bytes, 0); tag; tag = FindPassageTag(bytes, tag->content))
    {
        Append(bytes.substr(done, tag->name - done));
        const std::size_t nameOffset = text_.size();
        Append(bytes.substr(tag->name, tag->content - tag->name));
        done = tag->content;
        if (std::optional<SurfacePassage> passage = ReadSurfacePassage(bytes.substr(done), lineStarts_.back().line))
        {
            done += passage->length;
            tag->content = done;
            lineStarts_.push_back({text_.size(), lineStarts_.back().line + passage->lines});
            passages_.emplace(nameOffset, *std::move(passage));
        }
    }
    Append(bytes.substr(done));
}

void SourceText::Append(std::string_view bytes)
{
    hasMalformedBytes_ = hasMalformedBytes_ || !IsWellFormedUtf8(bytes);
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
