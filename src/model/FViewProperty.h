#pragma once

#include "model/FViewLandXMLBase.h"

#include <string>

namespace jlandxml
{

/// `Property`: one label and its value, the free-form data of the format.
class FViewProperty final : public FViewLandXMLBase
{
  public:
    FViewProperty() = default;
    FViewProperty(std::wstring propertyLabel, std::wstring propertyValue, bool replace = true)
        : label(std::move(propertyLabel)),
          value(std::move(propertyValue)),
          replaceExisting(replace)
    {}

    void Clear() override;
    const wchar_t* GetElementName() const override { return element_name::PROPERTY; }
    bool ReadElement(const WcXmNode& node) override;

    /// Writes under a `Feature`: updates the first `Property` of the same label, or appends a new one. An empty value
    /// never erases an old one.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring label;
    std::wstring value;
    /// False for a row of a list in which the label repeats: it always becomes a new element.
    bool replaceExisting = true;
};

} // namespace jlandxml
