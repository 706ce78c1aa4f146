#pragma once

#include <cstddef>
#include <optional>
#include <string>
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

/// True if a person sees standard error as it is written.
bool StandardErrorIsTerminal() noexcept;

/// All that standard input holds, read to its end; nothing if the system refuses it or there are more bytes than that.
std::optional<std::string> ReadStandardInput(std::size_t most);

/// Writes a trace line to standard output, unless it is silenced.
void WriteTraceLine(std::wstring_view text) noexcept;

/// Keeps trace lines away from a standard output that something else is to stand on. They aren't silenced at first.
void SilenceTraceLines(bool silent) noexcept;

} // namespace jlandxml
