#include "dialog/JLandXmlConvertDlgData.h"

#include "base/Guard.h"
#include "base/Numbers.h"
#include "dialog/DisplayXmlTables.h"
#include "model/CurrentDesignType.h"
#include "run/ConversionContext.h"

#include <algorithm>
#include <cmath>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* SOFTWARE_NAME = L"Kelmora";
constexpr const wchar_t* SOFTWARE_VERSION = L"2027";
constexpr const wchar_t* DEFAULT_SURFACE_KIND = L"ExistingGround";
constexpr std::wstring_view LINE_END = L"\r\n";
constexpr int NUMBER_DIGITS = 4;

/// The words with which a step fails; what is no CException passes through it.
constexpr StageTexts Step(const wchar_t* label)
{
    return {nullptr, label, nullptr};
}

constexpr StageTexts SET_PROJECT = Step(L"プロジェクト情報のデータ設定でエラーが発生しました。");
constexpr StageTexts SET_COORDINATE_SYSTEM = Step(L"座標参照系のデータ設定でエラーが発生しました。");
constexpr StageTexts SET_ROUTE = Step(L"路線のデータ設定でエラーが発生しました。");
constexpr StageTexts SET_ALIGNMENT = Step(L"線形のデータ設定でエラーが発生しました。");
constexpr StageTexts SET_SURFACE_SET = Step(L"サーフェスセットのデータ設定でエラーが発生しました。");
constexpr StageTexts SET_SURFACE = Step(L"サーフェスのデータ設定でエラーが発生しました。");
constexpr StageTexts SET_INTERMEDIATE_POINTS = Step(L"中間点のデータ設定でエラーが発生しました。");
constexpr StageTexts SET_WIDTH_STAKES = Step(L"幅杭のデータ設定でエラーが発生しました。");
constexpr StageTexts SET_ALL{nullptr, L"LandXMLデータの設定に失敗しました。",
                             L"不明なエラーが発生しました。LandXMLデータの設定に失敗しました。"};

constexpr StageTexts APPLY_SURFACE_SET = Step(L"サーフェスセット情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_PROJECT = Step(L"プロジェクト情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_COORDINATE_SYSTEM = Step(L"座標参照系情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_ROUTE = Step(L"路線情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_ALIGNMENT = Step(L"線形情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_SURFACE = Step(L"サーフェス情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_INTERMEDIATE_POINTS = Step(L"中間点情報を更新中にエラーが発生しました。");
constexpr StageTexts APPLY_WIDTH_STAKES = Step(L"幅杭情報を更新中にエラーが発生しました。");

/// A number so near to zero that no host means it, or one that isn't set, is no value.
bool CountsAsValue(double number)
{
    return std::fabs(number) >= GEOMETRY_TOLERANCE;
}

std::wstring ValueText(double number)
{
    return CountsAsValue(number) ? FormatFixed(number, NUMBER_DIGITS) : std::wstring();
}

/// The first kind whose value stands anywhere in the description.
std::wstring KindOf(const std::wstring& desc)
{
    const Vocabulary kinds = GetDisplayXmlTables().GetVocabulary(VocabularyIndex::SurfaceKind);
    const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const DisplayXmlDataPair& one) {
        return desc.find(one.xml) != std::wstring::npos;
    });
    return kind == kinds.end() ? DEFAULT_SURFACE_KIND : kind->xml;
}

std::unique_ptr<DlgDataAlignment> MakeAlignment(const FViewAlignment& alignment)
{
    auto data = std::make_unique<DlgDataAlignment>();
    data->name = alignment.name;
    data->mainInterval = ValueText(alignment.mainInterval);
    data->subInterval = ValueText(alignment.subInterval);
    data->method = alignment.method;
    data->normalCrown = ValueText(alignment.normalCrown);
    data->singleLaneRoad = alignment.singleLaneRoad;
    data->useSlopeList = alignment.useSlopeList;
    data->mainIntervalLocked = CountsAsValue(alignment.mainInterval);
    data->subIntervalLocked = CountsAsValue(alignment.subInterval);
    data->methodLocked = !alignment.method.empty();
    return data;
}

/// A classification of the input never reaches the dialog: no type is the two question marks that it would have to be,
/// and the user is asked for the class every time.
void TakeClassification(DlgDataAlignments& data, const FViewAlignments& route)
{
    constexpr std::wstring_view UNREADABLE_TYPE = L"??";
    if (route.designGmType == UNREADABLE_TYPE)
    {
        data.roadClassification = route.roadClassification;
    }
}

std::unique_ptr<DlgDataAlignments> MakeRoute(const FViewAlignments& route)
{
    auto data = std::make_unique<DlgDataAlignments>();
    data->name = route.name;
    data->designGmType = route.designGmType;
    TakeClassification(*data, route);
    data->side = route.side;
    data->trafficVolume = route.trafficVolume;
    for (const FViewAlignment& alignment : route.alignments)
    {
        RunStage<DlgDataSetException>(SET_ALIGNMENT, [&] { data->alignments.push_back(MakeAlignment(alignment)); });
    }
    return data;
}

std::unique_ptr<DlgDataSurface> MakeSurface(const FViewSurface& surface)
{
    auto data = std::make_unique<DlgDataSurface>();
    data->name = surface.name;
    data->alignmentRefs = surface.alignmentRefs;
    data->kind = KindOf(surface.desc);
    data->loadedKind = data->kind;
    data->desc = surface.desc.substr(0, surface.desc.find(LINE_END));
    data->alignmentRefsLocked = !surface.alignmentRefs.empty();
    return data;
}

std::unique_ptr<DlgDataSurfaces> MakeSurfaceSet(const FViewSurfaces& set)
{
    auto data = std::make_unique<DlgDataSurfaces>();
    for (const FViewSurface& surface : set.surfaces)
    {
        RunStage<DlgDataSetException>(SET_SURFACE, [&] { data->surfaces.push_back(MakeSurface(surface)); });
    }
    return data;
}

/// Walks the dialog's objects and the model's entries side by side.
template <class Data, class Model, class Visitor>
void ForEachPair(const DlgDataList<Data>& data, Model& model, Visitor visit)
{
    auto entry = model.begin();
    for (auto item = data.begin(); item != data.end() && entry != model.end(); ++item, ++entry)
    {
        visit(**item, *entry);
    }
}

double NumberOf(const std::wstring& text)
{
    return ParseDouble(text).value;
}

void ApplyAlignment(const DlgDataAlignment& data, FViewAlignment& alignment)
{
    alignment.name = data.name;
    alignment.method = data.method;
    alignment.mainInterval = NumberOf(data.mainInterval);
    if (const double value = NumberOf(data.subInterval); CountsAsValue(value))
    {
        alignment.subInterval = value;
    }
    if (const double value = NumberOf(data.normalCrown); CountsAsValue(value))
    {
        alignment.normalCrown = value;
    }
    alignment.singleLaneRoad = data.singleLaneRoad;
    alignment.useSlopeList = data.useSlopeList;
}

void ApplyRoute(const DlgDataAlignments& data, FViewAlignments& route)
{
    route.designGmType = data.designGmType;
    if (data.designGmType == ROAD_DESIGN)
    {
        route.riverClassification.clear();
        route.side.clear();
        route.roadClassification = data.Classification();
        route.trafficVolume = data.trafficVolume;
    }
    else if (data.designGmType == RIVER_DESIGN)
    {
        route.roadClassification.clear();
        route.trafficVolume.clear();
        route.riverClassification = data.Classification();
        route.side = data.side;
    }
    ForEachPair(data.alignments, route.alignments, [](const DlgDataAlignment& item, FViewAlignment& alignment) {
        RunStage<DlgDataApplyException>(APPLY_ALIGNMENT, [&] { ApplyAlignment(item, alignment); });
    });
}

} // namespace

