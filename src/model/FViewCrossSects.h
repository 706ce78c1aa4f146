#pragma once

#include "model/FViewCrossSect.h"

namespace jlandxml
{

/// `CrossSects`: the cross sections along an alignment.
class FViewCrossSects final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CrossSects"; }
    bool ReadElement(const WcXmNode& node) override;
    /// Edits the element that was read. False if a cross section fails.
    bool WriteElement(const WcXmNode& node) override;
    void SetOutputVersion(std::int32_t newVersion) override;

    std::wstring name;
    PiCmCopyList<FViewCrossSect> crossSects;
};

} // namespace jlandxml
