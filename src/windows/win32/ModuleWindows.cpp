#include "windows/win32/ModuleWindows.h"

namespace jlandxml
{

HINSTANCE ThisModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ThisModule), &module);
    return module;
}

HWND HostWindow()
{
    if (const HWND active = GetActiveWindow(); active != nullptr)
    {
        return active;
    }
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            const bool canBeWorked = IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
            if (!canBeWorked || GetWindow(window, GW_OWNER) != nullptr)
            {
                return TRUE;
            }
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
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
