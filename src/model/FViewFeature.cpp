#include "model/FViewFeature.h"

#include "model/NumberText.h"

#include <algorithm>

namespace jlandxml
{

void FViewFeature::Clear()
{
    name.clear();
    replaceExisting = true;
    properties.clear();
}

bool FViewFeature::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadChildren<FViewProperty>(node, properties);
    return true;
}

bool FViewFeature::WriteElement(const WcXmNode& node)
{
    if (!HasContent())
    {
        return true;
    }
    bool written = false;
    const auto mergeIntoFirst = [&](const WcXmNode& element) {
        written = WriteInto(element);
        return false;
    };
    if (replaceExisting && !ForEachFeature(node, name, mergeIntoFirst))
    {
        return written;
    }
    WcXmNode element = node;
    return node.AppendChildElement(GetElementName(), &element) && WriteInto(element);
}

bool FViewFeature::HasContent() const
{
    return std::any_of(properties.begin(), properties.end(), [](const FViewProperty& property) {
        return !property.label.empty() && !property.value.empty();
    });
}

bool FViewFeature::WriteInto(const WcXmNode& element)
{
    WriteTextAttribute(element, attribute_name::NAME, name);
    return WriteProperties(element, properties);
}

std::wstring_view FeatureName(const WcXmNode& feature)
{
    return feature.FindAttribute(attribute_name::NAME).value_or(std::wstring_view());
}

bool RemoveFirstFeature(const WcXmNode& parent, std::wstring_view name)
{
    return !ForEachFeature(parent, name, [&](const WcXmNode& feature) {
        parent.RemoveChild(feature.appNode);
        return false;
    });
}

} // namespace jlandxml
