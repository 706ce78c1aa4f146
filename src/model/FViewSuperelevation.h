#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

namespace jlandxml
{

/// `Superelevation`: one region of superelevation (片勾配) of an alignment, by its stations in metres along it. In the
/// order of driving: the normal crown begins to turn (BeginRunoutSta), the outer lane is level and turns over
/// (BeginRunoffSta), the full superelevation begins (FullSuperSta) and ends (RunoffSta), the outer lane is level again
/// (StartofRunoutSta), the normal crown is back (EndofRunoutSta). J-LandXML adds the stations of the reversed crown
/// ("ReverseCrown") and of the level lane ("FlatSta") as `Feature` elements.
class FViewSuperelevation final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Superelevation"; }

    /// Takes the stations from the children and the stations of the reversed and the flat crown from the `Feature`
    /// elements; the attributes aren't read. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the element that was read: start and end of the full superelevation become attributes as well, and where
    /// the host gives begin of run-off and start of run-out alone, they become start and end of run-out, as the
    /// standard expects them. False if a child can't be added; what was changed until then stays.
    bool WriteElement(const WcXmNode& node) override;

    double beginRunoutSta = UNSET_DOUBLE;
    double endofRunoutSta = UNSET_DOUBLE;
    double fullSuperSta = UNSET_DOUBLE; ///< the attribute `staStart` of the finished file
    double runoffSta = UNSET_DOUBLE;    ///< the attribute `staEnd` of the finished file
    double beginRunoffSta = UNSET_DOUBLE;
    double startofRunoutSta = UNSET_DOUBLE;
    bool adverse = true; ///< whether the outer lane goes through the adverse crown (`AdverseSE`)
    PiCmCopyList<WcStString> reverseCrownStations; ///< as the host wrote them, character for character
    PiCmCopyList<WcStString> flatStations;         ///< as the host wrote them, character for character

  private:
    bool HasOneSidedRunout() const;
    bool HasWholeRunout() const;
    bool WriteRunout(const WcXmNode& node) const;
    bool WriteAdverse(const WcXmNode& node) const;
};

} // namespace jlandxml
