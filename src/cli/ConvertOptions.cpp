#include "cli/ConvertOptions.h"

#include "base/Files.h"
#include "base/Text.h"
#include "cli/Paths.h"
#include "cli/Settings.h"
#include "cli/Usage.h"
#include "run/LoadRun.h"
#include "sidefiles/LoadSideFiles.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <set>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr const char* ONE_FOLDER = "作業フォルダーは1つだけ指定してください";

/// The arguments as they were given, in UTF-8.
struct ConvertArguments
{
    std::vector<std::string> workFolders;
    std::vector<std::string> settings;
    std::string folderSettings;
    std::string output;
    std::string outputFolder;
    std::string report;
    std::string changes;
    std::string routes;
    std::string jobs = "1";
};

/// Decimal digits alone, no more than 32 bits with a sign.
std::int32_t ReadCount(const char* option, const std::string& text)
{
    std::int32_t count = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, count);
    if (read.ec != std::errc() || read.ptr != end || count < 0)
    {
        throw WrongArgument(option, "0以上の整数で指定してください");
    }
    return count;
}

/// An option that can't stand beside others.
struct Conflict
{
    bool given;
    const char* option;
};

void RefuseGiven(std::initializer_list<Conflict> options, const std::string& problem)
{
    for (const Conflict& one : options)
    {
        if (one.given)
        {
            throw WrongArgument(one.option, problem);
        }
    }
}

/// The declared options, and what is refused of them once all arguments are read.
class ConvertUsage
{
  public:
    explicit ConvertUsage(ConvertOptions& options) : options_(options) {}

    void Declare(CLI::App& app)
    {
        app_ = &app;
        app.add_option("WORK_FOLDER", given_.workFolders,
                       InUsersLanguage("Landxml_temp.xmlのあるフォルダー", "a folder that holds Landxml_temp.xml"))
            ->required()
            ->take_all()
            ->type_name("");
        DeclareInput(app);
        DeclareOutput(app);
        DeclareTelling(app);
        app.add_flag("--dialog", options_.dialog,
                     InUsersLanguage("設計アプリケーション（ホスト）と同じようにモジュールを呼び出します",
                                     "calls the module as a host application does: a real window"));
        app.final_callback([this] { Check(); });
    }

  private:
    void DeclareInput(CLI::App& app)
    {
        routes_ = app.add_option("-n,--routes", given_.routes,
                                 InUsersLanguage("路線数（既定値: 付属CSVファイルのある最大の番号）",
                                                 "the number of routes (default: the largest with a CSV side file)"))
                      ->type_name("COUNT");
        app.add_option(
               "-s,--settings", given_.settings,
               InUsersLanguage("ダイアログ操作の代わりに値を与える設定ファイル（JSON、UTF-8、-は標準入力）。"
                               "2回以上指定すると順に重ねます",
                               "a settings file that acts as the user of the dialog (JSON, UTF-8; - is standard "
                               "input); each further one is merged into those before it"))
            ->take_all()
            ->allow_extra_args(false)
            ->type_name("FILE");
        folderSettings_ =
            app.add_option(
                   "--folder-settings", given_.folderSettings,
                   InUsersLanguage("各作業フォルダーの中の設定ファイルの名前。あれば最後に重ねます",
                                   "the name of a settings file in each work folder, merged last if it is there"))
                ->type_name("NAME");
        app.add_flag("--skip-locked", options_.skipLocked,
                     InUsersLanguage("変更できない項目の設定を、エラーにせず警告して読み飛ばします",
                                     "passes over values for locked or disabled controls with a warning"));
    }

    void DeclareOutput(CLI::App& app)
    {
        output_ = app.add_option("-o,--output", given_.output,
                                 InUsersLanguage("出力ファイル（既存のファイルは置き換えます）",
                                                 "the finished file; an existing one is replaced"))
                      ->type_name("FILE");
        outputFolder_ =
            app.add_option("--output-dir", given_.outputFolder,
                           InUsersLanguage("出力フォルダー（なければ作ります）。ファイル名は作業フォルダー名.xml",
                                           "writes DIR/NAME_OF_WORK_FOLDER.xml; the folder is made"))
                ->type_name("DIR");
        app.add_option("-j,--jobs", given_.jobs,
                       InUsersLanguage("同時に処理する作業フォルダーの数（0はコア数、既定値1）",
                                       "so many work folders at a time (0: one for each core; default 1)"))
            ->type_name("COUNT");
        app.add_flag("--dry-run", options_.dryRun,
                     InUsersLanguage("ファイルを書かずに、そのほかの処理をすべて行います",
                                     "everything but the writing of the file"));
        app.add_flag("--print-settings", options_.printSettings,
                     InUsersLanguage("現在の設定を設定ファイルの形で表示します",
                                     "prints the dialog's state as a settings file"));
        app.add_flag("--check", options_.check,
                     InUsersLanguage("出力したファイルを検査します", "checks the file that was written"));
        report_ = app.add_option("--report", given_.report,
                                 InUsersLanguage("出力したファイルの図面と計算書のHTMLファイル",
                                                 "draws the file that was written, as a page"))
                      ->type_name("FILE");
        changes_ = app.add_option("--changes", given_.changes,
                                  InUsersLanguage("作業ファイルからの変更を書き出すファイル（JSON Lines）",
                                                  "writes what the run changed against the work file (JSON Lines)"))
                       ->type_name("FILE");
    }

