#include "model/FViewCgPoints.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

const std::wstring EMPTY_POINT_FEATURE =
    L"<Property label=\"sta\" value=\".\"/><Property label=\"tangentDirectionAngle\" value=\".\"/></Feature>";

TEST(FViewCgPoints, IntermediatePointsStandBeforeTheirFeatures)
{
    FViewCgPointsIntermediate group;
    group.name = L"IntermediatePnts-1";
    group.desc = L"not written";
    group.alignmentRefs = L"R1";
    group.points.resize(2);
    group.points[0].featureRef = L"1";
    group.points[1].featureRef = L"2";
    EXPECT_EQ(WrittenInto(group, L"<CgPoints/>"),
              L"<CgPoints name=\"IntermediatePnts-1\"><CgPoint featureRef=\"1\"/><CgPoint featureRef=\"2\"/>"
              L"<Feature name=\"IntermediatePnts\"><Property label=\"alignmentRefs\" value=\"R1\"/></Feature>"
              L"<Feature name=\"1\">" +
                  EMPTY_POINT_FEATURE + L"<Feature name=\"2\">" + EMPTY_POINT_FEATURE + L"</CgPoints>");
}

TEST(FViewCgPoints, WithoutAReferenceThePointsStillHaveTheirFeatures)
{
    FViewCgPointsIntermediate group;
    group.points.resize(1);
    group.points[0].featureRef = L"1";
    EXPECT_EQ(WrittenInto(group, L"<CgPoints/>"),
              L"<CgPoints><CgPoint featureRef=\"1\"/><Feature name=\"1\">" + EMPTY_POINT_FEATURE + L"</CgPoints>");
}

TEST(FViewCgPoints, PointsOfOneNumberShareAFeature)
{
    FViewCgPointsIntermediate group;
    group.alignmentRefs = L"R1";
    group.points.resize(4);
    group.points[0].featureRef = group.points[2].featureRef = L"1";
    group.points[2].sta = 5.0;
    group.points[3].featureRef = L"IntermediatePnts";
    EXPECT_EQ(WrittenInto(group, L"<CgPoints/>"),
              L"<CgPoints><CgPoint featureRef=\"1\"/><CgPoint/><CgPoint featureRef=\"1\"/><CgPoint "
              L"featureRef=\"IntermediatePnts\"/>"
              L"<Feature name=\"IntermediatePnts\"><Property label=\"alignmentRefs\" value=\"R1\"/>" +
                  EMPTY_POINT_FEATURE +
                  L"<Feature name=\"1\"><Property label=\"sta\" value=\"5.\"/><Property "
                  L"label=\"tangentDirectionAngle\" value=\".\"/></Feature>"
                  L"<Feature>" +
                  EMPTY_POINT_FEATURE + L"</CgPoints>");
}

TEST(FViewCgPoints, WidthStakesHaveOneFeature)
{
    FViewCgPointsWidthStake group;
    group.name = L"左";
    group.desc = L"d";
    group.alignmentRefs = L"R1";
    group.type = L"open";
    group.points.resize(1);
    EXPECT_EQ(WrittenInto(group, L"<CgPoints/>"),
              L"<CgPoints name=\"左\" desc=\"d\"><CgPoint/><Feature name=\"WidthStakePnts\"><Property "
              L"label=\"alignmentRefs\" value=\"R1\"/>"
              L"<Property label=\"type\" value=\"open\"/></Feature></CgPoints>");
    group.type.clear();
    EXPECT_EQ(WrittenInto(group, L"<CgPoints/>"),
              L"<CgPoints name=\"左\" desc=\"d\"><CgPoint/><Feature name=\"WidthStakePnts\"><Property "
              L"label=\"alignmentRefs\" value=\"R1\"/>"
              L"<Property label=\"type\"/></Feature></CgPoints>");
    group.type = L"open";
    group.alignmentRefs.clear();
    EXPECT_EQ(WrittenInto(group, L"<CgPoints/>"),
              L"<CgPoints name=\"左\" desc=\"d\"><CgPoint/><Feature name=\"WidthStakePnts\"><Property "
              L"label=\"alignmentRefs\"/><Property label=\"type\" value=\"open\"/></Feature></CgPoints>");
    EXPECT_EQ(WrittenInto(FViewCgPointsWidthStake(), L"<CgPoints/>"), L"<CgPoints/>");
}

