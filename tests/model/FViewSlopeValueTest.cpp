#include "model/FViewSlopeValue.h"

#include "support/RowName.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

struct SlopeTextCase
{
    const wchar_t* text;
    bool taken;
    const wchar_t* staText;
    const wchar_t* staValue;
    const wchar_t* left;
    const wchar_t* right;
};

class SlopeText : public testing::TestWithParam<SlopeTextCase>
{};

TEST_P(SlopeText, IsStationAndSlopes)
{
    FViewSlopeValue value;
    EXPECT_EQ(ParseSlopeValueText(GetParam().text, value), GetParam().taken);
    EXPECT_EQ(value.staText, GetParam().staText);
    EXPECT_EQ(value.staValue, GetParam().staValue);
    EXPECT_EQ(value.leftSlope, GetParam().left);
    EXPECT_EQ(value.rightSlope, GetParam().right);
}

INSTANTIATE_TEST_SUITE_P(
    FViewSlopeValue, SlopeText,
    testing::Values(SlopeTextCase{L"100 2.0", true, L"1+0.000000", L"100", L"2.0", L""},
                    SlopeTextCase{L"1234.5 2.0 -2.0", true, L"12+34.500000", L"1234.5", L"2.0", L"-2.0"},
                    SlopeTextCase{L"-50 a b c", true, L"0+-50.000000", L"-50", L"a", L"b c"},
                    SlopeTextCase{L"x 1 2", true, L"0+0.000000", L"x", L"1", L"2"},
                    SlopeTextCase{L"- 1 2", true, L"0+0.000000", L"-", L"1", L"2"},
                    SlopeTextCase{L" 1 2", true, L"0+0.000000", L"", L"1", L"2"},
                    SlopeTextCase{L"100 ", true, L"1+0.000000", L"100", L"", L""},
                    SlopeTextCase{L"100 1 ", true, L"1+0.000000", L"100", L"1", L""},
                    SlopeTextCase{L"100", false, L"", L"", L"", L""}, SlopeTextCase{L"", false, L"", L"", L"", L""}),
    BY_TEXT);

struct SlopeFormatCase
{
    const wchar_t* station;
    const wchar_t* left;
    const wchar_t* right;
    std::int32_t singleLane;
    const wchar_t* text;
};

class SlopeFormat : public testing::TestWithParam<SlopeFormatCase>
{};

TEST_P(SlopeFormat, HasOneSlopeOnASingleLane)
{
    FViewSlopeValue value;
    value.staValue = GetParam().station;
    value.leftSlope = GetParam().left;
    value.rightSlope = GetParam().right;
    EXPECT_EQ(FormatSlopeValueText(value, GetParam().singleLane), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    FViewSlopeValue, SlopeFormat,
    testing::Values(SlopeFormatCase{L"100", L"2.0", L"-2.0", 0, L"100 2.0 -2.0"},
                    SlopeFormatCase{L"100", L"2.0", L"", 0, L"100 2.0 "}, SlopeFormatCase{L"", L"", L"", 0, L"  "},
                    SlopeFormatCase{L"", L"", L"", 1, L" "}, SlopeFormatCase{L"100", L"", L"", 1, L"100 "},
                    SlopeFormatCase{L"100", L"0.0", L"-2.0", 1, L"100 -2.0"},
                    SlopeFormatCase{L"100", L"0", L"2.5", 1, L"100 2.5"},
                    SlopeFormatCase{L"100", L"1.5", L"2.5", 1, L"100 1.5"},
                    SlopeFormatCase{L"100", L"x", L"2.5", 1, L"100 2.5"},
                    SlopeFormatCase{L"100", L"", L"2.5", 1, L"100 2.5"},
                    SlopeFormatCase{L"100", L"1.5", L"2.5", -1, L"100 1.5 2.5"},
                    SlopeFormatCase{L"100", L"1.5", L"2.5", 2, L"100 1.5 2.5"},
                    SlopeFormatCase{L"100", L"0.00000002", L"2", 1, L"100 2"},
                    SlopeFormatCase{L"100", L"0.00000003", L"2", 1, L"100 0.00000003"},
                    SlopeFormatCase{L"100", L"0.00000002220446049250313", L"2", 1, L"100 0.00000002220446049250313"},
                    SlopeFormatCase{L"100", L"0.00000002220446049", L"2", 1, L"100 2"},
                    SlopeFormatCase{L"100", L"-0.00000002220446049250313", L"2", 1, L"100 -0.00000002220446049250313"},
                    SlopeFormatCase{L"100", L"-0.00000002", L"2", 1, L"100 2"},
                    SlopeFormatCase{L"100", L"-1.5", L"2.5", 1, L"100 -1.5"},
                    SlopeFormatCase{L"100", L"-2.0", L"", 1, L"100 -2.0"}),
    [](const auto& row) {
        const SlopeFormatCase& slope = row.param;
        return "Lanes" + TextName(std::to_wstring(slope.singleLane)) + "_At" + TextName(slope.station) + "_Left" +
               TextName(slope.left) + "_Right" + TextName(slope.right);
    });

TEST(FViewSlopeValue, NeitherReadsNorWritesAnElement)
{
    XmlText xml(L"<SlopeList a='b'/>");
    FViewSlopeValue value;
    EXPECT_FALSE(value.ReadElement(xml.Root()));
    EXPECT_TRUE(value.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<SlopeList a=\"b\"/>");
    EXPECT_STREQ(value.GetElementName(), L"SlopeList");
}

TEST(FViewSlopeValue, ClearEmptiesEveryText)
{
    FViewSlopeValue value;
    value.staText = value.staValue = value.leftSlope = value.rightSlope = L"1";
    value.Clear();
    EXPECT_EQ(value.staText + value.staValue + value.leftSlope + value.rightSlope, L"");
}

} // namespace
} // namespace jlandxml
