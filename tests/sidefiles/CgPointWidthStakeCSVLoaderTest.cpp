#include "sidefiles/CgPointWidthStakeCSVLoader.h"

#include "support/SideFileFixture.h"
#include "support/ToldWarnings.h"

namespace jlandxml
{
namespace
{

class WidthStakeTest : public SideFileTest
{};

TEST_F(WidthStakeTest, StakesAreGatheredByTheirGroup)
{
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>(
        "t\nt\nB,1,s,10,1,2,3,9.5,d1,open\nA,2,s,,,,,,dA,closed\nB,3,s,11,4,5,6,7,d2,closed,x\n"));
    ASSERT_EQ(Model().widthStakePoints.size(), 2U);
    const FViewCgPointsWidthStake& group = Model().widthStakePoints[0];
    EXPECT_EQ(group.name, L"B");
    EXPECT_EQ(group.desc, L"d1");
    EXPECT_EQ(group.type, L"open");
    EXPECT_EQ(group.alignmentRefs, L"R1");
    ASSERT_EQ(group.points.size(), 2U);
    EXPECT_EQ(group.points[0].groupName, L"B");
    EXPECT_EQ(group.points[0].name, L"1");
    EXPECT_EQ(group.points[0].stakeText, L"s");
    EXPECT_EQ(group.points[0].sta, 10.0);
    EXPECT_EQ(group.points[0].firstCoordinate, 1.0);
    EXPECT_EQ(group.points[0].secondCoordinate, 2.0);
    EXPECT_EQ(group.points[0].thirdCoordinate, 3.0);
    EXPECT_EQ(group.points[0].stakeValue, 9.5);
    EXPECT_EQ(group.points[0].tangentDirectionAngle, UNSET_DOUBLE);
    EXPECT_EQ(group.points[0].sequenceText, L"");
    EXPECT_EQ(group.points[1].groupName, L"B");
    EXPECT_EQ(group.points[1].groupDesc, L"d2");
    EXPECT_EQ(group.points[1].groupType, L"closed");
    EXPECT_EQ(Model().widthStakePoints[1].name, L"A");
    EXPECT_EQ(Model().widthStakePoints[1].points[0].groupName, L"A");
    EXPECT_EQ(Model().widthStakePoints[1].points[0].stakeValue, UNSET_DOUBLE);
}

TEST_F(WidthStakeTest, GroupsOfOneNameInTwoRoutesStayApart)
{
    const std::string row = "A,1,2,3,4,5,6,7,8,9\n";
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>("t\nt\n" + row));
    GetCurrentRouteName() = L"R2";
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>("t\nt\n" + row + row));
    ASSERT_EQ(Model().widthStakePoints.size(), 2U);
    EXPECT_EQ(Model().widthStakePoints[0].name, L"A");
    EXPECT_EQ(Model().widthStakePoints[0].alignmentRefs, L"R1");
    EXPECT_EQ(Model().widthStakePoints[0].points.size(), 1U);
    EXPECT_EQ(Model().widthStakePoints[1].name, L"A");
    EXPECT_EQ(Model().widthStakePoints[1].alignmentRefs, L"R2");
    EXPECT_EQ(Model().widthStakePoints[1].points.size(), 2U);
}

TEST_F(WidthStakeTest, RoomIsMadeForTheRowsThatBecomeStakesAlone)
{
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>(
        "t\nt\nA,long enough for a stake\nA,1,2,3,4,5,6,7,8,9\nA,,,,,,,,long enough\nA,1,2,3,4,5,6,7,8,9\n"
        "B,1,2,3,4,5,6,7,8,9\nA,1,2,3,4,5,6,7,8,9\n"));
    ASSERT_EQ(Model().widthStakePoints.size(), 2U);
    EXPECT_EQ(Model().widthStakePoints[0].points.size(), 3U);
    EXPECT_EQ(Model().widthStakePoints[0].points.capacity(), 3U);
    EXPECT_EQ(Model().widthStakePoints[1].points.capacity(), 1U);
}

TEST_F(WidthStakeTest, TheThirdRowIsTheFirstStake)
{
    const std::string row = ",1,2,3,4,5,6,7,8,9\n";
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>("A" + row + "B" + row + "C" + row));
    ASSERT_EQ(Model().widthStakePoints.size(), 1U);
    EXPECT_EQ(Model().widthStakePoints[0].name, L"C");
}

TEST_F(WidthStakeTest, AFileOfTitlesGivesNoGroup)
{
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>("A,1,2,3,4,5,6,7,8,9\nA,1,2,3,4,5,6,7,8,9\n"));
    EXPECT_TRUE(Model().widthStakePoints.empty());
}

TEST_F(WidthStakeTest, AShortRowIsPassedOver)
{
    EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>("t\nt\nA,1,2,3,4,5,6,7,8\n"));
    EXPECT_TRUE(Model().widthStakePoints.empty());
}

TEST_F(WidthStakeTest, WithoutARouteNameTheGroupsReferToNothing)
{
    GetCurrentRouteName().clear();
    Load<CgPointWidthStakeCSVLoader>("t\nt\na,1,2,3,4,5,6,7,8,9\nA,1,2,3,4,5,6,7,8,9\n");
    ASSERT_EQ(Model().widthStakePoints.size(), 2U);
    EXPECT_EQ(Model().widthStakePoints[0].alignmentRefs, L"");
}

TEST_F(WidthStakeTest, ATypeBehindTheLastColumnIsToldWhereItsOwnColumnHoldsNone)
{
    const auto told = [this](const std::string& end) {
        return WarningsOf(
            [&] { EXPECT_TRUE(Load<CgPointWidthStakeCSVLoader>("t\nt\nB,1,s,10,1,2,3,9.5," + end + "\n")); });
    };
    EXPECT_EQ(told("d,open"), Told());
    EXPECT_EQ(told("d,open,closed"), Told());
    const Told shifted = told("d,e,open");
    ASSERT_EQ(shifted.size(), 1U);
    EXPECT_TRUE(shifted[0].starts_with(L"comma-in-name ")) << testing::PrintToString(shifted[0]);
    EXPECT_EQ(told("d,e,open,closed"), shifted);
}

} // namespace
} // namespace jlandxml
