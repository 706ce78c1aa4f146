#include "inspect/CheckCrossSections.h"

#include "base/Text.h"
#include "inspect/Names.h"
#include "inspect/ProfileLine.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <unordered_set>
#include <vector>

namespace jlandxml::inspect
{

namespace
{

constexpr double SAME_OFFSET = 0.001;

/// A station of a transition and its part in the order in which a vehicle passes them, in front of the curve and
/// behind it: the same for an element, another for a Feature, which has stations on both sides.
struct TransitionStep
{
    std::wstring_view kind;
    std::size_t inFront;
    std::size_t behind;
};
constexpr TransitionStep TRANSITION_STEPS[] = {
    {L"BeginRunoutSta", 0, 0},   {L"BeginRunoffSta", 1, 1}, {L"FullSuperSta", 3, 3}, {L"RunoffSta", 4, 4},
    {L"StartofRunoutSta", 6, 6}, {L"EndofRunoutSta", 7, 7}, {L"FlatSta", 1, 6},      {L"ReverseCrown", 2, 5},
};

constexpr std::wstring_view PAVEMENT = L"Pavement";

template <class Visit>
void ForEachSection(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const CrossSects& sects : alignment.crossSects)
        {
            for (const CrossSect& section : sects.sections)
            {
                visit(alignment, section);
            }
        }
    });
}

/// Visits every section with the height of the profile that it hangs on, if that reaches it.
template <class Visit>
void ForEachSectionOnProfile(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        std::map<const ProfAlign*, std::optional<ProfileLine>> lines;
        for (const CrossSects& sects : alignment.crossSects)
        {
            const ProfAlign* const design = DesignProfile(alignment, sects);
            const auto [line, isNew] = lines.try_emplace(design);
            if (isNew)
            {
                line->second = LineOf(design);
            }
            for (const CrossSect& section : sects.sections)
            {
                visit(alignment, section, line->second ? line->second->HeightAt(section.station.value) : std::nullopt);
            }
        }
    });
}

template <class Visit>
void ForEachDesignSurface(const LandXmlFile& file, Visit&& visit)
{
    ForEachSection(file, [&](const Alignment& alignment, const CrossSect& section) {
        for (const DesignCrossSectSurf& surface : section.designs)
        {
            visit(alignment, section, surface);
        }
    });
}

Detail SectionName(const Alignment& alignment, const CrossSect& section)
{
    return Path(NameOf(alignment), NameOf(section));
}

Detail SurfaceName(const Alignment& alignment, const CrossSect& section, const DesignCrossSectSurf& surface)
{
    Detail name = NameOr(surface.name, Sentence{L"（名称のない構築形状）", L"(design surface without a name)"});
    const std::wstring_view pavement = PropertyValue(surface.features, L"", L"pavementClass");
    for (const std::wstring_view part : {surface.side, pavement})
    {
        if (!part.empty())
        {
            name = name + L" " + part;
        }
    }
    return Path(SectionName(alignment, section), name);
}

/// A figure of the section's Formation: where the formation height lies. 0 if the file doesn't say.
double FormationFigure(const CrossSect& section, const wchar_t* label)
{
    const Figure figure = ReadFigure(PropertyValue(section.features, L"Formation", label));
    return figure.IsFinite() ? figure.value : 0;
}

/// Design surfaces that don't lie at the formation height: below the road or above a new embankment, and structures.
constexpr std::wstring_view OFF_FORMATION_HEIGHT[] = {
    L"SubBase", L"SubGrade", L"Excavation", L"EarthWorkBaseLineFill", L"RetainingWall", L"Drainage", L"Other",
};

/// Those that do where they lie at its place. A strip in the middle may be raised, and of a name that isn't the
/// format's nobody knows.
constexpr std::wstring_view AT_FORMATION_HEIGHT[] = {
    L"Carriageway",  L"RoadShoulder", L"StoppingLane", L"MirginalStrip",
    L"FrontageRoad", L"Track",        L"Crown",        L"Pavement",
};

/// Structures, whose outlines may turn back.
constexpr std::wstring_view STRUCTURES[] = {L"RetainingWall", L"Drainage", L"Other"};

