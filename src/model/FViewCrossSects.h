#pragma once

#include "model/FViewCrossSect.h"

namespace jlandxml
{

/// `CrossSects`: the cross sections (横断面) along an alignment.
class FViewCrossSects final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CrossSects"; }
    /// Takes the name and every section. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Edits the element that was read. False if a cross section fails.
    bool WriteElement(const WcXmNode& node) override;

    /// Writes the name of the design profile (縦断線形) that the sections refer to, as "profAlignRefs" of the `Feature`
    /// without a name. Without cross sections, or with an empty name, nothing is written. Always true.
    bool WriteProfAlignRefs(const WcXmNode& node, const std::wstring& profAlignName) const;

    void SetOutputVersion(std::int32_t newVersion) override;

    std::wstring name;
    PiCmCopyList<FViewCrossSect> crossSects;
};

} // namespace jlandxml
