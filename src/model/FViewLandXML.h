#pragma once

#include "model/FViewAlignments.h"
#include "model/FViewCgPoints.h"
#include "model/FViewCoordinateSystem.h"
#include "model/FViewProject.h"
#include "model/FViewSurfaces.h"

#include <string>
#include <unordered_set>

namespace jlandxml
{

/// `LandXML`, the document element: drives reading and writing of all below it and fixes which elements the converter
/// puts at the top of the finished file, and where; the others keep the input's order.
class FViewLandXML final : public FViewLandXMLBase
{
  public:
    /// Back to an empty model; only the output table of the surfaces keeps its rows.
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"LandXML"; }

    /// Takes the model from the tree. Groups of points that the input holds are removed from it: the finished file has
    /// its own. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the tree that was read, from `Project` to `Surfaces`. False at the first failure, with what was changed
    /// until then left in the tree. It also is when groups of intermediate points stand in the tree already: a second
    /// export over the same tree would place them twice.
    bool WriteElement(const WcXmNode& node) override;

    /// Reaches the project and the alignments. References of surfaces go by the root's own version, width stakes by
    /// that of the project.
    void SetOutputVersion(std::int32_t newVersion) override;

    FViewProject project;
    FViewCoordinateSystem coordinateSystem;
    FViewCgPointsIntermediateList intermediatePoints; ///< from side files alone
    FViewCgPointsWidthStakeList widthStakePoints;     ///< from side files alone
    FViewAlignmentsList alignments;
    FViewSurfacesList surfaces;
    std::unordered_set<std::wstring> removedPoints; ///< names of the points that the input held

  private:
    void TakeProjectDataOfFirstAlignment();
    void WarnOfMissingPoints(const WcXmNode& node) const;
    void LinkCrossSections();
    bool WriteIntermediatePoints(const WcXmNode& node);
    bool WriteWidthStakes(const WcXmNode& node);
    bool WriteCoordinateSystem(const WcXmNode& node);
    void WriteSurfaces(const WcXmNode& node) const;
};

} // namespace jlandxml
