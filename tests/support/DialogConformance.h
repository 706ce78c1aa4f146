#pragma once

#include "base/Collation.h"
#include "support/DialogLayer.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// What every window layer keeps to, whatever toolkit stands behind it. One source file of a test program includes this
// file and instantiates DialogConformance with the factory of its layer.

namespace jlandxml
{

class DialogConformance : public testing::TestWithParam<std::unique_ptr<DialogLayer> (*)()>
{
  protected:
    using Lines = RecordedEvents::Lines;

    /// Opens a window, lets the user work it, and returns when it has ended.
    DialogResult Run(const DialogTemplate& dialog, DialogLayer::User user)
    {
        layer->SetUser(std::move(user));
        const std::unique_ptr<DialogWindow> window = layer->Windows().MakeDialogWindow(dialog, events, nullptr);
        events.window = window.get();
        return window->RunModal();
    }

    DialogResult Run(DialogLayer::User user) { return Run(conformance::TEMPLATE, std::move(user)); }

    static Lines Entries(const DialogWindow& window, int list)
    {
        Lines texts;
        for (int entry = 0; entry < window.EntryCount(list); ++entry)
        {
            texts.push_back(window.EntryText(list, entry));
        }
        return texts;
    }

    const std::unique_ptr<DialogLayer> layer = GetParam()();
    RecordedEvents events;
};

// Opening and ending

TEST_P(DialogConformance, TheOpeningEventComesBeforeThePerson)
{
    Run([&](DialogWindow&, DialogHands&) { EXPECT_EQ(events.lines, Lines{L"init"}); });
    EXPECT_EQ(events.lines, Lines{L"init"});
}

TEST_P(DialogConformance, AWindowThatIsLeftOpenIsCancelled)
{
    EXPECT_EQ(Run([](DialogWindow&, DialogHands&) {}), DialogResult::Cancelled);
}

TEST_P(DialogConformance, AWindowEndsAsItsHandlerSays)
{
    for (const DialogResult result : {DialogResult::Accepted, DialogResult::Cancelled})
    {
        events.onClick = [&](DialogWindow& window, int) { window.End(result); };
        EXPECT_EQ(Run([](DialogWindow&, DialogHands& hands) { hands.Click(conformance::CLOSE); }), result);
    }
}

TEST_P(DialogConformance, AnEndedWindowIsOutOfReach)
{
    events.onClick = [](DialogWindow& window, int) { window.End(DialogResult::Accepted); };
    Run([](DialogWindow&, DialogHands& hands) {
        EXPECT_TRUE(hands.Click(conformance::CLOSE));
        EXPECT_FALSE(hands.Click(conformance::CLOSE));
        EXPECT_FALSE(hands.TypeCharacter(conformance::EDIT, L'a'));
        EXPECT_FALSE(hands.PressEscape());
    });
    EXPECT_EQ(events.lines, (Lines{L"init", L"click 3"}));
}

TEST_P(DialogConformance, AWindowCanEndWhileItOpens)
{
    events.onInit = [](DialogWindow& window) { window.End(DialogResult::Accepted); };
    bool shown = false;
    EXPECT_EQ(Run([&](DialogWindow&, DialogHands&) { shown = true; }), DialogResult::Accepted);
    EXPECT_FALSE(shown);
}

TEST_P(DialogConformance, WhatAHandlerThrowsLeavesTheWindow)
{
    events.onClick = [](DialogWindow&, int) { throw std::runtime_error("of a click"); };
    EXPECT_THROW(Run([](DialogWindow&, DialogHands& hands) { hands.Click(conformance::CLOSE); }), std::runtime_error);
    events.onInit = [](DialogWindow&) { throw std::invalid_argument("of the opening"); };
    EXPECT_THROW(Run([](DialogWindow&, DialogHands&) {}), std::invalid_argument);
}

TEST_P(DialogConformance, EnterPressesTheDefaultButtonAndEscapeCancels)
{
    Run([&](DialogWindow& window, DialogHands& hands) {
        events.Taken();
        EXPECT_TRUE(hands.PressEnter());
        EXPECT_TRUE(hands.PressEscape());
        EXPECT_EQ(events.Taken(), (Lines{L"click 1", L"click 2"}));
        window.Enable(ACCEPT_COMMAND, false);
        hands.PressEnter();
        EXPECT_EQ(events.Taken(), Lines{});
    });
}

TEST_P(DialogConformance, EscapeNeedsNoCancelButton)
{
    Run(conformance::SMALL_TEMPLATE, [&](DialogWindow&, DialogHands& hands) { hands.PressEscape(); });
    EXPECT_EQ(events.lines, (Lines{L"init", L"click 2"}));
}

// Reaching controls

TEST_P(DialogConformance, AllControlsAreShownAndEnabledAtTheStart)
{
    Run([](DialogWindow&, DialogHands& hands) {
        for (const ControlTemplate& control : conformance::CONTROLS)
        {
            EXPECT_TRUE(hands.IsEnabled(control.number)) << control.number;
            EXPECT_TRUE(hands.IsShown(control.number)) << control.number;
        }
    });
}

TEST_P(DialogConformance, EachControlIsEnabledAndShownByItself)
{
    Run([](DialogWindow& window, DialogHands& hands) {
        for (const ControlTemplate& changed : conformance::CONTROLS)
        {
            window.Enable(changed.number, false);
            window.Show(changed.number, false);
            for (const ControlTemplate& one : conformance::CONTROLS)
            {
                EXPECT_EQ(hands.IsEnabled(one.number), one.number != changed.number) << one.number;
                EXPECT_EQ(hands.IsShown(one.number), one.number != changed.number) << one.number;
            }
            window.Enable(changed.number, true);
            EXPECT_FALSE(hands.IsShown(changed.number));
            window.Show(changed.number, true);
        }
    });
}

TEST_P(DialogConformance, WhatIsDisabledOrHiddenIsOutOfReach)
{
    Run([&](DialogWindow& window, DialogHands& hands) {
        using namespace conformance;
        window.AddEntry(LIST, L"a");
        const TreeItem item = window.AddTreeItem(TREE, nullptr, L"i", nullptr);
        events.Taken();
        const auto refuse = [&](void (DialogWindow::*change)(int, bool)) {
            for (const int control : {EDIT, LIST, FIRST, TREE, CLOSE})
            {
                (window.*change)(control, false);
            }
            EXPECT_FALSE(hands.Click(CLOSE));
            EXPECT_FALSE(hands.Click(FIRST));
            EXPECT_FALSE(hands.TypeCharacter(EDIT, L'a'));
            EXPECT_FALSE(hands.ChooseEntry(LIST, 0));
            EXPECT_FALSE(hands.ChooseTreeItem(TREE, item));
            for (const int control : {EDIT, LIST, FIRST, TREE, CLOSE})
            {
                (window.*change)(control, true);
            }
        };
        refuse(&DialogWindow::Enable);
        refuse(&DialogWindow::Show);
        EXPECT_EQ(events.Taken(), Lines{});
        EXPECT_EQ(window.Text(EDIT), L"");
        EXPECT_EQ(window.SelectedEntry(LIST), DialogWindow::NO_ENTRY);
        EXPECT_FALSE(window.IsChecked(FIRST));
    });
}

TEST_P(DialogConformance, OnlyWhatCanBeClickedIsClicked)
{
    Run([&](DialogWindow&, DialogHands& hands) {
        using namespace conformance;
        events.Taken();
        EXPECT_TRUE(hands.Click(CLOSE));
        EXPECT_TRUE(hands.Click(THIRD));
        EXPECT_EQ(events.Taken(), (Lines{L"click 3", L"click 18"}));
        EXPECT_FALSE(hands.Click(LABEL));
        EXPECT_FALSE(hands.Click(GROUP));
        EXPECT_FALSE(hands.Click(999));
        EXPECT_EQ(events.Taken(), Lines{});
    });
}

TEST_P(DialogConformance, AControlThatTheDialogLacksIsAFaultOfTheLogic)
{
    Run([&](DialogWindow& window, DialogHands& hands) {
        using namespace conformance;
        constexpr int NONE = 999;
        const TreeItem item = window.AddTreeItem(TREE, nullptr, L"i", nullptr);
        events.Taken();
        const std::pair<const char*, std::function<void()>> operations[] = {
            {"Enable", [&] { window.Enable(NONE, true); }},
            {"Show", [&] { window.Show(NONE, true); }},
            {"SetText", [&] { window.SetText(NONE, L"a"); }},
            {"Text", [&] { window.Text(NONE); }},
            {"EntryCount", [&] { window.EntryCount(NONE); }},
            {"EntryText", [&] { window.EntryText(NONE, 0); }},
            {"EntryData", [&] { window.EntryData(NONE, 0); }},
            {"SelectedEntry", [&] { window.SelectedEntry(NONE); }},
            {"SelectEntry", [&] { window.SelectEntry(NONE, DialogWindow::NO_ENTRY); }},
            {"ClearEntries", [&] { window.ClearEntries(NONE); }},
            {"AddEntry", [&] { window.AddEntry(NONE, L"a"); }},
            {"AddEntries", [&] { window.AddEntries(NONE, {}); }},
            {"FindEntry", [&] { window.FindEntry(NONE, L"a"); }},
            {"IsChecked", [&] { window.IsChecked(NONE); }},
            {"SetChecked", [&] { window.SetChecked(NONE, true); }},
            {"AddTreeItem", [&] { window.AddTreeItem(NONE, nullptr, L"a", nullptr); }},
            {"AddTreeItem below another", [&] { window.AddTreeItem(NONE, item, L"a", nullptr); }},
            {"TreeItemData", [&] { window.TreeItemData(NONE, item); }},
            {"TreeParent", [&] { window.TreeParent(NONE, item); }},
            {"FirstTreeItem", [&] { window.FirstTreeItem(NONE); }},
            {"ExpandTreeItem", [&] { window.ExpandTreeItem(NONE, item); }},
            {"EnsureTreeItemVisible", [&] { window.EnsureTreeItemVisible(NONE, item); }},
        };
        for (const auto& [name, operation] : operations)
        {
            EXPECT_THROW(operation(), std::out_of_range) << name;
        }
        EXPECT_FALSE(hands.CanReach(NONE));
        EXPECT_FALSE(hands.Click(NONE));
        EXPECT_FALSE(hands.Type(NONE, L"a"));
        EXPECT_FALSE(hands.TypeCharacter(NONE, L'a'));
        EXPECT_FALSE(hands.ChooseEntry(NONE, 0));
        EXPECT_FALSE(hands.ChooseTreeItem(NONE, item));
        EXPECT_FALSE(hands.ClickTreeItem(NONE, item));
        EXPECT_EQ(events.Taken(), Lines{});
        EXPECT_EQ(hands.TreeChildren(TREE, nullptr), std::vector<TreeItem>{item});
        EXPECT_EQ(hands.TreeChildren(TREE, item), std::vector<TreeItem>{});
    });
}

// Edits

TEST_P(DialogConformance, SettingATextIsAChangeEvenToWhatItWas)
{
    Run([&](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        events.Taken();
        window.SetText(EDIT, L"");
        window.SetText(EDIT, L"主測点");
        window.SetText(EDIT, L"主測点");
        window.SetText(READ_ONLY, L"r");
        EXPECT_EQ(events.Taken(), (Lines{L"text 10 ", L"text 10 主測点", L"text 10 主測点", L"text 12 r"}));
        EXPECT_EQ(window.Text(EDIT), L"主測点");
        EXPECT_EQ(window.Text(OTHER_EDIT), L"");
    });
}

TEST_P(DialogConformance, SettingTheTextOfADisabledOrHiddenEditIsAChange)
{
    Run([&](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        window.Enable(EDIT, false);
        window.Show(OTHER_EDIT, false);
        events.Taken();
        window.SetText(EDIT, L"a");
        window.SetText(OTHER_EDIT, L"b");
        EXPECT_EQ(events.Taken(), (Lines{L"text 10 a", L"text 11 b"}));
    });
}

TEST_P(DialogConformance, EachCharacterTypedIsAChange)
{
    Run([&](DialogWindow& window, DialogHands& hands) {
        using namespace conformance;
        events.Taken();
        for (const wchar_t character : {L'1', L'.', L'河'})
        {
            EXPECT_TRUE(hands.TypeCharacter(EDIT, character));
        }
        EXPECT_EQ(events.Taken(), (Lines{L"text 10 1", L"text 10 1.", L"text 10 1.河"}));
        EXPECT_FALSE(hands.TypeCharacter(READ_ONLY, L'1'));
        EXPECT_FALSE(hands.TypeCharacter(LIST, L'1'));
        EXPECT_EQ(window.Text(READ_ONLY), L"");
    });
}

TEST_P(DialogConformance, ATextPutBackByAHandlerIsAChangeWithinTheChange)
{
    events.onText = [](DialogWindow& window, int control) {
        if (window.Text(control) == L"1.5.")
        {
            window.SetText(control, L"1.5");
        }
    };
    Run([&](DialogWindow& window, DialogHands& hands) {
        using namespace conformance;
        window.SetText(EDIT, L"1.5.");
        EXPECT_EQ(window.Text(EDIT), L"1.5");
        events.Taken();
        hands.TypeCharacter(EDIT, L'.');
        EXPECT_EQ(window.Text(EDIT), L"1.5");
        hands.TypeCharacter(EDIT, L'7');
        EXPECT_EQ(events.Taken(), (Lines{L"text 10 1.5.", L"text 10 1.5", L"text 10 1.57"}));
    });
}

// Lists

TEST_P(DialogConformance, AListKeepsItsEntriesInTheOrderOfAddingWithTheirData)
{
    Run([&](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        events.Taken();
        EXPECT_EQ(window.AddEntry(LIST, L"b", L"1"), 0);
        EXPECT_EQ(window.AddEntry(LIST, L"a"), 1);
        EXPECT_EQ(window.AddEntry(LIST, L"b", L"2"), 2);
        EXPECT_EQ(Entries(window, LIST), (Lines{L"b", L"a", L"b"}));
        EXPECT_STREQ(window.EntryData(LIST, 0), L"1");
        EXPECT_EQ(window.EntryData(LIST, 1), nullptr);
        EXPECT_STREQ(window.EntryData(LIST, 2), L"2");
        EXPECT_EQ(window.SelectedEntry(LIST), DialogWindow::NO_ENTRY);
        EXPECT_EQ(window.Text(LIST), L"");
        EXPECT_EQ(events.Taken(), Lines{});
    });
}

TEST_P(DialogConformance, SelectingAnEntryIsNoEvent)
{
    Run([&](DialogWindow& window, DialogHands& hands) {
        using namespace conformance;
        for (const int list : {LIST, SORTED})
        {
            window.AddEntry(list, L"a");
            window.AddEntry(list, L"b");
            events.Taken();
            window.SelectEntry(list, 1);
            EXPECT_EQ(window.SelectedEntry(list), 1);
            EXPECT_EQ(window.Text(list), L"b");
            EXPECT_TRUE(hands.ChooseEntry(list, 0));
            EXPECT_EQ(window.Text(list), L"a");
            EXPECT_FALSE(hands.ChooseEntry(list, 2));
            EXPECT_EQ(window.SelectedEntry(list), 0);
            window.SelectEntry(list, DialogWindow::NO_ENTRY);
            EXPECT_EQ(window.SelectedEntry(list), DialogWindow::NO_ENTRY);
            EXPECT_EQ(window.Text(list), L"");
            window.SelectEntry(list, 2);
            EXPECT_EQ(window.SelectedEntry(list), DialogWindow::NO_ENTRY);
            EXPECT_EQ(events.Taken(), Lines{});
        }
    });
}

TEST_P(DialogConformance, ALineOfAListBoxIsSelected)
{
    Run([&](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        window.AddEntry(BOX, L"a");
        window.AddEntry(BOX, L"b");
        window.SelectEntry(BOX, 1);
        EXPECT_EQ(window.SelectedEntry(BOX), 1);
        window.SelectEntry(BOX, DialogWindow::NO_ENTRY);
        EXPECT_EQ(window.SelectedEntry(BOX), DialogWindow::NO_ENTRY);
    });
}

TEST_P(DialogConformance, AClearedListHasNoEntryAndNoSelection)
{
    Run([](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        for (const int list : {LIST, SORTED})
        {
            window.AddEntry(list, L"a");
            window.SelectEntry(list, 0);
            window.ClearEntries(list);
            EXPECT_EQ(window.EntryCount(list), 0);
            EXPECT_EQ(window.SelectedEntry(list), DialogWindow::NO_ENTRY);
            EXPECT_EQ(window.Text(list), L"");
            window.AddEntry(list, L"b");
            EXPECT_EQ(window.SelectedEntry(list), DialogWindow::NO_ENTRY);
        }
    });
}

TEST_P(DialogConformance, AnEntryIsFoundByItsExactTextAlone)
{
    Run([](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        for (const wchar_t* const text : {L"abc", L"ABC", L"ab", L"ａｂ", L"か", L"カ", L"が", L"ab"})
        {
            window.AddEntry(LIST, text);
        }
        EXPECT_EQ(window.FindEntry(LIST, L"abc"), 0);
        EXPECT_EQ(window.FindEntry(LIST, L"ABC"), 1);
        EXPECT_EQ(window.FindEntry(LIST, L"ab"), 2);
        EXPECT_EQ(window.FindEntry(LIST, L"ａｂ"), 3);
        EXPECT_EQ(window.FindEntry(LIST, L"カ"), 5);
        EXPECT_EQ(window.FindEntry(LIST, L"が"), 6);
        for (const wchar_t* const text : {L"a", L"Ab", L"ab ", L"", L"abcd"})
        {
            EXPECT_EQ(window.FindEntry(LIST, text), DialogWindow::NO_ENTRY) << testing::PrintToString(text);
        }
    });
}

TEST_P(DialogConformance, ASortedListStandsInJapaneseOrder)
{
    Run([](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        for (const int list : {SORTED, BOX})
        {
            EXPECT_EQ(window.AddEntry(list, L"閉合型", L"closed"), 0);
            EXPECT_EQ(window.AddEntry(list, L"開放型", L"open"), 0);
            EXPECT_EQ(window.AddEntry(list, L"左岸"), 1);
            EXPECT_EQ(window.AddEntry(list, L"右岸"), 0);
            EXPECT_EQ(window.AddEntry(list, L"2級"), 0);
            EXPECT_EQ(window.AddEntry(list, L"1級"), 0);
            EXPECT_EQ(Entries(window, list), (Lines{L"1級", L"2級", L"右岸", L"開放型", L"左岸", L"閉合型"}));
        }
        EXPECT_STREQ(window.EntryData(SORTED, window.FindEntry(SORTED, L"開放型")), L"open");
    });
}

TEST_P(DialogConformance, EqualTextsOfASortedListKeepTheOrderOfAdding)
{
    Run([](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        const wchar_t* const data[] = {L"first", L"second", L"third", L"fourth"};
        for (const wchar_t* const one : data)
        {
            window.AddEntry(SORTED, L"z");
            window.AddEntry(SORTED, L"m", one);
            window.AddEntry(SORTED, L"a");
        }
        for (int place = 0; place < 4; ++place)
        {
            EXPECT_EQ(window.EntryText(SORTED, 4 + place), L"m");
            EXPECT_STREQ(window.EntryData(SORTED, 4 + place), data[place]);
        }
        EXPECT_EQ(window.FindEntry(SORTED, L"m"), 4);
    });
}

TEST_P(DialogConformance, ASortedListIsAStableSortOfWhatWasAdded)
{
    Run([](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        constexpr std::wstring_view LETTERS = L"aAbBあアいイか1右左";
        std::mt19937 random(4);
        for (int round = 0; round < 20; ++round)
        {
            Lines added;
            window.ClearEntries(SORTED);
            for (int count = 0; count < 30; ++count)
            {
                std::wstring text;
                for (std::size_t length = random() % 4; length > 0; --length)
                {
                    text += LETTERS[random() % LETTERS.size()];
                }
                window.AddEntry(SORTED, text);
                added.push_back(text);
            }
            std::stable_sort(added.begin(), added.end(), [](const std::wstring& first, const std::wstring& second) {
                return CompareJapanese(first, second) < 0;
            });
            ASSERT_EQ(Entries(window, SORTED), added);
        }
    });
}

TEST_P(DialogConformance, EntriesAddedTogetherStandAsIfAddedOneByOne)
{
    Run([](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        constexpr std::wstring_view LETTERS = L"aAbBあアいイか1右左・ー亜";
        std::mt19937 random(9);
        const auto texts = [&] {
            Lines made(20);
            for (std::wstring& text : made)
            {
                for (std::size_t length = random() % 4; length > 0; --length)
                {
                    text += LETTERS[random() % LETTERS.size()];
                }
            }
            return made;
        };
        for (const int list : {LIST, SORTED, BOX})
        {
            for (int round = 0; round < 3; ++round)
            {
                const Lines batches[] = {texts(), texts()};
                window.ClearEntries(list);
                for (const Lines& batch : batches)
                {
                    for (const std::wstring& text : batch)
                    {
                        window.AddEntry(list, text);
                    }
                }
                const Lines oneByOne = Entries(window, list);
                window.ClearEntries(list);
                for (const Lines& batch : batches)
                {
                    window.AddEntries(list, batch);
                }
                ASSERT_EQ(Entries(window, list), oneByOne) << list;
                EXPECT_EQ(window.EntryData(list, 0), nullptr);
                EXPECT_EQ(window.SelectedEntry(list), DialogWindow::NO_ENTRY);
            }
        }
    });
}

// Radios

TEST_P(DialogConformance, AClickedRadioExcludesTheOthersOfItsGroup)
{
    Run([](DialogWindow& window, DialogHands& hands) {
        using namespace conformance;
        const auto checked = [&] {
            std::vector<int> radios;
            for (const int radio : {FIRST, SECOND, THIRD, FIRST_OF_OTHERS, SECOND_OF_OTHERS})
            {
                if (window.IsChecked(radio))
                {
                    radios.push_back(radio);
                }
            }
            return radios;
        };
        using Radios = std::vector<int>;
        EXPECT_EQ(checked(), Radios{});
        hands.Click(SECOND_OF_OTHERS);
        hands.Click(THIRD);
        EXPECT_EQ(checked(), (Radios{THIRD, SECOND_OF_OTHERS}));
        hands.Click(FIRST);
        EXPECT_EQ(checked(), (Radios{FIRST, SECOND_OF_OTHERS}));
        hands.Click(SECOND);
        EXPECT_EQ(checked(), (Radios{SECOND, SECOND_OF_OTHERS}));
        hands.Click(SECOND);
        EXPECT_EQ(checked(), (Radios{SECOND, SECOND_OF_OTHERS}));
        hands.Click(FIRST_OF_OTHERS);
        EXPECT_EQ(checked(), (Radios{SECOND, FIRST_OF_OTHERS}));
    });
}

TEST_P(DialogConformance, ARadioIsCheckedWhenItsClickArrives)
{
    bool checked = false;
    bool formerChecked = true;
    events.onClick = [&](DialogWindow& window, int radio) {
        checked = window.IsChecked(radio);
        formerChecked = window.IsChecked(conformance::FIRST);
    };
    Run([](DialogWindow& window, DialogHands& hands) {
        window.SetChecked(conformance::FIRST, true);
        hands.Click(conformance::SECOND);
    });
    EXPECT_TRUE(checked);
    EXPECT_FALSE(formerChecked);
}

TEST_P(DialogConformance, CheckingARadioIsNoEventAndExcludesNoOther)
{
    Run([&](DialogWindow& window, DialogHands&) {
        using namespace conformance;
        events.Taken();
        window.SetChecked(FIRST, true);
        window.SetChecked(SECOND, true);
        EXPECT_TRUE(window.IsChecked(FIRST));
        EXPECT_TRUE(window.IsChecked(SECOND));
        window.SetChecked(FIRST, false);
        EXPECT_FALSE(window.IsChecked(FIRST));
        EXPECT_TRUE(window.IsChecked(SECOND));
        window.SetChecked(SECOND, false);
        EXPECT_FALSE(window.IsChecked(SECOND));
        EXPECT_EQ(events.Taken(), Lines{});
    });
}

// Trees

/// A tree of two roots with children and the data of each item.
struct ConformanceTree
{
    explicit ConformanceTree(DialogWindow& window)
    {
        const auto add = [&](TreeItem parent, wchar_t* data) {
            return window.AddTreeItem(conformance::TREE, parent, std::wstring(L"item ") + data, data);
        };
        first = add(nullptr, names[0]);
        second = add(nullptr, names[1]);
        child = add(first, names[2]);
        otherChild = add(first, names[3]);
        childOfSecond = add(second, names[4]);
    }

