#ifdef _WIN32

#include "base/FilesSystem.h"

#include <algorithm>
#include <array>

#include <utility>
#include <windows.h>

#include <io.h>

namespace jlandxml
{

namespace
{

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
    if (ReadFile(handle_, bytes, static_cast<DWORD>(std::min(size, CALL_LIMIT)), &taken, nullptr) == 0)
    {
        return std::nullopt;
    }
    return taken;
}

bool NativeFile::Rewind()
{
    return SetFilePointerEx(handle_, {}, nullptr, FILE_BEGIN) != 0;
}

std::uint64_t NativeFile::Length() const
{
    LARGE_INTEGER length{};
    return GetFileSizeEx(handle_, &length) != 0 ? static_cast<std::uint64_t>(length.QuadPart) : 0;
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

bool PathExists(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

FileHandle OpenForReading(const std::wstring& path)
{
    FileHandle file(_wfopen(path.c_str(), L"rbN"));
    const bool isPlain =
        file && GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file.get())))) == FILE_TYPE_DISK;
    return isPlain ? std::move(file) : nullptr;
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

bool RemoveFile(const std::wstring& path) noexcept
{
    return DeleteFileW(path.c_str()) != 0;
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
    FILE_ALLOCATION_INFO room{};
    // Less than the file's own length would cut it off.
    room.AllocationSize.QuadPart = static_cast<LONGLONG>(std::max(length, file.Length()));
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
    return file && IsPlain(file) ? std::move(file) : NativeFile();
}

bool IsPlain(const NativeFile& file)
{
    return GetFileType(file.Get()) == FILE_TYPE_DISK;
}

NativeFile OpenNew(const std::wstring& path)
{
    return NativeFile(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace jlandxml

#endif
