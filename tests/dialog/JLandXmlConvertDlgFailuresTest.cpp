#include "support/ConvertDlgFixture.h"
#include "support/FailingAllocation.h"

#include <algorithm>
#include <new>
#include <optional>
#include <stdexcept>
#include <typeinfo>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;
using Path = std::vector<std::size_t>;

constexpr const wchar_t* CAUSE = L"原因";

/// What goes wrong in a window, and where.
struct WindowFailure
{
    int control = 0; ///< of which an operation fails; none if 0
    void (*fail)() = nullptr;
    std::optional<std::size_t> allocationsBeforeExport = {};   ///< how many succeed while the user has to wait
    std::optional<std::size_t> allocationsBehindControls = {}; ///< how many succeed after all controls are read
    bool noParents = false;                                    ///< no item of the tree tells what it stands under
};

void ThrowFramework()
{
    throw CException(CAUSE);
}

void ThrowFile()
{
    throw CFileException(CAUSE);
}

void ThrowStandard()
{
    throw std::runtime_error("原因");
}

void ThrowNumber()
{
    throw 5;
}

/// Names the row of a suite after what it throws.
template <class Row>
std::string ByThrower(const Row& row)
{
    constexpr std::pair<void (*)(), const char*> THROWERS[] = {
        {ThrowFramework, "Framework"}, {ThrowFile, "File"}, {ThrowStandard, "Standard"}, {ThrowNumber, "Number"}};
    const auto* const thrower = std::find_if(std::begin(THROWERS), std::end(THROWERS),
                                             [&](const auto& one) { return one.first == row.param.fail; });
    return thrower->second;
}

/// A failure that an allocation may throw, and that the stages take for one of the framework's.
class AllocationFailure : public CException, public std::bad_alloc
{
  public:
    using CException::CException;
};

/// A window that lets the operations fail which only the inner steps of the dialog's logic use.
class FailingDialog final : public ScriptedDialog
{
  public:
    FailingDialog(const DialogTemplate& layout, DialogEvents& events, ScriptedWindowSystem& windows,
                  ScriptedDialog* owner, const WindowFailure& failure)
        : ScriptedDialog(layout, events, windows, owner),
          failure_(failure)
    {}

    std::wstring Text(int control) const override
    {
        FailAt(control);
        lastRead_ = control;
        return ScriptedDialog::Text(control);
    }

    void SelectEntry(int list, int entry) override
    {
        FailAt(list);
        ScriptedDialog::SelectEntry(list, entry);
    }

    void ClearEntries(int list) override
    {
        FailAt(list);
        ScriptedDialog::ClearEntries(list);
    }

    void SetChecked(int radio, bool checked) override
    {
        FailAt(radio);
        ScriptedDialog::SetChecked(radio, checked);
    }

    /// The place of the vertical datum is the last that the output command reads.
    int SelectedEntry(int list) const override
    {
        if (list == VERTICAL_DATUM_LIST && lastRead_ == HORIZONTAL_COORDINATE_SYSTEM_EDIT)
        {
            FailAllocation(failure_.allocationsBehindControls);
        }
        return ScriptedDialog::SelectedEntry(list);
    }

    void* TreeItemData(int tree, TreeItem item) const override
    {
        FailAt(tree);
        return ScriptedDialog::TreeItemData(tree, item);
    }

    TreeItem TreeParent(int tree, TreeItem item) const override
    {
        return failure_.noParents ? nullptr : ScriptedDialog::TreeParent(tree, item);
    }

    void ShowWaitCursor(bool shown) override
    {
        ScriptedDialog::ShowWaitCursor(shown);
        FailAllocation(shown ? failure_.allocationsBeforeExport : std::nullopt);
    }

    void ShowMessage(const std::wstring& text) override
    {
        allocation_.reset();
        ScriptedDialog::ShowMessage(text);
    }

  private:
    void FailAt(int control) const
    {
        if (control == failure_.control)
        {
            failure_.fail();
        }
    }

