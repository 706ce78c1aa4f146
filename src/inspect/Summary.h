#pragma once

#include "inspect/LandXmlFile.h"

#include <cstddef>
#include <limits>
#include <string>

namespace jlandxml::inspect
{

/// The smallest and the largest of some figures, in their unit; nothing was taken as long as the smallest is larger.
class Range
{
  public:
    void Take(double value);

    bool IsEmpty() const { return !(smallest_ <= largest_); }
    double Smallest() const { return smallest_; }
    double Largest() const { return largest_; }

  private:
    double smallest_ = std::numeric_limits<double>::infinity();
    double largest_ = -std::numeric_limits<double>::infinity();
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

/// How many cross sections an alignment has.
std::size_t CountOfSections(const Alignment& alignment);

/// What is in a file, for people: lines of Japanese text, each with a line feed.
std::wstring SummaryText(const LandXmlFile& file);

} // namespace jlandxml::inspect
