#pragma once

#include "windows/Window.h"

namespace jlandxml
{

/// The window layer of Windows.
class Win32WindowSystem : public WindowSystem
{
  public:
    /// Over the host's active window.
    void ShowMessage(const std::wstring& text, MessageIcon icon) override;
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   DialogWindow* owner) override;
};

} // namespace jlandxml
