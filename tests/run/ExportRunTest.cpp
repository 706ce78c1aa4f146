#include "run/ExportRun.h"

#include "run/LoadRun.h"
#include "support/FailingAllocation.h"
#include "support/FileSizeLimit.h"
#include "support/RunFixture.h"

namespace jlandxml
{
namespace
{

const std::string MARK = "\xEF\xBB\xBF";

class ExportRunTest : public RunTest
{
  protected:
    /// The finished file of a work file.
    std::string Exported(const std::string& xml)
    {
        LoadRun(WorkFile(xml));
        ExportRun(folder.Name(L"out.xml"));
        return folder.Read(L"out.xml");
    }
};

struct CriterionCase
{
    const char* name;
    const wchar_t* text;
    OutputVersion version;
};

class Criterion : public testing::TestWithParam<CriterionCase>
{};

TEST_P(Criterion, GivesTheOutputVersion)
{
    EXPECT_EQ(OutputVersionOf(GetParam().text), GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(ExportRun, Criterion,
                         testing::Values(CriterionCase{"NotOffered13", L"MlitLandXmlVer.1.3", VersionNumber(L"1.7")},
                                         CriterionCase{"NotOffered14", L"MlitLandXmlVer.1.4", VersionNumber(L"1.7")},
                                         CriterionCase{"Offered15", L"MlitLandXmlVer.1.5", VersionNumber(L"1.5")},
                                         CriterionCase{"Offered16", L"MlitLandXmlVer.1.6", VersionNumber(L"1.6")},
                                         CriterionCase{"Offered17", L"MlitLandXmlVer.1.7", VersionNumber(L"1.7")},
                                         CriterionCase{"Empty", L"", VersionNumber(L"1.7")},
                                         CriterionCase{"ShownText", L"1.5", VersionNumber(L"1.7")},
                                         CriterionCase{"AnotherCase", L"mlitlandxmlver.1.5", VersionNumber(L"1.7")},
                                         CriterionCase{"BlankBehind", L"MlitLandXmlVer.1.6 ", VersionNumber(L"1.7")}),
                         [](const auto& row) { return row.param.name; });

TEST_F(ExportRunTest, TheFinishedFileHasTheFrameOfTheStandard)
{
    EXPECT_EQ(
        Exported(
            "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n<LandXML xmlns=\"u\"><Project name=\"n\">"
            "<Feature><Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.6\"/></Feature></Project>"
            "<Units><Metric/></Units><Alignments xmlns=\"\" name=\"a\"/></LandXML>"),
        MARK + "<?xml version=\"1.0\"?>\r\n<LandXML xmlns=\"u\">\r\n\t<Project name=\"n\">\r\n\t\t<Feature>\r\n"
               "\t\t\t<Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.6\" />\r\n\t\t</Feature>\r\n"
               "\t</Project>\r\n\t<Units>\r\n\t\t<Metric pressureUnit=\"HPA\" />\r\n\t</Units>\r\n"
               "\t<CoordinateSystem name=\"CRS1\" />\r\n\t<Alignments name=\"a\" />\r\n</LandXML>\r\n");
    EXPECT_TRUE(Context().fileWritten);
    EXPECT_TRUE(temporaryFolder.Files().empty());
}

TEST_F(ExportRunTest, AModelThatCanNotBeWrittenGivesNoFileAndNoMessage)
{
    LoadRun(WorkFile(
        "<LandXML><Alignments><Alignment><CrossSects><CrossSect><CrossSectSurf/></CrossSect></CrossSects></Alignment>"
        "</Alignments></LandXML>"));
    folder.Write(L"out.xml", "old");
    ExportRun(folder.Name(L"out.xml"));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_FALSE(Context().fileWritten);
    EXPECT_TRUE(windows.Messages().empty());
    EXPECT_TRUE(temporaryFolder.Files().empty());
}

TEST_F(ExportRunTest, ATargetThatTakesNoFileIsNoneWritten)
{
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>"));
    ExportRun(folder.Name(L"missing") + L"/out.xml");
    EXPECT_FALSE(Context().fileWritten);
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(ExportRunTest, AnEmptyModelStillGivesAFile)
{
    LoadRun(folder.Name(L"missing.xml"));
    ExportRun(folder.Name(L"out.xml"));
    EXPECT_EQ(folder.Read(L"out.xml"),
              MARK + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<CoordinateSystem name=\"CRS1\" />\r\n");
}

TEST_F(ExportRunTest, PointsAreNumberedAnewInTheModel)
{
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>"));
    FViewLandXML& model = Context().model;
    model.intermediatePoints.resize(2);
    model.intermediatePoints[1].points.resize(2);
    model.intermediatePoints[1].name = L"former";
    model.intermediatePoints[1].points[1].featureRef = L"former";
    model.widthStakePoints.resize(1);
    model.widthStakePoints[0].name = L"左";
    model.widthStakePoints[0].points.resize(2);
    model.widthStakePoints[0].points[0].sequenceText = L"former";
    ExportRun(folder.Name(L"out.xml"));
    EXPECT_EQ(model.intermediatePoints[1].name, L"IntermediatePnts-2");
    EXPECT_EQ(model.intermediatePoints[1].points[0].featureRef, L"1");
    EXPECT_EQ(model.intermediatePoints[1].points[1].featureRef, L"2");
    EXPECT_EQ(model.widthStakePoints[0].name, L"左");
    EXPECT_EQ(model.widthStakePoints[0].points[0].sequenceText, L"1");
    EXPECT_EQ(model.widthStakePoints[0].points[1].sequenceText, L"2");
    EXPECT_TRUE(Context().fileWritten);
}

struct ExportFailureCase
{
    const char* name;
    void (*fail)();
    const wchar_t* message;
};

class ExportFailure : public ExportRunTest, public testing::WithParamInterface<ExportFailureCase>
{};

TEST_P(ExportFailure, IsToldInTheWordsOfTheRun)
{
    const std::wstring work = WorkFile("<LandXML><CoordinateSystem name=\"a name of some length\"/></LandXML>");
    const std::wstring path = folder.Name(L"out.xml");
    const auto prepare = [&] {
        LoadRun(work);
        Context().model.intermediatePoints.resize(1);
    };
    EXPECT_EQ(MessagesOfAllFailures<JLandXMLExportException>(GetParam().fail, prepare, [&] { ExportRun(path); }),
              Messages{GetParam().message});
    EXPECT_TRUE(Context().fileWritten);
    EXPECT_TRUE(windows.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(ExportRun, ExportFailure,
                         testing::Values(ExportFailureCase{"OfAFile", FailAsFile, L"File operation failed: %s, cause"},
                                         ExportFailureCase{"OfTheFramework", FailAsFramework,
                                                           L"General exception occurred: %s, cause"},
                                         ExportFailureCase{"OfAnythingElse", FailOtherwise,
                                                           L"Unknown exception occurred while loading the CSV file."}),
                         [](const auto& row) { return row.param.name; });

#ifndef _WIN32

TEST_F(ExportRunTest, AFullDiskIsReportedWithTheRunsWordsAndTheTargetStays)
{
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>"));
    folder.Write(L"out.xml", "old");
    const std::string saved =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LandXML>\n\t<CoordinateSystem name=\"c\" />\n</LandXML>\n";
    try
    {
        // The tree can be saved, and the finished file is longer by its mark and its line ends.
        const FileSizeLimit limit(saved.size());
        ExportRun(folder.Name(L"out.xml"));
        FAIL();
    }
    catch (const JLandXMLExportException& exception)
    {
        const std::wstring text = ErrorText(exception);
        EXPECT_EQ(text.substr(0, text.find(L"tsx")),
                  L"File operation failed: %s, ファイルに書き込めません: " + temporaryFolder.Name() + L"/");
    }
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"Landxml_temp.xml", L"out.xml"}));
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_FALSE(Context().fileWritten);
}

TEST_F(ExportRunTest, ATreeThatCanNotBeSavedEndsInSilenceAndTheWorkFileStays)
{
    LoadRun(WorkFile("<LandXML/>"));
    const FileSizeLimit limit(10);
    ExportRun(folder.Name(L"out.xml"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"Landxml_temp.xml"});
    EXPECT_EQ(temporaryFolder.Files().size(), 1U);
    EXPECT_FALSE(Context().fileWritten);
}

#endif

} // namespace
} // namespace jlandxml
