#include "model/NumberText.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/RowName.h"
#include "support/ToldWarnings.h"
#include "support/XmlText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace jlandxml
{
namespace
{

struct NumericCase
{
    const wchar_t* text;
    bool numeric;
    double value;
};

class NumericText : public testing::TestWithParam<NumericCase>
{};

TEST_P(NumericText, IsSignDigitsAndOnePoint)
{
    EXPECT_EQ(IsNumericText(GetParam().text), GetParam().numeric);
    EXPECT_EQ(ReadNumber(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(NumberText, NumericText,
                         testing::Values(NumericCase{L"1.2.3", false, 0.0}, NumericCase{L"12-3", false, 0.0},
                                         NumericCase{L"1e5", false, 0.0}, NumericCase{L"", true, 0.0},
                                         NumericCase{L"-", true, 0.0}, NumericCase{L"+", true, 0.0},
                                         NumericCase{L".", true, 0.0}, NumericCase{L"+.5", true, 0.5},
                                         NumericCase{L" 1", false, 0.0}, NumericCase{L"1 ", false, 0.0},
                                         NumericCase{L"--1", false, 0.0}, NumericCase{L"-12.50", true, -12.5},
                                         NumericCase{L"..", false, 0.0}, NumericCase{L"INF", false, 0.0},
                                         NumericCase{L"0x1", false, 0.0}, NumericCase{L"１", false, 0.0},
                                         NumericCase{L"007", true, 7.0}),
                         BY_TEXT);

class SignOfZero : public testing::TestWithParam<std::pair<const wchar_t*, bool>>
{};

TEST_P(SignOfZero, IsReadWhereADigitIs)
{
    EXPECT_EQ(std::signbit(ReadNumber(GetParam().first)), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(NumberText, SignOfZero,
                         testing::Values(std::pair(L"-", false), std::pair(L"-.", false), std::pair(L"", false),
                                         std::pair(L"-x", false), std::pair(L"-0", true), std::pair(L"-.0", true)),
                         [](const auto& row) { return TextName(row.param.first); });

struct TrimCase
{
    const wchar_t* text;
    const wchar_t* trimmed;
};

class TrimmedNumberText : public testing::TestWithParam<TrimCase>
{};

TEST_P(TrimmedNumberText, LosesZerosBehindThePointAndABarePoint)
{
    std::wstring text = GetParam().text;
    TrimNumberText(text);
    EXPECT_EQ(text, GetParam().trimmed);
}

INSTANTIATE_TEST_SUITE_P(NumberText, TrimmedNumberText,
                         testing::Values(TrimCase{L"12.500", L"12.5"}, TrimCase{L"12.000", L"12"},
                                         TrimCase{L"100", L"100"}, TrimCase{L"0.0", L"0"}, TrimCase{L"-.0", L"-"},
                                         TrimCase{L".", L""}, TrimCase{L"", L""},
                                         TrimCase{L"12+34.500000", L"12+34.500000"}, TrimCase{L"1.0e5", L"1.0e5"},
                                         TrimCase{L"1.2.0", L"1.2.0"}),
                         BY_TEXT);

struct NumberCase
{
    double value;
    int digits;
    const wchar_t* text;
};

class NumberTexts : public testing::TestWithParam<NumberCase>
{};

TEST_P(NumberTexts, CloseWholeNumbersWithAPoint)
{
    EXPECT_EQ(NumberText(GetParam().value, GetParam().digits), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    NumberText, NumberTexts,
    testing::Values(NumberCase{12.5, 3, L"12.5"}, NumberCase{12.0, 3, L"12."}, NumberCase{-0.0004, 3, L"0."},
                    NumberCase{0.00049, 3, L"0."}, NumberCase{-12.34, 3, L"-12.34"}, NumberCase{1000.0, 3, L"1000."},
                    NumberCase{0.0005, 3, L"0.001"}, NumberCase{-0.0005, 3, L"-0.001"}, NumberCase{-0.0, 3, L"0."},
                    NumberCase{1234567890123456.0, 4, L"1234567890123456."}, NumberCase{UNSET_DOUBLE, 3, L"."},
                    NumberCase{std::numeric_limits<double>::infinity(), 6, L"inf."},
                    NumberCase{-std::numeric_limits<double>::infinity(), 6, L"-inf."},
                    NumberCase{std::numeric_limits<double>::quiet_NaN(), 6, L"nan."},
                    NumberCase{1.0 / 3.0, 12, L"0.333333333333"}, NumberCase{0.6e-12, 12, L"0.000000000001"},
                    NumberCase{0.4e-12, 12, L"0."}),
    [](const auto& row) { return TextName(std::to_wstring(row.index) + L" " + row.param.text); });

class SmallestNumber : public testing::TestWithParam<int>
{};

TEST_P(SmallestNumber, IsHalfAUnitOfTheLastDecimal)
{
    const int digits = GetParam();
    const double half = ParseDouble(L"5e-" + std::to_wstring(digits + 1)).value;
    EXPECT_EQ(WithoutNegativeZero(half, digits), half);
    EXPECT_EQ(WithoutNegativeZero(-half, digits), -half);
    const double less = std::nextafter(half, 0.0);
    EXPECT_EQ(WithoutNegativeZero(less, digits), 0.0);
    EXPECT_EQ(WithoutNegativeZero(-less, digits), 0.0);
    EXPECT_FALSE(std::signbit(WithoutNegativeZero(-less, digits)));
}

INSTANTIATE_TEST_SUITE_P(NumberText, SmallestNumber, testing::Range(0, MOST_DIGITS + 1),
                         [](const auto& row) { return "Of" + std::to_string(row.param) + "Decimals"; });

TEST(NumberText, MoreThanTwelveDecimalsAreWrittenUpToTwenty)
{
    EXPECT_EQ(FixedText(0.5, 13), L"0.5000000000000");
    EXPECT_EQ(FixedText(0.1, 15), L"0.100000000000000");
    EXPECT_EQ(NumberText(0.125, 15), L"0.125");
    EXPECT_EQ(NumberText(-0.4e-15, 15), L"0.");
    EXPECT_EQ(FixedText(0.5, 20), L"0.50000000000000000000");
    EXPECT_EQ(NumberText(-0.4e-20, 20), L"0.");
}

TEST(NumberText, ANumberOfDecimalsOutsideTheRangeIsTheNearestWithin)
{
    constexpr int LEAST = std::numeric_limits<int>::min();
    constexpr int MOST = std::numeric_limits<int>::max();
    EXPECT_EQ(FixedText(0.5, 21), L"0.50000000000000000000");
    EXPECT_EQ(FixedText(0.5, MOST), L"0.50000000000000000000");
    EXPECT_EQ(NumberText(1.75, MOST), L"1.75");
    EXPECT_EQ(NumberText(1.75, -1), L"2.");
    EXPECT_EQ(ClosedFixedText(1.75, LEAST), L"2.");
    EXPECT_EQ(NumberText(-0.25, LEAST), L"0.");
    EXPECT_EQ(WithoutNegativeZero(1.75, LEAST), 1.75);
    XmlText xml(L"<a/>");
    FormatDoubleAttribute(xml.Root(), L"x", -1.75, MOST);
    EXPECT_EQ(xml.Text(), L"<a x=\"-1.75\"/>");
}

TEST(NumberText, TheLargestNumberHasRoomForAllDecimals)
{
    const std::wstring text = FixedText(-std::numeric_limits<double>::max(), MOST_DIGITS);
    EXPECT_EQ(text.size(), 1U + 309 + 1 + 20);
    EXPECT_TRUE(text.ends_with(L".00000000000000000000"));
}

TEST(NumberText, FixedTextKeepsItsZerosAndNeverShowsANegativeZero)
{
    EXPECT_EQ(FixedText(200.0, 8), L"200.00000000");
    EXPECT_EQ(FixedText(-0.000000001, 8), L"0.00000000");
    EXPECT_EQ(FixedText(141.4213562373095, 6), L"141.421356");
}

TEST(NumberText, AnUnsetValueLeavesTheAttributeAsItStands)
{
    XmlText xml(L"<a staStart='old'/>");
    FormatDoubleAttribute(xml.Root(), L"staStart", UNSET_DOUBLE, 4);
    EXPECT_EQ(xml.Text(), L"<a staStart=\"old\"/>");
    FormatDoubleAttribute(xml.Root(), L"staStart", 12.0, 4);
    EXPECT_EQ(xml.Text(), L"<a staStart=\"12.\"/>");
    FormatDoubleAttribute(xml.Root(), L"staEnd", UNSET_DOUBLE, 4);
    EXPECT_EQ(xml.Text(), L"<a staStart=\"12.\"/>");
}

TEST(NumberText, AMissingAttributeLeavesTheValue)
{
    XmlText xml(L"<a x='1.5' y='abc' t='' />");
    double value = 7.0;
    EXPECT_FALSE(ReadNumberAttribute(xml.Root(), L"z", value));
    EXPECT_EQ(value, 7.0);
    EXPECT_TRUE(ReadNumberAttribute(xml.Root(), L"x", value));
    EXPECT_EQ(value, 1.5);
    EXPECT_TRUE(ReadNumberAttribute(xml.Root(), L"y", value));
    EXPECT_EQ(value, 0.0);
    std::wstring text = L"kept";
    EXPECT_FALSE(ReadTextAttribute(xml.Root(), L"X", text));
    EXPECT_EQ(text, L"kept");
    EXPECT_TRUE(ReadTextAttribute(xml.Root(), L"t", text));
    EXPECT_EQ(text, L"");
}

TEST(NumberText, AnEmptyTextIsNotWritten)
{
    XmlText xml(L"<a name='old'/>");
    EXPECT_TRUE(WriteTextAttribute(xml.Root(), L"name", L""));
    EXPECT_TRUE(WriteTextAttribute(xml.Root(), L"desc", L""));
    EXPECT_EQ(xml.Text(), L"<a name=\"old\"/>");
    EXPECT_TRUE(WriteTextAttribute(xml.Root(), L"name", L"新"));
    EXPECT_EQ(xml.Text(), L"<a name=\"新\"/>");
}

struct PairCase
{
    const wchar_t* text;
    bool split;
    double first;
    double second;
};

class NumberPair : public testing::TestWithParam<PairCase>
{};

TEST_P(NumberPair, IsTwoPartsWithOneBlank)
{
    double first = -1.0;
    double second = -2.0;
    EXPECT_EQ(SplitNumberPair(GetParam().text, first, second), GetParam().split);
    EXPECT_EQ(first, GetParam().first);
    EXPECT_EQ(second, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(NumberText, NumberPair,
                         testing::Values(PairCase{L"1.5 -2", true, 1.5, -2.0}, PairCase{L"1.5  2", true, 1.5, 2.0},
                                         PairCase{L"1\t \n2 ", true, 1.0, 2.0}, PairCase{L"abc 2", true, 0.0, 2.0},
                                         PairCase{L"1 ", true, 1.0, 0.0}, PairCase{L" 1", true, 0.0, 1.0},
                                         PairCase{L"12", false, -1.0, -2.0}, PairCase{L"", false, -1.0, -2.0},
                                         PairCase{L"1 2 3", false, -1.0, -2.0}, PairCase{L" 1 2", false, -1.0, -2.0},
                                         PairCase{L"1\x3000"
                                                  L"2",
                                                  false, -1.0, -2.0}),
                         BY_TEXT);

struct NoNumberCase
{
    const char* rule;
    const char* text;
    const wchar_t* told; ///< null where nothing is
};

class NoNumber : public testing::TestWithParam<NoNumberCase>
{};

TEST_P(NoNumber, IsToldOfItsElementOnOneLine)
{
    XmlText xml(L"<a/>");
    const std::wstring wide = WideFromUtf8(GetParam().text);
    const Told told =
        GetParam().told != nullptr ? Told{std::wstring(L"number-not-whole a（") + GetParam().told + L"）"} : Told();
    EXPECT_EQ(WarningsOf([&] {
                  const WcXmNode root = xml.Root();
                  const NumberPlace place(root);
                  EXPECT_EQ(ReadNumber(wide), 0.0);
              }),
              told);
    EXPECT_EQ(WarningsOf([&] {
                  const WcXmNode root = xml.Root();
                  const NumberPlace place(root);
                  EXPECT_EQ(ReadNumber(std::string_view(GetParam().text)), 0.0);
              }),
              told);
    EXPECT_EQ(WarningsOf([&] { ReadNumber(wide); }), Told());
}

INSTANTIATE_TEST_SUITE_P(NumberText, NoNumber,
                         testing::Values(NoNumberCase{"AWord", "路線", L"「路線」"},
                                         NoNumberCase{"ABrokenLine", "1\r\n2", L"「1  2」"},
                                         NoNumberCase{"ATabulator", "1\t2", L"「1 2」"},
                                         NoNumberCase{"AsLongAsARemark", "a234567890b234567890c234567890d234567890",
                                                      L"「a234567890b234567890c234567890d234567890」"},
                                         NoNumberCase{"LongerThanARemark", "a234567890b234567890c234567890d2345678901",
                                                      L"「a234567890b234567890c234567890d234567890…」"},
                                         NoNumberCase{"ARadiusThatIsStraight", "INF", nullptr}),
                         [](const auto& row) { return std::string(row.param.rule); });

TEST(NumberText, AValueIsToldOfTheElementThatIsBeingReadAndOfNoneOtherwise)
{
    XmlText xml(L"<a/>");
    const WcXmNode root = xml.Root();
    const auto warn = [] { WarnOfValue(WarningCause::UnknownWideningCode, L"5"); };
    EXPECT_EQ(WarningsOf(warn), Told());
    const Told told = WarningsOf([&] {
        const NumberPlace place(root);
        warn();
    });
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].ends_with(L" a（5）")) << testing::PrintToString(told[0]);
}

} // namespace
} // namespace jlandxml
