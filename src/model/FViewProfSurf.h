#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/FViewPntList2D.h"

#include <string>

namespace jlandxml
{

/// `ProfSurf`: a ground line along an alignment (縦断地盤線), its points as station and elevation in metres. J-LandXML
/// asks for it in a `PntList2D`.
class FViewProfSurf final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"ProfSurf"; }
    /// Takes the attribute `name` and the first `PntList2D`, its name in any case. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Appends a new element under the `Profile`. Without points nothing is written. Always true.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    FViewPntList2D pntList2D;

  private:
    void WarnOfContent(const WcXmNode& node) const;
};

} // namespace jlandxml
