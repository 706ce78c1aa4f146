#include "inspect/Tables.h"

#include "SoundFile.h"
#include "inspect/Angles.h"
#include "inspect/StationLabel.h"

#include <algorithm>

namespace jlandxml::inspect
{
namespace
{

using Row = std::vector<std::wstring>;

/// The rows of a table that hold a text.
std::vector<std::string> RowsWith(const Table& table, const std::wstring& text)
{
    std::vector<std::string> rows;
    for (const Row& row : table.rows)
    {
        if (std::find(row.begin(), row.end(), text) != row.end())
        {
            std::wstring line;
            for (const std::wstring& field : row)
            {
                line += field + L"|";
            }
            rows.push_back(Utf8FromWide(line));
        }
    }
    return rows;
}

using Rows = std::vector<std::string>;

TEST(Tables, ShowTheFilesOwnTextOfItsFigures)
{
    const LandXmlFile file = SoundFile();
    EXPECT_EQ(RowsWith(AlignmentTable(file), L"KE.1-1"),
              Rows{"線形1|KE.1-1|160.000|No.8+10.000|12521.99785226|18372.81338887|69-39-43.10|円曲線|200.00000000|"
                   "200.00000000||96.000000|cw|"});
    EXPECT_EQ(RowsWith(PointTable(file), L"No.10"),
              Rows{"中間点|IntermediatePnts-1||線形1|No.10|12532.0695|18411.4558|110.775|200.|81.0716062|"});
    EXPECT_EQ(RowsWith(PointTable(file), L"L-1"),
              Rows{"幅杭|左幅杭|用地境界（左）|線形1|L-1|12461.0876|18224.2281|104.925|||"});
    EXPECT_EQ(RowsWith(ProfileTable(file), L"300.000"),
              Rows{"線形1|計画|No.15+15.000|300.000|110.000|-2.0000|3.0000|40.000|800.000|280.004|319.991|110.2500|"});
    EXPECT_EQ(
        RowsWith(ProfileTable(file), L"111.600"),
        Rows{"線形1|計画|No.11+10.000|220.000|111.600|3.0000|-2.0000|100.000|2000.000|170.000|270.000|110.9750|"});
}

/// Without equations the intermediate point at 200 m lies at a main station.
const std::vector<Change> WITHOUT_EQUATIONS{
    {"<StaEquation staBack=\"150.000\" staAhead=\"160.000\" staInternal=\"150.000\" />", ""},
    {"<StaEquation staBack=\"260.000\" staAhead=\"265.000\" staInternal=\"250.000\" />", ""},
    {"12532.0695 18411.4558 110.775<", "12532.06950 18411.45580 110.77500<"},
};

TEST(Tables, ShowStationsInTheTextOfWhatLiesThere)
{
    const LandXmlFile file = SoundFile(WITHOUT_EQUATIONS);
    EXPECT_EQ(RowsWith(StationTable(file), L"No.10"),
              Rows{"線形1|No.10||200.000|12532.06950|18411.45580|81-07-16.06|110.77500|106.5170|"});
    EXPECT_EQ(RowsWith(StationTable(file), L"No.2"),
              Rows{"線形1|No.2||40.|12468.4699|18265.4804|62-30-00.00|106.2000|106.635|"});
    EXPECT_EQ(RowsWith(StationTable(file), L"No.1"),
              Rows{"線形1|No.1||20.000|12459.2350|18247.7402|62-30-00.00|105.6000|105.4675|"});
    EXPECT_EQ(RowsWith(AlignmentTable(file), L"KA.1-1").front().substr(0, 38), "線形1|KA.1-1|110.000|No.5+10.000|125");
}

TEST(Tables, ShowStationsInTheTextOfASuperelevation)
{
    const auto stationOf = [](const Change& change, const wchar_t* name) {
        const LandXmlFile file = SoundFile({change});
        const std::string row = RowsWith(StationTable(file), name).front();
        const std::size_t begin = row.find("||") + 2;
        return row.substr(begin, row.find('|', begin) - begin);
    };
    EXPECT_EQ(stationOf({"value=\"110\"", "value=\"120.\""}, L"No.6"), "120.") << "a flat station";
    EXPECT_EQ(stationOf({"value=\"130.000000\"", "value=\"140.0\""}, L"No.7"), "140.0") << "a reverse crown";
    EXPECT_EQ(stationOf({"staStart=\"160.\"", "staStart=\"170.00\""}, L"No.9"), "170.00");
    EXPECT_EQ(stationOf({"staEnd=\"256.\"", "staEnd=\"265.00\""}, L"No.14"), "265.00");
}

TEST(Tables, ComputeWhatAPointElsewhereThanItsStationDoesNotSay)
{
    std::vector<Change> changes = WITHOUT_EQUATIONS;
    changes.push_back({"12532.06950 18411.45580 110.77500<", "12532.07150 18411.45580 110.78<"});
    EXPECT_EQ(RowsWith(StationTable(SoundFile(changes)), L"No.10"),
              Rows{"線形1|No.10||200.000|12532.0695|18411.45580|81-07-16.06|110.7750|106.5170|"});
}

TEST(Tables, ComputeTheRadiusOfACircleByTheSlopesOfItsTangents)
{
    // From 2 % down to 18 % up over 40 m: 200 m for a parabola.
    const LandXmlFile file = SoundFile({{" radius=\"800.000\"", ""}, {"<PVI>400.000 113.000", "<PVI>400.000 128.000"}});
    EXPECT_EQ(RowsWith(ProfileTable(file), L"300.000").front(),
              "線形1|計画|No.15+15.000|300.000|110.000|-2.0000|18.0000|40.000|202.892|279.843|319.843|111.0024|");
}

TEST(Tables, CountMainStationsByTheirLabels)
{
    const LandXmlFile file = SoundFile();
    Row labels;
    for (const Row& row : StationTable(file).rows)
    {
        labels.push_back(row[1]);
    }
    // At 150 of the alignment's own count the label 150 becomes 160, at 250 the label 260 becomes 265.
    EXPECT_EQ(
        labels,
        (Row{L"No.0",  L"No.1",        L"No.2",  L"No.3",  L"No.4",  L"No.5",  L"No.5+10.000",  L"No.6",  L"No.7",
             L"No.8",  L"No.8+10.000", L"No.9",  L"No.10", L"No.11", L"No.12", L"No.13+11.000", L"No.14", L"No.15",
             L"No.16", L"No.16+1.000", L"No.17", L"No.18", L"No.19", L"No.20", L"No.20+15.000"}));
}

TEST(Tables, SortCrossSlopesByStation)
{
    const Table table = CrossSlopeTable(SoundFile());
    EXPECT_EQ(RowsWith(table, L"左拡幅").front(), "線形1|左拡幅|No.5+10.000|110.||0.||");
    EXPECT_EQ(RowsWith(table, L"最大片勾配開始"), Rows{"線形1|最大片勾配開始|No.8+10.000|160.000|5.0|||"});
    double last = 0;
    for (const Row& row : table.rows)
    {
        const double station = ReadFigure(row[3]).value;
        EXPECT_GE(station, last);
        last = station;
    }
}

TEST(Tables, AreCsvWithQuotesWhereTheyAreNeeded)
{
    EXPECT_EQ(CsvText({L"表", {L"a", L"b"}, {{L"1", L"say \"x\", y"}, {L"", L"two\nlines"}}}),
              "\xEF\xBB\xBF"
              "a,b\r\n1,\"say \"\"x\"\", y\"\r\n,\"two\nlines\"\r\n");
}

TEST(StationLabels, CountKilometresOfRivers)
{
    const LandXmlFile file = SoundFile({{"value=\"道路\"", "value=\"河川\""}});
    const StationLabels labels(file.routes.front().alignments.front());
    EXPECT_EQ(labels.At(5), L"0k005");
    EXPECT_EQ(labels.At(1234.5), L"1k249.500");
    EXPECT_EQ(labels.At(-5), L"-1k995");
}

TEST(StationLabels, DoNotRoundUpToAWholeInterval)
{
    const LandXmlFile file = SoundFile();
    const StationLabels labels(file.routes.front().alignments.front());
    EXPECT_EQ(labels.At(39.9996), L"No.2");
    EXPECT_EQ(labels.At(39.9994), L"No.1+19.999");
}

struct EndlessCount
{
    const char* name;
    std::vector<Change> changes;
};
const EndlessCount ENDLESS_COUNTS[] = {
    {"AnIntervalOfNothing", {{"label=\"main\" value=\"20.\"", "label=\"main\" value=\"0\""}}},
    {"AnIntervalOfAHair", {{"label=\"main\" value=\"20.\"", "label=\"main\" value=\"1e-9\""}}},
    {"AnEndlessLine", {{"<Line length=\"110.000000\"", "<Line length=\"1e300\""}}},
    {"AStartBeyondCounting", {{"staStart=\"0.000000\"", "staStart=\"1e300\""}}},
    {"AnEquationBeyondCounting", {{"staAhead=\"160.000\"", "staAhead=\"1e300\""}}},
    {"EquationsThatGoBack", {{"staInternal=\"250.000\"", "staInternal=\"150.000\""}}},
};

class EndlessCounts : public testing::TestWithParam<EndlessCount>
{};

TEST_P(EndlessCounts, EndInAShortTable)
{
    EXPECT_LE(StationTable(SoundFile(GetParam().changes)).rows.size(), 100U);
}

INSTANTIATE_TEST_SUITE_P(Inspect, EndlessCounts, testing::ValuesIn(ENDLESS_COUNTS),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(DegreesText, RoundsAsAWhole)
{
    EXPECT_EQ(DegreesText(62.5 * RADIANS_OF_A_DEGREE), L"62-30-00.00");
    EXPECT_EQ(DegreesText(-90 * RADIANS_OF_A_DEGREE), L"270-00-00.00");
    EXPECT_EQ(DegreesText((62 + 59.0 / 60 + 59.996 / 3600) * RADIANS_OF_A_DEGREE), L"63-00-00.00");
    EXPECT_EQ(DegreesText(359.99999999 * RADIANS_OF_A_DEGREE), L"0-00-00.00");
}

} // namespace
} // namespace jlandxml::inspect
