#include "model/InputWarnings.h"

#include "model/FViewLandXML.h"
#include "model/OutputVersion.h"
#include "xml/ElementNames.h"
#include "xml/WcXmDocument.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace jlandxml
{

namespace
{

constexpr std::wstring_view NAMESPACE = L"http://www.landxml.org/schema/LandXML-1.2";
constexpr std::wstring_view METRE = L"meter";
constexpr const wchar_t* CG_POINT = L"CgPoint";
constexpr const wchar_t* NAMELESS_GROUP = L"名前のないグループ";

std::wstring FileOf(const WcXmNode& root)
{
    return root.document->appDocument != nullptr ? root.document->appDocument->loadedPath : std::wstring();
}

std::wstring JoinNames(std::wstring_view whole, std::wstring_view part)
{
    std::wstring joined(whole);
    return joined.append(whole.empty() ? std::wstring_view() : NAME_SEPARATOR).append(part);
}

/// A value that the host notes in `desc` of an alignment, and the one that counts for the whole document.
struct NotedValue
{
    const wchar_t* key;
    std::wstring FViewAlignment::*noted;
    const std::wstring& (*ofDocument)(const FViewLandXML& model);
};

constexpr NotedValue NOTED_VALUES[] = {
    {L"プロジェクト名", &FViewAlignment::projectName,
     [](const FViewLandXML& model) -> const std::wstring& { return model.project.name; }},
    {L"事業段階", &FViewAlignment::projectPhase,
     [](const FViewLandXML& model) -> const std::wstring& { return model.project.projectPhase; }},
    {L"適用基準", &FViewAlignment::applicationCriterion,
     [](const FViewLandXML& model) -> const std::wstring& { return model.project.applicationCriterion; }},
    {L"鉛直原子", &FViewAlignment::verticalOrigin,
     [](const FViewLandXML& model) -> const std::wstring& { return model.coordinateSystem.verticalDatum; }},
};

/// Notes each value of an alignment that differs from the document's.
void WarnOfNotedValues(WarningCause cause, const FViewLandXML& model, const FViewAlignments& route,
                       const FViewAlignment& alignment, const std::wstring& file)
{
    for (const NotedValue& row : NOTED_VALUES)
    {
        const std::wstring& noted = alignment.*row.noted;
        const std::wstring& value = row.ofDocument(model);
        if (!noted.empty() && !value.empty() && noted != value)
        {
            WarnOf(cause, WarningPlace{.file = file,
                                       .object = JoinNames(route.name, alignment.name),
                                       .remark = std::wstring(row.key) + L"「" + noted + L"」、「" + value + L"」"});
        }
    }
}

/// The names that alignments can be referred to by.
std::unordered_set<std::wstring_view> AlignmentNames(const FViewLandXML& model)
{
    std::unordered_set<std::wstring_view> names;
    for (const FViewAlignments& route : model.alignments)
    {
        for (const FViewAlignment& alignment : route.alignments)
        {
            names.insert(alignment.name);
        }
    }
    return names;
}

void WarnOfReferences(const FViewLandXML& model, const std::wstring& workFile)
{
    const std::unordered_set<std::wstring_view> names = AlignmentNames(model);
    const auto check = [&](const std::wstring& reference, const std::wstring& file, const std::wstring& object) {
        if (!reference.empty() && !names.contains(reference))
        {
            WarnOf(WarningCause::NoSuchAlignment,
                   WarningPlace{.file = file, .object = object, .remark = L"線形「" + reference + L"」"});
        }
    };
    const auto checkGroups = [&](const auto& groups) {
        for (const auto& group : groups)
        {
            // Without points a group isn't written.
            check(group.points.empty() ? std::wstring() : group.alignmentRefs, group.sourceFile, group.name);
        }
    };
    checkGroups(model.intermediatePoints);
    checkGroups(model.widthStakePoints);
    for (const FViewSurfaces& set : model.surfaces)
    {
        for (const FViewSurface& surface : set.surfaces)
        {
            check(surface.alignmentRefs, workFile, surface.name);
        }
    }
}

} // namespace

void WarnOfInput(const WcXmNode& root)
{
    if (!root.HasName(FViewLandXML().GetElementName()))
    {
        WarnOfElement(WarningCause::OtherRoot, root);
    }
    const auto space = root.FindAttribute(L"xmlns");
    if (space && *space != NAMESPACE)
    {
        WarnOfElement(WarningCause::OtherNamespace, root, [&] { return std::wstring(*space); });
    }
    WcXmNode units = root;
    if (!units.SelectFirstChild(L"Units") || !units.HasChild())
    {
        return;
    }
    WcXmNode metric = units;
    const bool isMetric = metric.SelectFirstChild(L"Metric");
    const std::wstring_view unit =
        isMetric ? metric.FindAttribute(L"linearUnit").value_or(METRE) : std::wstring_view(L"Metricがありません");
    if (unit != METRE)
    {
        WarnOfElement(WarningCause::NotMetric, units, [&] { return std::wstring(unit); });
    }
}

std::unordered_set<std::wstring> WarnOfPoints(const WcXmNode& root)
{
    std::unordered_set<std::wstring> names;
    ForEachChild(root, element_name::CG_POINTS, [&](const WcXmNode& group) {
        WarnOfElement(WarningCause::CgPointsRemoved, group);
        ForEachElement(group, [&](const WcXmNode& element) {
            if (element.HasName(CG_POINT))
            {
                names.emplace(element.FindAttribute(attribute_name::NAME).value_or(std::wstring_view()));
            }
        });
    });
    return names;
}

void WarnOfReferencesTo(const std::unordered_set<std::wstring>& names, const WcXmNode& root)
{
    if (names.empty())
    {
        return;
    }
    ForEachElement(root, [&](const WcXmNode& element) {
        const auto reference = element.FindAttribute(L"pntRef");
        if (reference && names.contains(std::wstring(*reference)))
        {
            WarnOfElement(WarningCause::DanglingPntRef, element, [&] { return std::wstring(*reference); });
        }
    });
}

void WarnOfOverriddenProject(const FViewLandXML& model, const WcXmNode& root)
{
    if (!model.alignments.empty() && !model.alignments.front().alignments.empty())
    {
        const FViewAlignments& route = model.alignments.front();
        WarnOfNotedValues(WarningCause::DescOverridesProject, model, route, route.alignments.front(), FileOf(root));
    }
}

void WarnOfDoubtful(const FViewLandXML& model, const WcXmNode& root)
{
    const std::wstring file = FileOf(root);
    WarnOfReferences(model, file);
    for (const FViewAlignments& route : model.alignments)
    {
        for (const FViewAlignment& alignment : route.alignments)
        {
            WarnOfNotedValues(WarningCause::DescDiffers, model, route, alignment, file);
        }
    }
}

void WarnOfStakes(const FViewCgPointsWidthStakeList& groups)
{
    std::map<std::wstring_view, std::wstring_view> filesByName;
    for (const FViewCgPointsWidthStake& group : groups)
    {
        const std::wstring object = group.name.empty() ? NAMELESS_GROUP : group.name;
        if (group.name.empty())
        {
            WarnOf(WarningCause::StakeGroupWithoutName, WarningPlace{.file = group.sourceFile, .object = object});
        }
        if (group.type.empty())
        {
            WarnOf(WarningCause::StakeGroupWithoutType, WarningPlace{.file = group.sourceFile, .object = object});
        }
        const auto [known, isNew] = filesByName.try_emplace(group.name, group.sourceFile);
        if (!isNew && !group.name.empty() && known->second != group.sourceFile)
        {
            WarnOf(WarningCause::SameGroupName, WarningPlace{.file = group.sourceFile, .object = object});
        }
    }
}

void WarnOfStakesLeftOut(const FViewCgPointsWidthStakeList& groups)
{
    for (const FViewCgPointsWidthStake& group : groups)
    {
        if (!group.points.empty())
        {
            WarnOf(WarningCause::WidthStakesLeftOut, WarningPlace{.file = group.sourceFile, .object = group.name});
        }
    }
}

} // namespace jlandxml
