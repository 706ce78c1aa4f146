#pragma once

#include "model/FViewCgPoint.h"
#include "model/PiCollections.h"

#include <string>

namespace jlandxml
{

/// `CgPoints` of the intermediate points of a route.
class FViewCgPointsIntermediate final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return element_name::CG_POINTS; }
    /// Clears and reads nothing. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Fills a new, empty element: the points, the group's `Feature`, and one for each point. False if a point with
    /// coordinates finds no place.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    std::wstring desc;          ///< stays empty and isn't written
    std::wstring alignmentRefs; ///< name of the route's alignment
    std::wstring sourceFile;    ///< the side file that the points come from, for who tells of them
    PiCmCopyList<FViewCgPointIntermediate> points;
};

/// `CgPoints` of the width stakes of a route that belong together.
class FViewCgPointsWidthStake final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return element_name::CG_POINTS; }
    /// Clears and reads nothing. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Fills a new, empty element: the points and the group's `Feature`. False if a point with coordinates finds no
    /// place.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    std::wstring desc;
    std::wstring alignmentRefs; ///< name of the route's alignment
    std::wstring type;          ///< "open" or "closed"
    std::wstring sourceFile;    ///< the side file that the points come from, for who tells of them
    PiCmCopyList<FViewCgPointWidthStake> points;
};

/// The groups of intermediate points of all routes.
class FViewCgPointsIntermediateList : public PiCmCopyList<FViewCgPointsIntermediate>
{
  public:
    /// Names the groups "IntermediatePnts-1" and so on, and numbers the points of each from 1. Groups without points
    /// count.
    void Number();
};

/// The groups of width stakes of all routes.
class FViewCgPointsWidthStakeList : public PiCmCopyList<FViewCgPointsWidthStake>
{
  public:
    /// Numbers the points of each group from 1. The groups keep their names.
    void Number();
};

} // namespace jlandxml
