#pragma once

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

/// The window of the host that a dialog or a message stands over: its thread's active window, or, while another program
/// is in front, the thread's first top-level window that the user could work. Null if there is none.
HWND HostWindow();

} // namespace jlandxml
