#pragma once

#include "support/TemporaryFolder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml::fuzz
{

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// The files that an input holds, one behind the other, with a line of equals signs between them. What isn't there is
/// empty.
inline std::vector<std::string> Files(std::string_view bytes, std::size_t count)
{
    constexpr std::string_view SEPARATOR = "\n====\n";
    std::vector<std::string> files(count);
    for (std::size_t index = 0; index < count; ++index)
    {
        const std::size_t end = index + 1 < count ? bytes.find(SEPARATOR) : std::string_view::npos;
        files[index] = bytes.substr(0, end);
        if (end == std::string_view::npos)
        {
            break;
        }
        bytes.remove_prefix(end + SEPARATOR.size());
    }
    return files;
}

} // namespace jlandxml::fuzz
