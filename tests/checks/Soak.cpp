// Calls the module's function again and again over generated folders in one process, and holds what the process has
// after the last calls against what it had after the first ones.
//
//   soak CALLS
//
// Half of the folders are as a host writes them, in the others something is amiss; the settings act as the user. Status
// 0: memory, open files and threads are as they were.

#include "base/Text.h"
#include "cli/SettingsUser.h"
#include "run/ConversionContext.h"
#include "run/module/ExecuteQuorvane.h"
#include "sidefiles/LoadSideFiles.h"
#include "support/TemporaryFolder.h"
#include "support/generator/WorkFolderGenerator.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <malloc.h>

namespace
{

using namespace jlandxml;

constexpr std::uint64_t SEED = 20;
/// Different folders; they come round again and again.
constexpr int FOLDERS = 100;

struct Holdings
{
    std::size_t bytes;
    std::size_t files;
    std::size_t threads;
};

std::size_t CountEntries(const char* folder)
{
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

Holdings CountHoldings()
{
    return {::mallinfo2().uordblks, CountEntries("/proc/self/fd"), CountEntries("/proc/self/task")};
}

void Work(ScriptedDialog& dialog, const Json& settings)
{
    try
    {
        SettingsUser(dialog).Act(settings);
    }
    catch (const SettingsError&)
    {
        // What was done up to the error is done.
    }
    dialog.PressEnter();
}

void Call(const TestFolder& scratch, int number)
{
    const std::filesystem::path path = scratch.Path() / std::to_string(number);
    if (!std::filesystem::exists(path))
    {
        generator::WriteFiles(generator::MakeWorkFolder(SEED, static_cast<std::uint32_t>(number)).files, path);
    }
    Json settings = Json::object();
    try
    {
        settings = ReadSettings(WideName(path / "settings.json"));
    }
    catch (const SettingsError&)
    {
        // Some are broken on purpose.
    }
    ScriptedWindowSystem windows;
    windows.SetUser([&](ScriptedDialog& dialog) { Work(dialog, settings); });
    windows.SetSaveFileAnswer([&](const SaveFileRequest&) { return scratch.Name(L"out.xml"); });
    SetWindowSystem(&windows);
    const std::wstring folder = WideName(path);
    ExecuteQuorvane(folder.c_str(), CountRoutes(folder));
    SetWindowSystem(nullptr);
    // By itself the table of surfaces takes up the rows of every run.
    GetConversionContext().model.surfaces.outPutCSS = {};
    GetConversionContext().model = FViewLandXML();
    GetConversionContext().loadedModel = FViewLandXML();
    GetConversionContext().document.Close();
}

} // namespace

int main(int count, char** values)
{
    const int calls = count > 1 ? std::atoi(values[1]) : 10 * FOLDERS;
    try
    {
        const TestFolder scratch;
        const TestFolder temporary;
        const TemporaryFolderOverride temporaryFolder(temporary.Path());
        Holdings first{};
        for (int call = 0; call < calls; ++call)
        {
            Call(scratch, 1 + call % FOLDERS);
            if (call + 1 == 2 * FOLDERS)
            {
                first = CountHoldings();
            }
        }
        const Holdings last = CountHoldings();
        const std::size_t left = temporary.Files().size();
        std::fprintf(stderr,
                     "%d calls: %zu bytes, %zu files, %zu threads after the first %d; %zu, %zu, %zu at the end; %zu "
                     "files left\n",
                     calls, first.bytes, first.files, first.threads, 2 * FOLDERS, last.bytes, last.files, last.threads,
                     left);
        const bool same =
            last.bytes <= first.bytes + 4096 && last.files == first.files && last.threads == first.threads && left == 0;
        return same ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    catch (const std::exception& exception)
    {
        std::fprintf(stderr, "%s\n", exception.what());
        return EXIT_FAILURE;
    }
}
