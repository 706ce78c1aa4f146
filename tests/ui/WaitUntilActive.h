#pragma once

#include <QApplication>
#include <QWidget>

namespace jlandxml
{

/// Shows a window, and works until the system has made it the active one.
inline void WaitUntilActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    while (QApplication::activeWindow() != &window)
    {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

} // namespace jlandxml
