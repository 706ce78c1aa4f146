#include "model/FViewProject.h"

#include "model/FViewFeature.h"
#include "model/NumberText.h"
#include "model/OutputVersion.h"

namespace jlandxml
{

namespace
{

constexpr const wchar_t* PROJECT_PHASE = L"projectPhase";
constexpr const wchar_t* APPLICATION_CRITERION = L"applicationCriterion";

} // namespace

void FViewProject::Clear()
{
    applicationCriterion.clear();
    projectPhase.clear();
    name.clear();
}

bool FViewProject::ReadElement(const WcXmNode& node)
{
    Clear();
    ForEachFeatureProperty(node, format_word::NAMELESS, [this](const FViewProperty& property) {
        if (property.label == PROJECT_PHASE)
        {
            projectPhase = property.value;
        }
        else if (property.label == APPLICATION_CRITERION)
        {
            applicationCriterion = property.value;
        }
    });
    return true;
}

bool FViewProject::WriteElement(const WcXmNode& node)
{
    const VersionOfStandard* const standard = FindVersion(version);
    if (standard == nullptr)
    {
        return false;
    }
    WriteTextAttribute(node, attribute_name::NAME, name);
    FViewFeature feature(format_word::NAMELESS);
    if (!projectPhase.empty())
    {
        feature.properties.emplace_back(PROJECT_PHASE, projectPhase);
    }
    feature.properties.emplace_back(APPLICATION_CRITERION, standard->text);
    return feature.WriteElement(node);
}

} // namespace jlandxml
