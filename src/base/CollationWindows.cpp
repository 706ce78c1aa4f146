#ifdef _WIN32

#include "base/Collation.h"
#include "base/Exceptions.h"

#include <new>

#include <windows.h>

namespace jlandxml
{

int CompareJapanese(const std::wstring& first, const std::wstring& second)
{
    const int result = CompareStringEx(L"ja-JP", 0, first.data(), static_cast<int>(first.size()), second.data(),
                                       static_cast<int>(second.size()), nullptr, nullptr, 0);
    if (result == 0)
    {
        throw std::bad_alloc();
    }
    return result - CSTR_EQUAL;
}

std::string JapaneseSortKey(const std::wstring& text)
{
    const auto makeKey = [&](std::string& key) {
        return LCMapStringEx(L"ja-JP", LCMAP_SORTKEY, text.c_str(), static_cast<int>(text.size()) + 1,
                             reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()), nullptr, nullptr, 0);
    };
    std::string key;
    key.resize(static_cast<std::size_t>(makeKey(key)));
    if (key.empty() || makeKey(key) == 0)
    {
        throw CException(L"文字列の並び順を決められません。");
    }
    return key;
}

} // namespace jlandxml

#endif
