#pragma once

#include "windows/NativeDialog.h"
#include "windows/qt/QtTexts.h"

#include <QDialog>
#include <QPointer>
#include <map>
#include <vector>

class QButtonGroup;
class QComboBox;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QTreeWidget;

namespace jlandxml
{

/// A dialog in Qt widgets. Each widget bears the number of its control as its object name.
class QtDialog final : public NativeDialog
{
  public:
    QtDialog(const DialogTemplate& dialog, DialogEvents& events, QtDialog* owner);
    ~QtDialog() override;

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
    class Window;

    QWidget* Make(const ControlTemplate& control);
    QWidget* MakeButton(const ControlTemplate& control);
    QWidget* MakeEdit(const ControlTemplate& control);
    QWidget* MakeList(const ControlTemplate& control);
    QWidget* MakeRadio(const ControlTemplate& control);
    QWidget* MakeTree(const ControlTemplate& control);
    void OrderTabs();
    void FocusFirst();
    void ShowWholeRows() const;

    QWidget& At(int control) const { return *widgets_.at(LayoutOf(control).number); }
    /// The control as a widget of this class; null if it is of another.
    template <class Widget>
    Widget* As(int control) const;

    JapaneseTexts texts_;
    QPointer<Window> window_;
    std::map<int, QWidget*> widgets_;
    std::vector<QButtonGroup*> radioGroups_;
    bool ended_ = false;
};

} // namespace jlandxml
