#include "inspect/PointIndex.h"

#include <algorithm>
#include <numeric>

namespace jlandxml::inspect
{

PointIndex::PointIndex(const std::vector<SurfacePoint>& points)
{
    const auto isOutOfCount = [&](const SurfacePoint& point) {
        return point.id != static_cast<std::size_t>(&point - points.data()) + 1;
    };
    if (std::none_of(points.begin(), points.end(), isOutOfCount))
    {
        countedPoints_ = points.size();
        return;
    }
    std::uint32_t highest = 0;
    for (const SurfacePoint& point : points)
    {
        highest = std::max(highest, point.id);
    }
    isTable_ = highest <= 4 * points.size() + 1000;
    if (isTable_)
    {
        table_.assign(static_cast<std::size_t>(highest) + 1, NO_POINT);
    }
    for (std::uint32_t place = 0; place < points.size(); ++place)
    {
        Add(points[place].id, place);
    }
    std::stable_sort(sorted_.begin(), sorted_.end(),
                     [](const auto& first, const auto& second) { return first.first < second.first; });
}

void PointIndex::Add(std::uint32_t id, std::uint32_t place)
{
    if (id == 0)
    {
        return;
    }
    if (!isTable_)
    {
        sorted_.emplace_back(id, place);
    }
    else if (table_[id] == NO_POINT)
    {
        table_[id] = place;
    }
}

std::uint32_t PointIndex::Find(std::uint32_t id) const
{
    if (countedPoints_ > 0)
    {
        return id != 0 && id <= countedPoints_ ? id - 1 : NO_POINT;
    }
    if (isTable_)
    {
        return id < table_.size() ? table_[id] : NO_POINT;
    }
    const auto found = std::lower_bound(sorted_.begin(), sorted_.end(), std::pair(id, std::uint32_t{0}));
    return found != sorted_.end() && found->first == id ? found->second : NO_POINT;
}

std::optional<std::array<std::uint32_t, 4>> PointIndex::PlacesOf(const SurfaceFace& face) const
{
    std::array<std::uint32_t, 4> places{};
    if (face.cornerCount < 3 || face.cornerCount > places.size())
    {
        return {};
    }
    for (std::size_t corner = 0; corner < face.cornerCount; ++corner)
    {
        places[corner] = Find(face.corners[corner]);
        if (places[corner] == NO_POINT)
        {
            return {};
        }
    }
    return places;
}

std::vector<std::uint64_t> SortedEdges(const Surface& surface, const PointIndex& index)
{
    // Sorted by their first points in counting, since as a rule only some six edges begin at a point.
    std::vector<std::uint32_t> ends(surface.points.size() + 1);
    const auto forEachEdge = [&](auto&& visit) {
        for (const SurfaceFace& face : surface.faces)
        {
            const auto places = face.isHidden ? std::nullopt : index.PlacesOf(face);
            for (std::size_t corner = 0; places && corner < face.cornerCount; ++corner)
            {
                const std::uint32_t from = (*places)[corner];
                const std::uint32_t to = (*places)[corner + 1 == face.cornerCount ? 0 : corner + 1];
                visit(std::min(from, to), std::max(from, to));
            }
        }
    };
    forEachEdge([&](std::uint32_t first, std::uint32_t) { ++ends[first + 1]; });
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::uint64_t> edges(ends.back());
    forEachEdge([&](std::uint32_t first, std::uint32_t second) {
        edges[ends[first]++] = static_cast<std::uint64_t>(first) << 32U | second;
    });
    // By now each end is that of the point's own edges.
    auto begin = edges.begin();
    for (std::size_t place = 0; place < surface.points.size(); ++place)
    {
        const auto end = edges.begin() + static_cast<std::ptrdiff_t>(ends[place]);
        std::sort(begin, end);
        begin = end;
    }
    return edges;
}

} // namespace jlandxml::inspect
