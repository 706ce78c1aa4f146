#pragma once

#include "windows/Window.h"

namespace jlandxml
{

/// The window layer of Linux, in Qt. It joins the host's QApplication, or makes its own that serves all later calls.
class QtWindowSystem : public WindowSystem
{
  public:
    /// Without a display the text goes to standard error.
    void ShowMessage(const std::wstring& text) override;

    /// Throws CException without a display.
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   DialogWindow* owner) override;
    void RaiseOpenWindow() override;
};

} // namespace jlandxml
