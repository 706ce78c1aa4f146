#include "cli/CommandLine.h"

#include "base/Files.h"
#include "base/Streams.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "cli/HostCall.h"
#include "cli/Program.h"
#include "cli/SettingsUser.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "run/ConversionContext.h"
#include "run/module/ExecuteQuorvane.h"
#include "sidefiles/LoadSideFiles.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <new>
#include <optional>
#include <sstream>
#include <utility>

namespace jlandxml
{

namespace
{

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

CLI::ParseError WrongArgument(const std::string& argument, const std::string& problem)
{
    return {argument + ": " + problem, CLI::ExitCodes::ValidationError};
}

/// The usage is in the user's language, headings and all.
void Translate(CLI::App& app)
{
    constexpr std::pair<const char*, const char*> LABELS[] = {
        {"Usage", "使い方"}, {"Positionals", "引数"}, {"OPTIONS", "オプション"}, {"REQUIRED", "（必須）"}};
    for (const auto& [label, translation] : LABELS)
    {
        app.get_formatter()->label(label, translation);
    }
    app.option_defaults()->group("オプション")->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

std::int32_t ReadRouteCount(const std::string& text)
{
    std::int32_t count = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, count);
    if (read.ec != std::errc() || read.ptr != end)
    {
        throw WrongArgument("--routes", "整数で指定してください");
    }
    return count;
}

/// One line about the argument that is wrong.
std::string Problem(const CLI::ParseError& error)
{
    std::string text = error.what();
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code()))
    {
    case CLI::ExitCodes::RequiredError:
        return "WORK_FOLDER: 作業フォルダーを指定してください";
    case CLI::ExitCodes::ArgumentMismatch:
        return text.substr(0, text.find(':')) + ": 値を指定してください";
    default:
        return text;
    }
}

Parsed Parse(const std::vector<std::wstring>& arguments)
{
    std::string workFolder;
    std::string routes;
    std::string settings;
    std::string output;
    Parsed parsed;

    CLI::App app("LandXMLの作業フォルダーからJ-LandXMLファイルを出力します。", "jlandxml-convert");
    Translate(app);
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "jlandxml-convert " JLANDXML_VERSION, "バージョンを表示します");
    app.set_help_flag("--help", "この説明を表示します");
    app.add_option("WORK_FOLDER", workFolder, "Landxml_temp.xmlのあるフォルダー")->required()->type_name("");
    const CLI::Option* const routesOption =
        app.add_option("-n,--routes", routes, "路線数（既定値: サイドファイルのある最大の番号）")->type_name("COUNT");
    const CLI::Option* const settingsOption =
        app.add_option("-s,--settings", settings, "設定ファイル（JSON、UTF-8）")->type_name("FILE");
    app.add_option("-o,--output", output, "出力ファイル（既存のファイルは置き換えます）")->type_name("FILE");
    app.add_flag("--print-settings", parsed.options.printSettings, "現在の設定を設定ファイルの形で表示します");
    app.add_flag("--dialog", parsed.options.dialog, "ホストと同じようにモジュールを呼び出します");
    app.allow_extras();
    app.final_callback([&] {
        if (!app.remaining().empty())
        {
            throw WrongArgument(app.remaining().front(), "余分な引数です。取り除いてください");
        }
        if (output.empty() && !parsed.options.printSettings && !parsed.options.dialog)
        {
            throw WrongArgument("--output", "出力ファイルを指定してください");
        }
        if (settings.empty() && settingsOption->count() > 0)
        {
            throw WrongArgument("--settings", "設定ファイルを指定してください");
        }
        if (routesOption->count() > 0)
        {
            parsed.options.routes = ReadRouteCount(routes);
        }
    });

    std::vector<std::string> narrow;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(narrow),
                   [](const std::wstring& argument) { return Utf8FromWide(argument); });
    try
    {
        app.parse(narrow);
    }
    catch (const CLI::Success& asked)
    {
        std::ostringstream out;
        app.exit(asked, out);
        WriteStandardOutput(WideFromUtf8(out.str()));
        parsed.ends = ExitStatus::FileWritten;
    }
    catch (const CLI::ParseError& error)
    {
        WriteStandardError(WideFromUtf8(Problem(error)) + L"\n");
        parsed.ends = ExitStatus::WrongUsage;
    }
    parsed.options.workFolder = WideFromUtf8(workFolder);
    parsed.options.settingsFile = WideFromUtf8(settings);
    parsed.options.outputFile = WideFromUtf8(output);
    return parsed;
}

