#include "base/Streams.h"

#include "base/Text.h"
#include "support/StreamOverride.h"

#include <array>
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <unistd.h>
#endif

namespace jlandxml
{
namespace
{

#ifndef _WIN32

/// Both ends of a pipe.
struct Pipe
{
    Pipe() { EXPECT_EQ(::pipe(ends.data()), 0); }

    std::array<int, 2> ends{};
};

/// What comes through a pipe of a host's own output and a trace line behind it.
std::string OutputOfHost(const Pipe& pipe)
{
    ::dup2(pipe.ends[1], STDOUT_FILENO);
    std::printf("host, ");
    WriteStandardOutput(L"線形1\n");
    std::string taken(64, '\0');
    taken.resize(static_cast<std::size_t>(::read(pipe.ends[0], taken.data(), taken.size())));
    return taken;
}

TEST(Streams, ATraceLineFollowsWhatTheHostHasWritten)
{
    const Pipe pipe;
    EXPECT_EXIT(std::_Exit(OutputOfHost(pipe) == "host, 線形1\n" ? 0 : 1), testing::ExitedWithCode(0), "");
}

/// What comes through a pipe of a text of a program's own.
std::string OutputOf(const Pipe& pipe, const std::wstring& text)
{
    std::fflush(stdout);
    {
        const StreamOverride output(STDOUT_FILENO, pipe.ends[1]);
        WriteStandardOutput(text);
    }
    std::string taken(8192, '\0');
    taken.resize(static_cast<std::size_t>(::read(pipe.ends[0], taken.data(), taken.size())));
    return taken;
}

TEST(Streams, ALongTextIsWrittenWholeAndASurrogateStaysBesideItsPartner)
{
    const std::wstring letters(1023, L'x');
    const std::wstring text = letters + static_cast<wchar_t>(0xD842) + L"线" + letters;
    const Pipe pipe;
    EXPECT_EQ(OutputOf(pipe, text), Utf8FromWide(text));
}

/// What is read of an input that holds ten bytes.
std::optional<std::string> InputOfTenBytes(std::size_t most)
{
    const Pipe pipe;
    EXPECT_EQ(::write(pipe.ends[1], "0123456789", 10), 10);
    ::close(pipe.ends[1]);
    const StreamOverride input(STDIN_FILENO, pipe.ends[0]);
    return ReadStandardInput(most);
}

TEST(Streams, AnInputIsReadToItsEndUnlessItIsLongerThanItMayBe)
{
    EXPECT_EQ(InputOfTenBytes(10), "0123456789");
    EXPECT_EQ(InputOfTenBytes(9), std::nullopt);
    const Pipe pipe;
    const StreamOverride input(STDIN_FILENO, pipe.ends[1]);
    EXPECT_EQ(ReadStandardInput(10), std::nullopt) << "the end that is written to can't be read";
}

TEST(Streams, AClosedStreamTakesNothing)
{
    EXPECT_EXIT(
        {
            ::close(STDOUT_FILENO);
            WriteStandardOutput(L"線形1\n");
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(Streams, ATraceLineThatNobodyReadsRaisesNoSignalNeitherNowNorAtTheHostsEnd)
{
    const Pipe pipe;
    EXPECT_EXIT(
        {
            std::signal(SIGPIPE, SIG_DFL);
            ::close(pipe.ends[0]);
            ::dup2(pipe.ends[1], STDOUT_FILENO);
            WriteStandardOutput(L"線形1\n");
            WriteStandardOutput(L"線形2\n");
            sigset_t blocked;
            ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
            std::exit(std::signal(SIGPIPE, SIG_DFL) == SIG_DFL && sigismember(&blocked, SIGPIPE) == 0 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(Streams, ASignalThatWaitedAlreadyStillWaits)
{
    const Pipe pipe;
    ::close(pipe.ends[0]);
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, SIGPIPE);
    sigset_t former;
    ::pthread_sigmask(SIG_BLOCK, &one, &former);
    std::raise(SIGPIPE);
    std::fflush(stdout);
    {
        const StreamOverride output(STDOUT_FILENO, pipe.ends[1]);
        EXPECT_FALSE(WriteStandardOutput(L"線形1\n"));
    }
    sigset_t waiting;
    ::sigpending(&waiting);
    EXPECT_EQ(sigismember(&waiting, SIGPIPE), 1);
    const timespec atOnce{};
    EXPECT_EQ(::sigtimedwait(&one, nullptr, &atOnce), SIGPIPE);
    ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

#ifdef __linux__
TEST(Streams, TellWhetherAllWasTaken)
{
    EXPECT_EXIT(
        {
            const bool isTaken = WriteStandardOutput(L"") && WriteStandardError(L"線形1\n");
            std::freopen("/dev/full", "w", stdout);
            std::_Exit(isTaken && !WriteStandardOutput(L"線形1\n") ? 0 : 1);
        },
        testing::ExitedWithCode(0), "線形1");
}
#endif

TEST(Streams, AHostWithoutAStandardOutputGoesOn)
{
    EXPECT_EXIT(
        {
            ::close(STDOUT_FILENO);
            WriteStandardOutput(L"線形1\n");
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

#else

TEST(Streams, ATraceLineIsUtf8WithItsLineFeed)
{
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    ASSERT_NE(CreatePipe(&reader, &writer, nullptr, 0), 0);
    const HANDLE former = GetStdHandle(STD_OUTPUT_HANDLE);
    SetStdHandle(STD_OUTPUT_HANDLE, writer);
    WriteStandardOutput(L"線形1\n");
    std::array<char, 64> taken{};
    DWORD size = 0;
    EXPECT_NE(ReadFile(reader, taken.data(), static_cast<DWORD>(taken.size()), &size, nullptr), 0);
    CloseHandle(reader);
    WriteStandardOutput(L"nobody reads it\n");
    SetStdHandle(STD_OUTPUT_HANDLE, nullptr);
    WriteStandardOutput(L"there is none\n");
    SetStdHandle(STD_OUTPUT_HANDLE, former);
    CloseHandle(writer);
    EXPECT_EQ(std::string_view(taken.data(), size), "線形1\n");
}

#endif

} // namespace
} // namespace jlandxml
