#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr std::string_view REPLACEMENT_UTF8 = "\xEF\xBF\xBD";

/// The bytes that one lead byte of UTF-8 announces, and the range of the byte behind it, which rules out overlong
/// forms, surrogates and values above U+10FFFF.
struct LeadByte
{
    unsigned char first;
    unsigned char last;
    unsigned char length;
    unsigned char secondFirst;
    unsigned char secondLast;
};

constexpr LeadByte LEAD_BYTES[] = {
    {0x00, 0x7F, 1, 0x00, 0x00}, {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

struct Utf8Sequence
{
    std::size_t length; ///< bytes used, at least 1
    bool wellFormed;
    char32_t codePoint;
};

/// Reads one sequence. A malformed one is as long as what could still have become a character.
Utf8Sequence NextSequence(std::string_view text)
{
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const auto* lead = std::find_if(std::begin(LEAD_BYTES), std::end(LEAD_BYTES),
                                    [&](const LeadByte& row) { return byte(0) >= row.first && byte(0) <= row.last; });
    if (lead == std::end(LEAD_BYTES))
    {
        return {1, false, REPLACEMENT_CHARACTER};
    }
    if (lead->length == 1)
    {
        return {1, true, byte(0)};
    }
    char32_t codePoint = byte(0) & (0x7FU >> lead->length);
    for (std::size_t index = 1; index < lead->length; ++index)
    {
        const unsigned char first = index == 1 ? lead->secondFirst : 0x80;
        const unsigned char last = index == 1 ? lead->secondLast : 0xBF;
        if (index >= text.size() || byte(index) < first || byte(index) > last)
        {
            return {index, false, REPLACEMENT_CHARACTER};
        }
        codePoint = (codePoint << 6) | (byte(index) & 0x3FU);
    }
    return {lead->length, true, codePoint};
}

/// True where the two halves of a character beyond U+FFFF stand.
bool IsPairAt(std::wstring_view text, std::size_t index)
{
    return index + 1 < text.size() && IsHighSurrogate(static_cast<char32_t>(text[index])) &&
           IsLowSurrogate(static_cast<char32_t>(text[index + 1]));
}

/// The number of ASCII bytes at the front, looked at eight at a time.
std::size_t AsciiPrefix(std::string_view text)
{
    std::size_t index = 0;
    for (; index + sizeof(std::uint64_t) <= text.size(); index += sizeof(std::uint64_t))
    {
        std::uint64_t block = 0;
        std::memcpy(&block, text.data() + index, sizeof block);
        if ((block & 0x8080808080808080U) != 0)
        {
            break;
        }
    }
    while (index < text.size() && static_cast<unsigned char>(text[index]) < 0x80)
    {
        ++index;
    }
    return index;
}

wchar_t* PutWide(wchar_t* out, char32_t codePoint)
{
    if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF)
    {
        *out++ = static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10));
        codePoint = 0xDC00 + ((codePoint - 0x10000) & 0x3FF);
    }
    *out++ = static_cast<wchar_t>(codePoint);
    return out;
}

/// Widens the ASCII bytes at the front, eight at a time where there are so many. Their number.
std::size_t WidenAscii(std::string_view text, wchar_t* out)
{
    std::size_t index = 0;
    for (std::uint64_t block = 0; index + sizeof block <= text.size(); index += sizeof block)
    {
        std::memcpy(&block, text.data() + index, sizeof block);
        if ((block & 0x8080808080808080U) != 0)
        {
            break;
        }
        for (std::size_t byte = 0; byte < sizeof block; ++byte)
        {
            out[index + byte] = static_cast<wchar_t>(text[index + byte]);
        }
    }
    for (; index < text.size() && static_cast<unsigned char>(text[index]) < 0x80; ++index)
    {
        out[index] = static_cast<wchar_t>(text[index]);
    }
    return index;
}

/// So many units are looked at and narrowed at a time where they are ASCII, as most of a terrain is.
constexpr std::size_t ASCII_BLOCK = 16;

