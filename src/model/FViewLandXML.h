#pragma once

#include "model/FViewAlignments.h"
#include "model/FViewCoordinateSystem.h"
#include "model/FViewProject.h"

namespace jlandxml
{

/// `LandXML`, the document element: drives reading and writing of all below it and fixes which elements stand at the
/// top of the finished file and in what order.
class FViewLandXML final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"LandXML"; }

    /// Takes the model from the tree. Groups of points that the input holds are removed from it: the finished file has
    /// its own. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the tree that was read. False at the first failure, with what was changed until then left in the tree.
    bool WriteElement(const WcXmNode& node) override;

    void SetOutputVersion(std::int32_t newVersion) override;

    FViewProject project;
    FViewCoordinateSystem coordinateSystem;
    FViewAlignmentsList alignments;

  private:
    void TakeProjectDataOfFirstAlignment();
    bool WriteProject(const WcXmNode& node);
    bool WriteCoordinateSystem(const WcXmNode& node);
};

} // namespace jlandxml
