#include "dialog/NumberInput.h"

#include "support/RowName.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <regex>

namespace jlandxml
{
namespace
{

constexpr NumberRule RULES[] = {MAIN_INTERVAL_RULE, SUB_INTERVAL_RULE, NORMAL_CROWN_RULE, TRAFFIC_VOLUME_RULE};

/// What may stand in a control, told without a pattern. For texts of up to six characters.
bool NaivelyAccepted(const NumberRule& rule, const std::wstring& text)
{
    if (text.empty())
    {
        return true;
    }
    if (text.find_first_not_of(L"019.") != std::wstring::npos || std::count(text.begin(), text.end(), L'.') > 1)
    {
        return false;
    }
    const std::size_t whole = std::min(text.find(L'.'), text.size());
    if (whole == 0 || (text[0] == L'0' && text.size() > 1 && text[1] != L'.'))
    {
        return false;
    }
    const bool tooManyDigits = whole != text.size() && whole > static_cast<std::size_t>(rule.digitsBeforePoint);
    return !tooManyDigits && std::stod(std::string(text.begin(), text.end())) <= rule.maximum;
}

TEST(NumberInput, EveryTextOfSixCharactersIsJudgedAsByAPlainReading)
{
    constexpr wchar_t LETTERS[] = L"019.-a ";
    std::vector<std::wstring> texts = {L""};
    std::size_t first = 0;
    for (int length = 0; length < 6; ++length)
    {
        const std::size_t end = texts.size();
        for (; first < end; ++first)
        {
            for (const wchar_t letter : std::wstring_view(LETTERS))
            {
                texts.push_back(texts[first] + letter);
            }
        }
    }
    ASSERT_EQ(texts.size(), 1U + 7 + 49 + 343 + 2401 + 16807 + 117649);
    for (const NumberRule& rule : RULES)
    {
        for (const std::wstring& text : texts)
        {
            ASSERT_EQ(AcceptsInput(rule, text), NaivelyAccepted(rule, text)) << testing::PrintToString(text);
        }
    }
}

/// The pattern that a text has to match as a whole while it is typed.
std::wregex PatternOf(const NumberRule& rule)
{
    return std::wregex(L"^[0-9]{0," + std::to_wstring(rule.digitsBeforePoint) + L"}(\\.?[0-9]{0," +
                       std::to_wstring(rule.digitsAfterPoint) + L"})?$");
}

/// A rule that leaves the decision to the digits.
NumberRule DigitsAlone(int beforePoint, int afterPoint)
{
    return {L"", 0.0, 0.0, std::numeric_limits<double>::max(), beforePoint, afterPoint, L""};
}

bool AcceptedByPattern(const std::wregex& pattern, const std::wstring& text)
{
    const bool needlessZero = text.size() > 1 && text[0] == L'0' && text[1] != L'.';
    return text.empty() || (std::regex_match(text, pattern) && !needlessZero && text[0] != L'.');
}

TEST(NumberInput, CountsTheDigitsOfEveryShortTextAsThePatternDoes)
{
    std::vector<std::wstring> texts = {L""};
    for (std::size_t first = 0; texts[first].size() < 7; ++first)
    {
        for (const wchar_t letter : std::wstring_view(L"07.x"))
        {
            texts.push_back(texts[first] + letter);
        }
    }
    constexpr std::pair<int, int> DIGIT_COUNTS[] = {{0, 0}, {1, 0}, {0, 2}, {1, 1}, {2, 3}, {3, 1}, {4, 10}};
    for (const auto& [beforePoint, afterPoint] : DIGIT_COUNTS)
    {
        const NumberRule rule = DigitsAlone(beforePoint, afterPoint);
        const std::wregex pattern = PatternOf(rule);
        for (const std::wstring& text : texts)
        {
            ASSERT_EQ(AcceptsInput(rule, text), AcceptedByPattern(pattern, text))
                << beforePoint << ' ' << afterPoint << testing::PrintToString(text);
        }
    }
}

TEST(NumberInput, CountsTheDigitsOfLongTextsAsThePatternDoes)
{
    std::mt19937 random(10);
    // Digits above all, so that many texts stand just at the limits; a full-width and an Arabic digit, which are none.
    constexpr std::wstring_view LETTERS = L"1234567890123456789012345678901234567890.. -e１٣";
    int accepted = 0;
    for (const auto& [beforePoint, afterPoint] : {std::pair(4, 10), std::pair(6, 10)})
    {
        const NumberRule rule = DigitsAlone(beforePoint, afterPoint);
        const std::wregex pattern = PatternOf(rule);
        for (int count = 0; count < 100000; ++count)
        {
            std::wstring text(random() % 20, L' ');
            std::generate(text.begin(), text.end(), [&] { return LETTERS[random() % LETTERS.size()]; });
            if (random() % 2 == 0)
            {
                std::replace_if(
                    text.begin(), text.end(), [](wchar_t one) { return one < L'.' || one > L'9'; }, L'5');
            }
            ASSERT_EQ(AcceptsInput(rule, text), AcceptedByPattern(pattern, text)) << testing::PrintToString(text);
            accepted += AcceptsInput(rule, text) ? 1 : 0;
        }
    }
    EXPECT_GT(accepted, 50000);
}

struct InputCase
{
    const wchar_t* text;
    bool interval;
    bool traffic;
};

class Input : public testing::TestWithParam<InputCase>
{};

TEST_P(Input, IsAcceptedByPatternAndBounds)
{
    EXPECT_EQ(AcceptsInput(MAIN_INTERVAL_RULE, GetParam().text), GetParam().interval);
    EXPECT_EQ(AcceptsInput(SUB_INTERVAL_RULE, GetParam().text), GetParam().interval);
    EXPECT_EQ(AcceptsInput(NORMAL_CROWN_RULE, GetParam().text), GetParam().interval);
    EXPECT_EQ(AcceptsInput(TRAFFIC_VOLUME_RULE, GetParam().text), GetParam().traffic);
}

INSTANTIATE_TEST_SUITE_P(NumberInput, Input,
                         testing::Values(InputCase{L"", true, true}, InputCase{L"0", true, true},
                                         InputCase{L"0.", true, true}, InputCase{L"0.5", true, true},
                                         InputCase{L"01", false, false}, InputCase{L".5", false, false},
                                         InputCase{L"1.5.", false, false}, InputCase{L"12345", false, true},
                                         InputCase{L"1234567", false, false}, InputCase{L"9999.999", true, true},
                                         InputCase{L"9999.9991", false, true}, InputCase{L"999999", false, true},
                                         InputCase{L"999999.0", false, true}, InputCase{L"999999.1", false, false},
                                         InputCase{L"1.0123456789", true, true},
                                         InputCase{L"1.01234567891", false, false}, InputCase{L"-1", false, false},
                                         InputCase{L"1e3", false, false}, InputCase{L"１", false, false},
                                         InputCase{L"1\n", false, false}),
                         BY_TEXT);

TEST(NumberInput, ALongTextIsRefusedWithoutADeepStack)
{
    EXPECT_FALSE(AcceptsInput(MAIN_INTERVAL_RULE, std::wstring(5000000, L'1')));
}

struct NumberCase
{
    const wchar_t* text;
    const wchar_t* finding;
};

class NumberCheck : public testing::TestWithParam<NumberCase>
{};

TEST_P(NumberCheck, GivesTheFirstFinding)
{
    EXPECT_EQ(CheckNumber(GetParam().text, MAIN_INTERVAL_RULE), GetParam().finding);
}

INSTANTIATE_TEST_SUITE_P(
    NumberInput, NumberCheck,
    testing::Values(NumberCase{L"", L"主測点間隔が入力されていません。"}, NumberCase{L"20", L""},
                    NumberCase{L"0.001", L""}, NumberCase{L"9999.999", L""},
                    NumberCase{L"0.0009999", L"主測点間隔は0.0010から9999.9990の範囲内で入力してください。"},
                    NumberCase{L"9999.9991", L"主測点間隔は0.0010から9999.9990の範囲内で入力してください。"},
                    NumberCase{L"0", L"主測点間隔は0.0010から9999.9990の範囲内で入力してください。"},
                    NumberCase{L"-inf", L"主測点間隔は0.0010から9999.9990の範囲内で入力してください。"},
                    NumberCase{L"100 ", L"主測点間隔は数値を入力してください。"},
                    NumberCase{L"abc", L"主測点間隔は数値を入力してください。"},
                    NumberCase{L" ", L"主測点間隔は数値を入力してください。"},
                    NumberCase{L"1,5", L"主測点間隔は数値を入力してください。"}, NumberCase{L" 100", L""},
                    NumberCase{L"1e3", L""}, NumberCase{L"0x10", L""}, NumberCase{L"1.", L""},
                    NumberCase{L"1.0123456789", L""},
                    NumberCase{L"1.01234567890", L"主測点間隔は小数第10位までの値を入力してください。"},
                    NumberCase{L"1.5e0000000000", L"主測点間隔は小数第10位までの値を入力してください。"}),
    BY_TEXT);

TEST(NumberInput, DecimalsAreCountedUpToTen)
{
    for (std::size_t decimals = 0; decimals <= 14; ++decimals)
    {
        const std::wstring finding = CheckNumber(L"1." + std::wstring(decimals, L'1'), MAIN_INTERVAL_RULE);
        EXPECT_EQ(finding, decimals <= 10 ? L"" : L"主測点間隔は小数第10位までの値を入力してください。");
    }
}

TEST(NumberInput, WhatIsTypedKeepsToTheRulesBounds)
{
    NumberRule rule = MAIN_INTERVAL_RULE;
    rule.typedMinimum = 5.0;
    EXPECT_TRUE(AcceptsInput(rule, L"5"));
    EXPECT_FALSE(AcceptsInput(rule, L"4.9"));
    EXPECT_TRUE(AcceptsInput(rule, L""));
}

} // namespace
} // namespace jlandxml
