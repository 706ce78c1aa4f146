#include "cli/CommandLine.h"

#include "base/Files.h"
#include "base/Text.h"
#include "cli/ConvertOptions.h"
#include "support/FailingAllocation.h"
#include "support/MountedFolder.h"
#include "support/RowName.h"
#include "support/RunFixture.h"
#include "support/StreamOverride.h"
#include "support/XmlText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace jlandxml
{
namespace
{

using OrderedJson = nlohmann::ordered_json;

constexpr const char* EMPTY_MODEL_FINDINGS =
    "プロジェクト名称が入力されていません。\n測地原子が入力されていません。\n水平座標系が入力されていません。\n";

/// A work file that lacks nothing.
constexpr const char* COMPLETE_WORK_FILE =
    "<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/>"
    "<Alignments><Alignment name='A' desc='プロジェクト名 = 名'/></Alignments></LandXML>";

constexpr const char* COMPLETING_SETTINGS = R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1",
    "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}]})";

/// A first row with one column, at which the loader gives up.
constexpr const char* MALFORMED_SIDE_FILE = "one column\n";
constexpr const char* MALFORMED_SIDE_FILE_MESSAGE =
    "General exception occurred: %s, 引数が正しくありません: 2列目（intermediatePts_temp_1.csv 1行目）\n";

/// What a run of the program gave.
struct Outcome
{
    ExitStatus status;
    std::string out;
    std::string err;      ///< without the warnings, and without what stands behind a tab
    std::string warnings; ///< each with its line's end
    std::string details;  ///< what stands behind the tabs of the lines that are no warnings
};

/// Takes the lines that begin as warnings do out of a text.
std::string TakeWarningLines(std::string& text)
{
    constexpr std::string_view BEGINNING = "警告: ";
    std::string taken;
    std::string rest;
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const std::string line = text.substr(begin, end - begin);
        (line.starts_with(BEGINNING) ? taken : rest) += line;
        begin = end;
    }
    text = std::move(rest);
    return taken;
}

/// Takes what stands behind tabs out of a text; what is taken keeps its lines' ends.
std::string TakeDetails(std::string& text)
{
    std::string taken;
    std::string rest;
    bool isDetail = false;
    for (const char character : text)
    {
        const bool wasDetail = isDetail;
        isDetail = character != '\n' && (isDetail || character == '\t');
        if (character != '\t')
        {
            (wasDetail ? taken : rest) += character;
            rest += wasDetail && character == '\n' ? "\n" : "";
        }
    }
    text = std::move(rest);
    return taken;
}

class CommandLineTest : public RunTest
{
  protected:
    /// `temporary`, if given, is the temporary folder of the run alone: what captures the streams needs one too.
    static Outcome Run(const std::vector<std::wstring>& arguments, const std::filesystem::path& temporary = {})
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitStatus status = [&] {
            std::optional<TemporaryFolderOverride> override;
            if (!temporary.empty())
            {
                override.emplace(temporary);
            }
            return RunCommandLine(arguments);
        }();
        std::string out = testing::internal::GetCapturedStdout();
        std::string err = testing::internal::GetCapturedStderr();
        std::string warnings = TakeWarningLines(err);
        std::string details = TakeDetails(err);
        return {status, std::move(out), std::move(err), std::move(warnings), std::move(details)};
    }

    std::wstring Settings(const std::string& json) const { return folder.Write(L"settings.json", json); }

    std::wstring Output() const { return folder.Name(L"out.xml"); }
};

// Judging what was written

TEST_F(CommandLineTest, TheWrittenFileIsCheckedWhereThatIsAskedFor)
{
    WorkFile(VERSIONED_ROOT +
             "<Units><Metric linearUnit='meter'/></Units><Project/><CoordinateSystem horizontalDatum='JGD2011' "
             "horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' staStart='0' length='2' desc="
             "'プロジェクト名 = 名'><CoordGeom><Line length='1'><Start>0 0</Start><End>1 0</End></Line></CoordGeom>"
             "</Alignment></Alignments></LandXML>");
    const std::vector<std::wstring> arguments{folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()};
    EXPECT_EQ(Run(arguments).status, ExitStatus::FileWritten);
    std::vector<std::wstring> checked = arguments;
    checked.push_back(L"--check");
    const Outcome outcome = Run(checked);
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("誤り H09 ")) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with(
        " A: 線形の長さが要素の長さの合計と合いません（値 2 m、計算 1 m、差 1 m、許容 0.001 m）\n"))
        << outcome.err;
    EXPECT_FALSE(folder.Read(L"out.xml").empty());
}

TEST_F(CommandLineTest, WhatACheckFindsStandsInTheLineOfJson)
{
    WorkFile(VERSIONED_ROOT +
             "<Units><Metric linearUnit='meter'/></Units><Project/><CoordinateSystem horizontalDatum='JGD2011' "
             "horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' staStart='0' length='2' desc="
             "'プロジェクト名 = 名'><CoordGeom><Line length='1'><Start>0 0</Start><End>1 0</End></Line></CoordGeom>"
             "</Alignment></Alignments></LandXML>");
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--check", L"--json"});
    const OrderedJson line = OrderedJson::parse(outcome.out);
    EXPECT_EQ(line["status"], 1);
    EXPECT_EQ(line["findings"].size(), 1U);
    const OrderedJson& finding = line["findings"][0];
    EXPECT_EQ(finding["code"], "check");
    EXPECT_EQ(finding["text"].get<std::string>() + "\n", outcome.err);
    EXPECT_EQ(finding["object"], "A");
    EXPECT_EQ(finding["file"], Utf8FromWide(Output()));
    EXPECT_GT(finding["row"], 1);
    EXPECT_GT(line["counts"]["written"]["bytes"], 0);
}

TEST_F(CommandLineTest, ASoundFileIsCheckedWithoutAWord)
{
    WorkFile(VERSIONED_ROOT +
             "<Units><Metric linearUnit='meter'/></Units><Project/><CoordinateSystem horizontalDatum='JGD2011' "
             "horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' staStart='0' length='1' desc="
             "'プロジェクト名 = 名'><CoordGeom><Line length='1'><Start name='BP'>0 0</Start><End name='EP'>1 "
             "0</End></Line></CoordGeom>"
             "</Alignment></Alignments></LandXML>");
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--check"});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_EQ(outcome.err, "");
}

TEST_F(CommandLineTest, AReportOnTheWrittenFileIsAPage)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run(
        {folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--report", folder.Name(L"out.html")});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(folder.Read(L"out.html").ends_with("</html>\n"));
}

TEST_F(CommandLineTest, AReportTellsWhatTheRunChanged)
{
    WorkFile(COMPLETE_WORK_FILE);
    Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--report", folder.Name(L"out.html")});
    const std::string page = folder.Read(L"out.html");
    const std::string record = page.substr(page.find("<section id=\"journal\">"));
    EXPECT_NE(record.find(">追加したもの（"), std::string::npos) << record;
    EXPECT_NE(record.find(">属性 name：3件</summary>"), std::string::npos) << record;
    EXPECT_NE(record.find("name=&quot;Horizontal&quot;"), std::string::npos) << record;
    EXPECT_EQ(record.find("完成したファイルだけから作成しました"), std::string::npos);
}

TEST_F(CommandLineTest, AReportThatCannotBeWrittenIsStatusThree)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::wstring report = folder.Name(L"no folder/out.html");
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--report", report});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "図面と計算書（--report）を書き込めません\n");
    EXPECT_EQ(outcome.details, Utf8FromWide(report + L": " + folder.Name(L"no folder/") + L"（ありません）\n"));
}

