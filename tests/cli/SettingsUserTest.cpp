#include "cli/SettingsUser.h"

#include "base/Text.h"
#include "dialog/JLandXmlConvertDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "support/RowName.h"
#include "support/RunFixture.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <random>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;

FViewAlignment Alignment(const wchar_t* name, const wchar_t* method, double mainInterval, double subInterval)
{
    FViewAlignment alignment;
    alignment.name = name;
    alignment.method = method;
    alignment.mainInterval = mainInterval;
    alignment.subInterval = subInterval;
    return alignment;
}

FViewSurface Surface(const wchar_t* name, const wchar_t* desc, const wchar_t* alignmentRefs)
{
    FViewSurface surface;
    surface.name = name;
    surface.desc = desc;
    surface.alignmentRefs = alignmentRefs;
    return surface;
}

/// Every kind of object of the tree, one locked and one not.
FViewLandXML ExampleModel()
{
    FViewLandXML model;
    model.project.name = L"路線";
    FViewAlignments& road = model.alignments.emplace_back();
    road.name = L"国道";
    road.designGmType = L"道路";
    road.alignments.push_back(Alignment(L"本線", L"", UNSET_DOUBLE, UNSET_DOUBLE));
    road.alignments.push_back(Alignment(L"支線", L"IP法", 20.0, 5.0));
    FViewAlignments& river = model.alignments.emplace_back();
    river.designGmType = L"河川";
    river.alignments.push_back(Alignment(L"堤防法線", L"", UNSET_DOUBLE, UNSET_DOUBLE));
    model.surfaces.emplace_back().surfaces.push_back(Surface(L"地盤", L"ExistingGround", L""));
    model.surfaces.front().surfaces.push_back(Surface(L"計画", L"FinishedGrade", L"本線"));
    model.surfaces.emplace_back();
    model.intermediatePoints.emplace_back();
    model.intermediatePoints.emplace_back().alignmentRefs = L"本線";
    model.widthStakePoints.emplace_back();
    model.widthStakePoints.emplace_back().alignmentRefs = L"堤防法線";
    return model;
}

class SettingsUserTest : public RunTest
{
  protected:
    SettingsUserTest() { Context().model = ExampleModel(); }

    /// Opens the dialog and lets someone work it.
    void Open(const std::function<void(ScriptedDialog&)>& work)
    {
        windows.SetUser(work);
        JLandXmlConvertDlg dialog;
        dialog.DoModal();
    }

    /// Acts settings out and then looks at the dialog. Gives the settings error.
    std::string Act(
        const std::string& settings, const std::function<void(ScriptedDialog&)>& look = [](ScriptedDialog&) {})
    {
        std::string error;
        Open([&](ScriptedDialog& dialog) {
            try
            {
                SettingsUser(dialog).Act(Json::parse(settings));
            }
            catch (const SettingsError& settingsError)
            {
                error = settingsError.what();
            }
            look(dialog);
        });
        return error;
    }

    PrintedJson ActAndPrint(const std::string& settings)
    {
        PrintedJson printed;
        EXPECT_EQ(Act(settings, [&](ScriptedDialog& dialog) { printed = SettingsUser(dialog).Print(); }), "");
        return printed;
    }

    /// What the user did after the dialog had opened: items selected, entries chosen, radios clicked, and texts that
    /// aren't empty.
    std::vector<std::wstring> Deeds() const
    {
        const auto opened =
            std::find(windows.Records().begin(), windows.Records().end(), std::wstring(L"raise ") + TEMPLATE.caption);
        std::vector<std::wstring> deeds;
        std::copy_if(opened, windows.Records().end(), std::back_inserter(deeds), [](const std::wstring& record) {
            return record.starts_with(L"select ") || record.starts_with(L"choose ") || record.starts_with(L"click ") ||
                   (record.starts_with(L"text ") && !record.ends_with(L" "));
        });
        return deeds;
    }
};

// Controls

struct KeyCase
{
    const char* settings;
    int control;
    const wchar_t* shown;
};

