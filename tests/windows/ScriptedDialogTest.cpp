#include "windows/scripted/ScriptedDialog.h"

#include "support/DialogConformance.h"
#include "windows/scripted/ScriptedWindowSystem.h"

namespace jlandxml
{
namespace
{

using namespace conformance;
using Lines = std::vector<std::wstring>;

class ScriptedLayer final : public DialogLayer
{
  public:
    WindowSystem& Windows() override { return windows_; }

    void SetUser(User user) override
    {
        windows_.SetUser([work = std::move(user)](ScriptedDialog& dialog) { work(dialog, dialog); });
    }

  private:
    ScriptedWindowSystem windows_;
};

std::unique_ptr<DialogLayer> MakeScriptedLayer()
{
    return std::make_unique<ScriptedLayer>();
}

INSTANTIATE_TEST_SUITE_P(Scripted, DialogConformance, testing::Values(MakeScriptedLayer));

/// What the scripted layer offers beyond the others.
class ScriptedDialogTest : public testing::Test
{
  protected:
    DialogResult Run(ScriptedWindowSystem::User user)
    {
        windows.SetUser(std::move(user));
        const std::unique_ptr<DialogWindow> window = windows.MakeDialogWindow(TEMPLATE, events, nullptr);
        events.window = window.get();
        return window->RunModal();
    }

