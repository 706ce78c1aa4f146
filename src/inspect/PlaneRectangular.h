#pragma once

#include <optional>
#include <string_view>

namespace jlandxml::inspect
{

/// Degrees of latitude and longitude.
struct LatitudeLongitude
{
    double latitude;
    double longitude;
};

inline constexpr int PLANE_RECTANGULAR_ZONES = 19;

/// The zone in the name of a plane rectangular coordinate system, such as "9(X,Y)"; nothing if it is none of 1 to 19
/// with its axes in that order.
std::optional<int> ReadZone(std::wstring_view name);

/// The zone that a description names by "No. 9", "Zone 9" or 9系; nothing if it names none.
std::optional<int> ZoneInDescription(std::wstring_view description);

/// Latitude and longitude (GRS80) of a place in a zone: north X, east Y in metres. Origins:
/// 平成14年国土交通省告示第9号. Formulas: 河瀬和重,
/// Gauss-Krüger投影における経緯度座標及び平面直角座標相互間の座標換算についてのより簡明な計算方法, 国土地理院時報
/// No.121 (2011), terms up to the third power of n: within a millimetre.
LatitudeLongitude ToLatitudeLongitude(int zone, double north, double east);

/// True if a place lies in the box round the prefectures and islands for which the same notice has a zone used, or no
/// further than `margin` degrees outside.
bool IsInZone(int zone, double north, double east, double margin);

} // namespace jlandxml::inspect
