#include "cli/Program.h"

#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

namespace jlandxml
{
namespace
{

#ifdef _WIN32
constexpr const wchar_t* PROGRAM_NAME = L"program";
constexpr const wchar_t* FOLDER_ARGUMENT = L"路線";
constexpr const wchar_t* ILL_FORMED_NAME = L"out\xD800.xml";
constexpr const char* REFUSAL = "引数がUTF-16として正しくありません。ファイル名を変更してください\n";
#else
constexpr const char* PROGRAM_NAME = "program";
constexpr const char* FOLDER_ARGUMENT = "路線";
constexpr const char* ILL_FORMED_NAME = "out\xFF.xml";
constexpr const char* REFUSAL = "引数がUTF-8ではありません。ファイル名を変更してください\n";
#endif

void EndMemory()
{
    throw std::bad_alloc();
}

TEST(Program, WantOfMemoryIsStatusThreeAndOneLine)
{
    const ArgumentUnit* const values[] = {PROGRAM_NAME, nullptr};
    EXPECT_EXIT(RunProgram(1, values, [](const std::vector<std::wstring>&) -> int { throw std::bad_alloc(); }),
                testing::ExitedWithCode(3), "メモリーが足りないため、終了しました。\n");
}

TEST(Program, WantOfMemoryWhereNothingMayBeThrownIsStatusThreeAndOneLine)
{
    const ArgumentUnit* const values[] = {PROGRAM_NAME, nullptr};
    const auto freed = [](const std::vector<std::wstring>&) {
        const auto mayNotThrow = []() noexcept { EndMemory(); };
        mayNotThrow();
        return 0;
    };
    EXPECT_EXIT(RunProgram(1, values, freed), testing::ExitedWithCode(3), "メモリーが足りないため、終了しました。\n");
}

TEST(Program, ArgumentsAreHandedOnAndTheStatusBack)
{
    const ArgumentUnit* const values[] = {PROGRAM_NAME, FOLDER_ARGUMENT, nullptr};
    EXPECT_EQ(RunProgram(2, values,
                         [](const std::vector<std::wstring>& arguments) {
                             return arguments == std::vector<std::wstring>{L"路線"} ? 7 : 8;
                         }),
              7);
}

TEST(Program, AnArgumentThatNamesNoFileExactlyIsRefused)
{
    const ArgumentUnit* const values[] = {PROGRAM_NAME, ILL_FORMED_NAME, nullptr};
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunProgram(2, values, [](const std::vector<std::wstring>&) { return 0; }), 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), REFUSAL);
}

} // namespace
} // namespace jlandxml
