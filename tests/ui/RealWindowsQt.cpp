#ifndef _WIN32

#include "base/Text.h"
#include "jlandxml/JLandXmlConvert.h"
#include "ui/RealWindows.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QMetaObject>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
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

    bool ClickTreeItem(int tree, TreeItem item) override
    {
        return OnWidgets([&] {
            if (!Reachable(tree))
            {
                return false;
            }
            auto* const widget = As<QTreeWidget>(tree);
            auto* const clicked = reinterpret_cast<QTreeWidgetItem*>(item);
            widget->scrollToItem(clicked);
            const QPoint place = widget->visualItemRect(clicked).center();
            QTest::mouseClick(dialog_->windowHandle(), Qt::LeftButton, {}, widget->viewport()->mapTo(dialog_, place));
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

void PressCharacter(wchar_t character)
{
    LeaveToWidgets([character] {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromWCharArray(&character, 1));
        QApplication::sendEvent(QApplication::activeModalWidget()->focusWidget(), &press);
    });
}

bool WaitForFocus(int control)
{
    for (int pause = 0; pause < PAUSES; ++pause)
    {
        const bool focused = OnWidgets([control] {
            const QWidget* const widget = QApplication::focusWidget(); // none before its window is active
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

void DropDown(int list)
{
    OnWidgets([list] {
        auto* const combo = QApplication::activeModalWidget()->findChild<QComboBox*>(QString::number(list));
        combo->showPopup();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        combo->hidePopup();
        return true;
    });
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

const void* ActiveHostWindow()
{
    // Without a window manager nobody makes it the active one again when a dialog has gone.
    while (QApplication::activeWindow() == nullptr)
    {
        QApplication::topLevelWidgets().first()->activateWindow();
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return QApplication::activeWindow();
}

WindowLook LookAtFrontWindow()
{
    QWidget* const window = QApplication::activeModalWidget();
    WindowLook look{window->parentWidget(), window->windowTitle().toStdWString(), {}, {}, {}, false};
    const auto see = [](std::vector<std::wstring>& texts, const QString& text) {
        if (!text.isEmpty())
        {
            texts.push_back(text.toStdWString());
        }
    };
    for (const QWidget* const widget : window->findChildren<QWidget*>())
    {
        if (!widget->isVisible())
        {
            continue;
        }
        see(look.texts, widget->toolTip());
        if (const auto* const label = qobject_cast<const QLabel*>(widget))
        {
            see(look.texts, label->text());
        }
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
        {
            see(qobject_cast<const QPushButton*>(button) != nullptr ? look.buttons : look.texts, button->text());
        }
        if (const auto* const files = qobject_cast<const QTreeView*>(widget);
            files != nullptr && qobject_cast<const QFileDialog*>(window) != nullptr)
        {
            // The names of the files are nobody's words, their kinds and times are.
            for (int row = 0; row < files->model()->rowCount(files->rootIndex()); ++row)
            {
                for (int column = 2; column < files->model()->columnCount(); ++column)
                {
                    see(look.texts, files->model()->index(row, column, files->rootIndex()).data().toString());
                }
            }
        }
        if (const auto* const header = qobject_cast<const QHeaderView*>(widget))
        {
            for (int section = 0; section < header->count(); ++section)
            {
                see(look.texts, header->model()->headerData(section, Qt::Horizontal).toString());
            }
        }
        if (const auto* const places = qobject_cast<const QListView*>(widget);
            places != nullptr && widget->objectName() == QStringLiteral("sidebar"))
        {
            for (int row = 0; row < places->model()->rowCount(); ++row)
            {
                see(look.texts, places->model()->index(row, 0).data().toString());
            }
        }
        for (const QAction* const action : widget->actions())
        {
            see(look.texts, action->text());
        }
    }
    if (const auto* const file = qobject_cast<const QFileDialog*>(window))
    {
        for (const QString& filter : file->nameFilters())
        {
            see(look.filters, filter);
        }
    }
    if (const auto* const box = qobject_cast<const QMessageBox*>(window))
    {
        look.exclamation = box->icon() == QMessageBox::Warning && !box->iconPixmap().isNull();
    }
    return look;
}

void CloseFrontWindow()
{
    if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
    {
        box->accept();
        return;
    }
    qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject();
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
