#pragma once

#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace jlandxml
{

class WcXmDocument;

/// The parser's side of a cursor: plain references into a tree that the document owns.
class WcXmAppNode
{
  public:
    WcXmAppNode() = default;
    WcXmAppNode(const WcXmAppNode&) = default;
    WcXmAppNode& operator=(const WcXmAppNode&) = default;
    virtual ~WcXmAppNode() = default;

    pugi::xml_node node;
    pugi::xml_document* xmlDocument = nullptr;
};

/// A movable cursor over the tree. A search moves it, so model code copies it first; a copy costs nothing but its few
/// words. A cursor with no node under it answers every question with an empty result. Texts are views into the tree:
/// good until that name or value changes or its node goes. No operation raises for want of the parser's memory: what
/// can't be added is missing, as where the node can't have it, and WcXmAppDocument::Change raises in the end.
class WcXmNode
{
  public:
    /// Stands on the document element, or on nothing if the document has none.
    explicit WcXmNode(WcXmDocument& document);
    WcXmNode(const WcXmNode&) = default;
    WcXmNode& operator=(const WcXmNode&) = default;
    virtual ~WcXmNode() = default;

    std::wstring_view NodeName() const;

    /// True if the name is this one, in its exact case.
    bool HasName(std::wstring_view name) const;

    /// Moves to the next sibling of any kind. False at the end; the cursor stays.
    bool MoveToNextSibling();

    /// Moves onto the first child of that name, ignoring case. False if there is none; the cursor stays.
    bool SelectFirstChild(std::wstring_view name);

    /// Fills the map with the attributes by name, a later duplicate winning. A node without attributes gives one entry:
    /// its own name and value.
    void GetAttributes(std::map<std::wstring, std::wstring>& attributes) const;

    /// The value of one attribute as GetAttributes would give it: the name in its exact case, the last of duplicates.
    /// Nothing if there is none.
    std::optional<std::wstring_view> FindAttribute(std::wstring_view name) const;

    /// The value of the first attribute of that name, ignoring case. Nothing if there is none.
    std::optional<std::wstring_view> FindAttributeIgnoreCase(std::wstring_view name) const;

    /// The value of a text node, or of the first text child of an element; empty if there is none.
    std::wstring_view GetTextContent() const;

    /// Gives the attribute of that name, ignoring case, a new value; without one, appends it behind the others. False
    /// if the node can't have attributes.
    bool SetAttribute(const wchar_t* name, std::wstring_view value) const;

    /// Sets the text of a text node or of an element's first text child, which an element gets if it has none.
    void SetTextContent(std::wstring_view value) const;

    /// Appends a new element as the last child, of the document where the cursor stands on nothing; `out`, if given, is
    /// put on it, or on nothing if the node can't have children. Always true.
    bool AppendChildElement(const wchar_t* name, WcXmNode* out = nullptr) const;

    /// Puts a new element in front of the first child named `reference`, ignoring case, and `out`, if given, on it.
    /// False if there is no such child; `out` then stands on the parent.
    bool InsertElementBefore(std::wstring_view reference, const wchar_t* name, WcXmNode* out = nullptr) const;

    /// The same in front of a child that is known. False if it isn't a child of this node.
    bool InsertElementBefore(const WcXmAppNode& child, const wchar_t* name, WcXmNode* out = nullptr) const;

    /// Removes a child and all below it. No cursor may stand there any more. A node that isn't a child of this one
    /// stays. False only if this cursor stands on nothing.
    bool RemoveChild(const WcXmAppNode& child) const;

    /// True if a node is under the cursor.
    bool HasNode() const { return static_cast<bool>(appNode.node); }

    /// True if the node has a child of any kind.
    bool HasChild() const;

    /// Moves onto the first child of any kind. False if there is none; the cursor stays.
    bool MoveToFirstChild();

    WcXmAppNode appNode;
    WcXmDocument* document;
};

} // namespace jlandxml
