#include "model/FViewLandXML.h"

#include "model/InputWarnings.h"
#include "model/OutputVersion.h"
#include "xml/ElementNames.h"
#include "xml/WcXmSharedTexts.h"

#include <algorithm>
#include <string>
#include <vector>

namespace jlandxml
{

namespace
{

constexpr OutputVersion FIRST_WITH_ALIGNMENT_REFS = VersionNumber(L"1.4");
constexpr OutputVersion FIRST_WITH_WIDTH_STAKES = VersionNumber(L"1.6");

/// What a coordinate system that the input lacks is put in front of; the first one that stands there serves.
constexpr const wchar_t* AFTER_COORDINATE_SYSTEM[] = {element_name::CG_POINTS, L"Alignments", L"Surfaces"};

/// What groups of points are put in front of; the first one that stands there serves.
constexpr const wchar_t* AFTER_POINT_GROUPS[] = {L"Alignments", L"Surfaces"};

/// The children that groups of points can be put in front of.
std::vector<WcXmNode> PointGroupReferences(const WcXmNode& node)
{
    std::vector<WcXmNode> references;
    for (const wchar_t* const name : AFTER_POINT_GROUPS)
    {
        WcXmNode child = node;
        if (child.SelectFirstChild(name))
        {
            references.push_back(child);
        }
    }
    return references;
}

/// Writes a group into a new element in front of the first reference that takes it.
template <class Group>
bool PlaceBefore(const WcXmNode& node, const std::vector<WcXmNode>& references, Group& group)
{
    return std::any_of(references.begin(), references.end(), [&](const WcXmNode& reference) {
        WcXmNode element = node;
        return node.InsertElementBefore(reference.appNode, group.GetElementName(), &element) &&
               group.WriteElement(element);
    });
}

/// Places the groups that have points. Without a reference they stand at the end, but once one has found its place,
/// those that don't are dropped. False if one can't be written.
template <class Groups>
bool PlaceGroups(const WcXmNode& node, Groups& groups)
{
    const std::vector<WcXmNode> references = PointGroupReferences(node);
    bool placedBefore = false;
    for (auto& group : groups)
    {
        if (group.points.empty())
        {
            continue;
        }
        if (PlaceBefore(node, references, group))
        {
            placedBefore = true;
            continue;
        }
        if (placedBefore)
        {
            continue;
        }
        WcXmNode element = node;
        node.AppendChildElement(group.GetElementName(), &element);
        if (!group.WriteElement(element))
        {
            return false;
        }
    }
    return true;
}

/// The standard gives pressures in hectopascals.
void WritePressureUnit(const WcXmNode& node)
{
    WcXmNode metric = node;
    if (metric.SelectFirstChild(L"Units") && metric.SelectFirstChild(L"Metric"))
    {
        metric.SetAttribute(L"pressureUnit", L"HPA");
    }
}

} // namespace

void FViewLandXML::Clear()
{
    project.Clear();
    coordinateSystem.Clear();
    intermediatePoints.clear();
    widthStakePoints.clear();
    alignments.clear();
    surfaces.clear();
    removedPoints.clear();
}

void FViewLandXML::SetOutputVersion(std::int32_t newVersion)
{
    version = newVersion;
    project.SetOutputVersion(newVersion);
    for (FViewAlignments& route : alignments)
    {
        route.SetOutputVersion(newVersion);
    }
}

bool FViewLandXML::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadFirstChild(node, project);
    ReadFirstChild(node, coordinateSystem);
    WarnOfInput(node);
    removedPoints = WarnOfPoints(node);
    RemoveChildren(node, element_name::CG_POINTS);
    ReadChildren<FViewAlignments>(node, alignments);
    if (alignments.empty())
    {
        WarnOfElement(WarningCause::NoRoute, node);
    }
    WarnOfOverriddenProject(*this, node);
    TakeProjectDataOfFirstAlignment();
    ReadChildren<FViewSurfaces>(node, surfaces);
    return true;
}

