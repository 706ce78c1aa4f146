#ifndef _WIN32

#include "framework/Exceptions.h"
#include "framework/Files.h"
#include "framework/Text.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jlandxml
{

namespace
{

constexpr std::size_t TEMPORARY_FOLDER_LIMIT = 260;
constexpr mode_t PRIVATE_MODE = 0600;
constexpr mode_t NEW_FILE_MODE = 0666;
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

/// The file that a chain of links leads to, so that a link at the target stays a link.
std::string FollowLinks(const std::string& path)
{
    char* const resolved = ::realpath(path.c_str(), nullptr);
    if (resolved == nullptr)
    {
        return path;
    }
    std::string result(resolved);
    std::free(resolved);
    return result;
}

mode_t ModeOfNewFile()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return NEW_FILE_MODE & ~mask;
}

bool CopyOver(int source, const std::string& target)
{
    Descriptor out(::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, NEW_FILE_MODE));
    return out && ::lseek(source, 0, SEEK_SET) == 0 && CopyContent(source, out.Get()) && out.Close();
}

} // namespace

bool PathExists(const std::wstring& path)
{
    struct stat status
    {};
    return ::stat(Utf8FromWide(path).c_str(), &status) == 0;
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
    if (folder.size() > TEMPORARY_FOLDER_LIMIT)
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

bool RemoveFile(const std::wstring& path)
{
    return ::unlink(Utf8FromWide(path).c_str()) == 0;
}

bool ReplaceWithCopy(const std::wstring& source, const std::wstring& target)
{
    const Descriptor in(::open(Utf8FromWide(source).c_str(), O_RDONLY | O_CLOEXEC));
    if (!in)
    {
        return false;
    }
    const std::string path = FollowLinks(Utf8FromWide(target));
    struct stat standing
    {};
    const bool exists = ::stat(path.c_str(), &standing) == 0;
    // Renaming asks for no permission on the file itself, but a file that the user may not write is not his to replace;
    // and what is no plain file (a device, a pipe) can only be written to.
    if (exists && (!S_ISREG(standing.st_mode) || ::access(path.c_str(), W_OK) != 0))
    {
        return S_ISREG(standing.st_mode) || S_ISDIR(standing.st_mode) ? false : CopyOver(in.Get(), path);
    }

    std::string beside = path + ".XXXXXX";
    Descriptor out(::mkostemp(beside.data(), O_CLOEXEC));
    if (!out)
    {
        return CopyOver(in.Get(), path);
    }
    const mode_t mode = exists ? standing.st_mode & 07777 : ModeOfNewFile();
    if (CopyContent(in.Get(), out.Get()) && ::fchmod(out.Get(), mode) == 0 && ::fsync(out.Get()) == 0 && out.Close() &&
        ::rename(beside.c_str(), path.c_str()) == 0)
    {
        return true;
    }
    ::unlink(beside.c_str());
    return false;
}

OutputFile::OutputFile(const std::wstring& path, Kind kind) : path_(path)
{
    const std::string name = Utf8FromWide(path);
    if (kind == Kind::New)
    {
        ::unlink(name.c_str());
    }
    const int flags = kind == Kind::New ? O_CREAT | O_EXCL : O_TRUNC;
    const int file = ::open(name.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC | flags, PRIVATE_MODE);
    if (file >= 0)
    {
        file_.reset(::fdopen(file, "wb"));
    }
    if (!file_)
    {
        throw CFileException(L"ファイルを開けません: " + path);
    }
}

} // namespace jlandxml

#endif
