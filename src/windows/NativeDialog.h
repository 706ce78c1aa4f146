#pragma once

#include "windows/Dialog.h"

#include <exception>

namespace jlandxml
{

/// The base of the windows that live in a toolkit, which calls back. No exception may pass through it: what a handler
/// throws ends the dialog and leaves where the dialog was opened.
class NativeDialog : public DialogWindow
{
  public:
    void End(DialogResult result) final
    {
        result_ = result;
        Close();
    }

  protected:
    NativeDialog(const DialogTemplate& dialog, DialogEvents& events) : DialogWindow(dialog), events_(events) {}

    /// Passes an event on and keeps what its handler throws.
    template <class Event>
    void Tell(Event event)
    {
        try
        {
            event(events_);
        }
        catch (...)
        {
            failure_ = std::current_exception();
            End(DialogResult::Cancelled);
        }
    }

    /// Lets what a handler threw go on.
    void RethrowFailure() const
    {
        if (failure_ != nullptr)
        {
            std::rethrow_exception(failure_);
        }
    }

    /// How the dialog ended.
    DialogResult Result() const { return result_; }

    /// Ends the window's waiting for the user.
    virtual void Close() = 0;

  private:
    DialogEvents& events_;
    DialogResult result_ = DialogResult::Cancelled;
    std::exception_ptr failure_;
};

} // namespace jlandxml
