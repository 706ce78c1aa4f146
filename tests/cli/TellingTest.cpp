#include "cli/Telling.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

std::string LineOnStandardError(const wchar_t* front, const ToldLine& line)
{
    testing::internal::CaptureStderr();
    TellLine(front, line);
    return testing::internal::GetCapturedStderr();
}

TEST(Telling, ALineIsItsTextAndBehindATabItsDetail)
{
    EXPECT_EQ(LineOnStandardError(L"", PlainLine("code", L"文")), "文\n");
    EXPECT_EQ(LineOnStandardError(L"警告: ", PlainLine("code", L"文", L"詳細")), "警告: 文\t詳細\n");
}

TEST(Telling, ADetailStaysWithinItsLineWhateverItHolds)
{
    EXPECT_EQ(LineOnStandardError(L"", PlainLine("code", L"文", L"\n値「0 100\n10\t101\r\n」\n")),
              "文\t 値「0 100 10 101  」 \n");
}

} // namespace
} // namespace jlandxml
