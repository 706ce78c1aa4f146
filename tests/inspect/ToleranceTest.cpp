// Figures just inside and just outside of each tolerance.

#include "inspect/Checks.h"

#include "CodesWithTolerance.h"
#include "SoundFile.h"

#include <set>

namespace jlandxml::inspect
{
namespace
{

/// A change of the sound file in which {} stands for a figure, and figures on either side of the tolerances. Where
/// there is one tolerance, the second pair is empty.
struct Border
{
    const char* name;
    const wchar_t* code;
    std::vector<Change> changes;
    const char* withinFirst;
    const char* beyondFirst;
    const char* withinSecond;
    const char* beyondSecond;
};

const Border BORDERS[] = {
    {"AJoint",
     L"H02",
     {{"<End name=\"KA.1-1\">12500.79234746", "<End name=\"KA.1-1\">{}"}},
     "12500.79333746",
     "12500.79335746",
     "12500.89224746",
     "12500.89244746"},
    {"ALength", L"H03", {{"length=\"110.000000\"", "length=\"{}\""}}, "110.00099", "110.00101", "110.0999", "110.1001"},
    {"ARadius",
     L"H04",
     {{"rot=\"cw\" radius=\"200.00000000\"", "rot=\"cw\" radius=\"{}\""}},
     "200.00099",
     "200.00101",
     "200.0999",
     "200.1001"},
    {"ADirection",
     L"H05",
     {{"<PI name=\"IP\">12516.19658408 18357.16245488", "<PI name=\"IP\">{}"}},
     "12516.22587188 18357.14719019",
     "12516.22646339 18357.14688151",
     "12519.07103332 18355.47859226",
     "12519.07661444 18355.47493596"},
    {"AParameter",
     L"H06",
     {{"value=\"100.000000\"", "value=\"{}\""}},
     "100.00099",
     "100.00101",
     "100.0999",
     "100.1001"},
    {"ASpiralsEnd",
     L"H07",
     {{"<End name=\"KE.1-1\">12521.99785226", "<End name=\"KE.1-1\">{}"}},
     "12521.99884226",
     "12521.99886226",
     "12522.09775226",
     "12522.09795226"},
    {"AnIrregularLinesEnd",
     L"H13",
     {{"<Line length", "<IrregularLine length"},
      {"</End>\n\t\t\t\t</Line>", "</End><PntList2D>12450 18230 12500.79234746 {}</PntList2D></IrregularLine>"}},
     "18327.57218165",
     "18327.57220165",
     "18327.67109165",
     "18327.67129165"},
    {"AnAlignmentsLength", L"H09", {{"length=\"400.000000\"", "length=\"{}\""}}, "400.00099", "400.00101", "", ""},
    {"AStartStation", L"T01", {{"staStart=\"0.\"", "staStart=\"{}\""}}, "0.00099", "0.00101", "", ""},
    {"AnEquation", L"T02", {{"staBack=\"260.000\"", "staBack=\"{}\""}}, "260.00099", "260.00101", "", ""},
    {"AStationAtTheEnd", L"T06", {{"sta=\"200.000\"", "sta=\"{}\""}}, "400.00099", "400.00101", "", ""},
    {"AnIntermediatePoint",
     L"T07",
     {{"featureRef=\"2\">12473.0874 18274.3505", "featureRef=\"2\">{}"}},
     "12473.08842 18274.35054",
     "12473.08844 18274.35054",
     "",
     ""},
    {"AnAzimuth", L"T08", {{"value=\"62.3\"", "value=\"{}\""}}, "62.300099", "62.300101", "", ""},
    {"AVerticalCurve",
     L"V02",
     {{"ParaCurve length=\"100.000\"", "ParaCurve length=\"{}\""}},
     "120.00918",
     "120.00922",
     "",
     ""},
    {"AVerticalRadius", L"V04", {{"radius=\"800.000\"", "radius=\"{}\""}}, "801.072", "801.0885", "", ""},
    {"AnOutline",
     L"C03",
     {{"<CrossSectPnt code=\"PV1\">0.000 0.000</CrossSectPnt>\n\t\t\t\t\t\t<Feature>",
       "<CrossSectPnt code=\"PV1\">0.000 {}</CrossSectPnt><Feature>"}},
     "0.00099",
     "0.00101",
     "",
     ""},
    {"AFormationHeight",
     L"C06",
     {{"<CrossSectPnt code=\"CL\">0.000 0.000", "<CrossSectPnt code=\"CL\">0.000 {}"}},
     "0.00999",
     "0.01001",
     "0.0999",
     "0.1001"},
    {"ALayer",
     L"C07",
     {{"<CrossSectPnt code=\"PV2\">-3.250 -0.165", "<CrossSectPnt code=\"PV2\">-3.250 -0.400"},
      {"<CrossSectPnt code=\"PV1\">-3.250 -0.115", "<CrossSectPnt code=\"PV1\">-3.250 {}"}},
     "-0.11599",
     "-0.11601",
     "-0.2149",
     "-0.2151"},
    {"ADatum",
     L"R11",
     {{"label=\"differTP\" value=\"0.0000\"", "label=\"differTP\" value=\"{}\""}},
     "0.000049",
     "0.000051",
     "0.0999",
     "0.1001"},
};

/// The severities of what a check says with a figure in its place.
std::set<Severity> SeveritiesOf(const Border& border, const std::string& figure)
{
    std::vector<Change> changes = border.changes;
    std::string& last = changes.back().second;
    last.replace(last.find("{}"), 2, figure);
    std::set<Severity> severities;
    for (const Finding& finding : Inspect(SoundFile(changes), {FindCheck(border.code)}))
    {
        severities.insert(finding.severity);
    }
    return severities;
}

class Borders : public testing::TestWithParam<Border>
{};

TEST_P(Borders, PartTheGrades)
{
    const Border& border = GetParam();
    const Check& check = *FindCheck(border.code);
    ASSERT_TRUE(check.tolerance);
    const bool hasTwo = check.tolerance->warning != check.tolerance->error;
    EXPECT_EQ(hasTwo, *border.withinSecond != '\0');
    EXPECT_EQ(SeveritiesOf(border, border.withinFirst), std::set<Severity>());
    EXPECT_EQ(SeveritiesOf(border, border.beyondFirst), std::set{hasTwo ? Severity::Warning : check.severity});
    if (hasTwo)
    {
        EXPECT_EQ(SeveritiesOf(border, border.withinSecond), std::set{Severity::Warning});
        EXPECT_EQ(SeveritiesOf(border, border.beyondSecond), std::set{Severity::Error});
    }
}

INSTANTIATE_TEST_SUITE_P(Inspect, Borders, testing::ValuesIn(BORDERS),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(Border, IsThereForEveryTolerance)
{
    std::set<std::wstring> codes = CodesWithTolerance();
    for (const Border& border : BORDERS)
    {
        codes.erase(border.code);
    }
    EXPECT_EQ(codes, std::set<std::wstring>());
}

} // namespace
} // namespace jlandxml::inspect