TEST(FViewCgPoints, AGroupFailsWithItsPoints)
{
    FViewCgPointsIntermediate intermediate;
    intermediate.points.resize(1);
    intermediate.points[0].firstCoordinate = intermediate.points[0].secondCoordinate = 1.0;
    EXPECT_FALSE(WrittenOntoText(intermediate));
    FViewCgPointsWidthStake stakes;
    stakes.points.resize(1);
    stakes.points[0].firstCoordinate = stakes.points[0].secondCoordinate = 1.0;
    EXPECT_FALSE(WrittenOntoText(stakes));
}

TEST(FViewCgPoints, TheOutputVersionDoesNotReachThePoints)
{
    FViewCgPointsIntermediate intermediate;
    intermediate.points.resize(1);
    intermediate.SetOutputVersion(3);
    EXPECT_EQ(intermediate.version, 3);
    EXPECT_EQ(intermediate.points[0].version, 0);
    FViewCgPointsWidthStake stakes;
    stakes.points.resize(1);
    stakes.SetOutputVersion(3);
    EXPECT_EQ(stakes.version, 3);
    EXPECT_EQ(stakes.points[0].version, 0);
}

TEST(FViewCgPoints, GroupsWithoutPointsCountInTheNumbers)
{
    FViewCgPointsIntermediateList list;
    list.resize(3);
    list[0].points.resize(2);
    list[2].points.resize(1);
    list[2].name = L"from the file";
    list.Number();
    EXPECT_EQ(list[0].name, L"IntermediatePnts-1");
    EXPECT_EQ(list[2].name, L"IntermediatePnts-3");
    EXPECT_EQ(list[0].points[1].featureRef, L"2");
    EXPECT_EQ(list[2].points[0].featureRef, L"1");
}

TEST(FViewCgPoints, WidthStakesAreNumberedWithinTheirGroup)
{
    FViewCgPointsWidthStakeList list;
    list.resize(2);
    list[0].name = L"左";
    list[0].points.resize(2);
    list[1].points.resize(1);
    list.Number();
    EXPECT_EQ(list[0].name, L"左");
    EXPECT_EQ(list[0].points[1].sequenceText, L"2");
    EXPECT_EQ(list[1].points[0].sequenceText, L"1");
}

TEST(FViewCgPoints, ReadingTakesNothingFromTheTree)
{
    XmlText xml(L"<CgPoints name='x'><CgPoint>1 2</CgPoint></CgPoints>");
    FViewCgPointsIntermediate intermediate;
    intermediate.name = intermediate.desc = intermediate.alignmentRefs = L"former";
    intermediate.points.resize(1);
    EXPECT_TRUE(intermediate.ReadElement(xml.Root()));
    EXPECT_TRUE(intermediate.points.empty());
    EXPECT_EQ(intermediate.name + intermediate.desc + intermediate.alignmentRefs, L"");
    FViewCgPointsWidthStake stakes;
    stakes.name = stakes.desc = stakes.alignmentRefs = stakes.type = L"former";
    stakes.points.resize(1);
    EXPECT_TRUE(stakes.ReadElement(xml.Root()));
    EXPECT_TRUE(stakes.points.empty());
    EXPECT_EQ(stakes.name + stakes.desc + stakes.alignmentRefs + stakes.type, L"");
}

TEST(FViewCgPoints, AHundredThousandPointsAreWrittenWithTheirFeatures)
{
    FViewCgPointsIntermediateList list;
    list.resize(1);
    list[0].points.resize(100000);
    list.Number();
    XmlText xml(L"<CgPoints/>");
    EXPECT_TRUE(list[0].WriteElement(xml.Root()));
    EXPECT_TRUE(xml.Text().ends_with(L"<Feature name=\"100000\">" + EMPTY_POINT_FEATURE + L"</CgPoints>"));
}

} // namespace
} // namespace jlandxml
