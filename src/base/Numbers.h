#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace jlandxml
{

/// A number read from the front of a text, and how many characters were used. Nothing used: no number, value 0.
struct ParsedDouble
{
    double value;
    std::size_t length;
};

/// Reads what the C library's string-to-double reads in the "C" locale, whatever the process's locale is: white space
/// in front (that of the C library: U+0009-000D and the blank), a sign, decimal or hexadecimal digits with one point,
/// an exponent, "inf", "infinity", "nan" and "nan(...)". Too large gives an infinity, too small 0.
ParsedDouble ParseDouble(std::wstring_view text);

/// An integer read from the front of a text, and how many characters were used. Nothing used: no number, value 0.
struct ParsedInt
{
    std::int32_t value;
    std::size_t length;
};

/// Reads what the C library's string-to-integer reads: white space, a sign, decimal digits. A value outside 32 bits
/// gives the nearest bound.
ParsedInt ParseInt(std::wstring_view text);

/// Reads digits with at most one point, no sign and nothing else; 0 if there is no digit.
double ParseDecimal(std::wstring_view digits);

/// The same for a text of bytes.
double ParseDecimal(std::string_view digits);

/// Room for the decimal text of any double with up to 20 decimals.
using FixedBuffer = std::array<char, 512>;

/// The text of FormatFixed in a buffer of the caller's.
std::string_view FormatFixed(double value, int digits, FixedBuffer& buffer);

/// The correctly rounded decimal text with `digits` decimals. Numbers that aren't finite give "nan", "inf", "-inf".
std::wstring FormatFixed(double value, int digits);

} // namespace jlandxml