    void FailAllocation(std::optional<std::size_t> allowed) const
    {
        allocation_.reset();
        if (allowed)
        {
            allocation_.emplace(*allowed, [] { throw AllocationFailure(CAUSE); });
        }
    }

    const WindowFailure& failure_;
    mutable std::optional<FailingAllocation> allocation_;
    mutable int lastRead_ = 0;
};

class FailingWindows final : public ScriptedWindowSystem
{
  public:
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& layout, DialogEvents& events,
                                                   DialogWindow* owner) override
    {
        return std::make_unique<FailingDialog>(layout, events, *this, dynamic_cast<ScriptedDialog*>(owner), failure);
    }

    WindowFailure failure;
};

/// The text of a failure as a stage gives it on, by what was thrown.
struct FailureCase
{
    void (*fail)();
    bool known; ///< with a text that the stage takes over
};

class ConvertDlgFailures : public ConvertDlgTest, public testing::WithParamInterface<FailureCase>
{
  protected:
    ConvertDlgFailures()
    {
        LoadSample();
        SetWindowSystem(&failing);
    }

    /// Opens the dialog in windows that can fail.
    DialogResult OpenFailing(JLandXmlConvertDlg& opened, User user)
    {
        failing.SetUser(std::move(user));
        return opened.DoModal();
    }

    void FailAt(int control) { failing.failure = {control, GetParam().fail}; }
    void FailNoMore() { failing.failure = {}; }

    /// The one message that has been shown since the last look.
    std::wstring Message()
    {
        const std::vector<ShownMessage>& messages = failing.Messages();
        EXPECT_EQ(messages.size(), ++seen_);
        return messages.empty() ? L"" : messages.back().text;
    }

    /// What a handler shows of a failure that a stage has given on.
    static std::wstring Joined(const std::wstring& handler, const std::wstring& label, const std::wstring& unknown)
    {
        return handler + L", " + (GetParam().known ? label + L", " + CAUSE : unknown);
    }

    FailingWindows failing;

  private:
    std::size_t seen_ = 0;
};

constexpr const wchar_t* SELECTION = L"ツリー選択イベント中にエラーが発生しました。";
constexpr const wchar_t* OUTPUT_COMMAND = L"出力処理中にエラーが発生しました。";

struct SelectionCase
{
    Path path;
    int control;
    const wchar_t* label;
    const wchar_t* unknown;
};

const SelectionCase SELECTIONS[] = {
    {{0}, ROAD_RADIO, L"路線選択処理中にエラーが発生しました。", L"路線選択処理中に不明な例外が発生しました。"},
    {{0, 1}, METHOD_LIST, L"線形選択処理中にエラーが発生しました。", L"線形選択処理中に不明な例外が発生しました。"},
    // The route of the alignment is shown in the same step.
    {{0, 1}, ROAD_RADIO, L"線形選択処理中にエラーが発生しました。", L"線形選択処理中に不明な例外が発生しました。"},
    {{3, 0},
     SURFACE_KIND_LIST,
     L"サーフェス選択処理中にエラーが発生しました。",
     L"サーフェス選択処理中に不明な例外が発生しました。"},
    {{5, 0},
     INTERMEDIATE_REFERENCE_LIST,
     L"中間点選択処理中にエラーが発生しました。",
     L"中間点選択処理中に不明な例外が発生しました。"},
    {{5, 3},
     CLOSURE_TYPE_LIST,
     L"幅杭選択処理中にエラーが発生しました。",
     L"幅杭選択処理中に不明な例外が発生しました。"},
};

TreeItem At(const ScriptedDialog& window, const Path& path)
{
    TreeItem item = window.TreeChildren(OBJECT_TREE, nullptr).at(path[0]);
    return path.size() == 1 ? item : window.TreeChildren(OBJECT_TREE, item).at(path[1]);
}

