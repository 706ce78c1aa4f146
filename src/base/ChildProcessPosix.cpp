#ifndef _WIN32

#include "base/ChildProcess.h"
#include "base/Text.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace jlandxml
{

namespace
{

/// The two ends of a pipe; neither goes to another program by itself.
struct Pipe
{
    NativeFile reading;
    NativeFile writing;
};

/// A pipe's end that takes the number of no standard stream, one of which this program may have been started without.
NativeFile AboveStreams(NativeFile end)
{
    return end.Get() > STDERR_FILENO ? std::move(end)
                                     : NativeFile(::fcntl(end.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

std::optional<Pipe> MakePipe()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    {
        return std::nullopt;
    }
    NativeFile reading(ends[0]);
    NativeFile writing(ends[1]);
    Pipe pipe{AboveStreams(std::move(reading)), AboveStreams(std::move(writing))};
    return pipe.reading && pipe.writing ? std::optional(std::move(pipe)) : std::nullopt;
}

/// What a started program begins with: its streams, and a process group of its own, which the terminal's interrupt
/// doesn't reach.
class SpawnPlan
{
  public:
    SpawnPlan()
    {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setpgroup(&attributes_, 0);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;
    ~SpawnPlan()
    {
        ::posix_spawnattr_destroy(&attributes_);
        ::posix_spawn_file_actions_destroy(&actions_);
    }

    void GiveStream(const NativeFile& file, int stream)
    {
        ::posix_spawn_file_actions_adddup2(&actions_, file.Get(), stream);
    }

    std::optional<pid_t> Spawn(const std::string& program, std::vector<std::string> words) const
    {
        std::vector<char*> values;
        values.reserve(words.size() + 1);
        for (std::string& word : words)
        {
            values.push_back(word.data());
        }
        values.push_back(nullptr);
        pid_t process = 0;
        const int failure = ::posix_spawn(&process, program.c_str(), &actions_, &attributes_, values.data(), environ);
        return failure == 0 ? std::optional(process) : std::nullopt;
    }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

volatile std::sig_atomic_t interrupted = 0;

void NoteInterrupt(int)
{
    interrupted = 1;
}

constexpr std::array<int, 2> INTERRUPTS = {SIGINT, SIGTERM};
std::array<struct sigaction, INTERRUPTS.size()> formerActions;

} // namespace

std::optional<ChildProcess> ChildProcess::Start(const std::wstring& program, const std::vector<std::wstring>& arguments)
{
    std::optional<Pipe> in = MakePipe();
    std::optional<Pipe> out = MakePipe();
    std::optional<Pipe> err = MakePipe();
    if (!in || !out || !err)
    {
        return std::nullopt;
    }
    SpawnPlan plan;
    plan.GiveStream(in->reading, STDIN_FILENO);
    plan.GiveStream(out->writing, STDOUT_FILENO);
    plan.GiveStream(err->writing, STDERR_FILENO);
    std::vector<std::string> words{Utf8FromWide(program)};
    for (const std::wstring& argument : arguments)
    {
        words.push_back(Utf8FromWide(argument));
    }
    const std::optional<pid_t> process = plan.Spawn(words.front(), words);
    if (!process)
    {
        return std::nullopt;
    }
    ChildProcess child;
    child.input = std::move(in->writing);
    child.output = std::move(out->reading);
    child.error = std::move(err->reading);
    child.process_ = *process;
    return child;
}

std::optional<int> ChildProcess::Wait()
{
    int status = 0;
    pid_t ended = 0;
    do
    {
        ended = ::waitpid(static_cast<pid_t>(process_), &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended > 0 && WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

/// What is ignored, as in the background of a shell, stays ignored.
InterruptScope::InterruptScope()
{
    interrupted = 0;
    struct sigaction action = {};
    action.sa_handler = NoteInterrupt;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (std::size_t index = 0; index < INTERRUPTS.size(); ++index)
    {
        ::sigaction(INTERRUPTS[index], nullptr, &formerActions[index]);
        if (formerActions[index].sa_handler != SIG_IGN)
        {
            ::sigaction(INTERRUPTS[index], &action, nullptr);
        }
    }
}

InterruptScope::~InterruptScope()
{
    for (std::size_t index = 0; index < INTERRUPTS.size(); ++index)
    {
        ::sigaction(INTERRUPTS[index], &formerActions[index], nullptr);
    }
}

bool InterruptScope::IsInterrupted()
{
    return interrupted != 0;
}

} // namespace jlandxml

#endif
