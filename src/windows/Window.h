#pragma once

#include "windows/Dialog.h"

#include <memory>
#include <string>

namespace jlandxml
{

/// The icon of a message box.
enum class MessageIcon
{
    None,
    Exclamation
};

/// What the module asks of a window system. The logic knows no toolkit: each layer (native windows, or the scripted one
/// of tests and the command line) derives from this class.
class WindowSystem
{
  public:
    virtual ~WindowSystem() = default;

    /// Shows a text with only an OK button and returns when the user has closed it. The title is the dialog's caption.
    virtual void ShowMessage(const std::wstring& text, MessageIcon icon) = 0;

    /// Makes the window of a dialog from its template, not shown yet. Without an owner it belongs to the host's active
    /// window. The events and the owner must outlive it.
    virtual std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                           DialogWindow* owner) = 0;
};

/// The title of every message box.
inline constexpr const wchar_t* MESSAGE_CAPTION = L"J-LandXML出力設定";

/// The layer in use. A process has one at a time; the module's products install the native one when they are loaded.
WindowSystem& GetWindowSystem();

/// Puts another layer in the place of the one in use, or none with a null pointer. Returns the former.
WindowSystem* SetWindowSystem(WindowSystem* system);

} // namespace jlandxml
