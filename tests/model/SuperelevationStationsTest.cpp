#include "model/SuperelevationStations.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(SuperelevationStations, EachClassHasItsElement)
{
    EXPECT_STREQ(FViewBeginRonoutSta().GetElementName(), L"BeginRunoutSta");
    EXPECT_STREQ(FViewBeginRunoffSta().GetElementName(), L"BeginRunoffSta");
    EXPECT_STREQ(FViewStartofRunoutSta().GetElementName(), L"StartofRunoutSta");
    EXPECT_STREQ(FViewEndOfRonoutSta().GetElementName(), L"EndofRunoutSta");
    EXPECT_STREQ(FViewFullSuperSta().GetElementName(), L"FullSuperSta");
    EXPECT_STREQ(FViewRunoffSta().GetElementName(), L"RunoffSta");
    EXPECT_STREQ(FViewAdverseSE().GetElementName(), L"AdverseSE");
}

TEST(SuperelevationStations, AStationThatIsNoNumberIsZero)
{
    EXPECT_EQ(Read<FViewFullSuperSta>(L"<FullSuperSta>12.5</FullSuperSta>").value, 12.5);
    EXPECT_EQ(Read<FViewFullSuperSta>(L"<FullSuperSta>abc</FullSuperSta>").value, 0.0);
    EXPECT_EQ(Read<FViewFullSuperSta>(L"<FullSuperSta/>").value, 0.0);
    EXPECT_EQ(FViewFullSuperSta().value, UNSET_DOUBLE);
}

TEST(SuperelevationStations, OnlyStartAndEndOfRunoutAreWritten)
{
    FViewBeginRunoffSta untouched;
    untouched.value = 5.0;
    EXPECT_EQ(WrittenInto(untouched, L"<S/>"), L"<S/>");
    FViewStartofRunoutSta start;
    start.value = 1200.0;
    EXPECT_EQ(WrittenInto(start, L"<S><x/></S>"), L"<S><x/><StartofRunoutSta>1200.</StartofRunoutSta></S>");
    FViewEndOfRonoutSta end;
    end.value = 1200.5;
    EXPECT_EQ(WrittenInto(end, L"<S><endofrunoutsta/><EndofRunoutSta>7</EndofRunoutSta></S>"),
              L"<S><endofrunoutsta/><EndofRunoutSta>1200.5</EndofRunoutSta></S>");
}

TEST(SuperelevationStations, AnyOtherTextIsAdverse)
{
    EXPECT_TRUE(Read<FViewAdverseSE>(L"<AdverseSE>adverse</AdverseSE>").adverse);
    EXPECT_FALSE(Read<FViewAdverseSE>(L"<AdverseSE>non-adverse</AdverseSE>").adverse);
    EXPECT_TRUE(Read<FViewAdverseSE>(L"<AdverseSE>Non-Adverse</AdverseSE>").adverse);
    EXPECT_TRUE(Read<FViewAdverseSE>(L"<AdverseSE/>").adverse);
}

TEST(SuperelevationStations, AdverseIsWrittenAsItsWord)
{
    FViewAdverseSE adverse;
    EXPECT_EQ(WrittenInto(adverse, L"<S/>"), L"<S><AdverseSE>adverse</AdverseSE></S>");
    adverse.adverse = false;
    EXPECT_EQ(WrittenInto(adverse, L"<S><AdverseSE>adverse</AdverseSE></S>"),
              L"<S><AdverseSE>non-adverse</AdverseSE></S>");
}

} // namespace
} // namespace jlandxml
