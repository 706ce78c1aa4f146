#include "cli/CommandLine.h"

#include "base/Streams.h"
#include "base/Text.h"
#include "base/Warnings.h"
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
#include <utility>
#include <vector>

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
        TellLine(L"", PlainLine("no-module", L"モジュールを読み込めません", ModulePath()));
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

/// What stands in the way of all work folders is told once, and stands in the JSON of each.
ExitStatus TellOfAll(const ConvertOptions& options, ExitStatus status, std::vector<ToldLine> findings)
{
    RunResult result;
    result.status = status;
    result.findings = std::move(findings);
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

/// Whether an output folder is wanted.
bool WritesInto(const ConvertOptions& options)
{
    return !options.outputFolder.empty() && !options.dryRun;
}

ToldLine NoOutputFolderLine(const std::wstring& folder, int error)
{
    ToldLine line =
        PlainLine("no-output-folder", L"出力フォルダーを作れません", folder + L"（" + ReasonText(error) + L"）");
    line.file = folder;
    return line;
}

ExitStatus RunOptions(const ConvertOptions& options, const std::wstring& program)
{
    if (options.dialog)
    {
        return CallHostModule(options);
    }
    if (const int error = WritesInto(options) ? MakeFolder(options.outputFolder) : 0; error != 0)
    {
        return TellOfAll(options, ExitStatus::NoFile, {NoOutputFolderLine(options.outputFolder, error)});
    }
    try
    {
        const Json& settings = ReadAllSettings(options.settingsFiles);
        return options.workFolders.size() > 1 ? ConvertMany(options, settings, program) : ConvertOne(options, settings);
    }
    catch (const SettingsError& error)
    {
        return TellOfAll(options, ExitStatus::WrongUsage, SettingsLines(error, options.settingsFiles.size() > 1));
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
