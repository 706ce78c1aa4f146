#include "cli/WorkFolderRun.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Streams.h"
#include "base/Text.h"
#include "cli/ChangesFile.h"
#include "cli/Paths.h"
#include "cli/Program.h"
#include "cli/SettingsUser.h"
#include "cli/TargetTrouble.h"
#include "cli/Telling.h"
#include "cli/Usage.h"
#include "dialog/DialogFields.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "inspect/Checks.h"
#include "inspect/OutputFile.h"
#include "inspect/Printing.h"
#include "inspect/ReadLandXml.h"
#include "inspect/Report.h"
#include "inspect/RunJournal.h"
#include "run/ConversionContext.h"
#include "run/LoadRun.h"
#include "run/module/ExecuteQuorvane.h"
#include "sidefiles/LoadSideFiles.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <new>
#include <optional>
#include <span>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* PASSED_OVER = L"（この設定を読み飛ばしました）";

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

/// Keeps trace lines from a standard output that is for something else, for the length of a run.
class TraceScope
{
  public:
    explicit TraceScope(bool silent) { SilenceTraceLines(silent); }
    TraceScope(const TraceScope&) = delete;
    TraceScope& operator=(const TraceScope&) = delete;
    ~TraceScope() { SilenceTraceLines(false); }
};

/// Asks `mayWrite` before a target is touched, for the length of a run.
class WritingScope
{
  public:
    explicit WritingScope(std::function<bool()> mayWrite) { GetConversionContext().mayWrite = std::move(mayWrite); }
    WritingScope(const WritingScope&) = delete;
    WritingScope& operator=(const WritingScope&) = delete;
    ~WritingScope() { GetConversionContext().mayWrite = nullptr; }
};

/// What of a tree is counted: its elements at the end of a path from the root, ignoring case.
struct CountedElement
{
    const char* name;
    std::span<const wchar_t* const> path;
};

constexpr const wchar_t* ROUTES[] = {L"Alignments"};
constexpr const wchar_t* ALIGNMENTS[] = {L"Alignments", L"Alignment"};
constexpr const wchar_t* CROSS_SECTIONS[] = {L"Alignments", L"Alignment", L"CrossSects", L"CrossSect"};
constexpr const wchar_t* SURFACES[] = {L"Surfaces", L"Surface"};
constexpr const wchar_t* POINT_GROUPS[] = {L"CgPoints"};
constexpr const wchar_t* POINTS[] = {L"CgPoints", L"CgPoint"};

/// Before the run is written, points come from side files alone and aren't in the tree.
constexpr CountedElement READ_ELEMENTS[] = {
    {"routes", ROUTES}, {"alignments", ALIGNMENTS}, {"crossSections", CROSS_SECTIONS}, {"surfaces", SURFACES}};
constexpr CountedElement WRITTEN_ELEMENTS[] = {
    {"routes", ROUTES},     {"alignments", ALIGNMENTS},    {"crossSections", CROSS_SECTIONS},
    {"surfaces", SURFACES}, {"pointGroups", POINT_GROUPS}, {"points", POINTS}};

std::size_t CountElements(const WcXmNode& node, std::span<const wchar_t* const> path)
{
    if (path.empty())
    {
        return 1;
    }
    std::size_t count = 0;
    WcXmNode child = node;
    for (bool isThere = child.MoveToFirstChild(); isThere; isThere = child.MoveToNextSibling())
    {
        if (child.HasName(path.front()))
        {
            count += CountElements(child, path.subspan(1));
        }
    }
    return count;
}

Counts CountTree(std::span<const CountedElement> elements)
{
    ConversionContext& context = GetConversionContext();
    Counts counts;
    for (const CountedElement& element : elements)
    {
        counts.emplace_back(element.name, CountElements(WcXmNode(context.document), element.path));
    }
    return counts;
}

template <class Groups>
std::size_t CountPoints(const Groups& groups)
{
    std::size_t count = 0;
    for (const auto& group : groups)
    {
        count += group.points.size();
    }
    return count;
}

Counts CountRead()
{
    const FViewLandXML& model = GetConversionContext().model;
    Counts counts = CountTree(READ_ELEMENTS);
    counts.emplace_back("pointGroups", model.intermediatePoints.size() + model.widthStakePoints.size());
    counts.emplace_back("points", CountPoints(model.intermediatePoints) + CountPoints(model.widthStakePoints));
    return counts;
}

std::uintmax_t SizeOf(const std::wstring& path)
{
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(PathOf(path), failure);
    return failure ? 0 : size;
}

