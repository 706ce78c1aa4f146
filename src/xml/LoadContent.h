#pragma once

#include "xml/ParserBuffer.h"
#include "xml/WcXmPassages.h"

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace jlandxml
{

/// The whole content of a file; nothing if it can't be opened or read. Throws std::bad_alloc if it doesn't fit into
/// memory.
std::optional<ParserBuffer> ReadContent(const std::wstring& path);

/// Parses the content of a file into an empty document. Content whose first line names Shift_JIS is read as code page
/// 932; if that isn't what it is, and for all other, the parser tells UTF-8, UTF-16, UTF-32 and Latin-1 apart. What is
/// malformed or no character of Unicode becomes U+FFFD. With `passages` what can stay bytes does, and the content stays
/// for them; UTF-8 is decoded on the way to the parser, and a text that stands first in its element becomes the
/// element's value. Without, the parser alone takes the content. `isUtf8Mended` tells whether something malformed was
/// in UTF-8. False if the document isn't well formed. Throws std::bad_alloc if there is no memory for it.
bool LoadContent(pugi::xml_document& document, WcXmPassages* passages, ParserBuffer& content, bool& isUtf8Mended);

/// A place in a text, counted from 1 as editors show it.
struct FaultPlace
{
    std::size_t line;
    std::size_t column; ///< in characters
};

/// Where the first bytes stand that aren't UTF-8; the end where all are.
FaultPlace FindMalformedUtf8(std::string_view content);

/// Where the parser gave up on content that isn't well formed; nothing if it is. Throws std::bad_alloc if there is no
/// memory for it.
std::optional<FaultPlace> FindFault(std::string_view content);

} // namespace jlandxml
