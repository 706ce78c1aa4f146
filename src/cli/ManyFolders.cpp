#include "cli/ManyFolders.h"

#include "base/ChildProcess.h"
#include "base/Streams.h"
#include "base/Text.h"
#include "cli/Telling.h"
#include "cli/Usage.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>
#include <thread>
#include <vector>

namespace jlandxml
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr auto HIGHEST_STATUS = static_cast<unsigned int>(ExitStatus::NoFile);
constexpr std::size_t BAR_CELLS = 30;
constexpr long long MINUTE = 60;

double SecondsSince(Clock::time_point begun)
{
    return std::chrono::duration<double>(Clock::now() - begun).count();
}

/// What a process has made of a work folder.
struct Outcome
{
    ExitStatus status = ExitStatus::NoFile;
    double seconds = 0.0;
    std::string json;             ///< the line about it; empty if there is none
    std::string lines;            ///< what it told on standard error
    const wchar_t* end = nullptr; ///< how it ended, if not by itself
    std::string_view endCode;
};

/// What is told of a folder whose process came to no end of its own.
constexpr const wchar_t* NOT_STARTED = L"処理を開始できませんでした";
constexpr const wchar_t* BROKEN_OFF = L"処理が異常終了しました";
constexpr const wchar_t* INTERRUPTED = L"中断したため処理していません";

Outcome EndedBy(const wchar_t* end, std::string_view code)
{
    Outcome outcome;
    outcome.end = end;
    outcome.endCode = code;
    return outcome;
}

/// A bar on the terminal with the folders that are done and the time that is left. It is taken away before anything
/// else is written there.
class ProgressBar
{
  public:
    explicit ProgressBar(std::size_t folders) : folders_(folders), isShown_(StandardErrorIsTerminal()) {}

    void Show(std::size_t done)
    {
        if (!isShown_)
        {
            return;
        }
        const std::size_t cells = done * BAR_CELLS / folders_;
        std::wstring text = L"[" + std::wstring(cells, L'#') + std::wstring(BAR_CELLS - cells, L'-') + L"] " +
                            std::to_wstring(done) + L"/" + std::to_wstring(folders_);
        if (done > 0)
        {
            text += L" 残り" + TimeLeft(done);
        }
        Clear();
        width_ = text.size() + 2; // the two kanji are two columns wide each
        WriteStandardError(text);
    }

    void Clear()
    {
        if (width_ > 0)
        {
            WriteStandardError(L"\r" + std::wstring(width_, L' ') + L"\r");
            width_ = 0;
        }
    }

  private:
    std::wstring TimeLeft(std::size_t done) const
    {
        const double each = SecondsSince(begun_) / static_cast<double>(done);
        const long long seconds = std::llround(each * static_cast<double>(folders_ - done));
        const std::wstring rest = std::to_wstring(seconds % MINUTE);
        return std::to_wstring(seconds / MINUTE) + (rest.size() < 2 ? L":0" : L":") + rest;
    }

    std::size_t folders_;
    bool isShown_;
    Clock::time_point begun_ = Clock::now();
    std::size_t width_ = 0; ///< of what stands on the terminal
};

std::wstring SecondsText(double seconds)
{
    std::wostringstream text;
    text.imbue(std::locale::classic());
    text.setf(std::ios::fixed);
    text.precision(2);
    text << seconds << L"秒";
    return text.str();
}

/// The work folders and what has become of them.
class FolderQueue
{
  public:
    FolderQueue(const ConvertOptions& options, const Json& settings, const std::wstring& program)
        : options_(options),
          settings_(SettingsText(settings)),
          program_(program),
          outcomes_(options.workFolders.size()),
          bar_(options.workFolders.size())
    {}

    ExitStatus Convert()
    {
        const InterruptScope interrupts;
        bar_.Show(0);
        std::vector<std::thread> workers = StartWorkers();
        for (std::thread& worker : workers)
        {
            worker.join();
        }
        for (; next_ < outcomes_.size(); ++next_)
        {
            outcomes_[next_] = EndedBy(INTERRUPTED, "interrupted");
        }
        TellReady();
        bar_.Clear();
        return isAnswerWhole_ ? highest_ : ExitStatus::NoFile;
    }

