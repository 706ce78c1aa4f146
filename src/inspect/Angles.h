#pragma once

#include "inspect/Figure.h"

#include <numbers>
#include <optional>
#include <string>
#include <string_view>

namespace jlandxml::inspect
{

inline constexpr double FULL_TURN = 2 * std::numbers::pi;
inline constexpr double RADIANS_OF_A_DEGREE = std::numbers::pi / 180;
inline constexpr double RADIANS_OF_A_SECOND = RADIANS_OF_A_DEGREE / 3600;

/// An angle in degrees, minutes and seconds.
struct DegreesMinutesSeconds
{
    bool isNegative = false; ///< of the whole angle; its three parts are never negative
    double degrees = 0;
    double minutes = 0; ///< of arc
    double seconds = 0; ///< of arc

    double Radians() const;
};

/// Reads the digits of an angle in "decimal dd.mm.ss" (LandXML 1.2, angularType): 45.3025 is 45 degrees 30 minutes 25
/// seconds, further digits are decimals of the second. An exponent moves the point: 4.53025e1 is the same. Minutes and
/// seconds are given as they stand, also beyond 59. Nothing if the text is no decimal number.
std::optional<DegreesMinutesSeconds> ReadDegreesMinutesSeconds(std::wstring_view text);

/// True for the unit of angles in which degrees, minutes and seconds stand in one number.
bool IsDegreesMinutesSeconds(std::wstring_view unit);

/// True for a unit of angles that LandXML knows, and where a file names none.
bool IsAngleUnit(std::wstring_view unit);

/// An angle of a file in radians; nothing if the figure is none or the unit isn't one of LandXML's.
std::optional<double> ReadAngle(const Figure& figure, std::wstring_view unit);

/// An angle as calculation sheets show it, from 0 up to a full turn: 62-30-00.00, the seconds to the hundredth.
std::wstring DegreesText(double radians);

/// The same angle in radians, from 0 up to a full turn.
double PositiveAngle(double radians);

/// The same angle in radians, between minus and plus half a turn.
double SignedAngle(double radians);

} // namespace jlandxml::inspect
