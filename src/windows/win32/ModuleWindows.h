#pragma once

#include <string>
#include <vector>

#include <windows.h>

namespace jlandxml
{

/// The module's own activation context for as long as a window is open, so that its controls have the system's present
/// look whatever the host's manifest says.
class VisualStyles
{
  public:
    VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;
    ~VisualStyles();

  private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

/// The handle of the module that this code is part of.
HINSTANCE ThisModule();

/// The window that a new one of the module stands over: the module's dialog in front if there is one. Otherwise it is
/// the root owner of the thread's active window, since a floating palette that is active wouldn't keep the user from
/// working the host's main window; or, while another program is in front, the thread's first top-level window. Only
/// what is seen and can be worked counts. Null if there is none.
HWND OwnerOfNextWindow();

/// Keeps the user from working the thread's other top-level windows while one of the module's is open. The owner is the
/// system's to disable and to enable again.
class ModalScope
{
  public:
    explicit ModalScope(HWND owner);
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope();

    /// The dialog has come up.
    static void SetDialog(HWND dialog);
    /// Enables what was enabled. Before the window goes: the system would pass on to another program if the next window
    /// couldn't be worked.
    void Release();

  private:
    std::vector<HWND> disabled_;
    HWND active_;
    HWND formerDialog_;
    HWND formerOwner_;
};

/// Brings the window of the module that waits for the user to the front.
void RaiseModalWindow();

/// Shows a text with an exclamation icon and only an OK button, and returns when the user has closed it.
void ShowMessageBox(HWND owner, const std::wstring& text);

} // namespace jlandxml
