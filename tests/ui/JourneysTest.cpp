// Journeys of a person at the module's real windows, the same for every platform. The host lives as long as the
// program.

#include "base/Files.h"
#include "base/Text.h"
#include "cli/SettingsUser.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "sidefiles/LoadSideFiles.h"
#include "support/TemporaryFolder.h"
#include "ui/RealWindows.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;

const std::wstring SOURCE = JLANDXML_SOURCE_DIR;

std::wstring Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return WideFromUtf8(value != nullptr ? value : "");
}

/// The one host; it goes before the program's end, since a toolkit doesn't outlive main.
std::unique_ptr<Host> host;

std::wstring Example(const wchar_t* name)
{
    return SOURCE + L"/examples/" + name;
}

void Call(const std::wstring& folder, const std::function<void()>& driver)
{
    host->Call(folder, CountRoutes(folder), driver);
    EXPECT_TRUE(host->IsInFront());
}

/// A path as a person at the save dialog writes it.
std::wstring Typed(std::wstring path)
{
#ifdef _WIN32
    path = ReplaceAll(path, L"/", L"\\");
    return path.starts_with(L'\\') ? L"Z:" + path : path;
#else
    return path;
#endif
}

void Act(DialogHands& dialog, const std::wstring& example)
{
    SettingsUser(dialog).Act(ReadSettings(Example(example.c_str()) + L"/settings.json"));
}

TreeItem ItemAt(const DialogHands& dialog, std::initializer_list<std::size_t> path)
{
    TreeItem item = nullptr;
    for (const std::size_t place : path)
    {
        item = dialog.TreeChildren(OBJECT_TREE, item).at(place);
    }
    return item;
}

/// Takes a picture of the window in front where the run is asked for pictures.
void Picture(const wchar_t* name)
{
    if (const std::wstring folder = Environment("JLANDXML_PICTURES"); !folder.empty())
    {
        TakePicture(folder + L"/" + name + L".png");
    }
}

TEST(Journey, NothingIsSelectedAtTheStart)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        Picture(L"main");
        EXPECT_FALSE(dialog->IsEnabled(ROAD_RADIO));
        EXPECT_FALSE(dialog->IsEnabled(MAIN_INTERVAL_EDIT));
        EXPECT_FALSE(dialog->IsShown(SURFACE_REFERENCE_LIST));
        EXPECT_FALSE(dialog->IsChecked(ROAD_RADIO));
        dialog->PressEscape();
    });
}

TEST(Journey, EveryPanelShowsWhatIsSelected)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        const std::pair<const wchar_t*, TreeItem> panels[] = {{L"route", ItemAt(*dialog, {0})},
                                                              {L"alignment", ItemAt(*dialog, {0, 0})},
                                                              {L"surface-set", ItemAt(*dialog, {1})},
                                                              {L"surface", ItemAt(*dialog, {1, 0})},
                                                              {L"intermediate-points", ItemAt(*dialog, {2, 0})},
                                                              {L"width-stakes", ItemAt(*dialog, {2, 1})}};
        for (const auto& [name, item] : panels)
        {
            dialog->ChooseTreeItem(OBJECT_TREE, item);
            Picture(name);
            const std::wstring panel = name;
            EXPECT_EQ(dialog->IsShown(ROAD_RADIO), panel == L"route" || panel == L"alignment") << Utf8FromWide(panel);
            EXPECT_EQ(dialog->IsShown(MAIN_INTERVAL_EDIT), panel == L"alignment") << Utf8FromWide(panel);
            EXPECT_EQ(dialog->IsShown(SURFACE_KIND_LIST), panel == L"surface") << Utf8FromWide(panel);
            EXPECT_EQ(dialog->IsShown(INTERMEDIATE_REFERENCE_LIST), panel == L"intermediate-points")
                << Utf8FromWide(panel);
            EXPECT_EQ(dialog->IsShown(CLOSURE_TYPE_LIST), panel == L"width-stakes") << Utf8FromWide(panel);
        }
        dialog->PressEscape();
    });
}

