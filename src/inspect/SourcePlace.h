#pragma once

#include <cstddef>
#include <tuple>

namespace jlandxml::inspect
{

/// Where an element begins in its file. The line is for people; the offset parts elements from one another also where a
/// whole file stands in one line.
struct SourcePlace
{
    std::size_t line = 0;       ///< counted from 1; 0: nowhere
    std::size_t textOffset = 0; ///< of the element's name in the text that the parser works in; 0: not known
    std::size_t part = 0; ///< of a surface: which of its points and then faces, counted from 1, which have no offset

    bool operator==(const SourcePlace&) const = default;

    /// In the order of the file.
    bool operator<(const SourcePlace& other) const
    {
        return std::tie(line, textOffset, part) < std::tie(other.line, other.textOffset, other.part);
    }
};

} // namespace jlandxml::inspect
