// Replacing a target of any kind while calls of the system fail: it is old or new, and nothing stands beside it. Of the
// bytes the first says what the target is, the next three which call fails, how many of it don't, and the error.

#include "FuzzInput.h"
#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Warnings.h"
#include "support/FailingCalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <optional>

namespace
{

using namespace jlandxml;

constexpr int ERRORS[] = {EIO, ENOSPC, EPERM, EINTR, EACCES, EOPNOTSUPP, EDQUOT, ENOENT};
const std::string OLD(3000, 'o');
const std::string NEW(5000, 'n');

bool Replace(const std::wstring& target, GatherPlace place)
{
    try
    {
        ReplacementFile file(target, place);
        file.Write(NEW);
        return file.Commit();
    }
    catch (const CFileException&)
    {
        return false;
    }
}

/// One call fails once, so that what is begun can be put back.
bool ReplaceWhileOneFails(const std::wstring& target, GatherPlace place, std::string_view bytes)
{
    std::optional<FailingCalls> failing;
    if (bytes.size() >= 3)
    {
        const auto call = static_cast<unsigned char>(bytes[0]) % static_cast<int>(SystemCall::Count);
        const int error = ERRORS[static_cast<unsigned char>(bytes[2]) % std::size(ERRORS)];
        failing.emplace(static_cast<SystemCall>(call), error, static_cast<unsigned char>(bytes[1])).Times(1);
    }
    return Replace(target, place);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TestFolder folder;
    static const TestFolder temporary;
    static const TemporaryFolderOverride inUse(temporary.Path());
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
    {
        std::filesystem::remove(entry);
    }
    std::string_view bytes = fuzz::Bytes(data, size);
    const int kind = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
    const std::wstring target = folder.Name(L"target");
    const bool exists = (kind & 1) != 0;
    if (exists)
    {
        folder.Write(L"target", OLD);
        if ((kind & 2) != 0)
        {
            std::filesystem::create_hard_link(NativePath(target), folder.Path() / "other");
        }
    }
    if ((kind & 4) != 0)
    {
        std::filesystem::create_symlink("target", folder.Path() / "link");
    }
    const std::vector<std::wstring> before = folder.Files();
    const std::wstring named = (kind & 4) != 0 ? folder.Name(L"link") : target;
    const GatherPlace place = (kind & 8) != 0 ? GatherPlace::TemporaryFolder : GatherPlace::BesideTarget;
    bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
    const bool replaced = ReplaceWhileOneFails(named, place, bytes);
    TakeWarnings();
    const std::string content = folder.Read(L"target");
    const std::vector<std::wstring> after = folder.Files();
    const bool isAlone = after.size() == before.size() + (replaced && !exists ? 1 : 0);
    if (content != (replaced ? NEW : exists ? OLD : "") || !isAlone || !temporary.Files().empty())
    {
        std::abort();
    }
    return 0;
}
