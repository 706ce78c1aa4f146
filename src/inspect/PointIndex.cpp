#include "inspect/PointIndex.h"

#include <algorithm>

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
    if (highest <= 4 * points.size() + 1000)
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
    if (table_.empty())
    {
        sorted_.emplace_back(id, place);
    }
    else if (table_[id] == NO_POINT)
    {
        table_[id] = place;
    }
}

std::uint32_t PointIndex::Look(std::uint32_t id) const
{
    const auto found = std::lower_bound(sorted_.begin(), sorted_.end(), std::pair(id, std::uint32_t{0}));
    return found != sorted_.end() && found->first == id ? found->second : NO_POINT;
}

} // namespace jlandxml::inspect
