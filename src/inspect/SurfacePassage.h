#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
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

/// What few points have: more figures than three coordinates, or a reference.
struct SurfacePointRemark
{
    std::uint32_t point; ///< its place among the points
    std::size_t surplus; ///< figures behind the third
    std::wstring pntRef;
    std::wstring featureRef;
};

/// The values of a point's attributes, and its text.
struct SurfacePointParts
{
    std::string_view id;
    std::string_view pntRef;
    std::string_view featureRef;
    std::string_view text;
};

/// Appends a point, with a remark if there is something to remark.
void AddSurfacePoint(const SurfacePointParts& parts, std::size_t line, std::vector<SurfacePoint>& points,
                     std::vector<SurfacePointRemark>& remarks);

/// The points of a surface that lie farthest to the south, west, bottom, north, east and top, with the file's own text
/// of their coordinates: where they are, the surface is. `Text` owns the text or views it.
template <class Text>
struct FarthestPoints
{
    struct One
    {
        SurfacePoint point{};
        Text text; ///< north, east and height with white space between; empty: there is no such point
    };
    std::array<One, 6> sides;

    void Take(const SurfacePoint& point, std::string_view text)
    {
        TakeSide(0, point.north, sides[0].point.north, point, text, -1);
        TakeSide(1, point.east, sides[1].point.east, point, text, -1);
        TakeSide(2, point.height, sides[2].point.height, point, text, -1);
        TakeSide(3, point.north, sides[3].point.north, point, text, 1);
        TakeSide(4, point.east, sides[4].point.east, point, text, 1);
        TakeSide(5, point.height, sides[5].point.height, point, text, 1);
    }

  private:
    void TakeSide(std::size_t side, double value, double farthest, const SurfacePoint& point, std::string_view text,
                  int sign)
    {
        One& one = sides[side];
        if (std::isfinite(value) && (one.text.empty() || sign * value > sign * farthest))
        {
            one = {point, Text(text)};
        }
    }
};

/// The content of an element that holds nothing but points or faces. Terrain is most of a file's bytes, so it is read
/// straight from them instead of becoming a tree.
struct SurfacePassage
{
    std::vector<SurfacePoint> points;
    std::vector<SurfaceFace> faces;
    std::vector<SurfacePointRemark> remarks;
    FarthestPoints<std::string> farthest;
    std::size_t length = 0; ///< bytes of the content
    std::size_t lines = 0;  ///< line ends in it
};

/// Reads the content at the front of `bytes` up to the end tag of Pnts or Faces. Nothing if it holds anything but
/// elements P or F with plain attributes and a plain text: then it is the parser's.
std::optional<SurfacePassage> ReadSurfacePassage(std::string_view bytes, std::size_t line);

} // namespace jlandxml::inspect
