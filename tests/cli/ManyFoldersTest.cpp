#include "base/ChildProcess.h"
#include "base/Text.h"
#include "cli/CommandLine.h"
#include "support/ResourceLimit.h"
#include "support/Rounds.h"
#include "support/RunFixture.h"
#include "support/StreamOverride.h"
#include "support/generator/WorkFolderGenerator.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

#ifndef _WIN32
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef __linux__
#include <sys/prctl.h>
#include <sys/wait.h>
#endif

namespace jlandxml
{
namespace
{

using generator::MakeWorkFolder;
using ManyJson = nlohmann::json;

constexpr std::uint64_t MANY_SEED = 13;
#ifdef _WIN32
constexpr std::uint32_t MANY_FOLDERS = 20; // under Wine a process takes a while to start
#else
constexpr std::uint32_t MANY_FOLDERS = HAS_SANITIZERS ? 50 : 200;
#endif
constexpr std::uint32_t BROKEN_FOLDER = MANY_FOLDERS / 2;
constexpr const wchar_t* PROGRAM = JLANDXML_PROGRAM;

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

/// Runs over many work folders, each in a process of the real program.
class ManyFolders : public RunTest
{
  protected:
    struct Outcome
    {
        int status;
        std::string out;
        std::vector<std::string> err;
    };

    /// Runs the program in this process, which starts others for several work folders.
    static Outcome Run(const std::vector<std::wstring>& arguments, const wchar_t* program = PROGRAM)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitStatus status = RunCommandLine(arguments, program);
        std::string out = testing::internal::GetCapturedStdout();
        return {static_cast<int>(status), std::move(out), LinesOf(testing::internal::GetCapturedStderr())};
    }

    /// Folders as a host writes them, each with its settings. Their names.
    std::vector<std::wstring> MakeFolders(std::uint32_t count) const
    {
        std::vector<std::wstring> folders;
        for (std::uint32_t number = 0; number < count; ++number)
        {
            const std::wstring name = L"路線 " + std::to_wstring(number);
            generator::WriteFiles(MakeWorkFolder(MANY_SEED, 2 * number + 1).files, folder.Path() / NativePath(name));
            folders.push_back(folder.Name(name));
        }
        return folders;
    }

    std::wstring OutputFolder() const { return folder.Name(L"out"); }

    std::vector<std::wstring> Arguments(std::vector<std::wstring> folders,
                                        const std::vector<std::wstring>& options) const
    {
        folders.insert(folders.end(), {L"--output-dir", OutputFolder(), L"--folder-settings", L"settings.json"});
        folders.insert(folders.end(), options.begin(), options.end());
        return folders;
    }

    std::string Finished(std::uint32_t number) const
    {
        return folder.Read(L"out/路線 " + std::to_wstring(number) + L".xml");
    }

    /// What a run of each folder by itself writes.
    std::vector<std::string> SingleFiles(const std::vector<std::wstring>& folders) const
    {
        std::vector<std::string> files;
        for (const std::wstring& one : folders)
        {
            RunCommandLine({one, L"-s", one + L"/settings.json", L"-q", L"-o", folder.Name(L"single.xml")});
            files.push_back(folder.Read(L"single.xml"));
        }
        return files;
    }
};

TEST_F(ManyFolders, GiveTheFilesOfSingleRunsAndOneBrokenFolderStopsNone)
{
    const std::vector<std::wstring> folders = MakeFolders(MANY_FOLDERS);
    testing::internal::CaptureStdout();
    const std::vector<std::string> single = SingleFiles(folders);
    testing::internal::GetCapturedStdout();
    std::ofstream(NativePath(folders[BROKEN_FOLDER]) / "settings.json") << R"({"projectPhase": "x"})";
    const Outcome outcome = Run(Arguments(folders, {L"--jobs", L"2", L"--json", L"-q"}));
    EXPECT_EQ(outcome.status, 2);
    const std::vector<std::string> json = LinesOf(outcome.out);
    ASSERT_EQ(json.size(), MANY_FOLDERS);
    for (std::uint32_t number = 0; number < MANY_FOLDERS; ++number)
    {
        SCOPED_TRACE(number);
        const ManyJson line = ManyJson::parse(json[number]);
        EXPECT_EQ(line["folder"], Utf8FromWide(folders[number]));
        EXPECT_EQ(line["status"], number == BROKEN_FOLDER ? 2 : 0);
        EXPECT_EQ(Finished(number), number == BROKEN_FOLDER ? "" : single[number]);
    }
    std::uint32_t written = 0;
    for (std::uint32_t number = 0; number < MANY_FOLDERS; ++number)
    {
        written += Finished(number).empty() ? 0 : 1;
    }
    EXPECT_EQ(written, MANY_FOLDERS - 1);
    const std::string broken = Utf8FromWide(folders[BROKEN_FOLDER]) + ": ";
    std::vector<std::string> told;
    std::copy_if(outcome.err.begin(), outcome.err.end(), std::back_inserter(told),
                 [&](const std::string& line) { return line.starts_with(broken); });
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0], broken + "projectPhase: 「x」は選択できません（選択肢: 概略、予備、詳細、施工）");
    EXPECT_EQ(told[1].substr(0, told[1].find('\t')), broken + "失敗しました（終了コード2）");
}