struct Typing
{
    int control;
    const wchar_t* typed;
    const wchar_t* left;
};

TEST(Journey, TheFilterRefusesCharacterByCharacter)
{
    const Typing typings[] = {
        {NORMAL_CROWN_EDIT, L"1.5.", L"1.5"},         {NORMAL_CROWN_EDIT, L"01", L"0"},
        {NORMAL_CROWN_EDIT, L"0.5", L"0.5"},          {NORMAL_CROWN_EDIT, L"-1", L"1"},
        {NORMAL_CROWN_EDIT, L"12345", L"1234"},       {NORMAL_CROWN_EDIT, L"a1b2", L"12"},
        {TRAFFIC_VOLUME_EDIT, L"1234567", L"123456"}, {TRAFFIC_VOLUME_EDIT, L"12 3", L"123"},
        {TRAFFIC_VOLUME_EDIT, L".5", L"5"},
    };
    Call(Example(L"road"), [&] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0, 0}));
        for (const Typing& typing : typings)
        {
            dialog->Type(typing.control, L"");
            for (const wchar_t character : std::wstring_view(typing.typed))
            {
                dialog->TypeCharacter(typing.control, character);
            }
            EXPECT_EQ(Utf8FromWide(dialog->Text(typing.control)), Utf8FromWide(typing.left));
        }
        dialog->PressEscape();
    });
}

TEST(Journey, WhatCameWithTheInputIsLocked)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0, 0}));
        EXPECT_EQ(Utf8FromWide(dialog->Text(MAIN_INTERVAL_EDIT)), "20.0000");
        EXPECT_FALSE(dialog->CanReach(MAIN_INTERVAL_EDIT));
        EXPECT_FALSE(dialog->Type(MAIN_INTERVAL_EDIT, L"10"));
        EXPECT_TRUE(dialog->CanReach(NORMAL_CROWN_EDIT));
        dialog->PressEscape();
    });
}

TEST(Journey, ARoadAndARiverEnableTheirOwnControls)
{
    Call(Example(L"river"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0}));
        EXPECT_TRUE(dialog->IsChecked(RIVER_RADIO));
        EXPECT_TRUE(dialog->CanReach(RIVER_SIDE_LIST));
        EXPECT_FALSE(dialog->CanReach(TRAFFIC_VOLUME_EDIT));
        dialog->Click(ROAD_RADIO);
        EXPECT_FALSE(dialog->IsChecked(RIVER_RADIO));
        EXPECT_FALSE(dialog->CanReach(RIVER_SIDE_LIST));
        EXPECT_TRUE(dialog->CanReach(TRAFFIC_VOLUME_EDIT));
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {1}));
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0}));
        EXPECT_TRUE(dialog->IsChecked(ROAD_RADIO));
        dialog->PressEscape();
    });
}

TEST(Journey, TheTabKeyReachesEveryEnabledControlInReadingOrder)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        EXPECT_TRUE(WaitForFocus(PROJECT_NAME_EDIT));
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0, 0}));
        for (const int control :
             {PROJECT_PHASE_LIST, APPLICATION_CRITERION_LIST, SOFTWARE_NAME_EDIT, SOFTWARE_VERSION_EDIT,
              HORIZONTAL_DATUM_EDIT, VERTICAL_DATUM_LIST, HORIZONTAL_COORDINATE_SYSTEM_EDIT, OUTPUT_BUTTON,
              CANCEL_COMMAND, OBJECT_TREE, ROAD_RADIO, ROAD_CLASSIFICATION_LIST, TRAFFIC_VOLUME_EDIT, SUB_INTERVAL_EDIT,
              NORMAL_CROWN_EDIT, LANES_LIST, SUPERELEVATION_DEFINITION_LIST, PROJECT_NAME_EDIT})
        {
            PressKey(Key::Tab);
            EXPECT_TRUE(WaitForFocus(control)) << control;
        }
        dialog->PressEscape();
    });
}

