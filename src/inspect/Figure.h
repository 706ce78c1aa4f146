#pragma once

#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

namespace jlandxml::inspect
{

/// A figure of a file: the file's own text of it and what the text says. The text is a view into the file that was
/// read.
struct Figure
{
    std::wstring_view text;                                  ///< empty where the file has none
    double value = std::numeric_limits<double>::quiet_NaN(); ///< not a number where the text is none

    bool IsWritten() const { return !text.empty(); }
    bool IsNumber() const { return !std::isnan(value); }
    bool IsFinite() const { return std::isfinite(value); }
};

/// Reads a figure as xs:double is written (XML Schema Datatypes, 3.2.5): decimal digits with or without an exponent,
/// "INF",
/// "-INF". White space around it doesn't count.
Figure ReadFigure(std::wstring_view text);

/// Reads figures with white space between them.
std::vector<Figure> ReadFigures(std::wstring_view text);

/// The words of a text, split at white space.
std::vector<std::wstring_view> Words(std::wstring_view text);

} // namespace jlandxml::inspect