template <std::size_t SIZE>
bool IsAmong(const std::wstring_view (&names)[SIZE], std::wstring_view name)
{
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

/// The height of a design surface at the place of the formation height: that of its point there, or between two points
/// what lies on the straight line from one to the other. The point is the one there, or the first of the two.
struct CentreHeight
{
    const DesignCrossSectSurf* surface;
    const CrossSectPnt* point;
    Figure height;
    double expected; ///< what it should be, as the surface's own points count heights

    /// How far it lies above where it should, however the surface counts heights.
    double Excess() const { return height.value - expected; }
};

/// Every height that a surface has at an offset.
std::vector<CentreHeight> HeightsAt(const DesignCrossSectSurf& surface, double offset, double expected)
{
    std::vector<CentreHeight> heights;
    const CrossSectPnt* before = nullptr;
    for (const CrossSectPnt& point : surface.points)
    {
        if (!point.IsOffsetAndHeight())
        {
            before = nullptr;
            continue;
        }
        const double past = point.offset.value - offset;
        if (std::abs(past) <= SAME_OFFSET)
        {
            heights.push_back({&surface, &point, point.height, expected});
        }
        const double lacking = before != nullptr ? offset - before->offset.value : 0;
        if (past * lacking > 0 && std::min(std::abs(past), std::abs(lacking)) > SAME_OFFSET)
        {
            const double part = lacking / (past + lacking);
            const double height = before->height.value + part * (point.height.value - before->height.value);
            heights.push_back({&surface, before, {{}, height}, expected});
        }
        before = &point;
    }
    return heights;
}

/// The height of a surface at the place of the formation height: of several in a line that nearest to the one expected,
/// of an outline the top. Nothing if the surface doesn't reach that place.
std::optional<CentreHeight> HeightAtFormation(const CrossSect& section, const DesignCrossSectSurf& surface,
                                              double expected)
{
    const std::vector<CentreHeight> heights = HeightsAt(surface, FormationFigure(section, L"clOffset"), expected);
    const auto best =
        std::min_element(heights.begin(), heights.end(), [&](const CentreHeight& one, const CentreHeight& other) {
            return surface.IsClosed() ? one.Excess() > other.Excess()
                                      : std::abs(one.Excess()) < std::abs(other.Excess());
        });
    return best != heights.end() ? std::optional(*best) : std::nullopt;
}

/// The height that a surface should have at the place of the formation height, as its own points count heights.
double FormationHeight(const CrossSect& section, const DesignCrossSectSurf& surface, double profileHeight)
{
    return FormationFigure(section, L"fhOffset") + (surface.IsRelativeToProfile() ? 0 : profileHeight);
}

/// The heights of a section's surfaces at the place of the formation height: of each surface of the road or embankment,
/// and on either side of the top of the pavement, whose other layers lie below it.
std::vector<CentreHeight> CentreHeightsOf(const CrossSect& section, double profileHeight)
{
    std::vector<CentreHeight> heights;
    std::map<std::wstring_view, CentreHeight> tops;
    for (const DesignCrossSectSurf& surface : section.designs)
    {
        const std::optional<CentreHeight> height =
            HeightAtFormation(section, surface, FormationHeight(section, surface, profileHeight));
        if (!height || !IsAmong(AT_FORMATION_HEIGHT, surface.name))
        {
            continue;
        }
        if (!surface.IsClosed())
        {
            heights.push_back(*height);
            continue;
        }
        CentreHeight& top = tops.try_emplace(surface.side, *height).first->second;
        top = height->Excess() > top.Excess() ? *height : top;
    }
    for (const auto& [side, top] : tops)
    {
        heights.push_back(top);
    }
    return heights;
}

void CheckCentreHeight(const Alignment& alignment, const CrossSect& section, double profileHeight, Findings& findings)
{
    for (const auto& [surface, point, height, expected] : CentreHeightsOf(section, profileHeight))
    {
        const bool isRelative = surface->IsRelativeToProfile();
        findings.Measure(SurfaceName(alignment, section, *surface), *point, height, expected,
                         {isRelative
                              ? Sentence{L"計画高からの高さ（計画高 {} m）", L"from the formation height of {} m"}
                              : Sentence{L"標高", L"elevation"},
                          {ShortNumber(profileHeight, 3)}});
    }
}

/// Says that a section tells the place of its formation height beside all of the road or embankment, where no height
/// can be judged. Between the two sides of a divided road it may lie in the open.
void CheckFormationPlace(const Alignment& alignment, const CrossSect& section, Findings& findings)
{
    Range offsets;
    for (const DesignCrossSectSurf& surface : section.designs)
    {
        const bool isRoad = !IsAmong(OFF_FORMATION_HEIGHT, surface.name);
        for (const CrossSectPnt& point : surface.points)
        {
            offsets.Take(point.IsOffsetAndHeight() && isRoad ? point.offset.value : NAN);
        }
    }
    const Figure place = ReadFigure(PropertyValue(section.features, L"Formation", L"clOffset"));
    const bool isBeside = !offsets.IsEmpty() && (place.value < offsets.Smallest() - SAME_OFFSET ||
                                                 place.value > offsets.Largest() + SAME_OFFSET);
    if (isBeside && place.IsFinite())
    {
        findings.Report(SectionName(alignment, section), section,
                        {{L"離れ {}には構築形状がない", L"no surface at the offset {}"}, {place.text}}, {},
                        Severity::Information);
    }
}

/// A closed outline as offsets and heights.
struct Outline
{
    const DesignCrossSectSurf* surface;
    bool isRelative; ///< its heights count from the profile
    std::vector<std::pair<double, double>> points;
};

/// The points to which a line turns back; `direction` is the one in which it has to begin, 0 for either.
std::vector<const CrossSectPnt*> TurningPoints(const DesignCrossSectSurf& surface, int direction)
{
    std::vector<const CrossSectPnt*> turns;
    for (std::size_t index = 1; index < surface.points.size(); ++index)
    {
        const double step = surface.points[index].offset.value - surface.points[index - 1].offset.value;
        if (step * direction < 0)
        {
            turns.push_back(&surface.points[index]);
        }
        direction = step > 0 ? 1 : step < 0 ? -1 : direction;
    }
    return turns;
}

/// The outlines of a section's pavement layers: with heights from the profile where its height is known, else as they
/// are.
std::vector<Outline> PavementLayers(const CrossSect& section, std::optional<double> profileHeight)
{
    // A layer goes there and back. An outline that turns more often than this is none, its order says so, and so many
    // edges above each other would be compared for ever.
    constexpr std::size_t MOST_TURNS = 20;
    std::vector<Outline> layers;
    for (const DesignCrossSectSurf& surface : section.designs)
    {
        if (surface.name != PAVEMENT || !surface.IsClosed() || surface.points.size() < 3 || !surface.HasPlace() ||
            TurningPoints(surface, 0).size() > MOST_TURNS)
        {
            continue;
        }
        const bool isRelative = surface.IsRelativeToProfile();
        const double zero = isRelative ? 0 : profileHeight.value_or(0);
        Outline outline{&surface, isRelative || profileHeight, {}};
        for (const CrossSectPnt& point : surface.points)
        {
            outline.points.emplace_back(point.offset.value, point.height.value - zero);
        }
        layers.push_back(std::move(outline));
    }
    return layers;
}

/// An edge's heights at both ends of a strip between two neighbouring offsets, in which no edge ends.
struct EdgeInStrip
{
    double from;
    double to;

    double At(double part) const { return from + part * (to - from); }
};

/// The edges of an outline across one strip after the other, from left to right.
class EdgeSweep
{
  public:
    explicit EdgeSweep(const Outline& outline)
    {
        for (std::size_t index = 0; index < outline.points.size(); ++index)
        {
            coming_.push_back({outline.points[index], outline.points[(index + 1) % outline.points.size()]});
        }
        std::stable_sort(coming_.begin(), coming_.end(),
                         [](const Edge& one, const Edge& other) { return one.Left() < other.Left(); });
    }

    /// The edges across the next strip, from the bottom: from each even one to the next lies the outline's inside.
    std::vector<EdgeInStrip> EdgesInStrip(double from, double to)
    {
        for (; next_ < coming_.size() && coming_[next_].Left() <= from; ++next_)
        {
            across_.push_back(coming_[next_]);
        }
        std::erase_if(across_, [&](const Edge& edge) { return edge.Right() < to; });
        std::vector<EdgeInStrip> edges;
        for (const Edge& edge : across_)
        {
            edges.push_back({edge.HeightAt(from), edge.HeightAt(to)});
        }
        std::sort(edges.begin(), edges.end(),
                  [](const EdgeInStrip& one, const EdgeInStrip& other) { return one.At(0.5) < other.At(0.5); });
        return edges;
    }

  private:
    /// Between two points, each an offset and a height.
    struct Edge
    {
        std::pair<double, double> start;
        std::pair<double, double> end;

        double Left() const { return std::min(start.first, end.first); }
        double Right() const { return std::max(start.first, end.first); }
        double HeightAt(double offset) const
        {
            const double slope = (end.second - start.second) / (end.first - start.first);
            return start.second + slope * (offset - start.first);
        }
    };

    std::vector<Edge> coming_; ///< by their left ends
    std::size_t next_ = 0;
    std::vector<Edge> across_; ///< the last strip
};

/// Where in a strip two edges cross, as a part of its width; 0 if they don't.
double Crossing(const EdgeInStrip& one, const EdgeInStrip& other)
{
    const double before = one.from - other.from;
    const double behind = one.to - other.to;
    return before * behind < 0 ? before / (before - behind) : 0;
}

/// The largest overlap in height of two insides in a strip: at one of its sides, as seen from within, or where the tops
/// or the bottoms cross.
double OverlapInStrip(const EdgeInStrip* first, const EdgeInStrip* second)
{
    double largest = 0;
    for (const double part : {0.0, 1.0, Crossing(first[0], second[0]), Crossing(first[1], second[1])})
    {
        largest = std::max(largest, std::min(first[1].At(part), second[1].At(part)) -
                                        std::max(first[0].At(part), second[0].At(part)));
    }
    return largest;
}

/// The largest overlap in height of two outlines in a strip, by their edges across it.
double OverlapOfEdges(const std::vector<EdgeInStrip>& first, const std::vector<EdgeInStrip>& second)
{
    double largest = 0;
    for (std::size_t i = 0; i + 1 < first.size(); i += 2)
    {
        for (std::size_t j = 0; j + 1 < second.size(); j += 2)
        {
            largest = std::max(largest, OverlapInStrip(&first[i], &second[j]));
        }
    }
    return largest;
}

/// The largest overlap of two outlines in height.
double Overlap(const Outline& first, const Outline& second)
{
    std::vector<double> offsets;
    for (const Outline* const outline : {&first, &second})
    {
        for (const auto& point : outline->points)
        {
            offsets.push_back(point.first);
        }
    }
    std::sort(offsets.begin(), offsets.end());
    EdgeSweep one(first);
    EdgeSweep other(second);
    double largest = 0;
    for (std::size_t index = 1; index < offsets.size(); ++index)
    {
        const double from = offsets[index - 1];
        const double to = offsets[index];
        if (to - from > SAME_OFFSET)
        {
            largest = std::max(largest, OverlapOfEdges(one.EdgesInStrip(from, to), other.EdgesInStrip(from, to)));
        }
    }
    return largest;
}

void CheckLayersApart(const Alignment& alignment, const CrossSect& section, const Outline& first, const Outline& second,
                      Findings& findings)
{
    findings.MeasureGap(SurfaceName(alignment, section, *second.surface), *second.surface, Overlap(first, second),
                        {{L"{}と重なる", L"over {}"}, {PropertyValue(first.surface->features, L"", L"pavementClass")}});
}

void CheckGroundLine(const Detail& name, const CrossSectSurf& ground, Findings& findings)
{
    double last = -std::numeric_limits<double>::infinity();
    for (const PairList& list : ground.lists)
    {
        for (const FigurePair& pair : list.pairs)
        {
            if (pair.first.value < last)
            {
                findings.Report(name, list, {{L"離れ {}", L"offset {}"}, {pair.first.text}},
                                {pair.first.value, last, {}});
            }
            last = pair.first.IsFinite() ? pair.first.value : last;
        }
    }
}

/// True for a surface on the left of the centre line: by its side, or where it has none, by its points.
bool IsOnTheLeft(const CrossSect& section, const DesignCrossSectSurf& surface)
{
    const double centre = FormationFigure(section, L"clOffset");
    return surface.side == L"left" ||
           (surface.side.empty() && std::all_of(surface.points.begin(), surface.points.end(), [&](const auto& point) {
                return !(point.offset.value > centre + SAME_OFFSET);
            }));
}

/// The point at which a surface leaves its order; null where it keeps it. A surface goes from left to right, or on the
/// left from the centre line outward; the outline of a pavement layer there and back once, wherever it begins.
/// Structures turn as they are built.
const CrossSectPnt* PointOutOfOrder(const CrossSect& section, const DesignCrossSectSurf& surface)
{
    if (IsAmong(STRUCTURES, surface.name) || (surface.IsClosed() && surface.name != PAVEMENT) || !surface.HasPlace())
    {
        return nullptr;
    }
    const bool mayGoEitherWay = surface.IsClosed() || IsOnTheLeft(section, surface);
    const std::size_t turnsAllowed = surface.IsClosed() ? 2 : 0;
    const std::vector<const CrossSectPnt*> turns = TurningPoints(surface, mayGoEitherWay ? 0 : 1);
    return turns.size() > turnsAllowed ? turns[turnsAllowed / 2] : nullptr;
}

Detail SuperelevationName(const Alignment& alignment, const Superelevation& one)
{
    return Path(NameOf(alignment), NameOf(one));
}

/// Says of two stations of a transition that the second lies in front of the first.
void CheckPair(const Alignment& alignment, const Superelevation& one, const TransitionStation& before,
               const TransitionStation& behind, Findings& findings)
{
    if (behind.station.value < before.station.value)
    {
        findings.Report(SuperelevationName(alignment, one), behind,
                        std::wstring(before.kind) + L" " + std::wstring(before.station.text) + L"、" +
                            std::wstring(behind.kind) + L" " + std::wstring(behind.station.text),
                        {behind.station.value, before.station.value, {}});
    }
}

/// Holds the stations of one part of a transition to all of the part in front of it.
void CheckParts(const Alignment& alignment, const Superelevation& one, const std::vector<TransitionStation>& front,
                const std::vector<TransitionStation>& behind, Findings& findings)
{
    std::vector<double> inFront;
    for (const TransitionStation& station : front)
    {
        inFront.push_back(station.station.value);
    }
    std::sort(inFront.begin(), inFront.end());
    for (const TransitionStation& station : behind)
    {
        const auto wrong = inFront.end() - std::upper_bound(inFront.begin(), inFront.end(), station.station.value);
        if (findings.OnlyCounts())
        {
            findings.CountMore(static_cast<std::size_t>(wrong));
            continue;
        }
        for (std::size_t index = 0; wrong > 0 && index < front.size(); ++index)
        {
            CheckPair(alignment, one, front[index], station, findings);
        }
    }
}

/// Those that are figures.
std::vector<TransitionStation> Finite(std::vector<TransitionStation> stations)
{
    std::erase_if(stations, [](const TransitionStation& one) { return !one.station.IsFinite(); });
    return stations;
}

/// The stations of a transition, those of its elements and those of its Features.
std::vector<TransitionStation> AllStations(const Superelevation& one)
{
    std::vector<TransitionStation> stations = one.stations;
    for (const Feature& feature : one.features)
    {
        const std::vector<TransitionStation> listed = StationsOf(feature);
        stations.insert(stations.end(), listed.begin(), listed.end());
    }
    return Finite(std::move(stations));
}

/// The station of a kind; null without one that is a figure.
const TransitionStation* FindStation(const Superelevation& one, std::wstring_view kind)
{
    const auto found = std::find_if(one.stations.begin(), one.stations.end(),
                                    [&](const TransitionStation& each) { return each.kind == kind; });
    return found != one.stations.end() && found->station.IsFinite() ? &*found : nullptr;
}

/// The stations of a transition in the order of travel, part by part; those of one part needn't lie in an order.
using TransitionParts = std::array<std::vector<TransitionStation>, 8>;

/// The middle of the stretch with the full superelevation: what lies in front of it belongs to the way into the curve.
double MiddleOf(const Superelevation& one)
{
    const auto stationOf = [&](std::wstring_view kind, const Figure& otherwise) {
        const TransitionStation* const found = FindStation(one, kind);
        return found != nullptr ? found->station.value : otherwise.value;
    };
    return (stationOf(L"FullSuperSta", one.staStart) + stationOf(L"RunoffSta", one.staEnd)) / 2;
}

TransitionParts PartsOf(const Superelevation& one)
{
    const double middle = MiddleOf(one);
    TransitionParts parts;
    for (const TransitionStation& station : AllStations(one))
    {
        const auto* const step = std::find_if(std::begin(TRANSITION_STEPS), std::end(TRANSITION_STEPS),
                                              [&](const TransitionStep& each) { return each.kind == station.kind; });
        // Without a middle, what may lie on either side of it has no part.
        if (step != std::end(TRANSITION_STEPS) && (step->inFront == step->behind || std::isfinite(middle)))
        {
            parts[station.station.value < middle ? step->inFront : step->behind].push_back(station);
        }
    }
    return parts;
}

/// Says that a superelevation starts behind its full one, or ends before that runs off. Whether its ends are those of
/// the full one or hold the transitions too is the maker's choice.
void CheckEnds(const Alignment& alignment, const Superelevation& one, Findings& findings)
{
    const TransitionStation start{one, L"staStart", one.staStart};
    const TransitionStation end{one, L"staEnd", one.staEnd};
    if (end.station.value < start.station.value)
    {
        CheckPair(alignment, one, start, end, findings);
        return;
    }
    for (const TransitionStation& station : Finite(one.stations))
    {
        const bool isRunoff = station.kind == L"RunoffSta";
        if (isRunoff || station.kind == L"FullSuperSta")
        {
            CheckPair(alignment, one, isRunoff ? station : start, isRunoff ? end : station, findings);
        }
    }
}

} // namespace

