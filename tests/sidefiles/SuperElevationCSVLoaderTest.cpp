#include "sidefiles/SuperElevationCSVLoader.h"

#include "support/SideFileFixture.h"

#include <limits>

namespace jlandxml
{
namespace
{

class SuperElevationTest : public SideFileTest
{
  protected:
    bool LoadSlopes(const std::string& rows) { return Load<SuperElevationCSVLoader>("t\nt\n" + rows); }

    static std::string Slope(const std::string& region, const std::string& station, const std::string& description)
    {
        return region + "," + station + "," + description + ",,,2.0,,,,-2.0,\n";
    }
};

using Stations = PiCmCopyList<WcStString>;

/// An alignment whose only superelevation holds a station of the work file.
FViewAlignment& WithOldStation(FViewAlignment& alignment)
{
    alignment.superelevations.emplace_back().reverseCrownStations = {L"old"};
    return alignment;
}

std::wstring Joined(const FViewSlopeValue& value)
{
    return value.staText + L"|" + value.staValue + L"|" + value.leftSlope + L"|" + value.rightSlope;
}

struct StationCase
{
    const char* name;
    const wchar_t* text;
    double kilometres;
    double metres;
    bool minus;
};

class StationText : public testing::TestWithParam<StationCase>
{};

TEST_P(StationText, IsKilometresAndMetres)
{
    const StationParts parts = ParseStationText(GetParam().text);
    EXPECT_EQ(parts.kilometres, GetParam().kilometres);
    EXPECT_EQ(parts.metres, GetParam().metres);
    EXPECT_EQ(parts.minus, GetParam().minus);
}

INSTANTIATE_TEST_SUITE_P(
    SuperElevationCSVLoader, StationText,
    testing::Values(
        StationCase{"Plus", L"12+34.5m", 12, 34.5, false}, StationCase{"Minus", L"12-34.5", 12, 34.5, true},
        StationCase{"UnitAnywhere", L"mm12m+m34m", 12, 34, false}, StationCase{"NoSign", L"12", 0, 0, true},
        StationCase{"Empty", L"", 0, 0, true}, StationCase{"NoKilometres", L"+5", 0, 0, false},
        StationCase{"NoKilometresMinus", L"-5", 0, 0, true}, StationCase{"NoMetres", L"5+", 5, 0, false},
        StationCase{"MinusInFront", L"-1+5", -1, 5, false}, StationCase{"MinusBehindPlus", L"1+-5", 1, -5, false},
        StationCase{"KilometresNoNumber", L"x+5", 0, 5, false}, StationCase{"MetresNoNumber", L"5+x", 5, 0, false},
        StationCase{"TwoPluses", L"1+2+3", 1, 0, false}, StationCase{"KilometresOfAPoint", L".+5", 0, 0, false},
        StationCase{"Exponent", L"1e3+5", 0, 5, false}, StationCase{"TrailingZeros", L"1.50+2.50", 1.5, 2.5, false}),
    [](const auto& test) { return test.param.name; });

FViewAlignment WithEquations(const std::vector<std::pair<double, double>>& equations)
{
    FViewAlignment alignment;
    for (const auto& [internal, ahead] : equations)
    {
        FViewStaEquation& equation = alignment.staEquations.emplace_back();
        equation.staInternal = internal;
        equation.staAhead = ahead;
    }
    return alignment;
}

TEST(SuperElevationStations, TheLastEquationInFrontOfAStationCounts)
{
    const FViewAlignment alignment = WithEquations({{100.0, 150.0}, {200.0, 190.0}, {300.0, 1300.0}});
    EXPECT_EQ(ToInternalStation(50.0, alignment), 50.0);
    EXPECT_EQ(ToInternalStation(100.0, alignment), 50.0);
    EXPECT_EQ(ToInternalStation(99.99999999, alignment), 99.99999999 - 50.0);
    EXPECT_EQ(ToInternalStation(99.9999, alignment), 99.9999);
    EXPECT_EQ(ToInternalStation(150.0, alignment), 100.0);
    EXPECT_EQ(ToInternalStation(250.0, alignment), 260.0);
    EXPECT_EQ(ToInternalStation(1350.0, alignment), 350.0);
    EXPECT_EQ(ToInternalStation(7.0, FViewAlignment()), 7.0);
}

struct SlopeStationCase
{
    const char* name;
    const wchar_t* total;
    double interval;
    const wchar_t* staText;
    const wchar_t* staValue;
};

class SlopeStation : public testing::TestWithParam<SlopeStationCase>
{};

TEST_P(SlopeStation, HasAShownAndAWrittenText)
{
    FViewAlignment alignment;
    alignment.mainInterval = GetParam().interval;
    FViewSlopeValue value;
    MakeSlopeStationTexts(GetParam().total, alignment, value);
    EXPECT_EQ(value.staText, GetParam().staText);
    EXPECT_EQ(value.staValue, GetParam().staValue);
}

INSTANTIATE_TEST_SUITE_P(
    SuperElevationCSVLoader, SlopeStation,
    testing::Values(SlopeStationCase{"KilometresOfIntervals", L"12034.5", 20, L"601+14.500000", L"12034.500000"},
                    SlopeStationCase{"Zero", L"0", 20, L"0+0.000000", L"0.000000"},
                    SlopeStationCase{"Infinity", L"inf", 20, L"0+0.000000", L"0.000000"},
                    SlopeStationCase{"BelowTheDecimals", L"-0.0000004", 20, L"0+-0.000000", L"0.000000"},
                    SlopeStationCase{"NoInterval", L"12", 0, L"nan+nan.", L"12.000000"},
                    SlopeStationCase{"BrokenInterval", L"30", 12.5, L"2+5.000000", L"30.000000"}),
    [](const auto& test) { return test.param.name; });

TEST(SuperElevationStations, AnEquationAtTheToleranceBehindAStationIsNotInFrontOfIt)
{
    EXPECT_EQ(ToInternalStation(0.0, WithEquations({{GEOMETRY_TOLERANCE, 50.0}})), 0.0);
    EXPECT_EQ(ToInternalStation(0.0, WithEquations({{GEOMETRY_TOLERANCE / 2, 50.0}})),
              0.0 - (50.0 - GEOMETRY_TOLERANCE / 2));
}

TEST(SuperElevationStations, AreSortedWithSixDecimals)
{
    EXPECT_EQ(SortStationTexts({L"300", L"100.0000004", L"x", L"", L"100.0000006", L"-5m", L"300"}),
              (Stations{L"-5.000000", L"100.000000", L"100.000001", L"300.000000", L"300.000000"}));
    EXPECT_EQ(SortStationTexts({L"nan", L"inf", L"1", L"nan", L"-inf"}),
              (Stations{L"-inf", L"1.000000", L"inf", L"nan", L"nan"}));
    EXPECT_EQ(SortStationTexts({L"1", L"0", L"-0"}), (Stations{L"0.000000", L"-0.000000", L"1.000000"}));
    EXPECT_TRUE(SortStationTexts({}).empty());
}

struct RowCase
{
    const char* name;
    const char* line;
    bool taken;
    const wchar_t* station;
    const wchar_t* left;
    const wchar_t* right;
};

class SlopeRowText : public testing::TestWithParam<RowCase>
{};

TEST_P(SlopeRowText, GivesStationAndSlopes)
{
    CsvRow row;
    ASSERT_TRUE(row.Cut(GetParam().line));
    const auto slope = ParseSlopeRow(row);
    ASSERT_EQ(slope.has_value(), GetParam().taken);
    if (slope)
    {
        EXPECT_EQ(slope->station, GetParam().station);
        EXPECT_EQ(slope->leftSlope, GetParam().left);
        EXPECT_EQ(slope->rightSlope, GetParam().right);
    }
}

INSTANTIATE_TEST_SUITE_P(
    SuperElevationCSVLoader, SlopeRowText,
    testing::Values(RowCase{"HostsForm", "1,0+80m,x,,,-2.000 %,,,,2.000 %,", true, L"0+80", L"-2.000", L"-2.000"},
                    RowCase{"TwoPercentSigns", "1,0+80m,x,,,2%%,,,,-2.000%,z", true, L"0+80", L"2", L"2.000"},
                    RowCase{"LastFieldUnclosed", "1,0+80,x,,,2,,,,5", true, L"0+80", L"2", L"-"},
                    RowCase{"RightEmpty", "1,0+80,x,,,2,,,,,", true, L"0+80", L"2", L"-"},
                    RowCase{"RightOfASignAlone", "1,0+80,x,,,2,,,,-,", false, L"", L"", L""},
                    RowCase{"CutBehindLeft", "1,0+80,x,,,2", false, L"", L"", L""},
                    RowCase{"EndsBehindLeft", "1,0+80,x,,,2,", true, L"0+80", L"2", L"-"},
                    RowCase{"StationOfAUnitAlone", "1,m,x,,,2,,,,5,", false, L"", L"", L""},
                    RowCase{"LeftOfAPercentAlone", "1,0+80,x,,,%,,,,5,", false, L"", L"", L""},
                    RowCase{"Title", "1,0+80,Description,,,2,,,,5,", false, L"", L"", L""},
                    RowCase{"EndOfAlignment", "1,0+80,End Alignment,,,2,,,,5,", false, L"", L"", L""},
                    RowCase{"BeginningOfAlignment", "1,0+80,Begin Alignment,,,2,,,,5,", false, L"", L"", L""},
                    RowCase{"BeginningInAnotherCase", "1,0+80,Begin alignment,,,2,,,,5,", true, L"0+80", L"2", L"-5"},
                    RowCase{"TitleInAnotherCase", "1,0+80,description,,,2,,,,5,", true, L"0+80", L"2", L"-5"}),
    [](const auto& test) { return test.param.name; });

TEST_F(SuperElevationTest, TheFirstTwoRowsAreTitlesWhateverTheyHold)
{
    const FViewAlignment& alignment = AddAlignment(L"R1");
    EXPECT_TRUE(Load<SuperElevationCSVLoader>(Slope("1", "0+1", "x") + Slope("1", "0+2", "x") + Slope("1", "0+3", "x") +
                                              Slope("1", "0+4", "x")));
    ASSERT_EQ(alignment.slopeList.size(), 2U);
    EXPECT_EQ(alignment.slopeList[0].staValue, L"3.000000");
}

TEST_F(SuperElevationTest, RoomIsMadeForTheRowsThatBecomeSlopesAlone)
{
    const FViewAlignment& alignment = AddAlignment(L"R1");
    LoadSlopes(Slope("1", "0+1", "Begin Alignment") + Slope("1", "0+1", "x") +
               "long enough for a slope\n1,2,long enough\n" + Slope("1", "0+2", "x") + "1,2,3,4\n" +
               Slope("1", "0+3", "End Alignment"));
    EXPECT_EQ(alignment.slopeList.size(), 3U);
    EXPECT_EQ(alignment.slopeList.capacity(), 3U);
}

TEST_F(SuperElevationTest, SlopesAreAppendedToTheList)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.mainInterval = 20.0;
    alignment.slopeList.emplace_back().staValue = L"first";
    EXPECT_TRUE(LoadSlopes(Slope("1", "0+0", "Begin Alignment") + Slope("1", "12+34.5m", "x") + "1,2,3\n" +
                           Slope("1", "0+5", "End Alignment") + "1,0+80,Description,,\n"));
    ASSERT_EQ(alignment.slopeList.size(), 3U);
    EXPECT_EQ(alignment.slopeList[0].staValue, L"first");
    EXPECT_EQ(Joined(alignment.slopeList[1]), L"601+14.500000|12034.500000|2.0|2.0");
    EXPECT_EQ(Joined(alignment.slopeList[2]), L"|||");
}

struct SlopeValueCase
{
    const char* name;
    const char* row;
    const wchar_t* value; ///< of the slope, its texts joined; null: the row gives none
};

class SlopeValue : public SuperElevationTest, public testing::WithParamInterface<SlopeValueCase>
{};

TEST_P(SlopeValue, IsMadeOfARow)
{
    FViewAlignment& alignment = WithOldStation(AddAlignment(L"R1"));
    alignment.mainInterval = 20.0;
    LoadSlopes(GetParam().row);
    ASSERT_EQ(alignment.slopeList.size(), GetParam().value != nullptr ? 1U : 0U);
    if (GetParam().value != nullptr)
    {
        EXPECT_EQ(Joined(alignment.slopeList[0]), GetParam().value);
    }
    // None of the rows gives a station of the reversed crown.
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"old"});
}

