#include "cli/Settings.h"

#include "base/Files.h"
#include "base/Text.h"
#include "support/RowName.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace jlandxml
{
namespace
{

constexpr std::size_t VERY_DEEP = 100'000;
constexpr std::size_t VERY_MANY = 100'000;

/// The keys that may be used at each level, as a message lists them.
constexpr const char* PROJECT_KEYS = "projectName、projectPhase、applicationCriterion、verticalDatum、routes、surfaceSe"
                                     "ts、intermediatePoints、widthStakes";
constexpr const char* ROUTE_KEYS =
    "designGmType、roadClassification、trafficVolume、riverClassification、side、alignments";
constexpr const char* ALIGNMENT_KEYS = "mainInterval、subInterval、method、normalCrown、singleLaneRoad、useSlopeList";

std::string Repeated(const std::string& text, std::size_t count)
{
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t done = 0; done < count; ++done)
    {
        repeated += text;
    }
    return repeated;
}

/// A settings file that holds one value at a path such as "routes[0].side".
std::string FileWith(const std::string& path, const std::string& value)
{
    const std::size_t point = path.find('.');
    const std::string inner = point == std::string::npos ? value : FileWith(path.substr(point + 1), value);
    const std::string step = path.substr(0, point);
    const std::size_t bracket = step.find('[');
    return bracket == std::string::npos ? R"({")" + step + R"(": )" + inner + "}"
                                        : R"({")" + step.substr(0, bracket) + R"(": [)" + inner + "]}";
}

class SettingsFile : public testing::Test
{
  protected:
    Json Read(const std::string& bytes) const { return ReadSettings(folder.Write(L"settings.json", bytes)); }

    /// What is wrong with a file; empty if nothing is. "FILE" stands for the file's name.
    std::string Error(const std::string& bytes) const
    {
        folder.Write(L"settings.json", bytes);
        return ErrorOf(L"settings.json");
    }

    std::string ErrorOf(const std::wstring& file) const
    {
        const std::string name = Utf8FromWide(folder.Name(file));
        try
        {
            ReadSettings(folder.Name(file));
        }
        catch (const SettingsError& error)
        {
            const std::string text = error.what();
            return text.starts_with(name) ? "FILE" + text.substr(name.size()) : text;
        }
        return {};
    }

    TestFolder folder;
};

// Types

/// A key and what its value is to be.
struct TypedKey
{
    const char* path;
    const char* wanted;
};

constexpr const char* TEXT = "文字列";
constexpr const char* FLAG = "trueまたはfalse";
constexpr const char* LIST = "配列またはオブジェクト";
constexpr const char* ENTRY = "オブジェクトまたはnull";

constexpr TypedKey TYPED_KEYS[] = {
    {"projectName", TEXT},
    {"projectPhase", TEXT},
    {"applicationCriterion", TEXT},
    {"verticalDatum", TEXT},
    {"routes", LIST},
    {"routes[0]", ENTRY},
    {"routes[0].designGmType", TEXT},
    {"routes[0].roadClassification", TEXT},
    {"routes[0].trafficVolume", TEXT},
    {"routes[0].riverClassification", TEXT},
    {"routes[0].side", TEXT},
    {"routes[0].alignments", LIST},
    {"routes[0].alignments[0]", ENTRY},
    {"routes[0].alignments[0].mainInterval", TEXT},
    {"routes[0].alignments[0].subInterval", TEXT},
    {"routes[0].alignments[0].method", TEXT},
    {"routes[0].alignments[0].normalCrown", TEXT},
    {"routes[0].alignments[0].singleLaneRoad", FLAG},
    {"routes[0].alignments[0].useSlopeList", FLAG},
    {"surfaceSets", LIST},
    {"surfaceSets[0]", ENTRY},
    {"surfaceSets[0].surfaces", LIST},
    {"surfaceSets[0].surfaces[0]", ENTRY},
    {"surfaceSets[0].surfaces[0].alignmentRefs", TEXT},
    {"surfaceSets[0].surfaces[0].kind", TEXT},
    {"intermediatePoints", LIST},
    {"intermediatePoints[0]", ENTRY},
    {"intermediatePoints[0].alignmentRefs", TEXT},
    {"widthStakes", LIST},
    {"widthStakes[0]", ENTRY},
    {"widthStakes[0].alignmentRefs", TEXT},
    {"widthStakes[0].type", TEXT},
    {"widthStakes[0].desc", TEXT},
};

/// A value of each type, the type's name in messages, and as what it may stand.
struct TypedValue
{
    const char* json;
    const char* name;
    const char* standsAs;
};

constexpr TypedValue TYPED_VALUES[] = {
    {"{}", "オブジェクト", ENTRY}, {"[]", "配列", LIST}, {R"("20")", "文字列", TEXT}, {"true", "真偽値", FLAG},
    {"false", "真偽値", FLAG},     {"20", "数値", ""},   {"-1", "数値", ""},          {"2.5e300", "数値", ""},
};

class SettingsTypes : public SettingsFile, public testing::WithParamInterface<TypedKey>
{};

TEST_P(SettingsTypes, AnyOtherThanTheOneWantedIsAnError)
{
    const TypedKey& key = GetParam();
    for (const TypedValue& value : TYPED_VALUES)
    {
        const bool isByName = key.wanted == std::string(LIST) && value.json == std::string("{}");
        const std::string expected =
            isByName || value.standsAs == std::string(key.wanted)
                ? ""
                : key.path + std::string(": ") + value.name + "は指定できません。" + key.wanted + "で指定してください";
        EXPECT_EQ(Error(FileWith(key.path, value.json)), expected) << value.json;
    }
}

TEST_P(SettingsTypes, AnyMayBeNull)
{
    EXPECT_EQ(Error(FileWith(GetParam().path, "null")), "");
}

INSTANTIATE_TEST_SUITE_P(Cli, SettingsTypes, testing::ValuesIn(TYPED_KEYS),
                         [](const auto& row) { return RowName(WideFromUtf8(row.param.path)); });

TEST_F(SettingsFile, IsAnObject)
{
    EXPECT_EQ(Error("{}"), "");
    for (const TypedValue& value : TYPED_VALUES)
    {
        if (value.json != std::string("{}"))
        {
            EXPECT_EQ(Error(value.json),
                      std::string("FILE: ") + value.name + "は指定できません。オブジェクトで指定してください");
        }
    }
}

TEST_F(SettingsFile, PathOfAnErrorCountsTheEntriesInFrontOfIt)
{
    EXPECT_EQ(Error(R"({"routes": [null, {"alignments": [{}, null, {"method": 1}]}]})"),
              "routes[1].alignments[2].method: 数値は指定できません。文字列で指定してください");
}

TEST_F(SettingsFile, NumberOutOfRangeIsAnErrorWithItsPath)
{
    constexpr const char* TOO_LARGE = ": 数値が大きすぎるため読み込めません。文字列か、範囲内の数値で指定してください";
    EXPECT_EQ(Error("1e999"), TOO_LARGE);
    EXPECT_EQ(Error(R"({"projectName": 1e999})"), std::string("projectName") + TOO_LARGE);
    EXPECT_EQ(
        Error(
            R"({"projectName": "x", "routes": [{}, null, {"side": "左岸", "alignments": [{}, {"subInterval": 1e999}]}]})"),
        std::string("routes[2].alignments[1].subInterval") + TOO_LARGE);
    EXPECT_EQ(Error(R"({"_a": [[], [1, [2]], {"b": {}}, -1e999]})"), std::string("_a[3]") + TOO_LARGE);
}

TEST_F(SettingsFile, HoldsNoNulInAText)
{
    EXPECT_EQ(Error(R"({"projectName": "国道\u0000"})"), "projectName: 文字U+0000は使えません。取り除いてください");
}

// Keys

struct UnknownKey
{
    const char* path;
    const char* known;
};

constexpr UnknownKey UNKNOWN_KEYS[] = {
    {"name", PROJECT_KEYS},
    {"ProjectName", PROJECT_KEYS},
    {"mainInterval", PROJECT_KEYS},
    {"softwareName", PROJECT_KEYS},
    {" projectName", PROJECT_KEYS},
    {"", PROJECT_KEYS},
    {"routes[0].name", ROUTE_KEYS},
    {"routes[0].classification", ROUTE_KEYS},
    {"routes[0].routes", ROUTE_KEYS},
    {"routes[0].alignments[0].trafficVolume", ALIGNMENT_KEYS},
    {"routes[0].alignments[0].mainIntervall", ALIGNMENT_KEYS},
    {"surfaceSets[0].kind", "surfaces"},
    {"surfaceSets[0].surfaces[0].desc", "alignmentRefs、kind"},
    {"intermediatePoints[0].desc", "alignmentRefs"},
    {"widthStakes[0].kind", "alignmentRefs、type、desc"},
};

class SettingsUnknownKeys : public SettingsFile, public testing::WithParamInterface<UnknownKey>
{};

TEST_P(SettingsUnknownKeys, AreErrorsThatListTheKnownOnes)
{
    EXPECT_EQ(Error(FileWith(GetParam().path, "null")),
              GetParam().path + std::string(": 不明なキーです（使えるキー: ") + GetParam().known + "）");
}

INSTANTIATE_TEST_SUITE_P(Cli, SettingsUnknownKeys, testing::ValuesIn(UNKNOWN_KEYS), [](const auto& row) {
    return std::to_string(row.index) + RowName(WideFromUtf8(row.param.path));
});

TEST_F(SettingsFile, MayHoldCommentsOfAnyTypeAtEveryLevel)
{
    for (const char* const level : {"", "routes[0].", "routes[0].alignments[0].", "surfaceSets[0].",
                                    "surfaceSets[0].surfaces[0].", "intermediatePoints[0].", "widthStakes[0]."})
    {
        for (const TypedValue& value : TYPED_VALUES)
        {
            EXPECT_EQ(Error(FileWith(level + std::string("_"), value.json)), "") << level;
            EXPECT_EQ(Error(FileWith(level + std::string("_projectName"), value.json)), "") << level;
        }
    }
}

TEST_F(SettingsFile, KeyThatOccursTwiceInAnObjectIsAnError)
{
    constexpr const char* TWICE = ": 同じキーが2回あります。どちらかを取り除いてください";
    EXPECT_EQ(Error(R"({"projectName": "前", "projectName": "後"})"), std::string("projectName") + TWICE);
    EXPECT_EQ(Error(R"({"routes": [{"side": "左岸"}, {"alignments": [], "side": "右岸", "alignments": []}]})"),
              std::string("routes[1].alignments") + TWICE);
    EXPECT_EQ(Error(R"({"_a": 1, "_a": 2})"), std::string("_a") + TWICE);
    EXPECT_EQ(Error(R"({"routes": [{"side": "左岸"}, {"side": "右岸"}], "_side": {"side": {"side": 1}}})"), "");
}

TEST_F(SettingsFile, EveryWrongPlaceIsNamed)
{
    EXPECT_EQ(Error(R"({"projectName": 1, "routes": [{"side": true, "sides": "", "alignments": [{"method": []}]}],
                        "projectName": "a", "widthStakes": 2})"),
              "projectName: 同じキーが2回あります。どちらかを取り除いてください\n"
              "routes[0].alignments[0].method: 配列は指定できません。文字列で指定してください\n"
              "routes[0].side: 真偽値は指定できません。文字列で指定してください\n" +
                  std::string("routes[0].sides: 不明なキーです（使えるキー: ") + ROUTE_KEYS +
                  "）\n"
                  "widthStakes: 数値は指定できません。配列またはオブジェクトで指定してください");
}

