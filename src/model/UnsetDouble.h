#pragma once

#include <limits>

namespace jlandxml
{

/// The value of a number that the file doesn't give: the smallest positive normal double. Compared by plain equality;
/// in arithmetic it is a tiny positive number. An attribute or a `Property` of its own isn't written for it; inside a
/// composed text, such as a point of a ground line or a widening, it stands as the point alone (".").
inline constexpr double UNSET_DOUBLE = std::numeric_limits<double>::min();

/// Strictly below this magnitude a radius or a difference of coordinates (metres) or a cross slope (percent) counts as
/// zero.
inline constexpr double GEOMETRY_TOLERANCE = 2.220446049250313e-08;

} // namespace jlandxml
