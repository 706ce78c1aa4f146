#include "windows/Dialog.h"

#include "support/RowName.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <gtest/gtest.h>
#include <set>

namespace jlandxml
{
namespace
{

constexpr ControlTemplate NAMED_WINDOW_CONTROLS[] = {
    {ACCEPT_COMMAND, ControlKind::DefaultButton, L"OK", 0, 0, 50, 14},
    {CANCEL_COMMAND, ControlKind::Button, L"キャンセル", 60, 0, 50, 14},
    {9, ControlKind::Button, L"他", 120, 0, 50, 14},
};

constexpr DialogTemplate NAMED_WINDOW{5, L"窓", 180, 20, NAMED_WINDOW_CONTROLS};

class DialogTest : public testing::Test
{
  protected:
    DialogTest() : former_(SetWindowSystem(&windows)) {}
    DialogTest(const DialogTest&) = delete;
    DialogTest& operator=(const DialogTest&) = delete;
    ~DialogTest() override { SetWindowSystem(former_); }

    ScriptedWindowSystem windows;

  private:
    WindowSystem* former_;
};

TEST_F(DialogTest, EndsOnItsOkAndCancelCommandsAlone)
{
    Dialog dialog(NAMED_WINDOW);
    windows.SetUser([](ScriptedDialog& window) {
        EXPECT_TRUE(window.Click(9));
        EXPECT_FALSE(window.HasEnded());
        window.Click(ACCEPT_COMMAND);
    });
    EXPECT_EQ(dialog.DoModal(), DialogResult::Accepted);
    windows.SetUser([](ScriptedDialog& window) { window.Click(CANCEL_COMMAND); });
    EXPECT_EQ(dialog.DoModal(), DialogResult::Cancelled);
    windows.SetUser([](ScriptedDialog& window) { window.PressEnter(); });
    EXPECT_EQ(dialog.DoModal(), DialogResult::Accepted);
    windows.SetUser([](ScriptedDialog& window) { window.PressEscape(); });
    EXPECT_EQ(dialog.DoModal(), DialogResult::Cancelled);
}

TEST_F(DialogTest, CanBeOpenedAgainAfterAFailure)
{
    Dialog dialog(NAMED_WINDOW);
    windows.SetUser([](ScriptedDialog&) { throw 1; });
    EXPECT_THROW(dialog.DoModal(), int);
    windows.SetUser([](ScriptedDialog& window) { window.Click(ACCEPT_COMMAND); });
    EXPECT_EQ(dialog.DoModal(), DialogResult::Accepted);
}

TEST_F(DialogTest, StandsOverItsOwner)
{
    Dialog owner(NAMED_WINDOW);
    Dialog dialog(NAMED_WINDOW, &owner);
    ScriptedDialog* below = nullptr;
    windows.SetUser([&](ScriptedDialog& window) {
        if (below != nullptr)
        {
            EXPECT_FALSE(below->Click(ACCEPT_COMMAND));
            return;
        }
        below = &window;
        EXPECT_EQ(dialog.DoModal(), DialogResult::Cancelled);
        EXPECT_TRUE(below->Click(ACCEPT_COMMAND));
    });
    EXPECT_EQ(owner.DoModal(), DialogResult::Accepted);
}

TEST_F(DialogTest, AnotherDialogIsNotItsOwner)
{
    Dialog first(NAMED_WINDOW);
    Dialog second(NAMED_WINDOW);
    windows.SetUser([&](ScriptedDialog& below) {
        windows.SetUser([&](ScriptedDialog&) { EXPECT_TRUE(below.CanReach(ACCEPT_COMMAND)); });
        second.DoModal();
    });
    first.DoModal();
}

TEST_F(DialogTest, WithoutAWindowSystemADialogIsCancelledAtOnce)
{
    SetWindowSystem(nullptr);
    EXPECT_EQ(Dialog(NAMED_WINDOW).DoModal(), DialogResult::Cancelled);
}

TEST(DialogTemplate, FindsItsControlsByNumber)
{
    EXPECT_EQ(FindControl(NAMED_WINDOW, 9), &NAMED_WINDOW_CONTROLS[2]);
    EXPECT_EQ(FindControl(NAMED_WINDOW, 3), nullptr);
}

struct FocusCase
{
    const wchar_t* rule;
    std::set<int> workable;
    int focus;
};

class DialogFocus : public testing::TestWithParam<FocusCase>
{};

TEST_P(DialogFocus, IsOnTheFirstEditToTypeIntoOrTheDefaultButton)
{
    static constexpr ControlTemplate FIELDS[] = {
        {10, ControlKind::Tree, L"", 0, 0, 50, 50},
        {11, ControlKind::ReadOnlyEdit, L"", 0, 60, 50, 14},
        {12, ControlKind::Button, L"他", 0, 80, 50, 14},
        {13, ControlKind::DefaultButton, L"出力", 60, 80, 50, 14},
        {14, ControlKind::Edit, L"", 60, 60, 50, 14},
        {15, ControlKind::Edit, L"", 120, 60, 50, 14},
        {16, ControlKind::DefaultButton, L"次", 120, 80, 50, 14},
    };
    const ControlTemplate* const first = FindFirstFocus(
        {6, L"窓", 180, 100, FIELDS}, [](int control) { return GetParam().workable.count(control) != 0; });
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->number, GetParam().focus);
}

INSTANTIATE_TEST_SUITE_P(DialogTemplate, DialogFocus,
                         testing::Values(FocusCase{L"the first of two edits", {10, 11, 12, 13, 14, 15, 16}, 14},
                                         FocusCase{L"the edit that can be worked", {10, 11, 15}, 15},
                                         FocusCase{L"the default button without an edit", {10, 11, 12, 13}, 13},
                                         FocusCase{L"the default button if nothing can be worked", {}, 13}),
                         BY_RULE);

TEST(DialogTemplate, WithoutAnEditAndADefaultButtonHasNoControlToOpenOn)
{
    static constexpr ControlTemplate PLAIN[] = {{10, ControlKind::Tree, L"", 0, 0, 50, 50},
                                                {11, ControlKind::Button, L"他", 0, 60, 50, 14}};
    EXPECT_EQ(FindFirstFocus({6, L"窓", 180, 100, PLAIN}, [](int) { return true; }), nullptr);
}

TEST(DialogTemplate, KindsBelongToFamilies)
{
    struct Family
    {
        ControlKind kind;
        const char* names;
    };
    constexpr Family FAMILIES[] = {
        {ControlKind::Button, "button"},
        {ControlKind::DefaultButton, "button"},
        {ControlKind::Group, ""},
        {ControlKind::Label, ""},
        {ControlKind::Edit, "edit"},
        {ControlKind::ReadOnlyEdit, "edit"},
        {ControlKind::List, "list"},
        {ControlKind::SortedList, "list sorted"},
        {ControlKind::SortedListBox, "list sorted"},
        {ControlKind::FirstRadio, "radio"},
        {ControlKind::Radio, "radio"},
        {ControlKind::Tree, ""},
    };
    for (const Family& family : FAMILIES)
    {
        const std::string_view names = family.names;
        const auto named = [&](std::string_view name) { return names.find(name) != std::string_view::npos; };
        EXPECT_EQ(IsButton(family.kind), named("button"));
        EXPECT_EQ(IsEdit(family.kind), named("edit"));
        EXPECT_EQ(IsList(family.kind), named("list"));
        EXPECT_EQ(IsSorted(family.kind), named("sorted"));
        EXPECT_EQ(IsRadio(family.kind), named("radio"));
    }
}

TEST_F(DialogTest, DoesNothingOnChangesThatItsLogicDoesNotWatch)
{
    static constexpr ControlTemplate UNWATCHED[] = {{10, ControlKind::Edit, L"", 0, 0, 50, 14},
                                                    {11, ControlKind::Tree, L"", 0, 20, 50, 50}};
    static constexpr DialogTemplate UNWATCHED_WINDOW{6, L"窓", 180, 100, UNWATCHED};
    Dialog dialog(UNWATCHED_WINDOW);
    windows.SetUser([](ScriptedDialog& window) {
        EXPECT_TRUE(window.Type(10, L"20"));
        EXPECT_EQ(window.Text(10), L"20");
        EXPECT_TRUE(window.ChooseTreeItem(11, window.AddTreeItem(11, nullptr, L"線形1", nullptr)));
        EXPECT_EQ(window.TreeNotificationResult(), 0);
        EXPECT_FALSE(window.HasEnded());
        EXPECT_FALSE(window.PressEnter());
    });
    EXPECT_EQ(dialog.DoModal(), DialogResult::Cancelled);
}

} // namespace
} // namespace jlandxml
