#include "cli/CommandLine.h"

#include "cli/HostCall.h"
#include "cli/SettingsUser.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "framework/Files.h"
#include "framework/Streams.h"
#include "framework/Text.h"
#include "framework/scripted/ScriptedWindowSystem.h"
#include "run/ConversionContext.h"
#include "run/ExecuteQuorvane.h"
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

/// A run whose user is a settings file: what it does at the windows, and what it came to see there.
class BatchRun
{
  public:
    BatchRun(const Options& options, const Json& settings) : options_(options), settings_(settings)
    {
        windows_.SetUser([this](ScriptedDialog& dialog) { Work(dialog); });
        windows_.SetSaveFileAnswer([this](const SaveFileRequest&) { return options_.outputFile; });
    }

    ExitStatus Run()
    {
        const WindowsScope scope(windows_);
        ExecuteQuorvane(options_.workFolder.c_str(), RouteCount(options_));
        return Report();
    }

  private:
    void Work(ScriptedDialog& dialog)
    {
        if (&dialog.Template() == &JLandXMLErrorDlg::TEMPLATE)
        {
            findings_ = dialog.AddedEntries(JLandXMLErrorDlg::MESSAGE_LIST);
            dialog.PressEnter();
            return;
        }
        try
        {
            WorkMainDialog(dialog);
        }
        catch (const SettingsError& error)
        {
            settingsError_ = WideFromUtf8(error.what());
        }
    }

    void WorkMainDialog(ScriptedDialog& dialog)
    {
        SettingsUser user(dialog);
        user.Act(settings_);
        if (options_.printSettings)
        {
            printed_ = WideFromUtf8(user.Print().dump(2));
        }
        else
        {
            dialog.PressEnter();
        }
    }

    ExitStatus Report() const
    {
        for (const ShownMessage& message : windows_.Messages())
        {
            WriteStandardError(message.text + L"\n");
        }
        if (!windows_.Messages().empty())
        {
            return ExitStatus::NoFile;
        }
        if (!settingsError_.empty())
        {
            WriteStandardError(settingsError_ + L"\n");
            return ExitStatus::WrongUsage;
        }
        for (const std::wstring& finding : findings_)
        {
            WriteStandardError(finding + L"\n");
        }
        if (!findings_.empty())
        {
            return ExitStatus::Findings;
        }
        if (options_.printSettings)
        {
            WriteStandardOutput(printed_ + L"\n");
            return ExitStatus::FileWritten;
        }
        if (!GetConversionContext().fileWritten)
        {
            WriteStandardError(std::wstring(NO_FILE) + L"\n");
            return ExitStatus::NoFile;
        }
        return ExitStatus::FileWritten;
    }

    const Options& options_;
    const Json& settings_;
    ScriptedWindowSystem windows_;
    std::vector<std::wstring> findings_;
    std::wstring settingsError_;
    std::wstring printed_;
};

ExitStatus RunScripted(const Options& options)
{
    Json settings = Json::object();
    if (!options.settingsFile.empty())
    {
        try
        {
            settings = ReadSettings(options.settingsFile);
        }
        catch (const SettingsError& error)
        {
            WriteStandardError(WideFromUtf8(error.what()) + L"\n");
            return ExitStatus::WrongUsage;
        }
    }
    return BatchRun(options, settings).Run();
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
