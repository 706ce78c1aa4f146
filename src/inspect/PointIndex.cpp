#include "inspect/PointIndex.h"

#include <algorithm>

namespace jlandxml::inspect
{

PointIndex::PointIndex(const std::vector<SurfacePoint>& points)
{
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
    std::vector<std::uint64_t> edges;
    edges.reserve(surface.faces.size() * 3);
    for (const SurfaceFace& face : surface.faces)
    {
        const auto places = face.isHidden ? std::nullopt : index.PlacesOf(face);
        for (std::size_t corner = 0; places && corner < face.cornerCount; ++corner)
        {
            const std::uint32_t from = (*places)[corner];
            const std::uint32_t to = (*places)[(corner + 1) % face.cornerCount];
            edges.push_back(static_cast<std::uint64_t>(std::min(from, to)) << 32U | std::max(from, to));
        }
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}

} // namespace jlandxml::inspect