TEST_F(CommandLineTest, NothingIsCheckedWhereNoFileWasWritten)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name(), L"-o", Output(), L"--check", L"--report", folder.Name(L"out.html")});
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(folder.Read(L"out.html"), "");
}

// Statuses and streams

TEST_F(CommandLineTest, AWrittenFileIsStatusZeroWithoutAWord)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(folder.Read(L"out.xml").find("第1種第1級"), std::string::npos);
}

TEST_F(CommandLineTest, FindingsAreStatusOneInTheOrderInWhichTheyWereFound)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name(), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "道路の規格・等級が入力されていません。\n設計交通量が入力されていません。\n"
                           "主測点間隔が入力されていません。\n直線部横断勾配が入力されていません。\n");
}

TEST_F(CommandLineTest, AMessageBoxIsStatusThreeAndStandsOnStandardError)
{
    folder.Write(L"intermediatePts_temp_1.csv", MALFORMED_SIDE_FILE);
    const Outcome outcome = Run({folder.Name(), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, MALFORMED_SIDE_FILE_MESSAGE);
}

TEST_F(CommandLineTest, NoFileAndNoWordFromTheModuleIsStatusThreeWithOneLine)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::wstring settings = Settings(COMPLETING_SETTINGS);
    const Outcome outcome = Run({folder.Name(), L"-s", settings, L"-o", folder.Name(L"missing") + L"/out.xml"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "ファイルは出力されませんでした。\n");
}

/// What a run passes over in silence, and how the command line tells it.
struct PassedOver
{
    const char* name;
    const wchar_t* file;
    const char* content; ///< null: the file isn't there
    const char* warning; ///< without the beginning and the file's path
    const char* reason;
};
constexpr PassedOver PASSED_OVER[] = {
    {"NoWorkFile", L"Landxml_temp.xml", nullptr, "ファイルを読み込めません。", "（ありません）"},
    {"ABrokenWorkFile", L"Landxml_temp.xml", "<LandXML>\n<Project", "XMLとして正しくないため、読み込みません。",
     " 2行目（8文字目）"},
    {"AnEmptyWorkFile", L"Landxml_temp.xml", "", "XMLとして正しくないため、読み込みません。", " 1行目（1文字目）"},
};

class PassedOverFile : public CommandLineTest, public testing::WithParamInterface<PassedOver>
{};

TEST_P(PassedOverFile, IsAWarning)
{
    if (GetParam().content != nullptr)
    {
        folder.Write(GetParam().file, GetParam().content);
    }
    const Outcome outcome = Run({folder.Name(), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(outcome.err, EMPTY_MODEL_FINDINGS);
    EXPECT_EQ(outcome.warnings, std::string("警告: ") + GetParam().warning + "\t" + Utf8FromWide(folder.Name()) + "/" +
                                    Utf8FromWide(GetParam().file) + GetParam().reason + "\n");
}

INSTANTIATE_TEST_SUITE_P(Cli, PassedOverFile, testing::ValuesIn(PASSED_OVER),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CommandLineTest, ASideFileThatIsNoFileIsAWarning)
{
    WorkFile(COMPLETE_WORK_FILE);
    std::filesystem::create_directory(folder.Path() / "widening_temp_1.csv");
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    const std::size_t tab = outcome.warnings.find('\t');
    EXPECT_EQ(outcome.warnings.substr(0, tab), "警告: ファイルを読み込めません。");
    EXPECT_EQ(outcome.warnings.substr(tab).find("\t" + Utf8FromWide(folder.Name()) + "/widening_temp_1.csv（"), 0U);
}

TEST_F(CommandLineTest, WarningsAreThoseOfTheRunAlone)
{
    Run({folder.Name(), L"-o", Output()});
    WorkFile(COMPLETE_WORK_FILE);
    EXPECT_EQ(Run({folder.Name(), L"-o", Output()}).warnings, "");
}

TEST_F(CommandLineTest, MemoryThatIsNotThereEndsTheRunWithAStatusAndAWord)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::vector<std::wstring> arguments{folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()};
    const std::string finished = (Run(arguments), folder.Read(L"out.xml"));
    bool failed = true;
    for (std::size_t allowed = 0; failed; allowed += 1 + allowed / 10)
    {
        RemoveFile(Output());
        testing::internal::CaptureStderr();
        ExitStatus status{};
        {
            const FailingAllocation failing(allowed, FailOtherwise);
            status = RunCommandLine(arguments);
            failed = failing.HasFailed();
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), status == ExitStatus::FileWritten) << allowed;
        // Behind a message box the dialog goes on, so that a file may stand beside a failure; a broken one never does.
        const std::string left = folder.Read(L"out.xml");
        EXPECT_TRUE(left == finished || (left.empty() && status != ExitStatus::FileWritten)) << allowed;
    }
}

TEST_F(CommandLineTest, TraceLinesStandOnStandardOutput)
{
    folder.Write(L"intermediatePts_temp_1.csv", "線形名,本線\n");
    const Outcome outcome = Run({folder.Name(), L"-o", Output()});
    EXPECT_EQ(outcome.out, "Row Value: 本線\n");
    EXPECT_EQ(outcome.err, std::string(EMPTY_MODEL_FINDINGS));
}

TEST_F(CommandLineTest, AWorkFolderWithoutAWorkFileIsAnEmptyModel)
{
    const Outcome outcome = Run({folder.Name(), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(outcome.err, EMPTY_MODEL_FINDINGS);
}

TEST_F(CommandLineTest, AnExistingFileIsReplacedAndOnlyBySuccess)
{
    WorkFile(COMPLETE_WORK_FILE);
    folder.Write(L"out.xml", "old");
    EXPECT_EQ(Run({folder.Name(), L"-o", Output()}).status, ExitStatus::Findings);
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(Run({folder.Name(), L"-s", Settings(R"({"routes": [null, {}]})"), L"-o", Output()}).status,
              ExitStatus::WrongUsage);
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()}).status,
              ExitStatus::FileWritten);
    EXPECT_NE(folder.Read(L"out.xml"), "old");
}

TEST_F(CommandLineTest, BehindAFindingStandItsKeyAndItsObject)
{
    WorkFile("<LandXML><Project/><Alignments name='市道100号'><Alignment name='線形1'/><Alignment name='線形2'/>"
             "</Alignments><Alignments><Alignment name='線形3'/></Alignments></LandXML>");
    folder.Write(L"widthStake_temp_1.csv", "1\n2\nA,n,t,1,2,3,4,5,,open\n");
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(R"({"routes": [null, {"designGmType": "河川"}]})"), L"-o", Output()});
    EXPECT_EQ(outcome.details, "projectName\n"
                               "horizontalDatum\n"
                               "horizontalCoordinateSystemName\n"
                               "routes[0].roadClassification（市道100号）\n"
                               "routes[0].trafficVolume（市道100号）\n"
                               "routes[0].alignments[0].mainInterval（市道100号／線形1）\n"
                               "routes[0].alignments[0].normalCrown（市道100号／線形1）\n"
                               "routes[0].alignments[1].mainInterval（市道100号／線形2）\n"
                               "routes[0].alignments[1].normalCrown（市道100号／線形2）\n"
                               "routes[1].riverClassification（路線1）\n"
                               "routes[1].side（路線1）\n"
                               "routes[1].alignments[0].mainInterval（路線1／線形3）\n"
                               "routes[1].alignments[0].normalCrown（路線1／線形3）\n"
                               "widthStakes[0].alignmentRefs（WidthStakePnts-1）\n"
                               "widthStakes[0].desc（WidthStakePnts-1）\n");
}

