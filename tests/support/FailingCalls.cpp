// The test program's own versions of some of the system's functions, which the linker prefers to those of the C
// library.

#ifdef __linux__

#include "support/FailingCalls.h"

#include <array>
#include <cerrno>
#include <climits>
#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

struct Failure
{
    int error = 0;
    int allowed = 0;
    int times = 0;
};

std::array<Failure, static_cast<std::size_t>(jlandxml::SystemCall::Count)> failures;
int userMaskCalls = 0;

bool Fails(jlandxml::SystemCall call)
{
    Failure& failure = failures[static_cast<std::size_t>(call)];
    if (failure.error == 0 || failure.times == 0 || failure.allowed-- > 0)
    {
        return false;
    }
    failure.allowed = 0;
    --failure.times;
    errno = failure.error;
    return true;
}

template <class... Arguments>
int CallUnlessItFails(jlandxml::SystemCall call, long number, Arguments... arguments)
{
    return Fails(call) ? -1 : static_cast<int>(::syscall(number, arguments...));
}

} // namespace

namespace jlandxml
{

FailingCalls::FailingCalls(SystemCall call, int error, int allowed) : call_(call)
{
    failures[static_cast<std::size_t>(call)] = {error, allowed, INT_MAX};
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

int UserMaskCalls()
{
    return userMaskCalls;
}

} // namespace jlandxml

using jlandxml::SystemCall;

extern "C" ssize_t write(int file, const void* bytes, size_t size)
{
    return Fails(SystemCall::Write) ? -1 : ::syscall(SYS_write, file, bytes, size);
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
