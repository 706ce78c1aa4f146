#include "model/FViewAlignment.h"

#include "model/DescText.h"
#include "model/NumberText.h"
#include "model/OutputVersion.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <variant>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* DEFAULT_METHOD = L"要素法";
constexpr const wchar_t* MULTI_LANE = L"多車線";
constexpr const wchar_t* NO = L"いいえ";

constexpr OutputVersion FIRST_WITH_WIDENING_LIST = VersionNumber(L"1.5");

constexpr int DESIGN_DIGITS = 4;
constexpr std::int32_t NO_VALUE = -1;

/// A text, the same in `desc` and in a `Property`.
struct TextField
{
    std::wstring FViewAlignment::*field;

    void TakeDesc(FViewAlignment& alignment, const std::wstring& text) const { alignment.*field = text; }
    bool TakeProperty(FViewAlignment& alignment, const std::wstring& text) const
    {
        alignment.*field = text;
        return true;
    }

    void Add(const FViewAlignment& alignment, const wchar_t* label, PiCmCopyList<FViewProperty>& properties) const
    {
        if (!(alignment.*field).empty())
        {
            properties.emplace_back(label, alignment.*field);
        }
    }
};

/// A number, the same in `desc` and in a `Property`.
struct NumberField
{
    double FViewAlignment::*field;
    int digits;

    void TakeDesc(FViewAlignment& alignment, const std::wstring& text) const { alignment.*field = ReadNumber(text); }
    bool TakeProperty(FViewAlignment& alignment, const std::wstring& text) const
    {
        TakeDesc(alignment, text);
        return true;
    }

    void Add(const FViewAlignment& alignment, const wchar_t* label, PiCmCopyList<FViewProperty>& properties) const
    {
        if (alignment.*field != UNSET_DOUBLE)
        {
            properties.emplace_back(label, NumberText(alignment.*field, digits));
        }
    }
};

/// A choice of two: in `desc` one word means 0 and any other 1, in a `Property` "true" means 1 and any other word 0.
struct FlagField
{
    std::int32_t FViewAlignment::*field;
    std::wstring_view zeroInDesc;

    void TakeDesc(FViewAlignment& alignment, const std::wstring& text) const
    {
        alignment.*field = text == zeroInDesc ? 0 : 1;
    }
    bool TakeProperty(FViewAlignment& alignment, const std::wstring& text) const
    {
        alignment.*field = text == format_word::TRUE_TEXT ? 1 : 0;
        return true;
    }

    void Add(const FViewAlignment& alignment, const wchar_t* label, PiCmCopyList<FViewProperty>& properties) const
    {
        if (alignment.*field != NO_VALUE)
        {
            properties.emplace_back(label, alignment.*field != 0 ? format_word::TRUE_TEXT : format_word::FALSE_TEXT);
        }
    }
};

/// Cross slopes, one `Property` for each; the label repeats.
struct SlopesField
{
    PiCmCopyList<FViewSlopeValue> FViewAlignment::*list;

    bool TakeProperty(FViewAlignment& alignment, const std::wstring& text) const
    {
        FViewSlopeValue slopeValue;
        const bool isSlope = ParseSlopeValueText(text, slopeValue);
        if (isSlope)
        {
            (alignment.*list).push_back(std::move(slopeValue));
        }
        return isSlope;
    }

    void Add(const FViewAlignment& alignment, const wchar_t* label, PiCmCopyList<FViewProperty>& properties) const
    {
        for (const FViewSlopeValue& slopeValue : alignment.*list)
        {
            properties.emplace_back(label, FormatSlopeValueText(slopeValue, alignment.singleLaneRoad), false);
        }
    }
};

/// Points of a widening, one `Property` for each; the label repeats.
struct WideningsField
{
    PiCmCopyList<FViewWidening> FViewAlignment::*list;

    bool TakeProperty(FViewAlignment& alignment, const std::wstring& text) const
    {
        FViewWidening widening;
        if (!ParseWideningText(text, widening.station, widening.width, widening.code))
        {
            return false;
        }
        if (const std::optional<std::wstring> remark = WideningCodeRemark(widening.code))
        {
            WarnOfValue(WarningCause::UnknownWideningCode, *remark);
        }
        (alignment.*list).push_back(std::move(widening));
        return true;
    }

    void Add(const FViewAlignment& alignment, const wchar_t* label, PiCmCopyList<FViewProperty>& properties) const
    {
        for (const FViewWidening& widening : alignment.*list)
        {
            properties.emplace_back(label, FormatWideningText(widening), false);
        }
    }
};

/// One design value, as `desc` and as a `Property` give it and as it is written.
struct DesignValue
{
    const wchar_t* feature; ///< in which it is written; read it is in any of the design features
    const wchar_t* label;
    std::variant<TextField, NumberField, FlagField, SlopesField, WideningsField> field;
    std::array<const wchar_t*, 2> descKeys; ///< null: none. The second wins

