// What a user may do at the dialog, in any order: each pair of bytes is one action. After each one the dialog is in a
// state that a user may see: of road and river one is chosen at most, lists have a selection that they hold, and no
// edit holds a number that may not be typed. In the end sorted lists are still sorted.

#include "FuzzInput.h"
#include "base/Collation.h"
#include "dialog/DialogFields.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "run/ConversionContext.h"
#include "run/module/ExecuteQuorvane.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <cstdlib>

namespace
{

using namespace jlandxml;

constexpr const char* WORK_FILE = R"xml(<LandXML>
<Project name="改良" desc="事業段階=予備"/><CoordinateSystem horizontalDatum="JGD2011" horizontalCoordinateSystemName="9(X,Y)"/>
<Alignments name="国道" desc="構築物情報=道路&#13;&#10;規格・等級=第3種第2級"><Alignment name="本線" desc="主測点間隔=20"><CoordGeom><Line length="9"><Start>0 0</Start><End>0 9</End></Line></CoordGeom></Alignment>
<Alignment name="支線"/></Alignments>
<Alignments name="川" desc="構築物情報=河川&#13;&#10;左右岸区分=左岸"><Alignment name="堤防"/></Alignments>
<Surfaces name="面"><Surface name="地形" desc="ExistingGround"/><Surface name="路床" desc="SubBase&#13;&#10;線形名=本線"/></Surfaces>
</LandXML>)xml";
constexpr const char* INTERMEDIATE_POINTS = "points,本線\nName,X,Y\nP1,0,0\nP2,1,1\n";
constexpr const char* WIDTH_STAKES = "stakes,本線\nName,X,Y\nW1,0,0\n";

constexpr wchar_t CHARACTERS[] = L"0123456789.-+eE ,道　";

void Expect(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

void CheckList(const ScriptedDialog& dialog, const ControlTemplate& control)
{
    const int count = dialog.EntryCount(control.number);
    const int selected = dialog.SelectedEntry(control.number);
    Expect(selected >= -1 && selected < count);
}

void CheckOrder(const ScriptedDialog& dialog)
{
    for (const ControlTemplate& control : dialog.Template().controls)
    {
        const int count = IsSorted(control.kind) ? dialog.EntryCount(control.number) : 0;
        for (int entry = 1; entry < count; ++entry)
        {
            Expect(CompareJapanese(dialog.EntryText(control.number, entry - 1),
                                   dialog.EntryText(control.number, entry)) <= 0);
        }
    }
}

void CheckNumbers(const ScriptedDialog& dialog, FieldTable fields)
{
    for (const DialogField& field : fields)
    {
        if (field.number != nullptr)
        {
            Expect(AcceptsInput(*field.number, dialog.Text(field.control)));
        }
    }
}

void CheckDialog(const ScriptedDialog& dialog)
{
    Expect(!(dialog.IsChecked(convert_dlg::ROAD_RADIO) && dialog.IsChecked(convert_dlg::RIVER_RADIO)));
    for (const ControlTemplate& control : dialog.Template().controls)
    {
        if (IsList(control.kind))
        {
            CheckList(dialog, control);
        }
    }
    CheckNumbers(dialog, ROUTE_FIELDS);
    CheckNumbers(dialog, ALIGNMENT_FIELDS);
}

/// All items of the tree, as they stand.
void Gather(const ScriptedDialog& dialog, TreeItem parent, std::vector<TreeItem>& items)
{
    for (const TreeItem item : dialog.TreeChildren(convert_dlg::OBJECT_TREE, parent))
    {
        items.push_back(item);
        Gather(dialog, item, items);
    }
}

void Act(ScriptedDialog& dialog, unsigned action, unsigned value)
{
    const auto& controls = dialog.Template().controls;
    const ControlTemplate& control = controls[(action / 8) % controls.size()];
    std::vector<TreeItem> items;
    switch (action % 8)
    {
    case 0:
        dialog.Click(control.number);
        break;
    case 1:
    case 2:
        dialog.TypeCharacter(control.number, CHARACTERS[value % (std::size(CHARACTERS) - 1)]);
        break;
    case 3:
        dialog.Type(control.number, std::to_wstring(value) + L"." + std::to_wstring(value * value));
        break;
    case 4:
        dialog.ChooseEntry(control.number, static_cast<int>(value) - 1);
        break;
    case 5:
    case 6:
        Gather(dialog, nullptr, items);
        if (!items.empty())
        {
            const TreeItem item = items[value % items.size()];
            action % 8 == 5 ? dialog.ChooseTreeItem(convert_dlg::OBJECT_TREE, item)
                            : dialog.ClickTreeItem(convert_dlg::OBJECT_TREE, item);
        }
        break;
    default:
        value % 16 == 0 ? dialog.PressEscape() : dialog.PressEnter();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TestFolder folder;
    folder.Write(L"Landxml_temp.xml", WORK_FILE);
    folder.Write(L"intermediatePts_temp_1.csv", INTERMEDIATE_POINTS);
    folder.Write(L"widthStake_temp_1.csv", WIDTH_STAKES);
    ScriptedWindowSystem windows;
    windows.SetSaveFileAnswer([&](const SaveFileRequest&) { return folder.Name(L"out.xml"); });
    windows.SetUser([&](ScriptedDialog& dialog) {
        if (&dialog.Template() == &JLandXMLErrorDlg::TEMPLATE)
        {
            dialog.PressEnter();
            return;
        }
        CheckDialog(dialog);
        for (std::size_t index = 0; index + 1 < size && !dialog.HasEnded(); index += 2)
        {
            Act(dialog, data[index], data[index + 1]);
            CheckDialog(dialog);
        }
        CheckOrder(dialog);
    });
    SetWindowSystem(&windows);
    ExecuteQuorvane(folder.Name().c_str(), 1);
    SetWindowSystem(nullptr);
    GetConversionContext().model = FViewLandXML();
    return 0;
}
