#include "model/FViewWidening.h"

#include "model/UnsetDouble.h"
#include "support/RowName.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

struct WideningCase
{
    const wchar_t* text;
    double station;
    double width;
    const wchar_t* code;
    const wchar_t* formatted;
};

class WideningText : public testing::TestWithParam<WideningCase>
{};

TEST_P(WideningText, IsReadAndFormatted)
{
    FViewWidening widening;
    widening.station = widening.width = 9.0;
    widening.code = L"former";
    EXPECT_TRUE(ParseWideningText(GetParam().text, widening.station, widening.width, widening.code));
    EXPECT_EQ(widening.station, GetParam().station);
    EXPECT_EQ(widening.width, GetParam().width);
    EXPECT_EQ(widening.code, GetParam().code);
    EXPECT_EQ(FormatWideningText(widening), GetParam().formatted);
}

INSTANTIATE_TEST_SUITE_P(FViewWidening, WideningText,
                         testing::Values(WideningCase{L"100 3.5", 100, 3.5, L"", L"100. 3.5"},
                                         WideningCase{L"100 3.5 2", 100, 3.5, L"2", L"100. 3.5 2"},
                                         WideningCase{L"100 3.5 7", 100, 3.5, L"7", L"100. 3.5 0"},
                                         WideningCase{L"100 3.5 2 x", 100, 3.5, L"2 x", L"100. 3.5 2 x"},
                                         WideningCase{L"abc 3.5", 0, 3.5, L"", L"0. 3.5"},
                                         WideningCase{L"12.3456789 0.00004", 12.3456789, 0.00004, L"", L"12.345679 0."},
                                         WideningCase{L"100  3.5", 100, 0, L"3.5", L"100. 0. 3.5"},
                                         WideningCase{L"100 3.5 ", 100, 3.5, L"", L"100. 3.5"},
                                         WideningCase{L" 3.5", 0, 3.5, L"", L"0. 3.5"},
                                         WideningCase{L"\t100\t 3.5\n -1", 100, 3.5, L"-1", L"100. 3.5 0"},
                                         WideningCase{L"100 3.5 x", 100, 3.5, L"x", L"100. 3.5 x"},
                                         WideningCase{L"100 3.5 4", 100, 3.5, L"4", L"100. 3.5 4"},
                                         WideningCase{L"100 3.5 5", 100, 3.5, L"5", L"100. 3.5 0"}),
                         BY_TEXT);

TEST(FViewWidening, TheStationHasSixDecimalsAndTheWidthFour)
{
    FViewWidening widening;
    widening.station = 12.34567891;
    widening.width = 1.23456789;
    EXPECT_EQ(FormatWideningText(widening), L"12.345679 1.2346");
}

TEST(FViewWidening, ATextWithoutABlankChangesNothing)
{
    double station = 1.0;
    double width = 2.0;
    CompactText code = L"3";
    EXPECT_FALSE(ParseWideningText(L"100", station, width, code));
    EXPECT_FALSE(ParseWideningText(L"", station, width, code));
    EXPECT_EQ(station, 1.0);
    EXPECT_EQ(width, 2.0);
    EXPECT_EQ(code, L"3");
}

TEST(FViewWidening, UnsetNumbersAreFormattedAsPoints)
{
    FViewWidening widening;
    widening.station = UNSET_DOUBLE;
    widening.width = UNSET_DOUBLE;
    EXPECT_EQ(FormatWideningText(widening), L". .");
}

TEST(FViewWidening, ACodeThatTheFormatDoesNotHaveIsRemarkedOn)
{
    for (const wchar_t* const code : {L"", L"0", L"1", L"2", L"3", L"4"})
    {
        EXPECT_EQ(WideningCodeRemark(code), std::nullopt);
    }
    EXPECT_EQ(WideningCodeRemark(L"5"), L"「5」を「0」と出力します");
    EXPECT_EQ(WideningCodeRemark(L"-1"), L"「-1」を「0」と出力します");
    EXPECT_EQ(WideningCodeRemark(L"-"), L"「-」のまま出力します");
    EXPECT_EQ(WideningCodeRemark(L"02"), L"「02」のまま出力します");
    EXPECT_EQ(WideningCodeRemark(L"円"), L"「円」のまま出力します");
}

TEST(FViewWidening, ClearMeansZeroNotUnset)
{
    FViewWidening widening;
    widening.station = 1.0;
    widening.width = 3.0;
    widening.code = L"2";
    widening.Clear();
    EXPECT_EQ(widening.station, 0.0);
    EXPECT_EQ(widening.width, 0.0);
    EXPECT_EQ(widening.code, L"");
}

TEST(FViewWidening, NeitherReadsNorWritesAnElement)
{
    XmlText xml(L"<Widening>1 2 3</Widening>");
    FViewWidening widening;
    widening.station = 1.0;
    EXPECT_TRUE(widening.ReadElement(xml.Root()));
    EXPECT_EQ(widening.station, 1.0);
    EXPECT_EQ(widening.code, L"");
    EXPECT_TRUE(widening.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<Widening>1 2 3</Widening>");
    EXPECT_STREQ(widening.GetElementName(), L"Widening");
}

} // namespace
} // namespace jlandxml
