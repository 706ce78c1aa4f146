#include "windows/win32/Win32Dialog.h"

#include "base/Exceptions.h"
#include "base/Text.h"
#include "windows/Window.h"
#include "windows/win32/ModuleWindows.h"
#include "windows/win32/Win32Template.h"

#include <algorithm>
#include <array>

#include <commctrl.h>
#include <commdlg.h>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* CAN_NOT_OPEN = L"ダイアログを表示できません。";
constexpr const wchar_t* CAN_NOT_CHOOSE_FILE = L"保存先を選ぶダイアログを表示できません。";

HTREEITEM ItemOf(TreeItem item)
{
    return reinterpret_cast<HTREEITEM>(item);
}

TreeItem HandleOf(LRESULT item)
{
    return reinterpret_cast<TreeItem>(item);
}

/// The messages of a list box and of a drop-down list that mean the same.
struct ListMessages
{
    UINT count;
    UINT textLength;
    UINT text;
    UINT data;
    UINT setData;
    UINT insert;
    UINT selection;
    UINT select;
    UINT clear;
};

constexpr ListMessages LIST_BOX{LB_GETCOUNT,     LB_GETTEXTLEN, LB_GETTEXT,   LB_GETITEMDATA, LB_SETITEMDATA,
                                LB_INSERTSTRING, LB_GETCURSEL,  LB_SETCURSEL, LB_RESETCONTENT};
constexpr ListMessages DROP_DOWN_LIST{CB_GETCOUNT,     CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETITEMDATA, CB_SETITEMDATA,
                                      CB_INSERTSTRING, CB_GETCURSEL,    CB_SETCURSEL, CB_RESETCONTENT};

const ListMessages& MessagesOf(bool listBox)
{
    return listBox ? LIST_BOX : DROP_DOWN_LIST;
}

/// The host's current folder, which the save dialog changes, as it was.
class CurrentFolderScope
{
  public:
    CurrentFolderScope()
    {
        folder_.resize(GetCurrentDirectoryW(0, nullptr));
        folder_.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data()));
    }
    CurrentFolderScope(const CurrentFolderScope&) = delete;
    CurrentFolderScope& operator=(const CurrentFolderScope&) = delete;
    ~CurrentFolderScope() { SetCurrentDirectoryW(folder_.c_str()); }

  private:
    std::wstring folder_;
};

/// Puts a window over the middle of its owner. Where it would overhang the monitor's work area there, or has no owner
/// that is seen, it comes to the middle of that area.
void Center(HWND window, HWND owner)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(owner, owner != nullptr ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    const RECT& area = monitor.rcWork;
    RECT own{};
    GetWindowRect(window, &own);
    const int width = own.right - own.left;
    const int height = own.bottom - own.top;
    const auto within = [&](const RECT& place) {
        const POINT corner{place.left + (place.right - place.left - width) / 2,
                           place.top + (place.bottom - place.top - height) / 2};
        return corner;
    };
    POINT corner = within(area);
    RECT place{};
    if (owner != nullptr && IsIconic(owner) == FALSE && GetWindowRect(owner, &place) != FALSE)
    {
        const POINT over = within(place);
        const bool fits =
            over.x >= area.left && over.y >= area.top && over.x + width <= area.right && over.y + height <= area.bottom;
        corner = fits ? over : corner;
    }
    SetWindowPos(window, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// A filter with "|" as the system has it, with terminators in their place.
std::wstring SystemFilter(const wchar_t* filter)
{
    std::wstring parts(filter);
    std::replace(parts.begin(), parts.end(), L'|', L'\0');
    return parts;
}

} // namespace

Win32Dialog::Win32Dialog(const DialogTemplate& dialog, DialogEvents& events, Win32Dialog* owner)
    : NativeDialog(dialog, events),
      owner_(owner)
{}

DialogResult Win32Dialog::RunModal()
{
    const VisualStyles styles;
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_TREEVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    const std::vector<std::uint32_t> dialog = MakeWin32Template(Template());
    ownerWindow_ = owner_ != nullptr ? owner_->window_ : OwnerOfNextWindow();
    ModalScope modal(ownerWindow_);
    modal_ = &modal;
    const INT_PTR ended = DialogBoxIndirectParamW(ThisModule(), reinterpret_cast<const DLGTEMPLATE*>(dialog.data()),
                                                  ownerWindow_, Procedure, reinterpret_cast<LPARAM>(this));
    modal_ = nullptr;
    RethrowFailure();
    if (ended <= 0)
    {
        throw CException(CAN_NOT_OPEN);
    }
    return Result();
}

INT_PTR CALLBACK Win32Dialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        auto* const dialog = reinterpret_cast<Win32Dialog*>(lParam);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        dialog->window_ = window;
        return dialog->OnOpen();
    }
    auto* const dialog = reinterpret_cast<Win32Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    return dialog != nullptr && dialog->open_ ? dialog->OnMessage(message, wParam, lParam) : FALSE;
}

