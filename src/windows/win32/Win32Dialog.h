#pragma once

#include "windows/NativeDialog.h"

#include <windows.h>

#include <commctrl.h>

namespace jlandxml
{

class ModalScope;

/// A modal dialog of the system, made from a template in memory.
class Win32Dialog final : public NativeDialog
{
  public:
    Win32Dialog(const DialogTemplate& dialog, DialogEvents& events, Win32Dialog* owner);

    DialogResult RunModal() override;
    void Raise() override;
    void ShowWaitCursor(bool shown) override;
    void Enable(int control, bool enabled) override;
    void Show(int control, bool shown) override;
    void SetText(int control, const std::wstring& text) override;
    std::wstring Text(int control) const override;
    int EntryCount(int list) const override;
    std::wstring EntryText(int list, int entry) const override;
    const wchar_t* EntryData(int list, int entry) const override;
    int SelectedEntry(int list) const override;
    void SelectEntry(int list, int entry) override;
    void ClearEntries(int list) override;
    bool IsChecked(int radio) const override;
    void SetChecked(int radio, bool checked) override;
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
    void Close() override;

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnOpen();
    void RedrawTrees(bool redraw);
    bool OnActivate(bool active);
    bool OnCommand(int control, int notification);
    bool OnNotify(const NMHDR& notification);
    bool OnTreeSelectionChanging(const NMTREEVIEWW& change);
    bool OnTreeSelectionChanged(const NMTREEVIEWW& change);
    bool FocusFirst();

    HWND At(int control) const { return GetDlgItem(window_, LayoutOf(control).number); }
    bool IsListBox(int list) const;
    LRESULT Send(int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    Win32Dialog* owner_;
    HWND ownerWindow_ = nullptr;
    ModalScope* modal_ = nullptr; ///< while the window is open
    HWND window_ = nullptr;
    HCURSOR cursor_ = nullptr;
    bool settingText_ = false; ///< the change is told by SetText itself
    bool open_ = false;
    bool activated_ = false;
};

} // namespace jlandxml
