#include "sidefiles/LoadSideFiles.h"

#include "base/Files.h"
#include "base/Warnings.h"
#include "run/module/ExecuteQuorvane.h"
#include "sidefiles/CgPointIntermediateCSVLoader.h"
#include "sidefiles/CgPointWidthStakeCSVLoader.h"
#include "sidefiles/SuperElevationCSVLoader.h"
#include "sidefiles/WideningCSVLoader.h"
#include "support/FailingAllocation.h"
#include "support/RunFixture.h"

#include <limits>
#include <typeindex>

#ifdef __linux__
#include <sys/fsuid.h>
#endif

namespace jlandxml
{
namespace
{

class LoadSideFilesTest : public RunTest
{
  protected:
    LoadSideFilesTest()
    {
        WorkFile("<LandXML><Alignments><Alignment name=\"R1\"/><Alignment name=\"R2\"/></Alignments>"
                 "<Surfaces><Surface name=\"EG\" desc=\"ExistingGround\"/></Surfaces></LandXML>");
    }

    void Run(std::int32_t routes) { ExecuteQuorvane(folder.Name().c_str(), routes); }
};

TEST_F(LoadSideFilesTest, PathsAreJoinedWithoutRegardToTheHostsSeparator)
{
    EXPECT_EQ(SideFilePath(L"C:\\work", SIDE_FILES[0], 12), L"C:\\work/intermediatePts_temp_12.csv");
    EXPECT_EQ(SideFilePath(L"f", SIDE_FILES[1], 1), L"f/widthStake_temp_1.csv");
    EXPECT_EQ(SideFilePath(L"f", SIDE_FILES[2], 1), L"f/superElevation_temp_1.csv");
    EXPECT_EQ(SideFilePath(L"f", SIDE_FILES[3], 1), L"f/widening_temp_1.csv");
}

TEST_F(LoadSideFilesTest, EachRouteFindsItsAlignmentByTheNameOfItsFirstFile)
{
    folder.Write(L"intermediatePts_temp_1.csv", "n,R2\n");
    folder.Write(L"widening_temp_1.csv", "t\nt\nLeft,1,2,3\n");
    folder.Write(L"intermediatePts_temp_2.csv", "n,R1\n");
    folder.Write(L"superElevation_temp_2.csv", "t\nt\n1,0+1,x,,,2,,,,2,\n");
    folder.Write(L"widthStake_temp_2.csv", "t\nt\nA,1,2,3,4,5,6,7,8,9\n");
    Run(2);
    const auto& alignments = Context().model.alignments.at(0).alignments;
    EXPECT_EQ(alignments[0].slopeList.size(), 1U);
    EXPECT_EQ(alignments[0].widthLeftValue.size(), 0U);
    EXPECT_EQ(alignments[1].slopeList.size(), 0U);
    EXPECT_EQ(alignments[1].widthLeftValue.size(), 1U);
    EXPECT_EQ(Context().model.widthStakePoints.at(0).alignmentRefs, L"R1");
    EXPECT_EQ(GetCurrentRouteName(), L"");
}

TEST_F(LoadSideFilesTest, WithoutItsFirstFileARouteFindsNoAlignment)
{
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    folder.Write(L"widthStake_temp_2.csv", "t\nt\nA,1,2,3,4,5,6,7,8,9\n");
    folder.Write(L"superElevation_temp_2.csv", "t\nt\n1,0+1,x,,,2,,,,2,\n");
    folder.Write(L"widening_temp_2.csv", "t\nt\nLeft,1,2,3\n");
    Run(2);
    EXPECT_EQ(Context().model.widthStakePoints.at(0).alignmentRefs, L"");
    for (const FViewAlignment& alignment : Context().model.alignments.at(0).alignments)
    {
        EXPECT_TRUE(alignment.slopeList.empty());
        EXPECT_TRUE(alignment.widthLeftValue.empty());
    }
}

TEST_F(LoadSideFilesTest, ABrokenFileEndsTheRunWithOneMessage)
{
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    folder.Write(L"widening_temp_1.csv", "t\nt\nLeft,1,2\n");
    folder.Write(L"intermediatePts_temp_2.csv", "n,R2\n");
    Run(2);
    EXPECT_EQ(windows.Messages(),
              (std::vector<ShownMessage>{
                  {L"General exception occurred: %s, 引数が正しくありません: 4列目（widening_temp_1.csv 3行目）"}}));
    EXPECT_EQ(GetCurrentRouteName(), L"");
    EXPECT_EQ(Context().model.intermediatePoints.size(), 1U);
}

TEST_F(LoadSideFilesTest, OfTwoBrokenFilesTheEarlierOneIsTold)
{
    folder.Write(L"widening_temp_1.csv", "t\nt\nLeft,1,2\n");
    folder.Write(L"intermediatePts_temp_1.csv", "n\n");
    Run(1);
    EXPECT_EQ(
        windows.Messages(),
        (std::vector<ShownMessage>{
            {L"General exception occurred: %s, 引数が正しくありません: 2列目（intermediatePts_temp_1.csv 1行目）"}}));
}

TEST_F(LoadSideFilesTest, TheFilesOfARouteAreReadInOneOrder)
{
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    folder.Write(L"widthStake_temp_1.csv", "t\nt\nA,1,2,3,4,5,6,7,8,9\n");
    folder.Write(L"superElevation_temp_1.csv", "t\nt\n1,0+1,x,,,2,,,,2,\n");
    folder.Write(L"widening_temp_1.csv", "t\nt\nLeft,1,2,3\n");
    const std::wstring name = folder.Name();
    std::vector<std::type_index> failed;
    bool failing = true;
    for (std::size_t allowed = 0; failing; ++allowed)
    {
        const FailingAllocation allocation(allowed, FailAsFramework);
        try
        {
            LoadSideFiles(name, 1);
            failing = allocation.HasFailed();
        }
        catch (const AllocationFailure<CException>&)
        {
            // A path could not be built: no file is being read.
        }
        catch (const CException& exception)
        {
            if (failed.empty() || failed.back() != typeid(exception))
            {
                failed.emplace_back(typeid(exception));
            }
        }
    }
    EXPECT_EQ(failed,
              (std::vector<std::type_index>{typeid(IntermediateCSVLoadException), typeid(WidthStakeCSVLoadException),
                                            typeid(SuperElevationCSVLoadException), typeid(WideningCSVLoadException)}));
}

TEST_F(LoadSideFilesTest, ASecondCallKeepsOnlyTheOlderRowsOfTheOutputTable)
{
    const std::size_t before = Context().model.surfaces.outPutCSS.size();
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    Run(1);
    Run(1);
    EXPECT_EQ(Context().model.intermediatePoints.size(), 1U);
    EXPECT_EQ(Context().model.alignments.size(), 1U);
    EXPECT_EQ(Context().model.surfaces.outPutCSS.size(), before + 2);
    EXPECT_EQ(Context().loadedModel.surfaces.outPutCSS.size(), before + 1);
    EXPECT_TRUE(Context().loadedModel.intermediatePoints.empty());
}

TEST_F(LoadSideFilesTest, RoutesAreCountedByTheLargestNumber)
{
    EXPECT_EQ(CountRoutes(folder.Name()), 0);
    folder.Write(L"widening_temp_2.csv", "");
    EXPECT_EQ(CountRoutes(folder.Name()), 2);
    folder.Write(L"superElevation_temp_10.csv", "");
    for (const wchar_t* const other :
         {L"widening_temp_011.csv", L"widening_temp_12.csv.bak", L"widening_temp_x.csv", L"xwidening_temp_13.csv",
          L"widening_temp_-14.csv", L"widening_temp_+15.csv", L"widening_temp_99999999999.csv", L"widening_temp_.csv"})
    {
        folder.Write(other, "");
    }
    EXPECT_EQ(CountRoutes(folder.Name()), 10);
    EXPECT_EQ(CountRoutes(folder.Name(L"missing")), 0);
}

TEST_F(LoadSideFilesTest, ANameInAnotherCaseCountsWhereTheSystemFindsIt)
{
    folder.Write(L"widening_temp_2.csv", "");
    folder.Write(L"SUPERelevation_Temp_12.CSV", "");
    const bool found = PathExists(SideFilePath(folder.Name(), SIDE_FILES[2], 12));
    EXPECT_EQ(CountRoutes(folder.Name()), found ? 12 : 2);
    TakeWarnings();
    WarnOfSideFilesBeyond(folder.Name(), 2);
    EXPECT_EQ(TakeWarnings().size(), found ? 1U : 0U);
#ifdef _WIN32
    EXPECT_TRUE(found);
#endif
}

TEST_F(LoadSideFilesTest, OfManyRoutesOnlyThoseWithAFileCostAnything)
{
    constexpr std::int32_t MOST = std::numeric_limits<std::int32_t>::max();
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    folder.Write(L"widening_temp_1.csv", "t\nt\nLeft,1,2,3\n");
    folder.Write(L"intermediatePts_temp_70000.csv", "n,R2\n");
    folder.Write(L"widening_temp_2147483647.csv", "t\nt\nLeft,1,2,3\n");
    folder.Write(L"widening_temp_00003.csv", "t\nt\nLeft,1\n");
    EXPECT_EQ(CountRoutes(folder.Name()), MOST);
    Run(MOST);
    EXPECT_EQ(windows.Messages().size(), 0U);
    ASSERT_EQ(Context().model.intermediatePoints.size(), 2U);
    EXPECT_EQ(Context().model.intermediatePoints[0].alignmentRefs, L"R1");
    EXPECT_EQ(Context().model.intermediatePoints[1].alignmentRefs, L"R2");
    EXPECT_EQ(Context().model.alignments.at(0).alignments.at(0).widthLeftValue.size(), 1U);
    EXPECT_EQ(Context().model.alignments.at(0).alignments.at(1).widthLeftValue.size(), 0U);
    EXPECT_EQ(GetCurrentRouteName(), L"");
}

TEST_F(LoadSideFilesTest, ThereIsNoRouteZero)
{
    folder.Write(L"intermediatePts_temp_0.csv", "n,R1\n");
    EXPECT_EQ(CountRoutes(folder.Name()), 0);
    for (const std::int32_t routes : {1, 2000})
    {
        Run(routes);
        EXPECT_TRUE(Context().model.intermediatePoints.empty()) << routes;
    }
}

#ifdef __linux__

/// Does without an administrator's right to list every folder, in this thread alone.
class OrdinaryUser
{
  public:
    OrdinaryUser() : former_(::setfsuid(NOBODY)) {}
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { ::setfsuid(static_cast<uid_t>(former_)); }

