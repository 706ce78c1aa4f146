#include "run/ExportRun.h"

#include "run/LoadRun.h"
#include "support/FailingAllocation.h"
#include "support/ResourceLimit.h"
#include "support/RunFixture.h"
#include "support/XmlText.h"

#include <memory>

namespace jlandxml
{
namespace
{

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
        BYTE_ORDER_MARK +
            "<?xml version=\"1.0\"?>\r\n<LandXML xmlns=\"u\">\r\n\t<Project name=\"n\">\r\n\t\t<Feature>\r\n"
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
              BYTE_ORDER_MARK + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<CoordinateSystem name=\"CRS1\" />\r\n");
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

/// A work file in which every writer has something to add, with room in front that moves what is added within the
/// parser's pages of memory.
std::string WorkFileOfAllWriters(std::size_t room)
{
    std::string xml = "<?xml version=\"1.0\"?><LandXML>";
    for (std::size_t index = 0; index < room; ++index)
    {
        xml += "<r/>";
    }
    return xml +
           "<Units><Metric/></Units><Project name=\"n\"><Feature/></Project><Alignments name=\"r\"><Alignment "
           "name=\"A\" length=\"100\" staStart=\"0\" desc=\"主測点間隔 = 20 副測点間隔 = 10 直線部横断勾配 = 2\">"
           "<CoordGeom><Line><Start>0 0</Start><End>0 50</End></Line><Curve rot=\"cw\" radius=\"200\"><Start>0 "
           "50</Start><Center>1 2</Center><End>5 100</End></Curve></CoordGeom><Superelevation staStart=\"0\"><"
           "BeginRunoutSta>1</BeginRunoutSta><FullSuperSta>2</FullSuperSta><FullSuperelev>2</FullSuperelev></"
           "Superelevation><Profile><ProfAlign name=\"計画\"><PVI>0 10</PVI><ParaCurve length=\"10\">50 11</"
           "ParaCurve><PVI>100 10</PVI></ProfAlign><ProfAlign name=\"ProfSurf_現況\"><PVI>0 10</PVI><PVI>100 "
           "11</PVI></ProfAlign></Profile><CrossSects><CrossSect name=\"No.0\" sta=\"0.000\"><CrossSectSurf "
           "name=\"現況_0\"><PntList2D>-10 1 0 1 10 1</PntList2D></CrossSectSurf><DesignCrossSectSurf "
           "name=\"Carriageway\" closedArea=\"true\"><CrossSectPnt code=\"A\">-5.5 1.25</CrossSectPnt><CrossSectPnt "
           "code=\"B\">2.5 1.125</CrossSectPnt><CrossSectPnt code=\"C\">4.5 1.5</CrossSectPnt></DesignCrossSectSurf>"
           "<DesignCrossSectSurf name=\"表層\" closedArea=\"true\"><CrossSectPnt code=\"A\">-5.5 "
           "1.25</CrossSectPnt><CrossSectPnt code=\"B\">2.5 1.125</CrossSectPnt></DesignCrossSectSurf></CrossSect>"
           "</CrossSects></Alignment></Alignments><Surfaces><Surface name=\"現況\" desc=\"ExistingGround\"/>"
           "</Surfaces></LandXML>";
}

/// Runs over a work file of all writers while memory fails at one place after another.
class ExportRunMemory : public ExportRunTest
{
  protected:
    void Load(const std::wstring& work)
    {
        LoadRun(work);
        FViewLandXML& model = Context().model;
        model.widthStakePoints.resize(1);
        model.widthStakePoints[0].name = L"左幅杭";
        model.widthStakePoints[0].points.resize(2);
    }

    /// False if the export ended with the run's words for a want of memory.
    bool Export()
    {
        try
        {
            ExportRun(out_);
            return true;
        }
        catch (const JLandXMLExportException& exception)
        {
            EXPECT_EQ(ErrorText(exception), L"Unknown exception occurred while loading the CSV file.");
            return false;
        }
    }

