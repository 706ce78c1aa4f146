#include "framework/qt/QtWindowSystem.h"

#include "framework/Exceptions.h"
#include "framework/Streams.h"
#include "framework/qt/QtApplication.h"
#include "framework/qt/QtDialog.h"

#include <QApplication>
#include <QMessageBox>

namespace jlandxml
{

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
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    box.exec();
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

} // namespace jlandxml