INSTANTIATE_TEST_SUITE_P(
    SuperElevationCSVLoader, SlopeValue,
    testing::Values(
        SlopeValueCase{"MinusStation", "1,12-34.5,x,,,2,,,,2,", L"598+5.500000|11965.500000|2|-2"},
        SlopeValueCase{"RoundedToTheNextInterval", "1,0+19.9999999,x,,,2,,,,2,", L"1+0.000000|20.000000|2|-2"},
        SlopeValueCase{"ReverseCrownInAnotherCase", "1,0+5,reversecrown,,,2,,,,2,", L"0+5.000000|5.000000|2|-2"},
        SlopeValueCase{"BeginningInAnotherCase", "1,0+5,Begin alignment,,,2,,,,2,", L"0+5.000000|5.000000|2|-2"},
        SlopeValueCase{"LeftEmpty", "1,0+50,ReverseCrown,,,,,,,-2.0,", L"|||"},
        SlopeValueCase{"FourColumns", "1,0+80m,x,y", L"|||"}, SlopeValueCase{"ThreeColumns", "1,0+80m,x", nullptr},
        SlopeValueCase{"BeginningOfAlignment", "1,0+5,Begin Alignment,,,2,,,,2,", nullptr}),
    [](const auto& test) { return test.param.name; });

