#pragma once

#include <string>

namespace jlandxml
{

/// The order of two texts by Japanese collation, in which kanji stand as JIS has them: negative, 0 or positive. It
/// doesn't depend on the locale of the user or the process.
int CompareJapanese(const std::wstring& first, const std::wstring& second);

} // namespace jlandxml