void CheckTransitionOrder(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const Superelevation& one : alignment.superelevations)
        {
            CheckEnds(alignment, one, findings);
            for (const Feature& feature : one.features)
            {
                const std::vector<TransitionStation> stations = Finite(StationsOf(feature));
                for (std::size_t index = 1; index < stations.size(); ++index)
                {
                    CheckPair(alignment, one, stations[index - 1], stations[index], findings);
                }
            }
            const std::vector<TransitionStation>* before = nullptr;
            for (const std::vector<TransitionStation>& part : PartsOf(one))
            {
                if (before != nullptr)
                {
                    CheckParts(alignment, one, *before, part, findings);
                }
                before = part.empty() ? before : &part;
            }
        }
    });
}

void CheckStationLists(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        ForEachStationList(alignment, [&](const Sentence& name, const std::vector<StationEntry>& list) {
            double last = -std::numeric_limits<double>::infinity();
            for (const StationEntry& entry : list)
            {
                const Figure station = entry.Station();
                if (station.value < last)
                {
                    findings.Report(Path(NameOf(alignment), name), entry, {{L"測点 {}", L"station {}"}, {station.text}},
                                    {station.value, last, {}});
                }
                last = station.IsFinite() ? station.value : last;
            }
        });
    });
}

void CheckSectionOrder(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const CrossSects& sects : alignment.crossSects)
        {
            double last = -std::numeric_limits<double>::infinity();
            for (const CrossSect& section : sects.sections)
            {
                if (section.station.value <= last)
                {
                    findings.Report(SectionName(alignment, section), section,
                                    {{L"測点 {}", L"station {}"}, {section.station.text}},
                                    {section.station.value, last, {}});
                }
                last = section.station.IsFinite() ? section.station.value : last;
            }
        }
    });
}

