#include "sidefiles/SuperElevationCSVLoader.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "model/NumberText.h"
#include "sidefiles/RouteAlignments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace jlandxml
{

namespace
{

namespace slope_column
{
enum : std::size_t
{
    REGION = 0,
    STATION = 1,
    DESCRIPTION = 2,
    LEFT_SLOPE = 5,
    RIGHT_SLOPE = 9
};
} // namespace slope_column

constexpr std::size_t LEAST_SLOPE_COLUMNS = 4;
constexpr std::string_view TITLE = "Description";
constexpr std::array<std::string_view, 2> ENDS = {"Begin Alignment", "End Alignment"};
constexpr std::string_view IN_BOTH_ENDS = " Alignment";
constexpr std::string_view REVERSE_CROWN = "ReverseCrown";

// Units behind a number, as the host writes them.
constexpr char METRE = 'm';
constexpr char PERCENT = '%';

constexpr std::int32_t NO_REGION = std::numeric_limits<std::int32_t>::min();
constexpr double METRES_PER_KILOMETRE = 1000.0;
constexpr int STATION_DIGITS = 6;
constexpr double STATION_UNITS = 1000000.0;

bool IsEnd(std::string_view description)
{
    return std::find(ENDS.begin(), ENDS.end(), description) != ENDS.end();
}

/// A field that a comma closes; the last one of a row has none.
std::string_view ClosedField(const CsvRow& row, std::size_t column)
{
    return column + 1 < row.Size() ? row[column] : std::string_view();
}

std::string Without(std::string_view text, char removed)
{
    std::string rest(text);
    std::erase(rest, removed);
    return rest;
}

/// The host gives the right slope in the opposite sign.
std::string WithOppositeSign(const std::string& slope)
{
    return slope.starts_with('-') ? slope.substr(1) : "-" + slope;
}

/// The sign between kilometres and metres: the first plus, or else the first minus.
std::size_t FindStationSign(std::string_view station)
{
    const std::size_t plus = station.find('+');
    return plus != std::string_view::npos ? plus : station.find('-');
}

std::string_view WithoutUnit(std::string_view text, char unit)
{
    text.remove_suffix(text.ends_with(unit) ? 1 : 0);
    return text;
}

/// True for kilometres and metres with a sign between them. Without kilometres the metres aren't read either.
bool IsStationText(std::string_view station)
{
    const std::size_t sign = FindStationSign(station);
    if (sign == std::string_view::npos)
    {
        return false;
    }
    const std::string_view kilometres = WithoutUnit(station.substr(0, sign), METRE);
    return IsNumericText(kilometres) && !TrimmedNumberText(kilometres).empty() &&
           IsNumericText(WithoutUnit(station.substr(sign + 1), METRE));
}

/// True for a number with or without its unit behind it, of which a number has been kept.
bool IsSlopeText(std::string_view field, std::string_view kept)
{
    return IsNumericText(WithoutUnit(field, PERCENT)) && IsNumericText(kept) &&
           kept.find_first_of("0123456789") != std::string_view::npos;
}

double TotalStation(const StationParts& parts)
{
    const double kilometres = METRES_PER_KILOMETRE * parts.kilometres;
    return parts.minus ? kilometres - parts.metres : kilometres + parts.metres;
}

CompactText StationText(double station)
{
    FixedBuffer buffer;
    return station == UNSET_DOUBLE ? CompactText() : CompactText::FromUtf8(FixedText(station, STATION_DIGITS, buffer));
}

} // namespace

bool SuperElevationCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<SuperElevationCSVLoadException>(path, [this] {
        rows.Skip(TITLE_ROWS);
        bool isUsed = false;
        ForEachRouteAlignment([&](FViewAlignment& alignment) {
            isUsed = true;
            ReadSlopes(alignment);
            if (alignment.useSlopeList == 0)
            {
                ReplaceReverseCrowns(alignment);
            }
        });
        reverseCrownGroups_.clear();
        CsvRow row;
        if (!isUsed && rows.Next(row))
        {
            WarnOfUnknownRoute(rows.Path());
        }
    });
}

void SuperElevationCSVLoader::ReadSlopes(FViewAlignment& alignment)
{
    CsvRow row;
    alignment.slopeList.reserve(alignment.slopeList.size() + rows.CountRows(LEAST_SLOPE_COLUMNS, IN_BOTH_ENDS));
    while (rows.Next(row))
    {
        if (!IsPassedOver(row, LEAST_SLOPE_COLUMNS) && !IsEnd(row[slope_column::DESCRIPTION]))
        {
            alignment.slopeList.push_back(MakeSlopeValue(row, alignment));
        }
    }
}

/// A row that can't be parsed still gives a value, of four empty texts.
FViewSlopeValue SuperElevationCSVLoader::MakeSlopeValue(const CsvRow& row, const FViewAlignment& alignment)
{
    FViewSlopeValue slopeValue;
    const std::optional<SlopeRow> slope = ParseSlopeRow(row);
    if (!slope)
    {
        WarnOfRow(WarningCause::EmptySlopeRow);
        return slopeValue;
    }
    WarnOfNumbers(row, *slope);
    FixedBuffer buffer;
    const std::string_view total = FormatFixed(TotalStation(ParseStationText(slope->station)), STATION_DIGITS, buffer);
    MakeSlopeStationTexts(CompactText::FromUtf8(TrimmedNumberText(total)), alignment, slopeValue);
    slopeValue.leftSlope = slope->leftSlope;
    slopeValue.rightSlope = slope->rightSlope;
    if (alignment.useSlopeList == 0 && row[slope_column::DESCRIPTION] == REVERSE_CROWN)
    {
        reverseCrownGroups_[RegionOf(row)].push_back(slopeValue.staValue);
    }
    return slopeValue;
}