constexpr KeyCase KEYS[] = {
    {R"({"projectName": "県道"})", PROJECT_NAME_EDIT, L"県道"},
    {R"({"projectName": ""})", PROJECT_NAME_EDIT, L""},
    {R"({"projectPhase": "施工"})", PROJECT_PHASE_LIST, L"施工"},
    {R"({"applicationCriterion": "1.7"})", APPLICATION_CRITERION_LIST, L"1.7"},
    {R"({"verticalDatum": "K.P（北上川）"})", VERTICAL_DATUM_LIST, L"K.P（北上川）"},
    {R"({"routes": [{"roadClassification": "第4種第4級"}]})", ROAD_CLASSIFICATION_LIST, L"第4種第4級"},
    {R"({"routes": [{"trafficVolume": "8500"}]})", TRAFFIC_VOLUME_EDIT, L"8500"},
    {R"({"routes": [null, {"riverClassification": "準用"}]})", RIVER_CLASSIFICATION_LIST, L"準用"},
    {R"({"routes": [null, {"side": "左岸"}]})", RIVER_SIDE_LIST, L"左岸"},
    {R"({"routes": [{"alignments": [{"mainInterval": "20"}]}]})", MAIN_INTERVAL_EDIT, L"20"},
    {R"({"routes": [{"alignments": [{"subInterval": "0.5"}]}]})", SUB_INTERVAL_EDIT, L"0.5"},
    {R"({"routes": [{"alignments": [{"method": "IP法"}]}]})", METHOD_LIST, L"IP法"},
    {R"({"routes": [{"alignments": [null, {"normalCrown": "1.5"}]}]})", NORMAL_CROWN_EDIT, L"1.5"},
    {R"({"routes": [{"alignments": [{"singleLaneRoad": true}]}]})", LANES_LIST, L"一車線道路"},
    {R"({"routes": [{"alignments": [{"singleLaneRoad": false}]}]})", LANES_LIST, L"多車線道路"},
    {R"({"routes": [{"alignments": [{"useSlopeList": true}]}]})", SUPERELEVATION_DEFINITION_LIST, L"任意片勾配"},
    {R"({"routes": [{"alignments": [{"useSlopeList": false}]}]})", SUPERELEVATION_DEFINITION_LIST, L"片勾配すりつけ"},
    {R"({"surfaceSets": [{"surfaces": [{"alignmentRefs": "堤防法線"}]}]})", SURFACE_REFERENCE_LIST, L"堤防法線"},
    {R"({"surfaceSets": [{"surfaces": [null, {"kind": "その他"}]}]})", SURFACE_KIND_LIST, L"その他"},
    {R"({"intermediatePoints": [{"alignmentRefs": "支線"}]})", INTERMEDIATE_REFERENCE_LIST, L"支線"},
    {R"({"widthStakes": [{"alignmentRefs": "本線"}]})", WIDTH_STAKE_REFERENCE_LIST, L"本線"},
    {R"({"widthStakes": [{"type": "閉合型"}]})", CLOSURE_TYPE_LIST, L"閉合型"},
    {R"({"widthStakes": [null, {"desc": "用地境界"}]})", WIDTH_STAKE_DESC_EDIT, L"用地境界"},
    // Named by the stored value.
    {R"({"applicationCriterion": "MlitLandXmlVer.1.5"})", APPLICATION_CRITERION_LIST, L"1.5"},
    {R"({"verticalDatum": "B.S.L"})", VERTICAL_DATUM_LIST, L"B.S.L（琵琶湖）"},
    {R"({"surfaceSets": [{"surfaces": [{"kind": "SoilLayer"}]}]})", SURFACE_KIND_LIST, L"地層境界面"},
    {R"({"widthStakes": [{"type": "closed"}]})", CLOSURE_TYPE_LIST, L"閉合型"},
    // A stored value of two entries means the first; the second has its shown text.
    {R"({"verticalDatum": "A.P"})", VERTICAL_DATUM_LIST, L"A.P（荒川・中川・多摩川）"},
    {R"({"verticalDatum": "A.P（吉野川）"})", VERTICAL_DATUM_LIST, L"A.P（吉野川）"},
};

class SettingsUserKeys : public SettingsUserTest, public testing::WithParamInterface<KeyCase>
{};

TEST_P(SettingsUserKeys, ReachTheirControl)
{
    const KeyCase& key = GetParam();
    EXPECT_EQ(Act(key.settings, [&](ScriptedDialog& dialog) { EXPECT_EQ(dialog.Text(key.control), key.shown); }), "");
}

INSTANTIATE_TEST_SUITE_P(Cli, SettingsUserKeys, testing::ValuesIn(KEYS), [](const auto& row) {
    return std::to_string(row.index) + RowName(WideFromUtf8(row.param.settings));
});

TEST_F(SettingsUserTest, TheKindOfARouteClicksItsRadioAndOpensItsKeys)
{
    const char* const settings = R"({"routes": [
        {"side": "右岸", "riverClassification": "1級", "designGmType": "河川"},
        {"trafficVolume": "100", "roadClassification": "第3種第2級", "designGmType": "道路"}]})";
    EXPECT_EQ(Act(settings), "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"select 1019 国道", L"click 1022", L"choose 1025 1級",
                                                  L"choose 1030 右岸", L"select 1019 路線1", L"click 1020",
                                                  L"choose 1023 第3種第2級", L"text 1029 100"}));
}

TEST_F(SettingsUserTest, AShownTextWinsOverAStoredValue)
{
    Open([](ScriptedDialog& dialog) {
        dialog.AddEntry(APPLICATION_CRITERION_LIST, L"MlitLandXmlVer.1.5", L"other");
        SettingsUser(dialog).Act(Json::parse(R"({"applicationCriterion": "MlitLandXmlVer.1.5"})"));
        EXPECT_EQ(dialog.Text(APPLICATION_CRITERION_LIST), L"MlitLandXmlVer.1.5");
    });
}