TEST_F(SettingsFile, MayNameObjectsInsteadOfCountingThem)
{
    EXPECT_EQ(Error(R"({"routes": {"国道": {"alignments": {"*": {"method": "IP法"}, "支線": null}}, "_a": 1}})"), "");
    EXPECT_EQ(Error(R"({"routes": {"国道": {"alignments": {"*": {"method": 1}, "支線": []}}}})"),
              "routes.国道.alignments.*.method: 数値は指定できません。文字列で指定してください\n"
              "routes.国道.alignments.支線: 配列は指定できません。オブジェクトまたはnullで指定してください");
}

// Several files

/// Settings, a patch, and what comes of them: the examples of RFC 7396 that settings can hold.
struct MergeCase
{
    const char* name;
    const char* settings;
    const char* patch;
    const char* merged;
};

constexpr MergeCase MERGES[] = {
    {"AValueTakesTheOthersPlace", R"({"projectName": "b"})", R"({"projectName": "c"})", R"({"projectName": "c"})"},
    {"AnotherKeyIsAdded", R"({"projectName": "b"})", R"({"side": "c"})", R"({"projectName": "b", "side": "c"})"},
    {"NullTakesAKeyAway", R"({"projectName": "b", "side": "c"})", R"({"projectName": null})", R"({"side": "c"})"},
    {"NullForNothingIsNothing", R"({"side": "c"})", R"({"projectName": null})", R"({"side": "c"})"},
    {"AnArrayTakesTheOthersPlace", R"({"routes": [{"side": "a"}, {}]})", R"({"routes": [null, {"side": "b"}]})",
     R"({"routes": [null, {"side": "b"}]})"},
    {"AnObjectTakesAnArraysPlace", R"({"routes": [{"side": "a"}]})",
     R"({"routes": {"*": {"side": "b", "trafficVolume": null}}})", R"({"routes": {"*": {"side": "b"}}})"},
    {"ObjectsAreMergedKeyByKey", R"({"routes": {"*": {"side": "a", "trafficVolume": "1"}, "国道": {}}})",
     R"({"routes": {"*": {"side": null}, "国道": {"side": "b"}, "県道": {"side": "c"}}})",
     R"({"routes": {"*": {"trafficVolume": "1"}, "国道": {"side": "b"}, "県道": {"side": "c"}}})"},
    {"AnEmptyPatchLeavesNullWhereItStands", R"({"routes": {"国道": null, "*": {}}})", R"({})",
     R"({"routes": {"国道": null, "*": {}}})"},
    {"OverEmptySettingsNullStaysToo", R"({})", R"({"routes": {"国道": null, "*": {}}, "projectName": null})",
     R"({"routes": {"国道": null, "*": {}}, "projectName": null})"},
    {"CommentsAreLeftOut", R"({})",
     R"({"_a": {"b": 1}, "routes": [{"_name": "x", "side": "a"}], "surfaceSets": {"_c": 1}})",
     R"({"routes": [{"side": "a"}], "surfaceSets": {}})"},
    {"CommentsOfAFurtherFileAreLeftOutToo", R"({"routes": {"国道": {}}})",
     R"({"_a": {"b": 1}, "routes": {"_b": {"side": "a"}, "国道": {"_c": 1, "side": "b"}}})",
     R"({"routes": {"国道": {"side": "b"}}})"},
};

