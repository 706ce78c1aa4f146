#pragma once

#include "windows/Dialog.h"

#include <memory>
#include <string>

namespace jlandxml
{

/// What the module asks of a window system. The logic knows no toolkit: each layer (native windows, or the scripted one
/// of tests and the command line) derives from this class.
class WindowSystem
{
  public:
    virtual ~WindowSystem() = default;

    /// Shows a text with an exclamation icon and only an OK button, and returns when the user has closed it. The title
    /// is the dialog's caption.
    virtual void ShowMessage(const std::wstring& text) = 0;

    /// Makes the window of a dialog from its template, not shown yet. Without an owner it belongs to the root owner of
    /// the host's active window. The events and the owner must outlive it.
    virtual std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                           DialogWindow* owner) = 0;

    /// Brings the window of the module that waits for the user to the front: a dialog, or what stands over it. Nothing
    /// happens if there is none. May be called on any thread.
    virtual void RaiseOpenWindow() = 0;
};

/// The title of every message box.
inline constexpr const wchar_t* MESSAGE_CAPTION = L"J-LandXML出力設定";

/// The layer in use. A process has one at a time; the module's products install the native one when they are loaded.
WindowSystem& GetWindowSystem();

/// Puts another layer in the place of the one in use, or none with a null pointer. Returns the former.
WindowSystem* SetWindowSystem(WindowSystem* system);

} // namespace jlandxml
