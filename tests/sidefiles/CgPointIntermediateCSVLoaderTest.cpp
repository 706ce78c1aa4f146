#include "sidefiles/CgPointIntermediateCSVLoader.h"

#include "support/SideFileFixture.h"

namespace jlandxml
{
namespace
{

class IntermediateTest : public SideFileTest
{
  protected:
    IntermediateTest() { GetCurrentRouteName().clear(); }

    bool LoadPoints(const std::string& content)
    {
        testing::internal::CaptureStdout();
        const bool loaded = Load<CgPointIntermediateCSVLoader>(content);
        trace = testing::internal::GetCapturedStdout();
        return loaded;
    }

    std::string trace;
};

TEST_F(IntermediateTest, TheFirstRowNamesTheAlignment)
{
    EXPECT_TRUE(LoadPoints("\xEF\xBB\xBF線形名,線形1,x\n"));
    EXPECT_EQ(GetCurrentRouteName(), L"線形1");
    EXPECT_EQ(trace, "Row Value: 線形1\n");
}

TEST_F(IntermediateTest, PointsBeginInTheThirdRow)
{
    EXPECT_TRUE(LoadPoints("n,R1\nshort\n\nA,10.5,1,2,3,45.25,more\nB,,,x,,\nC,1,2,3,4\nD,1,2,3,4,5\n"));
    ASSERT_EQ(Model().intermediatePoints.size(), 1U);
    const FViewCgPointsIntermediate& group = Model().intermediatePoints[0];
    EXPECT_EQ(group.name, L"IntermediatePnts-1");
    EXPECT_EQ(group.alignmentRefs, L"R1");
    ASSERT_EQ(group.points.size(), 3U);
    EXPECT_EQ(group.points[0].name, L"A");
    EXPECT_EQ(group.points[0].sta, 10.5);
    EXPECT_EQ(group.points[0].firstCoordinate, 1.0);
    EXPECT_EQ(group.points[0].secondCoordinate, 2.0);
    EXPECT_EQ(group.points[0].thirdCoordinate, 3.0);
    EXPECT_EQ(group.points[0].tangentDirectionAngle, 45.25);
    EXPECT_EQ(group.points[0].featureRef, L"");
    EXPECT_EQ(group.points[1].sta, UNSET_DOUBLE);
    EXPECT_EQ(group.points[1].firstCoordinate, UNSET_DOUBLE);
    EXPECT_EQ(group.points[1].secondCoordinate, 0.0);
    EXPECT_EQ(group.points[2].name, L"D");
}

TEST_F(IntermediateTest, TheSecondRowIsATitleWhateverItHolds)
{
    EXPECT_TRUE(LoadPoints("n,R1\nA,1,2,3,4,5\nB,1,2,3,4,5\nC,1,2,3,4,5\n"));
    ASSERT_EQ(Model().intermediatePoints.at(0).points.size(), 2U);
    EXPECT_EQ(Model().intermediatePoints[0].points[0].name, L"B");
}

TEST_F(IntermediateTest, RoomIsMadeForTheRowsThatBecomePointsAlone)
{
    EXPECT_TRUE(LoadPoints("n,R1\nt\n,,,,long enough for a point\nlong enough for a point\n"));
    EXPECT_EQ(Model().intermediatePoints.at(0).points.capacity(), 0U);
    EXPECT_TRUE(LoadPoints("n,R1\nt\nA,1,2,3,4,5\nlong enough for a point\nB,1,2,3,4,5,\nC,1,2,3,4,5\n"));
    EXPECT_EQ(Model().intermediatePoints.at(1).points.size(), 3U);
    EXPECT_EQ(Model().intermediatePoints.at(1).points.capacity(), 3U);
}

TEST_F(IntermediateTest, AFileWithoutPointsStillGivesAGroup)
{
    EXPECT_TRUE(LoadPoints("n,R1\ntitle\n"));
    ASSERT_EQ(Model().intermediatePoints.size(), 1U);
    EXPECT_TRUE(Model().intermediatePoints[0].points.empty());
    EXPECT_EQ(Model().intermediatePoints[0].alignmentRefs, L"R1");
}

TEST_F(IntermediateTest, AFileWithoutRowsGivesAGroupWithoutAName)
{
    EXPECT_TRUE(LoadPoints(""));
    EXPECT_EQ(trace, "");
    ASSERT_EQ(Model().intermediatePoints.size(), 1U);
    EXPECT_EQ(Model().intermediatePoints[0].alignmentRefs, L"");
    EXPECT_EQ(Model().intermediatePoints[0].name, L"IntermediatePnts-1");
}

TEST_F(IntermediateTest, AFileWithoutRowsKeepsTheRouteName)
{
    GetCurrentRouteName() = L"R0";
    EXPECT_TRUE(LoadPoints("\n \n"));
    EXPECT_EQ(Model().intermediatePoints.at(0).alignmentRefs, L"R0");
    EXPECT_EQ(GetCurrentRouteName(), L"R0");
}

TEST_F(IntermediateTest, EveryRouteWithAFileGetsTheNextNumber)
{
    for (const std::size_t route : {1U, 2U, 3U})
    {
        LoadPoints("n,R" + std::to_string(route) + "\n");
        EXPECT_EQ(Model().intermediatePoints.at(route - 1).name, L"IntermediatePnts-" + std::to_wstring(route));
        EXPECT_EQ(Model().intermediatePoints.at(route - 1).alignmentRefs, L"R" + std::to_wstring(route));
    }
}

TEST_F(IntermediateTest, ARouteWithoutAFileTakesNoNumber)
{
    LoadPoints("n,R1\n");
    EXPECT_FALSE(CgPointIntermediateCSVLoader().Load(folder.Name(L"missing.csv")));
    LoadPoints("n,R3\n");
    ASSERT_EQ(Model().intermediatePoints.size(), 2U);
    EXPECT_EQ(Model().intermediatePoints[1].name, L"IntermediatePnts-2");
}

TEST_F(IntermediateTest, AMissingFileLeavesTheRouteNameEmpty)
{
    EXPECT_FALSE(CgPointIntermediateCSVLoader().Load(folder.Name(L"missing.csv")));
    EXPECT_EQ(GetCurrentRouteName(), L"");
    EXPECT_TRUE(Model().intermediatePoints.empty());
}

TEST_F(IntermediateTest, AFirstRowOfOneColumnIsAFailure)
{
    EXPECT_EQ((Failure<CgPointIntermediateCSVLoader, IntermediateCSVLoadException>("only\nx\n")),
              COLUMN_FAILURE + L"2列目（side.csv 1行目）");
    EXPECT_TRUE(Model().intermediatePoints.empty());
}

} // namespace
} // namespace jlandxml
