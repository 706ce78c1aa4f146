#include "model/FViewProfSurf.h"

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
    std::size_t lists = 0;
    ForEachChild(node, pntList2D.GetElementName(), [&](const WcXmNode& /*list*/) { ++lists; });
    if (lists > 1)
    {
        WarnOfElement(WarningCause::FurtherPointList, node, [&] { return std::to_wstring(lists) + L"個中1個"; });
    }
    return true;
}

bool FViewProfSurf::WriteElement(const WcXmNode& node)
{
    if (pntList2D.points.empty())
    {
        return true;
    }
    WcXmNode element = node;
    if (!node.AppendChildElement(GetElementName(), &element))
    {
        return false;
    }
    WriteTextAttribute(element, attribute_name::NAME, name);
    if (name.empty())
    {
        WarnOfElement(WarningCause::GroundLineWithoutName, element);
    }
    return pntList2D.WriteElement(element);
}

} // namespace jlandxml
