#pragma once

#include <string_view>

namespace jlandxml::inspect
{

/// The English for a word that calculation sheets use in their headings and for kinds of elements; the word itself
/// where there is none, such as X.
std::wstring_view EnglishOf(std::wstring_view word);

} // namespace jlandxml::inspect
