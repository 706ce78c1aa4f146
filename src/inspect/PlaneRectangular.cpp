#include "inspect/PlaneRectangular.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "inspect/Angles.h"
#include "inspect/Limits.h"

#include <array>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

/// A zone's origin, and the box of latitudes and longitudes round the prefectures and islands for which it is used, in
/// degrees, rounded outward.
struct Zone
{
    double latitude;
    double longitude;
    double west;
    double south;
    double east;
    double north;
};
constexpr double Degrees(double degrees, double minutes)
{
    return degrees + minutes / 60;
}
constexpr Zone ZONES[PLANE_RECTANGULAR_ZONES] = {
    {33, Degrees(129, 30), 128.09, 26.96, 130.46, 34.74}, // 1: 長崎, islands of 鹿児島
    {33, 131, 129.73, 30.18, 132.19, 34.26},              // 2: 福岡 佐賀 熊本 大分 宮崎 鹿児島
    {36, Degrees(132, 10), 130.77, 33.70, 133.49, 37.25}, // 3: 山口 島根 広島
    {33, Degrees(133, 30), 131.95, 32.69, 134.83, 34.57}, // 4: 香川 愛媛 徳島 高知
    {36, Degrees(134, 20), 133.13, 34.13, 135.47, 35.71}, // 5: 兵庫 鳥取 岡山
    {36, 136, 134.85, 33.40, 136.99, 36.33},              // 6: 京都 大阪 福井 滋賀 三重 奈良 和歌山
    {36, Degrees(137, 10), 136.22, 34.51, 137.84, 37.87}, // 7: 石川 富山 岐阜 愛知
    {36, Degrees(138, 30), 137.32, 34.54, 139.91, 38.58}, // 8: 新潟 長野 山梨 静岡
    {36, Degrees(139, 50), 138.40, 29.31, 141.11, 37.98}, // 9: 東京 福島 栃木 茨城 埼玉 千葉 群馬 神奈川
    {40, Degrees(140, 50), 139.49, 37.73, 142.14, 41.58}, // 10: 青森 秋田 山形 岩手 宮城
    {44, Degrees(140, 15), 139.34, 41.34, 141.46, 43.42}, // 11: the south-west of 北海道
    {44, Degrees(142, 15), 140.89, 41.90, 143.90, 45.54}, // 12: 北海道 between 11 and 13, えりも to 湧別
    {44, Degrees(144, 15), 142.61, 42.10, 148.90, 45.57}, // 13: the east of 北海道
    {26, 142, 140.50, 24.22, 143.00, 28.00},              // 14: 東京 south of 28°, 140°30′ to 143°
    {26, Degrees(127, 30), 126.00, 26.02, 130.00, 27.90}, // 15: 沖縄 between 126° and 130°
    {26, 124, 122.83, 23.98, 126.00, 25.95},              // 16: 沖縄 west of 126°
    {26, 131, 130.00, 24.40, 131.38, 26.01},              // 17: 沖縄 east of 130°
    {20, 136, 136.02, 20.37, 140.50, 20.48},              // 18: 東京 south of 28°, west of 140°30′
    {26, 154, 143.00, 24.22, 154.05, 24.35},              // 19: 東京 south of 28°, east of 143°
};

// GRS80, and the scale on the central meridian.
constexpr double MAJOR_AXIS = 6378137;
constexpr double FLATTENING = 1 / 298.257222101;
constexpr double SCALE = 0.9999;

constexpr double N = FLATTENING / (2 - FLATTENING);
constexpr double A0 = 1 + N * N / 4 + N * N * N * N / 64;
constexpr double RECTIFYING_RADIUS = SCALE * MAJOR_AXIS / (1 + N) * A0;

using Series = std::array<double, 3>; ///< factors of the sines of 2, 4 and 6 times an angle

