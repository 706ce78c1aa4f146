#include "inspect/CheckCrossSections.h"

#include "base/Text.h"
#include "inspect/Names.h"
#include "inspect/ProfileLine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <unordered_set>

namespace jlandxml::inspect
{

namespace
{

constexpr double SAME_OFFSET = 0.001;

/// The stations of a transition in the order in which a vehicle passes them.
constexpr std::wstring_view TRANSITION_ORDER[] = {
    L"BeginRunoutSta", L"BeginRunoffSta", L"FullSuperSta", L"RunoffSta", L"StartofRunoutSta", L"EndofRunoutSta",
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

/// The first point of a design surface at the place of the formation height, and its surface.
struct CentrePoint
{
    const DesignCrossSectSurf* surface = nullptr;
    const CrossSectPnt* point = nullptr;
};

CentrePoint FindCentrePoint(const CrossSect& section)
{
    const double centre = FormationFigure(section, L"clOffset");
    for (const DesignCrossSectSurf& surface : section.designs)
    {
        for (const CrossSectPnt& point : surface.points)
        {
            if (point.IsOffsetAndHeight() && std::abs(point.offset.value - centre) <= SAME_OFFSET)
            {
                return {&surface, &point};
            }
        }
    }
    return {};
}

/// A closed outline as offsets and heights.
struct Outline
{
    const DesignCrossSectSurf* surface;
    std::vector<std::pair<double, double>> points;
};

/// The outlines of a section's pavement layers on a side.
std::vector<Outline> PavementLayers(const CrossSect& section)
{
    std::vector<Outline> layers;
    for (const DesignCrossSectSurf& surface : section.designs)
    {
        if (surface.name != PAVEMENT || !surface.IsClosed() || surface.points.size() < 3 || !surface.HasPlace())
        {
            continue;
        }
        Outline outline{&surface, {}};
        for (const CrossSectPnt& point : surface.points)
        {
            outline.points.emplace_back(point.offset.value, point.height.value);
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

/// The edges of an outline across a strip, from the bottom: from each even one to the next lies the outline's inside.
std::vector<EdgeInStrip> EdgesInStrip(const Outline& outline, double from, double to)
{
    std::vector<EdgeInStrip> edges;
    for (std::size_t index = 0; index < outline.points.size(); ++index)
    {
        const auto& [startOffset, startHeight] = outline.points[index];
        const auto& [endOffset, endHeight] = outline.points[(index + 1) % outline.points.size()];
        if (std::min(startOffset, endOffset) <= from && std::max(startOffset, endOffset) >= to)
        {
            const double slope = (endHeight - startHeight) / (endOffset - startOffset);
            edges.push_back({startHeight + slope * (from - startOffset), startHeight + slope * (to - startOffset)});
        }
    }
    std::sort(edges.begin(), edges.end(),
              [](const EdgeInStrip& one, const EdgeInStrip& other) { return one.At(0.5) < other.At(0.5); });
    return edges;
}

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

double OverlapBetween(const Outline& first, const Outline& second, double from, double to)
{
    const std::vector<EdgeInStrip> one = EdgesInStrip(first, from, to);
    const std::vector<EdgeInStrip> other = EdgesInStrip(second, from, to);
    double largest = 0;
    for (std::size_t i = 0; i + 1 < one.size(); i += 2)
    {
        for (std::size_t j = 0; j + 1 < other.size(); j += 2)
        {
            largest = std::max(largest, OverlapInStrip(&one[i], &other[j]));
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
    double largest = 0;
    for (std::size_t index = 1; index < offsets.size(); ++index)
    {
        if (offsets[index] - offsets[index - 1] > SAME_OFFSET)
        {
            largest = std::max(largest, OverlapBetween(first, second, offsets[index - 1], offsets[index]));
        }
    }
    return largest;
}

Detail SuperelevationName(const Alignment& alignment, const Superelevation& one)
{
    return Path(NameOf(alignment), {{L"片勾配すりつけ {}", L"Superelevation {}"}, {one.staStart.text}});
}

/// Says of two stations of a transition that the second doesn't lie behind the first.
void CheckPair(const Alignment& alignment, const Superelevation& one, const TransitionStation& before,
               const TransitionStation& behind, Findings& findings)
{
    if (behind.station.value < before.station.value)
    {
        findings.Report(SuperelevationName(alignment, one), behind.line,
                        std::wstring(before.kind) + L" " + std::wstring(before.station.text) + L"、" +
                            std::wstring(behind.kind) + L" " + std::wstring(behind.station.text));
    }
}

/// The stations of a Feature of a transition: ReverseCrown or FlatSta, first that in front of the curve.
void CheckFeatureStations(const Alignment& alignment, const Superelevation& one, const Feature& feature,
                          Findings& findings)
{
    TransitionStation before{feature.name, {}, 0};
    for (const Property& property : feature.properties)
    {
        if (property.label == L"sta")
        {
            const TransitionStation station{feature.name, ReadFigure(property.value), property.line};
            CheckPair(alignment, one, before, station, findings);
            before = station.station.IsFinite() ? station : before;
        }
    }
}

} // namespace

void CheckTransitionOrder(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const Superelevation& one : alignment.superelevations)
        {
            CheckPair(alignment, one, {L"staStart", one.staStart, one.line}, {L"staEnd", one.staEnd, one.line},
                      findings);
            const TransitionStation* before = nullptr;
            for (const std::wstring_view kind : TRANSITION_ORDER)
            {
                const auto station = std::find_if(one.stations.begin(), one.stations.end(),
                                                  [&](const TransitionStation& each) { return each.kind == kind; });
                if (station == one.stations.end() || !station->station.IsFinite())
                {
                    continue;
                }
                if (before != nullptr)
                {
                    CheckPair(alignment, one, *before, *station, findings);
                }
                before = &*station;
            }
            for (const Feature& feature : one.features)
            {
                CheckFeatureStations(alignment, one, feature, findings);
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
                    findings.Report(Path(NameOf(alignment), name), entry.line,
                                    {{L"測点 {}", L"station {}"}, {station.text}});
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
                    findings.Report(SectionName(alignment, section), section.line,
                                    {{L"測点 {}", L"station {}"}, {section.station.text}});
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
        findings.MeasureGap(SurfaceName(alignment, section, surface), last.line,
                            std::hypot(last.offset.value - first.offset.value, last.height.value - first.height.value));
    });
}

void CheckGroundFromLeftToRight(const LandXmlFile& file, Findings& findings)
{
    ForEachSection(file, [&](const Alignment& alignment, const CrossSect& section) {
        for (const CrossSectSurf& ground : section.grounds)
        {
            double last = -std::numeric_limits<double>::infinity();
            for (const PairList& list : ground.lists)
            {
                for (const FigurePair& pair : list.pairs)
                {
                    if (pair.first.value < last)
                    {
                        findings.Report(Path(SectionName(alignment, section), ground.name), list.line,
                                        {{L"離れ {}", L"offset {}"}, {pair.first.text}});
                    }
                    last = pair.first.IsFinite() ? pair.first.value : last;
                }
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
                findings.Report(SurfaceName(alignment, section, surface), across->line,
                                {{L"離れ {}", L"offset {}"}, {across->offset.text}});
            }
        });
}

void CheckCentreHeights(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        const ProfAlign* const design = DesignProfile(alignment);
        if (design == nullptr)
        {
            return;
        }
        const ProfileLine line(*design);
        for (const CrossSects& sects : alignment.crossSects)
        {
            for (const CrossSect& section : sects.sections)
            {
                const std::optional<double> height = line.HeightAt(section.station.value);
                const CentrePoint centre = FindCentrePoint(section);
                if (height && centre.point != nullptr)
                {
                    const bool isRelative = centre.surface->IsRelativeToProfile();
                    findings.Measure(
                        SurfaceName(alignment, section, *centre.surface), centre.point->line, centre.point->height,
                        FormationFigure(section, L"fhOffset") + (isRelative ? 0 : *height),
                        {isRelative ? Sentence{L"計画高からの高さ（計画高 {} m）", L"from the formation height of {} m"}
                                    : Sentence{L"標高", L"elevation"},
                         {ShortNumber(*height, 3)}});
                }
            }
        }
    });
}

void CheckPavementLayersApart(const LandXmlFile& file, Findings& findings)
{
    // A section with more layers than this is no pavement, and comparing all of them would take for ever.
    constexpr std::size_t MOST_LAYERS = 100;
    ForEachSection(file, [&](const Alignment& alignment, const CrossSect& section) {
        const std::vector<Outline> layers = PavementLayers(section);
        for (std::size_t i = 0; i < std::min(layers.size(), MOST_LAYERS); ++i)
        {
            for (std::size_t j = 0; j < i; ++j)
            {
                findings.MeasureGap(
                    SurfaceName(alignment, section, *layers[i].surface), layers[i].surface->line,
                    Overlap(layers[j], layers[i]),
                    {{L"{}と重なる", L"over {}"}, {PropertyValue(layers[j].surface->features, L"", L"pavementClass")}});
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
                    findings.Report(Path(NameOf(alignment), {{L"縦断地盤線 {}", L"Ground line {}"}, {ground.name}}),
                                    ground.line, ground.name);
                }
            }
        }
    });
    ForEachSection(file, [&](const Alignment& alignment, const CrossSect& section) {
        for (const CrossSectSurf& ground : section.grounds)
        {
            if (names.count(ground.name) == 0)
            {
                findings.Report(SectionName(alignment, section), ground.line, ground.name);
            }
        }
    });
}

} // namespace jlandxml::inspect
