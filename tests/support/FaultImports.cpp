// What FaultLibrary.cpp is on Linux, for a program built with MinGW: linked into it, it stands in front of the system's
// functions, and makes one of their calls fail. FaultPlan.h says how it is told which.

#include "support/FaultPlan.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace
{

enum Call : std::size_t
{
    ALLOCATE,
    FREAD,
    OPEN_STREAM,
    CREATE_FILE,
    READ_FILE,
    WRITE_FILE,
    CLOSE_HANDLE,
    GET_SIZE,
    GET_TYPE,
    GET_IDENTITY,
    GET_INFORMATION,
    SET_INFORMATION,
    GET_ATTRIBUTES,
    SET_ATTRIBUTES,
    SET_POINTER,
    SET_END,
    FLUSH_BUFFERS,
    MOVE_FILE,
    DELETE_FILE,
    FIND_FIRST,
    FIND_NEXT,
    TEMPORARY_NAME,
    TEMPORARY_PATH,
    GET_SECURITY,
    SET_SECURITY, // from GET_SECURITY on they are of another library
    CALL_COUNT
};

constexpr std::array<const char*, CALL_COUNT> NAMES = {"allocate",
                                                       "fread",
                                                       "_wfopen",
                                                       "CreateFileW",
                                                       "ReadFile",
                                                       "WriteFile",
                                                       "CloseHandle",
                                                       "GetFileSizeEx",
                                                       "GetFileType",
                                                       "GetFileInformationByHandle",
                                                       "GetFileInformationByHandleEx",
                                                       "SetFileInformationByHandle",
                                                       "GetFileAttributesW",
                                                       "SetFileAttributesW",
                                                       "SetFilePointerEx",
                                                       "SetEndOfFile",
                                                       "FlushFileBuffers",
                                                       "MoveFileExW",
                                                       "DeleteFileW",
                                                       "FindFirstFileW",
                                                       "FindNextFileW",
                                                       "GetTempFileNameW",
                                                       "GetTempPathW",
                                                       "GetFileSecurityW",
                                                       "SetFileSecurityW"};

constinit jlandxml::FaultPlan<CALL_COUNT> plan(NAMES);

/// Before the program's own static objects are made, and behind those of MinGW's library, which doesn't look whether it
/// gets its memory.
__attribute__((constructor)) void BeginPlan()
{
    plan.Begin();
}

bool Fails(Call call)
{
    const bool fails = plan.Fails(call);
    if (fails)
    {
        SetLastError(static_cast<DWORD>(plan.Error()));
    }
    return fails;
}

DWORD Shortened(Call call, DWORD size)
{
    return static_cast<DWORD>(plan.Shortened(call, size));
}

const wchar_t* LibraryOf(Call call)
{
    return call == OPEN_STREAM ? L"msvcrt.dll" : call >= GET_SECURITY ? L"advapi32.dll" : L"kernel32.dll";
}

/// The system's own function.
template <class Pointer>
Pointer System(Call call)
{
    return reinterpret_cast<Pointer>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(LibraryOf(call)), NAMES[call])));
}

/// A function of the system that fails with `FAILURE`.
template <Call CALL, auto FAILURE, class Pointer>
struct Import;

template <Call CALL, auto FAILURE, class Result, class... Arguments>
struct Import<CALL, FAILURE, Result (*)(Arguments...)>
{
    static Result Call(Arguments... arguments)
    {
        if (Fails(CALL))
        {
            return (Result)(FAILURE); // NOLINT: a number or a handle
        }
        return System<Result (*)(Arguments...)>(CALL)(arguments...);
    }
};

BOOL WINAPI ReadOrFail(HANDLE file, LPVOID bytes, DWORD size, LPDWORD taken, LPOVERLAPPED overlapped)
{
    return !Fails(READ_FILE) &&
           System<decltype(&ReadFile)>(READ_FILE)(file, bytes, Shortened(READ_FILE, size), taken, overlapped);
}

BOOL WINAPI WriteOrFail(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED overlapped)
{
    return !Fails(WRITE_FILE) &&
           System<decltype(&WriteFile)>(WRITE_FILE)(file, bytes, Shortened(WRITE_FILE, size), written, overlapped);
}

