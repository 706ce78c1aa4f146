// What a person sees of the native windows.

#include "ui/NativeLayer.h"

#include "base/Exceptions.h"
#include "base/Text.h"

#include <gtest/gtest.h>
#include <string_view>

#ifdef _WIN32
#include <windows.h>

#include <cderr.h>
#include <commdlg.h>
#else
#include "ui/WaitUntilActive.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>
#include <cmath>
#endif

namespace jlandxml
{
namespace
{

using namespace conformance;
using ShownTexts = std::vector<std::wstring>;

/// Looks at the window that comes up over what is in front now, and closes it.
class Glance
{
  public:
    Glance() : below_(FrontDialog()) { Wait(); }

    const WindowLook& Look() const { return look_.value(); }

  private:
    void Wait()
    {
        errands_.RunWhenIdle([this] {
            if (FrontDialog() == below_)
            {
                Wait();
                return;
            }
            look_ = LookAtFrontWindow();
            CloseFrontWindow();
        });
    }

    const void* below_;
    Errands errands_;
    std::optional<WindowLook> look_;
};

constexpr SaveFileRequest SAVE_FILE{L"xml", L"", L"XML Files (*.xml)|*.xml|All Files (*.*)|*.*||"};

class NativeLayerTest : public testing::Test
{
  protected:
    /// Opens a window over the host's and lets the user work it.
    void Run(DialogLayer::User user)
    {
        layer.SetUser(std::move(user));
        const std::unique_ptr<DialogWindow> window = layer.Windows().MakeDialogWindow(TEMPLATE, events, nullptr);
        events.window = window.get();
        window->RunModal();
    }

    static void ExpectMessage(const WindowLook& look, const std::wstring& text, const void* owner)
    {
        EXPECT_EQ(Utf8FromWide(look.caption), "J-LandXML出力設定");
        EXPECT_TRUE(look.exclamation);
        EXPECT_EQ(look.owner, owner);
        EXPECT_EQ(look.buttons, ShownTexts{L"OK"});
        EXPECT_EQ(std::count(look.texts.begin(), look.texts.end(), text), 1);
    }

    const void* const host = ActiveHostWindow();
    NativeLayer layer;
    RecordedEvents events;
};

TEST_F(NativeLayerTest, AMessageStandsOverTheHostWithAnExclamationMarkAndOneButton)
{
    const Glance glance;
    layer.Windows().ShowMessage(L"作業用ファイル <b>&");
    ExpectMessage(glance.Look(), L"作業用ファイル <b>&", host);
}

TEST_F(NativeLayerTest, AMessageStandsOverTheDialogThatIsOpen)
{
    Run([&](DialogWindow& window, DialogHands&) {
        const void* const dialog = FrontDialog();
        {
            const Glance glance;
            window.ShowMessage(L"失敗");
            ExpectMessage(glance.Look(), L"失敗", dialog);
        }
        const Glance glance;
        layer.Windows().ShowMessage(L"失敗");
        ExpectMessage(glance.Look(), L"失敗", dialog);
    });
}

TEST_F(NativeLayerTest, ADialogStandsOverTheHost)
{
    Run([&](DialogWindow&, DialogHands&) {
        const WindowLook look = LookAtFrontWindow();
        EXPECT_EQ(look.owner, host);
        EXPECT_EQ(Utf8FromWide(look.caption), "試験");
    });
}

TEST_F(NativeLayerTest, TheSaveDialogStandsOverItsDialogAndOffersTheFilters)
{
    Run([&](DialogWindow& window, DialogHands&) {
        const void* const dialog = FrontDialog();
        const Glance glance;
        EXPECT_EQ(window.ChooseSaveFile(SAVE_FILE), std::nullopt);
        EXPECT_EQ(glance.Look().owner, dialog);
#ifdef _WIN32
        EXPECT_EQ(glance.Look().filters, (ShownTexts{L"XML Files (*.xml)", L"All Files (*.*)"}));
#else
        EXPECT_EQ(glance.Look().filters, (ShownTexts{L"XML Files (*.xml)", L"All Files (*)"}));
#endif
    });
}

TEST_F(NativeLayerTest, ALongLineOfAListBoxIsNeitherWrappedNorScrolledSideways)
{
    events.onInit = [](DialogWindow& window) {
        window.AddEntries(BOX, ShownTexts{L"短い", std::wstring(300, L'長') + L" " + std::wstring(300, L'長')});
    };
    Run([](DialogWindow&, DialogHands&) {
#ifdef _WIN32
        HWND const box = GetDlgItem(GetActiveWindow(), BOX);
        EXPECT_EQ(GetWindowLongPtrW(box, GWL_STYLE) & WS_HSCROLL, 0);
        EXPECT_EQ(SendMessageW(box, LB_GETHORIZONTALEXTENT, 0, 0), 0);
        EXPECT_EQ(SendMessageW(box, LB_GETITEMHEIGHT, 0, 0), SendMessageW(box, LB_GETITEMHEIGHT, 1, 0));
#else
        const auto* const box = QApplication::activeModalWidget()->findChild<QListWidget*>(QString::number(BOX));
        ASSERT_EQ(box->count(), 2);
        EXPECT_EQ(box->visualItemRect(box->item(0)).height(), box->visualItemRect(box->item(1)).height());
        EXPECT_GT(box->sizeHintForColumn(0), box->viewport()->width());
        EXPECT_FALSE(box->horizontalScrollBar()->isVisible());
#endif
    });
}

#ifdef _WIN32

/// Whether the system's save dialog fails to open.
bool saveDialogFails = false;

/// What the system's save dialog was last asked for.
DWORD flagsAsked = 0;
std::wstring extensionAsked;

template <class Function>
Function OfTheSystem(const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"comdlg32.dll"), name)));
}

