#include "model/FViewAlignment.h"

#include "model/DescText.h"
#include "model/NumberText.h"
#include "model/OutputVersion.h"

#include <algorithm>
#include <array>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* NAME = L"name";
constexpr const wchar_t* DESC = L"desc";
constexpr const wchar_t* STA_START = L"staStart";
constexpr const wchar_t* DEFAULT_METHOD = L"要素法";
constexpr const wchar_t* MULTI_LANE = L"多車線";
constexpr const wchar_t* NO = L"いいえ";
constexpr const wchar_t* TRUE_TEXT = L"true";
constexpr const wchar_t* FALSE_TEXT = L"false";

constexpr const wchar_t* HORIZONTAL = L"Horizontal";
constexpr const wchar_t* INTERVAL = L"Interval";
constexpr const wchar_t* SUPERELEVATION_CONFIG = L"SuperelevationConfig";
constexpr const wchar_t* SLOPE_LIST = L"SlopeList";
constexpr const wchar_t* WIDENING_LIST = L"WideningList";

constexpr const wchar_t* CROSS_SECTS = L"CrossSects";
constexpr const wchar_t* PROF_ALIGN_REFS = L"profAlignRefs";

constexpr const wchar_t* METHOD = L"method";
constexpr const wchar_t* MAIN = L"main";
constexpr const wchar_t* SUB = L"sub";
constexpr const wchar_t* NORMAL_CROWN = L"normalCrown";
constexpr const wchar_t* SINGLE_LANE_ROAD = L"singleLaneRoad";
constexpr const wchar_t* USE_SLOPE_LIST = L"useSlopeList";
constexpr const wchar_t* SLOPE_VALUE = L"slopeValue";
constexpr const wchar_t* WIDTH_LEFT_VALUE = L"widthLeftValue";
constexpr const wchar_t* WIDTH_RIGHT_VALUE = L"widthRightValue";

constexpr OutputVersion FIRST_WITH_WIDENING_LIST = VersionNumber(L"1.5");

constexpr int DESIGN_DIGITS = 4;
constexpr std::int32_t NO_VALUE = -1;

constexpr std::array DESIGN_FEATURES = {INTERVAL, SUPERELEVATION_CONFIG, SLOPE_LIST, HORIZONTAL, WIDENING_LIST};

/// Built anew at each export, behind the other children. "Horizontal" keeps its place and is updated.
constexpr std::array REBUILT_FEATURES = {INTERVAL, SUPERELEVATION_CONFIG, SLOPE_LIST, WIDENING_LIST};

struct DescTextField
{
    const wchar_t* key;
    std::wstring FViewAlignment::*field;
};

/// In this order: of the two method names the second wins.
constexpr std::array<DescTextField, 6> DESC_TEXTS = {{
    {desc_key::DESIGN_METHOD, &FViewAlignment::method},
    {desc_key::ALIGNMENT_METHOD, &FViewAlignment::method},
    {desc_key::VERTICAL_ORIGIN, &FViewAlignment::verticalOrigin},
    {desc_key::APPLICATION_CRITERION, &FViewAlignment::applicationCriterion},
    {desc_key::PROJECT_PHASE, &FViewAlignment::projectPhase},
    {desc_key::PROJECT_NAME, &FViewAlignment::projectName},
}};

struct DescNumberField
{
    const wchar_t* key;
    double FViewAlignment::*field;
};

constexpr std::array<DescNumberField, 3> DESC_NUMBERS = {{
    {desc_key::MAIN_INTERVAL, &FViewAlignment::mainInterval},
    {desc_key::SUB_INTERVAL, &FViewAlignment::subInterval},
    {desc_key::NORMAL_CROWN, &FViewAlignment::normalCrown},
}};

struct DescFlagField
{
    const wchar_t* key;
    const wchar_t* meaningZero;
    std::int32_t FViewAlignment::*field;
};

constexpr std::array<DescFlagField, 2> DESC_FLAGS = {{
    {desc_key::SINGLE_LANE_ROAD, MULTI_LANE, &FViewAlignment::singleLaneRoad},
    {desc_key::USE_SLOPE_LIST, NO, &FViewAlignment::useSlopeList},
}};

struct FeatureNumberField
{
    const wchar_t* label;
    double FViewAlignment::*field;
};

constexpr std::array<FeatureNumberField, 3> FEATURE_NUMBERS = {{
    {MAIN, &FViewAlignment::mainInterval},
    {SUB, &FViewAlignment::subInterval},
    {NORMAL_CROWN, &FViewAlignment::normalCrown},
}};

struct FeatureFlagField
{
    const wchar_t* label;
    std::int32_t FViewAlignment::*field;
};

