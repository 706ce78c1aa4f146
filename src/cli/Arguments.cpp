#include "cli/Arguments.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace jlandxml
{

#ifdef _WIN32

#ifdef __MINGW32__
// The shells of Windows leave patterns such as work\* to the programs. The runtime puts the names in their place, in
// order, where something fits and no quotes stand around them.
extern "C"
{
    extern int _dowildcard;
    int _dowildcard = -1;
}
#endif

namespace
{

bool IsWellFormed(const std::wstring& argument)
{
    return WideFromUtf8(Utf8FromWide(argument)) == argument;
}

std::wstring WideText(const wchar_t* argument)
{
    return argument;
}

} // namespace

#else

namespace
{

constexpr auto IsWellFormed = IsWellFormedUtf8;
constexpr auto WideText = WideFromUtf8;

} // namespace

#endif

std::optional<std::vector<std::wstring>> Arguments(int count, const ArgumentUnit* const* values)
{
    if (!std::all_of(values + 1, values + count, IsWellFormed))
    {
        return std::nullopt;
    }
    std::vector<std::wstring> arguments;
    std::transform(values + 1, values + count, std::back_inserter(arguments), WideText);
    return arguments;
}

} // namespace jlandxml