BOOL WINAPI ChooseSaveFileOrFail(OPENFILENAMEW* request)
{
    flagsAsked = request->Flags;
    extensionAsked = request->lpstrDefExt;
    return saveDialogFails ? FALSE : OfTheSystem<decltype(&GetSaveFileNameW)>("GetSaveFileNameW")(request);
}

DWORD WINAPI TellFailure()
{
    return saveDialogFails ? DWORD{CDERR_INITIALIZATION}
                           : OfTheSystem<decltype(&CommDlgExtendedError)>("CommDlgExtendedError")();
}

TEST_F(NativeLayerTest, TheSaveDialogAsksBeforeReplacingAndLeavesTheCurrentFolder)
{
    Run([](DialogWindow& window, DialogHands&) {
        const Glance glance;
        window.ChooseSaveFile(SAVE_FILE);
        constexpr DWORD NEEDED = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
        EXPECT_EQ(flagsAsked & NEEDED, NEEDED);
        EXPECT_EQ(extensionAsked, L"xml");
    });
}

TEST_F(NativeLayerTest, ASaveDialogThatCannotOpenIsNoCancel)
{
    Run([](DialogWindow& window, DialogHands&) {
        saveDialogFails = true;
        try
        {
            window.ChooseSaveFile(SAVE_FILE);
            ADD_FAILURE() << "taken for cancelled";
        }
        catch (const CException& exception)
        {
            EXPECT_EQ(Utf8FromWide(ErrorText(exception)), "保存先を選ぶダイアログを表示できません。");
        }
        saveDialogFails = false;
    });
}

struct Place
{
    const char* name;
    RECT host;
    bool over; ///< the dialog has room in the work area over the middle of its owner
};

class DialogPlace : public NativeLayerTest, public testing::WithParamInterface<Place>
{
  protected:
    void SetUp() override { GetWindowRect(HostWindow(), &former_); }
    void TearDown() override { Move(former_); }

    HWND HostWindow() const { return static_cast<HWND>(const_cast<void*>(host)); }

    void Move(const RECT& place) const
    {
        SetWindowPos(HostWindow(), nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER);
    }

  private:
    RECT former_{};
};

