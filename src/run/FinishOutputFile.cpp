#include "run/FinishOutputFile.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "run/ConversionContext.h"
#include "run/FinishedText.h"
#include "windows/Window.h"

#include <optional>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* WORK_FILE_PREFIX = L"tsx";
constexpr const wchar_t* NO_WORK_FILE = L"作業用ファイルへのアクセスに失敗しました。";
constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 20;

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

bool Rewrite(const std::wstring& work, const std::wstring& target, GatherPlace place)
{
    const FileHandle source = OpenForReading(work);
    if (!source)
    {
        throw CFileException(L"ファイルを開けません: " + work);
    }
    ReplacementFile replacement(target, place);
    FinishedText finished([&](std::string_view bytes) { replacement.Write(bytes); });
    std::string block(BLOCK_SIZE, '\0');
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), source.get()))
    {
        finished.Add({block.data(), size});
    }
    if (std::ferror(source.get()) != 0)
    {
        throw CFileException(L"ファイルを読み込めません: " + work);
    }
    finished.End();
    return replacement.Commit();
}

/// Where the target's volume has no room for a second file beside it, the temporary folder may have.
bool RewriteWhereThereIsRoom(const std::wstring& work, const std::wstring& target)
{
    try
    {
        return Rewrite(work, target, GatherPlace::BesideTarget);
    }
    catch (const CFileException&)
    {
        return Rewrite(work, target, GatherPlace::TemporaryFolder);
    }
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
    WorkFile work(*std::move(created));
    WcXmAppDocument* const document = context.document.appDocument.get();
    if (document == nullptr || !document->EnsureDeclaration() || !document->SaveDocument(work.Path()))
    {
        work.Keep();
        return false;
    }
    return RewriteWhereThereIsRoom(work.Path(), targetPath);
}

} // namespace jlandxml
