#include "cli/Program.h"

#include "base/Streams.h"

#include <cstdlib>
#include <exception>
#include <new>

#ifdef _WIN32
#include <windows.h>
#endif

namespace jlandxml
{

namespace
{

// Both command lines use these numbers.
constexpr int WRONG_USAGE = 2;
constexpr int NO_MEMORY = 3;

[[noreturn]] void EndWithoutMemory()
{
    WriteStandardError(NO_MEMORY_LINE);
    std::_Exit(NO_MEMORY);
}

/// Where memory ends in what may not throw, such as the freeing of settings, the process ends, but not without a word.
/// Where there isn't even memory for an exception there is none.
[[noreturn]] void Terminate()
{
    try
    {
        if (const std::exception_ptr current = std::current_exception())
        {
            std::rethrow_exception(current);
        }
    }
    catch (const std::bad_alloc&)
    {}
    catch (...)
    {
        std::abort();
    }
    EndWithoutMemory();
}

#ifdef __MINGW32__
/// Where there is no memory for an exception either, its spare room lies behind a lock that is made first; without
/// memory for the lock the library raises an exception for that one, and so on until the stack ends.
void EndWhereNothingIsLeft()
{
    constexpr std::size_t ROOM_OF_AN_EXCEPTION = 1024;
    void* const room = std::malloc(ROOM_OF_AN_EXCEPTION);
    if (room == nullptr)
    {
        EndWithoutMemory();
    }
    std::free(room);
    throw std::bad_alloc();
}

/// What MinGW's library makes for a program's first exception and first static object of a function it makes when these
/// come, and doesn't look whether there is memory for it. So they come before any of the program's own.
void MakeRoomForFirstOnes()
{
    try
    {
        throw std::bad_alloc();
    }
    catch (const std::bad_alloc& exception)
    {
        static const std::string first(exception.what());
    }
}
#endif

#ifdef __GNUC__
/// Before the libraries' static objects are made, which ask for memory too.
__attribute__((constructor(101))) void TellWantOfMemory()
{
    std::set_terminate(Terminate);
#ifdef __MINGW32__
    std::set_new_handler(EndWhereNothingIsLeft);
    MakeRoomForFirstOnes();
#endif
}
#endif

/// What is loaded later without a path, by the system's own dialogs too, comes from the system's folder.
void SearchSystemFolderOnly()
{
#ifdef _WIN32
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
#endif
}

} // namespace

int RunProgram(int count, const ArgumentUnit* const* values, int (*run)(const std::vector<std::wstring>& arguments))
{
    std::set_terminate(Terminate);
    SearchSystemFolderOnly();
    try
    {
        const std::optional<std::vector<std::wstring>> arguments = Arguments(count, values);
        if (!arguments)
        {
            WriteStandardError(ILL_FORMED_ARGUMENT);
            return WRONG_USAGE;
        }
        return run(*arguments);
    }
    catch (const std::bad_alloc&)
    {
        EndWithoutMemory();
    }
}

} // namespace jlandxml