class SettingsMerge : public testing::TestWithParam<MergeCase>
{};

TEST_P(SettingsMerge, FollowsTheRulesOfMergePatches)
{
    Json settings = Json::parse(GetParam().settings);
    MergeSettings(settings, Json::parse(GetParam().patch));
    EXPECT_EQ(settings, Json::parse(GetParam().merged));
}

INSTANTIATE_TEST_SUITE_P(Cli, SettingsMerge, testing::ValuesIn(MERGES),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SettingsFile, HandedOnIsWhatWasReadWithoutComments)
{
    const std::string deep = Repeated("[", VERY_DEEP) + Repeated("]", VERY_DEEP);
    const Json settings =
        Read(R"({"projectName": "国\n道", "_": )" + deep + R"(, "routes": [null, {"_a": 1, "side": null}]})");
    EXPECT_EQ(Json::parse(SettingsText(settings)),
              Json::parse(R"({"projectName": "国\n道", "routes": [null, {"side": null}]})"));
}

#ifndef _WIN32
TEST_F(SettingsFile, MayBeAPipe)
{
    const std::wstring pipe = folder.Name(L"pipe");
    ASSERT_EQ(::mkfifo(Utf8FromWide(pipe).c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(Utf8FromWide(pipe)) << R"({"projectName": "国道"})"; });
    const Json read = ReadSettings(pipe);
    writer.join();
    EXPECT_EQ(read, Json({{"projectName", "国道"}}));
}
#endif

