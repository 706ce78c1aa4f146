#pragma once

#include "model/FViewFeature.h"
#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"

#include <array>
#include <map>
#include <string>
#include <string_view>

namespace jlandxml
{

/// Materials by the pavement layer that they are used in.
using MaterialMap = std::map<std::wstring, std::wstring, std::less<>>;

/// The layers of a pavement, from the top.
inline constexpr std::array<std::wstring_view, 5> PAVEMENT_LAYERS = {L"表層", L"中間層", L"基層", L"上層路盤",
                                                                     L"下層路盤"};

/// The name of every pavement layer in the finished file.
inline constexpr const wchar_t* PAVEMENT = L"Pavement";

/// `DesignCrossSectSurf`: a design surface in a cross section, a line or, closed, an area such as a pavement layer.
/// Nothing of it is read; writing classifies the element where it stands.
class FViewDesignCrossSectSurf final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"DesignCrossSectSurf"; }
    /// Clears and reads nothing. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Turns a pavement layer into a "Pavement" with its class, thickness and material, and gives the other surfaces
    /// their description. Always true.
    bool WriteElement(const WcXmNode& node) override;

    /// Fills the `Feature` that says how heights are given, and of which pavement layer they are.
    virtual void MakeHeightFeature(FViewFeature& feature, const std::wstring& pavementClass) const;

    PiCmCopyList<FViewFeature> features;    ///< written in the place of the height feature where there are any
    const MaterialMap* materials = nullptr; ///< of the cross section, not owned
};

/// Gives a pavement layer the name "Pavement". The result is the layer's name, empty for any other surface.
std::wstring ClassifyPavement(const WcXmNode& node);

/// Sets the description of a surface that the standard classifies by its name; which one depends on the type of the
/// design.
void ClassifySurface(const WcXmNode& node);

/// Sets the thickness (metres) of a closed pavement: the difference in height of its last two points, which are those
/// of one edge. With fewer points there is none.
void WriteThickness(const WcXmNode& node);

/// Sets the material of a pavement layer, if the cross section names one.
void WriteMaterial(const WcXmNode& node, const MaterialMap& materials, std::wstring_view pavementClass);

/// Sets the side on which a surface lies, "left" or "right" when looking along the alignment: that of its first point
/// with a `code` that lies off the centre line, else that of the surface before it, which `side` holds.
void AssignSide(const WcXmNode& node, std::wstring& side);

/// True for a surface whose outline is closed: `closedArea` is "true" in this exact spelling.
bool IsClosed(const WcXmNode& node);

/// The name of a surface, empty if it has none.
std::wstring_view NameOf(const WcXmNode& node);

/// True for a surface of that name.
bool HasName(const WcXmNode& node, std::wstring_view name);

} // namespace jlandxml