    void DeclareTelling(CLI::App& app)
    {
        app.add_flag("--json", options_.json,
                     InUsersLanguage("作業フォルダーごとに1行のJSONで結果を表示します",
                                     "a line of JSON for each work folder on standard output"));
        app.add_flag("--strict", options_.strict,
                     InUsersLanguage("警告があればファイルを出力せず、終了コードを1とします",
                                     "a warning counts as a finding: status 1, no file"));
        app.add_flag("-q,--quiet", options_.quiet, InUsersLanguage("警告を表示しません", "no warnings"));
    }

    bool IsMany() const { return given_.workFolders.size() > 1; }
    bool WritesFile() const { return !options_.printSettings && !options_.dialog && !options_.dryRun; }

    void Check()
    {
        RefuseFurtherArguments(*app_);
        CheckFolders();
        CheckSettings();
        CheckTarget();
        CheckCombinations();
        if (routes_->count() > 0)
        {
            options_.routes = ReadCount("--routes", given_.routes);
        }
        options_.jobs = static_cast<std::uint32_t>(ReadCount("--jobs", given_.jobs));
        Take();
        CheckOverwriting();
    }

    void CheckFolders() const
    {
        for (const std::string& folder : given_.workFolders)
        {
            if (folder.empty())
            {
                throw WrongArgument("WORK_FOLDER", "作業フォルダーを指定してください");
            }
        }
        if (IsMany())
        {
            RefuseGiven({{options_.printSettings, "--print-settings"},
                         {options_.dialog, "--dialog"},
                         {report_->count() > 0, "--report"},
                         {changes_->count() > 0, "--changes"}},
                        ONE_FOLDER);
        }
    }

    void CheckSettings() const
    {
        for (const std::string& file : given_.settings)
        {
            if (file.empty())
            {
                throw WrongArgument("--settings", "設定ファイルを指定してください");
            }
        }
        if (std::count(given_.settings.begin(), given_.settings.end(), Utf8FromWide(std::wstring(STANDARD_INPUT))) > 1)
        {
            throw WrongArgument("--settings", "標準入力は1回だけ指定してください");
        }
        RefuseEmpty(*folderSettings_, given_.folderSettings, "設定ファイルの名前を指定してください");
    }

    void CheckTarget() const
    {
        RefuseEmpty(*outputFolder_, given_.outputFolder, "出力フォルダーを指定してください");
        if (!given_.output.empty() && !given_.outputFolder.empty())
        {
            throw WrongArgument("--output-dir", "--outputと一緒には指定できません");
        }
        if (IsMany() && !given_.output.empty())
        {
            throw WrongArgument("--output", "作業フォルダーが2つ以上のときは--output-dirを指定してください");
        }
        if (WritesFile() && given_.output.empty() && given_.outputFolder.empty())
        {
            throw IsMany() ? WrongArgument("--output-dir", "出力フォルダーを指定してください")
                           : WrongArgument("--output", "出力ファイルを指定してください");
        }
    }

    void CheckCombinations() const
    {
        RefuseEmpty(*report_, given_.report, "ファイルを指定してください");
        if (!WritesFile())
        {
            RefuseGiven({{options_.check, "--check"}, {!given_.report.empty(), "--report"}},
                        "--print-settings、--dry-run、--dialogと一緒には指定できません");
        }
        RefuseEmpty(*changes_, given_.changes, "ファイルを指定してください");
        if (options_.printSettings || options_.dialog)
        {
            RefuseGiven({{options_.json, "--json"}, {!given_.changes.empty(), "--changes"}},
                        "--print-settings、--dialogと一緒には指定できません");
        }
        if (options_.dialog)
        {
            RefuseGiven({{options_.printSettings, "--print-settings"}, {options_.dryRun, "--dry-run"}},
                        "--dialogと一緒には指定できません");
        }
        RefuseGiven({{options_.strict && options_.quiet, "--quiet"}}, "--strictと一緒には指定できません");
    }

    void Take()
    {
        const auto take = [](const std::vector<std::string>& from, std::vector<std::wstring>& to) {
            std::transform(from.begin(), from.end(), std::back_inserter(to), WideFromUtf8);
        };
        take(given_.workFolders, options_.workFolders);
        take(given_.settings, options_.settingsFiles);
        options_.folderSettings = WideFromUtf8(given_.folderSettings);
        options_.outputFile = WideFromUtf8(given_.output);
        options_.outputFolder = WideFromUtf8(given_.outputFolder);
        options_.reportFile = WideFromUtf8(given_.report);
        options_.changesFile = WideFromUtf8(given_.changes);
    }

