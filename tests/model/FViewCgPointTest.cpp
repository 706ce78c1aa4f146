#include "model/FViewCgPoint.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

FViewCgPointIntermediate Point(double first, double second, double third)
{
    FViewCgPointIntermediate point;
    point.firstCoordinate = first;
    point.secondCoordinate = second;
    point.thirdCoordinate = third;
    return point;
}

struct PointCase
{
    const char* name;
    double first;
    double second;
    double third;
    const wchar_t* element;
};

class CgPointText : public testing::TestWithParam<PointCase>
{};

TEST_P(CgPointText, IsItsCoordinatesInTheirOrder)
{
    EXPECT_EQ(WrittenInto(Point(GetParam().first, GetParam().second, GetParam().third), L"<CgPoints/>"),
              std::wstring(L"<CgPoints>") + GetParam().element + L"</CgPoints>");
}

INSTANTIATE_TEST_SUITE_P(
    FViewCgPoint, CgPointText,
    testing::Values(PointCase{"WithoutAnElevation", 1, 2, UNSET_DOUBLE, L"<CgPoint>1. 2.</CgPoint>"},
                    PointCase{"OfEachSize", -36000.123456789, 2, 3.5, L"<CgPoint>-36000.12345679 2. 3.5</CgPoint>"},
                    PointCase{"EightDecimals", 1.123456789, 2.123456789, 3.123456789,
                              L"<CgPoint>1.12345679 2.12345679 3.12345679</CgPoint>"},
                    PointCase{"WithoutTheSecond", 1, UNSET_DOUBLE, 3, L"<CgPoint/>"},
                    PointCase{"WithoutTheFirst", UNSET_DOUBLE, 2, 3, L"<CgPoint/>"}),
    [](const auto& one) { return one.param.name; });

TEST(FViewCgPoint, AnIntermediatePointHasNameAndNumber)
{
    FViewCgPointIntermediate point;
    point.name = L"No.1";
    point.featureRef = L"7";
    EXPECT_EQ(WrittenInto(point, L"<CgPoints><x/></CgPoints>"),
              L"<CgPoints><x/><CgPoint name=\"No.1\" featureRef=\"7\"/></CgPoints>");
}

TEST(FViewCgPoint, APointWithCoordinatesFailsWhereNoElementCanStand)
{
    EXPECT_FALSE(WrittenOntoText(Point(1, 2, UNSET_DOUBLE)));
    EXPECT_TRUE(WrittenOntoText(Point(1, UNSET_DOUBLE, 3)));
}

TEST(FViewCgPoint, StationAndAngleHaveEightDecimals)
{
    FViewCgPointIntermediate point;
    point.featureRef = L"1";
    point.sta = 10.123456789;
    point.tangentDirectionAngle = -0.123456789;
    XmlText xml(L"<CgPoints/>");
    EXPECT_TRUE(point.WriteFeature(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<CgPoints><Feature name=\"1\"><Property label=\"sta\" value=\"10.12345679\"/>"
                          L"<Property label=\"tangentDirectionAngle\" value=\"-0.12345679\"/></Feature></CgPoints>");
}

TEST(FViewCgPoint, AnUnsetAngleIsWrittenAsAPoint)
{
    FViewCgPointIntermediate point;
    point.featureRef = L"1";
    point.sta = 10.5;
    XmlText xml(L"<CgPoints/>");
    EXPECT_TRUE(point.WriteFeature(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<CgPoints><Feature name=\"1\"><Property label=\"sta\" value=\"10.5\"/>"
                          L"<Property label=\"tangentDirectionAngle\" value=\".\"/></Feature></CgPoints>");
}

TEST(FViewCgPoint, AWidthStakeHasNoFeatureAndOnlyItsName)
{
    FViewCgPointWidthStake stake;
    stake.name = L"L1";
    stake.sta = 10.0;
    stake.sequenceText = L"1";
    stake.stakeText = L"t";
    XmlText xml(L"<CgPoints/>");
    EXPECT_TRUE(stake.WriteElement(xml.Root()));
    EXPECT_TRUE(stake.WriteFeature(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<CgPoints><CgPoint name=\"L1\"/></CgPoints>");
}

TEST(FViewCgPoint, ClearLeavesThePointOfAnIntermediatePoint)
{
    FViewCgPointIntermediate point = Point(1, 2, 3);
    point.name = L"No.1";
    point.featureRef = L"7";
    XmlText xml(L"<CgPoint/>");
    EXPECT_TRUE(point.ReadElement(xml.Root()));
    EXPECT_EQ(point.featureRef, L"");
    EXPECT_EQ(point.name, L"No.1");
    EXPECT_EQ(point.thirdCoordinate, 3.0);
    point.sta = point.tangentDirectionAngle = 4.0;
    point.FViewCgPoint::Clear();
    EXPECT_EQ(point.name, L"");
    for (const double number :
         {point.firstCoordinate, point.secondCoordinate, point.thirdCoordinate, point.sta, point.tangentDirectionAngle})
    {
        EXPECT_EQ(number, UNSET_DOUBLE);
    }
}

TEST(FViewCgPoint, ClearOfAWidthStakeLeavesNameCoordinatesAndGroup)
{
    FViewCgPointWidthStake stake;
    EXPECT_EQ(stake.stakeValue, 0.0);
    stake.name = L"L1";
    stake.groupName = L"g";
    stake.firstCoordinate = 1.0;
    stake.sequenceText = stake.stakeText = stake.groupDesc = stake.groupType = L"x";
    XmlText xml(L"<CgPoint name='x'>1 2</CgPoint>");
    EXPECT_TRUE(stake.ReadElement(xml.Root()));
    EXPECT_EQ(stake.sequenceText + stake.stakeText + stake.groupDesc + stake.groupType, L"");
    EXPECT_EQ(stake.stakeValue, UNSET_DOUBLE);
    EXPECT_EQ(stake.name, L"L1");
    EXPECT_EQ(stake.groupName, L"g");
    EXPECT_EQ(stake.firstCoordinate, 1.0);
}

TEST(FViewCgPoint, AWidthStakeIsCopiedButForItsGroup)
{
    FViewCgPointWidthStake stake;
    stake.name = L"L1";
    stake.firstCoordinate = 1.0;
    stake.sta = 2.0;
    stake.groupName = L"g";
    stake.sequenceText = L"7";
    stake.stakeText = L"t";
    stake.stakeValue = 9.5;
    stake.groupDesc = L"d";
    stake.groupType = L"open";
    stake.version = 3;
    FViewCgPointWidthStake assigned;
    assigned.groupName = L"own";
    assigned = stake;
    FViewCgPointWidthStake moved;
    moved.groupName = L"own";
    moved = FViewCgPointWidthStake(stake);
    FViewCgPointWidthStake copy = stake;
    EXPECT_EQ(copy.groupName, L"");
    copy.groupName = L"own";
    for (const FViewCgPointWidthStake& one : {copy, assigned, moved})
    {
        EXPECT_EQ(one.name, L"L1");
        EXPECT_EQ(one.firstCoordinate, 1.0);
        EXPECT_EQ(one.sta, 2.0);
        EXPECT_EQ(one.sequenceText, L"7");
        EXPECT_EQ(one.stakeText, L"t");
        EXPECT_EQ(one.stakeValue, 9.5);
        EXPECT_EQ(one.groupDesc, L"d");
        EXPECT_EQ(one.groupType, L"open");
        EXPECT_EQ(one.version, 3);
    }
    EXPECT_EQ(assigned.groupName, L"own");
    EXPECT_EQ(moved.groupName, L"own");
}

} // namespace
} // namespace jlandxml
