#pragma once

#include "model/FViewLandXMLBase.h"

#include <string>

namespace jlandxml
{

/// `Project`: name and phase (事業段階) of the works, and the version of the exchange standard that the file follows
/// (適用基準).
class FViewProject final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Project"; }

    /// Takes phase and version text from the `Feature` without a name. The attribute `name` isn't read: the name comes
    /// with the first alignment. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Writes onto the existing `Project`. The version text is that of the OutputVersion, whatever the field holds.
    /// False only if there is no version of that number.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring applicationCriterion; ///< the version's text as the user has chosen it, such as "MlitLandXmlVer.1.6"
    std::wstring projectPhase;         ///< phase of the works, such as 詳細
    std::wstring name;                 ///< name of the works
};

} // namespace jlandxml