TEST_P(DialogPlace, IsTheMiddleOfItsOwnerOrOfTheWorkArea)
{
    Move(GetParam().host);
    Run([&](DialogWindow&, DialogHands&) {
        RECT dialog{};
        GetWindowRect(GetActiveWindow(), &dialog);
        MONITORINFO monitor{};
        monitor.cbSize = sizeof(monitor);
        GetMonitorInfoW(MonitorFromWindow(HostWindow(), MONITOR_DEFAULTTONEAREST), &monitor);
        RECT around = monitor.rcWork;
        if (GetParam().over)
        {
            GetWindowRect(HostWindow(), &around);
        }
        EXPECT_NEAR(dialog.left + dialog.right, around.left + around.right, 2);
        EXPECT_NEAR(dialog.top + dialog.bottom, around.top + around.bottom, 2);
    });
}

INSTANTIATE_TEST_SUITE_P(Native, DialogPlace,
                         testing::Values(Place{"OverItsOwner", {100, 60, 900, 700}, true},
                                         Place{"OverASmallOwner", {600, 500, 700, 560}, true},
                                         Place{"NotBeyondTheLeftEdge", {-700, 60, 100, 700}, false},
                                         Place{"NotBeyondTheBottom", {100, 900, 900, 1300}, false}),
                         [](const auto& place) { return std::string(place.param.name); });

#else

/// Two letters in a row, which aren't the ending of a file's name.
bool IsEnglish(std::wstring_view text)
{
    const auto isLetter = [](wchar_t letter) {
        return (letter >= L'A' && letter <= L'Z') || (letter >= L'a' && letter <= L'z');
    };
    return std::adjacent_find(text.begin(), text.end(), [&](wchar_t first, wchar_t second) {
               return isLetter(first) && second >= L'a' && isLetter(second);
           }) != text.end();
}

TEST_F(NativeLayerTest, TheSaveDialogSpeaksJapanese)
{
    Run([](DialogWindow& window, DialogHands&) {
        const QString former = QDir::currentPath();
        QDir::setCurrent(QString::fromWCharArray(JLANDXML_SOURCE_DIR L"/examples/road"));
        const Glance glance;
        window.ChooseSaveFile(SAVE_FILE);
        QDir::setCurrent(former);
        const WindowLook& look = glance.Look();
        EXPECT_EQ(Utf8FromWide(look.caption), "名前を付けて保存");
        EXPECT_EQ(look.buttons, (ShownTexts{L"保存", L"キャンセル"}));
        EXPECT_GT(look.texts.size(), 10U);
        for (const std::wstring& text : look.texts)
        {
            const bool isName = text == QDir::home().dirName().toStdWString();
            EXPECT_FALSE(IsEnglish(text) && !isName) << Utf8FromWide(text);
        }
    });
}

TEST_F(NativeLayerTest, TheHostsWordsStayAsTheyAre)
{
    const auto told = [] { return QCoreApplication::translate("QFileDialog", "Back"); };
    const QString before = told();
    Run([&](DialogWindow&, DialogHands&) {
        EXPECT_EQ(told(), QStringLiteral("戻る"));
        EXPECT_EQ(QCoreApplication::translate(nullptr, "Back"), QStringLiteral("Back"));
    });
    EXPECT_EQ(told(), before);
}

