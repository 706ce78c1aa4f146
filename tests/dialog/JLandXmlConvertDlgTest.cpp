#include "dialog/JLandXmlConvertDlg.h"

#include "run/LoadRun.h"
#include "support/ConvertDlgFixture.h"
#include "support/RowName.h"

#include <algorithm>
#include <set>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;
using Lines = std::vector<std::wstring>;
using TreePath = std::initializer_list<std::size_t>;

constexpr const wchar_t* NO_TEXT = L"";

// The sample's items.
constexpr std::size_t ROAD_ITEM = 0;
constexpr std::size_t RIVER_ITEM = 1;
constexpr std::size_t OTHER_ROUTE_ITEM = 2;
constexpr std::size_t SURFACES_ITEM = 3;
constexpr std::size_t POINTS_ITEM = 5;

/// The lines of the tree, each child one blank deeper, an expanded item with a minus and any other with a plus.
Lines TreeLines(const ScriptedDialog& window)
{
    Lines lines;
    for (const TreeItem root : window.TreeChildren(OBJECT_TREE, nullptr))
    {
        lines.push_back((window.IsExpanded(OBJECT_TREE, root) ? L"-" : L"+") + window.TreeText(OBJECT_TREE, root));
        for (const TreeItem child : window.TreeChildren(OBJECT_TREE, root))
        {
            lines.push_back(L" " + window.TreeText(OBJECT_TREE, child));
        }
    }
    return lines;
}

/// All controls of the panels, in the order of their numbers.
std::set<int> PanelControls()
{
    std::set<int> all;
    for (const std::span<const int> set :
         {std::span<const int>(ROUTE_SET), std::span<const int>(ALIGNMENT_SET), std::span<const int>(SURFACE_SET),
          std::span<const int>(INTERMEDIATE_SET), std::span<const int>(WIDTH_STAKE_SET)})
    {
        all.insert(set.begin(), set.end());
    }
    return all;
}

std::set<int> Union(std::initializer_list<std::span<const int>> sets, const std::set<int>& without = {})
{
    std::set<int> all;
    for (const std::span<const int> set : sets)
    {
        all.insert(set.begin(), set.end());
    }
    for (const int number : without)
    {
        all.erase(number);
    }
    return all;
}

std::set<int> PanelControlsThat(const ScriptedDialog& window, bool (ScriptedDialog::*hold)(int) const)
{
    std::set<int> held;
    for (const int number : PanelControls())
    {
        if ((window.*hold)(number))
        {
            held.insert(number);
        }
    }
    return held;
}

void ExpectReach(const ScriptedDialog& window, const std::set<int>& shown, const std::set<int>& enabled)
{
    EXPECT_EQ(PanelControlsThat(window, &ScriptedDialog::IsShown), shown);
    EXPECT_EQ(PanelControlsThat(window, &ScriptedDialog::IsEnabled), enabled);
}

// Opening

class ConvertDlgOpening : public ConvertDlgTest
{};

TEST_F(ConvertDlgOpening, TheRoutePanelsAreDisabledAndTheOthersHidden)
{
    LoadSample();
    Open([](ScriptedDialog& window) {
        ExpectReach(window, Union({ROUTE_SET, ALIGNMENT_SET}), Union({SURFACE_SET, INTERMEDIATE_SET, WIDTH_STAKE_SET}));
        for (const ControlTemplate& control : TEMPLATE.controls)
        {
            if (PanelControls().count(control.number) == 0)
            {
                EXPECT_TRUE(window.CanReach(control.number)) << control.number;
            }
        }
    });
}

struct ListCase
{
    int list;
    VocabularyIndex vocabulary;
};

class ConvertDlgLists : public ConvertDlgTest, public testing::WithParamInterface<ListCase>
{};

