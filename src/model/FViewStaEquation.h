#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

namespace jlandxml
{

/// `StaEquation`: a jump in the stationing of an alignment (broken chainage), in metres. Up to `staInternal`
/// the stations count towards `staBack`, from there on they count from `staAhead`.
class FViewStaEquation final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"StaEquation"; }
    /// An absent attribute stays unset; what isn't numeric is 0. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Equations stay as the host wrote them; nothing calls this. Always false.
    bool WriteElement(const WcXmNode& /*node*/) override { return false; }

    double staBack = UNSET_DOUBLE;     ///< station in front of the jump
    double staInternal = UNSET_DOUBLE; ///< distance along the alignment
    double staAhead = UNSET_DOUBLE;    ///< station behind the jump
};

/// The station equations of an alignment, ascending by `staInternal`.
class FViewStaEquationArray : public PiCmCopyArray<FViewStaEquation>
{};

/// Sorts ascending by `staInternal`; equal ones keep their order.
void SortStaEquations(FViewStaEquationArray& equations);

} // namespace jlandxml
