#include "inspect/PlaneRectangular.h"

#include <gtest/gtest.h>

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

TEST(PlaneRectangular, OriginsLieInTheirPlaces)
{
    const LatitudeLongitude origin = ToLatitudeLongitude(15, 0, 0);
    EXPECT_NEAR(origin.latitude, 26, 1e-8);
    EXPECT_NEAR(origin.longitude, 127.5, 1e-8);
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
