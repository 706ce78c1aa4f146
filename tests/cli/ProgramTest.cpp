#include "cli/Program.h"

#include <gtest/gtest.h>
#include <new>

namespace jlandxml
{
namespace
{

void EndMemory()
{
    throw std::bad_alloc();
}

TEST(Program, WantOfMemoryIsStatusThreeAndOneLine)
{
    char name[] = "program";
    char* values[] = {name, nullptr};
    EXPECT_EXIT(RunProgram(1, values, [](const std::vector<std::wstring>&) -> int { throw std::bad_alloc(); }),
                testing::ExitedWithCode(3), "ファイルは出力されませんでした。\n");
}

TEST(Program, WantOfMemoryWhereNothingMayBeThrownIsStatusThreeAndOneLine)
{
    char name[] = "program";
    char* values[] = {name, nullptr};
    const auto freed = [](const std::vector<std::wstring>&) {
        const auto mayNotThrow = []() noexcept { EndMemory(); };
        mayNotThrow();
        return 0;
    };
    EXPECT_EXIT(RunProgram(1, values, freed), testing::ExitedWithCode(3), "ファイルは出力されませんでした。\n");
}

#ifndef _WIN32
TEST(Program, ArgumentsAreHandedOnAndTheStatusBack)
{
    char name[] = "program";
    char argument[] = "路線";
    char* values[] = {name, argument, nullptr};
    EXPECT_EQ(RunProgram(2, values,
                         [](const std::vector<std::wstring>& arguments) {
                             return arguments == std::vector<std::wstring>{L"路線"} ? 7 : 8;
                         }),
              7);
}

TEST(Program, AnArgumentThatNamesNoFileExactlyIsRefused)
{
    char name[] = "program";
    char argument[] = "out\xFF.xml";
    char* values[] = {name, argument, nullptr};
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunProgram(2, values, [](const std::vector<std::wstring>&) { return 0; }), 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "引数がUTF-8ではありません。ファイル名を変更してください\n");
}
#endif

} // namespace
} // namespace jlandxml
