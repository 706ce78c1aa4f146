#pragma once

#include "windows/DialogTemplate.h"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace jlandxml
{

/// An item of a tree, as the window layer names it. Null is no item, or the place above the roots.
using TreeItem = struct TreeItemOfLayer*;

/// What the system's save dialog is asked for.
struct SaveFileRequest
{
    const wchar_t* defaultExtension;
    const wchar_t* fileName;
    const wchar_t* filter; ///< pairs of a caption and a pattern, each ended by "|", and one more "|" at the end
};

/// How a dialog ended.
enum class DialogResult
{
    Accepted,
    Cancelled
};

/// What a window tells the dialog whose window it is.
class DialogEvents
{
  public:
    virtual ~DialogEvents() = default;

    /// The window is made and about to be shown.
    virtual void OnInitDialog() = 0;
    /// A button or a radio was clicked, or Enter or Escape gave its command.
    virtual void OnClick(int control) = 0;
    /// The text of an edit was set or typed, even to what it was.
    virtual void OnTextChanged(int control) = 0;
    /// Another item of a tree is selected, or none. The result is what the notification answers.
    virtual long OnTreeSelectionChanged(int control, TreeItem item) = 0;
};

/// The window of one dialog: the operations that the dialogs' logic needs, with controls named by their numbers. Each
/// window layer derives its own. Every event reaches the dialog before the operation that causes it returns. A number
/// that the dialog doesn't have is a fault of the logic: every operation throws std::out_of_range for it.
class DialogWindow
{
  public:
    /// No entry of a list.
    static constexpr int NO_ENTRY = -1;

    explicit DialogWindow(const DialogTemplate& dialog) : template_(dialog) {}
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;
    virtual ~DialogWindow() = default;

    const DialogTemplate& Template() const { return template_; }

    /// Shows the window over its owner and returns when it has ended. Throws what an event handler threw.
    virtual DialogResult RunModal() = 0;
    virtual void End(DialogResult result) = 0;
    /// Brings the window to the front without moving or resizing it.
    virtual void Raise() = 0;
    /// A pointer that tells the user to wait.
    virtual void ShowWaitCursor(bool shown) = 0;

    virtual void Enable(int control, bool enabled) = 0;
    virtual void Show(int control, bool shown) = 0;
    /// The text of an edit. Setting it is a change, even to what it was.
    virtual void SetText(int control, const std::wstring& text) = 0;
    /// The text of an edit, or of the selected entry of a list; empty without a selection.
    virtual std::wstring Text(int control) const = 0;

    virtual int EntryCount(int list) const = 0;
    virtual std::wstring EntryText(int list, int entry) const = 0;
    /// The value behind an entry; null if it has none.
    virtual const wchar_t* EntryData(int list, int entry) const = 0;
    virtual int SelectedEntry(int list) const = 0;
    /// Selects an entry, or none with NO_ENTRY. It isn't an event.
    virtual void SelectEntry(int list, int entry) = 0;
    virtual void ClearEntries(int list) = 0;

    virtual bool IsChecked(int radio) const = 0;
    /// Checks or unchecks one radio and no other. It isn't an event.
    virtual void SetChecked(int radio, bool checked) = 0;

    /// Adds an item behind the other children of its parent.
    virtual TreeItem AddTreeItem(int tree, TreeItem parent, const std::wstring& text, void* data) = 0;
    virtual void* TreeItemData(int tree, TreeItem item) const = 0;
    virtual TreeItem TreeParent(int tree, TreeItem item) const = 0;
    virtual TreeItem FirstTreeItem(int tree) const = 0;
    virtual void ExpandTreeItem(int tree, TreeItem item) = 0;
    virtual void EnsureTreeItemVisible(int tree, TreeItem item) = 0;

    /// A message box with an exclamation icon and only an OK button over this window.
    virtual void ShowMessage(const std::wstring& text) = 0;
    /// The path that the user chose, asked before an existing file is replaced; nothing if the user cancelled. Throws
    /// CException if there is nothing to choose in.
    virtual std::optional<std::wstring> ChooseSaveFile(const SaveFileRequest& request) = 0;

    /// Adds an entry: at its place in a sorted list, behind those of the same text; at the end of any other. Returns
    /// its place.
    int AddEntry(int list, const std::wstring& text, const wchar_t* data = nullptr);
    /// Adds entries without values behind them. The list is the same as after adding one by one, but where a sorted one
    /// is empty it costs no more than sorting them.
    void AddEntries(int list, std::span<const std::wstring> texts);
    /// The first entry with exactly this text; NO_ENTRY if there is none.
    int FindEntry(int list, const std::wstring& text) const;

  protected:
    virtual void InsertEntry(int list, int place, const std::wstring& text, const wchar_t* data) = 0;
    /// Inserts texts into an empty list, in an order that is told by their places.
    virtual void FillEntries(int list, std::span<const std::wstring> texts, std::span<const std::size_t> order);
    /// The control of this number. Throws std::out_of_range if there is none.
    const ControlTemplate& LayoutOf(int number) const;

  private:
    int SortedPlace(int list, const std::wstring& text) const;

    const DialogTemplate& template_;
};

/// The base of the module's dialogs: what happens in one window from its opening to its end.
class Dialog : public DialogEvents
{
  public:
    /// A dialog over another one; without an owner, over the host's active window.
    explicit Dialog(const DialogTemplate& dialog, Dialog* owner = nullptr) : template_(dialog), owner_(owner) {}
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    /// Opens the window and returns when it has ended.
    DialogResult DoModal();

    void OnInitDialog() override {}
    /// Ends the dialog on its OK and cancel commands.
    void OnClick(int control) override;
    void OnTextChanged(int /*control*/) override {}
    long OnTreeSelectionChanged(int /*control*/, TreeItem /*item*/) override { return 0; }

  protected:
    /// The window while the dialog is open.
    DialogWindow& Window() const { return *window_; }

  private:
    const DialogTemplate& template_;
    Dialog* owner_;
    std::unique_ptr<DialogWindow> window_;
};

} // namespace jlandxml