TEST_F(SettingsUserTest, AReferenceIsNamedByItsTextAlone)
{
    Open([](ScriptedDialog& dialog) {
        SettingsUser user(dialog);
        user.Act(Json::parse(R"({"surfaceSets": [{"surfaces": [{}]}]})"));
        dialog.AddEntry(SURFACE_REFERENCE_LIST, L"別線", L"stored");
        const Json settings = Json::parse(R"({"surfaceSets": [{"surfaces": [{"alignmentRefs": "stored"}]}]})");
        EXPECT_THROW(user.Act(settings), SettingsError);
    });
}

TEST_F(SettingsUserTest, ATextIsOneChange)
{
    EXPECT_EQ(Act(R"({"projectName": "abc"})"), "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"text 1002 abc"}));
}

// Order

TEST_F(SettingsUserTest, ActsInTheOrderOfTheDialogWhateverTheOrderInTheFile)
{
    const char* const settings = R"({
        "widthStakes": [{"desc": "d", "type": "open", "alignmentRefs": "本線"}, {"desc": "e"}],
        "intermediatePoints": [{"alignmentRefs": "支線"}],
        "surfaceSets": [{"surfaces": [{"kind": "Other", "alignmentRefs": "本線"}, {"kind": "Other"}]}],
        "routes": [
            {"alignments": [
                {"useSlopeList": true, "singleLaneRoad": true, "normalCrown": "2", "method": "IP法",
                 "subInterval": "5", "mainInterval": "10"},
                {"normalCrown": "1.5"}],
             "trafficVolume": "9", "roadClassification": "第1種第1級", "designGmType": "道路"},
            {"alignments": [{}], "side": "左岸", "riverClassification": "普通"}],
        "verticalDatum": "T.P", "applicationCriterion": "1.5", "projectPhase": "概略", "projectName": "名"})";
    EXPECT_EQ(Act(settings), "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{
                           L"text 1002 名",
                           L"choose 1006 概略",
                           L"choose 1007 1.5",
                           L"choose 1014 T.P（東京湾中等潮位）",
                           L"select 1019 国道",
                           L"click 1020",
                           L"choose 1023 第1種第1級",
                           L"text 1029 9",
                           L"select 1019 本線",
                           L"text 1029 9", // the route's panel is shown anew beside the alignment's
                           L"text 1035 10",
                           L"text 1037 5",
                           L"choose 1040 IP法",
                           L"text 1042 2",
                           L"choose 1045 一車線道路",
                           L"choose 1047 任意片勾配",
                           L"select 1019 支線",
                           L"text 1035 20.0000",
                           L"text 1037 5.0000",
                           L"text 1029 9",
                           L"text 1042 1.5",
                           L"select 1019 路線1",
                           L"choose 1025 普通",
                           L"choose 1030 左岸",
                           L"select 1019 堤防法線",
                           L"select 1019 地盤",
                           L"choose 1050 本線",
                           L"choose 1053 その他",
                           L"select 1019 計画",
                           L"choose 1053 その他",
                           L"select 1019 IntermediatePnts-1",
                           L"choose 1054 支線",
                           L"select 1019 WidthStakePnts-1",
                           L"choose 1057 本線",
                           L"choose 1060 開放型",
                           L"text 1062 d",
                           L"select 1019 WidthStakePnts-2",
                           L"text 1062 e",
                       }));
}

TEST_F(SettingsUserTest, AnEmptyObjectIsVisitedAndNullIsNot)
{
    EXPECT_EQ(Act(R"({"routes": [null, {"alignments": [{}]}], "surfaceSets": [{"surfaces": [null, {}]}, {}],
                      "intermediatePoints": [null], "widthStakes": [null, {}, null]})"),
              "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"select 1019 路線1", L"select 1019 堤防法線", L"select 1019 計画",
                                                  L"select 1019 WidthStakePnts-2"}));
}

TEST_F(SettingsUserTest, WithoutSettingsNothingIsTouched)
{
    EXPECT_EQ(Act("{}"), "");
    EXPECT_TRUE(Deeds().empty());
}

TEST_F(SettingsUserTest, AKeyThatIsNullIsNotTouched)
{
    EXPECT_EQ(Act(R"({"projectName": null, "projectPhase": null, "routes": null})"), "");
    EXPECT_TRUE(Deeds().empty());
}

TEST_F(SettingsUserTest, CommentsAreNotActedOn)
{
    EXPECT_EQ(Act(R"({"_projectName": "a", "_routes": [{}], "_locked": {"projectName": "b"}})"), "");
    EXPECT_TRUE(Deeds().empty());
}

TEST_F(SettingsUserTest, NullBehindTheLastObjectIsHarmless)
{
    EXPECT_EQ(Act(R"({"routes": [null, {"alignments": [null, null]}, null, null],
                      "surfaceSets": [null, {"surfaces": [null]}, null], "widthStakes": [null, null, null]})"),
              "");
}

