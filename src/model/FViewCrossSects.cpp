#include "model/FViewCrossSects.h"

#include "model/NumberText.h"

namespace jlandxml
{

namespace
{
constexpr const wchar_t* NAME = L"name";
}

void FViewCrossSects::Clear()
{
    name.clear();
    crossSects.clear();
}

bool FViewCrossSects::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, NAME, name);
    ReadChildren<FViewCrossSect>(node, crossSects);
    return true;
}

bool FViewCrossSects::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, NAME, name);
    return WriteChildren(node, crossSects);
}

void FViewCrossSects::SetOutputVersion(std::int32_t newVersion)
{
    version = newVersion;
    for (FViewCrossSect& crossSect : crossSects)
    {
        crossSect.SetOutputVersion(newVersion);
    }
}

} // namespace jlandxml
