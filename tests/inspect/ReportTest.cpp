#include "inspect/Report.h"

#include "SoundFile.h"
#include "inspect/CheckSheet.h"
#include "inspect/Checks.h"
#include "inspect/SurfaceLines.h"
#include "inspect/TerrainMesh.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{
namespace
{

std::string PageOf(const LandXmlFile& file)
{
    const std::vector<const Check*> checks = EveryCheck();
    return ReportPage(file, Inspect(file, checks));
}

std::size_t CountOf(const std::string& page, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t place = page.find(part); place != std::string::npos; place = page.find(part, place + 1))
    {
        ++count;
    }
    return count;
}

/// The first markup of a page that begins with `start`, up to the end of its tag.
std::string Tag(const std::string& page, const std::string& start)
{
    const std::size_t place = page.find(start);
    return place == std::string::npos ? "" : page.substr(place, page.find('>', place) + 1 - place);
}

TEST(ReportPage, NeedsNothingFromElsewhere)
{
    const std::string page = PageOf(SoundFile());
    EXPECT_EQ(CountOf(page, "http"), 1U) << "but for http-equiv";
    EXPECT_EQ(CountOf(page, "src="), 0U);
    EXPECT_EQ(CountOf(page, "url("), 0U);
    EXPECT_EQ(CountOf(page, "<script"), 1U);
}

TEST(ReportPage, DrawsNoEquationWithoutAStation)
{
    EXPECT_EQ(CountOf(PageOf(SoundFile()), "<text class=\"equation\""), 2U);
    EXPECT_EQ(CountOf(PageOf(SoundFile({{" staInternal=\"150.000\"", ""}})), "<text class=\"equation\""), 1U);
}

TEST(ReportPage, LeavesNoMarkupOfAFileInItsTexts)
{
    const std::string evil = "&lt;/script&gt;&lt;script&gt;alert(1)&lt;/script&gt;&quot;&apos;&amp;";
    std::vector<Change> changes;
    for (const char* const text :
         {"国道999号 架空バイパス", "=\"線形1\"", "IntermediatePnts-1", "No.6+10.000", "現況地形\"", "name=\"KA.1-1\"",
          "計画\"", "Carriageway", "name=\"L-1\"", "用地境界（左）", "name=\"No.3\"", "表層", "道路設計システム",
          "JGD2011", "62.3\"", "110.000000"})
    {
        const std::string from(text);
        const std::size_t end = from.size() - (from.ends_with('"') ? 1 : 0);
        changes.emplace_back(from, from.substr(0, end) + evil + from.substr(end));
    }
    const std::string page = PageOf(SoundFile(changes));
    EXPECT_EQ(CountOf(page, "<script"), 1U);
    EXPECT_EQ(CountOf(page, "</script"), 1U);
    EXPECT_EQ(CountOf(page, "\"'&"), 0U);
    EXPECT_GE(CountOf(page, "&lt;/script&gt;&lt;script&gt;alert(1)"), 20U);
}

TEST(ReportPage, HasNoControlCharacters)
{
    const std::string page = PageOf(SoundFile({{"国道999号 架空バイパス", "a&#1;b&#27;c&#127;d&#9;e"}}));
    EXPECT_NE(page.find("a\xEF\xBF\xBD"
                        "b\xEF\xBF\xBD"
                        "c\xEF\xBF\xBD"
                        "d\te"),
              std::string::npos);
    EXPECT_TRUE(std::none_of(page.begin(), page.end(), [](char character) {
        return (static_cast<unsigned char>(character) < 0x20 && character != '\n' && character != '\t') ||
               character == 0x7F;
    }));
}

TEST(ReportPage, HasWellFormedDrawings)
{
    const std::string page = PageOf(SoundFile());
    std::size_t count = 0;
    for (std::size_t place = page.find("<svg"); place != std::string::npos; place = page.find("<svg", place + 1))
    {
        const std::wstring text = WideFromUtf8(page.substr(place, page.find("</svg>", place) + 6 - place));
        pugi::xml_document drawing;
        EXPECT_TRUE(drawing.load_string(text.c_str())) << page.substr(place, 200);
        ++count;
    }
    // The surfaces, a plan, a profile and two cross sections.
    EXPECT_EQ(count, 5U);
    EXPECT_EQ(CountOf(page, "nan"), 0U);
    EXPECT_EQ(CountOf(page, "inf"), 0U);
}

TEST(ReportPage, DrawsPlacesFromTheNorthWestCorner)
{
    const std::string page = PageOf(SoundFile());
    const std::string plan = Tag(page, "<svg class=\"plan\"");
    EXPECT_NE(plan.find("data-north=\"12546\" data-east=\"18223\""), std::string::npos) << plan;
    // BP at 12450 18230.
    EXPECT_EQ(Tag(page, "<path class=\"main\""), "<path class=\"main\" id=\"l70\" d=\"M7 96h0\">");
    EXPECT_EQ(Tag(page, "<path class=\"element line\""),
              "<path class=\"element line\" id=\"l69\" d=\"M7 96L104.571 45.208\">");
}

TEST(ReportPage, DrawsControlPointsInEveryPlanWithoutWideningIt)
{
    const std::string page =
        PageOf(SoundFile({{"<CgPoints name=\"左幅杭\"", "<CgPoints name=\"基準点\"><CgPoint name=\"T-1\">12000. 18000. "
                                                        "5.</CgPoint></CgPoints><CgPoints name=\"左幅杭\""}}));
    const std::string plain = PageOf(SoundFile());
    EXPECT_NE(page.find("基準点／T-1\nX=12000.\nY=18000.\nH=5.</title>"), std::string::npos);
    const auto size = [](const std::string& of) {
        const std::string plan = Tag(of, "<svg class=\"plan\"");
        return plan.substr(plan.rfind(' ', plan.find("\" style")));
    };
    EXPECT_EQ(size(page), size(plain));
}

TEST(ReportPage, ShowsTheFilesOwnTextOfItsFigures)
{
    const std::string page = PageOf(SoundFile());
    EXPECT_NE(page.find("BP\nX=12450.00000000\nY=18230.00000000</title>"), std::string::npos);
    EXPECT_NE(page.find("<td>12521.99785226</td>"), std::string::npos);
    EXPECT_NE(page.find("<td>0.000000</td>"), std::string::npos) << "the start station";
    for (const char* const text : {">R=200.00000000</text>", ">A=100.000000</text>", "VCL=100.000", "VCR=800.000",
                                   "X 12436.695～12545.5634", ">104.3</text>", "offsets -3.250 m"})
    {
        EXPECT_NE(page.find(text), std::string::npos) << text;
    }
    for (const char* const text : {"R=200<", "A=100<", "VCR=800<", ">104.3000<", ">104.300<"})
    {
        EXPECT_EQ(page.find(text), std::string::npos) << text;
    }
}