TEST_F(SettingsFile, ErrorStaysOneLineWhateverTheKeyIs)
{
    EXPECT_EQ(Error(R"({"a\nb\u0001": 1})"), std::string("a b : 不明なキーです（使えるキー: ") + PROJECT_KEYS + "）");
}

// The file

struct NoJson
{
    const char* name;
    std::string bytes;
    int line;
};

const NoJson NO_JSON[] = {
    {"Nothing", "", 1},
    {"BlanksAlone", " \n\n", 3},
    {"AWord", "no json", 1},
    {"AnOpenObject", "{\n  \"projectName\": \"a\"\n", 3},
    {"AnOpenText", "{\n  \"projectName\": \"a\n}", 2},
    {"AMissingComma", "{\n  \"projectName\": \"a\"\n  \"projectPhase\": \"詳細\"\n}", 3},
    {"ATrailingComma", "{\n  \"projectName\": \"a\",\n}", 3},
    {"SingleQuotes", "{'projectName': 'a'}", 1},
    {"ASlashComment", "{\n\n// \n}", 3},
    {"ASecondObject", "{}\n{}", 2},
    {"BrokenUtf8", "{\"projectName\": \"\x93\xB9\"}", 1},
    {"ALoneSurrogate", "{\"projectName\": \"\\uD800\"}", 1},
    {"Utf16", std::string("\xFF\xFE{\0}\0", 6), 1},
    {"NotANumber", "{\"_\": NaN}", 1},
    {"ATraceLineAlone", "Row Value: 本線", 1},
    {"ABrokenTextBehindTraceLines", "Row Value: 本線\nRow Value: {}\n{\n!", 4},
    {"ATraceLineBehindTheSettings", "{}\nRow Value: 本線\n", 2},
    {"OpenBracketsWithoutEnd", Repeated("[", VERY_DEEP), 1},
};

