#include "inspect/CheckStations.h"

#include "inspect/AlignmentReferences.h"
#include "inspect/Angles.h"
#include "inspect/Course.h"
#include "inspect/Limits.h"
#include "inspect/Names.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
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

double EndStation(const Alignment& alignment, const Course& course)
{
    return alignment.length.IsFinite() ? course.StaStart() + std::max(alignment.length.value, 0.0) : course.StaEnd();
}

Range RangeOf(const Alignment& alignment, const Course& course)
{
    Range range;
    range.Take(course.StaStart(), alignment.staStart.text);
    range.Take(EndStation(alignment, course));
    return range;
}

Range RangeOf(const ProfAlign& design)
{
    Range range;
    for (const ProfileElement& element : design.elements)
    {
        range.Take(element.station);
    }
    return range;
}

Range RangeOf(const ProfSurf& ground)
{
    Range range;
    for (const PairList& list : ground.lists)
    {
        for (const FigurePair& pair : list.pairs)
        {
            range.Take(pair.first);
        }
    }
    return range;
}

/// The station of a range that lies nearest to another.
double Nearest(const Range& range, double station)
{
    return std::clamp(station, range.Smallest(), range.Largest());
}

/// The labels of the stretch from one station equation to the next, or from the alignment's start, or to its end.
struct LabelRange
{
    const StaEquation* equation; ///< with which it begins; null at the alignment's start
    Figure first;
    Figure last;
};

std::vector<LabelRange> LabelRanges(const Alignment& alignment)
{
    std::vector<LabelRange> ranges;
    LabelRange range{nullptr, alignment.staStart, {}};
    double internal = alignment.staStart.value;
    for (const StaEquation* const equation : SortedEquations(alignment))
    {
        // What the count had come to, where the file doesn't say it itself.
        const double counted = range.first.value + equation->internal.value - internal;
        range.last = equation->back.IsFinite() ? equation->back : Figure{{}, counted};
        ranges.push_back(range);
        range = {equation, equation->ahead, {}};
        internal = equation->internal.value;
    }
    range.last.value = range.first.value + EndStation(alignment, Course(alignment)) - internal;
    ranges.push_back(range);
    return ranges;
}

/// The labels that were counted so far, as ranges without any between them that touch.
class CountedLabels
{
  public:
    /// Adds a range. The part of it, longer than nothing, that was counted before: the first one.
    std::optional<LabelRange> Add(const LabelRange& range)
    {
        std::optional<LabelRange> twice;
        LabelRange joined = range;
        // One that isn't finite, or runs backwards, counts nothing.
        if (!(range.last.value > range.first.value) || !range.first.IsFinite() || !range.last.IsFinite())
        {
            return twice;
        }
        auto other = ranges_.upper_bound(range.first.value);
        other = other != ranges_.begin() ? std::prev(other) : other;
        while (other != ranges_.end() && other->second.first.value <= joined.last.value)
        {
            const LabelRange& before = other->second;
            if (before.last.value < range.first.value)
            {
                ++other;
                continue;
            }
            const LabelRange common{nullptr, Later(range.first, before.first), Earlier(range.last, before.last)};
            twice = !twice && common.last.value - common.first.value > SAME_STATION ? common : twice;
            joined.first = Earlier(joined.first, before.first);
            joined.last = Later(joined.last, before.last);
            other = ranges_.erase(other);
        }
        ranges_.emplace(joined.first.value, joined);
        return twice;
    }

  private:
    static const Figure& Earlier(const Figure& one, const Figure& other)
    {
        return other.value < one.value ? other : one;
    }
    static const Figure& Later(const Figure& one, const Figure& other) { return other.value > one.value ? other : one; }

    std::map<double, LabelRange> ranges_; ///< by their first labels
};

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
    Severity highest = Severity::Warning;
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

/// A line along an alignment, at that of its ends that lies farther outside: it is one finding however many of its
/// points lie there.
PlacedThing FartherEnd(Detail name, const SourcePlace& place, const Range& line, const Range& alignment)
{
    const bool isBehind = line.Largest() - alignment.Largest() > alignment.Smallest() - line.Smallest();
    return {std::move(name), isBehind ? line.LargestFigure() : line.SmallestFigure(), place, Severity::Information};
}

/// The highest grade of a station outside a range of which either may be rounded.
Severity HighestOf(const Range& range, const Figure& station)
{
    constexpr double ROUNDED = 0.1; // metres
    return std::abs(station.value - Nearest(range, station.value)) <= ROUNDED ? Severity::Information
                                                                              : Severity::Warning;
}

/// Adds the lines of the profiles. Grounds are surveyed beyond the ends of a road; a profile goes on there only by so
/// much as rounded stations bring about.
void AddProfiles(const Alignment& alignment, const Range& range, std::vector<PlacedThing>& things)
{
    for (const Profile& profile : alignment.profiles)
    {
        for (const ProfAlign& design : profile.designs)
        {
            PlacedThing end = FartherEnd(NameOf(design), design, RangeOf(design), range);
            end.highest = HighestOf(range, end.station);
            things.push_back(std::move(end));
        }
        for (const ProfSurf& ground : profile.grounds)
        {
            things.push_back(FartherEnd(NameOf(ground), ground, RangeOf(ground), range));
        }
    }
}

/// All that lies at a station of the alignment itself.
std::vector<PlacedThing> ThingsOf(const Alignment& alignment, const Range& range)
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
    AddProfiles(alignment, range, things);
    AddSuperelevations(alignment, things);
    ForEachStationList(alignment, [&](const Sentence& name, const std::vector<StationEntry>& list) {
        for (const StationEntry& entry : list)
        {
            things.push_back({name, entry.Station(), entry});
        }
    });
    return things;
}

