#pragma once

#include <cstddef>
#include <string>

namespace jlandxml::inspect
{

/// Where a file isn't well-formed XML, or doesn't follow a schema.
struct XmlFault
{
    std::wstring path;    ///< of the element, by its own and its parents' names; "/" outside the outermost
    std::wstring reason;  ///< in the words of the library that reads XML
    std::size_t line = 0; ///< of the first
    std::size_t count = 1;
};

} // namespace jlandxml::inspect
