#include "windows/scripted/ScriptedDialog.h"

#include "windows/scripted/ScriptedWindowSystem.h"

#include <algorithm>

namespace jlandxml
{

namespace
{

ScriptedTreeItem* ItemOf(TreeItem item)
{
    return reinterpret_cast<ScriptedTreeItem*>(item);
}

TreeItem HandleOf(ScriptedTreeItem* item)
{
    return reinterpret_cast<TreeItem>(item);
}

std::vector<TreeItem> HandlesOf(const std::vector<ScriptedTreeItem*>& items)
{
    std::vector<TreeItem> handles;
    std::transform(items.begin(), items.end(), std::back_inserter(handles), HandleOf);
    return handles;
}

/// True while a modal window stands over another one.
class BlockedScope
{
  public:
    explicit BlockedScope(bool* blocked) : blocked_(blocked) { Set(true); }
    BlockedScope(const BlockedScope&) = delete;
    BlockedScope& operator=(const BlockedScope&) = delete;
    ~BlockedScope() { Set(false); }

  private:
    void Set(bool blocked) const
    {
        if (blocked_ != nullptr)
        {
            *blocked_ = blocked;
        }
    }

    bool* blocked_;
};

} // namespace

/// Counts a dialog among the open ones for as long as it is.
class ScriptedDialog::OpenScope
{
  public:
    explicit OpenScope(ScriptedDialog& dialog) : dialog_(dialog)
    {
        dialog_.windows_.OpenDialogs().push_back(&dialog_);
        dialog_.open_ = true;
    }
    OpenScope(const OpenScope&) = delete;
    OpenScope& operator=(const OpenScope&) = delete;
    ~OpenScope()
    {
        dialog_.open_ = false;
        dialog_.windows_.OpenDialogs().pop_back();
    }

