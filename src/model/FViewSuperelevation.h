#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

namespace jlandxml
{

/// `Superelevation`: one region of superelevation of an alignment, by its stations in metres.
class FViewSuperelevation final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Superelevation"; }

    /// Takes the stations from the children and the stations of the reversed and the flat crown from the `Feature`
    /// elements; the attributes aren't read. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the element that was read: start and end of the full superelevation become attributes, a run-out that the
    /// host gives on one side only is moved to where the standard expects it. False if a child can't be added.
    bool WriteElement(const WcXmNode& node) override;

    double beginRunoutSta = UNSET_DOUBLE;
    double endofRunoutSta = UNSET_DOUBLE;
    double fullSuperSta = UNSET_DOUBLE; ///< the attribute `staStart` of the finished file
    double runoffSta = UNSET_DOUBLE;    ///< the attribute `staEnd` of the finished file
    double beginRunoffSta = UNSET_DOUBLE;
    double startofRunoutSta = UNSET_DOUBLE;
    bool adverse = true;
    PiCmCopyList<WcStString> reverseCrownStations; ///< as the host wrote them, character for character
    PiCmCopyList<WcStString> flatStations;         ///< as the host wrote them, character for character

  private:
    bool HasOneSidedRunout() const;
    bool WriteRunout(const WcXmNode& node) const;
    bool WriteAdverse(const WcXmNode& node) const;
};

} // namespace jlandxml