void CheckOutlinesClosed(const LandXmlFile& file, Findings& findings)
{
    ForEachDesignSurface(file, [&](const Alignment& alignment, const CrossSect& section,
                                   const DesignCrossSectSurf& surface) {
        if (!surface.IsClosed() || surface.points.empty() || !surface.points.front().IsOffsetAndHeight() ||
            !surface.points.back().IsOffsetAndHeight())
        {
            return;
        }
        const CrossSectPnt& first = surface.points.front();
        const CrossSectPnt& last = surface.points.back();
        findings.MeasureGap(SurfaceName(alignment, section, surface), last,
                            std::hypot(last.offset.value - first.offset.value, last.height.value - first.height.value));
    });
}

void CheckFromLeftToRight(const LandXmlFile& file, Findings& findings)
{
    ForEachSection(file, [&](const Alignment& alignment, const CrossSect& section) {
        for (const CrossSectSurf& ground : section.grounds)
        {
            CheckGroundLine(Path(SectionName(alignment, section), ground.name), ground, findings);
        }
        for (const DesignCrossSectSurf& surface : section.designs)
        {
            if (const CrossSectPnt* const point = PointOutOfOrder(section, surface))
            {
                findings.Report(SurfaceName(alignment, section, surface), *point,
                                {{L"離れ {}", L"offset {}"}, {point->offset.text}},
                                {point->offset.value, point[-1].offset.value, {}});
            }
        }
    });
}

