#pragma once

#include "base/CompactText.h"
#include "model/FViewFeature.h"
#include "model/FViewLandXMLBase.h"
#include "model/UnsetDouble.h"

#include <string>

namespace jlandxml
{

/// `CgPoint`: a named point. Points come from side files, never from the LandXML input. The coordinates are written in
/// the order of the side file; where that is northing, easting and elevation, the element's text is as LandXML 1.2 has
/// it. All are in metres, as the station is.
class FViewCgPoint : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CgPoint"; }
    /// Clears and reads nothing. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Appends a new element under the `CgPoints`. Without both of the first two coordinates it has no text. False if a
    /// point with coordinates finds no place.
    bool WriteElement(const WcXmNode& node) override;

    /// Sets the attributes of the point's own element.
    virtual void WritePointAttributes(const WcXmNode& node) const;

    /// Fills the `Feature` that goes with the point: its station and the direction of its tangent.
    virtual void FillFeature(FViewFeature& feature) const;

    /// Writes that `Feature` under the `CgPoints`; one whose name may stand there already is merged into it. Always
    /// true.
    bool WriteFeature(const WcXmNode& node, bool replaceExisting = true) const;

    CompactText name;
    double firstCoordinate = UNSET_DOUBLE;       ///< northing (X)
    double secondCoordinate = UNSET_DOUBLE;      ///< easting (Y)
    double thirdCoordinate = UNSET_DOUBLE;       ///< elevation; may be left out
    double sta = UNSET_DOUBLE;                   ///< station on the route's alignment
    double tangentDirectionAngle = UNSET_DOUBLE; ///< in the document's `directionUnit`, as the side file gives it

  protected:
    FViewCgPoint() = default;
    FViewCgPoint(const FViewCgPoint&) = default;
    FViewCgPoint(FViewCgPoint&&) = default;
    FViewCgPoint& operator=(const FViewCgPoint&) = default;
    FViewCgPoint& operator=(FViewCgPoint&&) = default;
    ~FViewCgPoint() = default;
};

/// A point on an alignment between its stations.
class FViewCgPointIntermediate final : public FViewCgPoint
{
  public:
    /// Empties its number alone; the point itself stays.
    void Clear() override { featureRef.clear(); }
    void WritePointAttributes(const WcXmNode& node) const override;
    /// The `Feature` bears the point's number as its name.
    void FillFeature(FViewFeature& feature) const override;

    CompactText featureRef; ///< the point's number within its group
};

/// A stake at the edge of the land that the works take up. Only its name and coordinates are delivered.
class FViewCgPointWidthStake final : public FViewCgPoint
{
  public:
    FViewCgPointWidthStake() = default;
    FViewCgPointWidthStake(const FViewCgPointWidthStake& other);
    FViewCgPointWidthStake(FViewCgPointWidthStake&&) = default;
    /// Copies everything but `groupName`, also from a temporary; only move construction takes it along.
    FViewCgPointWidthStake& operator=(const FViewCgPointWidthStake& other);

    /// Empties number, text and value of the stake and the description and type of its group; name, coordinates,
    /// station and `groupName` stay.
    void Clear() override;
    /// A stake has no `Feature`.
    void FillFeature(FViewFeature& /*feature*/) const override {}

    CompactText groupName;    ///< key of the group in the side file
    CompactText sequenceText; ///< the point's number within its group
    CompactText stakeText;    ///< text on the stake
    double stakeValue = 0.0;  ///< value of the stake, metres
    CompactText groupDesc;
    CompactText groupType;
};

} // namespace jlandxml
