#include "inspect/LandXmlFile.h"

#include <algorithm>

namespace jlandxml::inspect
{

const Property* FindProperty(const Feature& feature, std::wstring_view label)
{
    const auto found = std::find_if(feature.properties.begin(), feature.properties.end(),
                                    [&](const Property& property) { return property.label == label; });
    return found != feature.properties.end() ? &*found : nullptr;
}

const Property* FindProperty(const std::vector<Feature>& features, std::wstring_view name, std::wstring_view label)
{
    for (const Feature& feature : features)
    {
        const Property* const property = feature.name == name ? FindProperty(feature, label) : nullptr;
        if (property != nullptr)
        {
            return property;
        }
    }
    return nullptr;
}

std::wstring_view PropertyValue(const std::vector<Feature>& features, std::wstring_view name, std::wstring_view label)
{
    const Property* const property = FindProperty(features, name, label);
    return property != nullptr ? property->value : std::wstring_view();
}

const Property* FindStandardProperty(const std::vector<Feature>& features, std::wstring_view label)
{
    if (const Property* const property = FindProperty(features, L"", label))
    {
        return property;
    }
    for (const Feature& feature : features)
    {
        if (const Property* const property = FindProperty(feature, label))
        {
            return property;
        }
    }
    return nullptr;
}

bool HasPlace(const std::vector<PairList>& lists)
{
    return std::any_of(lists.begin(), lists.end(), [](const PairList& list) {
        return std::any_of(list.pairs.begin(), list.pairs.end(),
                           [](const FigurePair& pair) { return pair.IsPlaced(); });
    });
}

std::vector<TransitionStation> StationsOf(const Feature& feature)
{
    std::vector<TransitionStation> stations;
    for (const Property& property : feature.properties)
    {
        if (property.label == L"sta")
        {
            stations.push_back({property, feature.name, ReadFigure(property.value)});
        }
    }
    return stations;
}

bool DesignCrossSectSurf::HasPlace() const
{
    return std::all_of(points.begin(), points.end(),
                       [](const CrossSectPnt& point) { return point.IsOffsetAndHeight(); });
}

bool DesignCrossSectSurf::IsRelativeToProfile() const
{
    const Property* const type = FindStandardProperty(features, L"heightType");
    return type != nullptr && Trim(type->value) == L"fhOffset";
}

SourcePlace PlaceOf(const Surface& surface, const SurfacePoint& point)
{
    return {point.line, surface.textOffset, static_cast<std::size_t>(&point - surface.points.data()) + 1};
}

SourcePlace PlaceOf(const Surface& surface, const SurfaceFace& face)
{
    return {face.line, surface.textOffset,
            surface.points.size() + static_cast<std::size_t>(&face - surface.faces.data()) + 1};
}

const ProfAlign* FindDesign(const Alignment& alignment, std::wstring_view name)
{
    for (const Profile& profile : alignment.profiles)
    {
        for (const ProfAlign& design : profile.designs)
        {
            if (Trim(design.name) == name)
            {
                return &design;
            }
        }
    }
    return nullptr;
}

const ProfAlign* NamedDesign(const Alignment& alignment, const CrossSects& sects)
{
    const auto find = [&](std::wstring_view name) { return FindDesign(alignment, name); };
    const Property* const reference = FindStandardProperty(sects.features, L"profAlignRefs");
    const std::vector<std::wstring_view> names =
        reference != nullptr ? ReferencedNames(reference->value, find) : std::vector<std::wstring_view>();
    const auto found = std::find_if(names.begin(), names.end(), find);
    return found != names.end() ? find(*found) : nullptr;
}

namespace
{

const ProfAlign* FirstDesign(const Alignment& alignment)
{
    const auto found = std::find_if(alignment.profiles.begin(), alignment.profiles.end(),
                                    [](const Profile& profile) { return !profile.designs.empty(); });
    return found != alignment.profiles.end() ? &found->designs.front() : nullptr;
}

} // namespace

const ProfAlign* DesignProfile(const Alignment& alignment, const CrossSects& sects)
{
    const ProfAlign* const named = NamedDesign(alignment, sects);
    return named != nullptr ? named : FirstDesign(alignment);
}

const ProfAlign* DesignProfile(const Alignment& alignment)
{
    for (const CrossSects& sects : alignment.crossSects)
    {
        if (const ProfAlign* const named = NamedDesign(alignment, sects))
        {
            return named;
        }
    }
    return FirstDesign(alignment);
}

} // namespace jlandxml::inspect
