#include "cli/CommandLine.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Streams.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "cli/HostCall.h"
#include "cli/Program.h"
#include "cli/SettingsUser.h"
#include "cli/Usage.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "inspect/Checks.h"
#include "inspect/OutputFile.h"
#include "inspect/Printing.h"
#include "inspect/ReadLandXml.h"
#include "inspect/Report.h"
#include "run/ConversionContext.h"
#include "run/module/ExecuteQuorvane.h"
#include "sidefiles/LoadSideFiles.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <optional>
#include <utility>

namespace jlandxml
{

namespace
{

/// What the command line asks for.
struct ConvertOptions
{
    std::wstring workFolder;
    std::wstring settingsFile;
    std::wstring outputFile;
    std::wstring reportFile; ///< empty: none
    std::optional<std::int32_t> routes;
    bool check = false;
    bool printSettings = false;
    bool dialog = false;
};

/// The arguments as options, or the status with which the program ends at once.
struct ParsedConvert
{
    ConvertOptions options;
    std::optional<ExitStatus> ends;
};

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

ParsedConvert ParseConvert(const std::vector<std::wstring>& arguments)
{
    std::string workFolder;
    std::string routes;
    std::string settings;
    std::string output;
    std::string report;
    ParsedConvert parsed;
    ConvertOptions& options = parsed.options;

    CLI::App app("LandXMLの作業フォルダーからJ-LandXMLファイルを出力します。", "jlandxml-convert");
    PrepareUsage(app, "jlandxml-convert");
    app.add_option("WORK_FOLDER", workFolder, "Landxml_temp.xmlのあるフォルダー")->required()->type_name("");
    const CLI::Option* const routesOption =
        app.add_option("-n,--routes", routes, "路線数（既定値: サイドファイルのある最大の番号）")->type_name("COUNT");
    const CLI::Option* const settingsOption =
        app.add_option("-s,--settings", settings, "設定ファイル（JSON、UTF-8）")->type_name("FILE");
    app.add_option("-o,--output", output, "出力ファイル（既存のファイルは置き換えます）")->type_name("FILE");
    app.add_flag("--print-settings", options.printSettings, "現在の設定を設定ファイルの形で表示します");
    app.add_flag("--check", options.check, "出力したファイルを検査します");
    const CLI::Option* const reportOption =
        app.add_option("--report", report, "出力したファイルの図面と計算書のHTMLファイル")->type_name("FILE.html");
    app.add_flag("--dialog", options.dialog, "ホストと同じようにモジュールを呼び出します");
    app.final_callback([&] {
        RefuseFurtherArguments(app);
        const bool makesItsFile = !options.printSettings && !options.dialog;
        if (output.empty() && makesItsFile)
        {
            throw WrongArgument("--output", "出力ファイルを指定してください");
        }
        RefuseEmpty(*settingsOption, settings, "設定ファイルを指定してください");
        RefuseEmpty(*reportOption, report, "ファイルを指定してください");
        RefuseOverwriting(*reportOption, report, {output, settings, workFolder + "/Landxml_temp.xml"});
        if (!makesItsFile && (options.check || !report.empty()))
        {
            throw WrongArgument(options.check ? "--check" : "--report",
                                "--print-settings、--dialogと一緒には指定できません");
        }
        if (routesOption->count() > 0)
        {
            options.routes = ReadRouteCount(routes);
        }
    });

    switch (ReadArguments(app, arguments, "WORK_FOLDER: 作業フォルダーを指定してください"))
    {
    case ArgumentsRead::Asked:
        parsed.ends = ExitStatus::FileWritten;
        break;
    case ArgumentsRead::Untold:
        parsed.ends = ExitStatus::NoFile;
        break;
    case ArgumentsRead::Wrong:
        parsed.ends = ExitStatus::WrongUsage;
        break;
    case ArgumentsRead::Whole:
        break;
    }
    options.workFolder = WideFromUtf8(workFolder);
    options.settingsFile = WideFromUtf8(settings);
    options.outputFile = WideFromUtf8(output);
    options.reportFile = WideFromUtf8(report);
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

std::int32_t RouteCount(const ConvertOptions& options)
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
    BatchRun(const ConvertOptions& options, const Json& settings) : options_(options), settings_(settings)
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
            return WriteAnswer(*printed_) && WriteAnswer(L"\n") ? ExitStatus::FileWritten : ExitStatus::NoFile;
        }
        if (!GetConversionContext().fileWritten)
        {
            WriteStandardError(NO_FILE_LINE);
            return ExitStatus::NoFile;
        }
        return ExitStatus::FileWritten;
    }

    const ConvertOptions& options_;
    const Json& settings_;
    ScriptedWindowSystem windows_;
    std::vector<std::wstring> findings_;
    std::wstring settingsError_;
    std::optional<std::wstring> printed_;
};

ExitStatus RunScripted(const ConvertOptions& options)
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

/// Judges and draws the file that was just written. An 誤り in it is status 1; the file stays.
ExitStatus InspectOutput(const ConvertOptions& options)
{
    try
    {
        const inspect::LandXmlFile file = inspect::ReadLandXmlFile(options.outputFile);
        const std::vector<inspect::Finding> findings = inspect::Inspect(file, inspect::EveryCheck());
        if (!options.reportFile.empty())
        {
            inspect::WriteOutputFile(options.reportFile, inspect::ReportPage(file, findings));
        }
        bool isWrong = false;
        for (const inspect::Finding& finding : findings)
        {
            if (options.check)
            {
                WriteStandardError(inspect::FindingLine(finding));
                isWrong = isWrong || finding.severity == inspect::Severity::Error;
            }
        }
        return isWrong ? ExitStatus::Findings : ExitStatus::FileWritten;
    }
    catch (const CException& exception)
    {
        WriteStandardError(options.outputFile + L": " + ErrorText(exception) + L"\n");
        return ExitStatus::NoFile;
    }
}

ExitStatus RunModule(const ConvertOptions& options)
{
    if (!CallModule(options.workFolder, RouteCount(options)))
    {
        WriteStandardError(L"モジュールを読み込めません: " + ModulePath() + L"\n");
        return ExitStatus::NoFile;
    }
    return ExitStatus::FileWritten;
}

ExitStatus RunOptions(const ConvertOptions& options)
{
    if (!IsFolder(options.workFolder))
    {
        WriteStandardError(options.workFolder + L": 作業フォルダーがありません。\n");
        return ExitStatus::WrongUsage;
    }
    TakeWarnings(); // that a folder is no file
    if (options.dialog)
    {
        return RunModule(options);
    }
    const ExitStatus status = RunScripted(options);
    const bool isWanted = options.check || !options.reportFile.empty();
    return status == ExitStatus::FileWritten && isWanted ? InspectOutput(options) : status;
}

} // namespace

ExitStatus RunCommandLine(const std::vector<std::wstring>& arguments)
{
    try
    {
        const ParsedConvert parsed = ParseConvert(arguments);
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
