#pragma once

#include "windows/Window.h"

namespace jlandxml
{

/// The window layer of Windows.
class Win32WindowSystem : public WindowSystem
{
  public:
    /// Over the module's dialog in front, or the root owner of the host's active window.
    void ShowMessage(const std::wstring& text) override;
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   DialogWindow* owner) override;
    void RaiseOpenWindow() override;
};

} // namespace jlandxml