TEST_F(SettingsUserTest, BehindAnErrorTheActingGoesOnAndEveryErrorIsTold)
{
    EXPECT_EQ(Act(R"({"projectName": "a", "projectPhase": "b", "applicationCriterion": "1.7",
                      "routes": [{"side": "左岸"}, null, {}]})"),
              "projectPhase: 「b」は選択できません（選択肢: 概略、予備、詳細、施工）\n"
              "routes[0].side: 道路の路線では入力できません\n"
              "routes[2]: 路線は2件です（routes[0]～routes[1]）");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"text 1002 a", L"choose 1007 1.7", L"select 1019 国道"}));
}

TEST_F(SettingsUserTest, AnErrorNamesItsObject)
{
    Open([&](ScriptedDialog& dialog) {
        try
        {
            SettingsUser(dialog).Act(Json::parse(R"({"projectPhase": "b", "widthStakes": [{"type": "x"}],
                "routes": [{"side": "左岸", "alignments": [null, {"method": "x"}, {}]}]})"));
            ADD_FAILURE();
        }
        catch (const SettingsError& error)
        {
            std::vector<std::string> objects;
            std::transform(error.Faults().begin(), error.Faults().end(), std::back_inserter(objects),
                           [](const SettingsFault& fault) { return fault.object; });
            EXPECT_EQ(objects, (std::vector<std::string>{"", "国道", "国道／支線", "国道", "WidthStakePnts-1"}));
        }
    });
}

// Objects by names

TEST_F(SettingsUserTest, ANamedObjectIsActedOnAndAStarStandsForEveryOther)
{
    EXPECT_EQ(Act(R"({"routes": {"国道": {"trafficVolume": "1", "alignments": {"支線": {"normalCrown": "2"}}},
                                 "*": {"alignments": {"*": {"normalCrown": "3"}}}},
                      "surfaceSets": {"サーフェスセット1": {"surfaces": {"*": {"kind": "その他"}}}},
                      "widthStakes": {"WidthStakePnts-2": {"desc": "d"}}})"),
              "");
    EXPECT_EQ(Deeds(),
              (std::vector<std::wstring>{L"select 1019 国道", L"text 1029 1", L"select 1019 支線", L"text 1035 20.0000",
                                         L"text 1037 5.0000", L"text 1029 1", L"text 1042 2", L"select 1019 路線1",
                                         L"select 1019 堤防法線", L"text 1042 3", L"select 1019 地盤",
                                         L"choose 1053 その他", L"select 1019 計画", L"choose 1053 その他",
                                         L"select 1019 WidthStakePnts-2", L"text 1062 d"}));
}

