#pragma once

#include "model/FViewCoordGeom.h"
#include "model/FViewCrossSects.h"
#include "model/FViewFeature.h"
#include "model/FViewLandXMLBase.h"
#include "model/FViewProfile.h"
#include "model/FViewSlopeValue.h"
#include "model/FViewStaEquation.h"
#include "model/FViewSuperelevation.h"
#include "model/FViewWidening.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

#include <string>

namespace jlandxml
{

/// A number that stays with its object: neither a copy nor a move of the object carries it. Else it is used as the
/// double that it stands for.
struct UncopiedDouble
{
    UncopiedDouble() = default;
    UncopiedDouble(const UncopiedDouble& /*other*/) noexcept {}
    UncopiedDouble& operator=(const UncopiedDouble& /*other*/) noexcept { return *this; }
    UncopiedDouble& operator=(double number) noexcept
    {
        value = number;
        return *this;
    }
    operator double() const noexcept { return value; }

    double value = UNSET_DOUBLE;
};

/// `Alignment`: one alignment with its geometry, its profile, its cross sections and its design values. The host gives
/// the design values as key = value in `desc`, or as `Feature` elements, which win. In the finished file they are the
/// `Feature` elements "Horizontal", "Interval", "SuperelevationConfig", "SlopeList" and "WideningList", with the labels
/// that J-LandXML (国土交通省 LandXML1.2に準じた3次元設計データ交換標準) fixes for the `Alignment` of the LandXML 1.2
/// schema.
///
/// An alignment moves without copying what it holds; only the start stays behind.
class FViewAlignment final : public FViewLandXMLBase
{
  public:
    FViewAlignment();

    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Alignment"; }

    /// Never rejects an alignment: writing pairs the list with the elements by position. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the element that was read. The design values become `Feature` elements behind the other children;
    /// "Horizontal" keeps its place where it stands already. A free slope list takes all `Superelevation` children
    /// away, cross sections refer to the design profile, and `CrossSects` without a child go. False if a cross section
    /// or a superelevation fails; what was changed until then stays.
    bool WriteElement(const WcXmNode& node) override;

    void SetOutputVersion(std::int32_t newVersion) override;

    /// The design values as the standard asks for them, without those that hold nothing.
    void BuildDesignFeatures(PiCmCopyList<FViewFeature>& features) const;

    std::wstring name;                  ///< by which side files find the alignment
    UncopiedDouble staStart;            ///< station of its beginning, metres; nothing writes it, Clear leaves it
    double mainInterval = UNSET_DOUBLE; ///< interval of the main stations, metres
    double subInterval = UNSET_DOUBLE;  ///< interval of the sub stations, metres
    double normalCrown = UNSET_DOUBLE;  ///< cross fall on straights, percent
    /// 1: single-lane road; 0: multi-lane; -1: no value, no `Property` is written.
    std::int32_t singleLaneRoad = 0;
    /// 1: the free slope list takes the place of the superelevation; 0: the superelevation counts; -1: no value, no
    /// `Property` is written, and all else is written as with 1.
    std::int32_t useSlopeList = 0;
    std::wstring method;               ///< method of calculation, such as 要素法
    std::wstring verticalOrigin;       ///< vertical datum, for the coordinate system
    std::wstring applicationCriterion; ///< version text of the standard, for the project
    std::wstring projectPhase;         ///< for the project
    std::wstring projectName;          ///< for the project
    PiCmCopyList<FViewSuperelevation> superelevations;
    PiCmCopyList<FViewSlopeValue> slopeList;
    FViewCoordGeom coordGeom;
    PiCmCopyList<FViewCrossSects> crossSects;
    FViewProfile profile;
    FViewStaEquationArray staEquations;
    PiCmCopyList<FViewWidening> widthLeftValue;
    PiCmCopyList<FViewWidening> widthRightValue;

  private:
    void ReadDesc(std::wstring_view desc);
    void ReadDesignFeature(const WcXmNode& node, bool isMadeAnew);
    void WarnOfUnusedSlopeList(const WcXmNode& node) const;
    bool WriteDesignFeatures(const WcXmNode& node) const;
    bool WriteCrossSects(const WcXmNode& node);
    bool WriteSuperelevations(const WcXmNode& node);
};

/// Removes the first "Interval" and the first "SuperelevationConfig" under an `Alignment`: they are built anew, behind
/// the other children. A second one of the name stays and is then updated.
void RemoveOldDesignFeatures(const WcXmNode& node);

/// Removes the first "SlopeList" under an `Alignment`.
void RemoveSlopeListFeature(const WcXmNode& node);

/// Removes the first "WideningList" under an `Alignment`.
void RemoveWideningListFeature(const WcXmNode& node);

/// Removes every `CrossSects` of an `Alignment` that has no child of any kind, in one walk. True if one was removed.
bool RemoveEmptyCrossSects(const WcXmNode& node);

} // namespace jlandxml
