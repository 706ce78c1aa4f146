#pragma once

#include "model/FViewProperty.h"
#include "model/PiCollections.h"

namespace jlandxml
{

/// `Feature`: a named list of properties under most elements, in which J-LandXML puts what LandXML 1.2 has no attribute
/// for. An empty name means a `Feature` without the attribute, or with an empty one.
class FViewFeature final : public FViewLandXMLBase
{
  public:
    FViewFeature() = default;
    explicit FViewFeature(std::wstring featureName) : name(std::move(featureName)) {}

    void Clear() override;
    const wchar_t* GetElementName() const override { return element_name::FEATURE; }
    /// Takes the name and the properties in document order. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Writes under the element that bears the data: merges into the first `Feature` of the same name, or appends a new
    /// one. Without a single property that has both label and value nothing is written. Always true.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    /// False for a `Feature` that always becomes a new element.
    bool replaceExisting = true;
    PiCmCopyList<FViewProperty> properties;

  private:
    bool HasContent() const;
    bool WriteInto(const WcXmNode& element);
};

/// The `name` of a `Feature` element, empty without the attribute.
std::wstring_view FeatureName(const WcXmNode& feature);

/// Visits each `Feature` of that name under an element: the walk, with the name compared exactly.
template <class Visitor>
bool ForEachFeature(const WcXmNode& parent, std::wstring_view name, Visitor&& visit)
{
    return ForEachChild(parent, element_name::FEATURE, [&](const WcXmNode& feature) {
        if (FeatureName(feature) != name)
        {
            return true;
        }
        if constexpr (std::is_same_v<std::invoke_result_t<Visitor&, const WcXmNode&>, void>)
        {
            visit(feature);
            return true;
        }
        else
        {
            return visit(feature);
        }
    });
}

/// Visits each property of each `Feature` of that name, in document order.
template <class Visitor>
void ForEachFeatureProperty(const WcXmNode& parent, std::wstring_view name, Visitor visit)
{
    ForEachFeature(parent, name, [&](const WcXmNode& child) {
        FViewFeature feature;
        feature.ReadElement(child);
        for (const FViewProperty& property : feature.properties)
        {
            visit(property);
        }
    });
}

/// Removes the first `Feature` of that name; a second one stays. False if there is none.
bool RemoveFirstFeature(const WcXmNode& parent, std::wstring_view name);

} // namespace jlandxml
