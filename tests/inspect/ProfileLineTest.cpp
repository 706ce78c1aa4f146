#include "inspect/ProfileLine.h"

#include "SoundFile.h"

#include <cmath>

namespace jlandxml::inspect
{
namespace
{

const ProfAlign& Design(const LandXmlFile& file)
{
    return file.routes.front().alignments.front().profiles.front().designs.front();
}

TEST(ProfileLine, FollowsItsTangentsAndParabolas)
{
    const LandXmlFile file = SoundFile();
    const ProfileLine line(Design(file));
    EXPECT_DOUBLE_EQ(line.HeightAt(0).value(), 105);
    EXPECT_DOUBLE_EQ(line.HeightAt(100).value(), 108);
    // On a crest the curve lies (g2 - g1) L / 8 under its point: 0.05 * 100 / 8.
    EXPECT_NEAR(line.HeightAt(220).value(), 111.6 - 0.625, 1e-9);
    EXPECT_NEAR(line.HeightAt(195).value(), 111.6 - 0.75 - 0.625 / 4, 1e-9);
    EXPECT_NEAR(line.HeightAt(245).value(), 111.6 - 0.5 - 0.625 / 4, 1e-9);
    EXPECT_DOUBLE_EQ(line.HeightAt(400).value(), 113);
    EXPECT_FALSE(line.HeightAt(401).has_value());
    EXPECT_FALSE(line.HeightAt(-1).has_value());
}

TEST(ProfileLine, HasUnsymmetricCurves)
{
    const LandXmlFile file =
        SoundFile({{"ParaCurve length=\"100.000\"", "UnsymParaCurve lengthIn=\"60\" lengthOut=\"40\""},
                   {"</ParaCurve>", "</UnsymParaCurve>"}});
    const ProfileLine line(Design(file));
    // (g2 - g1) l1 l2 / 2 (l1 + l2)
    EXPECT_NEAR(line.HeightAt(220).value(), 111.6 - 0.05 * 60 * 40 / 200, 1e-9);
    EXPECT_NEAR(line.HeightAt(160).value(), 109.8, 1e-9);
    EXPECT_NEAR(line.HeightAt(260).value(), 110.8, 1e-9);
}

TEST(ProfileLine, HasCirclesThatTouchTheirTangents)
{
    // Down 2 % to 110 m at 300, up 3 % behind it: the arc of 800 m lies R (1 / cos(Δ/2) - 1) from the point, along the
    // line that halves the angle of the tangents, and R (1 - cos(Δ/2)) from the chord.
    const LandXmlFile file = SoundFile();
    const ProfileLine line(Design(file));
    const double in = std::atan(-0.02);
    const double out = std::atan(0.03);
    const double lowest = 800 / std::cos((out - in) / 2) - 800;
    const double middle = (in + out) / 2;
    EXPECT_NEAR(line.HeightAt(300 - lowest * std::sin(middle)).value(), 110 + lowest * std::cos(middle), 1e-9);
    const double tangent = 800 * std::tan((out - in) / 2);
    EXPECT_NEAR(line.HeightAt(300 - tangent * std::cos(in)).value(), 110 - tangent * std::sin(in), 1e-9);
    EXPECT_NEAR(line.HeightAt(300 + tangent * std::cos(out)).value(), 110 + tangent * std::sin(out), 1e-9);
    EXPECT_NEAR(line.HeightAt(281).value(), 110.38 + 1.0 / 1600, 1e-4);
}

TEST(ProfileLine, HasCirclesOfALengthAlone)
{
    const LandXmlFile file = SoundFile({{" radius=\"800.000\"", ""}});
    const double turn = std::sin(std::atan(0.03)) + std::sin(std::atan(0.02));
    EXPECT_NEAR(ProfileLine(Design(file)).Points()[2].radius, 40 / turn, 1e-9);
}

TEST(ProfileLine, WhoseStationsDoNotRiseHasNoHeights)
{
    const LandXmlFile file = SoundFile({{"<PVI>400.000", "<PVI>300.000"}});
    EXPECT_FALSE(ProfileLine(Design(file)).HeightAt(100).has_value());
}

/// Ground that rises at a wall at 40 m, told in one list or in two.
struct Wall
{
    const char* name;
    const char* points;
};
constexpr Wall WALLS[] = {
    {"InAList", "40. 106.635 40. 110.000 "},
    {"BetweenTwoLists", "40. 106.635</PntList2D><PntList2D>40. 110.000 "},
};

class Walls : public testing::TestWithParam<Wall>
{};

TEST_P(Walls, AreStepsOfGroundLines)
{
    const LandXmlFile file = SoundFile({{"40. 106.635 80. 108.071 ", GetParam().points}});
    const GroundLine line(file.routes.front().alignments.front().profiles.front().grounds.front().lists);
    EXPECT_DOUBLE_EQ(line.HeightAt(20).value(), (104.3 + 106.635) / 2);
    EXPECT_DOUBLE_EQ(line.HeightAt(40).value(), 106.635);
    EXPECT_DOUBLE_EQ(line.HeightAt(220).value(), (110 + 103.927) / 2);
}

INSTANTIATE_TEST_SUITE_P(Inspect, Walls, testing::ValuesIn(WALLS),
                         [](const auto& one) { return std::string(one.param.name); });

} // namespace
} // namespace jlandxml::inspect
