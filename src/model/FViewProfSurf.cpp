#include "model/FViewProfSurf.h"

#include "base/Text.h"
#include "model/NumberText.h"
#include "xml/ElementNames.h"

#include <cstddef>
#include <string>

namespace jlandxml
{

void FViewProfSurf::Clear()
{
    name.clear();
    pntList2D.Clear();
}

bool FViewProfSurf::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadFirstChildInAnyCase(node, pntList2D);
    WarnOfContent(node);
    return true;
}

/// The element is made anew of its name and its first list of points; whatever else it holds is gone then.
void FViewProfSurf::WarnOfContent(const WcXmNode& node) const
{
    if (pntList2D.points.empty())
    {
        WarnOfElement(WarningCause::GroundLineWithoutPoints, node);
        return;
    }
    WarnOfAttributes(WarningCause::GroundLineContentLeftOut, node, attribute_name::NAME);
    std::size_t lists = 0;
    ForEachElementIn(node, [&](const WcXmNode& child) {
        if (!EqualsIgnoreCase(child.NodeName(), pntList2D.GetElementName()))
        {
            WarnOfElement(WarningCause::GroundLineContentLeftOut, child);
        }
        else if (++lists == 1)
        {
            WarnOfAttributes(WarningCause::GroundLineContentLeftOut, child);
        }
    });
    if (lists > 1)
    {
        WarnOfElement(WarningCause::FurtherPointList, node, [&] { return std::to_wstring(lists) + L"個中1個"; });
    }
}

bool FViewProfSurf::WriteElement(const WcXmNode& node)
{
    if (pntList2D.points.empty())
    {
        return true;
    }
    WcXmNode element = node;
    node.AppendChildElement(GetElementName(), &element);
    WriteTextAttribute(element, attribute_name::NAME, name);
    if (name.empty())
    {
        WarnOfElement(WarningCause::GroundLineWithoutName, element);
    }
    return pntList2D.WriteElement(element);
}

} // namespace jlandxml
