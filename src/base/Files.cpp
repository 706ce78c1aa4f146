#include "base/Files.h"

#include "base/Exceptions.h"
#include "base/FilesSystem.h"
#include "base/Text.h"

#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace jlandxml
{

namespace
{

#ifdef _WIN32
constexpr std::wstring_view SEPARATORS = L"/\\:";
const std::wstring CURRENT_FOLDER = L".\\";
#else
constexpr std::wstring_view SEPARATORS = L"/";
const std::wstring CURRENT_FOLDER = L"./";
#endif

constexpr std::size_t COPY_BLOCK_SIZE = std::size_t{1} << 20;

/// The file system library would convert wide names by the process's locale.
std::filesystem::path NativePath(const std::wstring& path)
{
#ifdef _WIN32
    return path;
#else
    return Utf8FromWide(path);
#endif
}

std::wstring WideName(const std::filesystem::path& name)
{
#ifdef _WIN32
    return name.native();
#else
    return WideFromUtf8(name.native());
#endif
}

std::optional<WorkFile> MakeBeside(const std::wstring& target, WorkFile::Purpose purpose)
{
    const std::wstring_view folder = FolderOf(target);
    return WorkFile::Make(folder.empty() ? CURRENT_FOLDER : std::wstring(folder), purpose);
}

std::optional<WorkFile> MakeInTemporaryFolder()
{
    const std::optional<std::wstring> folder = TemporaryFolder();
    return folder ? WorkFile::Make(*folder) : std::nullopt;
}

/// Appends the rest of one open file to another.
bool CopyRest(NativeFile& source, NativeFile& target)
{
    std::string block(COPY_BLOCK_SIZE, '\0');
    for (;;)
    {
        const std::optional<std::size_t> taken = source.Read(block.data(), block.size());
        if (!taken || *taken == 0)
        {
            return taken.has_value();
        }
        if (!target.Write({block.data(), *taken}))
        {
            return false;
        }
    }
}

/// Writes one open file over another, which ends up with the same content and length, safe on its volume.
bool CopyWhole(NativeFile& source, NativeFile& target)
{
    return source.Rewind() && target.Rewind() && CopyRest(source, target) && target.Shorten(source.Length()) &&
           target.Sync();
}

/// Gives the target content that was gathered elsewhere by way of a file beside it.
bool CopyBesideAndRename(WorkFile& work, const std::wstring& target, WorkFile::Purpose purpose)
{
    std::optional<WorkFile> beside = MakeBeside(target, purpose);
    return beside && ReserveRoom(beside->File(), work.File().Length()) != Room::None && work.File().Rewind() &&
           CopyRest(work.File(), beside->File()) && beside->File().Deliver() && RenameOver(*beside, target);
}

/// A copy of what a target holds, in the temporary folder; nothing if it can't be read or there is no place for it.
std::optional<WorkFile> Backup(const std::wstring& target)
{
    NativeFile source = OpenStandingToRead(target);
    std::optional<WorkFile> backup;
    if (source)
    {
        backup = MakeInTemporaryFolder();
    }
    return backup && CopyRest(source, backup->File()) && backup->File().Deliver() ? std::move(backup) : std::nullopt;
}

/// Puts the old content back. Without the new one there is as much room as there was; what can't be put back all the
/// same, be it for want of memory, stays in the temporary folder.
void PutBack(WorkFile& former, NativeFile& target)
{
    try
    {
        if (CopyWhole(former.File(), target) || (target.Shorten(0) && CopyWhole(former.File(), target)))
        {
            return;
        }
    }
    catch (const std::bad_alloc&)
    {}
    former.Keep();
}

/// Writes over a plain file, once its old content is safe or the room for the new one is certain.
bool WriteOverPlain(NativeFile& work, NativeFile& target, const std::wstring& path)
{
    const std::uint64_t standing = target.Length();
    const Room room = ReserveRoom(target, work.Length());
    std::optional<WorkFile> former = room != Room::None ? Backup(path) : std::nullopt;
    if (!former && room != Room::Certain)
    {
        target.Shorten(standing); // gives back what was set aside
        return false;
    }
    const bool written = CopyWhole(work, target);
    if (!written && former)
    {
        PutBack(*former, target);
    }
    return written;
}

/// Writes a target that doesn't exist, in a folder that lets no file be renamed.
bool WriteNew(NativeFile& work, const std::wstring& path)
{
    NativeFile target = OpenNew(path);
    if (!target)
    {
        return false;
    }
    const bool written = ReserveRoom(target, work.Length()) != Room::None && CopyWhole(work, target);
    target.Close();
    if (!written)
    {
        RemoveFile(path);
    }
    return written;
}

/// Writes finished content over a target that takes no other file's name. False if it could not be written; then the
/// target is as it was, and none is left where there was none.
bool WriteOver(NativeFile& work, const std::wstring& path)
{
    NativeFile target = OpenStanding(path);
    if (!target)
    {
        return !PathExists(path) && WriteNew(work, path);
    }
    return IsPlain(target) ? WriteOverPlain(work, target, path) : work.Rewind() && CopyRest(work, target);
}

} // namespace

std::optional<std::vector<std::wstring>> FileNames(const std::wstring& folder)
{
    std::vector<std::wstring> names;
    std::error_code failure;
    std::filesystem::directory_iterator entry(NativePath(folder), failure);
    while (!failure && entry != std::filesystem::directory_iterator())
    {
        names.push_back(WideName(entry->path().filename()));
        entry.increment(failure);
    }
    return failure ? std::nullopt : std::optional(std::move(names));
}

std::optional<std::size_t> ReadWholeFile(const std::wstring& path, const MakeRoom& makeRoom)
{
    const FileHandle file = OpenForReading(path);
    const std::optional<std::size_t> length = file ? FileLength(file.get()) : std::nullopt;
    if (!length)
    {
        return std::nullopt;
    }
    const std::size_t taken = std::fread(makeRoom(*length), 1, *length, file.get());
    if (std::ferror(file.get()) != 0)
    {
        throw CFileException(L"ファイルを読み込めません: " + path);
    }
    return taken;
}

std::optional<std::string> ReadWholeFile(const std::wstring& path)
{
    std::string content;
    const std::optional<std::size_t> taken = ReadWholeFile(path, [&](std::size_t size) {
        content.resize(size);
        return content.data();
    });
    if (!taken)
    {
        return std::nullopt;
    }
    content.resize(*taken);
    return content;
}

std::wstring_view FolderOf(std::wstring_view path)
{
    const std::size_t separator = path.find_last_of(SEPARATORS);
    return path.substr(0, separator == std::wstring_view::npos ? 0 : separator + 1);
}

WorkFile::WorkFile(std::wstring path, NativeFile file, unsigned permissions)
    : path_(std::move(path)),
      file_(std::move(file)),
      permissions_(permissions)
{}

WorkFile::WorkFile(WorkFile&& other) noexcept
    : path_(std::exchange(other.path_, {})),
      file_(std::move(other.file_)),
      permissions_(other.permissions_)
{}

WorkFile& WorkFile::operator=(WorkFile&& other) noexcept
{
    std::swap(path_, other.path_);
    std::swap(file_, other.file_);
    std::swap(permissions_, other.permissions_);
    return *this;
}

WorkFile::~WorkFile()
{
    file_.Close();
    if (!path_.empty())
    {
        RemoveFile(path_);
    }
}

std::optional<WorkFile> WorkFile::Make(const std::wstring& folder, Purpose purpose)
{
    NewFile made = MakeNewFile(folder, purpose);
    if (!made.file)
    {
        return std::nullopt;
    }
    return WorkFile(std::move(made.path), std::move(made.file), made.permissions);
}

OutputFile::OutputFile(const std::wstring& path) : path_(path), file_(OpenForWriting(path))
{
    if (!file_)
    {
        throw CFileException(L"ファイルを開けません: " + path);
    }
}

void OutputFile::Write(std::string_view bytes)
{
    if (!file_.Write(bytes))
    {
        throw CFileException(L"ファイルに書き込めません: " + path_);
    }
}

void OutputFile::Close()
{
    if (!file_.Close())
    {
        throw CFileException(L"ファイルに書き込めません: " + path_);
    }
}

ReplacementFile::ReplacementFile(const std::wstring& target, GatherPlace place)
    : target_(FollowLinks(target)),
      purpose_(PathExists(target_) ? WorkFile::Purpose::Own : WorkFile::Purpose::NewTarget),
      canBeRenamedOver_(CanBeRenamedOver(target_))
{
    if (place == GatherPlace::BesideTarget && canBeRenamedOver_)
    {
        work_ = MakeBeside(target_, purpose_);
        beside_ = work_.has_value();
    }
    if (!work_)
    {
        work_ = MakeInTemporaryFolder();
    }
    if (!work_)
    {
        throw CFileException(L"作業用ファイルを作成できません: " + target);
    }
}

void ReplacementFile::Write(std::string_view bytes)
{
    if (!work_->File().Write(bytes))
    {
        throw CFileException(L"ファイルに書き込めません: " + work_->Path());
    }
}

bool ReplacementFile::Commit()
{
    if (!work_->File().Deliver())
    {
        throw CFileException(L"ファイルに書き込めません: " + work_->Path());
    }
    const bool renamed =
        canBeRenamedOver_ && (beside_ ? RenameOver(*work_, target_) : CopyBesideAndRename(*work_, target_, purpose_));
    return renamed || WriteOver(work_->File(), target_);
}

} // namespace jlandxml
