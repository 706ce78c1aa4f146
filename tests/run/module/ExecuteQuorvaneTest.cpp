#include "run/module/ExecuteQuorvane.h"

#include "base/Files.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "support/FailingAllocation.h"
#include "support/RunFixture.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <thread>

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
    EXPECT_EQ(std::count(windows.Records().begin(), windows.Records().end(), L"open J-LandXML出力設定"), 3);
}

TEST_F(ExecuteQuorvaneTest, NoFolderIsAnEmptyOne)
{
    ExecuteQuorvane(nullptr, 0);
    EXPECT_EQ(windows.Records().front(), L"open J-LandXML出力設定");
}

TEST_F(ExecuteQuorvaneTest, AModelThatCannotBeWrittenEndsTheDialogAsAWrittenOneDoes)
{
    // Points can't be placed beside an element of their name in another case.
    WorkFile(
        "<LandXML><cgpoints/><CoordinateSystem desc='Japan Geodetic Datum 2011, Plane Rectangular Coordinate System "
        "No. 9'/></LandXML>");
    folder.Write(L"intermediatePts_temp_1.csv", "n,R1\n");
    const std::wstring out = folder.Name(L"out.xml");
    windows.SetUser([](ScriptedDialog& dialog) {
        dialog.Type(convert_dlg::PROJECT_NAME_EDIT, L"p");
        dialog.Click(convert_dlg::OUTPUT_BUTTON);
    });
    windows.SetSaveFileAnswer([&](const SaveFileRequest&) { return out; });
    ExecuteQuorvane(folder.Name().c_str(), 1);
    EXPECT_EQ(windows.Records().back(), L"close J-LandXML出力設定 accepted");
    EXPECT_TRUE(windows.Messages().empty());
    EXPECT_FALSE(PathExists(out));
}

TEST_F(ExecuteQuorvaneTest, AMissingWorkFileIsNoFailure)
{
    ExecuteQuorvane(folder.Name(L"missing").c_str(), 0);
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(ExecuteQuorvaneTest, ABadRowOfASideFileIsTheOneMessageAndNoDialogOpens)
{
    WorkFile("<LandXML/>");
    folder.Write(L"intermediatePts_temp_1.csv", "one column only\n");
    ExecuteQuorvane(folder.Name().c_str(), 1);
    EXPECT_EQ(windows.Records(),
              std::vector<std::wstring>{L"message General exception occurred: %s, 引数が正しくありません: "
                                        L"2列目（intermediatePts_temp_1.csv 1行目）"});
}

TEST_F(ExecuteQuorvaneTest, ACallDuringAnotherBringsTheOpenDialogToTheFrontAndEnds)
{
    WorkFile("<LandXML><CoordinateSystem name=\"open\"/></LandXML>");
    const TestFolder other;
    other.Write(L"Landxml_temp.xml", "<LandXML><CoordinateSystem name=\"other\"/></LandXML>");
    other.Write(L"intermediatePts_temp_1.csv", "one column only\n");
    const auto happenedAtCall = [&] {
        const std::size_t before = windows.Records().size();
        ExecuteQuorvane(other.Name().c_str(), 1);
        return std::vector<std::wstring>(windows.Records().begin() + static_cast<std::ptrdiff_t>(before),
                                         windows.Records().end());
    };
    using Lines = std::vector<std::wstring>;
    windows.SetUser([&](ScriptedDialog& dialog) {
        EXPECT_EQ(happenedAtCall(), Lines{L"raise J-LandXML出力設定"});
        std::thread([&] { EXPECT_EQ(happenedAtCall(), Lines{L"raise J-LandXML出力設定"}); }).join();
        windows.SetUser([&](ScriptedDialog&) { EXPECT_EQ(happenedAtCall(), Lines{L"raise エラー一覧"}); });
        dialog.Click(convert_dlg::OUTPUT_BUTTON);
        EXPECT_EQ(Context().model.coordinateSystem.name, L"open");
    });
    ExecuteQuorvane(folder.Name().c_str(), 0);
    EXPECT_EQ(windows.Records().back(), L"close J-LandXML出力設定 cancelled");
    windows.SetUser(nullptr);
    ExecuteQuorvane(other.Name().c_str(), 0);
    EXPECT_EQ(Context().model.coordinateSystem.name, L"other");
}

/// Windows that any thread may raise; how often the dialog has opened and how often another call wanted to see it.
class CountingWindows : public ScriptedWindowSystem
{
  public:
    void RaiseOpenWindow() override { ++raised; }

    std::atomic<int> opened = 0;
    std::atomic<int> raised = 0;
};

TEST_F(ExecuteQuorvaneTest, OfThreadsThatCallAtOnceOneHasItsRunAndTheOthersAreTurnedAway)
{
    constexpr int CALLS = 200;
    WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>");
    const std::wstring name = folder.Name();
    CountingWindows counting;
    counting.SetUser([&](ScriptedDialog&) { ++counting.opened; });
    SetWindowSystem(&counting);
    const auto callAgainAndAgain = [&] {
        for (int call = 0; call < CALLS; ++call)
        {
            ExecuteQuorvane(name.c_str(), 0);
        }
    };
    std::thread other(callAgainAndAgain);
    callAgainAndAgain();
    other.join();
    SetWindowSystem(&windows);
    EXPECT_EQ(counting.opened + counting.raised, 2 * CALLS);
    EXPECT_GT(counting.opened, 0);
    EXPECT_TRUE(counting.Messages().empty());
    EXPECT_EQ(Context().model.coordinateSystem.name, L"c");
}

TEST_F(ExecuteQuorvaneTest, ACallThatWasLeftByAnExceptionIsOver)
{
    windows.SetUser([](ScriptedDialog&) { throw std::bad_alloc(); });
    EXPECT_THROW(ExecuteQuorvane(folder.Name().c_str(), 0), std::bad_alloc);
    windows.SetUser(nullptr);
    ExecuteQuorvane(folder.Name().c_str(), 0);
    EXPECT_EQ(windows.Records().back(), L"close J-LandXML出力設定 cancelled");
}

struct RunFailureCase
{
    const char* name;
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
        inFrontOfTheLoad = windows.Messages() == std::vector<ShownMessage>(allowed + 1, {L"cause"});
    }
    ASSERT_FALSE(windows.Messages().empty());
    EXPECT_EQ(windows.Messages().back(), (ShownMessage{GetParam().message}));
}

