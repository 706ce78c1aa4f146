#include "dialog/JLandXmlConvertDlgData.h"

#include "support/RowName.h"
#include "support/RunFixture.h"

#include <cmath>

namespace jlandxml
{
namespace
{

class DlgDataTest : public RunTest
{
  protected:
    DlgDataTest() { Context().model = FViewLandXML(); }

    static FViewLandXML& Model() { return Context().model; }

    static FViewAlignment& AddAlignment() { return Model().alignments.emplace_back().alignments.emplace_back(); }

    static FViewSurface& AddSurface(const std::wstring& desc)
    {
        FViewSurface& surface = Model().surfaces.emplace_back().surfaces.emplace_back();
        surface.desc = desc;
        return surface;
    }
};

TEST_F(DlgDataTest, ProjectAndCoordinateSystemAreCopied)
{
    Model().project.name = L"n";
    Model().project.projectPhase = L"詳細";
    Model().project.applicationCriterion = L"MlitLandXmlVer.1.6";
    Model().coordinateSystem.horizontalDatum = L"JGD2011";
    Model().coordinateSystem.horizontalCoordinateSystemName = L"9(X,Y)";
    Model().coordinateSystem.verticalDatum = L"A.P";
    const JLandXmlConvertDlgData data;
    EXPECT_EQ(data.projectName, L"n");
    EXPECT_EQ(data.projectPhase, L"詳細");
    EXPECT_EQ(data.applicationCriterion, L"MlitLandXmlVer.1.6");
    EXPECT_EQ(data.softwareName, L"Kelmora");
    EXPECT_EQ(data.softwareVersion, L"2027");
    EXPECT_EQ(data.horizontalDatum, L"JGD2011");
    EXPECT_EQ(data.horizontalCoordinateSystemName, L"9(X,Y)");
    EXPECT_EQ(data.differTP, L"-1.1344");
    Model().coordinateSystem.differTP = L"-0.8333";
    EXPECT_EQ(JLandXmlConvertDlgData().differTP, L"-0.8333");
}

TEST_F(DlgDataTest, AnIntervalOfTheInputIsLocked)
{
    FViewAlignment& alignment = AddAlignment();
    alignment.mainInterval = 20.0;
    alignment.normalCrown = 2.00005;
    alignment.singleLaneRoad = 1;
    const JLandXmlConvertDlgData data;
    const DlgDataAlignment& item = *data.alignmentsList.at(0)->alignments.at(0);
    EXPECT_EQ(item.mainInterval, L"20.0000");
    EXPECT_TRUE(item.mainIntervalLocked);
    EXPECT_EQ(item.subInterval, L"");
    EXPECT_FALSE(item.subIntervalLocked);
    EXPECT_EQ(item.normalCrown, L"2.0000");
    EXPECT_EQ(item.method, L"要素法");
    EXPECT_TRUE(item.methodLocked);
    EXPECT_EQ(item.singleLaneRoad, 1);
}

TEST_F(DlgDataTest, ZeroAndUnsetAreNoValues)
{
    FViewAlignment& alignment = AddAlignment();
    alignment.mainInterval = 0.0;
    alignment.subInterval = -0.00000002;
    alignment.normalCrown = 0.00000003;
    alignment.method.clear();
    const JLandXmlConvertDlgData data;
    const DlgDataAlignment& item = *data.alignmentsList.at(0)->alignments.at(0);
    EXPECT_EQ(item.mainInterval, L"");
    EXPECT_FALSE(item.mainIntervalLocked);
    EXPECT_EQ(item.subInterval, L"");
    EXPECT_EQ(item.normalCrown, L"0.0000");
    EXPECT_FALSE(item.methodLocked);
}

TEST_F(DlgDataTest, AMagnitudeOfTheToleranceIsAValueAndTheNextSmallerOneIsNot)
{
    constexpr double TOLERANCE = 2.220446049250313e-08;
    FViewAlignment& alignment = AddAlignment();
    alignment.mainInterval = -TOLERANCE;
    alignment.subInterval = TOLERANCE;
    alignment.normalCrown = std::nextafter(TOLERANCE, 0.0);
    const JLandXmlConvertDlgData data;
    const DlgDataAlignment& item = *data.alignmentsList.at(0)->alignments.at(0);
    EXPECT_EQ(item.mainInterval, L"-0.0000");
    EXPECT_TRUE(item.mainIntervalLocked);
    EXPECT_EQ(item.subInterval, L"0.0000");
    EXPECT_TRUE(item.subIntervalLocked);
    EXPECT_EQ(item.normalCrown, L"");
}

TEST_F(DlgDataTest, AClassificationOfTheInputDoesNotReachTheDialog)
{
    FViewAlignments& route = Model().alignments.emplace_back();
    route.designGmType = L"道路";
    route.roadClassification = L"第1種第1級";
    route.trafficVolume = L"100";
    JLandXmlConvertDlgData data;
    EXPECT_EQ(data.alignmentsList[0]->Classification(), L"");
    EXPECT_EQ(data.alignmentsList[0]->trafficVolume, L"100");
    data.Validate();
    EXPECT_EQ(data.errors.back(), L"道路の規格・等級が入力されていません。");
    route.designGmType = L"河川";
    route.riverClassification = L"1級";
    EXPECT_EQ(JLandXmlConvertDlgData().alignmentsList[0]->Classification(), L"");
    route.designGmType = L"??";
    EXPECT_EQ(JLandXmlConvertDlgData().alignmentsList[0]->roadClassification, L"第1種第1級");
    EXPECT_EQ(JLandXmlConvertDlgData().alignmentsList[0]->riverClassification, L"");
}

struct KindCase
{
    const wchar_t* loaded;
    const wchar_t* kind;
    const wchar_t* desc;
};

class SurfaceKinds : public DlgDataTest, public testing::WithParamInterface<KindCase>
{};

TEST_P(SurfaceKinds, AreFoundInTheDescription)
{
    AddSurface(GetParam().loaded);
    const JLandXmlConvertDlgData data;
    const DlgDataSurface& surface = *data.surfacesList.at(0)->surfaces.at(0);
    EXPECT_EQ(surface.kind, GetParam().kind);
    EXPECT_EQ(surface.loadedKind, GetParam().kind);
    EXPECT_EQ(surface.desc, GetParam().desc);
}

INSTANTIATE_TEST_SUITE_P(DlgData, SurfaceKinds,
                         testing::Values(KindCase{L"FinishedGrade\r\nline two", L"FinishedGrade", L"FinishedGrade"},
                                         KindCase{L"xExcavationy", L"Excavation", L"xExcavationy"},
                                         KindCase{L"Excavation SubBase", L"SubBase", L"Excavation SubBase"},
                                         KindCase{L"", L"ExistingGround", L""},
                                         KindCase{L"subbase", L"ExistingGround", L"subbase"},
                                         KindCase{L"a\nOther", L"Other", L"a\nOther"},
                                         KindCase{L"a\r\nOther", L"Other", L"a"}),
                         [](const auto& row) { return TextName(row.param.loaded); });

TEST_F(DlgDataTest, AKindThatStaysCostsTheModelTheSecondLine)
{
    AddSurface(L"FinishedGrade\r\nline two").name = L"s";
    JLandXmlConvertDlgData data;
    data.ApplyToModel();
    EXPECT_EQ(Model().surfaces[0].surfaces[0].desc, L"FinishedGrade");
    data.surfacesList[0]->surfaces[0]->kind = L"SubBase";
    data.surfacesList[0]->surfaces[0]->alignmentRefs = L"R1";
    data.ApplyToModel();
    EXPECT_EQ(Model().surfaces[0].surfaces[0].desc, L"SubBase");
    EXPECT_EQ(Model().surfaces[0].surfaces[0].alignmentRefs, L"R1");
    EXPECT_EQ(Model().surfaces[0].surfaces[0].name, L"s");
}

TEST_F(DlgDataTest, TheOutputTableKeepsTheDescriptionsOfTheInput)
{
    AddSurface(L"ExistingGround");
    AddSurface(L"SubBase");
    Model().surfaces.FillOutPutCSS();
    JLandXmlConvertDlgData data;
    data.surfacesList[0]->surfaces[0]->kind = L"SubBase";
    data.surfacesList[1]->surfaces[0]->kind = L"ExistingGround";
    data.ApplyToModel();
    EXPECT_EQ(Model().surfaces[0].surfaces[0].desc, L"SubBase");
    ASSERT_EQ(Model().surfaces.outPutCSS.size(), 2U);
    EXPECT_TRUE(Model().surfaces.outPutCSS[0].flagFirst && Model().surfaces.outPutCSS[0].flagSecond);
    EXPECT_FALSE(Model().surfaces.outPutCSS[1].flagFirst || Model().surfaces.outPutCSS[1].flagSecond);
}

TEST_F(DlgDataTest, ReferencesOfTheInputAreLocked)
{
    AddSurface(L"").alignmentRefs = L"R1";
    AddSurface(L"");
    Model().intermediatePoints.resize(2);
    Model().intermediatePoints[0].alignmentRefs = L"R1";
    Model().widthStakePoints.resize(2);
    Model().widthStakePoints[1].alignmentRefs = L"R1";
    Model().widthStakePoints[1].type = L"open";
    Model().widthStakePoints[1].desc = L"d";
    const JLandXmlConvertDlgData data;
    EXPECT_TRUE(data.surfacesList[0]->surfaces[0]->alignmentRefsLocked);
    EXPECT_FALSE(data.surfacesList[1]->surfaces[0]->alignmentRefsLocked);
    EXPECT_TRUE(data.cgPointsList.intermediate[0]->alignmentRefsLocked);
    EXPECT_FALSE(data.cgPointsList.intermediate[1]->alignmentRefsLocked);
    EXPECT_FALSE(data.cgPointsList.widthStakes[0]->alignmentRefsLocked);
    EXPECT_TRUE(data.cgPointsList.widthStakes[1]->alignmentRefsLocked);
    EXPECT_EQ(data.cgPointsList.widthStakes[1]->type, L"open");
    EXPECT_EQ(data.cgPointsList.widthStakes[1]->desc, L"d");
}

TEST_F(DlgDataTest, ARoadThatBecomesARiverLosesItsRoadValues)
{
    FViewAlignments& route = Model().alignments.emplace_back();
    route.designGmType = L"道路";
    route.roadClassification = L"第1種第1級";
    route.trafficVolume = L"100";
    JLandXmlConvertDlgData data;
    DlgDataAlignments& item = *data.alignmentsList[0];
    item.designGmType = L"河川";
    item.riverClassification = L"1級";
    item.side = L"右岸";
    data.ApplyToModel();
    EXPECT_EQ(route.designGmType, L"河川");
    EXPECT_EQ(route.roadClassification, L"");
    EXPECT_EQ(route.trafficVolume, L"");
    EXPECT_EQ(route.riverClassification, L"1級");
    EXPECT_EQ(route.side, L"右岸");
    item.designGmType = L"道路";
    item.roadClassification = L"第2種第1級";
    data.ApplyToModel();
    EXPECT_EQ(route.roadClassification, L"第2種第1級");
    EXPECT_EQ(route.riverClassification, L"");
    EXPECT_EQ(route.side, L"");
    EXPECT_EQ(route.trafficVolume, L"100");
    item.designGmType = L"他";
    item.roadClassification = L"x";
    data.ApplyToModel();
    EXPECT_EQ(route.designGmType, L"他");
    EXPECT_EQ(route.roadClassification, L"第2種第1級");
}

TEST_F(DlgDataTest, AnEmptySubIntervalLeavesTheModel)
{
    FViewAlignment& alignment = AddAlignment();
    alignment.mainInterval = 20.0;
    alignment.subInterval = 5.0;
    alignment.normalCrown = 2.0;
    JLandXmlConvertDlgData data;
    DlgDataAlignment& item = *data.alignmentsList[0]->alignments[0];
    item.mainInterval.clear();
    item.subInterval.clear();
    item.normalCrown = L"0";
    item.name = L"n";
    item.method = L"IP法";
    item.useSlopeList = 1;
    data.ApplyToModel();
    EXPECT_EQ(alignment.mainInterval, 0.0);
    EXPECT_EQ(alignment.subInterval, 5.0);
    EXPECT_EQ(alignment.normalCrown, 2.0);
    EXPECT_EQ(alignment.name, L"n");
    EXPECT_EQ(alignment.method, L"IP法");
    EXPECT_EQ(alignment.useSlopeList, 1);
    item.subInterval = L"2.5";
    item.normalCrown = L"1.5m";
    data.ApplyToModel();
    EXPECT_EQ(alignment.subInterval, 2.5);
    EXPECT_EQ(alignment.normalCrown, 1.5);
}

struct FlagCase
{
    std::int32_t singleLaneRoad;
    std::int32_t useSlopeList;
};

class AlignmentFlags : public DlgDataTest, public testing::WithParamInterface<FlagCase>
{};

TEST_P(AlignmentFlags, AreAppliedAsChosen)
{
    const FViewAlignment& alignment = AddAlignment();
    JLandXmlConvertDlgData data;
    DlgDataAlignment& item = *data.alignmentsList[0]->alignments[0];
    item.singleLaneRoad = GetParam().singleLaneRoad;
    item.useSlopeList = GetParam().useSlopeList;
    data.ApplyToModel();
    EXPECT_EQ(alignment.singleLaneRoad, GetParam().singleLaneRoad);
    EXPECT_EQ(alignment.useSlopeList, GetParam().useSlopeList);
}

TEST_P(AlignmentFlags, ThatNobodyTouchesAreAppliedAsTaken)
{
    FViewAlignment& alignment = AddAlignment();
    alignment.singleLaneRoad = GetParam().singleLaneRoad;
    alignment.useSlopeList = GetParam().useSlopeList;
    JLandXmlConvertDlgData data;
    EXPECT_EQ(data.alignmentsList[0]->alignments[0]->singleLaneRoad, GetParam().singleLaneRoad);
    EXPECT_EQ(data.alignmentsList[0]->alignments[0]->useSlopeList, GetParam().useSlopeList);
    alignment.singleLaneRoad = alignment.useSlopeList = 0;
    data.ApplyToModel();
    EXPECT_EQ(alignment.singleLaneRoad, GetParam().singleLaneRoad);
    EXPECT_EQ(alignment.useSlopeList, GetParam().useSlopeList);
}

INSTANTIATE_TEST_SUITE_P(DlgData, AlignmentFlags,
                         testing::Values(FlagCase{1, 0}, FlagCase{0, 1}, FlagCase{-1, 0}, FlagCase{0, -1}),
                         [](const auto& row) {
                             return TextName(std::to_wstring(row.param.singleLaneRoad) + L" " +
                                             std::to_wstring(row.param.useSlopeList));
                         });

TEST_F(DlgDataTest, NumbersThatNobodyTouchesAreAppliedAsShown)
{
    FViewAlignment& alignment = AddAlignment();
    alignment.mainInterval = 20.00004;
    alignment.subInterval = 5.00004;
    alignment.normalCrown = 2.00004;
    JLandXmlConvertDlgData().ApplyToModel();
    EXPECT_EQ(alignment.mainInterval, 20.0);
    EXPECT_EQ(alignment.subInterval, 5.0);
    EXPECT_EQ(alignment.normalCrown, 2.0);
}

TEST_F(DlgDataTest, ANumberThatIsShownAsZeroCostsTheModelItsMainIntervalAlone)
{
    FViewAlignment& alignment = AddAlignment();
    alignment.mainInterval = alignment.subInterval = alignment.normalCrown = 0.00004;
    JLandXmlConvertDlgData().ApplyToModel();
    EXPECT_EQ(alignment.mainInterval, 0.0);
    EXPECT_EQ(alignment.subInterval, 0.00004);
    EXPECT_EQ(alignment.normalCrown, 0.00004);
}

struct MagnitudeCase
{
    const wchar_t* text;
    double number;
    bool counts;
};

class Magnitudes : public DlgDataTest, public testing::WithParamInterface<MagnitudeCase>
{};

TEST_P(Magnitudes, DecideWhetherASubIntervalOrACrossFallIsApplied)
{
    constexpr double BEFORE = 7.0;
    FViewAlignment& alignment = AddAlignment();
    JLandXmlConvertDlgData data;
    DlgDataAlignment& item = *data.alignmentsList[0]->alignments[0];
    const auto [text, number, counts] = GetParam();
    item.mainInterval = item.subInterval = item.normalCrown = text;
    alignment.mainInterval = alignment.subInterval = alignment.normalCrown = BEFORE;
    data.ApplyToModel();
    EXPECT_EQ(alignment.mainInterval, number);
    EXPECT_EQ(alignment.subInterval, counts ? number : BEFORE);
    EXPECT_EQ(alignment.normalCrown, counts ? number : BEFORE);
}

INSTANTIATE_TEST_SUITE_P(DlgData, Magnitudes,
                         testing::Values(MagnitudeCase{L"0.00000001", 0.00000001, false},
                                         MagnitudeCase{L"-0.00000001", -0.00000001, false},
                                         MagnitudeCase{L"0.0000000222", 0.0000000222, false},
                                         MagnitudeCase{L"2.220446049250312e-08", 2.220446049250312e-08, false},
                                         MagnitudeCase{L"2.220446049250313e-08", 2.220446049250313e-08, true},
                                         MagnitudeCase{L"-2.220446049250313e-08", -2.220446049250313e-08, true},
                                         MagnitudeCase{L"0.00000003", 0.00000003, true},
                                         MagnitudeCase{L"-1.5", -1.5, true}),
                         BY_TEXT);

TEST_F(DlgDataTest, EmptyTextsAreAppliedToo)
{
    FViewAlignment& alignment = AddAlignment();
    FViewSurface& surface = AddSurface(L"SubBase");
    FViewCgPointsIntermediate& points = Model().intermediatePoints.emplace_back();
    FViewCgPointsWidthStake& stakes = Model().widthStakePoints.emplace_back();
    JLandXmlConvertDlgData data;
    data.alignmentsList[0]->alignments[0]->method.clear();
    data.surfacesList[0]->surfaces[0]->desc.clear();
    data.differTP.clear();
    std::wstring* const texts[] = {
        &Model().project.name,
        &Model().project.projectPhase,
        &Model().project.applicationCriterion,
        &Model().coordinateSystem.horizontalDatum,
        &Model().coordinateSystem.verticalDatum,
        &Model().coordinateSystem.horizontalCoordinateSystemName,
        &Model().coordinateSystem.differTP,
        &alignment.name,
        &alignment.method,
        &surface.name,
        &surface.desc,
        &surface.alignmentRefs,
        &points.alignmentRefs,
        &stakes.alignmentRefs,
        &stakes.type,
    };
    for (std::wstring* const text : texts)
    {
        *text = L"before";
    }
    data.ApplyToModel();
    for (std::size_t index = 0; index < std::size(texts); ++index)
    {
        EXPECT_EQ(*texts[index], L"") << index;
    }
}

TEST_F(DlgDataTest, ProjectAndPointGroupsAreApplied)
{
    Model().intermediatePoints.resize(1);
    Model().widthStakePoints.resize(1);
    Model().widthStakePoints[0].desc = L"old";
    JLandXmlConvertDlgData data;
    data.projectName = L"n";
    data.projectPhase = L"施工";
    data.applicationCriterion = L"c";
    data.horizontalDatum = L"TD";
    data.verticalDatum = L"O.P";
    data.horizontalCoordinateSystemName = L"6(X,Y)";
    data.differTP = L"-1.3000";
    data.softwareName = L"x";
    data.cgPointsList.intermediate[0]->alignmentRefs = L"R1";
    data.cgPointsList.widthStakes[0]->alignmentRefs = L"R2";
    data.cgPointsList.widthStakes[0]->type = L"open";
    data.cgPointsList.widthStakes[0]->desc.clear();
    data.ApplyToModel();
    EXPECT_EQ(Model().project.name, L"n");
    EXPECT_EQ(Model().project.projectPhase, L"施工");
    EXPECT_EQ(Model().project.applicationCriterion, L"c");
    EXPECT_EQ(Model().coordinateSystem.horizontalDatum, L"TD");
    EXPECT_EQ(Model().coordinateSystem.verticalDatum, L"O.P");
    EXPECT_EQ(Model().coordinateSystem.horizontalCoordinateSystemName, L"6(X,Y)");
    EXPECT_EQ(Model().coordinateSystem.differTP, L"-1.3000");
    EXPECT_EQ(Model().intermediatePoints[0].alignmentRefs, L"R1");
    EXPECT_EQ(Model().widthStakePoints[0].alignmentRefs, L"R2");
    EXPECT_EQ(Model().widthStakePoints[0].type, L"open");
    EXPECT_EQ(Model().widthStakePoints[0].desc, L"old");
}

TEST_F(DlgDataTest, FillingAgainReplacesEverything)
{
    AddAlignment();
    AddSurface(L"");
    Model().intermediatePoints.resize(1);
    Model().widthStakePoints.resize(1);
    JLandXmlConvertDlgData data;
    data.SetFromModel();
    EXPECT_EQ(data.alignmentsList.size(), 1U);
    EXPECT_EQ(data.surfacesList.size(), 1U);
    EXPECT_EQ(data.cgPointsList.intermediate.size(), 1U);
    EXPECT_EQ(data.cgPointsList.widthStakes.size(), 1U);
}

TEST_F(DlgDataTest, DataAndModelArePairedByPositionUntilEitherEnds)
{
    Model().alignments.resize(3);
    Model().alignments[1].alignments.resize(2);
    Model().surfaces.resize(2);
    Model().surfaces[1].surfaces.resize(2);
    Model().intermediatePoints.resize(2);
    Model().widthStakePoints.resize(2);
    JLandXmlConvertDlgData data;
    data.alignmentsList[1]->alignments[1]->name = L"second of the second";
    data.alignmentsList[2]->designGmType = L"河川";
    data.surfacesList[1]->surfaces[1]->name = L"last";
    data.cgPointsList.intermediate[1]->alignmentRefs = L"R2";
    data.cgPointsList.widthStakes[1]->alignmentRefs = L"R3";
    data.ApplyToModel();
    EXPECT_EQ(Model().alignments[1].alignments[0].name, L"");
    EXPECT_EQ(Model().alignments[1].alignments[1].name, L"second of the second");
    EXPECT_EQ(Model().alignments[2].designGmType, L"河川");
    EXPECT_EQ(Model().surfaces[1].surfaces[1].name, L"last");
    EXPECT_EQ(Model().intermediatePoints[1].alignmentRefs, L"R2");
    EXPECT_EQ(Model().widthStakePoints[1].alignmentRefs, L"R3");

    Model().alignments.resize(2);
    Model().alignments[1].alignments.resize(3);
    Model().surfaces.resize(1);
    data.cgPointsList.intermediate.resize(1);
    data.cgPointsList.widthStakes.clear();
    data.alignmentsList[0]->designGmType = L"道路";
    data.ApplyToModel();
    EXPECT_EQ(Model().alignments[0].designGmType, L"道路");
    EXPECT_EQ(Model().alignments[1].alignments[2].name, L"");
    EXPECT_EQ(Model().intermediatePoints[1].alignmentRefs, L"R2");
    EXPECT_EQ(Model().widthStakePoints[1].alignmentRefs, L"R3");
}

TEST_F(DlgDataTest, TheNameAndVersionOfTheSoftwareNeverReachTheModel)
{
    Model().project.name = L"n";
    JLandXmlConvertDlgData data;
    data.softwareName = L"no such software";
    data.softwareVersion = L"no such version";
    data.ApplyToModel();
    const JLandXmlConvertDlgData again;
    EXPECT_EQ(again.softwareName, L"Kelmora");
    EXPECT_EQ(again.softwareVersion, L"2027");
    EXPECT_EQ(again.projectName, L"n");
}

TEST_F(DlgDataTest, NothingReachesTheModelBeforeApplying)
{
    AddAlignment().mainInterval = 20.0;
    AddSurface(L"SubBase\r\nsecond line");
    JLandXmlConvertDlgData data;
    data.projectName = L"n";
    data.alignmentsList[0]->designGmType = L"河川";
    data.alignmentsList[0]->alignments[0]->mainInterval = L"5";
    data.surfacesList[0]->surfaces[0]->kind = L"Other";
    data.Validate();
    EXPECT_EQ(Model().project.name, L"");
    EXPECT_EQ(Model().alignments[0].designGmType, L"");
    EXPECT_EQ(Model().alignments[0].alignments[0].mainInterval, 20.0);
    EXPECT_EQ(Model().surfaces[0].surfaces[0].desc, L"SubBase\r\nsecond line");
}

} // namespace
} // namespace jlandxml
