#include "dialog/JLandXmlConvertDlg.h"

#include "base/Guard.h"
#include "base/Text.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "model/CurrentDesignType.h"
#include "run/ExportRun.h"

#include <algorithm>
#include <new>

namespace jlandxml
{

namespace
{

using namespace convert_dlg;

constexpr SaveFileRequest SAVE_FILE{L"xml", L"", L"XML Files (*.xml)|*.xml|All Files (*.*)|*.*||"};

/// What can be selected in the tree, and the panel that it is shown in.
struct ObjectKind
{
    NodeType type;
    FieldTable fields;
    std::span<const int> panel;
    bool standsAtOpening; ///< the panel is shown, disabled, before anything is selected
    StageTexts selecting; ///< the words with which showing an object fails
};

constexpr ObjectKind OBJECT_KINDS[] = {
    {NodeType::Route,
     ROUTE_FIELDS,
     ROUTE_SET,
     true,
     {nullptr, L"路線選択処理中にエラーが発生しました。", L"路線選択処理中に不明な例外が発生しました。"}},
    {NodeType::Alignment,
     ALIGNMENT_FIELDS,
     ALIGNMENT_SET,
     true,
     {nullptr, L"線形選択処理中にエラーが発生しました。", L"線形選択処理中に不明な例外が発生しました。"}},
    {NodeType::Surface,
     SURFACE_FIELDS,
     SURFACE_SET,
     false,
     {nullptr, L"サーフェス選択処理中にエラーが発生しました。", L"サーフェス選択処理中に不明な例外が発生しました。"}},
    {NodeType::IntermediatePoints,
     INTERMEDIATE_FIELDS,
     INTERMEDIATE_SET,
     false,
     {nullptr, L"中間点選択処理中にエラーが発生しました。", L"中間点選択処理中に不明な例外が発生しました。"}},
    {NodeType::WidthStakes,
     WIDTH_STAKE_FIELDS,
     WIDTH_STAKE_SET,
     false,
     {nullptr, L"幅杭選択処理中にエラーが発生しました。", L"幅杭選択処理中に不明な例外が発生しました。"}},
};

constexpr const wchar_t* SELECTION_FAILURE = L"ツリー選択イベント中にエラーが発生しました。";
constexpr const wchar_t* OUTPUT_FAILURE = L"出力処理中にエラーが発生しました。";
constexpr const wchar_t* UNKNOWN_FAILURE = L"不明な例外が発生しました。";
constexpr long NOTIFICATION_FAILED = -1;

constexpr StageTexts UPDATE_SELECTED{nullptr, L"データ更新中にエラーが発生しました。",
                                     L"データ更新中に不明な例外が発生しました。"};
constexpr StageTexts GET_NODE_TYPE{nullptr, L"ノードタイプの判定中にエラーが発生しました。",
                                   L"ノードタイプの判定中に不明な例外が発生しました。"};
constexpr StageTexts VALIDATE_EDIT{nullptr, L"エディットコントロールの入力処理中にエラーが発生しました。",
                                   L"エディットコントロールの入力処理中に不明な例外が発生しました。"};

const ObjectKind* FindKind(NodeType type)
{
    const auto* const kind = std::find_if(std::begin(OBJECT_KINDS), std::end(OBJECT_KINDS),
                                          [&](const ObjectKind& one) { return one.type == type; });
    return kind == std::end(OBJECT_KINDS) ? nullptr : kind;
}

/// A pointer that tells the user to wait for as long as a scope lasts.
class WaitCursor
{
  public:
    explicit WaitCursor(DialogWindow& window) : window_(window) { window_.ShowWaitCursor(true); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor()
    {
        try
        {
            window_.ShowWaitCursor(false);
        }
        catch (const std::bad_alloc&)
        {
            // The file may be in its place by now; a pointer isn't worth the process.
        }
    }

  private:
    DialogWindow& window_;
};

} // namespace

JLandXmlConvertDlg::JLandXmlConvertDlg() : Dialog(TEMPLATE) {}

// Opening

void JLandXmlConvertDlg::OnInitDialog()
{
    Dialog::OnInitDialog();
    for (const ObjectKind& kind : OBJECT_KINDS)
    {
        if (kind.standsAtOpening)
        {
            EnableSet(kind.panel, false);
        }
        else
        {
            ShowSet(kind.panel, false);
        }
    }
    Fields().FillLists();
    Fields().Show(PROJECT_FIELDS, data_);
    Fields().ShowCoordinateSystem(data_);
    BuildObjectTree(Window(), data_);
    if (const TreeItem first = Window().FirstTreeItem(OBJECT_TREE))
    {
        Window().EnsureTreeItemVisible(OBJECT_TREE, first);
    }
    Window().Raise();
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
    const DialogField* const field = FindField(control);
    if (field != nullptr && field->number != nullptr)
    {
        Handle(field->number->changeFailure, [&] { ValidateEdit(control, *field->number); });
    }
}

void JLandXmlConvertDlg::ValidateEdit(int control, const NumberRule& rule)
{
    RunStage<EditValidationException>(VALIDATE_EDIT, [&] {
        const std::wstring text = Window().Text(control);
        if (AcceptsInput(rule, text))
        {
            lastValidText_[control] = text;
        }
        else if (const auto last = lastValidText_.find(control); last != lastValidText_.end())
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
    if (selectedNodeType_ == NodeType::Route)
    {
        static_cast<DlgDataAlignments&>(*selectedData_).designGmType = designGmType;
    }
    Fields().ApplyRouteKind();
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
    return NodeTypeOf(object, data_);
}

void JLandXmlConvertDlg::HandleSelection(TreeItem item)
{
    for (const ObjectKind& kind : OBJECT_KINDS)
    {
        EnableSet(kind.panel, false);
        ShowSet(kind.panel, false);
    }
    UpdateSelectedData();
    selectedData_ = nullptr;
    selectedNodeType_ = NodeType::None;
    selectedRoute_ = nullptr;
    if (DlgDataItem* const object = ObjectOf(Window(), item))
    {
        selectedData_ = object;
        selectedNodeType_ = GetNodeType(object);
        ShowSelection(item);
    }
}

void JLandXmlConvertDlg::ShowSelection(TreeItem item)
{
    const ObjectKind* const kind = FindKind(selectedNodeType_);
    if (kind == nullptr)
    {
        return;
    }
    RunStage<SelectionHandlingException>(kind->selecting, [&] {
        switch (kind->type)
        {
        case NodeType::Route:
            OpenPanel(kind->panel);
            Fields().ShowRoute(static_cast<const DlgDataAlignments&>(*selectedData_));
            break;
        case NodeType::Alignment:
            OpenPanel(ROUTE_SET);
            OpenPanel(kind->panel);
            ShowSelectedAlignment(item);
            break;
        default:
            OpenPanel(kind->panel);
            Fields().Show(kind->fields, *selectedData_);
        }
    });
}

/// An alignment is shown with its route, which is edited beside it.
void JLandXmlConvertDlg::ShowSelectedAlignment(TreeItem item)
{
    Fields().ShowAlignment(static_cast<const DlgDataAlignment&>(*selectedData_));
    if (DlgDataAlignments* const route = RouteAbove(Window(), item))
    {
        Fields().ShowRoute(*route);
        selectedRoute_ = route;
    }
}

void JLandXmlConvertDlg::OpenPanel(std::span<const int> panel)
{
    EnableSet(panel, true);
    ShowSet(panel, true);
}

// Reading back

void JLandXmlConvertDlg::UpdateSelectedData()
{
    RunStage<UpdateSelectedDataException>(UPDATE_SELECTED, [&] {
        if (selectedData_ != nullptr)
        {
            TakeSelectedData();
        }
    });
}

void JLandXmlConvertDlg::TakeSelectedData()
{
    if (selectedNodeType_ == NodeType::Route)
    {
        Fields().UpdateRoute(static_cast<DlgDataAlignments&>(*selectedData_));
        return;
    }
    if (selectedRoute_ != nullptr)
    {
        Fields().UpdateRoute(*selectedRoute_);
    }
    if (const ObjectKind* const kind = FindKind(selectedNodeType_))
    {
        Fields().Update(kind->fields, *selectedData_);
    }
}

void JLandXmlConvertDlg::UpdateProject()
{
    Fields().Update(PROJECT_FIELDS, data_);
}

void JLandXmlConvertDlg::UpdateCoordinateSystem()
{
    Fields().UpdateCoordinateSystem(data_);
}

// Output

void JLandXmlConvertDlg::OnOutput()
{
    UpdateSelectedData();
    UpdateProject();
    UpdateCoordinateSystem();
    if (data_.Validate())
    {
        ShowErrors();
        return;
    }
    data_.ApplyToModel();
    if (const std::optional<std::wstring> path = Window().ChooseSaveFile(SAVE_FILE))
    {
        Export(*path);
        Window().End(DialogResult::Accepted);
    }
}

void JLandXmlConvertDlg::ShowErrors()
{
    JLandXMLErrorDlg dialog(*this);
    dialog.messages = data_.errors;
    dialog.places = data_.errorPlaces;
    dialog.DoModal();
}

void JLandXmlConvertDlg::Export(const std::wstring& path)
{
    const WaitCursor wait(Window());
    ExportRun(path);
}

// Panels

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

} // namespace jlandxml
