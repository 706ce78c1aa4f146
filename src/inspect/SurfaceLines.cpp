#include "inspect/SurfaceLines.h"

#include "inspect/Limits.h"
#include "inspect/Summary.h"
#include "inspect/SurfaceEdges.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

namespace jlandxml::inspect
{

namespace
{

PlanSegment Between(const SurfacePoint& from, const SurfacePoint& to)
{
    return {from.north, from.east, to.north, to.east};
}

/// The place on an edge at a height between those of its points: the same to the last digit whichever of them comes
/// first, so that what enters one face where it leaves another is one line.
SurfacePoint PlaceAt(const SurfacePoint& one, const SurfacePoint& other, double height)
{
    const SurfacePoint& from = one.height < other.height ? one : other;
    const SurfacePoint& to = one.height < other.height ? other : one;
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

/// 1, 2 or 5 times a power of ten, and at least so much.
double IntervalFrom(double least)
{
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double times : {1.0, 2.0, 5.0})
    {
        if (power * times >= least)
        {
            return power * times;
        }
    }
    return power * 10;
}

/// Visits the triangles of all faces that are drawn, as their three corners.
template <class Visit>
void ForEachTriangle(const Surface& surface, Visit&& visit)
{
    for (const SurfaceFace& face : surface.faces)
    {
        const auto places = face.isHidden ? std::nullopt : surface.index.PlacesOf(face);
        for (std::size_t corner = 2; places && corner < face.cornerCount; ++corner)
        {
            visit({&surface.points[(*places)[0]], &surface.points[(*places)[corner - 1]],
                   &surface.points[(*places)[corner]]});
        }
    }
}

Range HeightsOf(const Surface& surface)
{
    Range heights;
    for (const SurfacePoint& point : surface.points)
    {
        heights.Take(point.height);
    }
    return heights;
}

/// An interval and the segments that it would give.
struct SegmentCount
{
    double interval;
    double segments;
};

/// From the interval that gives about ten contour lines to the last that gives one. None without a difference in
/// height, or where heights lie beyond those on earth.
std::vector<SegmentCount> SegmentCountsOf(const Surface& surface)
{
    std::vector<SegmentCount> counts;
    const Range heights = HeightsOf(surface);
    const double difference = heights.IsEmpty() ? 0 : heights.Largest() - heights.Smallest();
    if (!(difference > 0.001) || heights.Smallest() < -HIGHEST || heights.Largest() > HIGHEST)
    {
        return counts;
    }
    constexpr double BETWEEN_TWO = 1.5; // of the factors from one interval to the next, 2 and 2.5
    for (double interval = IntervalFrom(difference / 10); interval <= difference;
         interval = IntervalFrom(interval * BETWEEN_TWO))
    {
        counts.push_back({interval, 0});
    }
    ForEachTriangle(surface, [&](const std::array<const SurfacePoint*, 3>& corners) {
        const auto [lowest, highest] = std::minmax({corners[0]->height, corners[1]->height, corners[2]->height});
        if (std::isfinite(lowest) && std::isfinite(highest))
        {
            for (SegmentCount& count : counts)
            {
                count.segments += std::floor(highest / count.interval) - std::floor(lowest / count.interval);
            }
        }
    });
    return counts;
}

/// The finest of the intervals that gives no more segments than that.
const SegmentCount* FinestWithin(const std::vector<SegmentCount>& counts, double most)
{
    const auto found =
        std::find_if(counts.begin(), counts.end(), [&](const SegmentCount& one) { return one.segments <= most; });
    return found != counts.end() ? &*found : nullptr;
}

/// The ends of segments by their places, so that a line finds how it goes on.
class SegmentEnds
{
  public:
    explicit SegmentEnds(const std::vector<PlanSegment>& segments) : segments_(segments), isUsed_(segments.size())
    {
        ends_.reserve(segments.size() * 2);
        for (std::size_t index = 0; index < segments.size(); ++index)
        {
            ends_.push_back({From(index), index});
            ends_.push_back({To(index), index});
        }
        std::sort(ends_.begin(), ends_.end());
    }

