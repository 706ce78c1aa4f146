#pragma once

#include "windows/Dialog.h"

#include <string>
#include <vector>

namespace jlandxml
{

/// What a person does and sees at an open dialog. A person can't reach what is disabled, hidden or behind a modal
/// window; such a call does nothing and says so with a false result.
class DialogHands
{
  public:
    DialogHands() = default;
    DialogHands(const DialogHands&) = delete;
    DialogHands& operator=(const DialogHands&) = delete;
    virtual ~DialogHands() = default;

    virtual bool IsEnabled(int control) const = 0;
    virtual bool IsShown(int control) const = 0;
    /// True if the dialog is in front and the control is there, shown and enabled.
    virtual bool CanReach(int control) const = 0;
    /// Clicks a button or a radio. A radio excludes the others of its group.
    virtual bool Click(int control) = 0;
    /// Puts a whole text into an edit, in one change.
    virtual bool Type(int control, const std::wstring& text) = 0;
    /// Types one character at the end of an edit.
    virtual bool TypeCharacter(int control, wchar_t character) = 0;
    virtual bool ChooseEntry(int list, int entry) = 0;
    /// Selects an item of a tree. The dialog hears of it if it wasn't selected.
    virtual bool ChooseTreeItem(int tree, TreeItem item) = 0;
    /// Clicks an item of a tree with the mouse, where it is seen.
    virtual bool ClickTreeItem(int tree, TreeItem item) = 0;
    /// Presses Enter: the default button.
    virtual bool PressEnter() = 0;
    virtual bool PressEscape() = 0;

    /// The text of an edit, or of the selected entry of a list.
    virtual std::wstring Text(int control) const = 0;
    virtual int EntryCount(int list) const = 0;
    virtual std::wstring EntryText(int list, int entry) const = 0;
    /// The value behind an entry; null if it has none.
    virtual const wchar_t* EntryData(int list, int entry) const = 0;
    virtual int SelectedEntry(int list) const = 0;
    virtual bool IsChecked(int radio) const = 0;
    /// The items below another one; below none, those at the top.
    virtual std::vector<TreeItem> TreeChildren(int tree, TreeItem parent) const = 0;
    virtual std::wstring TreeText(int tree, TreeItem item) const = 0;
    virtual bool IsExpanded(int tree, TreeItem item) const = 0;
    virtual void* TreeItemData(int tree, TreeItem item) const = 0;

    /// The texts of a list's entries, from above.
    std::vector<std::wstring> Entries(int list) const
    {
        std::vector<std::wstring> texts;
        const int count = EntryCount(list);
        texts.reserve(static_cast<std::size_t>(count));
        for (int entry = 0; entry < count; ++entry)
        {
            texts.push_back(EntryText(list, entry));
        }
        return texts;
    }
};

} // namespace jlandxml
