#pragma once

#include "inspect/LandXmlFile.h"

#include <array>
#include <cstdint>
#include <vector>

namespace jlandxml::inspect
{

/// What surfaces are drawn in: the corner from which they count (south, west, lowest) and the size of their unit, in
/// metres.
struct TerrainBox
{
    double north = 0;
    double east = 0;
    double height = 0;
    double unit = 1;               ///< the longest side of the box
    std::array<double, 3> sizes{}; ///< of the box to the east, to the north and upward, in units
};

/// The box round all points of surfaces that can lie on earth.
TerrainBox BoxOf(const std::vector<Surface>& surfaces);

/// A surface as triangles for drawing: places to the east, to the north and upward as parts of 65535 of the box's unit,
/// and three of their numbers for each triangle.
struct TerrainMesh
{
    std::vector<std::array<std::uint16_t, 3>> places;
    std::vector<std::array<std::uint32_t, 3>> triangles;
    std::size_t whole = 0; ///< the triangles that the surface has
};

/// The triangles of a surface. If there are more than `most`, points that lie in one square of a grid become one of
/// them, and triangles that lose a corner by that are left out.
TerrainMesh MeshOf(const Surface& surface, const TerrainBox& box, std::size_t most);

} // namespace jlandxml::inspect
