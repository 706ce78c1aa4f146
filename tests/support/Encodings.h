#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace jlandxml
{

/// A text in units of two or four bytes, as it stands: with a mark if it begins with one.
inline std::string InUnits(std::wstring_view text, std::size_t size, bool bigEndian)
{
    std::string bytes;
    for (const wchar_t unit : text)
    {
        for (std::size_t byte = 0; byte < size; ++byte)
        {
            const std::size_t place = bigEndian ? size - 1 - byte : byte;
            bytes += static_cast<char>(static_cast<std::uint32_t>(unit) >> (8 * place) & 0xFF);
        }
    }
    return bytes;
}

inline std::string Utf16(std::wstring_view text, bool bigEndian)
{
    return InUnits(text, 2, bigEndian);
}

} // namespace jlandxml
