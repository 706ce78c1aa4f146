#include "base/Streams.h"

#include "base/NativeFile.h"
#include "base/Text.h"

#ifdef _WIN32
#include <windows.h>
#else
#include "base/WriteSignals.h"

#include <cstdio>
#endif

namespace jlandxml
{

#ifdef _WIN32

namespace
{

void WriteTo(DWORD standardHandle, std::wstring_view text)
{
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode) != 0)
    {
        WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    NativeFile::WriteTo(handle, Utf8FromWide(text));
}

} // namespace

void WriteStandardOutput(std::wstring_view text)
{
    WriteTo(STD_OUTPUT_HANDLE, text);
}

void WriteStandardError(std::wstring_view text)
{
    WriteTo(STD_ERROR_HANDLE, text);
}

#else

namespace
{

/// What the host has in the stream's buffer goes first. The text itself doesn't go through the buffer: what can't be
/// written there would be tried again, and raise its signal, when the host ends.
void WriteTo(std::FILE* stream, std::wstring_view text)
{
    const WriteSignals signals;
    std::fflush(stream);
    NativeFile::WriteTo(::fileno(stream), Utf8FromWide(text));
}

} // namespace

void WriteStandardOutput(std::wstring_view text)
{
    WriteTo(stdout, text);
}

void WriteStandardError(std::wstring_view text)
{
    WriteTo(stderr, text);
}

#endif

} // namespace jlandxml
