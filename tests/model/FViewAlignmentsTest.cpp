#include "model/FViewAlignments.h"

#include "model/CurrentDesignType.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

std::wstring Info(const std::wstring& properties)
{
    return L"<Alignments name='a'><Feature>" + properties + L"</Feature></Alignments>";
}

TEST(FViewAlignments, TakesTheRouteFromTheNamelessFeature)
{
    const auto route = Read<FViewAlignments>(
        Info(L"<Property label='designGmType' value='河川'/><Property label='classification' value='1級'/>"
             L"<Property label='side' value='右岸'/><Property label='trafficVolume' value='5'/>"
             L"<Property label='x' value='y'/>"));
    EXPECT_EQ(route.name, L"a");
    EXPECT_EQ(route.designGmType, L"河川");
    EXPECT_EQ(route.riverClassification, L"1級");
    EXPECT_EQ(route.roadClassification, L"");
    EXPECT_EQ(route.side, L"右岸");
    EXPECT_EQ(route.trafficVolume, L"5");
}

TEST(FViewAlignments, AnEmptyNameAttributeCountsAsNameless)
{
    EXPECT_EQ(Read<FViewAlignments>(
                  L"<Alignments><Feature name=''><Property label='designGmType' value='河川'/></Feature></Alignments>")
                  .designGmType,
              L"河川");
}

TEST(FViewAlignments, AClassificationBeforeTheTypeIsThatOfARoad)
{
    const auto route = Read<FViewAlignments>(
        Info(L"<Property label='classification' value='1級'/><Property label='designGmType' value='河川'/>"));
    EXPECT_EQ(route.roadClassification, L"1級");
    EXPECT_EQ(route.riverClassification, L"");
}

TEST(FViewAlignments, NamelessFeaturesAddUpAndNamedOnesDoNotCount)
{
    const auto route =
        Read<FViewAlignments>(L"<Alignments><Feature><Property label='designGmType' value='道路'/></Feature><Feature "
                              L"name='f'><Property label='side' value='左岸'/>"
                              L"</Feature><feature><Property label='side' value='左岸'/></feature><Feature><Property "
                              L"label='designGmType' value='河川'/>"
                              L"<Property label='classification' value='2級'/></Feature></Alignments>");
    EXPECT_EQ(route.designGmType, L"河川");
    EXPECT_EQ(route.riverClassification, L"2級");
    EXPECT_EQ(route.side, L"");
}

TEST(FViewAlignments, WhatIsMissingComesFromTheDescOfTheFirstAlignment)
{
    const auto route =
        Read<FViewAlignments>(L"<Alignments><Feature><Property label='trafficVolume' value='7'/></Feature>"
                              L"<Alignment desc='構築物情報 = 河川 規格・等級 = 1級 設計交通量 = 5 左右岸区分 = "
                              L"右岸'/><Alignment desc='構築物情報 = 道路'/></Alignments>");
    EXPECT_EQ(route.designGmType, L"河川");
    EXPECT_EQ(route.riverClassification, L"1級");
    EXPECT_EQ(route.roadClassification, L"");
    EXPECT_EQ(route.trafficVolume, L"7");
    EXPECT_EQ(route.side, L"右岸");
}

TEST(FViewAlignments, WithoutATypeTheClassOfDescIsThatOfARoad)
{
    const auto route = Read<FViewAlignments>(L"<Alignments><Alignment desc='規格・等級 = 第3種第2級'/></Alignments>");
    EXPECT_EQ(route.designGmType, L"");
    EXPECT_EQ(route.roadClassification, L"第3種第2級");
    EXPECT_EQ(route.riverClassification, L"");
}

TEST(FViewAlignments, WhatTheFeatureGivesDescDoesNotChange)
{
    const auto route =
        Read<FViewAlignments>(L"<Alignments><Feature><Property label='designGmType' value='道路'/>"
                              L"<Property label='classification' value='x'/><Property label='side' value='左岸'/>"
                              L"</Feature><Alignment desc='構築物情報 = 河川 規格・等級 = y 左右岸区分 = 右岸'/>"
                              L"</Alignments>");
    EXPECT_EQ(route.designGmType, L"道路");
    EXPECT_EQ(route.roadClassification, L"x");
    EXPECT_EQ(route.riverClassification, L"");
    EXPECT_EQ(route.trafficVolume, L"");
    EXPECT_EQ(route.side, L"左岸");
}

