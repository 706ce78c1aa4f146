#include "base/Streams.h"

#include "base/Text.h"

#ifdef _WIN32
#include <windows.h>
#else
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
    const std::string bytes = Utf8FromWide(text);
    WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
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

void WriteTo(std::FILE* stream, std::wstring_view text)
{
    const std::string bytes = Utf8FromWide(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::fflush(stream);
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
