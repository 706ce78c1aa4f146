#include "sidefiles/WideningCSVLoader.h"

#include "support/SideFileFixture.h"

namespace jlandxml
{
namespace
{

class WideningTest : public SideFileTest
{};

TEST_F(WideningTest, OnlyTheExactWordIsTheRightSide)
{
    const FViewAlignment& alignment = AddAlignment(L"R1");
    EXPECT_TRUE(Load<WideningCSVLoader>("t\nt\nleft,100,3.5,x\nRight,200,,2\nRIGHT,300,1, \nshort,1\n,,,\n"));
    ASSERT_EQ(alignment.widthLeftValue.size(), 3U);
    EXPECT_EQ(alignment.widthLeftValue[0].station, 100.0);
    EXPECT_EQ(alignment.widthLeftValue[0].width, 3.5);
    EXPECT_EQ(alignment.widthLeftValue[0].code, L"x");
    EXPECT_EQ(alignment.widthLeftValue[1].station, 300.0);
    EXPECT_EQ(alignment.widthLeftValue[1].code, L"");
    EXPECT_EQ(alignment.widthLeftValue[2].station, UNSET_DOUBLE);
    ASSERT_EQ(alignment.widthRightValue.size(), 1U);
    EXPECT_EQ(alignment.widthRightValue[0].width, UNSET_DOUBLE);
}

TEST_F(WideningTest, TheFirstTwoRowsAreTitlesAndAFifthColumnSaysNothing)
{
    const FViewAlignment& alignment = AddAlignment(L"R1");
    EXPECT_TRUE(Load<WideningCSVLoader>("Right,1,2,3\nRight,2,3,4\nRight,4,5,6,7\n"));
    EXPECT_TRUE(alignment.widthLeftValue.empty());
    ASSERT_EQ(alignment.widthRightValue.size(), 1U);
    EXPECT_EQ(alignment.widthRightValue[0].station, 4.0);
    EXPECT_EQ(alignment.widthRightValue[0].width, 5.0);
    EXPECT_EQ(alignment.widthRightValue[0].code, L"6");
}

TEST_F(WideningTest, AFileOfTitlesEmptiesBothLists)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.widthLeftValue.resize(1);
    alignment.widthRightValue.resize(2);
    EXPECT_TRUE(Load<WideningCSVLoader>("t\nt\n"));
    EXPECT_TRUE(alignment.widthLeftValue.empty());
    EXPECT_TRUE(alignment.widthRightValue.empty());
}

TEST_F(WideningTest, AMissingFileLeavesTheLists)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.widthLeftValue.resize(1);
    EXPECT_FALSE(WideningCSVLoader().Load(folder.Name(L"missing.csv")));
    EXPECT_EQ(alignment.widthLeftValue.size(), 1U);
}

TEST_F(WideningTest, ARowOfThreeColumnsIsAFailureAndChangesNothing)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.widthLeftValue.emplace_back().station = 7.0;
    alignment.widthRightValue.emplace_back().station = 8.0;
    EXPECT_EQ((Failure<WideningCSVLoader, WideningCSVLoadException>(
                  "t\n\nt\n \nLeft,1,2,3\r\nRight,1,2,3\nLeft,1,2\nLeft,1\n")),
              COLUMN_FAILURE + L"4列目（side.csv 7行目）");
    ASSERT_EQ(alignment.widthLeftValue.size(), 1U);
    EXPECT_EQ(alignment.widthLeftValue[0].station, 7.0);
    ASSERT_EQ(alignment.widthRightValue.size(), 1U);
    EXPECT_EQ(alignment.widthRightValue[0].station, 8.0);
}

TEST_F(WideningTest, EveryAlignmentOfExactlyTheNameTakesBothLists)
{
    AddAlignment(L"R1");
    for (const wchar_t* const name : {L"R1", L"R2", L"r1", L"R1 "})
    {
        AddAlignment(name);
    }
    Model().alignments[0].alignments.emplace_back().name = L"R1";
    Load<WideningCSVLoader>("t\nt\nLeft,1,2,3\nRight,1,2,3\nRight,1,2,3\n");
    for (const FViewAlignments& route : Model().alignments)
    {
        for (const FViewAlignment& alignment : route.alignments)
        {
            const bool taken = alignment.name == L"R1";
            EXPECT_EQ(alignment.widthLeftValue.size(), taken ? 1U : 0U) << Utf8FromWide(alignment.name);
            EXPECT_EQ(alignment.widthRightValue.size(), taken ? 2U : 0U) << Utf8FromWide(alignment.name);
        }
    }
}

TEST_F(WideningTest, AnEmptyRouteNameMatchesOnlyAnUnnamedAlignment)
{
    GetCurrentRouteName().clear();
    AddAlignment(L"R1");
    AddAlignment(L"");
    Load<WideningCSVLoader>("t\nt\nLeft,1,2,3\n");
    EXPECT_TRUE(Model().alignments[0].alignments[0].widthLeftValue.empty());
    EXPECT_EQ(Model().alignments[1].alignments[0].widthLeftValue.size(), 1U);
}

} // namespace
} // namespace jlandxml
