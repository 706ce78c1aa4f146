#pragma once

#include <functional>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>

namespace jlandxml
{

/// One difference between the tree that came in and the tree that stands now.
struct WcXmChange
{
    enum class Kind
    {
        ElementAdded,
        ElementRemoved,
        ElementMoved, ///< among its siblings
        AttributeAdded,
        AttributeChanged,
        TextChanged, ///< of an element's first text, which may be new
    };

    Kind kind{};
    std::wstring object;  ///< the element by names: 線形1／縦断／計画線
    std::wstring path;    ///< of the element in the tree that came in, as an XPath of positions; empty for a new one
    std::wstring newPath; ///< where an element that was added or moved stands now
    std::wstring name;    ///< of the element or the attribute
    std::wstring oldText; ///< a value, a text, or all of an element as XML
    std::wstring newText; ///< the same
    bool sameNumbers = false; ///< both texts are the same numbers, only spelt anew
};

/// What a document was before a run began to edit it, for who wants to know what the run did. It is kept only where it
/// is asked for: the whole tree a second time, without its passages, which nobody edits.
///
/// The changes are netted: what was removed and built anew with the same content is none, and of a value that was set
/// several times the first and the last count. So the changes, applied to the tree that came in, give the tree that
/// stands now. First all paths are looked up; then what was removed goes and what was moved is taken out; then
/// attributes and texts are set; last, in the order given, each element that was added or moved is put in front of the
/// one that stands at its new place then, or behind all others.
class WcXmJournal
{
  public:
    /// Begins with the tree as it stands. Want of memory is the parser's to tell.
    explicit WcXmJournal(const pugi::xml_document& document);
    WcXmJournal(const WcXmJournal&) = delete;
    WcXmJournal& operator=(const WcXmJournal&) = delete;

    /// To be called for each node that is about to go: its memory may become that of a new one.
    void Forget(const pugi::xml_node& node) { originals_.erase(node.internal_object()); }

    /// Visits the changes in document order, those of an element before those of its children.
    void ForEachChange(const std::function<void(const WcXmChange&)>& visit) const;

  private:
    const pugi::xml_document& document_;
    pugi::xml_document before_;
    std::unordered_map<const void*, pugi::xml_node> originals_; ///< elements of `before_` by those that still stand
};

} // namespace jlandxml
