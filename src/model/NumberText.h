#pragma once

#include "base/Numbers.h"
#include "base/Warnings.h"
#include "model/UnsetDouble.h"
#include "xml/WcXmNode.h"

#include <string>
#include <string_view>

namespace jlandxml
{

/// True for a sign, then digits with at most one point, any of them absent. So an empty text is numeric, and an
/// exponent, a blank and "INF" aren't.
bool IsNumericText(std::wstring_view text);

/// The same for a text of bytes.
bool IsNumericText(std::string_view text);

/// Cuts the zeros at the end of a numeric text's decimals, and the point if it is then the last character. Any other
/// text stays.
void TrimNumberText(std::wstring& text);

/// The same for a text of bytes, which are cut off a view.
std::string_view TrimmedNumberText(std::string_view text);

/// The number of a text of the format: its decimal value if the text is numeric, else 0.
double ReadNumber(std::wstring_view text);

/// The same for a text of bytes.
double ReadNumber(std::string_view text);

/// Tells which element numbers are being read from. While it lives, a text that ReadNumber takes for 0 because it isn't
/// numeric is warned of, but for INF, which is how the radius of a straight end is given.
class NumberPlace
{
  public:
    explicit NumberPlace(const WcXmNode& node);
    explicit NumberPlace(WcXmNode&& node) = delete; // it has to stand as long as this
    NumberPlace(const NumberPlace&) = delete;
    NumberPlace& operator=(const NumberPlace&) = delete;
    ~NumberPlace();

  private:
    const WcXmNode* former_;
};

/// Notes something about the element that numbers are being read from, where that is told.
void WarnOfValue(WarningCause cause, std::wstring_view remark);

/// How many decimals a text may have; a number of decimals outside 0 to this counts as the nearest of the two.
inline constexpr int MOST_DIGITS = 20;

/// The value, or 0 where its magnitude is strictly below half a unit of the last of `digits` decimals, so that no
/// "-0.000" is printed.
double WithoutNegativeZero(double value, int digits);

/// The value with all of its `digits` decimals ("200.00000000").
std::wstring FixedText(double value, int digits);

/// The same in a buffer of the caller's.
std::string_view FixedText(double value, int digits, FixedBuffer& buffer);

/// The same, with a closing point where there is none: behind a number that isn't finite ("inf.", "nan.") and behind a
/// whole one of no decimals.
std::wstring ClosedFixedText(double value, int digits);

/// The number text of the format: at most `digits` decimals, no zeros at their end, and a closing point on whole
/// numbers ("12.", "12.5"). An unset value gives the point alone. Numbers that aren't finite give "inf.", "-inf." and
/// "nan.".
std::wstring NumberText(double value, int digits);

/// Appends that text to a longer one, such as a list of points.
void AppendNumberText(std::wstring& target, double value, int digits);

/// Stores the number text in an attribute. An unset value leaves the attribute as it stands.
void FormatDoubleAttribute(const WcXmNode& node, const wchar_t* name, double value, int digits);

/// Takes the number of an attribute if there is one. False leaves the value as it was.
bool ReadNumberAttribute(const WcXmNode& node, std::wstring_view name, double& value);

/// Takes the text of an attribute if there is one. False leaves the text as it was.
bool ReadTextAttribute(const WcXmNode& node, std::wstring_view name, std::wstring& text);

/// Stores a text in an attribute unless it is empty. False if the node can't have attributes.
bool WriteTextAttribute(const WcXmNode& node, const wchar_t* name, std::wstring_view text);

/// Reads two numbers that the first blank (U+0020) of a text separates; white space around either is dropped, and a
/// part that isn't numeric is 0. False, with both left as they are, if the text has no blank or if, white space at its
/// ends apart, its second part holds one.
bool SplitNumberPair(std::wstring_view text, double& first, double& second);

} // namespace jlandxml
