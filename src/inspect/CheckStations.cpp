#include "inspect/CheckStations.h"

#include "inspect/AlignmentReferences.h"
#include "inspect/Angles.h"
#include "inspect/Course.h"
#include "inspect/Limits.h"
#include "inspect/Names.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace jlandxml::inspect
{

namespace
{

/// The equations whose figures are all there, along the alignment.
std::vector<const StaEquation*> SortedEquations(const Alignment& alignment)
{
    std::vector<const StaEquation*> equations;
    for (const StaEquation& equation : alignment.equations)
    {
        if (equation.internal.IsFinite() && equation.ahead.IsFinite())
        {
            equations.push_back(&equation);
        }
    }
    std::stable_sort(equations.begin(), equations.end(), [](const StaEquation* first, const StaEquation* second) {
        return first->internal.value < second->internal.value;
    });
    return equations;
}

Detail EquationName(const Alignment& alignment, const StaEquation& equation)
{
    return Path(NameOf(alignment), NameOf(equation));
}

/// A station with what lies there.
struct PlacedThing
{
    Detail name;
    Figure station;
    SourcePlace place;
};

/// A station of a superelevation under its name in the file.
Detail SuperelevationStation(std::wstring_view kind)
{
    return {{L"片勾配すりつけ {}", L"Superelevation {}"}, {kind}};
}

void AddSuperelevations(const Alignment& alignment, std::vector<PlacedThing>& things)
{
    for (const Superelevation& one : alignment.superelevations)
    {
        things.push_back({SuperelevationStation(L"staStart"), one.staStart, one});
        things.push_back({SuperelevationStation(L"staEnd"), one.staEnd, one});
        for (const TransitionStation& station : one.stations)
        {
            things.push_back({SuperelevationStation(station.kind), station.station, station});
        }
        for (const Feature& feature : one.features)
        {
            for (const TransitionStation& station : StationsOf(feature))
            {
                things.push_back({SuperelevationStation(station.kind), station.station, station});
            }
        }
    }
}

/// All that lies at a station of the alignment itself.
std::vector<PlacedThing> ThingsOf(const Alignment& alignment)
{
    std::vector<PlacedThing> things;
    for (const StaEquation& equation : alignment.equations)
    {
        things.push_back({Sentence{L"測点定義", L"Station equation"}, equation.internal, equation});
    }
    for (const CrossSects& sects : alignment.crossSects)
    {
        for (const CrossSect& section : sects.sections)
        {
            things.push_back({NameOf(section), section.station, section});
        }
    }
    AddSuperelevations(alignment, things);
    ForEachStationList(alignment, [&](const Sentence& name, const std::vector<StationEntry>& list) {
        for (const StationEntry& entry : list)
        {
            things.push_back({name, entry.Station(), entry});
        }
    });
    return things;
}

/// How far a point lies from where a course has its station; infinitely far if it has none there.
double DistanceFrom(const Course& course, const CgPoint& point)
{
    double smallest = std::numeric_limits<double>::infinity();
    for (const Position& place : course.At(point.station.value))
    {
        const double distance = Distance(place.north, place.east, point.point.north.value, point.point.east.value);
        smallest = std::min(smallest, std::isnan(distance) ? smallest : distance);
    }
    return smallest;
}

/// Visits every intermediate point whose alignment is there, with the course of that: of several that the group names,
/// the one at whose station the point lies nearest.
template <class Visit>
void ForEachIntermediatePoint(const LandXmlFile& file, Visit&& visit)
{
    const AlignmentReferences references(file);
    std::unordered_map<const Alignment*, Course> courses;
    const auto courseOf = [&](const Alignment* alignment) -> const Course& {
        return courses.try_emplace(alignment, *alignment).first->second;
    };
    for (const PointGroup& group : file.pointGroups)
    {
        const std::vector<const Alignment*> alignments =
            group.IsIntermediate() ? references.Named(group.alignmentRefs) : std::vector<const Alignment*>();
        for (std::size_t index = 0; !alignments.empty() && index < group.points.size(); ++index)
        {
            const CgPoint& point = group.points[index];
            const Alignment* const nearest =
                *std::min_element(alignments.begin(), alignments.end(), [&](const auto* first, const auto* second) {
                    return DistanceFrom(courseOf(first), point) < DistanceFrom(courseOf(second), point);
                });
            visit(*nearest, courseOf(nearest), group, point);
        }
    }
}

/// True if two stations are no longer the same place. The last digits of a binary difference don't part them.
bool IsApart(double station, double other)
{
    const double distance = std::abs(station - other);
    return std::isfinite(distance) && distance > SAME_STATION * (1 + 1e-9);
}

double EndStation(const Alignment& alignment, const Course& course)
{
    return alignment.length.IsFinite() ? course.StaStart() + std::max(alignment.length.value, 0.0) : course.StaEnd();
}

void CheckWithin(const Alignment& alignment, const Course& course, const PlacedThing& thing, Findings& findings)
{
    const double end = EndStation(alignment, course);
    const double nearest = std::clamp(thing.station.value, course.StaStart(), end);
    if (IsApart(thing.station.value, nearest))
    {
        findings.Report(
            Path(NameOf(alignment), thing.name), thing.place,
            {{L"測点 {}、範囲 {}～{}", L"station {}, alignment from {} to {}"},
             {thing.station.text, NameOr(alignment.staStart.text, ShortNumber(course.StaStart())), ShortNumber(end)}},
            {thing.station.value, nearest, SAME_STATION});
    }
}

} // namespace

void CheckStartStations(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        if (!alignment.staStart.IsFinite())
        {
            findings.Report(NameOf(alignment), alignment,
                            {{L"Alignment@staStartがない", L"no Alignment@staStart"}, {}});
            return;
        }
        for (const Profile& profile : alignment.profiles)
        {
            if (IsApart(profile.staStart.value, alignment.staStart.value))
            {
                findings.Report(
                    NameOf(alignment), profile,
                    {{L"縦断は{}、平面は{}", L"profile {}, plan {}"}, {profile.staStart.text, alignment.staStart.text}},
                    {profile.staStart.value, alignment.staStart.value, SAME_STATION});
            }
        }
    });
}

