#pragma once

#include "dialog/DisplayXmlTables.h"
#include "dialog/DlgData.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "dialog/JLandXmlConvertDlgData.h"
#include "dialog/NumberInput.h"
#include "model/CurrentDesignType.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace jlandxml
{

/// How a control holds its field.
enum class FieldKind
{
    Text,          ///< an edit that holds the field as it stands
    Interval,      ///< an edit that holds metres; "0" is shown as no text
    ReadOnlyText,  ///< an edit that shows the field as it stands
    ReadOnlyEntry, ///< an edit that shows what the vocabulary shows of the field
    Entry,         ///< a list on the entry of the field's value, or else on the default
    EntryOrFirst,  ///< a list on the entry of the field's value, or else on the first one
    OpenEntry,     ///< a list on the entry of the field's text, which is added if the vocabulary lacks it
    VerticalDatum, ///< a list on the entry that the field and the difference from T.P. decide together
    Flag,          ///< a list of the entries "true" and "false"
    Reference,     ///< a list of all alignments, on the one that the field names
    RouteKind      ///< the two radios that tell a road from a river
};

/// One field of the dialog's data and the control that stands for it.
struct DialogField
{
    const char* key; ///< its name in a settings file
    int control;
    FieldKind kind;
    std::wstring DlgDataItem::*text = nullptr;
    std::int32_t DlgDataItem::*flag = nullptr; ///< in the place of a text
    std::optional<VocabularyIndex> vocabulary = {};
    const wchar_t* defaultDisplay = L""; ///< the entry that is selected where the field decides none
    bool DlgDataItem::*locked = nullptr; ///< set where the field came with the input and can't be changed
    const NumberRule* number = nullptr;  ///< what may be typed
    std::wstring_view routeKind = {};    ///< the kind of route that has the field; empty: any
};

/// The fields of a kind of object, in the order in which they are read back and in which settings are acted out.
using FieldTable = std::span<const DialogField>;

/// A member of one class of objects, as a member of any. Only an object of that class has it.
template <class Object, class Value>
constexpr Value DlgDataItem::*FieldOf(Value Object::*member)
{
    return static_cast<Value DlgDataItem::*>(member);
}

inline constexpr DialogField PROJECT_FIELDS[] = {
    {.key = "projectName",
     .control = convert_dlg::PROJECT_NAME_EDIT,
     .kind = FieldKind::Text,
     .text = FieldOf(&JLandXmlConvertDlgData::projectName)},
    {.key = "projectPhase",
     .control = convert_dlg::PROJECT_PHASE_LIST,
     .kind = FieldKind::Entry,
     .text = FieldOf(&JLandXmlConvertDlgData::projectPhase),
     .vocabulary = VocabularyIndex::ProjectPhase,
     .defaultDisplay = L"詳細"},
    {.key = "applicationCriterion",
     .control = convert_dlg::APPLICATION_CRITERION_LIST,
     .kind = FieldKind::Entry,
     .text = FieldOf(&JLandXmlConvertDlgData::applicationCriterion),
     .vocabulary = VocabularyIndex::ApplicationCriterion,
     .defaultDisplay = L"1.6"},
    {.key = "softwareName",
     .control = convert_dlg::SOFTWARE_NAME_EDIT,
     .kind = FieldKind::ReadOnlyText,
     .text = FieldOf(&JLandXmlConvertDlgData::softwareName)},
    {.key = "softwareVersion",
     .control = convert_dlg::SOFTWARE_VERSION_EDIT,
     .kind = FieldKind::ReadOnlyText,
     .text = FieldOf(&JLandXmlConvertDlgData::softwareVersion)},
};

inline constexpr DialogField COORDINATE_SYSTEM_FIELDS[] = {
    {.key = "horizontalDatum",
     .control = convert_dlg::HORIZONTAL_DATUM_EDIT,
     .kind = FieldKind::ReadOnlyEntry,
     .text = FieldOf(&JLandXmlConvertDlgData::horizontalDatum),
     .vocabulary = VocabularyIndex::HorizontalDatum},
    {.key = "verticalDatum",
     .control = convert_dlg::VERTICAL_DATUM_LIST,
     .kind = FieldKind::VerticalDatum,
     .text = FieldOf(&JLandXmlConvertDlgData::verticalDatum),
     .vocabulary = VocabularyIndex::VerticalDatum},
    {.key = "horizontalCoordinateSystemName",
     .control = convert_dlg::HORIZONTAL_COORDINATE_SYSTEM_EDIT,
     .kind = FieldKind::ReadOnlyEntry,
     .text = FieldOf(&JLandXmlConvertDlgData::horizontalCoordinateSystemName),
     .vocabulary = VocabularyIndex::HorizontalCoordinateSystem},
};

inline constexpr DialogField ROUTE_FIELDS[] = {
    {.key = "designGmType",
     .control = convert_dlg::ROAD_RADIO,
     .kind = FieldKind::RouteKind,
     .text = FieldOf(&DlgDataAlignments::designGmType)},
    {.key = "roadClassification",
     .control = convert_dlg::ROAD_CLASSIFICATION_LIST,
     .kind = FieldKind::Entry,
     .text = FieldOf(&DlgDataAlignments::roadClassification),
     .vocabulary = VocabularyIndex::RoadClassification,
     .routeKind = ROAD_DESIGN},
    {.key = "trafficVolume",
     .control = convert_dlg::TRAFFIC_VOLUME_EDIT,
     .kind = FieldKind::Text,
     .text = FieldOf(&DlgDataAlignments::trafficVolume),
     .number = &TRAFFIC_VOLUME_RULE,
     .routeKind = ROAD_DESIGN},
    {.key = "riverClassification",
     .control = convert_dlg::RIVER_CLASSIFICATION_LIST,
     .kind = FieldKind::Entry,
     .text = FieldOf(&DlgDataAlignments::riverClassification),
     .vocabulary = VocabularyIndex::RiverClassification,
     .routeKind = RIVER_DESIGN},
    {.key = "side",
     .control = convert_dlg::RIVER_SIDE_LIST,
     .kind = FieldKind::Entry,
     .text = FieldOf(&DlgDataAlignments::side),
     .vocabulary = VocabularyIndex::RiverSide,
     .routeKind = RIVER_DESIGN},
};

inline constexpr DialogField ALIGNMENT_FIELDS[] = {
    {.key = "mainInterval",
     .control = convert_dlg::MAIN_INTERVAL_EDIT,
     .kind = FieldKind::Interval,
     .text = FieldOf(&DlgDataAlignment::mainInterval),
     .locked = FieldOf(&DlgDataAlignment::mainIntervalLocked),
     .number = &MAIN_INTERVAL_RULE},
    {.key = "subInterval",
     .control = convert_dlg::SUB_INTERVAL_EDIT,
     .kind = FieldKind::Interval,
     .text = FieldOf(&DlgDataAlignment::subInterval),
     .locked = FieldOf(&DlgDataAlignment::subIntervalLocked),
     .number = &SUB_INTERVAL_RULE},
    {.key = "method",
     .control = convert_dlg::METHOD_LIST,
     .kind = FieldKind::OpenEntry,
     .text = FieldOf(&DlgDataAlignment::method),
     .vocabulary = VocabularyIndex::CalculationMethod,
     .defaultDisplay = L"要素法",
     .locked = FieldOf(&DlgDataAlignment::methodLocked)},
    {.key = "normalCrown",
     .control = convert_dlg::NORMAL_CROWN_EDIT,
     .kind = FieldKind::Text,
     .text = FieldOf(&DlgDataAlignment::normalCrown),
     .number = &NORMAL_CROWN_RULE},
    {.key = "singleLaneRoad",
     .control = convert_dlg::LANES_LIST,
     .kind = FieldKind::Flag,
     .flag = FieldOf(&DlgDataAlignment::singleLaneRoad),
     .vocabulary = VocabularyIndex::LaneKind,
     .defaultDisplay = L"多車線道路"},
    {.key = "useSlopeList",
     .control = convert_dlg::SUPERELEVATION_DEFINITION_LIST,
     .kind = FieldKind::Flag,
     .flag = FieldOf(&DlgDataAlignment::useSlopeList),
     .vocabulary = VocabularyIndex::SuperelevationDefinition,
     .defaultDisplay = L"片勾配すりつけ"},
};

inline constexpr DialogField SURFACE_FIELDS[] = {
    {.key = "alignmentRefs",
     .control = convert_dlg::SURFACE_REFERENCE_LIST,
     .kind = FieldKind::Reference,
     .text = FieldOf(&DlgDataSurface::alignmentRefs),
     .locked = FieldOf(&DlgDataSurface::alignmentRefsLocked)},
    {.key = "kind",
     .control = convert_dlg::SURFACE_KIND_LIST,
     .kind = FieldKind::Entry,
     .text = FieldOf(&DlgDataSurface::kind),
     .vocabulary = VocabularyIndex::SurfaceKind,
     .defaultDisplay = L"現況地形"},
};

inline constexpr DialogField INTERMEDIATE_FIELDS[] = {
    {.key = "alignmentRefs",
     .control = convert_dlg::INTERMEDIATE_REFERENCE_LIST,
     .kind = FieldKind::Reference,
     .text = FieldOf(&DlgDataCgPointsIntermediate::alignmentRefs),
     .locked = FieldOf(&DlgDataCgPointsIntermediate::alignmentRefsLocked)},
};

inline constexpr DialogField WIDTH_STAKE_FIELDS[] = {
    {.key = "alignmentRefs",
     .control = convert_dlg::WIDTH_STAKE_REFERENCE_LIST,
     .kind = FieldKind::Reference,
     .text = FieldOf(&DlgDataCgPointsWidthStake::alignmentRefs),
     .locked = FieldOf(&DlgDataCgPointsWidthStake::alignmentRefsLocked)},
    {.key = "type",
     .control = convert_dlg::CLOSURE_TYPE_LIST,
     .kind = FieldKind::EntryOrFirst,
     .text = FieldOf(&DlgDataCgPointsWidthStake::type),
     .vocabulary = VocabularyIndex::ClosureType},
    {.key = "desc",
     .control = convert_dlg::WIDTH_STAKE_DESC_EDIT,
     .kind = FieldKind::Text,
     .text = FieldOf(&DlgDataCgPointsWidthStake::desc)},
};

inline constexpr FieldTable FIELD_TABLES[] = {
    PROJECT_FIELDS, COORDINATE_SYSTEM_FIELDS, ROUTE_FIELDS,       ALIGNMENT_FIELDS,
    SURFACE_FIELDS, INTERMEDIATE_FIELDS,      WIDTH_STAKE_FIELDS,
};

/// The radios of a route's kind, by what the route stores.
struct RouteKindRadio
{
    const wchar_t* designGmType;
    int control;
};

inline constexpr RouteKindRadio ROUTE_KIND_RADIOS[] = {
    {ROAD_DESIGN, convert_dlg::ROAD_RADIO},
    {RIVER_DESIGN, convert_dlg::RIVER_RADIO},
};

/// True if a route of this kind has the field.
constexpr bool IsOfRouteKind(const DialogField& field, std::wstring_view designGmType)
{
    return field.routeKind.empty() || field.routeKind == designGmType;
}

/// The field that a control stands for; null if it stands for none.
const DialogField* FindField(int control);

constexpr bool IsEditField(FieldKind kind)
{
    return kind == FieldKind::Text || kind == FieldKind::Interval || kind == FieldKind::ReadOnlyText ||
           kind == FieldKind::ReadOnlyEntry;
}

/// A field that is only shown, in an edit that nobody can type into.
constexpr bool IsReadOnlyField(FieldKind kind)
{
    return kind == FieldKind::ReadOnlyText || kind == FieldKind::ReadOnlyEntry;
}

constexpr bool IsListField(FieldKind kind)
{
    return !IsEditField(kind) && kind != FieldKind::RouteKind;
}

} // namespace jlandxml