constexpr std::array<FeatureFlagField, 2> FEATURE_FLAGS = {{
    {SINGLE_LANE_ROAD, &FViewAlignment::singleLaneRoad},
    {USE_SLOPE_LIST, &FViewAlignment::useSlopeList},
}};

struct WideningField
{
    const wchar_t* label;
    PiCmCopyList<FViewWidening> FViewAlignment::*list;
};

constexpr std::array<WideningField, 2> WIDENINGS = {{
    {WIDTH_LEFT_VALUE, &FViewAlignment::widthLeftValue},
    {WIDTH_RIGHT_VALUE, &FViewAlignment::widthRightValue},
}};

/// The value of a key; an empty one counts as absent.
const std::wstring* FindValue(const DescMap& map, const wchar_t* key)
{
    const auto entry = map.find(key);
    return entry != map.end() && !entry->second.empty() ? &entry->second : nullptr;
}

void AddNumber(FViewFeature& feature, const wchar_t* label, double value)
{
    if (value != UNSET_DOUBLE)
    {
        feature.properties.emplace_back(label, NumberText(value, DESIGN_DIGITS));
    }
}

void AddFlag(FViewFeature& feature, const wchar_t* label, std::int32_t value)
{
    if (value != NO_VALUE)
    {
        feature.properties.emplace_back(label, value != 0 ? TRUE_TEXT : FALSE_TEXT);
    }
}

/// Reads the first child of that element.
template <class Element>
void ReadFirstChild(const WcXmNode& node, Element& element)
{
    VisitFirstChild(node, element.GetElementName(), [&](const WcXmNode& child) { element.ReadElement(child); });
}

/// Has the first child of that name, in any case, written if its name is exact.
template <class Element>
bool WriteFirstChild(const WcXmNode& node, Element& element)
{
    WcXmNode child = node;
    return !element.SelectElement(child) || !element.IsElementName(child.NodeName()) || element.WriteElement(child);
}

} // namespace

FViewAlignment::FViewAlignment() : method(DEFAULT_METHOD) {}

void FViewAlignment::Clear()
{
    name.clear();
    mainInterval = UNSET_DOUBLE;
    subInterval = UNSET_DOUBLE;
    normalCrown = UNSET_DOUBLE;
    singleLaneRoad = 0;
    useSlopeList = 0;
    method = DEFAULT_METHOD;
    verticalOrigin.clear();
    applicationCriterion.clear();
    projectPhase.clear();
    projectName.clear();
    superelevations.clear();
    slopeList.clear();
    coordGeom.Clear();
    crossSects.clear();
    profile.Clear();
    staEquations.clear();
    widthLeftValue.clear();
    widthRightValue.clear();
}

void FViewAlignment::SetOutputVersion(std::int32_t newVersion)
{
    version = newVersion;
    for (FViewCrossSects& sections : crossSects)
    {
        sections.SetOutputVersion(newVersion);
    }
}

bool FViewAlignment::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, NAME, name);
    ReadNumberAttribute(node, STA_START, staStart.value);
    if (const auto desc = node.FindAttribute(DESC))
    {
        ReadDesc(*desc);
    }
    ForEachChild(node, FViewFeature().GetElementName(), [this](const WcXmNode& child) {
        if (std::find(DESIGN_FEATURES.begin(), DESIGN_FEATURES.end(), FeatureName(child)) != DESIGN_FEATURES.end())
        {
            FViewFeature feature;
            feature.ReadElement(child);
            ReadDesignFeature(feature);
        }
    });
    ReadFirstChild(node, coordGeom);
    ReadChildren<FViewStaEquation>(node, staEquations);
    SortStaEquations(staEquations);
    ReadChildren<FViewCrossSects>(node, crossSects);
    ReadFirstChild(node, profile);
    ReadChildren<FViewSuperelevation>(node, superelevations);
    return true;
}

void FViewAlignment::ReadDesc(std::wstring_view desc)
{
    DescMap map;
    ParseDescText(desc, map);
    for (const DescTextField& row : DESC_TEXTS)
    {
        if (const std::wstring* const value = FindValue(map, row.key))
        {
            this->*row.field = *value;
        }
    }
    for (const DescNumberField& row : DESC_NUMBERS)
    {
        if (const std::wstring* const value = FindValue(map, row.key))
        {
            this->*row.field = ReadNumber(*value);
        }
    }
    for (const DescFlagField& row : DESC_FLAGS)
    {
        if (const std::wstring* const value = FindValue(map, row.key))
        {
            this->*row.field = *value == row.meaningZero ? 0 : 1;
        }
    }
}

