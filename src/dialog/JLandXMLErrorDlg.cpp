#include "dialog/JLandXMLErrorDlg.h"

namespace jlandxml
{

namespace
{

constexpr ControlTemplate CONTROLS[] = {
    {JLandXMLErrorDlg::MESSAGE_LIST, ControlKind::SortedListBox, L"", 5, 5, 205, 165},
    {ACCEPT_COMMAND, ControlKind::DefaultButton, L"OK", 158, 175, 50, 14},
};

} // namespace

const DialogTemplate JLandXMLErrorDlg::TEMPLATE{100, L"エラー一覧", 215, 194, CONTROLS};

JLandXMLErrorDlg::JLandXMLErrorDlg(Dialog& owner) : Dialog(TEMPLATE, &owner) {}

void JLandXMLErrorDlg::OnInitDialog()
{
    Dialog::OnInitDialog();
    Window().AddEntries(MESSAGE_LIST, messages);
    Window().Raise();
}

} // namespace jlandxml