TEST_F(ManyFolders, EachIsToldInTheOrderOfTheCommandLine)
{
    const std::vector<std::wstring> folders = MakeFolders(4);
    const Outcome outcome = Run(Arguments(folders, {L"-q", L"-j", L"0"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    ASSERT_EQ(outcome.err.size(), folders.size());
    for (std::size_t number = 0; number < folders.size(); ++number)
    {
        EXPECT_EQ(outcome.err[number].substr(0, outcome.err[number].find('\t')),
                  Utf8FromWide(folders[number]) + ": 出力しました");
        EXPECT_NE(outcome.err[number].find("\t" + Utf8FromWide(OutputFolder()) + "/路線 " + std::to_string(number) +
                                           ".xml（"),
                  std::string::npos);
    }
}

TEST_F(ManyFolders, AFolderThatIsNotThereIsItsOwnFailure)
{
    std::vector<std::wstring> folders = MakeFolders(1);
    folders.insert(folders.begin(), L"無い");
    const Outcome outcome = Run(Arguments(folders, {L"-q"}));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err.front(), "無い: 作業フォルダーが見つかりません\t無い");
    EXPECT_FALSE(Finished(0).empty());
}

TEST_F(ManyFolders, WithoutAProgramToHandThemToAreAllFailures)
{
    const std::vector<std::wstring> folders = MakeFolders(2);
    const Outcome outcome = Run(Arguments(folders, {L"--json"}), L"");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err, (std::vector<std::string>{Utf8FromWide(folders[0]) + ": 処理を開始できませんでした",
                                                     Utf8FromWide(folders[1]) + ": 処理を開始できませんでした"}));
    EXPECT_EQ(ManyJson::parse(LinesOf(outcome.out).front())["findings"][0]["code"], "not-started");
}

TEST_F(ManyFolders, WrongSettingsOfAllAreToldOnceAndStandInTheJsonOfEach)
{
    const std::vector<std::wstring> folders = MakeFolders(2);
    const Outcome outcome = Run(Arguments(folders, {L"--json", L"-s", folder.Write(L"a.json", "{}"), L"-s",
                                                    folder.Write(L"b.json", R"({"x": 1, "y": 2})")}));
    EXPECT_EQ(outcome.status, 2);
    ASSERT_EQ(outcome.err.size(), 2U);
    EXPECT_TRUE(outcome.err[0].starts_with("x: 不明なキーです（"));
    EXPECT_TRUE(outcome.err[0].ends_with("\t" + Utf8FromWide(folder.Name(L"b.json"))));
    EXPECT_TRUE(outcome.err[1].starts_with("y: 不明なキーです（"));
    for (const std::string& line : LinesOf(outcome.out))
    {
        EXPECT_EQ(ManyJson::parse(line)["findings"].size(), 2U);
    }
}

TEST_F(ManyFolders, ADryRunWritesNothing)
{
    const std::vector<std::wstring> folders = MakeFolders(2);
    std::vector<std::wstring> arguments = folders;
    arguments.insert(arguments.end(), {L"--folder-settings", L"settings.json", L"--dry-run", L"-q"});
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err.front().substr(0, outcome.err.front().find('\t')),
              Utf8FromWide(folders[0]) + ": 出力できます");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "out"));
}

