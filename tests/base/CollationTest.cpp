#include "base/Collation.h"

#include <clocale>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace jlandxml
{
namespace
{

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

int Compare(const std::wstring& first, const std::wstring& second)
{
    return Sign(CompareJapanese(first, second));
}

/// Texts in the order in which a sorted list shows them.
struct OrderCase
{
    const char* name;
    std::vector<std::wstring> texts;
};

class JapaneseOrder : public testing::TestWithParam<OrderCase>
{};

TEST_P(JapaneseOrder, StandsBetweenAnyTwo)
{
    const std::vector<std::wstring>& texts = GetParam().texts;
    for (std::size_t first = 0; first < texts.size(); ++first)
    {
        for (std::size_t second = 0; second < texts.size(); ++second)
        {
            EXPECT_EQ(Compare(texts[first], texts[second]), Sign(static_cast<int>(first) - static_cast<int>(second)))
                << testing::PrintToString(texts[first]) << testing::PrintToString(texts[second]);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Collation, JapaneseOrder,
    testing::Values(OrderCase{"Closure", {L"開放型", L"閉合型"}}, OrderCase{"Bank", {L"右岸", L"左岸"}},
                    OrderCase{"RiverClass", {L"1級", L"2級", L"準用", L"普通"}},
                    OrderCase{"RoadClass",
                              {L"第1種第1級", L"第1種第2級", L"第1種第3級", L"第1種第4級", L"第2種第1級", L"第2種第2級",
                               L"第3種第1級", L"第3種第2級", L"第3種第3級", L"第3種第4級", L"第3種第5級", L"第4種第1級",
                               L"第4種第2級", L"第4種第3級", L"第4種第4級"}},
                    OrderCase{"Scripts", {L"", L"1", L"10", L"2", L"a", L"B", L"あ", L"い", L"か", L"亜", L"中"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Collation, IsOneOrderOfAllTexts)
{
    constexpr std::wstring_view LETTERS = L"aAbあアが右左一1.、";
    std::mt19937 random(11);
    const auto text = [&] {
        std::wstring letters;
        for (std::size_t length = random() % 4; length > 0; --length)
        {
            letters += LETTERS[random() % LETTERS.size()];
        }
        return letters;
    };
    for (int round = 0; round < 3000; ++round)
    {
        const std::wstring a = text();
        const std::wstring b = text();
        const std::wstring c = text();
        ASSERT_EQ(Compare(a, a), 0);
        ASSERT_EQ(Compare(a, b), -Compare(b, a));
        if (Compare(a, b) <= 0 && Compare(b, c) <= 0)
        {
            ASSERT_LE(Compare(a, c), 0);
        }
    }
}

TEST(Collation, DoesNotDependOnTheLocaleOfTheProcess)
{
    const std::string former = std::setlocale(LC_ALL, nullptr);
    for (const char* const locale : {"C", "", "en_US.UTF-8", "de_DE.UTF-8"})
    {
        std::setlocale(LC_ALL, locale);
        EXPECT_EQ(Compare(L"開放型", L"閉合型"), -1);
        EXPECT_EQ(Compare(L"左岸", L"右岸"), 1);
    }
    std::setlocale(LC_ALL, former.c_str());
}

} // namespace
} // namespace jlandxml
