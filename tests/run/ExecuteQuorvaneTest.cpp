#include "run/ExecuteQuorvane.h"

#include "support/FailingAllocation.h"
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

struct RunFailureCase
{
    void (*fail)();
    const wchar_t* message;
};

class RunFailure : public ExecuteQuorvaneTest, public testing::WithParamInterface<RunFailureCase>
{};

TEST_P(RunFailure, OfTheLoadIsTheOneMessage)
{
    WorkFile("<LandXML/>");
    const std::wstring name = folder.Name();
    bool inFrontOfTheLoad = true;
    for (std::size_t allowed = 0; inFrontOfTheLoad && allowed < 10; ++allowed)
    {
        try
        {
            const FailingAllocation failing(allowed, GetParam().fail);
            ExecuteQuorvane(name.c_str(), 0);
        }
        catch (const std::bad_alloc&)
        {
            continue;
        }
        inFrontOfTheLoad = windows.Messages() == std::vector<ShownMessage>(allowed + 1, {L"cause", MessageIcon::None});
    }
    ASSERT_FALSE(windows.Messages().empty());
    EXPECT_EQ(windows.Messages().back(), (ShownMessage{GetParam().message, MessageIcon::None}));
}

INSTANTIATE_TEST_SUITE_P(ExecuteQuorvane, RunFailure,
                         testing::Values(RunFailureCase{FailAsFile, L"File operation failed: %s, cause"},
                                         RunFailureCase{FailAsFramework, L"General exception occurred: %s, cause"},
                                         RunFailureCase{FailOtherwise,
                                                        L"Unknown exception occurred while loading the CSV file."}));

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
