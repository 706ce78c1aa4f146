#include "base/Exceptions.h"

#include "base/Guard.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

class StageException : public CException
{
  public:
    using CException::CException;
};

TEST(Exceptions, TheMessageIsCutToTheBufferAndTerminated)
{
    const CException exception(L"失敗しました");
    wchar_t buffer[4] = {L'x', L'x', L'x', L'x'};
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 4));
    EXPECT_STREQ(buffer, L"失敗し");
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 1));
    EXPECT_STREQ(buffer, L"");
    EXPECT_FALSE(exception.GetErrorMessage(buffer, 0));
    EXPECT_FALSE(exception.GetErrorMessage(nullptr, 4));
}

TEST(Exceptions, WhatIsTheMessageInUtf8)
{
    EXPECT_STREQ(CFileException(L"線").what(), "\xE7\xB7\x9A");
}

TEST(Exceptions, TheErrorTextIsLimitedTo1024Characters)
{
    EXPECT_EQ(ErrorText(CException(std::wstring(2000, L'線'))), std::wstring(1023, L'線'));
}

struct StageCase
{
    const char* name;
    void (*fails)();
    const wchar_t* message;
};

class RunStageFailure : public testing::TestWithParam<StageCase>
{};

TEST_P(RunStageFailure, LeavesWithTheWordsOfTheStage)
{
    try
    {
        RunStage<StageException>(RUN_STAGE_TEXTS, GetParam().fails);
        FAIL();
    }
    catch (const StageException& exception)
    {
        EXPECT_EQ(ErrorText(exception), GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Exceptions, RunStageFailure,
    testing::Values(
        StageCase{"AFile", [] { throw CFileException(L"x"); }, L"File operation failed: %s, x"},
        StageCase{"AnArgument", [] { throw CInvalidArgException(L"x"); }, L"General exception occurred: %s, x"},
        StageCase{"TheFramework", [] { throw CException(L"x"); }, L"General exception occurred: %s, x"},
        StageCase{"TheMemory", [] { throw std::bad_alloc(); },
                  L"Unknown exception occurred while loading the CSV file."},
        StageCase{"SomethingElse", [] { throw 1; }, L"Unknown exception occurred while loading the CSV file."}),
    [](const auto& row) { return row.param.name; });

TEST(Exceptions, AStageWithoutWordsForTheUnknownLetsItPass)
{
    constexpr StageTexts TEXTS{nullptr, L"label", nullptr};
    EXPECT_THROW(RunStage<StageException>(TEXTS, [] { throw 1; }), int);
    try
    {
        RunStage<StageException>(TEXTS, [] { throw CFileException(L"x"); });
        FAIL();
    }
    catch (const StageException& exception)
    {
        EXPECT_EQ(ErrorText(exception), L"label, x");
    }
}

TEST(Exceptions, AStageThatSucceedsGivesItsResult)
{
    EXPECT_EQ(RunStage<StageException>(RUN_STAGE_TEXTS, [] { return 7; }), 7);
}

} // namespace
} // namespace jlandxml