  private:
    static constexpr uid_t NOBODY = 65534;
    int former_;
};

TEST_F(LoadSideFilesTest, AFolderThatDoesNotTellItsNamesIsAskedForEachRoute)
{
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    folder.Write(L"intermediatePts_temp_1500.csv", "n,R2\n");
    Context().model.intermediatePoints.clear();
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0111));
    {
        const OrdinaryUser user;
        EXPECT_EQ(FileNames(folder.Name()), std::nullopt);
        LoadSideFiles(folder.Name(), 1500);
    }
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0700));
    EXPECT_EQ(Context().model.intermediatePoints.size(), 2U);
}

#endif

TEST_F(LoadSideFilesTest, OfAMissingFolderNoRouteCostsAnything)
{
    LoadSideFiles(folder.Name(L"missing"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(CountRoutes(folder.Name(L"missing")), 0);
}

TEST_F(LoadSideFilesTest, OfAnEmptyFolderNoRouteCostsAnything)
{
    const TestFolder empty;
    LoadSideFiles(empty.Name(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(CountRoutes(empty.Name()), 0);
}

TEST_F(LoadSideFilesTest, RoutesBehindTheCountAreNotReadHoweverManyThereAre)
{
    folder.Write(L"intermediatePts_temp_5000.csv", "n,R1\n");
    folder.Write(L"intermediatePts_temp_5001.csv", "n,R2\n");
    Run(4999);
    EXPECT_TRUE(Context().model.intermediatePoints.empty());
    Run(5000);
    ASSERT_EQ(Context().model.intermediatePoints.size(), 1U);
    EXPECT_EQ(Context().model.intermediatePoints[0].alignmentRefs, L"R1");
}

} // namespace
} // namespace jlandxml