TEST_P(ConvertDlgFailures, OfSelectingNameTheKindOfObject)
{
    for (const SelectionCase& one : SELECTIONS)
    {
        JLandXmlConvertDlg opened;
        OpenFailing(opened, [&](ScriptedDialog& window) {
            FailAt(one.control);
            window.ChooseTreeItem(OBJECT_TREE, At(window, one.path));
            EXPECT_EQ(window.TreeNotificationResult(), -1);
            EXPECT_EQ(Message(), Joined(SELECTION, one.label, one.unknown));
            // The dialog goes on.
            FailNoMore();
            window.ChooseTreeItem(OBJECT_TREE, At(window, {3}));
            EXPECT_EQ(window.TreeNotificationResult(), 0);
            window.ChooseTreeItem(OBJECT_TREE, At(window, one.path));
            EXPECT_EQ(window.TreeNotificationResult(), 0);
            EXPECT_FALSE(window.HasEnded());
        });
    }
}

TEST_P(ConvertDlgFailures, OfSelectingAnAlignmentLeaveItWithoutARoute)
{
    JLandXmlConvertDlg opened;
    OpenFailing(opened, [&](ScriptedDialog& window) {
        window.ChooseTreeItem(OBJECT_TREE, At(window, {0, 1}));
        FailAt(METHOD_LIST);
        window.ChooseTreeItem(OBJECT_TREE, At(window, {1, 0}));
        FailNoMore();
        window.SetText(TRAFFIC_VOLUME_EDIT, L"5");
        window.ChooseTreeItem(OBJECT_TREE, At(window, {3}));
        EXPECT_EQ(opened.Data().alignmentsList[0]->trafficVolume, L"1000");
        EXPECT_EQ(opened.Data().alignmentsList[1]->designGmType, L"河川");
    });
}

TEST_P(ConvertDlgFailures, OfReadingBackKeepTheFormerObjectSelected)
{
    JLandXmlConvertDlg opened;
    OpenFailing(opened, [&](ScriptedDialog& window) {
        window.ChooseTreeItem(OBJECT_TREE, At(window, {0}));
        window.Type(TRAFFIC_VOLUME_EDIT, L"7");
        FailAt(TRAFFIC_VOLUME_EDIT);
        window.ChooseTreeItem(OBJECT_TREE, At(window, {1}));
        EXPECT_EQ(window.TreeNotificationResult(), -1);
        EXPECT_EQ(Message(), Joined(SELECTION, L"データ更新中にエラーが発生しました。",
                                    L"データ更新中に不明な例外が発生しました。"));
        for (const int control : ROUTE_SET)
        {
            EXPECT_FALSE(window.IsShown(control) || window.IsEnabled(control)) << control;
        }
        FailNoMore();
        window.ChooseTreeItem(OBJECT_TREE, At(window, {3}));
        EXPECT_EQ(opened.Data().alignmentsList[0]->trafficVolume, L"7");
        EXPECT_EQ(opened.Data().alignmentsList[1]->designGmType, L"河川");
    });
}

TEST_P(ConvertDlgFailures, OfReadingBackAtTheOutputCommandKeepTheDialogOpen)
{
    const std::wstring before = Dump(Model());
    JLandXmlConvertDlg opened;
    OpenFailing(opened, [&](ScriptedDialog& window) {
        window.ChooseTreeItem(OBJECT_TREE, At(window, {0}));
        FailAt(TRAFFIC_VOLUME_EDIT);
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(Message(), Joined(OUTPUT_COMMAND, L"データ更新中にエラーが発生しました。",
                                    L"データ更新中に不明な例外が発生しました。"));
        EXPECT_FALSE(window.HasEnded());
        EXPECT_EQ(Dump(Model()), before);
    });
}

struct EditCase
{
    int control;
    const wchar_t* handler;
};

