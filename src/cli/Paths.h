#pragma once

#include "base/Text.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace jlandxml
{

/// A name in UTF-8 as a path of the file system library, which would otherwise take it in the process's code page.
inline std::filesystem::path PathOf(std::string_view name)
{
    return std::u8string(name.begin(), name.end());
}

inline std::filesystem::path PathOf(std::wstring_view name)
{
    return PathOf(Utf8FromWide(name));
}

} // namespace jlandxml