TEST_F(SuperElevationTest, RegionsGoToTheSuperelevationsInAscendingOrder)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.superelevations.resize(2);
    alignment.superelevations[0].reverseCrownStations = {L"old"};
    alignment.superelevations[0].flatStations = {L"kept"};
    LoadSlopes(Slope("2", "0+300", "ReverseCrown") + Slope("", "0+50", "ReverseCrown") +
               Slope("10", "0+7", "ReverseCrown") + Slope("2", "0+200", "ReverseCrown") + Slope("2", "0+100", "x"));
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"50.000000"});
    EXPECT_EQ(alignment.superelevations[0].flatStations, Stations{L"kept"});
    EXPECT_EQ(alignment.superelevations[1].reverseCrownStations, (Stations{L"200.000000", L"300.000000"}));
    EXPECT_EQ(alignment.slopeList.size(), 5U);
}

TEST_F(SuperElevationTest, SuperelevationsWithoutARegionKeepWhatTheyHave)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.superelevations.resize(2);
    alignment.superelevations[1].reverseCrownStations = {L"old"};
    LoadSlopes(Slope("x", "0+0.0000004", "ReverseCrown"));
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"0.000000"});
    EXPECT_EQ(alignment.superelevations[1].reverseCrownStations, Stations{L"old"});
}

