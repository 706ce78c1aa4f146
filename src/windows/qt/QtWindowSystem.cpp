#include "windows/qt/QtWindowSystem.h"

#include "base/Exceptions.h"
#include "base/Streams.h"
#include "windows/qt/QtApplication.h"
#include "windows/qt/QtDialog.h"

#include <QApplication>

namespace jlandxml
{

void QtWindowSystem::ShowMessage(const std::wstring& text)
{
    if (!EnsureApplication())
    {
        WriteStandardError(text + L"\n");
        return;
    }
    ShowMessageBox(OwnerOfNextWindow(), text);
}

std::unique_ptr<DialogWindow> QtWindowSystem::MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                               DialogWindow* owner)
{
    if (!EnsureApplication())
    {
        throw CException(L"画面に接続できないため、ダイアログを表示できません。");
    }
    return std::make_unique<QtDialog>(dialog, events, dynamic_cast<QtDialog*>(owner));
}

void QtWindowSystem::RaiseOpenWindow()
{
    if (QCoreApplication::instance() == nullptr)
    {
        return;
    }
    QMetaObject::invokeMethod(QCoreApplication::instance(), [] {
        if (QWidget* const modal = QApplication::activeModalWidget(); modal != nullptr)
        {
            modal->raise();
            modal->activateWindow();
        }
    });
}

} // namespace jlandxml
