#include "model/FViewProperty.h"

#include "model/NumberText.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace jlandxml
{

namespace
{

/// So many properties look for their elements one by one; more of them are found in one walk.
constexpr std::size_t FEW_PROPERTIES = 8;

bool Append(const FViewProperty& property, const WcXmNode& feature, WcXmNode& element)
{
    const bool appended = feature.AppendChildElement(property.GetElementName(), &element);
    property.WriteOnto(element);
    return appended;
}

/// The first `Property` element of each label that a list of properties has. A label doesn't change by being written,
/// so one walk serves all of them.
class FirstByLabel
{
  public:
    FirstByLabel(const WcXmNode& feature, const PiCmCopyList<FViewProperty>& properties) : feature_(feature)
    {
        for (const FViewProperty& property : properties)
        {
            elements_.try_emplace(property.label);
        }
        ForEachChild(feature, element_name::PROPERTY, [this](const WcXmNode& element) {
            const auto place = elements_.find(PropertyLabel(element));
            if (place != elements_.end() && !place->second)
            {
                place->second = element;
            }
        });
    }

    /// As FViewProperty::WriteElement would. The property is one of the list.
    bool Write(const FViewProperty& property)
    {
        std::optional<WcXmNode>& first = elements_.find(property.label)->second;
        if (property.replaceExisting && first)
        {
            property.WriteOnto(*first);
            return true;
        }
        WcXmNode element = feature_;
        const bool appended = Append(property, feature_, element);
        if (!first)
        {
            first = element;
        }
        return appended;
    }

  private:
    const WcXmNode& feature_;
    std::unordered_map<std::wstring_view, std::optional<WcXmNode>> elements_; ///< by labels of the list
};

} // namespace

void FViewProperty::Clear()
{
    label.clear();
    value.clear();
    replaceExisting = true;
}

bool FViewProperty::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::LABEL, label);
    ReadTextAttribute(node, attribute_name::VALUE, value);
    return true;
}

bool FViewProperty::WriteElement(const WcXmNode& node)
{
    const auto update = [this](const WcXmNode& element) {
        if (PropertyLabel(element) != label)
        {
            return true;
        }
        WriteOnto(element);
        return false;
    };
    if (replaceExisting && !ForEachChild(node, GetElementName(), update))
    {
        return true;
    }
    WcXmNode element = node;
    return Append(*this, node, element);
}

void FViewProperty::WriteOnto(const WcXmNode& element) const
{
    WriteTextAttribute(element, attribute_name::LABEL, label);
    WriteTextAttribute(element, attribute_name::VALUE, value);
}

std::wstring_view PropertyLabel(const WcXmNode& property)
{
    return property.FindAttribute(attribute_name::LABEL).value_or(std::wstring_view());
}

bool WriteProperties(const WcXmNode& feature, PiCmCopyList<FViewProperty>& properties)
{
    if (properties.size() <= FEW_PROPERTIES)
    {
        return std::all_of(properties.begin(), properties.end(),
                           [&](FViewProperty& property) { return property.WriteElement(feature); });
    }
    FirstByLabel elements(feature, properties);
    return std::all_of(properties.begin(), properties.end(),
                       [&](const FViewProperty& property) { return elements.Write(property); });
}

} // namespace jlandxml
