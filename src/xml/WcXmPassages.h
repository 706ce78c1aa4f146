#pragma once

#include "base/ByteBlocks.h"

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

/// A stretch of a document that no rule reads, kept as the bytes that came in: the content of one element.
struct WcXmPassage
{
    std::string_view content;
    bool isPlainLines; ///< each element stands on a line of its own, spelt as it is printed
};

/// The passages of a document. Terrain is most of a large file, and nobody edits it: the content of `Pnts` and `Faces`
/// in the `Definition` of a `Surface` doesn't become a tree. In the tree a placeholder stands in its place, a
/// processing instruction, which no document brings along since none of its own is kept. The placeholder goes with its
/// element, so what is removed isn't printed.
///
/// Only the plainest content is kept so: elements with attributes in double quotes and one text, white space between
/// them, well-formed UTF-8, and no character that the parser would decode or the printer would escape. All else goes
/// through the parser as ever.
class WcXmPassages
{
  public:
    /// What is put together for the parser: bytes of the document or, in the place of a passage, its placeholder.
    struct Piece
    {
        std::string_view bytes;
        bool isPassage;
    };

    /// Takes a UTF-8 document apart at its passages. False, and no passage, if it has none or isn't plain enough to
    /// tell for certain where they are; the document is then the parser's alone. The passages are views into the
    /// document.
    bool Find(std::string_view document);

    /// The whole document in order, but for processing instructions outside of its root element.
    const std::vector<Piece>& Pieces() const { return pieces_; }

    /// The n-th passage, counted from 0.
    const WcXmPassage& Passage(std::size_t number) const { return passages_.at(number); }

    /// True if the parser has put each placeholder where its passage belongs.
    bool AreIn(const pugi::xml_document& document) const;

    /// The passage of the element that has a placeholder for its only child; null for every other node.
    const WcXmPassage* Of(const pugi::xml_node& element) const;

    /// Makes every passage a part of the tree after all, for who prints the tree through the parser.
    void Expand(pugi::xml_document& document);

    void Clear();

    bool IsEmpty() const { return passages_.empty(); }

  private:
    std::vector<Piece> pieces_;
    std::vector<WcXmPassage> passages_;
};

/// The placeholder of the n-th passage, counted from 0.
std::string PassagePlaceholder(std::size_t number);

/// Appends a passage as the parser would have printed it: each element on a line of its own, indented by so many tabs,
/// with one blank in front of each attribute. `lineEnd` stands in front of each line. Empty namespace attributes are
/// left out.
void AppendPassage(ByteBlocks& target, const WcXmPassage& passage, std::size_t depth, std::string_view lineEnd);

} // namespace jlandxml
