#include "xml/WcXmSharedTexts.h"

#include <functional>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* PATTERNS = L"patterns";
constexpr const wchar_t* BEARER = L"attribute";

/// Long texts hardly come again, and looking at them costs time.
constexpr std::size_t LONGEST_VALUE = 32;
/// Far more than the words of the format. Numbers take some of the places, too, where they come again.
constexpr std::size_t PLACE_COUNT = 1024;

/// Of all names the writers use, far fewer.
constexpr std::size_t MOST_NAMES = 256;

std::size_t Hash(std::wstring_view name, std::wstring_view value)
{
    constexpr std::hash<std::wstring_view> HASH;
    return HASH(name) * 31 + HASH(value);
}

} // namespace

WcXmSharedTexts::WcXmSharedTexts(WcXmDocument& document) noexcept
{
    if (document.appDocument != nullptr && document.appDocument->xmlDocument != nullptr &&
        document.appDocument->xmlDocument->document_element())
    {
        document_ = document.appDocument.get();
        document_->sharedTexts = this;
    }
}

WcXmSharedTexts::~WcXmSharedTexts()
{
    if (document_ != nullptr)
    {
        document_->sharedTexts = nullptr;
        patterns_.parent().remove_child(patterns_);
    }
}

pugi::xml_node WcXmSharedTexts::AppendElement(pugi::xml_node parent, const wchar_t* name)
{
    const pugi::xml_node pattern = ElementPattern(name);
    return pattern ? parent.append_copy(pattern) : parent.append_child(name);
}

bool WcXmSharedTexts::AppendAttribute(pugi::xml_node node, const wchar_t* name, std::wstring_view value)
{
    if (const pugi::xml_attribute pattern = ValuePattern(name, value))
    {
        return static_cast<bool>(node.append_copy(pattern));
    }
    const pugi::xml_attribute pattern = NamePattern(name);
    pugi::xml_attribute attribute = pattern ? node.append_copy(pattern) : node.append_attribute(name);
    return attribute.set_value(value.data(), value.size());
}

/// The node of a piece of XML, read in among the patterns; null if it can't be read.
pugi::xml_node WcXmSharedTexts::Learn(const std::wstring& xml)
{
    if (document_ == nullptr)
    {
        return {};
    }
    if (!patterns_)
    {
        patterns_ = document_->xmlDocument->append_child(PATTERNS);
    }
    const bool read =
        patterns_.append_buffer(xml.data(), xml.size() * sizeof(wchar_t), pugi::parse_minimal, pugi::encoding_wchar);
    return read ? patterns_.last_child() : pugi::xml_node();
}

pugi::xml_node WcXmSharedTexts::ElementPattern(std::wstring_view name)
{
    const auto known = elements_.find(name);
    if (known != elements_.end() || elements_.size() == MOST_NAMES)
    {
        return known != elements_.end() ? known->second : pugi::xml_node();
    }
    const pugi::xml_node pattern = Learn(std::wstring(L"<").append(name).append(L"/>"));
    if (pattern.name() != name)
    {
        return {};
    }
    elements_.emplace(pattern.name(), pattern);
    return pattern;
}

pugi::xml_attribute WcXmSharedTexts::NamePattern(std::wstring_view name)
{
    const auto known = attributes_.find(name);
    if (known != attributes_.end() || attributes_.size() == MOST_NAMES)
    {
        return known != attributes_.end() ? known->second : pugi::xml_attribute();
    }
    const pugi::xml_attribute pattern = LearnAttribute(name, L"");
    if (pattern)
    {
        attributes_.emplace(pattern.name(), pattern);
    }
    return pattern;
}

/// Null if the texts hold what doesn't stand for itself in XML.
pugi::xml_attribute WcXmSharedTexts::LearnAttribute(std::wstring_view name, std::wstring_view value)
{
    const pugi::xml_node bearer =
        Learn(std::wstring(L"<").append(BEARER).append(L" ").append(name).append(L"=\"").append(value).append(L"\"/>"));
    const pugi::xml_attribute pattern = bearer.first_attribute();
    return pattern.name() == name && pattern.value() == value ? pattern : pugi::xml_attribute();
}

pugi::xml_attribute WcXmSharedTexts::ValuePattern(std::wstring_view name, std::wstring_view value)
{
    // What holds a quotation mark can't be put down as it stands.
    if (value.empty() || value.size() > LONGEST_VALUE || value.find(L'"') != std::wstring_view::npos)
    {
        return {};
    }
    places_.resize(PLACE_COUNT);
    const std::size_t hash = Hash(name, value);
    Place& place = places_[hash % PLACE_COUNT];
    if (place.pattern)
    {
        const bool isSame = place.pattern.value() == value && place.pattern.name() == name;
        return isSame ? place.pattern : pugi::xml_attribute();
    }
    const bool cameBefore = place.lastSeen == hash;
    place.lastSeen = hash;
    return cameBefore ? place.pattern = LearnAttribute(name, value) : pugi::xml_attribute();
}

} // namespace jlandxml