    std::array<double, 2> From(std::size_t index) const
    {
        return {segments_[index].northFrom, segments_[index].eastFrom};
    }
    std::array<double, 2> To(std::size_t index) const { return {segments_[index].northTo, segments_[index].eastTo}; }

    /// True the first time for each segment.
    bool Use(std::size_t index) { return !isUsed_[index] && (isUsed_[index] = true); }

    /// Adds to a line what goes on from its end.
    void Follow(PlanLine& line)
    {
        for (bool goesOn = true; goesOn;)
        {
            const std::array<double, 2> end = line.back();
            goesOn = false;
            for (auto next = std::lower_bound(ends_.begin(), ends_.end(), End{end, 0});
                 !goesOn && next != ends_.end() && next->first == end; ++next)
            {
                goesOn = Use(next->second);
                if (goesOn)
                {
                    line.push_back(From(next->second) == end ? To(next->second) : From(next->second));
                }
            }
        }
    }

  private:
    using End = std::pair<std::array<double, 2>, std::size_t>;

    const std::vector<PlanSegment>& segments_;
    std::vector<End> ends_;
    std::vector<bool> isUsed_;
};

} // namespace

std::optional<std::vector<PlanSegment>> OutlineOf(const Surface& surface, std::size_t most)
{
    std::vector<PlanSegment> outline;
    SurfaceEdges(surface).ForEach([&](std::uint32_t first, std::uint32_t second, std::size_t faces) {
        if (faces == 1 && outline.size() <= most)
        {
            outline.push_back(Between(surface.points[first], surface.points[second]));
        }
    });
    return outline.size() <= most ? std::optional(std::move(outline)) : std::nullopt;
}

std::vector<ContourInterval> ContourIntervalsOf(const std::vector<Surface>& surfaces, std::size_t mostSegments)
{
    std::vector<std::vector<SegmentCount>> counts;
    std::transform(surfaces.begin(), surfaces.end(), std::back_inserter(counts), SegmentCountsOf);
    const auto together = [&](double most) {
        return std::accumulate(counts.begin(), counts.end(), 0.0, [&](double sum, const auto& one) {
            const SegmentCount* const finest = FinestWithin(one, most);
            return sum + (finest != nullptr ? finest->segments : 0);
        });
    };
    const auto most = static_cast<double>(mostSegments);
    double share = most;
    while (together(share) > most)
    {
        share /= 2;
    }
    std::vector<ContourInterval> intervals;
    for (const std::vector<SegmentCount>& one : counts)
    {
        const SegmentCount* const finest = FinestWithin(one, share);
        intervals.push_back({one.empty() ? 0 : one.front().interval, finest != nullptr ? finest->interval : 0});
    }
    return intervals;
}

std::vector<Contour> ContoursOf(const Surface& surface, double interval)
{
    std::vector<Contour> contours;
    if (interval <= 0)
    {
        return contours;
    }
    const Range heights = HeightsOf(surface);
    for (double number = std::ceil(heights.Smallest() / interval); number * interval <= heights.Largest(); ++number)
    {
        contours.push_back({number * interval, std::fmod(number, INDEX_CONTOUR) == 0, {}});
    }
    ForEachTriangle(
        surface, [&](const std::array<const SurfacePoint*, 3>& corners) { AddTriangle(corners, interval, contours); });
    return contours;
}

std::vector<PlanLine> Chained(const std::vector<PlanSegment>& segments)
{
    SegmentEnds ends(segments);
    std::vector<PlanLine> lines;
    for (std::size_t index = 0; index < segments.size(); ++index)
    {
        if (ends.From(index) != ends.To(index) && ends.Use(index))
        {
            // From its middle to one end and, turned round, to the other.
            PlanLine line{ends.To(index), ends.From(index)};
            ends.Follow(line);
            std::reverse(line.begin(), line.end());
            ends.Follow(line);
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

} // namespace jlandxml::inspect
