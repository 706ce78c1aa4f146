#pragma once

#include "model/UnsetDouble.h"

namespace jlandxml
{

/// The base of geometric values.
class PiGmObject
{};

/// A point of two coordinates in metres; in a profile x is the station and y the elevation. A point that holds nothing
/// has UNSET_DOUBLE in both.
class PiGmPoint : public PiGmObject
{
  public:
    PiGmPoint() = default;
    PiGmPoint(double first, double second) : x(first), y(second) {}

    bool operator==(const PiGmPoint& other) const { return x == other.x && y == other.y; }

    double x = UNSET_DOUBLE;
    double y = UNSET_DOUBLE;
};

} // namespace jlandxml
