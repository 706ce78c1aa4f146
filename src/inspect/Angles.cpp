#include "inspect/Angles.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace jlandxml::inspect
{

namespace
{

constexpr std::wstring_view DIGITS = L"0123456789";

constexpr std::wstring_view DMS_UNIT = L"decimal dd.mm.ss";

struct AngleUnit
{
    std::wstring_view name;
    double radians;
};
constexpr AngleUnit ANGLE_UNITS[] = {
    {L"", 1}, // the standard's unit where a file names none
    {L"radians", 1},
    {L"grads", std::numbers::pi / 200},
    {L"decimal degrees", RADIANS_OF_A_DEGREE},
};

/// Null for a unit that LandXML doesn't know, and for that of which one number has three parts.
const AngleUnit* FindAngleUnit(std::wstring_view name)
{
    const auto* const found = std::find_if(std::begin(ANGLE_UNITS), std::end(ANGLE_UNITS),
                                           [&](const AngleUnit& one) { return one.name == name; });
    return found != std::end(ANGLE_UNITS) ? found : nullptr;
}

/// The digits of a number in front of its point and behind it.
struct DecimalDigits
{
    std::wstring whole;
    std::wstring fraction;

    bool AreDigits() const
    {
        const std::wstring all = whole + fraction;
        return !all.empty() && all.find_first_not_of(DIGITS) == std::wstring::npos;
    }

    /// Moves the point so many digits to the right.
    void MovePoint(std::int32_t places)
    {
        const auto right = static_cast<std::size_t>(std::max(places, 0));
        const auto left = static_cast<std::size_t>(std::max(-places, 0));
        fraction.resize(std::max(fraction.size(), right), L'0');
        whole.append(fraction, 0, right);
        fraction.erase(0, right);
        whole.insert(0, left - std::min(left, whole.size()), L'0');
        fraction.insert(0, whole, whole.size() - left);
        whole.resize(whole.size() - left);
    }
};

/// The digits of a number without a sign; nothing if the text is none.
std::optional<DecimalDigits> ReadDigits(std::wstring_view text)
{
    // Beyond these a double is infinite or nothing.
    constexpr std::int32_t LARGEST_EXPONENT = 400;
    const std::size_t mark = std::min(text.find_first_of(L"eE"), text.size());
    const std::wstring_view exponent = text.substr(std::min(mark + 1, text.size()));
    const std::wstring_view mantissa = text.substr(0, mark);
    const std::size_t point = std::min(mantissa.find(L'.'), mantissa.size());
    DecimalDigits digits{std::wstring(mantissa.substr(0, point)),
                         std::wstring(mantissa.substr(std::min(point + 1, mantissa.size())))};
    const ParsedInt places = ParseInt(exponent);
    const bool isWhole = mark == text.size() || (!exponent.empty() && places.length == exponent.size());
    const bool isBounded = places.value >= -LARGEST_EXPONENT && places.value <= LARGEST_EXPONENT;
    if (!isWhole || !isBounded || !digits.AreDigits())
    {
        return {};
    }
    digits.MovePoint(places.value);
    return digits;
}

} // namespace

double DegreesMinutesSeconds::Radians() const
{
    const double angle = (degrees + minutes / 60 + seconds / 3600) * RADIANS_OF_A_DEGREE;
    return isNegative ? -angle : angle;
}

bool IsDegreesMinutesSeconds(std::wstring_view unit)
{
    return unit == DMS_UNIT;
}

bool IsAngleUnit(std::wstring_view unit)
{
    return IsDegreesMinutesSeconds(unit) || FindAngleUnit(unit) != nullptr;
}

std::optional<DegreesMinutesSeconds> ReadDegreesMinutesSeconds(std::wstring_view text)
{
    const bool isNegative = text.starts_with(L'-');
    text.remove_prefix(isNegative || text.starts_with(L'+') ? 1 : 0);
    std::optional<DecimalDigits> digits = ReadDigits(text);
    if (!digits)
    {
        return {};
    }
    std::wstring& fraction = digits->fraction;
    fraction.resize(std::max<std::size_t>(fraction.size(), 4), L'0');
    const std::wstring seconds = fraction.substr(2, 2) + L'.' + fraction.substr(4);
    return DegreesMinutesSeconds{isNegative, ParseDecimal(digits->whole), ParseDecimal(fraction.substr(0, 2)),
                                 ParseDecimal(seconds)};
}

std::optional<double> ReadAngle(const Figure& figure, std::wstring_view unit)
{
    if (!figure.IsFinite())
    {
        return {};
    }
    if (IsDegreesMinutesSeconds(unit))
    {
        const std::optional<DegreesMinutesSeconds> angle = ReadDegreesMinutesSeconds(figure.text);
        return angle ? std::optional(angle->Radians()) : std::nullopt;
    }
    const AngleUnit* const found = FindAngleUnit(unit);
    return found != nullptr ? std::optional(figure.value * found->radians) : std::nullopt;
}

std::wstring DegreesText(double radians)
{
    // Rounded as a whole, so that no part of it reaches 60.
    constexpr double OF_A_SECOND = 100;
    const double whole =
        std::fmod(std::round(PositiveAngle(radians) / RADIANS_OF_A_SECOND * OF_A_SECOND), 360 * 3600 * OF_A_SECOND);
    const double minutes = std::floor(whole / (60 * OF_A_SECOND));
    const std::wstring seconds = FormatFixed((whole - minutes * 60 * OF_A_SECOND) / OF_A_SECOND, 2);
    const std::wstring rest = FormatFixed(std::fmod(minutes, 60), 0);
    return FormatFixed(std::floor(minutes / 60), 0) + (rest.size() < 2 ? L"-0" : L"-") + rest +
           (seconds.size() < 5 ? L"-0" : L"-") + seconds;
}

double PositiveAngle(double radians)
{
    const double rest = std::fmod(radians, FULL_TURN);
    return rest < 0 ? rest + FULL_TURN : rest;
}

double SignedAngle(double radians)
{
    return std::remainder(radians, FULL_TURN);
}

} // namespace jlandxml::inspect
