#include "inspect/OwnFigures.h"

#include "base/Numbers.h"
#include "inspect/Limits.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

/// Sums of lengths differ from a station in their last digits.
constexpr double SAME_FIGURE = 1e-6;

/// A point of a file lies where its station is if both differ by no more, in metres.
constexpr double SAME_PLACE = 0.001;

template <class Value>
void SortByStation(std::vector<std::pair<double, Value>>& list)
{
    std::stable_sort(list.begin(), list.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
}

template <class Value>
const Value* FindAt(const std::vector<std::pair<double, Value>>& list, double station)
{
    const auto found = std::lower_bound(list.begin(), list.end(), station - SAME_FIGURE,
                                        [](const auto& one, double value) { return one.first < value; });
    return found != list.end() && found->first <= station + SAME_FIGURE ? &found->second : nullptr;
}

std::wstring OwnOrComputed(const Figure* own, double computed, int decimals)
{
    if (own != nullptr && std::abs(own->value - computed) <= SAME_PLACE)
    {
        return std::wstring(own->text);
    }
    return std::isfinite(computed) ? FormatFixed(computed, decimals) : std::wstring();
}

} // namespace

OwnFigures::OwnFigures(const AlignmentReferences& references, const Alignment& alignment)
{
    Take(alignment.staStart);
    for (const CrossSects& sects : alignment.crossSects)
    {
        for (const CrossSect& section : sects.sections)
        {
            Take(section.station);
        }
    }
    TakeProfiles(alignment);
    for (const StaEquation& equation : alignment.equations)
    {
        Take(equation.internal);
    }
    for (const Superelevation& one : alignment.superelevations)
    {
        TakeTransition(one);
    }
    TakePoints(references.GroupsOf(alignment));
    ForEachStationList(alignment, [this](const Sentence&, const std::vector<StationEntry>& list) {
        for (const StationEntry& entry : list)
        {
            Take(entry.Station());
        }
    });
    SortByStation(stations_);
    SortByStation(points_);
}

void OwnFigures::Take(const Figure& station)
{
    if (station.IsFinite())
    {
        stations_.emplace_back(station.value, station);
    }
}

void OwnFigures::TakeTransition(const Superelevation& superelevation)
{
    const auto take = [this](const std::vector<TransitionStation>& stations) {
        for (const TransitionStation& station : stations)
        {
            Take(station.station);
        }
    };
    take(superelevation.stations);
    for (const Feature& feature : superelevation.features)
    {
        take(StationsOf(feature));
    }
    Take(superelevation.staStart);
    Take(superelevation.staEnd);
}

void OwnFigures::TakeProfiles(const Alignment& alignment)
{
    for (const Profile& profile : alignment.profiles)
    {
        for (const ProfAlign& design : profile.designs)
        {
            for (const ProfileElement& element : design.elements)
            {
                Take(element.station);
            }
        }
        for (const ProfSurf& ground : profile.grounds)
        {
            for (const PairList& list : ground.lists)
            {
                for (const FigurePair& pair : list.pairs)
                {
                    Take(pair.first);
                }
            }
        }
    }
}

void OwnFigures::TakePoints(const std::vector<const PointGroup*>& groups)
{
    for (const PointGroup* const group : groups)
    {
        if (!group->IsIntermediate())
        {
            continue;
        }
        for (const CgPoint& point : group->points)
        {
            if (point.station.IsFinite())
            {
                Take(point.station);
                points_.emplace_back(point.station.value, &point);
            }
        }
    }
}

const CgPoint* OwnFigures::PointAt(double station) const
{
    const CgPoint* const* const point = FindAt(points_, station);
    return point != nullptr ? *point : nullptr;
}

std::wstring OwnFigures::StationText(double station, int decimals) const
{
    return OwnOrComputed(FindAt(stations_, station), station, decimals);
}

std::wstring OwnFigures::NorthText(double station, double computed, int decimals) const
{
    const CgPoint* const point = PointAt(station);
    return OwnOrComputed(point != nullptr ? &point->point.north : nullptr, computed, decimals);
}

std::wstring OwnFigures::EastText(double station, double computed, int decimals) const
{
    const CgPoint* const point = PointAt(station);
    return OwnOrComputed(point != nullptr ? &point->point.east : nullptr, computed, decimals);
}

std::wstring OwnFigures::DesignHeightText(const std::optional<ProfileLine>& line, double station, int decimals) const
{
    const std::optional<double> height = line ? line->HeightAt(station) : std::nullopt;
    const CgPoint* const point = PointAt(station);
    if (!height || line->OwnHeightAt(station) != nullptr || point == nullptr)
    {
        return HeightText(line, station, decimals);
    }
    return OwnOrComputed(&point->point.height, *height, decimals);
}

} // namespace jlandxml::inspect