/// Why a target isn't written, and what stands behind the tab; "@" stands for the folder.
struct UnwritableTarget
{
    const char* name;
    const wchar_t* target;
    const char* detail;
};
constexpr UnwritableTarget UNWRITABLE_TARGETS[] = {
    {"AFolderThatIsNotThere", L"missing/out.xml", "@/missing/（ありません）\n"},
    {"AFileInThePlaceOfTheFolder", L"Landxml_temp.xml/out.xml", "@/Landxml_temp.xml/（ありません）\n"},
    {"AFolderInThePlaceOfTheFile", L"inner", "@/inner（通常のファイルではありません）\n"},
};

class UnwritableTargets : public CommandLineTest, public testing::WithParamInterface<UnwritableTarget>
{};

TEST_P(UnwritableTargets, AreNamedWithTheReason)
{
    WorkFile(COMPLETE_WORK_FILE);
    std::filesystem::create_directory(folder.Path() / "inner");
    const std::wstring target = folder.Name() + L"/" + GetParam().target;
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", target});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "ファイルは出力されませんでした。\n");
    EXPECT_EQ(outcome.details, Utf8FromWide(folder.Name()) + (GetParam().detail + 1));
}

INSTANTIATE_TEST_SUITE_P(Cli, UnwritableTargets, testing::ValuesIn(UNWRITABLE_TARGETS),
                         [](const auto& row) { return std::string(row.param.name); });

#ifdef __linux__
TEST_F(CommandLineTest, AVolumeThatIsFullIsNamed)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::filesystem::path small = folder.Path() / "small";
    std::filesystem::create_directory(small);
    const MountedFolder volume(small, "size=64k");
    if (!volume)
    {
        GTEST_SKIP() << "only an administrator may mount";
    }
    std::ofstream(small / "fill") << std::string(64 << 10, 'x');
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", folder.Name(L"small") + L"/out.xml"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "ファイルは出力されませんでした。\n");
    EXPECT_EQ(outcome.details, Utf8FromWide(folder.Name(L"small")) + "/（空き容量がありません）\n");
}

TEST_F(CommandLineTest, AFolderThatTakesNoFilesIsNamed)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::filesystem::path sealed = folder.Path() / "sealed";
    std::filesystem::create_directory(sealed);
    const MountedFolder volume(sealed, "size=64k");
    if (!volume || ::mount(nullptr, sealed.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
    {
        GTEST_SKIP() << "only an administrator may mount";
    }
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", folder.Name(L"sealed") + L"/out.xml"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.details, Utf8FromWide(folder.Name(L"sealed")) + "/（読み取り専用です）\n");
}
#endif

TEST_F(CommandLineTest, NoFileOfAnotherWorkFolderIsATarget)
{
    for (const char* const name : {"Landxml_temp", "b"})
    {
        std::filesystem::create_directory(folder.Path() / name);
        std::ofstream(folder.Path() / name / "Landxml_temp.xml") << COMPLETE_WORK_FILE;
    }
    const std::wstring target = folder.Name(L"b");
    const Outcome outcome = Run({folder.Name(L"Landxml_temp"), target, L"--output-dir", target});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err,
              "--output-dir: ほかに読み書きするファイルです: " + Utf8FromWide(target) + "/Landxml_temp.xml\n");
    EXPECT_EQ(folder.Read(L"b/Landxml_temp.xml"), COMPLETE_WORK_FILE);
}

TEST_F(CommandLineTest, AReportDoesNotTakeThePlaceOfTheFinishedFileInAnOutputFolder)
{
    std::filesystem::create_directory(folder.Path() / "w");
    std::ofstream(folder.Path() / "w" / "Landxml_temp.xml") << COMPLETE_WORK_FILE;
    const std::wstring report = folder.Name(L"w.xml");
    const Outcome outcome = Run({folder.Name(L"w"), L"--output-dir", folder.Name(), L"--report", report});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "--report: ほかに読み書きするファイルです: " + Utf8FromWide(report) + "\n");
}

TEST_F(CommandLineTest, ARealDialogIsNoDryRun)
{
    WorkFile(COMPLETE_WORK_FILE);
    for (const wchar_t* const option : {L"--dry-run", L"--print-settings"})
    {
        const Outcome outcome = Run({folder.Name(), L"--dialog", option});
        EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
        EXPECT_EQ(outcome.err, Utf8FromWide(option) + ": --dialogと一緒には指定できません\n");
    }
}

TEST_F(CommandLineTest, ATemporaryFolderThatIsNotThereIsNamed)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::wstring missing = folder.Name(L"missing");
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()}, NativePath(missing));
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_TRUE(outcome.err.ends_with("作業用ファイルへのアクセスに失敗しました。\n")) << outcome.err;
    EXPECT_TRUE(outcome.details.starts_with(Utf8FromWide(missing))) << outcome.details;
    EXPECT_TRUE(outcome.details.ends_with("（ありません）\n")) << outcome.details;
}

TEST_F(CommandLineTest, WhatIsNoErrorOfTheWrittenFileIsToldAndLeavesTheStatus)
{
    WorkFile("<LandXML><Units><Metric linearUnit='meter'/></Units><Project/><CoordinateSystem "
             "horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' "
             "staStart='0' length='1' desc='プロジェクト名 = 名'><CoordGeom><Line length='1'><Start>0 0</Start>"
             "<End>1 0</End></Line></CoordGeom></Alignment></Alignments><Monuments/></LandXML>");
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--check", L"--json"});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_TRUE(outcome.err.starts_with("情報 ")) << outcome.err;
    EXPECT_TRUE(OrderedJson::parse(outcome.out)["findings"][0].contains("row")) << outcome.out;
}

TEST_F(CommandLineTest, WhatTheWrittenFileLacksStandsInNoRow)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--check", L"--json"});
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    int lacking = 0;
    const OrderedJson line = OrderedJson::parse(outcome.out);
    for (const OrderedJson& finding : line["findings"])
    {
        const bool isOfUnits = finding["text"].get<std::string>().starts_with("誤り R12 単位系: ");
        EXPECT_NE(finding.contains("row"), isOfUnits) << finding;
        lacking += isOfUnits ? 1 : 0;
    }
    EXPECT_EQ(lacking, 1);
}

TEST_F(CommandLineTest, AnOutputFolderIsMadeAndTheFileIsNamedAfterTheWorkFolder)
{
    const std::filesystem::path work = folder.Path() / NativePath(L"国道 1.2");
    std::filesystem::create_directory(work);
    std::ofstream(work / "Landxml_temp.xml") << COMPLETE_WORK_FILE;
    const std::wstring settings = Settings(COMPLETING_SETTINGS);
    for (const std::wstring& name :
         {folder.Name(L"国道 1.2"), folder.Name(L"国道 1.2") + L"/", folder.Name(L"国道 1.2/.")})
    {
        std::filesystem::remove_all(folder.Path() / "a");
        const Outcome outcome = Run({name, L"-s", settings, L"--output-dir", folder.Name(L"a/b")});
        EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
        EXPECT_FALSE(folder.Read(L"a/b/国道 1.2.xml").empty());
    }
}

TEST_F(CommandLineTest, AnOutputFolderThatCannotBeMadeIsStatusThree)
{
    const std::wstring file = WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name(), L"--output-dir", file});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "出力フォルダーを作れません\n");
    EXPECT_EQ(outcome.details, Utf8FromWide(file) + "（同じ名前のファイルがあります）\n");
}

