#include "model/FViewCoordinateSystem.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

struct DescriptionCase
{
    const char* rule;
    const wchar_t* attributes;
    const wchar_t* datum;
    const wchar_t* zone;
};

class CoordinateSystemDescription : public testing::TestWithParam<DescriptionCase>
{};

TEST_P(CoordinateSystemDescription, GivesDatumAndZone)
{
    const auto system =
        Read<FViewCoordinateSystem>(std::wstring(L"<CoordinateSystem ") + GetParam().attributes + L"/>");
    EXPECT_EQ(system.horizontalDatum, GetParam().datum);
    EXPECT_EQ(system.horizontalCoordinateSystemName, GetParam().zone);
}

INSTANTIATE_TEST_SUITE_P(
    FViewCoordinateSystem, CoordinateSystemDescription,
    testing::Values(
        DescriptionCase{
            "CompleteAttributesWinOverTheDescription",
            L"horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)' desc='Japan GSI Plane No. 12'",
            L"JGD2011", L"9(X,Y)"},
        DescriptionCase{"SevenParametersMeanJGD2011", L"horizontalDatum='JGD2000-7P' desc='zone No. 9 east'",
                        L"JGD2011", L"9(X,Y)"},
        DescriptionCase{"SevenParametersWithoutAZoneMark",
                        L"horizontalDatum='JGD2000-7P' horizontalCoordinateSystemName='9(X,Y)' desc='zone 9'",
                        L"JGD2011", L""},
        DescriptionCase{"DatumAndTwoDigits", L"desc='Japan Geodetic Datum 2011 Plane Zone No. 12'", L"JGD2011",
                        L"12(X,Y)"},
        DescriptionCase{"OneDigitAndABracketIsNoNumber", L"desc='Japan Geodetic Datum 2011 (No. 9)'", L"JGD2011", L""},
        DescriptionCase{"Zone20", L"desc='Japan Geodetic Datum 2000 No. 20'", L"JGD2000", L""},
        DescriptionCase{"Zone0", L"desc='Japan Geodetic Datum 2000 No. 0'", L"JGD2000", L""},
        DescriptionCase{"Zone19", L"desc='Japan Geodetic Datum 2024 No. 19'", L"JGD2024", L"19(X,Y)"},
        DescriptionCase{"Zone1AtTheEnd", L"desc='Japan GSI Plane No. 1'", L"TD", L"1(X,Y)"},
        DescriptionCase{"ASignedZone", L"desc='Japan GSI Plane No. +7'", L"TD", L"7(X,Y)"},
        DescriptionCase{"ALeadingZero", L"desc='Japan GSI Plane No. 09'", L"TD", L"9(X,Y)"},
        DescriptionCase{"TwoBlanksBeforeTheDigit", L"desc='Japan GSI Plane No.  9'", L"TD", L"9(X,Y)"},
        DescriptionCase{"NothingBehindTheMark", L"desc='Japan GSI Plane No. '", L"TD", L""},
        DescriptionCase{"TheFirstMarkCounts", L"desc='No. x Japan GSI Plane No. 9'", L"TD", L""},
        DescriptionCase{"TheTablesOrderDecides",
                        L"desc='Japan Geodetic Datum 2011 and Japan Geodetic Datum 2000 No. 9'", L"JGD2000", L"9(X,Y)"},
        DescriptionCase{"TheTokyoDatumIsTriedFirst", L"desc='Japan Geodetic Datum 2000, before Japan GSI Plane No. 9'",
                        L"TD", L"9(X,Y)"},
        DescriptionCase{"Datum2011IsTriedBeforeDatum2024",
                        L"desc='Japan Geodetic Datum 2024, Japan Geodetic Datum 2011 No. 9'", L"JGD2011", L"9(X,Y)"},
        DescriptionCase{
            "JGD2000IsComplete",
            L"horizontalDatum='JGD2000' horizontalCoordinateSystemName='1(X,Y)' desc='Japan GSI Plane No. 2'",
            L"JGD2000", L"1(X,Y)"},
        DescriptionCase{
            "JGD2024IsComplete",
            L"horizontalDatum='JGD2024' horizontalCoordinateSystemName='1(X,Y)' desc='Japan GSI Plane No. 2'",
            L"JGD2024", L"1(X,Y)"},
        DescriptionCase{"TheCaseCounts", L"desc='japan geodetic datum 2011 No. 9'", L"", L""},
        DescriptionCase{"NoDatumNamedAndNoneGiven", L"horizontalCoordinateSystemName='9(X,Y)' desc='No. 3'", L"",
                        L"9(X,Y)"},
        DescriptionCase{"AnUnknownDatumIsEmptied",
                        L"horizontalDatum='WGS84' horizontalCoordinateSystemName='9(X,Y)' desc='x'", L"", L"9(X,Y)"},
        DescriptionCase{"ADatumWithoutAValidZoneIsEmptied",
                        L"horizontalDatum='JGD2011' horizontalCoordinateSystemName='20(X,Y)' desc='x'", L"",
                        L"20(X,Y)"},
        DescriptionCase{"AnEmptyDescriptionCounts", L"horizontalDatum='JGD2011' desc=''", L"", L""},
        DescriptionCase{"WithoutADescriptionTheAttributesStay",
                        L"horizontalDatum='WGS84' horizontalCoordinateSystemName='x'", L"WGS84", L"x"},
        DescriptionCase{"ANamedDatumTakesThePlaceOfAnUnknownOne",
                        L"horizontalDatum='WGS84' horizontalCoordinateSystemName='x' desc='Japan Geodetic Datum 2011'",
                        L"JGD2011", L""}),
    [](const auto& one) { return one.param.rule; });