TEST_P(ConvertDlgLists, AreFilledInTheOrderOfTheVocabularyWithTheValuesBehind)
{
    Open([](ScriptedDialog& window) {
        Lines displays;
        const auto [list, index] = GetParam();
        for (const DisplayXmlDataPair& pair : GetDisplayXmlTables().GetVocabulary(index))
        {
            displays.emplace_back(pair.display);
            EXPECT_STREQ(window.EntryData(list, window.FindEntry(list, pair.display)), pair.xml);
        }
        EXPECT_EQ(window.AddedEntries(list), displays);
        if (!IsSorted(FindControl(TEMPLATE, list)->kind))
        {
            EXPECT_EQ(window.Entries(list), displays);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(
    ConvertDlg, ConvertDlgLists,
    testing::Values(ListCase{1006, VocabularyIndex::ProjectPhase},
                    ListCase{1007, VocabularyIndex::ApplicationCriterion},
                    ListCase{1014, VocabularyIndex::VerticalDatum}, ListCase{1023, VocabularyIndex::RoadClassification},
                    ListCase{1025, VocabularyIndex::RiverClassification}, ListCase{1030, VocabularyIndex::RiverSide},
                    ListCase{1040, VocabularyIndex::CalculationMethod}, ListCase{1045, VocabularyIndex::LaneKind},
                    ListCase{1047, VocabularyIndex::SuperelevationDefinition},
                    ListCase{1053, VocabularyIndex::SurfaceKind}, ListCase{1060, VocabularyIndex::ClosureType}),
    [](const auto& row) { return "Control" + std::to_string(row.param.list); });

TEST_F(ConvertDlgOpening, SortedListsStandInJapaneseOrder)
{
    Open([](ScriptedDialog& window) {
        EXPECT_EQ(window.Entries(RIVER_CLASSIFICATION_LIST), (Lines{L"1級", L"2級", L"準用", L"普通"}));
        EXPECT_EQ(window.Entries(RIVER_SIDE_LIST), (Lines{L"右岸", L"左岸"}));
        EXPECT_EQ(window.Entries(CLOSURE_TYPE_LIST), (Lines{L"開放型", L"閉合型"}));
        EXPECT_EQ(window.Entries(ROAD_CLASSIFICATION_LIST),
                  (Lines{L"第1種第1級", L"第1種第2級", L"第1種第3級", L"第1種第4級", L"第2種第1級", L"第2種第2級",
                         L"第3種第1級", L"第3種第2級", L"第3種第3級", L"第3種第4級", L"第3種第5級", L"第4種第1級",
                         L"第4種第2級", L"第4種第3級", L"第4種第4級"}));
    });
}

TEST_F(ConvertDlgOpening, NothingIsChosenOnThePanels)
{
    LoadSample();
    Open([](ScriptedDialog& window) {
        for (const int number : PanelControls())
        {
            EXPECT_EQ(window.Text(number), NO_TEXT) << number;
        }
        for (const int list : {SURFACE_REFERENCE_LIST, INTERMEDIATE_REFERENCE_LIST, WIDTH_STAKE_REFERENCE_LIST})
        {
            EXPECT_EQ(window.EntryCount(list), 0) << list;
        }
        EXPECT_FALSE(window.IsChecked(ROAD_RADIO) || window.IsChecked(RIVER_RADIO));
        EXPECT_EQ(window.SelectedTreeItem(OBJECT_TREE), nullptr);
    });
}

TEST_F(ConvertDlgOpening, ProjectAndCoordinateSystemAreShown)
{
    LoadSample();
    Open([](ScriptedDialog& window) {
        EXPECT_EQ(window.Text(1002), L"改良工事");
        EXPECT_EQ(window.Text(1009), L"Kelmora");
        EXPECT_EQ(window.Text(1005), L"2027");
        EXPECT_EQ(window.Text(1006), L"予備");
        EXPECT_EQ(window.Text(1007), L"1.7");
        EXPECT_EQ(window.Text(1012), L"日本測地系2024");
        EXPECT_EQ(window.Text(1014), L"O.P（淀川）");
        EXPECT_EQ(window.Text(1016), L"9：第IX系");
    });
}

struct ShownCase
{
    const wchar_t* value;
    const wchar_t* shown;
};

class ConvertDlgPhases : public ConvertDlgTest, public testing::WithParamInterface<ShownCase>
{};

TEST_P(ConvertDlgPhases, AreShownOrTheDefault)
{
    Model().project.projectPhase = GetParam().value;
    Open([](ScriptedDialog& window) { EXPECT_EQ(window.Text(PROJECT_PHASE_LIST), GetParam().shown); });
}

INSTANTIATE_TEST_SUITE_P(ConvertDlg, ConvertDlgPhases,
                         testing::Values(ShownCase{L"概略", L"概略"}, ShownCase{L"施工", L"施工"},
                                         ShownCase{L"", L"詳細"}, ShownCase{L"詳細設計", L"詳細"}),
                         [](const auto& row) { return TextName(row.param.value); });

class ConvertDlgCriteria : public ConvertDlgTest, public testing::WithParamInterface<ShownCase>
{};

TEST_P(ConvertDlgCriteria, AreShownOrTheDefault)
{
    Model().project.applicationCriterion = GetParam().value;
    Open([](ScriptedDialog& window) { EXPECT_EQ(window.Text(APPLICATION_CRITERION_LIST), GetParam().shown); });
}

INSTANTIATE_TEST_SUITE_P(
    ConvertDlg, ConvertDlgCriteria,
    testing::Values(ShownCase{L"MlitLandXmlVer.1.5", L"1.5"}, ShownCase{L"MlitLandXmlVer.1.6", L"1.6"},
                    ShownCase{L"MlitLandXmlVer.1.7", L"1.7"}, ShownCase{L"MlitLandXmlVer.1.4", L"1.6"},
                    ShownCase{L"MlitLandXmlVer.1.3", L"1.6"}, ShownCase{L"1.7", L"1.6"}, ShownCase{L"", L"1.6"}),
    [](const auto& row) { return TextName(row.param.value); });

TEST_F(ConvertDlgOpening, AStrangeDatumOrSystemIsShownEmptyAndKept)
{
    Model().coordinateSystem.horizontalDatum = L"WGS84";
    Model().coordinateSystem.horizontalCoordinateSystemName = L"20(X,Y)";
    Open([&](ScriptedDialog& window) {
        EXPECT_EQ(window.Text(HORIZONTAL_DATUM_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(HORIZONTAL_COORDINATE_SYSTEM_EDIT), NO_TEXT);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Data().horizontalDatum, L"WGS84");
        EXPECT_EQ(Data().horizontalCoordinateSystemName, L"20(X,Y)");
    });
}

struct RouteDatumCase
{
    const wchar_t* datum;
    const wchar_t* differTP;
    const wchar_t* shown;
    const wchar_t* datumBack;
    const wchar_t* differTPBack;
};

class ConvertDlgDatums : public ConvertDlgTest, public testing::WithParamInterface<RouteDatumCase>
{};

TEST_P(ConvertDlgDatums, AreShownAndTakenBackWithTheDifferenceOfTheirEntry)
{
    Model().coordinateSystem.verticalDatum = GetParam().datum;
    Model().coordinateSystem.differTP = GetParam().differTP;
    Open([&](ScriptedDialog& window) {
        EXPECT_EQ(window.Text(VERTICAL_DATUM_LIST), GetParam().shown);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Data().verticalDatum, GetParam().datumBack);
        EXPECT_EQ(Data().differTP, GetParam().differTPBack);
    });
}

INSTANTIATE_TEST_SUITE_P(
    ConvertDlg, ConvertDlgDatums,
    testing::Values(RouteDatumCase{L"", L"", L"T.P（東京湾中等潮位）", L"T.P", L"0.0000"},
                    RouteDatumCase{L"X.P", L"5", L"T.P（東京湾中等潮位）", L"T.P", L"0.0000"},
                    RouteDatumCase{L"K.P", L"9.9", L"K.P（北上川）", L"K.P", L"-0.8745"},
                    RouteDatumCase{L"S.P", L"", L"S.P（鳴瀬川）", L"S.P", L"-0.0873"},
                    RouteDatumCase{L"Y.P", L"", L"Y.P（利根川）", L"Y.P", L"-0.8402"},
                    RouteDatumCase{L"A.P", L"", L"A.P（荒川・中川・多摩川）", L"A.P", L"-1.1344"},
                    RouteDatumCase{L"A.P", L"-1.1344", L"A.P（荒川・中川・多摩川）", L"A.P", L"-1.1344"},
                    RouteDatumCase{L"A.P", L"-0.8333", L"A.P（吉野川）", L"A.P", L"-0.8333"},
                    RouteDatumCase{L"A.P", L"-1.0000", L"T.P（東京湾中等潮位）", L"T.P", L"0.0000"},
                    RouteDatumCase{L"O.P", L"", L"O.P（淀川）", L"O.P", L"-1.3000"},
                    RouteDatumCase{L"T.P.W", L"", L"T.P.W（渡川）", L"T.P.W", L"0.113"},
                    RouteDatumCase{L"B.S.L", L"", L"B.S.L（琵琶湖）", L"B.S.L", L"84.371"}),
    [](const auto& row) { return TextName(row.param.datum + (L" " + std::wstring(row.param.differTP))); });

TEST_F(ConvertDlgOpening, TheTreeShowsRoutesSurfaceSetsAndPointGroupsExpanded)
{
    LoadSample();
    Open([](ScriptedDialog& window) {
        EXPECT_EQ(TreeLines(window),
                  (Lines{L"-国道", L" 本線", L" 支線", L"-路線1", L" 堤防", L"-路線2", L"-サーフェスセット1", L" 路床",
                         L" 地形", L"-サーフェスセット2", L"-中間点/幅杭", L" IntermediatePnts-1",
                         L" IntermediatePnts-2", L" WidthStakePnts-1", L" WidthStakePnts-2"}));
    });
}

TEST_F(ConvertDlgOpening, OnlyRoutesWithoutANameAreCounted)
{
    Model().alignments.resize(3);
    Model().alignments[1].name = L"A";
    Open([](ScriptedDialog& window) { EXPECT_EQ(TreeLines(window), (Lines{L"-路線1", L"-A", L"-路線2"})); });
}

TEST_F(ConvertDlgOpening, GroupsOfOneKindAloneStandUnderTheirItem)
{
    Model().intermediatePoints.resize(1);
    Open([](ScriptedDialog& window) {
        EXPECT_EQ(TreeLines(window), (Lines{L"-中間点/幅杭", L" IntermediatePnts-1"}));
    });
    Model().intermediatePoints.clear();
    Model().widthStakePoints.resize(1);
    Open([](ScriptedDialog& window) { EXPECT_EQ(TreeLines(window), (Lines{L"-中間点/幅杭", L" WidthStakePnts-1"})); });
}

TEST_F(ConvertDlgOpening, EachItemOfTheTreeCarriesItsObject)
{
    LoadSample();
    Open([&](ScriptedDialog& window) {
        const auto object = [&](TreePath path) {
            return static_cast<const DlgDataItem*>(window.TreeItemData(OBJECT_TREE, ItemAt(window, path)));
        };
        const DlgDataAlignmentsList& routes = Data().alignmentsList;
        const DlgDataCgPointsList& points = Data().cgPointsList;
        const std::pair<const DlgDataItem*, NodeType> objects[] = {
            {object({ROAD_ITEM}), NodeType::Route},
            {object({ROAD_ITEM, 1}), NodeType::Alignment},
            {object({SURFACES_ITEM}), NodeType::None},
            {object({SURFACES_ITEM, 1}), NodeType::Surface},
            {object({POINTS_ITEM}), NodeType::None},
            {object({POINTS_ITEM, 1}), NodeType::IntermediatePoints},
            {object({POINTS_ITEM, 3}), NodeType::WidthStakes},
        };
        const DlgDataItem* const expected[] = {
            routes[0].get(),
            routes[0]->alignments[1].get(),
            Data().surfacesList[0].get(),
            Data().surfacesList[0]->surfaces[1].get(),
            &points,
            points.intermediate[1].get(),
            points.widthStakes[1].get(),
        };
        for (std::size_t index = 0; index < std::size(objects); ++index)
        {
            EXPECT_EQ(objects[index].first, expected[index]) << index;
            EXPECT_EQ(dialog->GetNodeType(objects[index].first), objects[index].second) << index;
        }
    });
}

TEST_F(ConvertDlgOpening, NodeTypesHaveTheirNumbersAndAStrangeObjectHasNone)
{
    EXPECT_EQ(static_cast<int>(NodeType::Route), 0);
    EXPECT_EQ(static_cast<int>(NodeType::Alignment), 1);
    EXPECT_EQ(static_cast<int>(NodeType::Surface), 2);
    EXPECT_EQ(static_cast<int>(NodeType::IntermediatePoints), 3);
    EXPECT_EQ(static_cast<int>(NodeType::WidthStakes), 4);
    EXPECT_EQ(static_cast<int>(NodeType::None), 5);
    const JLandXmlConvertDlg opened;
    const DlgDataCgPointsIntermediate elsewhere;
    EXPECT_EQ(opened.GetNodeType(&elsewhere), NodeType::None);
    EXPECT_EQ(opened.GetNodeType(nullptr), NodeType::None);
}

TEST_F(ConvertDlgOpening, TheFirstRootIsMadeVisibleAndThenTheWindowRaised)
{
    LoadSample();
    Open([&](ScriptedDialog&) {
        const Lines& records = windows.Records();
        ASSERT_GE(records.size(), 3U);
        EXPECT_EQ(records.front(), L"open J-LandXML出力設定");
        EXPECT_EQ(records[records.size() - 2], L"visible 1019 国道");
        EXPECT_EQ(records.back(), L"raise J-LandXML出力設定");
    });
}

TEST_F(ConvertDlgOpening, AnEmptyModelGivesAnEmptyTreeAndOnlyTheProjectIsChecked)
{
    Open([&](ScriptedDialog& window) {
        EXPECT_EQ(TreeLines(window), Lines{});
        EXPECT_EQ(windows.Records().back(), L"raise J-LandXML出力設定");
        EXPECT_EQ(std::count_if(windows.Records().begin(), windows.Records().end(),
                                [](const std::wstring& line) { return line.find(L"visible") == 0; }),
                  0);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Data().errors, (Lines{L"プロジェクト名称が入力されていません。", L"測地原子が入力されていません。",
                                        L"水平座標系が入力されていません。"}));
    });
}

// Selecting

class ConvertDlgSelection : public ConvertDlgTest
{
  protected:
    ConvertDlgSelection() { LoadSample(); }

    /// Opens the dialog and selects an item.
    void OpenAt(TreePath path, const User& user)
    {
        Open([&](ScriptedDialog& window) {
            Select(window, path);
            EXPECT_EQ(window.TreeNotificationResult(), 0);
            user(window);
        });
        EXPECT_EQ(windows.Messages(), std::vector<ShownMessage>{});
    }
};

TEST_F(ConvertDlgSelection, ARoadOpensTheRoutePanelForARoad)
{
    OpenAt({ROAD_ITEM}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({ROUTE_SET}), Union({ROUTE_SET}, {1025, 1030}));
        EXPECT_TRUE(window.IsChecked(ROAD_RADIO));
        EXPECT_FALSE(window.IsChecked(RIVER_RADIO));
        EXPECT_EQ(window.Text(ROAD_CLASSIFICATION_LIST), NO_TEXT);
        EXPECT_EQ(window.Text(TRAFFIC_VOLUME_EDIT), L"1000");
        EXPECT_EQ(window.Text(RIVER_SIDE_LIST), NO_TEXT);
    });
}