TEST_F(CommandLineTest, AnOutputFolderThatCannotBeMadeIsALineOfJsonForEachFolder)
{
    const std::wstring file = WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({L"一", L"二", L"--output-dir", file, L"--json"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "出力フォルダーを作れません\n");
    std::istringstream lines(outcome.out);
    for (const char* const name : {"一", "二"})
    {
        std::string text;
        std::getline(lines, text);
        const OrderedJson line = OrderedJson::parse(text);
        EXPECT_EQ(line["folder"], name);
        EXPECT_EQ(line["status"], 3);
        EXPECT_EQ(line["findings"][0].dump(),
                  OrderedJson({{"code", "no-output-folder"},
                               {"text", "出力フォルダーを作れません"},
                               {"file", Utf8FromWide(file)},
                               {"detail", outcome.details.substr(0, outcome.details.size() - 1)}})
                      .dump());
    }
}

TEST_F(CommandLineTest, ALineFeedInTheNameOfAFolderBreaksNoLine)
{
    const Outcome missing = Run({L"無\nい", L"-o", Output()});
    EXPECT_EQ(missing.err + missing.details, "作業フォルダーが見つかりません\n無 い\n");
    const Outcome refused = Run({L"a/x\ny", L"b/x\ny", L"--output-dir", L"out"});
    EXPECT_EQ(refused.err, "--output-dir: 同じ名前の作業フォルダーが2つあります: b/x y\n");
}

TEST_F(CommandLineTest, ADryRunDoesAllButTheWriting)
{
    WorkFile(COMPLETE_WORK_FILE);
    folder.Write(L"out.xml", "old");
    const std::wstring settings = Settings(COMPLETING_SETTINGS);
    EXPECT_EQ(Run({folder.Name(), L"-s", settings, L"--dry-run"}).status, ExitStatus::FileWritten);
    EXPECT_EQ(Run({folder.Name(), L"-s", settings, L"-o", Output(), L"--dry-run"}).status, ExitStatus::FileWritten);
    const std::wstring made = folder.Name(L"made");
    EXPECT_EQ(Run({folder.Name(), L"-s", settings, L"--output-dir", made, L"--dry-run"}).status,
              ExitStatus::FileWritten);
    EXPECT_FALSE(PathExists(made));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(Run({folder.Name(), L"--dry-run"}).status, ExitStatus::Findings);
    EXPECT_EQ(Run({folder.Name(), L"-s", settings, L"-o", Output()}).status, ExitStatus::FileWritten);
    EXPECT_NE(folder.Read(L"out.xml"), "old");
}

TEST_F(CommandLineTest, ADryRunToldOfADocumentThatCannotBeFinishedIsStatusThree)
{
    WorkFile("<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/>"
             "<Alignments><Alignment name='A' desc='プロジェクト名 = 名'><CrossSects><CrossSect><CrossSectSurf/>"
             "</CrossSect></CrossSects></Alignment></Alignments></LandXML>");
    const std::wstring settings = Settings(COMPLETING_SETTINGS);
    for (const wchar_t* const option : {L"--dry-run", L"--quiet"})
    {
        const Outcome outcome = Run({folder.Name(), L"-s", settings, L"-o", Output(), option});
        EXPECT_EQ(outcome.status, ExitStatus::NoFile);
        EXPECT_EQ(outcome.err, "ファイルは出力されませんでした。\n");
        EXPECT_FALSE(PathExists(Output()));
    }
}

TEST_F(CommandLineTest, AnOptionMayStandBehindTheFoldersAndTwoDashesEndThem)
{
    const std::filesystem::path work = folder.Path() / "-o";
    std::filesystem::create_directory(work);
    std::ofstream(work / "Landxml_temp.xml") << COMPLETE_WORK_FILE;
    const std::filesystem::path former = std::filesystem::current_path();
    const std::wstring settings = Settings(COMPLETING_SETTINGS);
    std::filesystem::current_path(folder.Path());
    const Outcome outcome = Run({L"-s", settings, L"-o", L"out.xml", L"--", L"-o"});
    std::filesystem::current_path(former);
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
    EXPECT_FALSE(folder.Read(L"out.xml").empty());
}

// Warnings

TEST_F(CommandLineTest, AWarningIsAFindingWhereThatIsAskedFor)
{
    WorkFile(COMPLETE_WORK_FILE);
    std::filesystem::create_directory(folder.Path() / "widening_temp_1.csv");
    const std::vector<std::wstring> arguments{folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()};
    std::vector<std::wstring> strict = arguments;
    strict.push_back(L"--strict");
    const Outcome outcome = Run(strict);
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(outcome.err, "警告があるため、ファイルを出力しません\n");
    EXPECT_TRUE(outcome.warnings.starts_with("警告: ファイルを読み込めません。\t"));
    EXPECT_FALSE(PathExists(Output()));
    std::vector<std::wstring> inJson = strict;
    inJson.push_back(L"--json");
    const OrderedJson line = OrderedJson::parse(Run(inJson).out);
    EXPECT_EQ(line["status"], 1);
    EXPECT_EQ(line["findings"].dump(), R"([{"code":"strict","text":"警告があるため、ファイルを出力しません"}])");
    EXPECT_EQ(Run(arguments).status, ExitStatus::FileWritten);
    std::filesystem::remove(folder.Path() / "widening_temp_1.csv");
    EXPECT_EQ(Run(strict).status, ExitStatus::FileWritten);
}

TEST_F(CommandLineTest, NoWarningsAreToldWhereNoneAreWanted)
{
    const Outcome outcome = Run({folder.Name(), L"-o", Output(), L"--quiet"});
    EXPECT_EQ(outcome.warnings, "");
    EXPECT_EQ(outcome.err, EMPTY_MODEL_FINDINGS);
}

TEST_F(CommandLineTest, ASettingThatIsPassedOverIsAWarning)
{
    WorkFile(
        "<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' "
        "horizontalCoordinateSystemName='9(X,Y)'/><Alignments name='国道'><Alignment name='A' desc='プロジェクト名 = "
        "名'/></Alignments></LandXML>");
    const std::vector<std::wstring> arguments{folder.Name(), L"-o", Output(), L"-s",
                                              Settings(R"({"routes": {"県道": {}, "国道": {"roadClassification":
        "第1種第1級", "trafficVolume": "1", "side": "左岸", "alignments": {"A": {"mainInterval": "20", "normalCrown": "2"}}}}})")};
    const Outcome wrong = Run(arguments);
    EXPECT_EQ(wrong.status, ExitStatus::WrongUsage);
    EXPECT_EQ(wrong.err, "routes.国道.side: 道路の路線では入力できません\n"
                         "routes.県道: この名前の路線はありません（あるもの: 国道）\n");
    EXPECT_EQ(wrong.details, "国道\n");
    std::vector<std::wstring> skipping = arguments;
    skipping.push_back(L"--skip-locked");
    const Outcome outcome = Run(skipping);
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
    EXPECT_EQ(outcome.warnings,
              "警告: routes.国道.side: 道路の路線では入力できません（この設定を読み飛ばしました）\t国道\n"
              "警告: routes.県道: この名前の路線はありません（あるもの: 国道）（この設定を読み飛ばしました）\n");
}

TEST_F(CommandLineTest, WhatIsPassedOverIsToldBesideWhatIsWrong)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name(), L"-o", Output(), L"--skip-locked", L"-s",
                                 Settings(R"({"projectPhase": "x", "routes": [{"side": "左岸"}]})")});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "projectPhase: 「x」は選択できません（選択肢: 概略、予備、詳細、施工）\n");
    EXPECT_EQ(outcome.warnings,
              "警告: routes[0].side: 道路の路線では入力できません（この設定を読み飛ばしました）\t路線1\n");
}

// Lines for programs

