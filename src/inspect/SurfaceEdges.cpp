#include "inspect/SurfaceEdges.h"

#include <numeric>

namespace jlandxml::inspect
{

SurfaceEdges::SurfaceEdges(const Surface& surface) : ends_(surface.points.size() + 1)
{
    const auto forEachEdge = [&](auto&& visit) {
        for (const SurfaceFace& face : surface.faces)
        {
            ForEachEdge(surface, face, visit);
        }
    };
    forEachEdge([&](std::uint32_t first, std::uint32_t) { ++ends_[first + 1]; });
    std::partial_sum(ends_.begin(), ends_.end(), ends_.begin());
    seconds_.resize(ends_.back());
    forEachEdge([&](std::uint32_t first, std::uint32_t second) { seconds_[ends_[first]++] = second; });
    // By now each end is that of the point's own edges.
    ends_.pop_back();
    auto begin = seconds_.begin();
    for (const std::uint32_t edges : ends_)
    {
        const auto end = seconds_.begin() + static_cast<std::ptrdiff_t>(edges);
        std::sort(begin, end);
        begin = end;
    }
}

} // namespace jlandxml::inspect
