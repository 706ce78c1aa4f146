// The finished files of the whole runs, and what is known to be found in them.

#include "inspect/Checks.h"

#include "SoundFile.h"

#include <algorithm>
#include <filesystem>

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
};

bool IsExplained(const std::string& example, const Finding& finding)
{
    return std::any_of(std::begin(EXPLAINED), std::end(EXPLAINED), [&](const Explained& one) {
        return example.starts_with(one.example) && one.code == std::wstring(finding.check->code) &&
               Utf8FromWide(finding.object).starts_with(one.object);
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
     {"誤り H02 " + ROAD_LINE, "警告 H03 " + ROAD_LINE, "警告 H05 " + ROAD_LINE, "誤り T07 IntermediatePnts-1／No.2+10.000",
      "誤り T08 IntermediatePnts-1／No.0", "誤り T08 IntermediatePnts-1／No.2+10.000"}},
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
};

class ExampleChanges : public testing::TestWithParam<ExampleChange>
{};

TEST_P(ExampleChanges, NameTheChangedElement)
{
    const std::string road = ReadWholeFile(JLANDXML_SOURCE_DIR L"/tests/e2e/road/expected.xml").value_or("");
    std::vector<std::string> said;
    for (const Finding& finding :
         Inspect(ReadLandXmlBytes(Changed(road, {GetParam().change}), L"road.xml"), EveryCheck()))
    {
        said.push_back(Utf8FromWide(SeverityName(finding.severity) + (L" " + std::wstring(finding.check->code)) + L" " +
                                    finding.object));
    }
    EXPECT_EQ(said, GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(Inspect, ExampleChanges, testing::ValuesIn(EXAMPLE_CHANGES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(FinishedFiles, ShowNothingThatIsNotExplained)
{
    const std::vector<const Check*> checks = EveryCheck();
    std::size_t count = 0;
    const std::filesystem::path cases = std::filesystem::path(JLANDXML_SOURCE_DIR) / "tests" / "e2e";
    for (const auto& folder : std::filesystem::directory_iterator(cases))
    {
        const std::filesystem::path path = folder.path() / "expected.xml";
        if (!std::filesystem::exists(path))
        {
            continue;
        }
        ++count;
        const std::u8string utf8Name = folder.path().filename().u8string();
        const std::string example(utf8Name.begin(), utf8Name.end());
        const std::u8string utf8Path = path.u8string();
        const LandXmlFile file = ReadLandXmlFile(WideFromUtf8(std::string(utf8Path.begin(), utf8Path.end())));
        for (const Finding& finding : Inspect(file, checks))
        {
            EXPECT_TRUE(IsExplained(example, finding))
                << example << ": "
                << Utf8FromWide(finding.check->code + (L" " + finding.object) + L": " + finding.text);
        }
    }
    EXPECT_GE(count, 9U);
}

} // namespace
} // namespace jlandxml::inspect
