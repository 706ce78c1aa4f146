#include "base/Files.h"

#include "base/Exceptions.h"
#include "base/FilesSystem.h"

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

constexpr const wchar_t* WORK_FILE_PREFIX = L"tsx";

std::size_t FileNameStart(std::wstring_view path)
{
    const std::size_t separator = path.find_last_of(SEPARATORS);
    return separator == std::wstring_view::npos ? 0 : separator + 1;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::wstring& path)
{
    const FileHandle file = OpenForReading(path);
    const std::optional<std::size_t> length = file ? FileLength(file.get()) : std::nullopt;
    if (!length)
    {
        return std::nullopt;
    }
    std::string content(*length, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    if (std::ferror(file.get()) != 0)
    {
        throw CFileException(L"ファイルを読み込めません: " + path);
    }
    return content;
}

std::wstring_view FileNameOf(std::wstring_view path)
{
    return path.substr(FileNameStart(path));
}

std::wstring_view FolderOf(std::wstring_view path)
{
    return path.substr(0, FileNameStart(path));
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
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
    {
        throw CFileException(L"ファイルに書き込めません: " + path_);
    }
}

void OutputFile::Close()
{
    const bool flushed = std::fflush(file_.get()) == 0;
    if (std::fclose(file_.release()) != 0 || !flushed)
    {
        throw CFileException(L"ファイルに書き込めません: " + path_);
    }
}

ReplacementFile::ReplacementFile(const std::wstring& target, GatherPlace place) : target_(FollowLinks(target))
{
    std::optional<std::wstring> work;
    if (place == GatherPlace::BesideTarget && CanBeRenamedOver(target_))
    {
        const std::wstring_view folder = FolderOf(target_);
        work = CreateUniqueFile(folder.empty() ? CURRENT_FOLDER : std::wstring(folder), WORK_FILE_PREFIX);
        beside_ = work.has_value();
    }
    if (!work)
    {
        const std::optional<std::wstring> temporary = TemporaryFolder();
        work = temporary ? CreateUniqueFile(*temporary, WORK_FILE_PREFIX) : std::nullopt;
    }
    if (!work)
    {
        throw CFileException(L"作業用ファイルを作成できません: " + target);
    }
    work_ = *std::move(work);
    file_.emplace(work_);
}

ReplacementFile::~ReplacementFile()
{
    file_.reset();
    if (!work_.empty())
    {
        RemoveFile(work_);
    }
}

void ReplacementFile::Write(std::string_view bytes)
{
    file_->Write(bytes);
}

bool ReplacementFile::Commit()
{
    file_->Close();
    if (beside_ && RenameOver(work_, target_))
    {
        work_.clear();
        return true;
    }
    return CopyOver(work_, target_);
}

} // namespace jlandxml
