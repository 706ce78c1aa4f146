#include "model/FViewCrossSect.h"

#include "model/NumberText.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <string>
#include <vector>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* CROSS_SECT_SURF = L"CrossSectSurf";
constexpr const wchar_t* DESIGN_CROSS_SECT_SURF = L"DesignCrossSectSurf";
constexpr const wchar_t* FORMATION = L"Formation";
constexpr const wchar_t* CL_OFFSET = L"clOffset";
constexpr const wchar_t* EXISTING_GROUND = L"ExistingGround";
constexpr int FORMATION_DIGITS = 4;

// Why the offsets of a formation surface aren't those of its cross section.
constexpr const wchar_t* NO_FORMATION_POINT = L"codeがFormationの、離れと高さの構成点がありません";
constexpr const wchar_t* FURTHER_FORMATION = L"前のFormationの値を出力します";

/// The text without the digits, points and signs at its end.
std::wstring_view WithoutNumberAtEnd(std::wstring_view text)
{
    while (!text.empty() && IsNumericText(text.substr(text.size() - 1)))
    {
        text.remove_suffix(1);
    }
    return text;
}

/// Where a layer's name stands with the mark behind it that the host puts between layer and material.
std::size_t FindMark(std::wstring_view composite, std::wstring_view layer)
{
    std::size_t hit = composite.find(layer);
    while (hit != std::wstring_view::npos && composite.substr(hit + layer.size(), 1) != L"_")
    {
        hit = composite.find(layer, hit + 1);
    }
    return hit;
}

/// Takes both offsets from the last formation point of a surface. False if it has none.
bool ReadFormationPoints(const WcXmNode& surface, double& clOffset, double& fhOffset)
{
    bool found = false;
    ForEachChild(surface, element_name::CROSS_SECT_PNT, [&](const WcXmNode& point) {
        if (point.FindAttribute(attribute_name::CODE) == std::wstring_view(FORMATION))
        {
            const NumberPlace place(point);
            found = SplitNumberPair(point.GetTextContent(), clOffset, fhOffset) || found;
        }
    });
    return found;
}

/// What a composite name notes about a pavement layer is taken over as its material.
bool NotesMaterial(std::wstring_view composite)
{
    return std::any_of(PAVEMENT_LAYERS.begin(), PAVEMENT_LAYERS.end(),
                       [&](std::wstring_view layer) { return FindMark(composite, layer) != std::wstring_view::npos; });
}

void WarnOfRemovedGround(const WcXmNode& surface, const wchar_t* reason)
{
    if (!NotesMaterial(NameOf(surface)))
    {
        WarnOfElement(WarningCause::GroundLineRemoved, surface, [=] { return std::wstring(reason); });
    }
}

/// True for a cross section without any line.
bool IsLeftEmpty(const WcXmNode& node)
{
    WcXmNode child = node;
    return !child.SelectFirstChild(DESIGN_CROSS_SECT_SURF) && !child.SelectFirstChild(CROSS_SECT_SURF);
}

} // namespace

bool FViewCrossSectSurf::ReadElement(const WcXmNode& node)
{
    Clear();
    name = NameOf(node);
    return true;
}

void FViewCrossSect::Clear()
{
    name.clear();
    sta.clear();
    clOffset = UNSET_DOUBLE;
    fhOffset = UNSET_DOUBLE;
    designSurfaces.clear();
    surfaces.clear();
    surfacesList = nullptr;
}

bool FViewCrossSect::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadTextAttribute(node, attribute_name::STA, sta);
    const NumberPlace place(node);
    ForEachFeatureProperty(node, FORMATION, [this](const FViewProperty& property) {
        if (property.label == CL_OFFSET)
        {
            clOffset = ReadNumber(property.value);
        }
        else if (property.label == property_label::FH_OFFSET)
        {
            fhOffset = ReadNumber(property.value);
        }
    });
    if (clOffset == UNSET_DOUBLE && fhOffset == UNSET_DOUBLE)
    {
        ReadFormationFromSurfaces(node);
    }
    ReadChildren<FViewCrossSectSurf>(node, surfaces);
    return true;
}

void FViewCrossSect::ReadFormationFromSurfaces(const WcXmNode& node)
{
    bool found = false;
    ForEachChild(node, DESIGN_CROSS_SECT_SURF, [&](const WcXmNode& surface) {
        if (!HasName(surface, FORMATION))
        {
            return;
        }
        double cl = UNSET_DOUBLE;
        double fh = UNSET_DOUBLE;
        if (!ReadFormationPoints(surface, cl, fh))
        {
            WarnOfElement(WarningCause::FormationLeftOut, surface, [] { return NO_FORMATION_POINT; });
        }
        else if (!found)
        {
            found = true;
            clOffset = cl;
            fhOffset = fh;
        }
        else if (cl != clOffset || fh != fhOffset)
        {
            WarnOfElement(WarningCause::FormationLeftOut, surface, [] { return FURTHER_FORMATION; });
        }
        node.RemoveChild(surface.appNode);
    });
}

