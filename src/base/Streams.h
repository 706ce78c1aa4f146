#pragma once

#include <string_view>

namespace jlandxml
{

/// Writes text to standard output: UTF-8 with line feeds as they stand, or readable characters where a Windows console
/// shows it. Nothing happens in a host that has no standard output, or one that nobody reads any more. It asks for no
/// memory, so that want of memory can be told.
void WriteStandardOutput(std::wstring_view text) noexcept;

/// The same for standard error.
void WriteStandardError(std::wstring_view text) noexcept;

} // namespace jlandxml
