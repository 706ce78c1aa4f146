#include "model/FViewAlignments.h"

#include "model/CurrentDesignType.h"
#include "model/DescText.h"
#include "model/NumberText.h"

#include <array>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* SITE_NAME = L"サイト";

constexpr const wchar_t* DESIGN_GM_TYPE = L"designGmType";
constexpr const wchar_t* CLASSIFICATION = L"classification";
constexpr const wchar_t* TRAFFIC_VOLUME = L"trafficVolume";
constexpr const wchar_t* ROUTE_SIDE = L"side";

struct DesignChange
{
    const wchar_t* from;
    const wchar_t* to;
    std::array<const wchar_t*, 2> stale;
};

/// What means nothing any more when a road becomes a river, or a river a road.
constexpr std::array<DesignChange, 2> DESIGN_CHANGES = {{
    {ROAD_DESIGN, RIVER_DESIGN, {CLASSIFICATION, TRAFFIC_VOLUME}},
    {RIVER_DESIGN, ROAD_DESIGN, {CLASSIFICATION, ROUTE_SIDE}},
}};

/// Removes the first `Property` of that label.
void RemoveProperty(const WcXmNode& featureNode, std::wstring_view label)
{
    ForEachChild(featureNode, element_name::PROPERTY, [&](const WcXmNode& property) {
        if (PropertyLabel(property) != label)
        {
            return true;
        }
        featureNode.RemoveChild(property.appNode);
        return false;
    });
}

void RemoveRoadInfoProperty(const WcXmNode& node, std::wstring_view label)
{
    ForEachFeature(node, format_word::NAMELESS, [&](const WcXmNode& feature) { RemoveProperty(feature, label); });
}

} // namespace

void FViewAlignments::Clear()
{
    name.clear();
    designGmType.clear();
    roadClassification.clear();
    riverClassification.clear();
    trafficVolume.clear();
    side.clear();
    alignments.clear();
}

void FViewAlignments::SetOutputVersion(std::int32_t newVersion)
{
    version = newVersion;
    for (FViewAlignment& alignment : alignments)
    {
        alignment.SetOutputVersion(newVersion);
    }
}

std::wstring& FViewAlignments::Classification()
{
    return designGmType == RIVER_DESIGN ? riverClassification : roadClassification;
}

bool FViewAlignments::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadRoadInfoFeature(node);
    ReadChildren<FViewAlignment>(node, alignments);
    VisitFirstChild(node, FViewAlignment().GetElementName(),
                    [this](const WcXmNode& first) { FillRoadInfoFromDesc(first); });
    return true;
}

void FViewAlignments::ReadRoadInfoFeature(const WcXmNode& node)
{
    ForEachFeatureProperty(node, format_word::NAMELESS, [this](const FViewProperty& property) {
        if (property.label == DESIGN_GM_TYPE)
        {
            designGmType = property.value;
        }
        else if (property.label == CLASSIFICATION)
        {
            Classification() = property.value;
        }
        else if (property.label == TRAFFIC_VOLUME)
        {
            trafficVolume = property.value;
        }
        else if (property.label == ROUTE_SIDE)
        {
            side = property.value;
        }
    });
}

void FViewAlignments::FillRoadInfoFromDesc(const WcXmNode& firstAlignmentNode)
{
    DescMap map;
    ParseDescText(firstAlignmentNode.FindAttribute(attribute_name::DESC).value_or(std::wstring_view()), map);
    const auto fill = [&](const wchar_t* key, std::wstring& field) {
        const auto entry = map.find(key);
        if (entry != map.end() && field.empty())
        {
            field = entry->second;
        }
    };
    fill(desc_key::DESIGN_TYPE, designGmType);
    fill(desc_key::CLASSIFICATION, Classification());
    fill(desc_key::TRAFFIC_VOLUME, trafficVolume);
    fill(desc_key::SIDE, side);
}

bool FViewAlignments::WriteElement(const WcXmNode& node)
{
    GetCurrentDesignType() = designGmType;
    node.SetAttribute(attribute_name::NAME, name.empty() ? std::wstring_view(SITE_NAME) : name);
    RemoveStaleRoadInfo(node);
    FViewFeature feature(format_word::NAMELESS);
    BuildRoadInfoFeature(feature);
    feature.WriteElement(node);
    return WriteChildren(node, alignments);
}

void FViewAlignments::RemoveStaleRoadInfo(const WcXmNode& node) const
{
    FViewAlignments written;
    written.ReadRoadInfoFeature(node);
    for (const DesignChange& change : DESIGN_CHANGES)
    {
        if (written.designGmType == change.from && designGmType == change.to)
        {
            for (const wchar_t* const label : change.stale)
            {
                RemoveRoadInfoProperty(node, label);
            }
        }
    }
}

void FViewAlignments::BuildRoadInfoFeature(FViewFeature& feature) const
{
    const auto add = [&](const wchar_t* label, const std::wstring& value) {
        if (!value.empty())
        {
            feature.properties.emplace_back(label, value);
        }
    };
    const bool river = designGmType == RIVER_DESIGN;
    add(DESIGN_GM_TYPE, designGmType);
    add(CLASSIFICATION, river ? riverClassification : roadClassification);
    add(TRAFFIC_VOLUME, trafficVolume);
    if (river)
    {
        add(ROUTE_SIDE, side);
    }
}

} // namespace jlandxml
