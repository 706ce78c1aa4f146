#pragma once

#include "inspect/LandXmlFile.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace jlandxml::inspect
{

/// The alignments of a file by the names under which points, surfaces and roadways refer to them, and the other way
/// round. A text of references (alignmentNameRefs) is one name, which may hold blanks, or several with white space
/// between them. Of several alignments of one name the first is meant.
class AlignmentReferences
{
  public:
    /// Keeps views into the file and pointers to its parts.
    explicit AlignmentReferences(const LandXmlFile& file);

    /// The alignments that a text names, each once and in its order; those that aren't there are left out.
    std::vector<const Alignment*> Named(std::wstring_view references) const;

    /// The names in a text that no alignment has, in its order.
    std::vector<std::wstring_view> Missing(std::wstring_view references) const;

    /// True if a text names the alignment.
    bool LeadTo(std::wstring_view references, const Alignment& alignment) const;

    /// The groups of points whose text names the alignment, in the file's order.
    const std::vector<const PointGroup*>& GroupsOf(const Alignment& alignment) const;

  private:
    std::vector<std::wstring_view> NamesIn(std::wstring_view references) const;
    const Alignment* Find(std::wstring_view name) const;

    std::unordered_map<std::wstring_view, const Alignment*> byName_;
    std::unordered_map<const Alignment*, std::vector<const PointGroup*>> groups_;
};

} // namespace jlandxml::inspect
