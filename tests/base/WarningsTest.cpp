#include "base/Warnings.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

class Warnings : public testing::Test
{
  protected:
    Warnings() { TakeWarnings(); }
};

TEST_F(Warnings, AreTakenOnceInTheOrderInWhichTheyWereNoted)
{
    WarnOf(WarningCause::MalformedXml, L"a");
    WarnOf(WarningCause::UnreadableFile, L"b", ENOENT);
    WarnOf(WarningCause::UnreadableFolder, L"c", 12345);
    const std::vector<Warning> taken = TakeWarnings();
    ASSERT_EQ(taken.size(), 3U);
    EXPECT_EQ(taken[0].code, "malformed-xml");
    EXPECT_EQ(taken[0].text, L"XMLとして正しくないため、読み込みません。");
    EXPECT_EQ(taken[0].detail, L"a");
    EXPECT_EQ(taken[0].file, L"a");
    EXPECT_EQ(taken[1].detail, L"b（ありません）");
    EXPECT_EQ(taken[2].detail, L"c（システムのエラー12345）");
    EXPECT_TRUE(TakeWarnings().empty());
    WarnOf(WarningCause::MalformedXml, L"a");
    ForgetWarnings();
    EXPECT_TRUE(TakeWarnings().empty());
}

TEST_F(Warnings, OneCauseInAFileIsOneWarningWithItsFirstThreePlacesAndACount)
{
    for (std::size_t row = 2; row < 7; ++row)
    {
        WarnOf(WarningCause::UnreadableFile,
               WarningPlace{L"a.csv", L"No." + std::to_wstring(row), L"/a[" + std::to_wstring(row) + L"]", row, L"r"});
        WarnOf(WarningCause::UnreadableFile, WarningPlace{.file = L"b.csv", .row = row});
    }
    const std::vector<Warning> taken = TakeWarnings();
    ASSERT_EQ(taken.size(), 2U);
    EXPECT_EQ(taken[0].detail, L"a.csv No.2 2行目（r）、No.3 3行目（r）、No.4 4行目（r）ほか2件");
    EXPECT_EQ(taken[0].object, L"No.2、No.3、No.4ほか2件");
    EXPECT_EQ(taken[0].path, L"/a[2]");
    EXPECT_EQ(taken[0].row, 2U);
    EXPECT_EQ(taken[0].count, 5U);
    EXPECT_EQ(taken[1].detail, L"b.csv 2行目、3行目、4行目ほか2件");
    EXPECT_EQ(taken[1].object, L"");
}

} // namespace
} // namespace jlandxml