TEST(Journey, TheArrowKeysMoveThroughTheTreeAndTheRadios)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0}));
        for (const int control : {PROJECT_PHASE_LIST, APPLICATION_CRITERION_LIST, SOFTWARE_NAME_EDIT,
                                  SOFTWARE_VERSION_EDIT, HORIZONTAL_DATUM_EDIT, VERTICAL_DATUM_LIST,
                                  HORIZONTAL_COORDINATE_SYSTEM_EDIT, OUTPUT_BUTTON, CANCEL_COMMAND, OBJECT_TREE})
        {
            PressKey(Key::Tab);
            ASSERT_TRUE(WaitForFocus(control)) << control;
        }
        PressKey(Key::Down);
        // The first control of an alignment that can be typed into.
        for (const int control : {ROAD_RADIO, ROAD_CLASSIFICATION_LIST, TRAFFIC_VOLUME_EDIT, SUB_INTERVAL_EDIT})
        {
            PressKey(Key::Tab);
            EXPECT_TRUE(WaitForFocus(control)) << control;
        }
        dialog->PressEscape();
    });
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {0}));
        for (const int control :
             {PROJECT_PHASE_LIST, APPLICATION_CRITERION_LIST, SOFTWARE_NAME_EDIT, SOFTWARE_VERSION_EDIT,
              HORIZONTAL_DATUM_EDIT, VERTICAL_DATUM_LIST, HORIZONTAL_COORDINATE_SYSTEM_EDIT, OUTPUT_BUTTON,
              CANCEL_COMMAND, OBJECT_TREE, ROAD_RADIO})
        {
            PressKey(Key::Tab);
            ASSERT_TRUE(WaitForFocus(control)) << control;
        }
        PressKey(Key::Down);
        EXPECT_TRUE(WaitForFocus(RIVER_RADIO));
        EXPECT_TRUE(dialog->IsChecked(RIVER_RADIO));
        EXPECT_TRUE(dialog->CanReach(RIVER_SIDE_LIST));
        dialog->PressEscape();
    });
}

/// Waits until an edit holds a text; false if it doesn't come to it.
bool WaitForText(const DialogHands& dialog, int control, const std::wstring& text)
{
    for (int pause = 0; pause < 500 && dialog.Text(control) != text; ++pause)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return dialog.Text(control) == text;
}

TEST(Journey, TheFirstKeyGoesInFrontOfTheProjectName)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        ASSERT_TRUE(WaitForFocus(PROJECT_NAME_EDIT));
        const std::wstring name = dialog->Text(PROJECT_NAME_EDIT);
        EXPECT_FALSE(name.empty());
        PressCharacter(L'x');
        PressCharacter(L'y');
        EXPECT_TRUE(WaitForText(*dialog, PROJECT_NAME_EDIT, L"xy" + name))
            << Utf8FromWide(dialog->Text(PROJECT_NAME_EDIT));
        dialog->PressEscape();
    });
}

TEST(Journey, AClickFarDownInTheTreeShowsWhatIsClicked)
{
    std::string routes;
    for (int route = 0; route < 60; ++route)
    {
        routes += "<Alignments name='route " + std::to_string(route) + "'/>";
    }
    const TestFolder folder;
    folder.Write(L"Landxml_temp.xml",
                 "<LandXML><CoordinateSystem desc='Japan Geodetic Datum 2011, Plane Rectangular Coordinate System "
                 "No. 9'/>" +
                     routes + "</LandXML>");
    Call(folder.Name(), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        EXPECT_TRUE(dialog->ClickTreeItem(OBJECT_TREE, ItemAt(*dialog, {45})));
        dialog->Type(TRAFFIC_VOLUME_EDIT, L"45");
        EXPECT_TRUE(dialog->ClickTreeItem(OBJECT_TREE, ItemAt(*dialog, {0})));
        EXPECT_EQ(dialog->Text(TRAFFIC_VOLUME_EDIT), L"");
        dialog->ChooseTreeItem(OBJECT_TREE, ItemAt(*dialog, {45}));
        EXPECT_EQ(dialog->Text(TRAFFIC_VOLUME_EDIT), L"45");
        dialog->PressEscape();
    });
}

