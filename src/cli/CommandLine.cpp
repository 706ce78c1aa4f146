#include "cli/CommandLine.h"

#include "cli/Settings.h"
#include "framework/Exceptions.h"
#include "framework/Files.h"
#include "framework/Streams.h"
#include "framework/Text.h"
#include "framework/scripted/ScriptedWindowSystem.h"
#include "run/ConversionContext.h"
#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "run/LoadSideFiles.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* NO_FILE = L"ファイルは出力されませんでした。";

/// The arguments as options, or the status with which the program ends at once.
struct Parsed
{
    CommandLineOptions options;
    std::optional<ExitStatus> ends;
};

Parsed Parse(const std::vector<std::wstring>& arguments)
{
    std::string workFolder;
    std::string settings;
    std::string output;
    int routes = 0;

    CLI::App app("LandXMLの作業フォルダーからJ-LandXMLファイルを出力します。", "jlandxml-convert");
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "jlandxml-convert " JLANDXML_VERSION);
    app.set_help_flag("--help", "この説明を表示します");
    app.add_option("WORK_FOLDER", workFolder, "Landxml_temp.xmlのあるフォルダー")->required();
    CLI::Option* const routesOption =
        app.add_option("-n,--routes", routes, "路線数（既定値: サイドファイルのある最大の番号）");
    app.add_option("-s,--settings", settings, "設定ファイル（JSON、UTF-8）");
    app.add_option("-o,--output", output, "出力ファイル（既存のファイルは置き換えます）")->required();

    std::vector<std::string> narrow;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(narrow),
                   [](const std::wstring& argument) { return Utf8FromWide(argument); });
    Parsed parsed;
    try
    {
        app.parse(narrow);
    }
    catch (const CLI::ParseError& error)
    {
        std::ostringstream out;
        std::ostringstream err;
        const bool asked = app.exit(error, out, err) == 0;
        WriteStandardOutput(WideFromUtf8(out.str()));
        WriteStandardError(WideFromUtf8(err.str()));
        parsed.ends = asked ? ExitStatus::FileWritten : ExitStatus::WrongUsage;
        return parsed;
    }
    parsed.options.workFolder = WideFromUtf8(workFolder);
    parsed.options.settingsFile = WideFromUtf8(settings);
    parsed.options.outputFile = WideFromUtf8(output);
    if (routesOption->count() > 0)
    {
        parsed.options.routes = routes;
    }
    return parsed;
}

void Apply(const ProjectSettings& settings, FViewLandXML& model)
{
    const auto take = [](const std::optional<std::wstring>& value, std::wstring& field) {
        if (value)
        {
            field = *value;
        }
    };
    take(settings.projectName, model.project.name);
    take(settings.projectPhase, model.project.projectPhase);
    take(settings.applicationCriterion, model.project.applicationCriterion);
    take(settings.verticalDatum, model.coordinateSystem.verticalDatum);
}

void Convert(const CommandLineOptions& options)
{
    ProjectSettings settings;
    if (!options.settingsFile.empty())
    {
        settings = ReadSettings(options.settingsFile);
    }
    try
    {
        LoadRun(options.workFolder + L"/Landxml_temp.xml");
        LoadSideFiles(options.workFolder, options.routes ? *options.routes : CountRoutes(options.workFolder));
        Apply(settings, GetConversionContext().model);
        ExportRun(options.outputFile);
    }
    catch (const CException& exception)
    {
        GetWindowSystem().ShowMessage(ErrorText(exception), MessageIcon::None);
    }
}

ExitStatus Report(const ScriptedWindowSystem& windows)
{
    for (const ShownMessage& message : windows.Messages())
    {
        WriteStandardError(message.text + L"\n");
    }
    const bool written = GetConversionContext().fileWritten;
    if (windows.Messages().empty() && !written)
    {
        WriteStandardError(std::wstring(NO_FILE) + L"\n");
    }
    return written && windows.Messages().empty() ? ExitStatus::FileWritten : ExitStatus::NoFile;
}

} // namespace

ExitStatus RunCommandLine(const std::vector<std::wstring>& arguments)
{
    const Parsed parsed = Parse(arguments);
    if (parsed.ends)
    {
        return *parsed.ends;
    }
    if (!PathExists(parsed.options.workFolder))
    {
        WriteStandardError(parsed.options.workFolder + L": 作業フォルダーがありません。\n");
        return ExitStatus::WrongUsage;
    }
    ScriptedWindowSystem windows;
    SetWindowSystem(&windows);
    try
    {
        Convert(parsed.options);
    }
    catch (const SettingsError& error)
    {
        WriteStandardError(WideFromUtf8(error.what()) + L"\n");
        SetWindowSystem(nullptr);
        return ExitStatus::WrongUsage;
    }
    SetWindowSystem(nullptr);
    return Report(windows);
}

} // namespace jlandxml
