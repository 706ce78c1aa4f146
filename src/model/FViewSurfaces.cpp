#include "model/FViewSurfaces.h"

#include "base/Text.h"
#include "model/FViewFeature.h"
#include "model/NumberText.h"

namespace jlandxml
{

namespace
{

constexpr std::wstring_view ALIGNMENT_NOTE = L"線形名=";
constexpr std::wstring_view EXISTING_GROUND = L"ExistingGround";

/// The description without the note. One blank in front of the note goes with it, and the line ends before it.
std::wstring_view WithoutAlignmentNote(std::wstring_view desc, std::size_t note)
{
    std::wstring_view front = desc.substr(0, note);
    front.remove_suffix(front.ends_with(L' ') ? 1 : 0);
    while (front.ends_with(L'\r') || front.ends_with(L'\n'))
    {
        front.remove_suffix(1);
    }
    return front;
}

} // namespace

void FViewSurface::Clear()
{
    name.clear();
    desc.clear();
    alignmentRefs.clear();
    used = false;
}

bool FViewSurface::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadTextAttribute(node, attribute_name::DESC, desc);
    WcXmNode property = node;
    if (property.SelectFirstChild(FViewFeature().GetElementName()) &&
        property.SelectFirstChild(FViewProperty().GetElementName()))
    {
        alignmentRefs = property.FindAttributeIgnoreCase(attribute_name::VALUE).value_or(std::wstring_view());
    }
    return true;
}

bool FViewSurface::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, attribute_name::NAME, name);
    WriteTextAttribute(node, attribute_name::DESC, desc);
    return true;
}

void FViewSurface::WriteAlignmentRef(const WcXmNode& node) const
{
    FViewFeature feature;
    feature.properties.emplace_back(property_label::ALIGNMENT_REFS, alignmentRefs);
    feature.WriteElement(node);
}

FViewSurfaces& FViewSurfaces::operator=(const FViewSurfaces& other)
{
    version = other.version;
    surfaces = other.surfaces;
    return *this;
}

void FViewSurfaces::Clear()
{
    surfaces.clear();
}

bool FViewSurfaces::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadChildren<FViewSurface>(node, surfaces);
    return true;
}

bool FViewSurfaces::WriteElement(const WcXmNode& node)
{
    return WriteChildren(node, surfaces);
}

void FViewSurfaces::StripAlignmentNote(const WcXmNode& node)
{
    ForEachChild(node, FViewSurface().GetElementName(), [](const WcXmNode& surface) {
        const std::wstring desc(surface.FindAttribute(attribute_name::DESC).value_or(std::wstring_view()));
        const std::size_t note = desc.find(ALIGNMENT_NOTE);
        if (note != std::wstring::npos)
        {
            surface.SetAttribute(attribute_name::DESC, WithoutAlignmentNote(desc, note));
        }
    });
}

void FViewSurfaces::WriteAlignmentRefs(const WcXmNode& node) const
{
    ForEachPair(node, surfaces, [](const WcXmNode& child, const FViewSurface& surface) {
        surface.WriteAlignmentRef(child);
        return true;
    });
}

void FViewSurfacesList::FillOutPutCSS()
{
    for (FViewSurfaces& set : *this)
    {
        set.stringArray.clear();
        for (const FViewSurface& surface : set.surfaces)
        {
            const bool ground = surface.desc.find(EXISTING_GROUND) != std::wstring::npos;
            outPutCSS.push_back({surface.name, ground, ground});
        }
    }
}

/// The names, prepared for texts of at least so many characters.
SurfaceNames& FViewSurfacesList::Names(std::size_t longest)
{
    if (names_ && names_->Longest() >= longest)
    {
        return *names_;
    }
    places_.clear();
    std::vector<std::wstring_view> names;
    for (std::size_t set = 0; set < size(); ++set)
    {
        for (std::size_t surface = 0; surface < (*this)[set].surfaces.size(); ++surface)
        {
            places_.emplace_back(set, surface);
            names.push_back(At(places_.back()).name);
        }
    }
    // Twice as long, lest texts that grow by a character each have them prepared over and over.
    names_.emplace(names, 2 * longest);
    for (std::size_t place = 0; place < places_.size(); ++place)
    {
        if (At(places_[place]).used)
        {
            names_->Take(place);
        }
    }
    return *names_;
}

FViewSurface* FViewSurfacesList::Claim(std::wstring_view text)
{
    SurfaceNames& names = Names(text.size());
    const std::size_t place = names.FirstWithin(text);
    if (place == SurfaceNames::NONE)
    {
        return nullptr;
    }
    names.Take(place);
    FViewSurface& surface = At(places_[place]);
    surface.used = true;
    return &surface;
}

void FViewSurfacesList::ReleaseAll()
{
    SurfaceNames& names = Names(0);
    for (const std::size_t place : names.Taken())
    {
        At(places_[place]).used = false;
    }
    names.GiveBackAll();
}

const OutPutCSS* FViewSurfacesList::FindRow(std::wstring_view name)
{
    for (; indexedRows_ < outPutCSS.size(); ++indexedRows_)
    {
        rowsByName_.emplace(outPutCSS[indexedRows_].name, indexedRows_);
    }
    const auto row = rowsByName_.find(name);
    return row == rowsByName_.end() ? nullptr : &outPutCSS[row->second];
}

} // namespace jlandxml