TEST_F(ManyFolders, NullInTheFoldersOwnSettingsMeansTheSameAsInARunOfItsOwn)
{
    folder.Write(L"settings.json", R"({"routes": {"国道": null, "*": {"trafficVolume": "x"}}})");
    folder.Write(L"empty.json", "{}");
    WorkFile("<LandXML><Alignments name='国道'><Alignment name='A'/></Alignments></LandXML>");
    const std::wstring other = folder.Name(L"other");
    std::filesystem::create_directory(NativePath(other));
    const std::wstring own = folder.Name(L"settings.json");
    const std::wstring empty = folder.Name(L"empty.json");
    const std::vector<std::wstring> ways[] = {{L"-s", own},
                                              {L"-s", own, L"-s", empty},
                                              {L"-s", empty, L"-s", own},
                                              {L"--folder-settings", L"settings.json"},
                                              {L"-s", empty, L"--folder-settings", L"settings.json"},
                                              {L"-s", own, L"--folder-settings", L"empty.json"},
                                              {other, L"-s", own},
                                              {other, L"--folder-settings", L"settings.json"}};
    for (const std::vector<std::wstring>& way : ways)
    {
        std::vector<std::wstring> arguments{folder.Name(), L"--dry-run", L"--json", L"-q"};
        arguments.insert(arguments.end(), way.begin(), way.end());
        // The one route is left alone: nobody types the traffic volume that would be refused.
        EXPECT_EQ(ManyJson::parse(LinesOf(Run(arguments).out).front())["status"], 1) << Utf8FromWide(way.back());
    }
}

#ifndef _WIN32

TEST_F(ManyFolders, MoreAtATimeThanTheSystemHasHandlesForWaitForOneAnother)
{
    constexpr std::uint32_t AT_A_TIME = 40;
    const std::vector<std::wstring> folders = MakeFolders(AT_A_TIME);
    const Outcome outcome = [&] {
        const ResourceLimit limit(RLIMIT_NOFILE, 32); // each process takes six, and keeps three
        return Run(Arguments(folders, {L"-q", L"--jobs", std::to_wstring(AT_A_TIME)}));
    }();
    EXPECT_EQ(outcome.status, 0);
    ASSERT_EQ(outcome.err.size(), AT_A_TIME);
    for (std::uint32_t number = 0; number < AT_A_TIME; ++number)
    {
        EXPECT_NE(outcome.err[number].find(": 出力しました\t"), std::string::npos) << outcome.err[number];
        EXPECT_FALSE(Finished(number).empty()) << number;
    }
}

#ifdef __GLIBC__

