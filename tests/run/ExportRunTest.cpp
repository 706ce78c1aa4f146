#include "run/ExportRun.h"

#include "run/LoadRun.h"
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
                         testing::Values(CriterionCase{L"MlitLandXmlVer.1.3", VERSION_1_7},
                                         CriterionCase{L"MlitLandXmlVer.1.4", VERSION_1_7},
                                         CriterionCase{L"MlitLandXmlVer.1.5", VERSION_1_5},
                                         CriterionCase{L"MlitLandXmlVer.1.6", VERSION_1_6},
                                         CriterionCase{L"MlitLandXmlVer.1.7", VERSION_1_7},
                                         CriterionCase{L"", VERSION_1_7}, CriterionCase{L"1.5", VERSION_1_7}));

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

TEST_F(ExportRunTest, AnEmptyModelStillGivesAFile)
{
    LoadRun(folder.Name(L"missing.xml"));
    ExportRun(folder.Name(L"out.xml"));
    EXPECT_EQ(folder.Read(L"out.xml"),
              MARK + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<CoordinateSystem name=\"CRS1\" />\r\n");
}

TEST_F(ExportRunTest, AFailureOfAWorkFileIsReportedWithTheRunsWords)
{
    LoadRun(WorkFile("<LandXML/>"));
    try
    {
        ExportRun(folder.Name() + L"/");
        FAIL();
    }
    catch (const JLandXMLExportException& exception)
    {
        EXPECT_EQ(ErrorText(exception),
                  L"File operation failed: %s, ファイル名が正しくありません: " + folder.Name() + L"/");
    }
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_FALSE(Context().fileWritten);
}

} // namespace
} // namespace jlandxml
