#pragma once

#include "base/CompactText.h"
#include "model/FViewDesignCrossSectSurf.h"
#include "model/FViewLandXMLBase.h"
#include "model/FViewSurfaces.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

#include <string>

namespace jlandxml
{

/// `CrossSectSurf`: a ground line or a layer's line in a cross section. The host names it after its surface and more,
/// such as "EG_1" or "表層_ABC13".
class FViewCrossSectSurf final : public FViewLandXMLBase
{
  public:
    void Clear() override { name.clear(); }
    const wchar_t* GetElementName() const override { return L"CrossSectSurf"; }
    bool ReadElement(const WcXmNode& node) override;
    /// Its cross section edits it; nothing calls this. Always false.
    bool WriteElement(const WcXmNode& /*node*/) override { return false; }

    CompactText name;
};

/// The ground lines of a cross section.
class FViewCrossSectSurfList : public PiCmCopyList<FViewCrossSectSurf>
{};

/// `CrossSect`: one cross section. Its design surfaces are classified, only the existing ground of its other lines
/// stays. Each `CrossSectPnt` is the distance from the centre line, to the right positive, and the height, in metres.
class FViewCrossSect final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CrossSect"; }

    /// Takes the formation from its `Feature`, or from the design surfaces named "Formation", which then leave the
    /// tree. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the element that was read, once: afterwards the names in the tree are no longer the host's. False if a
    /// `CrossSectSurf` has no name.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    std::wstring sta;                                      ///< station, metres, character for character
    double clOffset = UNSET_DOUBLE;                        ///< formation point from the centre line, metres
    double fhOffset = UNSET_DOUBLE;                        ///< formation point from the formation height, metres
    PiCmCopyList<FViewDesignCrossSectSurf> designSurfaces; ///< stays empty
    FViewCrossSectSurfList surfaces;                       ///< as they were read; nothing asks for them afterwards
    FViewSurfacesList* surfacesList = nullptr;             ///< of the document, not owned; set when writing begins

  private:
    void WriteFormation(const WcXmNode& node) const;
    bool RenameSurfaces(const WcXmNode& node) const;
    void KeepExistingGround(const WcXmNode& node) const;
    static void WriteDesignSurfaces(const WcXmNode& node, const MaterialMap& materials);
    void ReadFormationFromSurfaces(const WcXmNode& node);
};

/// Takes the material of each pavement layer from the names of the `CrossSectSurf` children: "表層_ABC13" names the
/// material "ABC".
void CollectMaterials(const WcXmNode& node, MaterialMap& materials);

/// Gives a `CrossSectSurf` the name of the surface that its composite name contains. False if it has no name.
bool RenameToSurface(const WcXmNode& node, FViewSurfacesList& surfacesList);

/// Removes pavements whose outline isn't closed.
void RemoveOpenPavements(const WcXmNode& node);

} // namespace jlandxml
