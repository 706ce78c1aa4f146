#pragma once

#include "inspect/SurfacePassage.h"
#include "inspect/XmlFault.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// What is amiss with the encoding of a file.
enum class EncodingFault
{
    None,
    MalformedBytes,  ///< that are no character
    AnotherDeclared, ///< than the file has, by its byte-order mark or its bytes
    UnknownDeclared, ///< one that isn't read, while there are characters beyond ASCII
};

/// How the bytes of a file were read.
struct SourceEncoding
{
    EncodingFault fault = EncodingFault::None;
    std::wstring declared; ///< by the XML declaration; empty: none
    std::wstring_view read = L"UTF-8";
};

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

    /// Each sequence of bytes that is no character is U+FFFD in the text.
    const SourceEncoding& Encoding() const { return encoding_; }

    /// The first place where the file isn't well-formed, if it is known.
    const std::optional<XmlFault>& FormFault() const { return formFault_; }

  private:
    struct Stretches;
    void CutPassages(std::string_view bytes, Stretches& stretches);
    void Append(std::string_view bytes, Stretches& stretches);

    std::wstring text_;
    /// A line that begins in the text, or behind a passage that was cut out of it.
    struct LineStart
    {
        std::size_t offset;
        std::size_t line;
    };
    std::vector<LineStart> lineStarts_{{0, 1}};
    std::map<std::size_t, SurfacePassage> passages_;
    SourceEncoding encoding_;
    std::optional<XmlFault> formFault_;
};

} // namespace jlandxml::inspect
