#include "model/FViewCgPoints.h"

#include "model/NumberText.h"

#include <algorithm>
#include <unordered_set>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* TYPE = L"type";
constexpr const wchar_t* INTERMEDIATE_POINTS = L"IntermediatePnts";
constexpr const wchar_t* WIDTH_STAKE_POINTS = L"WidthStakePnts";

template <class Points>
bool WritePoints(const WcXmNode& node, Points& points)
{
    return std::all_of(points.begin(), points.end(), [&](auto& point) { return point.WriteElement(node); });
}

/// Writes the features of points. A `Feature` would look for its name among all that stand there; every name that the
/// element holds is known here, so only a repeated one has to.
void WritePointFeatures(const WcXmNode& node, const PiCmCopyList<FViewCgPointIntermediate>& points)
{
    std::unordered_set<std::wstring> known;
    ForEachChild(node, FViewFeature().GetElementName(),
                 [&](const WcXmNode& feature) { known.emplace(FeatureName(feature)); });
    for (const FViewCgPointIntermediate& point : points)
    {
        point.WriteFeature(node, !known.insert(point.featureRef).second);
    }
}

} // namespace

void FViewCgPointsIntermediate::Clear()
{
    name.clear();
    desc.clear();
    alignmentRefs.clear();
    sourceFile.clear();
    points.clear();
}

bool FViewCgPointsIntermediate::ReadElement(const WcXmNode& /*node*/)
{
    Clear();
    return true;
}

bool FViewCgPointsIntermediate::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, attribute_name::NAME, name);
    if (!WritePoints(node, points))
    {
        return false;
    }
    FViewFeature feature(INTERMEDIATE_POINTS);
    feature.properties.emplace_back(property_label::ALIGNMENT_REFS, alignmentRefs);
    feature.WriteElement(node);
    WritePointFeatures(node, points);
    return true;
}

void FViewCgPointsWidthStake::Clear()
{
    name.clear();
    desc.clear();
    alignmentRefs.clear();
    type.clear();
    sourceFile.clear();
    points.clear();
}

bool FViewCgPointsWidthStake::ReadElement(const WcXmNode& /*node*/)
{
    Clear();
    return true;
}

bool FViewCgPointsWidthStake::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, attribute_name::NAME, name);
    WriteTextAttribute(node, attribute_name::DESC, desc);
    if (!WritePoints(node, points))
    {
        return false;
    }
    FViewFeature feature(WIDTH_STAKE_POINTS);
    feature.properties.emplace_back(property_label::ALIGNMENT_REFS, alignmentRefs);
    feature.properties.emplace_back(TYPE, type);
    feature.WriteElement(node);
    return true;
}

void FViewCgPointsIntermediateList::Number()
{
    std::size_t group = 0;
    for (FViewCgPointsIntermediate& points : *this)
    {
        points.name = std::wstring(INTERMEDIATE_POINTS) + L"-" + std::to_wstring(++group);
        std::size_t ordinal = 0;
        for (FViewCgPointIntermediate& point : points.points)
        {
            point.featureRef = std::to_wstring(++ordinal);
        }
    }
}

void FViewCgPointsWidthStakeList::Number()
{
    for (FViewCgPointsWidthStake& points : *this)
    {
        std::size_t ordinal = 0;
        for (FViewCgPointWidthStake& point : points.points)
        {
            point.sequenceText = std::to_wstring(++ordinal);
        }
    }
}

} // namespace jlandxml
