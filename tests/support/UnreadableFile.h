#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace jlandxml
{

/// A file that opens and has a length, but whose content the system refuses; nothing where there is none. The loopback
/// device has no speed to tell.
inline std::optional<std::wstring> UnreadableFile()
{
    constexpr const char* NAME = "/sys/class/net/lo/speed";
    std::error_code missing;
    return std::filesystem::file_size(NAME, missing) > 0 && !missing
               ? std::optional(std::filesystem::path(NAME).wstring())
               : std::nullopt;
}

} // namespace jlandxml
