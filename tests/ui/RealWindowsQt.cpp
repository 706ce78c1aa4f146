#ifndef _WIN32

#include "base/Text.h"
#include "jlandxml/JLandXmlConvert.h"
#include "ui/RealWindows.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QMetaObject>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>
#include <QtGui/QKeyEvent>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <thread>

namespace jlandxml
{

namespace
{

constexpr auto PATIENCE = std::chrono::seconds(60);
constexpr auto PAUSE = std::chrono::milliseconds(10);
constexpr int PAUSES = 500;

[[noreturn]] void GiveUp(const char* what)
{
    std::fprintf(stderr, "no %s came up\n", what);
    std::_Exit(9);
}

/// Whether the module has given the host's thread back.
std::atomic<bool> callReturned = false;

/// Runs a step on the thread of the widgets and waits for it.
template <class Step>
auto OnWidgets(Step step)
{
    decltype(step()) result{};
    // A host without an application object has none before the module has made it.
    if (qApp != nullptr)
    {
        const bool here = QThread::currentThread() == qApp->thread();
        QMetaObject::invokeMethod(
            qApp, [&] { result = step(); }, here ? Qt::DirectConnection : Qt::BlockingQueuedConnection);
    }
    return result;
}

/// Leaves a step to the thread of the widgets, since it may open a window.
template <class Step>
void LeaveToWidgets(Step step)
{
    const bool here = QThread::currentThread() == qApp->thread();
    QMetaObject::invokeMethod(qApp, step, here ? Qt::DirectConnection : Qt::QueuedConnection);
}

template <class Condition>
auto WaitFor(const char* what, Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + PATIENCE;
    for (;;)
    {
        if (auto result = OnWidgets(condition))
        {
            return result;
        }
        if (std::chrono::steady_clock::now() > end)
        {
            GiveUp(what);
        }
        std::this_thread::sleep_for(PAUSE);
    }
}

bool Is(const QWidget* widget, KnownDialog which)
{
    const QString number = which == KnownDialog::Main ? QStringLiteral("1000") : QStringLiteral("100");
    return widget != nullptr && widget->objectName() == number && widget->isVisible();
}

/// Works a dialog through its real widgets.
class QtHands final : public DialogHands
{
  public:
    explicit QtHands(QDialog* dialog) : dialog_(dialog) {}

    bool CanReach(int control) const override
    {
        return OnWidgets([&] { return Reachable(control); });
    }

    bool Click(int control) override
    {
        const bool radio = OnWidgets([&] { return As<QRadioButton>(control) != nullptr; });
        if (!CanReach(control) || OnWidgets([&] { return As<QAbstractButton>(control) == nullptr; }))
        {
            return false;
        }
        const auto click = [button = OnWidgets([&] { return As<QAbstractButton>(control); })] { button->click(); };
        if (radio)
        {
            OnWidgets([&] {
                click();
                return true;
            });
        }
        else
        {
            LeaveToWidgets(click);
        }
        return true;
    }

    bool Type(int control, const std::wstring& text) override
    {
        return OnWidgets([&] {
            auto* const edit = As<QLineEdit>(control);
            if (!Reachable(control) || edit == nullptr || edit->isReadOnly())
            {
                return false;
            }
            edit->selectAll();
            edit->insert(QString::fromStdWString(text));
            return true;
        });
    }

    bool TypeCharacter(int control, wchar_t character) override
    {
        return OnWidgets([&] {
            auto* const edit = As<QLineEdit>(control);
            if (!Reachable(control) || edit == nullptr || edit->isReadOnly())
            {
                return false;
            }
            edit->end(false);
            QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromWCharArray(&character, 1));
            QApplication::sendEvent(edit, &key);
            return true;
        });
    }

    bool ChooseEntry(int list, int entry) override
    {
        return OnWidgets([&] {
            auto* const combo = As<QComboBox>(list);
            if (!Reachable(list) || combo == nullptr || entry < 0 || entry >= combo->count())
            {
                return false;
            }
            combo->setCurrentIndex(entry);
            return true;
        });
    }

    bool ChooseTreeItem(int tree, TreeItem item) override
    {
        return OnWidgets([&] {
            if (!Reachable(tree))
            {
                return false;
            }
            As<QTreeWidget>(tree)->setCurrentItem(reinterpret_cast<QTreeWidgetItem*>(item));
            return true;
        });
    }

    bool PressEnter() override { return PressKey(Qt::Key_Return); }
    bool PressEscape() override { return PressKey(Qt::Key_Escape); }