void CheckStationEquations(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        double label = alignment.staStart.value;
        double internal = alignment.staStart.value;
        for (const StaEquation* const equation : SortedEquations(alignment))
        {
            findings.Measure(EquationName(alignment, *equation), *equation, equation->back,
                             label + equation->internal.value - internal, L"staBack");
            label = equation->ahead.value;
            internal = equation->internal.value;
        }
    });
}

void CheckEquationsRise(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        double last = -std::numeric_limits<double>::infinity();
        for (const StaEquation& equation : alignment.equations)
        {
            if (equation.internal.value <= last)
            {
                findings.Report(EquationName(alignment, equation), equation, {}, {equation.internal.value, last, {}});
            }
            last = equation.internal.IsFinite() ? equation.internal.value : last;
        }
    });
}

void CheckLabelsOnce(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        double label = alignment.staStart.value;
        double internal = alignment.staStart.value;
        for (const StaEquation* const equation : SortedEquations(alignment))
        {
            // What the count had come to, where the file doesn't say it itself.
            const double counted = label + equation->internal.value - internal;
            const Figure back = equation->back.IsFinite() ? equation->back : Figure{{}, counted};
            if (equation->ahead.value < back.value - SAME_STATION)
            {
                findings.Report(EquationName(alignment, *equation), *equation,
                                std::wstring(equation->ahead.text) + L"～" +
                                    NameOr(back.text, ShortNumber(back.value, 3)),
                                {equation->ahead.value, back.value, SAME_STATION});
            }
            label = equation->ahead.value;
            internal = equation->internal.value;
        }
    });
}

void CheckSectionNamesOnce(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        std::unordered_set<std::wstring_view> names;
        for (const CrossSects& sects : alignment.crossSects)
        {
            for (const CrossSect& section : sects.sections)
            {
                if (!section.name.empty() && !names.insert(section.name).second)
                {
                    findings.Report(Path(NameOf(alignment), NameOf(section)), section);
                }
            }
        }
    });
}

void CheckStationsWithin(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        if (alignment.elements.empty() && !alignment.length.IsFinite())
        {
            return;
        }
        const Course course(alignment);
        for (const PlacedThing& thing : ThingsOf(alignment))
        {
            CheckWithin(alignment, course, thing, findings);
        }
    });
    ForEachIntermediatePoint(
        file, [&](const Alignment& alignment, const Course& course, const PointGroup&, const CgPoint& point) {
            CheckWithin(alignment, course,
                        {{{L"中間点 {}", L"Intermediate point {}"}, {NameOf(point)}}, point.station, point.point},
                        findings);
        });
}

void CheckPointsOnLine(const LandXmlFile& file, Findings& findings)
{
    ForEachIntermediatePoint(
        file, [&](const Alignment&, const Course& course, const PointGroup& group, const CgPoint& point) {
            const std::vector<Position> positions =
                point.station.IsFinite() ? course.At(point.station.value) : std::vector<Position>();
            if (!positions.empty() && point.point.IsPlaced())
            {
                const Position& place = positions.front();
                findings.MeasureGap(
                    Path(NameOf(group), NameOf(point)), point.point,
                    Distance(place.north, place.east, point.point.north.value, point.point.east.value),
                    {{L"計算 {} {}", L"computed {} {}"}, {ShortNumber(place.north, 4), ShortNumber(place.east, 4)}});
            }
        });
}

void CheckPointDirections(const LandXmlFile& file, Findings& findings)
{
    if (!file.units)
    {
        return; // whatever the directions are
    }
    ForEachIntermediatePoint(
        file, [&](const Alignment&, const Course& course, const PointGroup& group, const CgPoint& point) {
            const std::optional<double> direction = ReadAngle(point.direction, file.units->direction);
            if (!direction || !point.station.IsFinite())
            {
                return;
            }
            // At a bend either direction will do.
            double smallest = std::numeric_limits<double>::infinity();
            for (const Position& place : course.At(point.station.value))
            {
                smallest = std::min(smallest, std::abs(SignedAngle(place.azimuth - *direction)));
            }
            findings.MeasureGap(Path(NameOf(group), NameOf(point)), point.point, smallest / RADIANS_OF_A_SECOND,
                                {{L"方向角 {}", L"direction {}"}, {point.direction.text}});
        });
}

} // namespace jlandxml::inspect
