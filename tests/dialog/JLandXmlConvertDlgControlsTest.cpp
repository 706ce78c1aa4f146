#include "dialog/JLandXmlConvertDlgControls.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;
using Numbers = std::vector<int>;

struct ControlCase
{
    int number;
    ControlKind kind;
    const wchar_t* caption;
};

constexpr ControlCase CONTROLS[] = {
    {1, ControlKind::DefaultButton, L"出力"},
    {2, ControlKind::Button, L"キャンセル"},
    {1000, ControlKind::Group, L"プロジェクト情報"},
    {1001, ControlKind::Label, L"プロジェクト名称"},
    {1002, ControlKind::Edit, L""},
    {1003, ControlKind::Label, L"事業段階"},
    {1005, ControlKind::ReadOnlyEdit, L""},
    {1006, ControlKind::List, L""},
    {1007, ControlKind::List, L""},
    {1008, ControlKind::Label, L"適用基準"},
    {1009, ControlKind::ReadOnlyEdit, L""},
    {1010, ControlKind::Label, L"ソフトウェア名称"},
    {1011, ControlKind::Label, L"ソフトウェアバージョン"},
    {1012, ControlKind::ReadOnlyEdit, L""},
    {1013, ControlKind::Label, L"測地原子"},
    {1014, ControlKind::List, L""},
    {1015, ControlKind::Label, L"鉛直原子"},
    {1016, ControlKind::ReadOnlyEdit, L""},
    {1017, ControlKind::Label, L"水平座標系"},
    {1018, ControlKind::Group, L"座標参照系"},
    {1019, ControlKind::Tree, L""},
    {1020, ControlKind::FirstRadio, L"道路"},
    {1021, ControlKind::Group, L"路線"},
    {1022, ControlKind::Radio, L"河川"},
    {1023, ControlKind::SortedList, L""},
    {1025, ControlKind::SortedList, L""},
    {1026, ControlKind::Label, L"規格・等級"},
    {1028, ControlKind::Label, L"規格・等級"},
    {1029, ControlKind::Edit, L""},
    {1030, ControlKind::SortedList, L""},
    {1031, ControlKind::Label, L"設計交通量"},
    {1032, ControlKind::Label, L"左右岸区分"},
    {1033, ControlKind::Group, L"線形"},
    {1034, ControlKind::Label, L"主測点間隔"},
    {1035, ControlKind::Edit, L""},
    {1036, ControlKind::Label, L"m"},
    {1037, ControlKind::Edit, L""},
    {1038, ControlKind::Label, L"副測点間隔"},
    {1039, ControlKind::Label, L"m"},
    {1040, ControlKind::List, L""},
    {1041, ControlKind::Label, L"線形計算手法名"},
    {1042, ControlKind::Edit, L""},
    {1043, ControlKind::Label, L"直線部横断勾配"},
    {1044, ControlKind::Label, L"％"},
    {1045, ControlKind::List, L""},
    {1046, ControlKind::Label, L"車線"},
    {1047, ControlKind::List, L""},
    {1048, ControlKind::Label, L"片勾配定義"},
    {1049, ControlKind::Group, L"サーフェス"},
    {1050, ControlKind::List, L""},
    {1051, ControlKind::Label, L"参照線形"},
    {1052, ControlKind::Label, L"要素種別"},
    {1053, ControlKind::List, L""},
    {1054, ControlKind::SortedList, L""},
    {1055, ControlKind::Group, L"中間点/幅杭"},
    {1056, ControlKind::Label, L"参照線形"},
    {1057, ControlKind::SortedList, L""},
    {1058, ControlKind::Label, L"参照線形"},
    {1059, ControlKind::Label, L"接合タイプ"},
    {1060, ControlKind::SortedList, L""},
    {1061, ControlKind::Label, L"注記"},
    {1062, ControlKind::Edit, L""},
};

/// A field with its label and, where it has one, its unit.
struct FieldCase
{
    int label;
    int field;
    int unit;
};

constexpr FieldCase FIELDS[] = {
    {1001, 1002, 0},    {1003, 1006, 0},    {1008, 1007, 0}, {1010, 1009, 0},    {1011, 1005, 0}, {1013, 1012, 0},
    {1015, 1014, 0},    {1017, 1016, 0},    {1026, 1023, 0}, {1028, 1025, 0},    {1031, 1029, 0}, {1032, 1030, 0},
    {1034, 1035, 1036}, {1038, 1037, 1039}, {1041, 1040, 0}, {1043, 1042, 1044}, {1046, 1045, 0}, {1048, 1047, 0},
    {1051, 1050, 0},    {1052, 1053, 0},    {1056, 1054, 0}, {1058, 1057, 0},    {1059, 1060, 0}, {1061, 1062, 0},
};

