#pragma once

#include "base/CompactText.h"

#include <vector>

namespace jlandxml
{

/// Ordered containers of values. A copy takes every entry; entries stay in document order. Their places count: the n-th
/// entry of a list that was read is written onto the n-th element of its name, so nothing may add, remove or reorder
/// entries in between.
template <class Value>
using PiCmCopyList = std::vector<Value>;
template <class Value>
using PiCmCopyArray = std::vector<Value>;
template <class Value>
using PiCmList = std::vector<Value>;

/// A text as an entry of a list, such as a station that is written back character for character.
using WcStString = CompactText;

} // namespace jlandxml
