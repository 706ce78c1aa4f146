#include "run/ExecuteQuorvane.h"

#include "support/RunFixture.h"

#include <cstdint>
#include <limits>

namespace jlandxml
{
namespace
{

class ExecuteQuorvaneTest : public RunTest
{};

TEST_F(ExecuteQuorvaneTest, LoadsTheWorkFileOfTheFolder)
{
    WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>");
    ExecuteQuorvane(folder.Name().c_str(), 0);
    EXPECT_EQ(Context().model.coordinateSystem.name, L"c");
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(ExecuteQuorvaneTest, ARouteCountOfZeroOrLessReadsNoSideFile)
{
    folder.Write(L"intermediatePts_temp_1.csv", "one column only\n");
    folder.Write(L"intermediatePts_temp_0.csv", "one column only\n");
    for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min()})
    {
        ExecuteQuorvane(folder.Name().c_str(), count);
    }
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(ExecuteQuorvaneTest, AMissingWorkFileIsNoFailure)
{
    ExecuteQuorvane(folder.Name(L"missing").c_str(), 0);
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(ExecuteQuorvaneTest, ASecondCallSeesOnlyItsOwnInput)
{
    WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>");
    ExecuteQuorvane(folder.Name().c_str(), 0);
    const TestFolder second;
    ExecuteQuorvane(second.Name().c_str(), 0);
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
}

} // namespace
} // namespace jlandxml
