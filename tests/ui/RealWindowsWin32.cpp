#ifdef _WIN32

#include "jlandxml/JLandXmlConvert.h"
#include "ui/RealWindows.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <thread>

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <objidl.h>

#include <gdiplus.h>

namespace jlandxml
{

namespace
{

constexpr auto PATIENCE = std::chrono::seconds(60);
constexpr auto PAUSE = std::chrono::milliseconds(10);
constexpr int PRESSES = 3;
constexpr int PAUSES = 500;

[[noreturn]] void GiveUp(const char* what)
{
    std::fprintf(stderr, "no %s came up\n", what);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 9);
    std::abort();
}

template <class Condition>
auto WaitFor(const char* what, Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + PATIENCE;
    for (;;)
    {
        if (auto result = condition())
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

bool IsDialog(HWND window)
{
    wchar_t name[16]{};
    GetClassNameW(window, name, 16);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return std::wstring_view(name) == L"#32770" && process == GetCurrentProcessId() &&
           IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
}

/// Whether the module has given the host's thread back.
std::atomic<bool> callReturned = false;

constexpr int TREE = 1019;
constexpr int ERROR_LIST = 1062; // an edit of the main dialog too

/// The dialog over the host's window that has nothing left to do but wait for the user.
std::atomic<HWND> idleDialog = nullptr;

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_ENTERIDLE)
    {
        idleDialog = reinterpret_cast<HWND>(lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

/// True when a control of the dialog has the focus, and the dialog, where it is the host's, has come to wait.
bool IsReady(HWND dialog)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
    const bool opened = GetDlgItem(dialog, TREE) == nullptr || idleDialog == dialog;
    return opened && info.hwndFocus != nullptr && IsChild(dialog, info.hwndFocus) != FALSE;
}

/// The open dialog for which the condition holds; null if there is none.
HWND FindDialog(const std::function<bool(HWND)>& condition)
{
    struct Search
    {
        const std::function<bool(HWND)>& condition;
        HWND found;
    } search{condition, nullptr};
    EnumWindows(
        [](HWND window, LPARAM data) -> BOOL {
            auto& one = *reinterpret_cast<Search*>(data);
            if (IsDialog(window) && one.condition(window))
            {
                one.found = window;
                return FALSE;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring WindowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)), L'\0');
    const LRESULT length = SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

HWND FileNameEdit(HWND dialog)
{
    const HWND edit = GetDlgItem(dialog, edt1);
    return edit != nullptr ? edit : GetDlgItem(dialog, cmb13);
}

bool Is(HWND window, KnownDialog which)
{
    const bool tree = GetDlgItem(window, TREE) != nullptr;
    return which == KnownDialog::Main ? tree : !tree && GetDlgItem(window, ERROR_LIST) != nullptr;
}

bool IsSaveDialog(HWND window)
{
    return !Is(window, KnownDialog::Main) && FileNameEdit(window) != nullptr && GetDlgItem(window, stc3) != nullptr;
}

/// The text of a message box; empty for any other dialog.
std::wstring MessageText(HWND window)
{
    if (Is(window, KnownDialog::Main) || Is(window, KnownDialog::Errors) || IsSaveDialog(window))
    {
        return {};
    }
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        wchar_t name[16]{};
        GetClassNameW(child, name, 16);
        if (std::wstring_view(name) == L"Static" && !WindowText(child).empty())
        {
            return WindowText(child);
        }
    }
    return {};
}

/// Works a dialog by the messages that a person's actions cause.
class Win32Hands final : public DialogHands
{
  public:
    explicit Win32Hands(HWND dialog) : dialog_(dialog) {}

    bool IsEnabled(int control) const override { return IsWindowEnabled(At(control)) != FALSE; }
    bool IsShown(int control) const override { return (GetWindowLongPtrW(At(control), GWL_STYLE) & WS_VISIBLE) != 0; }

    bool CanReach(int control) const override
    {
        const HWND window = At(control);
        return window != nullptr && IsWindowEnabled(dialog_) != FALSE && IsWindowVisible(window) != FALSE &&
               IsWindowEnabled(window) != FALSE;
    }

    bool Click(int control) override
    {
        constexpr LRESULT BUTTON = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
        const LRESULT code = At(control) != nullptr ? Send(control, WM_GETDLGCODE) : 0;
        if (!CanReach(control) || (code & (BUTTON | DLGC_RADIOBUTTON)) == 0)
        {
            return false;
        }
        if ((code & DLGC_RADIOBUTTON) != 0 || IsOnItsThread())
        {
            Send(control, BM_CLICK);
        }
        else
        {
            // A button may open a window, which would keep this thread waiting.
            PostMessageW(At(control), BM_CLICK, 0, 0);
        }
        return true;
    }

    bool Type(int control, const std::wstring& text) override
    {
        if (!CanReach(control) || IsReadOnly(control))
        {
            return false;
        }
        Send(control, EM_SETSEL, 0, -1);
        Send(control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        return true;
    }

    bool TypeCharacter(int control, wchar_t character) override
    {
        if (!CanReach(control) || !IsClass(control, L"Edit") || IsReadOnly(control))
        {
            return false;
        }
        Send(control, EM_SETSEL, static_cast<WPARAM>(Text(control).size()), static_cast<LPARAM>(Text(control).size()));
        Send(control, WM_CHAR, character);
        return true;
    }

    bool ChooseEntry(int list, int entry) override
    {
        if (!CanReach(list) || entry < 0 || entry >= EntryCount(list))
        {
            return false;
        }
        Send(list, CB_SETCURSEL, static_cast<WPARAM>(entry));
        SendMessageW(dialog_, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE), reinterpret_cast<LPARAM>(At(list)));
        return true;
    }

    bool ChooseTreeItem(int tree, TreeItem item) override
    {
        if (!CanReach(tree))
        {
            return false;
        }
        Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
        return true;
    }

    bool ClickTreeItem(int tree, TreeItem item) override
    {
        if (!CanReach(tree))
        {
            return false;
        }
        Send(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
        RECT place{};
        std::memcpy(&place, &item, sizeof(item)); // the item is named in the rectangle's own bytes
        Send(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
        const POINT point{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        // A window that has only just come up may still be on its way to its place.
        for (int press = 0; press < PRESSES && Next(tree, TVGN_CARET, nullptr) != item; ++press)
        {
            POINT onScreen = point;
            ClientToScreen(At(tree), &onScreen);
            PressMouseAt(onScreen);
            for (int pause = 0; pause < PAUSES / PRESSES && Next(tree, TVGN_CARET, nullptr) != item; ++pause)
            {
                HandleOwnMessages();
                std::this_thread::sleep_for(PAUSE);
            }
        }
        return Next(tree, TVGN_CARET, nullptr) == item;
    }

    bool PressEnter() override { return PressKey(VK_RETURN); }
    bool PressEscape() override { return PressKey(VK_ESCAPE); }

    std::wstring Text(int control) const override
    {
        if (!IsList(control))
        {
            return WindowText(At(control));
        }
        const int entry = SelectedEntry(control);
        return entry < 0 ? std::wstring() : EntryText(control, entry);
    }

    int EntryCount(int list) const override
    {
        return static_cast<int>(Send(list, IsListBox(list) ? LB_GETCOUNT : CB_GETCOUNT));
    }

    std::wstring EntryText(int list, int entry) const override
    {
        const bool box = IsListBox(list);
        const auto index = static_cast<WPARAM>(entry);
        std::wstring text(static_cast<std::size_t>(Send(list, box ? LB_GETTEXTLEN : CB_GETLBTEXTLEN, index)), L'\0');
        Send(list, box ? LB_GETTEXT : CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        return text;
    }

    const wchar_t* EntryData(int list, int entry) const override
    {
        return reinterpret_cast<const wchar_t*>(Send(list, CB_GETITEMDATA, static_cast<WPARAM>(entry)));
    }

    int SelectedEntry(int list) const override { return static_cast<int>(Send(list, CB_GETCURSEL)); }
    bool IsChecked(int radio) const override { return Send(radio, BM_GETCHECK) == BST_CHECKED; }

    std::vector<TreeItem> TreeChildren(int tree, TreeItem parent) const override
    {
        std::vector<TreeItem> items;
        TreeItem item = Next(tree, parent != nullptr ? TVGN_CHILD : TVGN_ROOT, parent);
        for (; item != nullptr; item = Next(tree, TVGN_NEXT, item))
        {
            items.push_back(item);
        }
        return items;
    }

    std::wstring TreeText(int tree, TreeItem item) const override
    {
        std::wstring text(1024, L'\0');
        TVITEMW found = Item(item, TVIF_TEXT);
        found.pszText = text.data();
        found.cchTextMax = static_cast<int>(text.size());
        Send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&found));
        return found.pszText;
    }

    bool IsExpanded(int tree, TreeItem item) const override
    {
        const auto state =
            static_cast<UINT>(Send(tree, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED));
        return (state & TVIS_EXPANDED) != 0;
    }

    void* TreeItemData(int tree, TreeItem item) const override
    {
        TVITEMW found = Item(item, TVIF_PARAM);
        Send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&found));
        return reinterpret_cast<void*>(found.lParam);
    }

  private:
    HWND At(int control) const { return GetDlgItem(dialog_, control); }

    LRESULT Send(int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(At(control), message, wParam, lParam);
    }

    bool IsClass(int control, std::wstring_view wanted) const
    {
        wchar_t name[32]{};
        GetClassNameW(At(control), name, 32);
        return name == wanted;
    }

    bool IsListBox(int control) const { return IsClass(control, L"ListBox"); }
    bool IsList(int control) const { return IsListBox(control) || IsClass(control, L"ComboBox"); }
    bool IsReadOnly(int control) const { return (GetWindowLongPtrW(At(control), GWL_STYLE) & ES_READONLY) != 0; }

    bool IsOnItsThread() const { return GetWindowThreadProcessId(dialog_, nullptr) == GetCurrentThreadId(); }

    static void PressMouseAt(const POINT& point)
    {
        SetCursorPos(point.x, point.y);
        INPUT inputs[2]{};
        inputs[0].type = INPUT_MOUSE;
        inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
        inputs[1].type = INPUT_MOUSE;
        inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
        SendInput(2, inputs, sizeof(INPUT));
    }

    /// The click arrives with the messages of the window's own thread.
    void HandleOwnMessages() const
    {
        MSG message;
        while (IsOnItsThread() && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    bool PressKey(WPARAM key) const
    {
        if (IsWindowEnabled(dialog_) == FALSE || IsWindowVisible(dialog_) == FALSE)
        {
            return false;
        }
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(dialog_, nullptr), &info);
        MSG press{};
        press.hwnd = info.hwndFocus != nullptr ? info.hwndFocus : dialog_;
        press.message = WM_KEYDOWN;
        press.wParam = key;
        if (IsOnItsThread())
        {
            IsDialogMessageW(dialog_, &press);
        }
        else
        {
            PostMessageW(press.hwnd, press.message, press.wParam, 0);
        }
        return true;
    }

    static TVITEMW Item(TreeItem item, UINT mask)
    {
        TVITEMW found{};
        found.mask = mask | TVIF_HANDLE;
        found.hItem = reinterpret_cast<HTREEITEM>(item);
        return found;
    }

    TreeItem Next(int tree, WPARAM which, TreeItem item) const
    {
        return reinterpret_cast<TreeItem>(Send(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
    }

    HWND dialog_;
};

/// A part of the screen as a bitmap of its own.
class ScreenPart
{
  public:
    explicit ScreenPart(const RECT& place)
    {
        const int width = place.right - place.left;
        const int height = place.bottom - place.top;
        const HDC screen = GetDC(nullptr);
        const HDC memory = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        const HGDIOBJ former = SelectObject(memory, bitmap_);
        BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
        SelectObject(memory, former);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
    }
    ScreenPart(const ScreenPart&) = delete;
    ScreenPart& operator=(const ScreenPart&) = delete;
    ~ScreenPart() { DeleteObject(bitmap_); }

    void SaveAsPng(const std::wstring& path) const
    {
        constexpr CLSID PNG = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token, &input, nullptr);
        {
            Gdiplus::Bitmap image(bitmap_, nullptr);
            image.Save(path.c_str(), &PNG, nullptr);
        }
        Gdiplus::GdiplusShutdown(token);
    }

  private:
    HBITMAP bitmap_;
};

} // namespace

struct Host::State
{
    HMODULE module;
    ExecuteQuorvaneFunction function;
    HWND window;
};

Host::Host(const std::wstring& modulePath) : state_(std::make_unique<State>())
{
    state_->module = LoadLibraryW(modulePath.c_str());
    if (state_->module == nullptr)
    {
        GiveUp("module");
    }
    state_->function = reinterpret_cast<ExecuteQuorvaneFunction>(
        reinterpret_cast<void*>(GetProcAddress(state_->module, "ExecuteQuorvane")));
    state_->window = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700, nullptr,
                                     nullptr, nullptr, nullptr);
    SetWindowLongPtrW(state_->window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HostProcedure));
    SetActiveWindow(state_->window);
    SetFocus(state_->window);
}

Host::~Host()
{
    DestroyWindow(state_->window);
    FreeLibrary(state_->module);
}

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
    // The driver may still have a message on its way to this thread.
    while (!done)
    {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        std::this_thread::sleep_for(PAUSE);
    }
    thread.join();
}

bool Host::IsInFront() const
{
    return IsWindowEnabled(state_->window) != FALSE && GetActiveWindow() == state_->window &&
           GetFocus() == state_->window;
}

std::unique_ptr<DialogHands> WaitForDialog(KnownDialog which)
{
    const HWND dialog = WaitFor(
        "dialog", [&] { return FindDialog([&](HWND window) { return IsReady(window) && Is(window, which); }); });
    return std::make_unique<Win32Hands>(dialog);
}

Seen WaitForWindow()
{
    Seen seen = Seen::Nothing;
    WaitFor("window", [&] {
        if (callReturned)
        {
            return true;
        }
        return FindDialog([&](HWND window) {
                   if (!IsReady(window))
                   {
                       return false;
                   }
                   seen = Is(window, KnownDialog::Main)     ? Seen::MainDialog
                          : Is(window, KnownDialog::Errors) ? Seen::ErrorList
                          : IsSaveDialog(window)            ? Seen::SaveDialog
                                                            : Seen::Message;
                   return seen != Seen::Message || !MessageText(window).empty();
               }) != nullptr;
    });
    return seen;
}

std::wstring AnswerMessage()
{
    std::wstring text;
    const HWND box = WaitFor(
        "message", [&] { return FindDialog([&](HWND window) { return !(text = MessageText(window)).empty(); }); });
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    WaitFor("end of the message", [&] { return IsWindow(box) == FALSE; });
    return text;
}

void AnswerQuestion(bool yes)
{
    const HWND box = WaitFor(
        "question", [] { return FindDialog([](HWND window) { return GetDlgItem(window, IDYES) != nullptr; }); });
    PostMessageW(box, WM_COMMAND, yes ? IDYES : IDNO, 0);
    WaitFor("end of the question", [&] { return IsWindow(box) == FALSE; });
}

void AnswerSaveDialog(const std::optional<std::wstring>& path)
{
    const HWND dialog = WaitFor("save dialog", [] { return FindDialog(IsSaveDialog); });
    if (path)
    {
        SendMessageW(FileNameEdit(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path->c_str()));
    }
    PostMessageW(dialog, WM_COMMAND, path ? IDOK : IDCANCEL, 0);
    WaitFor("end of the save dialog", [&] { return IsWindow(dialog) == FALSE || IsWindowEnabled(dialog) == FALSE; });
}

void WaitUntilGone(KnownDialog which)
{
    WaitFor("end of the dialog", [&] { return FindDialog([&](HWND window) { return Is(window, which); }) == nullptr; });
}

namespace
{

HWND FocusOfFrontDialog()
{
    const HWND dialog = FindDialog([](HWND) { return true; });
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
    return info.hwndFocus;
}

} // namespace

void PressKey(Key key)
{
    const WPARAM code = key == Key::Tab ? VK_TAB : key == Key::Down ? VK_DOWN : VK_RETURN;
    PostMessageW(FocusOfFrontDialog(), WM_KEYDOWN, code, 0);
}

void PressCharacter(wchar_t character)
{
    PostMessageW(FocusOfFrontDialog(), WM_CHAR, character, 0);
}

bool WaitForFocus(int control)
{
    for (int pause = 0; pause < PAUSES; ++pause)
    {
        if (GetDlgCtrlID(FocusOfFrontDialog()) == control)
        {
            return true;
        }
        std::this_thread::sleep_for(PAUSE);
    }
    return false;
}

void DropDown(int list)
{
    const HWND combo = GetDlgItem(FindDialog([](HWND window) { return Is(window, KnownDialog::Main); }), list);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof(parts);
    GetComboBoxInfo(combo, &parts);
    SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    RedrawWindow(parts.hwndList, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
}

void TakePicture(const std::wstring& path)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    RECT place{};
    GetWindowRect(FindDialog([](HWND) { return true; }), &place);
    ScreenPart(place).SaveAsPng(path);
}

std::unique_ptr<DialogHands> HandsOfFrontDialog()
{
    return std::make_unique<Win32Hands>(GetActiveWindow());
}

const void* FrontDialog()
{
    return GetActiveWindow();
}

const void* ActiveHostWindow()
{
    return GetActiveWindow();
}

WindowLook LookAtFrontWindow()
{
    const HWND window = GetActiveWindow();
    WindowLook look{GetWindow(window, GW_OWNER), WindowText(window), {}, {}, {}, false};
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        wchar_t name[16]{};
        GetClassNameW(child, name, 16);
        const std::wstring text = WindowText(child);
        const auto icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
        if (std::wstring_view(name) == L"Static" && icon != nullptr)
        {
            look.exclamation = icon == LoadIconW(nullptr, reinterpret_cast<const wchar_t*>(IDI_EXCLAMATION));
        }
        else if (IsWindowVisible(child) != FALSE && !text.empty())
        {
            (std::wstring_view(name) == L"Button" ? look.buttons : look.texts).push_back(text);
        }
    }
    const HWND filters = GetDlgItem(window, cmb1);
    const LRESULT count = filters != nullptr ? SendMessageW(filters, CB_GETCOUNT, 0, 0) : 0;
    for (LRESULT filter = 0; filter < count; ++filter)
    {
        wchar_t text[256]{};
        SendMessageW(filters, CB_GETLBTEXT, static_cast<WPARAM>(filter), reinterpret_cast<LPARAM>(text));
        look.filters.emplace_back(text);
    }
    return look;
}

void CloseFrontWindow()
{
    const HWND window = GetActiveWindow();
    PostMessageW(window, WM_COMMAND, GetDlgItem(window, IDCANCEL) != nullptr ? IDCANCEL : IDOK, 0);
}

struct Errands::State
{
    static std::map<UINT_PTR, std::function<void()>>& Steps()
    {
        static std::map<UINT_PTR, std::function<void()>> steps;
        return steps;
    }

    static void CALLBACK Run(HWND, UINT, UINT_PTR timer, DWORD)
    {
        // The system may come by before it has shown the window.
        if (IsWindowVisible(GetActiveWindow()) == FALSE)
        {
            return;
        }
        KillTimer(nullptr, timer);
        auto step = Steps().extract(timer);
        if (!step.empty())
        {
            step.mapped()();
        }
    }
};

Errands::Errands() = default;

Errands::~Errands()
{
    for (const auto& [timer, step] : State::Steps())
    {
        KillTimer(nullptr, timer);
    }
    State::Steps().clear();
}

void Errands::RunWhenIdle(std::function<void()> step)
{
    State::Steps()[SetTimer(nullptr, 0, USER_TIMER_MINIMUM, State::Run)] = std::move(step);
}

} // namespace jlandxml

#endif
