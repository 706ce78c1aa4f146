#pragma once

#include "support/DialogLayer.h"
#include "ui/RealWindows.h"
#include "windows/NativeWindowSystem.h"

#include <optional>

namespace jlandxml
{

/// The native layer with a person who works each window as soon as it waits.
class NativeLayer final : public DialogLayer, public NativeWindowSystem
{
  public:
    WindowSystem& Windows() override { return *this; }
    void SetUser(User user) override { user_ = std::move(user); }

    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   DialogWindow* owner) override
    {
        std::unique_ptr<DialogWindow> window = NativeWindowSystem::MakeDialogWindow(dialog, events, owner);
        if (owner == nullptr)
        {
            errands_.emplace();
        }
        errands_->RunWhenIdle([this, &made = *window] { Work(made); });
        return window;
    }

  private:
    void Work(DialogWindow& window)
    {
        const void* const front = FrontDialog();
        const auto hands = HandsOfFrontDialog();
        user_(window, *hands);
        errands_->RunWhenIdle([&window, front] {
            if (FrontDialog() == front)
            {
                window.End(DialogResult::Cancelled);
            }
        });
    }

    User user_ = [](DialogWindow&, DialogHands&) {};
    std::optional<Errands> errands_; ///< of the windows of one opening
};

} // namespace jlandxml