TEST(Journey, SortedListsFollowJapaneseWhateverTheUsersLocale)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        using Texts = std::vector<std::wstring>;
        EXPECT_EQ(dialog->Entries(CLOSURE_TYPE_LIST), (Texts{L"開放型", L"閉合型"}));
        EXPECT_EQ(dialog->Entries(RIVER_SIDE_LIST), (Texts{L"右岸", L"左岸"}));
        EXPECT_EQ(dialog->Entries(RIVER_CLASSIFICATION_LIST), (Texts{L"1級", L"2級", L"準用", L"普通"}));
        dialog->PressEscape();
    });
}

TEST(Journey, FindingsAreListedAndTheDialogGoesOn)
{
    Call(Example(L"two-routes"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        dialog->Click(OUTPUT_BUTTON);
        const auto errors = WaitForDialog(KnownDialog::Errors);
        Picture(L"errors");
        EXPECT_FALSE(dialog->CanReach(PROJECT_NAME_EDIT));
        std::vector<std::string> texts;
        for (const std::wstring& text : errors->Entries(JLandXMLErrorDlg::MESSAGE_LIST))
        {
            texts.push_back(Utf8FromWide(text));
        }
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "道路の規格・等級が入力されていません。"), 2);
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "プロジェクト名称が入力されていません。"), 1);
        errors->PressEnter();
        WaitUntilGone(KnownDialog::Errors);
        const auto again = WaitForDialog(KnownDialog::Main);
        EXPECT_TRUE(again->CanReach(PROJECT_NAME_EDIT));
        again->Click(CANCEL_COMMAND);
    });
}

TEST(Journey, AfterACancelledSaveDialogTheOutputIsGivenAgain)
{
    const TestFolder folder;
    const std::wstring out = folder.Name(L"out.xml");
    Call(Example(L"road"), [&] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        Act(*dialog, L"road");
        dialog->Click(OUTPUT_BUTTON);
        EXPECT_EQ(WaitForWindow(), Seen::SaveDialog);
        Picture(L"save");
        AnswerSaveDialog(std::nullopt);
        const auto again = WaitForDialog(KnownDialog::Main);
        EXPECT_FALSE(PathExists(out));
        again->Click(OUTPUT_BUTTON);
        AnswerSaveDialog(Typed(out));
    });
    EXPECT_EQ(ReadWholeFile(out), ReadWholeFile(SOURCE + L"/tests/e2e/road/expected.xml"));
}

TEST(Journey, AnExistingFileIsReplacedOnlyWhenAskedFor)
{
    const TestFolder folder;
    const std::wstring out = folder.Write(L"out.xml", "former");
    Call(Example(L"road"), [&] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        Act(*dialog, L"road");
        dialog->Click(OUTPUT_BUTTON);
        AnswerSaveDialog(Typed(out));
        AnswerQuestion(false);
        EXPECT_EQ(ReadWholeFile(out), "former");
        AnswerSaveDialog(Typed(out));
        AnswerQuestion(true);
    });
    EXPECT_EQ(ReadWholeFile(out), ReadWholeFile(SOURCE + L"/tests/e2e/road/expected.xml"));
}

TEST(Journey, ANameWithoutAnExtensionGetsTheDefaultOne)
{
    const TestFolder folder;
    Call(Example(L"road"), [&] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        Act(*dialog, L"road");
        dialog->Click(OUTPUT_BUTTON);
        AnswerSaveDialog(Typed(folder.Name(L"out")));
    });
    EXPECT_EQ(ReadWholeFile(folder.Name(L"out.xml")), ReadWholeFile(SOURCE + L"/tests/e2e/road/expected.xml"));
}

