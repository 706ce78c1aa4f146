#include "cli/Arguments.h"

#include "base/Text.h"

#ifdef _WIN32

#include <algorithm>
#include <new>
#include <windows.h>

#include <shellapi.h>

namespace jlandxml
{

std::optional<std::vector<std::wstring>> Arguments(int, char**)
{
    int count = 0;
    wchar_t** const values = CommandLineToArgvW(GetCommandLineW(), &count);
    if (values == nullptr)
    {
        throw std::bad_alloc();
    }
    std::vector<std::wstring> arguments(values + 1, values + count);
    LocalFree(static_cast<void*>(values));
    const bool wellFormed = std::all_of(arguments.begin(), arguments.end(), [](const std::wstring& argument) {
        return WideFromUtf8(Utf8FromWide(argument)) == argument;
    });
    return wellFormed ? std::optional(std::move(arguments)) : std::nullopt;
}

} // namespace jlandxml

#else

#include <algorithm>
#include <iterator>

namespace jlandxml
{

std::optional<std::vector<std::wstring>> Arguments(int count, char** values)
{
    if (!std::all_of(values + 1, values + count, IsWellFormedUtf8))
    {
        return std::nullopt;
    }
    std::vector<std::wstring> arguments;
    std::transform(values + 1, values + count, std::back_inserter(arguments), WideFromUtf8);
    return arguments;
}

} // namespace jlandxml

#endif