TEST_F(SuperElevationTest, WithAFreeSlopeListTheReversedCrownIsAnOrdinaryRow)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.useSlopeList = 1;
    alignment.superelevations.resize(1);
    alignment.superelevations[0].reverseCrownStations = {L"old"};
    LoadSlopes(Slope("1", "0+50", "ReverseCrown"));
    EXPECT_EQ(alignment.slopeList.size(), 1U);
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"old"});
}

TEST_F(SuperElevationTest, ARowWithoutARegionIsARegionOfItsOwnInFrontOfAll)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.superelevations.resize(3);
    LoadSlopes(Slope("x", "0+4", "ReverseCrown") + Slope("0", "0+3", "ReverseCrown") +
               Slope("-5", "0+2", "ReverseCrown") + Slope("", "0+1", "ReverseCrown"));
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"1.000000"});
    EXPECT_EQ(alignment.superelevations[1].reverseCrownStations, Stations{L"2.000000"});
    EXPECT_EQ(alignment.superelevations[2].reverseCrownStations, (Stations{L"3.000000", L"4.000000"}));
}

struct NamesakesCase
{
    const char* name;
    std::int32_t useSlopeList[2];
    const wchar_t* reverseCrown[2];
};

class Namesakes : public SuperElevationTest, public testing::WithParamInterface<NamesakesCase>
{};