    std::wstring Text(int control) const override
    {
        return OnWidgets([&] {
            const auto* const combo = As<QComboBox>(control);
            return combo != nullptr ? combo->currentText().toStdWString()
                                    : As<QLineEdit>(control)->text().toStdWString();
        });
    }

    int EntryCount(int list) const override
    {
        return OnWidgets([&] {
            const auto* const combo = As<QComboBox>(list);
            return combo != nullptr ? combo->count() : As<QListWidget>(list)->count();
        });
    }

    std::wstring EntryText(int list, int entry) const override
    {
        return OnWidgets([&] {
            const auto* const combo = As<QComboBox>(list);
            return (combo != nullptr ? combo->itemText(entry) : As<QListWidget>(list)->item(entry)->text())
                .toStdWString();
        });
    }

    const wchar_t* EntryData(int list, int entry) const override
    {
        return OnWidgets(
            [&] { return static_cast<const wchar_t*>(As<QComboBox>(list)->itemData(entry).value<void*>()); });
    }

    int SelectedEntry(int list) const override
    {
        return OnWidgets([&] { return As<QComboBox>(list)->currentIndex(); });
    }

    bool IsChecked(int radio) const override
    {
        return OnWidgets([&] { return As<QRadioButton>(radio)->isChecked(); });
    }

    std::vector<TreeItem> TreeChildren(int tree, TreeItem parent) const override
    {
        return OnWidgets([&] {
            const QTreeWidgetItem* const item = parent != nullptr ? reinterpret_cast<QTreeWidgetItem*>(parent)
                                                                  : As<QTreeWidget>(tree)->invisibleRootItem();
            std::vector<TreeItem> items;
            for (int child = 0; child < item->childCount(); ++child)
            {
                items.push_back(reinterpret_cast<TreeItem>(item->child(child)));
            }
            return items;
        });
    }

    bool IsExpanded(int /*tree*/, TreeItem item) const override
    {
        return OnWidgets([&] { return reinterpret_cast<QTreeWidgetItem*>(item)->isExpanded(); });
    }

    bool IsEnabled(int control) const override
    {
        return OnWidgets([&] { return As<QWidget>(control)->isEnabled(); });
    }

    bool IsShown(int control) const override
    {
        return OnWidgets([&] { return !As<QWidget>(control)->isHidden(); });
    }

    std::wstring TreeText(int /*tree*/, TreeItem item) const override
    {
        return OnWidgets([&] { return reinterpret_cast<QTreeWidgetItem*>(item)->text(0).toStdWString(); });
    }

    void* TreeItemData(int /*tree*/, TreeItem item) const override
    {
        return OnWidgets([&] {
            const QVariant data = reinterpret_cast<QTreeWidgetItem*>(item)->data(0, Qt::UserRole);
            return data.value<void*>();
        });
    }

  private:
    template <class Widget>
    Widget* As(int control) const
    {
        return qobject_cast<Widget*>(dialog_->findChild<QWidget*>(QString::number(control)));
    }

    bool Reachable(int control) const
    {
        const QWidget* const widget = As<QWidget>(control);
        return widget != nullptr && QApplication::activeModalWidget() == dialog_ && widget->isVisible() &&
               widget->isEnabled();
    }

    bool PressKey(Qt::Key key)
    {
        if (!OnWidgets([&] { return QApplication::activeModalWidget() == dialog_; }))
        {
            return false;
        }
        LeaveToWidgets([dialog = dialog_, key] {
            QWidget* const focused = dialog->focusWidget() != nullptr ? dialog->focusWidget() : dialog;
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(focused, &press);
        });
        return true;
    }

    QDialog* dialog_;
};

} // namespace

struct Host::State
{
    int argumentCount = 1;
    char name[5] = "host";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<QApplication> application = std::make_unique<QApplication>(argumentCount, arguments);
    QMainWindow window;
    ExecuteQuorvaneFunction function = nullptr;
};

Host::Host(const std::wstring& modulePath) : state_(std::make_unique<State>())
{
    void* const module = ::dlopen(Utf8FromWide(modulePath).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr)
    {
        GiveUp(::dlerror());
    }
    state_->function = reinterpret_cast<ExecuteQuorvaneFunction>(::dlsym(module, "ExecuteQuorvane"));
    state_->window.resize(1000, 700);
    state_->window.show();
    state_->window.activateWindow();
    QApplication::processEvents();
}

Host::~Host() = default;