bool IsAsciiBlock(std::wstring_view text, std::size_t index)
{
    if (index + ASCII_BLOCK > text.size())
    {
        return false;
    }
    std::uint32_t bits = 0;
    for (std::size_t unit = 0; unit < ASCII_BLOCK; ++unit)
    {
        bits |= static_cast<std::uint32_t>(text[index + unit]);
    }
    return bits < 0x80;
}

char* Encode(char* out, char32_t codePoint)
{
    const auto trail = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (codePoint < 0x800)
    {
        *out++ = static_cast<char>(0xC0 | (codePoint >> 6));
    }
    else if (codePoint < 0x10000)
    {
        *out++ = static_cast<char>(0xE0 | (codePoint >> 12));
        *out++ = trail(codePoint >> 6);
    }
    else
    {
        *out++ = static_cast<char>(0xF0 | (codePoint >> 18));
        *out++ = trail(codePoint >> 12);
        *out++ = trail(codePoint >> 6);
    }
    *out++ = trail(codePoint);
    return out;
}

bool IsWhiteSpaceCharacter(char32_t code)
{
    // Nearly all that is asked for is a visible character of ASCII.
    if (code > 0x0020 && code < 0x0085)
    {
        return false;
    }
    return (code >= 0x0009 && code <= 0x000D) || code == 0x0020 || code == 0x0085 || code == 0x00A0 || code == 0x1680 ||
           (code >= 0x2000 && code <= 0x200A) || code == 0x2028 || code == 0x2029 || code == 0x202F || code == 0x205F ||
           code == 0x3000;
}

} // namespace

bool IsWhiteSpace(wchar_t character)
{
    return IsWhiteSpaceCharacter(static_cast<char32_t>(character));
}

std::wstring_view TrimLeft(std::wstring_view text)
{
    const auto* const first = std::find_if_not(text.data(), text.data() + text.size(), IsWhiteSpace);
    return text.substr(static_cast<std::size_t>(first - text.data()));
}

std::wstring_view TrimRight(std::wstring_view text)
{
    while (!text.empty() && IsWhiteSpace(text.back()))
    {
        text.remove_suffix(1);
    }
    return text;
}

std::wstring_view Trim(std::wstring_view text)
{
    return TrimRight(TrimLeft(text));
}

std::string_view TrimUtf8(std::string_view text)
{
    while (!text.empty())
    {
        const Utf8Sequence first = NextSequence(text);
        if (!IsWhiteSpaceCharacter(first.codePoint))
        {
            break;
        }
        text.remove_prefix(first.length);
    }
    while (!text.empty())
    {
        std::size_t last = text.size() - 1;
        while (last > 0 && (static_cast<unsigned char>(text[last]) & 0xC0) == 0x80)
        {
            --last;
        }
        if (!IsWhiteSpaceCharacter(NextSequence(text.substr(last)).codePoint))
        {
            break;
        }
        text.remove_suffix(text.size() - last);
    }
    return text;
}

bool EqualsIgnoreCase(std::wstring_view first, std::wstring_view second)
{
    return first.size() == second.size() &&
           std::equal(first.begin(), first.end(), second.begin(),
                      [](wchar_t a, wchar_t b) { return FoldAscii(a) == FoldAscii(b); });
}

bool EqualsIgnoreCase(const wchar_t* first, std::wstring_view second)
{
    for (const wchar_t wanted : second)
    {
        if (FoldAscii(*first) != FoldAscii(wanted) || *first == L'\0')
        {
            return false;
        }
        ++first;
    }
    return *first == L'\0';
}

std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to)
{
    std::wstring result;
    std::size_t position = 0;
    for (std::size_t hit = text.find(from); hit != std::wstring_view::npos && !from.empty();
         hit = text.find(from, position))
    {
        result.append(text, position, hit - position).append(to);
        position = hit + from.size();
    }
    return result.append(text, position);
}

std::wstring WideFromUtf8(std::string_view text)
{
    std::wstring result(text.size(), L'\0');
    result.resize(DecodeUtf8(text, result.data()));
    return result;
}

std::size_t DecodeUtf8(std::string_view text, wchar_t* out)
{
    bool isWellFormed = true;
    return DecodeUtf8(text, out, isWellFormed);
}