INT_PTR Win32Dialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_ACTIVATE:
        return OnActivate(LOWORD(wParam) != WA_INACTIVE) ? TRUE : FALSE;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam), HIWORD(wParam)) ? TRUE : FALSE;
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<const NMHDR*>(lParam)) ? TRUE : FALSE;
    default:
        return FALSE;
    }
}

INT_PTR Win32Dialog::OnOpen()
{
    open_ = true;
    ModalScope::SetDialog(window_);
    Center(window_, ownerWindow_);
    for (const ControlTemplate& control : Template().controls)
    {
        if (IsEdit(control.kind))
        {
            Send(control.number, EM_SETLIMITTEXT); // none but the system's own
        }
    }
    RedrawTrees(false);
    Tell([&](DialogEvents& events) { events.OnInitDialog(); });
    RedrawTrees(true);
    return FocusFirst() ? FALSE : TRUE;
}

/// A tree that is filled is laid out once, and not at each of its thousands of items.
void Win32Dialog::RedrawTrees(bool redraw)
{
    for (const ControlTemplate& control : Template().controls)
    {
        if (control.kind == ControlKind::Tree)
        {
            Send(control.number, WM_SETREDRAW, redraw ? TRUE : FALSE);
        }
    }
}

/// The first time, the system would put the focus on the first control, whatever was chosen for it at the opening.
bool Win32Dialog::OnActivate(bool active)
{
    const bool first = active && !activated_;
    activated_ = activated_ || active;
    return first && FocusFirst();
}

bool Win32Dialog::FocusFirst()
{
    const ControlTemplate* const first = FindFirstFocus(Template(), [&](int control) {
        const bool shown = (GetWindowLongPtrW(At(control), GWL_STYLE) & WS_VISIBLE) != 0;
        return shown && IsWindowEnabled(At(control)) != FALSE;
    });
    if (first == nullptr)
    {
        return false;
    }
    SetFocus(At(first->number));
    return true;
}

bool Win32Dialog::OnCommand(int control, int notification)
{
    const ControlTemplate* const found = FindControl(Template(), control);
    if (found != nullptr && IsEdit(found->kind))
    {
        if (notification == EN_CHANGE && !settingText_)
        {
            Tell([&](DialogEvents& events) { events.OnTextChanged(control); });
        }
        return true;
    }
    // Escape gives its command without a button too.
    const bool clicked =
        control == CANCEL_COMMAND || (found != nullptr && (IsButton(found->kind) || IsRadio(found->kind)));
    if (clicked && notification == BN_CLICKED)
    {
        Tell([&](DialogEvents& events) { events.OnClick(control); });
        return true;
    }
    return false;
}

bool Win32Dialog::OnNotify(const NMHDR& notification)
{
    switch (notification.code)
    {
    case TVN_SELCHANGINGW:
        return OnTreeSelectionChanging(reinterpret_cast<const NMTREEVIEWW&>(notification));
    case TVN_SELCHANGEDW:
        return OnTreeSelectionChanged(reinterpret_cast<const NMTREEVIEWW&>(notification));
    default:
        return false;
    }
}

/// A tree without a selection selects an item by itself when it gets the focus. Where it gets it by a click, what is
/// clicked is selected, and nothing before it.
bool Win32Dialog::OnTreeSelectionChanging(const NMTREEVIEWW& change)
{
    const bool pressed = GetKeyState(VK_LBUTTON) < 0 || GetKeyState(VK_RBUTTON) < 0;
    if (change.action != TVC_UNKNOWN || change.itemOld.hItem != nullptr || !pressed)
    {
        return false;
    }
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
    return true;
}

bool Win32Dialog::OnTreeSelectionChanged(const NMTREEVIEWW& change)
{
    const auto item = HandleOf(reinterpret_cast<LRESULT>(change.itemNew.hItem));
    long result = 0;
    Tell([&](DialogEvents& events) {
        result = events.OnTreeSelectionChanged(static_cast<int>(change.hdr.idFrom), item);
    });
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
    return true;
}

void Win32Dialog::Close()
{
    open_ = false;
    modal_->Release();
    EndDialog(window_, 1);
}

