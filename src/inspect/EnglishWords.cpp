#include "inspect/EnglishWords.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace jlandxml::inspect
{

namespace
{

constexpr std::pair<std::wstring_view, std::wstring_view> ENGLISH_WORDS[] = {
    {L"線形計算書", L"Alignment"},
    {L"測点座標一覧", L"Stations"},
    {L"縦断計算書", L"Profile"},
    {L"片勾配・拡幅表", L"Cross slopes and widening"},
    {L"中間点・幅杭一覧", L"Points"},
    {L"線形", L"Alignment"},
    {L"主要点", L"Main point"},
    {L"測点（m）", L"Station (m)"},
    {L"測点", L"Station"},
    {L"方向角", L"Azimuth"},
    {L"要素", L"Element"},
    {L"半径（始点）", L"Radius (start)"},
    {L"半径（終点）", L"Radius (end)"},
    {L"長さ", L"Length"},
    {L"向き", L"Turn"},
    {L"計画高", L"Design height"},
    {L"地盤高", L"Ground height"},
    {L"縦断線形", L"Profile"},
    {L"高さ", L"Height"},
    {L"勾配（手前）％", L"Gradient in (%)"},
    {L"勾配（先）％", L"Gradient out (%)"},
    {L"縦断曲線長", L"Curve length"},
    {L"縦断曲線半径", L"Curve radius"},
    {L"曲線始点（m）", L"Curve start (m)"},
    {L"曲線終点（m）", L"Curve end (m)"},
    {L"種別", L"Kind"},
    {L"片勾配％", L"Superelevation (%)"},
    {L"左", L"Left"},
    {L"右", L"Right"},
    {L"組", L"Group"},
    {L"注記", L"Note"},
    {L"点名", L"Name"},
    {L"接線方向角", L"Direction"},
    {L"直線", L"Line"},
    {L"円曲線", L"Curve"},
    {L"クロソイド", L"Clothoid"},
    {L"緩和曲線", L"Spiral"},
    {L"折れ線", L"Irregular line"},
    {L"片勾配すりつけ開始", L"Runout begins"},
    {L"直線勾配から曲線勾配への移行開始", L"Runoff begins"},
    {L"最大片勾配開始", L"Full superelevation begins"},
    {L"最大片勾配終了", L"Full superelevation ends"},
    {L"直線勾配への移行終了", L"Runout starts"},
    {L"片勾配すりつけ終了", L"Runout ends"},
    {L"逆勾配と同じ勾配", L"Reverse crown"},
    {L"水平", L"Level"},
    {L"横断勾配", L"Cross slope"},
    {L"左拡幅", L"Widening left"},
    {L"右拡幅", L"Widening right"},
    {L"中間点", L"Intermediate point"},
    {L"幅杭", L"Width stake"},
    {L"座標点", L"Point"},
};

} // namespace

std::wstring_view EnglishOf(std::wstring_view word)
{
    const auto* const found = std::find_if(std::begin(ENGLISH_WORDS), std::end(ENGLISH_WORDS),
                                           [&](const auto& one) { return one.first == word; });
    return found != std::end(ENGLISH_WORDS) ? found->second : word;
}

} // namespace jlandxml::inspect
