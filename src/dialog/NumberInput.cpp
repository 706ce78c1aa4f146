#include "dialog/NumberInput.h"

#include "base/Numbers.h"

#include <regex>

namespace jlandxml
{

namespace
{

constexpr int MOST_DECIMALS = 10;
constexpr int BOUND_DIGITS = 4;

/// Digits, a point and digits. Whether there are too many in front of a missing point, the value tells.
bool FitsPattern(const NumberInputRule& rule, std::wstring_view text)
{
    // No text that fits is longer, and the matcher's stack grows with the text.
    const int longest = rule.digitsBeforePoint + 1 + rule.digitsAfterPoint;
    if (text.size() > static_cast<std::size_t>(longest))
    {
        return false;
    }
    const std::wregex pattern(L"^[0-9]{0," + std::to_wstring(rule.digitsBeforePoint) + L"}(\\.?[0-9]{0," +
                              std::to_wstring(rule.digitsAfterPoint) + L"})?$");
    return std::regex_match(text.begin(), text.end(), pattern);
}

bool BeginsLikeANumber(std::wstring_view text)
{
    const bool needlessZero = text.size() > 1 && text[0] == L'0' && text[1] != L'.';
    return !needlessZero && text.front() != L'.';
}

} // namespace

bool AcceptsInput(const NumberInputRule& rule, std::wstring_view text)
{
    if (text.empty())
    {
        return true;
    }
    if (!FitsPattern(rule, text) || !BeginsLikeANumber(text))
    {
        return false;
    }
    const double value = ParseDouble(text).value;
    return value >= rule.minimum && value <= rule.maximum;
}

std::wstring MissingMessage(const wchar_t* item)
{
    return item + std::wstring(L"が入力されていません。");
}

std::wstring CheckNumber(std::wstring_view text, const NumberItem& item)
{
    if (text.empty())
    {
        return MissingMessage(item.name);
    }
    const ParsedDouble parsed = ParseDouble(text);
    if (parsed.length != text.size())
    {
        return item.name + std::wstring(L"は数値を入力してください。");
    }
    if (parsed.value < item.minimum || parsed.value > item.maximum)
    {
        return item.name + (L"は" + FormatFixed(item.minimum, BOUND_DIGITS)) + L"から" +
               FormatFixed(item.maximum, BOUND_DIGITS) + L"の範囲内で入力してください。";
    }
    const std::size_t point = text.find(L'.');
    if (point != std::wstring_view::npos && text.size() - point - 1 > MOST_DECIMALS)
    {
        return item.name + (L"は小数第" + std::to_wstring(MOST_DECIMALS)) + L"位までの値を入力してください。";
    }
    return {};
}

} // namespace jlandxml
