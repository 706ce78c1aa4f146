#include "inspect/Course.h"

#include "inspect/Angles.h"
#include "inspect/Limits.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

/// A curve that turns further than this, in radians, is no road's.
constexpr double LARGEST_TURN = 1000;

/// Abscissas and weights of Gauss' quadrature with eight points (Abramowitz and Stegun, table 25.4), for one half of
/// the interval; the other half mirrors them.
struct GaussPoint
{
    double abscissa;
    double weight;
};
constexpr GaussPoint GAUSS_POINTS[] = {
    {0.183434642495650, 0.362683783378362},
    {0.525532409916329, 0.313706645877887},
    {0.796666477413627, 0.222381034453374},
    {0.960289856497536, 0.101228536290376},
};

/// The azimuth so far into a stretch.
double AzimuthAt(const Stretch& stretch, double distance)
{
    const double change = (stretch.curvatureEnd - stretch.curvatureStart) / stretch.length;
    return stretch.start.azimuth + distance * (stretch.curvatureStart + distance * change / 2);
}

Position ArcAt(const Stretch& stretch, double distance)
{
    const double half = distance * stretch.curvatureStart / 2;
    const double chord = half == 0 ? distance : distance * std::sin(half) / half;
    const double azimuth = stretch.start.azimuth + half;
    return {stretch.start.north + chord * std::cos(azimuth), stretch.start.east + chord * std::sin(azimuth),
            stretch.start.azimuth + 2 * half};
}

Position ClothoidAt(const Stretch& stretch, double distance)
{
    constexpr double TURN_OF_A_PART = 0.5;
    const double turn = std::abs(distance) * std::max(std::abs(stretch.curvatureStart), std::abs(stretch.curvatureEnd));
    const int parts = 1 + static_cast<int>(std::min(turn, LARGEST_TURN) / TURN_OF_A_PART);
    const double half = distance / parts / 2;
    Position end{stretch.start.north, stretch.start.east, AzimuthAt(stretch, distance)};
    for (int part = 0; part < parts; ++part)
    {
        const double middle = (2 * part + 1) * half;
        for (const GaussPoint& point : GAUSS_POINTS)
        {
            for (const double side : {-1.0, 1.0})
            {
                const double azimuth = AzimuthAt(stretch, middle + side * half * point.abscissa);
                end.north += half * point.weight * std::cos(azimuth);
                end.east += half * point.weight * std::sin(azimuth);
            }
        }
    }
    return end;
}

/// The length by which stations count.
double StationLength(const PlanElement& element, double computed)
{
    return element.length.IsFinite() && element.length.value >= 0 ? element.length.value : computed;
}

/// The course of one stretch, if all of its figures are some.
ElementCourse OneStretch(const PlanElement& element, const Stretch& stretch)
{
    ElementCourse course;
    const double turn = stretch.length * std::max(std::abs(stretch.curvatureStart), std::abs(stretch.curvatureEnd));
    const bool isKnown = std::isfinite(stretch.start.north) && std::isfinite(stretch.start.east) &&
                         std::isfinite(stretch.start.azimuth) && stretch.length > 0 && turn <= LARGEST_TURN;
    course.computedLength = isKnown ? stretch.length : 0;
    course.stationLength = StationLength(element, course.computedLength);
    if (isKnown)
    {
        course.stretches.push_back(stretch);
    }
    return course;
}

ElementCourse LineCourse(const PlanElement& line)
{
    const Position start{line.start.north.value, line.start.east.value, Azimuth(line.start, line.end)};
    return OneStretch(line, {start, Distance(line.start, line.end), 0, 0});
}

ElementCourse CurveCourse(const PlanElement& curve)
{
    const int turn = Turn(curve.rot);
    const double radius = curve.radius.IsFinite() ? std::abs(curve.radius.value) : Distance(curve.center, curve.start);
    const double azimuth = Azimuth(curve.center, curve.start) + turn * std::numbers::pi / 2;
    const Position start{curve.start.north.value, curve.start.east.value, azimuth};
    const double sweep = Sweep(curve, curve.rot);
    const double whole = sweep > 0 ? sweep : 2 * std::numbers::pi; // one that ends where it starts is a whole circle
    return OneStretch(curve, {start, turn == 0 ? 0 : radius * whole, turn / radius, turn / radius});
}

/// The azimuth at the start of a spiral: to the point where its tangents meet, or such that its end lies in the
/// direction of the file's.
double SpiralAzimuth(const PlanElement& spiral, Stretch stretch)
{
    if (spiral.pi.IsPlaced())
    {
        return Azimuth(spiral.start, spiral.pi);
    }
    stretch.start.azimuth = 0;
    const Position end = stretch.End();
    return Azimuth(spiral.start, spiral.end) - Azimuth(stretch.start.north, stretch.start.east, end.north, end.east);
}