Counts CountWritten(const std::wstring& output)
{
    Counts counts = CountTree(WRITTEN_ELEMENTS);
    counts.emplace_back("bytes", static_cast<std::size_t>(SizeOf(output)));
    return counts;
}

void Append(std::vector<ToldLine>& lines, std::vector<ToldLine> more)
{
    lines.insert(lines.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

/// A run whose user is a settings file: what it does at the windows, and what it came to see there.
class BatchRun
{
  public:
    BatchRun(const ConvertOptions& options, const Json& settings, RunResult& result)
        : options_(options),
          settings_(settings),
          result_(result)
    {
        windows_.SetUser([this](ScriptedDialog& dialog) { Work(dialog); });
        windows_.SetSaveFileAnswer([this](const SaveFileRequest&) {
            return options_.printSettings ? std::nullopt : std::optional(result_.output);
        });
    }

    void Run()
    {
        const WindowsScope windows(windows_);
        const TraceScope trace(options_.json || options_.printSettings);
        const WritingScope writing([this] { return MayWrite(); });
        GetConversionContext().fileWritten = false;
        GetConversionContext().keepsJournal = !options_.changesFile.empty() || !options_.reportFile.empty();
        const std::int32_t routes = RouteCount(options_, result_.folder);
        if (options_.routes)
        {
            WarnOfSideFilesBeyond(result_.folder, routes);
        }
        TakeRunWarnings();
        try
        {
            ExecuteQuorvane(result_.folder.c_str(), routes);
        }
        catch (const std::bad_alloc&)
        {
            // Once the file is written, there is nothing left to do but to close the dialog.
            if (!GetConversionContext().fileWritten)
            {
                TellWarnings(result_.warnings);
                TellWarnings(TakeWarnings());
                throw;
            }
        }
        TakeRunWarnings();
        result_.status = Judge();
    }

  private:
    void TakeRunWarnings() { Append(result_.warnings, TakeWarnings()); }

    /// The tree is finished: whatever is to be warned of is known.
    bool MayWrite()
    {
        isTreeFinished_ = true;
        TakeRunWarnings();
        isTooStrict_ = options_.strict && !result_.warnings.empty();
        return !options_.dryRun && !isTooStrict_;
    }

    void Work(ScriptedDialog& dialog)
    {
        if (&dialog.Template() == &JLandXMLErrorDlg::TEMPLATE)
        {
            findings_ = dialog.AddedEntries(JLandXMLErrorDlg::MESSAGE_LIST);
            places_ = dynamic_cast<const JLandXMLErrorDlg&>(dialog.Logic()).places;
            dialog.PressEnter();
            return;
        }
        if (options_.json)
        {
            result_.read = CountRead();
        }
        SettingsUser user(dialog, options_.skipLocked ? Unreachable::IsPassedOver : Unreachable::IsFault);
        try
        {
            user.Act(settings_);
            TellPassedOver(user);
            options_.printSettings ? Print(dialog, user) : PressOutput(dialog, user);
        }
        catch (const SettingsError& error)
        {
            TellPassedOver(user);
            settingsFaults_ = SettingsLines(error, false);
        }
    }

    void TellPassedOver(const SettingsUser& user)
    {
        for (const SettingsFault& fault : user.PassedOver())
        {
            ToldLine line = SettingsLine(fault);
            line.code = "setting-skipped";
            line.text += PASSED_OVER;
            result_.warnings.push_back(std::move(line));
        }
    }

    void PressOutput(ScriptedDialog& dialog, const SettingsUser& user)
    {
        dialog.PressEnter();
        if (findings_.empty())
        {
            return;
        }
        const ObjectPlaces places = user.Places();
        for (std::size_t index = 0; index < findings_.size(); ++index)
        {
            found_.push_back(FindingLine(findings_[index], places_[index], places));
        }
    }

    /// What the output button would find, pressed without a file to write.
    void TryOutput(ScriptedDialog& dialog)
    {
        findings_.clear();
        places_.clear();
        dialog.PressEnter();
    }

    void Print(ScriptedDialog& dialog, SettingsUser& user)
    {
        user.VisitAll();
        TryOutput(dialog);
        const std::vector<FindingPlace> found = places_;
        const ObjectPlaces places = user.Places();
        Judgement judgement;
        for (const FindingPlace& place : found)
        {
            const bool isOfProject = !places.contains(place.object);
            judgement.refused.emplace(isOfProject ? nullptr : place.object, place.control);
            if (const DialogField* const field = FindField(place.control);
                isOfProject && field != nullptr && IsListField(field->kind))
            {
                judgement.accepted[place.control] = AcceptedEntries(dialog, place.control);
            }
        }
        printed_ = WideFromUtf8(user.Print(judgement).dump(2)) + L"\n";
    }

    /// The entries of a list of the project that the checks let pass.
    std::vector<std::wstring> AcceptedEntries(ScriptedDialog& dialog, int list)
    {
        std::vector<std::wstring> accepted;
        const int former = dialog.SelectedEntry(list);
        for (int entry = 0; entry < dialog.EntryCount(list); ++entry)
        {
            dialog.ChooseEntry(list, entry);
            TryOutput(dialog);
            if (std::none_of(places_.begin(), places_.end(),
                             [&](const FindingPlace& place) { return place.control == list; }))
            {
                accepted.push_back(dialog.EntryText(list, entry));
            }
        }
        dialog.ChooseEntry(list, former);
        return accepted;
    }

    static ToldLine FindingLine(const std::wstring& text, const FindingPlace& place, const ObjectPlaces& places)
    {
        ToldLine line = PlainLine(place.code, text);
        const auto found = places.find(place.object);
        const ObjectPlace object = found != places.end() ? found->second : ObjectPlace();
        const DialogField* const field = FindField(place.control);
        line.path = WideFromUtf8(KeyPath(object.path, field != nullptr ? field->key : ""));
        line.object = WideFromUtf8(object.names);
        line.detail = line.object.empty() ? line.path : line.path + L"（" + line.object + L"）";
        return line;
    }

    ExitStatus Judge()
    {
        for (const ShownMessage& message : windows_.Messages())
        {
            result_.findings.push_back(PlainLine("message", message.text, WritingTrouble()));
        }
        if (!windows_.Messages().empty())
        {
            return ExitStatus::NoFile;
        }
        if (!settingsFaults_.empty())
        {
            result_.findings = std::move(settingsFaults_);
            return ExitStatus::WrongUsage;
        }
        if (printed_)
        {
            return WriteAnswer(*printed_) ? ExitStatus::FileWritten : ExitStatus::NoFile;
        }
        if (isTooStrict_)
        {
            found_.push_back(PlainLine("strict", L"警告があるため、ファイルを出力しません"));
        }
        if (!found_.empty())
        {
            result_.findings = std::move(found_);
            return ExitStatus::Findings;
        }
        if (GetConversionContext().fileWritten || (options_.dryRun && isTreeFinished_))
        {
            return ExitStatus::FileWritten;
        }
        const std::wstring trouble = WritingTrouble();
        result_.findings.push_back(
            PlainLine("no-file", NO_FILE_TEXT, trouble.empty() ? WorkFileOf(result_.folder) : trouble));
        result_.findings.back().file = result_.output;
        return ExitStatus::NoFile;
    }

    /// What may have kept the finished tree from its target; empty where it isn't finished, or is written.
    std::wstring WritingTrouble() const
    {
        const bool isLost = isTreeFinished_ && !GetConversionContext().fileWritten;
        return isLost ? TargetTrouble(result_.output, SizeOf(WorkFileOf(result_.folder))) : std::wstring();
    }

    const ConvertOptions& options_;
    const Json& settings_;
    RunResult& result_;
    ScriptedWindowSystem windows_;
    std::vector<std::wstring> findings_;
    std::vector<FindingPlace> places_; ///< of the findings
    std::vector<ToldLine> found_;      ///< the findings as they are told
    std::vector<ToldLine> settingsFaults_;
    std::optional<std::wstring> printed_;
    bool isTreeFinished_ = false;
    bool isTooStrict_ = false;
};

ToldLine CheckLine(const inspect::Finding& finding, const std::wstring& file)
{
    std::wstring text = inspect::FindingLine(finding);
    text.pop_back(); // its line feed
    ToldLine line = PlainLine("check", std::move(text));
    line.object = finding.object.japanese;
    line.file = file;
    if (finding.line > 0)
    {
        line.row = finding.line;
    }
    return line;
}

void TakeFindings(const std::vector<inspect::Finding>& findings, RunResult& result)
{
    for (const inspect::Finding& finding : findings)
    {
        result.findings.push_back(CheckLine(finding, result.output));
        if (finding.severity == inspect::Severity::Error)
        {
            result.status = std::max(result.status, ExitStatus::Findings);
        }
    }
}

/// What the run has changed in its document, for the report.
inspect::RunJournal GatheredChanges()
{
    inspect::RunJournal gathered;
    GetConversionContext().document.appDocument->journal->ForEachChange(
        [&](const WcXmChange& change) { gathered.Take(change); });
    return gathered;
}

/// What kept a file that was asked for beside the finished one from being written.
void TellUnwritten(std::string_view code, const wchar_t* text, const std::wstring& path, RunResult& result)
{
    const std::wstring trouble = TargetTrouble(path, 0);
    result.findings.push_back(PlainLine(code, text, trouble == path ? path : path + L": " + trouble));
    result.findings.back().file = path;
    result.status = ExitStatus::NoFile;
}

void WriteReport(const std::wstring& path, const inspect::LandXmlFile& file,
                 const std::vector<inspect::Finding>& findings, RunResult& result)
{
    try
    {
        const inspect::RunJournal journal = GatheredChanges();
        inspect::WriteOutputFile(path, inspect::ReportPage(file, findings, &journal));
    }
    catch (const CException&)
    {
        TellUnwritten("report", L"図面と計算書（--report）を書き込めません", path, result);
    }
}

/// Judges and draws the file that was just written. An 誤り in it is status 1; the file stays.
void InspectOutput(const ConvertOptions& options, RunResult& result)
{
    try
    {
        const inspect::LandXmlFile file = inspect::ReadLandXmlFile(result.output);
        const std::vector<inspect::Finding> findings = inspect::Inspect(file, inspect::EveryCheck());
        if (!options.reportFile.empty())
        {
            WriteReport(options.reportFile, file, findings, result);
        }
        if (options.check)
        {
            TakeFindings(findings, result);
        }
    }
    catch (const CException& exception)
    {
        result.findings.push_back(PlainLine("check", L"出力したファイルを読み込めません",
                                            result.output + L"（" + ErrorText(exception) + L"）"));
        result.findings.back().file = result.output;
        result.status = ExitStatus::NoFile;
    }
}

/// Writes what the run has changed in its document.
void TellChanges(const ConvertOptions& options, RunResult& result)
{
    try
    {
        WriteChanges(options.changesFile, *GetConversionContext().document.appDocument->journal);
    }
    catch (const CException&)
    {
        TellUnwritten("changes", L"変更の記録（--changes）を書き込めません", options.changesFile, result);
    }
}

/// The settings of the folder's own over those of all. They stay until the process ends: freeing them asks for
/// memory, and the file is written by then.
const Json& SettingsOf(const ConvertOptions& options, const std::wstring& folder, const Json& settings)
{
    const std::wstring path = folder + L"/" + options.folderSettings;
    if (options.folderSettings.empty() || !PathExists(path))
    {
        return settings;
    }
    static Json& merged = *new Json;
    merged = Json::object();
    MergeSettings(merged, settings);
    MergeSettings(merged, ReadSettings(path));
    return merged;
}

void ConvertFolder(const ConvertOptions& options, const Json& settings, RunResult& result)
{
    if (!IsFolder(result.folder))
    {
        result.findings.push_back(NoFolderLine(result.folder));
        result.status = ExitStatus::WrongUsage;
        return;
    }
    try
    {
        const Json& own = SettingsOf(options, result.folder, settings);
        TakeWarnings(); // that a folder is no file, or what was looked at before the run
        BatchRun(options, own, result).Run();
    }
    catch (const SettingsError& error)
    {
        result.findings = SettingsLines(error, true);
        result.status = ExitStatus::WrongUsage;
    }
    if (result.status == ExitStatus::FileWritten && !options.changesFile.empty())
    {
        TellChanges(options, result);
    }
    if (result.status == ExitStatus::FileWritten && (options.check || !options.reportFile.empty()))
    {
        InspectOutput(options, result);
    }
    if (options.json && GetConversionContext().fileWritten)
    {
        result.written = CountWritten(result.output);
    }
}

} // namespace

RunResult RunWorkFolder(const ConvertOptions& options, const std::wstring& folder, const Json& settings)
{
    const auto begun = std::chrono::steady_clock::now();
    RunResult result;
    result.folder = folder;
    result.output = OutputOf(options, folder);
    ConvertFolder(options, settings, result);
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    return result;
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

ToldLine NoFolderLine(const std::wstring& folder)
{
    ToldLine line = PlainLine("no-folder", L"作業フォルダーが見つかりません", folder);
    line.file = folder;
    return line;
}

std::int32_t RouteCount(const ConvertOptions& options, const std::wstring& folder)
{
    return options.routes ? *options.routes : CountRoutes(folder);
}

} // namespace jlandxml