    ScriptedWindowSystem windows;
    RecordedEvents events;
};

TEST_F(ScriptedDialogTest, RecordsWhatHappens)
{
    windows.SetSaveFileAnswer(
        [](const SaveFileRequest& request) { return std::wstring(L"a.") + request.defaultExtension; });
    events.onClick = [](DialogWindow& window, int) {
        window.ShowWaitCursor(true);
        window.ShowWaitCursor(false);
        EXPECT_EQ(window.ChooseSaveFile({L"xml", L"", L"|"}), L"a.xml");
        window.ShowMessage(L"m");
        window.End(DialogResult::Accepted);
    };
    events.onInit = [](DialogWindow& window) { window.Raise(); };
    EXPECT_EQ(Run([](ScriptedDialog& dialog) {
                  dialog.AddEntry(LIST, L"e");
                  dialog.EnsureTreeItemVisible(TREE, dialog.AddTreeItem(TREE, nullptr, L"i", nullptr));
                  dialog.ChooseTreeItem(TREE, dialog.FirstTreeItem(TREE));
                  dialog.ChooseEntry(LIST, 0);
                  dialog.Type(EDIT, L"whole");
                  dialog.Click(CLOSE);
              }),
              DialogResult::Accepted);
    EXPECT_EQ(windows.Records(),
              (Lines{L"open 試験", L"raise 試験", L"visible 21 i", L"select 21 i", L"choose 13 e", L"text 10 whole",
                     L"click 3", L"wait", L"go on", L"save a.xml", L"message m", L"close 試験 accepted"}));
    EXPECT_EQ(windows.Messages(), (std::vector<ShownMessage>{{L"m"}}));
}

TEST_F(ScriptedDialogTest, TheSaveDialogIsCancelledWithoutAnAnswer)
{
    Run([](ScriptedDialog& dialog) { EXPECT_EQ(dialog.ChooseSaveFile({L"", L"", L""}), std::nullopt); });
    EXPECT_EQ(windows.Records().at(1), L"save cancelled");
}

TEST_F(ScriptedDialogTest, AWindowUnderTheSaveDialogIsOutOfReach)
{
    ScriptedDialog* below = nullptr;
    windows.SetSaveFileAnswer([&](const SaveFileRequest&) -> std::optional<std::wstring> {
        EXPECT_FALSE(below->Click(CLOSE));
        return std::nullopt;
    });
    Run([&](ScriptedDialog& dialog) {
        below = &dialog;
        dialog.ChooseSaveFile({L"", L"", L""});
        EXPECT_TRUE(dialog.Click(CLOSE));
    });
}

TEST_F(ScriptedDialogTest, AWholeTextIsOneChange)
{
    Run([&](ScriptedDialog& dialog) {
        events.Taken();
        EXPECT_TRUE(dialog.Type(EDIT, L"20.5"));
        EXPECT_EQ(events.Taken(), Lines{L"text 10 20.5"});
        EXPECT_FALSE(dialog.Type(READ_ONLY, L"x"));
        EXPECT_FALSE(dialog.Type(LABEL, L"x"));
    });
}

TEST_F(ScriptedDialogTest, AListRemembersTheOrderOfAdding)
{
    Run([](ScriptedDialog& dialog) {
        dialog.AddEntry(SORTED, L"b");
        dialog.AddEntry(SORTED, L"a");
        EXPECT_EQ(dialog.AddedEntries(SORTED), (Lines{L"b", L"a"}));
        EXPECT_EQ(dialog.Entries(SORTED), (Lines{L"a", L"b"}));
        dialog.ClearEntries(SORTED);
        EXPECT_EQ(dialog.AddedEntries(SORTED), Lines{});
    });
}

TEST_F(ScriptedDialogTest, AListRemembersTheOrderOfAddingTogether)
{
    Run([](ScriptedDialog& dialog) {
        const Lines texts = {L"b", L"c", L"a"};
        dialog.AddEntries(SORTED, texts);
        EXPECT_EQ(dialog.AddedEntries(SORTED), texts);
        EXPECT_EQ(dialog.Entries(SORTED), (Lines{L"a", L"b", L"c"}));
        dialog.AddEntries(SORTED, texts);
        EXPECT_EQ(dialog.AddedEntries(SORTED), (Lines{L"b", L"c", L"a", L"b", L"c", L"a"}));
    });
}

TEST_F(ScriptedDialogTest, TheDialogInFrontIsRaised)
{
    windows.RaiseOpenWindow();
    RecordedEvents eventsAbove;
    Run([&](ScriptedDialog& dialog) {
        windows.SetUser([&](ScriptedDialog&) { windows.RaiseOpenWindow(); });
        const auto above = windows.MakeDialogWindow(SMALL_TEMPLATE, eventsAbove, &dialog);
        eventsAbove.window = above.get();
        above->RunModal();
        windows.RaiseOpenWindow();
    });
    windows.RaiseOpenWindow();
    EXPECT_EQ(windows.Records(), (Lines{L"open 試験", L"open 小さい試験", L"raise 小さい試験",
                                        L"close 小さい試験 cancelled", L"raise 試験", L"close 試験 cancelled"}));
}

TEST_F(ScriptedDialogTest, ATreeNotificationIsAnswered)
{
    events.treeResult = -1;
    Run([](ScriptedDialog& dialog) {
        const TreeItem item = dialog.AddTreeItem(TREE, nullptr, L"i", nullptr);
        EXPECT_EQ(dialog.TreeNotificationResult(), 0);
        EXPECT_EQ(dialog.SelectedTreeItem(TREE), nullptr);
        dialog.ChooseTreeItem(TREE, item);
        EXPECT_EQ(dialog.TreeNotificationResult(), -1);
        EXPECT_EQ(dialog.SelectedTreeItem(TREE), item);
    });
}

TEST_F(ScriptedDialogTest, ATreeSelectionCanBeTakenAway)
{
    Run([&](ScriptedDialog& dialog) {
        ConformanceTree tree(dialog);
        dialog.ChooseTreeItem(TREE, tree.first);
        events.Taken();
        dialog.ChooseTreeItem(TREE, nullptr);
        EXPECT_EQ(events.Taken(), Lines{L"tree 21 none"});
    });
}

TEST_F(ScriptedDialogTest, AWindowThatIsNotOpenIsOutOfReach)
{
    const std::unique_ptr<DialogWindow> window = windows.MakeDialogWindow(TEMPLATE, events, nullptr);
    auto& dialog = dynamic_cast<ScriptedDialog&>(*window);
    EXPECT_FALSE(dialog.CanReach(CLOSE));
    EXPECT_FALSE(dialog.PressEscape());
    EXPECT_TRUE(dialog.IsEnabled(CLOSE));
}

TEST_F(ScriptedDialogTest, AControlThatTheDialogLacksIsAFaultOfTheLogic)
{
    Run([](ScriptedDialog& dialog) {
        EXPECT_THROW(dialog.Enable(999, true), std::out_of_range);
        EXPECT_THROW(dialog.Text(999), std::out_of_range);
        EXPECT_FALSE(dialog.CanReach(999));
        EXPECT_FALSE(dialog.Type(999, L""));
        EXPECT_FALSE(dialog.ChooseEntry(999, 0));
    });
}

TEST_F(ScriptedDialogTest, ThereIsNothingToChooseWhereThereIsNone)
{
    Run([&](ScriptedDialog& dialog) {
        dialog.AddEntry(LIST, L"a");
        events.Taken();
        EXPECT_FALSE(dialog.ChooseEntry(EDIT, 0));
        EXPECT_FALSE(dialog.ChooseEntry(LIST, -1));
        EXPECT_FALSE(dialog.ChooseEntry(LIST, 1));
        EXPECT_FALSE(dialog.ChooseTreeItem(LIST, nullptr));
        EXPECT_FALSE(dialog.ClickTreeItem(TREE, nullptr));
        EXPECT_EQ(events.Taken(), Lines{});
        dialog.SelectEntry(LIST, 0);
        dialog.SelectEntry(LIST, 1);
        EXPECT_EQ(dialog.SelectedEntry(LIST), DialogWindow::NO_ENTRY);
    });
}

TEST_F(ScriptedDialogTest, TheSelectionStaysWithItsEntryWhereOthersAreSortedIn)
{
    Run([](ScriptedDialog& dialog) {
        dialog.AddEntry(SORTED, L"b");
        dialog.SelectEntry(SORTED, 0);
        dialog.AddEntry(SORTED, L"a");
        EXPECT_EQ(dialog.SelectedEntry(SORTED), 1);
        dialog.AddEntry(SORTED, L"c");
        EXPECT_EQ(dialog.SelectedEntry(SORTED), 1);
        EXPECT_EQ(dialog.EntryText(SORTED, 1), L"b");
    });
}

} // namespace
} // namespace jlandxml
