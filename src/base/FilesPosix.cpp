#ifndef _WIN32

#include "base/FilesSystem.h"
#include "base/Text.h"

#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace jlandxml
{

namespace
{

/// With the terminator.
constexpr std::size_t TEMPORARY_FOLDER_LIMIT = 260;
constexpr mode_t PERMISSION_BITS = 07777;
constexpr mode_t NEW_FILE_MODE = 0666;
constexpr mode_t PRIVATE_FILE_MODE = 0600;
constexpr std::size_t COPY_BLOCK_SIZE = std::size_t{1} << 20;

/// An open descriptor that is closed with its scope.
class Descriptor
{
  public:
    explicit Descriptor(int value) : value_(value) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    explicit operator bool() const { return value_ >= 0; }
    int Get() const { return value_; }

    bool Close()
    {
        const int closing = value_;
        value_ = -1;
        return closing < 0 || ::close(closing) == 0;
    }

  private:
    int value_;
};

bool WriteAll(int target, const char* bytes, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t written = ::write(target, bytes, size);
        if (written < 0 && errno == EINTR)
        {
            continue;
        }
        if (written <= 0)
        {
            return false;
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool CopyContent(int source, int target)
{
    std::string block(COPY_BLOCK_SIZE, '\0');
    for (;;)
    {
        const ssize_t taken = ::read(source, block.data(), block.size());
        if (taken < 0 && errno == EINTR)
        {
            continue;
        }
        if (taken <= 0)
        {
            return taken == 0;
        }
        if (!WriteAll(target, block.data(), static_cast<std::size_t>(taken)))
        {
            return false;
        }
    }
}

/// Sets room aside for a whole file where the file system can, so that a full disk is found before anything is lost.
bool ReserveRoom(int target, const struct stat& standing, off_t size)
{
    if (size == 0 || ::fallocate(target, FALLOC_FL_KEEP_SIZE, 0, size) == 0 ||
        (errno != ENOSPC && errno != EDQUOT && errno != EFBIG))
    {
        return true;
    }
    // Gives back what was found before the room ran out.
    (void)!::ftruncate(target, standing.st_size);
    return false;
}

/// Writes one open file over another.
bool CopyOver(int source, int target)
{
    struct stat from
    {};
    struct stat to
    {};
    if (::fstat(source, &from) != 0 || ::fstat(target, &to) != 0)
    {
        return false;
    }
    if (!S_ISREG(to.st_mode))
    {
        return CopyContent(source, target);
    }
    return ReserveRoom(target, to, from.st_size) && CopyContent(source, target) &&
           ::ftruncate(target, from.st_size) == 0;
}

mode_t ModeOfNewFile()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return NEW_FILE_MODE & ~mask;
}

} // namespace

bool PathExists(const std::wstring& path)
{
    struct stat status
    {};
    return ::stat(Utf8FromWide(path).c_str(), &status) == 0;
}

std::vector<std::wstring> FileNames(const std::wstring& folder)
{
    std::vector<std::wstring> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(Utf8FromWide(folder).c_str()), ::closedir);
    while (const dirent* const entry = stream ? ::readdir(stream.get()) : nullptr)
    {
        names.push_back(WideFromUtf8(entry->d_name));
    }
    return names;
}

FileHandle OpenForReading(const std::wstring& path)
{
    return FileHandle(std::fopen(Utf8FromWide(path).c_str(), "rbe"));
}

std::optional<std::size_t> FileLength(std::FILE* file)
{
    struct stat status
    {};
    if (::fstat(::fileno(file), &status) != 0 || !S_ISREG(status.st_mode))
    {
        return std::nullopt;
    }
    return static_cast<std::size_t>(status.st_size);
}

std::optional<std::wstring> TemporaryFolder()
{
    const char* const variable = std::getenv("TMPDIR");
    std::wstring folder = WideFromUtf8(variable != nullptr && *variable != '\0' ? variable : "/tmp");
    if (folder.back() != L'/')
    {
        folder += L'/';
    }
    if (folder.size() >= TEMPORARY_FOLDER_LIMIT)
    {
        return std::nullopt;
    }
    return folder;
}

std::optional<std::wstring> CreateUniqueFile(const std::wstring& folder, const std::wstring& prefix)
{
    std::string path = Utf8FromWide(folder + prefix + L"XXXXXX.tmp");
    Descriptor file(::mkostemps(path.data(), 4, O_CLOEXEC));
    if (!file)
    {
        return std::nullopt;
    }
    return WideFromUtf8(path);
}

bool IsSameFile(const std::wstring& first, const std::wstring& second)
{
    struct stat one
    {};
    struct stat other
    {};
    return ::stat(Utf8FromWide(first).c_str(), &one) == 0 && ::stat(Utf8FromWide(second).c_str(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool RemoveFile(const std::wstring& path) noexcept
{
    try
    {
        return ::unlink(Utf8FromWide(path).c_str()) == 0;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

FileHandle OpenForWriting(const std::wstring& path)
{
    const int file =
        ::open(Utf8FromWide(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, PRIVATE_FILE_MODE);
    return FileHandle(file >= 0 ? ::fdopen(file, "wb") : nullptr);
}

std::wstring FollowLinks(const std::wstring& path)
{
    struct Free
    {
        void operator()(char* memory) const { std::free(memory); }
    };
    const std::unique_ptr<char, Free> resolved(::realpath(Utf8FromWide(path).c_str(), nullptr));
    return resolved != nullptr ? WideFromUtf8(resolved.get()) : path;
}

bool CanBeRenamedOver(const std::wstring& target)
{
    const std::string path = Utf8FromWide(target);
    struct stat status
    {};
    return ::stat(path.c_str(), &status) != 0 || (S_ISREG(status.st_mode) && status.st_nlink == 1 &&
                                                  status.st_uid == ::geteuid() && ::access(path.c_str(), W_OK) == 0);
}

bool RenameOver(const std::wstring& work, const std::wstring& target)
{
    const std::string from = Utf8FromWide(work);
    const std::string to = Utf8FromWide(target);
    struct stat standing
    {};
    const mode_t mode = ::stat(to.c_str(), &standing) == 0 ? standing.st_mode & PERMISSION_BITS : ModeOfNewFile();
    return ::chmod(from.c_str(), mode) == 0 && ::rename(from.c_str(), to.c_str()) == 0;
}

bool CopyOver(const std::wstring& work, const std::wstring& target)
{
    const Descriptor source(::open(Utf8FromWide(work).c_str(), O_RDONLY | O_CLOEXEC));
    const std::string path = Utf8FromWide(target);
    // Creating is asked for only where nothing stands: the system may refuse it in a shared folder for a file that may
    // be written.
    const bool isNew = ::access(path.c_str(), F_OK) != 0;
    Descriptor out(::open(path.c_str(), O_WRONLY | O_CLOEXEC | (isNew ? O_CREAT | O_EXCL : 0), NEW_FILE_MODE));
    const bool opened = static_cast<bool>(out);
    if (source && opened && CopyOver(source.Get(), out.Get()) && out.Close())
    {
        return true;
    }
    if (isNew && opened)
    {
        ::unlink(path.c_str());
    }
    return false;
}

} // namespace jlandxml

#endif
