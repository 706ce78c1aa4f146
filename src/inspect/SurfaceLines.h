#pragma once

#include "inspect/LandXmlFile.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace jlandxml::inspect
{

/// A straight line in the plane, from north and east to north and east, in metres.
struct PlanSegment
{
    double northFrom;
    double eastFrom;
    double northTo;
    double eastTo;
};

/// Places that are joined by straight lines, each north and east in metres.
using PlanLine = std::vector<std::array<double, 2>>;

/// A contour line's height with its segments, in no order.
struct Contour
{
    double height;
    bool isIndex; ///< every fifth one, which is drawn heavier and with its height
    std::vector<PlanSegment> segments;
};

/// The metres of height between the contour lines of a surface: 1, 2 or 5 times a power of ten.
struct ContourInterval
{
    double wanted = 0; ///< gives about ten of them; 0: the surface has none
    double drawn = 0;  ///< the finest from there on that doesn't give too many segments; 0: there is none
};

/// Every so many contour lines one is an index contour.
inline constexpr int INDEX_CONTOUR = 5;

/// The edges that one face alone has: a surface's outline and the edges of its holes. Nothing if they are more than
/// `most`.
std::optional<std::vector<PlanSegment>> OutlineOf(const Surface& surface, std::size_t most);

/// The intervals for surfaces whose contour lines may have so many segments together. None gets more of them than
/// another that wants as many.
std::vector<ContourInterval> ContourIntervalsOf(const std::vector<Surface>& surfaces, std::size_t mostSegments);

/// Contour lines at an interval; none at 0.
std::vector<Contour> ContoursOf(const Surface& surface, double interval);

/// The same segments as lines that go on as long as one ends where another begins.
std::vector<PlanLine> Chained(const std::vector<PlanSegment>& segments);

} // namespace jlandxml::inspect