double LightOf(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double ContrastWhenDisabled(int control, QPalette::ColorRole textRole, QPalette::ColorRole groundRole)
{
    const auto* const widget = QApplication::activeModalWidget()->findChild<QWidget*>(QString::number(control));
    const double text = LightOf(widget->palette().color(QPalette::Disabled, textRole));
    const double ground = LightOf(widget->palette().color(QPalette::Disabled, groundRole));
    return (std::max(text, ground) + 0.05) / (std::min(text, ground) + 0.05);
}

TEST_F(NativeLayerTest, ALockedValueCanBeReadWhateverTheHostsColors)
{
    const QPalette former = QApplication::palette();
    QPalette dark = former;
    dark.setColor(QPalette::All, QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::All, QPalette::Button, QColor(53, 53, 53));
    dark.setColor(QPalette::All, QPalette::Text, Qt::white);
    dark.setColor(QPalette::All, QPalette::ButtonText, Qt::white);
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(60, 60, 60));
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(70, 70, 70));
    QPalette black = dark;
    black.setColor(QPalette::All, QPalette::Base, Qt::black);
    black.setColor(QPalette::All, QPalette::Button, QColor(9, 9, 9));
    for (const QPalette& palette : {former, dark, black})
    {
        QApplication::setPalette(palette);
        Run([](DialogWindow&, DialogHands&) {
            EXPECT_GE(ContrastWhenDisabled(EDIT, QPalette::Text, QPalette::Base), 4.5);
            EXPECT_GE(ContrastWhenDisabled(LIST, QPalette::ButtonText, QPalette::Button), 4.5);
            EXPECT_LT(ContrastWhenDisabled(EDIT, QPalette::Text, QPalette::Base), 8);
        });
    }
    QApplication::setPalette(former);
}

TEST_F(NativeLayerTest, ATreeShowsWholeRows)
{
    events.onInit = [](DialogWindow& window) {
        for (int item = 0; item < 60; ++item)
        {
            window.AddTreeItem(TREE, nullptr, L"線形", nullptr);
        }
    };
    Run([](DialogWindow&, DialogHands&) {
        const auto* const tree = QApplication::activeModalWidget()->findChild<QTreeWidget*>(QString::number(TREE));
        const int row = tree->visualItemRect(tree->topLevelItem(0)).height();
        EXPECT_GT(tree->viewport()->height(), 3 * row);
        EXPECT_EQ(tree->viewport()->height() % row, 0);
    });
}

TEST_F(NativeLayerTest, APaletteThatIsActiveIsNotTheOwner)
{
    auto* const main = static_cast<QWidget*>(const_cast<void*>(host));
    QWidget palette(main, Qt::Tool);
    WaitUntilActive(palette);
    Run([&](DialogWindow&, DialogHands&) { EXPECT_EQ(LookAtFrontWindow().owner, main); });
}

TEST_F(NativeLayerTest, AHostsDialogWhoseMainWindowIsHiddenIsTheOwner)
{
    QWidget hidden;
    QDialog dialog(&hidden);
    WaitUntilActive(dialog);
    Run([&](DialogWindow&, DialogHands&) { EXPECT_EQ(LookAtFrontWindow().owner, &dialog); });
}

TEST_F(NativeLayerTest, WhereNoWindowOfTheHostIsActiveTheOneOnItsOwnIsTheOwner)
{
    auto* const main = static_cast<QWidget*>(const_cast<void*>(host));
    main->hide();
    QDialog single;
    QDialog ofTheSingle(&single);
    QWidget tool(nullptr, Qt::Tool);
    QWidget hidden;
    for (QWidget* const shown : {static_cast<QWidget*>(&single), static_cast<QWidget*>(&ofTheSingle), &tool})
    {
        shown->setAttribute(Qt::WA_ShowWithoutActivating);
        shown->show();
    }
    QApplication::setActiveWindow(nullptr);
    Run([&](DialogWindow&, DialogHands&) { EXPECT_EQ(LookAtFrontWindow().owner, &single); });
    WaitUntilActive(*main);
}

TEST_F(NativeLayerTest, ACallWhileNothingIsOpenRaisesNothing)
{
    layer.Windows().RaiseOpenWindow();
    QApplication::processEvents();
    EXPECT_EQ(ActiveHostWindow(), host);
}

/// The dialog in front, once the keyboard's focus has come to it.
QWidget& ActiveDialog()
{
    QWidget& dialog = *QApplication::activeModalWidget();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == dialog.windowHandle(); }));
    return dialog;
}

