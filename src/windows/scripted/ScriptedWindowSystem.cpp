#include "windows/scripted/ScriptedWindowSystem.h"

namespace jlandxml
{

void ScriptedWindowSystem::ShowMessage(const std::wstring& text)
{
    messages_.push_back({text});
    Record(L"message " + text);
}

std::unique_ptr<DialogWindow> ScriptedWindowSystem::MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                                     DialogWindow* owner)
{
    return std::make_unique<ScriptedDialog>(dialog, events, *this, dynamic_cast<ScriptedDialog*>(owner));
}

void ScriptedWindowSystem::RaiseOpenWindow()
{
    if (!openDialogs_.empty())
    {
        openDialogs_.back()->Raise();
    }
}

void ScriptedWindowSystem::LetUserWork(ScriptedDialog& dialog) const
{
    // A copy, since the user of one dialog may be followed by another one while it works.
    if (const User user = user_)
    {
        user(dialog);
    }
}

std::optional<std::wstring> ScriptedWindowSystem::AnswerSaveFile(const SaveFileRequest& request)
{
    std::optional<std::wstring> path = saveFileAnswer_ ? saveFileAnswer_(request) : std::nullopt;
    Record(L"save " + path.value_or(L"cancelled"));
    return path;
}

} // namespace jlandxml