class SettingsNoJson : public SettingsFile, public testing::WithParamInterface<NoJson>
{};

TEST_P(SettingsNoJson, IsAnErrorThatNamesTheLine)
{
    EXPECT_EQ(Error(GetParam().bytes), "FILE: JSON（UTF-8）として読み込めません（" + std::to_string(GetParam().line) +
                                           "行目）。書式を確認してください");
}

INSTANTIATE_TEST_SUITE_P(Cli, SettingsNoJson, testing::ValuesIn(NO_JSON),
                         [](const auto& one) { return std::string(one.param.name); });

/// The settings file that a text shows as its first block of JSON.
std::string ShownExample(const std::string& text)
{
    constexpr std::string_view FENCE = "\n```json\n";
    const std::size_t begin = text.find(FENCE) + FENCE.size();
    return text.substr(begin, text.find("\n```\n", begin) - begin);
}

TEST_F(SettingsFile, ExamplesOfTheReadmesHoldEveryKey)
{
    for (const wchar_t* const readme : {L"/README.md", L"/README.ja.md"})
    {
        const std::string example = ShownExample(ReadWholeFile(std::wstring(JLANDXML_SOURCE_DIR) + readme).value());
        EXPECT_EQ(Error(example), "");
        for (const TypedKey& key : TYPED_KEYS)
        {
            const std::string name = std::string(key.path).substr(std::string(key.path).find_last_of('.') + 1);
            if (name.find('[') == std::string::npos)
            {
                EXPECT_NE(example.find('"' + name + '"'), std::string::npos) << name;
            }
        }
    }
}

TEST_F(SettingsFile, MayBeginWithAByteOrderMark)
{
    EXPECT_EQ(Read("\xEF\xBB\xBF{\"projectName\": \"国道\"}"), Json({{"projectName", "国道"}}));
}

TEST_F(SettingsFile, MayBeginWithTheTraceLinesOfTheRunThatPrintedIt)
{
    EXPECT_EQ(Read("Row Value: 本線\nRow Value: \n{\"projectName\": \"国道\"}\n"), Json({{"projectName", "国道"}}));
}

TEST_F(SettingsFile, ThatCannotBeReadIsAnError)
{
    const std::string expected = "FILE: 設定ファイルを読み込めません。ファイルの場所とアクセス権を確認してください";
    EXPECT_EQ(ErrorOf(L"missing.json"), expected);
    EXPECT_EQ(ErrorOf(L""), expected);
}

TEST_F(SettingsFile, MayBeNestedDeeply)
{
    const std::string deep = Repeated("[", VERY_DEEP) + Repeated("]", VERY_DEEP);
    EXPECT_EQ(Error(R"({"_": )" + deep + "}"), "");
    EXPECT_EQ(Error(deep), "FILE: 配列は指定できません。オブジェクトで指定してください");
    EXPECT_EQ(Error(R"({"routes": )" + deep + "}"),
              "routes[0]: 配列は指定できません。オブジェクトまたはnullで指定してください");
    EXPECT_EQ(Error(R"({"projectName": )" + Repeated(R"({"a":)", VERY_DEEP) + "1" + Repeated("}", VERY_DEEP) + "}"),
              "projectName: オブジェクトは指定できません。文字列で指定してください");
}

TEST_F(SettingsFile, MayHoldVeryManyEntriesAndKeys)
{
    EXPECT_EQ(Read(R"({"routes": [{})" + Repeated(", null", VERY_MANY) + "]}")["routes"].size(), VERY_MANY + 1);
    std::string comments = "{";
    for (std::size_t number = 0; number < VERY_MANY; ++number)
    {
        comments += "\"_" + std::to_string(number) + "\": 0,";
    }
    EXPECT_EQ(Read(comments + R"("projectName": "a"})").size(), VERY_MANY + 1);
    const std::string longText = Repeated("国", 1'000'000);
    EXPECT_EQ(Read(R"({"projectName": ")" + longText + R"("})")["projectName"], longText);
}

} // namespace
} // namespace jlandxml