TEST_F(ConvertDlgSelection, ARiverOpensTheRoutePanelForARiver)
{
    OpenAt({RIVER_ITEM}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({ROUTE_SET}), Union({ROUTE_SET}, {1023, 1029}));
        EXPECT_FALSE(window.IsChecked(ROAD_RADIO));
        EXPECT_TRUE(window.IsChecked(RIVER_RADIO));
        EXPECT_EQ(window.Text(RIVER_CLASSIFICATION_LIST), NO_TEXT);
        EXPECT_EQ(window.Text(RIVER_SIDE_LIST), L"左岸");
    });
}

struct RouteCase
{
    const wchar_t* rule;
    const wchar_t* type;
    const wchar_t* side;
    bool river;
    const wchar_t* shownSide;
};

class ConvertDlgRoutes : public ConvertDlgTest, public testing::WithParamInterface<RouteCase>
{};

TEST_P(ConvertDlgRoutes, AreShownByTheirType)
{
    FViewAlignments& route = Model().alignments.emplace_back();
    route.designGmType = GetParam().type;
    route.side = GetParam().side;
    route.trafficVolume = L"12";
    Open([](ScriptedDialog& window) {
        Select(window, {0});
        EXPECT_EQ(window.IsChecked(RIVER_RADIO), GetParam().river);
        EXPECT_EQ(window.IsChecked(ROAD_RADIO), !GetParam().river);
        EXPECT_EQ(window.Text(RIVER_SIDE_LIST), GetParam().shownSide);
        // The volume is shown of any route; a river's can't be edited.
        EXPECT_EQ(window.Text(TRAFFIC_VOLUME_EDIT), L"12");
        EXPECT_EQ(window.IsEnabled(TRAFFIC_VOLUME_EDIT), !GetParam().river);
        EXPECT_EQ(window.Text(ROAD_CLASSIFICATION_LIST) + window.Text(RIVER_CLASSIFICATION_LIST), NO_TEXT);
    });
}

INSTANTIATE_TEST_SUITE_P(ConvertDlg, ConvertDlgRoutes,
                         testing::Values(RouteCase{L"a road has no side", L"道路", L"右岸", false, L""},
                                         RouteCase{L"without a kind a road", L"", L"右岸", false, L""},
                                         RouteCase{L"of another kind a road", L"鉄道", L"右岸", false, L""},
                                         RouteCase{L"a river of one side", L"河川", L"右岸", true, L"右岸"},
                                         RouteCase{L"a side that the list lacks", L"河川", L"両岸", true, L""},
                                         RouteCase{L"a river without a side", L"河川", L"", true, L""}),
                         BY_RULE);

TEST_F(ConvertDlgSelection, ARouteOfAnotherTypeBecomesARoadWhenItIsLeft)
{
    Model().alignments[2].designGmType = L"鉄道";
    OpenAt({OTHER_ROUTE_ITEM}, [&](ScriptedDialog& window) {
        EXPECT_EQ(Data().alignmentsList[2]->designGmType, L"鉄道");
        Select(window, {ROAD_ITEM});
        EXPECT_EQ(Data().alignmentsList[2]->designGmType, L"道路");
    });
}

TEST_F(ConvertDlgSelection, AnAlignmentOpensItsPanelAndThatOfItsRoute)
{
    OpenAt({ROAD_ITEM, 1}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({ROUTE_SET, ALIGNMENT_SET}), Union({ROUTE_SET, ALIGNMENT_SET}, {1025, 1030}));
        EXPECT_EQ(window.Text(TRAFFIC_VOLUME_EDIT), L"1000");
        EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(SUB_INTERVAL_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(NORMAL_CROWN_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(METHOD_LIST), L"要素法");
        EXPECT_EQ(window.Text(LANES_LIST), L"多車線道路");
        EXPECT_EQ(window.Text(SUPERELEVATION_DEFINITION_LIST), L"片勾配すりつけ");
    });
}

