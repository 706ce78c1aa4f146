#include "model/FViewProject.h"

#include "model/FViewFeature.h"
#include "model/NumberText.h"

#include <array>
#include <cstddef>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* NAME = L"name";
constexpr const wchar_t* PROJECT_PHASE = L"projectPhase";
constexpr const wchar_t* APPLICATION_CRITERION = L"applicationCriterion";

/// The `Feature` of a project bears no name.
constexpr const wchar_t* FEATURE_NAME = L"";

/// By OutputVersion.
constexpr std::array<const wchar_t*, 5> VERSION_TEXTS = {
    L"MlitLandXmlVer.1.3", L"MlitLandXmlVer.1.4", L"MlitLandXmlVer.1.5", L"MlitLandXmlVer.1.6", L"MlitLandXmlVer.1.7",
};

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
    ForEachFeatureProperty(node, FEATURE_NAME, [this](const FViewProperty& property) {
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
    WriteTextAttribute(node, NAME, name);
    FViewFeature feature(FEATURE_NAME);
    if (!projectPhase.empty())
    {
        feature.properties.emplace_back(PROJECT_PHASE, projectPhase);
    }
    feature.properties.emplace_back(APPLICATION_CRITERION, VERSION_TEXTS.at(static_cast<std::size_t>(version)));
    return feature.WriteElement(node);
}

} // namespace jlandxml
