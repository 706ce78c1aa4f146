#include "model/FViewProfSurf.h"

#include "model/NumberText.h"

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
    return pntList2D.WriteElement(element);
}

} // namespace jlandxml
