#ifdef _WIN32

#include "base/Collation.h"

#include <windows.h>

namespace jlandxml
{

int CompareJapanese(const std::wstring& first, const std::wstring& second)
{
    const int result = CompareStringEx(L"ja-JP", 0, first.data(), static_cast<int>(first.size()), second.data(),
                                       static_cast<int>(second.size()), nullptr, nullptr, 0);
    return result == 0 ? first.compare(second) : result - CSTR_EQUAL;
}

} // namespace jlandxml

#endif
