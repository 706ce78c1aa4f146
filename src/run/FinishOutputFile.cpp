#include "run/FinishOutputFile.h"

#include "framework/Exceptions.h"
#include "framework/Files.h"
#include "framework/Window.h"
#include "run/ConversionContext.h"
#include "run/FinishedText.h"

#include <optional>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* WORK_FILE_PREFIX = L"tsx";
constexpr const wchar_t* NO_WORK_FILE = L"作業用ファイルへのアクセスに失敗しました。";
constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 20;
/// The longest file name that takes part in the name of the second work file.
constexpr std::size_t FILE_NAME_LIMIT = 256;

/// A file in the temporary folder that goes with its scope, unless it is to stay behind.
class WorkFile
{
  public:
    explicit WorkFile(std::wstring path) : path_(std::move(path)) {}
    WorkFile(const WorkFile&) = delete;
    WorkFile& operator=(const WorkFile&) = delete;
    ~WorkFile()
    {
        if (!path_.empty())
        {
            RemoveFile(path_);
        }
    }

    const std::wstring& Path() const { return path_; }
    void Keep() { path_.clear(); }

  private:
    std::wstring path_;
};

std::optional<std::wstring> CreateWorkFile()
{
    const std::optional<std::wstring> folder = TemporaryFolder();
    return folder ? CreateUniqueFile(*folder, WORK_FILE_PREFIX) : std::nullopt;
}

/// The second work file bears the target's name in the first one's folder, unless that name is taken there: by the
/// target itself or by the first work file.
std::wstring SecondWorkFileName(const std::wstring& first, const std::wstring& target)
{
    const std::wstring name(FileNameOf(target));
    if (name.empty() || name.size() > FILE_NAME_LIMIT)
    {
        throw CFileException(L"ファイル名が正しくありません: " + target);
    }
    const std::wstring folder(FolderOf(first));
    const std::wstring second = folder + name;
    const std::wstring targetFolder(FolderOf(target));
    if (second != first && !IsSameFile(targetFolder.empty() ? L"." : targetFolder, folder))
    {
        return second;
    }
    std::optional<std::wstring> unique = CreateUniqueFile(folder, WORK_FILE_PREFIX);
    if (!unique)
    {
        throw CFileException(L"ファイルを開けません: " + second);
    }
    return *std::move(unique);
}

void Rewrite(const std::wstring& from, const std::wstring& to)
{
    const FileHandle source = OpenForReading(from);
    if (!source)
    {
        throw CFileException(L"ファイルを開けません: " + from);
    }
    OutputFile target(to, OutputFile::Kind::New);
    FinishedText finished([&](std::string_view bytes) { target.Write(bytes); });
    std::string block(BLOCK_SIZE, '\0');
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), source.get()))
    {
        finished.Add({block.data(), size});
    }
    if (std::ferror(source.get()) != 0)
    {
        throw CFileException(L"ファイルを読み込めません: " + from);
    }
    finished.End();
    target.Close();
}

} // namespace

bool FinishOutputFile(const std::wstring& targetPath, ConversionContext& context)
{
    std::optional<std::wstring> created = CreateWorkFile();
    if (!created)
    {
        GetWindowSystem().ShowMessage(NO_WORK_FILE, MessageIcon::Exclamation);
        return false;
    }
    WorkFile first(*std::move(created));
    WcXmAppDocument* const document = context.document.appDocument.get();
    if (document == nullptr || !document->EnsureDeclaration() || !document->SaveDocument(first.Path()))
    {
        first.Keep();
        return false;
    }
    const WorkFile second(SecondWorkFileName(first.Path(), targetPath));
    Rewrite(first.Path(), second.Path());
    return ReplaceWithCopy(second.Path(), targetPath);
}

} // namespace jlandxml
