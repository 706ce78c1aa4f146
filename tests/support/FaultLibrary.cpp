// A library that is loaded in front of the system's and makes one of a program's calls fail: the n-th allocation, or
// the n-th call of one function that works on files. It counts from the program's own start on, its static objects and
// all. FaultPlan.h says how it is told which.
//
// What was given back in one large piece is there for the library that it was tried out for: allocations of ICU's,
// which doesn't survive a failing one, succeed until they have used as much. Nothing in here allocates: what is counted
// is the program's own.

#include "support/FaultPlan.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <malloc.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace
{

enum Call : std::size_t
{
    ALLOCATE,
    OPEN,
    READ,
    FREAD,
    WRITE,
    CLOSE,
    FSTAT,
    STAT,
    LSTAT,
    FSTATAT,
    FDOPEN,
    OPENDIR,
    READDIR,
    LSEEK,
    FTRUNCATE,
    FALLOCATE,
    FSYNC,
    FCHMOD,
    FCHOWN,
    FGETXATTR,
    FSETXATTR,
    FREMOVEXATTR,
    FSTATFS,
    RENAMEAT,
    UNLINK,
    READLINK,
    REALPATH,
    FACCESSAT,
    GETRANDOM,
    DUP,
    FCNTL,
    FFLUSH,
    CALL_COUNT
};

constexpr std::array<const char*, CALL_COUNT> NAMES = {
    "allocate", "open",     "read",     "fread",     "write",     "close",        "fstat",     "stat",
    "lstat",    "fstatat",  "fdopen",   "opendir",   "readdir",   "lseek",        "ftruncate", "fallocate",
    "fsync",    "fchmod",   "fchown",   "fgetxattr", "fsetxattr", "fremovexattr", "fstatfs",   "renameat",
    "unlink",   "readlink", "realpath", "faccessat", "getrandom", "dup",          "fcntl",     "fflush"};

constinit jlandxml::FaultPlan<CALL_COUNT> plan(NAMES);

/// From this size on a piece of memory is one that was tried out.
constexpr std::size_t LARGE_PIECE = std::size_t{1} << 21;
std::atomic<std::size_t> triedOut = 0;

struct CodeRange
{
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
};
CodeRange icu;

int FindIcu(dl_phdr_info* library, std::size_t /*size*/, void* /*none*/)
{
    for (int part = 0; std::strstr(library->dlpi_name, "libicuuc") != nullptr && part < library->dlpi_phnum; ++part)
    {
        const ElfW(Phdr)& header = library->dlpi_phdr[part];
        if (header.p_type == PT_LOAD && (header.p_flags & PF_X) != 0)
        {
            icu = {library->dlpi_addr + header.p_vaddr, library->dlpi_addr + header.p_vaddr + header.p_memsz};
        }
    }
    return 0;
}

bool IsTriedOut(const void* caller, std::size_t size)
{
    const auto address = reinterpret_cast<std::uintptr_t>(caller);
    if (address < icu.begin || address >= icu.end || triedOut < size)
    {
        return false;
    }
    triedOut -= size;
    return true;
}

/// The system's own function behind the one of the same name in here.
template <class Function>
Function* System(Function* /*type*/, const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

void TellCounts()
{
    const char* const path = std::getenv("FAULT_COUNTS");
    const long file = path != nullptr ? ::syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, 0600) : -1;
    plan.End([file](const char* line, std::size_t size) { ::syscall(SYS_write, file, line, size); });
    ::syscall(SYS_close, file);
}

int (*programsMain)(int, char**, char**) = nullptr;

int CountedMain(int count, char** values, char** environment)
{
    const int status = programsMain(count, values, environment);
    TellCounts();
    return status;
}

// The C library's own functions for memory under the names by which it calls them itself.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);
extern "C" void* __libc_memalign(std::size_t alignment, std::size_t size);
extern "C" void __libc_free(void* memory);

} // namespace

