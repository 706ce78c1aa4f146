#include "model/FViewAlignments.h"

#include "support/RowName.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>
#include <tuple>
#include <type_traits>

namespace jlandxml
{
namespace
{

/// What a multi-lane alignment without any design value gets.
const std::wstring DEFAULT_FEATURES =
    L"<Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
    L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"false\"/>"
    L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>";

FViewAlignment WithDesc(const std::wstring& desc)
{
    return Read<FViewAlignment>(L"<Alignment desc='" + desc + L"'/>");
}

FViewAlignment WithFeature(const std::wstring& name, const std::wstring& properties)
{
    return Read<FViewAlignment>(L"<Alignment><Feature name='" + name + L"'>" + properties + L"</Feature></Alignment>");
}

TEST(FViewAlignment, WithoutDescAndFeaturesItHasItsDefaults)
{
    const auto alignment = Read<FViewAlignment>(L"<Alignment/>");
    EXPECT_EQ(alignment.method, L"要素法");
    EXPECT_EQ(alignment.mainInterval, UNSET_DOUBLE);
    EXPECT_EQ(alignment.subInterval, UNSET_DOUBLE);
    EXPECT_EQ(alignment.normalCrown, UNSET_DOUBLE);
    EXPECT_EQ(alignment.singleLaneRoad, 0);
    EXPECT_EQ(alignment.useSlopeList, 0);
}

TEST(FViewAlignment, TakesNameAndStart)
{
    EXPECT_EQ(Read<FViewAlignment>(L"<Alignment name='線形1' staStart='12.5'/>").name, L"線形1");
    XmlText given(L"<Alignment staStart='-12.5'/>");
    FViewAlignment started;
    started.ReadElement(given.Root());
    EXPECT_EQ(started.staStart.value, -12.5);
    XmlText xml(L"<Alignment staStart='x'/>");
    FViewAlignment alignment;
    alignment.ReadElement(xml.Root());
    EXPECT_EQ(alignment.staStart.value, 0.0);
    alignment.staStart.value = 7.0;
    alignment.Clear();
    EXPECT_EQ(alignment.staStart.value, 7.0);
    const FViewAlignment copy = alignment;
    EXPECT_EQ(copy.staStart.value, UNSET_DOUBLE);
}

TEST(FViewAlignment, TheStartIsUsedAsANumber)
{
    FViewAlignment alignment;
    alignment.staStart = 7.5;
    const double start = alignment.staStart;
    EXPECT_EQ(start, 7.5);
    EXPECT_EQ(alignment.staStart + 20.0, 27.5);
}

TEST(FViewAlignment, TakesEveryKeyOfDesc)
{
    const auto alignment =
        WithDesc(L"主測点間隔 = 20 副測点間隔=10 直線部横断勾配 = 2.5 鉛直原子 = T.P 適用基準 = "
                 L"MlitLandXmlVer.1.6 事業段階 = 詳細 プロジェクト名 = 国道 1号 一車線道路又は多車線 = 一車線道路 "
                 L"任意横断勾配リスト = はい 設計計算手法名 = IP法");
    EXPECT_EQ(alignment.mainInterval, 20.0);
    EXPECT_EQ(alignment.subInterval, 10.0);
    EXPECT_EQ(alignment.normalCrown, 2.5);
    EXPECT_EQ(alignment.verticalOrigin, L"T.P");
    EXPECT_EQ(alignment.applicationCriterion, L"MlitLandXmlVer.1.6");
    EXPECT_EQ(alignment.projectPhase, L"詳細");
    EXPECT_EQ(alignment.projectName, L"国道 1号");
    EXPECT_EQ(alignment.singleLaneRoad, 1);
    EXPECT_EQ(alignment.useSlopeList, 1);
    EXPECT_EQ(alignment.method, L"IP法");
}

TEST(FViewAlignment, OfBothMethodNamesTheSecondWins)
{
    EXPECT_EQ(WithDesc(L"設計計算手法名 = A 線形計算手法名 = B").method, L"B");
    EXPECT_EQ(WithDesc(L"線形計算手法名 = B 設計計算手法名 = A").method, L"B");
    EXPECT_EQ(WithDesc(L"設計計算手法名 = A 線形計算手法名 = ").method, L"A");
}

TEST(FViewAlignment, AnEmptyValueOfDescIsIgnored)
{
    const auto alignment = WithDesc(L"主測点間隔 = 一車線道路又は多車線 = 任意横断勾配リスト =");
    EXPECT_EQ(alignment.mainInterval, UNSET_DOUBLE);
    EXPECT_EQ(alignment.singleLaneRoad, 0);
    EXPECT_EQ(alignment.useSlopeList, 0);
}

TEST(FViewAlignment, FlagsOfDescAreSetByAnyOtherWord)
{
    EXPECT_EQ(WithDesc(L"一車線道路又は多車線 = 多車線").singleLaneRoad, 0);
    EXPECT_EQ(WithDesc(L"一車線道路又は多車線 = 多車線道路").singleLaneRoad, 1);
    EXPECT_EQ(WithDesc(L"任意横断勾配リスト = いいえ").useSlopeList, 0);
    EXPECT_EQ(WithDesc(L"任意横断勾配リスト = x").useSlopeList, 1);
}

TEST(FViewAlignment, ANumberOfDescThatIsNoneIsZero)
{
    EXPECT_EQ(WithDesc(L"主測点間隔 = 20m").mainInterval, 0.0);
    EXPECT_EQ(WithDesc(L"主測点間隔 =  20").mainInterval, 0.0);
}

TEST(FViewAlignment, AFeatureOverridesDesc)
{
    const auto alignment = Read<FViewAlignment>(L"<Alignment desc='主測点間隔 = 20'><Feature name='Interval'>"
                                                L"<Property label='main' value='25'/></Feature></Alignment>");
    EXPECT_EQ(alignment.mainInterval, 25.0);
}

TEST(FViewAlignment, DesignFeaturesAreTakenByTheirLabels)
{
    EXPECT_EQ(WithFeature(L"Interval", L"<Property label='sub' value='x'/>").subInterval, 0.0);
    EXPECT_EQ(WithFeature(L"Interval", L"<Property label='main' value=''/>").mainInterval, 0.0);
    EXPECT_EQ(WithFeature(L"SuperelevationConfig", L"<Property label='normalCrown' value='2'/>").normalCrown, 2.0);
    EXPECT_EQ(WithFeature(L"SuperelevationConfig", L"<Property label='singleLaneRoad' value='true'/>").singleLaneRoad,
              1);
    EXPECT_EQ(WithFeature(L"SuperelevationConfig", L"<Property label='singleLaneRoad' value='True'/>").singleLaneRoad,
              0);
    EXPECT_EQ(WithFeature(L"SuperelevationConfig", L"<Property label='useSlopeList' value='true'/>").useSlopeList, 1);
    EXPECT_EQ(WithFeature(L"Horizontal", L"<Property label='method' value=''/>").method, L"");
    EXPECT_EQ(WithFeature(L"WideningList", L"<Property label='Main' value='5'/>").mainInterval, UNSET_DOUBLE);
    EXPECT_EQ(WithFeature(L"horizontal", L"<Property label='main' value='5'/>").mainInterval, UNSET_DOUBLE);
    EXPECT_EQ(WithFeature(L"SlopeList", L"<Property label='main' value='5'/>").mainInterval, 5.0);
}

TEST(FViewAlignment, SlopesAndWideningsAreListed)
{
    const auto alignment = WithFeature(
        L"SlopeList", L"<Property label='slopeValue' value='100 2.0'/><Property label='slopeValue' value='1'/>"
                      L"<Property label='widthLeftValue' value='1 2 3'/>"
                      L"<Property label='widthRightValue' value='4'/><Property label='widthRightValue' value='5 6'/>");
    ASSERT_EQ(alignment.slopeList.size(), 1U);
    EXPECT_EQ(alignment.slopeList[0].staText, L"1+0.000000");
    EXPECT_EQ(alignment.slopeList[0].leftSlope, L"2.0");
    ASSERT_EQ(alignment.widthLeftValue.size(), 1U);
    EXPECT_EQ(alignment.widthLeftValue[0].code, L"3");
    ASSERT_EQ(alignment.widthRightValue.size(), 1U);
    EXPECT_EQ(alignment.widthRightValue[0].station, 5.0);
}

TEST(FViewAlignment, ChildrenAreReadByTheirExactNames)
{
    const auto alignment = Read<FViewAlignment>(
        L"<Alignment><coordGeom/><CoordGeom><Line/></CoordGeom><CoordGeom><Line/><Line/></CoordGeom>"
        L"<StaEquation staInternal='300'/><StaEquation staInternal='100'/><staequation/><StaEquation "
        L"staInternal='200'/>"
        L"<Profile staStart='1'/><Profile "
        L"staStart='2'/><Superelevation/><superelevation/><Superelevation/></Alignment>");
    EXPECT_EQ(alignment.coordGeom.elements.size(), 1U);
    ASSERT_EQ(alignment.staEquations.size(), 3U);
    EXPECT_EQ(alignment.staEquations[0].staInternal, 100.0);
    EXPECT_EQ(alignment.staEquations[2].staInternal, 300.0);
    EXPECT_EQ(alignment.profile.staStart, 1.0);
    EXPECT_EQ(alignment.superelevations.size(), 2U);
}

struct WritingCase
{
    const wchar_t* rule;
    std::wstring in;
    std::wstring out;
};

class AlignmentWriting : public testing::TestWithParam<WritingCase>
{};

TEST_P(AlignmentWriting, PutsTheDesignValuesBehindTheRest)
{
    EXPECT_EQ(Written<FViewAlignment>(L"<Alignment" + GetParam().in + L"</Alignment>"),
              L"<Alignment" + GetParam().out + L"</Alignment>")
        << testing::PrintToString(GetParam().rule);
}

INSTANTIATE_TEST_SUITE_P(
    FViewAlignment, AlignmentWriting,
    testing::Values(
        WritingCase{L"nothing given", L"><x/>", L"><x/>" + DEFAULT_FEATURES},
        WritingCase{L"desc, start and other children stay",
                    L" name='a' desc='主測点間隔 = 20' staStart='1'><StaEquation staBack='1'/>",
                    L" name=\"a\" desc=\"主測点間隔 = 20\" staStart=\"1\"><StaEquation staBack=\"1\"/>"
                    L"<Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
                    L"<Feature name=\"Interval\"><Property label=\"main\" value=\"20.\"/></Feature>"
                    L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"false\"/>"
                    L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>"},
        WritingCase{
            L"an existing Horizontal keeps its place, the others are built anew",
            L"><Feature name='Interval'><Property label='main' value='25.5'/><Property label='x' value='y'/></Feature>"
            L"<Feature name='Horizontal'><Property label='method' value='IP法'/></Feature><x/>",
            L"><Feature name=\"Horizontal\"><Property label=\"method\" value=\"IP法\"/></Feature><x/>"
            L"<Feature name=\"Interval\"><Property label=\"main\" value=\"25.5\"/></Feature>"
            L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"false\"/>"
            L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>"},
        WritingCase{L"of two Interval features the second takes the values",
                    L"><Feature name='Interval'><Property label='main' value='20'/></Feature>"
                    L"<Feature name='Interval'><Property label='sub' value='5'/></Feature>",
                    L"><Feature name=\"Interval\"><Property label=\"sub\" value=\"5.\"/><Property label=\"main\" "
                    L"value=\"20.\"/></Feature>" +
                        DEFAULT_FEATURES},
        WritingCase{L"an empty method leaves Horizontal out",
                    L"><Feature name='Horizontal'><Property label='method' value=''/></Feature>",
                    L"><Feature name=\"Horizontal\"><Property label=\"method\" value=\"\"/></Feature>"
                    L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"false\"/>"
                    L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>"},
        WritingCase{
            L"a free slope list takes the place of the superelevation",
            L"><Superelevation/><superelevation/><Superelevation/><Feature name='SuperelevationConfig'>"
            L"<Property label='useSlopeList' value='true'/><Property label='singleLaneRoad' value='true'/></Feature>"
            L"<Feature name='SlopeList'><Property label='slopeValue' value='100 0 2.5'/><Property label='slopeValue' "
            L"value='200 1.5'/></Feature>",
            L"><superelevation/><Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
            L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"true\"/>"
            L"<Property label=\"useSlopeList\" value=\"true\"/></Feature>"
            L"<Feature name=\"SlopeList\"><Property label=\"slopeValue\" value=\"100 2.5\"/>"
            L"<Property label=\"slopeValue\" value=\"200 1.5\"/></Feature>"},
        WritingCase{L"slopes aren't written where the superelevation counts",
                    L"><Superelevation><FullSuperSta>1</FullSuperSta></Superelevation><Feature name='SlopeList'>"
                    L"<Property label='slopeValue' value='100 2'/></Feature>",
                    L"><Superelevation staStart=\"1.\"><FullSuperSta>1</FullSuperSta></Superelevation>" +
                        DEFAULT_FEATURES},
        WritingCase{L"intervals and the cross fall have four decimals",
                    L" desc='主測点間隔=20.00006 副測点間隔=12.34567 直線部横断勾配=1.99994'>",
                    L" desc=\"主測点間隔=20.00006 副測点間隔=12.34567 直線部横断勾配=1.99994\">"
                    L"<Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
                    L"<Feature name=\"Interval\"><Property label=\"main\" value=\"20.0001\"/>"
                    L"<Property label=\"sub\" value=\"12.3457\"/></Feature>"
                    L"<Feature name=\"SuperelevationConfig\"><Property label=\"normalCrown\" value=\"1.9999\"/>"
                    L"<Property label=\"singleLaneRoad\" value=\"false\"/>"
                    L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>"},
        WritingCase{L"a cross fall below half of the last decimal is zero",
                    L"><Feature name='SuperelevationConfig'><Property label='normalCrown' value='0.00004'/></Feature>",
                    L"><Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
                    L"<Feature name=\"SuperelevationConfig\"><Property label=\"normalCrown\" value=\"0.\"/>"
                    L"<Property label=\"singleLaneRoad\" value=\"false\"/>"
                    L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>"},
        WritingCase{L"a negative cross fall below half of the last decimal has no sign",
                    L"><Feature name='SuperelevationConfig'><Property label='normalCrown' value='-0.00004'/></Feature>",
                    L"><Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
                    L"<Feature name=\"SuperelevationConfig\"><Property label=\"normalCrown\" value=\"0.\"/>"
                    L"<Property label=\"singleLaneRoad\" value=\"false\"/>"
                    L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>"},
        WritingCase{L"an empty free slope list is not written and the superelevation goes all the same",
                    L"><Superelevation/><Feature name='SuperelevationConfig'><Property label='useSlopeList' "
                    L"value='true'/></Feature>",
                    L"><Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>"
                    L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"false\"/>"
                    L"<Property label=\"useSlopeList\" value=\"true\"/></Feature>"},
        WritingCase{L"widening on both sides, left before right",
                    L"><Feature name='WideningList'><Property label='widthRightValue' value='100 1 2'/>"
                    L"<Property label='widthLeftValue' value='50 0.5'/></Feature>",
                    L">" + DEFAULT_FEATURES +
                        L"<Feature name=\"WideningList\"><Property label=\"widthLeftValue\" value=\"50. 0.5\"/>"
                        L"<Property label=\"widthRightValue\" value=\"100. 1. 2\"/></Feature>"},
        WritingCase{L"each point of a widening is a row of its own",
                    L"><Feature name='WideningList'><Property label='widthLeftValue' value='50 0.5'/>"
                    L"<Property label='widthLeftValue' value='60 1'/></Feature>",
                    L">" + DEFAULT_FEATURES +
                        L"<Feature name=\"WideningList\"><Property label=\"widthLeftValue\" value=\"50. 0.5\"/>"
                        L"<Property label=\"widthLeftValue\" value=\"60. 1.\"/></Feature>"},
        WritingCase{L"of two WideningList features the second takes the rows behind its own",
                    L"><Feature name='WideningList'><Property label='widthLeftValue' value='50 0.5'/></Feature>"
                    L"<Feature name='WideningList'><Property label='widthLeftValue' value='60 1'/></Feature>",
                    L"><Feature name=\"WideningList\"><Property label=\"widthLeftValue\" value=\"60 1\"/>"
                    L"<Property label=\"widthLeftValue\" value=\"50. 0.5\"/>"
                    L"<Property label=\"widthLeftValue\" value=\"60. 1.\"/></Feature>" +
                        DEFAULT_FEATURES},
        WritingCase{L"geometry and profile are written in their places",
                    L"><Profile><ProfSurf name='g'><PntList2D>1 "
                    L"2</PntList2D></ProfSurf></Profile><CoordGeom><Line><Start/><End/></Line></CoordGeom>",
                    L"><Profile><ProfSurf name=\"g\"><PntList2D>1. 2.</PntList2D></ProfSurf></Profile>"
                    L"<CoordGeom><Line><Start name=\"BP\"/><End name=\"EP\"/></Line></CoordGeom>" +
                        DEFAULT_FEATURES}),
    BY_RULE);

TEST(FViewAlignment, CrossSectionsReferToTheDesignProfile)
{
    EXPECT_EQ(
        Written<FViewAlignment>(L"<Alignment><CrossSects><CrossSect sta='1'/></CrossSects><CrossSects><x/></CrossSects>"
                                L"<Profile><ProfAlign name='計画'/></Profile></Alignment>"),
        L"<Alignment><CrossSects><CrossSect sta=\"1\"/><Feature><Property label=\"profAlignRefs\" "
        L"value=\"計画\"/></Feature></CrossSects>"
        L"<CrossSects><x/></CrossSects><Profile><ProfAlign name=\"計画\"/></Profile>" +
            DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, WithoutADesignProfileCrossSectionsReferToNothing)
{
    EXPECT_EQ(Written<FViewAlignment>(L"<Alignment><CrossSects><CrossSect sta='1'/></CrossSects></Alignment>"),
              L"<Alignment><CrossSects><CrossSect sta=\"1\"/></CrossSects>" + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, AReferenceThatStandsIsUpdatedInTheFirstFeatureWithoutAName)
{
    EXPECT_EQ(
        Written<FViewAlignment>(
            L"<Alignment><CrossSects><Feature name='f'><Property label='profAlignRefs' value='x'/></Feature>"
            L"<Feature><Property label='a' value='1'/><Property label='profAlignRefs' value='旧'/></Feature>"
            L"<CrossSect/><Feature><Property label='profAlignRefs' value='y'/></Feature></CrossSects>"
            L"<Profile><ProfAlign name='計画'/></Profile></Alignment>"),
        L"<Alignment><CrossSects><Feature name=\"f\"><Property label=\"profAlignRefs\" value=\"x\"/></Feature>"
        L"<Feature><Property label=\"a\" value=\"1\"/><Property label=\"profAlignRefs\" value=\"計画\"/></Feature>"
        L"<CrossSect/><Feature><Property label=\"profAlignRefs\" value=\"y\"/></Feature></CrossSects>"
        L"<Profile><ProfAlign name=\"計画\"/></Profile>" +
            DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, ASecondExportWritesTheReferenceOnce)
{
    XmlText xml(
        L"<Alignment><CrossSects><CrossSect/></CrossSects><Profile><ProfAlign name='計画'/></Profile></Alignment>");
    FViewAlignment alignment;
    alignment.ReadElement(xml.Root());
    alignment.WriteElement(xml.Root());
    const std::wstring first = xml.Text();
    alignment.WriteElement(xml.Root());
    EXPECT_EQ(xml.Text(), first);
}

TEST(FViewAlignment, AGeometryInAnotherCaseInFrontKeepsTheGeometryFromBeingWritten)
{
    const std::wstring geometry = L"<coordGeom><Line><Start/><End/></Line></coordGeom>"
                                  L"<CoordGeom><Line><Start/><End/></Line></CoordGeom>";
    EXPECT_EQ(Read<FViewAlignment>(L"<Alignment>" + geometry + L"</Alignment>").coordGeom.elements.at(0).startName,
              L"BP");
    EXPECT_EQ(Written<FViewAlignment>(L"<Alignment>" + geometry + L"</Alignment>"),
              L"<Alignment>" + geometry + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, AProfileInAnotherCaseInFrontKeepsTheProfileFromBeingWritten)
{
    const std::wstring profiles = L"<PROFILE/><Profile><ProfAlign name=\"a\"><PVI>5 1</PVI></ProfAlign></Profile>";
    EXPECT_EQ(Read<FViewAlignment>(L"<Alignment>" + profiles + L"</Alignment>").profile.staStart, 5.0);
    EXPECT_EQ(Written<FViewAlignment>(L"<Alignment>" + profiles + L"</Alignment>"),
              L"<Alignment>" + profiles + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, OldDesignFeaturesGoOnceEachAndByTheirNames)
{
    const std::wstring features = L"<Feature name=\"Horizontal\"/><Feature name=\"Interval\"/>"
                                  L"<Feature name=\"SuperelevationConfig\"/><Feature name=\"SlopeList\"/>"
                                  L"<Feature name=\"WideningList\"/>";
    const auto after = [&](void (*remove)(const WcXmNode&)) {
        XmlText xml(L"<Alignment>" + features + features + L"</Alignment>");
        remove(xml.Root());
        const std::wstring text = xml.Text();
        EXPECT_TRUE(text.ends_with(features + L"</Alignment>"));
        return text.substr(11, text.size() - 11 - features.size() - 12);
    };
    EXPECT_EQ(after(RemoveOldDesignFeatures), L"<Feature name=\"Horizontal\"/><Feature name=\"SlopeList\"/>"
                                              L"<Feature name=\"WideningList\"/>");
    EXPECT_EQ(after(RemoveSlopeListFeature), L"<Feature name=\"Horizontal\"/><Feature name=\"Interval\"/>"
                                             L"<Feature name=\"SuperelevationConfig\"/>"
                                             L"<Feature name=\"WideningList\"/>");
    EXPECT_EQ(after(RemoveWideningListFeature), L"<Feature name=\"Horizontal\"/><Feature name=\"Interval\"/>"
                                                L"<Feature name=\"SuperelevationConfig\"/>"
                                                L"<Feature name=\"SlopeList\"/>");
}

TEST(FViewAlignment, RemovingEmptyCrossSectionsTellsWhetherOneWasThere)
{
    XmlText xml(L"<Alignment><CrossSects/><crosssects/><CrossSects><x/></CrossSects><CrossSects/></Alignment>");
    EXPECT_TRUE(RemoveEmptyCrossSects(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<Alignment><crosssects/><CrossSects><x/></CrossSects></Alignment>");
    EXPECT_FALSE(RemoveEmptyCrossSects(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<Alignment><crosssects/><CrossSects><x/></CrossSects></Alignment>");
}

TEST(FViewAlignment, CrossSectionsWithoutAChildAreDropped)
{
    EXPECT_EQ(Written<FViewAlignment>(
                  L"<Alignment><crosssects/><CrossSects name='a'/><CrossSects>x</CrossSects><CrossSects/></Alignment>"),
              L"<Alignment><crosssects/><CrossSects>x</CrossSects>" + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, WithoutCrossSectionsOfItsOwnThoseOfTheDocumentStayEvenIfTheyAreEmpty)
{
    EXPECT_EQ(WrittenInto(FViewAlignment(), L"<Alignment><CrossSects/></Alignment>"),
              L"<Alignment><CrossSects/>" + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, AFailingCrossSectionLeavesWhatIsWrittenAfterIt)
{
    const std::wstring children = L"<CrossSects/><CrossSects><CrossSect><CrossSectSurf/></CrossSect></CrossSects>"
                                  L"<Profile><ProfAlign name=\"a\"><PVI>5 1</PVI></ProfAlign></Profile>"
                                  L"<Superelevation><FullSuperSta>1</FullSuperSta></Superelevation>";
    XmlText xml(L"<Alignment>" + children + L"</Alignment>");
    FViewAlignment alignment;
    EXPECT_TRUE(alignment.ReadElement(xml.Root()));
    EXPECT_EQ(alignment.profile.staStart, 5.0);
    EXPECT_FALSE(alignment.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<Alignment>" + children + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, AFailingCrossSectionFailsTheAlignment)
{
    XmlText xml(L"<Alignments><Alignment><CrossSects><CrossSect><CrossSectSurf/></CrossSect></CrossSects></Alignment></"
                L"Alignments>");
    FViewAlignments route;
    route.ReadElement(xml.Root());
    EXPECT_FALSE(route.WriteElement(xml.Root()));
}

TEST(FViewAlignment, TheOutputVersionReachesTheCrossSections)
{
    auto alignment = Read<FViewAlignment>(
        L"<Alignment><CoordGeom/><StaEquation/><CrossSects><CrossSect/></CrossSects><CrossSects/>"
        L"<Profile><ProfSurf><PntList2D>1 2</PntList2D></ProfSurf></Profile><Superelevation/>"
        L"<Feature name='SlopeList'><Property label='slopeValue' value='1 2'/></Feature><Feature name='WideningList'>"
        L"<Property label='widthLeftValue' value='1 2'/><Property label='widthRightValue' value='1 2'/></Feature>"
        L"</Alignment>");
    alignment.SetOutputVersion(3);
    EXPECT_EQ(alignment.version, 3);
    ASSERT_EQ(alignment.crossSects.size(), 2U);
    EXPECT_EQ(alignment.crossSects[0].version, 3);
    EXPECT_EQ(alignment.crossSects[0].crossSects.at(0).version, 3);
    EXPECT_EQ(alignment.crossSects[1].version, 3);
    // Nothing else depends on it.
    EXPECT_EQ(alignment.coordGeom.version, 0);
    EXPECT_EQ(alignment.staEquations.at(0).version, 0);
    EXPECT_EQ(alignment.profile.version, 0);
    EXPECT_EQ(alignment.profile.profSurfs.at(0).version, 0);
    EXPECT_EQ(alignment.profile.profSurfs.at(0).pntList2D.version, 0);
    EXPECT_EQ(alignment.superelevations.at(0).version, 0);
    EXPECT_EQ(alignment.slopeList.at(0).version, 0);
    EXPECT_EQ(alignment.widthLeftValue.at(0).version, 0);
    EXPECT_EQ(alignment.widthRightValue.at(0).version, 0);
}

TEST(FViewAlignment, WideningIsWrittenFromVersion15On)
{
    const std::wstring xml = L"<Alignment><Feature name='WideningList'><Property label='widthLeftValue' value='50 "
                             L"0.5'/></Feature></Alignment>";
    EXPECT_EQ(Written<FViewAlignment>(xml, 1), L"<Alignment>" + DEFAULT_FEATURES + L"</Alignment>");
    EXPECT_EQ(Written<FViewAlignment>(xml, 2), L"<Alignment>" + DEFAULT_FEATURES +
                                                   L"<Feature name=\"WideningList\"><Property label=\"widthLeftValue\" "
                                                   L"value=\"50. 0.5\"/></Feature></Alignment>");
    EXPECT_EQ(Written<FViewAlignment>(L"<Alignment/>", 2), L"<Alignment>" + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, WithoutSuperelevationsOfItsOwnThoseOfTheDocumentStay)
{
    const std::wstring superelevations = L"<Superelevation><FullSuperSta>1</FullSuperSta></Superelevation>"
                                         L"<superelevation/><Superelevation/>";
    EXPECT_EQ(WrittenInto(FViewAlignment(), L"<Alignment>" + superelevations + L"</Alignment>"),
              L"<Alignment>" + superelevations + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, FlagsWithoutAValueAreLeftOut)
{
    FViewAlignment alignment;
    alignment.singleLaneRoad = -1;
    alignment.useSlopeList = -1;
    alignment.method.clear();
    EXPECT_EQ(WrittenInto(alignment, L"<Alignment><Superelevation/></Alignment>"), L"<Alignment/>");
}

TEST(FViewAlignment, ASlopeListIsWrittenWithoutAValueOfItsFlagAndWithEmptyEntries)
{
    FViewAlignment alignment;
    alignment.singleLaneRoad = -1;
    alignment.useSlopeList = -1;
    alignment.method.clear();
    alignment.slopeList.resize(2);
    alignment.slopeList[0].staValue = L"100";
    alignment.slopeList[0].leftSlope = L"2.0";
    EXPECT_EQ(WrittenInto(alignment, L"<Alignment/>"),
              L"<Alignment><Feature name=\"SlopeList\"><Property label=\"slopeValue\" value=\"100 2.0 \"/>"
              L"<Property label=\"slopeValue\" value=\"  \"/></Feature></Alignment>");
}

TEST(FViewAlignment, SlopesOfAllLanesAreWrittenInEveryVersion)
{
    const std::wstring slopes = L"<Feature name=\"SlopeList\"><Property label=\"slopeValue\" value=\"100 0 2.5\"/>"
                                L"<Property label=\"slopeValue\" value=\"200 1.5 \"/></Feature></Alignment>";
    for (const std::int32_t version : {0, 1, 2, 3, 4})
    {
        const std::wstring written = Written<FViewAlignment>(
            L"<Alignment desc='任意横断勾配リスト = はい'><Feature name='SlopeList'><Property label='slopeValue' "
            L"value='100 0 2.5'/><Property label='slopeValue' value='200 1.5'/></Feature></Alignment>",
            version);
        EXPECT_TRUE(written.ends_with(slopes)) << testing::PrintToString(written) << version;
    }
}

TEST(FViewAlignment, ANewNameIsWrittenAndAnEmptyOneIsNot)
{
    FViewAlignment alignment;
    alignment.name = L"新";
    EXPECT_EQ(WrittenInto(alignment, L"<Alignment name='旧'/>"),
              L"<Alignment name=\"新\">" + DEFAULT_FEATURES + L"</Alignment>");
    alignment.name.clear();
    EXPECT_EQ(WrittenInto(alignment, L"<Alignment name='旧'/>"),
              L"<Alignment name=\"旧\">" + DEFAULT_FEATURES + L"</Alignment>");
}

TEST(FViewAlignment, AFinishedElementReadAgainGivesTheSameDesignValues)
{
    const std::wstring finished = Written<FViewAlignment>(
        L"<Alignment desc='主測点間隔 = 20 副測点間隔=12.3456789 直線部横断勾配 = "
        L"2'><CoordGeom><Line><Start/><End/></Line></CoordGeom>"
        L"<Feature name='WideningList'><Property label='widthLeftValue' value='50 0.5 2'/></Feature></Alignment>");
    EXPECT_EQ(Written<FViewAlignment>(finished), finished);
}

TEST(FViewAlignment, ASecondExportGivesTheSameFeatures)
{
    XmlText xml(L"<Alignment desc='主測点間隔 = 20'><x/></Alignment>");
    FViewAlignment alignment;
    alignment.ReadElement(xml.Root());
    alignment.WriteElement(xml.Root());
    const std::wstring first = xml.Text();
    alignment.WriteElement(xml.Root());
    EXPECT_EQ(xml.Text(), first);
}

TEST(FViewAlignment, ASecondExportAppendsTheGroundLinesOnceMore)
{
    XmlText xml(L"<Alignment><Profile><ProfSurf name='g'><PntList2D>1 2</PntList2D></ProfSurf></Profile></Alignment>");
    const std::wstring ground = L"<ProfSurf name=\"g\"><PntList2D>1. 2.</PntList2D></ProfSurf>";
    FViewAlignment alignment;
    alignment.ReadElement(xml.Root());
    EXPECT_TRUE(alignment.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<Alignment><Profile>" + ground + L"</Profile>" + DEFAULT_FEATURES + L"</Alignment>");
    EXPECT_TRUE(alignment.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(),
              L"<Alignment><Profile>" + ground + ground + L"</Profile>" + DEFAULT_FEATURES + L"</Alignment>");
}

/// An alignment with a value in every field but the start.
FViewAlignment FullAlignment()
{
    FViewAlignment alignment;
    alignment.name = L"a";
    alignment.mainInterval = alignment.subInterval = alignment.normalCrown = 1.0;
    alignment.singleLaneRoad = alignment.useSlopeList = 1;
    alignment.method = L"IP法";
    alignment.verticalOrigin = alignment.applicationCriterion = alignment.projectPhase = alignment.projectName = L"x";
    alignment.superelevations.resize(1);
    alignment.slopeList.resize(1);
    alignment.coordGeom.elements.resize(1);
    alignment.crossSects.resize(1);
    alignment.profile.staStart = 1.0;
    alignment.profile.profAlignName = L"p";
    alignment.profile.profSurfs.resize(1);
    alignment.staEquations.resize(1);
    alignment.widthLeftValue.resize(1);
    alignment.widthRightValue.resize(1);
    return alignment;
}

/// Every field as it is in a new alignment, but for the start, which stays.
void ExpectEmpty(const FViewAlignment& alignment)
{
    EXPECT_EQ(alignment.name, L"");
    EXPECT_EQ(alignment.mainInterval, UNSET_DOUBLE);
    EXPECT_EQ(alignment.subInterval, UNSET_DOUBLE);
    EXPECT_EQ(alignment.normalCrown, UNSET_DOUBLE);
    EXPECT_EQ(alignment.singleLaneRoad, 0);
    EXPECT_EQ(alignment.useSlopeList, 0);
    EXPECT_EQ(alignment.method, L"要素法");
    EXPECT_EQ(alignment.verticalOrigin, L"");
    EXPECT_EQ(alignment.applicationCriterion, L"");
    EXPECT_EQ(alignment.projectPhase, L"");
    EXPECT_EQ(alignment.projectName, L"");
    EXPECT_TRUE(alignment.superelevations.empty());
    EXPECT_TRUE(alignment.slopeList.empty());
    EXPECT_TRUE(alignment.coordGeom.elements.empty());
    EXPECT_TRUE(alignment.crossSects.empty());
    EXPECT_EQ(alignment.profile.staStart, UNSET_DOUBLE);
    EXPECT_EQ(alignment.profile.profAlignName, L"");
    EXPECT_TRUE(alignment.profile.profSurfs.empty());
    EXPECT_TRUE(alignment.staEquations.empty());
    EXPECT_TRUE(alignment.widthLeftValue.empty());
    EXPECT_TRUE(alignment.widthRightValue.empty());
}

template <class... Classes>
constexpr bool ALL_MOVE = (... && (std::is_nothrow_move_constructible_v<Classes> &&
                                   std::is_nothrow_move_assignable_v<Classes>));

static_assert(ALL_MOVE<FViewAlignment, FViewCoordGeom, FViewCoordGeomElement, FViewCrossSects, FViewProfile,
                       FViewProfSurf, FViewPntList2D, FViewSuperelevation, FViewStaEquation, FViewStaEquationArray,
                       FViewSlopeValue, FViewWidening, FViewFeature, FViewProperty>,
              "a list that grows moves its entries only if moving can't fail");

/// The places where an alignment keeps what it holds.
auto Places(const FViewAlignment& alignment)
{
    return std::tuple(alignment.superelevations.data(), alignment.slopeList.data(), alignment.coordGeom.elements.data(),
                      alignment.crossSects.data(), alignment.profile.profSurfs.data(), alignment.staEquations.data(),
                      alignment.widthLeftValue.data(), alignment.widthRightValue.data());
}

TEST(FViewAlignment, MovesWithoutCopyingWhatItHoldsAndLeavesItsStart)
{
    FViewAlignment alignment = FullAlignment();
    alignment.staStart.value = 7.0;
    const auto places = Places(alignment);
    FViewAlignment moved(std::move(alignment));
    EXPECT_EQ(Places(moved), places);
    EXPECT_EQ(moved.name, L"a");
    EXPECT_EQ(moved.staStart.value, UNSET_DOUBLE);
    FViewAlignment assigned;
    assigned.staStart.value = 8.0;
    assigned = std::move(moved);
    EXPECT_EQ(Places(assigned), places);
    EXPECT_EQ(assigned.staStart.value, 8.0);
}

TEST(FViewAlignment, AListThatGrowsMovesItsAlignments)
{
    PiCmCopyList<FViewAlignment> list;
    list.push_back(FullAlignment());
    const auto places = Places(list[0]);
    list.reserve(list.capacity() + 1);
    EXPECT_EQ(Places(list[0]), places);
}

TEST(FViewAlignment, ClearEmptiesEveryFieldButTheStart)
{
    FViewAlignment alignment = FullAlignment();
    alignment.staStart.value = 7.0;
    alignment.Clear();
    ExpectEmpty(alignment);
    EXPECT_EQ(alignment.staStart.value, 7.0);
}

TEST(FViewAlignment, ReadingASecondElementKeepsNothingOfTheFirst)
{
    FViewAlignment alignment = FullAlignment();
    EXPECT_TRUE(alignment.ReadElement(XmlText(L"<Alignment/>").Root()));
    ExpectEmpty(alignment);
}

} // namespace
} // namespace jlandxml