TEST_F(SettingsUserTest, ANamedObjectThatIsNullIsNotVisitedByTheStarEither)
{
    EXPECT_EQ(Act(R"({"routes": {"国道": null, "*": {}}})"), "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"select 1019 路線1"}));
}

TEST_F(SettingsUserTest, ANameOfSeveralObjectsMeansEachOfThem)
{
    Context().model.alignments.back().name = L"国道";
    EXPECT_EQ(Act(R"({"routes": {"国道": {}}})"), "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"select 1019 国道", L"select 1019 国道"}));
}

TEST_F(SettingsUserTest, ANameThatBeginsAsACommentIsReachedByTheStarAlone)
{
    Context().model.alignments.front().name = L"_国道";
    EXPECT_EQ(Act(R"({"routes": {"_国道": {"trafficVolume": "1"}, "_注": 1, "県道": null, "路線1": null, "*": {}}})"),
              "");
    EXPECT_EQ(Deeds(), (std::vector<std::wstring>{L"select 1019 _国道"}));
}

TEST_F(SettingsUserTest, AStarWithoutObjectsIsHarmless)
{
    EXPECT_EQ(Act(R"({"surfaceSets": [null, {"surfaces": {"*": {"kind": "その他"}}}]})"), "");
}

TEST_F(SettingsUserTest, WhatIsOutOfReachCanBePassedOver)
{
    Open([&](ScriptedDialog& dialog) {
        SettingsUser user(dialog, Unreachable::IsPassedOver);
        user.Act(Json::parse(R"({"routes": {"*": {"trafficVolume": "7"}, "県道": {}},
            "surfaceSets": [{"surfaces": [null, {"alignmentRefs": "支線", "kind": "その他"}]}]})"));
        std::vector<std::string> lines;
        std::transform(user.PassedOver().begin(), user.PassedOver().end(), std::back_inserter(lines),
                       [](const SettingsFault& fault) { return fault.Line() + "|" + fault.object; });
        EXPECT_EQ(lines, (std::vector<std::string>{
                             "routes.*.trafficVolume: 河川の路線では入力できません|路線1",
                             "routes.県道: この名前の路線はありません（あるもの: 国道、路線1）|",
                             "surfaceSets[0].surfaces[1].alignmentRefs: "
                             "入力データの値で固定されているため変更できません|サーフェスセット1／計画"}));
        EXPECT_THROW(user.Act(Json::parse(R"({"routes": [{"trafficVolume": "x"}]})")), SettingsError);
    });
    EXPECT_EQ(Deeds().back(), L"text 1029 7") << "the refused text is put back";
}

// Errors

struct ErrorCase
{
    const char* settings;
    const char* error;
};

constexpr ErrorCase ERRORS[] = {
    // Disabled controls.
    {R"({"routes": [null, {"roadClassification": "第1種第1級"}]})",
     "routes[1].roadClassification: 河川の路線では入力できません"},
    {R"({"routes": [null, {"trafficVolume": "1"}]})", "routes[1].trafficVolume: 河川の路線では入力できません"},
    {R"({"routes": [{"designGmType": "河川", "trafficVolume": "1"}]})",
     "routes[0].trafficVolume: 河川の路線では入力できません"},
    {R"({"routes": [{"riverClassification": "1級"}]})", "routes[0].riverClassification: 道路の路線では入力できません"},
    {R"({"routes": [{"side": "左岸"}]})", "routes[0].side: 道路の路線では入力できません"},
    {R"({"routes": [{"alignments": [null, {"mainInterval": "20"}]}]})",
     "routes[0].alignments[1].mainInterval: 入力データの値で固定されているため変更できません"},
    {R"({"routes": [{"alignments": [null, {"subInterval": "5"}]}]})",
     "routes[0].alignments[1].subInterval: 入力データの値で固定されているため変更できません"},
    {R"({"routes": [{"alignments": [null, {"method": "IP法"}]}]})",
     "routes[0].alignments[1].method: 入力データの値で固定されているため変更できません"},
    {R"({"surfaceSets": [{"surfaces": [{}, {"alignmentRefs": "本線"}]}]})",
     "surfaceSets[0].surfaces[1].alignmentRefs: 入力データの値で固定されているため変更できません"},
    {R"({"intermediatePoints": [{}, {"alignmentRefs": "本線"}]})",
     "intermediatePoints[1].alignmentRefs: 入力データの値で固定されているため変更できません"},
    {R"({"widthStakes": [{}, {"alignmentRefs": "本線"}]})",
     "widthStakes[1].alignmentRefs: 入力データの値で固定されているため変更できません"},
    // Entries that the list doesn't hold.
    {R"({"projectPhase": ""})", "projectPhase: 「」は選択できません（選択肢: 概略、予備、詳細、施工）"},
    {R"({"applicationCriterion": "MlitLandXmlVer.1.4"})",
     "applicationCriterion: 「MlitLandXmlVer.1.4」は選択できません（選択肢: 1.5、1.6、1.7）"},
    {R"({"applicationCriterion": "mlitlandxmlver.1.5"})",
     "applicationCriterion: 「mlitlandxmlver.1.5」は選択できません（選択肢: 1.5、1.6、1.7）"},
    {R"({"verticalDatum": "T.P "})",
     "verticalDatum: 「T.P 」は選択できません（選択肢: T.P（東京湾中等潮位）、K.P（北上川）、S.P（鳴瀬川）、"
     "Y.P（利根川）、A.P（荒川・中川・多摩川）、O.P（淀川）、A.P（吉野川）、T.P.W（渡川）、B.S.L（琵琶湖））"},
    {R"({"routes": [{"designGmType": "road"}]})",
     "routes[0].designGmType: 「road」は選択できません（選択肢: 道路、河川）"},
    {R"({"routes": [null, {"side": "右\n岸"}]})", "routes[1].side: 「右 岸」は選択できません（選択肢: 右岸、左岸）"},
    {R"({"routes": [null, {"riverClassification": "3級"}]})",
     "routes[1].riverClassification: 「3級」は選択できません（選択肢: 1級、2級、準用、普通）"},
    {R"({"routes": [{"alignments": [{"method": "別法"}]}]})",
     "routes[0].alignments[0].method: 「別法」は選択できません（選択肢: IP法、要素法）"},
    {R"({"surfaceSets": [{"surfaces": [{"alignmentRefs": ""}]}]})",
     "surfaceSets[0].surfaces[0].alignmentRefs: 「」は選択できません（選択肢: 本線、支線、堤防法線）"},
    {R"({"intermediatePoints": [{"alignmentRefs": "国道"}]})",
     "intermediatePoints[0].alignmentRefs: 「国道」は選択できません（選択肢: 支線、堤防法線、本線）"},
    {R"({"widthStakes": [{"type": "OPEN"}]})",
     "widthStakes[0].type: 「OPEN」は選択できません（選択肢: 開放型、閉合型）"},
    // Texts that the typing filter doesn't let stand.
    {R"({"routes": [{"trafficVolume": "1000000"}]})",
     "routes[0].trafficVolume: 「1000000」は入力できません（0から999999までの数値、小数第10位まで）"},
    {R"({"routes": [{"trafficVolume": "1e3"}]})",
     "routes[0].trafficVolume: 「1e3」は入力できません（0から999999までの数値、小数第10位まで）"},
    {R"({"routes": [{"alignments": [{"mainInterval": "-1"}]}]})",
     "routes[0].alignments[0].mainInterval: 「-1」は入力できません（0から9999.999までの数値、小数第10位まで）"},
    {R"({"routes": [{"alignments": [{"subInterval": " 5"}]}]})",
     "routes[0].alignments[0].subInterval: 「 5」は入力できません（0から9999.999までの数値、小数第10位まで）"},
    {R"({"routes": [{"alignments": [{"normalCrown": "1.00000000001"}]}]})",
     "routes[0].alignments[0].normalCrown: "
     "「1.00000000001」は入力できません（0から9999.999までの数値、小数第10位まで）"},
    // Objects that don't exist.
    {R"({"routes": [null, null, {}]})", "routes[2]: 路線は2件です（routes[0]～routes[1]）"},
    {R"({"routes": [null, {"alignments": [{}, {}]}]})",
     "routes[1].alignments[1]: 線形は1件です（routes[1].alignments[0]）"},
    {R"({"surfaceSets": [null, null, {}]})",
     "surfaceSets[2]: サーフェスセットは2件です（surfaceSets[0]～surfaceSets[1]）"},
    {R"({"surfaceSets": [{}, {"surfaces": [{}]}]})", "surfaceSets[1].surfaces[0]: サーフェスはありません"},
    {R"({"intermediatePoints": [null, null, {}]})",
     "intermediatePoints[2]: 中間点の座標点は2件です（intermediatePoints[0]～intermediatePoints[1]）"},
    {R"({"routes": {"県道": {}}})", "routes.県道: この名前の路線はありません（あるもの: 国道、路線1）"},
    {R"({"surfaceSets": [null, {"surfaces": {"地盤": {}}}]})",
     "surfaceSets[1].surfaces.地盤: この名前のサーフェスはありません（あるもの: なし）"},
    {R"({"routes": {"*": {"side": "左岸"}}})", "routes.*.side: 道路の路線では入力できません"},
    {R"({"widthStakes": [null, null, null, {}]})",
     "widthStakes[3]: 幅杭の座標点は2件です（widthStakes[0]～widthStakes[1]）"},
};

class SettingsUserErrors : public SettingsUserTest, public testing::WithParamInterface<ErrorCase>
{};

TEST_P(SettingsUserErrors, NameThePathAndWhatWouldBeRight)
{
    EXPECT_EQ(Act(GetParam().settings), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Cli, SettingsUserErrors, testing::ValuesIn(ERRORS), [](const auto& row) {
    return std::to_string(row.index) + RowName(WideFromUtf8(row.param.settings));
});

TEST_F(SettingsUserTest, AListWithoutEntriesOffersNone)
{
    Context().model = FViewLandXML();
    Context().model.widthStakePoints.emplace_back();
    EXPECT_EQ(Act(R"({"widthStakes": [{"alignmentRefs": "本線"}]})"),
              "widthStakes[0].alignmentRefs: 「本線」は選択できません（選択肢: なし）");
}

TEST_F(SettingsUserTest, AnObjectOfAnEmptyTreeDoesNotExist)
{
    Context().model = FViewLandXML();
    EXPECT_EQ(Act(R"({"routes": [], "widthStakes": [null], "intermediatePoints": [{}]})"),
              "intermediatePoints[0]: 中間点の座標点はありません");
}

// Printing

TEST_F(SettingsUserTest, PrintsWhatIsShownLockedAndOffered)
{
    FViewLandXML model;
    model.project.name = L"名";
    model.coordinateSystem.horizontalDatum = L"JGD2024";
    model.coordinateSystem.horizontalCoordinateSystemName = L"9(X,Y)";
    model.alignments.emplace_back().alignments.push_back(Alignment(L"本線", L"", 20.0, UNSET_DOUBLE));
    model.surfaces.emplace_back().surfaces.push_back(Surface(L"計画", L"FinishedGrade", L"本線"));
    model.intermediatePoints.emplace_back();
    model.widthStakePoints.emplace_back();
    Context().model = model;
    const PrintedJson expected = PrintedJson::parse(R"({
        "projectName": "名",
        "projectPhase": "詳細",
        "applicationCriterion": "1.6",
        "verticalDatum": "T.P（東京湾中等潮位）",
        "routes": [{
            "_name": "路線1",
            "designGmType": "道路",
            "roadClassification": null,
            "trafficVolume": "",
            "alignments": [{
                "_name": "本線",
                "subInterval": "",
                "method": "要素法",
                "normalCrown": "",
                "singleLaneRoad": false,
                "useSlopeList": false,
                "_locked": {"mainInterval": "20.0000"},
                "_choices": {
                    "method": ["IP法", "要素法"],
                    "singleLaneRoad": {"true": "一車線道路", "false": "多車線道路"},
                    "useSlopeList": {"false": "片勾配すりつけ", "true": "任意片勾配"}
                }
            }],
            "_choices": {
                "designGmType": ["道路", "河川"],
                "roadClassification": ["第1種第1級", "第1種第2級", "第1種第3級", "第1種第4級", "第2種第1級",
                    "第2種第2級", "第3種第1級", "第3種第2級", "第3種第3級", "第3種第4級", "第3種第5級", "第4種第1級",
                    "第4種第2級", "第4種第3級", "第4種第4級"],
                "riverClassification": ["1級", "2級", "準用", "普通"],
                "side": ["右岸", "左岸"]
            }
        }],
        "surfaceSets": [{
            "_name": "サーフェスセット1",
            "surfaces": [{
                "_name": "計画",
                "kind": "道路面・計画堤防面",
                "_locked": {"alignmentRefs": "本線"},
                "_choices": {
                    "alignmentRefs": ["本線"],
                    "kind": ["現況地形", "道路面・計画堤防面", "余盛堤防面", "路床面", "路体面", "掘削面", "地層境界面",
                        "その他"]
                }
            }]
        }],
        "intermediatePoints": [{
            "_name": "IntermediatePnts-1",
            "alignmentRefs": null,
            "_choices": {"alignmentRefs": ["本線"]}
        }],
        "widthStakes": [{
            "_name": "WidthStakePnts-1",
            "alignmentRefs": null,
            "type": "開放型",
            "desc": "",
            "_choices": {"alignmentRefs": ["本線"], "type": ["開放型", "閉合型"]}
        }],
        "_locked": {
            "softwareName": "Kelmora",
            "softwareVersion": "2027",
            "horizontalDatum": "日本測地系2024",
            "horizontalCoordinateSystemName": "9：第IX系"
        },
        "_choices": {
            "projectPhase": ["概略", "予備", "詳細", "施工"],
            "applicationCriterion": ["1.5", "1.6", "1.7"],
            "verticalDatum": ["T.P（東京湾中等潮位）", "K.P（北上川）", "S.P（鳴瀬川）", "Y.P（利根川）",
                "A.P（荒川・中川・多摩川）", "O.P（淀川）", "A.P（吉野川）", "T.P.W（渡川）", "B.S.L（琵琶湖）"]
        }
    })");
    EXPECT_EQ(ActAndPrint("{}").dump(2), expected.dump(2));
}

TEST_F(SettingsUserTest, PrintsTheKeysOfTheOtherKindOfRouteAsDisabled)
{
    const PrintedJson river = ActAndPrint(R"({"routes": [{"trafficVolume": "9", "alignments": [{}]},
        {"side": "右岸"}]})")["routes"][1];
    EXPECT_EQ(river["side"], "右岸");
    EXPECT_EQ(river["_disabled"], PrintedJson({{"trafficVolume", ""}}));
    EXPECT_FALSE(river.contains("trafficVolume"));
    EXPECT_FALSE(river.contains("_locked"));
}

