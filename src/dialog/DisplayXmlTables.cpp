#include "dialog/DisplayXmlTables.h"

#include "model/OutputVersion.h"

#include <algorithm>
#include <cstddef>

namespace jlandxml
{

namespace
{

constexpr DisplayXmlDataPair PROJECT_PHASE[] = {
    {L"概略", L"概略"}, {L"予備", L"予備"}, {L"詳細", L"詳細"}, {L"施工", L"施工"}};

/// The versions of the standard that are offered.
constexpr auto APPLICATION_CRITERION = [] {
    constexpr auto OFFERED = [](const VersionOfStandard& version) { return version.offered; };
    std::array<DisplayXmlDataPair, std::count_if(OUTPUT_VERSIONS.begin(), OUTPUT_VERSIONS.end(), OFFERED)> pairs{};
    auto pair = pairs.begin();
    for (const VersionOfStandard& version : OUTPUT_VERSIONS)
    {
        if (version.offered)
        {
            *pair++ = {version.shown, version.text};
        }
    }
    return pairs;
}();

constexpr DisplayXmlDataPair HORIZONTAL_DATUM[] = {{L"日本測地系2000", L"JGD2000"},
                                                   {L"日本測地系2011", L"JGD2011"},
                                                   {L"日本測地系2024", L"JGD2024"},
                                                   {L"日本測地系", L"TD"}};

constexpr DisplayXmlDataPair VERTICAL_DATUM[] = {
    {DEFAULT_VERTICAL_DATUM, L"T.P"},
    {L"K.P（北上川）", L"K.P"},
    {L"S.P（鳴瀬川）", L"S.P"},
    {L"Y.P（利根川）", L"Y.P"},
    {L"A.P（荒川・中川・多摩川）", L"A.P"},
    {L"O.P（淀川）", L"O.P"},
    {L"A.P（吉野川）", L"A.P"},
    {L"T.P.W（渡川）", L"T.P.W"},
    {L"B.S.L（琵琶湖）", L"B.S.L"},
};

/// By position in the vocabulary above, metres.
constexpr std::array<const wchar_t*, std::size(VERTICAL_DATUM)> DIFFER_TP = {
    L"0.0000", L"-0.8745", L"-0.0873", L"-0.8402", L"-1.1344", L"-1.3000", L"-0.8333", L"0.113", L"84.371",
};

constexpr std::wstring_view AMBIGUOUS_DATUM = L"A.P";

constexpr DisplayXmlDataPair HORIZONTAL_COORDINATE_SYSTEM[] = {
    {L"1：第I系", L"1(X,Y)"},      {L"2：第II系", L"2(X,Y)"},     {L"3：第III系", L"3(X,Y)"},
    {L"4：第IV系", L"4(X,Y)"},     {L"5：第V系", L"5(X,Y)"},      {L"6：第VI系", L"6(X,Y)"},
    {L"7：第VII系", L"7(X,Y)"},    {L"8：第VIII系", L"8(X,Y)"},   {L"9：第IX系", L"9(X,Y)"},
    {L"10：第X系", L"10(X,Y)"},    {L"11：第XI系", L"11(X,Y)"},   {L"12：第XII系", L"12(X,Y)"},
    {L"13：第XIII系", L"13(X,Y)"}, {L"14：第XIV系", L"14(X,Y)"},  {L"15：第XV系", L"15(X,Y)"},
    {L"16：第XVI系", L"16(X,Y)"},  {L"17：第XVII系", L"17(X,Y)"}, {L"18：第XVIII系", L"18(X,Y)"},
    {L"19：第XIX系", L"19(X,Y)"},
};

constexpr DisplayXmlDataPair ROAD_CLASSIFICATION[] = {
    {L"第1種第1級", L"第1種第1級"}, {L"第1種第2級", L"第1種第2級"}, {L"第1種第3級", L"第1種第3級"},
    {L"第1種第4級", L"第1種第4級"}, {L"第2種第1級", L"第2種第1級"}, {L"第2種第2級", L"第2種第2級"},
    {L"第3種第1級", L"第3種第1級"}, {L"第3種第2級", L"第3種第2級"}, {L"第3種第3級", L"第3種第3級"},
    {L"第3種第4級", L"第3種第4級"}, {L"第3種第5級", L"第3種第5級"}, {L"第4種第1級", L"第4種第1級"},
    {L"第4種第2級", L"第4種第2級"}, {L"第4種第3級", L"第4種第3級"}, {L"第4種第4級", L"第4種第4級"},
};

constexpr DisplayXmlDataPair RIVER_CLASSIFICATION[] = {
    {L"1級", L"1級"}, {L"2級", L"2級"}, {L"準用", L"準用"}, {L"普通", L"普通"}};

constexpr DisplayXmlDataPair RIVER_SIDE[] = {{L"右岸", L"右岸"}, {L"左岸", L"左岸"}};

constexpr DisplayXmlDataPair CALCULATION_METHOD[] = {{L"IP法", L"IP法"}, {L"要素法", L"要素法"}};

constexpr DisplayXmlDataPair LANE_KIND[] = {{L"一車線道路", L"true"}, {L"多車線道路", L"false"}};

constexpr DisplayXmlDataPair SUPERELEVATION_DEFINITION[] = {{L"片勾配すりつけ", L"false"}, {L"任意片勾配", L"true"}};

constexpr DisplayXmlDataPair SURFACE_KIND[] = {
    {L"現況地形", L"ExistingGround"}, {L"道路面・計画堤防面", L"FinishedGrade"},
    {L"余盛堤防面", L"ExtraFill"},    {L"路床面", L"SubBase"},
    {L"路体面", L"SubGrade"},         {L"掘削面", L"Excavation"},
    {L"地層境界面", L"SoilLayer"},    {L"その他", L"Other"},
};

constexpr DisplayXmlDataPair CLOSURE_TYPE[] = {{L"開放型", L"open"}, {L"閉合型", L"closed"}};

/// By VocabularyIndex.
constexpr Vocabulary VOCABULARIES[] = {
    PROJECT_PHASE,
    APPLICATION_CRITERION,
    HORIZONTAL_DATUM,
    VERTICAL_DATUM,
    HORIZONTAL_COORDINATE_SYSTEM,
    ROAD_CLASSIFICATION,
    RIVER_CLASSIFICATION,
    RIVER_SIDE,
    CALCULATION_METHOD,
    LANE_KIND,
    SUPERELEVATION_DEFINITION,
    SURFACE_KIND,
    CLOSURE_TYPE,
};

} // namespace

Vocabulary DisplayXmlTables::GetVocabulary(int index) const
{
    return index >= 0 && index < static_cast<int>(std::size(VOCABULARIES)) ? VOCABULARIES[index] : Vocabulary();
}

const DisplayXmlTables& GetDisplayXmlTables()
{
    static const DisplayXmlTables tables;
    return tables;
}

std::wstring_view FindDisplay(Vocabulary vocabulary, std::wstring_view xml)
{
    const auto pair = std::find_if(vocabulary.begin(), vocabulary.end(),
                                   [&](const DisplayXmlDataPair& one) { return one.xml == xml; });
    return pair == vocabulary.end() ? std::wstring_view() : pair->display;
}

std::wstring_view FindXml(Vocabulary vocabulary, std::wstring_view display)
{
    const auto pair = std::find_if(vocabulary.begin(), vocabulary.end(),
                                   [&](const DisplayXmlDataPair& one) { return one.display == display; });
    return pair == vocabulary.end() ? std::wstring_view() : pair->xml;
}

std::wstring_view DifferTPOfValue(std::wstring_view verticalDatum)
{
    const auto* const pair = std::find_if(std::begin(VERTICAL_DATUM), std::end(VERTICAL_DATUM),
                                          [&](const DisplayXmlDataPair& one) { return one.xml == verticalDatum; });
    return DifferTPOfPosition(pair == std::end(VERTICAL_DATUM) ? -1 : static_cast<int>(pair - VERTICAL_DATUM));
}

std::wstring_view DifferTPOfPosition(int position)
{
    const bool known = position >= 0 && position < static_cast<int>(DIFFER_TP.size());
    return DIFFER_TP[known ? static_cast<std::size_t>(position) : 0];
}

std::wstring_view VerticalDatumDisplay(std::wstring_view verticalDatum, std::wstring_view differTP)
{
    for (std::size_t position = 0; position < std::size(VERTICAL_DATUM); ++position)
    {
        const bool decided = verticalDatum != AMBIGUOUS_DATUM || DIFFER_TP[position] == differTP;
        if (VERTICAL_DATUM[position].xml == verticalDatum && decided)
        {
            return VERTICAL_DATUM[position].display;
        }
    }
    return DEFAULT_VERTICAL_DATUM;
}

} // namespace jlandxml