std::int32_t SuperElevationCSVLoader::RegionOf(const CsvRow& row) const
{
    const std::wstring text = WideFromUtf8(row[slope_column::REGION]);
    const ParsedInt region = ParseInt(text);
    WarnUnless(region.length == text.size(), row, slope_column::REGION);
    return text.empty() ? NO_REGION : region.value;
}

void SuperElevationCSVLoader::WarnOfNumbers(const CsvRow& row, const SlopeRow& slope) const
{
    WarnUnless(IsStationText(row[slope_column::STATION]), row, slope_column::STATION);
    WarnUnless(IsSlopeText(row[slope_column::LEFT_SLOPE], slope.leftSlope.Bytes()), row, slope_column::LEFT_SLOPE);
    WarnUnless(IsSlopeText(ClosedField(row, slope_column::RIGHT_SLOPE), slope.rightSlope.Bytes()), row,
               slope_column::RIGHT_SLOPE);
}

void SuperElevationCSVLoader::WarnUnless(bool isWhole, const CsvRow& row, std::size_t column) const
{
    if (!isWhole)
    {
        WarnOfNumber(column, ClosedField(row, column));
    }
}

/// The regions of the file go to the superelevations of the alignment in turn; what is left over on either side stays
/// as it is.
void SuperElevationCSVLoader::ReplaceReverseCrowns(FViewAlignment& alignment) const
{
    auto superelevation = alignment.superelevations.begin();
    for (const auto& [region, stations] : reverseCrownGroups_)
    {
        if (superelevation == alignment.superelevations.end())
        {
            WarnOf(WarningCause::SurplusRegions,
                   WarningPlace{.file = rows.Path(),
                                .object = alignment.name,
                                .remark = std::to_wstring(reverseCrownGroups_.size()) + L"区間中" +
                                          std::to_wstring(alignment.superelevations.size()) + L"区間を使用"});
            return;
        }
        (superelevation++)->reverseCrownStations = SortStationTexts(stations);
    }
}

std::optional<SlopeRow> ParseSlopeRow(const CsvRow& row)
{
    const std::string_view description = ClosedField(row, slope_column::DESCRIPTION);
    if (description == TITLE || IsEnd(description))
    {
        return std::nullopt;
    }
    SlopeRow slope;
    slope.station = CompactText::FromUtf8(Without(ClosedField(row, slope_column::STATION), METRE));
    slope.leftSlope = CompactText::FromUtf8(Without(ClosedField(row, slope_column::LEFT_SLOPE), PERCENT));
    slope.rightSlope =
        CompactText::FromUtf8(WithOppositeSign(Without(ClosedField(row, slope_column::RIGHT_SLOPE), PERCENT)));
    if (slope.station.empty() || slope.leftSlope.empty() || slope.rightSlope.empty())
    {
        return std::nullopt;
    }
    return slope;
}

StationParts ParseStationText(const CompactText& text)
{
    const std::string station = Without(text.Bytes(), METRE);
    StationParts parts;
    const std::size_t sign = FindStationSign(station);
    parts.minus = sign == std::string::npos || station[sign] == '-';
    if (sign == std::string::npos)
    {
        return parts;
    }
    const std::string_view kilometres = TrimmedNumberText(std::string_view(station).substr(0, sign));
    const std::string_view metres = TrimmedNumberText(std::string_view(station).substr(sign + 1));
    if (!kilometres.empty())
    {
        parts.kilometres = ReadNumber(kilometres);
        parts.metres = ReadNumber(metres);
    }
    return parts;
}

double ToInternalStation(double value, const FViewAlignment& alignment)
{
    const auto& equations = alignment.staEquations;
    const auto inFront = std::find_if(equations.rbegin(), equations.rend(), [&](const FViewStaEquation& equation) {
        return equation.staInternal < value || std::fabs(equation.staInternal - value) < GEOMETRY_TOLERANCE;
    });
    return inFront == equations.rend() ? value : value - (inFront->staAhead - inFront->staInternal);
}

void MakeSlopeStationTexts(const CompactText& totalText, const FViewAlignment& alignment, FViewSlopeValue& slopeValue)
{
    const double total = ReadNumber(totalText.Bytes());
    slopeValue.staText = FormatIntervalStation(total, alignment.mainInterval);
    if (slopeValue.staText.Bytes().find('.') == std::string_view::npos)
    {
        slopeValue.staText = slopeValue.staText + L".";
    }
    slopeValue.staValue = StationText(ToInternalStation(total, alignment));
}

PiCmCopyList<WcStString> SortStationTexts(const PiCmCopyList<WcStString>& stations)
{
    std::vector<double> values;
    for (const WcStString& station : stations)
    {
        const ParsedDouble parsed = ParseDouble(station.Wide());
        if (parsed.length > 0)
        {
            values.push_back(std::round(parsed.value * STATION_UNITS) / STATION_UNITS);
        }
    }
    // What is no number stands behind all numbers, so that the order is defined.
    std::stable_sort(values.begin(), values.end(),
                     [](double one, double other) { return one < other || (!std::isnan(one) && std::isnan(other)); });
    PiCmCopyList<WcStString> sorted;
    std::transform(values.begin(), values.end(), std::back_inserter(sorted),
                   [](double value) { return FormatFixed(value, STATION_DIGITS); });
    return sorted;
}

} // namespace jlandxml
