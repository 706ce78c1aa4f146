#include "model/NumberText.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace jlandxml
{

namespace
{

/// Most characters in front of the point: those of the largest double.
constexpr std::size_t MOST_WHOLE_DIGITS = std::numeric_limits<double>::max_exponent10 + 1;

static_assert(std::tuple_size_v<FixedBuffer> >= 1 + MOST_WHOLE_DIGITS + 1 + MOST_DIGITS,
              "a sign, the longest whole number, a point and the decimals have room");

int PossibleDigits(int digits)
{
    return std::clamp(digits, 0, MOST_DIGITS);
}

template <class Character>
bool IsNumeric(std::basic_string_view<Character> text)
{
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
    {
        text.remove_prefix(1);
    }
    int points = 0;
    for (const Character character : text)
    {
        points += character == '.' ? 1 : 0;
        if (character != '.' && (character < '0' || character > '9'))
        {
            return false;
        }
    }
    return points <= 1;
}

/// The element that numbers are being read from, if somebody wants to know.
const WcXmNode* numberPlace = nullptr;

constexpr std::wstring_view STRAIGHT = L"INF";
constexpr std::size_t LONGEST_REMARK = 40;

std::wstring Wide(std::wstring_view text)
{
    return std::wstring(text);
}

std::wstring Wide(std::string_view text)
{
    return WideFromUtf8(text);
}

/// A text on one line, as far as it says what is wrong.
std::wstring Excerpt(std::wstring text)
{
    std::replace_if(
        text.begin(), text.end(), [](wchar_t one) { return one == L'\n' || one == L'\r' || one == L'\t'; }, L' ');
    const std::wstring_view front = FirstCharacters(text, LONGEST_REMARK);
    return front.size() < text.size() ? std::wstring(front) + L"…" : text;
}

template <class Character>
void WarnOfNoNumber(std::basic_string_view<Character> text)
{
    const std::wstring wide = Wide(text);
    if (Trim(wide) != STRAIGHT)
    {
        WarnOfElement(WarningCause::NumberNotWhole, *numberPlace, [&] { return L"「" + Excerpt(wide) + L"」"; });
    }
}

template <class Character>
double NumberOf(std::basic_string_view<Character> text)
{
    if (!IsNumeric(text))
    {
        if (numberPlace != nullptr)
        {
            WarnOfNoNumber(text);
        }
        return 0.0;
    }
    const bool negative = !text.empty() && text.front() == '-';
    text.remove_prefix(negative || (!text.empty() && text.front() == '+') ? 1 : 0);
    // Without a digit the C library converts nothing, so a bare minus isn't the negative zero.
    if (text.empty() || (text.size() == 1 && text.front() == '.'))
    {
        return 0.0;
    }
    const double value = ParseDecimal(text);
    return negative ? -value : value;
}

void ClosePoint(std::wstring& text)
{
    if (text.find(L'.') == std::wstring::npos)
    {
        text += L'.';
    }
}

} // namespace

bool IsNumericText(std::wstring_view text)
{
    return IsNumeric(text);
}

bool IsNumericText(std::string_view text)
{
    return IsNumeric(text);
}

void TrimNumberText(std::wstring& text)
{
    const std::size_t point = text.find(L'.');
    if (point == std::wstring::npos || !IsNumericText(text))
    {
        return;
    }
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.')
    {
        text.pop_back();
    }
}

std::string_view TrimmedNumberText(std::string_view text)
{
    if (text.find('.') == std::string_view::npos || !IsNumericText(text))
    {
        return text;
    }
    text = text.substr(0, text.find_last_not_of('0') + 1);
    text.remove_suffix(text.ends_with('.') ? 1 : 0);
    return text;
}

double ReadNumber(std::wstring_view text)
{
    return NumberOf(text);
}

double ReadNumber(std::string_view text)
{
    return NumberOf(text);
}

NumberPlace::NumberPlace(const WcXmNode& node) : former_(std::exchange(numberPlace, &node)) {}

NumberPlace::~NumberPlace()
{
    numberPlace = former_;
}

void WarnOfValue(WarningCause cause, std::wstring_view remark)
{
    if (numberPlace != nullptr)
    {
        WarnOfElement(cause, *numberPlace, [=] { return Excerpt(std::wstring(remark)); });
    }
}

double WithoutNegativeZero(double value, int digits)
{
    // Written out, since the last bit of a power depends on the platform's library.
    static constexpr std::array<double, MOST_DIGITS + 1> UNITS = {1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,
                                                                  1e-7,  1e-8,  1e-9,  1e-10, 1e-11, 1e-12, 1e-13,
                                                                  1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20};
    return std::fabs(value) < 0.5 * UNITS[static_cast<std::size_t>(PossibleDigits(digits))] ? 0.0 : value;
}

std::wstring FixedText(double value, int digits)
{
    return FormatFixed(WithoutNegativeZero(value, digits), PossibleDigits(digits));
}

std::string_view FixedText(double value, int digits, FixedBuffer& buffer)
{
    return FormatFixed(WithoutNegativeZero(value, digits), PossibleDigits(digits), buffer);
}

std::wstring ClosedFixedText(double value, int digits)
{
    std::wstring text = FixedText(value, digits);
    ClosePoint(text);
    return text;
}

void AppendNumberText(std::wstring& target, double value, int digits)
{
    FixedBuffer buffer;
    std::string_view text;
    if (value != UNSET_DOUBLE)
    {
        text = FixedText(value, digits, buffer);
    }
    const bool hasPoint = text.find('.') != std::string_view::npos;
    if (hasPoint)
    {
        text = text.substr(0, text.find_last_not_of('0') + 1);
    }
    for (const char character : text)
    {
        target += static_cast<wchar_t>(character);
    }
    if (!hasPoint)
    {
        target += L'.';
    }
}

std::wstring NumberText(double value, int digits)
{
    std::wstring text;
    AppendNumberText(text, value, digits);
    return text;
}

void FormatDoubleAttribute(const WcXmNode& node, const wchar_t* name, double value, int digits)
{
    if (value != UNSET_DOUBLE)
    {
        node.SetAttribute(name, NumberText(value, digits));
    }
}

bool ReadNumberAttribute(const WcXmNode& node, std::wstring_view name, double& value)
{
    const auto text = node.FindAttribute(name);
    if (text)
    {
        value = ReadNumber(*text);
    }
    return text.has_value();
}

bool ReadTextAttribute(const WcXmNode& node, std::wstring_view name, std::wstring& text)
{
    const auto value = node.FindAttribute(name);
    if (value)
    {
        text = *value;
    }
    return value.has_value();
}

bool WriteTextAttribute(const WcXmNode& node, const wchar_t* name, std::wstring_view text)
{
    return text.empty() || node.SetAttribute(name, text);
}

bool SplitNumberPair(std::wstring_view text, double& first, double& second)
{
    const std::size_t blank = text.find(L' ');
    if (blank == std::wstring_view::npos)
    {
        return false;
    }
    const std::wstring_view one = Trim(text.substr(0, blank));
    const std::wstring_view other = Trim(text.substr(blank + 1));
    if (other.find(L' ') != std::wstring_view::npos)
    {
        return false;
    }
    first = ReadNumber(one);
    second = ReadNumber(other);
    return true;
}

} // namespace jlandxml