TEST_P(Namesakes, ShareTheRegionsWhileTheFirstTakesEverySlope)
{
    auto& alignments = Model().alignments.emplace_back().alignments;
    alignments.resize(2);
    for (std::size_t index = 0; index < 2; ++index)
    {
        WithOldStation(alignments[index]).name = L"R1";
        alignments[index].useSlopeList = GetParam().useSlopeList[index];
    }
    LoadSlopes(Slope("1", "0+50", "ReverseCrown") + Slope("1", "0+60", "x"));
    for (std::size_t index = 0; index < 2; ++index)
    {
        EXPECT_EQ(alignments[index].slopeList.size(), index == 0 ? 2U : 0U) << index;
        EXPECT_EQ(alignments[index].superelevations[0].reverseCrownStations, Stations{GetParam().reverseCrown[index]})
            << index;
    }
}

INSTANTIATE_TEST_SUITE_P(SuperElevationCSVLoader, Namesakes,
                         testing::Values(NamesakesCase{"NoSlopeList", {0, 0}, {L"50.000000", L"50.000000"}},
                                         NamesakesCase{"SlopeListOfTheSecond", {0, 1}, {L"50.000000", L"old"}},
                                         NamesakesCase{"SlopeListOfTheFirst", {1, 0}, {L"old", L"old"}},
                                         NamesakesCase{"FlagWithoutAValue", {-1, 0}, {L"old", L"old"}},
                                         NamesakesCase{"TwoSlopeLists", {1, 1}, {L"old", L"old"}}),
                         [](const auto& test) { return test.param.name; });

TEST_F(SuperElevationTest, NamesakesOfAnotherRouteTakeTheRegionsToo)
{
    WithOldStation(AddAlignment(L"R1"));
    WithOldStation(AddAlignment(L"R1"));
    LoadSlopes(Slope("1", "0+50", "ReverseCrown"));
    const FViewAlignment& second = Model().alignments[1].alignments[0];
    EXPECT_TRUE(second.slopeList.empty());
    EXPECT_EQ(second.superelevations[0].reverseCrownStations, Stations{L"50.000000"});
}

TEST_F(SuperElevationTest, EquationsShiftTheStationsOfTheReversedCrown)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.staEquations = WithEquations({{100.0, 150.0}}).staEquations;
    alignment.superelevations.resize(1);
    LoadSlopes(Slope("1", "0+250", "ReverseCrown"));
    EXPECT_EQ(alignment.slopeList[0].staValue, L"200.000000");
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"200.000000"});
}

TEST_F(SuperElevationTest, AnEquationWithoutAStationLeavesTheBeginningWithoutATextForTheFile)
{
    FViewAlignment& alignment = WithOldStation(AddAlignment(L"R1"));
    alignment.mainInterval = 20.0;
    alignment.staEquations.emplace_back().staAhead = 0.0;
    LoadSlopes(Slope("1", "0+0", "ReverseCrown"));
    EXPECT_EQ(Joined(alignment.slopeList.at(0)), L"0+0.000000||2.0|2.0");
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{});
}

TEST_F(SuperElevationTest, WithoutAnAlignmentOfExactlyTheNameNothingChanges)
{
    const FViewAlignment& alignment = WithOldStation(AddAlignment(L"r1"));
    EXPECT_TRUE(LoadSlopes(Slope("1", "0+50", "ReverseCrown")));
    EXPECT_TRUE(alignment.slopeList.empty());
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, Stations{L"old"});
}

} // namespace
} // namespace jlandxml