/// Writes the counts at the end.
__attribute__((destructor)) void TellCounts()
{
    const char* const path = std::getenv("FAULT_COUNTS");
    const HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    plan.End([file](const char* line, std::size_t size) {
        DWORD written = 0;
        System<decltype(&WriteFile)>(WRITE_FILE)(file, line, static_cast<DWORD>(size), &written, nullptr);
    });
    System<decltype(&CloseHandle)>(CLOSE_HANDLE)(file);
}

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C"
{
    // The functions of the C library, by the linker's --wrap.
    void* __real_malloc(std::size_t size);
    void* __real_calloc(std::size_t count, std::size_t size);
    void* __real_realloc(void* memory, std::size_t size);
    std::size_t __real_fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file);

    void* __wrap_malloc(std::size_t size)
    {
        return Fails(ALLOCATE) ? nullptr : __real_malloc(size);
    }

    void* __wrap_calloc(std::size_t count, std::size_t size)
    {
        return Fails(ALLOCATE) ? nullptr : __real_calloc(count, size);
    }

    void* __wrap_realloc(void* memory, std::size_t size)
    {
        return Fails(ALLOCATE) ? nullptr : __real_realloc(memory, size);
    }

    std::size_t __wrap_fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file)
    {
        if (Fails(FREAD))
        {
            file->_flag |= _IOERR;
            return 0;
        }
        return __real_fread(bytes, size, plan.Shortened(FREAD, count), file);
    }

    // The addresses through which the program calls the system: in place of the import library's.
    decltype(&_wfopen) __imp__wfopen = Import<OPEN_STREAM, 0, decltype(&_wfopen)>::Call;
    decltype(&CreateFileW) __imp_CreateFileW = Import<CREATE_FILE, -1LL, decltype(&CreateFileW)>::Call;
    decltype(&ReadFile) __imp_ReadFile = ReadOrFail;
    decltype(&WriteFile) __imp_WriteFile = WriteOrFail;
    decltype(&CloseHandle) __imp_CloseHandle = Import<CLOSE_HANDLE, FALSE, decltype(&CloseHandle)>::Call;
    decltype(&GetFileSizeEx) __imp_GetFileSizeEx = Import<GET_SIZE, FALSE, decltype(&GetFileSizeEx)>::Call;
    decltype(&GetFileType) __imp_GetFileType = Import<GET_TYPE, FILE_TYPE_UNKNOWN, decltype(&GetFileType)>::Call;
    decltype(&GetFileInformationByHandle) __imp_GetFileInformationByHandle =
        Import<GET_IDENTITY, FALSE, decltype(&GetFileInformationByHandle)>::Call;
    decltype(&GetFileInformationByHandleEx) __imp_GetFileInformationByHandleEx =
        Import<GET_INFORMATION, FALSE, decltype(&GetFileInformationByHandleEx)>::Call;
    decltype(&SetFileInformationByHandle) __imp_SetFileInformationByHandle =
        Import<SET_INFORMATION, FALSE, decltype(&SetFileInformationByHandle)>::Call;
    decltype(&GetFileAttributesW) __imp_GetFileAttributesW =
        Import<GET_ATTRIBUTES, INVALID_FILE_ATTRIBUTES, decltype(&GetFileAttributesW)>::Call;
    decltype(&SetFileAttributesW) __imp_SetFileAttributesW =
        Import<SET_ATTRIBUTES, FALSE, decltype(&SetFileAttributesW)>::Call;
    decltype(&SetFilePointerEx) __imp_SetFilePointerEx = Import<SET_POINTER, FALSE, decltype(&SetFilePointerEx)>::Call;
    decltype(&SetEndOfFile) __imp_SetEndOfFile = Import<SET_END, FALSE, decltype(&SetEndOfFile)>::Call;
    decltype(&FlushFileBuffers) __imp_FlushFileBuffers =
        Import<FLUSH_BUFFERS, FALSE, decltype(&FlushFileBuffers)>::Call;
    decltype(&MoveFileExW) __imp_MoveFileExW = Import<MOVE_FILE, FALSE, decltype(&MoveFileExW)>::Call;
    decltype(&DeleteFileW) __imp_DeleteFileW = Import<DELETE_FILE, FALSE, decltype(&DeleteFileW)>::Call;
    decltype(&FindFirstFileW) __imp_FindFirstFileW = Import<FIND_FIRST, -1LL, decltype(&FindFirstFileW)>::Call;
    decltype(&FindNextFileW) __imp_FindNextFileW = Import<FIND_NEXT, FALSE, decltype(&FindNextFileW)>::Call;
    decltype(&GetTempFileNameW) __imp_GetTempFileNameW = Import<TEMPORARY_NAME, 0U, decltype(&GetTempFileNameW)>::Call;
    decltype(&GetTempPathW) __imp_GetTempPathW = Import<TEMPORARY_PATH, 0U, decltype(&GetTempPathW)>::Call;
    decltype(&GetFileSecurityW) __imp_GetFileSecurityW = Import<GET_SECURITY, FALSE, decltype(&GetFileSecurityW)>::Call;
    decltype(&SetFileSecurityW) __imp_SetFileSecurityW = Import<SET_SECURITY, FALSE, decltype(&SetFileSecurityW)>::Call;
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