TEST_F(ConvertDlgSelection, WhatAnAlignmentHasFromTheInputIsShownAndLocked)
{
    OpenAt({ROAD_ITEM, 0}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({ROUTE_SET, ALIGNMENT_SET}),
                    Union({ROUTE_SET, ALIGNMENT_SET}, {1025, 1030, MAIN_INTERVAL_EDIT, METHOD_LIST}));
        EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), L"20.0000");
        EXPECT_EQ(window.Text(NORMAL_CROWN_EDIT), L"2.0000");
        EXPECT_EQ(window.Text(LANES_LIST), L"一車線道路");
        EXPECT_EQ(window.Text(SUPERELEVATION_DEFINITION_LIST), L"任意片勾配");
    });
    OpenAt({RIVER_ITEM, 0}, [](ScriptedDialog& window) {
        EXPECT_EQ(window.Text(SUB_INTERVAL_EDIT), L"5.0000");
        EXPECT_FALSE(window.IsEnabled(SUB_INTERVAL_EDIT));
        EXPECT_TRUE(window.IsEnabled(MAIN_INTERVAL_EDIT));
        EXPECT_FALSE(window.IsEnabled(ROAD_CLASSIFICATION_LIST));
        EXPECT_TRUE(window.IsChecked(RIVER_RADIO));
    });
}

TEST_F(ConvertDlgSelection, AMainIntervalOfTheInputIsNotTakenBack)
{
    OpenAt({ROAD_ITEM, 0}, [&](ScriptedDialog& window) {
        EXPECT_FALSE(window.Type(MAIN_INTERVAL_EDIT, L"30"));
        window.SetText(MAIN_INTERVAL_EDIT, L"30");
        Select(window, {ROAD_ITEM});
        EXPECT_EQ(Data().alignmentsList[0]->alignments[0]->mainInterval, L"20.0000");
    });
    OpenAt({RIVER_ITEM, 0}, [&](ScriptedDialog& window) {
        window.SetText(SUB_INTERVAL_EDIT, L"30");
        Select(window, {ROAD_ITEM});
        EXPECT_EQ(Data().alignmentsList[1]->alignments[0]->subInterval, L"5.0000");
    });
}

TEST_F(ConvertDlgSelection, AMethodOutsideTheVocabularyIsAddedAtTheEndAndNeverTakenBack)
{
    OpenAt({ROAD_ITEM, 0}, [&](ScriptedDialog& window) {
        EXPECT_EQ(window.Entries(METHOD_LIST), (Lines{L"IP法", L"要素法", L"クロソイド法"}));
        EXPECT_EQ(window.Text(METHOD_LIST), L"クロソイド法");
        EXPECT_EQ(window.EntryData(METHOD_LIST, 2), nullptr);
        Select(window, {ROAD_ITEM, 1});
        EXPECT_EQ(Data().alignmentsList[0]->alignments[0]->method, L"クロソイド法");
        // An alignment of its own choice can't take it over either.
        EXPECT_EQ(window.Text(METHOD_LIST), L"要素法");
        Choose(window, METHOD_LIST, L"クロソイド法");
        Select(window, {ROAD_ITEM, 0});
        EXPECT_EQ(Data().alignmentsList[0]->alignments[1]->method, NO_TEXT);
        EXPECT_EQ(window.Entries(METHOD_LIST).size(), 3U);
    });
}

TEST_F(ConvertDlgSelection, AnIntervalOfZeroIsShownEmpty)
{
    OpenAt({ROAD_ITEM, 1}, [](ScriptedDialog& window) {
        window.Type(MAIN_INTERVAL_EDIT, L"0");
        window.Type(SUB_INTERVAL_EDIT, L"0");
        window.Type(NORMAL_CROWN_EDIT, L"0");
        Select(window, {ROAD_ITEM});
        Select(window, {ROAD_ITEM, 1});
        EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(SUB_INTERVAL_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(NORMAL_CROWN_EDIT), L"0");
        window.Type(MAIN_INTERVAL_EDIT, L"0.0");
        Select(window, {ROAD_ITEM});
        Select(window, {ROAD_ITEM, 1});
        EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), L"0.0");
    });
}

TEST_F(ConvertDlgSelection, ASurfaceOpensItsPanel)
{
    OpenAt({SURFACES_ITEM, 1}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({SURFACE_SET}), Union({SURFACE_SET}));
        EXPECT_EQ(window.Entries(SURFACE_REFERENCE_LIST), (Lines{L"本線", L"支線", L"堤防"}));
        EXPECT_EQ(window.Text(SURFACE_REFERENCE_LIST), NO_TEXT);
        EXPECT_EQ(window.Text(SURFACE_KIND_LIST), L"現況地形");
    });
    OpenAt({SURFACES_ITEM, 0}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({SURFACE_SET}), Union({SURFACE_SET}, {SURFACE_REFERENCE_LIST}));
        EXPECT_EQ(window.Text(SURFACE_REFERENCE_LIST), L"本線");
        EXPECT_EQ(window.Text(SURFACE_KIND_LIST), L"路床面");
    });
}

TEST_F(ConvertDlgSelection, AGroupOfIntermediatePointsOpensItsPanel)
{
    OpenAt({POINTS_ITEM, 0}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({INTERMEDIATE_SET}), Union({INTERMEDIATE_SET}));
        EXPECT_EQ(window.AddedEntries(INTERMEDIATE_REFERENCE_LIST), (Lines{L"本線", L"支線", L"堤防"}));
        EXPECT_EQ(window.Entries(INTERMEDIATE_REFERENCE_LIST), (Lines{L"支線", L"堤防", L"本線"}));
        EXPECT_EQ(window.Text(INTERMEDIATE_REFERENCE_LIST), NO_TEXT);
    });
}

TEST_F(ConvertDlgSelection, AReferenceOfTheInputIsShownAndLockedEvenIfNoAlignmentHasTheName)
{
    OpenAt({POINTS_ITEM, 1}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({INTERMEDIATE_SET}), Union({INTERMEDIATE_SET}, {INTERMEDIATE_REFERENCE_LIST}));
        EXPECT_EQ(window.Text(INTERMEDIATE_REFERENCE_LIST), L"どこにもない線形");
        EXPECT_EQ(window.EntryCount(INTERMEDIATE_REFERENCE_LIST), 4);
        // The name stays with its group.
        Select(window, {POINTS_ITEM, 0});
        EXPECT_EQ(window.EntryCount(INTERMEDIATE_REFERENCE_LIST), 3);
    });
}

TEST_F(ConvertDlgSelection, AnUnknownReferenceOfTheInputStandsInEveryReferenceList)
{
    Model().surfaces[0].surfaces[0].alignmentRefs = L"廃線";
    Model().widthStakePoints[1].alignmentRefs = L"廃線";
    OpenAt({SURFACES_ITEM, 0}, [](ScriptedDialog& window) {
        EXPECT_EQ(window.Text(SURFACE_REFERENCE_LIST), L"廃線");
        EXPECT_EQ(window.Entries(SURFACE_REFERENCE_LIST), (Lines{L"本線", L"支線", L"堤防", L"廃線"}));
        EXPECT_FALSE(window.CanReach(SURFACE_REFERENCE_LIST));
        Select(window, {POINTS_ITEM, 3});
        EXPECT_EQ(window.Text(WIDTH_STAKE_REFERENCE_LIST), L"廃線");
        EXPECT_EQ(window.EntryCount(WIDTH_STAKE_REFERENCE_LIST), 4);
        EXPECT_FALSE(window.CanReach(WIDTH_STAKE_REFERENCE_LIST));
    });
}

TEST_F(ConvertDlgSelection, AGroupOfWidthStakesOpensItsPanel)
{
    OpenAt({POINTS_ITEM, 2}, [](ScriptedDialog& window) {
        ExpectReach(window, Union({WIDTH_STAKE_SET}), Union({WIDTH_STAKE_SET}));
        EXPECT_EQ(window.Text(WIDTH_STAKE_REFERENCE_LIST), NO_TEXT);
        EXPECT_EQ(window.Text(CLOSURE_TYPE_LIST), L"閉合型");
        EXPECT_EQ(window.Text(WIDTH_STAKE_DESC_EDIT), L"用地");
    });
}

