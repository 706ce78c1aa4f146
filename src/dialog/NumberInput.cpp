#include "dialog/NumberInput.h"

#include "base/Numbers.h"

namespace jlandxml
{

namespace
{

constexpr int BOUND_DIGITS = 4; ///< of a bound in a finding

constexpr std::wstring_view DIGITS = L"0123456789";

/// Digits, a point and digits. Without a point all digits may stand in front of it: what is too large, the value tells.
bool HasTheDigits(const NumberRule& rule, std::wstring_view text)
{
    const auto beforePoint = static_cast<std::size_t>(rule.digitsBeforePoint);
    const auto afterPoint = static_cast<std::size_t>(rule.digitsAfterPoint);
    const std::size_t point = text.find_first_not_of(DIGITS);
    if (point == std::wstring_view::npos)
    {
        return text.size() <= beforePoint + afterPoint;
    }
    const std::wstring_view decimals = text.substr(point + 1);
    return text[point] == L'.' && point <= beforePoint && decimals.size() <= afterPoint &&
           decimals.find_first_not_of(DIGITS) == std::wstring_view::npos;
}

bool BeginsLikeANumber(std::wstring_view text)
{
    const bool needlessZero = text.size() > 1 && text[0] == L'0' && text[1] != L'.';
    return !needlessZero && text.front() != L'.';
}

} // namespace

bool AcceptsInput(const NumberRule& rule, std::wstring_view text)
{
    if (text.empty())
    {
        return true;
    }
    if (!HasTheDigits(rule, text) || !BeginsLikeANumber(text))
    {
        return false;
    }
    const double value = ParseDouble(text).value;
    return value >= rule.typedMinimum && value <= rule.maximum;
}

std::wstring MissingMessage(const wchar_t* item)
{
    return item + std::wstring(L"が入力されていません。");
}

NumberFault JudgeNumber(std::wstring_view text, const NumberRule& rule)
{
    if (text.empty())
    {
        return NumberFault::Missing;
    }
    const ParsedDouble parsed = ParseDouble(text);
    if (parsed.length != text.size())
    {
        return NumberFault::NoNumber;
    }
    if (parsed.value < rule.minimum || parsed.value > rule.maximum)
    {
        return NumberFault::OutOfRange;
    }
    const std::size_t point = text.find(L'.');
    const bool isTooLong =
        point != std::wstring_view::npos && text.size() - point - 1 > static_cast<std::size_t>(rule.digitsAfterPoint);
    return isTooLong ? NumberFault::TooManyDecimals : NumberFault::None;
}

std::wstring CheckNumber(std::wstring_view text, const NumberRule& rule)
{
    switch (JudgeNumber(text, rule))
    {
    case NumberFault::Missing:
        return MissingMessage(rule.item);
    case NumberFault::NoNumber:
        return rule.item + std::wstring(L"は数値を入力してください。");
    case NumberFault::OutOfRange:
        return rule.item + (L"は" + FormatFixed(rule.minimum, BOUND_DIGITS)) + L"から" +
               FormatFixed(rule.maximum, BOUND_DIGITS) + L"の範囲内で入力してください。";
    case NumberFault::TooManyDecimals:
        return rule.item + (L"は小数第" + std::to_wstring(rule.digitsAfterPoint)) + L"位までの値を入力してください。";
    case NumberFault::None:
        break;
    }
    return {};
}

} // namespace jlandxml