    std::string File() { return folder.Read(L"out.xml"); }

    /// Learns what exports of a work file give where nothing fails.
    void LearnFrom(const std::wstring& work)
    {
        Load(work);
        ASSERT_TRUE(Export());
        once_ = File();
        ASSERT_TRUE(Export());
        twice_ = File();
    }

    /// Exports twice over one tree, first while memory fails. Whatever comes, a file is one that it would be otherwise.
    /// False if the failure never came.
    template <class MakeFailing>
    bool ExportTwice(const std::wstring& work, MakeFailing makeFailing)
    {
        Load(work);
        folder.Write(L"out.xml", OLD);
        bool hasFailed = false;
        bool isTold = false;
        {
            const auto failing = makeFailing();
            isTold = !Export();
            hasFailed = failing->HasFailed();
        }
        const std::string first = File();
        EXPECT_EQ(first, Context().fileWritten ? once_ : OLD);
        EXPECT_TRUE(hasFailed || Context().fileWritten);
        EXPECT_FALSE(isTold && Context().fileWritten);
        const bool isToldAgain = !Export();
        EXPECT_EQ(File(), isToldAgain ? first : twice_);
        told_ += isToldAgain ? 1 : 0;
        return hasFailed;
    }

    static constexpr const char* OLD = "old";
    const std::wstring out_ = folder.Name(L"out.xml");
    std::string once_;  ///< the file of one export
    std::string twice_; ///< the file of a second export over the same tree
    int told_ = 0;      ///< exports that were told of the tree's being broken off
};

TEST_F(ExportRunMemory, AnyAllocationThatFailsLeavesAWholeFileOrIsTold)
{
    const std::wstring work = WorkFile(WorkFileOfAllWriters(0));
    LearnFrom(work);
    bool hasFailed = true;
    for (std::size_t allowed = 0; hasFailed; ++allowed)
    {
        hasFailed = ExportTwice(work, [&] { return std::make_unique<FailingAllocation>(allowed, FailOtherwise); });
    }
    EXPECT_GT(told_, 100);
}

TEST_F(ExportRunMemory, AnyAllocationOfTheParserThatFailsLeavesAWholeFileOrIsTold)
{
    constexpr std::size_t NODES_OF_A_PAGE = 512;
    for (std::size_t room = 0; room < NODES_OF_A_PAGE; room += 8)
    {
        const std::wstring work = WorkFile(WorkFileOfAllWriters(room));
        LearnFrom(work);
        bool hasFailed = true;
        for (std::size_t allowed = 0; hasFailed; ++allowed)
        {
            hasFailed = ExportTwice(work, [&] { return std::make_unique<FailingParserAllocation>(allowed); });
        }
    }
    EXPECT_GT(told_, 10);
}

TEST_F(ExportRunMemory, AWorkFileThatDidNotFitIntoMemoryIsNotWrittenAsAnEmptyOne)
{
    const std::wstring work = WorkFile(WorkFileOfAllWriters(0));
    folder.Write(L"out.xml", OLD);
    {
        // The parser's document is there, and then there is nothing for its content.
        const FailingParserAllocation failing(1);
        LoadRun(work);
    }
    EXPECT_FALSE(Export());
    EXPECT_EQ(File(), OLD);
    Load(work);
    EXPECT_TRUE(Export());
    EXPECT_TRUE(Context().fileWritten);
}

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
        const ResourceLimit limit(RLIMIT_FSIZE, saved.size());
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
    const ResourceLimit limit(RLIMIT_FSIZE, 10);
    ExportRun(folder.Name(L"out.xml"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"Landxml_temp.xml"});
    EXPECT_EQ(temporaryFolder.Files().size(), 1U);
    EXPECT_FALSE(Context().fileWritten);
}

#endif

} // namespace
} // namespace jlandxml
