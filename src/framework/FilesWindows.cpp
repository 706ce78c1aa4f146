#ifdef _WIN32

#include "framework/Exceptions.h"
#include "framework/Files.h"

#include <array>

#include <windows.h>

#include <fcntl.h>
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

} // namespace

bool PathExists(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
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

bool RemoveFile(const std::wstring& path)
{
    return DeleteFileW(path.c_str()) != 0;
}

bool ReplaceWithCopy(const std::wstring& source, const std::wstring& target)
{
    const std::wstring folder = FolderOf(target).empty() ? std::wstring(L".\\") : std::wstring(FolderOf(target));
    const std::optional<std::wstring> beside = CreateUniqueFile(folder, L"tsx");
    if (!beside)
    {
        return PathExists(folder) && CopyFileW(source.c_str(), target.c_str(), FALSE) != 0;
    }
    if (CopyFileW(source.c_str(), beside->c_str(), FALSE) != 0 &&
        MoveFileExW(beside->c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
    {
        return true;
    }
    RemoveFile(*beside);
    return false;
}

OutputFile::OutputFile(const std::wstring& path, Kind kind) : path_(path)
{
    if (kind == Kind::New)
    {
        RemoveFile(path);
    }
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                    kind == Kind::New ? CREATE_NEW : TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE)
    {
        const int file = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_WRONLY | _O_BINARY);
        if (file >= 0)
        {
            file_.reset(_fdopen(file, "wb"));
        }
        else
        {
            CloseHandle(handle);
        }
    }
    if (!file_)
    {
        throw CFileException(L"ファイルを開けません: " + path);
    }
}

} // namespace jlandxml

#endif