TEST_F(CommandLineTest, ALineOfJsonHoldsTheDetailThatIsShownToEyes)
{
    folder.Write(L"Landxml_temp.xml", "<LandXML>");
    const Outcome outcome = Run({folder.Name(), L"-o", Output(), L"--json"});
    const OrderedJson warning = OrderedJson::parse(outcome.out)["warnings"][0];
    EXPECT_EQ(outcome.warnings,
              "警告: " + warning["text"].get<std::string>() + "\t" + warning["detail"].get<std::string>() + "\n");
    EXPECT_TRUE(warning["detail"].get<std::string>().ends_with("/Landxml_temp.xml 1行目（9文字目）")) << warning;
    std::filesystem::create_directory(folder.Path() / "out.xml");
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome failed = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--json"});
    EXPECT_EQ(OrderedJson::parse(failed.out)["findings"][0]["detail"].get<std::string>() + "\n", failed.details);
}

TEST_F(CommandLineTest, AWrittenFileIsALineOfJsonThatCountsWhatItHolds)
{
    WorkFile(COMPLETE_WORK_FILE);
    for (const wchar_t* const sideFile :
         {L"widthStake_temp_1.csv", L"superElevation_temp_1.csv", L"widening_temp_1.csv"})
    {
        folder.Write(sideFile, "");
    }
    folder.Write(L"intermediatePts_temp_1.csv", "線形名,A\n2\nP,1,2,3,4,5\nQ,2,2,3,4,5\n");
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--json"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1);
    OrderedJson line = OrderedJson::parse(outcome.out);
    EXPECT_GE(line["seconds"], 0.0);
    line.erase("seconds");
    EXPECT_EQ(line.dump(), OrderedJson({{"folder", Utf8FromWide(folder.Name())},
                                        {"output", Utf8FromWide(Output())},
                                        {"status", 0},
                                        {"findings", OrderedJson::array()},
                                        {"warnings", OrderedJson::array()},
                                        {"counts",
                                         {{"read",
                                           {{"routes", 1},
                                            {"alignments", 1},
                                            {"crossSections", 0},
                                            {"surfaces", 0},
                                            {"pointGroups", 1},
                                            {"points", 2}}},
                                          {"written",
                                           {{"routes", 1},
                                            {"alignments", 1},
                                            {"crossSections", 0},
                                            {"surfaces", 0},
                                            {"pointGroups", 1},
                                            {"points", 2},
                                            {"bytes", folder.Read(L"out.xml").size()}}}}}})
                               .dump());
}

TEST_F(CommandLineTest, FindingsAndWarningsStandInTheLineOfJsonWithTheirParts)
{
    folder.Write(L"Landxml_temp.xml", "<LandXML>");
    const Outcome outcome = Run({folder.Name(), L"-o", Output(), L"--json"});
    EXPECT_EQ(outcome.status, ExitStatus::Findings);
    EXPECT_EQ(outcome.err, EMPTY_MODEL_FINDINGS);
    const OrderedJson line = OrderedJson::parse(outcome.out);
    EXPECT_EQ(line["status"], 1);
    EXPECT_EQ(line["findings"][1].dump(),
              R"({"code":"missing","text":"測地原子が入力されていません。","path":"horizontalDatum"})");
    EXPECT_EQ(line["warnings"][0]["code"], "malformed-xml");
    EXPECT_EQ(line["warnings"][0]["file"], Utf8FromWide(folder.Name()) + "/Landxml_temp.xml");
    EXPECT_EQ(line["counts"]["written"].dump(), "{}");
}

TEST_F(CommandLineTest, WhateverEndsARunStandsAmongTheFindingsOfItsLine)
{
    const auto code = [&](const std::vector<std::wstring>& options) {
        std::vector<std::wstring> arguments{folder.Name(), L"-o", Output(), L"--json"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return OrderedJson::parse(Run(arguments).out)["findings"][0]["code"].get<std::string>();
    };
    EXPECT_EQ(code({L"-s", Settings(R"({"projectPhase": "x"})")}), "settings");
    EXPECT_EQ(code({L"-s", L"missing.json"}), "settings");
    folder.Write(L"intermediatePts_temp_1.csv", MALFORMED_SIDE_FILE);
    EXPECT_EQ(code({}), "message");
    EXPECT_EQ(OrderedJson::parse(Run({L"無い", L"-o", Output(), L"--json"}).out)["findings"][0]["code"], "no-folder");
}

// Settings errors before and during the run

TEST_F(CommandLineTest, AWrongTypeIsFoundBeforeTheRunStarts)
{
    folder.Write(L"intermediatePts_temp_1.csv", MALFORMED_SIDE_FILE);
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(R"({"projectName": 1})"), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "projectName: 数値は指定できません。文字列で指定してください\n");
}

TEST_F(CommandLineTest, ASideFileThatRaisesWinsOverWhatTheDialogWouldRefuse)
{
    folder.Write(L"intermediatePts_temp_1.csv", MALFORMED_SIDE_FILE);
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(R"({"projectPhase": "x"})"), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, MALFORMED_SIDE_FILE_MESSAGE);
}

TEST_F(CommandLineTest, WhatTheDialogRefusesIsToldBehindTheTraceLinesAndInsteadOfFindings)
{
    folder.Write(L"intermediatePts_temp_1.csv", "線形名,本線\n");
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(R"({"projectPhase": "x"})"), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.out, "Row Value: 本線\n");
    EXPECT_EQ(outcome.err, "projectPhase: 「x」は選択できません（選択肢: 概略、予備、詳細、施工）\n");
    EXPECT_FALSE(PathExists(Output()));
}

TEST_F(CommandLineTest, EveryWrongPlaceOfTheSettingsIsALine)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run(
        {folder.Name(), L"-s", Settings(R"({"projectPhase": "x", "routes": [{"side": "左岸", "trafficVolume": "y"}]})"),
         L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "projectPhase: 「x」は選択できません（選択肢: 概略、予備、詳細、施工）\n"
                           "routes[0].trafficVolume: 「y」は入力できません（0から999999までの数値、小数第10位まで）\n"
                           "routes[0].side: 道路の路線では入力できません\n");
    EXPECT_EQ(outcome.details, "路線1\n路線1\n");
}

// Several settings files

TEST_F(CommandLineTest, SettingsFilesAreMergedInOrderAndTheFoldersOwnComesLast)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::wstring first = Settings(COMPLETING_SETTINGS);
    const std::wstring second = folder.Write(L"b.json", R"({"projectName": "b", "projectPhase": "概略"})");
    folder.Write(L"own.json", R"({"projectName": "own"})");
    const auto printed = [&](std::vector<std::wstring> options) {
        options.insert(options.end(), {folder.Name(), L"--print-settings"});
        return OrderedJson::parse(Run(options).out);
    };
    const OrderedJson merged = printed({L"-s", first, L"-s", second});
    EXPECT_EQ(merged["projectName"], "b");
    EXPECT_EQ(merged["routes"][0]["trafficVolume"], "1");
    EXPECT_EQ(printed({L"-s", second, L"--folder-settings", L"own.json"})["projectName"], "own");
    EXPECT_EQ(printed({L"-s", second, L"--folder-settings", L"own.json"})["projectPhase"], "概略");
    EXPECT_EQ(printed({L"-s", second, L"--folder-settings", L"none.json"})["projectName"], "b");
}