constexpr Series MERIDIAN = {-3.0 / 2 * (N - N * N * N / 8), 15.0 / 16 * N* N, -35.0 / 48 * N* N* N};
constexpr Series BETA = {N / 2 - 2 * N * N / 3 + 37 * N * N * N / 96, N* N / 48 + N* N* N / 15, 17 * N* N* N / 480};
constexpr Series DELTA = {2 * N - 2 * N * N / 3 - 2 * N * N * N, 7 * N* N / 3 - 8 * N* N* N / 5, 56 * N* N* N / 15};

/// The length of the meridian from the equator, on the plane.
double MeridianLength(double latitude)
{
    double sum = A0 * latitude;
    for (std::size_t term = 0; term < MERIDIAN.size(); ++term)
    {
        sum += MERIDIAN[term] * std::sin(2 * static_cast<double>(term + 1) * latitude);
    }
    return SCALE * MAJOR_AXIS / (1 + N) * sum;
}

constexpr std::wstring_view DIGITS = L"0123456789";
constexpr std::wstring_view AXES = L"(X,Y)";

/// The number of a zone at the front of a text.
std::optional<int> LeadingZone(std::wstring_view text)
{
    const std::wstring_view digits = text.substr(0, text.find_first_not_of(DIGITS));
    const int zone = digits.empty() || digits.size() > 2 ? 0 : ParseInt(digits).value;
    return zone >= 1 && zone <= PLANE_RECTANGULAR_ZONES ? std::optional(zone) : std::nullopt;
}

} // namespace

std::optional<int> ReadZone(std::wstring_view name)
{
    name = Trim(name);
    return name.ends_with(AXES) && name.find_first_not_of(DIGITS) == name.size() - AXES.size() ? LeadingZone(name)
                                                                                               : std::nullopt;
}

std::optional<int> ZoneInDescription(std::wstring_view description)
{
    for (const std::wstring_view label : {L"No.", L"Zone"})
    {
        const std::size_t place = description.find(label);
        if (place != std::wstring_view::npos)
        {
            return LeadingZone(Trim(description.substr(place + label.size())));
        }
    }
    const std::size_t place = description.find(L'系');
    if (place == std::wstring_view::npos)
    {
        return {};
    }
    const std::size_t before = description.substr(0, place).find_last_not_of(DIGITS);
    return LeadingZone(description.substr(before == std::wstring_view::npos ? 0 : before + 1));
}

LatitudeLongitude ToLatitudeLongitude(int zone, double north, double east)
{
    const Zone& origin = ZONES[zone - 1];
    const double xi = (north + MeridianLength(origin.latitude * RADIANS_OF_A_DEGREE)) / RECTIFYING_RADIUS;
    const double eta = east / RECTIFYING_RADIUS;
    double xiSphere = xi;
    double etaSphere = eta;
    for (std::size_t term = 0; term < BETA.size(); ++term)
    {
        const double times = 2 * static_cast<double>(term + 1);
        xiSphere -= BETA[term] * std::sin(times * xi) * std::cosh(times * eta);
        etaSphere -= BETA[term] * std::cos(times * xi) * std::sinh(times * eta);
    }
    const double conformal = std::asin(std::sin(xiSphere) / std::cosh(etaSphere));
    double latitude = conformal;
    for (std::size_t term = 0; term < DELTA.size(); ++term)
    {
        latitude += DELTA[term] * std::sin(2 * static_cast<double>(term + 1) * conformal);
    }
    return {latitude / RADIANS_OF_A_DEGREE,
            origin.longitude + std::atan2(std::sinh(etaSphere), std::cos(xiSphere)) / RADIANS_OF_A_DEGREE};
}

bool IsInZone(int zone, double north, double east, double margin)
{
    // Beyond this the series say nothing, and nobody measures there.
    if (!(std::abs(north) < FARTHEST) || !(std::abs(east) < FARTHEST))
    {
        return false;
    }
    const Zone& area = ZONES[zone - 1];
    const LatitudeLongitude place = ToLatitudeLongitude(zone, north, east);
    return place.latitude >= area.south - margin && place.latitude <= area.north + margin &&
           place.longitude >= area.west - margin && place.longitude <= area.east + margin;
}

} // namespace jlandxml::inspect
