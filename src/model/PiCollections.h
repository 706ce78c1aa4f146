#pragma once

#include <string>
#include <vector>

namespace jlandxml
{

/// Ordered containers of values. A copy takes every entry; entries stay in document order.
template <class Value>
using PiCmCopyList = std::vector<Value>;
template <class Value>
using PiCmCopyArray = std::vector<Value>;
template <class Value>
using PiCmList = std::vector<Value>;

/// A text as an entry of a list, such as a station that is written back character for character.
using WcStString = std::wstring;

} // namespace jlandxml
