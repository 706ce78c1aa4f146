#include "dialog/FieldControls.h"

#include "support/ConvertDlgFixture.h"

namespace jlandxml
{
namespace
{

using namespace convert_dlg;
using Lines = std::vector<std::wstring>;

/// A dialog that heeds nothing.
class Heedless final : public DialogEvents
{
  public:
    void OnInitDialog() override {}
    void OnClick(int /*control*/) override {}
    void OnTextChanged(int /*control*/) override {}
    long OnTreeSelectionChanged(int /*control*/, TreeItem /*item*/) override { return 0; }
};

/// A window that keeps what is done to its controls, in order.
class RecordingDialog final : public ScriptedDialog
{
  public:
    using ScriptedDialog::ScriptedDialog;

    void SetText(int control, const std::wstring& text) override
    {
        Keep(L"text", control);
        ScriptedDialog::SetText(control, text);
    }

    void SelectEntry(int list, int entry) override
    {
        Keep(entry == NO_ENTRY ? L"unselect" : L"select", list);
        ScriptedDialog::SelectEntry(list, entry);
    }

    void SetChecked(int radio, bool checked) override
    {
        Keep(checked ? L"check" : L"uncheck", radio);
        ScriptedDialog::SetChecked(radio, checked);
    }

    void Enable(int control, bool enabled) override
    {
        Keep(enabled ? L"enable" : L"disable", control);
        ScriptedDialog::Enable(control, enabled);
    }

    /// What was done since the last look.
    Lines Done() { return std::exchange(done_, {}); }

  private:
    void Keep(const wchar_t* what, int control) { done_.push_back(what + (L" " + std::to_wstring(control))); }

    Lines done_;
};

class FieldControlsTest : public ConvertDlgTest
{
  protected:
    FieldControlsTest()
    {
        LoadSample();
        data = std::make_unique<JLandXmlConvertDlgData>();
        controls = std::make_unique<FieldControls>(window, data->alignmentsList);
        controls->FillLists();
        window.Done();
    }

    Heedless events;
    RecordingDialog window{TEMPLATE, events, windows, nullptr};
    std::unique_ptr<JLandXmlConvertDlgData> data;
    std::unique_ptr<FieldControls> controls;
};

TEST_F(FieldControlsTest, AnAlignmentIsShownOnEmptyControlsAndItsMethodLast)
{
    controls->ShowAlignment(*data->alignmentsList[0]->alignments[0]);
    EXPECT_EQ(window.Done(), (Lines{L"text 1035", L"text 1037", L"text 1042", L"unselect 1040", L"unselect 1045",
                                    L"unselect 1047", L"text 1035", L"disable 1035", L"text 1037", L"enable 1037",
                                    L"text 1042", L"select 1045", L"select 1047", L"select 1040", L"disable 1040"}));
}

TEST_F(FieldControlsTest, ARiverIsShownWithItsListsBeforeTheTrafficVolume)
{
    controls->ShowRoute(*data->alignmentsList[1]);
    EXPECT_EQ(window.Done(), (Lines{L"uncheck 1020", L"uncheck 1022", L"text 1029", L"unselect 1023", L"unselect 1025",
                                    L"unselect 1030", L"check 1022", L"unselect 1025", L"select 1030", L"text 1029",
                                    L"disable 1023", L"disable 1029", L"enable 1025", L"enable 1030"}));
}

TEST_F(FieldControlsTest, AGroupOfWidthStakesIsShownFromAboveToBelow)
{
    controls->Show(WIDTH_STAKE_FIELDS, *data->cgPointsList.widthStakes[1]);
    EXPECT_EQ(window.Done(), (Lines{L"select 1057", L"disable 1057", L"select 1060", L"text 1062"}));
}

TEST_F(FieldControlsTest, WithoutACheckedRadioNothingIsEnabledForAKindOfRoute)
{
    controls->ApplyRouteKind();
    EXPECT_EQ(window.Done(), Lines{});
}

TEST_F(FieldControlsTest, ALockedIntervalIsNotReadBackAndAnOpenOneIs)
{
    DlgDataAlignment& alignment = *data->alignmentsList[0]->alignments[0];
    ASSERT_TRUE(alignment.mainIntervalLocked && !alignment.subIntervalLocked);
    controls->ShowAlignment(alignment);
    window.SetText(MAIN_INTERVAL_EDIT, L"1");
    window.SetText(SUB_INTERVAL_EDIT, L"2");
    controls->Update(ALIGNMENT_FIELDS, alignment);
    EXPECT_EQ(alignment.mainInterval, L"20.0000");
    EXPECT_EQ(alignment.subInterval, L"2");
}

TEST_F(FieldControlsTest, AnIntervalOfZeroIsShownAsNoTextAndACrossFallOfZeroIsShown)
{
    DlgDataAlignment alignment;
    alignment.mainInterval = alignment.subInterval = alignment.normalCrown = L"0";
    controls->ShowAlignment(alignment);
    EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), L"");
    EXPECT_EQ(window.Text(SUB_INTERVAL_EDIT), L"");
    EXPECT_EQ(window.Text(NORMAL_CROWN_EDIT), L"0");
    alignment.mainInterval = L"0.0";
    controls->ShowAlignment(alignment);
    EXPECT_EQ(window.Text(MAIN_INTERVAL_EDIT), L"0.0");
}

} // namespace
} // namespace jlandxml
