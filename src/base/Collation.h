#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace jlandxml
{

/// The order of two texts by Japanese collation, in which kanji stand as JIS has them: negative, 0 or positive. It
/// doesn't depend on the locale of the user or the process. Throws std::bad_alloc if the system can't tell, for which
/// there is no reason but want of memory; another order would pick another entry of a sorted list.
int CompareJapanese(const std::wstring& first, const std::wstring& second);

/// A key by whose bytes, taken as unsigned ones, texts stand in the order of CompareJapanese. Throws CException if none
/// can be made.
std::string JapaneseSortKey(const std::wstring& text);

/// The places of the texts in the order of CompareJapanese, equal ones in the order in which they stand.
std::vector<std::size_t> PlacesInJapaneseOrder(std::span<const std::wstring> texts);

} // namespace jlandxml