TEST_F(SettingsUserTest, PrintsWhatTheChecksRefuseAsNullWithTheChoicesThatTheyAccept)
{
    PrintedJson printed;
    Open([&](ScriptedDialog& dialog) {
        SettingsUser user(dialog);
        Judgement judgement{{{nullptr, PROJECT_NAME_EDIT}, {nullptr, APPLICATION_CRITERION_LIST}},
                            {{APPLICATION_CRITERION_LIST, {L"1.7"}}}};
        for (const auto& [object, place] : user.Places())
        {
            judgement.refused.emplace(object, TRAFFIC_VOLUME_EDIT);
        }
        printed = user.Print(judgement);
    });
    EXPECT_EQ(printed["projectName"], nullptr);
    EXPECT_EQ(printed["applicationCriterion"], nullptr);
    EXPECT_EQ(printed["_choices"]["applicationCriterion"], PrintedJson({"1.7"}));
    EXPECT_EQ(printed["projectPhase"], "詳細");
    EXPECT_EQ(printed["routes"][0]["trafficVolume"], nullptr);
    EXPECT_EQ(printed["routes"][1]["_disabled"]["trafficVolume"], "");
    EXPECT_EQ(printed["routes"][0]["alignments"][0]["mainInterval"], "");
}

TEST_F(SettingsUserTest, KnowsWhereTheObjectsOfTheTreeStand)
{
    Open([&](ScriptedDialog& dialog) {
        std::map<std::string, std::string> places;
        for (const auto& [object, place] : SettingsUser(dialog).Places())
        {
            places[place.path] = place.names;
        }
        EXPECT_EQ(places, (std::map<std::string, std::string>{{"routes[0]", "国道"},
                                                              {"routes[0].alignments[0]", "国道／本線"},
                                                              {"routes[0].alignments[1]", "国道／支線"},
                                                              {"routes[1]", "路線1"},
                                                              {"routes[1].alignments[0]", "路線1／堤防法線"},
                                                              {"surfaceSets[0]", "サーフェスセット1"},
                                                              {"surfaceSets[0].surfaces[0]", "サーフェスセット1／地盤"},
                                                              {"surfaceSets[0].surfaces[1]", "サーフェスセット1／計画"},
                                                              {"surfaceSets[1]", "サーフェスセット2"},
                                                              {"intermediatePoints[0]", "IntermediatePnts-1"},
                                                              {"intermediatePoints[1]", "IntermediatePnts-2"},
                                                              {"widthStakes[0]", "WidthStakePnts-1"},
                                                              {"widthStakes[1]", "WidthStakePnts-2"}}));
    });
}

