#include "run/FinishOutputFile.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/WriteSignals.h"
#include "run/ConversionContext.h"
#include "run/FinishedText.h"
#include "windows/Window.h"

#include <optional>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* NO_WORK_FILE = L"作業用ファイルへのアクセスに失敗しました。";
constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 20;

/// A file in the temporary folder that the tree is saved to by its name; nothing if there is no place for it.
std::optional<WorkFile> MakeWorkFile()
{
    const std::optional<std::wstring> folder = TemporaryFolder();
    std::optional<WorkFile> work = folder ? WorkFile::Make(*folder) : std::nullopt;
    if (work)
    {
        work->File().Close();
    }
    return work;
}

/// The parser may open and write the file by itself, and its writes raise no signal either.
bool SaveTree(WcXmAppDocument* document, const std::wstring& path)
{
    const WriteSignals signals;
    return document != nullptr && document->EnsureDeclaration() && document->SaveDocument(path);
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
    std::optional<WorkFile> work = MakeWorkFile();
    if (!work)
    {
        GetWindowSystem().ShowMessage(NO_WORK_FILE);
        return false;
    }
    if (!SaveTree(context.document.appDocument.get(), work->Path()))
    {
        work->Keep();
        return false;
    }
    return RewriteWhereThereIsRoom(work->Path(), targetPath);
}

} // namespace jlandxml
