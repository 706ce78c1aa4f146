#pragma once

#include "base/Warnings.h"
#include "xml/WcXmNode.h"

#include <cstddef>
#include <functional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace jlandxml
{

/// True for an element, not for a text, a declaration or the placeholder of a passage.
inline bool IsElement(const pugi::xml_node& node)
{
    return node.type() == pugi::node_element;
}

/// What separates the names in a path: 線形1／縦断／計画線.
inline constexpr std::wstring_view NAME_SEPARATOR = L"／";

/// Appends a name to a path of names; an empty one leaves it as it is.
void AppendName(std::wstring& names, std::wstring_view name);

/// A step of a path of positions, which are counted from 1.
std::wstring PositionStep(std::size_t position);

/// The place of an element among the children of the same name.
struct PlaceAmongSame
{
    std::size_t number = 1; ///< from 1
    bool isOnlyOne = true;
};

/// How a person calls an element within its parent: its name, the label of a `Property`, the station of a cross
/// section, or else the word for its kind, with a number where there are several. Empty for what needs no word, such
/// as the document element.
std::wstring ElementLabel(const pugi::xml_node& element, const PlaceAmongSame& place);

/// An element by the labels from the outermost one down.
std::wstring NamedPath(const pugi::xml_node& element);

/// An element as an XPath of positions, which needs no namespace: `/*[1]/*[4]` is the fourth element in the document
/// element.
std::wstring PositionPath(const pugi::xml_node& element);

/// The next node in document order within `top`; null behind the last one.
pugi::xml_node NextInOrder(pugi::xml_node node, const pugi::xml_node& top);

/// Visits an element and every element below it in document order, however deep they are nested. What is visited may
/// be changed, but not the order of the elements.
void ForEachElement(const WcXmNode& top, const std::function<void(const WcXmNode& element)>& visit);

/// Visits the elements in an element, not those below them. Nothing may be added or removed meanwhile.
void ForEachElementIn(const WcXmNode& parent, const std::function<void(const WcXmNode& element)>& visit);

/// Notes something about an element of the document that was loaded. What is to be remarked is asked for only where it
/// is kept.
void WarnOfElement(WarningCause cause, const WcXmNode& node, const std::function<std::wstring()>& remark = {}) noexcept;

/// Notes each attribute of an element that isn't empty, but for one.
void WarnOfAttributes(WarningCause cause, const WcXmNode& node, std::wstring_view except = {}) noexcept;

} // namespace jlandxml
