#pragma once

#include "windows/Window.h"
#include "windows/scripted/ScriptedDialog.h"

#include <functional>
#include <utility>
#include <vector>

namespace jlandxml
{

/// One message box that the module has shown.
struct ShownMessage
{
    std::wstring text;

    bool operator==(const ShownMessage&) const = default;
};

/// The window layer without a display, for tests and the command line: scripts act as the user, and what happens is
/// recorded. Message boxes are answered at once.
class ScriptedWindowSystem : public WindowSystem
{
  public:
    /// Works a dialog after it has opened. When it returns, a dialog that is still open is cancelled.
    using User = std::function<void(ScriptedDialog&)>;
    /// Answers the save dialog: a path, or nothing for cancel.
    using SaveFileAnswer = std::function<std::optional<std::wstring>(const SaveFileRequest&)>;

    void SetUser(User user) { user_ = std::move(user); }
    void SetSaveFileAnswer(SaveFileAnswer answer) { saveFileAnswer_ = std::move(answer); }

    void ShowMessage(const std::wstring& text) override;
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   DialogWindow* owner) override;
    void RaiseOpenWindow() override;

    /// The message boxes in the order in which they were shown.
    const std::vector<ShownMessage>& Messages() const { return messages_; }
    /// All that happened, one line each: windows opened, raised and closed, clicks, texts, choices, messages.
    const std::vector<std::wstring>& Records() const { return records_; }

    // For the dialogs of this layer.

    void Record(std::wstring line) { records_.push_back(std::move(line)); }
    void LetUserWork(ScriptedDialog& dialog) const;
    /// The dialogs that are open, the one in front last.
    std::vector<ScriptedDialog*>& OpenDialogs() { return openDialogs_; }
    std::optional<std::wstring> AnswerSaveFile(const SaveFileRequest& request);

  private:
    User user_;
    SaveFileAnswer saveFileAnswer_;
    std::vector<ShownMessage> messages_;
    std::vector<std::wstring> records_;
    std::vector<ScriptedDialog*> openDialogs_;
};

} // namespace jlandxml
