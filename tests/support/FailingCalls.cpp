// The test program's own versions of some of the system's functions, which the linker prefers to those of the C
// library.

#ifdef __linux__

#include "support/FailingCalls.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace
{

struct Failure
{
    int error = 0;
    int allowed = 0;
    int times = 0;
    bool happened = false;
};

std::array<Failure, static_cast<std::size_t>(jlandxml::SystemCall::Count)> failures;
int userMaskCalls = 0;
int repeatedRandom = 0;

bool Fails(jlandxml::SystemCall call)
{
    Failure& one = failures[static_cast<std::size_t>(call)];
    if (one.error == 0 || one.times == 0 || one.allowed-- > 0)
    {
        return false;
    }
    one.allowed = 0;
    --one.times;
    one.happened = true;
    errno = one.error;
    return true;
}

template <class Result = int, class... Arguments>
Result CallUnlessItFails(jlandxml::SystemCall call, long number, Arguments... arguments)
{
    return static_cast<Result>(Fails(call) ? -1 : ::syscall(number, arguments...));
}

} // namespace

namespace jlandxml
{

FailingCalls::FailingCalls(SystemCall call, int error, int allowed) : call_(call)
{
    failures[static_cast<std::size_t>(call)] = {error, allowed, INT_MAX, false};
}

FailingCalls::~FailingCalls()
{
    failures[static_cast<std::size_t>(call_)] = {};
}

FailingCalls& FailingCalls::Times(int times)
{
    failures[static_cast<std::size_t>(call_)].times = times;
    return *this;
}

bool FailingCalls::HasFailed() const
{
    return failures[static_cast<std::size_t>(call_)].happened;
}

RepeatedRandom::RepeatedRandom(int times)
{
    repeatedRandom = times;
}

RepeatedRandom::~RepeatedRandom()
{
    repeatedRandom = 0;
}

int UserMaskCalls()
{
    return userMaskCalls;
}

} // namespace jlandxml

using jlandxml::SystemCall;

extern "C" ssize_t write(int file, const void* bytes, size_t size)
{
    return CallUnlessItFails<ssize_t>(SystemCall::Write, SYS_write, file, bytes, size);
}

extern "C" ssize_t read(int file, void* bytes, size_t size)
{
    return CallUnlessItFails<ssize_t>(SystemCall::Read, SYS_read, file, bytes, size);
}

extern "C" off_t lseek(int file, off_t offset, int from) noexcept
{
    return CallUnlessItFails<off_t>(SystemCall::Seek, SYS_lseek, file, offset, from);
}

/// The system has one call for all three; an open file is one with no name behind it.
extern "C" int fstat(int file, struct stat* status) noexcept
{
    return CallUnlessItFails(SystemCall::Status, SYS_newfstatat, file, "", status, AT_EMPTY_PATH);
}

extern "C" int fstatat(int folder, const char* name, struct stat* status, int flags) noexcept
{
    return CallUnlessItFails(SystemCall::StatusOfName, SYS_newfstatat, folder, name, status, flags);
}

extern "C" int fstatfs(int file, struct statfs* volume) noexcept
{
    return CallUnlessItFails(SystemCall::Volume, SYS_fstatfs, file, volume);
}

extern "C" int fcntl(int file, int command, ...)
{
    std::va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    const bool setsMode = command == F_SETFL;
    return setsMode ? CallUnlessItFails(SystemCall::OpenMode, SYS_fcntl, file, command, argument)
                    : static_cast<int>(::syscall(SYS_fcntl, file, command, argument));
}

extern "C" ssize_t fgetxattr(int file, const char* name, void* value, size_t size) noexcept
{
    return CallUnlessItFails<ssize_t>(SystemCall::GetAttribute, SYS_fgetxattr, file, name, value, size);
}

extern "C" int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept
{
    return CallUnlessItFails(SystemCall::SetAttribute, SYS_fsetxattr, file, name, value, size, flags);
}

extern "C" int fremovexattr(int file, const char* name) noexcept
{
    return CallUnlessItFails(SystemCall::SetAttribute, SYS_fremovexattr, file, name);
}

extern "C" int faccessat(int folder, const char* name, int mode, int flags) noexcept
{
    return CallUnlessItFails(SystemCall::Access, SYS_faccessat2, folder, name, mode, flags);
}

extern "C" ssize_t getrandom(void* bytes, size_t size, unsigned flags)
{
    if (repeatedRandom > 0)
    {
        --repeatedRandom;
        std::memset(bytes, 0, size);
        return static_cast<ssize_t>(size);
    }
    return CallUnlessItFails<ssize_t>(SystemCall::Random, SYS_getrandom, bytes, size, flags);
}

extern "C" int dup(int file) noexcept
{
    return CallUnlessItFails(SystemCall::Duplicate, SYS_dup, file);
}

extern "C" int fsync(int file)
{
    return CallUnlessItFails(SystemCall::Sync, SYS_fsync, file);
}

extern "C" int ftruncate(int file, off_t length) noexcept
{
    return CallUnlessItFails(SystemCall::Shorten, SYS_ftruncate, file, length);
}

extern "C" int fallocate(int file, int mode, off_t offset, off_t length)
{
    return CallUnlessItFails(SystemCall::Reserve, SYS_fallocate, file, mode, offset, length);
}

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    return CallUnlessItFails(SystemCall::Rename, SYS_renameat2, fromFolder, from, toFolder, to, 0);
}

extern "C" int fchown(int file, uid_t owner, gid_t group) noexcept
{
    return CallUnlessItFails(SystemCall::ChangeOwner, SYS_fchown, file, owner, group);
}

extern "C" int fchmod(int file, mode_t mode) noexcept
{
    return CallUnlessItFails(SystemCall::ChangeMode, SYS_fchmod, file, mode);
}

/// The file is closed all the same, as the system does it.
extern "C" int close(int file)
{
    const long closed = ::syscall(SYS_close, file);
    return Fails(SystemCall::Close) ? -1 : static_cast<int>(closed);
}

/// The system's own call fills a block of entries; the C library makes them out. It is the C++ library that calls this
/// one, from outside the program.
extern "C" __attribute__((visibility("default"))) dirent* readdir(DIR* folder)
{
    static const auto next = reinterpret_cast<decltype(&readdir)>(::dlsym(RTLD_NEXT, "readdir"));
    return Fails(SystemCall::ReadFolder) ? nullptr : next(folder);
}

extern "C" mode_t umask(mode_t mask) noexcept
{
    ++userMaskCalls;
    return static_cast<mode_t>(::syscall(SYS_umask, mask));
}

#endif
