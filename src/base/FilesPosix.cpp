#ifndef _WIN32

#include "base/FilesSystem.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "base/WriteSignals.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
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

constexpr std::string_view PREFIX = "tsx";
constexpr std::string_view EXTENSION = ".tmp";
constexpr std::size_t RANDOM_LETTERS = 6;
constexpr std::string_view LETTERS = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";
constexpr int NAMES_TRIED = 100;

/// As many links as the system follows.
constexpr int LINKS_FOLLOWED = 40;

constexpr const char* ACCESS_CONTROL_LIST = "system.posix_acl_access";

/// File systems that write over what a file holds where it stands. Others may need room for it anew, with or without
/// room set aside.
constexpr std::array<decltype(statfs::f_type), 2> WRITING_IN_PLACE = {0xEF53 /* ext2 to ext4 */,
                                                                      0x01021994 /* tmpfs */};

/// A path as the system takes it, made without asking for memory. One that is longer than the system's own names no
/// file.
class NativePath
{
  public:
    explicit NativePath(const std::wstring& path) noexcept
    {
        if (path.size() <= PATH_MAX)
        {
            bytes_[EncodeUtf8(path, bytes_.data())] = '\0';
        }
    }

    const char* Get() const { return bytes_.data(); }

  private:
    std::array<char, PATH_MAX * MOST_UTF8_BYTES + 1> bytes_{};
};

/// Nothing if the system doesn't say.
std::optional<struct stat> StatusOf(const NativeFile& file)
{
    struct stat status
    {};
    return ::fstat(file.Get(), &status) == 0 ? std::optional(status) : std::nullopt;
}

