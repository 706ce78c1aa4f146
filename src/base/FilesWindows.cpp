#ifdef _WIN32

#include "base/FilesSystem.h"
#include "base/Warnings.h"

#include <algorithm>
#include <array>

#include <utility>
#include <windows.h>

#include <io.h>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* WORK_FILE_PREFIX = L"tsx";
constexpr const wchar_t* WORK_FILES = L"tsx*.tmp";

/// More than that the system isn't asked to read or write at once.
constexpr std::size_t CALL_LIMIT = std::size_t{1} << 30;

/// Whom a file belongs to and who may do what with it.
constexpr SECURITY_INFORMATION SECURITY =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

/// What of a file's attributes a file in its place keeps.
constexpr DWORD KEPT_ATTRIBUTES = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// The identity of an open file on its volume.
std::optional<BY_HANDLE_FILE_INFORMATION> IdentityOf(const std::wstring& path)
{
    const NativeFile file(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    const bool known = file && GetFileInformationByHandle(file.Get(), &information) != 0;
    return known ? std::optional(information) : std::nullopt;
}

/// The security descriptor of a file as the system hands it out; empty if it tells none.
std::string SecurityOf(const std::wstring& path)
{
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), SECURITY, nullptr, 0, &size);
    std::string descriptor(size, '\0');
    if (GetFileSecurityW(path.c_str(), SECURITY, descriptor.data(), size, &size) == 0)
    {
        return {};
    }
    return descriptor;
}

/// Gives a file the owner, group and permissions of another one. A volume without any tells none of both.
bool TakeOverSecurity(const std::wstring& path, const std::wstring& from)
{
    std::string wanted = SecurityOf(from);
    if (SecurityOf(path) != wanted && !wanted.empty())
    {
        SetFileSecurityW(path.c_str(), SECURITY, wanted.data());
    }
    return SecurityOf(path) == wanted;
}

