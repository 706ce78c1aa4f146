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

/// The finding about a text that is to hold a number from `minimum` to `maximum`; empty if there is none.
std::wstring CheckNumber(std::wstring_view text, const wchar_t* item, double minimum, double maximum);

/// "…が入力されていません。"
std::wstring MissingMessage(const wchar_t* item);

} // namespace jlandxml