constexpr EditCase EDITS[] = {
    {MAIN_INTERVAL_EDIT, L"主点間隔の変更処理中にエラーが発生しました。"},
    {SUB_INTERVAL_EDIT, L"副点間隔の変更処理中にエラーが発生しました。"},
    {NORMAL_CROWN_EDIT, L"標準横断の変更処理中にエラーが発生しました。"},
    {TRAFFIC_VOLUME_EDIT, L"設計交通量の変更処理中にエラーが発生しました。"},
};

TEST_P(ConvertDlgFailures, OfTypingNameTheEdit)
{
    for (const EditCase& one : EDITS)
    {
        JLandXmlConvertDlg opened;
        OpenFailing(opened, [&](ScriptedDialog& window) {
            window.ChooseTreeItem(OBJECT_TREE, At(window, {0, 1}));
            FailAt(one.control);
            EXPECT_TRUE(window.Type(one.control, L"1"));
            EXPECT_EQ(Message(), Joined(one.handler, L"エディットコントロールの入力処理中にエラーが発生しました。",
                                        L"エディットコントロールの入力処理中に不明な例外が発生しました。"));
            FailNoMore();
            window.Type(one.control, L"2");
            window.Type(one.control, L"2x");
            EXPECT_EQ(window.Text(one.control), L"2");
        });
    }
}

TEST_P(ConvertDlgFailures, OfTypingHaveTheirClass)
{
    JLandXmlConvertDlg opened;
    OpenFailing(opened, [&](ScriptedDialog&) {
        FailAt(MAIN_INTERVAL_EDIT);
        try
        {
            opened.ValidateEdit(MAIN_INTERVAL_EDIT, MAIN_INTERVAL_RULE);
            FAIL();
        }
        catch (const CException& exception)
        {
            EXPECT_EQ(typeid(exception), typeid(EditValidationException));
            EXPECT_EQ(ErrorText(exception), GetParam().known
                                                ? L"エディットコントロールの入力処理中にエラーが発生しました。, 原因"
                                                : L"エディットコントロールの入力処理中に不明な例外が発生しました。");
        }
    });
}

/// A dialog that can't tell what an object is.
class TypelessDlg final : public JLandXmlConvertDlg
{
  protected:
    NodeType FindNodeType(const DlgDataItem* /*object*/) const override
    {
        ConvertDlgFailures::GetParam().fail();
        return NodeType::None;
    }
};

TEST_P(ConvertDlgFailures, OfTellingTheNodeTypeHaveTheirClass)
{
    const TypelessDlg opened;
    try
    {
        opened.GetNodeType(nullptr);
        FAIL();
    }
    catch (const CException& exception)
    {
        EXPECT_EQ(typeid(exception), typeid(GetNodeTypeException));
        EXPECT_EQ(ErrorText(exception), GetParam().known ? L"ノードタイプの判定中にエラーが発生しました。, 原因"
                                                         : L"ノードタイプの判定中に不明な例外が発生しました。");
    }
}

TEST_P(ConvertDlgFailures, OfTellingTheNodeTypeLeaveTheAreaEmpty)
{
    TypelessDlg opened;
    OpenFailing(opened, [&](ScriptedDialog& window) {
        window.ChooseTreeItem(OBJECT_TREE, At(window, {0}));
        EXPECT_EQ(window.TreeNotificationResult(), -1);
        EXPECT_EQ(Message(), Joined(SELECTION, L"ノードタイプの判定中にエラーが発生しました。",
                                    L"ノードタイプの判定中に不明な例外が発生しました。"));
        for (const int control : ROUTE_SET)
        {
            EXPECT_FALSE(window.IsShown(control)) << control;
        }
        // An object of unknown type has nothing to be read back.
        window.Click(OUTPUT_BUTTON);
        EXPECT_EQ(opened.Data().alignmentsList[0]->trafficVolume, L"1000");
    });
}