INSTANTIATE_TEST_SUITE_P(ExecuteQuorvane, RunFailure,
                         testing::Values(RunFailureCase{"OfAFile", FailAsFile, L"File operation failed: %s, cause"},
                                         RunFailureCase{"OfTheFramework", FailAsFramework,
                                                        L"General exception occurred: %s, cause"},
                                         RunFailureCase{"OfAnythingElse", FailOtherwise,
                                                        L"Unknown exception occurred while loading the CSV file."}),
                         [](const auto& row) { return row.param.name; });

class DialogDataFailure : public ExecuteQuorvaneTest, public testing::WithParamInterface<RunFailureCase>
{
  protected:
    using Lines = std::vector<std::wstring>;

    /// All that happens in a run in which the allocation behind `allowed` others fails; nothing if none failed.
    std::optional<Lines> RecordsOfFailure(const std::wstring& name, std::size_t allowed) const
    {
        const auto before = static_cast<std::ptrdiff_t>(windows.Records().size());
        const FailingAllocation failing(allowed, GetParam().fail);
        try
        {
            ExecuteQuorvane(name.c_str(), 0);
        }
        catch (const std::bad_alloc&)
        {
            return Lines{};
        }
        return failing.HasFailed() ? std::optional<Lines>({windows.Records().begin() + before, windows.Records().end()})
                                   : std::nullopt;
    }

    static bool TellOfTheData(const Lines& records)
    {
        return std::any_of(records.begin(), records.end(), [](const std::wstring& line) {
            return line.find(L"LandXMLデータの設定に失敗しました。") != std::wstring::npos;
        });
    }
};

TEST_P(DialogDataFailure, IsTheOneMessageAndNoDialogOpens)
{
    WorkFile(
        "<LandXML><Alignments><Alignment desc='プロジェクト名=a text that no string object has room for in itself'/>"
        "</Alignments></LandXML>");
    const std::wstring name = folder.Name();
    // What is allocated once for the process comes before the counting.
    ExecuteQuorvane(name.c_str(), 0);
    std::optional<Lines> records = Lines{};
    for (std::size_t allowed = 0; records && !TellOfTheData(*records); ++allowed)
    {
        records = RecordsOfFailure(name, allowed);
    }
    EXPECT_EQ(records, Lines{std::wstring(L"message ") + GetParam().message});
}

constexpr const wchar_t* PROJECT_DATA_FAILED =
    L"LandXMLデータの設定に失敗しました。, プロジェクト情報のデータ設定でエラーが発生しました。, cause";

INSTANTIATE_TEST_SUITE_P(ExecuteQuorvane, DialogDataFailure,
                         testing::Values(RunFailureCase{"OfAFile", FailAsFile, PROJECT_DATA_FAILED},
                                         RunFailureCase{"OfTheFramework", FailAsFramework, PROJECT_DATA_FAILED},
                                         RunFailureCase{
                                             "OfAnythingElse", FailOtherwise,
                                             L"不明なエラーが発生しました。LandXMLデータの設定に失敗しました。"}),
                         [](const auto& row) { return row.param.name; });

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
