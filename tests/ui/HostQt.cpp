// A host that calls the module a hundred times. After each call its own state is as it was before. After every ten
// calls it counts what the process holds. The toolkit fills caches and empties them now and then, so a figure may jump
// between two counts; what the calls leave behind makes it grow between most of them: the median of the growths counts.
//
//   host MODULE WORK_FOLDER OUT MODE
//
// MODE is "joined" (the host has an application object), "alone" (the module makes one, which serves all later calls)
// or "dark" (there is no display to show a dialog on, in each way in which there can be none). With the first two the
// calls end with cancel and with output in turn. With "elsewhere" Qt has no windows where the call is made. With
// "crowded" the host has a palette, a second window and a timer that calls again while the dialog is open. Status 0:
// nothing is left behind; 1: something is; 9: a window didn't come up.

#include "base/Files.h"
#include "base/Text.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "jlandxml/JLandXmlConvert.h"
#include "ui/RealWindows.h"
#include "ui/WaitUntilActive.h"

#include <QApplication>
#include <QMainWindow>
#include <QPixmapCache>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <functional>
#include <malloc.h>
#include <optional>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

namespace jlandxml
{
namespace
{

constexpr int CALLS = 100;
constexpr int CALLS_BETWEEN_COUNTS = 10;

int failures = 0;

void Check(bool holds, const std::string& what, int call)
{
    if (!holds)
    {
        std::printf("call %d: %s\n", call, what.c_str());
        ++failures;
    }
}

// What the process holds

/// How much a figure may grow with ten calls.
struct Limit
{
    const char* name;
    long growth;
};

constexpr std::array LIMITS = {
    Limit{"file descriptors", 0},
    Limit{"threads", 0},
    Limit{"top level widgets", 0},
    // A run leaves 200 bytes in the table of output surfaces, and the toolkit keeps as much of the fonts that it drew
    // with. The widgets of a dialog or the data of a run would be some ten thousand.
    Limit{"heap bytes", CALLS_BETWEEN_COUNTS * 1024},
};

using Figures = std::array<long, LIMITS.size()>;

long CountEntries(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// The toolkit keeps pictures for later, up to a limit that a hundred calls don't come to; here it keeps none.
Figures Count()
{
    if (qApp != nullptr)
    {
        QPixmapCache::setCacheLimit(0);
    }
    const struct mallinfo2 heap = ::mallinfo2();
    return {CountEntries("/proc/self/fd"), CountEntries("/proc/self/task"),
            qApp != nullptr ? QApplication::topLevelWidgets().size() : 0,
            static_cast<long>(heap.uordblks + heap.hblkhd)};
}

class Counts
{
  public:
    void Add(int call)
    {
        counts_.push_back(Count());
        std::printf("after %d calls:", call);
        for (std::size_t figure = 0; figure < LIMITS.size(); ++figure)
        {
            std::printf(" %s %ld%s", LIMITS[figure].name, counts_.back()[figure],
                        figure + 1 < LIMITS.size() ? "," : "\n");
        }
    }

    void Compare() const
    {
        for (std::size_t figure = 0; figure < LIMITS.size(); ++figure)
        {
            std::vector<long> growths;
            for (std::size_t count = 1; count < counts_.size(); ++count)
            {
                growths.push_back(counts_[count][figure] - counts_[count - 1][figure]);
            }
            std::sort(growths.begin(), growths.end());
            const long growth = growths[growths.size() / 2];
            const auto& [name, limit] = LIMITS[figure];
            std::printf("%s: grew from %ld to %ld, with ten calls by %ld, which may be %ld\n", name,
                        counts_.front()[figure], counts_.back()[figure], growth, limit);
            Check(growth <= limit, name, CALLS);
        }
    }

  private:
    std::vector<Figures> counts_;
};

// What belongs to the host and is the same after a call

struct OwnState
{
    std::string locale = std::setlocale(LC_ALL, nullptr);
    std::filesystem::path folder = std::filesystem::current_path();
    bool quits = QApplication::quitOnLastWindowClosed();
    const QWidget* active = qApp != nullptr ? QApplication::activeWindow() : nullptr;
};

void CompareState(const OwnState& before, int call)
{
    const OwnState after;
    Check(before.locale == after.locale, "another locale: " + after.locale, call);
    Check(before.folder == after.folder, "another current folder", call);
    Check(qApp == nullptr || QApplication::overrideCursor() == nullptr, "the pointer still tells to wait", call);
    Check(qApp == nullptr || QApplication::activeModalWidget() == nullptr, "a modal window is left", call);
    const auto widgets = qApp != nullptr ? QApplication::topLevelWidgets() : QWidgetList();
    Check(std::all_of(widgets.begin(), widgets.end(), [](const QWidget* widget) { return widget->isEnabled(); }),
          "a window is disabled", call);
}

// The driver

/// Completes what a road's work folder can't tell: its class, its normal crown and the note of its last stakes.
void FillIn(DialogHands& dialog)
{
    using namespace convert_dlg;
    const std::vector<TreeItem> top = dialog.TreeChildren(OBJECT_TREE, nullptr);
    dialog.ChooseTreeItem(OBJECT_TREE, top.front());
    dialog.ChooseEntry(ROAD_CLASSIFICATION_LIST, 1);
    dialog.ChooseTreeItem(OBJECT_TREE, dialog.TreeChildren(OBJECT_TREE, top.front()).front());
    dialog.Type(NORMAL_CROWN_EDIT, L"2.0");
    dialog.ChooseTreeItem(OBJECT_TREE, dialog.TreeChildren(OBJECT_TREE, top.back()).back());
    dialog.Type(WIDTH_STAKE_DESC_EDIT, L"用地境界");
}

void Output(const std::wstring& path)
{
    const auto dialog = WaitForDialog(KnownDialog::Main);
    FillIn(*dialog);
    dialog->Click(convert_dlg::OUTPUT_BUTTON);
    AnswerSaveDialog(path);
    WaitUntilGone(KnownDialog::Main);
}

void Cancel()
{
    WaitForDialog(KnownDialog::Main)->PressEscape();
    WaitUntilGone(KnownDialog::Main);
}

// The host

struct Module
{
    ExecuteQuorvaneFunction function;
    std::wstring folder;
    std::filesystem::path out;
};

/// Makes a call while the driver works in another thread.
void CallAndWork(const Module& module, const std::function<void()>& work)
{
    std::atomic<bool> done = false;
    std::thread driver([&] {
        work();
        done = true;
    });
    module.function(module.folder.c_str(), 1);
    while (!done)
    {
        QApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    driver.join();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void CallAtDisplay(const Module& module, int call)
{
    const bool output = call % 2 != 0;
    std::filesystem::remove(module.out);
    CallAndWork(module, [&] { output ? Output(module.out.wstring()) : Cancel(); });
    Check(std::filesystem::exists(module.out) == output, output ? "no file was written" : "a file was written", call);
}

constexpr const char* NO_DISPLAY_LINE = "画面に接続できないため、ダイアログを表示できません。\n";

/// The environment of a process that has no display.
struct NoDisplay
{
    const char* display;
    const char* waylandDisplay;
    const char* platform;
    const char* session = nullptr;
    const char* runtimeFolder = nullptr;
};

constexpr NoDisplay NO_DISPLAYS[] = {
    {nullptr, nullptr, nullptr},
    {":9999", nullptr, nullptr},
    {nullptr, "no-such-server", nullptr},
    {nullptr, nullptr, "xcb"},
    {":9999", nullptr, "xcb"},
    {nullptr, "no-such-server", "wayland"},
    {nullptr, "no-such-server", "wayland", nullptr, "/"},
    {nullptr, "/no-such-server", "wayland"},
    {nullptr, nullptr, nullptr, "wayland"},
    {nullptr, nullptr, nullptr, "wayland", "/"},
    {nullptr, nullptr, "no-such-platform"},
};

void SetVariable(const char* name, const char* value)
{
    value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
}

/// What the module writes to standard error during a call.
std::string ToldAtCall(const Module& module)
{
    const int told = ::memfd_create("told", 0);
    const int former = ::dup(STDERR_FILENO);
    ::dup2(told, STDERR_FILENO);
    module.function(module.folder.c_str(), 1);
    ::dup2(former, STDERR_FILENO);
    ::close(former);
    std::string text(4096, '\0');
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(::pread(told, text.data(), text.size(), 0), 0)));
    ::close(told);
    return text;
}

void CallInTheDark(const Module& module, int call)
{
    const NoDisplay& none = NO_DISPLAYS[static_cast<std::size_t>(call) % std::size(NO_DISPLAYS)];
    SetVariable("DISPLAY", none.display);
    SetVariable("WAYLAND_DISPLAY", none.waylandDisplay);
    SetVariable("QT_QPA_PLATFORM", none.platform);
    SetVariable("XDG_SESSION_TYPE", none.session);
    SetVariable("XDG_RUNTIME_DIR", none.runtimeFolder);
    const std::string told = ToldAtCall(module);
    Check(told == NO_DISPLAY_LINE, "told: " + told, call);
    Check(qApp == nullptr, "there is an application object", call);
}

void CallAgainAndAgain(const Module& module, void (*makeCall)(const Module&, int))
{
    Counts counts;
    for (int call = 1; call <= CALLS; ++call)
    {
        const OwnState before;
        makeCall(module, call);
        CompareState(before, call);
        if (call % CALLS_BETWEEN_COUNTS == 0)
        {
            counts.Add(call);
        }
    }
    counts.Compare();
}

void RunJoined(const Module& module)
{
    int argumentCount = 1;
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    const QApplication application(argumentCount, arguments);
    QMainWindow window;
    window.resize(1000, 700);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    CallAgainAndAgain(module, CallAtDisplay);
    Check(qApp == &application, "another application object", CALLS);
    Check(window.isVisible(), "the main window is gone", CALLS);
}

void RunAlone(const Module& module)
{
    CallAgainAndAgain(module, CallAtDisplay);
    Check(QApplication::topLevelWidgets().isEmpty(), "a window is left", CALLS);
}

/// A window of the host with a button that covers it, which counts its clicks.
class ClickedWindow
{
  public:
    ClickedWindow(QWidget* owner, Qt::WindowFlags flags) : window_(owner, flags), button_(&window_)
    {
        window_.resize(100, 50);
        button_.resize(window_.size());
        QObject::connect(&button_, &QPushButton::clicked, [this] { ++clicks_; });
        window_.show();
    }

    QWidget& Window() { return window_; }

    /// Presses the mouse over the button. True if the button was clicked.
    bool Click()
    {
        const int before = clicks_;
        QTest::mouseClick(window_.windowHandle(), Qt::LeftButton, {}, button_.rect().center());
        return clicks_ > before;
    }

  private:
    QWidget window_;
    QPushButton button_;
    int clicks_ = 0;
};

/// The finished file of a call during which the host's windows are tried and another call is made.
void RunCrowded(const Module& module)
{
    int argumentCount = 1;
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    const QApplication application(argumentCount, arguments);
    ClickedWindow main(nullptr, Qt::Window);
    ClickedWindow palette(&main.Window(), Qt::Tool);
    ClickedWindow second(nullptr, Qt::Window);
    ClickedWindow* const windows[] = {&main, &palette, &second};
    const auto clicked = [&] {
        return std::count_if(std::begin(windows), std::end(windows), [](ClickedWindow* one) { return one->Click(); });
    };
    WaitUntilActive(main.Window());
    CallAtDisplay(module, 1);
    const std::optional<std::string> alone = ReadWholeFile(module.out.wstring());
    Check(clicked() == std::ssize(windows), "a window isn't clicked without the dialog", 1);

    WaitUntilActive(palette.Window());
    std::atomic<bool> calledAgain = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
        {
            return;
        }
        timer.stop();
        Check(dialog->parentWidget() == &main.Window(), "the dialog belongs to another window", 2);
        Check(clicked() == 0, "a window is clicked under the dialog", 2);
        const qsizetype before = QApplication::topLevelWidgets().size();
        dialog->lower();
        module.function((module.folder + L"/../river").c_str(), 0);
        Check(QApplication::activeModalWidget() == dialog, "another dialog is in front", 2);
        Check(QApplication::topLevelWidgets().size() == before, "there is another window", 2);
        calledAgain = true;
    });
    timer.start(10);
    std::filesystem::remove(module.out);
    CallAndWork(module, [&] {
        while (!calledAgain)
        {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        Output(module.out.wstring());
    });
    Check(ReadWholeFile(module.out.wstring()) == alone, "the calls are mixed", 2);
    Check(clicked() == std::ssize(windows), "a window isn't clicked after the dialog", 2);
}

/// A display that comes to be there serves the next call.
void RunDark(const Module& module)
{
    const std::string display = ::getenv("DISPLAY");
    CallAgainAndAgain(module, CallInTheDark);
    ::setenv("DISPLAY", display.c_str(), 1);
    ::unsetenv("WAYLAND_DISPLAY");
    ::unsetenv("QT_QPA_PLATFORM");
    CallAtDisplay(module, CALLS + 1);
}

void ExpectNoWindows(const std::string& told, int call)
{
    Check(told == NO_DISPLAY_LINE, "told: " + told, call);
}

/// Calls from where Qt shows no window: a host whose application object knows none, and a thread that isn't its own.
void RunElsewhere(const Module& module)
{
    int argumentCount = 1;
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    {
        const QCoreApplication application(argumentCount, arguments);
        ExpectNoWindows(ToldAtCall(module), 1);
    }
    const QApplication application(argumentCount, arguments);
    std::thread([&] { ExpectNoWindows(ToldAtCall(module), 2); }).join();
}

struct Mode
{
    std::string_view name;
    void (*run)(const Module&);
};

constexpr Mode MODES[] = {{"joined", RunJoined},
                          {"alone", RunAlone},
                          {"dark", RunDark},
                          {"crowded", RunCrowded},
                          {"elsewhere", RunElsewhere}};

} // namespace
} // namespace jlandxml

int main(int count, char** arguments)
{
    using namespace jlandxml;
    if (count != 5)
    {
        return 2;
    }
    void* const library = ::dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    const auto* const mode =
        std::find_if(std::begin(MODES), std::end(MODES), [&](const Mode& one) { return one.name == arguments[4]; });
    if (library == nullptr || mode == std::end(MODES))
    {
        return 2;
    }
    mode->run({reinterpret_cast<ExecuteQuorvaneFunction>(::dlsym(library, "ExecuteQuorvane")),
               WideFromUtf8(arguments[2]), arguments[3]});
    return failures != 0;
}
