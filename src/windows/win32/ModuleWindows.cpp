#include "windows/win32/ModuleWindows.h"

#include "windows/Window.h"

#include <atomic>

namespace jlandxml
{

namespace
{

/// The module's dialog in front, and the window below the module's window in front. They are asked for by calls on
/// other threads too.
std::atomic<HWND> moduleDialog = nullptr;
std::atomic<HWND> modalOwner = nullptr;

bool CanBeWorked(HWND window)
{
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
}

/// The last of a window's owners, above which there is none or none that can be worked, as below a dialog of the host.
HWND RootOwner(HWND window)
{
    HWND root = window;
    for (HWND owner = GetWindow(root, GW_OWNER); owner != nullptr && CanBeWorked(owner);
         owner = GetWindow(root, GW_OWNER))
    {
        root = owner;
    }
    return root;
}

} // namespace

HINSTANCE ThisModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ThisModule), &module);
    return module;
}

HWND OwnerOfNextWindow()
{
    if (moduleDialog != nullptr)
    {
        return moduleDialog;
    }
    if (const HWND active = GetActiveWindow(); active != nullptr)
    {
        return RootOwner(active);
    }
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            if (!CanBeWorked(window) || GetWindow(window, GW_OWNER) != nullptr)
            {
                return TRUE;
            }
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

ModalScope::ModalScope(HWND owner)
    : active_(GetActiveWindow()),
      formerDialog_(moduleDialog),
      formerOwner_(modalOwner.exchange(owner))
{
    struct Search
    {
        HWND owner;
        std::vector<HWND>& windows;
    } search{owner, disabled_};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            const auto& one = *reinterpret_cast<const Search*>(data);
            if (window != one.owner && IsWindowEnabled(window) != FALSE)
            {
                one.windows.push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    for (const HWND window : disabled_)
    {
        EnableWindow(window, FALSE);
    }
}

ModalScope::~ModalScope()
{
    Release();
    moduleDialog = formerDialog_;
    modalOwner = formerOwner_;
    // The system makes the owner the active window, whichever was active before.
    if (GetActiveWindow() != active_ && IsWindow(active_) != FALSE && CanBeWorked(active_))
    {
        SetActiveWindow(active_);
    }
}

void ModalScope::SetDialog(HWND dialog)
{
    moduleDialog = dialog;
}

void ModalScope::Release()
{
    for (const HWND window : disabled_)
    {
        EnableWindow(window, TRUE);
    }
    disabled_.clear();
}

void RaiseModalWindow()
{
    const HWND below = moduleDialog != nullptr ? moduleDialog.load() : modalOwner.load();
    if (below != nullptr)
    {
        SetForegroundWindow(GetLastActivePopup(below));
    }
}

void ShowMessageBox(HWND owner, const std::wstring& text)
{
    const VisualStyles styles;
    const ModalScope modal(owner);
    MessageBoxW(owner, text.c_str(), MESSAGE_CAPTION, MB_OK | MB_ICONEXCLAMATION);
}

VisualStyles::VisualStyles()
{
    ACTCTXW context{};
    context.cbSize = sizeof(context);
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = ThisModule();
    context.lpResourceName = MAKEINTRESOURCEW(2); // the manifest, under the number that a library's has
    context_ = CreateActCtxW(&context);
    active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_) != FALSE;
}

VisualStyles::~VisualStyles()
{
    if (active_)
    {
        DeactivateActCtx(0, cookie_);
    }
    if (context_ != INVALID_HANDLE_VALUE)
    {
        ReleaseActCtx(context_);
    }
}

} // namespace jlandxml
