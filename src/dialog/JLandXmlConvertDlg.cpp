#include "dialog/JLandXmlConvertDlg.h"

#include "base/Guard.h"
#include "base/Text.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "model/CurrentDesignType.h"
#include "run/ExportRun.h"

#include <algorithm>

namespace jlandxml
{

namespace
{

using namespace convert_dlg;

constexpr const wchar_t* DEFAULT_PHASE = L"詳細";
constexpr const wchar_t* DEFAULT_CRITERION = L"1.6";
constexpr const wchar_t* DEFAULT_LANES = L"多車線道路";
constexpr const wchar_t* DEFAULT_SUPERELEVATION_DEFINITION = L"片勾配すりつけ";
constexpr const wchar_t* DEFAULT_METHOD = L"要素法";
constexpr const wchar_t* DEFAULT_SURFACE_KIND = L"現況地形";
constexpr const wchar_t* ROUTE_NAME = L"路線";
constexpr const wchar_t* SURFACE_SET_NAME = L"サーフェスセット";
constexpr const wchar_t* POINT_GROUPS_NAME = L"中間点/幅杭";
constexpr const wchar_t* INTERMEDIATE_NAME = L"IntermediatePnts-";
constexpr const wchar_t* WIDTH_STAKE_NAME = L"WidthStakePnts-";

constexpr SaveFileRequest SAVE_FILE{L"xml", L"", L"XML Files (*.xml)|*.xml|All Files (*.*)|*.*||"};

/// The lists that show a vocabulary. Those of reference alignments are filled when their object is selected.
struct VocabularyList
{
    int control;
    VocabularyIndex vocabulary;
};

constexpr VocabularyList VOCABULARY_LISTS[] = {
    {PROJECT_PHASE_LIST, VocabularyIndex::ProjectPhase},
    {APPLICATION_CRITERION_LIST, VocabularyIndex::ApplicationCriterion},
    {VERTICAL_DATUM_LIST, VocabularyIndex::VerticalDatum},
    {ROAD_CLASSIFICATION_LIST, VocabularyIndex::RoadClassification},
    {RIVER_CLASSIFICATION_LIST, VocabularyIndex::RiverClassification},
    {RIVER_SIDE_LIST, VocabularyIndex::RiverSide},
    {METHOD_LIST, VocabularyIndex::CalculationMethod},
    {LANES_LIST, VocabularyIndex::LaneKind},
    {SUPERELEVATION_DEFINITION_LIST, VocabularyIndex::SuperelevationDefinition},
    {SURFACE_KIND_LIST, VocabularyIndex::SurfaceKind},
    {CLOSURE_TYPE_LIST, VocabularyIndex::ClosureType},
};

/// The edits whose text is checked at each change.
struct FilteredEdit
{
    int control;
    const NumberRule& rule;
};

constexpr FilteredEdit FILTERED_EDITS[] = {
    {MAIN_INTERVAL_EDIT, MAIN_INTERVAL_RULE},
    {SUB_INTERVAL_EDIT, SUB_INTERVAL_RULE},
    {NORMAL_CROWN_EDIT, NORMAL_CROWN_RULE},
    {TRAFFIC_VOLUME_EDIT, TRAFFIC_VOLUME_RULE},
};

constexpr std::span<const int> ALL_SETS[] = {ROUTE_SET, ALIGNMENT_SET, SURFACE_SET, INTERMEDIATE_SET, WIDTH_STAKE_SET};

constexpr const wchar_t* SELECTION_FAILURE = L"ツリー選択イベント中にエラーが発生しました。";
constexpr const wchar_t* OUTPUT_FAILURE = L"出力処理中にエラーが発生しました。";
constexpr const wchar_t* UNKNOWN_FAILURE = L"不明な例外が発生しました。";
constexpr long NOTIFICATION_FAILED = -1;

constexpr StageTexts UPDATE_SELECTED{nullptr, L"データ更新中にエラーが発生しました。",
                                     L"データ更新中に不明な例外が発生しました。"};
constexpr StageTexts GET_NODE_TYPE{nullptr, L"ノードタイプの判定中にエラーが発生しました。",
                                   L"ノードタイプの判定中に不明な例外が発生しました。"};
constexpr StageTexts SELECT_ROUTE{nullptr, L"路線選択処理中にエラーが発生しました。",
                                  L"路線選択処理中に不明な例外が発生しました。"};
constexpr StageTexts SELECT_ALIGNMENT{nullptr, L"線形選択処理中にエラーが発生しました。",
                                      L"線形選択処理中に不明な例外が発生しました。"};
constexpr StageTexts SELECT_SURFACE{nullptr, L"サーフェス選択処理中にエラーが発生しました。",
                                    L"サーフェス選択処理中に不明な例外が発生しました。"};
constexpr StageTexts SELECT_INTERMEDIATE{nullptr, L"中間点選択処理中にエラーが発生しました。",
                                         L"中間点選択処理中に不明な例外が発生しました。"};
constexpr StageTexts SELECT_WIDTH_STAKES{nullptr, L"幅杭選択処理中にエラーが発生しました。",
                                         L"幅杭選択処理中に不明な例外が発生しました。"};
constexpr StageTexts VALIDATE_EDIT{nullptr, L"エディットコントロールの入力処理中にエラーが発生しました。",
                                   L"エディットコントロールの入力処理中に不明な例外が発生しました。"};

Vocabulary VocabularyOf(VocabularyIndex index)
{
    return GetDisplayXmlTables().GetVocabulary(index);
}

const wchar_t* FlagText(std::int32_t flag)
{
    return flag != 0 ? L"true" : L"false";
}

template <class Item>
bool Holds(const DlgDataList<Item>& list, const DlgDataItem* object)
{
    return std::any_of(list.begin(), list.end(), [&](const auto& item) { return item.get() == object; });
}

/// A pointer that tells the user to wait for as long as a scope lasts.
class WaitCursor
{
  public:
    explicit WaitCursor(DialogWindow& window) : window_(window) { window_.ShowWaitCursor(true); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { window_.ShowWaitCursor(false); }

  private:
    DialogWindow& window_;
};

} // namespace

JLandXmlConvertDlg::JLandXmlConvertDlg() : Dialog(TEMPLATE) {}

// Opening

void JLandXmlConvertDlg::OnInitDialog()
{
    Dialog::OnInitDialog();
    EnableSet(ROUTE_SET, false);
    EnableSet(ALIGNMENT_SET, false);
    ShowSet(SURFACE_SET, false);
    ShowSet(INTERMEDIATE_SET, false);
    ShowSet(WIDTH_STAKE_SET, false);
    FillLists();
    ShowProject();
    ShowCoordinateSystem();
    BuildTree();
    if (const TreeItem first = Window().FirstTreeItem(OBJECT_TREE))
    {
        Window().EnsureTreeItemVisible(OBJECT_TREE, first);
    }
    Window().Raise();
}

void JLandXmlConvertDlg::FillLists()
{
    for (const VocabularyList& list : VOCABULARY_LISTS)
    {
        for (const DisplayXmlDataPair& pair : VocabularyOf(list.vocabulary))
        {
            Window().AddEntry(list.control, pair.display, pair.xml);
        }
    }
}

void JLandXmlConvertDlg::ShowProject()
{
    Window().SetText(PROJECT_NAME_EDIT, data.projectName);
    Window().SetText(SOFTWARE_NAME_EDIT, data.softwareName);
    Window().SetText(SOFTWARE_VERSION_EDIT, data.softwareVersion);
    SelectByValue(PROJECT_PHASE_LIST, VocabularyIndex::ProjectPhase, data.projectPhase, DEFAULT_PHASE);
    SelectByValue(APPLICATION_CRITERION_LIST, VocabularyIndex::ApplicationCriterion, data.applicationCriterion,
                  DEFAULT_CRITERION);
}

void JLandXmlConvertDlg::ShowCoordinateSystem()
{
    Window().SetText(HORIZONTAL_DATUM_EDIT,
                     std::wstring(FindDisplay(VocabularyOf(VocabularyIndex::HorizontalDatum), data.horizontalDatum)));
    Window().SetText(HORIZONTAL_COORDINATE_SYSTEM_EDIT,
                     std::wstring(FindDisplay(VocabularyOf(VocabularyIndex::HorizontalCoordinateSystem),
                                              data.horizontalCoordinateSystemName)));
    SelectOrFirst(VERTICAL_DATUM_LIST, VerticalDatumDisplay(data.verticalDatum, data.differTP));
}

void JLandXmlConvertDlg::BuildTree()
{
    BuildRoutes();
    BuildSurfaceSets();
    BuildPointGroups();
}

void JLandXmlConvertDlg::BuildRoutes()
{
    int unnamed = 0;
    for (const auto& route : data.alignmentsList)
    {
        const std::wstring text = route->name.empty() ? ROUTE_NAME + std::to_wstring(++unnamed) : route->name;
        const TreeItem item = Window().AddTreeItem(OBJECT_TREE, nullptr, text, static_cast<DlgDataItem*>(route.get()));
        for (const auto& alignment : route->alignments)
        {
            Window().AddTreeItem(OBJECT_TREE, item, alignment->name, static_cast<DlgDataItem*>(alignment.get()));
        }
        Window().ExpandTreeItem(OBJECT_TREE, item);
    }
}

void JLandXmlConvertDlg::BuildSurfaceSets()
{
    int number = 0;
    for (const auto& set : data.surfacesList)
    {
        const TreeItem item = Window().AddTreeItem(OBJECT_TREE, nullptr, SURFACE_SET_NAME + std::to_wstring(++number),
                                                   static_cast<DlgDataItem*>(set.get()));
        for (const auto& surface : set->surfaces)
        {
            Window().AddTreeItem(OBJECT_TREE, item, surface->name, static_cast<DlgDataItem*>(surface.get()));
        }
        Window().ExpandTreeItem(OBJECT_TREE, item);
    }
}

void JLandXmlConvertDlg::BuildPointGroups()
{
    DlgDataCgPointsList& groups = data.cgPointsList;
    if (groups.intermediate.empty() && groups.widthStakes.empty())
    {
        return;
    }
    const TreeItem item =
        Window().AddTreeItem(OBJECT_TREE, nullptr, POINT_GROUPS_NAME, static_cast<DlgDataItem*>(&groups));
    const auto add = [&](const auto& list, const wchar_t* name) {
        int number = 0;
        for (const auto& group : list)
        {
            Window().AddTreeItem(OBJECT_TREE, item, name + std::to_wstring(++number),
                                 static_cast<DlgDataItem*>(group.get()));
        }
    };
    add(groups.intermediate, INTERMEDIATE_NAME);
    add(groups.widthStakes, WIDTH_STAKE_NAME);
    Window().ExpandTreeItem(OBJECT_TREE, item);
}

// Events

template <class Body>
void JLandXmlConvertDlg::Handle(const wchar_t* label, Body body)
{
    try
    {
        body();
    }
    catch (const CException& exception)
    {
        ShowFailure(label, ErrorText(exception));
    }
    catch (const std::exception& exception)
    {
        ShowFailure(label, WideFromUtf8(exception.what()));
    }
    catch (...)
    {
        ShowFailure(label, UNKNOWN_FAILURE);
    }
}

void JLandXmlConvertDlg::ShowFailure(const wchar_t* label, const std::wstring& text)
{
    Window().ShowMessage(JoinMessages(label, text));
}

void JLandXmlConvertDlg::OnClick(int control)
{
    switch (control)
    {
    case OUTPUT_BUTTON:
        Handle(OUTPUT_FAILURE, [&] { OnOutput(); });
        return;
    case ROAD_RADIO:
        OnRoadSelected();
        return;
    case RIVER_RADIO:
        OnRiverSelected();
        return;
    default:
        Dialog::OnClick(control);
    }
}

void JLandXmlConvertDlg::OnTextChanged(int control)
{
    const auto* const edit = std::find_if(std::begin(FILTERED_EDITS), std::end(FILTERED_EDITS),
                                          [&](const FilteredEdit& one) { return one.control == control; });
    if (edit != std::end(FILTERED_EDITS))
    {
        Handle(edit->rule.changeFailure, [&] { ValidateEdit(control, edit->rule); });
    }
}

void JLandXmlConvertDlg::ValidateEdit(int control, const NumberRule& rule)
{
    RunStage<EditValidationException>(VALIDATE_EDIT, [&] {
        const std::wstring text = Window().Text(control);
        if (AcceptsInput(rule, text))
        {
            lastValidText[control] = text;
        }
        else if (const auto last = lastValidText.find(control); last != lastValidText.end())
        {
            // A copy, since setting the text is a change that passes here again.
            Window().SetText(control, std::wstring(last->second));
        }
    });
}

void JLandXmlConvertDlg::OnRoadSelected()
{
    SetRouteKind(ROAD_DESIGN);
}

void JLandXmlConvertDlg::OnRiverSelected()
{
    SetRouteKind(RIVER_DESIGN);
}

/// A selected route takes its kind at once; a selected alignment's route when its controls are read back.
void JLandXmlConvertDlg::SetRouteKind(const wchar_t* designGmType)
{
    if (selectedNodeType == NodeType::Route)
    {
        static_cast<DlgDataAlignments&>(*selectedData).designGmType = designGmType;
    }
    ApplyRouteKind();
}

long JLandXmlConvertDlg::OnTreeSelectionChanged(int /*control*/, TreeItem item)
{
    long result = NOTIFICATION_FAILED;
    Handle(SELECTION_FAILURE, [&] {
        HandleSelection(item);
        result = 0;
    });
    return result;
}

// Selecting

NodeType JLandXmlConvertDlg::GetNodeType(const DlgDataItem* object) const
{
    return RunStage<GetNodeTypeException>(GET_NODE_TYPE, [&] { return FindNodeType(object); });
}

NodeType JLandXmlConvertDlg::FindNodeType(const DlgDataItem* object) const
{
    if (dynamic_cast<const DlgDataAlignments*>(object) != nullptr)
    {
        return NodeType::Route;
    }
    if (dynamic_cast<const DlgDataAlignment*>(object) != nullptr)
    {
        return NodeType::Alignment;
    }
    if (dynamic_cast<const DlgDataSurface*>(object) != nullptr)
    {
        return NodeType::Surface;
    }
    if (Holds(data.cgPointsList.intermediate, object))
    {
        return NodeType::IntermediatePoints;
    }
    return Holds(data.cgPointsList.widthStakes, object) ? NodeType::WidthStakes : NodeType::None;
}

void JLandXmlConvertDlg::HandleSelection(TreeItem item)
{
    for (const std::span<const int> set : ALL_SETS)
    {
        EnableSet(set, false);
        ShowSet(set, false);
    }
    UpdateSelectedData();
    selectedData = nullptr;
    selectedNodeType = NodeType::None;
    selectedRoute = nullptr;
    if (item == nullptr)
    {
        return;
    }
    if (auto* const object = static_cast<DlgDataItem*>(Window().TreeItemData(OBJECT_TREE, item)))
    {
        selectedData = object;
        selectedNodeType = GetNodeType(object);
        ShowSelection(item);
    }
}

void JLandXmlConvertDlg::ShowSelection(TreeItem item)
{
    const auto open = [&](std::span<const int> set) {
        EnableSet(set, true);
        ShowSet(set, true);
    };
    switch (selectedNodeType)
    {
    case NodeType::Route:
        RunStage<SelectionHandlingException>(SELECT_ROUTE, [&] {
            open(ROUTE_SET);
            ShowRoute(static_cast<const DlgDataAlignments&>(*selectedData));
        });
        break;
    case NodeType::Alignment:
        RunStage<SelectionHandlingException>(SELECT_ALIGNMENT, [&] {
            open(ROUTE_SET);
            open(ALIGNMENT_SET);
            ShowAlignment(static_cast<const DlgDataAlignment&>(*selectedData));
            const TreeItem parent = Window().TreeParent(OBJECT_TREE, item);
            auto* const route =
                dynamic_cast<DlgDataAlignments*>(static_cast<DlgDataItem*>(Window().TreeItemData(OBJECT_TREE, parent)));
            ShowRoute(*route);
            selectedRoute = route;
        });
        break;
    case NodeType::Surface:
        RunStage<SelectionHandlingException>(SELECT_SURFACE, [&] {
            open(SURFACE_SET);
            ShowSurface(static_cast<const DlgDataSurface&>(*selectedData));
        });
        break;
    case NodeType::IntermediatePoints:
        RunStage<SelectionHandlingException>(SELECT_INTERMEDIATE, [&] {
            open(INTERMEDIATE_SET);
            const auto& group = static_cast<const DlgDataCgPointsIntermediate&>(*selectedData);
            ShowReferenceList(INTERMEDIATE_REFERENCE_LIST, group.alignmentRefs, group.alignmentRefsLocked);
        });
        break;
    case NodeType::WidthStakes:
        RunStage<SelectionHandlingException>(SELECT_WIDTH_STAKES, [&] {
            open(WIDTH_STAKE_SET);
            ShowWidthStake(static_cast<const DlgDataCgPointsWidthStake&>(*selectedData));
        });
        break;
    case NodeType::None:
        break;
    }
}

void JLandXmlConvertDlg::ShowRoute(const DlgDataAlignments& route)
{
    Window().SetChecked(ROAD_RADIO, false);
    Window().SetChecked(RIVER_RADIO, false);
    Window().SetText(TRAFFIC_VOLUME_EDIT, L"");
    for (const int list : {ROAD_CLASSIFICATION_LIST, RIVER_CLASSIFICATION_LIST, RIVER_SIDE_LIST})
    {
        Window().SelectEntry(list, DialogWindow::NO_ENTRY);
    }
    const bool river = route.designGmType == RIVER_DESIGN;
    Window().SetChecked(river ? RIVER_RADIO : ROAD_RADIO, true);
    if (route.designGmType == ROAD_DESIGN)
    {
        SelectByValue(ROAD_CLASSIFICATION_LIST, VocabularyIndex::RoadClassification, route.roadClassification);
    }
    else if (river)
    {
        SelectByValue(RIVER_CLASSIFICATION_LIST, VocabularyIndex::RiverClassification, route.riverClassification);
        SelectByValue(RIVER_SIDE_LIST, VocabularyIndex::RiverSide, route.side);
    }
    Window().SetText(TRAFFIC_VOLUME_EDIT, route.trafficVolume);
    ApplyRouteKind();
}

void JLandXmlConvertDlg::ApplyRouteKind()
{
    const bool road = Window().IsChecked(ROAD_RADIO);
    if (!road && !Window().IsChecked(RIVER_RADIO))
    {
        return;
    }
    Window().Enable(ROAD_CLASSIFICATION_LIST, road);
    Window().Enable(TRAFFIC_VOLUME_EDIT, road);
    Window().Enable(RIVER_CLASSIFICATION_LIST, !road);
    Window().Enable(RIVER_SIDE_LIST, !road);
}

void JLandXmlConvertDlg::ShowAlignment(const DlgDataAlignment& alignment)
{
    for (const int edit : {MAIN_INTERVAL_EDIT, SUB_INTERVAL_EDIT, NORMAL_CROWN_EDIT})
    {
        Window().SetText(edit, L"");
    }
    for (const int list : {METHOD_LIST, LANES_LIST, SUPERELEVATION_DEFINITION_LIST})
    {
        Window().SelectEntry(list, DialogWindow::NO_ENTRY);
    }
    const auto showInterval = [&](int edit, const std::wstring& text, bool locked) {
        Window().SetText(edit, text == L"0" ? std::wstring() : text);
        Window().Enable(edit, !locked);
    };
    showInterval(MAIN_INTERVAL_EDIT, alignment.mainInterval, alignment.mainIntervalLocked);
    showInterval(SUB_INTERVAL_EDIT, alignment.subInterval, alignment.subIntervalLocked);
    Window().SetText(NORMAL_CROWN_EDIT, alignment.normalCrown);
    SelectByValue(LANES_LIST, VocabularyIndex::LaneKind, FlagText(alignment.singleLaneRoad), DEFAULT_LANES);
    SelectByValue(SUPERELEVATION_DEFINITION_LIST, VocabularyIndex::SuperelevationDefinition,
                  FlagText(alignment.useSlopeList), DEFAULT_SUPERELEVATION_DEFINITION);
    SelectOrAdd(METHOD_LIST, alignment.method.empty() ? DEFAULT_METHOD : alignment.method);
    Window().Enable(METHOD_LIST, !alignment.methodLocked);
}

void JLandXmlConvertDlg::ShowSurface(const DlgDataSurface& surface)
{
    ShowReferenceList(SURFACE_REFERENCE_LIST, surface.alignmentRefs, surface.alignmentRefsLocked);
    SelectByValue(SURFACE_KIND_LIST, VocabularyIndex::SurfaceKind, surface.kind, DEFAULT_SURFACE_KIND);
}

void JLandXmlConvertDlg::ShowWidthStake(const DlgDataCgPointsWidthStake& group)
{
    ShowReferenceList(WIDTH_STAKE_REFERENCE_LIST, group.alignmentRefs, group.alignmentRefsLocked);
    SelectOrFirst(CLOSURE_TYPE_LIST, FindDisplay(VocabularyOf(VocabularyIndex::ClosureType), group.type));
    Window().SetText(WIDTH_STAKE_DESC_EDIT, group.desc);
}

/// Offers every alignment of every route. What the input refers to is shown even if no alignment has that name.
void JLandXmlConvertDlg::ShowReferenceList(int list, const std::wstring& text, bool locked)
{
    Window().ClearEntries(list);
    for (const auto& route : data.alignmentsList)
    {
        for (const auto& alignment : route->alignments)
        {
            Window().AddEntry(list, alignment->name);
        }
    }
    if (!text.empty())
    {
        SelectOrAdd(list, text);
    }
    Window().Enable(list, !locked);
}

// Reading back

void JLandXmlConvertDlg::UpdateSelectedData()
{
    RunStage<UpdateSelectedDataException>(UPDATE_SELECTED, [&] {
        if (selectedData != nullptr)
        {
            TakeSelectedData();
        }
    });
}

void JLandXmlConvertDlg::TakeSelectedData()
{
    switch (selectedNodeType)
    {
    case NodeType::Route:
        UpdateRoute(static_cast<DlgDataAlignments&>(*selectedData));
        break;
    case NodeType::Alignment:
        if (selectedRoute != nullptr)
        {
            UpdateRoute(*selectedRoute);
        }
        UpdateAlignment(static_cast<DlgDataAlignment&>(*selectedData));
        break;
    case NodeType::Surface:
        UpdateSurface(static_cast<DlgDataSurface&>(*selectedData));
        break;
    case NodeType::IntermediatePoints:
        ReadReference(INTERMEDIATE_REFERENCE_LIST,
                      static_cast<DlgDataCgPointsIntermediate&>(*selectedData).alignmentRefs);
        break;
    case NodeType::WidthStakes:
        UpdateWidthStake(static_cast<DlgDataCgPointsWidthStake&>(*selectedData));
        break;
    case NodeType::None:
        break;
    }
}

void JLandXmlConvertDlg::UpdateRoute(DlgDataAlignments& route) const
{
    if (Window().IsChecked(ROAD_RADIO))
    {
        route.designGmType = ROAD_DESIGN;
        ReadList(ROAD_CLASSIFICATION_LIST, route.roadClassification);
        route.trafficVolume = Window().Text(TRAFFIC_VOLUME_EDIT);
    }
    else if (Window().IsChecked(RIVER_RADIO))
    {
        route.designGmType = RIVER_DESIGN;
        ReadList(RIVER_CLASSIFICATION_LIST, route.riverClassification);
        ReadList(RIVER_SIDE_LIST, route.side);
    }
}

void JLandXmlConvertDlg::UpdateAlignment(DlgDataAlignment& alignment) const
{
    if (!alignment.mainIntervalLocked)
    {
        alignment.mainInterval = Window().Text(MAIN_INTERVAL_EDIT);
    }
    if (!alignment.subIntervalLocked)
    {
        alignment.subInterval = Window().Text(SUB_INTERVAL_EDIT);
    }
    ReadList(METHOD_LIST, alignment.method);
    alignment.normalCrown = Window().Text(NORMAL_CROWN_EDIT);
    ReadFlag(LANES_LIST, alignment.singleLaneRoad);
    ReadFlag(SUPERELEVATION_DEFINITION_LIST, alignment.useSlopeList);
}

void JLandXmlConvertDlg::UpdateSurface(DlgDataSurface& surface) const
{
    ReadReference(SURFACE_REFERENCE_LIST, surface.alignmentRefs);
    ReadList(SURFACE_KIND_LIST, surface.kind);
}

void JLandXmlConvertDlg::UpdateWidthStake(DlgDataCgPointsWidthStake& group) const
{
    ReadReference(WIDTH_STAKE_REFERENCE_LIST, group.alignmentRefs);
    ReadList(CLOSURE_TYPE_LIST, group.type);
    group.desc = Window().Text(WIDTH_STAKE_DESC_EDIT);
}

void JLandXmlConvertDlg::UpdateProject()
{
    data.projectName = Window().Text(PROJECT_NAME_EDIT);
    ReadList(PROJECT_PHASE_LIST, data.projectPhase);
    ReadList(APPLICATION_CRITERION_LIST, data.applicationCriterion);
    data.softwareName = Window().Text(SOFTWARE_NAME_EDIT);
    data.softwareVersion = Window().Text(SOFTWARE_VERSION_EDIT);
}

void JLandXmlConvertDlg::UpdateCoordinateSystem()
{
    const auto takeByDisplay = [&](int edit, VocabularyIndex vocabulary, std::wstring& field) {
        const std::wstring_view value = FindXml(VocabularyOf(vocabulary), Window().Text(edit));
        if (!value.empty())
        {
            field = value;
        }
    };
    takeByDisplay(HORIZONTAL_DATUM_EDIT, VocabularyIndex::HorizontalDatum, data.horizontalDatum);
    ReadList(VERTICAL_DATUM_LIST, data.verticalDatum);
    takeByDisplay(HORIZONTAL_COORDINATE_SYSTEM_EDIT, VocabularyIndex::HorizontalCoordinateSystem,
                  data.horizontalCoordinateSystemName);
    data.differTP = DifferTPOfPosition(Window().SelectedEntry(VERTICAL_DATUM_LIST));
}

// Output

void JLandXmlConvertDlg::OnOutput()
{
    UpdateSelectedData();
    UpdateProject();
    UpdateCoordinateSystem();
    if (data.Validate())
    {
        ShowErrors();
        return;
    }
    data.ApplyToModel();
    if (const std::optional<std::wstring> path = Window().ChooseSaveFile(SAVE_FILE))
    {
        Export(*path);
        Window().End(DialogResult::Accepted);
    }
}

void JLandXmlConvertDlg::ShowErrors()
{
    JLandXMLErrorDlg dialog(*this);
    dialog.messages = data.errors;
    dialog.DoModal();
}

void JLandXmlConvertDlg::Export(const std::wstring& path)
{
    const WaitCursor wait(Window());
    ExportRun(path);
}

// Controls

void JLandXmlConvertDlg::EnableSet(std::span<const int> controls, bool enabled)
{
    for (const int control : controls)
    {
        Window().Enable(control, enabled);
    }
}

void JLandXmlConvertDlg::ShowSet(std::span<const int> controls, bool shown)
{
    for (const int control : controls)
    {
        Window().Show(control, shown);
    }
}

/// Selects the entry of a stored value, or the default entry if the vocabulary doesn't hold the value.
void JLandXmlConvertDlg::SelectByValue(int list, VocabularyIndex vocabulary, std::wstring_view value,
                                       std::wstring_view defaultDisplay)
{
    const std::wstring_view display = FindDisplay(VocabularyOf(vocabulary), value);
    Window().SelectEntry(list, Window().FindEntry(list, std::wstring(display.empty() ? defaultDisplay : display)));
}

/// Selects the entry of this text, or the first one if there is none.
void JLandXmlConvertDlg::SelectOrFirst(int list, std::wstring_view text)
{
    const int entry = Window().FindEntry(list, std::wstring(text));
    Window().SelectEntry(list, entry == DialogWindow::NO_ENTRY ? 0 : entry);
}

/// Selects the entry of this text. One that isn't there is added, without a value behind it.
void JLandXmlConvertDlg::SelectOrAdd(int list, const std::wstring& text)
{
    const int entry = Window().FindEntry(list, text);
    Window().SelectEntry(list, entry == DialogWindow::NO_ENTRY ? Window().AddEntry(list, text) : entry);
}

/// Takes the value behind the selected entry; without a selection or a value the field stays.
void JLandXmlConvertDlg::ReadList(int list, std::wstring& field) const
{
    const int entry = Window().SelectedEntry(list);
    if (entry == DialogWindow::NO_ENTRY)
    {
        return;
    }
    if (const wchar_t* const value = Window().EntryData(list, entry))
    {
        field = value;
    }
}

void JLandXmlConvertDlg::ReadFlag(int list, std::int32_t& field) const
{
    std::wstring value;
    ReadList(list, value);
    if (!value.empty())
    {
        field = value == L"true" ? 1 : 0;
    }
}

void JLandXmlConvertDlg::ReadReference(int list, std::wstring& field) const
{
    std::wstring text = Window().Text(list);
    if (!text.empty())
    {
        field = std::move(text);
    }
}

} // namespace jlandxml
