#pragma once

#include <cstddef>

namespace jlandxml
{

/// How often the parser has been refused memory since the process began. The parser itself says nothing of it: where it
/// can't add an element, an attribute or a text, the tree lacks it, and the null that it gives for it is the same as
/// where there can't be one. Whoever looks at the count before and after a step knows whether anything is missing.
std::size_t ParserMemoryRefusals() noexcept;

} // namespace jlandxml
