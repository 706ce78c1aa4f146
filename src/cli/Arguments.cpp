#include "cli/Arguments.h"

#ifdef _WIN32

#include <windows.h>

#include <shellapi.h>

namespace jlandxml
{

std::vector<std::wstring> Arguments(int, char**)
{
    int count = 0;
    wchar_t** const values = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments(values + 1, values + count);
    LocalFree(static_cast<void*>(values));
    return arguments;
}

} // namespace jlandxml

#else

#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace jlandxml
{

std::vector<std::wstring> Arguments(int count, char** values)
{
    std::vector<std::wstring> arguments;
    std::transform(values + 1, values + count, std::back_inserter(arguments), WideFromUtf8);
    return arguments;
}

} // namespace jlandxml

#endif
