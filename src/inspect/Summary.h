#pragma once

#include "inspect/LandXmlFile.h"

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace jlandxml::inspect
{

/// The smallest and the largest of some figures, in their unit; nothing was taken as long as the smallest is larger.
class Range
{
  public:
    /// `text` is the file's own of the figure, if it was kept.
    void Take(double value, std::wstring_view text = {});
    void Take(const Figure& figure) { Take(figure.value, figure.text); }

    bool IsEmpty() const { return !(smallest_ <= largest_); }
    double Smallest() const { return smallest_; }
    double Largest() const { return largest_; }

    /// The file's own texts of both where they were kept, else their digits.
    std::wstring SmallestText() const;
    std::wstring LargestText() const;

    Figure SmallestFigure() const { return {smallestText_, smallest_}; }
    Figure LargestFigure() const { return {largestText_, largest_}; }

  private:
    double smallest_ = std::numeric_limits<double>::infinity();
    double largest_ = -std::numeric_limits<double>::infinity();
    std::wstring_view smallestText_;
    std::wstring_view largestText_;
};

/// Where the alignments' main points, the points and the surfaces of a file lie, in metres.
struct Extents
{
    Range north;
    Range east;
    Range height;
};

Extents ExtentsOf(const LandXmlFile& file);

/// How many elements of a kind an alignment has.
std::size_t CountOf(const Alignment& alignment, ElementKind kind);

/// How many cross sections, design profiles and ground lines an alignment has.
std::size_t CountOfSections(const Alignment& alignment);
std::size_t CountOfDesigns(const Alignment& alignment);
std::size_t CountOfGrounds(const Alignment& alignment);

/// The report has both.
enum class Language
{
    Japanese,
    English,
};

/// What is in a file, for people: lines of text, each with a line feed.
std::wstring SummaryText(const LandXmlFile& file, Language language = Language::Japanese);

} // namespace jlandxml::inspect
