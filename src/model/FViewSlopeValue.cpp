#include "model/FViewSlopeValue.h"

#include "base/Numbers.h"
#include "model/NumberText.h"

#include <cmath>

namespace jlandxml
{

namespace
{

/// The host's free list counts its stations in hundreds of metres.
constexpr double LIST_INTERVAL = 100.0;
constexpr int REST_DIGITS = 6;
constexpr std::int32_t SINGLE_LANE = 1;

} // namespace

void FViewSlopeValue::Clear()
{
    staText.clear();
    staValue.clear();
    leftSlope.clear();
    rightSlope.clear();
}

CompactText FormatIntervalStation(double station, double interval)
{
    const double rest = std::fmod(station, interval);
    FixedBuffer buffer;
    std::string text(TrimmedNumberText(FormatFixed((station - rest) / interval, REST_DIGITS, buffer)));
    text += '+';
    return CompactText::FromUtf8(text.append(FormatFixed(rest, REST_DIGITS, buffer)));
}

bool ParseSlopeValueText(std::wstring_view text, FViewSlopeValue& slopeValue)
{
    const std::size_t first = text.find(L' ');
    if (first == std::wstring_view::npos)
    {
        return false;
    }
    const std::wstring_view slopes = text.substr(first + 1);
    const std::size_t second = slopes.find(L' ');
    slopeValue.Clear();
    slopeValue.staValue = text.substr(0, first);
    slopeValue.staText = FormatIntervalStation(ReadNumber(slopeValue.staValue.Bytes()), LIST_INTERVAL);
    slopeValue.leftSlope = slopes.substr(0, second);
    if (second != std::wstring_view::npos)
    {
        slopeValue.rightSlope = slopes.substr(second + 1);
    }
    return true;
}

std::wstring FormatSlopeValueText(const FViewSlopeValue& slopeValue, std::int32_t singleLaneRoad)
{
    if (singleLaneRoad != SINGLE_LANE)
    {
        return slopeValue.staValue + L" " + slopeValue.leftSlope + L" " + slopeValue.rightSlope;
    }
    const bool leftIsZero =
        slopeValue.leftSlope.empty() || std::fabs(ReadNumber(slopeValue.leftSlope.Bytes())) < GEOMETRY_TOLERANCE;
    return slopeValue.staValue + L" " + (leftIsZero ? slopeValue.rightSlope : slopeValue.leftSlope);
}

} // namespace jlandxml
