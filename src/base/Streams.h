#pragma once

#include <string_view>

namespace jlandxml
{

/// Writes text to standard output: UTF-8 with line feeds as they stand, or readable characters where a Windows console
/// shows it. Nothing happens in a host that has no standard output, or one that nobody reads any more. It asks for no
/// memory, so that want of memory can be told. False if not all of it was taken, such as by a full disk; a trace line
/// is none the worse for it.
bool WriteStandardOutput(std::wstring_view text) noexcept;

/// The same for standard error.
bool WriteStandardError(std::wstring_view text) noexcept;

} // namespace jlandxml