/// Lets no thread begin for as long as the object lives, as where the system has none left.
class NoMoreThreads
{
  public:
    NoMoreThreads()
    {
        ::pthread_getattr_default_np(&former_);
        pthread_attr_t vast = former_;
        ::pthread_attr_setstacksize(&vast, std::size_t{1} << 46);
        EXPECT_EQ(::pthread_setattr_default_np(&vast), 0);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;
    ~NoMoreThreads() { ::pthread_setattr_default_np(&former_); }

  private:
    pthread_attr_t former_{};
};

TEST_F(ManyFolders, WithoutAThreadEachFolderIsToldAndNoneIsHarmed)
{
    const std::vector<std::wstring> folders = MakeFolders(3);
    const Outcome outcome = [&] {
        const NoMoreThreads none;
        return Run(Arguments(folders, {}));
    }();
    EXPECT_EQ(outcome.status, 3);
    ASSERT_EQ(outcome.err.size(), 3U);
    for (std::uint32_t number = 0; number < 3; ++number)
    {
        EXPECT_EQ(outcome.err[number], Utf8FromWide(folders[number]) + ": 処理を開始できませんでした");
        EXPECT_TRUE(Finished(number).empty());
    }
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
}

#endif

TEST_F(ManyFolders, ALineFeedInTheNameOfAFolderBreaksNoLine)
{
    const Outcome outcome = Run(Arguments({L"無\nい", L"他"}, {}));
    EXPECT_EQ(outcome.status, 2);
    ASSERT_EQ(outcome.err.size(), 4U);
    EXPECT_EQ(outcome.err[0], "無 い: 作業フォルダーが見つかりません\t無 い");
    EXPECT_TRUE(outcome.err[1].starts_with("無 い: 失敗しました（終了コード2）\t")) << outcome.err[1];
}

/// A terminal in the place of standard error for as long as the object lives.
class TerminalScope
{
  public:
    TerminalScope() : terminal_(::posix_openpt(O_RDWR | O_NOCTTY)), former_(::dup(STDERR_FILENO))
    {
        ::grantpt(terminal_);
        ::unlockpt(terminal_);
        const int line = ::open(::ptsname(terminal_), O_RDWR | O_NOCTTY);
        ::dup2(line, STDERR_FILENO);
        ::close(line);
    }
    TerminalScope(const TerminalScope&) = delete;
    TerminalScope& operator=(const TerminalScope&) = delete;
    ~TerminalScope()
    {
        ::dup2(former_, STDERR_FILENO);
        ::close(former_);
        ::close(terminal_);
    }

    /// All that was written there. Nothing more can be: only then does the terminal come to an end.
    std::string Read() const
    {
        ::dup2(former_, STDERR_FILENO);
        std::string text;
        std::string block(4096, '\0');
        for (ssize_t length = 0; (length = ::read(terminal_, block.data(), block.size())) > 0;)
        {
            text.append(block, 0, static_cast<std::size_t>(length));
        }
        return text;
    }

