#include "run/FinishOutputFile.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/WriteSignals.h"
#include "run/ConversionContext.h"
#include "run/FinishedDocument.h"
#include "windows/Window.h"

#include <optional>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* NO_WORK_FILE = L"作業用ファイルへのアクセスに失敗しました。";

/// A file in the temporary folder that the tree is saved to by its name; nothing if there is no place for it.
std::optional<WorkFile> MakeWorkFile()
{
    const std::optional<std::wstring> folder = TemporaryFolder();
    return folder ? WorkFile::Make(*folder) : std::nullopt;
}

bool PrintTo(const WcXmAppDocument& document, const std::wstring& target, GatherPlace place)
{
    ReplacementFile replacement(target, place);
    PrintFinished(document, [&](std::string_view bytes) { replacement.Write(bytes); });
    return replacement.Commit();
}

/// Where the target's volume has no room for a second file beside it, the temporary folder may have.
bool PrintWhereThereIsRoom(const WcXmAppDocument& document, const std::wstring& target)
{
    try
    {
        return PrintTo(document, target, GatherPlace::BesideTarget);
    }
    catch (const CFileException&)
    {
        return PrintTo(document, target, GatherPlace::TemporaryFolder);
    }
}

/// The parser may open and write the file by itself, and its writes raise no signal either.
bool SaveTree(WcXmAppDocument& document, const std::wstring& path)
{
    const WriteSignals signals;
    return document.SaveDocument(path);
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
    WcXmAppDocument* const document = context.document.appDocument.get();
    if (document == nullptr || !document->EnsureDeclaration())
    {
        work->Keep();
        return false;
    }
    try
    {
        return PrintWhereThereIsRoom(*document, targetPath);
    }
    catch (const CFileException&)
    {
        // Where not even the temporary folder takes the document, nobody is told, and what it took stays.
        if (SaveTree(*document, work->Path()))
        {
            throw;
        }
        work->Keep();
        return false;
    }
}

} // namespace jlandxml
