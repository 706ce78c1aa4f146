#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

namespace jlandxml
{

/// `StaEquation`: a jump in the stationing of an alignment (broken chainage), in metres.
class FViewStaEquation final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"StaEquation"; }
    bool ReadElement(const WcXmNode& node) override;
    /// Equations stay as the host wrote them; nothing calls this. Always false.
    bool WriteElement(const WcXmNode& /*node*/) override { return false; }

    double staBack = UNSET_DOUBLE;
    double staInternal = UNSET_DOUBLE; ///< distance along the alignment
    double staAhead = UNSET_DOUBLE;
};

/// The station equations of an alignment, ascending by `staInternal`.
class FViewStaEquationArray : public PiCmCopyArray<FViewStaEquation>
{};

/// Sorts ascending by `staInternal`; equal ones keep their order.
void SortStaEquations(FViewStaEquationArray& equations);

} // namespace jlandxml
