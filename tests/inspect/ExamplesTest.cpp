// The finished files of the whole runs, and what is known to be found in them.

#include "inspect/Checks.h"

#include "SoundFile.h"
#include "inspect/CheckSheet.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace jlandxml::inspect
{
namespace
{

/// A finding that is no fault of the checks.
struct Explained
{
    std::string example; ///< the beginning of the folder's name
    const wchar_t* code;
    std::string object; ///< the beginning of it
    const char* why;
};
const Explained EXPLAINED[] = {
    {"river", L"H05", "堤防法線／直線 EC.1～IP.2", "the river's line bends there"},
    {"river", L"T03", "堤防法線／測点定義", "the example's equations don't stand in the order of stations"},
    {"river", L"T04", "堤防法線／測点定義", "a lawful overlap of the count"},
    {"two-routes", L"X02", "tangentDirectionAngle",
     "a direction that the side file leaves empty is written as a point"},
    {"two-routes", L"C01", "本線／片勾配すりつけ 311.",
     "the second transition's stations are out of order in the example"},
    {"two-routes", L"C05", "本線／横断面", "a subgrade across the centre line gets the side of its first point"},
    {"river", L"C08", "堤防法線／縦断地盤線", "the file has no surfaces of its ground lines"},
    {"two-routes", L"C08", "本線／縦断地盤線 地盤線", "the file's surface has another name"},
    {"日本語のフォルダー", L"R12", "単位系", "the work file has no units"},
    {"日本語のフォルダー", L"X08", "ファイル", "the work file says nothing of a version"},
};

bool IsExplained(const std::string& example, const Finding& finding)
{
    return std::any_of(std::begin(EXPLAINED), std::end(EXPLAINED), [&](const Explained& one) {
        return example.starts_with(one.example) && one.code == std::wstring(finding.check->code) &&
               Utf8FromWide(finding.object.japanese).starts_with(one.object);
    });
}

// One change of the road, and all that is said then: the element itself, and what lies on it or counts from it

struct ExampleChange
{
    const char* name;
    Change change;
    std::vector<std::string> said;
};

const std::string ROAD_LINE = "線形1／直線 BP～KA.1-1";
const std::string ROAD_CURVE = "線形1／円曲線 KE.1-1～KE.1-2";
constexpr const char* END = "<End name=\"KA.1-1\">12500.79234746";

const ExampleChange EXAMPLE_CHANGES[] = {
    {"AnEndMovedByTwoMillimetres",
     {END, "<End name=\"KA.1-1\">12500.79434746"},
     {"警告 H02 " + ROAD_LINE, "誤り T08 IntermediatePnts-1／No.0", "誤り T08 IntermediatePnts-1／No.2+10.000"}},
    {"AnEndMovedByTwentyCentimetres",
     {END, "<End name=\"KA.1-1\">12500.99234746"},
     {"誤り H02 " + ROAD_LINE, "警告 H03 " + ROAD_LINE, "警告 H05 " + ROAD_LINE,
      "誤り T07 IntermediatePnts-1／No.2+10.000", "誤り T08 IntermediatePnts-1／No.0",
      "誤り T08 IntermediatePnts-1／No.2+10.000"}},
    {"ACurveTurnedRound",
     {"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""},
     {"誤り H08 " + ROAD_CURVE, "誤り T07 IntermediatePnts-1／No.10", "誤り T08 IntermediatePnts-1／No.10"}},
    {"AParameterOnePercentTooLarge",
     {"label=\"A\" value=\"100.000000\"", "label=\"A\" value=\"101.000000\""},
     {"誤り H06 線形1／クロソイド KA.1-1～KE.1-1"}},
    {"AFaceToAMissingPoint",
     {"<F>18 21 20</F>", "<F>18 22 20</F>"},
     {"誤り F04 現況地形／面 18 22 20", "情報 F07 現況地形／点 21"}},
    {"SwappedAxes", {">12461.0876 18224.2281", ">18224.2281 12461.0876"}, {"警告 R09 左幅杭／L-1"}},
    {"ZoneEightForNine", {"\"9(X,Y)\"", "\"8(X,Y)\""}, {"警告 R07 座標参照系"}},
    {"DecimalDegreesForMinutes",
     {"value=\"62.3\"", "value=\"30.75\""},
     {"誤り T08 IntermediatePnts-1／No.0", "誤り R10 IntermediatePnts-1／No.0"}},
    {"ASpiralsEndMovedByTwoMillimetres",
     {"<End name=\"KE.1-1\">12521.99785226", "<End name=\"KE.1-1\">12521.99985226"},
     {"警告 H02 線形1／クロソイド KA.1-1～KE.1-1", "警告 H07 線形1／クロソイド KA.1-1～KE.1-1"}},
    {"AVerticalCurveTooLong",
     {"<ParaCurve length=\"100.000\">220", "<ParaCurve length=\"400.000\">220"},
     {"誤り V02 線形1／縦断線形 計画／PVI 400.000"}},
    {"AProfileThatGoesBack", {"<PVI>400.000", "<PVI>200.000"}, {"誤り V01 線形1／縦断線形 計画"}},
    {"ASectionBehindTheEnd",
     {"sta=\"130.000\"", "sta=\"430.000\""},
     {"警告 T06 線形1／横断面 No.6+10.000", "警告 C02 線形1／横断面 No.10"}},
    {"AMainPointOfAnotherNumber",
     {"<End name=\"KE.1-2\">", "<End name=\"KE.1-9\">"},
     {"警告 H12 線形1／円曲線 KE.1-1～KE.1-9"}},
    {"AnElementThatNobodyKnows", {"<Pnts>", "<Watersheds/><Pnts>"}, {"情報 X01 Definition/Watersheds"}},
    {"ATextForAFigure", {"Line length=\"110.000000\"", "Line length=\"110m\""}, {"誤り X02 Line@length"}},
    {"BytesThatAreNoUtf8",
     {"国道999号 架空", "\xFF"
                        " 架空"},
     {"誤り X03 ファイル"}},
    {"AnAmpersandThatIsNotWritten", {"国道999号 架空", "国道999号 & 架空"}, {"誤り X07 /LandXML"}},
    {"AFormerVersion", {" version=\"1.2\"", " version=\"1.1\""}, {"警告 X08 ファイル"}},
    {"AnEntityOfTheFile", {"<LandXML", "<!DOCTYPE LandXML [<!ENTITY a \"b\">]><LandXML"}, {"警告 X09 ファイル"}},
    {"ASpiralThatIsNoClothoid",
     {"spiType=\"clothoid\"", "spiType=\"bloss\""},
     {"情報 X04 線形1／緩和曲線 KA.1-1～KE.1-1"}},
    {"APointBySlopeAndDistance",
     {"<CrossSectPnt code=\"CW\">-3.250", "<CrossSectPnt code=\"CW\" dataFormat=\"Slope Distance\">-3.250"},
     {"情報 X04 線形1／横断面 No.3／Carriageway"}},
    {"AMainPointWithoutCoordinates",
     {"<Start name=\"BP\">12450.00000000 18230.00000000</Start>", "<Start name=\"BP\"/>"},
     {"誤り H01 線形1／直線 BP～KA.1-1"}},
    {"ALineTooLong",
     {"length=\"110.000000\"", "length=\"110.002\""},
     {"警告 H03 線形1／直線 BP～KA.1-1", "誤り H09 線形1", "誤り T07 IntermediatePnts-1／No.6+10.000",
      "誤り T07 IntermediatePnts-1／No.10", "誤り T07 IntermediatePnts-1／No.14+6.000",
      "誤り T07 IntermediatePnts-1／No.20", "誤り T08 IntermediatePnts-1／No.10"}},
    {"ACentreMovedByTwoMillimetres",
     {"<Center>12334.46615932", "<Center>12334.46815932"},
     {"警告 H04 線形1／円曲線 KE.1-1～KE.1-2", "警告 H04 線形1／円曲線 KE.1-1～KE.1-2"}},
    {"ATangentThatBends",
     {"<PI name=\"IP\">12516.19658408", "<PI name=\"IP\">12516.29658408"},
     {"警告 H05 線形1／直線 BP～KA.1-1", "警告 H05 線形1／クロソイド KA.1-1～KE.1-1",
      "誤り H07 線形1／クロソイド KA.1-1～KE.1-1", "誤り T07 IntermediatePnts-1／No.6+10.000",
      "誤り T08 IntermediatePnts-1／No.6+10.000"}},
    {"AnAlignmentTooLong",
     {"name=\"線形1\" length=\"400.000000\"", "name=\"線形1\" length=\"400.002\""},
     {"誤り H09 線形1"}},
    {"AMainPointWithoutAName", {"<End name=\"EP\">", "<End>"}, {"警告 H10 線形1／直線 KA.1-2～"}},
    {"TwoMainPointsOfOneName", {"<End name=\"EP\">", "<End name=\"BP\">"}, {"警告 H11 線形1／BP"}},
    {"AnotherStartOfTheProfile",
     {"<Profile name=\"線形1\" staStart=\"0.\">", "<Profile name=\"線形1\" staStart=\"5.\">"},
     {"誤り T01 線形1"}},
    {"AnEquationThatDoesNotFollow",
     {"\t\t\t<Profile name=\"線形1\" staStart=\"0.\">",
      "<StaEquation staBack=\"150.002\" staAhead=\"160.000\" staInternal=\"150.000\" />\t\t\t<Profile name=\"線形1\" "
      "staStart=\"0.\">"},
     {"誤り T02 線形1／測点定義 150.000"}},
    {"AnEquationOutOfOrder",
     {"\t\t\t<Profile name=\"線形1\" staStart=\"0.\">",
      "<StaEquation staBack=\"260.000\" staAhead=\"270.000\" staInternal=\"250.000\" /><StaEquation "
      "staBack=\"150.000\" staAhead=\"160.000\" staInternal=\"150.000\" />\t\t\t<Profile name=\"線形1\" "
      "staStart=\"0.\">"},
     {"警告 T03 線形1／測点定義 150.000"}},
    {"ALabelThatOccursTwice",
     {"\t\t\t<Profile name=\"線形1\" staStart=\"0.\">",
      "<StaEquation staBack=\"150.000\" staAhead=\"140.000\" staInternal=\"150.000\" />\t\t\t<Profile name=\"線形1\" "
      "staStart=\"0.\">"},
     {"情報 T04 線形1／測点定義 150.000"}},
    {"ASectionNamedLikeAnother",
     {"CrossSect name=\"No.6+10.000\"", "CrossSect name=\"No.3\""},
     {"警告 T05 線形1／横断面 No.3"}},
    {"APointTwoMillimetresOffTheLine",
     {"featureRef=\"2\">12473.0874", "featureRef=\"2\">12473.0894"},
     {"誤り T07 IntermediatePnts-1／No.2+10.000"}},
    {"ADirectionTwoSecondsOff", {"value=\"62.3\"", "value=\"62.3002\""}, {"誤り T08 IntermediatePnts-1／No.0"}},
    {"AVerticalCurveAtTheEnd",
     {"<PVI>400.000 108.000</PVI>", "<ParaCurve length=\"10.\">400.000 108.000</ParaCurve>"},
     {"警告 V03 線形1／縦断線形 計画／ParaCurve 400.000"}},
    {"AVerticalRadius",
     {"<ParaCurve length=\"100.000\">", "<ParaCurve length=\"100.000\" radius=\"3000.\">"},
     {"誤り V04 線形1／縦断線形 計画／ParaCurve 220.000"}},
    {"AProfileThatIsNotThere",
     {"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\"現況\""},
     {"誤り V05 線形1"}},
    {"ATransitionOutOfOrder",
     {"<FullSuperSta>160.000", "<FullSuperSta>260.000"},
     {"誤り C01 線形1／片勾配すりつけ 160."}},
    {"AnOutlineTwoMillimetresOpen",
     {"<CrossSectPnt code=\"PV1\">0.000 0.000</CrossSectPnt>\r\n\t\t\t\t\t\t<Feature>",
      "<CrossSectPnt code=\"PV1\">0.000 0.002</CrossSectPnt>\r\n\t\t\t\t\t\t<Feature>"},
     {"誤り C03 線形1／横断面 No.3／Pavement left 表層"}},
    {"AGroundLineFromTheRight", {"-7.500 107.870", "-17.500 107.870"}, {"警告 C04 線形1／横断面 No.3／ExistingGround"}},
    {"ASurfaceOnTheOtherSide",
     {"<CrossSectPnt code=\"CW\">-3.250", "<CrossSectPnt code=\"CW\">3.250"},
     {"警告 C05 線形1／横断面 No.3／Carriageway left"}},
    {"AnElevationForAnOffset",
     {"<CrossSectPnt code=\"CL\">0.000 0.000", "<CrossSectPnt code=\"CL\">0.000 106.800"},
     {"誤り C06 線形1／横断面 No.3／Carriageway left"}},
    {"LayersThatOverlap",
     {"<CrossSectPnt code=\"PV2\">-3.250 -0.115", "<CrossSectPnt code=\"PV2\">-3.250 -0.105"},
     {"警告 C07 線形1／横断面 No.3／Pavement left 基層"}},
    {"AGroundLineOfNoSurface",
     {"CrossSectSurf name=\"ExistingGround\"", "CrossSectSurf name=\"Bedrock\""},
     {"情報 C08 線形1／横断面 No.3"}},
    {"AWideningOutOfOrder", {"256. 0.25 3", "156. 0.25 3"}, {"警告 C09 線形1／左拡幅"}},
    {"ASurfacePointWithoutAHeight", {"18236.926 103.550", "18236.926"}, {"誤り F01 現況地形／点 3"}},
    {"TwoSurfacePointsOfOneNumber",
     {"<P id=\"3\">", "<P id=\"2\">"},
     {"誤り F02 現況地形／点 2", "誤り F04 現況地形／面 2 3 5", "誤り F04 現況地形／面 3 6 5",
      "情報 F07 現況地形／点 2"}},
    {"AFaceWithFourPoints",
     {"<F>3 6 5</F>", "<F>3 6 5 4</F>"},
     {"誤り F03 現況地形／面 3 6 5 4", "警告 F06 現況地形／辺 4 5"}},
    {"AFaceWithoutArea", {"<F>3 6 5</F>", "<F>3 6 6</F>"}, {"警告 F05 現況地形／面 3 6 6"}},
    {"AnEdgeOfThreeFaces",
     {"<F>3 6 5</F>", "<F>3 6 5</F><F>2 5 6</F>"},
     {"警告 F06 現況地形／辺 2 5", "警告 F06 現況地形／辺 5 6"}},
    {"StakesOfAMissingAlignment",
     {"alignmentRefs=\"線形1\"", "alignmentRefs=\"線形9\""},
     {"誤り R01 Roadway 国道999号"}},
    {"AMissingFeature", {"featureRef=\"3\"", "featureRef=\"33\""}, {"誤り R02 IntermediatePnts-1／No.6+10.000"}},
    {"AMissingPoint",
     {"<Start name=\"BP\">12450.00000000 18230.00000000</Start>",
      "<Start name=\"BP\" pntRef=\"Q1\">12450.00000000 18230.00000000</Start>"},
     {"誤り R03 線形1／直線 BP～KA.1-1"}},
    {"TwoStakesOfOneName", {"name=\"L-2\"", "name=\"L-1\""}, {"誤り R04 左幅杭／CgPoint L-1"}},
    {"AnUnknownDatum", {"horizontalDatum=\"JGD2011\"", "horizontalDatum=\"WGS84\""}, {"誤り R05 座標参照系"}},
    {"AZoneThatIsNone", {"\"9(X,Y)\"", "\"20(X,Y)\""}, {"誤り R06 座標参照系"}},
    {"AStakeOutsideTheZone", {">12461.0876 18224.2281", ">912461.0876 18224.2281"}, {"警告 R08 左幅杭／L-1"}},
    {"AnotherDatumsDifference",
     {"differTP\" value=\"0.0000\"", "differTP\" value=\"-1.1344\""},
     {"誤り R11 座標参照系"}},
    {"AStakeWithoutCoordinates", {"12461.0876 18224.2281 104.925", ""}, {"誤り X05 左幅杭／L-1"}},
    {"ACurveOfNegativeRadius",
     {"<Curve rot=\"cw\" radius=\"200.00000000\"", "<Curve rot=\"cw\" radius=\"-200.00000000\""},
     {"誤り X06 " + ROAD_CURVE}},
    {"AnUnknownUnitOfDirections",
     {"directionUnit=\"decimal dd.mm.ss\"", "directionUnit=\"degrees\""},
     {"誤り R13 単位系"}},
    {"AnIrregularLineWhoseEndIsNotItsLastPoint",
     {"<Line length=\"110.000000\">\r\n\t\t\t\t\t<Start name=\"BP\">12450.00000000 "
      "18230.00000000</Start>\r\n\t\t\t\t\t<End "
      "name=\"KA.1-1\">12500.79234746 18327.57119165</End>\r\n\t\t\t\t</Line>",
      "<IrregularLine length=\"110.000000\"><Start name=\"BP\">12450.00000000 18230.00000000</Start><End "
      "name=\"KA.1-1\">12500.79234746 18327.57119165</End><PntList2D>12450 18230 12500.79434746 "
      "18327.57119165</PntList2D></IrregularLine>"},
     {"警告 H13 線形1／折れ線 BP～KA.1-1", "誤り T08 IntermediatePnts-1／No.0",
      "誤り T08 IntermediatePnts-1／No.2+10.000"}},
    {"Millimetres", {"linearUnit=\"meter\"", "linearUnit=\"millimeter\""}, {"誤り R12 単位系"}},
};

class ExampleChanges : public testing::TestWithParam<ExampleChange>
{};

TEST_P(ExampleChanges, NameTheChangedElement)
{
    for (const std::string& one : GetParam().said)
    {
        if (FindCheck(WideFromUtf8(one.substr(one.find(' ') + 1, 3))) == nullptr)
        {
            GTEST_SKIP() << "built without the library that this check needs";
        }
    }
    const std::string road = ReadWholeFile(JLANDXML_SOURCE_DIR L"/tests/e2e/road/expected.xml").value_or("");
    std::vector<std::string> said;
    for (const Finding& finding :
         Inspect(ReadLandXmlBytes(Changed(road, {GetParam().change}), L"road.xml"), EveryCheck()))
    {
        said.push_back(Utf8FromWide(SeverityName(finding.severity) + (L" " + std::wstring(finding.check->code)) + L" " +
                                    finding.object.japanese));
    }
    EXPECT_EQ(said, GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(Inspect, ExampleChanges, testing::ValuesIn(EXAMPLE_CHANGES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(ExampleChange, IsThereForEveryCheck)
{
    std::set<std::string> silent;
    for (const Check& check : AllChecks())
    {
        silent.insert(Utf8FromWide(check.code));
    }
    for (const ExampleChange& change : EXAMPLE_CHANGES)
    {
        for (const std::string& said : change.said)
        {
            silent.erase(said.substr(said.find(' ') + 1, 3));
        }
    }
    EXPECT_EQ(silent, std::set<std::string>{"S01"}) << "which has a test of its own";
}

/// Visits the finished file of each whole run that has one, with the run's name; how many there are.
template <class Visit>
std::size_t ForEachFinishedFile(Visit&& visit)
{
    std::size_t count = 0;
    const std::filesystem::path cases = std::filesystem::path(JLANDXML_SOURCE_DIR) / "tests" / "e2e";
    for (const auto& folder : std::filesystem::directory_iterator(cases))
    {
        const std::filesystem::path path = folder.path() / "expected.xml";
        if (std::filesystem::exists(path))
        {
            ++count;
            const std::u8string utf8Name = folder.path().filename().u8string();
            const std::u8string utf8Path = path.u8string();
            visit(std::string(utf8Name.begin(), utf8Name.end()),
                  WideFromUtf8(std::string(utf8Path.begin(), utf8Path.end())));
        }
    }
    return count;
}

TEST(FinishedFiles, ShowNothingThatIsNotExplained)
{
    const std::vector<const Check*> checks = EveryCheck();
    const std::size_t count = ForEachFinishedFile([&](const std::string& example, const std::wstring& path) {
        const LandXmlFile file = ReadLandXmlFile(path);
        for (const Finding& finding : Inspect(file, checks))
        {
            EXPECT_TRUE(IsExplained(example, finding))
                << example << ": "
                << Utf8FromWide(finding.check->code + (L" " + finding.object.japanese) + L": " + finding.text);
        }
    });
    EXPECT_GE(count, 9U);
}

/// The figures with a decimal point in a text.
std::vector<std::string> FiguresOf(const std::string& text)
{
    constexpr const char* DIGITS = "0123456789";
    std::vector<std::string> figures;
    for (std::size_t begin = text.find_first_of(DIGITS); begin != std::string::npos;
         begin = text.find_first_of(DIGITS, begin))
    {
        const std::size_t end = std::min(text.find_first_not_of("0123456789.", begin), text.size());
        const std::string figure = text.substr(begin, end - begin);
        if (figure.find('.') != std::string::npos)
        {
            figures.push_back((begin > 0 && text[begin - 1] == '-' ? "-" : "") + figure);
        }
        begin = end;
    }
    return figures;
}

TEST(FinishedFiles, HaveCheckSheetsInTheirOwnFigures)
{
    std::size_t figures = 0;
    ForEachFinishedFile([&](const std::string& example, const std::wstring& path) {
        const std::string text = ReadWholeFile(path).value_or("");
        for (const CheckSheetRow& row : CheckSheet(ReadLandXmlFile(path)))
        {
            for (const std::string& figure : FiguresOf(Utf8FromWide(row.value.japanese)))
            {
                ++figures;
                EXPECT_NE(text.find(figure), std::string::npos) << example << ": " << figure;
            }
        }
    });
    EXPECT_GE(figures, 100U);
}

} // namespace
} // namespace jlandxml::inspect
