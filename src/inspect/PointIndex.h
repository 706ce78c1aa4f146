#pragma once

#include "inspect/LandXmlFile.h"

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace jlandxml::inspect
{

inline constexpr std::uint32_t NO_POINT = std::numeric_limits<std::uint32_t>::max();

/// The places of a surface's points by their ids. As a rule ids count up from 1 without a gap, and an id tells its
/// place by itself; else a table serves, or where they are scattered a sorted list.
class PointIndex
{
  public:
    explicit PointIndex(const std::vector<SurfacePoint>& points);

    /// The first point of that id; NO_POINT if there is none.
    std::uint32_t Find(std::uint32_t id) const;

    /// The places of a face's points; nothing if one of them isn't there or the face has too few or too many.
    std::optional<std::array<std::uint32_t, 4>> PlacesOf(const SurfaceFace& face) const;

  private:
    void Add(std::uint32_t id, std::uint32_t place);

    std::size_t countedPoints_ = 0; ///< how many, if the ids count up from 1
    bool isTable_ = true;
    std::vector<std::uint32_t> table_;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> sorted_;
};

/// The edges of all faces that are drawn, each told by the places of its two points, in ascending order. An edge of two
/// faces stands twice.
std::vector<std::uint64_t> SortedEdges(const Surface& surface, const PointIndex& index);

/// The places of an edge's points.
inline std::uint32_t FirstOf(std::uint64_t edge)
{
    return static_cast<std::uint32_t>(edge >> 32U);
}
inline std::uint32_t SecondOf(std::uint64_t edge)
{
    return static_cast<std::uint32_t>(edge & NO_POINT);
}

} // namespace jlandxml::inspect