/// A walk over a folder's names, ended with its scope.
class Search
{
  public:
    explicit Search(HANDLE handle) : handle_(handle) {}
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;
    ~Search()
    {
        if (handle_ != INVALID_HANDLE_VALUE)
        {
            FindClose(handle_);
        }
    }

    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

bool IsStale(const WIN32_FIND_DATAW& found)
{
    constexpr std::uint64_t TICKS_A_SECOND = 10'000'000;
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const auto ticks = [](const FILETIME& time) {
        return (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
    };
    return (found.dwFileAttributes &
            (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0 &&
           ticks(now) > ticks(found.ftLastWriteTime) + STALE_AFTER_SECONDS * TICKS_A_SECOND;
}

/// Removes a file that nobody has open and that begins as a finished one does. Others use the system's names for
/// temporary files too, and an empty one tells nothing of its maker.
void RemoveIfOurs(const std::wstring& path)
{
    constexpr std::string_view BEGINNING = "\xEF\xBB\xBF<?xml ";
    NativeFile file(CreateFileW(path.c_str(), GENERIC_READ | DELETE, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    std::array<char, BEGINNING.size()> begun{};
    if (file && file.Read(begun.data(), begun.size()) == begun.size() &&
        std::string_view(begun.data(), begun.size()) == BEGINNING)
    {
        FILE_DISPOSITION_INFO gone{TRUE};
        SetFileInformationByHandle(file.Get(), FileDispositionInfo, &gone, sizeof gone);
    }
}

bool TakeOverAttributes(const std::wstring& path, const std::wstring& from)
{
    const DWORD own = GetFileAttributesW(path.c_str());
    const DWORD kept = GetFileAttributesW(from.c_str()) & KEPT_ATTRIBUTES;
    return (own & KEPT_ATTRIBUTES) == kept || SetFileAttributesW(path.c_str(), (own & ~KEPT_ATTRIBUTES) | kept) != 0;
}

} // namespace

bool NativeFile::WriteTo(Handle handle, std::string_view bytes) noexcept
{
    while (!bytes.empty())
    {
        const auto size = static_cast<DWORD>(std::min(bytes.size(), CALL_LIMIT));
        DWORD written = 0;
        if (WriteFile(handle, bytes.data(), size, &written, nullptr) == 0 || written == 0)
        {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

std::optional<std::size_t> NativeFile::Read(char* bytes, std::size_t size)
{
    DWORD taken = 0;
    if (ReadFile(handle_, bytes, static_cast<DWORD>(std::min(size, CALL_LIMIT)), &taken, nullptr) != 0)
    {
        return taken;
    }
    // What the last writer of a pipe leaves is its end.
    return GetLastError() == ERROR_BROKEN_PIPE ? std::optional<std::size_t>(0) : std::nullopt;
}

bool NativeFile::Rewind()
{
    return SetFilePointerEx(handle_, {}, nullptr, FILE_BEGIN) != 0;
}

std::optional<std::uint64_t> NativeFile::Length() const
{
    LARGE_INTEGER length{};
    return GetFileSizeEx(handle_, &length) != 0 ? std::optional(static_cast<std::uint64_t>(length.QuadPart))
                                                : std::nullopt;
}

bool NativeFile::Shorten(std::uint64_t length)
{
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(length);
    return SetFilePointerEx(handle_, end, nullptr, FILE_BEGIN) != 0 && SetEndOfFile(handle_) != 0;
}

bool NativeFile::Sync()
{
    return FlushFileBuffers(handle_) != 0;
}

bool NativeFile::Deliver()
{
    return true; // the system tells of a failed write at once
}

bool NativeFile::Close()
{
    const HANDLE closing = std::exchange(handle_, NONE);
    return closing == NONE || CloseHandle(closing) != 0;
}

namespace
{

/// The system's answers for a name that nothing has.
constexpr std::array<DWORD, 5> MISSING = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME,
                                          ERROR_INVALID_DRIVE, ERROR_BAD_NETPATH};

int ErrnoOf(DWORD error)
{
    return error == ERROR_ACCESS_DENIED ? EACCES : EIO;
}

} // namespace

bool PathExists(const std::wstring& path)
{
    const bool exists = GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    const DWORD error = GetLastError();
    if (!exists && std::find(MISSING.begin(), MISSING.end(), error) == MISSING.end())
    {
        WarnOf(WarningCause::UnreadableFile, path, ErrnoOf(error));
    }
    return exists;
}

namespace
{

/// A folder can't be opened here, for want of rights as the library puts it.
bool IsAFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

FileHandle OpenForReading(const std::wstring& path)
{
    FileHandle file(_wfopen(path.c_str(), L"rbN"));
    const int failure = errno;
    const int error = file || IsAFolder(path) ? EISDIR : failure;
    const bool isPlain =
        file && GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file.get())))) == FILE_TYPE_DISK;
    if (!isPlain)
    {
        WarnOf(WarningCause::UnreadableFile, path, error);
    }
    return isPlain ? std::move(file) : nullptr;
}

bool SeekTo(std::FILE* file, std::size_t position)
{
    return _fseeki64(file, static_cast<__int64>(position), SEEK_SET) == 0;
}

std::optional<std::size_t> FileLength(std::FILE* file)
{
    const __int64 length = _filelengthi64(_fileno(file));
    if (length < 0)
    {
        return std::nullopt;
    }
    return static_cast<std::size_t>(length);
}

std::optional<std::wstring> TemporaryFolder()
{
    std::array<wchar_t, MAX_PATH> buffer{};
    const DWORD length = GetTempPathW(static_cast<DWORD>(buffer.size()), buffer.data());
    if (length == 0 || length > buffer.size())
    {
        return std::nullopt;
    }
    return std::wstring(buffer.data(), length);
}

NewFile MakeNewFile(const std::wstring& folder, WorkFile::Purpose /*purpose*/)
{
    std::array<wchar_t, MAX_PATH> buffer{};
    std::wstring path;
    path.reserve(buffer.size()); // before there is a file that only the name can remove
    if (GetTempFileNameW(folder.c_str(), WORK_FILE_PREFIX, 0, buffer.data()) == 0)
    {
        return {};
    }
    path = buffer.data();
    NewFile made{std::move(path),
                 NativeFile(CreateFileW(buffer.data(), GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)),
                 0};
    if (!made.file)
    {
        RemoveFile(made.path);
    }
    return made;
}

std::wstring FileNameKey(const std::wstring& name)
{
    std::wstring key(name.size(), L'\0');
    const int length = static_cast<int>(name.size());
    const int mapped = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, name.data(), length, key.data(), length,
                                     nullptr, nullptr, 0);
    return mapped == length ? key : name;
}

bool RemoveFile(const std::wstring& path) noexcept
{
    return DeleteFileW(path.c_str()) != 0;
}

std::optional<std::vector<std::wstring>> FileNames(const std::wstring& folder)
{
    const std::wstring pattern =
        folder.empty() || FolderOf(folder).size() == folder.size() ? folder + L"*" : folder + L"\\*";
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const Search search(FindFirstFileW(pattern.c_str(), &found));
    bool isThere = search.Get() != INVALID_HANDLE_VALUE;
    while (isThere)
    {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..")
        {
            names.emplace_back(name);
        }
        isThere = FindNextFileW(search.Get(), &found) != 0;
    }
    const DWORD error = GetLastError();
    // An empty volume's root has not even its own name.
    const bool isWhole = error == ERROR_NO_MORE_FILES || (error == ERROR_FILE_NOT_FOUND && names.empty());
    if (!isWhole && error != ERROR_PATH_NOT_FOUND && error != ERROR_DIRECTORY)
    {
        WarnOf(WarningCause::UnreadableFolder, folder, ErrnoOf(error));
    }
    return isWhole ? std::optional(std::move(names)) : std::nullopt;
}

void Protect(const NativeFile& file)
{
    FILE_BASIC_INFO attributes{};
    if (GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &attributes, sizeof attributes) != 0)
    {
        attributes.FileAttributes |= FILE_ATTRIBUTE_READONLY;
        SetFileInformationByHandle(file.Get(), FileBasicInfo, &attributes, sizeof attributes);
    }
}

void RemoveStaleFiles(const std::wstring& folder) noexcept
{
    try
    {
        const std::wstring pattern = folder + WORK_FILES;
        WIN32_FIND_DATAW found{};
        const Search search(FindFirstFileW(pattern.c_str(), &found));
        bool isThere = search.Get() != INVALID_HANDLE_VALUE;
        while (isThere)
        {
            if (IsStale(found))
            {
                RemoveIfOurs(folder + found.cFileName);
            }
            isThere = FindNextFileW(search.Get(), &found) != 0;
        }
    }
    catch (const std::bad_alloc&)
    {} // they are still there the next time
}

NativeFile OpenForWriting(const std::wstring& path)
{
    return NativeFile(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::wstring FollowLinks(const std::wstring& path)
{
    return path;
}

bool CanBeRenamedOver(const std::wstring& target)
{
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
    {
        return true;
    }
    const auto identity = IdentityOf(target);
    return (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0 &&
           (!identity || identity->nNumberOfLinks == 1);
}

bool RenameOver(WorkFile& work, const std::wstring& target)
{
    // Content stays at hand for a target that takes no other name.
    const bool keeps =
        !PathExists(target) || (TakeOverSecurity(work.Path(), target) && TakeOverAttributes(work.Path(), target));
    if (!keeps || MoveFileExW(work.Path().c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) == 0)
    {
        return false;
    }
    work.File().Close();
    work.Keep();
    return true;
}

Room ReserveRoom(NativeFile& file, std::uint64_t length)
{
    const std::optional<std::uint64_t> standing = file.Length();
    if (!standing)
    {
        return Room::Unknown;
    }
    FILE_ALLOCATION_INFO room{};
    // Less than the file's own length would cut it off.
    room.AllocationSize.QuadPart = static_cast<LONGLONG>(std::max(length, *standing));
    const bool isFull = SetFileInformationByHandle(file.Get(), FileAllocationInfo, &room, sizeof(room)) == 0 &&
                        GetLastError() == ERROR_DISK_FULL;
    // Volumes that compress or copy on write may need more than what was set aside.
    return isFull ? Room::None : Room::Unknown;
}

NativeFile OpenStanding(const std::wstring& path)
{
    return NativeFile(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

NativeFile OpenStandingToRead(const std::wstring& path)
{
    NativeFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file && KindOf(file) == FileKind::Plain ? std::move(file) : NativeFile();
}

FileKind KindOf(const NativeFile& file)
{
    switch (GetFileType(file.Get()))
    {
    case FILE_TYPE_DISK:
        return FileKind::Plain;
    case FILE_TYPE_UNKNOWN:
        return FileKind::Unknown;
    default:
        return FileKind::Other;
    }
}

NativeFile OpenNew(const std::wstring& path)
{
    return NativeFile(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace jlandxml

#endif
