#include "dialog/JLandXMLErrorDlg.h"

#include "base/Collation.h"
#include "support/RunFixture.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <algorithm>
#include <random>

namespace jlandxml
{
namespace
{

using Lines = std::vector<std::wstring>;

constexpr int LIST = JLandXMLErrorDlg::MESSAGE_LIST;
constexpr DialogTemplate OWNER{1, L"下の窓", 10, 10, {}};

class JLandXMLErrorDlgTest : public RunTest
{
  protected:
    /// Opens the list over another window.
    void Open(const Lines& messages, const ScriptedWindowSystem::User& user)
    {
        Dialog owner(OWNER);
        windows.SetUser([&](ScriptedDialog& below) {
            windows.SetUser([&](ScriptedDialog& window) {
                EXPECT_FALSE(below.PressEscape());
                user(window);
            });
            JLandXMLErrorDlg dialog(owner);
            dialog.messages = messages;
            dialog.DoModal();
            EXPECT_FALSE(below.HasEnded());
        });
        owner.DoModal();
    }

    Lines Shown(const Lines& messages)
    {
        Lines entries;
        Open(messages, [&](ScriptedDialog& window) { entries = window.Entries(LIST); });
        return entries;
    }
};

TEST_F(JLandXMLErrorDlgTest, HasTheListAboveItsButton)
{
    const DialogTemplate& dialog = JLandXMLErrorDlg::TEMPLATE;
    EXPECT_EQ(dialog.number, 100);
    EXPECT_STREQ(dialog.caption, L"エラー一覧");
    EXPECT_EQ(dialog.width, 215);
    EXPECT_EQ(dialog.height, 194);
    ASSERT_EQ(dialog.controls.size(), 2U);
    const auto expect = [&](int number, ControlKind kind, const wchar_t* caption, const std::vector<int>& place) {
        const ControlTemplate* const control = FindControl(dialog, number);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->kind, kind);
        EXPECT_STREQ(control->caption, caption);
        EXPECT_EQ((std::vector<int>{control->x, control->y, control->width, control->height}), place);
    };
    expect(1, ControlKind::DefaultButton, L"OK", {158, 175, 50, 14});
    expect(1062, ControlKind::SortedListBox, L"", {5, 5, 205, 165});
}

TEST_F(JLandXMLErrorDlgTest, AddsTheMessagesInTheirOrderAndShowsThemInTextOrder)
{
    const Lines messages = {L"注記が入力されていません。", L"設計交通量が入力されていません。",
                            L"左右岸区分が入力されていません。", L"測地原子が入力されていません。"};
    Open(messages, [&](ScriptedDialog& window) {
        EXPECT_EQ(window.AddedEntries(LIST), messages);
        EXPECT_EQ(window.Entries(LIST), (Lines{L"左右岸区分が入力されていません。", L"設計交通量が入力されていません。",
                                               L"測地原子が入力されていません。", L"注記が入力されていません。"}));
    });
}

TEST_F(JLandXMLErrorDlgTest, TwoIdenticalMessagesAppearTwice)
{
    EXPECT_EQ(Shown({L"b", L"a", L"b"}), (Lines{L"a", L"b", L"b"}));
}

TEST_F(JLandXMLErrorDlgTest, ALongMessageStaysInOneLine)
{
    const std::wstring longMessage(400, L'長');
    EXPECT_EQ(Shown({longMessage}), Lines{longMessage});
}

TEST_F(JLandXMLErrorDlgTest, AnEmptyListIsShownToo)
{
    EXPECT_EQ(Shown({}), Lines{});
}

TEST_F(JLandXMLErrorDlgTest, ShowsTheMessagesOfAnyOrderInTheSameOrder)
{
    std::mt19937 random(5);
    Lines messages(200);
    std::generate(messages.begin(), messages.end(),
                  [&] { return std::wstring(1 + random() % 3, static_cast<wchar_t>(L'あ' + random() % 80)); });
    Lines sorted = messages;
    std::stable_sort(sorted.begin(), sorted.end(), [](const std::wstring& first, const std::wstring& second) {
        return CompareJapanese(first, second) < 0;
    });
    EXPECT_EQ(Shown(messages), sorted);
}

TEST_F(JLandXMLErrorDlgTest, IsFilledBeforeItIsRaised)
{
    bool filled = false;
    Open({L"m"}, [&](ScriptedDialog& window) {
        filled = window.EntryCount(LIST) == 1;
        EXPECT_EQ(windows.Records().back(), L"raise エラー一覧");
    });
    EXPECT_TRUE(filled);
}

TEST_F(JLandXMLErrorDlgTest, EndsOnItsButtonOnEnterAndOnEscape)
{
    bool (*const ends[])(ScriptedDialog&) = {
        [](ScriptedDialog& window) { return window.Click(ACCEPT_COMMAND); },
        [](ScriptedDialog& window) { return window.PressEnter(); },
        [](ScriptedDialog& window) { return window.PressEscape(); },
    };
    for (const auto end : ends)
    {
        Open({L"m"}, [&](ScriptedDialog& window) {
            EXPECT_TRUE(end(window));
            EXPECT_TRUE(window.HasEnded());
        });
    }
}

TEST_F(JLandXMLErrorDlgTest, OwnsACopyOfTheMessages)
{
    Dialog owner(OWNER);
    JLandXMLErrorDlg dialog(owner);
    Lines messages = {L"m"};
    dialog.messages = messages;
    messages.clear();
    windows.SetUser([](ScriptedDialog& window) { EXPECT_EQ(window.Entries(LIST), Lines{L"m"}); });
    dialog.DoModal();
}

} // namespace
} // namespace jlandxml