TEST(ReportPage, TellsNoRadiusOfACurveWithoutABendOrOfTwoParabolas)
{
    const std::string straight = PageOf(SoundFile({{"300.000 110.000", "300.000 114.000"}}));
    EXPECT_EQ(CountOf(straight, ">VCL=100.000</text>"), 1U);
    const std::string unequal =
        PageOf(SoundFile({{"<ParaCurve length=\"100.000\">220.000 111.600</ParaCurve>",
                           "<UnsymParaCurve lengthIn=\"20.\" lengthOut=\"40.\">220.000 111.600</UnsymParaCurve>"}}));
    EXPECT_EQ(CountOf(unequal, ">VCL=60</text>"), 1U);
    EXPECT_EQ(CountOf(unequal, "VCR=800.000</text>"), 1U) << "that of the circle";
}

TEST(ReportPage, TellsTheHeightsAtTheCentreOfACrossSection)
{
    // The design line climbs 3 % from 105 m; the ground line has a point at the centre.
    EXPECT_EQ(CountOf(PageOf(SoundFile()), "No.3　60.000 m　FH=106.800　GH=107.495</figcaption>"), 1U);
}

TEST(ReportPage, StandsEachGroupOfCrossSectionsOnTheProfileThatItNames)
{
    const std::string page = PageOf(SoundFile(
        {{"<ProfAlign name=\"計画\">",
          "<ProfAlign name=\"平\"><PVI>0. 200.</PVI><PVI>400. 200.</PVI></ProfAlign><ProfAlign name=\"計画\">"},
         {"<CrossSects name=\"線形1\">",
          "<CrossSects name=\"平\"><CrossSect name=\"甲\" sta=\"60.\"><DesignCrossSectSurf name=\"Carriageway\">"
          "<CrossSectPnt code=\"CL\">0. 0.</CrossSectPnt><CrossSectPnt code=\"CW\">3. -0.1</CrossSectPnt>"
          "</DesignCrossSectSurf></CrossSect><Feature><Property label=\"profAlignRefs\" value=\"平\"/></Feature>"
          "</CrossSects><CrossSects name=\"線形1\">"}}));
    EXPECT_EQ(CountOf(page, "甲　60. m　FH=200.000</figcaption>"), 1U);
    EXPECT_EQ(CountOf(page, "No.3　60.000 m　FH=106.800　GH=107.495</figcaption>"), 1U);
}

TEST(ReportPage, HasTheBandsOfAProfileInTheOrderOfDrawings)
{
    const std::string page = PageOf(SoundFile());
    std::vector<std::string> heads;
    for (std::size_t place = page.find("<text class=\"head\""); place != std::string::npos;
         place = page.find("<text class=\"head\"", place + 1))
    {
        const std::size_t begin = page.find('>', place) + 1;
        heads.push_back(page.substr(begin, page.find('<', begin) - begin));
    }
    EXPECT_EQ(heads, (std::vector<std::string>{"縦断勾配", "盛土高", "切土高", "計画高", "地盤高", "追加距離", "単距離",
                                               "測点", "平面曲線", "片勾配（％）", "拡幅（m）"}));
}

TEST(ReportPage, MeasuresHeightsFromADatumLineOfAWholeNumber)
{
    // From 103.927 m to 113 m, and a tenth of that more on either side.
    const std::string page = PageOf(SoundFile());
    EXPECT_EQ(CountOf(page, "<text class=\"axis level\" x=\"90\" y=\"308\">DL=102</text>"), 1U);
    EXPECT_EQ(CountOf(page, "<text class=\"axis\""), 6U) << "every 2 m from 104 m to 114 m";
    EXPECT_EQ(CountOf(page, "<text class=\"axis\" x=\"90\" y=\"34\">114</text>"), 1U);
    EXPECT_EQ(CountOf(page, " data-y=\"310\" data-height=\"102\" data-up=\"23.333333333\""), 1U);
    // 280 pixels for 12 m, 900 for 400 m.
    EXPECT_EQ(CountOf(page, "data-en=\"Elevation (m), drawn out 10.4 times\">標高（m）　縦は横の10.4倍</text>"), 1U);
}

TEST(ReportPage, CutsALongProfileIntoSheetsForPaper)
{
    EXPECT_EQ(CountOf(PageOf(SoundFile()), "<div class=\"sheetofprofile\""), 0U);
    const std::string page = PageOf(ReadLandXmlBytes(
        "<LandXML><Alignments><Alignment name=\"本線\" staStart=\"0\"><CoordGeom><Line length=\"2000\"><Start>0 "
        "0</Start><End>0 2000</End></Line></CoordGeom></Alignment></Alignments></LandXML>",
        L"s.xml"));
    // 101 main stations of 26 pixels; No.50 is at 110 + 1313.
    EXPECT_EQ(CountOf(page, "<div class=\"sheetofprofile\""), 2U);
    EXPECT_EQ(CountOf(page, "<p data-en=\"Profile 1/2　No.0 to No.50\">縦断図 1/2　No.0～No.50</p><svg width=\"1436\" "
                            "viewBox=\"0 0 1436 878\"><use href=\"#profile0heads\"/><svg x=\"97\" width=\"1339\" "
                            "height=\"878\" viewBox=\"97 0 1339 878\"><use href=\"#profile0\"/></svg></svg></div>"),
              1U);
    EXPECT_EQ(CountOf(page,
                      ">縦断図 2/2　No.50～No.100</p><svg width=\"1436\" viewBox=\"0 0 1436 878\"><use "
                      "href=\"#profile0heads\"/><svg x=\"97\" width=\"1339\" height=\"878\" viewBox=\"1410 0 1339 "
                      "878\"><use href=\"#profile0\"/></svg></svg></div>"),
              1U);
    EXPECT_EQ(CountOf(page, "<g id=\"profile0\" class=\"profile\">"), 1U);
    EXPECT_EQ(CountOf(page, "<g id=\"profile0heads\" class=\"profile\">"), 1U);
    EXPECT_EQ(CountOf(page, ">縦断勾配</text>"), 2U) << "in the profile, and once for its sheets";
}

/// The texts on end in a band of the profile.
std::vector<std::string> BandTexts(const std::string& page, const std::string& band)
{
    std::vector<std::string> texts;
    const std::size_t head = page.find(">" + band + "</text>");
    const std::size_t end = page.find("<rect", head);
    for (std::size_t place = page.find("<text class=\"upright\"", head); place < end;
         place = page.find("<text class=\"upright\"", place + 1))
    {
        const std::size_t begin = page.find('>', place) + 1;
        texts.push_back(page.substr(begin, page.find('<', begin) - begin));
    }
    return texts;
}

TEST(ReportPage, CountsFillCutAndDistancesAtTheMainStations)
{
    const std::string page = PageOf(SoundFile());
    // 105 m over 104.3 m of ground; 107.4 m at 80 m under 108.071 m.
    EXPECT_EQ(BandTexts(page, "盛土高")[0], "0.700");
    EXPECT_EQ(BandTexts(page, "盛土高")[4], "");
    EXPECT_EQ(BandTexts(page, "切土高")[0], "");
    EXPECT_EQ(BandTexts(page, "切土高")[4], "0.671");
    // An equation lies between 140 m and the next main station at 150 m, whose label is No.8.
    EXPECT_EQ(BandTexts(page, "追加距離")[0], "0.000");
    EXPECT_EQ(BandTexts(page, "追加距離")[8], "150.000");
    EXPECT_EQ(BandTexts(page, "単距離")[0], "0.000");
    EXPECT_EQ(BandTexts(page, "単距離")[1], "20.000");
    EXPECT_EQ(BandTexts(page, "単距離")[8], "10.000");
}

