#include "cli/Telling.h"

#include "base/Text.h"

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

TEST(Telling, ATextAndWhatIsInFrontOfItStayWithinTheirLineToo)
{
    EXPECT_EQ(LineOnStandardError(L"国\n道: ", PlainLine("code", L"文\t\x1B[0m\x85\x2028\x2029")),
              "国 道: 文  [0m   \n");
    testing::internal::CaptureStderr();
    TellLineOf(L"国\r道", L"文\t詳細");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "国 道: 文\t詳細\n");
}

TEST(Telling, JsonHoldsADetailUnlessOtherKeysSayTheSame)
{
    const auto detailOf = [](const ToldLine& line) {
        RunResult result;
        result.findings = {line};
        const PrintedJson json = PrintedJson::parse(Utf8FromWide(JsonLine(result)));
        return json["findings"][0].value("detail", std::string());
    };
    ToldLine line = PlainLine("code", L"文", L"a（ありません）");
    EXPECT_EQ(detailOf(line), "a（ありません）");
    line.file = L"a";
    EXPECT_EQ(detailOf(line), "a（ありません）");
    line.detail = L"a";
    EXPECT_EQ(detailOf(line), "");
    line.path = L"projectName";
    line.object = L"国道";
    line.detail = L"projectName（国道）";
    EXPECT_EQ(detailOf(line), "");
}

TEST(Telling, TheFileOfASettingsErrorIsShownBehindItUnlessItIsWhatIsWrong)
{
    SettingsFault ofKey{"projectName", "文字列で指定してください", {}, "a.json"};
    SettingsFault ofFile{"b.json", "JSONとして読み込めません", {}, "b.json"};
    const std::vector<ToldLine> lines = SettingsLines(SettingsError({ofKey, ofFile}), true);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, L"projectName: 文字列で指定してください");
    EXPECT_EQ(lines[0].detail, L"a.json");
    EXPECT_EQ(lines[1].text, L"b.json: JSONとして読み込めません");
    EXPECT_EQ(lines[1].detail, L"");
    EXPECT_EQ(SettingsLines(SettingsError({ofKey}), false)[0].detail, L"");
}

} // namespace
} // namespace jlandxml
