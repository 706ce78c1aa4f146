#pragma once

#include <string>
#include <string_view>

namespace jlandxml
{

/// What a number of the dialog may be: in its edit while it is typed, and in the data when they are checked. All bounds
/// are included.
struct NumberRule
{
    const wchar_t* item;          ///< what findings call the number
    double typedMinimum;          ///< the smallest value accepted while typing (0 on the way to 0.5)
    double minimum;               ///< the smallest value accepted by the check
    double maximum;               ///< the largest value accepted by both
    int digitsBeforePoint;        ///< so many at most while typing
    int digitsAfterPoint;         ///< so many at most by both
    const wchar_t* changeFailure; ///< what is told if the check of a change fails; not always in the item's words
};

/// Metres.
inline constexpr NumberRule MAIN_INTERVAL_RULE{
    L"主測点間隔", 0.0, 0.001, 9999.999, 4, 10, L"主点間隔の変更処理中にエラーが発生しました。"};
/// Metres.
inline constexpr NumberRule SUB_INTERVAL_RULE{
    L"副測点間隔", 0.0, 0.001, 9999.999, 4, 10, L"副点間隔の変更処理中にエラーが発生しました。"};
/// Percent.
inline constexpr NumberRule NORMAL_CROWN_RULE{
    L"直線部横断勾配", 0.0, 0.001, 9999.999, 4, 10, L"標準横断の変更処理中にエラーが発生しました。"};
/// Vehicles a day.
inline constexpr NumberRule TRAFFIC_VOLUME_RULE{
    L"設計交通量", 0.0, 0.0, 999999.0, 6, 10, L"設計交通量の変更処理中にエラーが発生しました。"};

/// True for a text that typing may leave in an edit. The empty text may always stand there.
bool AcceptsInput(const NumberRule& rule, std::wstring_view text);

/// What may be wrong with a text that is to hold a number.
enum class NumberFault
{
    None,
    Missing,
    NoNumber,
    OutOfRange,
    TooManyDecimals
};

NumberFault JudgeNumber(std::wstring_view text, const NumberRule& rule);

/// The finding about a text that is to hold the number; empty if there is none.
std::wstring CheckNumber(std::wstring_view text, const NumberRule& rule);

/// "…が入力されていません。"
std::wstring MissingMessage(const wchar_t* item);

} // namespace jlandxml