std::size_t DecodeUtf8(std::string_view text, wchar_t* out, bool& isWellFormed)
{
    const wchar_t* const begin = out;
    isWellFormed = true;
    for (;;)
    {
        const std::size_t ascii = WidenAscii(text, out);
        out += ascii;
        text.remove_prefix(ascii);
        if (text.empty())
        {
            return static_cast<std::size_t>(out - begin);
        }
        const Utf8Sequence sequence = NextSequence(text);
        isWellFormed = isWellFormed && sequence.wellFormed;
        out = PutWide(out, sequence.codePoint);
        text.remove_prefix(sequence.length);
    }
}

std::size_t EncodeUtf8(std::wstring_view text, char* const target) noexcept
{
    char* out = target;
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        for (; IsAsciiBlock(text, index); index += ASCII_BLOCK)
        {
            std::transform(text.data() + index, text.data() + index + ASCII_BLOCK, out,
                           [](wchar_t unit) { return static_cast<char>(unit); });
            out += ASCII_BLOCK;
        }
        if (index == text.size())
        {
            break;
        }
        auto codePoint = static_cast<char32_t>(text[index]);
        if (codePoint < 0x80)
        {
            *out++ = static_cast<char>(codePoint);
            continue;
        }
        if (IsPairAt(text, index))
        {
            ++index;
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (static_cast<char32_t>(text[index]) - 0xDC00);
        }
        else if (IsHighSurrogate(codePoint) || IsLowSurrogate(codePoint) || codePoint > 0x10FFFF)
        {
            codePoint = REPLACEMENT_CHARACTER;
        }
        out = Encode(out, codePoint);
    }
    return static_cast<std::size_t>(out - target);
}

void AppendUtf8(std::string& target, std::wstring_view text)
{
    const std::size_t start = target.size();
    target.resize(start + text.size() * MOST_UTF8_BYTES);
    target.resize(start + EncodeUtf8(text, target.data() + start));
}

std::string Utf8FromWide(std::wstring_view text)
{
    std::string result;
    AppendUtf8(result, text);
    return result;
}

bool IsWellFormedUtf8(std::string_view text)
{
    return WellFormedUtf8Length(text) == text.size();
}

std::size_t WellFormedUtf8Length(std::string_view text)
{
    std::string_view rest = text;
    while (!rest.empty())
    {
        rest.remove_prefix(AsciiPrefix(rest));
        if (!rest.empty())
        {
            const Utf8Sequence sequence = NextSequence(rest);
            if (!sequence.wellFormed)
            {
                break;
            }
            rest.remove_prefix(sequence.length);
        }
    }
    return text.size() - rest.size();
}

std::size_t CountCharacters(std::wstring_view text)
{
    std::size_t count = 0;
    for (std::size_t index = 0; index < text.size(); index += IsPairAt(text, index) ? 2 : 1)
    {
        ++count;
    }
    return count;
}

std::wstring_view FirstCharacters(std::wstring_view text, std::size_t count)
{
    std::size_t length = 0;
    for (; length < text.size() && count > 0; --count)
    {
        length += IsPairAt(text, length) ? 2 : 1;
    }
    return text.substr(0, length);
}

bool SpeaksAgainstShiftJis(std::string_view line)
{
    return AsciiPrefix(line) < line.size() && (IsWellFormedUtf8(line) || !WideFromCp932(line));
}

std::string RepairUtf8(std::string_view text)
{
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    while (!text.empty())
    {
        const std::size_t ascii = AsciiPrefix(text);
        result.append(text, 0, ascii);
        text.remove_prefix(ascii);
        if (!text.empty())
        {
            const Utf8Sequence sequence = NextSequence(text);
            result.append(sequence.wellFormed ? text.substr(0, sequence.length) : REPLACEMENT_UTF8);
            text.remove_prefix(sequence.length);
        }
    }
    return result;
}

std::optional<std::wstring> WideFromCp932(std::string_view text)
{
    std::wstring result(text.size(), L'\0');
    const std::optional<std::size_t> length = DecodeCp932(text, result.data());
    result.resize(length.value_or(0));
    return length ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace jlandxml
