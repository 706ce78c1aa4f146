#include "run/module/ExecuteQuorvane.h"

#include "base/Exceptions.h"
#include "dialog/JLandXmlConvertDlg.h"
#include "run/ConversionContext.h"
#include "run/LoadRun.h"
#include "sidefiles/LoadSideFiles.h"
#include "windows/Window.h"

#include <string>

namespace jlandxml
{

namespace
{
constexpr const wchar_t* WORK_FILE = L"/Landxml_temp.xml";
}

} // namespace jlandxml

void ExecuteQuorvane(const wchar_t* workFolder, std::int32_t routeCount)
{
    using namespace jlandxml;
    try
    {
        const std::wstring folder(workFolder != nullptr ? workFolder : L"");
        LoadRun(folder + WORK_FILE);
        LoadSideFiles(folder, routeCount);
        JLandXmlConvertDlg dialog;
        dialog.DoModal();
    }
    catch (const CException& exception)
    {
        GetWindowSystem().ShowMessage(ErrorText(exception), MessageIcon::None);
    }
}