TEST(FViewAlignments, AnEmptyValueOfALaterNamelessFeatureOverwrites)
{
    EXPECT_EQ(Read<FViewAlignments>(L"<Alignments><Feature><Property label='side' value='右岸'/></Feature>"
                                    L"<Feature><Property label='side' value=''/></Feature></Alignments>")
                  .side,
              L"");
}

TEST(FViewAlignments, TheDescOfALaterAlignmentHasNoEffect)
{
    const auto route =
        Read<FViewAlignments>(L"<Alignments><alignment desc='左右岸区分 = 右岸'/><Alignment/><Alignment "
                              L"desc='構築物情報 = 道路 規格・等級 = x 設計交通量 = 1 左右岸区分 = 左岸'/>"
                              L"</Alignments>");
    EXPECT_EQ(route.designGmType, L"");
    EXPECT_EQ(route.roadClassification, L"");
    EXPECT_EQ(route.trafficVolume, L"");
    EXPECT_EQ(route.side, L"");
    EXPECT_EQ(route.alignments.size(), 2U);
}

TEST(FViewAlignments, AnUnnamedRouteWithoutATypeIsASite)
{
    EXPECT_EQ(Written<FViewAlignments>(L"<Alignments/>"), L"<Alignments name=\"サイト\"/>");
    EXPECT_EQ(Written<FViewAlignments>(L"<Alignments name='' desc='d'/>"), L"<Alignments name=\"サイト\" desc=\"d\"/>");
}

/// A route read from `xml`, changed, and written back.
template <class Change>
std::wstring Changed(const std::wstring& xml, Change change)
{
    XmlText text(xml);
    FViewAlignments route;
    route.ReadElement(text.Root());
    change(route);
    EXPECT_TRUE(route.WriteElement(text.Root()));
    EXPECT_EQ(GetCurrentDesignType(), route.designGmType);
    return text.Text();
}

TEST(FViewAlignments, ARoadThatBecomesARiverLosesItsTrafficAndItsClass)
{
    EXPECT_EQ(
        Changed(L"<Alignments name='a'><Feature><Property label='designGmType' value='道路'/><Property "
                L"label='classification' value='x'/>"
                L"<Property label='trafficVolume' value='5'/><Property label='y' value='z'/></Feature></Alignments>",
                [](FViewAlignments& route) {
                    route.designGmType = L"河川";
                    route.riverClassification = L"1級";
                    route.trafficVolume.clear();
                    route.side = L"右岸";
                }),
        L"<Alignments name=\"a\"><Feature><Property label=\"designGmType\" value=\"河川\"/><Property label=\"y\" "
        L"value=\"z\"/>"
        L"<Property label=\"classification\" value=\"1級\"/><Property label=\"side\" "
        L"value=\"右岸\"/></Feature></Alignments>");
}

TEST(FViewAlignments, ARoadThatBecomesARiverLosesTheTrafficOfEveryNamelessFeature)
{
    EXPECT_EQ(Changed(L"<Alignments name='a'><Feature><Property label='designGmType' value='道路'/></Feature>"
                      L"<Feature name='f'><Property label='trafficVolume' value='1'/></Feature>"
                      L"<Feature><Property label='trafficVolume' value='5'/><Property label='y' value='z'/></Feature>"
                      L"<Feature name=''><Property label='trafficVolume' value='6'/></Feature></Alignments>",
                      [](FViewAlignments& route) {
                          route.designGmType = L"河川";
                          route.trafficVolume.clear();
                      }),
              L"<Alignments name=\"a\"><Feature><Property label=\"designGmType\" value=\"河川\"/></Feature>"
              L"<Feature name=\"f\"><Property label=\"trafficVolume\" value=\"1\"/></Feature>"
              L"<Feature><Property label=\"y\" value=\"z\"/></Feature><Feature name=\"\"/></Alignments>");
}

TEST(FViewAlignments, ARiverThatBecomesARoadLosesItsBankAndItsClass)
{
    EXPECT_EQ(
        Changed(L"<Alignments name='a'><Feature><Property label='designGmType' value='河川'/><Property "
                L"label='classification' value='1級'/>"
                L"<Property label='side' value='右岸'/><Property label='side' value='左岸'/></Feature></Alignments>",
                [](FViewAlignments& route) { route.designGmType = L"道路"; }),
        L"<Alignments name=\"a\"><Feature><Property label=\"designGmType\" value=\"道路\"/><Property label=\"side\" "
        L"value=\"左岸\"/>"
        L"</Feature></Alignments>");
}