bool FViewCrossSect::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, attribute_name::NAME, name);
    WriteTextAttribute(node, attribute_name::STA, sta);
    WriteFormation(node);
    MaterialMap materials;
    CollectMaterials(node, materials);
    if (!RenameSurfaces(node))
    {
        return false;
    }
    KeepExistingGround(node);
    WriteDesignSurfaces(node, materials);
    RemoveOpenPavements(node);
    if (IsLeftEmpty(node))
    {
        WarnOfElement(WarningCause::CrossSectionLeftEmpty, node);
    }
    return true;
}

void FViewCrossSect::WriteFormation(const WcXmNode& node) const
{
    FViewFeature feature(FORMATION);
    if (clOffset != UNSET_DOUBLE)
    {
        feature.properties.emplace_back(CL_OFFSET, NumberText(clOffset, FORMATION_DIGITS));
    }
    if (fhOffset != UNSET_DOUBLE)
    {
        feature.properties.emplace_back(property_label::FH_OFFSET, NumberText(fhOffset, FORMATION_DIGITS));
    }
    feature.WriteElement(node);
}

bool FViewCrossSect::RenameSurfaces(const WcXmNode& node) const
{
    // Without surfaces nothing is renamed, but a line without a name is still a fault.
    FViewSurfacesList none;
    FViewSurfacesList& list = surfacesList != nullptr ? *surfacesList : none;
    list.ReleaseAll();
    return ForEachChild(node, CROSS_SECT_SURF, [&](const WcXmNode& surface) { return RenameToSurface(surface, list); });
}

void FViewCrossSect::KeepExistingGround(const WcXmNode& node) const
{
    bool isKept = false;
    std::vector<WcXmNode> others; // removed in the end: they matter only where no ground is left
    ForEachChild(node, CROSS_SECT_SURF, [&](const WcXmNode& surface) {
        const OutPutCSS* const row = surfacesList != nullptr ? surfacesList->FindRow(NameOf(surface)) : nullptr;
        if (row != nullptr && row->flagSecond)
        {
            surface.SetAttribute(attribute_name::NAME, EXISTING_GROUND);
            isKept = true;
        }
        else if (row != nullptr)
        {
            others.push_back(surface);
        }
        else
        {
            WarnOfRemovedGround(surface, L"サーフェスがありません");
            node.RemoveChild(surface.appNode);
        }
    });
    for (const WcXmNode& other : others)
    {
        if (!isKept)
        {
            WarnOfRemovedGround(other, L"現況地盤のサーフェスではありません");
        }
        node.RemoveChild(other.appNode);
    }
}

void FViewCrossSect::WriteDesignSurfaces(const WcXmNode& node, const MaterialMap& materials)
{
    std::wstring side = format_word::LEFT;
    FViewDesignCrossSectSurf surface;
    surface.materials = &materials;
    ForEachChild(node, surface.GetElementName(), [&](const WcXmNode& child) {
        AssignSide(child, side);
        surface.WriteElement(child);
    });
}

void CollectMaterials(const WcXmNode& node, MaterialMap& materials)
{
    ForEachChild(node, CROSS_SECT_SURF, [&](const WcXmNode& surface) {
        const std::wstring_view composite = NameOf(surface);
        for (const std::wstring_view layer : PAVEMENT_LAYERS)
        {
            const std::size_t hit = FindMark(composite, layer);
            if (hit != std::wstring_view::npos)
            {
                materials.insert_or_assign(std::wstring(layer),
                                           std::wstring(WithoutNumberAtEnd(composite.substr(hit + layer.size() + 1))));
            }
        }
    });
}

bool RenameToSurface(const WcXmNode& node, FViewSurfacesList& surfacesList)
{
    const auto composite = node.FindAttribute(attribute_name::NAME);
    if (!composite)
    {
        return false;
    }
    const FViewSurface* const surface = surfacesList.Claim(*composite);
    return surface == nullptr || node.SetAttribute(attribute_name::NAME, surface->name);
}

void RemoveOpenPavements(const WcXmNode& node)
{
    RemoveChildrenIf(node, DESIGN_CROSS_SECT_SURF, [](const WcXmNode& surface) {
        const bool isOpen = HasName(surface, PAVEMENT) && !IsClosed(surface);
        if (isOpen)
        {
            WarnOfElement(WarningCause::OpenPavementRemoved, surface);
        }
        return isOpen;
    });
}

} // namespace jlandxml
