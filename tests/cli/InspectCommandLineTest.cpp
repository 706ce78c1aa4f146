#include "cli/InspectCommandLine.h"

#include "base/Text.h"
#include "inspect/SchemaValidation.h"
#include "support/FailingAllocation.h"
#include "support/StreamOverride.h"
#include "support/TemporaryFolder.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>

namespace jlandxml
{
namespace
{

using OrderedJson = nlohmann::ordered_json;

/// Files from sound to unreadable; what the checks say of them is tested with the checks.
const std::string HEAD = VERSIONED_ROOT + "<Units><Metric linearUnit=\"meter\"/></Units><CoordinateSystem "
                                          "horizontalDatum=\"JGD2011\" horizontalCoordinateSystemName=\"9(X,Y)\"/>";
const std::string SOUND = HEAD + "</LandXML>";
const std::string WITH_ERROR = VERSIONED_ROOT + "<Project name=\"名\"/><CoordinateSystem horizontalDatum=\"JGD2011\" "
                                                "horizontalCoordinateSystemName=\"9(X,Y)\"/></LandXML>";
const std::string WITH_WARNING =
    HEAD + "<Alignments name=\"路線\"><Alignment name=\"A\" length=\"1\" staStart=\"0\"><CoordGeom><Line>\n"
           "<Start>0 0</Start><End name=\"EP\">1 0</End></Line></CoordGeom></Alignment></Alignments></LandXML>";
const std::string WITH_INFORMATION = HEAD + "<Monuments/></LandXML>";

struct InspectOutcome
{
    InspectStatus status;
    std::string out;
    std::string err;
};

class InspectCommandLineTest : public testing::Test
{
  protected:
    static InspectOutcome Run(const std::vector<std::wstring>& arguments)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const InspectStatus status = RunInspectCommandLine(arguments);
        std::string out = testing::internal::GetCapturedStdout();
        return {status, std::move(out), testing::internal::GetCapturedStderr()};
    }

    std::wstring File(const std::string& bytes, const std::wstring& name = L"完成.xml") const
    {
        return folder_.Write(name, bytes);
    }

    TestFolder folder_;
};

TEST_F(InspectCommandLineTest, ASummaryAndTheFindingsStandOnStandardOutput)
{
    const std::wstring file = File(WITH_WARNING);
    const InspectOutcome outcome = Run({file});
    EXPECT_EQ(outcome.status, InspectStatus::NothingFound);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "ファイル: " + Utf8FromWide(file) +
                               "\n"
                               "  形式: LandXML 1.2\n"
                               "  プロジェクト: （指定なし）\n"
                               "  座標参照系: JGD2011、9(X,Y)\n"
                               "  単位: Metric、meter\n"
                               "  範囲: X 0～1、Y 0～0、高さ なし\n"
                               "  路線: 路線、線形 1\n"
                               "    A: 長さ 1 m、測点 0～1、要素 1（直線 1）\n"
                               "  検査結果: 誤り 0、警告 1、情報 0\n"
                               "    警告 H10 2行目 A／直線 ～EP: 主要点の名称がありません（Start）\n");
}

TEST_F(InspectCommandLineTest, JsonIsOneLineForEachFile)
{
    const InspectOutcome outcome =
        Run({L"--json", File(SOUND, L"a.xml"), File(WITH_ERROR, L"b.xml"), folder_.Name(L"c.xml")});
    EXPECT_EQ(outcome.status, InspectStatus::NotRead);
    std::istringstream lines(outcome.out);
    std::vector<OrderedJson> files;
    for (std::string line; std::getline(lines, line);)
    {
        files.push_back(OrderedJson::parse(line));
    }
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0]["findings"], OrderedJson::array());
    EXPECT_EQ(files[1]["file"], Utf8FromWide(folder_.Name(L"b.xml")));
    EXPECT_EQ(files[1]["summary"]["project"], "名");
    EXPECT_EQ(
        files[1]["findings"][0].dump(),
        R"({"code":"R12","severity":"誤り","text":"単位がメートルではありません（指定なし）","object":"単位系","line":0})");
    EXPECT_EQ(files[2]["error"], "ファイルを開けません");
}