JLandXmlConvertDlgData::JLandXmlConvertDlgData()
{
    SetFromModel();
}

void JLandXmlConvertDlgData::SetFromModel()
{
    const FViewLandXML& model = GetConversionContext().model;
    RunStage<DlgDataSetException>(SET_ALL, [&] {
        RunStage<DlgDataSetException>(SET_PROJECT, [&] { SetProject(model); });
        RunStage<DlgDataSetException>(SET_COORDINATE_SYSTEM, [&] { SetCoordinateSystem(model); });
        RunStage<DlgDataSetException>(SET_ROUTE, [&] { SetRoutes(model); });
        RunStage<DlgDataSetException>(SET_SURFACE_SET, [&] { SetSurfaceSets(model); });
        RunStage<DlgDataSetException>(SET_INTERMEDIATE_POINTS, [&] { SetIntermediatePoints(model); });
        RunStage<DlgDataSetException>(SET_WIDTH_STAKES, [&] { SetWidthStakes(model); });
    });
}

void JLandXmlConvertDlgData::SetProject(const FViewLandXML& model)
{
    projectName = model.project.name;
    projectPhase = model.project.projectPhase;
    applicationCriterion = model.project.applicationCriterion;
    softwareName = SOFTWARE_NAME;
    softwareVersion = SOFTWARE_VERSION;
}

void JLandXmlConvertDlgData::SetCoordinateSystem(const FViewLandXML& model)
{
    const FViewCoordinateSystem& system = model.coordinateSystem;
    horizontalDatum = system.horizontalDatum;
    verticalDatum = system.verticalDatum;
    horizontalCoordinateSystemName = system.horizontalCoordinateSystemName;
    differTP = system.differTP.empty() ? DifferTPOfValue(system.verticalDatum) : std::wstring_view(system.differTP);
}

void JLandXmlConvertDlgData::SetRoutes(const FViewLandXML& model)
{
    alignmentsList.clear();
    for (const FViewAlignments& route : model.alignments)
    {
        alignmentsList.push_back(MakeRoute(route));
    }
}

