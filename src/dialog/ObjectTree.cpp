#include "dialog/ObjectTree.h"

#include "dialog/JLandXmlConvertDlgControls.h"

#include <algorithm>
#include <string>

namespace jlandxml
{

namespace
{

using convert_dlg::OBJECT_TREE;

constexpr const wchar_t* ROUTE_NAME = L"路線";
constexpr const wchar_t* SURFACE_SET_NAME = L"サーフェスセット";
constexpr const wchar_t* POINT_GROUPS_NAME = L"中間点/幅杭";
constexpr const wchar_t* INTERMEDIATE_NAME = L"IntermediatePnts-";
constexpr const wchar_t* WIDTH_STAKE_NAME = L"WidthStakePnts-";

/// The pointer that goes through the window must come back as the same type.
TreeItem AddObject(DialogWindow& window, TreeItem parent, const std::wstring& text, DlgDataItem& object)
{
    return window.AddTreeItem(OBJECT_TREE, parent, text, &object);
}

void BuildRoutes(DialogWindow& window, const DlgDataAlignmentsList& routes)
{
    int unnamed = 0;
    for (const auto& route : routes)
    {
        const std::wstring text = route->name.empty() ? ROUTE_NAME + std::to_wstring(++unnamed) : route->name;
        const TreeItem item = AddObject(window, nullptr, text, *route);
        for (const auto& alignment : route->alignments)
        {
            AddObject(window, item, alignment->name, *alignment);
        }
        window.ExpandTreeItem(OBJECT_TREE, item);
    }
}

void BuildSurfaceSets(DialogWindow& window, const DlgDataSurfacesList& sets)
{
    int number = 0;
    for (const auto& set : sets)
    {
        const TreeItem item = AddObject(window, nullptr, SURFACE_SET_NAME + std::to_wstring(++number), *set);
        for (const auto& surface : set->surfaces)
        {
            AddObject(window, item, surface->name, *surface);
        }
        window.ExpandTreeItem(OBJECT_TREE, item);
    }
}

template <class Group>
void AddGroups(DialogWindow& window, TreeItem parent, const DlgDataList<Group>& groups, const wchar_t* name)
{
    int number = 0;
    for (const auto& group : groups)
    {
        AddObject(window, parent, name + std::to_wstring(++number), *group);
    }
}

void BuildPointGroups(DialogWindow& window, DlgDataCgPointsList& groups)
{
    if (groups.intermediate.empty() && groups.widthStakes.empty())
    {
        return;
    }
    const TreeItem item = AddObject(window, nullptr, POINT_GROUPS_NAME, groups);
    AddGroups(window, item, groups.intermediate, INTERMEDIATE_NAME);
    AddGroups(window, item, groups.widthStakes, WIDTH_STAKE_NAME);
    window.ExpandTreeItem(OBJECT_TREE, item);
}

template <class Item>
bool Holds(const DlgDataList<Item>& list, const DlgDataItem* object)
{
    return std::any_of(list.begin(), list.end(), [&](const auto& item) { return item.get() == object; });
}

} // namespace

void BuildObjectTree(DialogWindow& window, JLandXmlConvertDlgData& data)
{
    BuildRoutes(window, data.alignmentsList);
    BuildSurfaceSets(window, data.surfacesList);
    BuildPointGroups(window, data.cgPointsList);
}

DlgDataItem* ObjectOf(const DialogWindow& window, TreeItem item)
{
    return item == nullptr ? nullptr : static_cast<DlgDataItem*>(window.TreeItemData(OBJECT_TREE, item));
}

DlgDataAlignments* RouteAbove(const DialogWindow& window, TreeItem item)
{
    return dynamic_cast<DlgDataAlignments*>(ObjectOf(window, window.TreeParent(OBJECT_TREE, item)));
}

NodeType NodeTypeOf(const DlgDataItem* object, const JLandXmlConvertDlgData& data)
{
    if (dynamic_cast<const DlgDataAlignments*>(object) != nullptr)
    {
        return NodeType::Route;
    }
    if (dynamic_cast<const DlgDataAlignment*>(object) != nullptr)
    {
        return NodeType::Alignment;
    }
    if (dynamic_cast<const DlgDataSurface*>(object) != nullptr)
    {
        return NodeType::Surface;
    }
    if (Holds(data.cgPointsList.intermediate, object))
    {
        return NodeType::IntermediatePoints;
    }
    return Holds(data.cgPointsList.widthStakes, object) ? NodeType::WidthStakes : NodeType::None;
}

} // namespace jlandxml
