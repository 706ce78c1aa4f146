#include "model/InputWarnings.h"

#include "model/FViewLandXML.h"
#include "support/ToldWarnings.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

FViewCgPointsWidthStake StakeGroup(const wchar_t* name, const wchar_t* type, const wchar_t* file)
{
    FViewCgPointsWidthStake group;
    group.name = name;
    group.type = type;
    group.sourceFile = file;
    group.points.emplace_back();
    return group;
}

TEST(InputWarnings, StakeGroupsThatTheSchemaRefusesAreToldByTheirFile)
{
    FViewCgPointsWidthStakeList groups;
    groups.push_back(StakeGroup(L"左", L"open", L"1.csv"));
    groups.push_back(StakeGroup(L"右", L"", L"1.csv"));
    groups.push_back(StakeGroup(L"", L"open", L"1.csv"));
    EXPECT_EQ(WarningsOf([&] { WarnOfStakes(groups); }),
              (Told{L"stake-group-without-type 1.csv 右", L"stake-group-without-name 1.csv 名前のないグループ"}));
}

TEST(InputWarnings, AGroupNameIsToldWhereAnotherRouteHasIt)
{
    FViewCgPointsWidthStakeList groups;
    groups.push_back(StakeGroup(L"左", L"open", L"1.csv"));
    groups.push_back(StakeGroup(L"左", L"open", L"2.csv"));
    EXPECT_EQ(WarningsOf([&] { WarnOfStakes(groups); }), (Told{L"same-group-name 2.csv 左"}));
}

TEST(InputWarnings, AGroupNameMayStandTwiceInOneFile)
{
    FViewCgPointsWidthStakeList groups;
    groups.push_back(StakeGroup(L"左", L"open", L"1.csv"));
    groups.push_back(StakeGroup(L"左", L"closed", L"1.csv"));
    EXPECT_EQ(WarningsOf([&] { WarnOfStakes(groups); }), Told());
}

TEST(InputWarnings, OfGroupsThatAnOldVersionLeavesOutThoseWithPointsAreTold)
{
    FViewCgPointsWidthStakeList groups;
    groups.push_back(StakeGroup(L"左", L"open", L"1.csv"));
    groups.emplace_back().name = L"右";
    EXPECT_EQ(WarningsOf([&] { WarnOfStakesLeftOut(groups); }), (Told{L"width-stakes-left-out 1.csv 左"}));
}

TEST(InputWarnings, EveryReferenceToAnAlignmentIsLookedAt)
{
    XmlText xml(L"<LandXML/>");
    FViewLandXML model;
    model.alignments.emplace_back().alignments.emplace_back().name = L"A";
    for (const wchar_t* const reference : {L"A", L"B", L""})
    {
        FViewCgPointsWidthStake stakes = StakeGroup(L"幅杭", L"open", L"w.csv");
        stakes.alignmentRefs = reference;
        model.widthStakePoints.push_back(stakes);
        FViewCgPointsIntermediate points;
        points.alignmentRefs = reference;
        points.name = L"中間点";
        points.sourceFile = L"i.csv";
        model.intermediatePoints.push_back(points); // without points it isn't written
        points.points.emplace_back();
        model.intermediatePoints.push_back(points);
        model.surfaces.emplace_back().surfaces.emplace_back().alignmentRefs = reference;
        model.surfaces.back().surfaces.back().name = L"地形";
    }
    EXPECT_EQ(WarningsOf([&] { WarnOfDoubtful(model, xml.Root()); }),
              (Told{L"no-such-alignment i.csv 中間点（線形「B」）", L"no-such-alignment w.csv 幅杭（線形「B」）",
                    L"no-such-alignment 地形（線形「B」）"}));
}

TEST(InputWarnings, NotedValuesAreComparedWhereBothAreThere)
{
    XmlText xml(L"<LandXML/>");
    FViewLandXML model;
    FViewAlignment& alignment = model.alignments.emplace_back().alignments.emplace_back();
    alignment.name = L"A";
    alignment.projectName = L"名";
    alignment.projectPhase = L"詳細";
    alignment.applicationCriterion = L"MlitLandXmlVer.1.7";
    EXPECT_EQ(WarningsOf([&] { WarnOfDoubtful(model, xml.Root()); }), Told());
    model.project.name = L"名";
    model.project.projectPhase = L"予備";
    model.project.applicationCriterion = L"MlitLandXmlVer.1.5";
    EXPECT_EQ(WarningsOf([&] { WarnOfDoubtful(model, xml.Root()); }),
              (Told{L"desc-differs A（事業段階「詳細」、「予備」）、A（適用基準「MlitLandXmlVer.1.7」、"
                    L"「MlitLandXmlVer.1.5」）"}));
}

TEST(InputWarnings, ADocumentOfLandXmlInMetresHasNone)
{
    for (const wchar_t* const text :
         {L"<LandXML/>", L"<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2'><Units/></LandXML>",
          L"<LandXML><Units><Metric/></Units></LandXML>",
          L"<LandXML><Units><Metric linearUnit='meter'/></Units></LandXML>"})
    {
        XmlText xml(text);
        EXPECT_EQ(WarningsOf([&] { WarnOfInput(xml.Root()); }), Told());
    }
}

TEST(InputWarnings, OnlyReferencesToPointsThatGoAreTold)
{
    XmlText xml(L"<LandXML><CgPoints><CgPoints><CgPoint name='1'/></CgPoints></CgPoints><Alignments><a pntRef='1'/>"
                L"<a pntRef='2'/></Alignments></LandXML>");
    const auto names = WarnOfPoints(xml.Root());
    EXPECT_EQ(WarningsOf([&] { WarnOfReferencesTo(names, xml.Root()); }), (Told{L"dangling-pntref a1（1）"}));
}

TEST(InputWarnings, ADocumentWithoutATreeHasNeitherAFileNorAWarningButForItsRoute)
{
    WcXmDocument never;
    FViewLandXML model;
    model.alignments.emplace_back().alignments.emplace_back().name = L"A";
    model.surfaces.emplace_back().surfaces.emplace_back().alignmentRefs = L"B";
    EXPECT_EQ(WarningsOf([&] { WarnOfDoubtful(model, WcXmNode(never)); }), (Told{L"no-such-alignment （線形「B」）"}));
}

TEST(InputWarnings, APropertyThatNoDesignValueReadsIsToldWhereItHoldsAText)
{
    XmlText xml(L"<Alignment name='A'><Feature name='Interval'><Property label='x' value='5'/>"
                L"<Property label='y' value=''/><Property label='z'/></Feature></Alignment>");
    FViewAlignment alignment;
    EXPECT_EQ(WarningsOf([&] { alignment.ReadElement(xml.Root()); }),
              (Told{L"design-value-left-out A／Interval（x「5」）"}));
}

} // namespace
} // namespace jlandxml
