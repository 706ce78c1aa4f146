#include "dialog/DisplayXmlTables.h"

#include "support/RowName.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace jlandxml
{
namespace
{

using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

Pairs PairsOf(int index)
{
    Pairs pairs;
    for (const DisplayXmlDataPair& pair : GetDisplayXmlTables().GetVocabulary(index))
    {
        pairs.emplace_back(pair.display, pair.xml);
    }
    return pairs;
}

Pairs Alike(const std::vector<std::wstring>& words)
{
    Pairs pairs;
    for (const std::wstring& word : words)
    {
        pairs.emplace_back(word, word);
    }
    return pairs;
}

Pairs Zones()
{
    const std::vector<std::wstring> numerals = {L"I",    L"II",  L"III",  L"IV",    L"V",   L"VI",   L"VII",
                                                L"VIII", L"IX",  L"X",    L"XI",    L"XII", L"XIII", L"XIV",
                                                L"XV",   L"XVI", L"XVII", L"XVIII", L"XIX"};
    Pairs pairs;
    for (std::size_t zone = 1; zone <= numerals.size(); ++zone)
    {
        pairs.emplace_back(std::to_wstring(zone) + L"：第" + numerals[zone - 1] + L"系",
                           std::to_wstring(zone) + L"(X,Y)");
    }
    return pairs;
}

struct VocabularyCase
{
    int index;
    Pairs pairs;
};

class Vocabularies : public testing::TestWithParam<VocabularyCase>
{};

TEST_P(Vocabularies, HoldTheirPairsInOrder)
{
    EXPECT_EQ(PairsOf(GetParam().index), GetParam().pairs);
}

TEST_P(Vocabularies, AreLookedUpInBothDirections)
{
    const Vocabulary vocabulary = GetDisplayXmlTables().GetVocabulary(GetParam().index);
    for (const auto& [display, xml] : GetParam().pairs)
    {
        EXPECT_EQ(FindXml(vocabulary, display), xml);
        if (display != L"A.P（吉野川）")
        {
            EXPECT_EQ(FindDisplay(vocabulary, xml), display);
        }
    }
    EXPECT_EQ(FindXml(vocabulary, L"no such entry"), L"");
    EXPECT_EQ(FindDisplay(vocabulary, L""), L"");
}

INSTANTIATE_TEST_SUITE_P(
    DisplayXmlTables, Vocabularies,
    testing::Values(
        VocabularyCase{0, Alike({L"概略", L"予備", L"詳細", L"施工"})},
        VocabularyCase{
            1, {{L"1.5", L"MlitLandXmlVer.1.5"}, {L"1.6", L"MlitLandXmlVer.1.6"}, {L"1.7", L"MlitLandXmlVer.1.7"}}},
        VocabularyCase{2,
                       {{L"日本測地系2000", L"JGD2000"},
                        {L"日本測地系2011", L"JGD2011"},
                        {L"日本測地系2024", L"JGD2024"},
                        {L"日本測地系", L"TD"}}},
        VocabularyCase{3,
                       {{L"T.P（東京湾中等潮位）", L"T.P"},
                        {L"K.P（北上川）", L"K.P"},
                        {L"S.P（鳴瀬川）", L"S.P"},
                        {L"Y.P（利根川）", L"Y.P"},
                        {L"A.P（荒川・中川・多摩川）", L"A.P"},
                        {L"O.P（淀川）", L"O.P"},
                        {L"A.P（吉野川）", L"A.P"},
                        {L"T.P.W（渡川）", L"T.P.W"},
                        {L"B.S.L（琵琶湖）", L"B.S.L"}}},
        VocabularyCase{4, Zones()},
        VocabularyCase{5, Alike({L"第1種第1級", L"第1種第2級", L"第1種第3級", L"第1種第4級", L"第2種第1級",
                                 L"第2種第2級", L"第3種第1級", L"第3種第2級", L"第3種第3級", L"第3種第4級",
                                 L"第3種第5級", L"第4種第1級", L"第4種第2級", L"第4種第3級", L"第4種第4級"})},
        VocabularyCase{6, Alike({L"1級", L"2級", L"準用", L"普通"})}, VocabularyCase{7, Alike({L"右岸", L"左岸"})},
        VocabularyCase{8, Alike({L"IP法", L"要素法"})},
        VocabularyCase{9, {{L"一車線道路", L"true"}, {L"多車線道路", L"false"}}},
        VocabularyCase{10, {{L"片勾配すりつけ", L"false"}, {L"任意片勾配", L"true"}}},
        VocabularyCase{11,
                       {{L"現況地形", L"ExistingGround"},
                        {L"道路面・計画堤防面", L"FinishedGrade"},
                        {L"余盛堤防面", L"ExtraFill"},
                        {L"路床面", L"SubBase"},
                        {L"路体面", L"SubGrade"},
                        {L"掘削面", L"Excavation"},
                        {L"地層境界面", L"SoilLayer"},
                        {L"その他", L"Other"}}},
        VocabularyCase{12, {{L"開放型", L"open"}, {L"閉合型", L"closed"}}}, VocabularyCase{13, {}},
        VocabularyCase{-1, {}}),
    [](const auto& row) { return TextName(L"At" + std::to_wstring(row.param.index)); });

struct DatumCase
{
    int position;
    const wchar_t* xml;
    const wchar_t* differTP;
    const wchar_t* display;
};

class VerticalDatum : public testing::TestWithParam<DatumCase>
{};

TEST_P(VerticalDatum, IsShownAndTakenBackWithItsDifference)
{
    const DatumCase& datum = GetParam();
    EXPECT_EQ(DifferTPOfPosition(datum.position), datum.differTP);
    EXPECT_EQ(VerticalDatumDisplay(datum.xml, datum.differTP), datum.display);
    const Vocabulary vocabulary = GetDisplayXmlTables().GetVocabulary(VocabularyIndex::VerticalDatum);
    EXPECT_EQ(vocabulary[static_cast<std::size_t>(datum.position)].xml, std::wstring_view(datum.xml));
    EXPECT_EQ(vocabulary[static_cast<std::size_t>(datum.position)].display, std::wstring_view(datum.display));
}

INSTANTIATE_TEST_SUITE_P(DisplayXmlTables, VerticalDatum,
                         testing::Values(DatumCase{0, L"T.P", L"0.0000", L"T.P（東京湾中等潮位）"},
                                         DatumCase{1, L"K.P", L"-0.8745", L"K.P（北上川）"},
                                         DatumCase{2, L"S.P", L"-0.0873", L"S.P（鳴瀬川）"},
                                         DatumCase{3, L"Y.P", L"-0.8402", L"Y.P（利根川）"},
                                         DatumCase{4, L"A.P", L"-1.1344", L"A.P（荒川・中川・多摩川）"},
                                         DatumCase{5, L"O.P", L"-1.3000", L"O.P（淀川）"},
                                         DatumCase{6, L"A.P", L"-0.8333", L"A.P（吉野川）"},
                                         DatumCase{7, L"T.P.W", L"0.113", L"T.P.W（渡川）"},
                                         DatumCase{8, L"B.S.L", L"84.371", L"B.S.L（琵琶湖）"}),
                         [](const auto& row) { return TextName(row.param.xml + std::wstring(row.param.differTP)); });

TEST(DisplayXmlTables, OfTheTwoDatumsOfOneNameTheDifferenceDecides)
{
    EXPECT_EQ(VerticalDatumDisplay(L"A.P", L"-1.0000"), DEFAULT_VERTICAL_DATUM);
    EXPECT_EQ(VerticalDatumDisplay(L"A.P", L""), DEFAULT_VERTICAL_DATUM);
    EXPECT_EQ(VerticalDatumDisplay(L"K.P", L"7"), L"K.P（北上川）");
    EXPECT_EQ(VerticalDatumDisplay(L"", L""), DEFAULT_VERTICAL_DATUM);
    EXPECT_EQ(VerticalDatumDisplay(L"X.P", L"0.0000"), DEFAULT_VERTICAL_DATUM);
}

TEST(DisplayXmlTables, ADifferenceByValueIsThatOfTheFirstDatumOfTheName)
{
    EXPECT_EQ(DifferTPOfValue(L"A.P"), L"-1.1344");
    EXPECT_EQ(DifferTPOfValue(L"B.S.L"), L"84.371");
    EXPECT_EQ(DifferTPOfValue(L""), L"0.0000");
    EXPECT_EQ(DifferTPOfValue(L"a.p"), L"0.0000");
    EXPECT_EQ(DifferTPOfPosition(-1), L"0.0000");
    EXPECT_EQ(DifferTPOfPosition(9), L"0.0000");
}

struct TakenBack
{
    std::wstring xml;
    std::wstring differTP;
    bool operator==(const TakenBack&) const = default;
};

/// Shows a datum as an entry of the list, and takes back what the entry stands for.
TakenBack ShownAndTakenBack(const std::wstring& xml, const std::wstring& differTP)
{
    const Vocabulary datums = GetDisplayXmlTables().GetVocabulary(VocabularyIndex::VerticalDatum);
    const std::wstring_view display = VerticalDatumDisplay(xml, differTP);
    for (std::size_t position = 0; position < datums.size(); ++position)
    {
        if (datums[position].display == display)
        {
            return {datums[position].xml, std::wstring(DifferTPOfPosition(static_cast<int>(position)))};
        }
    }
    return {};
}

TEST(DisplayXmlTables, EachDatumWithEachDifferenceComesBackWithItsOwn)
{
    const std::vector<TakenBack> known = {{L"T.P", L"0.0000"},  {L"K.P", L"-0.8745"}, {L"S.P", L"-0.0873"},
                                          {L"Y.P", L"-0.8402"}, {L"A.P", L"-1.1344"}, {L"O.P", L"-1.3000"},
                                          {L"A.P", L"-0.8333"}, {L"T.P.W", L"0.113"}, {L"B.S.L", L"84.371"}};
    std::vector<std::wstring> differences = {L"", L"-1.0000", L"-1.13440", L" -0.8333", L"0"};
    for (const TakenBack& datum : known)
    {
        differences.push_back(datum.differTP);
    }
    for (const std::wstring& difference : differences)
    {
        for (const TakenBack& datum : known)
        {
            TakenBack expected = datum;
            if (datum.xml == L"A.P")
            {
                const bool decided = difference == L"-1.1344" || difference == L"-0.8333";
                expected = decided ? TakenBack{L"A.P", difference} : TakenBack{L"T.P", L"0.0000"};
            }
            EXPECT_EQ(ShownAndTakenBack(datum.xml, difference), expected);
        }
        for (const wchar_t* const unknown : {L"", L"X.P", L"t.p", L"T.P（東京湾中等潮位）"})
        {
            EXPECT_EQ(ShownAndTakenBack(unknown, difference), (TakenBack{L"T.P", L"0.0000"}));
        }
    }
}

TEST(DisplayXmlTables, AnAmbiguousDatumOfTheSecondDifferenceComesBackAsItWas)
{
    EXPECT_EQ(VerticalDatumDisplay(L"A.P", L"-0.8333"), L"A.P（吉野川）");
    EXPECT_EQ(ShownAndTakenBack(L"A.P", L"-0.8333"), (TakenBack{L"A.P", L"-0.8333"}));
}

TEST(DisplayXmlTables, AnAmbiguousDatumOfAnotherDifferenceComesBackAsTheDefault)
{
    EXPECT_EQ(ShownAndTakenBack(L"A.P", L"-1.0000"), (TakenBack{L"T.P", L"0.0000"}));
}

TEST(DisplayXmlTables, AnIndexPastTheLastIsNoVocabulary)
{
    EXPECT_EQ(GetDisplayXmlTables().GetVocabulary(13).data(), nullptr);
    EXPECT_NE(GetDisplayXmlTables().GetVocabulary(12).data(), nullptr);
}

TEST(DisplayXmlTables, AHorizontalDatumIsShownInWordsAndAStrangeOneNotAtAll)
{
    const Vocabulary datums = GetDisplayXmlTables().GetVocabulary(VocabularyIndex::HorizontalDatum);
    EXPECT_EQ(FindDisplay(datums, L"JGD2024"), L"日本測地系2024");
    EXPECT_EQ(FindDisplay(datums, L"JGD2030"), L"");
    EXPECT_EQ(FindDisplay(datums, L"jgd2024"), L"");
}

TEST(DisplayXmlTables, OlderVersionsOfTheStandardCannotBeChosen)
{
    const Vocabulary versions = GetDisplayXmlTables().GetVocabulary(VocabularyIndex::ApplicationCriterion);
    EXPECT_EQ(FindDisplay(versions, L"MlitLandXmlVer.1.3"), L"");
    EXPECT_EQ(FindDisplay(versions, L"MlitLandXmlVer.1.4"), L"");
}

} // namespace
} // namespace jlandxml
