#include "support/generator/HostAlignment.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace jlandxml::generator
{

namespace
{

constexpr double STRAIGHT = 0.0;

/// What stands between two straights.
enum class BendPattern
{
    Curve,
    SpiralCurveSpiral,
    SpiralCurve,
    SpiralSpiral,
    Egg,
    CurveCurve,
    Corner,
};

/// Most bends of a road have clothoids on both sides.
constexpr BendPattern ROAD_BENDS[] = {BendPattern::SpiralCurveSpiral, BendPattern::SpiralCurveSpiral,
                                      BendPattern::SpiralCurveSpiral, BendPattern::Curve,
                                      BendPattern::CurveCurve,        BendPattern::Egg,
                                      BendPattern::SpiralSpiral,      BendPattern::SpiralCurve};
constexpr BendPattern RIVER_BENDS[] = {BendPattern::Curve, BendPattern::Curve, BendPattern::Corner,
                                       BendPattern::CurveCurve};

/// Lengths of a bend in metres; curvatures in 1/metre, positive to the right.
struct BendSizes
{
    double curvature;
    double tighterCurvature;
    double spiralLength;
    double curveLength;
};

BendSizes DrawBend(SplitMix64& random)
{
    const double hand = random.OneIn(2) ? 1.0 : -1.0;
    const double radius = 10.0 * random.Between(12, 60);
    BendSizes sizes{};
    sizes.curvature = hand / radius;
    sizes.tighterCurvature = hand / (radius / 2.0);
    sizes.spiralLength = 5.0 * random.Between(6, 12);
    sizes.curveLength = 2.0 * random.Between(15, 50);
    return sizes;
}

void AppendBend(RouteGeometry& geometry, BendPattern pattern, const BendSizes& sizes)
{
    const auto curve = [&](double curvature) {
        geometry.Append(HorizontalKind::Curve, sizes.curveLength, curvature, curvature);
    };
    const auto spiral = [&](double from, double to) {
        geometry.Append(HorizontalKind::Spiral, sizes.spiralLength, from, to);
    };
    Bend bend;
    bend.begin = geometry.Length();
    switch (pattern)
    {
    case BendPattern::Curve:
        curve(sizes.curvature);
        break;
    case BendPattern::SpiralCurveSpiral:
        spiral(STRAIGHT, sizes.curvature);
        curve(sizes.curvature);
        spiral(sizes.curvature, STRAIGHT);
        break;
    case BendPattern::SpiralCurve:
        spiral(STRAIGHT, sizes.curvature);
        curve(sizes.curvature);
        break;
    case BendPattern::SpiralSpiral:
        spiral(STRAIGHT, sizes.curvature);
        spiral(sizes.curvature, STRAIGHT);
        break;
    case BendPattern::Egg:
        spiral(STRAIGHT, sizes.curvature);
        curve(sizes.curvature);
        spiral(sizes.curvature, sizes.tighterCurvature);
        curve(sizes.tighterCurvature);
        spiral(sizes.tighterCurvature, STRAIGHT);
        break;
    case BendPattern::CurveCurve:
        curve(sizes.curvature);
        curve(sizes.tighterCurvature);
        break;
    case BendPattern::Corner:
        geometry.Turn(sizes.curvature * sizes.curveLength);
        return;
    }
    const auto& elements = geometry.Elements();
    const bool entersBySpiral = pattern != BendPattern::Curve && pattern != BendPattern::CurveCurve;
    const bool leavesBySpiral = elements.back().kind == HorizontalKind::Spiral;
    bend.end = geometry.Length();
    bend.fullBegin = bend.begin + (entersBySpiral ? sizes.spiralLength : 0.0);
    bend.fullEnd = bend.end - (leavesBySpiral ? sizes.spiralLength : 0.0);
    bend.toTheRight = sizes.curvature > 0.0;
    geometry.bends.push_back(bend);
}

/// The slope of the outer edge along a bend: a broken line over these distances.
double Interpolated(const SlopeStation& from, const SlopeStation& to, double distance, double CrossSlopes::*side)
{
    const double share = (distance - from.distance) / (to.distance - from.distance);
    return from.slopes.*side + share * (to.slopes.*side - from.slopes.*side);
}

} // namespace

HostAlignment::HostAlignment(SplitMix64& random, const Pose& start, bool isRiver, std::string alignmentName)
    : name(std::move(alignmentName)),
      river(isRiver),
      geometry(start)
{
    constexpr double MAIN_INTERVALS[] = {20.0, 20.0, 10.0, 25.0, 50.0};
    constexpr double NORMAL_CROWNS[] = {1.5, 2.0, 2.0};
    constexpr double FULL_SLOPES[] = {3.0, 4.0, 5.0, 6.0};
    mainInterval = random.Pick(MAIN_INTERVALS);
    startStation = random.OneIn(3) ? 20.0 * random.Between(1, 120) : 0.0;
    normalCrown = random.Pick(NORMAL_CROWNS);
    fullSlope = random.Pick(FULL_SLOPES);
    singleLane = random.OneIn(4);
    slopeList = random.OneIn(4);
    DrawHorizontal(random);
    DrawProfile(random);
    if (random.OneIn(5))
    {
        equationDistance = 10.0 * std::floor(geometry.Length() / 20.0);
        equationJump = random.OneIn(2) ? 10.0 : -20.0;
    }
}

void HostAlignment::DrawHorizontal(SplitMix64& random)
{
    // Straights have room for the runouts of the bends beside them.
    const auto appendLine = [&] {
        geometry.Append(HorizontalKind::Line, 0.5 * random.Between(90, 240), STRAIGHT, STRAIGHT);
    };
    appendLine();
    for (int bends = random.Between(1, 3); bends > 0; --bends)
    {
        const BendPattern pattern = river ? random.Pick(RIVER_BENDS) : random.Pick(ROAD_BENDS);
        AppendBend(geometry, pattern, DrawBend(random));
        appendLine();
    }
}

void HostAlignment::DrawProfile(SplitMix64& random)
{
    const int points = random.Between(2, 4);
    const double spacing = geometry.Length() / (points - 1);
    double height = (river ? 10.0 : 40.0) + 0.5 * random.Between(0, 120);
    double distance = 0.0;
    for (int point = 0; point < points; ++point)
    {
        const bool isEnd = point == 0 || point == points - 1;
        const double curveLength = isEnd || river || random.OneIn(4) ? 0.0 : 5.0 * std::floor(spacing / 10.0);
        grades.push_back({distance, height, curveLength});
        const double next = point + 2 == points ? geometry.Length() : std::floor(spacing * (point + 1) / 10.0) * 10.0;
        const double percent = (river ? -0.05 : 0.5) * random.Between(river ? 1 : -9, 9);
        height += std::round((next - distance) * percent * 10.0) / 1000.0;
        distance = next;
    }
    groundPhase_ = 0.1 * random.Between(0, 62);
    groundSwing_ = 0.25 * random.Between(2, 8);
}

double HostAlignment::HeightAt(double distance) const
{
    auto next = std::find_if(grades.begin() + 1, grades.end() - 1,
                             [&](const GradePoint& grade) { return grade.distance >= distance; });
    const auto gradeOf = [](const GradePoint& from, const GradePoint& to) {
        return (to.height - from.height) / (to.distance - from.distance);
    };
    const GradePoint& from = *std::prev(next);
    double height = from.height + gradeOf(from, *next) * (distance - from.distance);
    // A parabola spreads the change of grade over its length; it lies inside of the two tangents.
    for (auto grade = grades.begin() + 1; grade != grades.end() - 1; ++grade)
    {
        const double into = grade->curveLength / 2.0 - std::fabs(distance - grade->distance);
        if (into > 0.0)
        {
            const double change = gradeOf(*grade, *std::next(grade)) - gradeOf(*std::prev(grade), *grade);
            height += change * into * into / (2.0 * grade->curveLength);
        }
    }
    return height;
}

double HostAlignment::GroundHeightAt(double distance) const
{
    return HeightAt(distance) - 1.0 + groundSwing_ * Sin(distance / 47.0 + groundPhase_) + 0.2 * Sin(distance / 9.0);
}

std::vector<SlopeStation> HostAlignment::SlopeStations(const Bend& bend) const
{
    const auto slopes = [&](double outer) {
        // The inner edge keeps the normal crown until the outer one has risen to its line.
        const double inner = -std::max(outer, normalCrown);
        return bend.toTheRight ? CrossSlopes{outer, inner} : CrossSlopes{inner, outer};
    };
    const double reached = normalCrown / fullSlope;
    std::vector<SlopeStation> stations;
    stations.push_back({RunoutBegin(bend), "End Normal Crown", slopes(-normalCrown)});
    // A bend without a clothoid has its full slope from the beginning of its arc.
    if (bend.fullBegin > bend.begin)
    {
        stations.push_back({bend.begin, "Level Crown", slopes(0.0)});
        stations.push_back({bend.begin + reached * (bend.fullBegin - bend.begin), "ReverseCrown", slopes(normalCrown)});
    }
    stations.push_back({bend.fullBegin, "Begin Full Super", slopes(fullSlope)});
    stations.push_back({bend.fullEnd, "End Full Super", slopes(fullSlope)});
    if (bend.fullEnd < bend.end)
    {
        stations.push_back({bend.end - reached * (bend.end - bend.fullEnd), "ReverseCrown", slopes(normalCrown)});
        stations.push_back({bend.end, "Level Crown", slopes(0.0)});
    }
    stations.push_back({RunoutEnd(bend), "Begin Normal Crown", slopes(-normalCrown)});
    return stations;
}

CrossSlopes HostAlignment::SlopesAt(double distance) const
{
    for (const Bend& bend : river ? std::vector<Bend>() : geometry.bends)
    {
        const std::vector<SlopeStation> stations = SlopeStations(bend);
        for (std::size_t next = 1; next < stations.size(); ++next)
        {
            const SlopeStation& from = stations[next - 1];
            const SlopeStation& to = stations[next];
            if (from.distance < distance && distance <= to.distance)
            {
                return {Interpolated(from, to, distance, &CrossSlopes::left),
                        Interpolated(from, to, distance, &CrossSlopes::right)};
            }
        }
    }
    return {-normalCrown, -normalCrown};
}

double HostAlignment::ShownStation(double distance) const
{
    const bool behind = equationDistance >= 0.0 && distance >= equationDistance;
    return startStation + distance + (behind ? equationJump : 0.0);
}

} // namespace jlandxml::generator
