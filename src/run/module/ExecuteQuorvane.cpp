#include "run/module/ExecuteQuorvane.h"

#include "base/Exceptions.h"
#include "dialog/JLandXmlConvertDlg.h"
#include "run/ConversionContext.h"
#include "run/LoadRun.h"
#include "sidefiles/LoadSideFiles.h"
#include "windows/Window.h"

#include <atomic>
#include <string>

namespace jlandxml
{

namespace
{

/// The one run at a time. While its dialog is open the host's timers and messages go on, and one of them may call
/// again: context and model are those of the open run then, and no second one may begin on them.
class OneRun
{
  public:
    OneRun() : begun_(!open_.exchange(true)) {}
    OneRun(const OneRun&) = delete;
    OneRun& operator=(const OneRun&) = delete;
    ~OneRun()
    {
        if (begun_)
        {
            open_ = false;
        }
    }

    /// False if another one is still open.
    bool HasBegun() const { return begun_; }

  private:
    inline static std::atomic<bool> open_ = false;
    bool begun_;
};

} // namespace

} // namespace jlandxml

void ExecuteQuorvane(const wchar_t* workFolder, std::int32_t routeCount)
{
    using namespace jlandxml;
    const OneRun run;
    if (!run.HasBegun())
    {
        GetWindowSystem().RaiseOpenWindow();
        return;
    }
    try
    {
        const std::wstring folder(workFolder != nullptr ? workFolder : L"");
        LoadRun(WorkFileOf(folder));
        LoadSideFiles(folder, routeCount);
        JLandXmlConvertDlg dialog;
        dialog.DoModal();
    }
    catch (const CException& exception)
    {
        GetWindowSystem().ShowMessage(ErrorText(exception));
    }
}
