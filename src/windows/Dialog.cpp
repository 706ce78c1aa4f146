#include "windows/Dialog.h"

#include "base/Collation.h"
#include "windows/Window.h"

#include <algorithm>

namespace jlandxml
{

const ControlTemplate* FindControl(const DialogTemplate& dialog, int number)
{
    const auto control = std::find_if(dialog.controls.begin(), dialog.controls.end(),
                                      [&](const ControlTemplate& one) { return one.number == number; });
    return control == dialog.controls.end() ? nullptr : &*control;
}

const ControlTemplate* FindFirstFocus(const DialogTemplate& dialog, const std::function<bool(int control)>& canWork)
{
    const ControlTemplate* button = nullptr;
    for (const ControlTemplate& control : dialog.controls)
    {
        if (control.kind == ControlKind::Edit && canWork(control.number))
        {
            return &control;
        }
        if (control.kind == ControlKind::DefaultButton && button == nullptr)
        {
            button = &control;
        }
    }
    return button;
}

int DialogWindow::AddEntry(int list, const std::wstring& text, const wchar_t* data)
{
    const ControlTemplate* const control = FindControl(template_, list);
    const bool sorted = control != nullptr && IsSorted(control->kind);
    const int place = sorted ? SortedPlace(list, text) : EntryCount(list);
    InsertEntry(list, place, text, data);
    return place;
}

int DialogWindow::FindEntry(int list, const std::wstring& text) const
{
    const int count = EntryCount(list);
    for (int entry = 0; entry < count; ++entry)
    {
        if (EntryText(list, entry) == text)
        {
            return entry;
        }
    }
    return NO_ENTRY;
}

/// The place behind all entries that don't come after the text.
int DialogWindow::SortedPlace(int list, const std::wstring& text) const
{
    int first = 0;
    int last = EntryCount(list);
    while (first < last)
    {
        const int middle = first + (last - first) / 2;
        if (CompareJapanese(text, EntryText(list, middle)) < 0)
        {
            last = middle;
        }
        else
        {
            first = middle + 1;
        }
    }
    return first;
}

DialogResult Dialog::DoModal()
{
    window_ = GetWindowSystem().MakeDialogWindow(template_, *this, owner_ != nullptr ? owner_->window_.get() : nullptr);
    const DialogResult result = window_->RunModal();
    window_.reset();
    return result;
}

void Dialog::OnClick(int control)
{
    if (control == ACCEPT_COMMAND || control == CANCEL_COMMAND)
    {
        window_->End(control == ACCEPT_COMMAND ? DialogResult::Accepted : DialogResult::Cancelled);
    }
}

} // namespace jlandxml
