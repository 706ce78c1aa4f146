#pragma once

#include "inspect/SurfacePassage.h"

#include <array>
#include <cstddef>
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
    PointIndex() = default;
    explicit PointIndex(const std::vector<SurfacePoint>& points);

    /// The first point of that id; NO_POINT if there is none.
    std::uint32_t Find(std::uint32_t id) const
    {
        if (countedPoints_ > 0)
        {
            return id != 0 && id <= countedPoints_ ? id - 1 : NO_POINT;
        }
        return id < table_.size() ? table_[id] : Look(id);
    }

    /// The places of a face's points; nothing if one of them isn't there or the face has too few or too many.
    std::optional<std::array<std::uint32_t, 4>> PlacesOf(const SurfaceFace& face) const
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

  private:
    void Add(std::uint32_t id, std::uint32_t place);
    std::uint32_t Look(std::uint32_t id) const;

    std::size_t countedPoints_ = 0;                               ///< how many, if the ids count up from 1
    std::vector<std::uint32_t> table_;                            ///< by ids, if they aren't scattered
    std::vector<std::pair<std::uint32_t, std::uint32_t>> sorted_; ///< ids and places, if they are
};

} // namespace jlandxml::inspect
