// The native window layer keeps to what every layer keeps to.

#include "support/DialogConformance.h"

#include "ui/NativeLayer.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <QApplication>
#include <QMainWindow>
#endif

namespace jlandxml
{
namespace
{

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
    QMainWindow host;
    host.resize(1000, 700);
    host.show();
    host.activateWindow();
    while (QApplication::activeWindow() != &host)
    {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
#endif
    return RUN_ALL_TESTS();
}
