#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"

#include <string>

namespace jlandxml
{

/// `Property`: one label and its value, in which LandXML 1.2 lets a standard put what it has no element for. Labels are
/// compared exactly; values are texts, and each class says the unit of its own.
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
    /// Takes both attributes; an absent one leaves an empty text. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Writes under a `Feature`: updates the first `Property` of the same label, or appends a new one. An empty value
    /// never erases an old one. Always true.
    bool WriteElement(const WcXmNode& node) override;

    /// Writes onto an element of its own: what isn't empty is set.
    void WriteOnto(const WcXmNode& element) const;

    std::wstring label;
    std::wstring value;
    /// False for a row of a list in which the label repeats: it always becomes a new element.
    bool replaceExisting = true;
};

/// The label of a `Property` element, empty without the attribute.
std::wstring_view PropertyLabel(const WcXmNode& property);

/// Writes each property of a list under a `Feature`, one after the other; what one appends the next may update. The
/// time is linear in the properties and the elements together. Always true.
bool WriteProperties(const WcXmNode& feature, PiCmCopyList<FViewProperty>& properties);

} // namespace jlandxml
