#include "cli/InspectCommandLine.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Streams.h"
#include "base/Text.h"
#include "cli/Usage.h"
#include "inspect/Checks.h"
#include "inspect/OutputFile.h"
#include "inspect/Printing.h"
#include "inspect/ReadLandXml.h"
#include "inspect/Report.h"
#include "inspect/SchemaValidation.h"
#include "inspect/Summary.h"
#include "inspect/Tables.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <optional>
#include <set>
#include <utility>

namespace jlandxml
{

namespace
{

using inspect::AllChecks;
using inspect::Check;
using inspect::FindCheck;
using inspect::Finding;
using inspect::LandXmlFile;
using inspect::Severity;

struct InspectOptions
{
    std::vector<std::wstring> files;
    std::vector<const Check*> checks;
    Severity failOn = Severity::Error;
    std::wstring schemaFile; ///< empty: none
    std::wstring csvFolder;  ///< empty: none
    std::wstring reportFile; ///< empty: none
    bool json = false;
    bool listChecks = false;
};

/// The arguments as options, or the status with which the program ends at once.
struct ParsedInspect
{
    InspectOptions options;
    std::optional<InspectStatus> ends;
};

/// The checks that a list of codes names; a letter alone names all of its group.
std::vector<const Check*> NamedChecks(const char* option, const std::vector<std::string>& codes)
{
    std::vector<const Check*> named;
    for (const std::string& code : codes)
    {
        const std::wstring wide = WideFromUtf8(code);
        const std::size_t before = named.size();
        for (const Check& check : AllChecks())
        {
            if (wide == check.code || (wide.size() == 1 && wide.front() == check.code[0]))
            {
                named.push_back(&check);
            }
        }
        if (named.size() == before)
        {
            throw WrongArgument(option, "「" + code + "」という検査はありません（--list-checksで一覧を表示します）");
        }
    }
    return named;
}

/// The checks to run, in the order of the table.
std::vector<const Check*> ChosenChecks(const std::vector<std::string>& only, const std::vector<std::string>& without)
{
    const std::vector<const Check*> wanted = NamedChecks("--checks", only);
    const std::vector<const Check*> ignored = NamedChecks("--ignore", without);
    const auto holds = [](const std::vector<const Check*>& checks, const Check& check) {
        return std::find(checks.begin(), checks.end(), &check) != checks.end();
    };
    std::vector<const Check*> chosen;
    for (const Check& check : AllChecks())
    {
        if ((only.empty() || holds(wanted, check)) && !holds(ignored, check))
        {
            chosen.push_back(&check);
        }
    }
    return chosen;
}

bool Holds(const std::vector<const Check*>& checks, std::wstring_view code)
{
    return std::find(checks.begin(), checks.end(), FindCheck(code)) != checks.end();
}

/// A check that was asked for by its code and has nothing to hold files against would say nothing of any.
void RefuseWithoutSchema(const std::vector<const Check*>& checks)
{
    if (Holds(checks, L"S01"))
    {
        throw WrongArgument("--checks", "S01には、照合するXMLスキーマを--schemaで指定してください");
    }
}

Severity ReadSeverity(const std::string& text)
{
    const auto* const found =
        std::find(inspect::SEVERITY_NAMES.begin(), inspect::SEVERITY_NAMES.end(), WideFromUtf8(text));
    if (found == inspect::SEVERITY_NAMES.end())
    {
        throw WrongArgument("--fail-on", "誤り、警告、情報のいずれかを指定してください");
    }
    return static_cast<Severity>(found - inspect::SEVERITY_NAMES.begin());
}

/// The name of a file without its folder and its extension.
std::wstring_view BaseName(const std::wstring& path)
{
    const std::wstring_view name = std::wstring_view(path).substr(FolderOf(path).size());
    return name.substr(0, name.rfind(L'.'));
}

/// Two files of one name would write over one another's tables.
void RefuseSameNames(const std::vector<std::wstring>& files)
{
    std::set<std::wstring_view> names;
    for (const std::wstring& file : files)
    {
        if (!names.insert(BaseName(file)).second)
        {
            throw WrongArgument("--csv", "同じ名前のファイルが二つあります: " + Utf8FromWide(file));
        }
    }
}

ParsedInspect ParseInspect(const std::vector<std::wstring>& arguments)
{
    std::vector<std::string> files;
    std::vector<std::string> only;
    std::vector<std::string> without;
    std::string failOn = "誤り";
    std::string schemaFile;
    std::string csvFolder;
    std::string reportFile;
    ParsedInspect parsed;

    CLI::App app(InUsersLanguage("J-LandXMLまたはLandXML 1.2のファイルの内容を表示し、検査します。",
                                 "Says what is in J-LandXML or LandXML 1.2 files, checks them and draws them."),
                 "jlandxml-inspect");
    PrepareUsage(app, "jlandxml-inspect");
    app.add_option("FILE", files, InUsersLanguage("検査するファイル", "a file to be checked"))
        ->take_all()
        ->type_name("");
    app.add_flag("--json", parsed.options.json,
                 InUsersLanguage("ファイルごとに1行のJSONで表示します", "a line of JSON for each file"));
    const auto addCodes = [&](const char* name, std::vector<std::string>& codes, const char* meaning) {
        app.add_option(name, codes, meaning)->take_all()->delimiter(',')->allow_extra_args(false)->type_name("CODES");
    };
    addCodes("--checks", only,
             InUsersLanguage("行う検査の符号（コンマ区切り、Hのように組でも指定できます）",
                             "the codes of the checks that are made (parted by commas; a letter is a group)"));
    addCodes("--ignore", without, InUsersLanguage("行わない検査の符号", "the codes of the checks that are not made"));
    app.add_option("--fail-on", failOn,
                   InUsersLanguage("終了コードを1とする重大度: 誤り（既定値）、警告、情報",
                                   "the grade from which a finding is status 1: 誤り (default), 警告, 情報"))
        ->type_name("SEVERITY");
    const CLI::Option* const schemaOption =
        app.add_option("--schema", schemaFile,
                       InUsersLanguage("照合するXMLスキーマ（符号S01の検査）",
                                       "the XML schema that files are held against (check S01)"))
            ->type_name("XSD");
    const CLI::Option* const csvOption =
        app.add_option("--csv", csvFolder,
                       InUsersLanguage("計算書をCSVで書き出すフォルダー（なければ作ります）",
                                       "a folder for calculation sheets as CSV; it is made"))
            ->type_name("DIR");
    const CLI::Option* const reportOption =
        app.add_option("--report", reportFile,
                       InUsersLanguage("図面と計算書のHTMLファイル（検査するファイルは一つだけ）",
                                       "drawings and calculation sheets as an HTML page (of one file alone)"))
            ->type_name("FILE");
    app.add_flag("--list-checks", parsed.options.listChecks,
                 InUsersLanguage("検査の一覧を表示します", "lists the checks"));
    app.final_callback([&] {
        RefuseFurtherArguments(app);
        if (files.empty() && !parsed.options.listChecks)
        {
            throw WrongArgument("FILE", "検査するファイルを指定してください");
        }
        RefuseEmpty(*schemaOption, schemaFile, "ファイルを指定してください");
        RefuseEmpty(*csvOption, csvFolder, "フォルダーを指定してください");
        RefuseEmpty(*reportOption, reportFile, "ファイルを指定してください");
        if (!reportFile.empty() && files.size() > 1)
        {
            throw WrongArgument("--report", "検査するファイルは一つだけ指定してください");
        }
        RefuseOverwriting(*reportOption, reportFile, files);
        RefuseOverwriting(*reportOption, reportFile, {schemaFile});
        std::transform(files.begin(), files.end(), std::back_inserter(parsed.options.files), WideFromUtf8);
        if (!csvFolder.empty())
        {
            RefuseSameNames(parsed.options.files);
        }
        parsed.options.checks = ChosenChecks(only, without);
        if (!only.empty() && schemaFile.empty() && !parsed.options.listChecks)
        {
            RefuseWithoutSchema(parsed.options.checks);
        }
        parsed.options.failOn = ReadSeverity(failOn);
    });

    switch (ReadArguments(app, arguments))
    {
    case ArgumentsRead::Asked:
        parsed.ends = InspectStatus::NothingFound;
        break;
    case ArgumentsRead::Untold:
        parsed.ends = InspectStatus::NotRead;
        break;
    case ArgumentsRead::Wrong:
        parsed.ends = InspectStatus::WrongUsage;
        break;
    case ArgumentsRead::Whole:
        break;
    }
    parsed.options.schemaFile = WideFromUtf8(schemaFile);
    parsed.options.csvFolder = WideFromUtf8(csvFolder);
    parsed.options.reportFile = WideFromUtf8(reportFile);
    return parsed;
}

InspectStatus TellUnreadable(const InspectOptions& options, const std::wstring& path, const std::wstring& reason)
{
    WriteStandardError(path + L": " + reason + L"\n");
    if (options.json)
    {
        WriteAnswer(inspect::JsonErrorLine(path, reason));
    }
    return InspectStatus::NotRead;
}

void WriteTables(const LandXmlFile& file, const std::wstring& folder)
{
    for (const inspect::Table& table : inspect::AllTables(file))
    {
        const std::wstring path = folder + L"/" + std::wstring(BaseName(file.path)) + L"-" + table.title + L".csv";
        inspect::WriteOutputFile(path, inspect::CsvText(table));
    }
}

InspectStatus InspectFile(const InspectOptions& options, std::optional<inspect::XmlSchema>& schema,
                          const std::wstring& path)
{
    LandXmlFile file = inspect::ReadLandXmlFile(path);
    if (!options.schemaFile.empty())
    {
        // One that can't be read is told of each file.
        const inspect::XmlSchema& read = schema ? *schema : schema.emplace(options.schemaFile);
        file.schemaFaults = read.Validate(ReadWholeFile(path).value_or(std::string()));
        // Where it isn't well-formed, the schema check ends: told once, by whichever of the two was asked for.
        if (!Holds(options.checks, L"X07"))
        {
            file.formFault.reset();
        }
    }
    const std::vector<Finding> findings = Inspect(file, options.checks);
    if (!options.csvFolder.empty())
    {
        WriteTables(file, options.csvFolder);
    }
    if (!options.reportFile.empty())
    {
        inspect::WriteOutputFile(options.reportFile, inspect::ReportPage(file, findings));
    }
    // Last, so that there is one object for each file whatever fails.
    if (!WriteAnswer(options.json ? inspect::JsonLine(file, findings)
                                  : inspect::SummaryText(file) + inspect::FindingsText(findings)))
    {
        return InspectStatus::NotRead;
    }
    const bool fails = std::any_of(findings.begin(), findings.end(),
                                   [&](const Finding& finding) { return finding.severity >= options.failOn; });
    return fails ? InspectStatus::Findings : InspectStatus::NothingFound;
}

InspectStatus InspectFileSafely(const InspectOptions& options, std::optional<inspect::XmlSchema>& schema,
                                const std::wstring& path)
{
    try
    {
        return InspectFile(options, schema, path);
    }
    catch (const CException& exception)
    {
        return TellUnreadable(options, path, ErrorText(exception));
    }
    catch (const std::bad_alloc&)
    {
        return TellUnreadable(options, path, L"メモリーが足りません");
    }
}

} // namespace

InspectStatus RunInspectCommandLine(const std::vector<std::wstring>& arguments)
{
    const ParsedInspect parsed = ParseInspect(arguments);
    if (parsed.ends)
    {
        return *parsed.ends;
    }
    const InspectOptions& options = parsed.options;
    if (options.listChecks)
    {
        return WriteAnswer(options.json ? inspect::ChecksJsonLines() : inspect::ChecksText())
                   ? InspectStatus::NothingFound
                   : InspectStatus::NotRead;
    }
    if (!options.csvFolder.empty() && MakeFolder(options.csvFolder) != 0)
    {
        WriteStandardError(options.csvFolder + L": フォルダーを作れません\n");
        return InspectStatus::NotRead;
    }
    InspectStatus status = InspectStatus::NothingFound;
    std::optional<inspect::XmlSchema> schema;
    for (const std::wstring& path : options.files)
    {
        status = std::max(status, InspectFileSafely(options, schema, path));
    }
    return status;
}

} // namespace jlandxml
