#pragma once

#include "xml/WcXmNode.h"

#include <pugixml.hpp>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jlandxml
{

/// Texts that a run writes into a document over and over. The parser copies every name and value that it is handed, but
/// lets nodes copied from one another share what it has itself parsed. While an object lives, elements and attributes
/// that are added to its document are copied from its patterns, so that each of these texts lies in memory once.
/// The patterns stand behind the document element and leave with the object; what was copied from them stays whole.
class WcXmSharedTexts
{
  public:
    /// An attribute written often; without a value its name alone is shared.
    struct Attribute
    {
        const wchar_t* name;
        const wchar_t* value = L"";
    };

    /// Names and values are taken as they stand, so they hold no character that XML would escape. A document without an
    /// element shares nothing.
    WcXmSharedTexts(WcXmDocument& document, std::span<const wchar_t* const> elements,
                    std::span<const Attribute> attributes);
    WcXmSharedTexts(const WcXmSharedTexts&) = delete;
    WcXmSharedTexts& operator=(const WcXmSharedTexts&) = delete;
    ~WcXmSharedTexts();

    /// Appends an empty element; null if the parent can't have children.
    pugi::xml_node AppendElement(pugi::xml_node parent, const wchar_t* name) const;

    /// Appends an attribute with its value. False if the node can't have attributes.
    bool AppendAttribute(pugi::xml_node node, const wchar_t* name, std::wstring_view value) const;

  private:
    WcXmDocument& document_;
    pugi::xml_node patterns_;
    std::unordered_map<std::wstring_view, pugi::xml_node> elements_;
    std::unordered_map<std::wstring_view, std::vector<pugi::xml_attribute>> attributes_;
};

} // namespace jlandxml
