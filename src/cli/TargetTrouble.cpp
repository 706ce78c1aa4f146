#include "cli/TargetTrouble.h"

#include "base/Files.h"
#include "base/Warnings.h"
#include "cli/Paths.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace jlandxml
{

namespace
{

/// An error number of the C library; 0 if the folder takes a file of that size.
int FolderTrouble(const std::wstring& folder, std::uintmax_t size)
{
    std::error_code failure;
    const std::filesystem::path path = PathOf(folder);
    if (!std::filesystem::is_directory(path, failure))
    {
        return failure == std::errc::permission_denied ? EACCES : ENOENT;
    }
    const std::filesystem::space_info space = std::filesystem::space(path, failure);
    if (!failure && space.available < std::max<std::uintmax_t>(size, 1))
    {
        return ENOSPC;
    }
    errno = 0;
    if (WorkFile::Make(folder))
    {
        return 0;
    }
    return errno != 0 ? errno : EACCES;
}

} // namespace

std::wstring TargetTrouble(const std::wstring& target, std::uintmax_t size)
{
    const auto withReason = [](const std::wstring& path, int error) {
        return path + L"（" + ReasonText(error) + L"）";
    };
    std::error_code failure;
    if (std::filesystem::is_directory(PathOf(target), failure))
    {
        return withReason(target, EISDIR);
    }
    const std::wstring_view folder = FolderOf(target);
    if (const int error = FolderTrouble(folder.empty() ? L"./" : std::wstring(folder), size))
    {
        return withReason(folder.empty() ? target : std::wstring(folder), error);
    }
    const std::optional<std::wstring> temporary = TemporaryFolder();
    const int error = temporary ? FolderTrouble(*temporary, size) : 0;
    return error != 0 ? withReason(*temporary, error) : target;
}

} // namespace jlandxml