/// Opens what stands under a name without waiting for the other end where it is a pipe.
NativeFile OpenWithoutWaiting(const std::string& path, int flags)
{
    NativeFile file(::open(path.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    // Of what the file was opened with only the waiting can be changed later on.
    return file && ::fcntl(file.Get(), F_SETFL, 0) == 0 ? std::move(file) : NativeFile();
}

/// True if a name, not a link of that name, stands for an open file.
bool IsNameOf(int folder, const char* name, const NativeFile& file)
{
    const std::optional<struct stat> status = StatusOf(file);
    struct stat named
    {};
    return status && ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 && named.st_dev == status->st_dev &&
           named.st_ino == status->st_ino;
}

bool SetMode(const NativeFile& file, mode_t mode)
{
    // Asked first: a volume without permissions gives all of its files the same ones and refuses to set any.
    const std::optional<struct stat> status = StatusOf(file);
    return (status && (status->st_mode & PERMISSION_BITS) == mode) || ::fchmod(file.Get(), mode) == 0;
}

/// The access control list of an open file as the system keeps it; empty if it has none.
std::string AccessControlList(const NativeFile& file)
{
    const ssize_t size = ::fgetxattr(file.Get(), ACCESS_CONTROL_LIST, nullptr, 0);
    std::string list(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    const ssize_t taken = list.empty() ? 0 : ::fgetxattr(file.Get(), ACCESS_CONTROL_LIST, list.data(), list.size());
    list.resize(taken > 0 ? static_cast<std::size_t>(taken) : 0);
    return list;
}

bool SetAccessControlList(const NativeFile& file, const std::string& list)
{
    if (AccessControlList(file) == list)
    {
        return true;
    }
    return (list.empty() ? ::fremovexattr(file.Get(), ACCESS_CONTROL_LIST)
                         : ::fsetxattr(file.Get(), ACCESS_CONTROL_LIST, list.data(), list.size(), 0)) == 0;
}

/// Gives a file the owner, group and permissions of another one.
bool TakeOverPermissions(const NativeFile& file, const NativeFile& from)
{
    const std::optional<struct stat> own = StatusOf(file);
    const std::optional<struct stat> wanted = StatusOf(from);
    if (!own || !wanted)
    {
        return false;
    }
    const bool sameOwners = own->st_uid == wanted->st_uid && own->st_gid == wanted->st_gid;
    return (sameOwners || ::fchown(file.Get(), wanted->st_uid, wanted->st_gid) == 0) &&
           SetAccessControlList(file, AccessControlList(from)) && SetMode(file, wanted->st_mode & PERMISSION_BITS);
}

bool IsMissing(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) != 0 && errno == ENOENT;
}

/// Gives a finished file the permissions that it has in the target's place.
bool SetFinalPermissions(WorkFile& work, const std::string& target)
{
    if (IsMissing(target))
    {
        return work.Permissions() == 0 || SetMode(work.File(), work.Permissions());
    }
    const NativeFile standing = OpenWithoutWaiting(target, O_WRONLY | O_NOFOLLOW);
    return standing && TakeOverPermissions(work.File(), standing);
}

std::string FolderOfPath(const std::string& path)
{
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? "./" : path.substr(0, separator + 1);
}

std::string NameOfPath(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string RandomName()
{
    std::array<unsigned char, RANDOM_LETTERS> random{};
    if (::getrandom(random.data(), random.size(), 0) != static_cast<ssize_t>(random.size()))
    {
        return {};
    }
    std::string name(PREFIX);
    for (const unsigned char byte : random)
    {
        name += LETTERS[byte % LETTERS.size()];
    }
    return name.append(EXTENSION);
}

/// True for a name that RandomName makes.
bool IsWorkFileName(std::string_view name)
{
    const auto isOneOf = [](char letter) { return LETTERS.find(letter) != std::string_view::npos; };
    if (name.size() != PREFIX.size() + RANDOM_LETTERS + EXTENSION.size() || !name.starts_with(PREFIX) ||
        !name.ends_with(EXTENSION))
    {
        return false;
    }
    const std::string_view random = name.substr(PREFIX.size(), RANDOM_LETTERS);
    return std::all_of(random.begin(), random.end(), isOneOf);
}

/// An open folder, closed with its scope.
struct FolderCloser
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, FolderCloser>;

/// The names in an open folder but its own and its parent's; nothing if they can't all be read.
std::optional<std::vector<std::string>> NamesIn(DIR* folder)
{
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* const entry = ::readdir(folder))
    {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
        {
            names.emplace_back(name);
        }
        errno = 0;
    }
    return errno == 0 ? std::optional(std::move(names)) : std::nullopt;
}

/// Removes a file of the converter's making that is private to this user, old, and held by nobody.
void RemoveIfStale(int folder, const char* name)
{
    const NativeFile file(::openat(folder, name, O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    const std::optional<struct stat> status = file ? StatusOf(file) : std::nullopt;
    const std::time_t now = std::time(nullptr);
    if (status && S_ISREG(status->st_mode) && (status->st_mode & PERMISSION_BITS) == PRIVATE_FILE_MODE &&
        status->st_uid == ::geteuid() && status->st_nlink == 1 &&
        now - status->st_mtime > static_cast<std::time_t>(STALE_AFTER_SECONDS) &&
        ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0 && IsNameOf(folder, name, file))
    {
        ::unlinkat(folder, name, 0);
    }
}

/// Where a link that stands under a name leads; the name itself if none does.
std::string FollowLink(const std::string& path)
{
    std::array<char, PATH_MAX> to{};
    const ssize_t size = ::readlink(path.c_str(), to.data(), to.size());
    if (size <= 0)
    {
        return path;
    }
    const std::string name(to.data(), static_cast<std::size_t>(size));
    return name.front() == '/' ? name : FolderOfPath(path) + name;
}

} // namespace

bool NativeFile::WriteTo(Handle handle, std::string_view bytes) noexcept
{
    const WriteSignals signals;
    while (!bytes.empty())
    {
        const ssize_t written = ::write(handle, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
        {
            continue;
        }
        if (written <= 0)
        {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<std::size_t> NativeFile::Read(char* bytes, std::size_t size)
{
    for (;;)
    {
        const ssize_t taken = ::read(handle_, bytes, size);
        if (taken >= 0)
        {
            return static_cast<std::size_t>(taken);
        }
        if (errno != EINTR)
        {
            return std::nullopt;
        }
    }
}

bool NativeFile::Rewind()
{
    return ::lseek(handle_, 0, SEEK_SET) == 0;
}

std::optional<std::uint64_t> NativeFile::Length() const
{
    const std::optional<struct stat> status = StatusOf(*this);
    return status ? std::optional(static_cast<std::uint64_t>(status->st_size)) : std::nullopt;
}

bool NativeFile::Shorten(std::uint64_t length)
{
    return ::ftruncate(handle_, static_cast<off_t>(length)) == 0;
}

bool NativeFile::Sync()
{
    return ::fsync(handle_) == 0;
}

bool NativeFile::Deliver()
{
    // What is told at closing is told for each of a file's descriptors.
    return NativeFile(::dup(handle_)).Close();
}

bool NativeFile::Close()
{
    const int closing = std::exchange(handle_, NONE);
    return closing < 0 || ::close(closing) == 0;
}

bool PathExists(const std::wstring& path)
{
    struct stat status
    {};
    const bool exists = ::stat(Utf8FromWide(path).c_str(), &status) == 0;
    if (!exists && errno != ENOENT && errno != ENOTDIR)
    {
        WarnOf(WarningCause::UnreadableFile, path, errno);
    }
    return exists;
}

FileHandle OpenForReading(const std::wstring& path)
{
    NativeFile file = OpenWithoutWaiting(Utf8FromWide(path), O_RDONLY);
    if (file && KindOf(file) != FileKind::Plain)
    {
        WarnOf(WarningCause::UnreadableFile, path, KindOf(file) == FileKind::Other ? EISDIR : EIO);
        return nullptr;
    }
    FileHandle stream(file ? ::fdopen(file.Get(), "rb") : nullptr);
    if (stream != nullptr)
    {
        file.Release();
        return stream;
    }
    WarnOf(WarningCause::UnreadableFile, path, errno);
    return nullptr;
}

bool SeekTo(std::FILE* file, std::size_t position)
{
    return ::fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0;
}

std::optional<std::size_t> FileLength(std::FILE* file)
{
    struct stat status
    {};
    if (::fstat(::fileno(file), &status) != 0)
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

NewFile MakeNewFile(const std::wstring& folder, WorkFile::Purpose purpose)
{
    const bool isTarget = purpose == WorkFile::Purpose::NewTarget;
    const std::string start = Utf8FromWide(folder);
    NewFile made{};
    for (int tried = 0; tried < NAMES_TRIED && !made.file; ++tried)
    {
        const std::string path = start + RandomName();
        made.path = WideFromUtf8(path); // before there is a file that only the name can remove
        made.file = NativeFile(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                      isTarget ? NEW_FILE_MODE : PRIVATE_FILE_MODE));
        if (!made.file && errno != EEXIST)
        {
            break;
        }
    }
    if (made.file && isTarget)
    {
        // What the system leaves of the permissions, by the user's mask or by the folder's own list, is the target's
        // in the end. Nobody who couldn't read the target then can read the empty file now.
        const std::optional<struct stat> status = StatusOf(made.file);
        if (!status)
        {
            RemoveFile(made.path);
            return {};
        }
        made.permissions = status->st_mode & PERMISSION_BITS;
        SetMode(made.file, PRIVATE_FILE_MODE);
    }
    if (made.file)
    {
        ::flock(made.file.Get(), LOCK_EX | LOCK_NB); // by which others see that it is no stale one
    }
    return made;
}

std::wstring FileNameKey(const std::wstring& name)
{
    return name;
}

/// No memory is asked for: what is in the way must go where there is none.
bool RemoveFile(const std::wstring& path) noexcept
{
    const NativePath name(path);
    return ::unlink(name.Get()) == 0;
}

std::optional<std::vector<std::wstring>> FileNames(const std::wstring& path)
{
    const Folder folder(::opendir(Utf8FromWide(path).c_str()));
    const auto names = folder ? NamesIn(folder.get()) : std::nullopt;
    if (!names)
    {
        if (errno != ENOENT && errno != ENOTDIR)
        {
            WarnOf(WarningCause::UnreadableFolder, path, errno);
        }
        return std::nullopt;
    }
    std::vector<std::wstring> wide(names->size());
    std::transform(names->begin(), names->end(), wide.begin(), WideFromUtf8);
    return wide;
}

void Protect(const NativeFile& file)
{
    ::fchmod(file.Get(), S_IRUSR);
}

void RemoveStaleFiles(const std::wstring& path) noexcept
{
    const NativePath name(path);
    const Folder folder(::opendir(name.Get()));
    while (const dirent* const entry = folder ? ::readdir(folder.get()) : nullptr)
    {
        if (IsWorkFileName(entry->d_name))
        {
            RemoveIfStale(::dirfd(folder.get()), entry->d_name);
        }
    }
}

NativeFile OpenForWriting(const std::wstring& path)
{
    return NativeFile(
        ::open(Utf8FromWide(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, PRIVATE_FILE_MODE));
}

std::wstring FollowLinks(const std::wstring& path)
{
    struct Free
    {
        void operator()(char* memory) const { std::free(memory); }
    };
    std::string name = Utf8FromWide(path);
    const std::unique_ptr<char, Free> resolved(::realpath(name.c_str(), nullptr));
    if (resolved != nullptr)
    {
        return WideFromUtf8(resolved.get());
    }
    if (PathExists(path))
    {
        return path; // a link that the system alone can follow, such as that to an open pipe
    }
    for (int followed = 0; followed < LINKS_FOLLOWED; ++followed)
    {
        name = FollowLink(name);
    }
    return WideFromUtf8(name);
}

bool CanBeRenamedOver(const std::wstring& target)
{
    const std::string path = Utf8FromWide(target);
    struct stat status
    {};
    return ::stat(path.c_str(), &status) != 0 || (S_ISREG(status.st_mode) && status.st_nlink == 1 &&
                                                  ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0);
}

bool RenameOver(WorkFile& work, const std::wstring& target)
{
    const std::string to = Utf8FromWide(target);
    const std::string from = Utf8FromWide(work.Path());
    // Both stand in one folder, which stays the same one whatever becomes of its name.
    const NativeFile folder(::open(FolderOfPath(to).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const std::string name = NameOfPath(from);
    if (!folder || !SetFinalPermissions(work, to) || !IsNameOf(folder.Get(), name.c_str(), work.File()) ||
        ::renameat(folder.Get(), name.c_str(), folder.Get(), NameOfPath(to).c_str()) != 0)
    {
        return false;
    }
    work.Keep();
    return true;
}

Room ReserveRoom(NativeFile& file, std::uint64_t length)
{
    if (length == 0)
    {
        return Room::Certain;
    }
    const std::optional<std::uint64_t> standing = file.Length();
    if (!standing)
    {
        return Room::Unknown;
    }
    if (::fallocate(file.Get(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(length)) == 0)
    {
        struct statfs volume
        {};
        const bool inPlace =
            ::fstatfs(file.Get(), &volume) == 0 &&
            std::find(WRITING_IN_PLACE.begin(), WRITING_IN_PLACE.end(), volume.f_type) != WRITING_IN_PLACE.end();
        return inPlace ? Room::Certain : Room::Unknown;
    }
    if (errno != ENOSPC && errno != EDQUOT && errno != EFBIG)
    {
        return Room::Unknown;
    }
    file.Shorten(*standing);
    return Room::None;
}

NativeFile OpenStanding(const std::wstring& path)
{
    const std::string name = Utf8FromWide(path);
    NativeFile file = OpenWithoutWaiting(name, O_WRONLY);
    // A device may be had through a link of the system's, such as that to the standard output.
    const bool isOther = file && KindOf(file) == FileKind::Other;
    return isOther || (file && IsNameOf(AT_FDCWD, name.c_str(), file)) ? std::move(file) : NativeFile();
}

NativeFile OpenStandingToRead(const std::wstring& path)
{
    NativeFile file = OpenWithoutWaiting(Utf8FromWide(path), O_RDONLY);
    return file && KindOf(file) == FileKind::Plain ? std::move(file) : NativeFile();
}

FileKind KindOf(const NativeFile& file)
{
    const std::optional<struct stat> status = StatusOf(file);
    if (!status)
    {
        return FileKind::Unknown;
    }
    return S_ISREG(status->st_mode) ? FileKind::Plain : FileKind::Other;
}

NativeFile OpenNew(const std::wstring& path)
{
    return NativeFile(::open(Utf8FromWide(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NEW_FILE_MODE));
}

} // namespace jlandxml

#endif
