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

struct StationCase
{
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

INSTANTIATE_TEST_SUITE_P(SuperElevationCSVLoader, StationText,
                         testing::Values(StationCase{L"12+34.5m", 12, 34.5, false},
                                         StationCase{L"12-34.5", 12, 34.5, true},
                                         StationCase{L"mm12m+m34m", 12, 34, false}, StationCase{L"12", 0, 0, true},
                                         StationCase{L"", 0, 0, true}, StationCase{L"+5", 0, 0, false},
                                         StationCase{L"-5", 0, 0, true}, StationCase{L"5+", 5, 0, false},
                                         StationCase{L"-1+5", -1, 5, false}, StationCase{L"1+-5", 1, -5, false},
                                         StationCase{L"x+5", 0, 5, false}, StationCase{L"5+x", 5, 0, false},
                                         StationCase{L"1+2+3", 1, 0, false}, StationCase{L".+5", 0, 0, false},
                                         StationCase{L"1e3+5", 0, 5, false},
                                         StationCase{L"1.50+2.50", 1.5, 2.5, false}));

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

INSTANTIATE_TEST_SUITE_P(SuperElevationCSVLoader, SlopeStation,
                         testing::Values(SlopeStationCase{L"12034.5", 20, L"601+14.500000", L"12034.500000"},
                                         SlopeStationCase{L"0", 20, L"0+0.000000", L"0.000000"},
                                         SlopeStationCase{L"inf", 20, L"0+0.000000", L"0.000000"},
                                         SlopeStationCase{L"-0.0000004", 20, L"0+-0.000000", L"0.000000"},
                                         SlopeStationCase{L"12", 0, L"nan+nan.", L"12.000000"},
                                         SlopeStationCase{L"30", 12.5, L"2+5.000000", L"30.000000"}));

TEST(SuperElevationStations, AreSortedWithSixDecimals)
{
    EXPECT_EQ(SortStationTexts({L"300", L"100.0000004", L"x", L"", L"100.0000006", L"-5m", L"300"}),
              (PiCmCopyList<WcStString>{L"-5.000000", L"100.000000", L"100.000001", L"300.000000", L"300.000000"}));
    EXPECT_EQ(SortStationTexts({L"nan", L"inf", L"1", L"nan", L"-inf"}),
              (PiCmCopyList<WcStString>{L"-inf", L"1.000000", L"inf", L"nan", L"nan"}));
    EXPECT_TRUE(SortStationTexts({}).empty());
}

struct RowCase
{
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
    testing::Values(RowCase{"1,0+80m,x,,,-2.000 %,,,,2.000 %,", true, L"0+80", L"-2.000", L"-2.000"},
                    RowCase{"1,0+80m,x,,,2%%,,,,-2.000%,z", true, L"0+80", L"2", L"2.000"},
                    RowCase{"1,0+80,x,,,2,,,,5", true, L"0+80", L"2", L"-"},
                    RowCase{"1,0+80,x,,,2,,,,,", true, L"0+80", L"2", L"-"},
                    RowCase{"1,0+80,x,,,2,,,,-,", false, L"", L"", L""}, RowCase{"1,0+80,x,,,2", false, L"", L"", L""},
                    RowCase{"1,0+80,x,,,2,", true, L"0+80", L"2", L"-"},
                    RowCase{"1,m,x,,,2,,,,5,", false, L"", L"", L""},
                    RowCase{"1,0+80,x,,,%,,,,5,", false, L"", L"", L""},
                    RowCase{"1,0+80,Description,,,2,,,,5,", false, L"", L"", L""},
                    RowCase{"1,0+80,End Alignment,,,2,,,,5,", false, L"", L"", L""}));

TEST_F(SuperElevationTest, SlopesAreAppendedToTheList)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.mainInterval = 20.0;
    alignment.slopeList.emplace_back().staValue = L"first";
    EXPECT_TRUE(LoadSlopes(Slope("1", "0+0", "Begin Alignment") + Slope("1", "12+34.5m", "x") + "1,2,3\n" +
                           Slope("1", "0+5", "End Alignment") + "1,0+80,Description,,\n"));
    ASSERT_EQ(alignment.slopeList.size(), 3U);
    EXPECT_EQ(alignment.slopeList[0].staValue, L"first");
    EXPECT_EQ(alignment.slopeList[1].staText, L"601+14.500000");
    EXPECT_EQ(alignment.slopeList[1].staValue, L"12034.500000");
    EXPECT_EQ(alignment.slopeList[1].leftSlope, L"2.0");
    EXPECT_EQ(alignment.slopeList[1].rightSlope, L"2.0");
    EXPECT_EQ(alignment.slopeList[2].staText + alignment.slopeList[2].staValue + alignment.slopeList[2].leftSlope +
                  alignment.slopeList[2].rightSlope,
              L"");
}