  private:
    ScriptedDialog& dialog_;
};

ScriptedDialog::ScriptedDialog(const DialogTemplate& dialog, DialogEvents& events, ScriptedWindowSystem& windows,
                               ScriptedDialog* owner)
    : DialogWindow(dialog),
      events_(events),
      windows_(windows),
      owner_(owner)
{
    for (const ControlTemplate& control : dialog.controls)
    {
        controls_[control.number].layout = &control;
    }
}

ScriptedDialog::Control& ScriptedDialog::At(int control)
{
    return const_cast<Control&>(static_cast<const ScriptedDialog&>(*this).At(control));
}

const ScriptedDialog::Control& ScriptedDialog::At(int control) const
{
    return controls_.at(LayoutOf(control).number);
}

bool ScriptedDialog::IsKind(int control, bool (*wanted)(ControlKind)) const
{
    const auto found = controls_.find(control);
    return found != controls_.end() && wanted(found->second.layout->kind);
}

bool ScriptedDialog::CanReach(int control) const
{
    const auto found = controls_.find(control);
    return open_ && !ended_ && !blocked_ && found != controls_.end() && found->second.enabled && found->second.shown;
}

void ScriptedDialog::UncheckGroupOf(int radio)
{
    // A group of radios goes from its first one to the next first one.
    const std::span<const ControlTemplate> controls = Template().controls;
    auto first = std::find_if(controls.begin(), controls.end(), [&](const auto& one) { return one.number == radio; });
    while (first != controls.begin() && first->kind != ControlKind::FirstRadio)
    {
        --first;
    }
    for (auto one = first; one != controls.end() && (one == first || one->kind == ControlKind::Radio); ++one)
    {
        At(one->number).checked = false;
    }
}

bool ScriptedDialog::Click(int control)
{
    const bool radio = IsKind(control, IsRadio);
    if (!CanReach(control) || (!radio && !IsKind(control, IsButton)))
    {
        return false;
    }
    if (radio)
    {
        UncheckGroupOf(control);
        At(control).checked = true;
    }
    windows_.Record(L"click " + std::to_wstring(control));
    events_.OnClick(control);
    return true;
}

bool ScriptedDialog::Type(int control, const std::wstring& text)
{
    if (!CanReach(control) || At(control).layout->kind != ControlKind::Edit)
    {
        return false;
    }
    SetText(control, text);
    return true;
}

bool ScriptedDialog::TypeCharacter(int control, wchar_t character)
{
    return CanReach(control) && Type(control, At(control).text + character);
}

bool ScriptedDialog::ChooseEntry(int list, int entry)
{
    if (!CanReach(list) || !IsKind(list, IsList) || entry < 0 || entry >= EntryCount(list))
    {
        return false;
    }
    windows_.Record(L"choose " + std::to_wstring(list) + L" " + EntryText(list, entry));
    SelectEntry(list, entry);
    return true;
}

bool ScriptedDialog::ChooseTreeItem(int tree, TreeItem item)
{
    if (!CanReach(tree) || At(tree).layout->kind != ControlKind::Tree)
    {
        return false;
    }
    Control& control = At(tree);
    if (control.selectedItem != ItemOf(item))
    {
        control.selectedItem = ItemOf(item);
        windows_.Record(L"select " + std::to_wstring(tree) + L" " + (item != nullptr ? ItemOf(item)->text : L""));
        treeNotificationResult_ = events_.OnTreeSelectionChanged(tree, item);
    }
    return true;
}

bool ScriptedDialog::PressEnter()
{
    const std::span<const ControlTemplate> controls = Template().controls;
    const auto button = std::find_if(controls.begin(), controls.end(),
                                     [](const auto& one) { return one.kind == ControlKind::DefaultButton; });
    return button != controls.end() && Click(button->number);
}

bool ScriptedDialog::PressEscape()
{
    if (!open_ || ended_ || blocked_)
    {
        return false;
    }
    windows_.Record(L"click " + std::to_wstring(CANCEL_COMMAND));
    events_.OnClick(CANCEL_COMMAND);
    return true;
}

std::vector<TreeItem> ScriptedDialog::TreeChildren(int tree, TreeItem parent) const
{
    return HandlesOf(parent != nullptr ? ItemOf(parent)->children : At(tree).roots);
}

bool ScriptedDialog::ClickTreeItem(int tree, TreeItem item)
{
    return item != nullptr && ChooseTreeItem(tree, item);
}

std::wstring ScriptedDialog::TreeText(int /*tree*/, TreeItem item) const
{
    return ItemOf(item)->text;
}

bool ScriptedDialog::IsExpanded(int /*tree*/, TreeItem item) const
{
    return ItemOf(item)->expanded;
}

TreeItem ScriptedDialog::SelectedTreeItem(int tree) const
{
    return HandleOf(At(tree).selectedItem);
}

DialogResult ScriptedDialog::RunModal()
{
    const BlockedScope blocked(owner_ != nullptr ? &owner_->blocked_ : nullptr);
    windows_.Record(std::wstring(L"open ") + Template().caption);
    {
        const OpenScope open(*this);
        events_.OnInitDialog();
        if (!ended_)
        {
            windows_.LetUserWork(*this);
        }
    }
    windows_.Record(std::wstring(L"close ") + Template().caption +
                    (result_ == DialogResult::Accepted ? L" accepted" : L" cancelled"));
    return result_;
}

void ScriptedDialog::End(DialogResult result)
{
    ended_ = true;
    result_ = result;
}

void ScriptedDialog::Raise()
{
    windows_.Record(std::wstring(L"raise ") + Template().caption);
}

void ScriptedDialog::ShowWaitCursor(bool shown)
{
    windows_.Record(shown ? L"wait" : L"go on");
}

void ScriptedDialog::SetText(int control, const std::wstring& text)
{
    At(control).text = text;
    if (IsKind(control, IsEdit))
    {
        windows_.Record(L"text " + std::to_wstring(control) + L" " + text);
        events_.OnTextChanged(control);
    }
}

std::wstring ScriptedDialog::Text(int control) const
{
    const Control& one = At(control);
    if (!IsList(one.layout->kind))
    {
        return one.text;
    }
    return one.selected == NO_ENTRY ? std::wstring() : EntryText(control, one.selected);
}

std::wstring ScriptedDialog::EntryText(int list, int entry) const
{
    return At(list).entries.at(static_cast<std::size_t>(entry)).text;
}

const wchar_t* ScriptedDialog::EntryData(int list, int entry) const
{
    return At(list).entries.at(static_cast<std::size_t>(entry)).data;
}

void ScriptedDialog::SelectEntry(int list, int entry)
{
    At(list).selected = entry >= 0 && entry < EntryCount(list) ? entry : NO_ENTRY;
}

void ScriptedDialog::ClearEntries(int list)
{
    At(list).entries.clear();
    At(list).added.clear();
    At(list).selected = NO_ENTRY;
}

void ScriptedDialog::InsertEntry(int list, int place, const std::wstring& text, const wchar_t* data)
{
    Control& control = At(list);
    control.entries.insert(control.entries.begin() + place, Entry{text, data});
    control.added.push_back(text);
    if (control.selected != NO_ENTRY && control.selected >= place)
    {
        ++control.selected;
    }
}

void ScriptedDialog::FillEntries(int list, std::span<const std::wstring> texts, std::span<const std::size_t> order)
{
    DialogWindow::FillEntries(list, texts, order);
    At(list).added.assign(texts.begin(), texts.end());
}

TreeItem ScriptedDialog::AddTreeItem(int tree, TreeItem parent, const std::wstring& text, void* data)
{
    Control& control = At(tree);
    ScriptedTreeItem& item = items_.emplace_back(ScriptedTreeItem{ItemOf(parent), text, data, false, {}});
    (parent != nullptr ? ItemOf(parent)->children : control.roots).push_back(&item);
    return HandleOf(&item);
}

void* ScriptedDialog::TreeItemData(int tree, TreeItem item) const
{
    LayoutOf(tree);
    return ItemOf(item)->data;
}

TreeItem ScriptedDialog::TreeParent(int tree, TreeItem item) const
{
    LayoutOf(tree);
    return HandleOf(ItemOf(item)->parent);
}

TreeItem ScriptedDialog::FirstTreeItem(int tree) const
{
    const Control& control = At(tree);
    return control.roots.empty() ? nullptr : HandleOf(control.roots.front());
}

void ScriptedDialog::ExpandTreeItem(int tree, TreeItem item)
{
    LayoutOf(tree);
    ItemOf(item)->expanded = true;
}

void ScriptedDialog::EnsureTreeItemVisible(int tree, TreeItem item)
{
    LayoutOf(tree);
    windows_.Record(L"visible " + std::to_wstring(tree) + L" " + ItemOf(item)->text);
}

void ScriptedDialog::ShowMessage(const std::wstring& text)
{
    windows_.ShowMessage(text);
}

std::optional<std::wstring> ScriptedDialog::ChooseSaveFile(const SaveFileRequest& request)
{
    const BlockedScope blocked(&blocked_);
    return windows_.AnswerSaveFile(request);
}

} // namespace jlandxml
