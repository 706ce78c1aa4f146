#include "model/SuperelevationStations.h"

#include "support/RowName.h"
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

template <class Station>
class EachStation : public testing::Test
{};

using Stations = testing::Types<FViewBeginRonoutSta, FViewBeginRunoffSta, FViewStartofRunoutSta, FViewEndOfRonoutSta,
                                FViewFullSuperSta, FViewRunoffSta>;
TYPED_TEST_SUITE(EachStation, Stations);

TYPED_TEST(EachStation, IsReadAnewAndCleared)
{
    XmlText xml(L"<Sta>-2.5</Sta>");
    TypeParam station;
    station.value = 1.0;
    EXPECT_TRUE(station.ReadElement(xml.Root()));
    EXPECT_EQ(station.value, -2.5);
    station.Clear();
    EXPECT_EQ(station.value, UNSET_DOUBLE);
}

struct StationTextCase
{
    double value;
    const wchar_t* text;
};

class StationText : public testing::TestWithParam<StationTextCase>
{};

TEST_P(StationText, HasEightDecimalsAtMost)
{
    FViewStartofRunoutSta station;
    station.value = GetParam().value;
    EXPECT_EQ(WrittenInto(station, L"<S/>"),
              std::wstring(L"<S><StartofRunoutSta>") + GetParam().text + L"</StartofRunoutSta></S>");
}

INSTANTIATE_TEST_SUITE_P(SuperelevationStations, StationText,
                         testing::Values(StationTextCase{150.123456789, L"150.12345679"},
                                         StationTextCase{0.000000004, L"0."}, StationTextCase{-0.000000004, L"0."},
                                         StationTextCase{0.000000006, L"0.00000001"},
                                         StationTextCase{-12.123456789, L"-12.12345679"}),
                         [](const auto& row) { return TextName(std::to_wstring(row.index) + L" " + row.param.text); });

TEST(SuperelevationStations, WritingFailsWhereNoChildCanStand)
{
    EXPECT_FALSE(WrittenOntoText(FViewStartofRunoutSta()));
    EXPECT_FALSE(WrittenOntoText(FViewEndOfRonoutSta()));
    EXPECT_FALSE(WrittenOntoText(FViewAdverseSE()));
    EXPECT_TRUE(WrittenOntoText(FViewBeginRonoutSta()));
    EXPECT_TRUE(WrittenOntoText(FViewBeginRunoffSta()));
    EXPECT_TRUE(WrittenOntoText(FViewFullSuperSta()));
    EXPECT_TRUE(WrittenOntoText(FViewRunoffSta()));
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
    XmlText xml(L"<S/>");
    EXPECT_TRUE(adverse.WriteElement(xml.Root()));
    adverse.Clear();
    EXPECT_TRUE(adverse.adverse);
}

} // namespace
} // namespace jlandxml
