#include "inspect/Printing.h"

#include "SoundFile.h"
#include "inspect/Checks.h"

namespace jlandxml::inspect
{
namespace
{

TEST(JsonLine, CountsWhatRoadEngineersCount)
{
    const std::string line = Utf8FromWide(JsonLine(SoundFile(), {}));
    for (
        const char* const part :
        {R"({"file":"sound.xml","summary":{"version":"1.2","applicationCriterion":"MlitLandXmlVer.1.7",)",
         R"("extents":{"north":[12436.695,12545.5634],"east":[18223.074,18610.3212],"height":[103.55,110.775]},)",
         R"("alignments":[{"route":"国道999号","name":"線形1","length":400.0,"staStart":0.0,"staEnd":400.0,)"
         R"("elements":5,"lines":2,"curves":1,"spirals":2,"irregularLines":0,"staEquations":2,"profiles":1,)"
         R"("groundLines":1,"crossSects":2,"superelevations":1,"widenings":8,"crossSlopes":0}],)",
         R"("pointGroups":[{"name":"IntermediatePnts-1","kind":"IntermediatePnts","points":6},)"
         R"({"name":"左幅杭","kind":"WidthStakePnts","points":5}],)",
         R"("roadways":[{"name":"国道999号","alignmentRefs":"線形1","designSpeeds":[60.0]}],)",
         R"("surfaces":[{"name":"現況地形","desc":"ExistingGround","type":"TIN","points":6,"faces":4}]},"findings":[]})"
         "\n"})
    {
        EXPECT_NE(line.find(part), std::string::npos) << part << "\nnot in\n" << line;
    }
}

TEST(JsonLine, CountsDesignProfilesAndGroundLinesInsteadOfProfiles)
{
    const std::string line = Utf8FromWide(
        JsonLine(SoundFile({{"</ProfAlign>", "</ProfAlign><ProfAlign name=\"歩道\"/><ProfAlign name=\"側道\"/>"},
                            {"<ProfSurf name=\"現況地形\">", "<ProfSurf name=\"岩盤\"/><ProfSurf name=\"現況地形\">"}}),
                 {}));
    EXPECT_NE(line.find(R"("profiles":3,"groundLines":2,)"), std::string::npos) << line;
}

TEST(JsonLine, TellsFindingsWithTheirNumbers)
{
    const LandXmlFile file = SoundFile({{"length=\"110.000000\"", "length=\"110.002\""}});
    const std::string line = Utf8FromWide(JsonLine(file, Inspect(file, {FindCheck(L"H03")})));
    const std::size_t findings = line.find("\"findings\":");
    ASSERT_NE(findings, std::string::npos);
    const std::string expected =
        R"("findings":[{"code":"H03","severity":"警告","text":"要素の長さが座標からの計算と合いません（値 110.002 m、計算 110 m、)"
        R"(差 0.002 m、許容 0.001 m）","object":"線形1／直線 BP～KA.1-1","line":69,"value":110.002,"expected":)";
    EXPECT_EQ(line.substr(findings, expected.size()), expected);
    EXPECT_TRUE(line.ends_with(",\"tolerance\":0.001}]}\n")) << line;
}

} // namespace
} // namespace jlandxml::inspect