const ControlTemplate& At(int number)
{
    return *FindControl(TEMPLATE, number);
}

Numbers Sorted(std::span<const int> numbers)
{
    Numbers sorted(numbers.begin(), numbers.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

bool Overlap(const ControlTemplate& first, const ControlTemplate& second)
{
    return first.x < second.x + second.width && second.x < first.x + first.width &&
           first.y < second.y + second.height && second.y < first.y + first.height;
}

bool LiesWithin(const ControlTemplate& inner, const ControlTemplate& outer)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

/// The controls that stand on no panel.
Numbers OutsideThePanels()
{
    Numbers numbers;
    for (const ControlTemplate& control : TEMPLATE.controls)
    {
        const auto holds = [&](std::span<const int> set) {
            return std::find(set.begin(), set.end(), control.number) != set.end();
        };
        if (!holds(ROUTE_SET) && !holds(ALIGNMENT_SET) && !holds(SURFACE_SET) && !holds(INTERMEDIATE_SET) &&
            !holds(WIDTH_STAKE_SET))
        {
            numbers.push_back(control.number);
        }
    }
    return numbers;
}

TEST(JLandXmlConvertDlgControls, TheWindowHasItsNumberCaptionSizeAndFont)
{
    EXPECT_EQ(TEMPLATE.number, 1000);
    EXPECT_STREQ(TEMPLATE.caption, L"J-LandXML出力設定");
    EXPECT_EQ(TEMPLATE.width, 515);
    EXPECT_EQ(TEMPLATE.height, 217);
    EXPECT_STREQ(DIALOG_FONT, L"MS Shell Dlg");
    EXPECT_EQ(DIALOG_FONT_POINTS, 8);
}

TEST(JLandXmlConvertDlgControls, EachNumberStandsOnceWithItsKindAndCaption)
{
    std::vector<ControlTemplate> controls(TEMPLATE.controls.begin(), TEMPLATE.controls.end());
    std::sort(controls.begin(), controls.end(), [](const auto& a, const auto& b) { return a.number < b.number; });
    ASSERT_EQ(controls.size(), std::size(CONTROLS));
    for (std::size_t index = 0; index < controls.size(); ++index)
    {
        EXPECT_EQ(controls[index].number, CONTROLS[index].number);
        EXPECT_EQ(controls[index].kind, CONTROLS[index].kind) << controls[index].number;
        EXPECT_STREQ(controls[index].caption, CONTROLS[index].caption) << controls[index].number;
    }
}

TEST(JLandXmlConvertDlgControls, SetsHoldThePanelsWithTheirLabelsAndUnits)
{
    EXPECT_EQ(Sorted(ROUTE_SET), (Numbers{1020, 1021, 1022, 1023, 1025, 1026, 1028, 1029, 1030, 1031, 1032}));
    EXPECT_EQ(Sorted(ALIGNMENT_SET), (Numbers{1033, 1034, 1035, 1036, 1037, 1038, 1039, 1040, 1041, 1042, 1043, 1044,
                                              1045, 1046, 1047, 1048}));
    EXPECT_EQ(Sorted(SURFACE_SET), (Numbers{1049, 1050, 1051, 1052, 1053}));
    EXPECT_EQ(Sorted(INTERMEDIATE_SET), (Numbers{1054, 1055, 1056}));
    EXPECT_EQ(Sorted(WIDTH_STAKE_SET), (Numbers{1055, 1057, 1058, 1059, 1060, 1061, 1062}));
}

TEST(JLandXmlConvertDlgControls, EveryControlLiesInTheWindow)
{
    const ControlTemplate window{0, ControlKind::Group, L"", 0, 0, 515, 217};
    for (const ControlTemplate& control : TEMPLATE.controls)
    {
        EXPECT_TRUE(LiesWithin(control, window)) << control.number;
        EXPECT_GT(control.width, 0) << control.number;
        EXPECT_GT(control.height, 0) << control.number;
    }
}

TEST(JLandXmlConvertDlgControls, ListsDropDownAndNothingElseDoes)
{
    for (const ControlTemplate& control : TEMPLATE.controls)
    {
        EXPECT_EQ(control.dropDownHeight > control.height, IsList(control.kind)) << control.number;
    }
}

TEST(JLandXmlConvertDlgControls, ThePanelsOfRoutesSurfacesAndPointsShareOnePlace)
{
    for (const int panel : {1049, 1055})
    {
        EXPECT_TRUE(LiesWithin(At(panel), At(1021)) && LiesWithin(At(1021), At(panel))) << panel;
    }
}

TEST(JLandXmlConvertDlgControls, APanelHoldsItsControlsInItsFrame)
{
    const std::span<const int> sets[] = {ROUTE_SET, ALIGNMENT_SET, SURFACE_SET, INTERMEDIATE_SET, WIDTH_STAKE_SET};
    for (const std::span<const int> set : sets)
    {
        for (const int number : set)
        {
            EXPECT_TRUE(LiesWithin(At(number), At(set.front()))) << number;
        }
    }
    for (const int number : {1001, 1002, 1003, 1005, 1006, 1007, 1008, 1009, 1010, 1011})
    {
        EXPECT_TRUE(LiesWithin(At(number), At(1000))) << number;
    }
    for (const int number : {1012, 1013, 1014, 1015, 1016, 1017})
    {
        EXPECT_TRUE(LiesWithin(At(number), At(1018))) << number;
    }
}

TEST(JLandXmlConvertDlgControls, WhatIsShownTogetherDoesNotOverlap)
{
    using Sets = std::vector<std::span<const int>>;
    for (const Sets& together : {Sets{ROUTE_SET, ALIGNMENT_SET}, Sets{ALIGNMENT_SET, SURFACE_SET},
                                 Sets{ALIGNMENT_SET, INTERMEDIATE_SET}, Sets{ALIGNMENT_SET, WIDTH_STAKE_SET}})
    {
        Numbers shown = OutsideThePanels();
        for (const std::span<const int> set : together)
        {
            shown.insert(shown.end(), set.begin(), set.end());
        }
        for (std::size_t first = 0; first < shown.size(); ++first)
        {
            for (std::size_t second = first + 1; second < shown.size(); ++second)
            {
                const ControlTemplate& one = At(shown[first]);
                const ControlTemplate& other = At(shown[second]);
                const bool framed = (one.kind == ControlKind::Group && LiesWithin(other, one)) ||
                                    (other.kind == ControlKind::Group && LiesWithin(one, other));
                EXPECT_TRUE(framed || !Overlap(one, other)) << one.number << " " << other.number;
            }
        }
    }
}

TEST(JLandXmlConvertDlgControls, ALabelStandsBeforeItsFieldAndAUnitBehindIt)
{
    for (const FieldCase& one : FIELDS)
    {
        const ControlTemplate& label = At(one.label);
        const ControlTemplate& field = At(one.field);
        EXPECT_EQ(&label + 1, &field) << one.field;
        EXPECT_LE(label.x + label.width, field.x) << one.field;
        EXPECT_EQ(label.y + label.height / 2, field.y + field.height / 2) << one.field;
        if (one.unit != 0)
        {
            const ControlTemplate& unit = At(one.unit);
            EXPECT_EQ(&field + 1, &unit) << one.unit;
            EXPECT_GE(unit.x, field.x + field.width) << one.unit;
            EXPECT_EQ(unit.y, label.y) << one.unit;
        }
    }
}

TEST(JLandXmlConvertDlgControls, EveryFieldHasALabel)
{
    std::set<int> labelled;
    for (const FieldCase& one : FIELDS)
    {
        labelled.insert(one.field);
    }
    for (const ControlTemplate& control : TEMPLATE.controls)
    {
        EXPECT_EQ(labelled.count(control.number) == 1, IsEdit(control.kind) || IsList(control.kind)) << control.number;
    }
}

TEST(JLandXmlConvertDlgControls, TheTreeStandsAboveThePanelsAndTheProjectAtTheirRight)
{
    const ControlTemplate& tree = At(OBJECT_TREE);
    for (const int panel : {1021, 1033, 1049, 1055})
    {
        EXPECT_LE(tree.y + tree.height, At(panel).y) << panel;
        EXPECT_LE(At(panel).x + At(panel).width, At(1000).x) << panel;
        EXPECT_LE(At(panel).x + At(panel).width, At(1018).x) << panel;
    }
    EXPECT_LE(tree.x + tree.width, At(1000).x);
}

} // namespace
} // namespace jlandxml