TEST_F(SettingsUserTest, PrintsAReferenceThatNoAlignmentHasAsAChoice)
{
    Context().model.surfaces.front().surfaces.back().alignmentRefs = L"旧線";
    const PrintedJson surface = ActAndPrint("{}")["surfaceSets"][0]["surfaces"][1];
    EXPECT_EQ(surface["_locked"]["alignmentRefs"], "旧線");
    EXPECT_EQ(surface["_choices"]["alignmentRefs"], PrintedJson({"本線", "支線", "堤防法線", "旧線"}));
}

/// Another value for one of the keys that were printed, out of what the list offers or an edit takes.
class RandomEdits
{
  public:
    explicit RandomEdits(unsigned seed) : engine_(seed) {}

    /// Edits printed settings at random; objects and keys are left out at random too.
    PrintedJson Edited(const PrintedJson& printed)
    {
        PrintedJson edited = PrintedJson::object();
        const PrintedJson choices = printed.value("_choices", PrintedJson::object());
        for (const auto& [key, value] : printed.items())
        {
            if (value.is_array() && Chance(6))
            {
                edited[key] = EditedArray(value);
            }
            else if (!value.is_array() && !key.starts_with('_') && key != "designGmType" && Chance(4))
            {
                edited[key] = OtherValue(value, choices.value(key, PrintedJson()));
            }
        }
        // What isn't selected isn't printed as a value, but it may be chosen.
        for (const auto& [key, offered] : choices.items())
        {
            if (key == "alignmentRefs" && !printed.contains("_locked") && Chance(4))
            {
                edited[key] = OneOf(offered);
            }
        }
        if (choices.contains("designGmType"))
        {
            EditKind(edited, choices);
        }
        return edited;
    }

