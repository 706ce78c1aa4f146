#include "model/FViewProfSurf.h"

#include "model/NumberText.h"

namespace jlandxml
{

namespace
{
constexpr const wchar_t* NAME = L"name";
}

void FViewProfSurf::Clear()
{
    name.clear();
    pntList2D.Clear();
}

bool FViewProfSurf::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, NAME, name);
    WcXmNode list = node;
    if (pntList2D.SelectElement(list))
    {
        pntList2D.ReadElement(list);
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
    WriteTextAttribute(element, NAME, name);
    return pntList2D.WriteElement(element);
}

} // namespace jlandxml
