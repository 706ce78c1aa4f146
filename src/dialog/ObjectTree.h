#pragma once

#include "dialog/JLandXmlConvertDlgData.h"
#include "windows/Dialog.h"

namespace jlandxml
{

/// What a tree item stands for.
enum class NodeType
{
    Route = 0,
    Alignment = 1,
    Surface = 2,
    IntermediatePoints = 3,
    WidthStakes = 4,
    None = 5 ///< a surface set, or the item above the point groups
};

/// Builds the main dialog's tree: routes with their alignments, surface sets with their surfaces, and the point groups
/// under one item. Each item carries its object of the data, which must stay where it is.
void BuildObjectTree(DialogWindow& window, JLandXmlConvertDlgData& data);

/// The object that an item of the tree carries; null for no item.
DlgDataItem* ObjectOf(const DialogWindow& window, TreeItem item);

/// The route that an item of the tree stands under; null if it stands under none.
DlgDataAlignments* RouteAbove(const DialogWindow& window, TreeItem item);

/// What an object of the data is. Routes, alignments and surfaces are told by their class, point groups by their place
/// in the data.
NodeType NodeTypeOf(const DlgDataItem* object, const JLandXmlConvertDlgData& data);

} // namespace jlandxml
