#include "base/Files.h"

#include "base/Exceptions.h"
#include "base/FilesSystem.h"
#include "base/Text.h"
#include "base/Warnings.h"

#include <cerrno>
#include <new>
#include <utility>

namespace jlandxml
{

namespace
{

#ifdef _WIN32
constexpr std::wstring_view SEPARATORS = L"/\\:";
constexpr std::wstring_view CURRENT_FOLDER = L".\\";
#else
constexpr std::wstring_view SEPARATORS = L"/";
constexpr std::wstring_view CURRENT_FOLDER = L"./";
#endif

constexpr std::size_t COPY_BLOCK_SIZE = std::size_t{1} << 20;

std::optional<WorkFile> MakeBeside(const std::wstring& target, WorkFile::Purpose purpose)
{
    const std::wstring_view folder = FolderOf(target);
    return WorkFile::Make(std::wstring(folder.empty() ? CURRENT_FOLDER : folder), purpose);
}

std::optional<WorkFile> MakeInTemporaryFolder()
{
    const std::optional<std::wstring> folder = TemporaryFolder();
    return folder ? WorkFile::Make(*folder) : std::nullopt;
}

/// What copying one open file to another came to.
enum class Copied
{
    Whole,
    Nothing, ///< the target is as it was
    Part
};

/// Appends the rest of one open file to another.
Copied CopyRest(NativeFile& source, NativeFile& target)
{
    std::string block(COPY_BLOCK_SIZE, '\0');
    for (Copied failed = Copied::Nothing;; failed = Copied::Part)
    {
        const std::optional<std::size_t> taken = source.Read(block.data(), block.size());
        if (!taken)
        {
            return failed;
        }
        if (*taken == 0)
        {
            return Copied::Whole;
        }
        if (!target.Write({block.data(), *taken}))
        {
            return Copied::Part;
        }
    }
}

/// Writes one open file over another, which ends up with the same content and length, safe on its volume.
Copied CopyWhole(NativeFile& source, NativeFile& target)
{
    const std::optional<std::uint64_t> length = source.Length();
    if (!length || !source.Rewind() || !target.Rewind())
    {
        return Copied::Nothing;
    }
    const Copied copied = CopyRest(source, target);
    return copied != Copied::Whole || (target.Shorten(*length) && target.Sync()) ? copied : Copied::Part;
}

/// Gives the target content that was gathered elsewhere by way of a file beside it.
bool CopyBesideAndRename(WorkFile& work, const std::wstring& target, WorkFile::Purpose purpose)
{
    std::optional<WorkFile> beside = MakeBeside(target, purpose);
    const std::optional<std::uint64_t> length = work.File().Length();
    return beside && length && ReserveRoom(beside->File(), *length) != Room::None && work.File().Rewind() &&
           CopyRest(work.File(), beside->File()) == Copied::Whole && beside->File().Deliver() &&
           RenameOver(*beside, target);
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
    return backup && CopyRest(source, backup->File()) == Copied::Whole && backup->File().Deliver() ? std::move(backup)
                                                                                                   : std::nullopt;
}

/// Puts the old content back. Without the new one there is as much room as there was; what can't be put back all the
/// same, be it for want of memory, stays in the temporary folder.
void PutBack(WorkFile& former, NativeFile& target)
{
    try
    {
        const Copied copied = CopyWhole(former.File(), target);
        if (copied == Copied::Whole ||
            (copied == Copied::Part && target.Shorten(0) && CopyWhole(former.File(), target) == Copied::Whole))
        {
            return;
        }
    }
    catch (const std::bad_alloc&)
    {}
    WarnOf(WarningCause::TargetNotRestored, former.Path());
    former.Leave();
}

/// Writes over a plain file, once its old content is safe or the room for the new one is certain.
bool WriteOverPlain(NativeFile& work, NativeFile& target, const std::wstring& path)
{
    const std::optional<std::uint64_t> standing = target.Length();
    const std::optional<std::uint64_t> length = work.Length();
    if (!standing || !length)
    {
        return false;
    }
    const Room room = ReserveRoom(target, *length);
    std::optional<WorkFile> former = room != Room::None ? Backup(path) : std::nullopt;
    if (!former && room != Room::Certain)
    {
        target.Shorten(*standing); // gives back what was set aside
        return false;
    }
    const Copied copied = CopyWhole(work, target);
    if (copied == Copied::Part && former)
    {
        PutBack(*former, target);
    }
    return copied == Copied::Whole;
}

/// Writes a target that doesn't exist, in a folder that lets no file be renamed.
bool WriteNew(NativeFile& work, const std::wstring& path)
{
    NativeFile target = OpenNew(path);
    if (!target)
    {
        return false;
    }
    const std::optional<std::uint64_t> length = work.Length();
    const bool written =
        length && ReserveRoom(target, *length) != Room::None && CopyWhole(work, target) == Copied::Whole;
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
    switch (KindOf(target))
    {
    case FileKind::Plain:
        return WriteOverPlain(work, target, path);
    case FileKind::Other:
        return work.Rewind() && CopyRest(work, target) == Copied::Whole;
    default:
        return false;
    }
}

} // namespace

FileHandle OpenForReading(const std::wstring& path, std::size_t& length)
{
    FileHandle file = OpenForReading(path);
    const std::optional<std::size_t> known = file != nullptr ? FileLength(file.get()) : std::nullopt;
    if (file != nullptr && !known)
    {
        WarnOf(WarningCause::UnreadableFile, path, EIO);
        file.reset();
    }
    length = known.value_or(0);
    return file;
}

std::optional<std::size_t> ReadWholeFile(const std::wstring& path, const MakeRoom& makeRoom)
{
    std::size_t length = 0;
    const FileHandle file = OpenForReading(path, length);
    if (file == nullptr)
    {
        return std::nullopt;
    }
    const std::size_t taken = std::fread(makeRoom(length), 1, length, file.get());
    // Content that ends early is cut by somebody who is just writing the file.
    if (taken != length)
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

void WorkFile::Leave()
{
    Protect(file_);
    Keep();
}

std::optional<WorkFile> WorkFile::Make(const std::wstring& folder, Purpose purpose)
{
    RemoveStaleFiles(folder);
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
