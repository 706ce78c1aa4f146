#include "base/Text.h"
#include "cli/CommandLine.h"

#ifdef _WIN32

#include <windows.h>

#include <shellapi.h>

int main()
{
    int count = 0;
    wchar_t** const values = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::vector<std::wstring> arguments(values + 1, values + count);
    LocalFree(static_cast<void*>(values));
    return static_cast<int>(jlandxml::RunCommandLine(arguments));
}

#else

#include <algorithm>
#include <iterator>

int main(int count, char** values)
{
    std::vector<std::wstring> arguments;
    std::transform(values + 1, values + count, std::back_inserter(arguments), jlandxml::WideFromUtf8);
    return static_cast<int>(jlandxml::RunCommandLine(arguments));
}

#endif