TEST_F(InspectCommandLineTest, JsonHasTheNumbersOfAFinding)
{
    std::string text = WITH_WARNING;
    text.replace(text.find("length=\"1\""), 10, "length=\"3\"");
    const OrderedJson file = OrderedJson::parse(Run({L"--json", L"--checks", L"H09", File(text)}).out);
    const OrderedJson& finding = file["findings"][0];
    EXPECT_EQ(finding["value"], 3.0);
    EXPECT_EQ(finding["expected"], 1.0);
    EXPECT_EQ(finding["tolerance"], 0.001);
    EXPECT_EQ(finding["line"], 1);
    EXPECT_EQ(file["summary"]["alignments"][0]["length"], 3.0);
}

// Statuses

struct StatusCase
{
    const char* name;
    const std::string* file;
    const wchar_t* failOn; ///< null: not given
    InspectStatus status;
};
const StatusCase STATUS_CASES[] = {
    {"SoundByDefault", &SOUND, nullptr, InspectStatus::NothingFound},
    {"ErrorByDefault", &WITH_ERROR, nullptr, InspectStatus::Findings},
    {"WarningByDefault", &WITH_WARNING, nullptr, InspectStatus::NothingFound},
    {"WarningAtError", &WITH_WARNING, L"誤り", InspectStatus::NothingFound},
    {"WarningAtWarning", &WITH_WARNING, L"警告", InspectStatus::Findings},
    {"ErrorAtWarning", &WITH_ERROR, L"警告", InspectStatus::Findings},
    {"InformationAtWarning", &WITH_INFORMATION, L"警告", InspectStatus::NothingFound},
    {"InformationAtInformation", &WITH_INFORMATION, L"情報", InspectStatus::Findings},
    {"SoundAtInformation", &SOUND, L"情報", InspectStatus::NothingFound},
};

class InspectStatuses : public InspectCommandLineTest, public testing::WithParamInterface<StatusCase>
{};