double DistanceTo(const Position& place, const CgPoint& point)
{
    return Distance(place.north, place.east, point.point.north.value, point.point.east.value);
}

/// How far a point lies from where a course has its station; infinitely far if it has none there.
double DistanceFrom(const Course& course, const CgPoint& point)
{
    double smallest = std::numeric_limits<double>::infinity();
    for (const Position& place : course.At(point.station.value))
    {
        const double distance = DistanceTo(place, point);
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

/// Says of a direction that it isn't counted from north, clockwise, up to a full turn, wherever it leads. What rounding
/// puts beyond north stays.
void CheckDirectionRange(const Detail& name, const CgPoint& point, double direction, Findings& findings)
{
    if (direction < -RADIANS_OF_A_SECOND || direction > FULL_TURN + RADIANS_OF_A_SECOND)
    {
        findings.Report(
            name, point.point,
            {{L"方向角 {}、0°から360°の外", L"direction {}, outside of 0° to 360°"}, {point.direction.text}}, {},
            Severity::Warning);
    }
}

/// True if two stations are no longer the same place. The last digits of a binary difference don't part them.
bool IsApart(double station, double other)
{
    const double distance = std::abs(station - other);
    return std::isfinite(distance) && distance > SAME_STATION * (1 + 1e-9);
}

constexpr Sentence OUTSIDE_ALIGNMENT{L"測点 {}、範囲 {}～{}", L"station {}, alignment from {} to {}"};
constexpr Sentence OUTSIDE_PROFILE{L"測点 {}、縦断線形の範囲 {}～{}", L"station {}, profile from {} to {}"};

void CheckWithin(const Alignment& alignment, const Range& range, const PlacedThing& thing, const Sentence& words,
                 Findings& findings)
{
    const double nearest = Nearest(range, thing.station.value);
    if (IsApart(thing.station.value, nearest))
    {
        findings.Report(Path(NameOf(alignment), thing.name), thing.place,
                        {words, {thing.station.text, TextOf(range.SmallestFigure()), TextOf(range.LargestFigure())}},
                        {thing.station.value, nearest, SAME_STATION}, thing.highest);
    }
}

/// Says that the profile which sections name doesn't reach one of them on which something is built. One outside of the
/// alignment has been told.
void CheckProfilesReachSections(const Alignment& alignment, const Range& range, Findings& findings)
{
    for (const CrossSects& sects : alignment.crossSects)
    {
        const ProfAlign* const design = NamedDesign(alignment, sects);
        const Range profile = design != nullptr ? RangeOf(*design) : Range();
        for (const CrossSect& section : sects.sections)
        {
            const double station = section.station.value;
            if (!profile.IsEmpty() && !section.designs.empty() && !IsApart(station, Nearest(range, station)))
            {
                CheckWithin(alignment, profile,
                            {NameOf(section), section.station, section, HighestOf(profile, section.station)},
                            OUTSIDE_PROFILE, findings);
            }
        }
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
        CountedLabels counted;
        for (const LabelRange& range : LabelRanges(alignment))
        {
            if (const std::optional<LabelRange> twice = counted.Add(range))
            {
                findings.Report(EquationName(alignment, *range.equation), *range.equation,
                                NameOr(twice->first.text, ShortNumber(twice->first.value, 3)) + L"～" +
                                    NameOr(twice->last.text, ShortNumber(twice->last.value, 3)),
                                {twice->first.value, twice->last.value, SAME_STATION});
            }
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
        const Range range = RangeOf(alignment, Course(alignment));
        for (const PlacedThing& thing : ThingsOf(alignment, range))
        {
            CheckWithin(alignment, range, thing, OUTSIDE_ALIGNMENT, findings);
        }
        CheckProfilesReachSections(alignment, range, findings);
    });
    ForEachIntermediatePoint(
        file, [&](const Alignment& alignment, const Course& course, const PointGroup&, const CgPoint& point) {
            CheckWithin(alignment, RangeOf(alignment, course),
                        {{{L"中間点 {}", L"Intermediate point {}"}, {NameOf(point)}}, point.station, point.point},
                        OUTSIDE_ALIGNMENT, findings);
        });
}

void CheckPointsOnLine(const LandXmlFile& file, Findings& findings)
{
    ForEachIntermediatePoint(
        file, [&](const Alignment&, const Course& course, const PointGroup& group, const CgPoint& point) {
            if (!point.station.IsFinite() || !point.point.IsPlaced())
            {
                return;
            }
            // Where two elements don't meet, either end will do.
            const std::vector<Position> positions = course.At(point.station.value);
            const auto nearest =
                std::min_element(positions.begin(), positions.end(), [&](const Position& one, const Position& other) {
                    return DistanceTo(one, point) < DistanceTo(other, point);
                });
            if (nearest != positions.end())
            {
                findings.MeasureGap(Path(NameOf(group), NameOf(point)), point.point, DistanceTo(*nearest, point),
                                    {{L"計算 {} {}", L"computed {} {}"},
                                     {ShortNumber(nearest->north, 4), ShortNumber(nearest->east, 4)}});
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
            if (!direction)
            {
                return;
            }
            const Detail name = Path(NameOf(group), NameOf(point));
            CheckDirectionRange(name, point, *direction, findings);
            if (!point.station.IsFinite())
            {
                return;
            }
            // At a bend either direction will do.
            double smallest = std::numeric_limits<double>::infinity();
            for (const Position& place : course.At(point.station.value))
            {
                smallest = std::min(smallest, std::abs(SignedAngle(place.azimuth - *direction)));
            }
            findings.MeasureGap(name, point.point, smallest / RADIANS_OF_A_SECOND,
                                {{L"方向角 {}", L"direction {}"}, {point.direction.text}});
        });
}

} // namespace jlandxml::inspect
