#pragma once

#include <limits>

namespace jlandxml
{

/// The value of a number that the file doesn't give: the smallest positive normal double. Compared by plain equality;
/// never written.
inline constexpr double UNSET_DOUBLE = std::numeric_limits<double>::min();

/// Below this magnitude a length, a radius or a difference of coordinates counts as zero.
inline constexpr double GEOMETRY_TOLERANCE = 2.220446049250313e-08;

} // namespace jlandxml
