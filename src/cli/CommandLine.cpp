#include "cli/CommandLine.h"

#include "cli/HostCall.h"
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

/// What the command line asks for.
struct Options
{
    std::wstring workFolder;
    std::wstring settingsFile;
    std::wstring outputFile;
    std::optional<std::int32_t> routes;
    bool printSettings = false;
    bool dialog = false;
};

/// The arguments as options, or the status with which the program ends at once.
struct Parsed
{
    Options options;
    std::optional<ExitStatus> ends;
};

Parsed Parse(const std::vector<std::wstring>& arguments)
{
    std::string workFolder;
    std::string settings;
    std::string output;
    std::int32_t routes = 0;
    Parsed parsed;

    CLI::App app("LandXMLの作業フォルダーからJ-LandXMLファイルを出力します。", "jlandxml-convert");
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "jlandxml-convert " JLANDXML_VERSION, "バージョンを表示します");
    app.set_help_flag("--help", "この説明を表示します");
    app.add_option("WORK_FOLDER", workFolder, "Landxml_temp.xmlのあるフォルダー")->required();
    const CLI::Option* const routesOption =
        app.add_option("-n,--routes", routes, "路線数（既定値: サイドファイルのある最大の番号）");
    app.add_option("-s,--settings", settings, "設定ファイル（JSON、UTF-8）");
    const CLI::Option* const outputOption =
        app.add_option("-o,--output", output, "出力ファイル（既存のファイルは置き換えます）");
    app.add_flag("--print-settings", parsed.options.printSettings, "現在の設定を設定ファイルの形で表示します");
    app.add_flag("--dialog", parsed.options.dialog, "ホストと同じようにモジュールを呼び出します");
    app.final_callback([&] {
        if (outputOption->count() == 0 && !parsed.options.printSettings && !parsed.options.dialog)
        {
            throw CLI::RequiredError("--output");
        }
    });

    std::vector<std::string> narrow;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(narrow),
                   [](const std::wstring& argument) { return Utf8FromWide(argument); });
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

std::int32_t RouteCount(const Options& options)
{
    return options.routes ? *options.routes : CountRoutes(options.workFolder);
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

ProjectSettings SettingsOf(const FViewLandXML& model)
{
    return {model.project.name, model.project.projectPhase, model.project.applicationCriterion,
            model.coordinateSystem.verticalDatum};
}

/// Runs the conversion, or prints what it would go by. Throws SettingsError.
void Convert(const Options& options)
{
    ProjectSettings settings;
    if (!options.settingsFile.empty())
    {
        settings = ReadSettings(options.settingsFile);
    }
    FViewLandXML& model = GetConversionContext().model;
    try
    {
        LoadRun(options.workFolder + L"/Landxml_temp.xml");
        LoadSideFiles(options.workFolder, RouteCount(options));
        Apply(settings, model);
        if (options.printSettings)
        {
            WriteStandardOutput(PrintSettings(SettingsOf(model)));
            return;
        }
        ExportRun(options.outputFile);
    }
    catch (const CException& exception)
    {
        GetWindowSystem().ShowMessage(ErrorText(exception), MessageIcon::None);
    }
}

ExitStatus Report(const Options& options, const ScriptedWindowSystem& windows)
{
    for (const ShownMessage& message : windows.Messages())
    {
        WriteStandardError(message.text + L"\n");
    }
    if (!windows.Messages().empty())
    {
        return ExitStatus::NoFile;
    }
    if (options.printSettings || GetConversionContext().fileWritten)
    {
        return ExitStatus::FileWritten;
    }
    WriteStandardError(std::wstring(NO_FILE) + L"\n");
    return ExitStatus::NoFile;
}

/// Puts the scripted windows in the place of native ones for the length of a run.
class WindowsScope
{
  public:
    explicit WindowsScope(WindowSystem& windows) : former_(SetWindowSystem(&windows)) {}
    WindowsScope(const WindowsScope&) = delete;
    WindowsScope& operator=(const WindowsScope&) = delete;
    ~WindowsScope() { SetWindowSystem(former_); }

  private:
    WindowSystem* former_;
};

ExitStatus RunScripted(const Options& options)
{
    ScriptedWindowSystem windows;
    const WindowsScope scope(windows);
    try
    {
        Convert(options);
    }
    catch (const SettingsError& error)
    {
        WriteStandardError(WideFromUtf8(error.what()) + L"\n");
        return ExitStatus::WrongUsage;
    }
    return Report(options, windows);
}

ExitStatus RunModule(const Options& options)
{
    if (!CallModule(options.workFolder, RouteCount(options)))
    {
        WriteStandardError(L"モジュールを読み込めません: " + ModulePath() + L"\n");
        return ExitStatus::NoFile;
    }
    return ExitStatus::FileWritten;
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
    return parsed.options.dialog ? RunModule(parsed.options) : RunScripted(parsed.options);
}

} // namespace jlandxml
