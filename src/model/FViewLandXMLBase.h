#pragma once

#include "xml/WcXmNode.h"

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

namespace jlandxml
{

/// Names that more than one class of the format uses, each with its one meaning; the others stand with their class.
/// J-LandXML takes elements and attributes from LandXML 1.2 and adds its own values as labels of `Property` elements.
namespace element_name
{
inline constexpr const wchar_t* CG_POINTS = L"CgPoints";
inline constexpr const wchar_t* CROSS_SECT_PNT = L"CrossSectPnt";
inline constexpr const wchar_t* FEATURE = L"Feature";
inline constexpr const wchar_t* PROPERTY = L"Property";
} // namespace element_name

namespace attribute_name
{
inline constexpr const wchar_t* NAME = L"name";
inline constexpr const wchar_t* DESC = L"desc";
inline constexpr const wchar_t* CODE = L"code";
inline constexpr const wchar_t* LABEL = L"label";
inline constexpr const wchar_t* VALUE = L"value";
inline constexpr const wchar_t* STA = L"sta";
inline constexpr const wchar_t* STA_START = L"staStart";
} // namespace attribute_name

namespace property_label
{
inline constexpr const wchar_t* ALIGNMENT_REFS = L"alignmentRefs";
inline constexpr const wchar_t* FH_OFFSET = L"fhOffset";
inline constexpr const wchar_t* STA = L"sta";
} // namespace property_label

/// Values that the format fixes.
namespace format_word
{
inline constexpr const wchar_t* TRUE_TEXT = L"true";
inline constexpr const wchar_t* FALSE_TEXT = L"false";
inline constexpr const wchar_t* LEFT = L"left";
inline constexpr const wchar_t* RIGHT = L"right";

/// The name of a `Feature` that bears none.
inline constexpr const wchar_t* NAMELESS = L"";
} // namespace format_word

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

    /// Fills the object from its own element, beginning with Clear. False leaves the element out of its list, which
    /// then is one entry short: lists pair with the elements by position, so from there on each element would be
    /// written by the entry of the next. A class whose elements are written in pairs therefore never reads false.
    virtual bool ReadElement(const WcXmNode& node) = 0;

    /// Edits the tree at the given node; each class says which node that is. False stops the export: no file is made,
    /// and what was changed until then stays changed. Adding an element never fails, short of memory, which is raised;
    /// so most classes always give true.
    virtual bool WriteElement(const WcXmNode& node) = 0;

    /// Stores the OutputVersion; classes with children that depend on it pass it on.
    virtual void SetOutputVersion(std::int32_t newVersion) { version = newVersion; }

    /// The OutputVersion: the number of a row of OUTPUT_VERSIONS, from 0 for "MlitLandXmlVer.1.3" to the last row's. It
    /// means something only after SetOutputVersion.
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
        if (!child.HasName(name))
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

/// Reads the first child of that element whose name is exact and whose reading succeeds; those behind it aren't read.
/// False if there is none.
template <class Element>
bool ReadFirstChild(const WcXmNode& parent, Element& element)
{
    return !ForEachChild(parent, element.GetElementName(),
                         [&](const WcXmNode& child) { return !element.ReadElement(child); });
}

/// Reads the first child of that element, its name in any case. False if there is none.
template <class Element>
bool ReadFirstChildInAnyCase(const WcXmNode& parent, Element& element)
{
    WcXmNode child = parent;
    const bool isThere = element.SelectElement(child);
    if (isThere)
    {
        element.ReadElement(child);
    }
    return isThere;
}

/// Has the first child of that name, in any case, written if its name is exact; where it isn't, a later one isn't
/// looked for. False only if the writing fails.
template <class Element>
bool WriteFirstChild(const WcXmNode& parent, Element& element)
{
    WcXmNode child = parent;
    return !element.SelectElement(child) || !element.IsElementName(child.NodeName()) || element.WriteElement(child);
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

/// Removes every child of that name that the condition holds for. True if one was removed.
template <class Condition>
bool RemoveChildrenIf(const WcXmNode& parent, std::wstring_view name, Condition&& condition)
{
    bool removed = false;
    ForEachChild(parent, name, [&](const WcXmNode& child) {
        if (condition(child))
        {
            parent.RemoveChild(child.appNode);
            removed = true;
        }
    });
    return removed;
}

/// Removes every child of that name.
inline void RemoveChildren(const WcXmNode& parent, std::wstring_view name)
{
    RemoveChildrenIf(parent, name, [](const WcXmNode& /*child*/) { return true; });
}

/// Visits the n-th child of that element together with the n-th entry of a list that was read from the same parent,
/// until either ends; names aren't compared. False as soon as a visitor's result is.
template <class List, class Visitor>
bool ForEachPair(const WcXmNode& parent, List& list, Visitor&& visit)
{
    auto entry = list.begin();
    bool succeeded = true;
    if (entry != list.end())
    {
        ForEachChild(parent, entry->GetElementName(), [&](const WcXmNode& child) {
            succeeded = visit(child, *entry);
            ++entry;
            return succeeded && entry != list.end();
        });
    }
    return succeeded;
}

/// Has each child written by its entry. False as soon as one of them fails.
template <class List>
bool WriteChildren(const WcXmNode& parent, List& list)
{
    return ForEachPair(parent, list, [](const WcXmNode& child, auto& entry) { return entry.WriteElement(child); });
}

} // namespace jlandxml
