// The checks that the data must pass before they are applied and written.

#include "dialog/JLandXmlConvertDlgData.h"
#include "dialog/NumberInput.h"
#include "model/CurrentDesignType.h"
#include "model/OutputVersion.h"

namespace jlandxml
{

namespace
{

/// A text that the project can't be without.
struct RequiredText
{
    std::wstring JLandXmlConvertDlgData::*text;
    const wchar_t* item;
};

constexpr RequiredText REQUIRED_TEXTS[] = {
    {&JLandXmlConvertDlgData::projectName, L"プロジェクト名称"},
    {&JLandXmlConvertDlgData::horizontalDatum, L"測地原子"},
    {&JLandXmlConvertDlgData::horizontalCoordinateSystemName, L"水平座標系"},
};

constexpr const wchar_t* ROAD_CLASSIFICATION_ITEM = L"道路の規格・等級";
constexpr const wchar_t* RIVER_CLASSIFICATION_ITEM = L"河川の規格・等級";
constexpr const wchar_t* RIVER_SIDE_ITEM = L"左右岸区分";
constexpr const wchar_t* INTERMEDIATE_REFERENCE_ITEM = L"中間点の参照線形";
constexpr const wchar_t* WIDTH_STAKE_REFERENCE_ITEM = L"幅杭の参照線形";
constexpr const wchar_t* WIDTH_STAKE_DESC_ITEM = L"注記";

constexpr const wchar_t* NEWEST_DATUM = L"JGD2024";
constexpr OutputVersion FIRST_WITH_NEWEST_DATUM = VersionNumber(L"1.7");
constexpr const wchar_t* DATUM_NEEDS_CRITERION = L"座標系がJGD2024なので出力バージョンを1.6以下にしないでください。";

bool KnowsNewestDatum(std::wstring_view applicationCriterion)
{
    const VersionOfStandard* const version = FindVersion(applicationCriterion);
    return version != nullptr && version->number >= FIRST_WITH_NEWEST_DATUM;
}

/// Gathers findings in the order in which they are made.
class Findings
{
  public:
    explicit Findings(std::vector<std::wstring>& messages) : messages_(messages) {}

    void Add(std::wstring message)
    {
        if (!message.empty())
        {
            messages_.push_back(std::move(message));
        }
    }

    void Require(const std::wstring& text, const wchar_t* item)
    {
        if (text.empty())
        {
            messages_.push_back(MissingMessage(item));
        }
    }

  private:
    std::vector<std::wstring>& messages_;
};

void CheckRoute(const DlgDataAlignments& route, Findings& findings)
{
    if (route.designGmType.empty() || route.designGmType == ROAD_DESIGN)
    {
        findings.Require(route.Classification(), ROAD_CLASSIFICATION_ITEM);
        findings.Add(CheckNumber(route.trafficVolume, TRAFFIC_VOLUME_RULE));
        return;
    }
    findings.Require(route.Classification(), RIVER_CLASSIFICATION_ITEM);
    findings.Require(route.side, RIVER_SIDE_ITEM);
}

void CheckAlignment(const DlgDataAlignment& alignment, Findings& findings)
{
    findings.Add(CheckNumber(alignment.mainInterval, MAIN_INTERVAL_RULE));
    if (!alignment.subInterval.empty())
    {
        findings.Add(CheckNumber(alignment.subInterval, SUB_INTERVAL_RULE));
    }
    // The free slope list gives the cross fall itself.
    if (alignment.useSlopeList == 0 || !alignment.normalCrown.empty())
    {
        findings.Add(CheckNumber(alignment.normalCrown, NORMAL_CROWN_RULE));
    }
}

} // namespace

bool JLandXmlConvertDlgData::Validate()
{
    errors.clear();
    Findings findings(errors);
    for (const RequiredText& required : REQUIRED_TEXTS)
    {
        findings.Require(this->*required.text, required.item);
    }
    if (horizontalDatum == NEWEST_DATUM && !KnowsNewestDatum(applicationCriterion))
    {
        findings.Add(DATUM_NEEDS_CRITERION);
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
        findings.Require(group->alignmentRefs, INTERMEDIATE_REFERENCE_ITEM);
    }
    for (const auto& group : cgPointsList.widthStakes)
    {
        findings.Require(group->alignmentRefs, WIDTH_STAKE_REFERENCE_ITEM);
        findings.Require(group->desc, WIDTH_STAKE_DESC_ITEM);
    }
    hasError = !errors.empty();
    return hasError;
}

} // namespace jlandxml
