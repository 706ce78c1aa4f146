#include "base/CompactText.h"

#include "base/Text.h"

#include <algorithm>
#include <limits>
#include <new>

namespace jlandxml
{

namespace
{

/// How many bytes follow the first one of a unit, and the bits that mark the first one.
struct UnitForm
{
    char32_t limit; ///< for units below it
    int following;
    unsigned char mark;
};
constexpr UnitForm UNIT_FORMS[] = {{0x80, 0, 0x00}, {0x800, 1, 0xC0}, {0x10000, 2, 0xE0}, {0x200000, 3, 0xF0}};

void AppendUnit(std::string& bytes, char32_t unit)
{
    const auto* const form = std::find_if(std::begin(UNIT_FORMS), std::end(UNIT_FORMS),
                                          [&](const UnitForm& one) { return unit < one.limit; });
    if (form == std::end(UNIT_FORMS))
    {
        return AppendUnit(bytes, REPLACEMENT_CHARACTER);
    }
    bytes += static_cast<char>(form->mark | unit >> 6 * form->following);
    for (int rest = form->following - 1; rest >= 0; --rest)
    {
        bytes += static_cast<char>(0x80 | (unit >> 6 * rest & 0x3F));
    }
}

bool IsFollowing(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

} // namespace

CompactText CompactText::FromUtf8(std::string_view text)
{
    CompactText result;
    if (IsAscii(text))
    {
        result.Keep(text);
    }
    else
    {
        result.Assign(WideFromUtf8(text));
    }
    return result;
}

std::wstring CompactText::Wide() const
{
    std::wstring text;
    const std::string_view bytes = Bytes();
    text.reserve(bytes.size());
    for (std::size_t index = 0; index < bytes.size();)
    {
        const auto first = static_cast<unsigned char>(bytes[index++]);
        const int following = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        char32_t unit = following == 0 ? first : first & (0x3FU >> following);
        for (; index < bytes.size() && IsFollowing(bytes[index]); ++index)
        {
            unit = unit << 6 | (static_cast<unsigned char>(bytes[index]) & 0x3FU);
        }
        text += static_cast<wchar_t>(unit);
    }
    return text;
}

void CompactText::Assign(std::wstring_view text)
{
    std::string bytes;
    for (const wchar_t unit : text)
    {
        AppendUnit(bytes, static_cast<char32_t>(unit));
    }
    Keep(bytes);
}

/// For an object that holds nothing yet.
void CompactText::Keep(std::string_view bytes)
{
    if (bytes.size() < SIZE)
    {
        std::memcpy(bytes_, bytes.data(), bytes.size());
        bytes_[LENGTH_PLACE] = static_cast<char>(bytes.size());
        return;
    }
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
    {
        throw std::bad_alloc();
    }
    const LongText text{new char[bytes.size()], static_cast<std::uint32_t>(bytes.size())};
    std::memcpy(text.data, bytes.data(), bytes.size());
    std::memcpy(bytes_, &text.data, sizeof text.data);
    std::memcpy(bytes_ + sizeof text.data, &text.size, sizeof text.size);
    bytes_[LENGTH_PLACE] = LONG_MARK;
}

} // namespace jlandxml