  private:
    bool Chance(unsigned ofEight) { return engine_() % 8 < ofEight; }

    PrintedJson OneOf(const PrintedJson& array) { return array[engine_() % array.size()]; }

    PrintedJson EditedArray(const PrintedJson& array)
    {
        PrintedJson edited = PrintedJson::array();
        for (const PrintedJson& entry : array)
        {
            edited.push_back(Chance(6) ? Edited(entry) : PrintedJson());
        }
        return edited;
    }

    PrintedJson OtherValue(const PrintedJson& value, const PrintedJson& offered)
    {
        if (value.is_boolean())
        {
            return Chance(4);
        }
        return offered.is_array() ? OneOf(offered) : OneOf({"", "0", "0.5", "12", "999.25"});
    }

    void EditKind(PrintedJson& route, const PrintedJson& choices)
    {
        const bool river = Chance(4);
        route.erase("trafficVolume");
        route["designGmType"] = river ? "河川" : "道路";
        for (const char* const key : {"roadClassification", "riverClassification", "side"})
        {
            route.erase(key);
            if (river != (key == std::string("roadClassification")) && Chance(4))
            {
                route[key] = OneOf(choices[key]);
            }
        }
        if (!river)
        {
            route["trafficVolume"] = OneOf({"", "100", "999999"});
        }
    }

    std::mt19937 engine_;
};

TEST_F(SettingsUserTest, PrintedSettingsFedBackLeadToTheSameState)
{
    const PrintedJson untouched = ActAndPrint("{}");
    for (unsigned seed = 1; seed <= 100; ++seed)
    {
        const std::string settings = RandomEdits(seed).Edited(untouched).dump();
        const PrintedJson printed = ActAndPrint(settings);
        EXPECT_EQ(ActAndPrint(printed.dump()).dump(2), printed.dump(2)) << settings;
    }
}

TEST_F(SettingsUserTest, NothingCanBeChangedInADialogThatHasEnded)
{
    Open([](ScriptedDialog& dialog) {
        EXPECT_TRUE(dialog.PressEscape());
        try
        {
            SettingsUser(dialog).Act(Json::parse(R"({"projectName": "国道"})"));
            FAIL();
        }
        catch (const SettingsError& error)
        {
            EXPECT_STREQ(error.what(), "projectName: いまは変更できません");
        }
    });
}

} // namespace
} // namespace jlandxml