  private:
    int terminal_;
    int former_;
};

TEST_F(ManyFolders, ATerminalShowsHowManyAreDoneAndTakesTheBarAwayBeforeEachLine)
{
    const std::vector<std::wstring> folders{L"無い", L"これも無い"};
    const std::string shown = [&] {
        const TerminalScope terminal;
        RunCommandLine(Arguments(folders, {}), PROGRAM);
        return terminal.Read();
    }();
    const std::string bar = "[------------------------------] 0/2";
    EXPECT_TRUE(shown.starts_with(bar + "\r" + std::string(bar.size() + 2, ' ') + "\r無い: ")) << shown;
    EXPECT_NE(shown.find("\n[###############---------------] 1/2 残り0:0"), std::string::npos) << shown;
    EXPECT_NE(shown.find("[##############################] 2/2 残り0:00\r"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with(" \r")) << shown;
}

TEST_F(ManyFolders, WithoutATerminalThereIsNoBar)
{
    for (const std::string& line : Run(Arguments({L"無い", L"これも無い"}, {})).err)
    {
        EXPECT_TRUE(line.starts_with("無い: ") || line.starts_with("これも無い: ")) << line;
    }
}

/// Runs with a script in the place of the program.
class ManyFoldersOfAScript : public ManyFolders
{
  protected:
    /// What is done for each folder, whose name is in the variable.
    std::wstring Script(const std::string& text) const
    {
        const std::wstring path =
            folder.Write(L"program", "#!/bin/sh\ncat >/dev/null\nfor folder; do :; done\n" + text + "\n");
        ::chmod(Utf8FromWide(path).c_str(), 0755);
        return path;
    }
};

TEST_F(ManyFoldersOfAScript, AProcessThatGivesNoStatusOfTheProgramsIsBrokenOff)
{
    const std::wstring program = Script("case $folder in\n一) kill -KILL $$ ;;\n二) exit 200 ;;\n*) exit 3 ;;\nesac");
    const Outcome outcome = Run(Arguments({L"一", L"二", L"三"}, {L"--json"}), program.c_str());
    EXPECT_EQ(outcome.status, 3);
    ASSERT_EQ(outcome.err.size(), 3U);
    EXPECT_EQ(outcome.err[0], "一: 処理が異常終了しました");
    EXPECT_EQ(outcome.err[1], "二: 処理が異常終了しました");
    EXPECT_TRUE(outcome.err[2].starts_with("三: 失敗しました（終了コード3）\t")) << outcome.err[2];
    EXPECT_EQ(ManyJson::parse(LinesOf(outcome.out)[1])["findings"][0]["code"], "broken-off");
}

TEST_F(ManyFoldersOfAScript, ALineOfJsonThatIsNotWholeIsReplaced)
{
    const std::wstring program =
        Script("case $folder in\n一) printf '{\"status\": ' ;;\n*) echo '{\"status\": 0}' ;;\nesac");
    const Outcome outcome = Run(Arguments({L"一", L"二"}, {L"--json"}), program.c_str());
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(ManyJson::parse(lines[0])["folder"], "一");
    EXPECT_EQ(ManyJson::parse(lines[0])["findings"][0]["code"], "no-answer");
    EXPECT_EQ(ManyJson::parse(lines[0])["findings"][0]["text"], "処理が異常終了しました");
    EXPECT_EQ(lines[1], "{\"status\": 0}");
}

TEST_F(ManyFoldersOfAScript, TheRouteCountOfAllIsHandedToEach)
{
    const std::wstring program = Script("for word; do case $word in --routes*) echo $word >&2 ;; esac; done");
    const Outcome outcome = Run(Arguments({L"一", L"二"}, {L"--routes", L"2"}), program.c_str());
    ASSERT_EQ(outcome.err.size(), 4U);
    EXPECT_EQ(outcome.err[0], "一: --routes=2");
    EXPECT_EQ(outcome.err[2], "二: --routes=2");
    EXPECT_EQ(Run(Arguments({L"一", L"二"}, {}), program.c_str()).err.size(), 2U);
}

TEST_F(ManyFoldersOfAScript, TheTimeThatIsLeftHasItsSecondsInTwoDigits)
{
    constexpr std::size_t FOLDERS_OF_A_MINUTE = 60;
    const std::wstring program = Script("case $folder in\n000) sleep 0.3 ;;\nesac");
    std::vector<std::wstring> folders{L"000"};
    while (folders.size() < FOLDERS_OF_A_MINUTE)
    {
        folders.push_back(std::to_wstring(folders.size()));
    }
    const std::string shown = [&] {
        const TerminalScope terminal;
        RunCommandLine(Arguments(folders, {L"--jobs", L"1"}), program);
        return terminal.Read();
    }();
    const std::size_t left = shown.find(" 1/60 残り");
    ASSERT_NE(left, std::string::npos) << shown;
    const std::string time = shown.substr(left + std::string(" 1/60 残り").size(), 4);
    EXPECT_EQ(time[1], ':') << time;
    EXPECT_GE(time.substr(2), "10") << time;
    EXPECT_NE(shown.find(" 60/60 残り0:00\r"), std::string::npos) << shown;
}

#ifdef __linux__
TEST_F(ManyFoldersOfAScript, AnAnswerThatCannotBeWrittenIsStatusThree)
{
    const std::wstring program = Script("echo '{\"status\": 0}'");
    testing::internal::CaptureStderr();
    const ExitStatus status = [&] {
        const FullStandardOutput full;
        return RunCommandLine(Arguments({L"一", L"二"}, {L"--json"}), program);
    }();
    EXPECT_EQ(status, ExitStatus::NoFile);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("標準出力に書き込めません\n"), std::string::npos) << err;
    EXPECT_NE(err.find("二: 出力しました\t"), std::string::npos) << err;
}
#endif

/// The program with its arguments, in a process of its own that can be interrupted.
class StartedProgram
{
  public:
    explicit StartedProgram(const std::vector<std::wstring>& arguments)
        : process_(ChildProcess::Start(L"/bin/sh", ShellArguments(arguments)))
    {
        std::string number;
        for (char digit = 0; process_->output.Read(&digit, 1).value_or(0) == 1 && digit != '\n';)
        {
            number += digit;
        }
        id_ = std::stoi(number);
    }