TEST(FViewCoordinateSystem, EveryZoneOfTheAttributesIsComplete)
{
    for (int zone = 1; zone <= 19; ++zone)
    {
        const std::wstring name = std::to_wstring(zone) + L"(X,Y)";
        const auto system =
            Read<FViewCoordinateSystem>(L"<CoordinateSystem horizontalDatum='TD' desc='Japan Geodetic Datum 2011' "
                                        L"horizontalCoordinateSystemName='" +
                                        name + L"'/>");
        EXPECT_EQ(system.horizontalDatum, L"TD");
        EXPECT_EQ(system.horizontalCoordinateSystemName, name);
    }
}

TEST(FViewCoordinateSystem, TheLastDifferenceOfTheNamelessFeaturesWins)
{
    const auto system = Read<FViewCoordinateSystem>(
        L"<CoordinateSystem name='CRS' verticalDatum='T.P'><Feature><Property label='differTP' value='1'/>"
        L"<Property label='differTP' value='2'/></Feature><Feature name='f'><Property label='differTP' "
        L"value='3'/></Feature>"
        L"</CoordinateSystem>");
    EXPECT_EQ(system.name, L"CRS");
    EXPECT_EQ(system.verticalDatum, L"T.P");
    EXPECT_EQ(system.differTP, L"2");
}

TEST(FViewCoordinateSystem, ALaterNamelessFeatureOverwritesAnEarlierOneEvenWithAnEmptyValue)
{
    const auto differTP = [](const std::wstring& features) {
        return Read<FViewCoordinateSystem>(L"<CoordinateSystem>" + features + L"</CoordinateSystem>").differTP;
    };
    const std::wstring two = L"<Feature><Property label='differTP' value='1'/></Feature>"
                             L"<Feature><Property label='differTP' value='2'/></Feature>";
    EXPECT_EQ(differTP(two), L"2");
    EXPECT_EQ(differTP(two + L"<Feature><Property label='differTP' value=''/></Feature>"), L"");
}

TEST(FViewCoordinateSystem, AnEmptyNameAttributeCountsAsNameless)
{
    EXPECT_EQ(Read<FViewCoordinateSystem>(L"<CoordinateSystem><Feature name=''><Property label='differTP' value='1'/>"
                                          L"</Feature></CoordinateSystem>")
                  .differTP,
              L"1");
}

TEST(FViewCoordinateSystem, AnEmptyNameIsWrittenAsCrs1)
{
    EXPECT_EQ(WrittenInto(FViewCoordinateSystem(), L"<CoordinateSystem/>"), L"<CoordinateSystem name=\"CRS1\"/>");
    EXPECT_EQ(WrittenInto(FViewCoordinateSystem(), L"<CoordinateSystem name='' horizontalDatum='x'/>"),
              L"<CoordinateSystem name=\"CRS1\" horizontalDatum=\"x\"/>");
}

TEST(FViewCoordinateSystem, WritesWhatItHoldsAndLeavesTheDescription)
{
    FViewCoordinateSystem system;
    system.name = L"座標系";
    system.horizontalDatum = L"JGD2011";
    system.verticalDatum = L"T.P";
    system.horizontalCoordinateSystemName = L"9(X,Y)";
    system.differTP = L"0.0000";
    EXPECT_EQ(
        WrittenInto(system, L"<CoordinateSystem desc='long' HorizontalDatum='old'/>"),
        L"<CoordinateSystem desc=\"long\" HorizontalDatum=\"JGD2011\" name=\"座標系\" verticalDatum=\"T.P\""
        L" horizontalCoordinateSystemName=\"9(X,Y)\"><Feature><Property label=\"differTP\" value=\"0.0000\"/></Feature>"
        L"</CoordinateSystem>");
}

/// A coordinate system with a value in every field.
FViewCoordinateSystem FullSystem()
{
    FViewCoordinateSystem system;
    system.name = L"CRS";
    system.horizontalDatum = L"JGD2011";
    system.verticalDatum = L"T.P";
    system.horizontalCoordinateSystemName = L"9(X,Y)";
    system.differTP = L"1";
    return system;
}

void ExpectEmpty(const FViewCoordinateSystem& system)
{
    EXPECT_EQ(system.name, L"");
    EXPECT_EQ(system.horizontalDatum, L"");
    EXPECT_EQ(system.verticalDatum, L"");
    EXPECT_EQ(system.horizontalCoordinateSystemName, L"");
    EXPECT_EQ(system.differTP, L"");
}

TEST(FViewCoordinateSystem, ClearEmptiesEveryField)
{
    FViewCoordinateSystem system = FullSystem();
    system.Clear();
    ExpectEmpty(system);
}

TEST(FViewCoordinateSystem, ReadingASecondElementKeepsNothingOfTheFirst)
{
    FViewCoordinateSystem system = FullSystem();
    EXPECT_TRUE(system.ReadElement(XmlText(L"<CoordinateSystem/>").Root()));
    ExpectEmpty(system);
}

TEST(FViewCoordinateSystem, OfItsFeatureTheDifferenceToTokyoPeilAloneIsRead)
{
    EXPECT_EQ(Read<FViewCoordinateSystem>(L"<CoordinateSystem><Feature><Property label='differTP' value='1.5'/>"
                                          L"<Property label='differOP' value='2.5'/></Feature></CoordinateSystem>")
                  .differTP,
              L"1.5");
}

} // namespace
} // namespace jlandxml