INSTANTIATE_TEST_SUITE_P(OfAnyKind, ConvertDlgFailures,
                         testing::Values(FailureCase{ThrowFramework, true}, FailureCase{ThrowFile, true},
                                         FailureCase{ThrowStandard, false}, FailureCase{ThrowNumber, false}),
                         [](const auto& row) { return ByThrower(row); });

/// What no stage below a handler takes is shown by the handler itself.
struct HandlerCase
{
    void (*fail)();
    const wchar_t* shown;
};

class ConvertDlgHandlers : public ConvertDlgTest, public testing::WithParamInterface<HandlerCase>
{
  protected:
    ConvertDlgHandlers()
    {
        LoadSample();
        SetWindowSystem(&failing);
    }

    FailingWindows failing;
};

TEST_P(ConvertDlgHandlers, ShowAnyFailureOfTheOutputCommandAndTheDialogGoesOn)
{
    const std::wstring before = Dump(Model());
    JLandXmlConvertDlg opened;
    failing.SetUser([&](ScriptedDialog& window) {
        failing.failure = {PROJECT_NAME_EDIT, GetParam().fail};
        window.Click(OUTPUT_BUTTON);
        ASSERT_EQ(failing.Messages().size(), 1U);
        EXPECT_EQ(failing.Messages()[0].text, OUTPUT_COMMAND + (L", " + std::wstring(GetParam().shown)));
        EXPECT_FALSE(window.HasEnded());
        EXPECT_EQ(Dump(Model()), before);
    });
    EXPECT_EQ(opened.DoModal(), DialogResult::Cancelled);
}

