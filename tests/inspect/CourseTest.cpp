#include "inspect/Course.h"

#include "SoundFile.h"
#include "inspect/Angles.h"

#include <cmath>
#include <limits>

namespace jlandxml::inspect
{
namespace
{

/// Fresnel's integrals C and S as printed in Abramowitz and Stegun, table 7.7, and with more digits in later tables.
struct FresnelValue
{
    const char* name;
    double x;
    double c;
    double s;
};
constexpr FresnelValue FRESNEL_VALUES[] = {
    {"Half", 0.5, 0.49234422587144639, 0.06473243285999929},
    {"One", 1.0, 0.77989340037682283, 0.43825914739035477},
    {"Two", 2.0, 0.48825340607534076, 0.34341567836369824},
    {"Five", 5.0, 0.56363118870401223, 0.49919138191711686},
};

class FresnelIntegrals : public testing::TestWithParam<FresnelValue>
{};

TEST_P(FresnelIntegrals, AreTheClothoidsCoordinates)
{
    // Curvature π s, so that the tangent turns by π s² / 2.
    const FresnelValue& value = GetParam();
    const Position end = Stretch{{0, 0, 0}, value.x, 0, std::numbers::pi * value.x}.End();
    EXPECT_NEAR(end.north, value.c, 1e-13);
    EXPECT_NEAR(end.east, value.s, 1e-13);
}

INSTANTIATE_TEST_SUITE_P(Inspect, FresnelIntegrals, testing::ValuesIn(FRESNEL_VALUES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(Stretch, OfNearlyTheSameCurvaturesIsNearlyAnArc)
{
    const Position arc = Stretch{{100, 200, 1}, 80, 0.01, 0.01}.End();
    const Position clothoid = Stretch{{100, 200, 1}, 80, 0.01, 0.01 + 1e-12}.End();
    EXPECT_NEAR(arc.north, clothoid.north, 1e-8);
    EXPECT_NEAR(arc.east, clothoid.east, 1e-8);
}

TEST(Stretch, ToTheRightTurnsTheAzimuthClockwise)
{
    const Position end = Stretch{{0, 0, 0}, 50 * std::numbers::pi, 0.01, 0.01}.End();
    EXPECT_NEAR(end.north, 100, 1e-9);
    EXPECT_NEAR(end.east, 100, 1e-9);
    EXPECT_NEAR(end.azimuth, std::numbers::pi / 2, 1e-12);
}

const Alignment& FirstAlignment(const LandXmlFile& file)
{
    return file.routes.front().alignments.front();
}

TEST(Course, MeetsTheEndOfEveryElement)
{
    const LandXmlFile file = SoundFile();
    const Course course(FirstAlignment(file));
    for (std::size_t index = 0; index < course.Elements().size(); ++index)
    {
        const PlanPoint& end = FirstAlignment(file).elements[index].end;
        const Position computed = course.Elements()[index].stretches.back().End();
        EXPECT_NEAR(computed.north, end.north.value, 1e-6) << index;
        EXPECT_NEAR(computed.east, end.east.value, 1e-6) << index;
    }
}

TEST(Course, HasTwoPositionsAtAJointAndNoneOutside)
{
    const LandXmlFile file = SoundFile();
    const Course course(FirstAlignment(file));
    EXPECT_EQ(course.At(110).size(), 2U);
    EXPECT_EQ(course.At(111).size(), 1U);
    EXPECT_EQ(course.At(-1).size(), 0U);
    EXPECT_EQ(course.At(401).size(), 0U);
}

TEST(Course, HasNoPositionWhereTheStationIsNoNumber)
{
    const LandXmlFile file = SoundFile();
    const Course course(FirstAlignment(file));
    EXPECT_EQ(course.At(std::numeric_limits<double>::quiet_NaN()).size(), 0U);
    EXPECT_EQ(course.At(std::numeric_limits<double>::infinity()).size(), 0U);
    EXPECT_EQ(course.At(-std::numeric_limits<double>::infinity()).size(), 0U);
}

TEST(Course, OfASpiralWithoutItsTangentPointFollowsItsChord)
{
    const LandXmlFile file = SoundFile({{"<PI name=\"IP\">12516.19658408 18357.16245488</PI>", ""}});
    const Course course(FirstAlignment(file));
    const Position end = course.Elements()[1].stretches.back().End();
    EXPECT_NEAR(end.north, 12521.99785226, 1e-6);
    EXPECT_NEAR(end.east, 18372.81338887, 1e-6);
}

TEST(Course, OfAnIrregularLineRunsThroughItsPoints)
{
    const LandXmlFile file =
        SoundFile({{"<Line length=\"110.000000\">", "<IrregularLine><PntList2D>0 0 3 4 3 10</PntList2D>"},
                   {"</Line>", "</IrregularLine>"}});
    const ElementCourse course = CourseOf(FirstAlignment(file).elements.front());
    EXPECT_EQ(course.computedLength, 11);
    EXPECT_EQ(course.At(6).east, 5);
    EXPECT_EQ(course.At(6).north, 3);
}

struct UnknownCourse
{
    const char* name;
    std::vector<Change> changes;
    std::size_t element;
};
const UnknownCourse UNKNOWN_COURSES[] = {
    {"ALineWithoutLength", {{"12500.79234746 18327.57119165</End>", "12450. 18230.</End>"}}, 0},
    {"ALineWithoutCoordinates", {{"12500.79234746 18327.57119165</End>", "</End>"}}, 0},
    {"ASpiralThatIsNoClothoid", {{"\"clothoid\"", "\"bloss\""}}, 1},
    {"ASpiralThatTurnsForEver", {{"radiusEnd=\"200.00000000\"", "radiusEnd=\"1e-9\""}}, 1},
    {"ASpiralOfNegativeLength", {{"length=\"50.000000\"", "length=\"-50\""}}, 1},
    {"ACurveWithoutARotation", {{"<Curve rot=\"cw\"", "<Curve"}}, 2},
    {"ACurveWithoutACentre", {{"<Center>12334.46615932 18442.32500043</Center>", ""}}, 2},
};

class UnknownCourses : public testing::TestWithParam<UnknownCourse>
{};

TEST_P(UnknownCourses, AreNotGuessed)
{
    const LandXmlFile file = SoundFile(GetParam().changes);
    const Course course(FirstAlignment(file));
    EXPECT_FALSE(course.Elements()[GetParam().element].IsKnown());
}

INSTANTIATE_TEST_SUITE_P(Inspect, UnknownCourses, testing::ValuesIn(UNKNOWN_COURSES),
                         [](const auto& one) { return std::string(one.param.name); });

} // namespace
} // namespace jlandxml::inspect
