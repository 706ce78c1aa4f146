#include "windows/win32/Win32Template.h"

#include <cstring>

#include <windows.h>

#include <commctrl.h>

namespace jlandxml
{

namespace
{

constexpr std::uint16_t ATOM = 0xFFFF;
constexpr std::uint16_t BUTTON_CLASS = 0x0080;
constexpr std::uint16_t EDIT_CLASS = 0x0081;
constexpr std::uint16_t STATIC_CLASS = 0x0082;
constexpr std::uint16_t LIST_BOX_CLASS = 0x0083;
constexpr std::uint16_t COMBO_BOX_CLASS = 0x0085;
constexpr std::uint16_t TREE_CLASS = 0; ///< named by its text

/// What a kind of control is to the system. Lists aren't sorted by the system, which follows the user's locale.
struct ControlStyle
{
    std::uint16_t windowClass;
    DWORD style;
    DWORD extendedStyle;
};

ControlStyle StyleOf(ControlKind kind)
{
    constexpr DWORD LIST = CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP;
    switch (kind)
    {
    case ControlKind::Button:
        return {BUTTON_CLASS, BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP, 0};
    case ControlKind::DefaultButton:
        return {BUTTON_CLASS, BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, 0};
    case ControlKind::Group:
        return {BUTTON_CLASS, BS_GROUPBOX | WS_GROUP, 0};
    case ControlKind::Label:
        return {STATIC_CLASS, SS_LEFT | SS_NOPREFIX | WS_GROUP, 0};
    case ControlKind::Edit:
        return {EDIT_CLASS, ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    case ControlKind::ReadOnlyEdit:
        return {EDIT_CLASS, ES_AUTOHSCROLL | ES_READONLY | WS_TABSTOP, WS_EX_CLIENTEDGE};
    case ControlKind::List:
    case ControlKind::SortedList:
        return {COMBO_BOX_CLASS, LIST, 0};
    case ControlKind::SortedListBox:
        return {LIST_BOX_CLASS, LBS_HASSTRINGS | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP,
                WS_EX_CLIENTEDGE};
    case ControlKind::FirstRadio:
        return {BUTTON_CLASS, BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, 0};
    case ControlKind::Radio:
        return {BUTTON_CLASS, BS_AUTORADIOBUTTON, 0};
    case ControlKind::Tree:
        break;
    }
    return {TREE_CLASS,
            TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP | WS_TABSTOP |
                WS_GROUP,
            WS_EX_CLIENTEDGE};
}

/// Writes the parts of a template one behind the other.
class TemplateWriter
{
  public:
    void Word(std::uint16_t value) { words_.push_back(value); }

    void Number(std::int32_t value) { Word(static_cast<std::uint16_t>(value)); }

    void DoubleWord(std::uint32_t value)
    {
        Word(static_cast<std::uint16_t>(value & 0xFFFF));
        Word(static_cast<std::uint16_t>(value >> 16));
    }

    void Text(const wchar_t* text)
    {
        for (; *text != L'\0'; ++text)
        {
            Word(static_cast<std::uint16_t>(*text));
        }
        Word(0);
    }

    void Align()
    {
        if (words_.size() % 2 != 0)
        {
            Word(0);
        }
    }

    std::vector<std::uint32_t> Take()
    {
        Align();
        std::vector<std::uint32_t> aligned(words_.size() / 2);
        std::memcpy(aligned.data(), words_.data(), words_.size() * sizeof(std::uint16_t));
        return aligned;
    }

  private:
    std::vector<std::uint16_t> words_;
};

void WriteHead(TemplateWriter& writer, const DialogTemplate& dialog)
{
    writer.Word(1);      // version of the extended template
    writer.Word(0xFFFF); // its signature
    writer.DoubleWord(0);
    writer.DoubleWord(0);
    writer.DoubleWord(DS_SHELLFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    writer.Number(static_cast<std::int32_t>(dialog.controls.size()));
    writer.Number(0);
    writer.Number(0);
    writer.Number(dialog.width);
    writer.Number(dialog.height);
    writer.Word(0); // no menu
    writer.Word(0); // the system's dialog class
    writer.Text(dialog.caption);
    writer.Number(DIALOG_FONT_POINTS);
    writer.Number(FW_NORMAL);
    writer.Word(static_cast<std::uint16_t>(DEFAULT_CHARSET) << 8); // not italic
    writer.Text(DIALOG_FONT);
}

void WriteControl(TemplateWriter& writer, const ControlTemplate& control, bool endsRadios)
{
    const ControlStyle style = StyleOf(control.kind);
    writer.Align();
    writer.DoubleWord(0);
    writer.DoubleWord(style.extendedStyle);
    writer.DoubleWord(style.style | WS_CHILD | WS_VISIBLE | (endsRadios ? WS_GROUP : 0U));
    writer.Number(control.x);
    writer.Number(control.y);
    writer.Number(control.width);
    // A drop-down list has the height that it has with its entries shown.
    writer.Number(control.dropDownHeight > 0 ? control.dropDownHeight : control.height);
    writer.DoubleWord(static_cast<std::uint32_t>(control.number));
    if (style.windowClass == TREE_CLASS)
    {
        writer.Text(WC_TREEVIEWW);
    }
    else
    {
        writer.Word(ATOM);
        writer.Word(style.windowClass);
    }
    writer.Text(control.caption);
    writer.Word(0);
}

} // namespace

std::vector<std::uint32_t> MakeWin32Template(const DialogTemplate& dialog)
{
    TemplateWriter writer;
    WriteHead(writer, dialog);
    bool afterRadio = false;
    for (const ControlTemplate& control : dialog.controls)
    {
        WriteControl(writer, control, afterRadio && !IsRadio(control.kind));
        afterRadio = IsRadio(control.kind);
    }
    return writer.Take();
}

} // namespace jlandxml
