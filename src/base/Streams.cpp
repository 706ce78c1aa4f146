#include "base/Streams.h"

#include "base/NativeFile.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

#ifdef _WIN32
#include <windows.h>
#else
#include "base/WriteSignals.h"

#include <cstdio>
#include <unistd.h>
#endif

namespace jlandxml
{

namespace
{

/// What is written at once; most lines fit. A character beyond the basic plane is never cut in two.
constexpr std::size_t BLOCK_UNITS = 1024;

bool traceLinesAreSilent = false;

std::wstring_view TakeBlock(std::wstring_view& text)
{
    std::size_t length = std::min(text.size(), BLOCK_UNITS);
    if (length < text.size() && IsHighSurrogate(static_cast<char32_t>(text[length - 1])))
    {
        --length;
    }
    const std::wstring_view block = text.substr(0, length);
    text.remove_prefix(length);
    return block;
}

bool WriteUtf8(NativeFile::Handle handle, std::wstring_view text) noexcept
{
    std::array<char, BLOCK_UNITS * MOST_UTF8_BYTES> bytes{};
    while (!text.empty())
    {
        const std::size_t size = EncodeUtf8(TakeBlock(text), bytes.data());
        if (!NativeFile::WriteTo(handle, {bytes.data(), size}))
        {
            return false;
        }
    }
    return true;
}

} // namespace

#ifdef _WIN32

namespace
{

NativeFile::Handle StandardInput()
{
    return GetStdHandle(STD_INPUT_HANDLE);
}

bool WriteTo(DWORD standardHandle, std::wstring_view text) noexcept
{
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode) == 0)
    {
        return WriteUtf8(handle, text);
    }
    while (!text.empty())
    {
        const std::wstring_view block = TakeBlock(text);
        if (WriteConsoleW(handle, block.data(), static_cast<DWORD>(block.size()), &written, nullptr) == 0)
        {
            return false;
        }
    }
    return true;
}

} // namespace

bool StandardErrorIsTerminal() noexcept
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

bool WriteStandardOutput(std::wstring_view text) noexcept
{
    return WriteTo(STD_OUTPUT_HANDLE, text);
}

bool WriteStandardError(std::wstring_view text) noexcept
{
    return WriteTo(STD_ERROR_HANDLE, text);
}

#else

namespace
{

NativeFile::Handle StandardInput()
{
    return STDIN_FILENO;
}

/// What the host has in the stream's buffer goes first. The text itself doesn't go through the buffer: what can't be
/// written there would be tried again, and raise its signal, when the host ends.
bool WriteTo(std::FILE* stream, std::wstring_view text) noexcept
{
    const WriteSignals signals;
    static_cast<void>(std::fflush(stream)); // what the host's stream can't take is the host's to learn
    return WriteUtf8(::fileno(stream), text);
}

} // namespace

bool StandardErrorIsTerminal() noexcept
{
    return ::isatty(STDERR_FILENO) != 0;
}

bool WriteStandardOutput(std::wstring_view text) noexcept
{
    return WriteTo(stdout, text);
}

bool WriteStandardError(std::wstring_view text) noexcept
{
    return WriteTo(stderr, text);
}

#endif

std::optional<std::string> ReadStandardInput(std::size_t most)
{
    NativeFile input(StandardInput());
    std::string content;
    std::string block(BLOCK_UNITS * MOST_UTF8_BYTES, '\0');
    std::optional<std::size_t> taken;
    do
    {
        taken = input.Read(block.data(), block.size());
        content.append(block, 0, taken.value_or(0));
    } while (taken.value_or(0) > 0 && content.size() <= most);
    input.Release(); // somebody else's to close
    return taken == std::size_t{0} ? std::optional(std::move(content)) : std::nullopt;
}

void WriteTraceLine(std::wstring_view text) noexcept
{
    if (!traceLinesAreSilent)
    {
        WriteStandardOutput(text);
    }
}

void SilenceTraceLines(bool silent) noexcept
{
    traceLinesAreSilent = silent;
}

} // namespace jlandxml