TEST_F(SuperElevationTest, AStationBeforeTheKilometreIsTakenOff)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.mainInterval = 20.0;
    LoadSlopes(Slope("1", "12-34.5", "x"));
    EXPECT_EQ(alignment.slopeList.at(0).staValue, L"11965.500000");
}

TEST_F(SuperElevationTest, RegionsGoToTheSuperelevationsInAscendingOrder)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.superelevations.resize(2);
    alignment.superelevations[0].reverseCrownStations = {L"old"};
    alignment.superelevations[0].flatStations = {L"kept"};
    LoadSlopes(Slope("2", "0+300", "ReverseCrown") + Slope("", "0+50", "ReverseCrown") +
               Slope("10", "0+7", "ReverseCrown") + Slope("2", "0+200", "ReverseCrown") + Slope("2", "0+100", "x"));
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, PiCmCopyList<WcStString>{L"50.000000"});
    EXPECT_EQ(alignment.superelevations[0].flatStations, PiCmCopyList<WcStString>{L"kept"});
    EXPECT_EQ(alignment.superelevations[1].reverseCrownStations,
              (PiCmCopyList<WcStString>{L"200.000000", L"300.000000"}));
    EXPECT_EQ(alignment.slopeList.size(), 5U);
}

TEST_F(SuperElevationTest, SuperelevationsWithoutARegionKeepWhatTheyHave)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.superelevations.resize(2);
    alignment.superelevations[1].reverseCrownStations = {L"old"};
    LoadSlopes(Slope("x", "0+0.0000004", "ReverseCrown"));
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, PiCmCopyList<WcStString>{L"0.000000"});
    EXPECT_EQ(alignment.superelevations[1].reverseCrownStations, PiCmCopyList<WcStString>{L"old"});
}

TEST_F(SuperElevationTest, WithAFreeSlopeListTheReversedCrownIsAnOrdinaryRow)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.useSlopeList = 1;
    alignment.superelevations.resize(1);
    alignment.superelevations[0].reverseCrownStations = {L"old"};
    LoadSlopes(Slope("1", "0+50", "ReverseCrown"));
    EXPECT_EQ(alignment.slopeList.size(), 1U);
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, PiCmCopyList<WcStString>{L"old"});
}

TEST_F(SuperElevationTest, ASecondAlignmentOfTheNameTakesTheRegionsButNoSlopes)
{
    AddAlignment(L"R1").superelevations.resize(1);
    AddAlignment(L"R1").superelevations.resize(1);
    LoadSlopes(Slope("1", "0+50", "ReverseCrown"));
    EXPECT_EQ(Model().alignments[0].alignments[0].slopeList.size(), 1U);
    EXPECT_EQ(Model().alignments[1].alignments[0].slopeList.size(), 0U);
    EXPECT_EQ(Model().alignments[1].alignments[0].superelevations[0].reverseCrownStations,
              PiCmCopyList<WcStString>{L"50.000000"});
}

TEST_F(SuperElevationTest, EquationsShiftTheStationsOfTheReversedCrown)
{
    FViewAlignment& alignment = AddAlignment(L"R1");
    alignment.staEquations = WithEquations({{100.0, 150.0}}).staEquations;
    alignment.superelevations.resize(1);
    LoadSlopes(Slope("1", "0+250", "ReverseCrown"));
    EXPECT_EQ(alignment.slopeList[0].staValue, L"200.000000");
    EXPECT_EQ(alignment.superelevations[0].reverseCrownStations, PiCmCopyList<WcStString>{L"200.000000"});
}

TEST_F(SuperElevationTest, WithoutAnAlignmentOfTheNameNothingChanges)
{
    const FViewAlignment& alignment = AddAlignment(L"R2");
    EXPECT_TRUE(LoadSlopes(Slope("1", "0+50", "x")));
    EXPECT_TRUE(alignment.slopeList.empty());
}

} // namespace
} // namespace jlandxml