TEST_F(NativeLayerTest, ATreeThatTheKeyboardComesToSelectsItsFirstItem)
{
    events.onInit = [](DialogWindow& window) {
        for (const wchar_t* const name : {L"路線", L"線形"})
        {
            window.AddTreeItem(TREE, nullptr, name, const_cast<wchar_t*>(name));
        }
    };
    Run([&](DialogWindow&, DialogHands&) {
        auto* const tree = ActiveDialog().findChild<QTreeWidget*>(QString::number(TREE));
        events.Taken();
        tree->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(events.Taken(), ShownTexts{L"tree 21 路線"});
        const QPoint second = tree->visualItemRect(tree->topLevelItem(1)).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, second);
        EXPECT_EQ(events.Taken(), ShownTexts{L"tree 21 線形"});
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ControlModifier, second);
        EXPECT_EQ(events.Taken(), ShownTexts{L"tree 21 none"});
    });
}

TEST_F(NativeLayerTest, ArrowKeysGoRoundTheRadiosThatCanBeWorked)
{
    Run([&](DialogWindow& window, DialogHands&) {
        ActiveDialog().findChild<QWidget*>(QString::number(FIRST))->setFocus();
        const auto press = [&](Qt::Key key) {
            events.Taken();
            QTest::keyClick(QApplication::focusWidget(), key);
            return events.Taken();
        };
        EXPECT_EQ(press(Qt::Key_Right), ShownTexts{L"click 17"});
        EXPECT_EQ(press(Qt::Key_Down), ShownTexts{L"click 18"});
        EXPECT_EQ(press(Qt::Key_Right), ShownTexts{L"click 16"});
        EXPECT_EQ(press(Qt::Key_Left), ShownTexts{L"click 18"});
        EXPECT_EQ(press(Qt::Key_Up), ShownTexts{L"click 17"});
        EXPECT_EQ(press(Qt::Key_Left), ShownTexts{L"click 16"});
        window.Enable(SECOND, false);
        EXPECT_EQ(press(Qt::Key_Down), ShownTexts{L"click 18"});
        EXPECT_EQ(press(Qt::Key_Home), ShownTexts{});
        EXPECT_TRUE(window.IsChecked(THIRD));
    });
}

TEST_F(NativeLayerTest, ATextThatIsShortenedWhileItIsTypedPutsTheCursorInFrontOfIt)
{
    Run([&](DialogWindow& window, DialogHands&) {
        auto* const edit = ActiveDialog().findChild<QLineEdit*>(QString::number(EDIT));
        edit->setFocus();
        window.SetText(EDIT, L"12345");
        edit->setCursorPosition(4);
        window.SetText(EDIT, L"125");
        EXPECT_EQ(edit->cursorPosition(), 2);
        edit->setCursorPosition(0);
        window.SetText(EDIT, L"12");
        EXPECT_EQ(edit->cursorPosition(), 0);
    });
}

TEST_F(NativeLayerTest, ADialogInWhichNothingTakesTheFocusStillOpens)
{
    events.onInit = [](DialogWindow& window) {
        for (const ControlTemplate& control : CONTROLS)
        {
            window.Enable(control.number, false);
        }
    };
    bool isOpen = false;
    Run([&](DialogWindow&, DialogHands&) { isOpen = FrontDialog() != nullptr; });
    EXPECT_TRUE(isOpen);
}

TEST_F(NativeLayerTest, AMessageIsNotUnderAPointerThatTellsToWait)
{
    Run([](DialogWindow& window, DialogHands&) {
        window.ShowWaitCursor(true);
        Errands errands;
        Qt::CursorShape shape = Qt::WaitCursor;
        errands.RunWhenIdle([&] {
            shape = QApplication::overrideCursor()->shape();
            CloseFrontWindow();
        });
        window.ShowMessage(L"失敗");
        EXPECT_EQ(shape, Qt::ArrowCursor);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        window.ShowWaitCursor(false);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    });
}

#endif

} // namespace
} // namespace jlandxml

#ifdef _WIN32
// The imports through which the layer, compiled into this program, calls the system: in place of the library's.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C"
{
    decltype(&GetSaveFileNameW) __imp_GetSaveFileNameW = jlandxml::ChooseSaveFileOrFail;
    decltype(&CommDlgExtendedError) __imp_CommDlgExtendedError = jlandxml::TellFailure;
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
#endif
