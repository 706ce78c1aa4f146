#include "base/ChildProcess.h"

#include "support/ResourceLimit.h"

#include <gtest/gtest.h>
#include <thread>

#ifdef _WIN32
#include <cstdlib>
#include <windows.h>
#else
#include <algorithm>
#include <csignal>
#include <unistd.h>
#endif

namespace jlandxml
{
namespace
{

TEST(ChildProcess, AProgramThatIsNotThereIsNotStarted)
{
    EXPECT_FALSE(ChildProcess::Start(L"/no such folder/program", {}));
}

#ifdef _WIN32

// The other program is this one, which knows by the environment that it is.
TEST(ChildProcess, TheStatusIsHandedBack)
{
    constexpr const wchar_t* IS_CHILD = L"JLANDXML_IS_CHILD";
    if (GetEnvironmentVariableW(IS_CHILD, nullptr, 0) != 0)
    {
        std::_Exit(7);
    }
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    SetEnvironmentVariableW(IS_CHILD, L"1");
    std::optional<ChildProcess> process =
        ChildProcess::Start(program, {L"--gtest_filter=ChildProcess.TheStatusIsHandedBack"});
    SetEnvironmentVariableW(IS_CHILD, nullptr);
    ASSERT_TRUE(process);
    process->input.Close();
    EXPECT_NE(ReadToEnd(process->output), "");
    EXPECT_EQ(process->Wait(), 7);
}

#else

std::optional<ChildProcess> StartShell(const wchar_t* script, std::vector<std::wstring> arguments = {})
{
    arguments.insert(arguments.begin(), {L"-c", script, L"sh"});
    return ChildProcess::Start(L"/bin/sh", arguments);
}

TEST(ChildProcess, StreamsAndStatusAreHandedOver)
{
    std::optional<ChildProcess> process = StartShell(L"cat; printf 'to error' >&2; exit 7");
    ASSERT_TRUE(process);
    EXPECT_TRUE(process->input.Write("to output"));
    process->input.Close();
    EXPECT_EQ(ReadToEnd(process->output), "to output");
    EXPECT_EQ(ReadToEnd(process->error), "to error");
    EXPECT_EQ(process->Wait(), 7);
}

TEST(ChildProcess, ArgumentsComeAsTheyAre)
{
    std::optional<ChildProcess> process =
        StartShell(L"for one; do printf '<%s>' \"$one\"; done", {L"", L"a b", L"\"'\\", L"路線", L"*"});
    ASSERT_TRUE(process);
    EXPECT_EQ(ReadToEnd(process->output), "<><a b><\"'\\><路線><*>");
    EXPECT_EQ(process->Wait(), 0);
}

TEST(ChildProcess, ThePipesOfOneDoNotStayOpenInAnother)
{
    std::optional<ChildProcess> first = StartShell(L"cat");
    std::optional<ChildProcess> second = StartShell(L"cat");
    ASSERT_TRUE(first && second);
    first->input.Close();
    EXPECT_EQ(ReadToEnd(first->output), "") << "the second one holds the first one's input";
    second->input.Close();
    EXPECT_EQ(first->Wait(), 0);
    EXPECT_EQ(second->Wait(), 0);
}

TEST(ChildProcess, StreamsAreHandedOverWhereThisProgramHasNone)
{
    const int former = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    std::optional<ChildProcess> process = StartShell(L"cat; printf 'to error' >&2");
    ::dup2(former, STDIN_FILENO);
    ::close(former);
    ASSERT_TRUE(process);
    process->input.Write("to output");
    process->input.Close();
    EXPECT_EQ(ReadToEnd(process->output), "to output");
    EXPECT_EQ(ReadToEnd(process->error), "to error");
    EXPECT_EQ(process->Wait(), 0);
}

TEST(ChildProcess, OneThatIsKilledHasNoStatus)
{
    std::optional<ChildProcess> process = StartShell(L"kill -KILL $$");
    ASSERT_TRUE(process);
    EXPECT_EQ(process->Wait(), std::nullopt);
}

TEST(ChildProcess, TheStatusIsHandedBackOnce)
{
    std::optional<ChildProcess> process = StartShell(L"exit 7");
    ASSERT_TRUE(process);
    EXPECT_EQ(process->Wait(), 7);
    EXPECT_EQ(process->Wait(), std::nullopt);
}

volatile std::sig_atomic_t alarms = 0;

TEST(ChildProcess, ASignalThatComesMeanwhileDoesNotEndTheWaiting)
{
    alarms = 0;
    struct sigaction action = {};
    action.sa_handler = [](int) { alarms = alarms + 1; }; // without SA_RESTART: calls that wait are broken off
    struct sigaction former = {};
    ::sigaction(SIGALRM, &action, &former);
    std::optional<ChildProcess> process = StartShell(L"sleep 0.2; kill -ALRM $PPID; sleep 0.2; exit 7");
    ASSERT_TRUE(process);
    EXPECT_EQ(process->Wait(), 7);
    EXPECT_EQ(alarms, 1);
    ::sigaction(SIGALRM, &former, nullptr);
}

/// How many limits to the open files keep a program from being started, from the lowest one that nothing fits in.
int LimitsThatKeepFromStarting()
{
    const int lowest = ::dup(STDERR_FILENO);
    ::close(lowest);
    for (int count = 0; count < 64; ++count)
    {
        std::optional<ChildProcess> process;
        {
            const ResourceLimit limit(RLIMIT_NOFILE, static_cast<rlim_t>(std::max(lowest, STDERR_FILENO + 1) + count));
            process = StartShell(L"exit 0");
        }
        if (process)
        {
            process->Wait();
            return count;
        }
    }
    return -1;
}

TEST(ChildProcess, WithoutRoomForAllOfItsPipesNoneIsStarted)
{
    EXPECT_GE(LimitsThatKeepFromStarting(), 6);
}

TEST(ChildProcess, WithoutRoomForPipesAboveTheStreamsNoneIsStarted)
{
    const int formerInput = ::dup(STDIN_FILENO);
    const int formerOutput = ::dup(STDOUT_FILENO);
    ::close(STDIN_FILENO);
    ::close(STDOUT_FILENO);
    const int limits = LimitsThatKeepFromStarting();
    ::dup2(formerInput, STDIN_FILENO);
    ::dup2(formerOutput, STDOUT_FILENO);
    ::close(formerInput);
    ::close(formerOutput);
    EXPECT_GE(limits, 6);
}

TEST(ChildProcess, WritingToOneThatHasEndedRaisesNoSignal)
{
    std::optional<ChildProcess> process = StartShell(L"exit 0");
    ASSERT_TRUE(process);
    EXPECT_EQ(process->Wait(), 0);
    EXPECT_FALSE(process->input.Write("text"));
}

TEST(InterruptScope, TheFirstInterruptIsOnlyNoted)
{
    for (const int signal : {SIGINT, SIGTERM})
    {
        const InterruptScope scope;
        EXPECT_FALSE(InterruptScope::IsInterrupted());
        std::raise(signal);
        EXPECT_TRUE(InterruptScope::IsInterrupted());
    }
}

TEST(InterruptScope, TheSecondInterruptEndsTheProcess)
{
    const auto interruptTwice = [] {
        const InterruptScope scope;
        std::raise(SIGINT);
        std::raise(SIGINT);
    };
    EXPECT_EXIT(interruptTwice(), testing::KilledBySignal(SIGINT), "");
}

TEST(InterruptScope, WhatIsIgnoredStaysIgnored)
{
    auto* const former = std::signal(SIGINT, SIG_IGN);
    {
        const InterruptScope scope;
        std::raise(SIGINT);
        EXPECT_FALSE(InterruptScope::IsInterrupted());
    }
    EXPECT_EQ(std::signal(SIGINT, former), SIG_IGN);
}

#endif

} // namespace
} // namespace jlandxml
