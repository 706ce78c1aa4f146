#include "cli/CommandLine.h"

#include "base/Files.h"
#include "base/Text.h"
#include "support/FailingAllocation.h"
#include "support/FullStandardOutput.h"
#include "support/RowName.h"
#include "support/RunFixture.h"

#include <nlohmann/json.hpp>

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
    std::string err;      ///< without the warnings
    std::string warnings; ///< each with its line's end
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

class CommandLineTest : public RunTest
{
  protected:
    static Outcome Run(const std::vector<std::wstring>& arguments)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitStatus status = RunCommandLine(arguments);
        std::string out = testing::internal::GetCapturedStdout();
        std::string err = testing::internal::GetCapturedStderr();
        std::string warnings = TakeWarningLines(err);
        return {status, std::move(out), std::move(err), std::move(warnings)};
    }

    std::wstring Settings(const std::string& json) const { return folder.Write(L"settings.json", json); }

    std::wstring Output() const { return folder.Name(L"out.xml"); }
};

// Judging what was written

TEST_F(CommandLineTest, TheWrittenFileIsCheckedWhereThatIsAskedFor)
{
    WorkFile(
        "<LandXML><Units><Metric linearUnit='meter'/></Units><Project/><CoordinateSystem horizontalDatum='JGD2011' "
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
    EXPECT_TRUE(
        outcome.err.ends_with(" A: 線形の長さが要素の長さの合計と合いません（値 2 m、計算 1 m、差 1 m、許容 0.001 m）\n"))
        << outcome.err;
    EXPECT_FALSE(folder.Read(L"out.xml").empty());
}

TEST_F(CommandLineTest, ASoundFileIsCheckedWithoutAWord)
{
    WorkFile(
        "<LandXML><Units><Metric linearUnit='meter'/></Units><Project/><CoordinateSystem horizontalDatum='JGD2011' "
        "horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' staStart='0' desc="
        "'プロジェクト名 = 名'/></Alignments></LandXML>");
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

TEST_F(CommandLineTest, AReportThatCannotBeWrittenIsStatusThree)
{
    WorkFile(COMPLETE_WORK_FILE);
    const std::wstring report = folder.Name(L"no folder/out.html");
    const Outcome outcome =
        Run({folder.Name(), L"-s", Settings(COMPLETING_SETTINGS), L"-o", Output(), L"--report", report});
    EXPECT_EQ(outcome.status, ExitStatus::NoFile);
    EXPECT_EQ(outcome.err, Utf8FromWide(Output() + L": 書き込めません: " + report + L"\n"));
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
    {"ABrokenWorkFile", L"Landxml_temp.xml", "<LandXML>", "XMLとして正しくないため、読み込みません。", ""},
    {"AnEmptyWorkFile", L"Landxml_temp.xml", "", "XMLとして正しくないため、読み込みません。", ""},
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
    EXPECT_EQ(routes({L"-n", L"-1"}), "----");
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
    {"ASecondFolder", {L".", L"二", L"-o", L"x"}, "二: 余分な引数です。取り除いてください\n"},
    {"AnUnknownOption", {L".", L"--verbose", L"-o", L"x"}, "--verbose: 余分な引数です。取り除いてください\n"},
    {"ACountThatIsNoNumber", {L".", L"-n", L"two", L"-o", L"x"}, "--routes: 整数で指定してください\n"},
    {"ACountWithAFraction", {L".", L"-n", L"1.5", L"-o", L"x"}, "--routes: 整数で指定してください\n"},
    {"ACountInHexadecimal", {L".", L"-n", L"0x10", L"-o", L"x"}, "--routes: 整数で指定してください\n"},
    {"ACountBeyond32Bits", {L".", L"-n", L"2147483648", L"-o", L"x"}, "--routes: 整数で指定してください\n"},
    {"AnEmptyCount", {L".", L"-n", L"", L"-o", L"x"}, "--routes: 整数で指定してください\n"},
    {"ACheckOfWhatIsNotWritten",
     {L".", L"--print-settings", L"--check"},
     "--check: --print-settings、--dialogと一緒には指定できません\n"},
    {"AReportOnWhatTheHostWrites",
     {L".", L"--dialog", L"--report", L"x"},
     "--report: --print-settings、--dialogと一緒には指定できません\n"},
    {"AnEmptyReportPath", {L".", L"-o", L"x", L"--report", L""}, "--report: ファイルを指定してください\n"},
    {"AReportInThePlaceOfTheOutput",
     {L".", L"-o", L"x", L"--report", L"./x"},
     "--report: ほかに読み書きするファイルです: ./x\n"},
    {"AReportInThePlaceOfTheWorkFile",
     {L".", L"-o", L"x", L"--report", L"Landxml_temp.xml"},
     "--report: ほかに読み書きするファイルです: Landxml_temp.xml\n"},
    {"AMissingFolder", {L"無い", L"-o", L"x"}, "無い: 作業フォルダーがありません。\n"},
    {"AMissingFolderToPrint", {L"無い", L"--print-settings"}, "無い: 作業フォルダーがありません。\n"},
    {"AMissingFolderForTheDialog", {L"無い", L"--dialog"}, "無い: 作業フォルダーがありません。\n"},
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
    EXPECT_EQ(outcome.err, Utf8FromWide(file) + ": 作業フォルダーがありません。\n");
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
          "--report FILE.html", "--dialog", "-h,--help", "-V,--version"})
    {
        EXPECT_NE(outcome.out.find(option), std::string::npos) << option;
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
    EXPECT_TRUE(outcome.err.starts_with("モジュールを読み込めません: "));
}

// --print-settings

TEST_F(CommandLineTest, PrintingEndsWithZeroWhateverIsMissingAndWritesNoFile)
{
    const Outcome outcome = Run({folder.Name(), L"--print-settings", L"-o", Output()});
    EXPECT_EQ(outcome.status, ExitStatus::FileWritten);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(OrderedJson::parse(outcome.out)["projectName"], "");
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
#endif

TEST_F(CommandLineTest, PrintingTellsASettingsErrorAndPrintsNothing)
{
    const Outcome outcome = Run({folder.Name(), L"--print-settings", L"-s", Settings(R"({"routes": [{}]})")});
    EXPECT_EQ(outcome.status, ExitStatus::WrongUsage);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "routes[0]: 対応する路線がありません（0件です）\n");
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

    /// What the program writes when it prints settings, its trace lines in front.
    static std::string Printed(const std::vector<std::wstring>& options)
    {
        std::vector<std::wstring> arguments{Example(), L"--print-settings"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
        EXPECT_TRUE(outcome.out.starts_with("Row Value: "));
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
        if (object.contains(key) && object[key] == "")
        {
            object[key] = text;
        }
    };
    const auto choose = [&](const char* key) {
        if (!object.contains(key) && !object.value("_locked", OrderedJson::object()).contains(key))
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
    OrderedJson printed = OrderedJson::parse(output.substr(output.find('{')));
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