TEST(FViewAlignments, ARouteThatKeepsItsTypeLosesNothing)
{
    const std::wstring road = L"<Alignments name=\"a\"><Feature><Property label=\"designGmType\" value=\"道路\"/>"
                              L"<Property label=\"classification\" value=\"x\"/><Property label=\"side\" "
                              L"value=\"右岸\"/></Feature></Alignments>";
    EXPECT_EQ(Written<FViewAlignments>(road), road);
    EXPECT_EQ(Changed(L"<Alignments name='a'><Feature><Property label='designGmType' value='他'/><Property "
                      L"label='classification' value='x'/>"
                      L"</Feature></Alignments>",
                      [](FViewAlignments& route) { route.designGmType = L"河川"; }),
              L"<Alignments name=\"a\"><Feature><Property label=\"designGmType\" value=\"河川\"/><Property "
              L"label=\"classification\" value=\"x\"/>"
              L"</Feature></Alignments>");
}

TEST(FViewAlignments, ARiverIsWrittenWithItsTypeClassTrafficAndBankInThisOrder)
{
    FViewAlignments route;
    route.designGmType = L"河川";
    route.roadClassification = L"第3種第2級";
    route.riverClassification = L"1級";
    route.trafficVolume = L"5";
    route.side = L"右岸";
    EXPECT_EQ(WrittenInto(route, L"<Alignments/>"),
              L"<Alignments name=\"サイト\"><Feature><Property label=\"designGmType\" value=\"河川\"/>"
              L"<Property label=\"classification\" value=\"1級\"/><Property label=\"trafficVolume\" value=\"5\"/>"
              L"<Property label=\"side\" value=\"右岸\"/></Feature></Alignments>");
}

TEST(FViewAlignments, TheBankOfARoadIsNotWritten)
{
    FViewAlignments route;
    route.designGmType = L"道路";
    route.side = L"右岸";
    route.riverClassification = L"1級";
    EXPECT_EQ(WrittenInto(route, L"<Alignments/>"), L"<Alignments name=\"サイト\"><Feature><Property "
                                                    L"label=\"designGmType\" value=\"道路\"/></Feature></Alignments>");
}

TEST(FViewAlignments, AlignmentsAreWrittenByTheirPosition)
{
    XmlText xml(L"<Alignments name='a'><Alignment name='1'/>x<alignment/><Alignment name='2'/></Alignments>");
    FViewAlignments route;
    route.ReadElement(xml.Root());
    route.alignments[0].name = L"one";
    route.alignments[1].name = L"two";
    for (FViewAlignment& alignment : route.alignments)
    {
        alignment.method.clear();
        alignment.singleLaneRoad = -1;
        alignment.useSlopeList = -1;
    }
    EXPECT_TRUE(route.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(),
              L"<Alignments name=\"a\"><Alignment name=\"one\"/>x<alignment/><Alignment name=\"two\"/></Alignments>");
}

TEST(FViewAlignments, TheOutputVersionReachesEveryAlignment)
{
    auto route = Read<FViewAlignments>(L"<Alignments><Alignment/><Alignment/></Alignments>");
    route.SetOutputVersion(3);
    EXPECT_EQ(route.version, 3);
    EXPECT_EQ(route.alignments[1].version, 3);
}

/// A route with a value in every field.
FViewAlignments FullRoute()
{
    FViewAlignments route;
    route.name = L"a";
    route.designGmType = L"河川";
    route.roadClassification = L"第3種第2級";
    route.riverClassification = L"1級";
    route.trafficVolume = L"5";
    route.side = L"右岸";
    route.alignments.resize(1);
    return route;
}

void ExpectEmpty(const FViewAlignments& route)
{
    EXPECT_EQ(route.name, L"");
    EXPECT_EQ(route.designGmType, L"");
    EXPECT_EQ(route.roadClassification, L"");
    EXPECT_EQ(route.riverClassification, L"");
    EXPECT_EQ(route.trafficVolume, L"");
    EXPECT_EQ(route.side, L"");
    EXPECT_TRUE(route.alignments.empty());
}

TEST(FViewAlignments, ClearEmptiesEveryField)
{
    FViewAlignments route = FullRoute();
    route.Clear();
    ExpectEmpty(route);
}

TEST(FViewAlignments, ReadingASecondElementKeepsNothingOfTheFirst)
{
    FViewAlignments route = FullRoute();
    EXPECT_TRUE(route.ReadElement(XmlText(L"<Alignments/>").Root()));
    ExpectEmpty(route);
}

} // namespace
} // namespace jlandxml