    /// No file that is read may be written, no two work folders may have one target, and no target two contents.
    void CheckOverwriting() const
    {
        std::vector<std::string> written = WritesFile() ? Outputs() : std::vector<std::string>();
        RefuseOverwriting(*report_, given_.report, written);
        written.push_back(given_.report);
        RefuseOverwriting(*changes_, given_.changes, written);
        for (const std::wstring& folder : options_.workFolders)
        {
            const std::vector<std::string> read = ReadFiles(folder);
            RefuseOverwriting(*report_, given_.report, read);
            RefuseOverwriting(*changes_, given_.changes, read);
        }
    }

    /// The finished files of the work folders.
    std::vector<std::string> Outputs() const
    {
        const CLI::Option& option = options_.outputFolder.empty() ? *output_ : *outputFolder_;
        std::vector<std::string> names;
        std::set<std::wstring> keys;
        for (const std::wstring& folder : options_.workFolders)
        {
            const std::wstring output = OutputOf(options_, folder);
            if (output.empty() || !keys.insert(FileNameKey(output)).second)
            {
                throw WrongArgument("--output-dir",
                                    output.empty() ? "名前のない作業フォルダーです: " + Utf8FromWide(folder)
                                                   : "同じ名前の作業フォルダーが2つあります: " + Utf8FromWide(folder));
            }
            RefuseOverwriting(option, Utf8FromWide(output), ReadFiles(folder));
            if (EqualsIgnoreCase(FolderName(output), WORK_FILE_NAME))
            {
                RefuseOverwriting(option, Utf8FromWide(output), WorkFiles());
            }
            names.push_back(Utf8FromWide(output));
        }
        return names;
    }

    /// The files of the work folders that a target in an output folder could be.
    std::vector<std::string> WorkFiles() const
    {
        std::vector<std::string> files;
        files.reserve(options_.workFolders.size());
        for (const std::wstring& folder : options_.workFolders)
        {
            files.push_back(Utf8FromWide(WorkFileOf(folder)));
        }
        return files;
    }

    /// The files that the run of a work folder reads, as far as it is told before.
    std::vector<std::string> ReadFiles(const std::wstring& folder) const
    {
        std::vector<std::string> files = given_.settings;
        files.push_back(Utf8FromWide(WorkFileOf(folder)));
        if (!given_.folderSettings.empty())
        {
            files.push_back(Utf8FromWide(folder) + "/" + given_.folderSettings);
        }
        for (const std::wstring& sideFile : SideFilesOf(folder))
        {
            files.push_back(Utf8FromWide(sideFile));
        }
        return files;
    }

    ConvertOptions& options_;
    ConvertArguments given_;
    CLI::App* app_ = nullptr;
    const CLI::Option* routes_ = nullptr;
    const CLI::Option* folderSettings_ = nullptr;
    const CLI::Option* output_ = nullptr;
    const CLI::Option* outputFolder_ = nullptr;
    const CLI::Option* report_ = nullptr;
    const CLI::Option* changes_ = nullptr;
};

} // namespace

ParsedConvert ParseConvert(const std::vector<std::wstring>& arguments)
{
    ParsedConvert parsed;
    CLI::App app(InUsersLanguage("LandXMLの作業フォルダーからJ-LandXMLファイルを出力します。",
                                 "Converts work folders with LandXML into J-LandXML files."),
                 "jlandxml-convert");
    PrepareUsage(app, "jlandxml-convert");
    ConvertUsage usage(parsed.options);
    usage.Declare(app);
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
    return parsed;
}

std::vector<std::string> ConvertOptionNames()
{
    ConvertOptions options;
    CLI::App app;
    PrepareUsage(app, "jlandxml-convert");
    ConvertUsage usage(options);
    usage.Declare(app);
    std::vector<std::string> names;
    for (const CLI::Option* const option : app.get_options([](const CLI::Option* one) { return one->nonpositional(); }))
    {
        for (const std::string& name : option->get_lnames())
        {
            names.push_back("--" + name);
        }
        for (const std::string& name : option->get_snames())
        {
            names.push_back("-" + name);
        }
    }
    return names;
}

std::wstring OutputOf(const ConvertOptions& options, const std::wstring& workFolder)
{
    if (options.outputFolder.empty())
    {
        return options.outputFile;
    }
    const std::wstring name = FolderName(workFolder);
    return name.empty() ? name : options.outputFolder + L"/" + name + L".xml";
}

std::wstring FolderName(const std::wstring& path)
{
    std::error_code failure;
    std::filesystem::path folder = std::filesystem::absolute(PathOf(path), failure).lexically_normal();
    if (!folder.has_filename())
    {
        folder = folder.parent_path();
    }
    const std::u8string name = folder.filename().u8string();
    return WideFromUtf8(std::string(name.begin(), name.end()));
}

} // namespace jlandxml