TEST_F(ConvertDlgSelection, AnUnknownWidthStakeTypeSelectsTheFirstEntry)
{
    OpenAt({POINTS_ITEM, 3}, [&](ScriptedDialog& window) {
        ExpectReach(window, Union({WIDTH_STAKE_SET}), Union({WIDTH_STAKE_SET}, {WIDTH_STAKE_REFERENCE_LIST}));
        EXPECT_EQ(window.Text(WIDTH_STAKE_REFERENCE_LIST), L"支線");
        EXPECT_EQ(window.Text(CLOSURE_TYPE_LIST), L"開放型");
        EXPECT_EQ(window.Text(WIDTH_STAKE_DESC_EDIT), NO_TEXT);
        Select(window, {POINTS_ITEM});
        EXPECT_EQ(Data().cgPointsList.widthStakes[1]->type, L"open");
    });
}

TEST_F(ConvertDlgSelection, ASurfaceSetAndTheItemOfThePointGroupsLeaveTheAreaEmpty)
{
    OpenAt({ROAD_ITEM, 0}, [](ScriptedDialog& window) {
        for (const TreePath& path : {TreePath{SURFACES_ITEM}, TreePath{POINTS_ITEM}})
        {
            Select(window, path);
            ExpectReach(window, {}, {});
        }
        Select(window, {ROAD_ITEM});
        window.ChooseTreeItem(OBJECT_TREE, nullptr);
        ExpectReach(window, {}, {});
    });
}

TEST_F(ConvertDlgSelection, TheProjectStaysInReachWhateverIsSelected)
{
    for (const TreePath& path :
         {TreePath{ROAD_ITEM, 0}, TreePath{SURFACES_ITEM, 0}, TreePath{POINTS_ITEM, 0}, TreePath{SURFACES_ITEM}})
    {
        OpenAt(path, [](ScriptedDialog& window) {
            for (const int control : {PROJECT_NAME_EDIT, PROJECT_PHASE_LIST, APPLICATION_CRITERION_LIST,
                                      VERTICAL_DATUM_LIST, OUTPUT_BUTTON})
            {
                EXPECT_TRUE(window.CanReach(control)) << control;
            }
        });
    }
}

// Road or river

TEST_F(ConvertDlgSelection, ARadioOfASelectedRouteIsStoredAtOnce)
{
    OpenAt({ROAD_ITEM}, [&](ScriptedDialog& window) {
        const DlgDataAlignments& route = *Data().alignmentsList[0];
        window.Click(RIVER_RADIO);
        EXPECT_EQ(route.designGmType, L"河川");
        ExpectReach(window, Union({ROUTE_SET}), Union({ROUTE_SET}, {1023, 1029}));
        window.Click(ROAD_RADIO);
        EXPECT_EQ(route.designGmType, L"道路");
        ExpectReach(window, Union({ROUTE_SET}), Union({ROUTE_SET}, {1025, 1030}));
        EXPECT_EQ(window.Text(TRAFFIC_VOLUME_EDIT), L"1000");
    });
}

TEST_F(ConvertDlgSelection, ARadioBesideASelectedAlignmentReachesTheRouteWhenTheAlignmentIsLeft)
{
    OpenAt({ROAD_ITEM, 1}, [&](ScriptedDialog& window) {
        const DlgDataAlignments& route = *Data().alignmentsList[0];
        window.Click(RIVER_RADIO);
        EXPECT_EQ(route.designGmType, L"道路");
        ExpectReach(window, Union({ROUTE_SET, ALIGNMENT_SET}), Union({ROUTE_SET, ALIGNMENT_SET}, {1023, 1029}));
        Choose(window, RIVER_CLASSIFICATION_LIST, L"準用");
        Select(window, {RIVER_ITEM});
        EXPECT_EQ(route.designGmType, L"河川");
        EXPECT_EQ(route.riverClassification, L"準用");
    });
}

TEST_F(ConvertDlgSelection, ASwitchedRouteShowsItsNewTypeWhenItIsSelectedAgain)
{
    OpenAt({ROAD_ITEM}, [](ScriptedDialog& window) {
        window.Click(RIVER_RADIO);
        Select(window, {RIVER_ITEM});
        Select(window, {ROAD_ITEM});
        EXPECT_TRUE(window.IsChecked(RIVER_RADIO));
        EXPECT_FALSE(window.IsChecked(ROAD_RADIO));
    });
}

// Reading back

TEST_F(ConvertDlgSelection, ARoadIsReadBack)
{
    OpenAt({ROAD_ITEM}, [&](ScriptedDialog& window) {
        Choose(window, ROAD_CLASSIFICATION_LIST, L"第3種第2級");
        window.Type(TRAFFIC_VOLUME_EDIT, L"250");
        const DlgDataAlignments& route = *Data().alignmentsList[0];
        EXPECT_EQ(route.roadClassification, NO_TEXT);
        EXPECT_EQ(route.trafficVolume, L"1000");
        Select(window, {RIVER_ITEM});
        EXPECT_EQ(route.roadClassification, L"第3種第2級");
        EXPECT_EQ(route.trafficVolume, L"250");
        EXPECT_EQ(route.side, NO_TEXT);
        Select(window, {ROAD_ITEM});
        EXPECT_EQ(window.Text(ROAD_CLASSIFICATION_LIST), L"第3種第2級");
        window.Type(TRAFFIC_VOLUME_EDIT, L"");
        Select(window, {RIVER_ITEM});
        EXPECT_EQ(route.trafficVolume, NO_TEXT);
    });
}

TEST_F(ConvertDlgSelection, ARiverIsReadBackAndKeepsItsRoadValues)
{
    OpenAt({ROAD_ITEM}, [&](ScriptedDialog& window) {
        Choose(window, ROAD_CLASSIFICATION_LIST, L"第3種第2級");
        Select(window, {RIVER_ITEM});
        Select(window, {ROAD_ITEM});
        window.Click(RIVER_RADIO);
        Choose(window, RIVER_CLASSIFICATION_LIST, L"2級");
        Choose(window, RIVER_SIDE_LIST, L"右岸");
        Select(window, {RIVER_ITEM});
        const DlgDataAlignments& route = *Data().alignmentsList[0];
        EXPECT_EQ(route.riverClassification, L"2級");
        EXPECT_EQ(route.side, L"右岸");
        EXPECT_EQ(route.roadClassification, L"第3種第2級");
        EXPECT_EQ(route.trafficVolume, L"1000");
    });
}

TEST_F(ConvertDlgSelection, ListsWithoutASelectionLeaveTheField)
{
    OpenAt({RIVER_ITEM}, [&](ScriptedDialog& window) {
        window.SelectEntry(RIVER_SIDE_LIST, DialogWindow::NO_ENTRY);
        Select(window, {ROAD_ITEM, 0});
        EXPECT_EQ(Data().alignmentsList[1]->side, L"左岸");
        window.SelectEntry(LANES_LIST, DialogWindow::NO_ENTRY);
        window.SelectEntry(SUPERELEVATION_DEFINITION_LIST, DialogWindow::NO_ENTRY);
        Select(window, {SURFACES_ITEM, 0});
        EXPECT_EQ(Data().alignmentsList[0]->alignments[0]->singleLaneRoad, 1);
        EXPECT_EQ(Data().alignmentsList[0]->alignments[0]->useSlopeList, 1);
        window.SelectEntry(SURFACE_KIND_LIST, DialogWindow::NO_ENTRY);
        window.SelectEntry(SURFACE_REFERENCE_LIST, DialogWindow::NO_ENTRY);
        Select(window, {POINTS_ITEM, 2});
        EXPECT_EQ(Data().surfacesList[0]->surfaces[0]->kind, L"SubBase");
        EXPECT_EQ(Data().surfacesList[0]->surfaces[0]->alignmentRefs, L"本線");
        window.SelectEntry(CLOSURE_TYPE_LIST, DialogWindow::NO_ENTRY);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Data().cgPointsList.widthStakes[0]->type, L"closed");
    });
}