ElementCourse SpiralCourse(const PlanElement& spiral)
{
    const bool isClothoid = spiral.spiralType == L"clothoid";
    const int turn = Turn(spiral.rot);
    const double curvatureStart = turn * CurvatureOf(spiral.radiusStart);
    const double curvatureEnd = turn * CurvatureOf(spiral.radiusEnd);
    const double length = spiral.length.IsFinite() && isClothoid && turn != 0 ? spiral.length.value : 0;
    Stretch stretch{{spiral.start.north.value, spiral.start.east.value, 0}, length, curvatureStart, curvatureEnd};
    if (length > 0 && spiral.start.IsPlaced())
    {
        stretch.start.azimuth = SpiralAzimuth(spiral, stretch);
    }
    return OneStretch(spiral, stretch);
}

ElementCourse IrregularCourse(const PlanElement& element)
{
    ElementCourse course;
    for (const PairList& list : element.path)
    {
        for (std::size_t index = 1; index < list.pairs.size(); ++index)
        {
            const FigurePair& from = list.pairs[index - 1];
            const FigurePair& to = list.pairs[index];
            const double length = Distance(from.first.value, from.second.value, to.first.value, to.second.value);
            if (length > 0)
            {
                const double azimuth = Azimuth(from.first.value, from.second.value, to.first.value, to.second.value);
                course.stretches.push_back({{from.first.value, from.second.value, azimuth}, length, 0, 0});
                course.computedLength += length;
            }
        }
    }
    course.stationLength = StationLength(element, course.computedLength);
    return course;
}

/// How the course of an element of each kind is had, in the order of ElementKind.
constexpr ElementCourse (*COURSES[])(const PlanElement&) = {LineCourse, CurveCourse, SpiralCourse, IrregularCourse};

} // namespace

double Distance(double northFrom, double eastFrom, double northTo, double eastTo)
{
    return std::hypot(northTo - northFrom, eastTo - eastFrom);
}

double Azimuth(double northFrom, double eastFrom, double northTo, double eastTo)
{
    return std::atan2(eastTo - eastFrom, northTo - northFrom);
}

double Distance(const PlanPoint& from, const PlanPoint& to)
{
    return Distance(from.north.value, from.east.value, to.north.value, to.east.value);
}

double Azimuth(const PlanPoint& from, const PlanPoint& to)
{
    return Azimuth(from.north.value, from.east.value, to.north.value, to.east.value);
}

Position Stretch::At(double distance) const
{
    return curvatureStart == curvatureEnd ? ArcAt(*this, distance) : ClothoidAt(*this, distance);
}

Position ElementCourse::At(double distance) const
{
    std::size_t index = 0;
    for (; index + 1 < stretches.size() && distance > stretches[index].length; ++index)
    {
        distance -= stretches[index].length;
    }
    return stretches[index].At(distance);
}

int Turn(std::wstring_view rot)
{
    return rot == L"cw" ? 1 : rot == L"ccw" ? -1 : 0;
}

double CurvatureOf(const Figure& radius)
{
    return radius.IsFinite() && radius.value != 0 ? std::abs(1 / radius.value) : 0;
}

double Sweep(const PlanElement& curve, std::wstring_view rot)
{
    return PositiveAngle(Turn(rot) * (Azimuth(curve.center, curve.end) - Azimuth(curve.center, curve.start)));
}

ElementCourse CourseOf(const PlanElement& element)
{
    return COURSES[static_cast<std::size_t>(element.kind)](element);
}

Course::Course(const Alignment& alignment)
{
    staStart_ = alignment.staStart.IsFinite() ? alignment.staStart.value : 0;
    staEnd_ = staStart_;
    for (const PlanElement& element : alignment.elements)
    {
        elements_.push_back(CourseOf(element));
        starts_.push_back(staEnd_);
        staEnd_ += elements_.back().stationLength;
    }
}

std::vector<Position> Course::At(double station) const
{
    std::vector<Position> positions;
    if (!std::isfinite(station))
    {
        return positions;
    }
    // The last element that starts at the station or before, and those before it that reach it.
    auto index = static_cast<std::size_t>(std::upper_bound(starts_.begin(), starts_.end(), station + SAME_STATION) -
                                          starts_.begin());
    for (; index > 0 && positions.size() < 2; --index)
    {
        const ElementCourse& element = elements_[index - 1];
        const double distance = station - starts_[index - 1];
        if (distance > element.stationLength + SAME_STATION)
        {
            break;
        }
        if (element.IsKnown())
        {
            positions.push_back(element.At(distance));
        }
    }
    return positions;
}

} // namespace jlandxml::inspect
