#include "base/Warnings.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(Warnings, AreTakenOnceInTheOrderInWhichTheyWereNoted)
{
    TakeWarnings();
    WarnOf(L"one", L"a");
    WarnOf(L"two", L"b", ENOENT);
    WarnOf(L"three", L"c", 12345);
    const std::vector<Warning> taken = TakeWarnings();
    ASSERT_EQ(taken.size(), 3U);
    EXPECT_EQ(taken[0].text, L"one");
    EXPECT_EQ(taken[0].detail, L"a");
    EXPECT_EQ(taken[1].detail, L"b（ありません）");
    EXPECT_EQ(taken[2].detail, L"c（システムのエラー12345）");
    EXPECT_TRUE(TakeWarnings().empty());
}

} // namespace
} // namespace jlandxml