    wchar_t names[5][4] = {L"1", L"2", L"1-1", L"1-2", L"2-1"};
    TreeItem first;
    TreeItem second;
    TreeItem child;
    TreeItem otherChild;
    TreeItem childOfSecond;
};

TEST_P(DialogConformance, ATreeHoldsItsItemsUnderTheirParentsInTheOrderOfAdding)
{
    Run([](DialogWindow& window, DialogHands& hands) {
        using conformance::TREE;
        using Items = std::vector<TreeItem>;
        EXPECT_EQ(window.FirstTreeItem(TREE), nullptr);
        EXPECT_EQ(hands.TreeChildren(TREE, nullptr), Items{});
        ConformanceTree tree(window);
        EXPECT_EQ(window.FirstTreeItem(TREE), tree.first);
        EXPECT_EQ(hands.TreeChildren(TREE, nullptr), (Items{tree.first, tree.second}));
        EXPECT_EQ(hands.TreeChildren(TREE, tree.first), (Items{tree.child, tree.otherChild}));
        EXPECT_EQ(hands.TreeChildren(TREE, tree.second), Items{tree.childOfSecond});
        EXPECT_EQ(window.TreeParent(TREE, tree.first), nullptr);
        EXPECT_EQ(window.TreeParent(TREE, tree.otherChild), tree.first);
        EXPECT_EQ(window.TreeItemData(TREE, tree.otherChild), tree.names[3]);
        EXPECT_EQ(window.TreeItemData(TREE, window.AddTreeItem(TREE, nullptr, L"", nullptr)), nullptr);
        EXPECT_EQ(hands.TreeText(TREE, tree.childOfSecond), L"item 2-1");
    });
}

TEST_P(DialogConformance, ATreeIsExpandedItemByItem)
{
    Run([](DialogWindow& window, DialogHands& hands) {
        using conformance::TREE;
        ConformanceTree tree(window);
        EXPECT_FALSE(hands.IsExpanded(TREE, tree.first));
        window.ExpandTreeItem(TREE, tree.first);
        EXPECT_TRUE(hands.IsExpanded(TREE, tree.first));
        EXPECT_FALSE(hands.IsExpanded(TREE, tree.second));
    });
}

TEST_P(DialogConformance, NothingIsSelectedInATreeBeforeAPersonDoes)
{
    events.onInit = [](DialogWindow& window) {
        const TreeItem item = window.AddTreeItem(conformance::TREE, nullptr, L"a", nullptr);
        window.ExpandTreeItem(conformance::TREE, item);
        window.EnsureTreeItemVisible(conformance::TREE, item);
        window.Raise();
    };
    Run([&](DialogWindow&, DialogHands&) { EXPECT_EQ(events.lines, Lines{L"init"}); });
}

TEST_P(DialogConformance, ASelectionIsReportedBeforeTheCallReturns)
{
    Run([&](DialogWindow& window, DialogHands& hands) {
        using conformance::TREE;
        ConformanceTree tree(window);
        window.ExpandTreeItem(TREE, tree.first);
        window.ExpandTreeItem(TREE, tree.second);
        events.Taken();
        EXPECT_TRUE(hands.ChooseTreeItem(TREE, tree.child));
        EXPECT_EQ(events.Taken(), Lines{L"tree 21 1-1"});
        EXPECT_TRUE(hands.ChooseTreeItem(TREE, tree.child));
        EXPECT_EQ(events.Taken(), Lines{});
        EXPECT_TRUE(hands.ChooseTreeItem(TREE, tree.second));
        EXPECT_TRUE(hands.ChooseTreeItem(TREE, tree.child));
        EXPECT_EQ(events.Taken(), (Lines{L"tree 21 2", L"tree 21 1-1"}));
    });
}

TEST_P(DialogConformance, AFirstClickIntoATreeSelectsWhatIsClickedAlone)
{
    std::vector<std::wstring> names;
    for (int name = 0; name < 60; ++name)
    {
        names.push_back(std::to_wstring(name));
    }
    for (const std::size_t clicked : {std::size_t{3}, std::size_t{45}})
    {
        Run([&](DialogWindow& window, DialogHands& hands) {
            using conformance::TREE;
            std::vector<TreeItem> items;
            for (std::wstring& name : names)
            {
                items.push_back(window.AddTreeItem(TREE, nullptr, L"item " + name, name.data()));
            }
            window.EnsureTreeItemVisible(TREE, items.front());
            events.Taken();
            EXPECT_TRUE(hands.ClickTreeItem(TREE, items[clicked]));
            EXPECT_EQ(events.Taken(), Lines{L"tree 21 " + names[clicked]});
            EXPECT_TRUE(hands.ClickTreeItem(TREE, items[clicked]));
            EXPECT_EQ(events.Taken(), Lines{});
            EXPECT_TRUE(hands.ClickTreeItem(TREE, items[clicked + 1]));
            EXPECT_EQ(events.Taken(), Lines{L"tree 21 " + names[clicked + 1]});
        });
    }
}

// A window over another

TEST_P(DialogConformance, AWindowUnderAnotherIsOutOfReachUntilThatEnds)
{
    RecordedEvents eventsAbove;
    DialogHands* handsBelow = nullptr;
    const auto openAnother = [&](DialogWindow& below) {
        const std::unique_ptr<DialogWindow> above =
            layer->Windows().MakeDialogWindow(conformance::SMALL_TEMPLATE, eventsAbove, &below);
        eventsAbove.window = above.get();
        EXPECT_EQ(above->RunModal(), DialogResult::Accepted);
    };
    eventsAbove.onClick = [](DialogWindow& window, int) { window.End(DialogResult::Accepted); };
    events.onClick = [&](DialogWindow& window, int control) {
        if (control == conformance::CLOSE)
        {
            openAnother(window);
        }
    };
    Run([&](DialogWindow& window, DialogHands& hands) {
        if (window.Template().number == conformance::SMALL_TEMPLATE.number)
        {
            EXPECT_FALSE(handsBelow->Click(conformance::FIRST));
            EXPECT_FALSE(handsBelow->TypeCharacter(conformance::EDIT, L'a'));
            EXPECT_FALSE(handsBelow->PressEnter());
            EXPECT_FALSE(handsBelow->PressEscape());
            // The logic of the window below can still work.
            events.window->SetText(conformance::EDIT, L"s");
            EXPECT_TRUE(hands.PressEnter());
            return;
        }
        handsBelow = &hands;
        hands.Click(conformance::CLOSE);
        EXPECT_TRUE(hands.Click(conformance::FIRST));
        hands.Click(conformance::CLOSE);
    });
    EXPECT_EQ(events.lines, (Lines{L"init", L"click 3", L"text 10 s", L"click 16", L"click 3", L"text 10 s"}));
    EXPECT_EQ(eventsAbove.lines, (Lines{L"init", L"click 1", L"init", L"click 1"}));
}

} // namespace jlandxml
