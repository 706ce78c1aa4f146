// A whole run: the work file, the settings and one route's side files from the same bytes, the user as the settings
// have him. Nothing stays in the temporary folder, and what is written can be read again.

#include "FuzzInput.h"
#include "cli/SettingsUser.h"
#include "run/ConversionContext.h"
#include "run/module/ExecuteQuorvane.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <cstdlib>
#include <optional>

namespace
{

using namespace jlandxml;

constexpr const wchar_t* SIDE_FILE_NAMES[] = {L"intermediatePts_temp_1.csv", L"widthStake_temp_1.csv",
                                              L"superElevation_temp_1.csv", L"widening_temp_1.csv"};

std::optional<Json> SettingsIn(const TestFolder& folder, const std::string& json)
{
    try
    {
        return ReadSettings(folder.Write(L"settings.json", json));
    }
    catch (const SettingsError&)
    {
        return std::nullopt;
    }
}

void WorkAsSettings(ScriptedDialog& dialog, const std::optional<Json>& settings)
{
    try
    {
        SettingsUser user(dialog);
        user.Act(settings.value_or(Json::object()));
        user.Print();
    }
    catch (const SettingsError&)
    {
        // What was done up to the error is done.
    }
    dialog.PressEnter();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TestFolder folder;
    static const TestFolder temporary;
    static const TemporaryFolderOverride temporaryFolder(temporary.Path());
    const std::vector<std::string> files = fuzz::Files(fuzz::Bytes(data, size), 2 + std::size(SIDE_FILE_NAMES));
    folder.Write(L"Landxml_temp.xml", files[0]);
    const std::optional<Json> settings = SettingsIn(folder, files[1]);
    for (std::size_t index = 0; index < std::size(SIDE_FILE_NAMES); ++index)
    {
        folder.Write(SIDE_FILE_NAMES[index], files[2 + index]);
    }
    ScriptedWindowSystem windows;
    windows.SetUser([&](ScriptedDialog& dialog) { WorkAsSettings(dialog, settings); });
    windows.SetSaveFileAnswer([&](const SaveFileRequest&) { return folder.Name(L"out.xml"); });
    SetWindowSystem(&windows);
    GetConversionContext().fileWritten = false;
    ExecuteQuorvane(folder.Name().c_str(), 1);
    SetWindowSystem(nullptr);
    if (!temporary.Files().empty())
    {
        std::abort();
    }
    WcXmDocument finished;
    if (GetConversionContext().fileWritten &&
        !(finished.Create() && finished.appDocument->LoadDocument(folder.Name(L"out.xml"))))
    {
        std::abort();
    }
    // The table of surfaces outlives a run on purpose; without end it would be taken for a leak.
    GetConversionContext().model = FViewLandXML();
    return 0;
}