    /// False for a text that isn't such a value.
    bool TakeProperty(FViewAlignment& alignment, const std::wstring& text) const
    {
        return std::visit([&](const auto& one) { return one.TakeProperty(alignment, text); }, field);
    }
};

constexpr const wchar_t* HORIZONTAL = L"Horizontal";
constexpr const wchar_t* INTERVAL = L"Interval";
constexpr const wchar_t* SUPERELEVATION_CONFIG = L"SuperelevationConfig";
constexpr const wchar_t* SLOPE_LIST = L"SlopeList";
constexpr const wchar_t* WIDENING_LIST = L"WideningList";

/// The design values in the order in which they are written.
constexpr DesignValue DESIGN_VALUES[] = {
    {HORIZONTAL, L"method", TextField{&FViewAlignment::method}, {desc_key::DESIGN_METHOD, desc_key::ALIGNMENT_METHOD}},
    {INTERVAL, L"main", NumberField{&FViewAlignment::mainInterval, DESIGN_DIGITS}, {desc_key::MAIN_INTERVAL}},
    {INTERVAL, L"sub", NumberField{&FViewAlignment::subInterval, DESIGN_DIGITS}, {desc_key::SUB_INTERVAL}},
    {SUPERELEVATION_CONFIG,
     L"normalCrown",
     NumberField{&FViewAlignment::normalCrown, DESIGN_DIGITS},
     {desc_key::NORMAL_CROWN}},
    {SUPERELEVATION_CONFIG,
     L"singleLaneRoad",
     FlagField{&FViewAlignment::singleLaneRoad, MULTI_LANE},
     {desc_key::SINGLE_LANE_ROAD}},
    {SUPERELEVATION_CONFIG, L"useSlopeList", FlagField{&FViewAlignment::useSlopeList, NO}, {desc_key::USE_SLOPE_LIST}},
    {SLOPE_LIST, L"slopeValue", SlopesField{&FViewAlignment::slopeList}, {}},
    {WIDENING_LIST, L"widthLeftValue", WideningsField{&FViewAlignment::widthLeftValue}, {}},
    {WIDENING_LIST, L"widthRightValue", WideningsField{&FViewAlignment::widthRightValue}, {}},
};

/// One `Feature` of design values, and when it is written.
struct DesignFeature
{
    const wchar_t* name;
    bool isMadeAnew; ///< the first one that is there goes, with whatever else it holds
    bool (*applies)(const FViewAlignment& alignment);
};

/// In the order in which they are written.
constexpr DesignFeature DESIGN_FEATURES[] = {
    {HORIZONTAL, false, [](const FViewAlignment&) { return true; }},
    {INTERVAL, true, [](const FViewAlignment&) { return true; }},
    {SUPERELEVATION_CONFIG, true, [](const FViewAlignment&) { return true; }},
    {SLOPE_LIST, true, [](const FViewAlignment& alignment) { return alignment.useSlopeList != 0; }},
    {WIDENING_LIST, true,
     [](const FViewAlignment& alignment) { return alignment.version >= FIRST_WITH_WIDENING_LIST; }},
};

struct ProjectText
{
    const wchar_t* descKey;
    std::wstring FViewAlignment::*field;
};

/// What the host notes in `desc` for the project and the coordinate system; an alignment never writes it.
constexpr ProjectText PROJECT_TEXTS[] = {
    {desc_key::VERTICAL_ORIGIN, &FViewAlignment::verticalOrigin},
    {desc_key::APPLICATION_CRITERION, &FViewAlignment::applicationCriterion},
    {desc_key::PROJECT_PHASE, &FViewAlignment::projectPhase},
    {desc_key::PROJECT_NAME, &FViewAlignment::projectName},
};

/// Null for a name of none.
const DesignFeature* FindDesignFeature(std::wstring_view name)
{
    const auto* const row = std::find_if(std::begin(DESIGN_FEATURES), std::end(DESIGN_FEATURES),
                                         [&](const DesignFeature& one) { return one.name == name; });
    return row != std::end(DESIGN_FEATURES) ? row : nullptr;
}

