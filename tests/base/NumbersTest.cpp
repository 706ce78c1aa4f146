#include "base/Numbers.h"

#include "support/RowName.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace jlandxml
{
namespace
{

constexpr double BEYOND_ALL = std::numeric_limits<double>::infinity();

struct DoubleCase
{
    const wchar_t* text;
    double value;
    std::size_t length;
};

class DoubleText : public testing::TestWithParam<DoubleCase>
{};

TEST_P(DoubleText, ReadsAsTheCLibraryDoes)
{
    const ParsedDouble parsed = ParseDouble(GetParam().text);
    EXPECT_EQ(parsed.value, GetParam().value);
    EXPECT_EQ(std::signbit(parsed.value), std::signbit(GetParam().value));
    EXPECT_EQ(parsed.length, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, DoubleText,
    testing::Values(DoubleCase{L"12.5", 12.5, 4}, DoubleCase{L" \t\n\v\f\r12.5m", 12.5, 10}, DoubleCase{L"+.5", 0.5, 3},
                    DoubleCase{L"-5.", -5.0, 3}, DoubleCase{L"-0", -0.0, 2}, DoubleCase{L"1e3", 1000.0, 3},
                    DoubleCase{L"1E+3", 1000.0, 4}, DoubleCase{L"1e", 1.0, 1}, DoubleCase{L"1e+", 1.0, 1},
                    DoubleCase{L"1.2.3", 1.2, 3}, DoubleCase{L".", 0.0, 0}, DoubleCase{L"-", 0.0, 0},
                    DoubleCase{L"", 0.0, 0}, DoubleCase{L"\x01", 0.0, 0}, DoubleCase{L"abc", 0.0, 0},
                    DoubleCase{L"e5", 0.0, 0}, DoubleCase{L"- 5", 0.0, 0}, DoubleCase{L"0x1F", 31.0, 4},
                    DoubleCase{L"-0X.8p1", -1.0, 7}, DoubleCase{L"0x", 0.0, 1}, DoubleCase{L"0xg", 0.0, 1},
                    DoubleCase{L"0x1p", 1.0, 3}, DoubleCase{L"inf", BEYOND_ALL, 3},
                    DoubleCase{L"-INFINITY", -BEYOND_ALL, 9}, DoubleCase{L"infinit", BEYOND_ALL, 3},
                    DoubleCase{L"1e400", BEYOND_ALL, 5}, DoubleCase{L"-1e400", -BEYOND_ALL, 6},
                    DoubleCase{L"1e-400", 0.0, 6}, DoubleCase{L"-1e-400", -0.0, 7},
                    DoubleCase{L"0e999999999999", 0.0, 14}, DoubleCase{L"0x0p9999", 0.0, 8},
                    DoubleCase{L"0x0p-99999999999", 0.0, 16}, DoubleCase{L"0x1p9999", BEYOND_ALL, 8},
                    DoubleCase{L"0x1p-9999", 0.0, 9}, DoubleCase{L"５", 0.0, 0},
                    DoubleCase{L"\x3000"
                               L"5",
                               0.0, 0}),
    [](const auto& row) { return TextName(std::to_wstring(row.index) + L" " + row.param.text); });

TEST(Numbers, NotANumberIsReadWithItsPayload)
{
    EXPECT_TRUE(std::isnan(ParseDouble(L"nan").value));
    EXPECT_EQ(ParseDouble(L"NaN(0x12_ab)z").length, 12U);
    EXPECT_EQ(ParseDouble(L"nan(").length, 3U);
    EXPECT_EQ(ParseDouble(L"nan(a{)").length, 3U);
}

TEST(Numbers, LongDigitsRoundAsTheCLibraryDoes)
{
    const std::wstring zeros(400, L'0');
    EXPECT_EQ(ParseDouble(zeros + L"1.5").value, 1.5);
    EXPECT_EQ(ParseDouble(L"0." + zeros + L"1").value, 0.0);
    EXPECT_EQ(ParseDouble(L"1" + zeros).value, BEYOND_ALL);
    EXPECT_EQ(ParseDouble(L"0." + zeros + L"1e401").value, 1.0);
    EXPECT_EQ(ParseDouble(L"0.1000000000000000055511151231257827021181583404541015625").value, 0.1);
    EXPECT_EQ(ParseDouble(L"9007199254740993").value, 9007199254740992.0);
    EXPECT_EQ(ParseDouble(L"4.9406564584124654e-324").value, std::numeric_limits<double>::denorm_min());
}

TEST(Numbers, RandomTextsReadAsTheCLibraryDoes)
{
    std::mt19937 random(4711);
    const std::string letters = "0123456789012345678901234567890.+-eExXpPinfa ";
    for (int round = 0; round < 50000; ++round)
    {
        std::string text(random() % 12, '\0');
        for (char& character : text)
        {
            character = letters[random() % letters.size()];
        }
        char* end = nullptr;
        const double expected = std::strtod(text.c_str(), &end);
        const ParsedDouble parsed = ParseDouble(std::wstring(text.begin(), text.end()));
        EXPECT_EQ(parsed.length, static_cast<std::size_t>(end - text.c_str())) << text;
        EXPECT_TRUE(parsed.value == expected || (std::isnan(parsed.value) && std::isnan(expected))) << text;
    }
}

struct IntCase
{
    const wchar_t* text;
    std::int32_t value;
    std::size_t length;
};

class IntText : public testing::TestWithParam<IntCase>
{};

TEST_P(IntText, ReadsAsTheCLibraryDoes)
{
    const ParsedInt parsed = ParseInt(GetParam().text);
    EXPECT_EQ(parsed.value, GetParam().value);
    EXPECT_EQ(parsed.length, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, IntText,
    testing::Values(IntCase{L"12", 12, 2}, IntCase{L" -7x", -7, 3}, IntCase{L"+3", 3, 2}, IntCase{L"2 x", 2, 1},
                    IntCase{L"", 0, 0}, IntCase{L"x", 0, 0}, IntCase{L"-", 0, 0},
                    IntCase{L"2147483647", 2147483647, 10}, IntCase{L"2147483648", 2147483647, 10},
                    IntCase{L"-2147483648", std::numeric_limits<std::int32_t>::min(), 11},
                    IntCase{L"-99999999999999999999", std::numeric_limits<std::int32_t>::min(), 21}),
    [](const auto& row) { return TextName(std::to_wstring(row.index) + L" " + row.param.text); });

struct FixedCase
{
    double value;
    int digits;
    const wchar_t* text;
};

class FixedNumber : public testing::TestWithParam<FixedCase>
{};

TEST_P(FixedNumber, IsTheCorrectlyRoundedDecimal)
{
    EXPECT_EQ(FormatFixed(GetParam().value, GetParam().digits), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Numbers, FixedNumber,
                         testing::Values(FixedCase{0.5, 0, L"0"}, FixedCase{1.5, 0, L"2"}, FixedCase{2.5, 0, L"2"},
                                         FixedCase{0.125, 2, L"0.12"}, FixedCase{0.375, 2, L"0.38"},
                                         FixedCase{-0.125, 2, L"-0.12"}, FixedCase{1.005, 2, L"1.00"},
                                         FixedCase{0.1, 20, L"0.10000000000000000555"},
                                         FixedCase{1e15, 3, L"1000000000000000.000"},
                                         FixedCase{123456789012345678.0, 1, L"123456789012345680.0"},
                                         FixedCase{1e22, 0, L"10000000000000000000000"}, FixedCase{-0.0, 3, L"-0.000"},
                                         FixedCase{9.9999, 3, L"10.000"}, FixedCase{BEYOND_ALL, 3, L"inf"},
                                         FixedCase{-BEYOND_ALL, 3, L"-inf"},
                                         FixedCase{std::numeric_limits<double>::quiet_NaN(), 3, L"nan"},
                                         FixedCase{-std::numeric_limits<double>::quiet_NaN(), 3, L"nan"}),
                         [](const auto& row) { return TextName(std::to_wstring(row.index) + L" " + row.param.text); });

TEST(Numbers, TheLargestDoublePrintsWhole)
{
    const std::wstring text = FormatFixed(-std::numeric_limits<double>::max(), 12);
    EXPECT_EQ(text.size(), 323U);
    EXPECT_EQ(text.substr(0, 18), L"-17976931348623157");
    EXPECT_EQ(text.substr(310), L".000000000000");
}

TEST(Numbers, RandomValuesReadBackFromTheirText)
{
    std::mt19937_64 random(99);
    std::uniform_real_distribution<double> exponent(-6.0, 17.0);
    for (int round = 0; round < 20000; ++round)
    {
        const double value = std::pow(10.0, exponent(random)) * (round % 2 == 0 ? 1.0 : -1.0);
        const std::wstring text = FormatFixed(value, 24);
        EXPECT_EQ(ParseDouble(text).value, value);
        EXPECT_EQ(ParseDouble(text).length, text.size());
    }
}

} // namespace
} // namespace jlandxml