TEST(ReportPage, ShowsTheDesignHeightOfAnIntermediatePoint)
{
    const std::string page = PageOf(SoundFile({
        {"<StaEquation staBack=\"150.000\" staAhead=\"160.000\" staInternal=\"150.000\" />", ""},
        {"<StaEquation staBack=\"260.000\" staAhead=\"265.000\" staInternal=\"250.000\" />", ""},
        {"12532.0695 18411.4558 110.775<", "12532.0695 18411.4558 110.77500<"},
    }));
    EXPECT_EQ(BandTexts(page, "計画高")[9], "110.375");
    EXPECT_EQ(BandTexts(page, "計画高")[10], "110.77500");
    EXPECT_EQ(CountOf(page, "No.10　200.000 m　FH=110.77500　GH=107.495</figcaption>"), 1U);
}

TEST(ReportPage, ShowsAsMuchGroundBesideARoadAsTheRoadIsWide)
{
    // The road lies from -3.25 m to 0 and counts as 5 m wide; at -8.25 m the ground is 107.9075 m high. The margin is
    // 0.06 of what is shown.
    const auto view = [](const LandXmlFile& file) {
        const std::string section = Tag(PageOf(file), "<svg class=\"section\"");
        return section.substr(section.find("viewBox"), section.find(" style") - section.find("viewBox"));
    };
    const std::string road = "viewBox=\"-9.045 -108.703 14.84 2.863\"";
    EXPECT_EQ(view(SoundFile()), road);
    EXPECT_EQ(view(SoundFile({{"<PntList2D>-15.000 108.245", "<PntList2D>-500.000 115.000 -15.000 108.245"}})), road);
}

TEST(ReportPage, DrawsNoSurfaceOfACrossSectionByItsSlopes)
{
    const std::string carriageways = "<title>Carriageway left</title>";
    EXPECT_EQ(CountOf(PageOf(SoundFile()), carriageways), 2U);
    EXPECT_EQ(CountOf(PageOf(SoundFile({{"<CrossSectPnt code=\"CW\">",
                                         "<CrossSectPnt code=\"CW\" dataFormat=\"Slope Distance\">"}})),
                      carriageways),
              1U);
}

TEST(ReportPage, LeadsFromAFindingToTheDrawing)
{
    const std::string page = PageOf(SoundFile({{"length=\"110.000000\"", "length=\"110.002\""}}));
    EXPECT_NE(
        page.find("<td>69</td><td><a href=\"#l69\" data-en=\"線形1／Line BP～KA.1-1\">線形1／直線 BP～KA.1-1</a></td>"),
        std::string::npos);
    EXPECT_EQ(CountOf(page, "id=\"l69\""), 1U);
}

/// A change of a sound file, and what of the page a finding of a check leads to.
struct LinkCase
{
    const char* name;
    const wchar_t* code;
    std::vector<Change> changes;
    std::string target; ///< the begin of a tag up to the id, and what follows the id
};
const LinkCase LINK_CASES[] = {
    {"AnAlignment", L"H09", {{"length=\"400.000000\"", "length=\"400.002\""}}, "<figure class=\"planbox\""},
    {"APointOfAnElement", L"R03", {{"<Center>", "<Center pntRef=\"Q1\">"}}, "<path class=\"element curve\""},
    {"AnIntersection",
     L"R03",
     {{"<PI>12547.71076598", "<PI pntRef=\"Q1\">12547.71076598"}},
     "<path class=\"intersection\""},
    {"AnEquation", L"T04", {{"staAhead=\"160.000\"", "staAhead=\"140.000\""}}, "<path class=\"tick\""},
    {"AGroup", L"R01", {{"value=\"線形1\"", "value=\"線形9\""}}, "<g"},
    {"AStake", L"R04", {{"name=\"L-2\"", "name=\"L-1\""}}, "<path class=\"stake\""},
    {"AProfile", L"T01", {{"staStart=\"0.\"", "staStart=\"5.\""}}, "<figure class=\"scroll\""},
    {"AGradientChange", L"V01", {{"<PVI>400.000", "<PVI>290.000"}}, "<path class=\"vertex\""},
    {"APieceOfAGroundLine", L"V01", {{"80. 108.071", "30. 108.071"}}, "<path class=\"ground\""},
    {"ATransition", L"C01", {{"staEnd=\"256.\"", "staEnd=\"56.\""}}, "<path class=\"spot\""},
    {"AStationOfATransition", L"C01", {{"<FullSuperSta>160.000", "<FullSuperSta>260.000"}}, "<path class=\"spot\""},
    {"AReverseCrown", L"C01", {{"value=\"130.000000\"", "value=\"290.000000\""}}, "<path class=\"spot\""},
    {"AWidth", L"C09", {{"256. 0.25 3", "156. 0.25 3"}}, "<path class=\"spot\""},
    {"AReferenceToAProfile", L"V05", {{"profAlignRefs\" value=\"計画\"", "profAlignRefs\" value=\"現況\""}}, "<h3"},
    {"ASection", L"C02", {{"sta=\"200.000\"", "sta=\"50.000\""}}, "<figure"},
    {"APointOfASection",
     L"C05",
     {{"<CrossSectPnt code=\"CW\">-3.250", "<CrossSectPnt code=\"CW\">3.250"}},
     "<path class=\"spot\""},
    {"APieceOfASectionsGround", L"C04", {{"-7.500 107.870", "-17.500 107.870"}}, "<path class=\"ground\""},
    {"ASurfaceThatIsNotDrawn",
     L"X04",
     {{"<CrossSectPnt code=\"CW\">", "<CrossSectPnt code=\"CW\" dataFormat=\"Slope Distance\">"}},
     "<figure"},
    {"ASurface", L"X05", {{" surfType=\"TIN\"", ""}}, "<use href=\"#surface0\""},
    {"AnEdgeOfThreeFaces", L"F06", {{"<F>3 6 5</F>", "<F>3 6 5</F>\n<F>2 5 6</F>"}}, "<path class=\"spot face\""},
    {"AFeatureOfASurface",
     L"R01",
     {{"</Definition>\n\t\t\t<Feature>\n\t\t\t\t<Property label=\"alignmentRefs\" value=\"線形1\"",
       "</Definition>\n\t\t\t<Feature>\n\t\t\t\t<Property label=\"alignmentRefs\" value=\"線形9\""}},
     "<use href=\"#surface0\""},
    {"APointOfASurface", L"F07", {{"<F>3 6 5</F>", ""}}, "<path class=\"spot\""},
    {"AFaceToAMissingPoint", L"F04", {{"<F>3 6 5</F>", "<F>3 6 7</F>"}}, "<path class=\"spot face\""},
    {"TheCoordinateSystem", L"R05", {{"horizontalDatum=\"JGD2011\"", ""}}, "<section id=\"summary\">"},
    {"AFileWithoutOne", L"R12", {{"linearUnit=\"meter\"", ""}}, "<section id=\"summary\">"},
    {"ARoadway", L"R01", {{"alignmentRefs=\"線形1\"", "alignmentRefs=\"線形9\""}}, "<section id=\"summary\">"},
};

