#pragma once

#include "base/CompactText.h"
#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"

#include <span>
#include <string>

namespace jlandxml
{

/// One child of a `CoordGeom`, in its place among the others. Its points hold their coordinates as text, north (X)
/// before east (Y), in metres; the converter names the points and leaves the coordinates as they are.
class FViewCoordGeomElement final
{
  public:
    /// The values of `type`; any other counts as OTHER.
    enum Type : std::int32_t
    {
        OTHER = -1,
        LINE = 0,
        CURVE = 1,
        SPIRAL = 2
    };

    virtual void Clear();

    std::int32_t type = OTHER;
    CompactText startName; ///< name of the point `Start`
    CompactText endName;   ///< name of the point `End`
    CompactText piName;    ///< name of the point `PI`, of a `Spiral` only
};

/// The elements of the horizontal alignment around one intersection point (IP), while their points are being named.
class FViewIPElements final
{
  public:
    virtual void Clear();

    /// Takes the group that begins at the front of `rest` and leaves `rest` behind it. A line in front of a curve is
    /// passed over. Of nothing, a group of nothing is taken.
    void CollectElements(std::span<FViewCoordGeomElement>& rest);

    /// Names the group's points: BC and EC of a single curve, KA and KE of clothoids, and so on, with the group's
    /// number. A `kind` that isn't one of those below names none.
    void AssignPointNames(int number) const;

    /// The shape of the group: -1 not recognised, 0 bend between straights, 1 single curve, 2 clothoid, curve,
    /// clothoid, 3 clothoid, curve, 4 clothoid, clothoid, 5 clothoid, curve, clothoid, curve, clothoid, 6 compound
    /// curve.
    std::int32_t kind = -1;
    PiCmCopyList<FViewCoordGeomElement*> elements; ///< in order, in the list of the `CoordGeom`
};

/// `CoordGeom`: the horizontal alignment (平面線形), a chain of lines, arcs and clothoids. Its geometry is the host's
/// and stays: coordinates as north (X) before east (Y) and lengths in metres, directions in the unit that the
/// document's `directionUnit` gives (decimal dd.mm.ss in what the host writes, where 45.3015 is 45 degrees, 30 minutes
/// and 15 seconds). The points get the names that J-LandXML asks for, the radii their decimals and the clothoids their
/// parameter, as the standard has them for 要素法 and IP法 alike.
class FViewCoordGeom final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CoordGeom"; }

    /// Takes the names of the points. If the input names none of them, they are named by the pattern of the elements.
    /// Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the children of the element that was read, pair by pair. Always true.
    bool WriteElement(const WcXmNode& node) override;

    /// Names all points from BP (beginning of the route) to EP (its end).
    void NamePoints();

    PiCmCopyList<FViewCoordGeomElement> elements; ///< one for each child of the element, also for those of other kinds

  private:
    bool HasName() const;
    void NameLineEnds();
};

/// The `name` of the first child of that name, ignoring case; empty if there is none.
CompactText ReadPointName(const WcXmNode& node, const wchar_t* childName);

/// Names the first child of that name, ignoring case. An empty text changes nothing.
void WritePointName(const WcXmNode& node, const wchar_t* childName, const CompactText& text);

/// Gives the radius of a `Curve` (metres) eight decimals. One that is absent or no number stays.
void FormatRadiusAttribute(const WcXmNode& node);

/// Gives both radii of a `Spiral` (metres) eight decimals; "INF" on the side of the straight stays.
void FormatSpiralRadiusAttributes(const WcXmNode& node);

/// Adds the clothoid parameter A (metres) of a `Spiral` as a `Property`, unless its first `Feature` has one: A² = L·R
/// for a clothoid that starts or ends in a straight, A² = R1·|L·R2 / (R1 - R2)| for an egg clothoid between two curves.
/// The radii are those that stand in the element, so with the decimals that the finished file shows.
void WriteClothoidParameter(const WcXmNode& node);

} // namespace jlandxml
