#pragma once

#include <functional>
#include <span>

namespace jlandxml
{

/// What a control of a dialog is.
enum class ControlKind
{
    Button,
    DefaultButton, ///< the button that Enter presses
    Group,         ///< a frame with a caption around other controls
    Label,
    Edit,
    ReadOnlyEdit,
    List,       ///< a drop-down list that takes no free text; its entries stand in the order of adding
    SortedList, ///< the same, ordered by Japanese collation
    SortedListBox,
    FirstRadio, ///< the first of the radio buttons that exclude each other
    Radio,
    Tree
};

/// One control of a dialog. Place and size are in dialog units.
struct ControlTemplate
{
    int number;
    ControlKind kind;
    const wchar_t* caption; ///< the text of a button, group, label or radio; empty for the others
    int x;
    int y;
    int width;
    int height;
    int dropDownHeight = 0; ///< of a list with its entries shown
};

/// One dialog: the source from which every window layer builds it. The order of the controls is their tab order.
struct DialogTemplate
{
    int number;
    const wchar_t* caption;
    int width;  ///< of the client area, in dialog units
    int height; ///< of the client area, in dialog units
    std::span<const ControlTemplate> controls;
};

/// The font that all dialogs are laid out in.
inline constexpr const wchar_t* DIALOG_FONT = L"MS Shell Dlg";
inline constexpr int DIALOG_FONT_POINTS = 8;

/// The commands that Enter and Escape give in every dialog.
inline constexpr int ACCEPT_COMMAND = 1;
inline constexpr int CANCEL_COMMAND = 2;

/// A list or list box that keeps its entries in order by itself.
constexpr bool IsSorted(ControlKind kind)
{
    return kind == ControlKind::SortedList || kind == ControlKind::SortedListBox;
}

constexpr bool IsEdit(ControlKind kind)
{
    return kind == ControlKind::Edit || kind == ControlKind::ReadOnlyEdit;
}

constexpr bool IsList(ControlKind kind)
{
    return kind == ControlKind::List || kind == ControlKind::SortedList || kind == ControlKind::SortedListBox;
}

constexpr bool IsRadio(ControlKind kind)
{
    return kind == ControlKind::FirstRadio || kind == ControlKind::Radio;
}

constexpr bool IsButton(ControlKind kind)
{
    return kind == ControlKind::Button || kind == ControlKind::DefaultButton;
}

/// The control with this number; null if the dialog has none.
const ControlTemplate* FindControl(const DialogTemplate& dialog, int number);

/// The control that a dialog opens on: the first edit to type into that can be worked, or else the default button.
/// Never a tree, which selects its first item when it gets the focus. Null if the dialog has neither.
const ControlTemplate* FindFirstFocus(const DialogTemplate& dialog, const std::function<bool(int control)>& canWork);

} // namespace jlandxml
