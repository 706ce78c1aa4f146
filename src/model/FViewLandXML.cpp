#include "model/FViewLandXML.h"

namespace jlandxml
{

namespace
{

constexpr const wchar_t* CG_POINTS = L"CgPoints";

/// What a coordinate system that the input lacks is put in front of; the first one that stands there serves.
constexpr const wchar_t* AFTER_COORDINATE_SYSTEM[] = {CG_POINTS, L"Alignments", L"Surfaces"};

void RemovePointGroups(const WcXmNode& node)
{
    ForEachChild(node, CG_POINTS, [&](const WcXmNode& group) { node.RemoveChild(group.appNode); });
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
    alignments.clear();
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
    VisitFirstChild(node, project.GetElementName(), [this](const WcXmNode& child) { project.ReadElement(child); });
    VisitFirstChild(node, coordinateSystem.GetElementName(),
                    [this](const WcXmNode& child) { coordinateSystem.ReadElement(child); });
    RemovePointGroups(node);
    ReadChildren<FViewAlignments>(node, alignments);
    TakeProjectDataOfFirstAlignment();
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
    if (!WriteProject(node))
    {
        return false;
    }
    WritePressureUnit(node);
    return WriteChildren(node, alignments) && WriteCoordinateSystem(node);
}

bool FViewLandXML::WriteProject(const WcXmNode& node)
{
    WcXmNode element = node;
    return !project.SelectElement(element) || !project.IsElementName(element.NodeName()) ||
           project.WriteElement(element);
}

bool FViewLandXML::WriteCoordinateSystem(const WcXmNode& node)
{
    WcXmNode element = node;
    if (coordinateSystem.SelectElement(element))
    {
        return !coordinateSystem.IsElementName(element.NodeName()) || coordinateSystem.WriteElement(element);
    }
    for (const wchar_t* const reference : AFTER_COORDINATE_SYSTEM)
    {
        if (node.InsertElementBefore(reference, coordinateSystem.GetElementName(), &element) &&
            coordinateSystem.WriteElement(element))
        {
            return true;
        }
    }
    return node.AppendChildElement(coordinateSystem.GetElementName(), &element) &&
           coordinateSystem.WriteElement(element);
}

} // namespace jlandxml
