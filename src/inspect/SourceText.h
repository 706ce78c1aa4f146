#pragma once

#include "inspect/SurfacePassage.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// The text of a file as UTF-8 without a byte-order mark: from UTF-8, from UTF-16 with a mark, and from code page 932
/// where the first line names it.
std::string DecodedText(std::string bytes);

/// The text of a file as the parser gets it: decoded, without the points and faces of its surfaces, which are read
/// beside it. It still knows the line of every place.
class SourceText
{
  public:
    /// From the bytes of the file.
    explicit SourceText(std::string bytes);

    /// The text. The parser works in it.
    std::wstring& Text() { return text_; }

    /// The line in the file, counted from 1, of a place in the text.
    std::size_t LineAt(std::ptrdiff_t offset) const;

    /// The passage that was cut out of the element whose name stands at `offset`; null if none was.
    SurfacePassage* PassageAt(std::ptrdiff_t offset);

    /// True if some bytes aren't in the file's encoding; each such sequence is U+FFFD in the text.
    bool HasMalformedBytes() const { return hasMalformedBytes_; }

  private:
    void CutPassages(std::string_view bytes);
    void Append(std::string_view bytes);

    std::wstring text_;
    /// A line that begins in the text, or behind a passage that was cut out of it.
    struct LineStart
    {
        std::size_t offset;
        std::size_t line;
    };
    std::vector<LineStart> lineStarts_{{0, 1}};
    std::map<std::size_t, SurfacePassage> passages_;
    bool hasMalformedBytes_ = false;
};

} // namespace jlandxml::inspect
