#pragma once

#include "base/ByteBlocks.h"

namespace jlandxml
{

class WcXmAppDocument;

/// Prints an edited document in the form that the authorities accept, from the tree to the file's bytes in one pass:
/// - UTF-8 behind a byte-order mark, each line ended by carriage return and line feed;
/// - elements without a text on lines of their own, indented by one tab a level, `<Name />` where an element is empty;
/// - in the first line, ` encoding="UTF-8" standalone="no"?>` becomes `?>`;
/// - in every line, ` xmlns=""` is left out, also where a text holds it;
/// - what was kept apart from the tree stands in its place.
/// What the sink throws passes through. Throws CException where elements are nested so deep that the file would be next
/// to nothing but indentation, and too much of it for any disk.
void PrintFinished(const WcXmAppDocument& document, const ByteBlocks::Sink& sink);

} // namespace jlandxml
