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

std::wstring SectionName(const Alignment& alignment, const CrossSect& section)
{
    return Path(NameOf(alignment), NameOf(section));
}

std::wstring SurfaceName(const Alignment& alignment, const CrossSect& section, const DesignCrossSectSurf& surface)
{
    std::wstring name = NameOr(surface.name, L"（名称のない構築形状）");
    const std::wstring_view pavement = PropertyValue(surface.features, L"", L"pavementClass");
    for (const std::wstring_view part : {surface.side, pavement})
    {
        if (!part.empty())
        {
            name.append(L" ").append(part);
        }
    }
    return Path(SectionName(alignment, section), name);
}

/// A point whose height is one; others are given by slope and distance.
bool HasOffsetAndHeight(const CrossSectPnt& point)
{
    return (point.dataFormat.empty() || point.dataFormat == L"Offset Elevation") && point.offset.IsFinite() &&
           point.height.IsFinite();
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
            if (HasOffsetAndHeight(point) && std::abs(point.offset.value - centre) <= SAME_OFFSET)
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
        if (surface.name != PAVEMENT || !surface.IsClosed() || surface.points.size() < 3)
        {
            continue;
        }
        Outline outline{&surface, {}};
        for (const CrossSectPnt& point : surface.points)
        {
            if (HasOffsetAndHeight(point))
            {
                outline.points.emplace_back(point.offset.value, point.height.value);
            }
        }
        layers.push_back(std::move(outline));
    }
    return layers;
}

/// The heights in which a vertical line at an offset lies inside an outline: from each even one to the next.
std::vector<double> Crossings(const Outline& outline, double offset)
{
    std::vector<double> heights;
    for (std::size_t index = 0; index < outline.points.size(); ++index)
    {
        const auto& [fromOffset, fromHeight] = outline.points[index];
        const auto& [toOffset, toHeight] = outline.points[(index + 1) % outline.points.size()];
        if ((fromOffset < offset) != (toOffset < offset))
        {
            heights.push_back(fromHeight + (toHeight - fromHeight) * (offset - fromOffset) / (toOffset - fromOffset));
        }
    }
    std::sort(heights.begin(), heights.end());
    return heights;
}

/// By how much two outlines overlap on a vertical line.
double OverlapAt(const Outline& first, const Outline& second, double offset)
{
    const std::vector<double> one = Crossings(first, offset);
    const std::vector<double> other = Crossings(second, offset);
    double largest = 0;
    for (std::size_t i = 0; i + 1 < one.size(); i += 2)
    {
        for (std::size_t j = 0; j + 1 < other.size(); j += 2)
        {
            largest = std::max(largest, std::min(one[i + 1], other[j + 1]) - std::max(one[i], other[j]));
        }
    }
    return largest;
}

/// The largest overlap of two outlines in height. Between two neighbouring points of either it is largest at one of
/// them or where edges cross, and half way between them it shows.
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
            largest = std::max(largest, OverlapAt(first, second, (offsets[index] + offsets[index - 1]) / 2));
        }
    }
    return largest;
}

} // namespace

void CheckTransitionOrder(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const Superelevation& one : alignment.superelevations)
        {
            const TransitionStation* before = nullptr;
            for (const std::wstring_view kind : TRANSITION_ORDER)
            {
                const auto station = std::find_if(one.stations.begin(), one.stations.end(),
                                                  [&](const TransitionStation& each) { return each.kind == kind; });
                if (station == one.stations.end() || !station->station.IsFinite())
                {
                    continue;
                }
                if (before != nullptr && station->station.value < before->station.value)
                {
                    findings.Report(Path(NameOf(alignment), L"片勾配すりつけ " + std::wstring(one.staStart.text)),
                                    station->line,
                                    std::wstring(before->kind) + L" " + std::wstring(before->station.text) + L"、" +
                                        std::wstring(kind) + L" " + std::wstring(station->station.text));
                }
                before = &*station;
            }
        }
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
        if (!surface.IsClosed() || surface.points.empty() || !HasOffsetAndHeight(surface.points.front()) ||
            !HasOffsetAndHeight(surface.points.back()))
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
                return HasOffsetAndHeight(point) && (point.offset.value - centre) * sign < -SAME_OFFSET;
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
                        isRelative ? 0 : *height,
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
