#pragma once

#include "windows/DialogHands.h"

#include <deque>
#include <map>
#include <vector>

namespace jlandxml
{

class ScriptedWindowSystem;

/// One item of a scripted tree.
struct ScriptedTreeItem
{
    ScriptedTreeItem* parent;
    std::wstring text;
    void* data;
    bool expanded;
    std::vector<ScriptedTreeItem*> children;
};

/// A dialog without a display: its controls are plain data, and what a person would do is a call.
class ScriptedDialog : public DialogWindow, public DialogHands
{
  public:
    ScriptedDialog(const DialogTemplate& dialog, DialogEvents& events, ScriptedWindowSystem& windows,
                   ScriptedDialog* owner);

    // What a person does and sees.

    bool CanReach(int control) const override;
    bool Click(int control) override;
    bool Type(int control, const std::wstring& text) override;
    bool TypeCharacter(int control, wchar_t character) override;
    bool ChooseEntry(int list, int entry) override;
    bool ChooseTreeItem(int tree, TreeItem item) override;
    bool ClickTreeItem(int tree, TreeItem item) override;
    bool PressEnter() override;
    bool PressEscape() override;
    std::vector<TreeItem> TreeChildren(int tree, TreeItem parent) const override;
    std::wstring TreeText(int tree, TreeItem item) const override;
    bool IsExpanded(int tree, TreeItem item) const override;
    bool IsEnabled(int control) const override { return At(control).enabled; }
    bool IsShown(int control) const override { return At(control).shown; }

    bool HasEnded() const { return ended_; }
    /// The logic behind the window, for who wants to know more than a person sees.
    const DialogEvents& Logic() const { return events_; }
    /// The texts of a list's entries in the order in which they were added.
    const std::vector<std::wstring>& AddedEntries(int list) const { return At(list).added; }
    TreeItem SelectedTreeItem(int tree) const;
    /// What the last notification of the tree answered.
    long TreeNotificationResult() const { return treeNotificationResult_; }

    // What the dialog's logic does.

    DialogResult RunModal() override;
    void End(DialogResult result) override;
    void Raise() override;
    void ShowWaitCursor(bool shown) override;
    void Enable(int control, bool enabled) override { At(control).enabled = enabled; }
    void Show(int control, bool shown) override { At(control).shown = shown; }
    void SetText(int control, const std::wstring& text) override;
    std::wstring Text(int control) const override;
    int EntryCount(int list) const override { return static_cast<int>(At(list).entries.size()); }
    std::wstring EntryText(int list, int entry) const override;
    const wchar_t* EntryData(int list, int entry) const override;
    int SelectedEntry(int list) const override { return At(list).selected; }
    void SelectEntry(int list, int entry) override;
    void ClearEntries(int list) override;
    bool IsChecked(int radio) const override { return At(radio).checked; }
    void SetChecked(int radio, bool checked) override { At(radio).checked = checked; }
    TreeItem AddTreeItem(int tree, TreeItem parent, const std::wstring& text, void* data) override;
    void* TreeItemData(int tree, TreeItem item) const override;
    TreeItem TreeParent(int tree, TreeItem item) const override;
    TreeItem FirstTreeItem(int tree) const override;
    void ExpandTreeItem(int tree, TreeItem item) override;
    void EnsureTreeItemVisible(int tree, TreeItem item) override;
    void ShowMessage(const std::wstring& text) override;
    std::optional<std::wstring> ChooseSaveFile(const SaveFileRequest& request) override;

  protected:
    void InsertEntry(int list, int place, const std::wstring& text, const wchar_t* data) override;
    void FillEntries(int list, std::span<const std::wstring> texts, std::span<const std::size_t> order) override;

  private:
    class OpenScope;

    struct Entry
    {
        std::wstring text;
        const wchar_t* data;
    };

    struct Control
    {
        const ControlTemplate* layout;
        bool enabled = true;
        bool shown = true;
        bool checked = false;
        std::wstring text;
        std::vector<Entry> entries;
        std::vector<std::wstring> added;
        int selected = NO_ENTRY;
        std::vector<ScriptedTreeItem*> roots;
        ScriptedTreeItem* selectedItem = nullptr;
    };

    Control& At(int control);
    const Control& At(int control) const;
    bool IsKind(int control, bool (*wanted)(ControlKind)) const;
    void UncheckGroupOf(int radio);

    DialogEvents& events_;
    ScriptedWindowSystem& windows_;
    ScriptedDialog* owner_;
    std::map<int, Control> controls_;
    std::deque<ScriptedTreeItem> items_;
    long treeNotificationResult_ = 0;
    bool open_ = false;
    bool ended_ = false;
    bool blocked_ = false; ///< a modal window stands over this one
    DialogResult result_ = DialogResult::Cancelled;
};

} // namespace jlandxml