void Win32Dialog::Raise()
{
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

void Win32Dialog::ShowWaitCursor(bool shown)
{
    if (shown)
    {
        cursor_ = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    }
    else
    {
        SetCursor(cursor_);
    }
}

void Win32Dialog::Enable(int control, bool enabled)
{
    EnableWindow(At(control), enabled ? TRUE : FALSE);
}

void Win32Dialog::Show(int control, bool shown)
{
    ShowWindow(At(control), shown ? SW_SHOW : SW_HIDE);
}

void Win32Dialog::SetText(int control, const std::wstring& text)
{
    const HWND edit = At(control);
    DWORD caret = 0;
    SendMessageW(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    const auto length = static_cast<std::size_t>(GetWindowTextLengthW(edit));
    const bool outer = settingText_;
    settingText_ = true;
    SetWindowTextW(edit, text.c_str());
    settingText_ = outer;
    // Where typing was refused, the caret stays behind the same characters from the end.
    if (GetFocus() == edit && length >= caret && text.size() >= length - caret)
    {
        const auto place = static_cast<LPARAM>(text.size() - (length - caret));
        SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(place), place);
    }
    if (IsEdit(LayoutOf(control).kind))
    {
        Tell([&](DialogEvents& events) { events.OnTextChanged(control); });
    }
}

std::wstring Win32Dialog::Text(int control) const
{
    if (IsList(LayoutOf(control).kind))
    {
        const int entry = SelectedEntry(control);
        return entry == NO_ENTRY ? std::wstring() : EntryText(control, entry);
    }
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(At(control))), L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(At(control), text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

bool Win32Dialog::IsListBox(int list) const
{
    return LayoutOf(list).kind == ControlKind::SortedListBox;
}

LRESULT Win32Dialog::Send(int control, UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageW(At(control), message, wParam, lParam);
}

int Win32Dialog::EntryCount(int list) const
{
    return static_cast<int>(Send(list, MessagesOf(IsListBox(list)).count));
}

std::wstring Win32Dialog::EntryText(int list, int entry) const
{
    const ListMessages& messages = MessagesOf(IsListBox(list));
    const auto index = static_cast<WPARAM>(entry);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(Send(list, messages.textLength, index), 0)), L'\0');
    const LRESULT length = Send(list, messages.text, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(length, 0)));
    return text;
}

const wchar_t* Win32Dialog::EntryData(int list, int entry) const
{
    const ListMessages& messages = MessagesOf(IsListBox(list));
    return reinterpret_cast<const wchar_t*>(Send(list, messages.data, static_cast<WPARAM>(entry)));
}

int Win32Dialog::SelectedEntry(int list) const
{
    return static_cast<int>(Send(list, MessagesOf(IsListBox(list)).selection));
}

void Win32Dialog::SelectEntry(int list, int entry)
{
    const int selected = entry < EntryCount(list) ? entry : NO_ENTRY;
    Send(list, MessagesOf(IsListBox(list)).select, static_cast<WPARAM>(selected));
}

void Win32Dialog::ClearEntries(int list)
{
    Send(list, MessagesOf(IsListBox(list)).clear);
}

void Win32Dialog::InsertEntry(int list, int place, const std::wstring& text, const wchar_t* data)
{
    const ListMessages& messages = MessagesOf(IsListBox(list));
    const LRESULT entry =
        Send(list, messages.insert, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(text.c_str()));
    Send(list, messages.setData, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(data));
}

bool Win32Dialog::IsChecked(int radio) const
{
    return Send(radio, BM_GETCHECK) == BST_CHECKED;
}

void Win32Dialog::SetChecked(int radio, bool checked)
{
    Send(radio, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
}

TreeItem Win32Dialog::AddTreeItem(int tree, TreeItem parent, const std::wstring& text, void* data)
{
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent != nullptr ? ItemOf(parent) : TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    std::wstring writable(text);
    insert.item.pszText = writable.data();
    insert.item.lParam = reinterpret_cast<LPARAM>(data);
    return HandleOf(Send(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

void* Win32Dialog::TreeItemData(int tree, TreeItem item) const
{
    TVITEMW found{};
    found.mask = TVIF_PARAM | TVIF_HANDLE;
    found.hItem = ItemOf(item);
    Send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&found));
    return reinterpret_cast<void*>(found.lParam);
}

TreeItem Win32Dialog::TreeParent(int tree, TreeItem item) const
{
    return HandleOf(Send(tree, TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(item)));
}

TreeItem Win32Dialog::FirstTreeItem(int tree) const
{
    return HandleOf(Send(tree, TVM_GETNEXTITEM, TVGN_ROOT));
}

void Win32Dialog::ExpandTreeItem(int tree, TreeItem item)
{
    Send(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
}

void Win32Dialog::EnsureTreeItemVisible(int tree, TreeItem item)
{
    Send(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

void Win32Dialog::ShowMessage(const std::wstring& text)
{
    ShowMessageBox(window_, text);
}

std::optional<std::wstring> Win32Dialog::ChooseSaveFile(const SaveFileRequest& request)
{
    const CurrentFolderScope folder;
    std::array<wchar_t, 32768> path{};
    std::wstring_view(request.fileName).copy(path.data(), path.size() - 1);
    const std::wstring filter = SystemFilter(request.filter);
    OPENFILENAMEW save{};
    save.lStructSize = sizeof(save);
    save.hwndOwner = window_;
    save.lpstrFilter = filter.c_str();
    save.nFilterIndex = 1;
    save.lpstrFile = path.data();
    save.nMaxFile = static_cast<DWORD>(path.size());
    save.lpstrDefExt = request.defaultExtension;
    save.Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR;
    if (GetSaveFileNameW(&save) != FALSE)
    {
        return std::wstring(path.data());
    }
    if (CommDlgExtendedError() != 0)
    {
        throw CException(CAN_NOT_CHOOSE_FILE);
    }
    return std::nullopt;
}

} // namespace jlandxml
