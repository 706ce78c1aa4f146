#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace jlandxml::inspect
{

/// A point of a surface (P). Metres; not numbers where the file has no coordinates. Id 0 is no valid one.
struct SurfacePoint
{
    double north;
    double east;
    double height;
    std::uint32_t id;
    std::uint32_t line;
};

/// A face of a surface (F): the ids of its three or four points, 0 for a fourth that isn't there. An id that is none is
/// 0 too. `isHidden` faces (i="1") close the surface's outline and are no part of it.
struct SurfaceFace
{
    std::array<std::uint32_t, 4> corners;
    std::uint32_t line;
    std::uint8_t cornerCount;
    bool isHidden;
};

/// Reads one point or face from its parts, whoever has taken them apart.
SurfacePoint ReadSurfacePoint(std::string_view id, std::string_view text, std::size_t line);
SurfaceFace ReadSurfaceFace(std::string_view hidden, std::string_view text, std::size_t line);

/// The content of an element that holds nothing but points or faces. Terrain is most of a file's bytes, so it is read
/// straight from them instead of becoming a tree.
struct SurfacePassage
{
    std::vector<SurfacePoint> points;
    std::vector<SurfaceFace> faces;
    std::size_t length = 0; ///< bytes of the content
    std::size_t lines = 0;  ///< line ends in it
};

/// Reads the content at the front of `bytes` up to the end tag of Pnts or Faces. Nothing if it holds anything but
/// elements P or F with plain attributes and a plain text: then it is the parser's.
std::optional<SurfacePassage> ReadSurfacePassage(std::string_view bytes, std::size_t line);

} // namespace jlandxml::inspect