  private:
    std::size_t WorkerCount() const
    {
        const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
        const std::size_t wanted = options_.jobs > 0 ? options_.jobs : cores;
        return std::min(wanted, outcomes_.size());
    }

    /// Fewer than are wanted where the system has no more; one at least, which then is this thread.
    std::vector<std::thread> StartWorkers()
    {
        std::vector<std::thread> workers;
        try
        {
            for (std::size_t number = WorkerCount(); number > 0; --number)
            {
                workers.emplace_back([this] { Work(); });
            }
        }
        catch (const std::system_error&)
        {
            if (workers.empty())
            {
                Work();
            }
        }
        return workers;
    }

    void Work()
    {
        while (const std::optional<std::size_t> index = Next())
        {
            Outcome outcome = RunProcess(options_.workFolders[*index]);
            const std::scoped_lock lock(mutex_);
            outcomes_[*index] = std::move(outcome);
            ++done_;
            TellReady();
            bar_.Show(done_);
        }
    }

    std::optional<std::size_t> Next()
    {
        const std::scoped_lock lock(mutex_);
        return next_ < outcomes_.size() && !InterruptScope::IsInterrupted() ? std::optional(next_++) : std::nullopt;
    }

    /// The options of all for one folder; its settings come from standard input.
    std::vector<std::wstring> ArgumentsFor(const std::wstring& folder) const
    {
        std::vector<std::wstring> arguments{L"-s", std::wstring(STANDARD_INPUT)};
        const std::pair<bool, const wchar_t*> flags[] = {
            {options_.json, L"--json"},   {options_.strict, L"--strict"},  {options_.quiet, L"--quiet"},
            {options_.check, L"--check"}, {options_.dryRun, L"--dry-run"}, {options_.skipLocked, L"--skip-locked"}};
        for (const auto& [isGiven, flag] : flags)
        {
            if (isGiven)
            {
                arguments.emplace_back(flag);
            }
        }
        if (options_.routes)
        {
            arguments.push_back(L"--routes=" + std::to_wstring(*options_.routes));
        }
        if (!options_.folderSettings.empty())
        {
            arguments.push_back(L"--folder-settings=" + options_.folderSettings);
        }
        if (const std::wstring output = OutputOf(options_, folder); !output.empty())
        {
            arguments.push_back(L"--output=" + output);
        }
        arguments.insert(arguments.end(), {L"--", folder});
        return arguments;
    }

    /// Where the system has no handles or processes left for one more, it has when one of those that run has ended.
    std::optional<ChildProcess> StartProcess(const std::wstring& folder)
    {
        const std::vector<std::wstring> arguments = ArgumentsFor(folder);
        std::unique_lock lock(starting_);
        std::optional<ChildProcess> process = ChildProcess::Start(program_, arguments);
        while (!process && running_ > 0 && !InterruptScope::IsInterrupted())
        {
            const std::size_t running = running_;
            oneEnded_.wait(lock, [&] { return running_ < running; });
            process = ChildProcess::Start(program_, arguments);
        }
        running_ += process ? 1 : 0;
        return process;
    }

    void EndProcess(std::optional<ChildProcess>& process)
    {
        const std::scoped_lock lock(starting_);
        process.reset(); // and with it its handles
        --running_;
        oneEnded_.notify_all();
    }

    /// Without settings, which are never an empty text, it does nothing.
    void EndUnused(std::optional<ChildProcess>& process)
    {
        process->input.Close();
        process->Wait();
        EndProcess(process);
    }