/// With a separator behind it, the name of a file is none of a folder. A system that overlooks the separator still
/// doesn't open a folder as a file.
bool IsFolder(const std::wstring& path)
{
    if (!PathExists(path + L"/"))
    {
        return false;
    }
    const FileHandle file = OpenForReading(path);
    return file == nullptr || !FileLength(file.get());
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

/// In pieces, since there may be no memory to join them.
void TellLine(const std::wstring& text)
{
    WriteStandardError(text);
    WriteStandardError(L"\n");
}

/// What the run passed over without a word of the module's.
void TellWarnings()
{
    for (const Warning& warning : TakeWarnings())
    {
        WriteStandardError(L"警告: ");
        WriteStandardError(warning.text);
        if (!warning.detail.empty())
        {
            WriteStandardError(L"\t");
            WriteStandardError(warning.detail);
        }
        WriteStandardError(L"\n");
    }
}

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
        GetConversionContext().fileWritten = false;
        const std::int32_t routes = RouteCount(options_);
        TellWarnings();
        try
        {
            ExecuteQuorvane(options_.workFolder.c_str(), routes);
        }
        catch (const std::bad_alloc&)
        {
            // Once the file is written, there is nothing left to do but to close the dialog.
            if (!GetConversionContext().fileWritten)
            {
                TellWarnings();
                throw;
            }
        }
        TellWarnings();
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
            TellLine(message.text);
        }
        if (!windows_.Messages().empty())
        {
            return ExitStatus::NoFile;
        }
        if (!settingsError_.empty())
        {
            TellLine(settingsError_);
            return ExitStatus::WrongUsage;
        }
        for (const std::wstring& finding : findings_)
        {
            TellLine(finding);
        }
        if (!findings_.empty())
        {
            return ExitStatus::Findings;
        }
        if (printed_)
        {
            WriteStandardOutput(*printed_);
            WriteStandardOutput(L"\n");
            return ExitStatus::FileWritten;
        }
        if (!GetConversionContext().fileWritten)
        {
            WriteStandardError(NO_FILE_LINE);
            return ExitStatus::NoFile;
        }
        return ExitStatus::FileWritten;
    }

    const Options& options_;
    const Json& settings_;
    ScriptedWindowSystem windows_;
    std::vector<std::wstring> findings_;
    std::wstring settingsError_;
    std::optional<std::wstring> printed_;
};

ExitStatus RunScripted(const Options& options)
{
    // The settings stay until the process ends: freeing them asks for memory, and the file is written by then.
    static Json& settings = *new Json;
    settings = Json::object();
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

ExitStatus RunOptions(const Options& options)
{
    if (!IsFolder(options.workFolder))
    {
        WriteStandardError(options.workFolder + L": 作業フォルダーがありません。\n");
        return ExitStatus::WrongUsage;
    }
    TakeWarnings(); // that a folder is no file
    return options.dialog ? RunModule(options) : RunScripted(options);
}

} // namespace

ExitStatus RunCommandLine(const std::vector<std::wstring>& arguments)
{
    try
    {
        const Parsed parsed = Parse(arguments);
        return parsed.ends ? *parsed.ends : RunOptions(parsed.options);
    }
    catch (const std::exception&)
    {
        // Not the module's own failures, which are messages; such as memory that isn't there.
        WriteStandardError(NO_FILE_LINE);
        return ExitStatus::NoFile;
    }
}

} // namespace jlandxml
