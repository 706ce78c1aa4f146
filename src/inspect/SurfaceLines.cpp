#include "inspect/SurfaceLines.h"

#include "inspect/Limits.h"
#include "inspect/Summary.h"
#include "inspect/SurfaceEdges.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

/// More segments than this make a page that no browser turns.
constexpr std::size_t MOST_SEGMENTS = 200000;

PlanSegment Between(const SurfacePoint& from, const SurfacePoint& to)
{
    return {from.north, from.east, to.north, to.east};
}

/// The place on an edge at a height between those of its points.
SurfacePoint PlaceAt(const SurfacePoint& from, const SurfacePoint& to, double height)
{
    const double part = (height - from.height) / (to.height - from.height);
    return {from.north + part * (to.north - from.north), from.east + part * (to.east - from.east), height, 0, 0};
}

bool IsCrossed(const SurfacePoint& from, const SurfacePoint& to, double height)
{
    return (from.height < height) != (to.height < height);
}

/// Adds a triangle's part of a contour: it enters through one edge and leaves through another.
void AddCrossing(const std::array<const SurfacePoint*, 3>& corners, Contour& contour)
{
    const SurfacePoint* entered = nullptr;
    SurfacePoint entry{};
    for (std::size_t corner = 0; corner < corners.size(); ++corner)
    {
        const SurfacePoint& from = *corners[corner];
        const SurfacePoint& to = *corners[(corner + 1) % corners.size()];
        if (!IsCrossed(from, to, contour.height))
        {
            continue;
        }
        const SurfacePoint place = PlaceAt(from, to, contour.height);
        if (entered != nullptr)
        {
            contour.segments.push_back(Between(entry, place));
            return;
        }
        entry = place;
        entered = &from;
    }
}

void AddTriangle(const std::array<const SurfacePoint*, 3>& corners, double interval, std::vector<Contour>& contours)
{
    const auto [lowest, highest] = std::minmax({corners[0]->height, corners[1]->height, corners[2]->height});
    if (!std::isfinite(lowest) || !std::isfinite(highest) || contours.empty())
    {
        return;
    }
    const double first = std::floor((lowest - contours.front().height) / interval);
    for (auto index = static_cast<std::size_t>(std::max(first, 0.0));
         index < contours.size() && contours[index].height <= highest; ++index)
    {
        AddCrossing(corners, contours[index]);
    }
}

/// 1, 2 or 5 times a power of ten: at least a tenth of the difference in height.
double IntervalFor(double difference)
{
    const double power = std::pow(10, std::floor(std::log10(difference / 10)));
    for (const double times : {1.0, 2.0, 5.0})
    {
        if (power * times >= difference / 10)
        {
            return power * times;
        }
    }
    return power * 10;
}

std::size_t SegmentCount(const std::vector<Contour>& contours)
{
    std::size_t count = 0;
    for (const Contour& contour : contours)
    {
        count += contour.segments.size();
    }
    return count;
}

} // namespace

std::vector<PlanSegment> OutlineOf(const Surface& surface)
{
    std::vector<PlanSegment> outline;
    SurfaceEdges(surface).ForEach([&](std::uint32_t first, std::uint32_t second, std::size_t faces) {
        if (faces == 1 && outline.size() < MOST_SEGMENTS)
        {
            outline.push_back(Between(surface.points[first], surface.points[second]));
        }
    });
    return outline;
}

std::vector<Contour> ContoursOf(const Surface& surface)
{
    Range heights;
    for (const SurfacePoint& point : surface.points)
    {
        heights.Take(point.height);
    }
    std::vector<Contour> contours;
    // Heights without a difference, or beyond those on earth, have no contours.
    const double difference = heights.IsEmpty() ? 0 : heights.Largest() - heights.Smallest();
    if (!(difference > 0.001) || heights.Smallest() < -HIGHEST || heights.Largest() > HIGHEST)
    {
        return contours;
    }
    const double interval = IntervalFor(difference);
    for (double number = std::ceil(heights.Smallest() / interval); number * interval <= heights.Largest(); ++number)
    {
        contours.push_back({number * interval, {}});
    }
    for (const SurfaceFace& face : surface.faces)
    {
        const auto places = face.isHidden ? std::nullopt : surface.index.PlacesOf(face);
        for (std::size_t corner = 2; places && corner < face.cornerCount; ++corner)
        {
            AddTriangle({&surface.points[(*places)[0]], &surface.points[(*places)[corner - 1]],
                         &surface.points[(*places)[corner]]},
                        interval, contours);
        }
    }
    if (SegmentCount(contours) > MOST_SEGMENTS)
    {
        contours.clear();
    }
    return contours;
}

} // namespace jlandxml::inspect
