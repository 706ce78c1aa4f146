#include "windows/Dialog.h"

#include "base/Collation.h"
#include "windows/Window.h"

#include <algorithm>
#include <stdexcept>

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
    const int place = IsSorted(LayoutOf(list).kind) ? SortedPlace(list, text) : EntryCount(list);
    InsertEntry(list, place, text, data);
    return place;
}

void DialogWindow::AddEntries(int list, std::span<const std::wstring> texts)
{
    if (IsSorted(LayoutOf(list).kind) && EntryCount(list) == 0)
    {
        FillEntries(list, texts, PlacesInJapaneseOrder(texts));
        return;
    }
    for (const std::wstring& text : texts)
    {
        AddEntry(list, text);
    }
}

void DialogWindow::FillEntries(int list, std::span<const std::wstring> texts, std::span<const std::size_t> order)
{
    int place = 0;
    for (const std::size_t text : order)
    {
        InsertEntry(list, place++, texts[text], nullptr);
    }
}

const ControlTemplate& DialogWindow::LayoutOf(int number) const
{
    const ControlTemplate* const control = FindControl(template_, number);
    if (control == nullptr)
    {
        throw std::out_of_range("no such control: " + std::to_string(number));
    }
    return *control;
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