/// What the host notes on the first alignment is newer than what stands in `Project` and `CoordinateSystem`.
void FViewLandXML::TakeProjectDataOfFirstAlignment()
{
    if (alignments.empty() || alignments.front().alignments.empty())
    {
        return;
    }
    const auto take = [](const std::wstring& from, std::wstring& to) {
        if (!from.empty())
        {
            to = from;
        }
    };
    const FViewAlignment& first = alignments.front().alignments.front();
    take(first.projectName, project.name);
    take(first.projectPhase, project.projectPhase);
    take(first.applicationCriterion, project.applicationCriterion);
    take(first.verticalOrigin, coordinateSystem.verticalDatum);
}

bool FViewLandXML::WriteElement(const WcXmNode& node)
{
    const WcXmSharedTexts shared(*node.document);
    WarnOfDoubtful(*this, node);
    WarnOfMissingPoints(node);
    LinkCrossSections();
    if (!WriteFirstChild(node, project))
    {
        return false;
    }
    WritePressureUnit(node);
    if (!WriteChildren(node, alignments) || !WriteIntermediatePoints(node) || !WriteWidthStakes(node) ||
        !WriteCoordinateSystem(node))
    {
        return false;
    }
    WriteSurfaces(node);
    return true;
}

/// A side file may bring back a point of the name that a removed one had.
void FViewLandXML::WarnOfMissingPoints(const WcXmNode& node) const
{
    if (removedPoints.empty())
    {
        return;
    }
    std::unordered_set<std::wstring> missing = removedPoints;
    const auto findAgain = [&](const auto& groups) {
        for (const auto& group : groups)
        {
            for (const auto& point : group.points)
            {
                missing.erase(point.name.Wide());
            }
        }
    };
    findAgain(intermediatePoints);
    if (project.version >= FIRST_WITH_WIDTH_STAKES)
    {
        findAgain(widthStakePoints);
    }
    WarnOfReferencesTo(missing, node);
}

void FViewLandXML::LinkCrossSections()
{
    surfaces.ForgetNames();
    for (FViewAlignments& route : alignments)
    {
        for (FViewAlignment& alignment : route.alignments)
        {
            for (FViewCrossSects& sections : alignment.crossSects)
            {
                for (FViewCrossSect& section : sections.crossSects)
                {
                    section.surfacesList = &surfaces;
                }
            }
        }
    }
}

bool FViewLandXML::WriteIntermediatePoints(const WcXmNode& node)
{
    // A second export over the same tree would place the points again.
    WcXmNode standing = node;
    if (!intermediatePoints.empty() && standing.SelectFirstChild(element_name::CG_POINTS))
    {
        return false;
    }
    return PlaceGroups(node, intermediatePoints);
}

bool FViewLandXML::WriteWidthStakes(const WcXmNode& node)
{
    if (project.version < FIRST_WITH_WIDTH_STAKES)
    {
        WarnOfStakesLeftOut(widthStakePoints);
        return true;
    }
    WarnOfStakes(widthStakePoints);
    return PlaceGroups(node, widthStakePoints);
}

void FViewLandXML::WriteSurfaces(const WcXmNode& node) const
{
    const bool withAlignmentRefs = FindVersion(version) != nullptr && version >= FIRST_WITH_ALIGNMENT_REFS;
    auto set = surfaces.begin();
    ForEachChild(node, FViewSurfaces().GetElementName(), [&](const WcXmNode& child) {
        FViewSurfaces::StripAlignmentNote(child);
        if (set == surfaces.end())
        {
            return;
        }
        if (withAlignmentRefs)
        {
            set->WriteAlignmentRefs(child);
        }
        ++set;
    });
}

bool FViewLandXML::WriteCoordinateSystem(const WcXmNode& node)
{
    WcXmNode element = node;
    if (coordinateSystem.SelectElement(element))
    {
        return WriteFirstChild(node, coordinateSystem);
    }
    for (const wchar_t* const reference : AFTER_COORDINATE_SYSTEM)
    {
        if (node.InsertElementBefore(reference, coordinateSystem.GetElementName(), &element))
        {
            return coordinateSystem.WriteElement(element);
        }
    }
    node.AppendChildElement(coordinateSystem.GetElementName(), &element);
    return coordinateSystem.WriteElement(element);
}

} // namespace jlandxml