TEST_F(ConvertDlgSelection, WithNeitherRadioNothingOfTheRouteIsReadBack)
{
    OpenAt({ROAD_ITEM}, [&](ScriptedDialog& window) {
        window.SetChecked(ROAD_RADIO, false);
        Choose(window, ROAD_CLASSIFICATION_LIST, L"第3種第2級");
        window.Type(TRAFFIC_VOLUME_EDIT, L"1");
        Select(window, {RIVER_ITEM});
        EXPECT_EQ(Data().alignmentsList[0]->roadClassification, NO_TEXT);
        EXPECT_EQ(Data().alignmentsList[0]->trafficVolume, L"1000");
        EXPECT_EQ(Data().alignmentsList[0]->designGmType, L"道路");
    });
}

TEST_F(ConvertDlgSelection, AnAlignmentIsReadBackWithItsRoute)
{
    OpenAt({ROAD_ITEM, 1}, [&](ScriptedDialog& window) {
        Choose(window, ROAD_CLASSIFICATION_LIST, L"第1種第1級");
        window.Type(TRAFFIC_VOLUME_EDIT, L"77");
        window.Type(MAIN_INTERVAL_EDIT, L"25");
        window.Type(SUB_INTERVAL_EDIT, L"12.5");
        window.Type(NORMAL_CROWN_EDIT, L"1.5");
        Choose(window, METHOD_LIST, L"IP法");
        Choose(window, LANES_LIST, L"一車線道路");
        Choose(window, SUPERELEVATION_DEFINITION_LIST, L"任意片勾配");
        Select(window, {POINTS_ITEM});
        const DlgDataAlignments& route = *Data().alignmentsList[0];
        EXPECT_EQ(route.roadClassification, L"第1種第1級");
        EXPECT_EQ(route.trafficVolume, L"77");
        const DlgDataAlignment& alignment = *route.alignments[1];
        EXPECT_EQ(alignment.mainInterval, L"25");
        EXPECT_EQ(alignment.subInterval, L"12.5");
        EXPECT_EQ(alignment.normalCrown, L"1.5");
        EXPECT_EQ(alignment.method, L"IP法");
        EXPECT_EQ(alignment.singleLaneRoad, 1);
        EXPECT_EQ(alignment.useSlopeList, 1);
        Select(window, {ROAD_ITEM, 1});
        Choose(window, LANES_LIST, L"多車線道路");
        Choose(window, SUPERELEVATION_DEFINITION_LIST, L"片勾配すりつけ");
        Select(window, {POINTS_ITEM});
        EXPECT_EQ(alignment.singleLaneRoad, 0);
        EXPECT_EQ(alignment.useSlopeList, 0);
    });
}

TEST_F(ConvertDlgSelection, ASurfaceIsReadBack)
{
    OpenAt({SURFACES_ITEM, 1}, [&](ScriptedDialog& window) {
        Choose(window, SURFACE_REFERENCE_LIST, L"支線");
        Choose(window, SURFACE_KIND_LIST, L"掘削面");
        Select(window, {SURFACES_ITEM, 0});
        const DlgDataSurface& surface = *Data().surfacesList[0]->surfaces[1];
        EXPECT_EQ(surface.alignmentRefs, L"支線");
        EXPECT_EQ(surface.kind, L"Excavation");
        EXPECT_EQ(surface.loadedKind, L"ExistingGround");
        Select(window, {SURFACES_ITEM, 1});
        EXPECT_EQ(window.Text(SURFACE_REFERENCE_LIST), L"支線");
        EXPECT_TRUE(window.IsEnabled(SURFACE_REFERENCE_LIST));
    });
}

TEST_F(ConvertDlgSelection, PointGroupsAreReadBack)
{
    OpenAt({POINTS_ITEM, 0}, [&](ScriptedDialog& window) {
        Choose(window, INTERMEDIATE_REFERENCE_LIST, L"堤防");
        Select(window, {POINTS_ITEM, 2});
        EXPECT_EQ(Data().cgPointsList.intermediate[0]->alignmentRefs, L"堤防");
        Choose(window, WIDTH_STAKE_REFERENCE_LIST, L"本線");
        Choose(window, CLOSURE_TYPE_LIST, L"開放型");
        window.Type(WIDTH_STAKE_DESC_EDIT, L"");
        Select(window, {POINTS_ITEM});
        const DlgDataCgPointsWidthStake& group = *Data().cgPointsList.widthStakes[0];
        EXPECT_EQ(group.alignmentRefs, L"本線");
        EXPECT_EQ(group.type, L"open");
        EXPECT_EQ(group.desc, NO_TEXT);
    });
}

TEST_F(ConvertDlgSelection, AnEntryWithoutATextLeavesTheReferenceEmpty)
{
    Model().alignments[0].alignments[0].name.clear();
    OpenAt({POINTS_ITEM, 0}, [&](ScriptedDialog& window) {
        EXPECT_EQ(window.Entries(INTERMEDIATE_REFERENCE_LIST), (Lines{L"", L"支線", L"堤防"}));
        EXPECT_TRUE(window.ChooseEntry(INTERMEDIATE_REFERENCE_LIST, 0));
        Select(window, {POINTS_ITEM});
        EXPECT_EQ(Data().cgPointsList.intermediate[0]->alignmentRefs, NO_TEXT);
    });
}

TEST_F(ConvertDlgSelection, AGroupWithoutAReferenceIsReported)
{
    OpenAt({POINTS_ITEM, 0}, [&](ScriptedDialog& window) {
        window.Click(OUTPUT_BUTTON);
        const Lines& errors = Data().errors;
        EXPECT_EQ(std::count(errors.begin(), errors.end(), L"中間点の参照線形が入力されていません。"), 1);
        EXPECT_EQ(std::count(errors.begin(), errors.end(), L"幅杭の参照線形が入力されていません。"), 1);
    });
}

TEST_F(ConvertDlgSelection, TheProjectIsReadBackAtTheOutputCommandAlone)
{
    OpenAt({ROAD_ITEM}, [&](ScriptedDialog& window) {
        window.Type(PROJECT_NAME_EDIT, L"別の工事");
        Choose(window, PROJECT_PHASE_LIST, L"施工");
        Choose(window, APPLICATION_CRITERION_LIST, L"1.5");
        Choose(window, VERTICAL_DATUM_LIST, L"A.P（吉野川）");
        Select(window, {RIVER_ITEM});
        EXPECT_EQ(Data().projectName, L"改良工事");
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Data().projectName, L"別の工事");
        EXPECT_EQ(Data().projectPhase, L"施工");
        EXPECT_EQ(Data().applicationCriterion, L"MlitLandXmlVer.1.5");
        EXPECT_EQ(Data().softwareName, L"Kelmora");
        EXPECT_EQ(Data().softwareVersion, L"2027");
        EXPECT_EQ(Data().horizontalDatum, L"JGD2024");
        EXPECT_EQ(Data().horizontalCoordinateSystemName, L"9(X,Y)");
        EXPECT_EQ(Data().verticalDatum, L"A.P");
        EXPECT_EQ(Data().differTP, L"-0.8333");
        window.SelectEntry(VERTICAL_DATUM_LIST, DialogWindow::NO_ENTRY);
        window.SelectEntry(PROJECT_PHASE_LIST, DialogWindow::NO_ENTRY);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Data().projectPhase, L"施工");
        EXPECT_EQ(Data().verticalDatum, L"A.P");
        EXPECT_EQ(Data().differTP, L"0.0000");
    });
}

// Typing