void Host::Call(const std::wstring& workFolder, std::int32_t routes, const std::function<void()>& driver)
{
    std::atomic<bool> done = false;
    callReturned = false;
    std::thread thread([&] {
        driver();
        done = true;
    });
    state_->function(workFolder.c_str(), routes);
    callReturned = true;
    while (!done)
    {
        QApplication::processEvents();
        std::this_thread::sleep_for(PAUSE);
    }
    thread.join();
}

bool Host::IsInFront() const
{
    return state_->window.isEnabled() && QApplication::activeModalWidget() == nullptr;
}

std::unique_ptr<DialogHands> WaitForDialog(KnownDialog which)
{
    return std::make_unique<QtHands>(WaitFor("dialog", [&]() -> QDialog* {
        QWidget* const widget = QApplication::activeModalWidget();
        return Is(widget, which) ? qobject_cast<QDialog*>(widget) : nullptr;
    }));
}

Seen WaitForWindow()
{
    Seen seen = Seen::Nothing;
    WaitFor("window", [&] {
        const QWidget* const widget = QApplication::activeModalWidget();
        seen = Is(widget, KnownDialog::Main)                         ? Seen::MainDialog
               : Is(widget, KnownDialog::Errors)                     ? Seen::ErrorList
               : qobject_cast<const QFileDialog*>(widget) != nullptr ? Seen::SaveDialog
               : qobject_cast<const QMessageBox*>(widget) != nullptr ? Seen::Message
                                                                     : Seen::Nothing;
        return callReturned || seen != Seen::Nothing;
    });
    return seen;
}

std::wstring AnswerMessage()
{
    std::wstring text;
    QMessageBox* const box = WaitFor("message", [&] {
        auto* const found = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (found != nullptr)
        {
            text = found->text().toStdWString();
            LeaveToWidgets([found] { found->accept(); });
        }
        return found;
    });
    WaitFor("end of the message", [&] { return QApplication::activeModalWidget() != box; });
    return text;
}

void AnswerQuestion(bool yes)
{
    QMessageBox* const box =
        WaitFor("question", [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); });
    LeaveToWidgets([box, yes] {
        const auto role = yes ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
        for (QAbstractButton* const button : box->buttons())
        {
            if (box->buttonRole(button) == role)
            {
                button->click();
                return;
            }
        }
    });
    WaitFor("end of the question", [&] { return QApplication::activeModalWidget() != box; });
}

void AnswerSaveDialog(const std::optional<std::wstring>& path)
{
    QFileDialog* const dialog =
        WaitFor("save dialog", [] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); });
    LeaveToWidgets([&, dialog] {
        if (path)
        {
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdWString(*path));
            QMetaObject::invokeMethod(dialog, "accept");
        }
        else
        {
            dialog->reject();
        }
    });
    WaitFor("end of the save dialog", [&] { return QApplication::activeModalWidget() != dialog; });
}

void WaitUntilGone(KnownDialog which)
{
    WaitFor("end of the dialog", [&] { return !Is(QApplication::activeModalWidget(), which); });
}

void PressKey(Key key)
{
    LeaveToWidgets([key] {
        QKeyEvent press(QEvent::KeyPress,
                        key == Key::Tab    ? Qt::Key_Tab
                        : key == Key::Down ? Qt::Key_Down
                                           : Qt::Key_Return,
                        Qt::NoModifier);
        QApplication::sendEvent(QApplication::activeModalWidget()->focusWidget(), &press);
    });
}

bool WaitForFocus(int control)
{
    for (int pause = 0; pause < PAUSES; ++pause)
    {
        const bool focused = OnWidgets([control] {
            const QWidget* const widget = QApplication::activeModalWidget()->focusWidget();
            return widget != nullptr && widget->objectName() == QString::number(control);
        });
        if (focused)
        {
            return true;
        }
        std::this_thread::sleep_for(PAUSE);
    }
    return false;
}

void TakePicture(const std::wstring& path)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    OnWidgets([&] {
        return QApplication::activeModalWidget()
            ->grab()
            .toImage()
            .convertToFormat(QImage::Format_RGB888)
            .save(QString::fromStdWString(path), "PNG", 0);
    });
}

std::unique_ptr<DialogHands> HandsOfFrontDialog()
{
    return std::make_unique<QtHands>(qobject_cast<QDialog*>(QApplication::activeModalWidget()));
}

const void* FrontDialog()
{
    return QApplication::activeModalWidget();
}

struct Errands::State
{
    QObject owner;
};

Errands::Errands() : state_(std::make_unique<State>()) {}

Errands::~Errands() = default;

void Errands::RunWhenIdle(std::function<void()> step)
{
    QTimer::singleShot(0, &state_->owner, std::move(step));
}

} // namespace jlandxml

#endif
