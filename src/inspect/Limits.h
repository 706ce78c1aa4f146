#pragma once

namespace jlandxml::inspect
{

/// Beyond these, in metres, lies no plane coordinate and no height: a point there is a slip that would leave nothing to
/// see of the others.
inline constexpr double FARTHEST = 2e6;
inline constexpr double HIGHEST = 20000;

/// Stations, in metres, that differ by no more are the same place of an alignment.
inline constexpr double SAME_STATION = 0.001;

/// Stations, in metres, that differ by no more are printed alike.
inline constexpr double SAME_PRINTED_STATION = 0.0005;

} // namespace jlandxml::inspect
