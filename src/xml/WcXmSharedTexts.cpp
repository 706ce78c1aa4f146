#include "xml/WcXmSharedTexts.h"

#include "xml/WcXmDocument.h"

#include <algorithm>
#include <string>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* PATTERNS = L"patterns";

/// An element for each of the elements, and one more that bears all attributes.
std::wstring PatternXml(std::span<const wchar_t* const> elements,
                        std::span<const WcXmSharedTexts::Attribute> attributes)
{
    std::wstring xml;
    for (const wchar_t* const element : elements)
    {
        xml.append(L"<").append(element).append(L"/>");
    }
    xml.append(L"<attributes");
    for (const WcXmSharedTexts::Attribute& attribute : attributes)
    {
        xml.append(L" ").append(attribute.name).append(L"=\"").append(attribute.value).append(L"\"");
    }
    return xml.append(L"/>");
}

} // namespace

WcXmSharedTexts::WcXmSharedTexts(WcXmDocument& document, std::span<const wchar_t* const> elements,
                                 std::span<const Attribute> attributes)
    : document_(document)
{
    if (document.appDocument == nullptr || document.appDocument->xmlDocument == nullptr ||
        !document.appDocument->xmlDocument->document_element())
    {
        return;
    }
    const std::wstring xml = PatternXml(elements, attributes);
    patterns_ = document.appDocument->xmlDocument->append_child(PATTERNS);
    patterns_.append_buffer(xml.data(), xml.size() * sizeof(wchar_t), pugi::parse_minimal, pugi::encoding_wchar);
    const pugi::xml_node bearer = patterns_.last_child();
    for (pugi::xml_node element = patterns_.first_child(); element != bearer; element = element.next_sibling())
    {
        elements_.emplace(element.name(), element);
    }
    for (const pugi::xml_attribute& attribute : bearer.attributes())
    {
        attributes_[attribute.name()].push_back(attribute);
    }
    document.appDocument->sharedTexts = this;
}

WcXmSharedTexts::~WcXmSharedTexts()
{
    if (patterns_)
    {
        document_.appDocument->sharedTexts = nullptr;
        patterns_.parent().remove_child(patterns_);
    }
}

pugi::xml_node WcXmSharedTexts::AppendElement(pugi::xml_node parent, const wchar_t* name) const
{
    const auto pattern = elements_.find(name);
    return pattern == elements_.end() ? parent.append_child(name) : parent.append_copy(pattern->second);
}

bool WcXmSharedTexts::AppendAttribute(pugi::xml_node node, const wchar_t* name, std::wstring_view value) const
{
    const auto patterns = attributes_.find(name);
    if (patterns == attributes_.end())
    {
        return node.append_attribute(name).set_value(value.data(), value.size());
    }
    const auto same = std::find_if(patterns->second.begin(), patterns->second.end(),
                                   [&](const pugi::xml_attribute& pattern) { return pattern.value() == value; });
    if (same != patterns->second.end())
    {
        return static_cast<bool>(node.append_copy(*same));
    }
    return node.append_copy(patterns->second.front()).set_value(value.data(), value.size());
}

} // namespace jlandxml