class ConvertDlgTyping : public ConvertDlgTest, public testing::WithParamInterface<int>
{
  protected:
    ConvertDlgTyping() { LoadSample(); }

    /// What stands in the control after each character.
    static Lines Typed(ScriptedDialog& window, const std::wstring& characters)
    {
        Lines texts;
        for (const wchar_t character : characters)
        {
            EXPECT_TRUE(window.TypeCharacter(GetParam(), character));
            texts.push_back(window.Text(GetParam()));
        }
        return texts;
    }
};

TEST_P(ConvertDlgTyping, TakesBackWhatIsNoNumber)
{
    Open([](ScriptedDialog& window) {
        Select(window, {ROAD_ITEM, 1});
        window.Type(GetParam(), L"");
        EXPECT_EQ(Typed(window, L"1.5.x e-７9"),
                  (Lines{L"1", L"1.", L"1.5", L"1.5", L"1.5", L"1.5", L"1.5", L"1.5", L"1.5", L"1.59"}));
        window.Type(GetParam(), L"");
        EXPECT_EQ(Typed(window, L".-0010.1"), (Lines{L"", L"", L"0", L"0", L"0", L"0", L"0.", L"0.1"}));
    });
}

TEST_P(ConvertDlgTyping, TakesBackWhatIsTooLarge)
{
    const bool traffic = GetParam() == TRAFFIC_VOLUME_EDIT;
    Open([&](ScriptedDialog& window) {
        Select(window, {ROAD_ITEM, 1});
        window.Type(GetParam(), L"");
        EXPECT_EQ(Typed(window, L"1234567").back(), traffic ? L"123456" : L"1234");
        window.Type(GetParam(), traffic ? L"999999" : L"9999.999");
        EXPECT_EQ(Typed(window, traffic ? L".1" : L"1").back(), traffic ? L"999999." : L"9999.999");
    });
}

TEST_P(ConvertDlgTyping, TakesTenDecimals)
{
    Open([&](ScriptedDialog& window) {
        Select(window, {ROAD_ITEM, 1});
        window.Type(GetParam(), L"");
        EXPECT_EQ(Typed(window, L"1.01234567899").back(), L"1.0123456789");
    });
}

TEST_P(ConvertDlgTyping, AcceptsAnEmptyText)
{
    Open([](ScriptedDialog& window) {
        Select(window, {ROAD_ITEM, 1});
        window.Type(GetParam(), L"5");
        window.Type(GetParam(), L"");
        EXPECT_EQ(window.Text(GetParam()), NO_TEXT);
        window.Type(GetParam(), L"x");
        EXPECT_EQ(window.Text(GetParam()), NO_TEXT);
    });
}

TEST_P(ConvertDlgTyping, ShowsNoMessage)
{
    Open([](ScriptedDialog& window) {
        Select(window, {ROAD_ITEM, 1});
        Typed(window, L"1.5.x");
    });
    EXPECT_EQ(windows.Messages(), std::vector<ShownMessage>{});
}

TEST_P(ConvertDlgTyping, WithoutAFormerTextLeavesWhatStands)
{
    Open([](ScriptedDialog& window) {
        // Nothing has been shown in the control yet.
        window.SetText(GetParam(), L"1e3");
        EXPECT_EQ(window.Text(GetParam()), L"1e3");
        window.SetText(GetParam(), L"13");
        window.SetText(GetParam(), L"1e3");
        EXPECT_EQ(window.Text(GetParam()), L"13");
    });
}

INSTANTIATE_TEST_SUITE_P(ConvertDlg, ConvertDlgTyping,
                         testing::Values(MAIN_INTERVAL_EDIT, SUB_INTERVAL_EDIT, NORMAL_CROWN_EDIT, TRAFFIC_VOLUME_EDIT),
                         [](const auto& row) { return "Control" + std::to_string(row.param); });

TEST_F(ConvertDlgSelection, OtherEditsTakeAnyText)
{
    OpenAt({POINTS_ITEM, 2}, [](ScriptedDialog& window) {
        for (const int edit : {PROJECT_NAME_EDIT, WIDTH_STAKE_DESC_EDIT})
        {
            window.Type(edit, L"1e3 -x");
            EXPECT_EQ(window.Text(edit), L"1e3 -x");
        }
    });
}

TEST_F(ConvertDlgSelection, WhatTheFilterRefusesOfTheModelIsShownEmpty)
{
    Model().alignments[0].trafficVolume = L"1e3";
    Model().alignments[0].alignments[0].mainInterval = 12345.0;
    Model().alignments[0].alignments[0].normalCrown = -2.0;
    OpenAt({ROAD_ITEM, 0}, [&](ScriptedDialog& window) {
        EXPECT_EQ(window.Text(TRAFFIC_VOLUME_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), NO_TEXT);
        EXPECT_EQ(window.Text(NORMAL_CROWN_EDIT), NO_TEXT);
        Select(window, {RIVER_ITEM});
        EXPECT_EQ(Data().alignmentsList[0]->trafficVolume, NO_TEXT);
        EXPECT_EQ(Data().alignmentsList[0]->alignments[0]->mainInterval, L"12345.0000");
        EXPECT_EQ(Data().alignmentsList[0]->alignments[0]->normalCrown, NO_TEXT);
    });
}

TEST_F(ConvertDlgSelection, WhatIsPutBackIsOfTheObjectThatIsShown)
{
    OpenAt({ROAD_ITEM, 0}, [](ScriptedDialog& window) {
        window.Type(NORMAL_CROWN_EDIT, L"3");
        Select(window, {ROAD_ITEM, 1});
        window.Type(NORMAL_CROWN_EDIT, L"x");
        EXPECT_EQ(window.Text(NORMAL_CROWN_EDIT), NO_TEXT);
    });
}

// Output

class ConvertDlgOutput : public ConvertDlgTest
{
  protected:
    /// A work file of one road with one alignment and one surface, to which only a class has to be chosen.
    void LoadRoad() const
    {
        LoadRun(WorkFile("<LandXML><Project name=\"n\"/><CoordinateSystem name=\"c\"/><Surfaces><Surface name=\"s\" "
                         "desc=\"SubBase\"/></Surfaces><Alignments name=\"r\"><Alignment name=\"a\"/></Alignments>"
                         "</LandXML>"));
        Model().project.name = L"工事";
        Model().coordinateSystem.horizontalDatum = L"JGD2011";
        Model().coordinateSystem.horizontalCoordinateSystemName = L"9(X,Y)";
        FViewAlignments& route = Model().alignments.at(0);
        route.designGmType = L"道路";
        route.trafficVolume = L"1000";
        route.alignments.at(0).mainInterval = 20.0;
        route.alignments.at(0).normalCrown = 2.0;
    }

    ConvertDlgOutput()
    {
        LoadRoad();
        windows.SetSaveFileAnswer([this](const SaveFileRequest& request) -> std::optional<std::wstring> {
            requests.push_back(request);
            if (targets.empty())
            {
                return std::nullopt;
            }
            const std::wstring target = targets.front();
            targets.erase(targets.begin());
            return target;
        });
    }

    static void Complete(ScriptedDialog& window)
    {
        Select(window, {0});
        Choose(window, ROAD_CLASSIFICATION_LIST, L"第3種第2級");
    }

    std::vector<SaveFileRequest> requests;
    Lines targets; ///< what the save dialog answers, in order; cancelled when there is none left
};

TEST_F(ConvertDlgOutput, WritesTheFileAndEndsAccepted)
{
    targets = {folder.Name(L"out.xml")};
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  Complete(window);
                  EXPECT_TRUE(window.Click(OUTPUT_BUTTON));
                  EXPECT_TRUE(window.HasEnded());
              }),
              DialogResult::Accepted);
    EXPECT_TRUE(Context().fileWritten);
    EXPECT_NE(folder.Read(L"out.xml").find("第3種第2級"), std::string::npos);
    EXPECT_EQ(findings, std::vector<Lines>{});
    EXPECT_EQ(windows.Messages(), std::vector<ShownMessage>{});
    const Lines& records = windows.Records();
    const Lines last(records.end() - 5, records.end());
    EXPECT_EQ(last, (Lines{L"click 1", L"save " + folder.Name(L"out.xml"), L"wait", L"go on",
                           L"close J-LandXML出力設定 accepted"}));
}

