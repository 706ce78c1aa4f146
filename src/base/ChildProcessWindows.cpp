#ifdef _WIN32

#include "base/ChildProcess.h"

#include <atomic>
#include <mutex>
#include <windows.h>

namespace jlandxml
{

namespace
{

/// The two ends of a pipe, of which the other program inherits one.
struct Pipe
{
    NativeFile ours;
    NativeFile theirs;
};

enum class Flow
{
    ToThem,
    ToUs
};

std::optional<Pipe> MakePipe(Flow flow)
{
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (CreatePipe(&reading, &writing, &inherited, 0) == 0)
    {
        return std::nullopt;
    }
    const bool isToThem = flow == Flow::ToThem;
    SetHandleInformation(isToThem ? writing : reading, HANDLE_FLAG_INHERIT, 0);
    return Pipe{NativeFile(isToThem ? writing : reading), NativeFile(isToThem ? reading : writing)};
}

/// An argument as CommandLineToArgvW reads it back: in quotes, with backslashes doubled in front of a quote.
std::wstring QuotedArgument(const std::wstring& argument)
{
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : argument)
    {
        if (character == L'"')
        {
            quoted.append(backslashes + 1, L'\\');
        }
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

std::atomic<int> interrupts = 0;

BOOL WINAPI NoteInterrupt(DWORD event)
{
    const bool isNoted = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
    return isNoted && interrupts.fetch_add(1) == 0 ? TRUE : FALSE;
}

} // namespace

std::optional<ChildProcess> ChildProcess::Start(const std::wstring& program, const std::vector<std::wstring>& arguments)
{
    // A program that is started meanwhile would inherit these pipes too, and keep them open.
    static std::mutex starting;
    const std::scoped_lock lock(starting);
    std::optional<Pipe> in = MakePipe(Flow::ToThem);
    std::optional<Pipe> out = MakePipe(Flow::ToUs);
    std::optional<Pipe> err = MakePipe(Flow::ToUs);
    if (!in || !out || !err)
    {
        return std::nullopt;
    }
    std::wstring line = QuotedArgument(program);
    for (const std::wstring& argument : arguments)
    {
        line += L" " + QuotedArgument(argument);
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in->theirs.Get();
    startup.hStdOutput = out->theirs.Get();
    startup.hStdError = err->theirs.Get();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NEW_PROCESS_GROUP, nullptr, nullptr,
                       &startup, &process) == 0)
    {
        return std::nullopt;
    }
    CloseHandle(process.hThread);
    ChildProcess child;
    child.input = std::move(in->ours);
    child.output = std::move(out->ours);
    child.error = std::move(err->ours);
    child.process_ = NativeFile(process.hProcess);
    return child;
}

std::optional<int> ChildProcess::Wait()
{
    DWORD status = 0;
    if (WaitForSingleObject(process_.Get(), INFINITE) != WAIT_OBJECT_0 ||
        GetExitCodeProcess(process_.Get(), &status) == 0)
    {
        return std::nullopt;
    }
    return static_cast<int>(status);
}

InterruptScope::InterruptScope()
{
    interrupts = 0;
    SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

InterruptScope::~InterruptScope()
{
    SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

bool InterruptScope::IsInterrupted()
{
    return interrupts != 0;
}

} // namespace jlandxml

#endif