TEST_F(CommandLineTest, ErrorsInSeveralSettingsFilesNameTheirFiles)
{
    const std::wstring first = folder.Write(L"a.json", R"({"projectName": 1})");
    const std::wstring second = folder.Write(L"b.json", R"({"projectPhase": 1})");
    const Outcome outcome = Run({folder.Name(), L"-s", first, L"-s", second, L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "projectName: 数値は指定できません。文字列で指定してください\n"
                           "projectPhase: 数値は指定できません。文字列で指定してください\n");
    EXPECT_EQ(outcome.details, Utf8FromWide(first) + "\n" + Utf8FromWide(second) + "\n");
    const Outcome own = Run({folder.Name(), L"--folder-settings", L"a.json", L"-o", Output()});
    EXPECT_EQ(own.status, ExitStatus::WrongUsage);
    EXPECT_EQ(own.details, Utf8FromWide(folder.Name()) + "/a.json\n");
}

#ifndef _WIN32
TEST_F(CommandLineTest, SettingsMayComeFromStandardInput)
{
    const std::wstring file = Settings(R"({"projectName": "標準入力"})");
    const int former = ::dup(STDIN_FILENO);
    const int input = ::open(Utf8FromWide(file).c_str(), O_RDONLY);
    ::dup2(input, STDIN_FILENO);
    ::close(input);
    const Outcome outcome = Run({folder.Name(), L"-s", L"-", L"--print-settings"});
    ::dup2(former, STDIN_FILENO);
    ::close(former);
    EXPECT_EQ(OrderedJson::parse(outcome.out)["projectName"], "標準入力");
}
#endif

// The route count

/// How many routes were read, by their trace lines.
std::string RoutesRead(const std::string& out)
{
    std::string numbers;
    for (const char number : {'1', '2', '3', '4'})
    {
        numbers += out.find(std::string("Row Value: route") + number) != std::string::npos ? number : '-';
    }
    return numbers;
}

TEST_F(CommandLineTest, TheRouteCountIsTheLargestNumberOfASideFileUnlessItIsGiven)
{
    folder.Write(L"intermediatePts_temp_1.csv", "線形名,route1\n");
    folder.Write(L"intermediatePts_temp_3.csv", "線形名,route3\n");
    folder.Write(L"widening_temp_2.csv", "");
    const auto routes = [&](std::vector<std::wstring> options) {
        options.insert(options.end(), {folder.Name(), L"-o", Output()});
        return RoutesRead(Run(options).out);
    };
    EXPECT_EQ(routes({}), "1-3-");
    EXPECT_EQ(routes({L"-n", L"2"}), "1---");
    EXPECT_EQ(routes({L"--routes=9"}), "1-3-");
    EXPECT_EQ(routes({L"-n", L"010"}), "1-3-");
    EXPECT_EQ(routes({L"-n", L"0"}), "----");
}

// The arguments

struct WrongArguments
{
    const char* name;
    std::vector<std::wstring> arguments;
    const char* error;
};

const WrongArguments WRONG_ARGUMENTS[] = {
    {"Nothing", {}, "WORK_FOLDER: 作業フォルダーを指定してください\n"},
    {"NoOutput", {L"."}, "--output: 出力ファイルを指定してください\n"},
    {"AnEmptyOutput", {L".", L"-o", L""}, "--output: 出力ファイルを指定してください\n"},
    {"NoValueOfAnOption", {L".", L"-o", L"x", L"-s"}, "--settings: 値を指定してください\n"},
    {"AnEmptySettingsPath", {L".", L"-o", L"x", L"-s", L""}, "--settings: 設定ファイルを指定してください\n"},
    {"OneOutputOfTwoFolders",
     {L".", L"二", L"-o", L"x"},
     "--output: 作業フォルダーが2つ以上のときは--output-dirを指定してください\n"},
    {"NoOutputOfTwoFolders", {L".", L"二"}, "--output-dir: 出力フォルダーを指定してください\n"},
    {"TwoOutputs", {L".", L"-o", L"x", L"--output-dir", L"y"}, "--output-dir: --outputと一緒には指定できません\n"},
    {"AnEmptyOutputFolder", {L".", L"--output-dir", L""}, "--output-dir: 出力フォルダーを指定してください\n"},
    {"TwoFoldersOfOneName",
     {L"a/x", L"b/x/", L"--output-dir", L"y"},
     "--output-dir: 同じ名前の作業フォルダーが2つあります: b/x/\n"},
    {"AFolderWithoutAName", {L"/", L"--output-dir", L"y"}, "--output-dir: 名前のない作業フォルダーです: /\n"},
    {"AnEmptyFolder", {L"", L"-o", L"x"}, "WORK_FOLDER: 作業フォルダーを指定してください\n"},
    {"AnEmptyFolderAmongOthers", {L".", L"", L"--output-dir", L"y"}, "WORK_FOLDER: 作業フォルダーを指定してください\n"},
    {"PrintingTwoFolders",
     {L".", L"二", L"--print-settings"},
     "--print-settings: 作業フォルダーは1つだけ指定してください\n"},
    {"TheDialogOfTwoFolders", {L".", L"二", L"--dialog"}, "--dialog: 作業フォルダーは1つだけ指定してください\n"},
    {"AReportOnTwoFolders",
     {L".", L"二", L"--output-dir", L"y", L"--report", L"x"},
     "--report: 作業フォルダーは1つだけ指定してください\n"},
    {"AnUnknownOption", {L".", L"--verbose", L"-o", L"x"}, "--verbose: 不明なオプションです\n"},
    {"AnUnknownLetter", {L".", L"-x", L"-o", L"x"}, "-x: 不明なオプションです\n"},
    {"AMisspeltOption", {L".", L"--ouptut", L"x"}, "--ouptut: 不明なオプションです（もしかして --output）\n"},
    {"AMisspeltOptionAlone", {L"--versoin"}, "--versoin: 不明なオプションです（もしかして --version）\n"},
    {"ABegunOption", {L".", L"--print"}, "--print: 不明なオプションです（もしかして --print-settings）\n"},
    {"AMisspeltOptionWithItsValue",
     {L".", L"--setings=x"},
     "--setings=x: 不明なオプションです（もしかして --settings）\n"},
    {"ANegativeCount", {L".", L"-n", L"-1", L"-o", L"x"}, "--routes: 0以上の整数で指定してください\n"},
    {"NegativeJobs", {L".", L"--jobs=-1", L"-o", L"x"}, "--jobs: 0以上の整数で指定してください\n"},
    {"JobsThatAreNoNumber", {L".", L"-j", L"x", L"-o", L"x"}, "--jobs: 0以上の整数で指定してください\n"},
    {"StandardInputTwice",
     {L".", L"-s", L"-", L"-s", L"-", L"-o", L"x"},
     "--settings: 標準入力は1回だけ指定してください\n"},
    {"AnEmptyNameOfFolderSettings",
     {L".", L"--folder-settings", L"", L"-o", L"x"},
     "--folder-settings: 設定ファイルの名前を指定してください\n"},
    {"StrictAndQuiet", {L".", L"--strict", L"-q", L"-o", L"x"}, "--quiet: --strictと一緒には指定できません\n"},
    {"JsonOfPrintedSettings",
     {L".", L"--print-settings", L"--json"},
     "--json: --print-settings、--dialogと一緒には指定できません\n"},
    {"TheWorkFileAsItsTarget",
     {L".", L"-o", L"./Landxml_temp.xml"},
     "--output: ほかに読み書きするファイルです: ./Landxml_temp.xml\n"},
    {"TheSettingsAsTheTarget", {L".", L"-s", L"x", L"-o", L"./x"}, "--output: ほかに読み書きするファイルです: ./x\n"},
    {"TheFolderSettingsAsTheTarget",
     {L".", L"--folder-settings", L"x", L"-o", L"x"},
     "--output: ほかに読み書きするファイルです: x\n"},
    {"ACountThatIsNoNumber", {L".", L"-n", L"two", L"-o", L"x"}, "--routes: 0以上の整数で指定してください\n"},
    {"ACountWithAFraction", {L".", L"-n", L"1.5", L"-o", L"x"}, "--routes: 0以上の整数で指定してください\n"},
    {"ACountInHexadecimal", {L".", L"-n", L"0x10", L"-o", L"x"}, "--routes: 0以上の整数で指定してください\n"},
    {"ACountBeyond32Bits", {L".", L"-n", L"2147483648", L"-o", L"x"}, "--routes: 0以上の整数で指定してください\n"},
    {"AnEmptyCount", {L".", L"-n", L"", L"-o", L"x"}, "--routes: 0以上の整数で指定してください\n"},
    {"ACheckOfWhatIsNotWritten",
     {L".", L"--print-settings", L"--check"},
     "--check: --print-settings、--dry-run、--dialogと一緒には指定できません\n"},
    {"AReportOnWhatTheHostWrites",
     {L".", L"--dialog", L"--report", L"x"},
     "--report: --print-settings、--dry-run、--dialogと一緒には指定できません\n"},
    {"AnEmptyReportPath", {L".", L"-o", L"x", L"--report", L""}, "--report: ファイルを指定してください\n"},
    {"AReportInThePlaceOfTheOutput",
     {L".", L"-o", L"x", L"--report", L"./x"},
     "--report: ほかに読み書きするファイルです: ./x\n"},
    {"AReportInThePlaceOfTheWorkFile",
     {L".", L"-o", L"x", L"--report", L"Landxml_temp.xml"},
     "--report: ほかに読み書きするファイルです: Landxml_temp.xml\n"},
    {"AMissingFolder", {L"無い", L"-o", L"x"}, "作業フォルダーが見つかりません\n"},
    {"AMissingFolderToPrint", {L"無い", L"--print-settings"}, "作業フォルダーが見つかりません\n"},
    {"AMissingFolderForTheDialog", {L"無い", L"--dialog"}, "作業フォルダーが見つかりません\n"},
};

class CommandLineArguments : public CommandLineTest, public testing::WithParamInterface<WrongArguments>
{};

TEST_P(CommandLineArguments, ThatAreWrongAreStatusTwoWithOneLine)
{
    const Outcome outcome = Run(GetParam().arguments);
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Cli, CommandLineArguments, testing::ValuesIn(WRONG_ARGUMENTS),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_F(CommandLineTest, AFileIsNoWorkFolder)
{
    const std::wstring file = WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({file, L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "作業フォルダーが見つかりません\n");
    EXPECT_EQ(outcome.details, Utf8FromWide(file) + "\n");
}

TEST_F(CommandLineTest, TwoFoldersWhoseNamesDifferInCaseAloneHaveTwoTargetsOnlyWhereFilesDo)
{
    const Outcome outcome = Run({L"a/路線Ａ", L"b/路線ａ", L"--output-dir", folder.Name(L"out")});
#ifdef _WIN32
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "--output-dir: 同じ名前の作業フォルダーが2つあります: b/路線ａ\n");
#else
    // Both are begun, as far as that goes without the program.
    EXPECT_EQ(outcome.err, "a/路線Ａ: 処理を開始できませんでした\nb/路線ａ: 処理を開始できませんでした\n");
#endif
}

TEST_F(CommandLineTest, AWorkFolderMayEndInASeparator)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name() + L"/", L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
}

TEST_F(CommandLineTest, HelpNamesEveryOption)
{
    const Outcome outcome = Run({L"--help"});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_EQ(outcome.err, "");
    for (const char* const option :
         {"WORK_FOLDER", "-n,--routes COUNT", "-s,--settings FILE", "-o,--output FILE", "--print-settings", "--check",
          "--report FILE", "--dialog", "-h,--help", "-V,--version", "--output-dir DIR", "-j,--jobs COUNT", "--dry-run",
          "--json", "--strict", "-q,--quiet", "--skip-locked", "--folder-settings NAME"})
    {
        EXPECT_NE(outcome.out.find(option), std::string::npos) << option;
    }
}

/// True if a text holds the name of an option, and not only that of a longer one.
bool NamesOption(const std::string& text, const std::string& option)
{
    for (std::size_t at = text.find(option); at != std::string::npos; at = text.find(option, at + 1))
    {
        const char before = at == 0 ? ' ' : text[at - 1];
        const char behind = at + option.size() < text.size() ? text[at + option.size()] : ' ';
        const auto isPart = [](char character) { return character == '-' || (character >= 'a' && character <= 'z'); };
        if (!isPart(before) && !isPart(behind))
        {
            return true;
        }
    }
    return false;
}

TEST_F(CommandLineTest, HelpAndBothReadmesNameEveryOptionThatIsDeclared)
{
    const std::vector<std::string> options = ConvertOptionNames();
    EXPECT_NE(std::find(options.begin(), options.end(), "--changes"), options.end());
    const std::string help = Run({L"--help"}).out;
    for (const std::string& option : options)
    {
        EXPECT_TRUE(NamesOption(help, option)) << option;
        for (const wchar_t* const readme : {L"/README.md", L"/README.ja.md"})
        {
            const std::string text = ReadWholeFile(std::wstring(JLANDXML_SOURCE_DIR) + readme).value();
            EXPECT_TRUE(NamesOption(text, option)) << option << " in " << Utf8FromWide(readme);
        }
    }
}

#ifndef _WIN32
/// A variable of the environment for as long as the object lives.
class VariableScope
{
  public:
    VariableScope(const char* name, const char* value) : name_(name)
    {
        if (const char* const former = std::getenv(name))
        {
            former_ = former;
        }
        ::setenv(name, value, 1);
    }
    VariableScope(const VariableScope&) = delete;
    VariableScope& operator=(const VariableScope&) = delete;
    ~VariableScope() { former_ ? ::setenv(name_, former_->c_str(), 1) : ::unsetenv(name_); }

  private:
    const char* name_;
    std::optional<std::string> former_;
};

TEST_F(CommandLineTest, HelpIsInTheLanguageOfTheLocale)
{
    const auto help = [&](const char* locale) {
        const VariableScope scope("LC_ALL", locale);
        return Run({L"--help"}).out;
    };
    EXPECT_NE(help("ja_JP.UTF-8").find("使い方: jlandxml-convert"), std::string::npos);
    EXPECT_NE(help("en_US.UTF-8").find("Usage: jlandxml-convert"), std::string::npos);
    EXPECT_NE(help("C").find("Usage: jlandxml-convert"), std::string::npos);
    const std::string english = help("en_US.UTF-8");
    EXPECT_TRUE(std::all_of(english.begin(), english.end(), [](char character) { return character > 0; })) << english;
    const VariableScope none("LC_ALL", "");
    {
        const VariableScope messages("LC_MESSAGES", "ja_JP.UTF-8");
        EXPECT_NE(Run({L"--help"}).out.find("使い方"), std::string::npos);
    }
    const VariableScope noMessages("LC_MESSAGES", "");
    const VariableScope noLanguage("LANG", "");
    EXPECT_EQ(Run({L"--help"}).out, english);
}
#endif

TEST_F(CommandLineTest, TheReadmesExplainEveryFindingAndEveryOption)
{
    const std::string help = Run({L"--help"}).out;
    for (const wchar_t* const readme : {L"/README.md", L"/README.ja.md"})
    {
        const std::string text = ReadWholeFile(std::wstring(JLANDXML_SOURCE_DIR) + readme).value();
        for (const char* const finding :
             {"プロジェクト名称が入力されていません。", "測地原子が入力されていません。",
              "水平座標系が入力されていません。", "座標系がJGD2024なので出力バージョンを1.6以下にしないでください。",
              "道路の規格・等級が入力されていません。", "設計交通量が入力されていません。",
              "河川の規格・等級が入力されていません。", "左右岸区分が入力されていません。",
              "主測点間隔が入力されていません。", "副測点間隔", "直線部横断勾配が入力されていません。",
              "中間点の参照線形が入力されていません。", "幅杭の参照線形が入力されていません。",
              "注記が入力されていません。", "は数値を入力してください。", "の範囲内で入力してください。",
              "位までの値を入力してください。"})
        {
            EXPECT_NE(text.find(finding), std::string::npos) << finding;
        }
        for (std::size_t at = 0; (at = help.find("--", at)) != std::string::npos; at += 2)
        {
            const std::string option = help.substr(at, help.find_first_of(" \n", at) - at);
            EXPECT_NE(text.find(option), std::string::npos) << option;
        }
    }
}

TEST_F(CommandLineTest, VersionIsOneLine)
{
    const Outcome outcome = Run({L"--version"});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_TRUE(outcome.out.starts_with("jlandxml-convert "));
    EXPECT_EQ(outcome.out.find('\n'), outcome.out.size() - 1);
}

// --dialog

TEST_F(CommandLineTest, WithoutTheModuleBesideTheProgramTheDialogIsStatusThree)
{
    const Outcome outcome = Run({folder.Name(), L"--dialog"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "モジュールを読み込めません\n");
    EXPECT_NE(outcome.details.find("JLandXmlConvert."), std::string::npos) << outcome.details;
}

// --print-settings

TEST_F(CommandLineTest, PrintingEndsWithZeroWhateverIsMissingAndWritesNoFile)
{
    const Outcome outcome = Run({folder.Name(), L"--print-settings", L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(OrderedJson::parse(outcome.out)["projectName"], nullptr);
    EXPECT_FALSE(PathExists(Output()));
}

#ifdef __linux__
TEST_F(CommandLineTest, AnAnswerThatCannotBeWrittenIsStatusThreeWithOneLine)
{
    const std::vector<std::wstring> asked[] = {{folder.Name(), L"--print-settings"}, {L"--help"}, {L"--version"}};
    for (const std::vector<std::wstring>& arguments : asked)
    {
        testing::internal::CaptureStderr();
        const ExitStatus status = [&] {
            const FullStandardOutput full;
            return RunCommandLine(arguments);
        }();
        std::string err = testing::internal::GetCapturedStderr();
        TakeWarningLines(err);
        EXPECT_EQ(err, "標準出力に書き込めません\n") << Utf8FromWide(arguments[0]);
        EXPECT_EQ(status, ExitStatus::NoFile) << Utf8FromWide(arguments[0]);
    }
}

TEST_F(CommandLineTest, ALineOfJsonThatCannotBeWrittenIsStatusThree)
{
    WorkFile(COMPLETE_WORK_FILE);
    const auto errorOf = [](const std::vector<std::wstring>& arguments) {
        testing::internal::CaptureStderr();
        const ExitStatus status = [&] {
            const FullStandardOutput full;
            return RunCommandLine(arguments);
        }();
        EXPECT_EQ(status, ExitStatus::NoFile);
        std::string err = testing::internal::GetCapturedStderr();
        TakeWarningLines(err);
        return err;
    };
    EXPECT_EQ(errorOf({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--json"}),
              "標準出力に書き込めません\n");
    EXPECT_TRUE(PathExists(Output()));
    const std::string err = errorOf({folder.Name(), L"-s", folder.Name(L"missing.json"), L"--json", L"-o", Output()});
    EXPECT_TRUE(err.ends_with("\n標準出力に書き込めません\n")) << err;
}

TEST_F(CommandLineTest, AFileThatIsWrittenToADeviceCannotBeJudged)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome = Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", L"/dev/null", L"--check"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "出力したファイルを読み込めません\n");
    EXPECT_TRUE(outcome.details.starts_with("/dev/null（")) << outcome.details;
}

TEST_F(CommandLineTest, AReportThatADeviceDoesNotTakeIsStatusThree)
{
    WorkFile(COMPLETE_WORK_FILE);
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--report", L"/dev/full"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, "図面と計算書（--report）を書き込めません\n");
    EXPECT_TRUE(outcome.details.starts_with("/dev/full")) << outcome.details;
}
#endif

TEST_F(CommandLineTest, PrintingTellsASettingsErrorAndPrintsNothing)
{
    const Outcome outcome = Run({folder.Name(), L"--print-settings", L"-s", Settings(R"({"routes": [{}]})")});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "routes[0]: 路線はありません\n");
}

TEST_F(CommandLineTest, PrintingAfterAMessageBoxIsStatusThreeAndPrintsNothing)
{
    folder.Write(L"intermediatePts_temp_1.csv", MALFORMED_SIDE_FILE);
    const Outcome outcome = Run({folder.Name(), L"--print-settings"});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, MALFORMED_SIDE_FILE_MESSAGE);
}

/// An example's work folder, with and without its settings.
class CommandLineExamples : public CommandLineTest, public testing::WithParamInterface<const wchar_t*>
{
  protected:
    static std::wstring Example() { return std::wstring(JLANDXML_SOURCE_DIR L"/examples/") + GetParam(); }
    static std::wstring ExampleSettings() { return Example() + L"/settings.json"; }

    /// What the program writes when it prints settings.
    static std::string Printed(const std::vector<std::wstring>& options)
    {
        std::vector<std::wstring> arguments{Example(), L"--print-settings"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
        EXPECT_TRUE(outcome.out.starts_with("{\n"));
        return outcome.out;
    }

    /// The finished file; empty if there is none.
    std::string Converted(const std::wstring& settings) const
    {
        const Outcome outcome = Run({Example(), L"-s", settings, L"-o", Output()});
        EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
        return folder.Read(L"out.xml");
    }
};

TEST_P(CommandLineExamples, SettingsPrintedAndFedBackGiveTheSameFinishedFile)
{
    const std::string finished = Converted(ExampleSettings());
    const std::wstring printed = Settings(Printed({L"-s", ExampleSettings()}));
    EXPECT_FALSE(finished.empty());
    EXPECT_EQ(Converted(printed), finished);
}

/// Completes one object of printed settings by what the checks ask for: a required text that is empty, a required
/// choice that hasn't been made. Nothing else is touched.
void Complete(OrderedJson& object)
{
    const auto fillText = [&](const char* key, const char* text) {
        if (object.contains(key) && object[key].is_null())
        {
            object[key] = text;
        }
    };
    const auto choose = [&](const char* key) {
        if (object.contains(key) && object[key].is_null())
        {
            object[key] = object["_choices"][key][0];
        }
    };
    fillText("projectName", "名称");
    fillText("trafficVolume", "100");
    fillText("mainInterval", "20");
    fillText("normalCrown", "2");
    fillText("desc", "注記");
    if (object.contains("designGmType"))
    {
        const bool river = object["designGmType"] == "河川";
        choose(river ? "riverClassification" : "roadClassification");
        if (river)
        {
            choose("side");
        }
    }
    for (const auto& [key, value] : object.items())
    {
        if (value.is_array())
        {
            std::for_each(value.begin(), value.end(), Complete);
        }
    }
}

TEST_P(CommandLineExamples, PrintedWithoutSettingsLackOnlyWhatTheChecksAskFor)
{
    const std::string output = Printed({});
    OrderedJson printed = OrderedJson::parse(output);
    const Outcome incomplete = Run({Example(), L"-s", Settings(printed.dump()), L"-o", Output()});
    EXPECT_EQ(incomplete.status, ExitStatus::Findings);
    EXPECT_EQ(incomplete.err, Run({Example(), L"-o", Output()}).err);
    Complete(printed);
    EXPECT_NE(Converted(Settings(printed.dump())), "");
}

INSTANTIATE_TEST_SUITE_P(Cli, CommandLineExamples, testing::Values(L"road", L"river", L"two-routes"),
                         [](const auto& row) { return TextName(row.param); });

} // namespace
} // namespace jlandxml