TEST_F(ConvertDlgOutput, AsksForAnXmlFileWithoutAName)
{
    Open([&](ScriptedDialog& window) {
        Complete(window);
        window.Click(OUTPUT_BUTTON);
    });
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_STREQ(requests[0].defaultExtension, L"xml");
    EXPECT_STREQ(requests[0].fileName, L"");
    EXPECT_STREQ(requests[0].filter, L"XML Files (*.xml)|*.xml|All Files (*.*)|*.*||");
}

TEST_F(ConvertDlgOutput, EnterGivesTheOutputCommand)
{
    targets = {folder.Name(L"out.xml")};
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  Complete(window);
                  window.PressEnter();
              }),
              DialogResult::Accepted);
}

TEST_F(ConvertDlgOutput, FindingsAreListedOverTheDialogThatStaysOpen)
{
    const std::wstring before = Dump(Model());
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  window.Type(PROJECT_NAME_EDIT, L"");
                  window.Click(OUTPUT_BUTTON);
                  EXPECT_FALSE(window.HasEnded());
                  EXPECT_EQ(Data().errors, (Lines{L"プロジェクト名称が入力されていません。",
                                                  L"道路の規格・等級が入力されていません。"}));
                  EXPECT_TRUE(window.CanReach(OUTPUT_BUTTON));
                  window.Click(OUTPUT_BUTTON);
              }),
              DialogResult::Cancelled);
    const Lines listed = {L"プロジェクト名称が入力されていません。", L"道路の規格・等級が入力されていません。"};
    EXPECT_EQ(findings, (std::vector<Lines>{listed, listed}));
    EXPECT_EQ(requests.size(), 0U);
    EXPECT_EQ(Dump(Model()), before);
}

TEST_F(ConvertDlgOutput, FindingsAreCopiedInTheOrderFoundAndShownInTextOrder)
{
    LoadSample();
    Lines added;
    Lines shown;
    Lines errors;
    Open([&](ScriptedDialog& window) {
        window.Type(PROJECT_NAME_EDIT, L"");
        windows.SetUser([&](ScriptedDialog& list) {
            EXPECT_FALSE(window.CanReach(OUTPUT_BUTTON));
            added = list.AddedEntries(JLandXMLErrorDlg::MESSAGE_LIST);
            shown = list.Entries(JLandXMLErrorDlg::MESSAGE_LIST);
            list.Click(ACCEPT_COMMAND);
        });
        window.Click(OUTPUT_BUTTON);
        errors = Data().errors;
    });
    EXPECT_EQ(added, errors);
    EXPECT_NE(shown, errors);
    std::sort(shown.begin(), shown.end());
    std::sort(errors.begin(), errors.end());
    EXPECT_EQ(shown, errors);
}

TEST_F(ConvertDlgOutput, TwoRoutesWithTheSameGapAreListedTwice)
{
    Model().alignments.push_back(Model().alignments.front());
    Open([](ScriptedDialog& window) { window.Click(OUTPUT_BUTTON); });
    const std::wstring finding = L"道路の規格・等級が入力されていません。";
    EXPECT_EQ(findings, std::vector<Lines>{(Lines{finding, finding})});
}

TEST_F(ConvertDlgOutput, AClassificationOfTheInputHasToBeChosenAgain)
{
    Model().alignments[0].roadClassification = L"第1種第1級";
    Open([&](ScriptedDialog& window) {
        Select(window, {0});
        EXPECT_EQ(window.Text(ROAD_CLASSIFICATION_LIST), NO_TEXT);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(findings.back(), Lines{L"道路の規格・等級が入力されていません。"});
        Choose(window, ROAD_CLASSIFICATION_LIST, L"第1種第1級");
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(findings.size(), 1U);
        EXPECT_EQ(requests.size(), 1U);
    });
}

TEST_F(ConvertDlgOutput, AFlagWithoutAValueStaysSoUnlessItsAlignmentIsSelected)
{
    FViewAlignment& alignment = Model().alignments[0].alignments[0];
    alignment.singleLaneRoad = alignment.useSlopeList = -1;
    Open([&](ScriptedDialog& window) {
        Complete(window);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(alignment.singleLaneRoad, -1);
        EXPECT_EQ(alignment.useSlopeList, -1);
        Select(window, {0, 0});
        EXPECT_EQ(window.Text(LANES_LIST), L"一車線道路");
        EXPECT_EQ(window.Text(SUPERELEVATION_DEFINITION_LIST), L"任意片勾配");
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(alignment.singleLaneRoad, 1);
        EXPECT_EQ(alignment.useSlopeList, 1);
    });
    EXPECT_EQ(requests.size(), 2U);
    EXPECT_EQ(findings, std::vector<Lines>{});
}

TEST_F(ConvertDlgOutput, ACancelledFileChoiceKeepsTheDialogOpenAndTheModelApplied)
{
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  Complete(window);
                  window.Click(OUTPUT_BUTTON);
                  EXPECT_FALSE(window.HasEnded());
                  EXPECT_EQ(Model().alignments[0].roadClassification, L"第3種第2級");
              }),
              DialogResult::Cancelled);
    EXPECT_FALSE(Context().fileWritten);
}

TEST_F(ConvertDlgOutput, OutputAfterACancelledFileChoiceAppliesAgainWithTheSameResult)
{
    targets = {folder.Name(L"once.xml")};
    Open([&](ScriptedDialog& window) {
        Complete(window);
        window.Click(OUTPUT_BUTTON);
    });
    const std::wstring once = Dump(Model());
    const std::string file = folder.Read(L"once.xml");

    LoadRoad();
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  Complete(window);
                  window.Click(OUTPUT_BUTTON);
                  const std::wstring applied = Dump(Model());
                  targets = {folder.Name(L"twice.xml")};
                  window.Click(OUTPUT_BUTTON);
                  EXPECT_EQ(Dump(Model()), applied);
              }),
              DialogResult::Accepted);
    EXPECT_EQ(Dump(Model()), once);
    EXPECT_EQ(folder.Read(L"twice.xml"), file);
}

TEST_F(ConvertDlgOutput, ATargetThatCannotBeWrittenEndsTheDialogInSilence)
{
    targets = {folder.Name(L"missing/out.xml")};
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  Complete(window);
                  window.Click(OUTPUT_BUTTON);
              }),
              DialogResult::Accepted);
    EXPECT_FALSE(Context().fileWritten);
    EXPECT_EQ(windows.Messages(), std::vector<ShownMessage>{});
}

TEST_F(ConvertDlgOutput, ClosingTheDialogLeavesTheModelAsItWasLoaded)
{
    const std::wstring before = Dump(Model());
    for (const bool escape : {false, true})
    {
        EXPECT_EQ(Open([&](ScriptedDialog& window) {
                      Complete(window);
                      window.Type(TRAFFIC_VOLUME_EDIT, L"5");
                      window.Type(PROJECT_NAME_EDIT, L"");
                      window.Click(OUTPUT_BUTTON);
                      EXPECT_TRUE(escape ? window.PressEscape() : window.Click(CANCEL_COMMAND));
                      EXPECT_TRUE(window.HasEnded());
                  }),
                  DialogResult::Cancelled);
        EXPECT_EQ(Dump(Model()), before);
    }
    EXPECT_EQ(findings.size(), 2U);
    EXPECT_EQ(folder.Files(), Lines{L"Landxml_temp.xml"});
}

} // namespace
} // namespace jlandxml
