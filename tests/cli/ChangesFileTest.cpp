#include "cli/ChangesFile.h"

#include "cli/CommandLine.h"
#include "run/FinishedDocument.h"
#include "support/ReplayChanges.h"
#include "support/Rounds.h"
#include "support/RunFixture.h"
#include "support/XmlText.h"
#include "support/generator/WorkFolderGenerator.h"

#include <nlohmann/json.hpp>

#include <sstream>

namespace jlandxml
{
namespace
{

using generator::MakeWorkFolder;
using generator::WorkFolder;

using OrderedJson = nlohmann::ordered_json;

class ChangesFileTest : public RunTest
{
  protected:
    static ExitStatus Run(const std::vector<std::wstring>& arguments)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitStatus status = RunCommandLine(arguments);
        testing::internal::GetCapturedStdout();
        said = testing::internal::GetCapturedStderr();
        return status;
    }

    std::vector<OrderedJson> Records() const
    {
        std::vector<OrderedJson> records;
        std::istringstream lines(folder.Read(L"changes.jsonl"));
        for (std::string line; std::getline(lines, line);)
        {
            records.push_back(OrderedJson::parse(line));
        }
        return records;
    }

    static std::vector<WcXmChange> Changes()
    {
        std::vector<WcXmChange> changes;
        Context().document.appDocument->journal->ForEachChange(
            [&](const WcXmChange& change) { changes.push_back(change); });
        return changes;
    }

    inline static std::string said;
};

constexpr const char* CHANGED_WORK_FILE =
    "<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/>"
    "<Alignments><Alignment name='A' desc='プロジェクト名 = 名'><Profile "
    "staStart='0'/></Alignment></Alignments></LandXML>";

constexpr const char* CHANGES_SETTINGS = R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1",
    "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}]})";

TEST_F(ChangesFileTest, HoldsOneObjectForEachChange)
{
    WorkFile(CHANGED_WORK_FILE);
    EXPECT_EQ(Run({folder.Name(), L"-s", folder.Write(L"s.json", CHANGES_SETTINGS), L"-o", folder.Name(L"out.xml"),
                   L"--changes", folder.Name(L"changes.jsonl")}),
              ExitStatus::FileWritten)
        << said;
    const std::vector<OrderedJson> records = Records();
    ASSERT_EQ(records.size(), 11U);
    EXPECT_EQ(records[0].dump(),
              R"({"change":"attributeAdded","object":"名","path":"/*[1]/*[1]","name":"name","new":"名"})");
    EXPECT_EQ(records[7].dump(),
              R"({"change":"elementAdded","object":"サイト／A／Horizontal","newPath":"/*[1]/*[3]/*[1]/*[2]",)"
              R"("name":"Feature","new":"<Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/>)"
              R"(</Feature>"})");
    EXPECT_EQ(records.back().dump(), R"({"change":"attributeChanged","object":"サイト／A／縦断","path":)"
                                     R"("/*[1]/*[3]/*[1]/*[1]","name":"staStart","old":"0","new":"0.",)"
                                     R"("sameNumbers":true})");
}

TEST_F(ChangesFileTest, LongTextsAreCutAndTheirLengthIsSaid)
{
    std::string name;
    for (int i = 0; i < 300; ++i)
    {
        name += "名";
    }
    WorkFile(std::string("<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' "
                         "horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' desc="
                         "'プロジェクト名 = ") +
             name + "'/></Alignments></LandXML>");
    EXPECT_EQ(Run({folder.Name(), L"-s", folder.Write(L"s.json", CHANGES_SETTINGS), L"-o", folder.Name(L"out.xml"),
                   L"--changes", folder.Name(L"changes.jsonl")}),
              ExitStatus::FileWritten)
        << said;
    const OrderedJson first = Records().front();
    EXPECT_EQ(first["newLength"], 300);
    EXPECT_EQ(first["new"].get<std::string>(), name.substr(0, name.size() / 300 * 200));
}

TEST_F(ChangesFileTest, ThatCanNotBeWrittenIsNamed)
{
    WorkFile(CHANGED_WORK_FILE);
    EXPECT_EQ(Run({folder.Name(), L"-s", folder.Write(L"s.json", CHANGES_SETTINGS), L"-o", folder.Name(L"out.xml"),
                   L"--changes", folder.Name(L"missing/changes.jsonl")}),
              ExitStatus::NoFile);
    EXPECT_NE(said.find("missing/changes.jsonl"), std::string::npos);
}

TEST_F(ChangesFileTest, IsRefusedWhereNoFileIsMadeOrAnotherOneWouldGo)
{
    WorkFile(CHANGED_WORK_FILE);
    EXPECT_EQ(Run({folder.Name(), L"--print-settings", L"--changes", folder.Name(L"c")}), ExitStatus::WrongUsage);
    EXPECT_EQ(Run({folder.Name(), L"-o", folder.Name(L"c"), L"--changes", folder.Name(L"c")}), ExitStatus::WrongUsage);
    EXPECT_EQ(Run({folder.Name(), L"--dry-run", L"--changes", folder.Name(L"Landxml_temp.xml")}),
              ExitStatus::WrongUsage);
    EXPECT_EQ(folder.Read(L"Landxml_temp.xml"), CHANGED_WORK_FILE);
}

TEST_F(ChangesFileTest, ARunThatIsNotAskedKeepsNothing)
{
    WorkFile(CHANGED_WORK_FILE);
    Run({folder.Name(), L"-o", folder.Name(L"out.xml")});
    EXPECT_EQ(Context().document.appDocument->journal, nullptr);
}

/// What a finished file would be if a tree was printed as one.
std::string FinishedBytes(WcXmDocument& document)
{
    std::string bytes;
    document.appDocument->EnsureDeclaration();
    PrintFinished(*document.appDocument, [&](std::string_view block) { bytes += block; });
    return bytes;
}

TEST_F(ChangesFileTest, ChangesAppliedToTheWorkFileGiveTheFinishedFile)
{
    constexpr std::uint64_t SEED = 13;
    constexpr std::uint32_t FOLDERS = HAS_SANITIZERS ? 25 : 500;
    std::uint32_t finished = 0;
    // So many that end with a file, as all of a host's do and most of the others.
    for (std::uint32_t number = 1; finished < FOLDERS && number <= 2 * FOLDERS; ++number)
    {
        SCOPED_TRACE("folder " + std::to_string(number));
        const WorkFolder work = MakeWorkFolder(SEED, number);
        const std::filesystem::path path = folder.Path() / "work";
        std::filesystem::remove_all(path);
        std::filesystem::remove(folder.Path() / "out.xml");
        generator::WriteFiles(work.files, path);
        const ExitStatus status = Run({WideName(path), L"-s", WideName(path / "settings.json"), L"-o",
                                       folder.Name(L"out.xml"), L"--changes", folder.Name(L"changes.jsonl")});
        if (status != ExitStatus::FileWritten)
        {
            EXPECT_FALSE(work.hostLike) << said;
            continue;
        }
        ++finished;
        WcXmDocument document;
        document.Create();
        document.appDocument->LoadDocument(WideName(path / "Landxml_temp.xml"));
        const std::vector<WcXmChange> changes = Changes();
        EXPECT_EQ(Records().size(), changes.size());
        const ReplayChanges replay(*document.appDocument->xmlDocument, changes);
        ASSERT_EQ(FinishedBytes(document), folder.Read(L"out.xml"));
    }
    EXPECT_EQ(finished, FOLDERS);
}

} // namespace
} // namespace jlandxml
