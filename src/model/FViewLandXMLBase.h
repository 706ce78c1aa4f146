#pragma once

#include "xml/WcXmNode.h"

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

namespace jlandxml
{

/// The base of every class that stands for one element of the format. An object reads itself from its element and later
/// edits that same element in place; whatever it doesn't touch goes through as the host wrote it.
class FViewLandXMLBase
{
  public:
    /// Back to the empty state.
    virtual void Clear() = 0;

    /// The element's name in the format.
    virtual const wchar_t* GetElementName() const = 0;

    /// Moves a cursor onto the first child with this element's name, ignoring case. False if there is none.
    virtual bool SelectElement(WcXmNode& node) const { return node.SelectFirstChild(GetElementName()); }

    /// True if the name is this element's, in its exact case.
    virtual bool IsElementName(std::wstring_view name) const { return name == GetElementName(); }

    /// Fills the object from its own element, beginning with Clear. False leaves the element out of its list.
    virtual bool ReadElement(const WcXmNode& node) = 0;

    /// Edits the tree at the given node; each class says which node that is. False stops the export: no file is made.
    virtual bool WriteElement(const WcXmNode& node) = 0;

    /// Stores the OutputVersion; classes with children that depend on it pass it on.
    virtual void SetOutputVersion(std::int32_t newVersion) { version = newVersion; }

    /// The OutputVersion, from 0 for "MlitLandXmlVer.1.3" to 4 for "MlitLandXmlVer.1.7". It means something only after
    /// SetOutputVersion.
    std::int32_t version = 0;

  protected:
    FViewLandXMLBase() = default;
    FViewLandXMLBase(const FViewLandXMLBase&) = default;
    FViewLandXMLBase(FViewLandXMLBase&&) = default;
    FViewLandXMLBase& operator=(const FViewLandXMLBase&) = default;
    FViewLandXMLBase& operator=(FViewLandXMLBase&&) = default;
    ~FViewLandXMLBase() = default;
};

/// The walk over repeated children: it starts at the first child of that name, ignoring case, and visits it and each
/// later sibling whose name is exact. The visited child may be removed. A visitor that returns a bool ends the walk
/// with false. The result is false if the walk was ended so.
template <class Visitor>
bool ForEachChild(const WcXmNode& parent, std::wstring_view name, Visitor&& visit)
{
    WcXmNode cursor = parent;
    bool more = cursor.SelectFirstChild(name);
    while (more)
    {
        const WcXmNode child = cursor;
        more = cursor.MoveToNextSibling();
        if (child.NodeName() != name)
        {
            continue;
        }
        if constexpr (std::is_same_v<std::invoke_result_t<Visitor&, const WcXmNode&>, void>)
        {
            visit(child);
        }
        else if (!visit(child))
        {
            return false;
        }
    }
    return true;
}

/// The walk for a child that counts once: visits the first one whose name is exact. False if there is none.
template <class Visitor>
bool VisitFirstChild(const WcXmNode& parent, std::wstring_view name, Visitor&& visit)
{
    return !ForEachChild(parent, name, [&](const WcXmNode& child) {
        visit(child);
        return false;
    });
}

/// Reads every child of that element into a list.
template <class Element, class List>
void ReadChildren(const WcXmNode& parent, List& list)
{
    ForEachChild(parent, Element().GetElementName(), [&](const WcXmNode& child) {
        Element element;
        if (element.ReadElement(child))
        {
            list.push_back(std::move(element));
        }
    });
}

/// Has the n-th child of that element written by the n-th entry of a list that was read from the same parent. False as
/// soon as one of them fails.
template <class List>
bool WriteChildren(const WcXmNode& parent, List& list)
{
    if (list.empty())
    {
        return true;
    }
    auto entry = list.begin();
    return ForEachChild(parent, entry->GetElementName(),
                        [&](const WcXmNode& child) { return entry == list.end() || (entry++)->WriteElement(child); });
}

} // namespace jlandxml
