#pragma once

#include "windows/DialogHands.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// The real windows of a host process that has the module loaded, as a driver in a thread of its own sees and works
// them. What doesn't come up in time ends the process, since the host's thread would wait for ever.

namespace jlandxml
{

/// A host with a main window of its own, which loads the module.
class Host
{
  public:
    explicit Host(const std::wstring& modulePath);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host();

    /// Calls the exported function on this thread while the driver works in another one. Returns when both are done.
    void Call(const std::wstring& workFolder, std::int32_t routes, const std::function<void()>& driver);

    /// True if the host's main window can be worked and has the focus, as before the call.
    bool IsInFront() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

enum class KnownDialog
{
    Main,
    Errors
};

enum class Seen
{
    MainDialog,
    ErrorList,
    Message,
    SaveDialog,
    Nothing ///< the call has returned
};

/// Waits for a window to come up, or for the call's end.
Seen WaitForWindow();

/// Waits for a dialog of the module, in front of all others.
std::unique_ptr<DialogHands> WaitForDialog(KnownDialog which);

/// Waits for a message box, answers it, and gives its text.
std::wstring AnswerMessage();

/// Waits for the question whether an existing file is to be replaced, and answers it.
void AnswerQuestion(bool yes);

/// Waits for the save dialog and answers it with a path, or cancels it. Returns when it is gone or asks something.
void AnswerSaveDialog(const std::optional<std::wstring>& path);

/// Waits until a dialog is closed or behind another window.
void WaitUntilGone(KnownDialog which);

enum class Key
{
    Tab,
    Down,
    Enter
};

/// Presses a key where the focus is.
void PressKey(Key key);

/// Types a character where the focus is.
void PressCharacter(wchar_t character);

/// Waits until a control of the dialog in front has the focus; false if it doesn't come to it.
bool WaitForFocus(int control);

/// Drops a list of the dialog in front down, until it is painted, and takes it back.
void DropDown(int list);

/// Saves a picture of the window in front as a PNG file.
void TakePicture(const std::wstring& path);

// For a driver on the host's own thread.

/// What a person sees of the window in front, be it a dialog, a message box or the save dialog.
struct WindowLook
{
    const void* owner;
    std::wstring caption;
    std::vector<std::wstring> texts;   ///< that are no buttons
    std::vector<std::wstring> buttons; ///< that can be pressed, with a caption
    std::vector<std::wstring> filters; ///< of a save dialog
    bool exclamation;                  ///< the icon of a message box
};

WindowLook LookAtFrontWindow();

/// Closes the window in front by its cancel command, or a message box by its button.
void CloseFrontWindow();

/// The dialog in front, as a person sees it, and what tells it from others.
std::unique_ptr<DialogHands> HandsOfFrontDialog();
const void* FrontDialog();

/// The host's window that is active when no window of the module is open.
const void* ActiveHostWindow();

/// Runs steps on this thread once a modal window waits for the user. Those that didn't come to run go with it.
class Errands
{
  public:
    Errands();
    Errands(const Errands&) = delete;
    Errands& operator=(const Errands&) = delete;
    ~Errands();

    void RunWhenIdle(std::function<void()> step);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace jlandxml
