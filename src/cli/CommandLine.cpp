#include "cli/CommandLine.h"

#include "base/Streams.h"
#include "base/Text.h"
#include "cli/ConvertOptions.h"
#include "cli/HostCall.h"
#include "cli/ManyFolders.h"
#include "cli/Program.h"
#include "cli/Settings.h"
#include "cli/Telling.h"
#include "cli/Usage.h"
#include "cli/WorkFolderRun.h"

#include <algorithm>
#include <exception>

namespace jlandxml
{

namespace
{

/// The settings of all files, merged. They stay until the process ends: freeing them asks for memory, and the file is
/// written by then. Throws SettingsError with what is wrong in any of the files.
const Json& ReadAllSettings(const std::vector<std::wstring>& files)
{
    static Json& settings = *new Json;
    settings = Json::object();
    std::vector<SettingsFault> faults;
    for (const std::wstring& file : files)
    {
        try
        {
            Json read = ReadSettings(file);
            if (files.size() == 1)
            {
                settings = std::move(read);
            }
            else
            {
                MergeSettings(settings, read);
            }
        }
        catch (const SettingsError& error)
        {
            faults.insert(faults.end(), error.Faults().begin(), error.Faults().end());
        }
    }
    if (!faults.empty())
    {
        throw SettingsError(std::move(faults));
    }
    return settings;
}

ExitStatus CallHostModule(const ConvertOptions& options)
{
    const std::wstring& folder = options.workFolders.front();
    if (!IsFolder(folder))
    {
        TellLine(L"", NoFolderLine(folder));
        return ExitStatus::WrongUsage;
    }
    switch (CallModule(folder, RouteCount(options, folder)))
    {
    case ModuleCall::NotLoaded:
        WriteStandardError(L"モジュールを読み込めません: " + ModulePath() + L"\n");
        return ExitStatus::NoFile;
    case ModuleCall::NoDisplay: // which the module has told
        return ExitStatus::NoFile;
    case ModuleCall::Made:
        break;
    }
    return ExitStatus::FileWritten;
}

ExitStatus ConvertOne(const ConvertOptions& options, const Json& settings)
{
    RunResult result = RunWorkFolder(options, options.workFolders.front(), settings);
    if (options.quiet)
    {
        result.warnings.clear();
    }
    TellWarnings(result.warnings);
    TellFindings(result.findings);
    if (options.json && !WriteAnswer(JsonLine(result)))
    {
        return ExitStatus::NoFile;
    }
    return result.status;
}

/// What is wrong with the settings of all work folders is told once, and stands in the JSON of each.
ExitStatus TellWrongSettings(const ConvertOptions& options, const SettingsError& error)
{
    RunResult result;
    result.status = ExitStatus::WrongUsage;
    result.findings = SettingsLines(error, options.settingsFiles.size() > 1);
    TellFindings(result.findings);
    for (const std::wstring& folder : options.workFolders)
    {
        result.folder = folder;
        result.output = OutputOf(options, folder);
        if (options.json && !WriteAnswer(JsonLine(result)))
        {
            return ExitStatus::NoFile;
        }
    }
    return result.status;
}

ExitStatus RunOptions(const ConvertOptions& options, const std::wstring& program)
{
    if (options.dialog)
    {
        return CallHostModule(options);
    }
    if (!options.outputFolder.empty() && !options.dryRun && !MakeFolder(options.outputFolder))
    {
        TellLine(L"", PlainLine("no-output-folder", options.outputFolder + L": フォルダーを作れません"));
        return ExitStatus::NoFile;
    }
    try
    {
        const Json& settings = ReadAllSettings(options.settingsFiles);
        return options.workFolders.size() > 1 ? ConvertMany(options, settings, program) : ConvertOne(options, settings);
    }
    catch (const SettingsError& error)
    {
        return TellWrongSettings(options, error);
    }
}

} // namespace

ExitStatus RunCommandLine(const std::vector<std::wstring>& arguments, const std::wstring& program)
{
    try
    {
        const ParsedConvert parsed = ParseConvert(arguments);
        return parsed.ends ? *parsed.ends : RunOptions(parsed.options, program);
    }
    catch (const std::exception&)
    {
        // Not the module's own failures, which are messages; such as memory that isn't there.
        WriteStandardError(NO_FILE_LINE);
        return ExitStatus::NoFile;
    }
}

} // namespace jlandxml