    void Signal(int signal) const { ::kill(id_, signal); }
    std::optional<int> Wait()
    {
        err_ = ReadToEnd(process_->error);
        return process_->Wait();
    }
    std::vector<std::string> Told() const { return LinesOf(err_); }

  private:
    /// A shell that tells its process's number and becomes the program.
    static std::vector<std::wstring> ShellArguments(const std::vector<std::wstring>& arguments)
    {
        std::vector<std::wstring> words{L"-c", L"echo $$; exec \"$@\"", L"sh", PROGRAM};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return words;
    }

    std::optional<ChildProcess> process_;
    pid_t id_ = 0;
    std::string err_;
};

class InterruptedFolders : public ManyFolders
{
  protected:
    static constexpr std::uint32_t INTERRUPTED_FOLDERS = 60;

    /// Waits until some files are finished.
    void WaitForFiles(std::size_t count) const
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
        while (CountFiles() < count && std::chrono::steady_clock::now() < deadline)
        {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    std::size_t CountFiles() const
    {
        std::size_t count = 0;
        std::error_code failure;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path() / "out", failure))
        {
            count += entry.path().extension() == ".xml" ? 1 : 0;
        }
        return count;
    }

    /// Every file that is there is that of a single run.
    std::size_t CountWhole(const std::vector<std::string>& single) const
    {
        std::size_t whole = 0;
        for (std::uint32_t number = 0; number < INTERRUPTED_FOLDERS; ++number)
        {
            const std::string file = Finished(number);
            EXPECT_TRUE(file.empty() || file == single[number]) << number;
            whole += file.empty() ? 0 : 1;
        }
        return whole;
    }
};

TEST_F(InterruptedFolders, AreFinishedIfTheyHaveBegunAndToldIfNot)
{
    const std::vector<std::wstring> folders = MakeFolders(INTERRUPTED_FOLDERS);
    testing::internal::CaptureStdout();
    const std::vector<std::string> single = SingleFiles(folders);
    testing::internal::GetCapturedStdout();
    StartedProgram program(Arguments(folders, {L"-q", L"-j", L"2"}));
    WaitForFiles(5);
    program.Signal(SIGINT);
    EXPECT_EQ(program.Wait(), 3);
    const std::size_t whole = CountWhole(single);
    EXPECT_GE(whole, 5U);
    EXPECT_LT(whole, INTERRUPTED_FOLDERS);
    const std::vector<std::string> told = program.Told();
    ASSERT_EQ(told.size(), INTERRUPTED_FOLDERS);
    for (std::uint32_t number = 0; number < INTERRUPTED_FOLDERS; ++number)
    {
        const std::string end = Finished(number).empty() ? "中断したため処理していません" : "出力しました";
        EXPECT_EQ(told[number].substr(0, told[number].find('\t')), Utf8FromWide(folders[number]) + ": " + end);
    }
}

#ifdef __linux__

/// Waits for the processes that a killed one had started; they come to this one.
void WaitForOrphans()
{
    while (::waitpid(-1, nullptr, 0) > 0)
    {}
}

TEST_F(InterruptedFolders, LeaveWholeFilesAloneWhenTheProgramIsKilled)
{
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    const std::vector<std::wstring> folders = MakeFolders(INTERRUPTED_FOLDERS);
    testing::internal::CaptureStdout();
    const std::vector<std::string> single = SingleFiles(folders);
    testing::internal::GetCapturedStdout();
    for (const std::size_t files : {std::size_t{1}, std::size_t{5}, std::size_t{20}})
    {
        std::filesystem::remove_all(folder.Path() / "out");
        StartedProgram program(Arguments(folders, {L"-q", L"-j", L"2"}));
        WaitForFiles(files);
        program.Signal(SIGKILL);
        program.Wait();
        WaitForOrphans();
        const std::size_t whole = CountWhole(single);
        EXPECT_GE(whole, files);
        EXPECT_LT(whole, INTERRUPTED_FOLDERS);
    }
}

#endif

#endif

} // namespace
} // namespace jlandxml
