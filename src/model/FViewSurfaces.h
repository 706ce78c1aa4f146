#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/SurfaceNames.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace jlandxml
{

/// `Surface`: a terrain or design surface. The model knows its name, its description and its alignment; the terrain
/// itself is never read.
class FViewSurface final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Surface"; }

    /// Takes the alignment from the first `Property` of the first `Feature`, whatever their names. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Sets name and description where they are given. The document's root doesn't call this: the description of the
    /// file comes from the input. Always true.
    bool WriteElement(const WcXmNode& node) override;

    /// Writes the reference to the alignment as a `Feature` without a name; an empty one writes nothing.
    void WriteAlignmentRef(const WcXmNode& node) const;

    std::wstring name;
    std::wstring desc;          ///< as the input gave it
    std::wstring alignmentRefs; ///< name of the alignment that the surface belongs to
    bool used = false;          ///< claimed by a ground line of the cross section being written
};

/// `Surfaces`: a set of surfaces.
class FViewSurfaces final : public FViewLandXMLBase
{
  public:
    FViewSurfaces() = default;
    FViewSurfaces(const FViewSurfaces& other) : FViewLandXMLBase(other), surfaces(other.surfaces) {}
    FViewSurfaces(FViewSurfaces&&) = default;
    /// Leaves the string array as it is, for a temporary too.
    FViewSurfaces& operator=(const FViewSurfaces& other);

    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Surfaces"; }
    /// Takes every surface. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Has each surface set its name and description, by position. The document's root doesn't call this either. Always
    /// true.
    bool WriteElement(const WcXmNode& node) override;

    /// Cuts the host's note of the alignment ("線形名=") and all behind it out of the description of each `Surface`
    /// child.
    static void StripAlignmentNote(const WcXmNode& node);

    /// Gives the n-th `Surface` child the reference of the n-th surface.
    void WriteAlignmentRefs(const WcXmNode& node) const;

    PiCmCopyList<FViewSurface> surfaces;
    PiCmCopyArray<std::wstring> stringArray; ///< stays empty; a copy doesn't carry it
};

/// One row of the table by which cross sections keep or drop a ground line.
struct OutPutCSS
{
    std::wstring name; ///< of a surface
    bool flagFirst;    ///< existing ground
    bool flagSecond;   ///< existing ground: the ground line is kept
};

/// The surface sets of a document, one for each `Surfaces` element, and the output table.
class FViewSurfacesList : public PiCmCopyList<FViewSurfaces>
{
  public:
    /// Rows are only appended, once for each load; nothing empties the table.
    PiCmCopyArray<OutPutCSS> outPutCSS;

    /// Appends a row for each surface: both flags are set where its description holds "ExistingGround".
    void FillOutPutCSS();

    /// Claims the first surface in list order that isn't used, whose name stands within `text` and isn't all of it.
    /// Null if there is none. The names are prepared at the first claim and after ForgetNames.
    FViewSurface* Claim(std::wstring_view text);

    /// Gives all claimed surfaces back.
    void ReleaseAll();

    /// To be called when surfaces were added, removed or renamed since the last claim.
    void ForgetNames() { names_.reset(); }

    /// The first row of that name; null if there is none.
    const OutPutCSS* FindRow(std::wstring_view name);

  private:
    /// The place of a surface: its set, and its place in it.
    using Place = std::pair<std::size_t, std::size_t>;

    FViewSurface& At(Place place) { return (*this)[place.first].surfaces[place.second]; }
    SurfaceNames& Names(std::size_t longest);

    std::optional<SurfaceNames> names_;
    std::vector<Place> places_; ///< of the surfaces whose names are prepared
    /// So that a name is looked up without a copy of it.
    struct NameHash
    {
        using is_transparent = void;
        std::size_t operator()(std::wstring_view name) const { return std::hash<std::wstring_view>()(name); }
    };

    std::unordered_map<std::wstring, std::size_t, NameHash, std::equal_to<>> rowsByName_;
    std::size_t indexedRows_ = 0;
};

} // namespace jlandxml
