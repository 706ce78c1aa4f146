#include "model/FViewCrossSects.h"

#include "model/NumberText.h"

namespace jlandxml
{

namespace
{
constexpr const wchar_t* PROF_ALIGN_REFS = L"profAlignRefs";
}

void FViewCrossSects::Clear()
{
    name.clear();
    crossSects.clear();
}

bool FViewCrossSects::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadChildren<FViewCrossSect>(node, crossSects);
    return true;
}

bool FViewCrossSects::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, attribute_name::NAME, name);
    return WriteChildren(node, crossSects);
}

bool FViewCrossSects::WriteProfAlignRefs(const WcXmNode& node, const std::wstring& profAlignName) const
{
    if (!crossSects.empty())
    {
        FViewFeature feature(format_word::NAMELESS);
        feature.properties.emplace_back(PROF_ALIGN_REFS, profAlignName);
        feature.WriteElement(node);
    }
    return true;
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
