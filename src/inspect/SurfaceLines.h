#pragma once

#include "inspect/LandXmlFile.h"

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

/// A contour line's height with its segments, in no order.
struct Contour
{
    double height;
    std::vector<PlanSegment> segments;
};

/// The edges that one face alone has: a surface's outline and the edges of its holes.
std::vector<PlanSegment> OutlineOf(const Surface& surface);

/// Contour lines at an interval of 1, 2 or 5 times a power of ten that gives about ten of them.
std::vector<Contour> ContoursOf(const Surface& surface);

} // namespace jlandxml::inspect
