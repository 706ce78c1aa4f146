#include "model/DescText.h"

#include "base/Text.h"
#include "support/Rounds.h"
#include "support/RowName.h"

#include <array>
#include <gtest/gtest.h>
#include <random>

namespace jlandxml
{
namespace
{

DescMap Parsed(std::wstring_view text)
{
    DescMap map;
    ParseDescText(text, map);
    return map;
}

struct DescCase
{
    const wchar_t* rule;
    const wchar_t* text;
    DescMap values;
};

class Desc : public testing::TestWithParam<DescCase>
{};

TEST_P(Desc, IsKeysWithTheirValues)
{
    EXPECT_EQ(Parsed(GetParam().text), GetParam().values);
}

INSTANTIATE_TEST_SUITE_P(
    DescText, Desc,
    testing::Values(
        DescCase{L"nothing", L"", {}}, DescCase{L"a sign without a key", L"free text = without a key", {}},
        DescCase{L"two keys", L"主測点間隔 = 20 副測点間隔=10", {{L"主測点間隔", L"20"}, {L"副測点間隔", L"10"}}},
        DescCase{L"a blank in front of the sign", L"主測点間隔 =20", {{L"主測点間隔", L"20"}}},
        DescCase{L"a blank behind the sign", L"主測点間隔= 20", {{L"主測点間隔", L"20"}}},
        DescCase{L"two blanks in front of the sign", L"主測点間隔  = 20", {}},
        DescCase{
            L"a second blank behind the sign belongs to the value", L"主測点間隔 =  20", {{L"主測点間隔", L" 20"}}},
        DescCase{L"an ideographic blank in front of the sign", L"主測点間隔\x3000= 20", {}},
        DescCase{L"white space at the end of a value", L"主測点間隔=20\x3000\t\n", {{L"主測点間隔", L"20"}}},
        DescCase{
            L"of a key that stands twice the first counts", L"道路 主測点間隔=1 主測点間隔=2", {{L"主測点間隔", L"1"}}},
        DescCase{L"a value with signs in it",
                 L"プロジェクト名 = a = b=c 事業段階 = 詳細",
                 {{L"プロジェクト名", L"a = b=c"}, {L"事業段階", L"詳細"}}},
        DescCase{L"a key as the value of another",
                 L"左右岸区分=主測点間隔=5",
                 {{L"主測点間隔", L"5"}, {L"左右岸区分", L""}}},
        DescCase{L"a sign as a value", L"主測点間隔==", {{L"主測点間隔", L"="}}},
        DescCase{L"no value", L"主測点間隔=", {{L"主測点間隔", L""}}},
        DescCase{L"a blank as a value", L"主測点間隔 = ", {{L"主測点間隔", L""}}},
        DescCase{L"a key behind its sign", L"=主測点間隔", {}}, DescCase{L"a sign alone", L"=", {}}),
    BY_RULE);

TEST(DescText, AMatchNeedsTheKeyAtTheFrontAndItsSign)
{
    DescMap map;
    EXPECT_FALSE(MatchDescKey(L"x主測点間隔=1", L"主測点間隔", map));
    EXPECT_FALSE(MatchDescKey(L"主測点間隔", L"主測点間隔", map));
    EXPECT_FALSE(MatchDescKey(L"主測点間隔x=1", L"主測点間隔", map));
    EXPECT_TRUE(map.empty());
    EXPECT_TRUE(MatchDescKey(L"主測点間隔 = 1 ", L"主測点間隔", map));
    EXPECT_EQ(map, (DescMap{{L"主測点間隔", L"1"}}));
}

constexpr std::array KEYS = {L"構築物情報",        L"規格・等級",
                             L"設計交通量",        L"左右岸区分",
                             L"設計計算手法名",    L"線形計算手法名",
                             L"主測点間隔",        L"副測点間隔",
                             L"鉛直原子",          L"適用基準",
                             L"事業段階",          L"プロジェクト名",
                             L"直線部横断勾配",    L"一車線道路又は多車線",
                             L"任意横断勾配リスト"};

/// The scan from the end, character by character.
DescMap NaivelyParsed(std::wstring text)
{
    DescMap map;
    std::wstring tail;
    while (!text.empty())
    {
        tail.insert(tail.begin(), text.back());
        text.pop_back();
        for (const std::wstring key : KEYS)
        {
            bool hit = false;
            for (const wchar_t* const sign : {L" = ", L" =", L"= ", L"="})
            {
                if (tail.starts_with(key + sign))
                {
                    map[key] = TrimRight(std::wstring_view(tail).substr(key.size() + std::wstring_view(sign).size()));
                    hit = true;
                    break;
                }
            }
            if (hit)
            {
                tail.clear();
                break;
            }
        }
    }
    return map;
}

TEST(DescText, RandomTextsGiveWhatTheScanFromTheEndGives)
{
    std::mt19937 random(2026);
    std::vector<std::wstring> pieces(KEYS.begin(), KEYS.end());
    for (const wchar_t* const piece :
         {L"=", L" ", L" = ", L"= ", L" =", L"20", L"要素法", L"\x3000", L"主測点", L"間隔", L"\t"})
    {
        pieces.insert(pieces.end(), 4, piece);
    }
    for (int round = 0; round < Rounds(20000); ++round)
    {
        std::wstring text;
        for (auto count = random() % 14; count > 0; --count)
        {
            text += pieces[random() % pieces.size()];
        }
        ASSERT_EQ(Parsed(text), NaivelyParsed(text)) << testing::PrintToString(text);
    }
}

TEST(DescText, AMegabyteOfSignsIsReadInOneGo)
{
    std::wstring text = L"主測点間隔=";
    for (int index = 0; index < 100000; ++index)
    {
        text += L"x = y=z間隔=";
    }
    EXPECT_EQ(Parsed(text).at(L"主測点間隔").size(), text.size() - 6);
}

} // namespace
} // namespace jlandxml