class LinkCases : public testing::TestWithParam<LinkCase>
{
  protected:
    /// The first finding in a file leads to the case's target, and to nothing else.
    static void ExpectTarget(const LandXmlFile& file)
    {
        const LinkCase& one = GetParam();
        const std::vector<Finding> findings = Inspect(file, {FindCheck(one.code)});
        ASSERT_GE(findings.size(), 1U);
        const std::string page = ReportPage(file, findings);
        const std::string row = Tag(page.substr(page.find("<section id=\"findings\"")), "<a href=\"#");
        const std::size_t begin = row.find('#') + 1;
        const std::string id = row.substr(begin, row.find('"', begin) - begin);
        EXPECT_EQ(CountOf(page, " id=\"" + id + "\""), 1U) << row;
        const std::string target = one.target.ends_with('>') ? one.target : one.target + " id=\"" + id + "\"";
        EXPECT_EQ(CountOf(page, target), 1U) << target;
    }
};

TEST_P(LinkCases, LeadToWhatAFindingIsAboutOrLiesIn)
{
    ExpectTarget(SoundFile(GetParam().changes));
}

TEST_P(LinkCases, LeadThereToInAFileOfOneLine)
{
    std::string text = SoundText(GetParam().changes);
    std::replace(text.begin(), text.end(), '\n', ' ');
    ExpectTarget(ReadLandXmlBytes(text, L"sound.xml"));
}