TEST_P(InspectStatuses, FollowTheSeverityAskedFor)
{
    std::vector<std::wstring> arguments{File(*GetParam().file)};
    if (GetParam().failOn != nullptr)
    {
        arguments.insert(arguments.end(), {L"--fail-on", GetParam().failOn});
    }
    EXPECT_EQ(Run(arguments).status, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(Cli, InspectStatuses, testing::ValuesIn(STATUS_CASES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_F(InspectCommandLineTest, AFileThatCannotBeReadDoesNotStopTheOthers)
{
    const std::wstring broken = File("<LandXML>\n<x>", L"broken.xml");
    const InspectOutcome outcome = Run({broken, File(SOUND)});
    EXPECT_EQ(outcome.status, InspectStatus::NotRead);
    EXPECT_EQ(outcome.err, Utf8FromWide(broken) + ": XMLとして読み込めません（2行目）\n");
    EXPECT_TRUE(outcome.out.ends_with("誤り 0、警告 0、情報 0\n"));
}

TEST_F(InspectCommandLineTest, WithoutMemoryForOneItIsToldAndTheOthersAreStillRead)
{
    constexpr std::size_t EVERY_SO_MANY = 7; // those between them are of the same kinds
    const std::wstring first = File(WITH_WARNING);
    const std::wstring second = File(SOUND, L"次.xml");
    const InspectOutcome whole = Run({first, second});
    const std::string ofTheSecond = Run({second}).out;
    int told = 0;
    bool hasFailed = true;
    for (std::size_t allowed = 0; hasFailed; allowed += EVERY_SO_MANY)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        std::optional<InspectStatus> status; // none where memory ends outside of both files
        try
        {
            const std::vector<std::wstring> arguments{first, second};
            const FailingAllocation failing(allowed, FailOtherwise);
            status = RunInspectCommandLine(arguments);
            hasFailed = failing.HasFailed();
        }
        catch (const std::bad_alloc&)
        {}
        const std::string out = testing::internal::GetCapturedStdout();
        const std::string err = testing::internal::GetCapturedStderr();
        if (status == InspectStatus::NotRead)
        {
            ++told;
            EXPECT_TRUE(err.ends_with("メモリーが足りません\n")) << allowed << err;
            EXPECT_TRUE(err.starts_with(Utf8FromWide(second)) || out.ends_with(ofTheSecond)) << allowed;
        }
        else if (status)
        {
            EXPECT_EQ(out, whole.out) << allowed;
        }
    }
    EXPECT_GT(told, 5);
}

TEST_F(InspectCommandLineTest, AFolderIsNoFile)
{
    const InspectOutcome outcome = Run({folder_.Name()});
    EXPECT_EQ(outcome.status, InspectStatus::NotRead);
    EXPECT_EQ(outcome.err, Utf8FromWide(folder_.Name()) + ": ファイルを開けません\n");
}

// Choosing checks

TEST_F(InspectCommandLineTest, ChecksAreChosenByCodeOrByGroup)
{
    const std::wstring file = File(VERSIONED_ROOT + "</LandXML>");
    const auto codes = [&](std::vector<std::wstring> arguments) {
        arguments.insert(arguments.end(), {L"--json", file});
        std::string text;
        const OrderedJson json = OrderedJson::parse(Run(arguments).out);
        for (const OrderedJson& finding : json["findings"])
        {
            text += finding["code"].get<std::string>() + " ";
        }
        return text;
    };
    EXPECT_EQ(codes({}), "R05 R06 R12 ");
    EXPECT_EQ(codes({L"--checks", L"R12,R05"}), "R05 R12 ");
    EXPECT_EQ(codes({L"--checks", L"R12", L"--checks", L"R05"}), "R05 R12 ");
    EXPECT_EQ(codes({L"--checks", L"H"}), "");
    EXPECT_EQ(codes({L"--checks", L"R", L"--ignore", L"R06"}), "R05 R12 ");
    EXPECT_EQ(codes({L"--ignore", L"R"}), "");
    EXPECT_EQ(codes({L"--ignore", L"S01"}), "R05 R06 R12 ");
    EXPECT_EQ(codes({L"--checks", L"S,R12", L"--ignore", L"S01"}), "R12 ");
}

TEST_F(InspectCommandLineTest, TheListOfChecksHasALineForEach)
{
    const std::string text = Run({L"--list-checks"}).out;
    EXPECT_NE(text.find("\nH02\t誤り\t0.001／0.1m\t要素の終点と次の要素の始点が離れています\t"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n') * 5, std::count(text.begin(), text.end(), '\t'));
    std::istringstream lines(Run({L"--list-checks", L"--json"}).out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(OrderedJson::parse(line)["code"], "X01");
}

// Schemas

constexpr const char* SCHEMA =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='LandXML'><xs:complexType><xs:sequence>"
    "<xs:element name='Project' maxOccurs='unbounded'><xs:complexType><xs:attribute name='name' use='required'/>"
    "</xs:complexType></xs:element></xs:sequence></xs:complexType></xs:element></xs:schema>";

class InspectSchema : public InspectCommandLineTest
{
  protected:
    void SetUp() override
    {
        if (!inspect::CanValidate())
        {
            GTEST_SKIP() << "built without the validating library";
        }
    }

    /// What the schema check says of a file.
    std::string Said(const std::string& file) const
    {
        const std::wstring schema = folder_.Write(L"基準.xsd", SCHEMA);
        const InspectOutcome outcome = Run({L"--checks", L"S", L"--schema", schema, File(file)});
        EXPECT_EQ(outcome.err, "");
        return outcome.out.substr(outcome.out.find("    誤り") == std::string::npos ? outcome.out.size()
                                                                                    : outcome.out.find("    誤り"));
    }
};

TEST_F(InspectSchema, AFileThatFollowsItIsSilent)
{
    EXPECT_EQ(Said("<LandXML><Project name='名'/></LandXML>"), "");
}

TEST_F(InspectSchema, AMissingAttributeIsNamedWithLineAndPath)
{
    EXPECT_EQ(Said("<LandXML>\n<Project/></LandXML>"),
              "    誤り S01 2行目 /LandXML/Project: スキーマに合いません（Element 'Project': The attribute 'name' is "
              "required but missing.）\n");
}

TEST_F(InspectSchema, UnknownAttributesOfOneNameAreOneFinding)
{
    EXPECT_EQ(Said("<LandXML><Project name='a' x='1'/>\n<Project name='b' x='1'/><Project name='c' y='1'/></LandXML>"),
              "    誤り S01 1行目 /LandXML/Project: スキーマに合いません（attribute 'x': The attribute 'x' is not "
              "allowed.、2件）\n"
              "    誤り S01 2行目 /LandXML/Project: スキーマに合いません（attribute 'y': The attribute 'y' is not "
              "allowed.）\n");
}

TEST_F(InspectSchema, UnknownAttributesOfOneNameAreOneFindingWhereverTheyStand)
{
    EXPECT_EQ(Said("<LandXML x='1'><Project name='a' x='1'/>\n<Project name='b' x='1'/></LandXML>"),
              "    誤り S01 1行目 /LandXML: スキーマに合いません（attribute 'x': The attribute 'x' is not "
              "allowed.、3件）\n");
}

TEST_F(InspectSchema, LinesAndPathsAreRightInALongFile)
{
    std::string text = "<LandXML>";
    for (int line = 0; line < 20000; ++line)
    {
        text += "<!-- long -->\n";
    }
    EXPECT_EQ(Said(text + "<Project name='a'/></LandXML>"), "");
    EXPECT_EQ(
        Said(text + "<Project/></LandXML>"),
        "    誤り S01 20001行目 /LandXML/Project: スキーマに合いません（Element 'Project': The attribute 'name' is "
        "required but missing.）\n");
}

TEST_F(InspectSchema, AFileThatIsNotWellFormedIsToldOnce)
{
    const std::wstring schema = folder_.Write(L"基準.xsd", SCHEMA);
    const std::wstring file = File("<LandXML>\n<Project/><Project a='' a=''/>\n<Project/></LandXML>");
    const auto said = [&](const std::vector<std::wstring>& checks) {
        std::vector<std::wstring> arguments{L"--schema", schema, file};
        for (const std::wstring& check : checks)
        {
            arguments.insert(arguments.end(), {L"--checks", check});
        }
        const std::string out = Run(arguments).out;
        return out.substr(out.find("    誤り"));
    };
    const std::string form = "2行目 /LandXML: 整形式のXMLではありません（Attribute a redefined）\n";
    const std::string missing =
        "    誤り S01 2行目 /LandXML/Project: スキーマに合いません（Element 'Project': The attribute "
        "'name' is required but missing.）\n";
    EXPECT_EQ(said({L"X07", L"S01"}), "    誤り X07 " + form + missing);
    EXPECT_EQ(said({L"X07"}), "    誤り X07 " + form);
    EXPECT_EQ(said({L"S01"}), "    誤り S01 2行目 /LandXML: スキーマに合いません（Attribute a redefined）\n" + missing);
}

TEST_F(InspectSchema, AFileInCodePage932IsReadAsSuch)
{
    EXPECT_EQ(Said("<?xml version='1.0' encoding='Shift_JIS'?>" +
                   Cp932FromWide(L"<LandXML><Project name='架空'/></LandXML>")),
              "");
}

TEST_F(InspectSchema, EveryFaultOfAFileThatIsWrongFromEndToEndIsCounted)
{
    std::string text = "<LandXML>";
    for (int count = 0; count < 1500; ++count)
    {
        text += "<Project/>";
    }
    const std::string said = Said(text + "</LandXML>");
    EXPECT_TRUE(said.ends_with("    誤り S01: スキーマに合いません（ほか1300件）\n")) << said.substr(said.size() - 200);
}

/// How a schema names one that it includes, and the file's own name.
struct Inclusion
{
    const char* name;
    const char* location;
    const wchar_t* file;
};

class InspectInclusions : public InspectSchema, public testing::WithParamInterface<Inclusion>
{};

TEST_P(InspectInclusions, AreReadFromBesideTheSchema)
{
    const std::string type = "<xs:complexType name='T'><xs:attribute name='name' use='required'/></xs:complexType>";
    const std::string head = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>";
    const auto including = [&](const std::string& location) {
        return head + "<xs:include schemaLocation=\"" + location + "\"/>";
    };
    // The second one includes a third.
    folder_.Write(GetParam().file, including("下位.xsd") + "</xs:schema>");
    folder_.Write(L"下位.xsd", head + type + "</xs:schema>");
    const std::wstring schema = folder_.Write(L"主 1.xsd", including(GetParam().location) +
                                                               "<xs:element name='LandXML' type='T'/></xs:schema>");
    EXPECT_EQ(Run({L"--checks", L"S", L"--schema", schema, File("<LandXML name='a'/>")}).status,
              InspectStatus::NothingFound);
    EXPECT_EQ(Run({L"--checks", L"S", L"--schema", schema, File("<LandXML/>")}).status, InspectStatus::Findings);
}

INSTANTIATE_TEST_SUITE_P(Cli, InspectInclusions,
                         testing::Values(Inclusion{"Plain", "type.xsd", L"type.xsd"},
                                         Inclusion{"ABlank", "type 1.xsd", L"type 1.xsd"},
                                         Inclusion{"AnEscapedBlank", "type%201.xsd", L"type 1.xsd"},
                                         Inclusion{"Japanese", "型の定義.xsd", L"型の定義.xsd"},
                                         Inclusion{"EscapedJapanese", "%E5%9E%8B.xsd", L"型.xsd"}),
                         [](const auto& row) { return std::string(row.param.name); });

/// A schema that does its worst, with one that it may include as part.xsd.
struct HostileSchema
{
    const char* name;
    std::string schema; ///< what stands in its outermost element
    std::string part;
    const char* file;
    InspectStatus status;
};

std::string Times(std::size_t count, const std::string& text)
{
    std::string all;
    for (std::size_t index = 0; index < count; ++index)
    {
        all += text;
    }
    return all;
}

const std::string INCLUSION = "<xs:include schemaLocation='part.xsd'/>";
const std::string PART = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>";
const std::string ROOT = "<xs:element name='LandXML'/>";
const std::string TREE = "<xs:complexType name='T'><xs:sequence><xs:element name='LandXML' type='T' minOccurs='0'/>"
                         "</xs:sequence></xs:complexType><xs:element name='LandXML' type='T'/>";

const HostileSchema HOSTILE_SCHEMAS[] = {
    {"IncludesItself", "<xs:include schemaLocation='schema.xsd'/>" + ROOT, "", "<LandXML/>", InspectStatus::NotRead},
    {"IncludesInARing", INCLUSION + ROOT, PART + "<xs:include schemaLocation='schema.xsd'/></xs:schema>", "<LandXML/>",
     InspectStatus::NothingFound},
    {"IncludesWhatIsNotThere", "<xs:include schemaLocation='no.xsd'/>" + ROOT, "", "<LandXML/>",
     InspectStatus::NotRead},
    {"IncludesFromTheNetwork", "<xs:include schemaLocation='http://localhost:9/a.xsd'/>" + ROOT, "", "<LandXML/>",
     InspectStatus::NotRead},
    {"IncludesAFolder", "<xs:include schemaLocation='.'/>" + ROOT, "", "<LandXML/>", InspectStatus::NotRead},
    // The entity would declare the element.
    {"TakesInAFileByAnEntity", INCLUSION, "<!DOCTYPE s [<!ENTITY e SYSTEM 'element.txt'>]>" + PART + "&e;</xs:schema>",
     "<LandXML/>", InspectStatus::NotRead},
    {"GrowsWithoutEnd", INCLUSION + ROOT,
     "<!DOCTYPE s [<!ENTITY a '" + Times(100, "<xs:annotation/>") + "'><!ENTITY b '" + Times(100, "&a;") +
         "'><!ENTITY c '" + Times(100, "&b;") + "'><!ENTITY d '" + Times(100, "&c;") + "'>]>" + PART +
         "&d;</xs:schema>",
     "<LandXML/>", InspectStatus::NotRead},
    {"IsTooDeep", "<xs:complexType name='T'>" + Times(100000, "<xs:sequence>") + ROOT, "", "<LandXML/>",
     InspectStatus::NotRead},
    {"HoldsATypeOfItself", TREE, "", "<LandXML><LandXML/></LandXML>", InspectStatus::NothingFound},
};

class InspectHostileSchema : public InspectSchema, public testing::WithParamInterface<HostileSchema>
{};

TEST_P(InspectHostileSchema, IsReadOrIsNone)
{
    const HostileSchema& hostile = GetParam();
    folder_.Write(L"element.txt", "<xs:element xmlns:xs='http://www.w3.org/2001/XMLSchema' name='LandXML'/>");
    folder_.Write(L"part.xsd", hostile.part);
    const std::wstring schema = folder_.Write(L"schema.xsd", PART + hostile.schema + "</xs:schema>");
    const InspectOutcome outcome = Run({L"--checks", L"S", L"--schema", schema, File(hostile.file)});
    EXPECT_EQ(outcome.status, hostile.status) << outcome.out << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Cli, InspectHostileSchema, testing::ValuesIn(HOSTILE_SCHEMAS),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(InspectSchema, ASchemaInCodePage932IsReadAsSuch)
{
    const std::wstring schema = folder_.Write(
        L"主.xsd", Cp932FromWide(L"<?xml version='1.0' encoding='Shift_JIS'?><xs:schema "
                                 L"xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='路線'/></xs:schema>"));
    EXPECT_EQ(Run({L"--checks", L"S", L"--schema", schema, File("<LandXML/>")}).status, InspectStatus::Findings);
}

TEST_F(InspectSchema, OfSeveralFilesIsReadForEach)
{
    const std::wstring schema = folder_.Write(L"基準.xsd", SCHEMA);
    const InspectOutcome outcome = Run({L"--checks", L"S", L"--schema", schema, File("<LandXML/>", L"a.xml"),
                                        File("<LandXML><Project name='a'/></LandXML>", L"b.xml")});
    EXPECT_NE(outcome.out.find("検査結果: 誤り 1、"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("検査結果: 誤り 0、"), std::string::npos) << outcome.out;
}

TEST_F(InspectSchema, ThatCannotBeReadIsStatusThree)
{
    const std::wstring schema = folder_.Write(L"x.xsd", "<no/>");
    const InspectOutcome outcome = Run({L"--schema", schema, File(SOUND)});
    EXPECT_EQ(outcome.status, InspectStatus::NotRead);
    EXPECT_TRUE(outcome.err.ends_with(": スキーマとして読み込めません: " + Utf8FromWide(schema) + "\n"));
    EXPECT_EQ(Run({L"--schema", L"無い.xsd", File(SOUND)}).status, InspectStatus::NotRead);
}

// Calculation sheets

TEST_F(InspectCommandLineTest, CalculationSheetsAreWrittenIntoAFolderThatIsMade)
{
    const std::wstring file = File(WITH_WARNING);
    const InspectOutcome outcome = Run({L"--csv", folder_.Name(L"計算書") + L"/a", file});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(folder_.Read(L"計算書/a/完成-縦断計算書.csv"),
              "\xEF\xBB\xBF線形,縦断線形,測点,測点（m）,高さ,勾配（手前）％,勾配（先）％,縦断曲線長,縦断曲線半径,"
              "曲線始点（m）,曲線終点（m）,計画高\r\n");
    for (const wchar_t* const name : {L"線形計算書", L"測点座標一覧", L"片勾配・拡幅表", L"中間点・幅杭一覧"})
    {
        EXPECT_NE(folder_.Read(std::wstring(L"計算書/a/完成-") + name + L".csv"), "");
    }
}

TEST_F(InspectCommandLineTest, AFolderThatCannotBeMadeIsStatusThree)
{
    const std::wstring file = File(SOUND);
    const InspectOutcome outcome = Run({L"--csv", file + L"/a", file});
    EXPECT_EQ(outcome.status, InspectStatus::NotRead);
    EXPECT_EQ(outcome.err, Utf8FromWide(file) + "/a: フォルダーを作れません\n");
    EXPECT_EQ(outcome.out, "");
}

TEST_F(InspectCommandLineTest, TheReportIsOnePage)
{
    const InspectOutcome outcome = Run({File(WITH_WARNING), L"--report", folder_.Name(L"報告.html")});
    EXPECT_EQ(outcome.status, InspectStatus::NothingFound);
    EXPECT_EQ(outcome.err, "");
    const std::string page = folder_.Read(L"報告.html");
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n"));
    EXPECT_NE(page.find("主要点の名称がありません（Start）"), std::string::npos);
}

TEST_F(InspectCommandLineTest, AReportNeverTakesThePlaceOfWhatIsInspected)
{
    const std::wstring file = File(SOUND);
    const std::string before = folder_.Read(L"完成.xml");
    ASSERT_NE(before, "");
    const std::wstring sameFile = folder_.Name(L".") + L"/完成.xml";
    const InspectOutcome outcome = Run({file, L"--report", sameFile});
    EXPECT_EQ(outcome.status, InspectStatus::WrongUsage);
    EXPECT_EQ(outcome.err, "--report: ほかに読み書きするファイルです: " + Utf8FromWide(sameFile) + "\n");
    EXPECT_EQ(folder_.Read(L"完成.xml"), before);
}

TEST_F(InspectCommandLineTest, AReportThatCannotBeWrittenIsStatusThree)
{
    const std::wstring report = folder_.Name(L"無い") + L"/x.html";
    const InspectOutcome outcome = Run({File(SOUND), L"--json", L"--report", report});
    EXPECT_EQ(outcome.status, InspectStatus::NotRead);
    EXPECT_NE(outcome.err, "");
    EXPECT_NE(outcome.out.find("\"error\":"), std::string::npos);
    EXPECT_EQ(outcome.out.find('\n'), outcome.out.size() - 1);
}

// The arguments

struct WrongInspectArguments
{
    const char* name;
    std::vector<std::wstring> arguments;
    const char* error;
};

const WrongInspectArguments WRONG_INSPECT_ARGUMENTS[] = {
    {"Nothing", {}, "FILE: 検査するファイルを指定してください\n"},
    {"AnUnknownOption", {L"x", L"--verbose"}, "--verbose: 不明なオプションです\n"},
    {"AnUnknownSeverity", {L"x", L"--fail-on", L"fatal"}, "--fail-on: 誤り、警告、情報のいずれかを指定してください\n"},
    {"AnUnknownCheck",
     {L"x", L"--checks", L"H02,H99"},
     "--checks: 「H99」という検査はありません（--list-checksで一覧を表示します）\n"},
    {"AnUnknownGroup",
     {L"x", L"--ignore", L"Z"},
     "--ignore: 「Z」という検査はありません（--list-checksで一覧を表示します）\n"},
    {"TheCheckOfASchemaWithoutOne",
     {L"x", L"--checks", L"S01"},
     "--checks: S01には、照合するXMLスキーマを--schemaで指定してください\n"},
    {"TheGroupOfSchemasWithoutOne",
     {L"x", L"--checks", L"H02,S"},
     "--checks: S01には、照合するXMLスキーマを--schemaで指定してください\n"},
    {"NoSchema", {L"x", L"--schema", L""}, "--schema: ファイルを指定してください\n"},
    {"NoFolder", {L"x", L"--csv", L""}, "--csv: フォルダーを指定してください\n"},
    {"NoReportFile", {L"x", L"--report", L""}, "--report: ファイルを指定してください\n"},
    {"TwoFilesToReport",
     {L"x", L"y", L"--report", L"r.html"},
     "--report: 検査するファイルは一つだけ指定してください\n"},
    {"TwoFilesOfOneName",
     {L"a/x.xml", L"b/x.xml", L"--csv", L"c"},
     "--csv: 同じ名前のファイルが二つあります: b/x.xml\n"},
    {"NoValueOfAnOption", {L"x", L"--fail-on"}, "--fail-on: 値を指定してください\n"},
};

class InspectArguments : public InspectCommandLineTest, public testing::WithParamInterface<WrongInspectArguments>
{};

TEST_P(InspectArguments, ThatAreWrongAreStatusTwoWithOneLine)
{
    const InspectOutcome outcome = Run(GetParam().arguments);
    EXPECT_EQ(outcome.status, InspectStatus::WrongUsage);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Cli, InspectArguments, testing::ValuesIn(WRONG_INSPECT_ARGUMENTS),
                         [](const auto& one) { return std::string(one.param.name); });

#ifdef __linux__
TEST_F(InspectCommandLineTest, AnAnswerThatCannotBeWrittenIsStatusThreeWithOneLine)
{
    const std::vector<std::wstring> asked[] = {{File(SOUND)}, {L"--json", File(SOUND)}, {L"--list-checks"},
                                               {L"--help"},   {L"--version"},           {L"--list-checks", L"--json"}};
    for (const std::vector<std::wstring>& arguments : asked)
    {
        testing::internal::CaptureStderr();
        const InspectStatus status = [&] {
            const FullStandardOutput full;
            return RunInspectCommandLine(arguments);
        }();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "標準出力に書き込めません\n") << Utf8FromWide(arguments[0]);
        EXPECT_EQ(status, InspectStatus::NotRead) << Utf8FromWide(arguments[0]);
    }
}
#endif

TEST_F(InspectCommandLineTest, HelpNamesEveryOption)
{
    const InspectOutcome outcome = Run({L"--help"});
    EXPECT_EQ(outcome.status, InspectStatus::NothingFound);
    for (const char* const option :
         {"FILE", "--json", "--checks CODES", "--ignore CODES", "--fail-on SEVERITY", "--schema XSD", "--csv DIR",
          "--report FILE", "--list-checks", "-h,--help", "-V,--version"})
    {
        EXPECT_NE(outcome.out.find(option), std::string::npos) << option;
    }
    EXPECT_TRUE(Run({L"-V"}).out.starts_with("jlandxml-inspect "));
}

} // namespace
} // namespace jlandxml
