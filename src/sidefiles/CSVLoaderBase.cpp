#include "sidefiles/CSVLoaderBase.h"

namespace jlandxml
{

void CSVLoaderBase::WalkRows(const std::wstring& path, const std::function<void()>& walk) const
{
    try
    {
        walk();
    }
    catch (const CInvalidArgException& exception)
    {
        throw CInvalidArgException(ErrorText(exception) + L"（" + path.substr(FolderOf(path).size()) + L" " +
                                   std::to_wstring(rows.Line()) + L"行目）");
    }
}

} // namespace jlandxml
