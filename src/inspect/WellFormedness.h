#pragma once

#include "inspect/XmlFault.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace jlandxml::inspect
{

/// A stretch of a file: its UTF-8, or that many line ends in the place of elements that are known to be well-formed.
struct FileStretch
{
    std::string_view text;
    std::size_t lineEnds = 0;

    std::size_t Length() const { return text.empty() ? lineEnds : text.size(); }
};

/// True if the program was built with the library that knows what is well-formed.
bool KnowsWhatIsWellFormed();

/// The first place where a file, whose stretches are given in their order, isn't well-formed by XML 1.0 and Namespaces
/// in XML 1.0: programs that follow these refuse the whole file. Nothing is built, loaded or expanded. Nothing too
/// where that can't be judged: behind entities or attributes that the file declares itself, below more than 256 levels,
/// and in a file that would keep the library busy without end.
std::optional<XmlFault> FindFormFault(std::span<const FileStretch> stretches);

} // namespace jlandxml::inspect
