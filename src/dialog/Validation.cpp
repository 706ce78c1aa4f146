// The checks that the data must pass before they are applied and written.

#include "dialog/JLandXmlConvertDlgControls.h"
#include "dialog/JLandXmlConvertDlgData.h"
#include "dialog/NumberInput.h"
#include "model/CurrentDesignType.h"
#include "model/OutputVersion.h"

namespace jlandxml
{

namespace
{

using namespace convert_dlg;

/// What must not be missing: what findings call it, and the control that shows it.
struct RequiredItem
{
    const wchar_t* item;
    int control;
};

/// A text that the project can't be without.
struct RequiredText
{
    std::wstring JLandXmlConvertDlgData::*text;
    RequiredItem item;
};

constexpr RequiredText REQUIRED_TEXTS[] = {
    {&JLandXmlConvertDlgData::projectName, {L"プロジェクト名称", PROJECT_NAME_EDIT}},
    {&JLandXmlConvertDlgData::horizontalDatum, {L"測地原子", HORIZONTAL_DATUM_EDIT}},
    {&JLandXmlConvertDlgData::horizontalCoordinateSystemName, {L"水平座標系", HORIZONTAL_COORDINATE_SYSTEM_EDIT}},
};

constexpr RequiredItem ROAD_CLASSIFICATION{L"道路の規格・等級", ROAD_CLASSIFICATION_LIST};
constexpr RequiredItem RIVER_CLASSIFICATION{L"河川の規格・等級", RIVER_CLASSIFICATION_LIST};
constexpr RequiredItem RIVER_SIDE{L"左右岸区分", RIVER_SIDE_LIST};
constexpr RequiredItem INTERMEDIATE_REFERENCE{L"中間点の参照線形", INTERMEDIATE_REFERENCE_LIST};
constexpr RequiredItem WIDTH_STAKE_REFERENCE{L"幅杭の参照線形", WIDTH_STAKE_REFERENCE_LIST};
constexpr RequiredItem WIDTH_STAKE_DESC{L"注記", WIDTH_STAKE_DESC_EDIT};

constexpr const wchar_t* NEWEST_DATUM = L"JGD2024";
constexpr OutputVersion FIRST_WITH_NEWEST_DATUM = VersionNumber(L"1.7");
constexpr const wchar_t* DATUM_NEEDS_CRITERION = L"座標系がJGD2024なので出力バージョンを1.6以下にしないでください。";
constexpr std::string_view DATUM_NEEDS_CRITERION_CODE = "datum-needs-criterion";

/// By NumberFault.
constexpr std::string_view NUMBER_FAULT_CODES[] = {"", MISSING_VALUE, "not-a-number", "out-of-range",
                                                   "too-many-decimals"};

bool KnowsNewestDatum(std::wstring_view applicationCriterion)
{
    const VersionOfStandard* const version = FindVersion(applicationCriterion);
    return version != nullptr && version->number >= FIRST_WITH_NEWEST_DATUM;
}

/// Gathers findings in the order in which they are made.
class Findings
{
  public:
    explicit Findings(JLandXmlConvertDlgData& data) : data_(data)
    {
        data_.errors.clear();
        data_.errorPlaces.clear();
    }

    void Add(std::wstring message, const FindingPlace& place)
    {
        data_.errors.push_back(std::move(message));
        data_.errorPlaces.push_back(place);
    }

    void Require(const std::wstring& text, const DlgDataItem& object, const RequiredItem& required)
    {
        if (text.empty())
        {
            Add(MissingMessage(required.item), {MISSING_VALUE, &object, required.control});
        }
    }

    void RequireNumber(const std::wstring& text, const NumberRule& rule, const DlgDataItem& object, int control)
    {
        const NumberFault fault = JudgeNumber(text, rule);
        if (fault != NumberFault::None)
        {
            Add(CheckNumber(text, rule), {NUMBER_FAULT_CODES[static_cast<std::size_t>(fault)], &object, control});
        }
    }

  private:
    JLandXmlConvertDlgData& data_;
};

void CheckRoute(const DlgDataAlignments& route, Findings& findings)
{
    if (route.designGmType.empty() || route.designGmType == ROAD_DESIGN)
    {
        findings.Require(route.Classification(), route, ROAD_CLASSIFICATION);
        findings.RequireNumber(route.trafficVolume, TRAFFIC_VOLUME_RULE, route, TRAFFIC_VOLUME_EDIT);
        return;
    }
    findings.Require(route.Classification(), route, RIVER_CLASSIFICATION);
    findings.Require(route.side, route, RIVER_SIDE);
}

void CheckAlignment(const DlgDataAlignment& alignment, Findings& findings)
{
    findings.RequireNumber(alignment.mainInterval, MAIN_INTERVAL_RULE, alignment, MAIN_INTERVAL_EDIT);
    if (!alignment.subInterval.empty())
    {
        findings.RequireNumber(alignment.subInterval, SUB_INTERVAL_RULE, alignment, SUB_INTERVAL_EDIT);
    }
    // The free slope list gives the cross fall itself.
    if (alignment.useSlopeList == 0 || !alignment.normalCrown.empty())
    {
        findings.RequireNumber(alignment.normalCrown, NORMAL_CROWN_RULE, alignment, NORMAL_CROWN_EDIT);
    }
}

} // namespace

bool JLandXmlConvertDlgData::Validate()
{
    Findings findings(*this);
    for (const RequiredText& required : REQUIRED_TEXTS)
    {
        findings.Require(this->*required.text, *this, required.item);
    }
    if (horizontalDatum == NEWEST_DATUM && !KnowsNewestDatum(applicationCriterion))
    {
        findings.Add(DATUM_NEEDS_CRITERION, {DATUM_NEEDS_CRITERION_CODE, this, APPLICATION_CRITERION_LIST});
    }
    for (const auto& route : alignmentsList)
    {
        CheckRoute(*route, findings);
        for (const auto& alignment : route->alignments)
        {
            CheckAlignment(*alignment, findings);
        }
    }
    for (const auto& group : cgPointsList.intermediate)
    {
        findings.Require(group->alignmentRefs, *group, INTERMEDIATE_REFERENCE);
    }
    for (const auto& group : cgPointsList.widthStakes)
    {
        findings.Require(group->alignmentRefs, *group, WIDTH_STAKE_REFERENCE);
        findings.Require(group->desc, *group, WIDTH_STAKE_DESC);
    }
    hasError = !errors.empty();
    return hasError;
}

} // namespace jlandxml
