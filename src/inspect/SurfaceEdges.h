#pragma once

#include "inspect/LandXmlFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace jlandxml::inspect
{

/// Visits the edges of a face that is drawn: the places of both points, the lower one first.
template <class Visit>
void ForEachEdge(const Surface& surface, const SurfaceFace& face, Visit&& visit)
{
    const auto places = face.isHidden ? std::nullopt : surface.index.PlacesOf(face);
    for (std::size_t corner = 0; places && corner < face.cornerCount; ++corner)
    {
        const std::uint32_t from = (*places)[corner];
        const std::uint32_t to = (*places)[corner + 1 == face.cornerCount ? 0 : corner + 1];
        visit(std::min(from, to), std::max(from, to));
    }
}

/// The edges of all faces that are drawn. They are gathered by counting and sorted point by point, since as a rule only
/// some six begin at a point.
class SurfaceEdges
{
  public:
    explicit SurfaceEdges(const Surface& surface);

    /// Visits each edge once, in the order of its points: the places of both, the lower one first, and the number of
    /// its faces.
    template <class Visit>
    void ForEach(Visit&& visit) const
    {
        auto edge = seconds_.begin();
        for (std::uint32_t first = 0; first < ends_.size(); ++first)
        {
            const auto end = seconds_.begin() + static_cast<std::ptrdiff_t>(ends_[first]);
            while (edge != end)
            {
                const auto next = std::find_if(edge, end, [&](std::uint32_t other) { return other != *edge; });
                visit(first, *edge, static_cast<std::size_t>(next - edge));
                edge = next;
            }
        }
    }

  private:
    std::vector<std::uint32_t> ends_;    ///< by first points: behind the last of their edges
    std::vector<std::uint32_t> seconds_; ///< the second points of all edges, once for each face
};

} // namespace jlandxml::inspect