void CheckSides(const LandXmlFile& file, Findings& findings)
{
    ForEachDesignSurface(
        file, [&](const Alignment& alignment, const CrossSect& section, const DesignCrossSectSurf& surface) {
            const int sign = surface.side == L"left" ? -1 : surface.side == L"right" ? 1 : 0;
            const double centre = FormationFigure(section, L"clOffset");
            const auto isAcross = [&](const CrossSectPnt& point) {
                return point.IsOffsetAndHeight() && (point.offset.value - centre) * sign < -SAME_OFFSET;
            };
            const auto across = std::find_if(surface.points.begin(), surface.points.end(), isAcross);
            if (across != surface.points.end())
            {
                findings.Report(SurfaceName(alignment, section, surface), *across,
                                {{L"離れ {}", L"offset {}"}, {across->offset.text}},
                                {across->offset.value, centre, SAME_OFFSET});
            }
        });
}

void CheckCentreHeights(const LandXmlFile& file, Findings& findings)
{
    ForEachSectionOnProfile(
        file, [&](const Alignment& alignment, const CrossSect& section, std::optional<double> profileHeight) {
            if (profileHeight)
            {
                CheckCentreHeight(alignment, section, *profileHeight, findings);
                CheckFormationPlace(alignment, section, findings);
            }
        });
}