INSTANTIATE_TEST_SUITE_P(Inspect, LinkCases, testing::ValuesIn(LINK_CASES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(ReportPage, LeadsFromAFaultAgainstTheSchemaToTheDrawing)
{
    LandXmlFile file = SoundFile();
    file.schemaFaults.listed = {{L"/LandXML/Alignments/Alignment/CoordGeom/Line/Start", L"not expected", 70, 1},
                                {L"/LandXML/Alignments/Alignment/StaEquation/@staBack", L"not allowed", 110, 1},
                                {L"/LandXML/Alignments/Alignment/CoordGeom", L"not expected", 68, 1},
                                {L"/LandXML/Units", L"not expected", 9, 1}};
    const std::string page = ReportPage(file, Inspect(file, {FindCheck(L"S01")}));
    for (const char* const link : {"<td>70</td><td><a href=\"#l70\">", "<td>110</td><td><a href=\"#l110\">",
                                   "<td>68</td><td><a href=\"#l67\">", "<td>9</td><td><a href=\"#summary\">"})
    {
        EXPECT_NE(page.find(link), std::string::npos) << link;
    }
}

TEST(ReportPage, MarksWhatIsFoundAtItsPlace)
{
    // A section's point 3.25 m to the right, 0.065 m below the design line's 106.8 m.
    const std::string section =
        PageOf(SoundFile({{"<CrossSectPnt code=\"CW\">-3.250", "<CrossSectPnt code=\"CW\">3.250"}}));
    EXPECT_EQ(CountOf(section, "d=\"M3.25 -106.735h0\"/>"), 1U);
    EXPECT_EQ(CountOf(PageOf(SoundFile()), "class=\"spot"), 0U);
    // The points 3 and 6 of a face whose third isn't there, from the plan's corner at 12546 18223.
    const std::string face = PageOf(SoundFile({{"<F>3 6 5</F>", "<F>3 6 7</F>"}}));
    EXPECT_EQ(CountOf(face, "d=\"M13.926 109.305L111.497 58.513Z\"/>"), 1U);
}

TEST(ReportPage, DrawsAFileWithoutAlignments)
{
    const std::string surface = "<Surfaces><Surface name=\"地形\"><Definition surfType=\"TIN\"><Pnts><P id=\"1\">0 0 0"
                                "</P><P id=\"2\">0 10 0</P><P id=\"3\">10 0 5</P></Pnts><Faces><F>1 2 3</F></Faces>"
                                "</Definition></Surface></Surfaces>";
    const std::string points = "<CgPoints name=\"基準点\"><CgPoint name=\"T-1\">20. 30. 5.</CgPoint></CgPoints>";
    const auto pageOf = [](const std::string& content) {
        return PageOf(ReadLandXmlBytes("<LandXML>" + content + "</LandXML>", L"s.xml"));
    };
    const std::string both = pageOf(points + surface);
    EXPECT_EQ(CountOf(both, "<h2 data-en=\"Plan of the whole file\">全体平面図</h2>"), 1U);
    EXPECT_EQ(CountOf(both, "<svg class=\"plan\""), 1U);
    EXPECT_EQ(CountOf(both, "<use href=\"#surface0\""), 1U);
    EXPECT_EQ(CountOf(both, "<use href=\"#surface0\" id=\"l1\""), 1U);
    EXPECT_EQ(
        CountOf(both,
                "<path class=\"control\" id=\"l1-3\" d=\"M30 0h0\"><title>基準点／T-1\nX=20.\nY=30.\nH=5.</title>"),
        1U);
    EXPECT_EQ(CountOf(pageOf(surface), "<svg class=\"plan\""), 1U);
    EXPECT_EQ(CountOf(pageOf(points), "<svg class=\"plan\""), 1U);
    EXPECT_EQ(CountOf(pageOf(""), "<svg class=\"plan\""), 0U);
}

TEST(ReportPage, DrawsGroupsOfAMissingAlignmentInAPlanOfTheWholeFile)
{
    EXPECT_EQ(CountOf(PageOf(SoundFile()), "全体平面図"), 0U);
    const std::string page = PageOf(
        SoundFile({{"</Feature>\n\t</CgPoints>\n\t<Alignments", "</Feature></CgPoints><Alignments"},
                   {"<Feature name=\"WidthStakePnts\">\n\t\t\t<Property label=\"alignmentRefs\" value=\"線形1\"",
                    "<Feature name=\"WidthStakePnts\">\n\t\t\t<Property label=\"alignmentRefs\" value=\"線形9\""}}));
    EXPECT_EQ(CountOf(page, "全体平面図"), 2U) << "with the link to it";
    EXPECT_EQ(CountOf(page, "<path class=\"stake\""), 5U);
    EXPECT_EQ(CountOf(page, "<path class=\"stakes\""), 1U);
    EXPECT_EQ(CountOf(page, "<path class=\"intermediate\""), 12U) << "in both plans";
    EXPECT_EQ(CountOf(page, "<path class=\"element line\""), 4U) << "in both plans";
}

TEST(ReportPage, DrawsAGroupInThePlanOfEachAlignmentThatItNames)
{
    const auto stakes = [](const std::string& references) {
        const auto alignment = [](const std::string& name, const std::string& north) {
            return "<Alignment name=\"" + name + "\" staStart=\"0\"><CoordGeom><Line length=\"10\"><Start>" + north +
                   " 0</Start><End>" + north + " 10</End></Line></CoordGeom></Alignment>";
        };
        const std::string page =
            PageOf(ReadLandXmlBytes("<LandXML><CgPoints name=\"杭\"><CgPoint name=\"L-1\">5 5 0</CgPoint><Feature "
                                    "name=\"WidthStakePnts\"><Property "
                                    "label=\"alignmentRefs\" value=\"" +
                                        references + "\"/></Feature></CgPoints><Alignments>" + alignment("上り", "0") +
                                        alignment("下り", "8") + "</Alignments></LandXML>",
                                    L"s.xml"));
        return std::pair(CountOf(page, "<path class=\"stake\""), CountOf(page, "<svg class=\"plan\""));
    };
    EXPECT_EQ(stakes("上り"), std::pair(std::size_t{1}, std::size_t{2}));
    EXPECT_EQ(stakes(" 下り 上り "), std::pair(std::size_t{2}, std::size_t{2}));
    EXPECT_EQ(stakes("上り 側道"), std::pair(std::size_t{1}, std::size_t{2})) << "one of them is there";
    EXPECT_EQ(stakes("側道"), std::pair(std::size_t{1}, std::size_t{3})) << "in a plan of the whole file";
}

/// So many straight alignments side by side, with so many points of no alignment between them.
LandXmlFile ManyPlans(int alignments, int points)
{
    std::string text = "<LandXML><CgPoints name=\"基準点\">";
    for (int point = 0; point < points; ++point)
    {
        text += "\n<CgPoint name=\"T-" + std::to_string(point) + "\">" + std::to_string(point % 100) + " " +
                std::to_string(point / 100) + ".5 5.</CgPoint>";
    }
    text += "</CgPoints>\n<Alignments>";
    for (int alignment = 0; alignment < alignments; ++alignment)
    {
        const std::string north = std::to_string(alignment);
        text += "<Alignment name=\"線形" + north + "\" staStart=\"0\"><CoordGeom><Line length=\"10\"><Start>" + north +
                " 0</Start><End>" + north + " 10</End></Line></CoordGeom></Alignment>";
    }
    return ReadLandXmlBytes(text + "</Alignments></LandXML>", L"s.xml");
}

TEST(ReportPage, DrawsPointsOnceWhereEveryPlanCannotHoldThem)
{
    const std::string own = PageOf(ManyPlans(2, 5000));
    EXPECT_EQ(CountOf(own, "<path class=\"control\""), 10000U);
    EXPECT_EQ(CountOf(own, "<text class=\"point\""), 10000U);
    EXPECT_EQ(CountOf(own, "#group0"), 0U);
    const std::string shared = PageOf(ManyPlans(30, 5000));
    EXPECT_EQ(CountOf(shared, "<path class=\"control"), 5000U);
    EXPECT_EQ(
        CountOf(shared, "<path class=\"control common\" data-name=\"T-101\" d=\"M1.5 98h0\"><title>基準点／T-101\n"),
        1U);
    EXPECT_EQ(CountOf(shared, "<g id=\"group0\">"), 1U);
    EXPECT_EQ(CountOf(shared, "<use href=\"#group0\""), 30U);
    EXPECT_EQ(CountOf(shared, "<use href=\"#group0\" id=\"l1\"/>"), 1U);
    EXPECT_LT(shared.size(), 3'000'000U);
    EXPECT_EQ(CountOf(shared, "点が多いため"), 0U);
}

TEST(ReportPage, SaysHowManyPointsAreLeftOut)
{
    const std::string page = PageOf(ManyPlans(1, 10007));
    EXPECT_EQ(CountOf(page, "<path class=\"control\""), 10000U);
    EXPECT_EQ(CountOf(page, "<p class=\"leftout\" data-en=\"Too many points: another 7 are left out.\">"
                            "点が多いため、ほか7点は省略しました。</p>"),
              1U);
}

TEST(ReportPage, SaysHowManyRowsOfTheCheckSheetAreLeftOut)
{
    const LandXmlFile file = ManyPlans(350, 1);
    const std::size_t rows = CheckSheet(file).size();
    ASSERT_GT(rows, 3000U);
    const std::string page = PageOf(file);
    EXPECT_EQ(CountOf(page, "<td class=\"tick\">"), 3000U);
    const std::string sheet = page.substr(page.find("<section id=\"checksheet\""));
    EXPECT_EQ(CountOf(sheet, ">行が多いため、ほか" + std::to_string(rows - 3000) + "件は省略しました。</p>"), 1U);
}

TEST(ReportPage, LeadsFromAFindingToAPointThatPlansShare)
{
    // Two points of one name: the second, 100 lines below, lies 99 m below the corner.
    LandXmlFile file = ManyPlans(30, 5000);
    file.pointGroups.front().points[100].point.name = L"T-0";
    const std::vector<Finding> findings = Inspect(file, {FindCheck(L"R04")});
    ASSERT_EQ(findings.size(), 1U);
    const std::string page = ReportPage(file, findings);
    EXPECT_EQ(CountOf(page, "<path class=\"spot\" id=\"l102\" d=\"M1.5 99h0\"/>"), 1U);
    EXPECT_EQ(CountOf(page, "<a href=\"#l102\""), 1U);
}

TEST(ReportPage, TellsOfEachAlignmentHowManySectionsAreLeftOut)
{
    std::string alignments;
    for (const int count : {1500, 1500, 10})
    {
        alignments += "<Alignment name=\"線形\" length=\"5000\" staStart=\"0\"><CrossSects>";
        for (int section = 0; section < count; ++section)
        {
            alignments += "<CrossSect sta=\"" + std::to_string(section) + "\"/>";
        }
        alignments += "</CrossSects></Alignment>";
    }
    const std::string page =
        PageOf(ReadLandXmlBytes("<LandXML><Alignments>" + alignments + "</Alignments></LandXML>", L"s.xml"));
    EXPECT_EQ(CountOf(page, "横断面が多いため、ほか1000件は省略しました。"), 1U);
    EXPECT_EQ(CountOf(page, "横断面が多いため、ほか10件は省略しました。"), 1U);
    EXPECT_EQ(CountOf(page, "横断面が多いため"), 2U);
}

TEST(ReportPage, DrawsTheLeftEdgeOfASuperelevationAsTheRoadTurns)
{
    // To the right the left edge is the outer one and climbs; to the left the right one does.
    const auto leftEdge = [](const std::string& page) {
        const std::string path = Tag(page.substr(page.find(">片勾配（％）</text>")), "<path class=\"diagram\"");
        return path.substr(path.find("d=\""));
    };
    const std::string right = leftEdge(PageOf(SoundFile()));
    const std::string left = leftEdge(PageOf(SoundFile({{"<Curve rot=\"cw\"", "<Curve rot=\"ccw\""}})));
    EXPECT_EQ(right,
              "d=\"M110 897.68L312.5 897.68L357.5 890L470 870.8L686 870.8L798.5 890L843.5 897.68L1010 897.68\"/>");
    EXPECT_EQ(left, "d=\"M110 897.68L402.5 897.68L470 909.2L686 909.2L753.5 897.68L1010 897.68\"/>");
}

TEST(ReportPage, DrawsTheOuterEdgeOfASuperelevationLevelAtItsFlatStations)
{
    // The left edge: its crown of -2 % at 897.68, level at 890; from 110 m, at 357.5, level to the flat station.
    const auto leftEdge = [](const std::vector<Change>& changes) {
        const std::string page = PageOf(SoundFile(changes));
        const std::string path = Tag(page.substr(page.find(">片勾配（％）</text>")), "<path class=\"diagram\"");
        return path.substr(path.find("L312.5"), path.find("L686") - path.find("L312.5"));
    };
    EXPECT_EQ(leftEdge({}), "L312.5 897.68L357.5 890L470 870.8");
    EXPECT_EQ(leftEdge({{"value=\"110\"", "value=\"120\""}}), "L312.5 897.68L357.5 890L380 890L470 870.8");
    EXPECT_EQ(leftEdge({{"value=\"110\"", "value=\"120\""}, {"<BeginRunoffSta>110.000</BeginRunoffSta>", ""}}),
              "L312.5 897.68L380 890L470 870.8");
}

TEST(ReportPage, TellsTheStationsOfASuperelevationInTheFilesOwnText)
{
    const std::string page = PageOf(SoundFile({{"value=\"110\"", "value=\"120.0\""}}));
    const std::string band = page.substr(page.find(">片勾配（％）</text>"));
    EXPECT_EQ(CountOf(band, "<path class=\"corner\" d=\"M380 890h0\"><title>No.6 120.0 m\n0</title></path>"), 1U);
    EXPECT_EQ(
        CountOf(band, "<path class=\"corner\" d=\"M470 870.8h0\"><title>No.8+10.000 160.000 m\n5.0</title></path>"),
        1U);
}

TEST(ReportPage, SaysOfASheetThatTheFileHasNothingForIt)
{
    const std::string none = ">このファイルにはありません。</p>";
    EXPECT_EQ(CountOf(PageOf(SoundFile()), none), 0U);
    EXPECT_EQ(CountOf(PageOf(ReadLandXmlBytes("<LandXML/>", L"空.xml")), none), 5U);
}

TEST(ReportPage, SaysThatNothingWasFound)
{
    EXPECT_NE(PageOf(SoundFile()).find("指摘はありません。"), std::string::npos);
}

TEST(ReportPage, OfAFileWithoutAnythingIsStillOne)
{
    const std::string page = PageOf(ReadLandXmlBytes("<LandXML/>", L"空.xml"));
    EXPECT_NE(page.find("<title>空.xml</title>"), std::string::npos);
    EXPECT_TRUE(page.ends_with("</html>\n"));
}

struct OddFile
{
    const char* name;
    std::vector<Change> changes;
};
const OddFile ODD_FILES[] = {
    {"AnEndlessLength", {{"<Line length=\"110.000000\"", "<Line length=\"1e300\""}}},
    {"NoLengthAtAll", {{"<Line length=\"110.000000\"", "<Line length=\"-400\""}}},
    {"HeightsOutOfThisWorld", {{"<PVI>400.000 113.000", "<PVI>400.000 1e300"}, {"104.300</P>", "1e300</P>"}}},
    {"PlacesOutOfThisWorld",
     {{"<P id=\"1\">12463.305", "<P id=\"1\">1e300"}, {"<Start name=\"BP\">12450.", "<Start name=\"BP\">1e300"}}},
    {"ACurveWithoutARadius", {{"rot=\"cw\" radius=\"200.00000000\"", "rot=\"cw\" radius=\"0\""}}},
    {"NoPoints", {{"<End name=\"KA.1-1\">12500.79234746 18327.57119165</End>", ""}}},
    {"AnOffsetThatIsNone", {{"<CrossSectPnt code=\"CL\">0.000", "<CrossSectPnt code=\"CL\">x"}}},
};

class OddFiles : public testing::TestWithParam<OddFile>
{};

TEST_P(OddFiles, GiveAPageOfReasonableSize)
{
    const std::string page = PageOf(SoundFile(GetParam().changes));
    EXPECT_TRUE(page.ends_with("</html>\n"));
    EXPECT_LT(page.size(), 300000U);
}

INSTANTIATE_TEST_SUITE_P(Inspect, OddFiles, testing::ValuesIn(ODD_FILES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(ReportPage, IsInEnglishToo)
{
    const std::string page = PageOf(SoundFile({{"length=\"110.000000\"", "length=\"110.002\""}}));
    for (const char* const text :
         {"<td data-en=\"An element&#39;s length doesn&#39;t fit its coordinates (value 110.002 m, computed 110 m, "
          "difference 0.002 m, tolerance 0.001 m)\">要素の長さが",
          "<td data-en=\"Warning\">警告</td>", "<td data-en=\"Clothoid\">クロソイド</td>",
          "<td data-en=\"Plan／線形1\">平面線形／線形1</td>", "File: sound.xml\n"})
    {
        EXPECT_NE(page.find(text), std::string::npos) << text;
    }
}

TEST(ReportPage, SaysThatThereIsNoRecordOfTheConversion)
{
    EXPECT_NE(PageOf(SoundFile()).find("変換で変更、追加、削除した値の記録はありません。"), std::string::npos);
}

TEST(ReportPage, HoldsSurfacesAsBytes)
{
    const std::string page =
        PageOf(ReadLandXmlBytes("<LandXML><Surfaces><Surface name=\"s\"><Definition surfType=\"TIN\"><Pnts>"
                                "<P id=\"1\">0 0 0</P><P id=\"2\">0 10 0</P><P id=\"3\">10 0 5</P></Pnts><Faces>"
                                "<F>1 2 3</F></Faces></Definition></Surface></Surfaces></LandXML>",
                                L"s.xml"));
    EXPECT_EQ(Tag(page, "<canvas"), "<canvas class=\"terrain\" data-sizes=\"1 1 0.5\">");
    // Three places of three halves, 65535 and 32768 among them, and the numbers 0, 1 and 2.
    EXPECT_EQ(Tag(page, "<label class=\"mesh\""),
              "<label class=\"mesh\" data-points=\"AAAAAAAA//8AAAAAAAD//wCA\" data-faces=\"AAAAAAEAAAACAAAA\">");
    EXPECT_EQ(CountOf(PageOf(ReadLandXmlBytes("<LandXML/>", L"空.xml")), "<canvas"), 0U);
}

// Surfaces

/// A wavy grid of so many squares a side, two faces each.
Surface WavyGrid(std::uint32_t side)
{
    Surface surface;
    for (std::uint32_t row = 0; row <= side; ++row)
    {
        for (std::uint32_t column = 0; column <= side; ++column)
        {
            surface.points.push_back({static_cast<double>(row), static_cast<double>(column), std::sin(row * 0.1),
                                      row * (side + 1) + column + 1, 1});
        }
    }
    for (std::uint32_t row = 0; row < side; ++row)
    {
        for (std::uint32_t column = 0; column < side; ++column)
        {
            const std::uint32_t corner = row * (side + 1) + column + 1;
            surface.faces.push_back({{corner, corner + 1, corner + side + 1}, 1, 3, false});
            surface.faces.push_back({{corner + 1, corner + side + 2, corner + side + 1}, 1, 3, false});
        }
    }
    surface.index = PointIndex(surface.points);
    return surface;
}

TEST(TerrainMesh, HoldsEveryFaceThatThereIsRoomFor)
{
    const std::vector<Surface> surfaces{WavyGrid(10)};
    const TerrainMesh mesh = MeshOf(surfaces.front(), BoxOf(surfaces), 200);
    EXPECT_EQ(mesh.whole, 200U);
    EXPECT_EQ(mesh.triangles.size(), 200U);
    EXPECT_EQ(mesh.places.size(), 121U);
}

TEST(TerrainMesh, IsThinnedAndStillReachesFromEndToEnd)
{
    const std::vector<Surface> surfaces{WavyGrid(60)};
    const TerrainMesh mesh = MeshOf(surfaces.front(), BoxOf(surfaces), 1000);
    EXPECT_EQ(mesh.whole, 7200U);
    EXPECT_LE(mesh.triangles.size(), 1000U);
    EXPECT_GE(mesh.triangles.size(), 400U);
    std::uint16_t farthest = 0;
    for (const auto& place : mesh.places)
    {
        farthest = std::max({farthest, place[0], place[1]});
    }
    EXPECT_GE(farthest, 60000U);
}

TEST(TerrainMesh, LeavesOutPointsThatAreNotOnEarth)
{
    std::vector<Surface> surfaces{WavyGrid(2)};
    surfaces.front().points[0].height = 1e300;
    const TerrainBox box = BoxOf(surfaces);
    EXPECT_EQ(box.unit, 2);
    EXPECT_EQ(MeshOf(surfaces.front(), box, 100).triangles.size(), 7U);
}

TEST(SurfaceLines, AnOutlineIsTheEdgesOfOneFaceAlone)
{
    const LandXmlFile file = SoundFile();
    EXPECT_EQ(OutlineOf(file.surfaces.front(), 6)->size(), 6U);
    EXPECT_FALSE(OutlineOf(file.surfaces.front(), 5));
}

TEST(SurfaceLines, ContoursRunThroughTheirHeight)
{
    const LandXmlFile file = ReadLandXmlBytes(
        "<LandXML><Surfaces><Surface name=\"s\"><Definition surfType=\"TIN\"><Pnts><P id=\"1\">0 0 0</P>"
        "<P id=\"2\">0 10 0</P><P id=\"3\">10 0 10</P></Pnts><Faces><F>1 2 3</F></Faces></Definition></Surface>"
        "</Surfaces></LandXML>",
        L"s.xml");
    const std::vector<Contour> contours = ContoursOf(file.surfaces.front(), 1);
    ASSERT_EQ(contours.size(), 11U);
    EXPECT_EQ(contours[3].height, 3);
    ASSERT_EQ(contours[3].segments.size(), 1U);
    EXPECT_DOUBLE_EQ(contours[3].segments[0].northFrom, 3);
    EXPECT_DOUBLE_EQ(contours[3].segments[0].northTo, 3);
    EXPECT_DOUBLE_EQ(contours[3].segments[0].eastFrom + contours[3].segments[0].eastTo, 7);
}

TEST(SurfaceLines, AFlatSurfaceHasNoContours)
{
    const LandXmlFile file = ReadLandXmlBytes(
        "<LandXML><Surfaces><Surface name=\"s\"><Definition surfType=\"TIN\"><Pnts><P id=\"1\">0 0 5</P>"
        "<P id=\"2\">0 10 5</P><P id=\"3\">10 0 5</P></Pnts><Faces><F>1 2 3</F></Faces></Definition></Surface>"
        "</Surfaces></LandXML>",
        L"s.xml");
    const ContourInterval interval = ContourIntervalsOf(file.surfaces, 1000).front();
    EXPECT_EQ(interval.wanted, 0);
    EXPECT_TRUE(ContoursOf(file.surfaces.front(), interval.drawn).empty());
}

/// A slope of so many squares a side that rises by a metre from one row of points to the next, two faces a square.
Surface Slope(std::uint32_t side)
{
    Surface surface = WavyGrid(side);
    for (SurfacePoint& point : surface.points)
    {
        point.height = point.north + 0.5;
    }
    return surface;
}

TEST(SurfaceLines, ContoursHaveTheFinestIntervalThatThereIsRoomFor)
{
    // From 0.5 m to 40.5 m: 8 contours every 5 m, 4 every 10 m, 2 every 20 m; each runs through 80 faces.
    const std::vector<Surface> surfaces{Slope(40)};
    const auto drawn = [&](std::size_t most) {
        const ContourInterval interval = ContourIntervalsOf(surfaces, most).front();
        EXPECT_EQ(interval.wanted, 5);
        return interval.drawn;
    };
    EXPECT_EQ(drawn(640), 5);
    EXPECT_EQ(drawn(639), 10);
    EXPECT_EQ(drawn(320), 10);
    EXPECT_EQ(drawn(319), 20);
    EXPECT_EQ(drawn(160), 20);
    EXPECT_EQ(drawn(159), 0) << "a single contour at 20 m is none of 40 m";
    const std::vector<Contour> contours = ContoursOf(surfaces.front(), 10);
    ASSERT_EQ(contours.size(), 4U);
    EXPECT_EQ(contours[0].height, 10);
    EXPECT_EQ(contours[0].segments.size(), 80U);
}

TEST(SurfaceLines, ContoursOfSeveralSurfacesShareTheRoom)
{
    // 640 segments each, and 200 of the small one.
    const std::vector<Surface> surfaces{Slope(40), Slope(10), Slope(40)};
    const auto drawn = [&](std::size_t most) {
        std::vector<double> intervals;
        for (const ContourInterval& interval : ContourIntervalsOf(surfaces, most))
        {
            intervals.push_back(interval.drawn);
        }
        return intervals;
    };
    EXPECT_EQ(drawn(1480), (std::vector<double>{5, 1, 5}));
    EXPECT_EQ(drawn(1479), (std::vector<double>{10, 1, 10}));
    EXPECT_EQ(drawn(839), (std::vector<double>{20, 1, 20})) << "with 320 each there would be one too many";
}

TEST(SurfaceLines, EveryFifthContourIsAnIndexContour)
{
    std::vector<double> heights;
    for (const Contour& contour : ContoursOf(Slope(40), 2))
    {
        if (contour.isIndex)
        {
            heights.push_back(contour.height);
        }
    }
    EXPECT_EQ(heights, (std::vector<double>{10, 20, 30, 40}));
}

TEST(SurfaceLines, AContourIsOneLineThroughAllFaces)
{
    const std::vector<PlanLine> lines = Chained(ContoursOf(Slope(40), 20).front().segments);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines.front().size(), 81U);
    EXPECT_DOUBLE_EQ(lines.front().front()[0], 19.5);
    EXPECT_DOUBLE_EQ(std::abs(lines.front().back()[1] - lines.front().front()[1]), 40);
}

TEST(SurfaceLines, SegmentsAreLinesAsLongAsTheyMeet)
{
    // A square with its sides in no order, a point, and a stroke apart.
    const std::vector<PlanLine> lines =
        Chained({{0, 0, 0, 1}, {1, 0, 0, 0}, {0, 1, 1, 1}, {5, 5, 5, 5}, {1, 0, 1, 1}, {7, 7, 8, 8}});
    EXPECT_EQ(lines, (std::vector<PlanLine>{{{0, 1}, {1, 1}, {1, 0}, {0, 0}, {0, 1}}, {{7, 7}, {8, 8}}}));
}

std::string PageOfSurfaces(std::vector<Surface> surfaces)
{
    LandXmlFile file = ReadLandXmlBytes("<LandXML/>", L"s.xml");
    file.surfaces = std::move(surfaces);
    for (Surface& surface : file.surfaces)
    {
        const auto last = surface.points.size() - 1;
        surface.farthest = {FarthestPoint{surface.points[0], L"0", L"0", L"0"},
                            FarthestPoint{surface.points[last], L"9", L"9", L"9"}};
    }
    return ReportPage(file, {});
}

TEST(ReportPage, TellsTheIntervalOfContours)
{
    Surface slope = Slope(40);
    slope.name = L"地形";
    const std::string page = PageOfSurfaces({slope});
    EXPECT_EQ(CountOf(page, "<path class=\"contour\""), 7U);
    EXPECT_EQ(CountOf(page, "<path class=\"contour index\" data-name=\"25\""), 1U);
    EXPECT_EQ(CountOf(page, "<p class=\"note\" data-en=\"Contours every 5 m, index contours every 25 m: 地形\">"
                            "等高線 5 m間隔、計曲線 25 m間隔：地形</p>"),
              1U);
}

TEST(ReportPage, DrawsFewerContoursOfRoughSurfacesAndSaysSo)
{
    // Up and down by 100 m from row to row: every face has a piece of each contour.
    Surface rough = WavyGrid(130);
    for (SurfacePoint& point : rough.points)
    {
        point.height = std::fmod(point.north, 2) == 0 ? 0 : 100.5;
    }
    Surface other = rough;
    rough.name = L"一";
    other.name = L"二";
    const std::string one = PageOfSurfaces({rough});
    EXPECT_EQ(CountOf(one, "<p class=\"leftout\" data-en=\"Contours every 50 m, index contours every 250 m (every 20 m "
                           "there would be too many lines): 一\">等高線 50 m間隔、計曲線 250 m間隔（20 "
                           "m間隔では線が多すぎるため広げました）：一</p>"),
              1U);
    EXPECT_EQ(CountOf(one, "<path class=\"contour\""), 2U);
    EXPECT_LT(one.size(), 2'000'000U);
    const std::string many = PageOfSurfaces({rough, other, other, other, other, other, other});
    EXPECT_EQ(
        CountOf(many,
                "<p class=\"leftout\" data-en=\"Left out because there are too many contour lines: 一, 二, "
                "二, 二, 二 and 2 more\">線が多すぎるため、等高線を省略しました：一、二、二、二、二、ほか2面</p>"),
        1U);
}

TEST(ReportPage, DrawsARectangleForAnOutlineOfTooManyEdgesAndSaysSo)
{
    // Each face has points of its own, so that all of its edges are outline.
    Surface torn;
    torn.name = L"点群";
    for (std::uint32_t corner = 0; corner < 3 * 16667; ++corner)
    {
        torn.points.push_back({corner % 3 == 1 ? 20.0 : 10.0, corner * 0.01 + corner % 3, 0, corner + 1, 1});
    }
    for (std::uint32_t face = 0; face < 16667; ++face)
    {
        torn.faces.push_back({{3 * face + 1, 3 * face + 2, 3 * face + 3}, 1, 3, false});
    }
    torn.index = PointIndex(torn.points);
    const std::string page = PageOfSurfaces({torn});
    EXPECT_EQ(Tag(page, "<path class=\"outline\""), "<path class=\"outline\" d=\"M0 -10L502 -10L502 0L0 0L0 -10\">");
    EXPECT_EQ(CountOf(page, "<p class=\"leftout\" data-en=\"A rectangle instead of the outline, which has too many "
                            "lines: 点群\">線が多すぎるため、外形線の代わりに外接する長方形を示します：点群</p>"),
              1U);
}

// The check sheet

TEST(CheckSheet, HasTheFilesValuesInTheSheetsOrder)
{
    std::vector<std::string> rows;
    for (const CheckSheetRow& row : CheckSheet(SoundFile()))
    {
        const std::wstring subject =
            row.subject.japanese + (row.alignment.IsEmpty() ? std::wstring() : L"／" + row.alignment.japanese);
        rows.push_back(Utf8FromWide(subject + L"|" + row.what.japanese + L"|" + row.value.japanese));
    }
    EXPECT_EQ(rows,
              (std::vector<std::string>{
                  "基準点|座標参照系|JGD2011 9(X,Y) T.P",
                  "基準点|基準点及び工事基準点|なし",
                  "平面線形／線形1|起終点の座標|BP（X 12450.00000000、Y 18230.00000000）～EP（X 12499.30947113、Y "
                  "18607.22822412）",
                  "平面線形／線形1|変化点（線形主要点）|KA.1-1（X 12500.79234746、Y 18327.57119165）、KE.1-1（X "
                  "12521.99785226、Y 18372.81338887）、KE.1-2（X 12532.90483349、Y 18467.26678446）、KA.1-2（X "
                  "12522.56858143、Y 18516.15125784）",
                  "平面線形／線形1|曲線要素の種別・数値|クロソイド A=100.000000 L=50.000000、円曲線 R=200.00000000 "
                  "L=96.000000、クロソイド A=100.000000 L=50.000000",
                  "平面線形／線形1|開始測点と長さ|0.000000 m、長さ 400.000000 m",
                  "平面線形／線形1|ブレーキ|150.000＝160.000、260.000＝265.000",
                  "縦断線形／線形1|線形起終点の測点、標高|0.000 m 高さ 105.000 m～400.000 m 高さ 113.000 m",
                  "縦断線形／線形1|縦断変化点と曲線要素|220.000 m 高さ 111.600 m VCL=100.000、300.000 m 高さ 110.000 m "
                  "VCL=40.000 VCR=800.000",
                  "横断形状／線形1|作成した測点|No.3、No.10",
                  "横断形状／線形1|幅|離れ -3.250 m～0.000 m",
              }));
}

TEST(CheckSheet, ListsControlPointsWithTheirPlaces)
{
    const auto controlPoints = [](const std::string& points) {
        const std::string group = "<CgPoints name=\"基準点\">" + points + "</CgPoints><CgPoints name=\"左幅杭\"";
        const std::vector<CheckSheetRow> rows = CheckSheet(SoundFile({{"<CgPoints name=\"左幅杭\"", group}}));
        return rows[1].value;
    };
    const Detail two = controlPoints("<CgPoint name=\"T-1\">12400.10 18200.20 101.5</CgPoint>"
                                     "<CgPoint name=\"T-2\">12401. 18201.</CgPoint>");
    EXPECT_EQ(two.japanese, L"T-1（X 12400.10、Y 18200.20） 高さ 101.5、T-2（X 12401.、Y 18201.）");
    EXPECT_EQ(two.english, L"T-1 (X 12400.10, Y 18200.20) height 101.5, T-2 (X 12401., Y 18201.)");
    std::string many;
    for (int point = 0; point < 23; ++point)
    {
        many += "<CgPoint name=\"T-" + std::to_string(point) + "\">12400 18200</CgPoint>";
    }
    EXPECT_TRUE(controlPoints(many).japanese.ends_with(L"T-19（X 12400、Y 18200）、ほか3点"));
}

} // namespace
} // namespace jlandxml::inspect
