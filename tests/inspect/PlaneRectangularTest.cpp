#include "inspect/PlaneRectangular.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <utility>

namespace jlandxml::inspect
{
namespace
{

TEST(PlaneRectangular, PlacesAreThoseOfTheSurveyAuthority)
{
    // An example that the Geospatial Information Authority's calculation gives in zone 9.
    const LatitudeLongitude place = ToLatitudeLongitude(9, 11543.6883, 22916.2436);
    EXPECT_NEAR(place.latitude, 36.103774791667, 1e-8);
    EXPECT_NEAR(place.longitude, 140.087855041667, 1e-8);
}

/// The plane coordinates of a place, by the formulas from latitude and longitude (the same paper's other half, which
/// the program doesn't have).
std::pair<double, double> ToPlane(LatitudeLongitude origin, LatitudeLongitude place)
{
    constexpr double F = 298.257222101;
    constexpr double N = 1 / (2 * F - 1);
    constexpr double DEGREE = std::numbers::pi / 180;
    const double scaled = 0.9999 * 6378137 / (1 + N);
    const double a0 = 1 + N * N / 4 + N * N * N * N / 64;
    const double alpha[] = {N / 2 - 2 * N * N / 3 + 5 * N * N * N / 16, 13 * N * N / 48 - 3 * N * N * N / 5,
                            61 * N * N * N / 240};
    const double meridian[] = {-3 * (N - N * N * N / 8) / 2, 15 * N * N / 16, -35 * N * N * N / 48};
    const double phi = place.latitude * DEGREE;
    const double from = (place.longitude - origin.longitude) * DEGREE;
    const double k = 2 * std::sqrt(N) / (1 + N);
    const double t = std::sinh(std::atanh(std::sin(phi)) - k * std::atanh(k * std::sin(phi)));
    const double xi = std::atan2(t, std::cos(from));
    const double eta = std::atanh(std::sin(from) / std::sqrt(1 + t * t));
    double north = xi;
    double east = eta;
    double toOrigin = a0 * origin.latitude * DEGREE;
    for (int term = 1; term <= 3; ++term)
    {
        north += alpha[term - 1] * std::sin(2 * term * xi) * std::cosh(2 * term * eta);
        east += alpha[term - 1] * std::cos(2 * term * xi) * std::sinh(2 * term * eta);
        toOrigin += meridian[term - 1] * std::sin(2 * term * origin.latitude * DEGREE);
    }
    return {scaled * (a0 * north - toOrigin), scaled * a0 * east};
}

/// A zone's origin as the law gives it, degrees and minutes.
struct Origin
{
    int latitude;
    int longitude;
    int minutes;
    bool isInArea; ///< else it lies at sea, or off the islands for which it serves
};
const Origin ORIGINS[] = {
    {33, 129, 30, true},  {33, 131, 0, true},  {36, 132, 10, true}, {33, 133, 30, true}, {36, 134, 20, false},
    {36, 136, 0, true},   {36, 137, 10, true}, {36, 138, 30, true}, {36, 139, 50, true}, {40, 140, 50, true},
    {44, 140, 15, false}, {44, 142, 15, true}, {44, 144, 15, true}, {26, 142, 0, true},  {26, 127, 30, false},
    {26, 124, 0, false},  {26, 131, 0, true},  {20, 136, 0, false}, {26, 154, 0, false},
};

LatitudeLongitude PlaceOf(const Origin& origin)
{
    return {static_cast<double>(origin.latitude), origin.longitude + origin.minutes / 60.0};
}

TEST(PlaneRectangular, OriginsAreThoseOfTheLaw)
{
    for (int zone = 1; zone <= PLANE_RECTANGULAR_ZONES; ++zone)
    {
        const Origin& origin = ORIGINS[zone - 1];
        const LatitudeLongitude place = ToLatitudeLongitude(zone, 0, 0);
        EXPECT_NEAR(place.latitude, PlaceOf(origin).latitude, 1e-8) << zone;
        EXPECT_NEAR(place.longitude, PlaceOf(origin).longitude, 1e-8) << zone;
        EXPECT_EQ(IsInZone(zone, 0, 0, 0), origin.isInArea) << zone;
    }
}

/// A town or an island with the zone that the law gives it.
struct Town
{
    int zone;
    const char* name;
    LatitudeLongitude place;
};
const Town TOWNS[] = {
    {1, "長崎", {32.75, 129.87}},      {1, "対馬", {34.70, 129.44}},      {1, "奄美", {28.38, 129.49}},
    {1, "与論", {27.04, 128.43}},      {2, "福岡", {33.61, 130.42}},      {2, "沖ノ島", {34.24, 130.11}},
    {2, "佐賀", {33.25, 130.30}},      {2, "熊本", {32.79, 130.74}},      {2, "大分", {33.24, 131.61}},
    {2, "宮崎", {31.91, 131.42}},      {2, "鹿児島", {31.56, 130.56}},    {2, "屋久島", {30.35, 130.53}},
    {3, "山口", {34.19, 131.47}},      {3, "島根", {35.47, 133.05}},      {3, "広島", {34.40, 132.46}},
    {3, "隠岐", {36.21, 133.33}},      {4, "香川", {34.34, 134.04}},      {4, "愛媛", {33.84, 132.77}},
    {4, "徳島", {34.07, 134.56}},      {4, "高知", {33.56, 133.53}},      {4, "小豆島", {34.56, 134.29}},
    {5, "兵庫", {34.69, 135.18}},      {5, "鳥取", {35.50, 134.24}},      {5, "岡山", {34.66, 133.93}},
    {6, "京都", {35.02, 135.76}},      {6, "大阪", {34.69, 135.52}},      {6, "福井", {36.07, 136.22}},
    {6, "滋賀", {35.00, 135.87}},      {6, "三重", {34.73, 136.51}},      {6, "奈良", {34.69, 135.83}},
    {6, "和歌山", {34.23, 135.17}},    {6, "潮岬", {33.44, 135.75}},      {7, "石川", {36.59, 136.63}},
    {7, "舳倉島", {37.85, 136.92}},    {7, "富山", {36.70, 137.21}},      {7, "岐阜", {35.39, 136.72}},
    {7, "愛知", {35.18, 136.91}},      {8, "新潟", {37.90, 139.02}},      {8, "佐渡", {38.03, 138.37}},
    {8, "長野", {36.65, 138.18}},      {8, "山梨", {35.66, 138.57}},      {8, "静岡", {34.98, 138.38}},
    {9, "東京", {35.69, 139.69}},      {9, "八丈島", {33.11, 139.79}},    {9, "福島", {37.75, 140.47}},
    {9, "栃木", {36.57, 139.88}},      {9, "茨城", {36.34, 140.45}},      {9, "埼玉", {35.86, 139.65}},
    {9, "千葉", {35.60, 140.12}},      {9, "群馬", {36.39, 139.06}},      {9, "神奈川", {35.45, 139.64}},
    {10, "青森", {40.82, 140.74}},     {10, "秋田", {39.72, 140.10}},     {10, "山形", {38.24, 140.36}},
    {10, "岩手", {39.70, 141.15}},     {10, "宮城", {38.27, 140.87}},     {11, "函館", {41.77, 140.73}},
    {11, "小樽", {43.19, 141.00}},     {11, "奥尻", {42.17, 139.52}},     {12, "札幌", {43.06, 141.35}},
    {1, "甑島", {31.85, 129.90}},      {2, "水ノ子島", {33.04, 132.18}},  {3, "竹島", {37.24, 131.87}},
    {10, "久六島", {40.53, 139.50}},   {12, "えりも岬", {41.93, 143.24}}, {12, "湧別", {44.15, 143.62}},
    {12, "竜宮台", {44.19, 143.79}},   {12, "室蘭", {42.32, 140.97}},     {13, "広尾", {42.29, 143.31}},
    {12, "旭川", {43.77, 142.36}},     {12, "稚内", {45.42, 141.67}},     {13, "釧路", {42.98, 144.38}},
    {13, "網走", {44.02, 144.27}},     {13, "帯広", {42.92, 143.20}},     {14, "父島", {27.09, 142.19}},
    {14, "硫黄島", {24.78, 141.32}},   {15, "那覇", {26.21, 127.68}},     {15, "伊平屋島", {27.04, 127.97}},
    {16, "石垣", {24.34, 124.16}},     {16, "与那国島", {24.45, 122.95}}, {16, "宮古島", {24.81, 125.28}},
    {17, "南大東島", {25.83, 131.23}}, {18, "沖ノ鳥島", {20.42, 136.07}}, {19, "南鳥島", {24.28, 153.98}},
};

TEST(PlaneRectangular, TownsLieInTheirZones)
{
    for (const Town& town : TOWNS)
    {
        const auto [north, east] = ToPlane(PlaceOf(ORIGINS[town.zone - 1]), town.place);
        const LatitudeLongitude back = ToLatitudeLongitude(town.zone, north, east);
        EXPECT_NEAR(back.latitude, town.place.latitude, 1e-8) << town.name;
        EXPECT_NEAR(back.longitude, town.place.longitude, 1e-8) << town.name;
        EXPECT_TRUE(IsInZone(town.zone, north, east, 0)) << town.name;
    }
}

TEST(PlaneRectangular, ZonesAreReadFromOneToNineteenWithXFirst)
{
    EXPECT_EQ(ReadZone(L"9(X,Y)"), 9);
    EXPECT_EQ(ReadZone(L" 19(X,Y) "), 19);
    for (const wchar_t* const name : {L"", L"0(X,Y)", L"20(X,Y)", L"9(Y,X)", L"9", L"x9(X,Y)", L"999(X,Y)"})
    {
        EXPECT_FALSE(ReadZone(name).has_value());
    }
}

TEST(PlaneRectangular, DescriptionsNameAZone)
{
    EXPECT_EQ(ZoneInDescription(L"Plane Rectangular Coordinate System No. 9 (Kanto)"), 9);
    EXPECT_EQ(ZoneInDescription(L"Japan Zone 12"), 12);
    EXPECT_EQ(ZoneInDescription(L"平面直角座標第10系"), 10);
    EXPECT_FALSE(ZoneInDescription(L"平面直角座標系").has_value());
    EXPECT_FALSE(ZoneInDescription(L"系").has_value());
}

TEST(PlaneRectangular, PlacesFarOutsideAreInNoZone)
{
    EXPECT_TRUE(IsInZone(9, 0, 0, 0));
    EXPECT_FALSE(IsInZone(9, 1e300, 0, 0.1));
    EXPECT_FALSE(IsInZone(9, 0, -200000, 0.1));
}

} // namespace
} // namespace jlandxml::inspect