/// The value of a key; an empty one counts as absent.
const std::wstring* FindValue(const DescMap& map, const wchar_t* key)
{
    const auto entry = key == nullptr ? map.end() : map.find(key);
    return entry != map.end() && !entry->second.empty() ? &entry->second : nullptr;
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
    const NumberPlace place(node);
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadNumberAttribute(node, attribute_name::STA_START, staStart.value);
    if (const auto desc = node.FindAttribute(attribute_name::DESC))
    {
        ReadDesc(*desc);
    }
    std::set<const DesignFeature*> known;
    ForEachChild(node, element_name::FEATURE, [&](const WcXmNode& child) {
        if (const DesignFeature* const design = FindDesignFeature(FeatureName(child)))
        {
            const bool isFirst = known.insert(design).second;
            ReadDesignFeature(child, isFirst && design->isMadeAnew);
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
    for (const ProjectText& row : PROJECT_TEXTS)
    {
        if (const std::wstring* const value = FindValue(map, row.descKey))
        {
            this->*row.field = *value;
        }
    }
    for (const DesignValue& row : DESIGN_VALUES)
    {
        for (const wchar_t* const key : row.descKeys)
        {
            if (const std::wstring* const value = FindValue(map, key))
            {
                std::visit(
                    [&](const auto& field) {
                        if constexpr (requires { field.TakeDesc(*this, *value); })
                        {
                            field.TakeDesc(*this, *value);
                        }
                    },
                    row.field);
            }
        }
    }
}

void FViewAlignment::ReadDesignFeature(const WcXmNode& node, bool isMadeAnew)
{
    FViewFeature feature;
    feature.ReadElement(node);
    for (const FViewProperty& property : feature.properties)
    {
        bool isTaken = false;
        for (const DesignValue& row : DESIGN_VALUES)
        {
            isTaken = (property.label == row.label && row.TakeProperty(*this, property.value)) || isTaken;
        }
        if (isMadeAnew && !isTaken && !property.value.empty())
        {
            WarnOfElement(WarningCause::DesignValueLeftOut, node,
                          [&] { return property.label + L"「" + property.value + L"」"; });
        }
    }
}

bool FViewAlignment::WriteElement(const WcXmNode& node)
{
    WriteTextAttribute(node, attribute_name::NAME, name);
    WarnOfUnusedSlopeList(node);
    RemoveOldDesignFeatures(node);
    RemoveSlopeListFeature(node);
    RemoveWideningListFeature(node);
    return WriteDesignFeatures(node) && WriteFirstChild(node, coordGeom) && WriteCrossSects(node) &&
           WriteFirstChild(node, profile) && WriteSuperelevations(node);
}

void FViewAlignment::WarnOfUnusedSlopeList(const WcXmNode& node) const
{
    if (useSlopeList == 0)
    {
        ForEachFeature(node, SLOPE_LIST, [](const WcXmNode& feature) {
            WarnOfElement(WarningCause::SlopeListRemoved, feature);
            return false; // a second one stays
        });
    }
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
    for (const DesignFeature& row : DESIGN_FEATURES)
    {
        if (!row.applies(*this))
        {
            continue;
        }
        FViewFeature feature(row.name);
        for (const DesignValue& value : DESIGN_VALUES)
        {
            if (value.feature == feature.name)
            {
                std::visit([&](const auto& field) { field.Add(*this, value.label, feature.properties); }, value.field);
            }
        }
        if (!feature.properties.empty())
        {
            features.push_back(std::move(feature));
        }
    }
}

bool FViewAlignment::WriteCrossSects(const WcXmNode& node)
{
    if (crossSects.empty())
    {
        return true;
    }
    const bool written = ForEachPair(node, crossSects, [this](const WcXmNode& child, FViewCrossSects& sections) {
        if (!sections.crossSects.empty() && profile.profAlignName.empty())
        {
            WarnOfElement(WarningCause::ProfAlignRefsLeftOut, child, [this] { return profile.whyNameless; });
        }
        return sections.WriteElement(child) && sections.WriteProfAlignRefs(child, profile.profAlignName);
    });
    if (written)
    {
        RemoveEmptyCrossSects(node);
    }
    return written;
}

bool FViewAlignment::WriteSuperelevations(const WcXmNode& node)
{
    if (useSlopeList == 0)
    {
        return WriteChildren(node, superelevations);
    }
    RemoveChildrenIf(node, FViewSuperelevation().GetElementName(), [](const WcXmNode& superelevation) {
        WarnOfElement(WarningCause::SuperelevationRemoved, superelevation);
        return true;
    });
    return true;
}

void RemoveOldDesignFeatures(const WcXmNode& node)
{
    RemoveFirstFeature(node, INTERVAL);
    RemoveFirstFeature(node, SUPERELEVATION_CONFIG);
}

void RemoveSlopeListFeature(const WcXmNode& node)
{
    RemoveFirstFeature(node, SLOPE_LIST);
}

void RemoveWideningListFeature(const WcXmNode& node)
{
    RemoveFirstFeature(node, WIDENING_LIST);
}

bool RemoveEmptyCrossSects(const WcXmNode& node)
{
    return RemoveChildrenIf(node, FViewCrossSects().GetElementName(), [](const WcXmNode& sections) {
        const bool isEmpty = !sections.HasChild();
        if (isEmpty)
        {
            WarnOfElement(WarningCause::EmptyCrossSectsRemoved, sections);
        }
        return isEmpty;
    });
}

} // namespace jlandxml