    Outcome RunProcess(const std::wstring& folder)
    {
        std::optional<ChildProcess> process = StartProcess(folder);
        if (!process)
        {
            return InterruptScope::IsInterrupted() ? EndedBy(INTERRUPTED, "interrupted")
                                                   : EndedBy(NOT_STARTED, "not-started");
        }
        const Clock::time_point begun = Clock::now();
        Outcome outcome;
        std::thread listening;
        try
        {
            listening = std::thread([&] { outcome.lines = ReadToEnd(process->error); });
        }
        catch (const std::system_error&) // the system has no more threads
        {
            EndUnused(process);
            return EndedBy(NOT_STARTED, "not-started");
        }
        // The settings go in whole, since the process tells nothing before it has them; then both pipes are emptied at
        // a time: one that is full would stop it.
        process->input.Write(settings_);
        process->input.Close();
        outcome.json = ReadToEnd(process->output);
        listening.join();
        const std::optional<int> status = process->Wait();
        EndProcess(process);
        if (!status || static_cast<unsigned int>(*status) > HIGHEST_STATUS) // that of a crash may be negative
        {
            outcome = EndedBy(BROKEN_OFF, "broken-off");
        }
        else
        {
            outcome.status = static_cast<ExitStatus>(*status);
        }
        outcome.seconds = SecondsSince(begun);
        return outcome;
    }

    /// Tells what is known up to the first folder that isn't done, so that the order is that of the command line.
    void TellReady()
    {
        for (; told_ < outcomes_.size() && outcomes_[told_]; ++told_)
        {
            bar_.Clear();
            Tell(options_.workFolders[told_], *outcomes_[told_]);
            highest_ = std::max(highest_, outcomes_[told_]->status);
            *outcomes_[told_] = {};
        }
    }

    void Tell(const std::wstring& folder, const Outcome& outcome)
    {
        std::istringstream lines(outcome.lines);
        for (std::string line; std::getline(lines, line);)
        {
            TellLineOf(folder, WideFromUtf8(line));
        }
        const std::wstring output = OutputOf(options_, folder);
        TellLine(folder + L": ", ResultLine(outcome, output));
        if (!options_.json)
        {
            return;
        }
        // A process that came to no end of its own has told at most a part of its line.
        const bool isTold = outcome.end == nullptr && outcome.json.ends_with('\n');
        isAnswerWhole_ =
            WriteAnswer(isTold ? WideFromUtf8(outcome.json) : OwnJson(folder, output, outcome)) && isAnswerWhole_;
    }

    ToldLine ResultLine(const Outcome& outcome, const std::wstring& output) const
    {
        if (outcome.end != nullptr)
        {
            return PlainLine(outcome.endCode, outcome.end);
        }
        const std::wstring seconds = L"（" + SecondsText(outcome.seconds) + L"）";
        if (outcome.status == ExitStatus::FileWritten)
        {
            return PlainLine("written", options_.dryRun ? L"出力できます" : L"出力しました", output + seconds);
        }
        return PlainLine("failed",
                         L"失敗しました（終了コード" + std::to_wstring(static_cast<int>(outcome.status)) + L"）",
                         output + seconds);
    }

    static std::wstring OwnJson(const std::wstring& folder, const std::wstring& output, const Outcome& outcome)
    {
        RunResult result;
        result.folder = folder;
        result.output = output;
        result.status = outcome.status;
        result.seconds = outcome.seconds;
        result.findings.push_back(PlainLine(outcome.end != nullptr ? outcome.endCode : "no-answer",
                                            outcome.end != nullptr ? outcome.end : BROKEN_OFF));
        return JsonLine(result);
    }

    const ConvertOptions& options_;
    const std::string settings_;
    const std::wstring& program_;
    std::mutex starting_; ///< for the two below: one process is started at a time
    std::size_t running_ = 0;
    std::condition_variable oneEnded_;
    std::mutex mutex_; ///< for all below
    std::vector<std::optional<Outcome>> outcomes_;
    std::size_t next_ = 0;
    std::size_t done_ = 0;
    std::size_t told_ = 0;
    ExitStatus highest_ = ExitStatus::FileWritten;
    bool isAnswerWhole_ = true;
    ProgressBar bar_;
};

} // namespace

ExitStatus ConvertMany(const ConvertOptions& options, const Json& settings, const std::wstring& program)
{
    return FolderQueue(options, settings, program).Convert();
}

} // namespace jlandxml