extern "C"
{

    int __libc_start_main(int (*main)(int, char**, char**), int count, char** values, void (*init)(), void (*fini)(),
                          void (*loaderFini)(), void* stackEnd)
    {
        static const auto start = System(&__libc_start_main, "__libc_start_main");
        programsMain = main;
        ::dl_iterate_phdr(FindIcu, nullptr);
        plan.Begin();
        return start(CountedMain, count, values, init, fini, loaderFini, stackEnd);
    }

    void* malloc(std::size_t size)
    {
        return plan.Fails(ALLOCATE) && !IsTriedOut(__builtin_return_address(0), size) ? nullptr : __libc_malloc(size);
    }

    void free(void* memory)
    {
        const std::size_t size = memory != nullptr ? ::malloc_usable_size(memory) : 0;
        if (size >= LARGE_PIECE)
        {
            triedOut = size;
        }
        __libc_free(memory);
    }

    void* calloc(std::size_t count, std::size_t size)
    {
        return plan.Fails(ALLOCATE) ? nullptr : __libc_calloc(count, size);
    }

    void* realloc(void* memory, std::size_t size)
    {
        return plan.Fails(ALLOCATE) && !IsTriedOut(__builtin_return_address(0), size) ? nullptr
                                                                                      : __libc_realloc(memory, size);
    }

    void* aligned_alloc(std::size_t alignment, std::size_t size)
    {
        return plan.Fails(ALLOCATE) ? nullptr : __libc_memalign(alignment, size);
    }

    int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
    {
        void* const made = plan.Fails(ALLOCATE) ? nullptr : __libc_memalign(alignment, size);
        *memory = made != nullptr ? made : *memory;
        return made != nullptr ? 0 : ENOMEM;
    }

    int open(const char* path, int flags, ...)
    {
        va_list rest;
        va_start(rest, flags);
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
        va_end(rest);
        return plan.Fails(OPEN) ? -1 : static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    }

    int open64(const char* path, int flags, ...)
    {
        va_list rest;
        va_start(rest, flags);
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
        va_end(rest);
        return open(path, flags, mode);
    }

    ssize_t read(int file, void* bytes, std::size_t size)
    {
        return plan.Fails(READ) ? -1 : ::syscall(SYS_read, file, bytes, plan.Shortened(READ, size));
    }

    ssize_t write(int file, const void* bytes, std::size_t size)
    {
        return plan.Fails(WRITE) ? -1 : ::syscall(SYS_write, file, bytes, plan.Shortened(WRITE, size));
    }

    /// A short one hits the end of a file that has become shorter in between.
    std::size_t fread(void* bytes, std::size_t size, std::size_t count, FILE* file)
    {
        static const auto system = System(&fread, "fread");
        if (!plan.Fails(FREAD))
        {
            return system(bytes, size, plan.Shortened(FREAD, count), file);
        }
        file->_flags |= 0x20; // what ferror looks at
        return 0;
    }

    /// The file is closed all the same, as the system does it.
    int close(int file)
    {
        const long closed = ::syscall(SYS_close, file);
        return plan.Fails(CLOSE) ? -1 : static_cast<int>(closed);
    }

    int fstat(int file, struct stat* status)
    {
        return plan.Fails(FSTAT) ? -1 : static_cast<int>(::syscall(SYS_fstat, file, status));
    }

    int stat(const char* path, struct stat* status)
    {
        return plan.Fails(STAT) ? -1 : static_cast<int>(::syscall(SYS_newfstatat, AT_FDCWD, path, status, 0));
    }

    int lstat(const char* path, struct stat* status)
    {
        return plan.Fails(LSTAT)
                   ? -1
                   : static_cast<int>(::syscall(SYS_newfstatat, AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW));
    }

    int fstatat(int folder, const char* path, struct stat* status, int flags)
    {
        return plan.Fails(FSTATAT) ? -1 : static_cast<int>(::syscall(SYS_newfstatat, folder, path, status, flags));
    }

    FILE* fdopen(int file, const char* mode)
    {
        static const auto system = System(&fdopen, "fdopen");
        return plan.Fails(FDOPEN) ? nullptr : system(file, mode);
    }

    DIR* opendir(const char* path)
    {
        static const auto system = System(&opendir, "opendir");
        return plan.Fails(OPENDIR) ? nullptr : system(path);
    }

    DIR* fdopendir(int file)
    {
        static const auto system = System(&fdopendir, "fdopendir");
        return plan.Fails(OPENDIR) ? nullptr : system(file);
    }

    dirent* readdir(DIR* folder)
    {
        static const auto system = System(&readdir, "readdir");
        return plan.Fails(READDIR) ? nullptr : system(folder);
    }

    off_t lseek(int file, off_t offset, int from)
    {
        return plan.Fails(LSEEK) ? -1 : ::syscall(SYS_lseek, file, offset, from);
    }

    int ftruncate(int file, off_t length)
    {
        return plan.Fails(FTRUNCATE) ? -1 : static_cast<int>(::syscall(SYS_ftruncate, file, length));
    }

    int fallocate(int file, int mode, off_t offset, off_t length)
    {
        return plan.Fails(FALLOCATE) ? -1 : static_cast<int>(::syscall(SYS_fallocate, file, mode, offset, length));
    }

    int fsync(int file)
    {
        return plan.Fails(FSYNC) ? -1 : static_cast<int>(::syscall(SYS_fsync, file));
    }

    int fchmod(int file, mode_t mode)
    {
        return plan.Fails(FCHMOD) ? -1 : static_cast<int>(::syscall(SYS_fchmod, file, mode));
    }

    int fchown(int file, uid_t owner, gid_t group)
    {
        return plan.Fails(FCHOWN) ? -1 : static_cast<int>(::syscall(SYS_fchown, file, owner, group));
    }

    ssize_t fgetxattr(int file, const char* name, void* value, std::size_t size)
    {
        return plan.Fails(FGETXATTR) ? -1 : ::syscall(SYS_fgetxattr, file, name, value, size);
    }

    int fsetxattr(int file, const char* name, const void* value, std::size_t size, int flags)
    {
        return plan.Fails(FSETXATTR) ? -1 : static_cast<int>(::syscall(SYS_fsetxattr, file, name, value, size, flags));
    }

    int fremovexattr(int file, const char* name)
    {
        return plan.Fails(FREMOVEXATTR) ? -1 : static_cast<int>(::syscall(SYS_fremovexattr, file, name));
    }

    int fstatfs(int file, struct statfs* volume)
    {
        return plan.Fails(FSTATFS) ? -1 : static_cast<int>(::syscall(SYS_fstatfs, file, volume));
    }

    int renameat(int fromFolder, const char* from, int toFolder, const char* to)
    {
        return plan.Fails(RENAMEAT) ? -1
                                    : static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, 0));
    }

    int unlink(const char* path)
    {
        return plan.Fails(UNLINK) ? -1 : static_cast<int>(::syscall(SYS_unlink, path));
    }

    int unlinkat(int folder, const char* path, int flags)
    {
        return plan.Fails(UNLINK) ? -1 : static_cast<int>(::syscall(SYS_unlinkat, folder, path, flags));
    }

    ssize_t readlink(const char* path, char* to, std::size_t size)
    {
        return plan.Fails(READLINK) ? -1 : ::syscall(SYS_readlink, path, to, size);
    }

    char* realpath(const char* path, char* resolved)
    {
        static const auto system = System(static_cast<char* (*)(const char*, char*)>(&realpath), "realpath");
        return plan.Fails(REALPATH) ? nullptr : system(path, resolved);
    }

    int faccessat(int folder, const char* path, int mode, int flags)
    {
        static const auto system = System(&faccessat, "faccessat");
        return plan.Fails(FACCESSAT) ? -1 : system(folder, path, mode, flags);
    }

    ssize_t getrandom(void* bytes, std::size_t size, unsigned flags)
    {
        return plan.Fails(GETRANDOM) ? -1 : ::syscall(SYS_getrandom, bytes, plan.Shortened(GETRANDOM, size), flags);
    }

    int dup(int file)
    {
        return plan.Fails(DUP) ? -1 : static_cast<int>(::syscall(SYS_dup, file));
    }

    int fcntl(int file, int command, ...)
    {
        va_list rest;
        va_start(rest, command);
        void* const argument = va_arg(rest, void*);
        va_end(rest);
        return plan.Fails(FCNTL) ? -1 : static_cast<int>(::syscall(SYS_fcntl, file, command, argument));
    }

    int fcntl64(int file, int command, ...)
    {
        va_list rest;
        va_start(rest, command);
        void* const argument = va_arg(rest, void*);
        va_end(rest);
        return fcntl(file, command, argument);
    }

    int fflush(FILE* file)
    {
        static const auto system = System(&fflush, "fflush");
        return plan.Fails(FFLUSH) ? -1 : system(file);
    }

} // extern "C"