TEST_P(ConvertDlgHandlers, ShowAnyFailureOfTheTreeAndTheDialogGoesOn)
{
    JLandXmlConvertDlg opened;
    failing.SetUser([&](ScriptedDialog& window) {
        failing.failure = {OBJECT_TREE, GetParam().fail};
        window.ChooseTreeItem(OBJECT_TREE, At(window, {0}));
        EXPECT_EQ(window.TreeNotificationResult(), -1);
        ASSERT_EQ(failing.Messages().size(), 1U);
        EXPECT_EQ(failing.Messages()[0].text, SELECTION + (L", " + std::wstring(GetParam().shown)));
        failing.failure = {};
        window.ChooseTreeItem(OBJECT_TREE, At(window, {1}));
        EXPECT_TRUE(window.IsChecked(RIVER_RADIO));
    });
    opened.DoModal();
    EXPECT_EQ(failing.Messages().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(ConvertDlg, ConvertDlgHandlers,
                         testing::Values(HandlerCase{ThrowFramework, CAUSE}, HandlerCase{ThrowStandard, CAUSE},
                                         HandlerCase{ThrowNumber, L"不明な例外が発生しました。"}),
                         [](const auto& row) { return ByThrower(row); });

class ConvertDlgStrayAlignments : public ConvertDlgTest
{
  protected:
    ConvertDlgStrayAlignments()
    {
        LoadSample();
        SetWindowSystem(&failing);
    }

    FailingWindows failing;
};

TEST_F(ConvertDlgStrayAlignments, AreShownAndReadBackWithoutARoute)
{
    JLandXmlConvertDlg opened;
    failing.failure.noParents = true;
    failing.SetUser([&](ScriptedDialog& window) {
        window.ChooseTreeItem(OBJECT_TREE, At(window, {0, 1}));
        EXPECT_EQ(window.TreeNotificationResult(), 0);
        EXPECT_EQ(window.Text(METHOD_LIST), L"要素法");
        EXPECT_FALSE(window.IsChecked(ROAD_RADIO) || window.IsChecked(RIVER_RADIO));
        window.Type(NORMAL_CROWN_EDIT, L"1.5");
        window.Click(RIVER_RADIO);
        window.ChooseTreeItem(OBJECT_TREE, At(window, {3}));
        EXPECT_EQ(window.TreeNotificationResult(), 0);
        EXPECT_EQ(opened.Data().alignmentsList[0]->alignments[1]->normalCrown, L"1.5");
        EXPECT_EQ(opened.Data().alignmentsList[0]->designGmType, L"道路");
        EXPECT_FALSE(window.HasEnded());
    });
    opened.DoModal();
    EXPECT_EQ(failing.Messages(), std::vector<ShownMessage>{});
}

class ConvertDlgOutputFailures : public ConvertDlgTest
{
  protected:
    ConvertDlgOutputFailures()
    {
        Context().document.Create(); // a tree that an earlier failure broke off gives no file
        Model().project.name = L"工事";
        Model().coordinateSystem.horizontalDatum = L"JGD2011";
        Model().coordinateSystem.horizontalCoordinateSystemName = L"9(X,Y)";
        SetWindowSystem(&failing);
        failing.SetSaveFileAnswer([this](const SaveFileRequest&) { return folder.Name(L"out.xml"); });
    }

    FailingWindows failing;
};

TEST_F(ConvertDlgOutputFailures, OfTheExportAreShownAndTheDialogStaysOpenWithTheModelApplied)
{
    JLandXmlConvertDlg opened;
    failing.failure.allocationsBeforeExport = 0;
    failing.SetUser([&](ScriptedDialog& window) {
        window.Type(PROJECT_NAME_EDIT, L"別の工事");
        window.Click(OUTPUT_BUTTON);
        ASSERT_EQ(failing.Messages().size(), 1U);
        EXPECT_EQ(failing.Messages()[0].text,
                  L"出力処理中にエラーが発生しました。, General exception occurred: %s, 原因");
        EXPECT_EQ(failing.Records().back(), L"message " + failing.Messages()[0].text);
        EXPECT_EQ(failing.Records().at(failing.Records().size() - 2), L"go on");
        EXPECT_FALSE(window.HasEnded());
        EXPECT_TRUE(window.CanReach(OUTPUT_BUTTON));
        EXPECT_EQ(Model().project.name, L"別の工事");
    });
    EXPECT_EQ(opened.DoModal(), DialogResult::Cancelled);
    EXPECT_FALSE(Context().fileWritten);
}

TEST_F(ConvertDlgOutputFailures, OfApplyingAreShownAndNoFileIsAskedFor)
{
    const std::wstring longName(200, L'名');
    JLandXmlConvertDlg opened;
    failing.SetUser([&](ScriptedDialog& window) {
        window.Type(PROJECT_NAME_EDIT, longName);
        std::wstring shown;
        // The checks come first; they have memory to ask for too.
        for (std::size_t allowed = 0; shown.find(L"更新中") == std::wstring::npos; ++allowed)
        {
            ASSERT_LT(allowed, 1000U);
            failing.failure.allocationsBehindControls = allowed;
            window.Click(OUTPUT_BUTTON);
            ASSERT_FALSE(window.HasEnded());
            shown = failing.Messages().back().text;
        }
        EXPECT_EQ(shown, L"出力処理中にエラーが発生しました。, プロジェクト情報を更新中にエラーが発生しました。, 原因");
        EXPECT_NE(Model().project.name, longName);
        failing.failure = {};
        window.Click(OUTPUT_BUTTON);
        EXPECT_TRUE(window.HasEnded());
        EXPECT_EQ(Model().project.name, longName);
    });
    EXPECT_EQ(opened.DoModal(), DialogResult::Accepted);
    const std::vector<std::wstring>& records = failing.Records();
    EXPECT_EQ(std::count(records.begin(), records.end(), L"save " + folder.Name(L"out.xml")), 1);
}

TEST_F(ConvertDlgOutputFailures, OfTakingTheModelEndTheConstruction)
{
    Model().project.name.assign(200, L'名');
    const auto construct = [] {
        const FailingAllocation allocation(0, [] { throw AllocationFailure(CAUSE); });
        const JLandXmlConvertDlg opened;
    };
    EXPECT_THROW(construct(), DlgDataSetException);
}

} // namespace
} // namespace jlandxml