void CheckPavementLayersApart(const LandXmlFile& file, Findings& findings)
{
    // A section with more layers than this is no pavement, and comparing all of them would take for ever.
    constexpr std::size_t MOST_LAYERS = 100;
    ForEachSectionOnProfile(
        file, [&](const Alignment& alignment, const CrossSect& section, std::optional<double> profileHeight) {
            const std::vector<Outline> layers = PavementLayers(section, profileHeight);
            for (std::size_t i = 0; i < std::min(layers.size(), MOST_LAYERS); ++i)
            {
                for (std::size_t j = 0; j < i; ++j)
                {
                    // Heights that count from different places tell nothing of each other.
                    if (layers[j].isRelative == layers[i].isRelative)
                    {
                        CheckLayersApart(alignment, section, layers[j], layers[i], findings);
                    }
                }
            }
        });
}

void CheckGroundNames(const LandXmlFile& file, Findings& findings)
{
    std::unordered_set<std::wstring_view> names;
    for (const Surface& surface : file.surfaces)
    {
        names.insert(surface.name);
        names.insert(Trim(surface.desc));
    }
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const Profile& profile : alignment.profiles)
        {
            for (const ProfSurf& ground : profile.grounds)
            {
                if (names.count(ground.name) == 0)
                {
                    findings.Report(Path(NameOf(alignment), NameOf(ground)), ground, ground.name);
                }
            }
        }
    });
    ForEachSection(file, [&](const Alignment& alignment, const CrossSect& section) {
        for (const CrossSectSurf& ground : section.grounds)
        {
            if (names.count(ground.name) == 0)
            {
                findings.Report(SectionName(alignment, section), ground, ground.name);
            }
        }
    });
}

} // namespace jlandxml::inspect
