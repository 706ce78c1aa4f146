#include "inspect/Wording.h"

#include "SoundFile.h"
#include "inspect/Checks.h"
#include "inspect/Names.h"

namespace jlandxml::inspect
{
namespace
{

TEST(Wording, FillsBothLanguagesWithTheirOwnValues)
{
    const Detail text({L"次は{}、{} m", L"next: {}, {} m"}, {Sentence{L"直線", L"Line"}, L"5.0", L"beyond"});
    EXPECT_EQ(text.japanese, L"次は直線、5.0 m");
    EXPECT_EQ(text.english, L"next: Line, 5.0 m");
    const Detail both = text + Sentence{L"まで", L" at most"};
    EXPECT_EQ(both.japanese, L"次は直線、5.0 mまで");
    EXPECT_EQ(both.english, L"next: Line, 5.0 m at most");
}

/// A change of a sound file, and how a finding of it names its element in English.
struct EnglishName
{
    const char* name;
    const wchar_t* code;
    std::vector<Change> changes;
    const char* english;
};
const EnglishName ENGLISH_NAMES[] = {
    {"AnElement", L"H03", {{"110.000000", "110.002"}}, "線形1／Line BP～KA.1-1"},
    {"AnElementWithoutNames",
     L"H10",
     {{"<Start name=\"BP\">", "<Start>"}, {"<End name=\"KA.1-1\">", "<End>"}},
     "線形1／Line, number 1"},
    {"AnAlignmentWithoutAName",
     L"T01",
     {{"name=\"線形1\" length", "length"}, {"staStart=\"0.\"", "staStart=\"5.\""}},
     "(alignment without a name)"},
    {"AnEquation", L"T04", {{"staAhead=\"160.000\"", "staAhead=\"140.000\""}}, "線形1／Station equation 150.000"},
    {"ASection", L"C08", {{"\"ExistingGround\">", "\"Bedrock\">"}}, "線形1／Cross section No.3"},
    {"AWidening", L"C09", {{"256. 0.25 3", "156. 0.25 3"}}, "線形1／Widening left"},
    {"ATransition", L"C01", {{"staEnd=\"256.\"", "staEnd=\"56.\""}}, "線形1／Superelevation 160."},
    {"AStationOfATransition",
     L"T06",
     {{"<BeginRunoutSta>90.000", "<BeginRunoutSta>-90.000"}},
     "線形1／Superelevation BeginRunoutSta"},
    {"APoint", L"T06", {{"value=\"400.\"", "value=\"500.\""}}, "線形1／Intermediate point No.20"},
    {"AProfile", L"V01", {{"<PVI>400.000", "<PVI>290.000"}}, "線形1／Profile 計画"},
    {"AGroundLine", L"V01", {{"80. 108.071", "30. 108.071"}}, "線形1／Ground line 現況地形"},
    {"AFace", L"F05", {{"<F>3 6 5</F>", "<F>3 6 6</F>"}}, "現況地形／Face 3 6 6"},
    {"AnEdge", L"F06", {{"<F>3 6 5</F>", "<F>3 6 5</F><F>2 5 6</F>"}}, "現況地形／Edge 2 5"},
    {"ASurfacePoint", L"F07", {{"<F>3 6 5</F>", ""}}, "現況地形／Point 6"},
    {"TheCoordinateSystem",
     L"R05",
     {{"horizontalDatum=\"JGD2011\"", "horizontalDatum=\"WGS84\""}},
     "Coordinate system"},
    {"TheUnits", L"R12", {{"linearUnit=\"meter\"", "linearUnit=\"millimeter\""}}, "Units"},
    {"TheFile", L"X03", {{"国道999号", "\xFF"}}, "File"},
};

class EnglishNames : public testing::TestWithParam<EnglishName>
{};

TEST_P(EnglishNames, AreSaidOfWhatIsFound)
{
    const std::vector<Finding> findings = Inspect(SoundFile(GetParam().changes), {FindCheck(GetParam().code)});
    ASSERT_GE(findings.size(), 1U);
    EXPECT_EQ(Utf8FromWide(findings[0].object.english), GetParam().english);
}

INSTANTIATE_TEST_SUITE_P(Inspect, EnglishNames, testing::ValuesIn(ENGLISH_NAMES),
                         [](const auto& one) { return std::string(one.param.name); });

} // namespace
} // namespace jlandxml::inspect
