#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/FViewPntList2D.h"

#include <string>

namespace jlandxml
{

/// `ProfSurf`: a ground line along an alignment.
class FViewProfSurf final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"ProfSurf"; }
    bool ReadElement(const WcXmNode& node) override;

    /// Appends a new element under the `Profile`; without points nothing is written. False if it can't be added.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    FViewPntList2D pntList2D;
};

} // namespace jlandxml
