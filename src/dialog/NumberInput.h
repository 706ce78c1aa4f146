#pragma once

#include <string>
#include <string_view>

namespace jlandxml
{

/// What may be typed into a numeric edit control.
struct NumberInputRule
{
    const wchar_t* item; ///< what the control holds
    double minimum;
    double maximum;
    int digitsBeforePoint;
    int digitsAfterPoint;
};

inline constexpr NumberInputRule MAIN_INTERVAL_INPUT{L"主測点間隔", 0.0, 9999.999, 4, 10};
inline constexpr NumberInputRule SUB_INTERVAL_INPUT{L"副測点間隔", 0.0, 9999.999, 4, 10};
inline constexpr NumberInputRule NORMAL_CROWN_INPUT{L"直線部横断勾配", 0.0, 9999.999, 4, 10};
inline constexpr NumberInputRule TRAFFIC_VOLUME_INPUT{L"設計交通量", 0.0, 999999.0, 6, 10};

/// True for a text that typing may leave in the control. The empty text may always stand there.
bool AcceptsInput(const NumberInputRule& rule, std::wstring_view text);

/// What a text must hold when the data are checked, both bounds included.
struct NumberItem
{
    const wchar_t* name;
    double minimum;
    double maximum;
};

/// The finding about a text that is to hold a number with up to ten decimals; empty if there is none.
std::wstring CheckNumber(std::wstring_view text, const NumberItem& item);

/// "…が入力されていません。"
std::wstring MissingMessage(const wchar_t* item);

} // namespace jlandxml
