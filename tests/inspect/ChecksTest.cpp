#include "inspect/Checks.h"

#include "CodesWithTolerance.h"
#include "SoundFile.h"
#include "inspect/Report.h"

#include <algorithm>
#include <set>

namespace jlandxml::inspect
{
namespace
{

/// What a check says of a file: severity, element and line of each finding.
std::vector<std::string> Said(const LandXmlFile& file, const std::wstring& code)
{
    std::vector<std::string> said;
    for (const Finding& finding : Inspect(file, {FindCheck(code)}))
    {
        said.push_back(Utf8FromWide(std::wstring(SeverityName(finding.severity)) + L" " + finding.object.japanese));
    }
    return said;
}

// The table

TEST(Checks, HaveACodeOfTheirOwnAndEveryText)
{
    std::set<std::wstring> codes;
    for (const Check& check : AllChecks())
    {
        EXPECT_TRUE(codes.insert(check.code).second) << Utf8FromWide(check.code);
        EXPECT_EQ(FindCheck(check.code), &check);
        for (const wchar_t* const text :
             {check.text.japanese, check.text.english, check.remedy.japanese, check.remedy.english, check.source})
        {
            EXPECT_NE(std::wstring(text), L"") << Utf8FromWide(check.code);
        }
    }
    EXPECT_EQ(FindCheck(L"Z99"), nullptr);
}

TEST(Checks, FindNothingInASoundFile)
{
    for (const Finding& finding : Inspect(SoundFile(), EveryCheck()))
    {
        ADD_FAILURE() << Utf8FromWide(finding.object.japanese + L": " + finding.text);
    }
}

// One change each, and what is said of it

struct Case
{
    const char* name;
    const wchar_t* code;
    std::vector<Change> changes;
    std::vector<std::string> said; ///< empty: within the tolerance, or lawful
};

constexpr const char* LINE_END = "<End name=\"KA.1-1\">12500.79234746";
constexpr const char* POINT = "featureRef=\"2\">12473.0874";
constexpr const char* CLOSING_POINT = "<CrossSectPnt code=\"PV1\">0.000 0.000</CrossSectPnt>\n\t\t\t\t\t\t<Feature>";
constexpr const char* CENTRE = "<CrossSectPnt code=\"CL\">0.000 0.000";
constexpr const char* SPIRAL_PI = "<PI name=\"IP\">12516.19658408 18357.16245488";
constexpr const char* LAST_FACE = "<F>3 6 5</F>";
constexpr const char* STAKE = "<CgPoint name=\"L-1\">12461.0876 18224.2281";
constexpr const char* BP = "<Start name=\"BP\">12450.00000000 18230.00000000</Start>";

/// A quarter of a circle to the left into the first line.
constexpr const char* FIRST_CURVE = "<CoordGeom><Curve rot=\"ROT\" radius=\"100\"><Start name=\"AA\">12492.52622199 "
                                    "18095.12405536</Start><Center>12538.70108332 18183.82513868</Center><End "
                                    "name=\"BP\">12450.00000000 18230.00000000</End></Curve>";

/// Of four decimals, so that the half on one side is a tenth of a millimetre longer.
constexpr const char* HALF_CIRCLE =
    "<CoordGeom><Curve rot=\"ROT\" radius=\"100\" length=\"314.159\"><Start "
    "name=\"AA\">12500.0000 18000.0000</Start><Center>12600.0000 18000.0000</Center><End "
    "name=\"AB\">12700.0000 18000.0001</End></Curve>";

constexpr const char* FAR_ALIGNMENT =
    "<Alignment name=\"線形2\" length=\"500\" staStart=\"0\"><CoordGeom><Line length=\"500\"><Start>13000 "
    "18000</Start><End>13000 18500</End></Line></CoordGeom></Alignment></Alignments>";

const std::string RIGHT_CARRIAGEWAY =
    "<DesignCrossSectSurf name=\"Carriageway\" side=\"right\"><CrossSectPnt code=\"CL\">0.000 "
    "RIGHT</CrossSectPnt><CrossSectPnt code=\"CW\">3.250 -0.065</CrossSectPnt><Feature><Property label=\"heightType\" "
    "value=\"fhOffset\"/></Feature></DesignCrossSectSurf>";

/// The end of the first line, made one that a list of points tells.
std::string FirstPathOf(const std::string& points, const std::string& list = "PntList2D")
{
    return "</End><" + list + ">" + points + "</" + list + "></IrregularLine>";
}

/// Of an alignment that isn't there.
const std::string REFERENCE = "<Property label=\"alignmentRefs\" value=\"線形9\" /><Property label=\"w\"";
const std::string FEATURE = "<Feature><Property label=\"alignmentRefs\" value=\"線形9\" /></Feature>";

/// A straight alignment of 100 m between two places.
std::string AlignmentBetween(const std::string& name, const std::string& start, const std::string& end)
{
    return "<Alignment name=\"" + name + "\" length=\"100\" staStart=\"0\"><CoordGeom><Line length=\"100\"><Start>" +
           start + "</Start><End>" + end + "</End></Line></CoordGeom></Alignment>";
}

const std::string FLAT_PROFILE = "<ProfAlign name=\"平\"><PVI>0. 200.</PVI><PVI>400. 200.</PVI></ProfAlign>";

const std::string SECTIONS_OF_THE_FLAT_PROFILE =
    "<CrossSects name=\"平\"><CrossSect name=\"甲\" sta=\"60.\"><DesignCrossSectSurf "
    "name=\"Carriageway\"><CrossSectPnt "
    "code=\"CL\">0. HEIGHT</CrossSectPnt><CrossSectPnt code=\"CW\">3. 190.</CrossSectPnt></DesignCrossSectSurf>"
    "</CrossSect><Feature><Property label=\"profAlignRefs\" value=\"平\"/></Feature></CrossSects>";

/// A second bend that begins where the first one ends, at a joint of some name, and its elements' names.
std::vector<Change> SecondBend(const std::string& joint, const std::string& elements, const std::string& end)
{
    return {{"<Line length=\"94.000000\">\n\t\t\t\t\t<Start name=\"KA.1-2\">",
             elements + "<Line length=\"94.000000\"><Start name=\"" + end + "\">"},
            {"<End name=\"KA.1-2\">", "<End name=\"" + joint + "\">"},
            {"JOINT", joint}};
}
const std::string SPIRAL_CURVE_SPIRAL =
    "<Spiral><Start name=\"JOINT\"/><End name=\"KE.2-1\"/></Spiral><Curve><Start name=\"KE.2-1\"/><End "
    "name=\"KE.2-2\"/></Curve><Spiral><Start name=\"KE.2-2\"/><End name=\"KA.2-2\"/></Spiral>";
const std::string ONE_CURVE = "<Curve><Start name=\"JOINT\"/><End name=\"PCC.2\"/></Curve>";

/// The lower layer of the first section with elevations, and the height of its top on the outside.
std::vector<Change> LowerLayerByElevations(const std::string& outside)
{
    constexpr const char* OF_LAYER =
        "value=\"fhOffset\" />\n\t\t\t\t\t\t\t<Property label=\"pavementClass\" value=\"基層\"";
    return {{"PV2\">0.000 -0.050", "PV2\">0.000 106.750"},
            {"PV2\">-3.250 -0.115", "PV2\">-3.250 " + outside},
            {"PV2\">-3.250 -0.165", "PV2\">-3.250 106.635"},
            {"PV2\">0.000 -0.100", "PV2\">0.000 106.700"},
            {"PV2\">0.000 -0.050", "PV2\">0.000 106.750"},
            {OF_LAYER, "value=\"elevation\" /><Property label=\"pavementClass\" value=\"基層\""}};
}
std::vector<Change> And(std::vector<Change> changes, Change more)
{
    changes.push_back(std::move(more));
    return changes;
}

constexpr const char* FIRST_VERTICAL_POINT = "<PVI>0.000 105.000";
constexpr const char* LAST_VERTICAL_POINT = "<PVI>400.000 113.000";
constexpr const char* HEIGHT_TYPE = "<Feature>\n\t\t\t\t\t\t\t<Property label=\"heightType\"";
const Change ONE_GROUND_ALONE = {"<CrossSect name=\"No.3\"",
                                 "<CrossSect name=\"No.2\" sta=\"40.\"><CrossSectSurf name=\"ExistingGround\">"
                                 "<PntList2D>-5. 106. 5. 106.</PntList2D></CrossSectSurf></CrossSect><CrossSect "
                                 "name=\"No.3\""};

const std::string LINE = "線形1／直線 BP～KA.1-1";
const std::string SPIRAL = "線形1／クロソイド KA.1-1～KE.1-1";
const std::string IRREGULAR_LINE = "線形1／折れ線 BP～KA.1-1";
const std::string CURVE = "線形1／円曲線 KE.1-1～KE.1-2";
const std::string PROFILE = "線形1／縦断線形 計画";
const std::string PAVEMENT = "線形1／横断面 No.3／Pavement left ";

/// A surface of a name that lies 1.2 m below the road, in front of the carriageway.
std::string BelowTheRoad(const std::string& name)
{
    return "<DesignCrossSectSurf name=\"" + name +
           "\"><CrossSectPnt code=\"A\">-6 -1.2</CrossSectPnt><CrossSectPnt code=\"B\">6 -1.2</CrossSectPnt>"
           "<Feature><Property label=\"heightType\" value=\"fhOffset\"/></Feature></DesignCrossSectSurf>"
           "<DesignCrossSectSurf name=\"Carriageway\" side=\"left\">";
}

const Case CASES[] = {
    // Reading
    {"AnElementThatNobodyKnows", L"X01", {{"<Pnts>", "<Watersheds/><Pnts>"}}, {"情報 Definition/Watersheds"}},
    {"ElementsOfOneNameAreCounted", L"X01", {{"<Pnts>", "<W/><W/><Pnts>"}}, {"情報 Definition/W"}},
    {"ATextForAFigure", L"X02", {{"value=\"62.3\"", "value=\".\""}}, {"誤り tangentDirectionAngle"}},
    {"ATextForAnAttribute", L"X02", {{"length=\"110.000000\"", "length=\"110m\""}}, {"誤り Line@length"}},
    {"ALengthWithoutEnd", L"X02", {{"length=\"110.000000\"", "length=\"INF\""}}, {"誤り Line@length"}},
    {"AStationBeyondEveryNumber",
     L"X02",
     {{"name=\"No.3\" sta=\"60.000\"", "name=\"No.3\" sta=\"1e999\""}},
     {"誤り CrossSect@sta"}},
    {"AHeightWithoutEnd", L"X02", {{"<PVI>0.000 105.000", "<PVI>0.000 INF"}}, {"誤り PVI"}},
    {"AnIntervalWithoutEnd", L"X02", {{"label=\"main\" value=\"20.\"", "label=\"main\" value=\"INF\""}}, {"誤り main"}},
    {"ARadiusWithoutAnEnd", L"X02", {{"radiusStart=\"INF\"", "radiusStart=\"-INF\""}}, {}},
    {"AChildOfAFeatureThatNobodyKnows",
     L"X01",
     {{"<Property label=\"differTP\"", "<DocFileRef/><Property label=\"differTP\""}},
     {"情報 Feature/DocFileRef"}},
    {"AChildOfAPointThatNobodyKnows", L"X01", {{BP, "<Start name=\"BP\">12450 18230<W/></Start>"}}, {"情報 Start/W"}},
    {"AChildOfAVerticalPoint", L"X01", {{"<PVI>0.000 105.000", "<PVI>0.000 105.000<W/>"}}, {"情報 PVI/W"}},
    {"AChildOfAGroundLine", L"X01", {{"<PntList2D>0. ", "<PntList2D><W/>0. "}}, {"情報 PntList2D/W"}},
    {"AChildOfASectionsPoint",
     L"X01",
     {{CENTRE, "<CrossSectPnt code=\"CL\"><W/>0.000 0.000"}},
     {"情報 CrossSectPnt/W"}},
    {"AChildOfAnEquation",
     L"X01",
     {{"staInternal=\"150.000\" />", "staInternal=\"150.000\"><W/></StaEquation>"}},
     {"情報 StaEquation/W"}},
    {"AChildOfATransitionsStation", L"X01", {{"<RunoffSta>", "<RunoffSta><W/>"}}, {"情報 RunoffSta/W"}},
    {"AChildOfTheUnits",
     L"X01",
     {{"directionUnit=\"decimal dd.mm.ss\" />", "directionUnit=\"decimal dd.mm.ss\"><W/></Metric>"}},
     {"情報 Metric/W"}},
    {"AChildOfASpeed", L"X01", {{"speed=\"60\" />", "speed=\"60\"><W/></DesignSpeed>"}}, {"情報 DesignSpeed/W"}},
    {"AChildOfAProperty", L"X01", {{"value=\"詳細\" />", "value=\"詳細\"><W/></Property>"}}, {"情報 Property/W"}},
    {"AChildOfASurfacesPoint", L"X01", {{"<P id=\"3\">", "<P id=\"3\"><W/>"}}, {"情報 P/W"}},
    {"AChildOfAFace", L"X01", {{LAST_FACE, "<F>3 6 5<W/></F>"}}, {"情報 F/W"}},
    {"AFeatureOfAPoint", L"X01", {{BP, "<Start name=\"BP\">12450 18230<Feature/></Start>"}}, {}},
    {"ASecondStart", L"X01", {{BP, "<Start name=\"BP\">12450 18230</Start><Start/>"}}, {"情報 Line/Start"}},
    {"ASecondCoordinateSystem",
     L"X01",
     {{"<CgPoints ", "<CoordinateSystem/><CgPoints "}},
     {"情報 LandXML/CoordinateSystem"}},
    {"SecondUnits", L"X01", {{"</Units>", "<Imperial/></Units>"}}, {"情報 Units/Imperial"}},
    {"AFigurePartedByAComment", L"H02", {{LINE_END, "<End name=\"KA.1-1\">12500.79<!-- -->234746"}}, {}},
    {"ATextForAnInterval", L"X02", {{"label=\"main\" value=\"20.\"", "label=\"main\" value=\"20m\""}}, {"誤り main"}},
    {"ATextForAFormationHeight",
     L"X02",
     {{"label=\"fhOffset\" value=\"0.\"", "label=\"fhOffset\" value=\"\""}},
     {"誤り fhOffset"}},
    {"ATextForAReverseCrown", L"X02", {{"value=\"130.000000\"", "value=\"No.6\""}}, {"誤り sta"}},
    {"ATextForADatumsDifference", L"X02", {{"value=\"0.0000\"", "value=\"T.P\""}}, {"誤り differTP"}},
    {"ATextForASpeed", L"X02", {{"speed=\"60\"", "speed=\"60km/h\""}}, {"誤り DesignSpeed@speed"}},
    {"APointOfASectionByAnother",
     L"X04",
     {{"<CrossSectPnt code=\"CW\">-3.250 -0.065</CrossSectPnt>", "<CrossSectPnt code=\"CW\" pntRef=\"L-1\"/>"}},
     {"情報 線形1／横断面 No.3／Carriageway"}},
    {"ASpiralThatIsNoClothoid",
     L"X04",
     {{"spiType=\"clothoid\"", "spiType=\"bloss\""}},
     {"情報 線形1／緩和曲線 KA.1-1～KE.1-1"}},
    {"APointBySlopeAndDistance",
     L"X04",
     {{"<CrossSectPnt code=\"CW\">", "<CrossSectPnt code=\"CW\" dataFormat=\"Slope Distance\">"}},
     {"情報 線形1／横断面 No.3／Carriageway"}},
    {"APointByOffsetAndHeight",
     L"X04",
     {{"<CrossSectPnt code=\"CW\">", "<CrossSectPnt code=\"CW\" dataFormat=\"Offset Elevation\">"}},
     {}},
    {"BytesThatAreNoUtf8", L"X03", {{"国道999号", "\xFF"}}, {"誤り ファイル"}},

    {"AnotherEncodingThanDeclared", L"X03", {{"encoding=\"UTF-8\"", "encoding=\"utf-16\""}}, {"誤り ファイル"}},
    {"AnEncodingThatIsNotRead", L"X03", {{"encoding=\"UTF-8\"", "encoding=\"EUC-JP\""}}, {"警告 ファイル"}},
    {"AnAttributeTwice", L"X07", {{"<Units>", "<Units a=\"\" a=\"\">"}}, {"誤り /LandXML"}},
    {"OnlyTheFirstFault", L"X07", {{"設計第一課", "&amp;&"}, {"<Units>", "<Units a=\"\" a=\"\">"}}, {"誤り /LandXML"}},
    {"BytesThatAreNoUtf8AreNoFaultOfTheForm", L"X07", {{"国道999号", "\xFF"}}, {}},
    {"AnAmpersandThatIsWritten", L"X07", {{"国道999号", "&amp;&#x8DEF;"}}, {}},
    {"NoVersion", L"X08", {{" version=\"1.2\"", ""}}, {"警告 ファイル"}},
    {"AFormerVersion", L"X08", {{" version=\"1.2\"", " version=\"1.1\""}}, {"警告 ファイル"}},
    {"NoNamespace", L"X08", {{"xmlns=\"http://www.landxml.org/schema/LandXML-1.2\"", ""}}, {"警告 ファイル"}},
    {"TheNamespaceOfAFormerVersion",
     L"X08",
     {{"xmlns=\"http://www.landxml.org/schema/LandXML-1.2\"", "xmlns=\"http://www.landxml.org/schema/LandXML-1.0\""}},
     {"警告 ファイル"}},
    {"ANamespaceByItsPrefix", L"X08", {{"<LandXML xmlns=", "<l:LandXML xmlns:l="}, {"</LandXML>", "</l:LandXML>"}}, {}},
    {"AnEntityOfTheFile", L"X09", {{"<LandXML", "<!DOCTYPE LandXML [<!ENTITY a \"b\">]><LandXML"}}, {"警告 ファイル"}},
    {"ADocumentTypeWithoutEntities", L"X09", {{"<LandXML", "<!DOCTYPE LandXML><LandXML"}}, {}},

    {"AnAlignmentWithoutALength", L"X05", {{" length=\"400.000000\"", ""}}, {"誤り 線形1"}},
    {"ACurveWithoutARadius", L"X05", {{" radius=\"200.00000000\"", ""}}, {"誤り " + CURVE}},
    {"AClothoidWithoutItsParameter",
     L"X05",
     {{"<Property label=\"A\" value=\"100.000000\" />", ""}},
     {"誤り " + SPIRAL}},
    {"AClothoidWithoutItsParameterInAFileOfAnotherKind",
     L"X05",
     {{"<Property label=\"A\" value=\"100.000000\" />", ""}, {"MlitLandXmlVer.1.7", "LandXML-1.2"}},
     {}},
    {"ASpiralOfAnotherKindWithoutAParameter",
     L"X05",
     {{"<Property label=\"A\" value=\"100.000000\" />", ""}, {"spiType=\"clothoid\"", "spiType=\"bloss\""}},
     {}},
    {"ASurfacesPointWithFourFigures", L"X05", {{"18236.926 103.550", "18236.926 103.550 1"}}, {"誤り 現況地形／点 3"}},
    {"ASurfacesPointWithFourFiguresInASecondList",
     L"X05",
     {{"<P id=\"3\">", "</Pnts><Pnts><P id=\"3\">"}, {"18236.926 103.550", "18236.926 103.550 1"}},
     {"誤り 現況地形／点 3"}},
    {"ASurfacesPointWithFourFiguresBesideAComment",
     L"X05",
     {{"<Pnts>", "<Pnts><!-- -->"}, {"18236.926 103.550", "18236.926 103.550 1"}},
     {"誤り 現況地形／点 3"}},
    {"ASurfacesPointWithTwoFiguresHasNoCoordinates", L"X05", {{"18236.926 103.550", "18236.926"}}, {}},
    {"AClothoidWithoutALength", L"X05", {{" length=\"50.000000\"", ""}}, {"誤り " + SPIRAL}},
    {"AClothoidWithoutARadius", L"X05", {{" radiusStart=\"INF\"", ""}}, {"誤り " + SPIRAL}},
    {"AClothoidWithoutItsLastRadius", L"X05", {{" radiusEnd=\"200.00000000\"", ""}}, {"誤り " + SPIRAL}},
    {"ALineWithoutALength", L"X05", {{" length=\"110.000000\"", ""}}, {}},
    {"APointWithFourFigures", L"X05", {{LINE_END, "<End name=\"KA.1-1\">1 2 12500.79234746"}}, {"誤り " + LINE}},
    {"AnIrregularLineWithoutPoints",
     L"X05",
     {{"<CoordGeom>",
       "<CoordGeom><IrregularLine><Start name=\"A\">1 2</Start><End name=\"B\">3 4</End></IrregularLine>"}},
     {"誤り 線形1／折れ線 A～B"}},
    {"AnIrregularLineWithAPointByHalf",
     L"X05",
     {{"<CoordGeom>",
       "<CoordGeom><IrregularLine><Start name=\"A\">1 2</Start><End name=\"B\">3 4</End><PntList2D>1 2 3 4 "
       "5</PntList2D></IrregularLine>"}},
     {"誤り 線形1／折れ線 A～B"}},
    {"AnIntersectionWithoutCoordinates",
     L"X05",
     {{"<PI>12547.71076598 18417.70063507</PI>", "<PI/>"}},
     {"誤り 線形1／PI "}},
    {"AnEquationWithoutACountAhead", L"X05", {{" staAhead=\"160.000\"", ""}}, {"誤り 線形1／測点定義 150.000"}},
    {"AnEquationWithoutAPlace", L"X05", {{" staInternal=\"150.000\"", ""}}, {"誤り 線形1／測点定義 "}},
    {"AnEquationWithoutACountBefore", L"X05", {{"staBack=\"150.000\" ", ""}}, {}},
    {"AVerticalPointWithoutAHeight",
     L"X05",
     {{"<PVI>400.000 113.000", "<PVI>400.000"}},
     {"誤り " + PROFILE + "／PVI 400.000"}},
    {"AVerticalPointWithThreeFigures",
     L"X05",
     {{"<PVI>400.000 113.000", "<PVI>400.000 113.000 1"}},
     {"誤り " + PROFILE + "／PVI 400.000"}},
    {"AParabolaWithoutALength",
     L"X05",
     {{"<ParaCurve length=\"100.000\">", "<ParaCurve>"}},
     {"誤り " + PROFILE + "／ParaCurve 220.000"}},
    {"ACircleWithoutARadius", L"X05", {{" radius=\"800.000\"", ""}}, {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"AParabolaInTwoPartsWithoutTheirLengths",
     L"X05",
     {{"<ParaCurve length=\"100.000\">220.000 111.600</ParaCurve>",
       "<UnsymParaCurve>220.000 111.600</UnsymParaCurve>"}},
     {"誤り " + PROFILE + "／UnsymParaCurve 220.000", "誤り " + PROFILE + "／UnsymParaCurve 220.000"}},
    {"AGroundLineWithAPointByHalf",
     L"X05",
     {{"400. 103.927</PntList2D>", "400.</PntList2D>"}},
     {"誤り 線形1／縦断地盤線 現況地形"}},
    {"AnEmptyGroundLine",
     L"X05",
     {{"<PntList2D>0. 104.3 40. 106.635 80. 108.071 400. 103.927</PntList2D>", "<PntList2D/>"}},
     {"誤り 線形1／縦断地盤線 現況地形"}},
    {"ASectionsGroundLineWithAPointByHalf",
     L"X05",
     {{"15.000 106.745</PntList2D>", "15.000</PntList2D>"}},
     {"誤り 線形1／横断面 No.3／ExistingGround"}},
    {"ATransitionsStationWithoutAFigure",
     L"X05",
     {{"<RunoffSta>256.000</RunoffSta>", "<RunoffSta/>"}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"ATransitionWithoutASuperelevation",
     L"X05",
     {{"<FullSuperelev>5.0</FullSuperelev>", ""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"AWideningWithoutAWidth", L"X05", {{"value=\"160. 0.25 2\"", "value=\"160.\""}}, {"誤り 線形1／左拡幅"}},
    {"ACrossSlopeOfASingleLane",
     L"X05",
     {{"<Feature name=\"WideningList\">",
       "<Feature name=\"SlopeList\"><Property label=\"slopeValue\" value=\"50. 2.\"/></Feature><Feature "
       "name=\"WideningList\">"}},
     {}},
    {"ACrossSlopeWithoutASlope",
     L"X05",
     {{"<Feature name=\"WideningList\">",
       "<Feature name=\"SlopeList\"><Property label=\"slopeValue\" value=\"50.\"/></Feature><Feature "
       "name=\"WideningList\">"}},
     {"誤り 線形1／横断勾配"}},
    {"ASectionWithoutAStation", L"X05", {{" sta=\"60.000\"", ""}}, {"誤り 線形1／横断面 No.3"}},
    {"ASectionsPointWithOneFigure",
     L"X05",
     {{"<CrossSectPnt code=\"CW\">-3.250 -0.065", "<CrossSectPnt code=\"CW\">-3.250"}},
     {"誤り 線形1／横断面 No.3／Carriageway／CrossSectPnt CW"}},
    {"ASectionsPointByAnother",
     L"X05",
     {{"<CrossSectPnt code=\"CW\">-3.250 -0.065</CrossSectPnt>", "<CrossSectPnt code=\"CW\" pntRef=\"L-1\"/>"}},
     {}},
    {"AStakeWithoutCoordinates",
     L"X05",
     {{"<CgPoint name=\"L-1\">12461.0876 18224.2281 104.925", "<CgPoint name=\"L-1\">"}},
     {"誤り 左幅杭／L-1"}},
    {"AStakeWithOneCoordinate",
     L"X05",
     {{"<CgPoint name=\"L-1\">12461.0876 18224.2281 104.925", "<CgPoint name=\"L-1\">12461.0876"}},
     {"誤り 左幅杭／L-1"}},
    {"AStakeByAnotherPoint",
     L"X05",
     {{"<CgPoint name=\"L-1\">12461.0876 18224.2281 104.925</CgPoint>", "<CgPoint name=\"L-1\" pntRef=\"No.0\"/>"}},
     {}},
    {"AnIntermediatePointWithoutAStation",
     L"X05",
     {{"<Property label=\"sta\" value=\"0.\" />", ""}},
     {"誤り IntermediatePnts-1／No.0"}},
    {"AnIntermediatePointWithoutADirection",
     L"X05",
     {{"<Property label=\"tangentDirectionAngle\" value=\"62.3\" />", ""}},
     {"誤り IntermediatePnts-1／No.0"}},
    {"ASurfaceWithoutAKind", L"X05", {{" surfType=\"TIN\"", ""}}, {"誤り 現況地形"}},

    {"ALineWithoutAnyLength", L"X06", {{"length=\"110.000000\"", "length=\"0.000000\""}}, {"誤り " + LINE}},
    {"AnAlignmentOfNegativeLength", L"X06", {{"length=\"400.000000\"", "length=\"-400.\""}}, {"誤り 線形1"}},
    {"ACurveOfNegativeRadius",
     L"X06",
     {{"rot=\"cw\" radius=\"200.00000000\"", "rot=\"cw\" radius=\"-200.\""}},
     {"誤り " + CURVE}},
    {"AClothoidThatBeginsAndEndsInAPoint",
     L"X06",
     {{"radiusStart=\"INF\" radiusEnd=\"200.00000000\"", "radiusStart=\"0\" radiusEnd=\"0.\""}},
     {"誤り " + SPIRAL, "誤り " + SPIRAL}},
    {"AClothoidFromALine", L"X06", {{"radiusStart=\"INF\"", "radiusStart=\"-INF\""}}, {}},
    {"AParabolaWithoutAnyLength",
     L"X06",
     {{"<ParaCurve length=\"100.000\">", "<ParaCurve length=\"0.\">"}},
     {"誤り " + PROFILE + "／ParaCurve 220.000"}},
    {"ACircleOfNegativeLengthAndRadius",
     L"X06",
     {{"length=\"40.000\" radius=\"800.000\"", "length=\"-40.\" radius=\"-800.\""}},
     {"誤り " + PROFILE + "／CircCurve 300.000", "誤り " + PROFILE + "／CircCurve 300.000"}},
    {"AParabolaInTwoPartsOfWhichOneIsNone",
     L"X06",
     {{"<ParaCurve length=\"100.000\">220.000 111.600</ParaCurve>",
       "<UnsymParaCurve lengthIn=\"0\" lengthOut=\"50\">220.000 111.600</UnsymParaCurve>"}},
     {"誤り " + PROFILE + "／UnsymParaCurve 220.000"}},
    {"TheSmallestLength", L"X06", {{"length=\"110.000000\"", "length=\"0.000001\""}}, {}},

    // Horizontal alignments
    {"APointWithoutCoordinates", L"H01", {{BP, "<Start name=\"BP\"/>"}}, {"誤り " + LINE}},
    {"ACurveWithoutACentre", L"H01", {{"<Center>12334.46615932 18442.32500043</Center>", ""}}, {"誤り " + CURVE}},
    {"AnEndMovedByTwoMillimetres", L"H02", {{LINE_END, "<End name=\"KA.1-1\">12500.79434746"}}, {"警告 " + LINE}},
    {"AnEndMovedByTwentyCentimetres", L"H02", {{LINE_END, "<End name=\"KA.1-1\">12500.99234746"}}, {"誤り " + LINE}},
    {"AnEndMovedByLessThanAMillimetre", L"H02", {{LINE_END, "<End name=\"KA.1-1\">12500.79324746"}}, {}},
    {"ALineTwoMillimetresTooLong", L"H03", {{"110.000000", "110.002000"}}, {"警告 " + LINE}},
    {"ACurveTwentyCentimetresTooLong", L"H03", {{"length=\"96.000000\"", "length=\"96.2\""}}, {"誤り " + CURVE}},
    {"ALineLessThanAMillimetreTooLong", L"H03", {{"110.000000", "110.0009"}}, {}},
    {"ALineFromAPointToItself",
     L"H03",
     {{BP, "<Start name=\"BP\">12500.79234746 18327.57119165</Start>"}},
     {"誤り " + LINE}},
    {"AWholeCircle",
     L"H03",
     {{"<End name=\"KE.1-2\">12532.90483349 18467.26678446", "<End name=\"KE.1-2\">12521.99785226 18372.81338887"},
      {"length=\"96.000000\"", "length=\"1256.637061\""}},
     {}},
    {"ACurveFromAPointToItself",
     L"H03",
     {{"<End name=\"KE.1-2\">12532.90483349 18467.26678446", "<End name=\"KE.1-2\">12521.99785226 18372.81338887"}},
     {"誤り " + CURVE}},
    {"ACentreMovedByTwoMillimetres",
     L"H04",
     {{"<Center>12334.46615932", "<Center>12334.46815932"}},
     {"警告 " + CURVE, "警告 " + CURVE}},
    {"ARadiusOffByTwentyCentimetres",
     L"H04",
     {{"rot=\"cw\" radius=\"200.00000000\"", "rot=\"cw\" radius=\"200.2\""}},
     {"誤り " + CURVE, "誤り " + CURVE}},
    {"ACentreMovedByLessThanAMillimetre", L"H04", {{"<Center>12334.46615932", "<Center>12334.46705932"}}, {}},
    {"ATangentThatBends",
     L"H05",
     {{SPIRAL_PI, "<PI name=\"IP\">12516.29658408 18357.16245488"}},
     {"警告 " + LINE, "警告 " + SPIRAL}},
    {"ATangentThatBendsSharply",
     L"H05",
     {{SPIRAL_PI, "<PI name=\"IP\">12522.19658408 18357.16245488"}},
     {"誤り " + LINE, "誤り " + SPIRAL}},
    {"ABendOfARiver",
     L"H05",
     {{SPIRAL_PI, "<PI name=\"IP\">12522.19658408 18357.16245488"}, {"value=\"道路\"", "value=\"河川\""}},
     {"情報 " + LINE, "情報 " + SPIRAL}},
    {"ATangentThatBendsLessThanAMilliradian", L"H05", {{SPIRAL_PI, "<PI name=\"IP\">12516.20 18357.16245488"}}, {}},
    {"AParameterOnePercentTooLarge", L"H06", {{"value=\"100.000000\"", "value=\"101\""}}, {"誤り " + SPIRAL}},
    {"AParameterATenThousandthTooLarge", L"H06", {{"value=\"100.000000\"", "value=\"100.01\""}}, {"警告 " + SPIRAL}},
    {"AParameterRoundedInTheSixthDigit", L"H06", {{"value=\"100.000000\"", "value=\"100.0009\""}}, {}},
    {"ASpiralsEndMovedByTwoMillimetres",
     L"H07",
     {{"<End name=\"KE.1-1\">12521.99785226", "<End name=\"KE.1-1\">12521.99985226"}},
     {"警告 " + SPIRAL}},
    {"ASpiralsEndMovedByTwentyCentimetres",
     L"H07",
     {{"<End name=\"KE.1-1\">12521.99785226", "<End name=\"KE.1-1\">12522.19785226"}},
     {"誤り " + SPIRAL}},
    {"ASpiralsEndMovedByLessThanAMillimetre",
     L"H07",
     {{"<End name=\"KE.1-1\">12521.99785226", "<End name=\"KE.1-1\">12521.99875226"}},
     {}},
    {"ACurveTurnedRound", L"H08", {{"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""}}, {"誤り " + CURVE}},
    {"ACurveTenTimesTooLong", L"H03", {{"length=\"96.000000\"", "length=\"960.000000\""}}, {"誤り " + CURVE}},
    {"ACurveTenTimesTooLongIsNotTurnedRound", L"H08", {{"length=\"96.000000\"", "length=\"960.000000\""}}, {}},
    {"AHalfCircle", L"H08", {{"<CoordGeom>", HALF_CIRCLE}, {"ROT", "cw"}}, {}},
    {"TheOtherHalfOfACircle", L"H08", {{"<CoordGeom>", HALF_CIRCLE}, {"ROT", "ccw"}}, {}},
    {"ACurveTurnedRoundIsNotAlsoTooLong", L"H03", {{"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""}}, {}},
    {"ACurveTurnedRoundDoesNotAlsoBend", L"H05", {{"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""}}, {}},
    {"ACurveTurnedRoundWithoutALength",
     L"H08",
     {{"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""}, {" length=\"96.000000\"", ""}},
     {"誤り " + CURVE}},
    {"ACurveWithoutALength", L"H08", {{" length=\"96.000000\"", ""}}, {}},
    {"AFirstCurveTurnedRoundWithoutALength",
     L"H08",
     {{"<CoordGeom>", FIRST_CURVE}, {"ROT", "cw"}},
     {"誤り 線形1／円曲線 AA～BP"}},
    {"AFirstCurveWithoutALength", L"H08", {{"<CoordGeom>", FIRST_CURVE}, {"ROT", "ccw"}}, {}},
    {"ACurveTurnedRoundWithoutALengthDoesNotAlsoBend",
     L"H05",
     {{"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""}, {" length=\"96.000000\"", ""}},
     {}},
    {"AFirstCurveTurnedRoundDoesNotAlsoBend", L"H05", {{"<CoordGeom>", FIRST_CURVE}, {"ROT", "cw"}}, {}},
    {"ASpiralWithoutAnIntersection",
     L"H01",
     {{"<PI name=\"IP\">12516.19658408 18357.16245488</PI>", ""}},
     {"誤り " + SPIRAL}},
    {"ASpiralTurnedRound", L"H08", {{"clothoid\" rot=\"cw\"", "clothoid\" rot=\"ccw\""}}, {"誤り " + SPIRAL}},
    {"ARotationThatIsNone", L"H08", {{"<Curve rot=\"cw\"", "<Curve rot=\"right\""}}, {"誤り " + CURVE}},
    {"ASumTwoMillimetresOff", L"H09", {{"length=\"400.000000\"", "length=\"400.002\""}}, {"誤り 線形1"}},
    {"ASumTwentyCentimetresOff", L"H09", {{"length=\"400.000000\"", "length=\"400.2\""}}, {"誤り 線形1"}},
    {"ASumLessThanAMillimetreOff", L"H09", {{"length=\"400.000000\"", "length=\"400.0009\""}}, {}},
    {"AnAlignmentWithoutElements",
     L"H09",
     {{"<CoordGeom>", "<CoordGeom/><!--"}, {"</CoordGeom>", "-->"}},
     {"誤り 線形1"}},
    {"AnAlignmentWithoutElementsAndLength",
     L"H09",
     {{"<CoordGeom>", "<!--"}, {"</CoordGeom>", "-->"}, {" length=\"400.000000\"", ""}},
     {}},
    {"AnAlignmentWithoutElementsOfAnotherFormat",
     L"H09",
     {{"<CoordGeom>", "<CoordGeom/><!--"}, {"</CoordGeom>", "-->"}, {"MlitLandXmlVer", "Ver"}},
     {}},
    {"AMainPointWithoutAName", L"H10", {{"<End name=\"EP\">", "<End>"}}, {"警告 線形1／直線 KA.1-2～"}},
    {"AMainPointNamedLikeAnother", L"H11", {{"<End name=\"EP\">", "<End name=\"BP\">"}}, {"警告 線形1／BP"}},
    {"AJointWithTwoNames", L"H12", {{"<Start name=\"KE.1-1\">", "<Start name=\"KE.1-2\">"}}, {"警告 " + SPIRAL}},
    {"AMainPointNumberedBackwards",
     L"H12",
     {{"<End name=\"KA.1-1\">", "<End name=\"KA.2-1\">"}, {"<Start name=\"KA.1-1\">", "<Start name=\"KA.2-1\">"}},
     {"警告 線形1／KE.1-1", "警告 線形1／KE.1-2", "警告 線形1／KA.1-2"}},
    {"AnArcsNameBehindASpiral",
     L"H12",
     {{"<End name=\"KE.1-1\">", "<End name=\"BC.1\">"}, {"<Start name=\"KE.1-1\">", "<Start name=\"BC.1\">"}},
     {"警告 線形1／BC.1"}},
    {"TheEndsOfTheArcExchanged",
     L"H12",
     {{"<End name=\"KE.1-1\">", "<End name=\"KE.1-2\">"},
      {"<Start name=\"KE.1-1\">", "<Start name=\"KE.1-2\">"},
      {"<End name=\"KE.1-2\">12532", "<End name=\"KE.1-1\">12532"},
      {"<Start name=\"KE.1-2\">12532", "<Start name=\"KE.1-1\">12532"}},
     {"警告 線形1／KE.1-2", "警告 線形1／KE.1-1"}},
    {"BothEndsExchanged",
     L"H12",
     {{"<Start name=\"BP\">", "<Start name=\"EP\">"}, {"<End name=\"EP\">", "<End name=\"BP\">"}},
     {"警告 線形1／EP", "警告 線形1／BP"}},
    {"AnEndsNameInTheMiddle",
     L"H12",
     {{"<End name=\"EP\">", "<End name=\"E\">"},
      {"<End name=\"KE.1-1\">", "<End name=\"EP\">"},
      {"<Start name=\"KE.1-1\">", "<Start name=\"EP\">"}},
     {"警告 線形1／EP"}},
    {"AnEndsNameThatTwoPointsHave", L"H12", {{"<End name=\"EP\">", "<End name=\"BP\">"}}, {}},
    {"TwoBendsWithTheEndOfTheFirst", L"H12", SecondBend("KA.1-2", SPIRAL_CURVE_SPIRAL, "KA.2-2"), {}},
    {"TwoBendsWithTheBeginningOfTheSecond", L"H12", SecondBend("KA.2-1", SPIRAL_CURVE_SPIRAL, "KA.2-2"), {}},
    {"TwoBendsWithAnArcsNameBetweenThem",
     L"H12",
     SecondBend("EC.1", SPIRAL_CURVE_SPIRAL, "KA.2-2"),
     {"警告 線形1／EC.1"}},
    {"AnArcsNameInTheSecondBend",
     L"H12",
     And(And(SecondBend("KA.1-2", SPIRAL_CURVE_SPIRAL, "KA.2-2"), {"<End name=\"KE.2-1\"/>", "<End name=\"BC.2\"/>"}),
         {"<Start name=\"KE.2-1\"/>", "<Start name=\"BC.2\"/>"}),
     {"警告 線形1／BC.2"}},
    {"ElementsInAnOrderThatHasNoNames", L"H12", SecondBend("KE.2-1", ONE_CURVE, "PCC.2"), {}},
    {"ANameOfADesignersOwn",
     L"H12",
     {{"<End name=\"KE.1-1\">", "<End name=\"P.1\">"}, {"<Start name=\"KE.1-1\">", "<Start name=\"P.1\">"}},
     {}},

    {"AnIrregularLineWhoseStartIsNotItsFirstPoint",
     L"H13",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450.002 18230 12500.79234746 18327.57119165")}},
     {"警告 線形1／折れ線 BP～KA.1-1"}},
    {"AnIrregularLineWhoseEndIsNotItsLastPoint",
     L"H13",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450 18230 12500.79234746 18327.77119165")}},
     {"誤り 線形1／折れ線 BP～KA.1-1"}},
    {"AnIrregularLineFromItsFirstPointToItsLast",
     L"H13",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450.0009 18230 12500.79234746 18327.57119165")}},
     {}},
    {"AnIrregularLineInSpace",
     L"H13",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>",
       FirstPathOf("12450 18230 105 12475 18280 106 12500.79234746 18327.77119165 107", "PntList3D")}},
     {"誤り 線形1／折れ線 BP～KA.1-1"}},
    {"AnIrregularLineInSpaceIsRead",
     L"X01",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450 18230 105 12500.79234746 18327.57119165 107", "PntList3D")}},
     {}},
    {"AnIrregularLineInSpaceWithoutAHeight",
     L"X05",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450 18230 105 12500.79234746 18327.57119165", "PntList3D")}},
     {"誤り 線形1／折れ線 BP～KA.1-1"}},

    {"NamesOfADesignersOwnThatCountDown",
     L"H12",
     {{"<End name=\"KE.1-1\">", "<End name=\"P.9\">"},
      {"<Start name=\"KE.1-1\">", "<Start name=\"P.9\">"},
      {"<End name=\"KE.1-2\">", "<End name=\"P.8\">"},
      {"<Start name=\"KE.1-2\">", "<Start name=\"P.8\">"}},
     {}},

    // Stations
    {"NoStartStation", L"T01", {{" staStart=\"0.000000\"", ""}}, {"誤り 線形1"}},
    {"AStartStationOfTheProfileThatIsHardlyAnother", L"T01", {{"staStart=\"0.\"", "staStart=\"0.0009\""}}, {}},
    {"AnotherStartStationOfTheProfile", L"T01", {{"staStart=\"0.\"", "staStart=\"5.\""}}, {"誤り 線形1"}},
    {"AnEquationThatDoesNotFollow",
     L"T02",
     {{"staBack=\"260.000\"", "staBack=\"260.002\""}},
     {"誤り 線形1／測点定義 250.000"}},
    {"AnEquationThatFollowsToTheMillimetre", L"T02", {{"staBack=\"260.000\"", "staBack=\"260.0009\""}}, {}},
    {"AnEquationOutOfOrder",
     L"T03",
     {{"staInternal=\"150.000\"", "staInternal=\"350.000\""}},
     {"警告 線形1／測点定義 250.000"}},
    {"ALabelThatOccursTwice",
     L"T04",
     {{"staAhead=\"160.000\"", "staAhead=\"140.000\""}},
     {"情報 線形1／測点定義 150.000"}},
    {"ALabelThatOccursTwiceWithoutWordOfTheCountBefore",
     L"T04",
     {{"staBack=\"150.000\" staAhead=\"160.000\"", "staAhead=\"140.000\""}},
     {"情報 線形1／測点定義 150.000"}},
    {"LabelsOfAnEarlierStretch",
     L"T04",
     {{"staAhead=\"160.000\"", "staAhead=\"1160.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"1260.000\" staAhead=\"40.000\""}},
     {"情報 線形1／測点定義 250.000"}},
    {"LabelsOfTwoEarlierStretches",
     L"T04",
     {{"staBack=\"150.000\" staAhead=\"160.000\"", "staBack=\"150.000\" staAhead=\"200.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"300.000\" staAhead=\"140.000\""}},
     {"情報 線形1／測点定義 250.000"}},
    {"LabelsBetweenTwoEarlierStretches",
     L"T04",
     {{"staBack=\"150.000\" staAhead=\"160.000\"", "staBack=\"150.000\" staAhead=\"1000.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"1100.000\" staAhead=\"500.000\""}},
     {}},
    {"AStretchThatEndsWhereAnEarlierOneBegan",
     L"T04",
     {{"staBack=\"150.000\" staAhead=\"160.000\"", "staBack=\"150.000\" staAhead=\"1000.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"1100.000\" staAhead=\"850.0009\""}},
     {}},
    {"ACountBelowThatOfTheStart",
     L"T04",
     {{"staBack=\"150.000\" staAhead=\"160.000\"", "staBack=\"150.000\" staAhead=\"-500.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"-400.000\" staAhead=\"265.000\""}},
     {}},
    {"AnEquationWithoutWordOfTheCountBefore", L"T02", {{"staBack=\"150.000\" ", ""}}, {}},
    {"ASectionNamedLikeAnother", L"T05", {{"name=\"No.10\" sta", "name=\"No.3\" sta"}}, {"警告 線形1／横断面 No.3"}},
    {"AWideningBehindTheEnd", L"T06", {{"306. 0. 4", "406. 0. 4"}}, {"警告 線形1／左拡幅"}},
    {"ASectionBehindTheEnd", L"T06", {{"sta=\"200.000\"", "sta=\"400.002\""}}, {"警告 線形1／横断面 No.10"}},
    {"ASectionAtTheEnd", L"T06", {{"sta=\"200.000\"", "sta=\"400.0009\""}}, {}},
    {"ATransitionInFrontOfTheStart",
     L"T06",
     {{"<BeginRunoutSta>90.000", "<BeginRunoutSta>-90.000"}},
     {"警告 線形1／片勾配すりつけ BeginRunoutSta"}},
    {"AProfileThatGoesOn", L"T06", {{LAST_VERTICAL_POINT, "<PVI>410.000 113.000"}}, {"警告 " + PROFILE}},
    {"AProfileThatBeginsBefore", L"T06", {{FIRST_VERTICAL_POINT, "<PVI>-10.000 105.000"}}, {"警告 " + PROFILE}},
    {"AProfileThatGoesOnByADecimetre", L"T06", {{LAST_VERTICAL_POINT, "<PVI>400.0999 113.000"}}, {"情報 " + PROFILE}},
    {"AProfileThatGoesOnByMoreThanADecimetre",
     L"T06",
     {{LAST_VERTICAL_POINT, "<PVI>400.1001 113.000"}},
     {"警告 " + PROFILE}},
    {"AProfileThatGoesOnByLessThanAMillimetre", L"T06", {{LAST_VERTICAL_POINT, "<PVI>400.0009 113.000"}}, {}},
    {"AGroundLineThatGoesOn", L"T06", {{"400. 103.927", "500. 103.927"}}, {"情報 線形1／縦断地盤線 現況地形"}},
    {"AGroundLineThatGoesOnAtBothEnds",
     L"T06",
     {{"<PntList2D>0. 104.3", "<PntList2D>-60. 104. -20. 104.3"}, {"400. 103.927", "420. 103.927 440. 103."}},
     {"情報 線形1／縦断地盤線 現況地形"}},
    {"AGroundLineToTheEnd", L"T06", {{"400. 103.927", "400.0009 103.927"}}, {}},
    {"ASectionInFrontOfItsProfile",
     L"T06",
     {{FIRST_VERTICAL_POINT, "<PVI>100.000 105.000"}},
     {"警告 線形1／横断面 No.3"}},
    {"ASectionByADecimetreInFrontOfItsProfile",
     L"T06",
     {{FIRST_VERTICAL_POINT, "<PVI>60.0999 105.000"}},
     {"情報 線形1／横断面 No.3"}},
    {"ASectionByMoreThanADecimetreInFrontOfItsProfile",
     L"T06",
     {{FIRST_VERTICAL_POINT, "<PVI>60.1001 105.000"}},
     {"警告 線形1／横断面 No.3"}},
    {"ASectionAtTheBeginningOfItsProfile", L"T06", {{FIRST_VERTICAL_POINT, "<PVI>60.0009 105.000"}}, {}},
    {"ASectionBehindItsProfileAndItsAlignment",
     L"T06",
     {{"sta=\"200.000\"", "sta=\"400.002\""}, {LAST_VERTICAL_POINT, "<PVI>390.000 113.000"}},
     {"警告 線形1／横断面 No.10"}},
    {"ASectionInFrontOfAProfileThatItDoesNotName",
     L"T06",
     {{FIRST_VERTICAL_POINT, "<PVI>100.000 105.000"}, {"<Property label=\"profAlignRefs\" value=\"計画\" />", ""}},
     {}},
    {"ASectionOfGroundAloneInFrontOfItsProfile",
     L"T06",
     {{FIRST_VERTICAL_POINT, "<PVI>50.000 105.000"}, ONE_GROUND_ALONE},
     {}},
    {"AnIntermediatePointBehindTheEnd", L"T06", {{"value=\"400.\"", "value=\"500.\""}}, {"警告 線形1／中間点 No.20"}},
    {"APointTwoMillimetresOffTheLine",
     L"T07",
     {{POINT, "featureRef=\"2\">12473.0894"}},
     {"誤り IntermediatePnts-1／No.2+10.000"}},
    {"APointOffTheLineThatIsNamedWithBlanks",
     L"T07",
     {{POINT, "featureRef=\"2\">12473.0894"}, {"value=\"線形1\"", "value=\" 線形1 \""}},
     {"誤り IntermediatePnts-1／No.2+10.000"}},
    {"APointOffTheNearestOfSeveralLines",
     L"T07",
     {{POINT, "featureRef=\"2\">12473.0894"},
      {"value=\"線形1\"", "value=\"線形2 線形1\""},
      {"</Alignments>", FAR_ALIGNMENT}},
     {"誤り IntermediatePnts-1／No.2+10.000"}},
    {"APointAtTheBeginningOfAnElementThatTheOneBeforeDoesNotReach",
     L"T07",
     {{"featureRef=\"2\">12473.0874 18274.3505", "featureRef=\"2\">12500.7923 18327.5712"},
      {"value=\"50.\"", "value=\"110.\""},
      {LINE_END, "<End name=\"KA.1-1\">12500.99234746"}},
     {}},
    {"PointsOnOneOfSeveralLines",
     L"T07",
     {{"value=\"線形1\"", "value=\"線形2 線形1\""}, {"</Alignments>", FAR_ALIGNMENT}},
     {}},
    {"APointTwentyCentimetresOffTheLine",
     L"T07",
     {{POINT, "featureRef=\"2\">12473.2874"}},
     {"誤り IntermediatePnts-1／No.2+10.000"}},
    {"APointLessThanAMillimetreOffTheLine", L"T07", {{POINT, "featureRef=\"2\">12473.0882"}}, {}},
    {"ADirectionTwoSecondsOff", L"T08", {{"value=\"62.3\"", "value=\"62.3002\""}}, {"誤り IntermediatePnts-1／No.0"}},
    {"ADirectionInDegrees", L"T08", {{"value=\"62.3\"", "value=\"65.5\""}}, {"誤り IntermediatePnts-1／No.0"}},
    {"ADirectionWithAnExponent", L"T08", {{"value=\"62.3\"", "value=\"6.23e1\""}}, {}},
    {"ADirectionWithAnExponentThatIsOff",
     L"T08",
     {{"value=\"62.3\"", "value=\"6.24e1\""}},
     {"誤り IntermediatePnts-1／No.0"}},
    {"ADirectionBeyondAFullTurn", L"T08", {{"value=\"62.3\"", "value=\"422.3\""}}, {"警告 IntermediatePnts-1／No.0"}},
    {"ADirectionCountedBackward", L"T08", {{"value=\"62.3\"", "value=\"-297.3\""}}, {"警告 IntermediatePnts-1／No.0"}},
    {"ADirectionBeyondAFullTurnThatIsOff",
     L"T08",
     {{"value=\"62.3\"", "value=\"482.3\""}},
     {"警告 IntermediatePnts-1／No.0", "誤り IntermediatePnts-1／No.0"}},
    {"ADirectionLessThanASecondOff", L"T08", {{"value=\"62.3\"", "value=\"62.30009\""}}, {}},
    {"DirectionsInRadiansWhereNoUnitIsGiven",
     L"T08",
     {{" directionUnit=\"decimal dd.mm.ss\"", ""},
      {"value=\"62.3\"", "value=\"1.090830782\""},
      {"value=\"62.3\"", "value=\"1.090830782\""},
      {"value=\"63.38452961\"", "value=\"1.1\""},
      {"value=\"81.0716062\"", "value=\"1.4158308\""},
      {"value=\"103.10480124\"", "value=\"1.8008308\""},
      {"value=\"104.19333086\"", "value=\"1.8208308\""}},
     {"誤り IntermediatePnts-1／No.6+10.000"}},

    // Profiles
    {"AProfileThatGoesBack", L"V01", {{"<PVI>400.000", "<PVI>290.000"}}, {"誤り " + PROFILE}},
    {"TwoVerticalPointsAtOneStation", L"V01", {{"<PVI>400.000", "<PVI>300.000"}}, {"誤り " + PROFILE}},
    {"AGroundLineWithAStep", L"V01", {{"80. 108.071", "40. 108.071"}}, {}},
    {"AGroundLineThatGoesBack", L"V01", {{"80. 108.071", "30. 108.071"}}, {"誤り 線形1／縦断地盤線 現況地形"}},
    {"VerticalCurvesThatOverlap",
     L"V02",
     {{"ParaCurve length=\"100.000\"", "ParaCurve length=\"130.000\""}},
     {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"VerticalCurvesThatOverlapByAHair",
     L"V02",
     {{"ParaCurve length=\"100.000\"", "ParaCurve length=\"120.0095\""}},
     {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"VerticalCurvesThatTouch", L"V02", {{"ParaCurve length=\"100.000\"", "ParaCurve length=\"120.0090\""}}, {}},
    {"AVerticalCurveAtTheEnd",
     L"V03",
     {{"<PVI>400.000 113.000</PVI>", "<ParaCurve length=\"10.\">400.000 113.000</ParaCurve>"}},
     {"警告 " + PROFILE + "／ParaCurve 400.000"}},
    {"AVerticalRadiusOff",
     L"V04",
     {{"radius=\"800.000\"", "radius=\"801.500\""}},
     {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"AVerticalRadiusFarOff",
     L"V04",
     {{"radius=\"800.000\"", "radius=\"900.000\""}},
     {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"AVerticalRadiusRounded", L"V04", {{"radius=\"800.000\"", "radius=\"800.5\""}}, {}},
    {"AVerticalRadiusWhereTheGradientStays",
     L"V04",
     {{"<PVI>400.000 113.000", "<PVI>400.000 108.000"}},
     {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"TheRadiusOfASteepCircle",
     L"V04",
     {{"<PVI>400.000 113.000", "<PVI>400.000 128.000"}, {"radius=\"800.000\"", "radius=\"202.892\""}},
     {}},
    {"TheRadiusOfAParabolaForACircle",
     L"V04",
     {{"<PVI>400.000 113.000", "<PVI>400.000 128.000"}, {"radius=\"800.000\"", "radius=\"200.000\""}},
     {"誤り " + PROFILE + "／CircCurve 300.000"}},
    {"AProfileThatIsNotThere",
     L"V05",
     {{"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\"現況\""}},
     {"誤り 線形1"}},

    {"AProfileNamedWithBlanks", L"V05", {{"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\" 計画\""}}, {}},
    {"AProfileThatIsNotThereInAList",
     L"V05",
     {{"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\"計画 現況 旧計画\""}},
     {"誤り 線形1", "誤り 線形1"}},
    {"AProfileThatIsNotThereOfANamedFeature",
     L"V05",
     {{"<Feature>\n\t\t\t\t\t<Property label=\"profAlignRefs\" value=\"計画\"",
       "<Feature name=\"CrossSects\"><Property label=\"profAlignRefs\" value=\"現況\""}},
     {"誤り 線形1"}},
    {"NoProfileNamed", L"V05", {{"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\"\""}}, {"誤り 線形1"}},

    // Superelevation and cross sections
    {"ATransitionOutOfOrder",
     L"C01",
     {{"<FullSuperSta>160.000", "<FullSuperSta>260.000"}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"ATransitionWithoutRunout", L"C01", {{"<BeginRunoutSta>90.000</BeginRunoutSta>", ""}}, {}},
    {"ATransitionThatEndsBeforeItStarts",
     L"C01",
     {{"staEnd=\"256.\"", "staEnd=\"56.\""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"ASecondFullSuperelevationBehindTheRunoff",
     L"C01",
     {{"<FullSuperelev>", "<FullSuperSta>300.</FullSuperSta><FullSuperelev>"}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"ASecondFullSuperelevation",
     L"C01",
     {{"<FullSuperelev>", "<FullSuperSta>170.</FullSuperSta><FullSuperelev>"}},
     {}},
    {"ASuperelevationThatStartsBehindItsFullOne",
     L"C01",
     {{"staStart=\"160.\"", "staStart=\"161.\""}},
     {"誤り 線形1／片勾配すりつけ 161."}},
    {"ASuperelevationThatEndsBeforeItRunsOff",
     L"C01",
     {{"staEnd=\"256.\"", "staEnd=\"255.\""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"ASuperelevationThatHoldsItsTransitions",
     L"C01",
     {{"staStart=\"160.\" staEnd=\"256.\"", "staStart=\"90.\" staEnd=\"326.\""}},
     {}},
    {"ReverseCrownsOutOfOrder",
     L"C01",
     {{"value=\"130.000000\"", "value=\"290.000000\""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"FlatStationsOutOfOrder", L"C01", {{"value=\"110\"", "value=\"310\""}}, {"誤り 線形1／片勾配すりつけ 160."}},
    {"AReverseCrownInFrontOfTheFlatSection",
     L"C01",
     {{"value=\"130.000000\"", "value=\"100.000000\""}},
     {"誤り 線形1／片勾配すりつけ 160.", "誤り 線形1／片勾配すりつけ 160."}},
    {"AReverseCrownWithinTheFullSuperelevation",
     L"C01",
     {{"value=\"130.000000\"", "value=\"170.000000\""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"AReverseCrownAtTheFullSuperelevation", L"C01", {{"value=\"130.000000\"", "value=\"160.000000\""}}, {}},
    {"AReverseCrownBehindTheStartOfRunout",
     L"C01",
     {{"value=\"286.000000\"", "value=\"310.000000\""}},
     {"誤り 線形1／片勾配すりつけ 160.", "誤り 線形1／片勾配すりつけ 160."}},
    {"AFlatStationInFrontOfTheTransition",
     L"C01",
     {{"value=\"110\"", "value=\"80\""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"AFlatStationBehindTheTransition",
     L"C01",
     {{"value=\"306\"", "value=\"330\""}},
     {"誤り 線形1／片勾配すりつけ 160."}},
    {"AFlatStationBesideTheBeginningOfRunoff", L"C01", {{"value=\"110\"", "value=\"112\""}}, {}},
    {"SectionsOutOfOrder", L"C02", {{"sta=\"200.000\"", "sta=\"50.000\""}}, {"警告 線形1／横断面 No.10"}},
    {"AnOutlineTwoMillimetresOpen",
     L"C03",
     {{CLOSING_POINT, "<CrossSectPnt code=\"PV1\">0.000 0.002</CrossSectPnt><Feature>"}},
     {"誤り " + PAVEMENT + "表層"}},
    {"AnOutlineThatIsOpen",
     L"C03",
     {{CLOSING_POINT, "<CrossSectPnt code=\"PV1\">0.000 -0.200</CrossSectPnt><Feature>"}},
     {"誤り " + PAVEMENT + "表層"}},
    {"AnOutlineClosedToTheMillimetre",
     L"C03",
     {{CLOSING_POINT, "<CrossSectPnt code=\"PV1\">0.000 0.0009</CrossSectPnt><Feature>"}},
     {}},
    {"AGroundLineFromTheRight",
     L"C04",
     {{"-7.500 107.870", "-17.500 107.870"}},
     {"警告 線形1／横断面 No.3／ExistingGround"}},
    {"ASurfaceOnTheLeftThatTurnsBack",
     L"C04",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.000</CrossSectPnt><CrossSectPnt code=\"X\">-4.000 -0.070"}},
     {"警告 線形1／横断面 No.3／Carriageway left"}},
    {"ASurfaceOnTheLeftFromLeftToRight", L"C04", {{CENTRE, "<CrossSectPnt code=\"CW\">-4.000 0.000"}}, {}},
    {"ASurfaceOnTheRightFromTheRight",
     L"C04",
     {{"<Feature name=\"Formation\">", RIGHT_CARRIAGEWAY + "<Feature name=\"Formation\">"},
      {"RIGHT", "0.000"},
      {">3.250 -0.065", ">-0.100 -0.065"}},
     {"警告 線形1／横断面 No.3／Carriageway right"}},
    {"ASurfaceWithoutASideFromLeftToRight",
     L"C04",
     {{CENTRE, "<CrossSectPnt code=\"CW\">-3.250 0.000</CrossSectPnt><CrossSectPnt code=\"CL\">0.000 0.000"},
      {"Surf name=\"Carriageway\" side=\"left\"", "Surf name=\"Carriageway\""},
      {"<CrossSectPnt code=\"CW\">-3.250 -0.065", "<CrossSectPnt code=\"CW\">3.250 -0.065"}},
     {}},
    {"AWallThatLeansBack",
     L"C04",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.000</CrossSectPnt><CrossSectPnt code=\"X\">-4.000 -0.070"},
      {"Surf name=\"Carriageway\"", "Surf name=\"RetainingWall\""}},
     {}},
    {"AnOutlineThatTurnsBackTwice",
     L"C04",
     {{"<CrossSectPnt code=\"PV1\">-3.250 -0.065",
       "<CrossSectPnt code=\"PV1\">-2.000 -0.040</CrossSectPnt><CrossSectPnt code=\"PV1\">-1.000 "
       "-0.020</CrossSectPnt><CrossSectPnt code=\"PV1\">-3.250 -0.065"}},
     {"警告 " + PAVEMENT + "表層"}},
    {"AnOutlineThatBeginsInItsMiddle",
     L"C04",
     {{"<CrossSectPnt code=\"PV1\">0.000 0.000", "<CrossSectPnt code=\"PV1\">-1.000 -0.020"},
      {CLOSING_POINT, "<CrossSectPnt code=\"PV1\">0.000 0.000</CrossSectPnt><CrossSectPnt code=\"PV1\">-1.000 "
                      "-0.020</CrossSectPnt><Feature>"}},
     {}},
    {"ASurfaceOnTheOtherSide",
     L"C05",
     {{"<CrossSectPnt code=\"CW\">-3.250", "<CrossSectPnt code=\"CW\">3.250"}},
     {"警告 線形1／横断面 No.3／Carriageway left"}},
    {"AnElevationForAnOffset",
     L"C06",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 106.800"}},
     {"誤り 線形1／横断面 No.3／Carriageway left"}},
    {"ACentreTwoCentimetresOff",
     L"C06",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 -0.020"}},
     {"警告 線形1／横断面 No.3／Carriageway left"}},
    {"ACentreLessThanACentimetreOff", L"C06", {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.009"}}, {}},
    {"AnElevationThatIsOne",
     L"C06",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 106.800"}, {"value=\"fhOffset\"", "value=\"elevation\""}},
     {}},
    {"AnElevationOffTheProfile",
     L"C06",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 107.800"}, {"value=\"fhOffset\"", "value=\"elevation\""}},
     {"誤り 線形1／横断面 No.3／Carriageway left"}},
    {"AHeightTypeOfANamedFeature",
     L"C06",
     {{HEIGHT_TYPE, "<Feature name=\"Height\"><Property label=\"heightType\""}},
     {}},
    {"AHeightTypeOfANamedFeatureBesideTheStandards",
     L"C06",
     {{HEIGHT_TYPE,
       "<Feature name=\"Height\"><Property label=\"heightType\" value=\"elevation\"/></Feature><Feature><Property "
       "label=\"heightType\""}},
     {}},
    {"ALowerLayerByElevations", L"C06", LowerLayerByElevations("106.685"), {}},
    {"ATopOffAboveALayerByElevations",
     L"C06",
     And(LowerLayerByElevations("106.685"),
         {"<CrossSectPnt code=\"PV1\">0.000 0.000", "<CrossSectPnt code=\"PV1\">0.000 0.200"}),
     {"誤り " + PAVEMENT + "表層"}},
    {"AFormationPointBesideTheRoad",
     L"C06",
     {{"label=\"clOffset\" value=\"0.\"", "label=\"clOffset\" value=\"5.\""}},
     {"情報 線形1／横断面 No.3"}},
    {"AFormationPointOnOneSideOfTheRoad",
     L"C06",
     {{"label=\"clOffset\" value=\"0.\"", "label=\"clOffset\" value=\"-1.\""}},
     {"警告 線形1／横断面 No.3／Carriageway left", "警告 " + PAVEMENT + "表層"}},
    {"AFormationPointBetweenTheSidesOfADividedRoad",
     L"C06",
     {{"<Feature name=\"Formation\">", RIGHT_CARRIAGEWAY + "<Feature name=\"Formation\">"},
      {">0.000 RIGHT", ">1.000 0.000"},
      {"label=\"clOffset\" value=\"0.\"", "label=\"clOffset\" value=\"0.5\""}},
     {}},
    {"AFormationPointAboveTheFormationHeight",
     L"C06",
     {{"label=\"fhOffset\" value=\"0.\"", "label=\"fhOffset\" value=\"0.5\""}},
     {"誤り 線形1／横断面 No.3／Carriageway left", "誤り " + PAVEMENT + "表層"}},
    {"ACentreAtTheFormationPoint",
     L"C06",
     {{"label=\"fhOffset\" value=\"0.\"", "label=\"fhOffset\" value=\"0.5\""},
      {CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.500"},
      {"<CrossSectPnt code=\"PV1\">0.000 0.000", "<CrossSectPnt code=\"PV1\">0.000 0.500"}},
     {}},
    {"ThePavementsTopOffTheCentre",
     L"C06",
     {{"<CrossSectPnt code=\"PV1\">0.000 0.000", "<CrossSectPnt code=\"PV1\">0.000 0.200"}},
     {"誤り " + PAVEMENT + "表層"}},
    {"ALowerLayerAboveTheCentre",
     L"C06",
     {{"<CrossSectPnt code=\"PV2\">0.000 -0.050", "<CrossSectPnt code=\"PV2\">0.000 0.050"}},
     {"警告 " + PAVEMENT + "基層"}},
    {"TheRightCarriagewayOffTheCentre",
     L"C06",
     {{"<Feature name=\"Formation\">", RIGHT_CARRIAGEWAY + "<Feature name=\"Formation\">"}, {"RIGHT", "0.200"}},
     {"誤り 線形1／横断面 No.3／Carriageway right"}},
    {"ASubBaseBelowTheCentre",
     L"C06",
     {{"<Feature name=\"Formation\">", RIGHT_CARRIAGEWAY + "<Feature name=\"Formation\">"},
      {"RIGHT", "-0.500"},
      {"Surf name=\"Carriageway\" side=\"right\"", "Surf name=\"SubBase\" side=\"right\""}},
     {}},
    {"ACurbAtTheCentre",
     L"C06",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.250</CrossSectPnt><CrossSectPnt code=\"CL\">0.000 0.000"}},
     {}},
    {"ASurfaceAcrossTheCentreThatIsOffBetweenItsPoints",
     L"C06",
     {{"side=\"left\">\n\t\t\t\t\t\t<CrossSectPnt code=\"CL\">0.000 0.000", "><CrossSectPnt code=\"CW\">1.000 0.200"},
      {"<CrossSectPnt code=\"CW\">-3.250 -0.065", "<CrossSectPnt code=\"CW\">-3.000 -0.200"}},
     {"警告 線形1／横断面 No.3／Carriageway"}},
    {"ASurfaceAcrossTheCentreWithoutAPointThere",
     L"C06",
     {{"side=\"left\">\n\t\t\t\t\t\t<CrossSectPnt code=\"CL\">0.000 0.000", "><CrossSectPnt code=\"CW\">1.000 0.020"},
      {"<CrossSectPnt code=\"CW\">-3.250 -0.065", "<CrossSectPnt code=\"CW\">-3.000 -0.060"}},
     {}},
    {"ASurfaceThatDoesNotReachTheCentre", L"C06", {{CENTRE, "<CrossSectPnt code=\"CL\">-0.002 0.200"}}, {}},
    {"APavementWhoseTopIsOffBetweenItsPoints",
     L"C06",
     {{"closedArea=\"true\" side=\"left\"", "closedArea=\"true\""},
      {"closedArea=\"true\" side=\"left\"", "closedArea=\"true\""},
      {"<CrossSectPnt code=\"PV1\">0.000 0.000", "<CrossSectPnt code=\"PV1\">3.250 0.265"},
      {"<CrossSectPnt code=\"PV1\">0.000 -0.050", "<CrossSectPnt code=\"PV1\">3.250 0.215"},
      {"<CrossSectPnt code=\"PV1\">0.000 0.000", "<CrossSectPnt code=\"PV1\">3.250 0.265"}},
     {"警告 線形1／横断面 No.3／Pavement 表層"}},
    {"SectionsOfASecondProfileThatTheyName",
     L"C06",
     {{"<ProfAlign name=\"計画\">", FLAT_PROFILE + "<ProfAlign name=\"計画\">"},
      {"value=\"fhOffset\"", "value=\"elevation\""},
      {CENTRE, "<CrossSectPnt code=\"CL\">0.000 106.800"}},
     {}},
    {"SectionsOfAProfileThatTheyName",
     L"C06",
     {{"<ProfAlign name=\"計画\">", FLAT_PROFILE + "<ProfAlign name=\"計画\">"},
      {"value=\"fhOffset\"", "value=\"elevation\""},
      {CENTRE, "<CrossSectPnt code=\"CL\">0.000 106.800"},
      {"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\" 平 \""}},
     {"誤り 線形1／横断面 No.3／Carriageway left"}},
    {"SecondSectionsOfAnotherProfile",
     L"C06",
     {{"<ProfAlign name=\"計画\">", FLAT_PROFILE + "<ProfAlign name=\"計画\">"},
      {"<CrossSects name=\"線形1\">", SECTIONS_OF_THE_FLAT_PROFILE + "<CrossSects name=\"線形1\">"},
      {"HEIGHT", "200.000"}},
     {}},
    {"SecondSectionsOffTheirOwnProfile",
     L"C06",
     {{"<ProfAlign name=\"計画\">", FLAT_PROFILE + "<ProfAlign name=\"計画\">"},
      {"<CrossSects name=\"線形1\">", SECTIONS_OF_THE_FLAT_PROFILE + "<CrossSects name=\"線形1\">"},
      {"HEIGHT", "106.800"}},
     {"誤り 線形1／横断面 甲／Carriageway"}},
    {"LayersThatOverlapInAWedge",
     L"C07",
     {{"<CrossSectPnt code=\"PV2\">-3.250 -0.115", "<CrossSectPnt code=\"PV2\">-3.250 -0.1135"}},
     {"警告 " + PAVEMENT + "基層"}},
    {"LayersThatOverlap",
     L"C07",
     {{"<CrossSectPnt code=\"PV2\">-3.250 -0.115", "<CrossSectPnt code=\"PV2\">-3.250 -0.105"}},
     {"警告 " + PAVEMENT + "基層"}},
    {"AnExcavationBelowTheRoad",
     L"C06",
     {{"<DesignCrossSectSurf name=\"Carriageway\" side=\"left\">", BelowTheRoad("Excavation")}},
     {}},
    {"ASurfaceThatTheFormatDoesNotName",
     L"C06",
     {{"<DesignCrossSectSurf name=\"Carriageway\" side=\"left\">", BelowTheRoad("BaseCourse")}},
     {}},
    {"LayersThatOverlapByAHair",
     L"C07",
     {{"<CrossSectPnt code=\"PV2\">-3.250 -0.115", "<CrossSectPnt code=\"PV2\">-3.250 -0.114"}},
     {}},
    {"ALayerByElevationsBelowOneFromTheProfile", L"C07", LowerLayerByElevations("106.685"), {}},
    {"ALayerByElevationsThatOverlapsOneFromTheProfile",
     L"C07",
     LowerLayerByElevations("106.700"),
     {"警告 " + PAVEMENT + "基層"}},
    {"LayersOfBothKindsWhereNoProfileIs",
     L"C07",
     And(LowerLayerByElevations("106.700"), {FIRST_VERTICAL_POINT, "<PVI>100.000 105.000"}),
     {}},
    {"LayersThatOverlapWhereNoProfileIs",
     L"C07",
     {{"<CrossSectPnt code=\"PV2\">-3.250 -0.115", "<CrossSectPnt code=\"PV2\">-3.250 -0.105"},
      {FIRST_VERTICAL_POINT, "<PVI>100.000 105.000"}},
     {"警告 " + PAVEMENT + "基層"}},
    {"AGroundLineOfNoSurface",
     L"C08",
     {{"CrossSectSurf name=\"ExistingGround\"", "CrossSectSurf name=\"Bedrock\""}},
     {"情報 線形1／横断面 No.3"}},
    {"AGroundLineOfASurfacesName",
     L"C08",
     {{"CrossSectSurf name=\"ExistingGround\"", "CrossSectSurf name=\"現況地形\""}},
     {}},
    {"AGroundLineOfTheProfileOfNoSurface",
     L"C08",
     {{"ProfSurf name=\"現況地形\"", "ProfSurf name=\"岩盤\""}},
     {"情報 線形1／縦断地盤線 岩盤"}},
    {"AWideningOutOfOrder", L"C09", {{"256. 0.25 3", "156. 0.25 3"}}, {"警告 線形1／左拡幅"}},
    {"TwoWidthsAtOneStation", L"C09", {{"256. 0.25 3", "160. 0.5 3"}}, {}},
    {"CrossSlopesOutOfOrder",
     L"C09",
     {{"<Feature name=\"WideningList\">",
       "<Feature name=\"SlopeList\"><Property label=\"slopeValue\" value=\"50. 2. 2.\"/><Property "
       "label=\"slopeValue\" value=\"10. 2. 2.\"/></Feature><Feature name=\"WideningList\">"}},
     {"警告 線形1／横断勾配"}},

    // Surfaces
    {"ASurfacePointWithoutAHeight", L"F01", {{"18236.926 103.550", "18236.926"}}, {"誤り 現況地形／点 3"}},
    {"ASurfacePointWithoutANumber", L"F01", {{"<P id=\"3\">", "<P id=\"x\">"}}, {"誤り 現況地形／点 0"}},
    {"TwoSurfacePointsOfOneNumber", L"F02", {{"<P id=\"3\">", "<P id=\"2\">"}}, {"誤り 現況地形／点 2"}},
    {"NumbersWithGaps", L"F02", {{"<P id=\"3\">", "<P id=\"4000000000\">"}}, {}},
    {"AFaceOfATinWithFourPoints", L"F03", {{LAST_FACE, "<F>3 6 5 4</F>"}}, {"誤り 現況地形／面 3 6 5 4"}},
    {"AFaceOfAGridWithThreePoints",
     L"F03",
     {{"surfType=\"TIN\"", "surfType=\"grid\""}, {"<F>1 2 4</F>", ""}, {"<F>2 5 4</F>", ""}, {"<F>2 3 5</F>", ""}},
     {"誤り 現況地形／面 3 6 5"}},
    {"ASurfaceOfAnUnknownKind",
     L"F03",
     {{"surfType=\"TIN\"", "surfType=\"tin\""}, {LAST_FACE, "<F>3 6 5 4</F>"}},
     {"誤り 現況地形"}},
    {"ASurfaceWithoutAKindIsATin", L"F03", {{" surfType=\"TIN\"", ""}}, {}},
    {"AFaceToAMissingPoint", L"F04", {{LAST_FACE, "<F>3 6 7</F>"}}, {"誤り 現況地形／面 3 6 7"}},
    {"AFaceWithoutArea", L"F05", {{LAST_FACE, "<F>3 6 6</F>"}}, {"警告 現況地形／面 3 6 6"}},
    {"AFaceOnALine",
     L"F05",
     {{"12487.487 18334.497 107.716", "12468.7435 18282.2485 106.0080"}},
     {"警告 現況地形／面 3 6 5"}},
    {"AnUprightFace", L"F05", {{"12487.487 18334.497 107.716", "12436.695 18236.926 110.000"}}, {}},
    {"AnEdgeOfThreeFaces", L"F06", {{LAST_FACE, "<F>3 6 5</F><F>2 5 6</F>"}}, {"警告 現況地形／辺 2 5"}},
    {"AHiddenFace", L"F06", {{LAST_FACE, "<F>3 6 5</F><F i=\"1\">2 5 6</F>"}}, {}},
    {"APointThatNobodyUses", L"F07", {{LAST_FACE, ""}}, {"情報 現況地形／点 6"}},

    // References and units
    {"PointsOfAMissingAlignment", L"R01", {{"value=\"線形1\"", "value=\"線形9\""}}, {"誤り IntermediatePnts-1"}},
    {"ARoadwayOfAMissingAlignment",
     L"R01",
     {{"alignmentRefs=\"線形1\"", "alignmentRefs=\"線形1 線形9\""}},
     {"誤り Roadway 国道999号"}},
    {"ARoadwayOfAnAlignmentWithABlank",
     L"R01",
     {{"Alignment name=\"線形1\"", "Alignment name=\"線形 1\""},
      {"alignmentRefs=\"線形1\"", "alignmentRefs=\"線形 1\""},
      {"value=\"線形1\"", "value=\"線形 1\""},
      {"value=\"線形1\"", "value=\"線形 1\""},
      {"value=\"線形1\"", "value=\"線形 1\""}},
     {}},
    {"PointsOfNoAlignment",
     L"R01",
     {{"<Property label=\"alignmentRefs\" value=\"線形1\" />", ""}},
     {"誤り IntermediatePnts-1"}},
    {"AMissingAlignmentInAList",
     L"R01",
     {{"value=\"線形1\"", "value=\"線形8 線形1 線形9\""}},
     {"誤り IntermediatePnts-1", "誤り IntermediatePnts-1"}},
    {"ASurfaceOfNoAlignment",
     L"R01",
     {{"<Feature>\n\t\t\t\t<Property label=\"alignmentRefs\" value=\"線形1\" />\n\t\t\t</Feature>", ""}},
     {}},
    {"ControlPointsOfAMissingAlignment",
     L"R01",
     {{"<Feature name=\"WidthStakePnts\">\n\t\t\t<Property label=\"alignmentRefs\" value=\"線形1\" />",
       "<Feature name=\"ControlPnts\">\n\t\t\t<Property label=\"alignmentRefs\" value=\"線形9\" />"}},
     {"誤り 左幅杭"}},
    {"ControlPointsOfNoAlignment",
     L"R01",
     {{"<Feature name=\"WidthStakePnts\">\n\t\t\t<Property label=\"alignmentRefs\" value=\"線形1\" />",
       "<Feature name=\"ControlPnts\">"}},
     {}},
    {"AMissingAlignmentInASecondFeatureOfStakes",
     L"R01",
     {{"<Feature name=\"WidthStakePnts\">",
       "<Feature><Property label=\"alignmentRefs\" value=\"線形9\" /></Feature><Feature name=\"WidthStakePnts\">"}},
     {"誤り 左幅杭"}},
    {"AMissingAlignmentInANamedFeatureOfASurface",
     L"R01",
     {{"<Feature>\n\t\t\t\t<Property label=\"alignmentRefs\" value=\"線形1\" />",
       "<Feature name=\"Terrain\">\n\t\t\t\t<Property label=\"alignmentRefs\" value=\"線形9\" />"}},
     {"誤り 現況地形"}},
    {"AMissingAlignmentOfARoute",
     L"R01",
     {{"<Property label=\"designGmType\"", REFERENCE}},
     {"誤り Alignments 国道999号"}},
    {"AMissingAlignmentOfAnAlignment", L"R01", {{"</Alignment>", FEATURE + "</Alignment>"}}, {"誤り Alignment 線形1"}},
    {"AMissingAlignmentOfTheElements", L"R01", {{"</CoordGeom>", FEATURE + "</CoordGeom>"}}, {"誤り 線形1／CoordGeom"}},
    {"AMissingAlignmentOfAProfile", L"R01", {{"</Profile>", FEATURE + "</Profile>"}}, {"誤り 線形1／Profile 線形1"}},
    {"AMissingAlignmentOfADefinition",
     L"R01",
     {{"</Definition>", FEATURE + "</Definition>"}},
     {"誤り 現況地形／Definition"}},
    {"AMissingAlignmentOfAllSurfaces",
     L"R01",
     {{"</Surfaces>", FEATURE + "</Surfaces>"}},
     {"誤り Surfaces サーフェス"}},
    {"AnAlignmentOfAllSurfacesThatIsThere",
     L"R01",
     {{"</Surfaces>", Changed(FEATURE, {{"線形9", "線形1"}}) + "</Surfaces>"}},
     {}},
    {"AMissingFeatureOfASurfacesPoint",
     L"R02",
     {{"<P id=\"3\">", "<P id=\"3\" featureRef=\"33\">"}},
     {"誤り 現況地形／点 3"}},
    {"AFeatureOfASurfacesPoint", L"R02", {{"<P id=\"3\">", "<P id=\"3\" featureRef=\"3\">"}}, {}},
    {"AMissingPointOfASurfacesPoint",
     L"R03",
     {{"<P id=\"3\">", "<P id=\"3\" pntRef=\"Q1\">"}},
     {"誤り 現況地形／点 3"}},
    {"AMissingPointOfASurfacesPointBesideAComment",
     L"R03",
     {{"<Pnts>", "<Pnts><!-- -->"}, {"<P id=\"3\">", "<P id=\"3\" pntRef=\"Q1\">"}},
     {"誤り 現況地形／点 3"}},
    {"APointOfASurfacesPoint", L"R03", {{"<P id=\"3\">", "<P id=\"3\" pntRef=\"L-1\">"}}, {}},
    {"AMissingFeature", L"R02", {{"featureRef=\"3\"", "featureRef=\"33\""}}, {"誤り IntermediatePnts-1／No.6+10.000"}},
    {"AMissingFeatureOfAMainPoint",
     L"R02",
     {{"<Start name=\"BP\">", "<Start name=\"BP\" featureRef=\"33\">"}},
     {"誤り " + LINE}},
    {"AFeatureOfAMainPoint", L"R02", {{"<Start name=\"BP\">", "<Start name=\"BP\" featureRef=\"3\">"}}, {}},
    {"AMissingPointOfAnIntersection",
     L"R03",
     {{"<PI>12547.71076598 18417.70063507</PI>", "<PI name=\"IP.1\" pntRef=\"Q1\"/>"}},
     {"誤り 線形1／PI IP.1"}},
    {"AMissingPointOfAStake", L"R03", {{"name=\"L-1\"", "name=\"L-1\" pntRef=\"Q1\""}}, {"誤り 左幅杭／L-1"}},
    {"PointsThatReferInACircle",
     L"R03",
     {{"<CgPoint name=\"L-1\">12461.0876 18224.2281 104.925</CgPoint>", "<CgPoint name=\"L-1\" pntRef=\"L-2\"/>"},
      {"<CgPoint name=\"L-2\">12511.88 18321.7993 109.091</CgPoint>", "<CgPoint name=\"L-2\" pntRef=\"L-1\"/>"},
      {BP, "<Start name=\"BP\" pntRef=\"L-1\"/>"}},
     {"誤り 左幅杭／L-1", "誤り 左幅杭／L-2", "誤り " + LINE}},
    {"APointThatRefersToItself", L"R03", {{"name=\"L-1\"", "name=\"L-1\" pntRef=\"L-1\""}}, {"誤り 左幅杭／L-1"}},
    {"AMissingPointOfASection",
     L"R03",
     {{"<CrossSectPnt code=\"CW\">", "<CrossSectPnt code=\"CW\" pntRef=\"Q1\">"}},
     {"誤り 線形1／横断面 No.3／CrossSectPnt CW"}},
    {"AnIntersectionThatIsReferredTo", L"R03", {{BP, "<Start name=\"BP\" pntRef=\"IP\"/>"}}, {}},
    {"APointBehindTwoReferences",
     L"H01",
     {{BP, "<Start name=\"BP\" pntRef=\"Q1\"/>"},
      {"<CgPoint name=\"L-1\">", "<CgPoint name=\"Q1\" pntRef=\"No.0\"/><CgPoint name=\"L-1\">"}},
     {}},
    {"PointsThatReferToOneAnother",
     L"H01",
     {{BP, "<Start name=\"BP\" pntRef=\"Q1\"/>"},
      {"<CgPoint name=\"L-1\">", "<CgPoint name=\"Q1\" pntRef=\"BP\"/><CgPoint name=\"L-1\">"}},
     {"誤り " + LINE}},
    {"AMissingPoint", L"R03", {{BP, "<Start name=\"BP\" pntRef=\"Q1\"/>"}}, {"誤り " + LINE}},
    {"APointThatIsReferredTo", L"H01", {{BP, "<Start name=\"BP\" pntRef=\"No.0\"/>"}}, {}},
    {"APointThatIsThere", L"R03", {{BP, "<Start name=\"BP\" pntRef=\"No.0\"/>"}}, {}},
    {"TwoPointsOfOneName", L"R04", {{"name=\"L-2\"", "name=\"L-1\""}}, {"誤り 左幅杭／CgPoint L-1"}},
    {"TwoGroupsOfOneName",
     L"R04",
     {{"CgPoints name=\"左幅杭\"", "CgPoints name=\"IntermediatePnts-1\""}},
     {"誤り CgPoints IntermediatePnts-1"}},
    {"TwoProfilesOfOneName",
     L"R04",
     {{"<ProfSurf name=", FLAT_PROFILE + "<ProfSurf name="}, {"ProfAlign name=\"平\"", "ProfAlign name=\"計画 \""}},
     {"誤り 線形1／ProfAlign 計画"}},
    {"AlignmentsOfOneNameInTwoRoutes",
     L"R04",
     {{"</Alignments>", "</Alignments><Alignments name=\"県道\"><Alignment name=\"線形1\"/></Alignments>"}},
     {"情報 Alignment 線形1"}},
    {"AlignmentsOfOneNameInOneRoute",
     L"R04",
     {{"</Alignments>", "<Alignment name=\"線形1\"/></Alignments>"}},
     {"誤り Alignment 線形1"}},
    {"NamesThatCannotBeRead",
     L"R04",
     {{"encoding=\"UTF-8\"", "encoding=\"EUC-JP\""},
      {"CgPoint name=\"L-1\"", "CgPoint name=\"\xB9\xC3\""},
      {"CgPoint name=\"L-2\"", "CgPoint name=\"\xB2\xB5\""}},
     {}},
    {"TwoProfiles", L"R04", {{"<ProfSurf name=", FLAT_PROFILE + "<ProfSurf name="}}, {}},
    {"TwoSectionsAtOneStationInOtherDigits",
     L"R04",
     {{"sta=\"200.000\"", "sta=\"60.\""}},
     {"誤り 線形1／CrossSect@sta 60."}},
    {"TwoSectionsAtOneStation", L"R04", {{"sta=\"200.000\"", "sta=\"60.000\""}}, {"誤り 線形1／CrossSect@sta 60.000"}},
    {"AnUnknownDatum", L"R05", {{"horizontalDatum=\"JGD2011\"", "horizontalDatum=\"WGS84\""}}, {"誤り 座標参照系"}},
    {"TheFormerDatum", L"R05", {{"horizontalDatum=\"JGD2011\"", "horizontalDatum=\"TD\""}}, {}},
    {"AZoneThatIsNone", L"R06", {{"=\"9(X,Y)\"", "=\"20(X,Y)\""}}, {"誤り 座標参照系"}},
    {"AxesInTheOtherOrder", L"R06", {{"=\"9(X,Y)\"", "=\"9(Y,X)\""}}, {"誤り 座標参照系"}},
    {"TheZoneBesideTheDescribedOne", L"R07", {{"=\"9(X,Y)\"", "=\"8(X,Y)\""}}, {"警告 座標参照系"}},
    {"APointOutsideTheZone", L"R08", {{STAKE, "<CgPoint name=\"L-1\">912461.0876 18224.2281"}}, {"警告 左幅杭／L-1"}},
    {"APointWithSwappedAxes", L"R09", {{STAKE, "<CgPoint name=\"L-1\">0.0 150000.0"}}, {"警告 左幅杭／L-1"}},
    {"AStakeFarFromItsAlignmentAndBesideItWhenSwapped",
     L"R09",
     {{STAKE, "<CgPoint name=\"L-1\">18224.2281 12461.0876"}},
     {"警告 左幅杭／L-1"}},
    {"AGroupWithSwappedAxesIsOneFinding",
     L"R09",
     {{STAKE, "<CgPoint name=\"L-1\">0.0 150000.0"}, {"<CgPoint name=\"L-2\">", "<CgPoint name=\"L-2\">0.0 150001.0 "}},
     {"警告 左幅杭"}},
    {"AFileInAnotherZoneIsAFindingForEachPart",
     L"R08",
     {{"=\"9(X,Y)\"", "=\"19(X,Y)\""}},
     {"警告 線形1", "警告 IntermediatePnts-1", "警告 左幅杭", "警告 現況地形"}},
    {"ACurvesIntersectionFarAway",
     L"R08",
     {{"18442.32500043</Center>", "18442.32500043</Center><PI>912530.8 18483.8</PI>"}},
     {}},
    {"AnIntersectionOutsideTheZone",
     L"R08",
     {{"<PI>12547.71076598 18417.70063507</PI>", "<PI name=\"IP.1\">912547.7 18417.7</PI>"}},
     {"警告 線形1／PI IP.1"}},
    {"ASpiralsIntersectionOutsideTheZone",
     L"R08",
     {{SPIRAL_PI, "<PI name=\"IP\">912516.19658408 18357.16245488"}},
     {"警告 " + SPIRAL}},
    {"APointOfAnIrregularLineOutsideTheZone",
     L"R08",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450 18230 912450 18230 12500.79234746 18327.57119165")}},
     {"警告 " + IRREGULAR_LINE}},
    {"ASurfaceWithSwappedAxes",
     L"R09",
     {{"12463.305 18223.074", "18223.074 12463.305"},
      {"12450.000 18230.000 1", "18230.000 12450.000 1"},
      {"12436.695 18236.926", "18236.926 12436.695"},
      {"12514.098 18320.645", "18320.645 12514.098"},
      {"12500.792 18327.571", "18327.571 12500.792"},
      {"12487.487 18334.497", "18334.497 12487.487"}},
     {"警告 現況地形"}},
    {"OnePointOfASurfaceWithSwappedAxes", L"R09", {{"12463.305 18223.074", "18223.074 12463.305"}}, {}},
    {"OneOfThreeAlignmentsWithSwappedAxes",
     L"R09",
     {{"</Alignment>", "</Alignment>" + AlignmentBetween("線形2", "18100 12500", "18200 12500") +
                           AlignmentBetween("線形3", "12600 18100", "12600 18200")}},
     {"警告 線形2／直線 1番目"}},
    {"OneOfTwoAlignmentsWithSwappedAxes",
     L"R09",
     {{"</Alignment>", "</Alignment>" + AlignmentBetween("線形2", "18100 12500", "18200 12500")}},
     {}},
    {"ThreeAlignmentsSideBySide",
     L"R09",
     {{"</Alignment>", "</Alignment>" + AlignmentBetween("線形2", "12500 18100", "12500 18200") +
                           AlignmentBetween("線形3", "14000 17100", "14100 17200")}},
     {}},
    {"APointWithSwappedAxesIsNotAlsoOutside", L"R08", {{STAKE, "<CgPoint name=\"L-1\">0.0 150000.0"}}, {}},
    {"SeventyFiveMinutesWithAnExponent",
     L"R10",
     {{"value=\"62.3\"", "value=\"3.075e1\""}},
     {"誤り IntermediatePnts-1／No.0"}},
    {"ThirtyMinutesWithAnExponent", L"R10", {{"value=\"62.3\"", "value=\"6.23e1\""}}, {}},
    {"SeventyFiveMinutes", L"R10", {{"value=\"62.3\"", "value=\"30.75\""}}, {"誤り IntermediatePnts-1／No.0"}},
    {"SixtySeconds", L"R10", {{"value=\"62.3\"", "value=\"62.2960\""}}, {"誤り IntermediatePnts-1／No.0"}},
    {"SeventyFiveMinutesOfALine", L"R10", {{"<Line length", "<Line dir=\"62.75\" length"}}, {"誤り " + LINE}},
    {"SixtyMinutesOfACurvesEnds",
     L"R10",
     {{"<Curve rot", "<Curve dirStart=\"69.60\" dirEnd=\"97.0960\" rot"}},
     {"誤り " + CURVE, "誤り " + CURVE}},
    {"SeventyMinutesOfASpiralsTurn",
     L"R10",
     {{"<Spiral spiType", "<Spiral theta=\"7.70\" spiType"}},
     {"誤り " + SPIRAL}},
    {"ACurvesTurn", L"R10", {{"<Curve rot", "<Curve delta=\"27.5959\" dirStart=\"69.5959\" rot"}}, {}},
    {"SeventyMinutesOfASkew",
     L"R10",
     {{"name=\"No.3\" sta", "angleSkew=\"80.70\" name=\"No.3\" sta"}},
     {"誤り 線形1／横断面 No.3"}},
    {"DecimalDegrees",
     L"R10",
     {{"value=\"62.3\"", "value=\"62.75\""},
      {"directionUnit=\"decimal dd.mm.ss\"", "directionUnit=\"decimal degrees\""}},
     {}},
    {"AnotherDatumsDifference", L"R11", {{"value=\"0.0000\"", "value=\"-1.1344\""}}, {"誤り 座標参照系"}},
    {"ADifferenceThatIsLittleOff", L"R11", {{"value=\"0.0000\"", "value=\"0.0001\""}}, {"警告 座標参照系"}},
    {"NoDifferenceOfAnotherDatum",
     L"R11",
     {{"<Property label=\"differTP\" value=\"0.0000\" />", ""}, {"verticalDatum=\"T.P\"", "verticalDatum=\"A.P\""}},
     {"警告 座標参照系"}},
    {"NoDifferenceOfTokyoBay", L"R11", {{"<Property label=\"differTP\" value=\"0.0000\" />", ""}}, {}},
    {"AnUnknownVerticalDatum", L"R11", {{"verticalDatum=\"T.P\"", "verticalDatum=\"T.P.\""}}, {"警告 座標参照系"}},
    {"NoVerticalDatum", L"R11", {{" verticalDatum=\"T.P\"", ""}}, {}},
    {"TheSecondRiverOfADatum",
     L"R11",
     {{"value=\"0.0000\"", "value=\"-0.8333\""}, {"verticalDatum=\"T.P\"", "verticalDatum=\"A.P\""}},
     {}},
    {"AnUnknownUnitOfDirections",
     L"R13",
     {{"directionUnit=\"decimal dd.mm.ss\"", "directionUnit=\"degrees\""}},
     {"誤り 単位系"}},
    {"UnknownUnitsOfBothAngles",
     L"R13",
     {{"angularUnit=\"decimal dd.mm.ss\"", "angularUnit=\"DMS\""},
      {"directionUnit=\"decimal dd.mm.ss\"", "directionUnit=\"DMS\""}},
     {"誤り 単位系", "誤り 単位系"}},
    {"NoUnitOfDirections", L"R13", {{" directionUnit=\"decimal dd.mm.ss\"", ""}}, {}},
    {"DirectionsInDegrees", L"R13", {{"directionUnit=\"decimal dd.mm.ss\"", "directionUnit=\"decimal degrees\""}}, {}},
    {"AnUnknownUnitOfAreas", L"R12", {{"areaUnit=\"squareMeter\"", "areaUnit=\"acre\""}}, {"誤り 単位系"}},
    {"Hectares", L"R12", {{"areaUnit=\"squareMeter\"", "areaUnit=\"hectare\""}}, {}},
    {"AnUnknownUnitOfVolumes", L"R12", {{"volumeUnit=\"cubicMeter\"", "volumeUnit=\"m3\""}}, {"誤り 単位系"}},
    {"NoUnitsOfAreasAndVolumes", L"R12", {{"areaUnit=\"squareMeter\"", ""}, {"volumeUnit=\"cubicMeter\"", ""}}, {}},
    {"Millimetres", L"R12", {{"linearUnit=\"meter\"", "linearUnit=\"millimeter\""}}, {"誤り 単位系"}},
};

class CheckCases : public testing::TestWithParam<Case>
{
  protected:
    void SetUp() override
    {
        if (FindCheck(GetParam().code) == nullptr)
        {
            GTEST_SKIP() << "built without the library that this check needs";
        }
    }
};

TEST_P(CheckCases, SaysOfTheChangedElementAlone)
{
    const Case& one = GetParam();
    EXPECT_EQ(Said(SoundFile(one.changes), one.code), one.said);
}

TEST_P(CheckCases, LeadFromEveryFindingToAnElementOfThePage)
{
    const LandXmlFile file = SoundFile(GetParam().changes);
    const std::vector<Finding> findings = Inspect(file, EveryCheck());
    const std::string page = ReportPage(file, findings);
    const std::string_view table = std::string_view(page).substr(page.find("<section id=\"findings\""));
    std::size_t links = 0;
    constexpr std::string_view LINK = "<td><a href=\"#";
    for (std::size_t place = table.find(LINK); place != std::string_view::npos; place = table.find(LINK, place + 1))
    {
        const std::size_t begin = place + LINK.size();
        const std::string id = " id=\"" + std::string(table.substr(begin, table.find('"', begin) - begin)) + "\"";
        EXPECT_NE(page.find(id), std::string::npos) << id;
        EXPECT_EQ(page.find(id), page.rfind(id)) << id;
        ++links;
    }
    EXPECT_EQ(links, findings.size());
}

INSTANTIATE_TEST_SUITE_P(Inspect, CheckCases, testing::ValuesIn(CASES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(Checks, CountEveryPairOfStationsThatIsOutOfOrder)
{
    constexpr std::size_t COUNT = 30;
    std::string features = "<Feature name=\"FlatSta\">";
    for (std::size_t station = 0; station < COUNT; ++station)
    {
        features += "<Property label=\"sta\" value=\"150\"/>";
    }
    features += "</Feature><Feature name=\"ReverseCrown\">";
    for (std::size_t station = 0; station < COUNT; ++station)
    {
        features += "<Property label=\"sta\" value=\"140\"/>";
    }
    const LandXmlFile file =
        SoundFile({{"<Feature name=\"ReverseCrown\">", features + "</Feature><Feature name=\"ReverseCrown\">"}});
    const std::vector<Finding> findings = Inspect(file, {FindCheck(L"C01")});
    ASSERT_EQ(findings.size(), Findings::LARGEST_COUNT + 1);
    // The one more is the file's own ReverseCrown at 130 m, which lies in front of all of the FlatSta at 150 m.
    EXPECT_EQ(Utf8FromWide(findings.back().text), "片勾配すりつけの測点の順番が逆です（ほか" +
                                                      std::to_string(COUNT * (COUNT + 1) - Findings::LARGEST_COUNT) +
                                                      "件）");
    EXPECT_EQ(findings.back().severity, Severity::Error);
}

/// Two pavement layers of which the second, which lies in the first, turns so often.
std::vector<Change> LayersWithTurns(std::size_t turns)
{
    const auto layer = [](const std::string& points) {
        return "<DesignCrossSectSurf name=\"Pavement\" closedArea=\"true\" side=\"left\">" + points +
               "</DesignCrossSectSurf>";
    };
    const auto point = [](const std::string& offset, const std::string& height) {
        return "<CrossSectPnt>" + offset + " " + height + "</CrossSectPnt>";
    };
    std::string zigzag = point("-1", "-9.0");
    for (std::size_t turn = 0; turn <= turns; ++turn)
    {
        zigzag += point(turn % 2 == 0 ? "-2" : "-1", "-8." + std::to_string(10 + turn));
    }
    return {{"<Feature name=\"Formation\">",
             layer(point("-3", "-9") + point("0", "-9") + point("0", "-8") + point("-3", "-8")) + layer(zigzag) +
                 "<Feature name=\"Formation\">"}};
}

TEST(Checks, HoldNoOutlineToOthersThatTurnsTooOftenForALayer)
{
    EXPECT_EQ(Said(SoundFile(LayersWithTurns(20)), L"C07").size(), 1U);
    EXPECT_EQ(Said(SoundFile(LayersWithTurns(20)), L"C04").size(), 1U);
    EXPECT_EQ(Said(SoundFile(LayersWithTurns(21)), L"C07").size(), 0U);
    EXPECT_EQ(Said(SoundFile(LayersWithTurns(21)), L"C04").size(), 1U);
}

TEST(Checks, SayWhereAFileDoesNotFollowItsSchema)
{
    LandXmlFile file = SoundFile();
    file.schemaFaults.listed = {{L"/LandXML/Units", L"not expected", 5, 1}, {L"/LandXML", L"not allowed", 2, 3}};
    EXPECT_EQ(Said(file, L"S01"), (std::vector<std::string>{"誤り /LandXML/Units", "誤り /LandXML"}));
    file.schemaFaults.end = XmlFault{L"/LandXML/Project", L"too deep", 9};
    EXPECT_EQ(Said(file, L"S01"),
              (std::vector<std::string>{"誤り /LandXML/Project", "誤り /LandXML/Units", "誤り /LandXML"}));
    file.formFault = file.schemaFaults.end;
    EXPECT_EQ(Said(file, L"S01"), (std::vector<std::string>{"誤り /LandXML/Units", "誤り /LandXML"}))
        << "the form's fault has a check of its own";
}

TEST(Checks, EachSpeaksInSomeCase)
{
    std::set<std::wstring> silent;
    for (const Check& check : AllChecks())
    {
        silent.insert(check.code);
    }
    for (const Case& one : CASES)
    {
        if (!one.said.empty())
        {
            silent.erase(one.code);
        }
    }
    EXPECT_EQ(silent, std::set<std::wstring>{L"S01"}) << "which has a test of its own";
}

TEST(Checks, WithToleranceKeepSilentInSomeCaseWithinIt)
{
    std::set<std::wstring> untested = CodesWithTolerance();
    for (const Case& one : CASES)
    {
        if (one.said.empty())
        {
            untested.erase(one.code);
        }
    }
    EXPECT_EQ(untested, std::set<std::wstring>());
}

// Findings

TEST(Findings, NameTheLineAndTheNumbers)
{
    const std::vector<Finding> findings =
        Inspect(SoundFile({{"length=\"110.000000\"", "length=\"110.00200\""}}), {FindCheck(L"H03")});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].line, 69U);
    EXPECT_EQ(Utf8FromWide(findings[0].text),
              "要素の長さが座標からの計算と合いません（値 110.00200 m、計算 110 m、差 0.002 m、許容 0.001 m）");
    EXPECT_EQ(Utf8FromWide(findings[0].english),
              "An element's length doesn't fit its coordinates (value 110.00200 m, computed 110 m, difference 0.002 m, "
              "tolerance 0.001 m)");
    EXPECT_DOUBLE_EQ(findings[0].value.value(), 110.002);
    EXPECT_NEAR(findings[0].expected.value(), 110, 1e-6);
    EXPECT_EQ(findings[0].tolerance, 0.001);
}

TEST(Findings, OfAnEdgeLeadToTheFaceThatIsOneTooMany)
{
    const std::string text = SoundText({{LAST_FACE, "<F>3 6 5</F>\n<F>2 5 6</F>\n<F>5 2 1</F>"}});
    const LandXmlFile file = ReadLandXmlBytes(text, L"sound.xml");
    const std::vector<Finding> findings = Inspect(file, {FindCheck(L"F06")});
    ASSERT_EQ(findings.size(), 1U);
    const auto line = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.find("<F>2 5 6")), '\n');
    EXPECT_EQ(findings[0].line, static_cast<std::size_t>(line) + 1);
    EXPECT_EQ(Utf8FromWide(findings[0].text), "三つ以上の面が共有する辺があります（4面）");
}

TEST(Findings, NameTheElementExactlyInAFileOfOneLine)
{
    std::string text = SoundText({{"length=\"110.000000\"", "length=\"110.00200\""}, {LAST_FACE, "<F>3 6 6</F>"}});
    std::erase_if(text, [](char character) { return character == '\n' || character == '\t'; });
    const LandXmlFile file = ReadLandXmlBytes(text, L"sound.xml");
    const std::wstring wide = WideFromUtf8(text);
    const std::vector<Finding> lengths = Inspect(file, {FindCheck(L"H03")});
    ASSERT_EQ(lengths.size(), 1U);
    EXPECT_EQ(static_cast<SourcePlace>(lengths[0]), (SourcePlace{1, wide.find(L"Line length"), 0}));
    // Six points in front of it, and three faces.
    const std::vector<Finding> faces = Inspect(file, {FindCheck(L"F05")});
    ASSERT_EQ(faces.size(), 1U);
    EXPECT_EQ(static_cast<SourcePlace>(faces[0]), (SourcePlace{1, wide.find(L"Surface name"), 10}));
}

/// What is said behind the text of a check.
struct TextCase
{
    const char* name;
    const wchar_t* code;
    std::vector<Change> changes;
    const char* text;
};
const TextCase TEXT_CASES[] = {
    {"ASpiral",
     L"X04",
     {{"spiType=\"clothoid\"", "spiType=\"bloss\""}},
     "検査と作図の対象でない種類の要素があります（spiType=bloss）"},
    {"ASectionPoint",
     L"X04",
     {{"<CrossSectPnt code=\"CW\">", "<CrossSectPnt code=\"CW\" dataFormat=\"Slope Distance\">"}},
     "検査と作図の対象でない種類の要素があります（dataFormat=Slope Distance）"},
    {"AFeaturesChild",
     L"X01",
     {{"<Property label=\"differTP\"", "<DocFileRef/><Property label=\"differTP\""}},
     "検査の対象でない要素を読み飛ばしました（1件）"},
    {"AnArcsName",
     L"H12",
     {{"<End name=\"KE.1-1\">", "<End name=\"BC.1\">"}, {"<Start name=\"KE.1-1\">", "<Start name=\"BC.1\">"}},
     "主要点の名称が順番どおりではありません（要素の並びからはKE.1-1）"},
    {"ATransition",
     L"C01",
     {{"staEnd=\"256.\"", "staEnd=\"56.\""}},
     "片勾配すりつけの測点の順番が逆です（staStart 160.、staEnd 56.）"},
    {"AReverseCrown",
     L"C01",
     {{"value=\"130.000000\"", "value=\"290.000000\""}},
     "片勾配すりつけの測点の順番が逆です（ReverseCrown 290.000000、ReverseCrown 286.000000）"},
    {"AWidening", L"C09", {{"256. 0.25 3", "156. 0.25 3"}}, "拡幅か横断勾配が測点の順に並んでいません（測点 156.）"},
    {"ALabel",
     L"T04",
     {{"staBack=\"150.000\" staAhead=\"160.000\"", "staAhead=\"140.000\""}},
     "測点の表示が二度現れる区間があります（140.000～150）"},
    {"LabelsOfAnEarlierStretch",
     L"T04",
     {{"staAhead=\"160.000\"", "staAhead=\"1160.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"1260.000\" staAhead=\"40.000\""}},
     "測点の表示が二度現れる区間があります（40.000～150.000）"},
    {"LabelsOfAnEarlierStretchUpToTheEnd",
     L"T04",
     {{"staAhead=\"160.000\"", "staAhead=\"1160.000\""},
      {"staBack=\"260.000\" staAhead=\"265.000\"", "staBack=\"1260.000\" staAhead=\"-50.000\""}},
     "測点の表示が二度現れる区間があります（0.000000～100）"},
    {"ACircleWithoutABend",
     L"V04",
     {{"<PVI>400.000 113.000", "<PVI>400.000 108.000"}},
     "縦断曲線の半径が長さと勾配に合いません（勾配が変わらない）"},
    {"ACircle",
     L"V04",
     {{"<PVI>400.000 113.000", "<PVI>400.000 128.000"}, {"radius=\"800.000\"", "radius=\"200.000\""}},
     "縦断曲線の半径が長さと勾配に合いません（値 200.000、計算 202.89223、差の割合 0.014255、許容 0.001）"},
    {"AWedge",
     L"C07",
     {{"<CrossSectPnt code=\"PV2\">-3.250 -0.115", "<CrossSectPnt code=\"PV2\">-3.250 -0.1135"}},
     "舗装の層が重なっています（表層と重なる、差 0.0015 m、許容 0.001 m）"},
    {"AFormationPoint",
     L"C06",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.500"}},
     "横断面の計画高の位置の高さが縦断と合いません（計画高からの高さ（計画高 106.8 m）、値 0.500 m、計算 0 m、差 0.5 "
     "m、許容 0.1 m）"},
    {"ASurfaceBetweenItsPoints",
     L"C06",
     {{"side=\"left\">\n\t\t\t\t\t\t<CrossSectPnt code=\"CL\">0.000 0.000", "><CrossSectPnt code=\"CW\">1.000 0.200"},
      {"<CrossSectPnt code=\"CW\">-3.250 -0.065", "<CrossSectPnt code=\"CW\">-3.000 -0.200"}},
     "横断面の計画高の位置の高さが縦断と合いません（計画高からの高さ（計画高 106.8 m）、値 0.1 m、計算 0 m、差 0.1 "
     "m、許容 0.01 m）"},
    {"ASurfaceThatTurnsBack",
     L"C04",
     {{CENTRE, "<CrossSectPnt code=\"CL\">0.000 0.000</CrossSectPnt><CrossSectPnt code=\"X\">-4.000 -0.070"}},
     "横断面の線が左から右に並んでいません（離れ -3.250）"},
    {"AReverseCrownInTheCurve",
     L"C01",
     {{"value=\"130.000000\"", "value=\"170.000000\""}},
     "片勾配すりつけの測点の順番が逆です（ReverseCrown 170.000000、FullSuperSta 160.000）"},
    {"ALinesAngle",
     L"R10",
     {{"<Line length", "<Line dir=\"62.75\" length"}},
     "度分秒の分か秒が60以上です（dir 62.75 → 75分0秒）"},
    {"AClothoidsLength",
     L"X05",
     {{" length=\"50.000000\"", ""}},
     "必要な値がないか、数値の個数が合いません（lengthがない）"},
    {"ARadiusBelowZero",
     L"X06",
     {{"rot=\"cw\" radius=\"200.00000000\"", "rot=\"cw\" radius=\"-200.\""}},
     "長さか半径が0以下です（radius -200.）"},
    {"AFormerVersion",
     L"X08",
     {{" version=\"1.2\"", " version=\"1.1\""}, {"xmlns=\"http://www.landxml.org/schema/LandXML-1.2\"", ""}},
     "LandXML 1.2の版と名前空間ではありません（version=1.1、xmlns=指定なし、LandXML 1.2として検査しました）"},
    {"AnEncoding",
     L"X03",
     {{"encoding=\"UTF-8\"", "encoding=\"EUC-JP\""}},
     "XML宣言の文字コードで読めないバイトがあります（encoding=EUC-JP、UTF-8として読みました）"},
    {"AVerticalDatum",
     L"R11",
     {{"verticalDatum=\"T.P\"", "verticalDatum=\"T.P.\""}},
     "T.P.との標高差が鉛直原子と合いません（T.P.は標準の鉛直原子ではありません）"},
    {"AnAreaUnit",
     L"R12",
     {{"areaUnit=\"squareMeter\"", "areaUnit=\"acre\""}},
     "単位がメートルではありません（areaUnit=acre）"},
    {"AKindOfSurface",
     L"F03",
     {{"surfType=\"TIN\"", "surfType=\"tin\""}},
     "面の頂点の数がサーフェスの種類と合いません（surfType=tin）"},
    {"AClothoidsParameter",
     L"X05",
     {{"<Property label=\"A\" value=\"100.000000\" />", ""}},
     "必要な値がないか、数値の個数が合いません（Aがない）"},
    {"ASurfacesPoint",
     L"X05",
     {{"18236.926 103.550", "18236.926 103.550 1"}},
     "必要な値がないか、数値の個数が合いません（数値が4個、3個のはず）"},
    {"AUnitOfDirections",
     L"R13",
     {{"directionUnit=\"decimal dd.mm.ss\"", "directionUnit=\"degrees\""}},
     "角度の単位がLandXMLのものではありません（directionUnit=degrees）"},
    {"AnIrregularLine",
     L"H13",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", FirstPathOf("12450.002 18230 12500.79234746 18327.57119165")}},
     "折れ線の始点か終点が点列の端と離れています（Start、差 0.002 m、許容 0.001 m）"},
    {"NoElements",
     L"H09",
     {{"<CoordGeom>", "<!--"}, {"</CoordGeom>", "-->"}},
     "線形の長さが要素の長さの合計と合いません（要素がない、値 400.000000 m、計算 0 m、差 400 m、許容 0.001 m）"},
    {"AStartsNameElsewhere",
     L"H12",
     {{"<Start name=\"BP\">", "<Start name=\"B\">"}, {"<End name=\"EP\">", "<End name=\"BP\">"}},
     "主要点の名称が順番どおりではありません（BPは線形の始点の名称）"},
    {"AProfileThatGoesOn",
     L"T06",
     {{LAST_VERTICAL_POINT, "<PVI>410.000 113.000"}},
     "測点が線形の範囲の外にあります（測点 410.000、範囲 0.000000～400）"},
    {"ASectionBeyondItsProfile",
     L"T06",
     {{FIRST_VERTICAL_POINT, "<PVI>100.000 105.000"}},
     "測点が線形の範囲の外にあります（測点 60.000、縦断線形の範囲 100.000～400.000）"},
    {"ADirectionBeyondAFullTurn",
     L"T08",
     {{"value=\"62.3\"", "value=\"422.3\""}},
     "中間点の接線方向角が計算と合いません（方向角 422.3、0°から360°の外）"},
    {"AFormationPointBesideTheRoad",
     L"C06",
     {{"label=\"clOffset\" value=\"0.\"", "label=\"clOffset\" value=\"5.\""}},
     "横断面の計画高の位置の高さが縦断と合いません（離れ 5.には構築形状がない）"},
    {"ASuperelevationThatStartsBehindItsFullOne",
     L"C01",
     {{"staStart=\"160.\"", "staStart=\"161.\""}},
     "片勾配すりつけの測点の順番が逆です（staStart 161.、FullSuperSta 160.000）"},
    {"APointOfASurface", L"R03", {{"<P id=\"3\">", "<P id=\"3\" pntRef=\"Q1\">"}}, "pntRefの点がありません（Q1）"},
    {"AProfileInAList",
     L"V05",
     {{"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\"計画 現況\""}},
     "profAlignRefsの縦断線形がありません（現況）"},
    {"AVerticalPoint",
     L"X05",
     {{"<PVI>400.000 113.000", "<PVI>400.000"}},
     "必要な値がないか、数値の個数が合いません（数値が1個、2個のはず）"},
    {"AGroundLineByHalf",
     L"X05",
     {{"400. 103.927</PntList2D>", "400.</PntList2D>"}},
     "必要な値がないか、数値の個数が合いません（数値が7個、8個のはず）"},
    {"AGroundLine",
     L"C08",
     {{"ProfSurf name=\"現況地形\"", "ProfSurf name=\"岩盤\""}},
     "縦断地盤線か横断地形線の名称のサーフェスがありません（岩盤）"},
    {"AnIntersection",
     L"R03",
     {{"<PI>12547.71076598 18417.70063507</PI>", "<PI name=\"IP.1\" pntRef=\"Q1\"/>"}},
     "pntRefの点がありません（Q1）"},
    {"AMissingAlignmentOfAList",
     L"R01",
     {{"alignmentRefs=\"線形1\"", "alignmentRefs=\"線形1 線形9\""}},
     "alignmentRefsの線形がありません（線形9）"},
    {"NoReference", L"R01", {{"alignmentRefs=\"線形1\"", ""}}, "alignmentRefsの線形がありません（指定なし）"},
    {"ADatum",
     L"R11",
     {{"<Property label=\"differTP\" value=\"0.0000\" />", ""}, {"verticalDatum=\"T.P\"", "verticalDatum=\"A.P\""}},
     "T.P.との標高差が鉛直原子と合いません（A.P、differTPの指定なし）"},
    {"ASum",
     L"H09",
     {{"length=\"400.000000\"", "length=\"400.002\""}},
     "線形の長さが要素の長さの合計と合いません（値 400.002 m、計算 400 m、差 0.002 m、許容 0.001 m）"},
};

class FindingTexts : public testing::TestWithParam<TextCase>
{};

TEST_P(FindingTexts, SayWhatIsFound)
{
    const std::vector<Finding> findings = Inspect(SoundFile(GetParam().changes), {FindCheck(GetParam().code)});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(Utf8FromWide(findings[0].text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Inspect, FindingTexts, testing::ValuesIn(TEXT_CASES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(Findings, BeyondALargeCountAreOnlyCounted)
{
    std::string faces;
    for (int face = 0; face < 250; ++face)
    {
        faces += "<F>1 1 2</F>";
    }
    const std::vector<Finding> findings = Inspect(SoundFile({{LAST_FACE, faces}}), {FindCheck(L"F05")});
    ASSERT_EQ(findings.size(), Findings::LARGEST_COUNT + 1);
    EXPECT_EQ(Utf8FromWide(findings.back().text), "面積のない面があります（ほか50件）");
    EXPECT_EQ(findings.back().severity, Severity::Warning);
}

} // namespace
} // namespace jlandxml::inspect
