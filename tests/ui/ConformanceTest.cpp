// The native window layer keeps to what every layer keeps to.

#include "support/DialogConformance.h"

#include "ui/RealWindows.h"

#ifdef _WIN32
#include "windows/win32/Win32WindowSystem.h"

#include <windows.h>
#else
#include "windows/qt/QtWindowSystem.h"

#include <QApplication>
#endif

namespace jlandxml
{
namespace
{

#ifdef _WIN32
using NativeWindowSystem = Win32WindowSystem;
#else
using NativeWindowSystem = QtWindowSystem;
#endif

/// The native layer with a person who works each window as soon as it waits.
class NativeLayer final : public DialogLayer, public NativeWindowSystem
{
  public:
    WindowSystem& Windows() override { return *this; }
    void SetUser(User user) override { user_ = std::move(user); }

    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   DialogWindow* owner) override
    {
        std::unique_ptr<DialogWindow> window = NativeWindowSystem::MakeDialogWindow(dialog, events, owner);
        if (owner == nullptr)
        {
            errands_.emplace();
        }
        errands_->RunWhenIdle([this, &made = *window] { Work(made); });
        return window;
    }

  private:
    void Work(DialogWindow& window)
    {
        const void* const front = FrontDialog();
        const auto hands = HandsOfFrontDialog();
        user_(window, *hands);
        errands_->RunWhenIdle([&window, front] {
            if (FrontDialog() == front)
            {
                window.End(DialogResult::Cancelled);
            }
        });
    }

    User user_;
    std::optional<Errands> errands_; ///< of the windows of one opening
};

std::unique_ptr<DialogLayer> MakeNativeLayer()
{
    return std::make_unique<NativeLayer>();
}

INSTANTIATE_TEST_SUITE_P(Native, DialogConformance, testing::Values(MakeNativeLayer));

} // namespace
} // namespace jlandxml

int main(int count, char** values)
{
    testing::InitGoogleTest(&count, values);
#ifdef _WIN32
    const HWND host = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700, nullptr,
                                      nullptr, nullptr, nullptr);
    SetActiveWindow(host);
#else
    const QApplication application(count, values);
#endif
    return RUN_ALL_TESTS();
}