TEST(Journey, ANameWithADotGetsTheDefaultExtensionWhereTheSystemGivesIt)
{
    const TestFolder folder;
    Call(Example(L"road"), [&] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        Act(*dialog, L"road");
        dialog->Click(OUTPUT_BUTTON);
        AnswerSaveDialog(Typed(folder.Name(L"out.v2")));
    });
    // A Windows that knows no programs for ".v2" takes it for a part of the name.
    const bool given = PathExists(folder.Name(L"out.v2.xml"));
    EXPECT_NE(PathExists(folder.Name(L"out.v2")), given);
    EXPECT_EQ(ReadWholeFile(folder.Name(given ? L"out.v2.xml" : L"out.v2")),
              ReadWholeFile(SOURCE + L"/tests/e2e/road/expected.xml"));
}

TEST(Journey, EnterPressesTheButtonThatHasTheFocus)
{
    Call(Example(L"road"), [] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        for (const int control : {PROJECT_PHASE_LIST, APPLICATION_CRITERION_LIST, SOFTWARE_NAME_EDIT,
                                  SOFTWARE_VERSION_EDIT, HORIZONTAL_DATUM_EDIT, VERTICAL_DATUM_LIST,
                                  HORIZONTAL_COORDINATE_SYSTEM_EDIT, OUTPUT_BUTTON, CANCEL_COMMAND})
        {
            PressKey(Key::Tab);
            ASSERT_TRUE(WaitForFocus(control)) << control;
        }
        PressKey(Key::Enter);
        WaitUntilGone(KnownDialog::Main);
        EXPECT_EQ(WaitForWindow(), Seen::Nothing);
    });
}

TEST(Journey, ALongTextGoesThroughWhole)
{
    const TestFolder folder;
    const std::string name(40000, 'n');
    folder.Write(
        L"Landxml_temp.xml",
        "<LandXML><CoordinateSystem desc='Japan Geodetic Datum 2011, Plane Rectangular Coordinate System No. 9'/>"
        "<Alignments name='a'><Alignment name='b' desc='プロジェクト名=" +
            name + "'/></Alignments></LandXML>");
    Call(folder.Name(), [&] {
        const auto dialog = WaitForDialog(KnownDialog::Main);
        EXPECT_EQ(dialog->Text(PROJECT_NAME_EDIT).size(), name.size());
        dialog->PressEscape();
    });
}

TEST(Journey, TwoCallsInOneProcessAreApart)
{
    const TestFolder folder;
    for (const wchar_t* const example : {L"river", L"road"})
    {
        const std::wstring out = folder.Name(example);
        Call(Example(example), [&] {
            const auto dialog = WaitForDialog(KnownDialog::Main);
            Act(*dialog, example);
            dialog->PressEnter();
            AnswerSaveDialog(Typed(out + L".xml"));
        });
        EXPECT_EQ(ReadWholeFile(out + L".xml"), ReadWholeFile(SOURCE + L"/tests/e2e/" + example + L"/expected.xml"));
    }
}

TEST(Journey, AMalformedSideFileIsToldInAMessage)
{
    Call(SOURCE + L"/tests/e2e/malformed-side-file/work", [] {
        EXPECT_EQ(WaitForWindow(), Seen::Message);
        Picture(L"message");
        EXPECT_EQ(Utf8FromWide(AnswerMessage()),
                  "General exception occurred: %s, 引数が正しくありません: 2列目（intermediatePts_temp_3.csv 1行目）");
    });
}

} // namespace
} // namespace jlandxml

int main(int count, char** values)
{
    testing::InitGoogleTest(&count, values);
    jlandxml::host = std::make_unique<jlandxml::Host>(jlandxml::Environment("JLANDXML_MODULE"));
    const int status = RUN_ALL_TESTS();
    jlandxml::host.reset();
    return status;
}
