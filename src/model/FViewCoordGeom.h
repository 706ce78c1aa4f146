#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"

#include <span>
#include <string>

namespace jlandxml
{

/// One child of a `CoordGeom`, in its place among the others.
class FViewCoordGeomElement final
{
  public:
    /// The values of `type`.
    enum Type : std::int32_t
    {
        OTHER = -1,
        LINE = 0,
        CURVE = 1,
        SPIRAL = 2
    };

    virtual void Clear();

    std::int32_t type = OTHER;
    std::wstring startName; ///< name of the point `Start`
    std::wstring endName;   ///< name of the point `End`
    std::wstring piName;    ///< name of the point `PI`, of a `Spiral` only
};

/// The elements of the horizontal alignment around one intersection point (IP), while their points are being named.
class FViewIPElements final
{
  public:
    virtual void Clear();

    /// Takes the group that begins at the front of `rest` and leaves `rest` behind it.
    void CollectElements(std::span<FViewCoordGeomElement>& rest);

    /// Names the group's points: BC and EC of a single curve, KA and KE of clothoids, and so on, with the group's
    /// number.
    void AssignPointNames(int number) const;

    /// The shape of the group: -1 not recognised, 0 bend between straights, 1 single curve, 2 clothoid, curve,
    /// clothoid, 3 clothoid, curve, 4 clothoid, clothoid, 5 clothoid, curve, clothoid, curve, clothoid, 6 compound
    /// curve.
    std::int32_t kind = -1;
    PiCmCopyList<FViewCoordGeomElement*> elements; ///< in order, in the list of the `CoordGeom`
};

/// `CoordGeom`: the horizontal alignment, a chain of lines, arcs and clothoids. Its geometry (coordinates and lengths
/// in metres) is the host's and stays; the points get their names, the radii their decimals and the clothoids their
/// parameter.
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

    /// Names all points from BP to EP.
    void NamePoints();

    PiCmCopyList<FViewCoordGeomElement> elements; ///< one for each child of the element, also for those of other kinds

  private:
    bool HasName() const;
    void NameLineEnds();
};

/// The `name` of the first child of that name, ignoring case; empty if there is none.
std::wstring ReadPointName(const WcXmNode& node, const wchar_t* childName);

/// Names the first child of that name, ignoring case. An empty text changes nothing.
void WritePointName(const WcXmNode& node, const wchar_t* childName, std::wstring_view text);

/// Gives the radius of a `Curve` (metres) eight decimals.
void FormatRadiusAttribute(const WcXmNode& node);

/// Gives both radii of a `Spiral` (metres) eight decimals; "INF" on the side of the straight stays.
void FormatSpiralRadiusAttributes(const WcXmNode& node);

/// Adds the clothoid parameter A (metres) of a `Spiral` unless it has one: A² = L·R for a clothoid that starts or ends
/// in a straight, A² = R1·|L·R2 / (R1 - R2)| for an egg clothoid between two curves.
void WriteClothoidParameter(const WcXmNode& node);

} // namespace jlandxml
