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

SourcePlace PlaceOf(const Surface& surface, const SurfacePoint& point)
{
    return {point.line, surface.offset, static_cast<std::size_t>(&point - surface.points.data()) + 1};
}

SourcePlace PlaceOf(const Surface& surface, const SurfaceFace& face)
{
    return {face.line, surface.offset,
            surface.points.size() + static_cast<std::size_t>(&face - surface.faces.data()) + 1};
}

const ProfAlign* DesignProfile(const Alignment& alignment)
{
    const std::wstring_view wanted = alignment.crossSects.empty()
                                         ? std::wstring_view()
                                         : PropertyValue(alignment.crossSects.front().features, L"", L"profAlignRefs");
    const ProfAlign* first = nullptr;
    for (const Profile& profile : alignment.profiles)
    {
        for (const ProfAlign& design : profile.designs)
        {
            if (design.name == wanted)
            {
                return &design;
            }
            first = first != nullptr ? first : &design;
        }
    }
    return first;
}

} // namespace jlandxml::inspect
