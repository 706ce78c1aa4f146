#include "framework/qt/QtWindowSystem.h"

#include "framework/Streams.h"

#include <QApplication>
#include <QMessageBox>

namespace jlandxml
{

namespace
{

/// Qt ends the process when it can't open a display, and the process is the host's: so it is asked for only where there
/// is one.
bool HasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// Joins the application object of the host, or makes one that lives as long as the process. False without a display.
bool EnsureApplication()
{
    if (QCoreApplication::instance() != nullptr)
    {
        return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
    }
    if (!HasDisplay())
    {
        return false;
    }
    static int argumentCount = 1;
    static char programName[] = "jlandxml-convert";
    static char* arguments[] = {programName, nullptr};
    new QApplication(argumentCount, arguments);
    return true;
}

} // namespace

void QtWindowSystem::ShowMessage(const std::wstring& text, MessageIcon icon)
{
    if (!EnsureApplication())
    {
        WriteStandardError(text + L"\n");
        return;
    }
    QMessageBox box(icon == MessageIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon,
                    QString::fromWCharArray(MESSAGE_CAPTION), QString::fromStdWString(text), QMessageBox::Ok,
                    QApplication::activeWindow());
    box.exec();
}

} // namespace jlandxml
