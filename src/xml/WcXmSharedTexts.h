#pragma once

#include "xml/WcXmDocument.h"

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jlandxml
{

/// Texts that a run writes into a document over and over, such as "Property" or label="sta". The parser copies every
/// name and value that it is handed, but lets nodes copied from one another share what it has itself parsed. While an
/// object lives, each element and attribute that is added to its document teaches it: a name is kept as a pattern from
/// its first use, a value from its second, and what is added from then on is copied from the patterns, so that the text
/// lies in memory once. How many patterns there can be doesn't depend on the document.
///
/// The patterns stand behind the document element and leave with the object; what was copied from them stays whole. The
/// tree reads as if nothing were shared.
class WcXmSharedTexts
{
  public:
    /// A document without an element shares nothing.
    explicit WcXmSharedTexts(WcXmDocument& document) noexcept;
    WcXmSharedTexts(const WcXmSharedTexts&) = delete;
    WcXmSharedTexts& operator=(const WcXmSharedTexts&) = delete;
    ~WcXmSharedTexts();

    /// Appends an empty element. Null if the parent can't have children or the parser has no memory.
    pugi::xml_node AppendElement(pugi::xml_node parent, const wchar_t* name);

    /// Appends an attribute with its value. False if the node can't have attributes or the parser has no memory.
    bool AppendAttribute(pugi::xml_node node, const wchar_t* name, std::wstring_view value);

  private:
    /// Names by the pattern's own text, which lives as long as the tree.
    using Elements = std::unordered_map<std::wstring_view, pugi::xml_node>;
    using Attributes = std::unordered_map<std::wstring_view, pugi::xml_attribute>;

    /// The place of all attributes with the same hash of name and value.
    struct Place
    {
        std::size_t lastSeen = 0;    ///< hash of what came last
        pugi::xml_attribute pattern; ///< the first of them that came twice
    };

    pugi::xml_node Learn(const std::wstring& xml);
    pugi::xml_node ElementPattern(std::wstring_view name);
    pugi::xml_attribute NamePattern(std::wstring_view name);
    pugi::xml_attribute LearnAttribute(std::wstring_view name, std::wstring_view value);
    pugi::xml_attribute ValuePattern(std::wstring_view name, std::wstring_view value);

    WcXmAppDocument* document_ = nullptr;
    pugi::xml_node patterns_;
    Elements elements_;
    Attributes attributes_;
    std::vector<Place> places_;
};

} // namespace jlandxml
