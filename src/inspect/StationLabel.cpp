#include "inspect/StationLabel.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

constexpr double USUAL_INTERVAL = 20;
constexpr double SHORTEST_INTERVAL = 0.01;
/// An interval of millimetres, or a length that is none, gives no list for people.
constexpr double MOST_STATIONS = 20000;

constexpr double LARGEST_COUNT = 1e9;

constexpr double KILOMETRE = 1000;
constexpr double MILLIMETRES = 1000;
constexpr double HALF_MILLIMETRE = 0.0005;

/// A count parted into whole units and millimetres of the rest, so that neither rounds on its own.
struct PartedCount
{
    double units;
    double rest;
};

PartedCount Part(double count, double unit)
{
    // A negative zero would show its sign.
    const double millimetres = std::round(count * MILLIMETRES) + 0.0;
    const double units = std::floor(millimetres / (unit * MILLIMETRES));
    return {units, (millimetres - units * unit * MILLIMETRES) / MILLIMETRES};
}

std::wstring Padded(const std::wstring& digits, std::size_t size)
{
    return digits.size() < size ? std::wstring(size - digits.size(), L'0') + digits : digits;
}

} // namespace

double MainInterval(const Alignment& alignment)
{
    const Figure interval = ReadFigure(PropertyValue(alignment.features, L"Interval", L"main"));
    return interval.IsFinite() && interval.value >= SHORTEST_INTERVAL ? interval.value : USUAL_INTERVAL;
}

StationLabels::StationLabels(const Alignment& alignment)
    : interval_(MainInterval(alignment)),
      isRiver_(alignment.isRiver)
{
    for (const StaEquation& equation : alignment.equations)
    {
        if (equation.ahead.IsFinite() && equation.internal.IsFinite())
        {
            equations_.push_back(&equation);
        }
    }
    std::stable_sort(equations_.begin(), equations_.end(), [](const StaEquation* first, const StaEquation* second) {
        return first->internal.value < second->internal.value;
    });
}

double StationLabels::CountAt(double station) const
{
    const auto behind =
        std::upper_bound(equations_.begin(), equations_.end(), station,
                         [](double value, const StaEquation* equation) { return value < equation->internal.value; });
    return behind == equations_.begin() ? station : station + behind[-1]->ahead.value - behind[-1]->internal.value;
}

void StationLabels::AddMainStations(double start, double end, std::vector<double>& stations) const
{
    const double shift = CountAt(start) - start;
    // Beyond this a count no longer tells neighbouring stations apart.
    if (!(std::abs(start) < LARGEST_COUNT) || !(std::abs(start + shift) < LARGEST_COUNT))
    {
        return;
    }
    for (double number = std::ceil((start + shift - HALF_MILLIMETRE) / interval_); number * interval_ - shift < end;
         ++number)
    {
        stations.push_back(number * interval_ - shift);
    }
}

std::vector<double> StationLabels::MainStations(double first, double last) const
{
    std::vector<double> stations;
    if (!((last - first) / interval_ < MOST_STATIONS))
    {
        return stations;
    }
    // From one equation to the next the labels count through.
    std::vector<double> starts{first};
    for (const StaEquation* const equation : equations_)
    {
        if (equation->internal.value > starts.back() && equation->internal.value <= last)
        {
            starts.push_back(equation->internal.value);
        }
    }
    for (std::size_t index = 0; index < starts.size(); ++index)
    {
        const double end = index + 1 < starts.size() ? starts[index + 1] : last + HALF_MILLIMETRE;
        AddMainStations(starts[index], end, stations);
    }
    return stations;
}

std::wstring StationLabels::At(double station) const
{
    const double count = CountAt(station);
    if (isRiver_)
    {
        const PartedCount parted = Part(count, KILOMETRE);
        const double metres = std::floor(parted.rest);
        const double rest = parted.rest - metres;
        return FormatFixed(parted.units, 0) + L"k" + Padded(FormatFixed(metres, 0), 3) +
               (rest < HALF_MILLIMETRE ? std::wstring() : FormatFixed(rest, 3).substr(1));
    }
    const PartedCount parted = Part(count, interval_);
    return L"No." + FormatFixed(parted.units, 0) +
           (parted.rest < HALF_MILLIMETRE ? std::wstring() : L"+" + FormatFixed(parted.rest, 3));
}

} // namespace jlandxml::inspect
