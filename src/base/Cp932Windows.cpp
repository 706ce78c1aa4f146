#ifdef _WIN32

#include "base/Text.h"

#include <algorithm>

#include <windows.h>

namespace jlandxml
{

namespace
{

constexpr UINT CODE_PAGE = 932;
/// The system's calls count in 32 bits; the blocks end at a line feed, which is never the second byte of a character.
constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 24;

bool IsLeadByte(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// Bytes for which the system has characters of its own making, though the code page assigns none.
bool IsUnassignedByte(unsigned char byte)
{
    return byte == 0x80 || byte == 0xA0 || byte >= 0xFD;
}

bool HoldsUnassignedByte(std::string_view text)
{
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        const auto byte = static_cast<unsigned char>(text[index]);
        if (IsUnassignedByte(byte))
        {
            return true;
        }
        index += IsLeadByte(byte) ? 1 : 0;
    }
    return false;
}

std::size_t BlockLength(std::string_view text)
{
    if (text.size() <= BLOCK_SIZE)
    {
        return text.size();
    }
    const std::size_t lineEnd = text.rfind('\n', BLOCK_SIZE);
    return lineEnd == std::string_view::npos ? text.size() : lineEnd + 1;
}

} // namespace

std::optional<std::size_t> DecodeCp932(std::string_view text, wchar_t* out)
{
    if (HoldsUnassignedByte(text))
    {
        return std::nullopt;
    }
    std::size_t count = 0;
    while (!text.empty())
    {
        const std::size_t length = BlockLength(text);
        const int written = MultiByteToWideChar(CODE_PAGE, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(length),
                                                out + count, static_cast<int>(length));
        if (written <= 0)
        {
            return std::nullopt;
        }
        count += static_cast<std::size_t>(written);
        text.remove_prefix(length);
    }
    return count;
}

std::string Cp932FromWide(std::wstring_view text)
{
    std::string result;
    while (!text.empty())
    {
        std::size_t length = std::min(text.size(), BLOCK_SIZE);
        if (length < text.size() && IsHighSurrogate(text[length - 1]))
        {
            --length;
        }
        const std::size_t start = result.size();
        result.resize(start + 2 * length);
        const int written = WideCharToMultiByte(CODE_PAGE, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(length),
                                                result.data() + start, static_cast<int>(2 * length), "?", nullptr);
        result.resize(start + static_cast<std::size_t>(std::max(written, 0)));
        text.remove_prefix(length);
    }
    return result;
}

} // namespace jlandxml

#endif