void FViewAlignment::ReadDesignFeature(const FViewFeature& feature)
{
    for (const FViewProperty& property : feature.properties)
    {
        for (const FeatureNumberField& row : FEATURE_NUMBERS)
        {
            if (property.label == row.label)
            {
                this->*row.field = ReadNumber(property.value);
            }
        }
        for (const FeatureFlagField& row : FEATURE_FLAGS)
        {
            if (property.label == row.label)
            {
                this->*row.field = property.value == TRUE_TEXT ? 1 : 0;
            }
        }
        for (const WideningField& row : WIDENINGS)
        {
            FViewWidening widening;
            if (property.label == row.label &&
                ParseWideningText(property.value, widening.station, widening.width, widening.code))
            {
                (this->*row.list).push_back(widening);
            }
        }
        FViewSlopeValue slopeValue;
        if (property.label == SLOPE_VALUE && ParseSlopeValueText(property.value, slopeValue))
        {
            slopeList.push_back(slopeValue);
        }
        if (property.label == METHOD)
        {
            method = property.value;
        }
    }
}

bool FViewAlignment::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, NAME, name);
    for (const wchar_t* const feature : REBUILT_FEATURES)
    {
        RemoveFirstFeature(node, feature);
    }
    return WriteDesignFeatures(node) && WriteFirstChild(node, coordGeom) && WriteCrossSects(node) &&
           WriteFirstChild(node, profile) && WriteSuperelevations(node);
}

bool FViewAlignment::WriteDesignFeatures(const WcXmNode& node) const
{
    PiCmCopyList<FViewFeature> features;
    BuildDesignFeatures(features);
    return std::all_of(features.begin(), features.end(),
                       [&](FViewFeature& feature) { return feature.WriteElement(node); });
}

void FViewAlignment::BuildDesignFeatures(PiCmCopyList<FViewFeature>& features) const
{
    const auto add = [&](FViewFeature feature) {
        if (!feature.properties.empty())
        {
            features.push_back(std::move(feature));
        }
    };

    FViewFeature horizontal(HORIZONTAL);
    if (!method.empty())
    {
        horizontal.properties.emplace_back(METHOD, method);
    }
    add(std::move(horizontal));

    FViewFeature interval(INTERVAL);
    AddNumber(interval, MAIN, mainInterval);
    AddNumber(interval, SUB, subInterval);
    add(std::move(interval));

    FViewFeature config(SUPERELEVATION_CONFIG);
    AddNumber(config, NORMAL_CROWN, normalCrown);
    AddFlag(config, SINGLE_LANE_ROAD, singleLaneRoad);
    AddFlag(config, USE_SLOPE_LIST, useSlopeList);
    add(std::move(config));

    FViewFeature slopes(SLOPE_LIST);
    if (useSlopeList != 0)
    {
        for (const FViewSlopeValue& slopeValue : slopeList)
        {
            slopes.properties.emplace_back(SLOPE_VALUE, FormatSlopeValueText(slopeValue, singleLaneRoad), false);
        }
    }
    add(std::move(slopes));

    FViewFeature widenings(WIDENING_LIST);
    if (version >= FIRST_WITH_WIDENING_LIST)
    {
        for (const WideningField& row : WIDENINGS)
        {
            for (const FViewWidening& widening : this->*row.list)
            {
                widenings.properties.emplace_back(row.label, FormatWideningText(widening), false);
            }
        }
    }
    add(std::move(widenings));
}

bool FViewAlignment::WriteCrossSects(const WcXmNode& node)
{
    if (crossSects.empty())
    {
        return true;
    }
    auto entry = crossSects.begin();
    const bool written = ForEachChild(node, CROSS_SECTS, [&](const WcXmNode& child) {
        if (entry == crossSects.end())
        {
            return true;
        }
        FViewCrossSects& sections = *entry++;
        return sections.WriteElement(child) && (sections.crossSects.empty() || WriteProfileReference(child));
    });
    // An element whose cross sections are all gone goes too.
    return written && ForEachChild(node, CROSS_SECTS, [&](const WcXmNode& child) {
               if (!child.HasChild())
               {
                   node.RemoveChild(child.appNode);
               }
           });
}

/// Cross sections refer to the design profile by its name.
bool FViewAlignment::WriteProfileReference(const WcXmNode& node) const
{
    FViewFeature feature;
    feature.properties.emplace_back(PROF_ALIGN_REFS, profile.profAlignName);
    return feature.WriteElement(node);
}

bool FViewAlignment::WriteSuperelevations(const WcXmNode& node)
{
    if (useSlopeList == 0)
    {
        return WriteChildren(node, superelevations);
    }
    return ForEachChild(node, FViewSuperelevation().GetElementName(),
                        [&](const WcXmNode& child) { node.RemoveChild(child.appNode); });
}

} // namespace jlandxml