void JLandXmlConvertDlgData::SetSurfaceSets(const FViewLandXML& model)
{
    surfacesList.clear();
    for (const FViewSurfaces& set : model.surfaces)
    {
        surfacesList.push_back(MakeSurfaceSet(set));
    }
}

void JLandXmlConvertDlgData::SetIntermediatePoints(const FViewLandXML& model)
{
    cgPointsList.intermediate.clear();
    for (const FViewCgPointsIntermediate& group : model.intermediatePoints)
    {
        auto data = std::make_unique<DlgDataCgPointsIntermediate>();
        data->alignmentRefs = group.alignmentRefs;
        data->alignmentRefsLocked = !group.alignmentRefs.empty();
        cgPointsList.intermediate.push_back(std::move(data));
    }
}

void JLandXmlConvertDlgData::SetWidthStakes(const FViewLandXML& model)
{
    cgPointsList.widthStakes.clear();
    for (const FViewCgPointsWidthStake& group : model.widthStakePoints)
    {
        auto data = std::make_unique<DlgDataCgPointsWidthStake>();
        data->alignmentRefs = group.alignmentRefs;
        data->type = group.type;
        data->desc = group.desc;
        data->alignmentRefsLocked = !group.alignmentRefs.empty();
        cgPointsList.widthStakes.push_back(std::move(data));
    }
}

void JLandXmlConvertDlgData::ApplyToModel()
{
    FViewLandXML& model = GetConversionContext().model;
    RunStage<DlgDataApplyException>(APPLY_SURFACE_SET, [&] { ApplySurfaceDescriptions(); });
    RunStage<DlgDataApplyException>(APPLY_PROJECT, [&] { ApplyProject(model); });
    RunStage<DlgDataApplyException>(APPLY_COORDINATE_SYSTEM, [&] { ApplyCoordinateSystem(model); });
    RunStage<DlgDataApplyException>(APPLY_ROUTE, [&] { ApplyRoutes(model); });
    RunStage<DlgDataApplyException>(APPLY_SURFACE_SET, [&] { ApplySurfaceSets(model); });
    RunStage<DlgDataApplyException>(APPLY_INTERMEDIATE_POINTS, [&] { ApplyIntermediatePoints(model); });
    RunStage<DlgDataApplyException>(APPLY_WIDTH_STAKES, [&] { ApplyWidthStakes(model); });
}

void JLandXmlConvertDlgData::ApplySurfaceDescriptions()
{
    for (const auto& set : surfacesList)
    {
        for (const auto& surface : set->surfaces)
        {
            if (surface->kind != surface->loadedKind)
            {
                surface->desc = surface->kind;
            }
        }
    }
}

void JLandXmlConvertDlgData::ApplyProject(FViewLandXML& model) const
{
    model.project.name = projectName;
    model.project.projectPhase = projectPhase;
    model.project.applicationCriterion = applicationCriterion;
}

void JLandXmlConvertDlgData::ApplyCoordinateSystem(FViewLandXML& model) const
{
    model.coordinateSystem.horizontalDatum = horizontalDatum;
    model.coordinateSystem.verticalDatum = verticalDatum;
    model.coordinateSystem.horizontalCoordinateSystemName = horizontalCoordinateSystemName;
    model.coordinateSystem.differTP = differTP;
}

void JLandXmlConvertDlgData::ApplyRoutes(FViewLandXML& model) const
{
    ForEachPair(alignmentsList, model.alignments, ApplyRoute);
}

void JLandXmlConvertDlgData::ApplySurfaceSets(FViewLandXML& model) const
{
    ForEachPair(surfacesList, model.surfaces, [](const DlgDataSurfaces& data, FViewSurfaces& set) {
        ForEachPair(data.surfaces, set.surfaces, [](const DlgDataSurface& item, FViewSurface& surface) {
            RunStage<DlgDataApplyException>(APPLY_SURFACE, [&] {
                surface.name = item.name;
                surface.desc = item.desc;
                surface.alignmentRefs = item.alignmentRefs;
            });
        });
    });
}

void JLandXmlConvertDlgData::ApplyIntermediatePoints(FViewLandXML& model) const
{
    ForEachPair(cgPointsList.intermediate, model.intermediatePoints,
                [](const DlgDataCgPointsIntermediate& data, FViewCgPointsIntermediate& group) {
                    group.alignmentRefs = data.alignmentRefs;
                });
}

void JLandXmlConvertDlgData::ApplyWidthStakes(FViewLandXML& model) const
{
    ForEachPair(cgPointsList.widthStakes, model.widthStakePoints,
                [](const DlgDataCgPointsWidthStake& data, FViewCgPointsWidthStake& group) {
                    group.alignmentRefs = data.alignmentRefs;
                    group.type = data.type;
                    if (!data.desc.empty())
                    {
                        group.desc = data.desc;
                    }
                });
}

} // namespace jlandxml
