#ifdef _WIN32

#include "base/FilesSystem.h"

#include <array>

#include <windows.h>

#include <io.h>

namespace jlandxml
{

namespace
{

/// The identity of an open file on its volume.
std::optional<BY_HANDLE_FILE_INFORMATION> IdentityOf(const std::wstring& path)
{
    const HANDLE file = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
    {
        return std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION information{};
    const bool known = GetFileInformationByHandle(file, &information) != 0;
    CloseHandle(file);
    return known ? std::optional(information) : std::nullopt;
}

/// The length of a file in bytes; 0 if there is none.
ULONGLONG LengthOf(const std::wstring& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    return ULONGLONG{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
}

/// False if the target's volume is known to have no room for the work file, also with what stands there given up.
bool HasRoom(const std::wstring& work, const std::wstring& target)
{
    const std::wstring folder(FolderOf(target));
    ULARGE_INTEGER available{};
    return GetDiskFreeSpaceExW(folder.empty() ? nullptr : folder.c_str(), &available, nullptr, nullptr) == 0 ||
           LengthOf(work) <= available.QuadPart + LengthOf(target);
}

} // namespace

bool PathExists(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::wstring> FileNames(const std::wstring& folder)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found) != 0)
    {
        names.emplace_back(found.cFileName);
    }
    if (search != INVALID_HANDLE_VALUE)
    {
        FindClose(search);
    }
    return names;
}

FileHandle OpenForReading(const std::wstring& path)
{
    return FileHandle(_wfopen(path.c_str(), L"rbN"));
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

std::optional<std::wstring> CreateUniqueFile(const std::wstring& folder, const std::wstring& prefix)
{
    std::array<wchar_t, MAX_PATH> buffer{};
    if (GetTempFileNameW(folder.c_str(), prefix.c_str(), 0, buffer.data()) == 0)
    {
        return std::nullopt;
    }
    return std::wstring(buffer.data());
}

bool IsSameFile(const std::wstring& first, const std::wstring& second)
{
    const auto one = IdentityOf(first);
    const auto other = IdentityOf(second);
    return one && other && one->dwVolumeSerialNumber == other->dwVolumeSerialNumber &&
           one->nFileIndexHigh == other->nFileIndexHigh && one->nFileIndexLow == other->nFileIndexLow;
}

bool RemoveFile(const std::wstring& path) noexcept
{
    return DeleteFileW(path.c_str()) != 0;
}

FileHandle OpenForWriting(const std::wstring& path)
{
    return FileHandle(_wfopen(path.c_str(), L"wbN"));
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

bool RenameOver(const std::wstring& work, const std::wstring& target)
{
    return MoveFileExW(work.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

bool CopyOver(const std::wstring& work, const std::wstring& target)
{
    const bool isNew = !PathExists(target);
    if (HasRoom(work, target) && CopyFileW(work.c_str(), target.c_str(), FALSE) != 0)
    {
        return true;
    }
    if (isNew)
    {
        RemoveFile(target);
    }
    return false;
}

} // namespace jlandxml

#endif
