#include "base/Warnings.h"

#include "support/FailingAllocation.h"

#include <cerrno>
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

TEST_F(Warnings, OfPlacesWithoutAnObjectNoneIsNamed)
{
    WarnOf(WarningCause::UnreadableFile, WarningPlace{.file = L"a.csv", .object = L"A", .row = 1});
    WarnOf(WarningCause::UnreadableFile, WarningPlace{.file = L"a.csv", .row = 2});
    WarnOf(WarningCause::UnreadableFile, WarningPlace{.file = L"a.csv", .object = L"B", .row = 3});
    const std::vector<Warning> taken = TakeWarnings();
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_EQ(taken[0].object, L"A、B");
    EXPECT_EQ(taken[0].detail, L"a.csv A 1行目、2行目、B 3行目");
}

TEST_F(Warnings, WithoutMemoryForOneItIsToldOnceThatMemoryEnded)
{
    const std::wstring file = L"a name that is too long to stand in a text itself.csv";
    std::size_t lost = 0;
    bool hasFailed = true;
    for (std::size_t allowed = 0; hasFailed; ++allowed)
    {
        {
            const FailingAllocation failing(allowed, FailOtherwise);
            WarnOf(WarningCause::UnreadableFile, file, ENOENT);
            hasFailed = failing.HasFailed();
        }
        const std::vector<Warning> taken = TakeWarnings();
        ASSERT_EQ(taken.size(), 1U) << allowed;
        EXPECT_EQ(taken[0].code, hasFailed ? "no-memory" : "unreadable-file") << allowed;
        lost += hasFailed ? 1 : 0;
        EXPECT_TRUE(TakeWarnings().empty()) << allowed;
    }
    EXPECT_GT(lost, 1U);
}

TEST_F(Warnings, WhatCanNotBeTakenForWantOfMemoryIsToldOfLater)
{
    const std::wstring file = L"a name that is too long to stand in a text itself.csv";
    bool hasFailed = true;
    for (std::size_t allowed = 0; hasFailed; ++allowed)
    {
        {
            const FailingAllocation failing(0, FailOtherwise);
            WarnOf(WarningCause::UnreadableFile, file);
        }
        std::vector<Warning> taken;
        {
            const FailingAllocation failing(allowed, FailOtherwise);
            taken = TakeWarnings();
            hasFailed = failing.HasFailed();
        }
        EXPECT_EQ(taken.size(), hasFailed ? 0U : 1U) << allowed;
        for (const Warning& later : TakeWarnings())
        {
            taken.push_back(later);
        }
        ASSERT_EQ(taken.size(), 1U) << allowed;
        EXPECT_EQ(taken[0].code, "no-memory") << allowed;
    }
}

} // namespace
} // namespace jlandxml
