#include "dialog/JLandXmlConvertDlgControls.h"

#include "windows/Window.h"

namespace jlandxml::convert_dlg
{

namespace
{

// Columns and rows, in dialog units. A full-width character of the font is 8 units wide.
constexpr int ROW = 16;
constexpr int LABEL_HEIGHT = 8;
constexpr int FIELD_HEIGHT = 14;
constexpr int DROP_DOWN = 120;
constexpr int LABEL_DROP = 3; ///< a label stands this much lower than its field, on the same base line

constexpr int TREE_TOP = 7;
constexpr int PANEL_TOP = 104;
constexpr int PANEL_HEIGHT = 106;

constexpr int LEFT = 7;
constexpr int LEFT_WIDTH = 142;
constexpr int LEFT_LABEL = LEFT + 7;
constexpr int LEFT_FIELD = LEFT + 52;
constexpr int LEFT_FIELD_WIDTH = LEFT_WIDTH - 52 - 6;

constexpr int MIDDLE = 153;
constexpr int MIDDLE_WIDTH = 147;
constexpr int MIDDLE_LABEL = MIDDLE + 7;
constexpr int MIDDLE_FIELD = MIDDLE + 67;
constexpr int MIDDLE_LIST_WIDTH = MIDDLE_WIDTH - 67 - 6;
constexpr int MIDDLE_EDIT_WIDTH = 58;
constexpr int MIDDLE_UNIT = MIDDLE_FIELD + MIDDLE_EDIT_WIDTH + 3;

constexpr int RIGHT = 306;
constexpr int RIGHT_WIDTH = 202;
constexpr int RIGHT_LABEL = RIGHT + 7;
constexpr int PROJECT_FIELD = RIGHT + 98;
constexpr int PROJECT_FIELD_WIDTH = RIGHT_WIDTH - 98 - 6;
constexpr int SYSTEM_FIELD = RIGHT + 56;
constexpr int SYSTEM_FIELD_WIDTH = RIGHT_WIDTH - 56 - 6;

constexpr int PROJECT_TOP = 7;
constexpr int PROJECT_HEIGHT = 98;
constexpr int SYSTEM_TOP = 110;
constexpr int SYSTEM_HEIGHT = 66;
constexpr int BUTTON_TOP = 196;

constexpr int PanelRow(int row)
{
    return PANEL_TOP + 11 + row * 15;
}

constexpr int RowOf(int top, int row)
{
    return top + 14 + row * ROW;
}

constexpr ControlTemplate LabelAt(int number, const wchar_t* caption, int x, int y, int width)
{
    return {number, ControlKind::Label, caption, x, y + LABEL_DROP, width, LABEL_HEIGHT};
}

constexpr ControlTemplate FieldAt(int number, ControlKind kind, int x, int y, int width)
{
    return {number, kind, L"", x, y, width, FIELD_HEIGHT, IsList(kind) ? DROP_DOWN : 0};
}

constexpr ControlTemplate GroupAt(int number, const wchar_t* caption, int x, int y, int width, int height)
{
    return {number, ControlKind::Group, caption, x, y, width, height};
}

constexpr ControlTemplate PanelLabel(int number, const wchar_t* caption, int row)
{
    return LabelAt(number, caption, LEFT_LABEL, PanelRow(row), 44);
}

constexpr ControlTemplate PanelField(int number, ControlKind kind, int row)
{
    return FieldAt(number, kind, LEFT_FIELD, PanelRow(row), LEFT_FIELD_WIDTH);
}

constexpr ControlTemplate AlignmentLabel(int number, const wchar_t* caption, int row)
{
    return LabelAt(number, caption, MIDDLE_LABEL, PanelRow(row), 59);
}

constexpr ControlTemplate AlignmentUnit(int number, const wchar_t* caption, int row)
{
    return LabelAt(number, caption, MIDDLE_UNIT, PanelRow(row), 10);
}

constexpr ControlTemplate AlignmentEdit(int number, int row)
{
    return FieldAt(number, ControlKind::Edit, MIDDLE_FIELD, PanelRow(row), MIDDLE_EDIT_WIDTH);
}

constexpr ControlTemplate AlignmentList(int number, int row)
{
    return FieldAt(number, ControlKind::List, MIDDLE_FIELD, PanelRow(row), MIDDLE_LIST_WIDTH);
}

constexpr ControlTemplate ProjectLabel(int number, const wchar_t* caption, int row)
{
    return LabelAt(number, caption, RIGHT_LABEL, RowOf(PROJECT_TOP, row), 90);
}

constexpr ControlTemplate ProjectField(int number, ControlKind kind, int row)
{
    return FieldAt(number, kind, PROJECT_FIELD, RowOf(PROJECT_TOP, row), PROJECT_FIELD_WIDTH);
}

constexpr ControlTemplate SystemLabel(int number, const wchar_t* caption, int row)
{
    return LabelAt(number, caption, RIGHT_LABEL, RowOf(SYSTEM_TOP, row), 46);
}

constexpr ControlTemplate SystemField(int number, ControlKind kind, int row)
{
    return FieldAt(number, kind, SYSTEM_FIELD, RowOf(SYSTEM_TOP, row), SYSTEM_FIELD_WIDTH);
}

constexpr ControlTemplate CONTROLS[] = {
    {OBJECT_TREE, ControlKind::Tree, L"", LEFT, TREE_TOP, MIDDLE + MIDDLE_WIDTH - LEFT, PANEL_TOP - TREE_TOP - 5},

    GroupAt(ROUTE_GROUP, L"路線", LEFT, PANEL_TOP, LEFT_WIDTH, PANEL_HEIGHT),
    {ROAD_RADIO, ControlKind::FirstRadio, L"道路", LEFT_LABEL, PanelRow(0) + 2, 44, 10},
    {RIVER_RADIO, ControlKind::Radio, L"河川", LEFT_FIELD + 10, PanelRow(0) + 2, 44, 10},
    PanelLabel(ROAD_CLASSIFICATION_LABEL, L"規格・等級", 1),
    PanelField(ROAD_CLASSIFICATION_LIST, ControlKind::SortedList, 1),
    PanelLabel(TRAFFIC_VOLUME_LABEL, L"設計交通量", 2),
    PanelField(TRAFFIC_VOLUME_EDIT, ControlKind::Edit, 2),
    PanelLabel(RIVER_CLASSIFICATION_LABEL, L"規格・等級", 3),
    PanelField(RIVER_CLASSIFICATION_LIST, ControlKind::SortedList, 3),
    PanelLabel(RIVER_SIDE_LABEL, L"左右岸区分", 4),
    PanelField(RIVER_SIDE_LIST, ControlKind::SortedList, 4),

    GroupAt(SURFACE_GROUP, L"サーフェス", LEFT, PANEL_TOP, LEFT_WIDTH, PANEL_HEIGHT),
    PanelLabel(SURFACE_REFERENCE_LABEL, L"参照線形", 0),
    PanelField(SURFACE_REFERENCE_LIST, ControlKind::List, 0),
    PanelLabel(SURFACE_KIND_LABEL, L"要素種別", 1),
    PanelField(SURFACE_KIND_LIST, ControlKind::List, 1),

    GroupAt(POINTS_GROUP, L"中間点/幅杭", LEFT, PANEL_TOP, LEFT_WIDTH, PANEL_HEIGHT),
    PanelLabel(INTERMEDIATE_REFERENCE_LABEL, L"参照線形", 0),
    PanelField(INTERMEDIATE_REFERENCE_LIST, ControlKind::SortedList, 0),
    PanelLabel(WIDTH_STAKE_REFERENCE_LABEL, L"参照線形", 0),
    PanelField(WIDTH_STAKE_REFERENCE_LIST, ControlKind::SortedList, 0),
    PanelLabel(CLOSURE_TYPE_LABEL, L"接合タイプ", 1),
    PanelField(CLOSURE_TYPE_LIST, ControlKind::SortedList, 1),
    PanelLabel(WIDTH_STAKE_DESC_LABEL, L"注記", 2),
    PanelField(WIDTH_STAKE_DESC_EDIT, ControlKind::Edit, 2),

    GroupAt(ALIGNMENT_GROUP, L"線形", MIDDLE, PANEL_TOP, MIDDLE_WIDTH, PANEL_HEIGHT),
    AlignmentLabel(MAIN_INTERVAL_LABEL, L"主測点間隔", 0),
    AlignmentEdit(MAIN_INTERVAL_EDIT, 0),
    AlignmentUnit(MAIN_INTERVAL_UNIT, L"m", 0),
    AlignmentLabel(SUB_INTERVAL_LABEL, L"副測点間隔", 1),
    AlignmentEdit(SUB_INTERVAL_EDIT, 1),
    AlignmentUnit(SUB_INTERVAL_UNIT, L"m", 1),
    AlignmentLabel(METHOD_LABEL, L"線形計算手法名", 2),
    AlignmentList(METHOD_LIST, 2),
    AlignmentLabel(NORMAL_CROWN_LABEL, L"直線部横断勾配", 3),
    AlignmentEdit(NORMAL_CROWN_EDIT, 3),
    AlignmentUnit(NORMAL_CROWN_UNIT, L"％", 3),
    AlignmentLabel(LANES_LABEL, L"車線", 4),
    AlignmentList(LANES_LIST, 4),
    AlignmentLabel(SUPERELEVATION_DEFINITION_LABEL, L"片勾配定義", 5),
    AlignmentList(SUPERELEVATION_DEFINITION_LIST, 5),

    GroupAt(PROJECT_GROUP, L"プロジェクト情報", RIGHT, PROJECT_TOP, RIGHT_WIDTH, PROJECT_HEIGHT),
    ProjectLabel(PROJECT_NAME_LABEL, L"プロジェクト名称", 0),
    ProjectField(PROJECT_NAME_EDIT, ControlKind::Edit, 0),
    ProjectLabel(PROJECT_PHASE_LABEL, L"事業段階", 1),
    ProjectField(PROJECT_PHASE_LIST, ControlKind::List, 1),
    ProjectLabel(APPLICATION_CRITERION_LABEL, L"適用基準", 2),
    ProjectField(APPLICATION_CRITERION_LIST, ControlKind::List, 2),
    ProjectLabel(SOFTWARE_NAME_LABEL, L"ソフトウェア名称", 3),
    ProjectField(SOFTWARE_NAME_EDIT, ControlKind::ReadOnlyEdit, 3),
    ProjectLabel(SOFTWARE_VERSION_LABEL, L"ソフトウェアバージョン", 4),
    ProjectField(SOFTWARE_VERSION_EDIT, ControlKind::ReadOnlyEdit, 4),

    GroupAt(COORDINATE_SYSTEM_GROUP, L"座標参照系", RIGHT, SYSTEM_TOP, RIGHT_WIDTH, SYSTEM_HEIGHT),
    SystemLabel(HORIZONTAL_DATUM_LABEL, L"測地原子", 0),
    SystemField(HORIZONTAL_DATUM_EDIT, ControlKind::ReadOnlyEdit, 0),
    SystemLabel(VERTICAL_DATUM_LABEL, L"鉛直原子", 1),
    SystemField(VERTICAL_DATUM_LIST, ControlKind::List, 1),
    SystemLabel(HORIZONTAL_COORDINATE_SYSTEM_LABEL, L"水平座標系", 2),
    SystemField(HORIZONTAL_COORDINATE_SYSTEM_EDIT, ControlKind::ReadOnlyEdit, 2),

    {OUTPUT_BUTTON, ControlKind::DefaultButton, L"出力", 400, BUTTON_TOP, 50, 14},
    {CANCEL_COMMAND, ControlKind::Button, L"キャンセル", 456, BUTTON_TOP, 52, 14},
};

} // namespace

const DialogTemplate TEMPLATE{1000, MESSAGE_CAPTION, 515, 217, CONTROLS};

} // namespace jlandxml::convert_dlg
