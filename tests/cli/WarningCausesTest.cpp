#include "base/Files.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "cli/CommandLine.h"
#include "support/RowName.h"
#include "support/RunFixture.h"

#include <algorithm>
#include <iterator>

namespace jlandxml
{
namespace
{

/// A work file by what stands in it.
struct Work
{
    const char* top = "";       ///< in front of the routes
    const char* alignment = ""; ///< in the one alignment
    const char* end = "";       ///< behind the routes
    const char* desc = "";      ///< more of the alignment's notes
    const char* project = "";
};

std::string WorkFileOf(const Work& work)
{
    return std::string("<LandXML><Project>") + work.project +
           "</Project><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/>" +
           work.top + "<Alignments name='R'><Alignment name='A' desc='プロジェクト名 = 名 " + work.desc + "'>" +
           work.alignment + "</Alignment></Alignments>" + work.end + "</LandXML>";
}

constexpr const char* WARNING_SETTINGS = R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1",
    "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}]})";

struct SideFileRow
{
    const wchar_t* name;
    const char* content;
};

/// The side files of a route that has nothing to warn of.
constexpr SideFileRow SOUND_FILES[] = {
    {L"intermediatePts_temp_1.csv", "線形名,A\n見出し\n"},
    {L"widthStake_temp_1.csv", "幅杭\n見出し\n"},
    {L"superElevation_temp_1.csv", "片勾配\n見出し\n"},
    {L"widening_temp_1.csv", "拡幅\n見出し\n"},
};

struct ProvokedCause
{
    const char* name;
    const char* warning; ///< without the beginning; $ stands for the work folder
    Work work{};
    SideFileRow sideFile{nullptr, nullptr}; ///< in the place of a sound one; its content null: missing
    const char* settings = WARNING_SETTINGS;
    const char* wholeFile = nullptr; ///< in the place of the work file
    const wchar_t* routes = nullptr; ///< the route count; null: as many as there are
};

constexpr const wchar_t* POINTS = L"intermediatePts_temp_1.csv";
constexpr const wchar_t* STAKES = L"widthStake_temp_1.csv";
constexpr const wchar_t* SLOPES = L"superElevation_temp_1.csv";
constexpr const wchar_t* WIDENING = L"widening_temp_1.csv";

/// Instead of a side file's content: a folder stands there.
constexpr const char* FOLDER_IN_ITS_PLACE = "/";

constexpr const char* STAKE_TYPE_SETTINGS = R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1",
    "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}], "widthStakes": [{"type": "open", "desc": "注記"}]})";

constexpr const char* STAKE_SETTINGS = R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1",
    "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}], "widthStakes": [{"desc": "注記"}]})";

constexpr const char* STAKES_15_SETTINGS = R"({"applicationCriterion": "1.5", "routes": [{"roadClassification":
    "第1種第1級", "trafficVolume": "1", "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}],
    "widthStakes": [{"desc": "注記"}]})";

constexpr const char* VERSION_15_SETTINGS = R"({"applicationCriterion": "1.5", "routes": [{"roadClassification":
    "第1種第1級", "trafficVolume": "1", "alignments": [{"mainInterval": "20", "normalCrown": "2"}]}]})";

constexpr const char* SLOPE_LIST_SETTINGS = R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1",
    "alignments": [{"mainInterval": "20", "normalCrown": "2", "useSlopeList": true}]}]})";

constexpr ProvokedCause PROVOKED_CAUSES[] = {
    // The work file as a whole
    {.name = "OtherRoot",
     .warning = "ルート要素がLandXMLではありません。\t$/Landxml_temp.xml Land",
     .wholeFile = "<Land><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'"
                  "/><Alignments><Alignment name='A' desc='プロジェクト名 = 名'/></Alignments></Land>"},
    {.name = "OtherNamespace",
     .warning = "名前空間がLandXML 1.2ではありません。\t$/Landxml_temp.xml "
                "LandXML（http://www.landxml.org/schema/LandXML-1.1）",
     .wholeFile = "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.1'><Project/><CoordinateSystem "
                  "horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/><Alignments><Alignment name='A' "
                  "desc='プロジェクト名 = 名'/></Alignments></LandXML>"},
    {.name = "Feet",
     .warning = "長さの単位がメートルではありません。\t$/Landxml_temp.xml 単位（Metricがありません）",
     .work = {.top = "<Units><Imperial linearUnit='foot'/></Units>"}},
    {.name = "Millimetres",
     .warning = "長さの単位がメートルではありません。\t$/Landxml_temp.xml 単位（millimeter）",
     .work = {.top = "<Units><Metric linearUnit='millimeter'/></Units>"}},
    {.name = "NoRoute",
     .warning = "路線（Alignments）がありません。\t$/Landxml_temp.xml LandXML",
     .wholeFile = "<LandXML><Project/></LandXML>"},
    {.name = "NotWellFormed",
     .warning = "XMLとして正しくないため、読み込みません。\t$/Landxml_temp.xml 2行目（12文字目）",
     .wholeFile = "<LandXML>\n<Project></Projekt></LandXML>"},

    {.name = "WorkFileNotUtf8",
     .warning = "UTF-8ではない文字があり、正しく読み込めません。\t$/Landxml_temp.xml 2行目（39文字目）",
     .wholeFile = "<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName="
                  "'9(X,Y)'/>\n<Alignments name='国'><Alignment name='\xFF' desc='プロジェクト名 = 名'/></Alignments>"
                  "</LandXML>"},
    {.name = "WorkFileInShiftJis",
     .warning = "UTF-8ではない文字があり、正しく読み込めません。\t$/Landxml_temp.xml "
                "1行目（134文字目、Shift_JISのファイルです）",
     .wholeFile = "<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName="
                  "'9(X,Y)'/><Alignments><Alignment name='\x91\xAA\x93\x5F'/></Alignments></LandXML>"},

    // Side files
    {.name = "BeyondTheRouteCount",
     .warning = "指定の路線数を超える番号の付属CSVファイルは読み込みません。\t$ 路線1",
     .routes = L"0"},
    {.name = "MissingPoints",
     .warning = "同じ路線のほかの付属CSVファイルがあるのに、このファイルがありません。\t$/intermediatePts_temp_1.csv",
     .sideFile = {POINTS, nullptr}},
    {.name = "MissingStakes",
     .warning = "同じ路線のほかの付属CSVファイルがあるのに、このファイルがありません。\t$/widthStake_temp_1.csv",
     .sideFile = {STAKES, nullptr}},
    {.name = "MissingSlopes",
     .warning = "同じ路線のほかの付属CSVファイルがあるのに、このファイルがありません。\t$/superElevation_temp_1.csv",
     .sideFile = {SLOPES, nullptr}},
    {.name = "MissingWidening",
     .warning = "同じ路線のほかの付属CSVファイルがあるのに、このファイルがありません。\t$/widening_temp_1.csv",
     .sideFile = {WIDENING, nullptr}},
    {.name = "NoRouteName",
     .warning = "1行目に線形名がないため、この路線の付属CSVファイルを線形に対応付けられません。\t"
                "$/intermediatePts_temp_1.csv 1行目",
     .sideFile = {POINTS, "線形名,\n見出し\n"}},
    {.name = "NotUtf8",
     .warning = "UTF-8ではない文字があり、正しく読み込めません。\t$/intermediatePts_temp_1.csv 2行目",
     .sideFile = {POINTS, "線形名,A\n\xFF\n"}},
    {.name = "ShiftJis",
     .warning = "UTF-8ではない文字があり、正しく読み込めません。\t$/intermediatePts_temp_1.csv 2行目"
                "（Shift_JISのファイルです）",
     .sideFile = {POINTS, "name,A\n\x91\xAA\x93\x5F\n"}},
    {.name = "UnreadableWidening",
     .warning = "ファイルを読み込めません。\t$/widening_temp_1.csv（通常のファイルではありません）",
     .sideFile = {WIDENING, FOLDER_IN_ITS_PLACE}},
    {.name = "ShortPointRows",
     .warning = "列の足りない行を読み飛ばしました。\t$/intermediatePts_temp_1.csv 3行目、4行目、6行目ほか1件",
     .sideFile = {POINTS, "線形名,A\n見出し\n1,2\n1,2\n1,2,3,4,5,6\n1,2\n1,2\n"}},
    {.name = "ShortStakeRow",
     .warning = "列の足りない行を読み飛ばしました。\t$/widthStake_temp_1.csv 3行目",
     .sideFile = {STAKES, "幅杭\n見出し\nG,K\n"}},
    {.name = "ShortSlopeRow",
     .warning = "列の足りない行を読み飛ばしました。\t$/superElevation_temp_1.csv 3行目",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,2\n"}},
    {.name = "ShortWideningRow",
     .warning = "列の足りない行を読み飛ばしました。\t$/widening_temp_1.csv 3行目",
     .sideFile = {WIDENING, "拡幅\n見出し\nLeft,2\n"}},
    {.name = "EmptySlopes",
     .warning = "測点または横断勾配のない行があり、空の値を出力します。\t$/superElevation_temp_1.csv 3行目",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+000.0m,x,,,,,,,-2.0 %,\n"}},
    {.name = "ACommaInAPointsName",
     .warning = "列が多く、値の位置がずれています。名前にコンマを使っていないか確認してください。\t"
                "$/intermediatePts_temp_1.csv 3行目",
     .sideFile = {POINTS, "線形名,A\n見出し\nNo.1,左,1,2,3,4,5\n"}},
    {.name = "ACommaInTheRoutesName",
     .warning = "列が多く、値の位置がずれています。名前にコンマを使っていないか確認してください。\t"
                "$/intermediatePts_temp_1.csv 1行目",
     .sideFile = {POINTS, "線形名,A,支線\n見出し\n"}},
    {.name = "ACommaInAStakesName",
     .warning = "列が多く、値の位置がずれています。名前にコンマを使っていないか確認してください。\t"
                "$/widthStake_temp_1.csv 3行目",
     .sideFile = {STAKES, "幅杭\n見出し\n左,K1,側,,0,1,2,3,4,注記,open\n"},
     .settings = STAKE_TYPE_SETTINGS},
    {.name = "ACommaInAStakesNote",
     .warning = "列が多く、値の位置がずれています。名前にコンマを使っていないか確認してください。\t"
                "$/widthStake_temp_1.csv 3行目",
     .sideFile = {STAKES, "幅杭\n見出し\n左,K1,,0,1,2,3,4,用地,境界,open\n"},
     .settings = STAKE_TYPE_SETTINGS},
    {.name = "ANoteThatIsNotTheGroups",
     .warning = "幅杭のグループの最初の行と異なる注記または種別を出力しません。\t$/widthStake_temp_1.csv 4行目",
     .sideFile = {STAKES, "幅杭\n見出し\n左,K1,,0,1,2,3,4,注記,open\n左,K2,,5,1,2,3,4,別の注記,open\n"},
     .settings = STAKE_SETTINGS},
    {.name = "NoSuchAlignmentForPoints",
     .warning = "参照先の線形がありません。\t$/intermediatePts_temp_1.csv IntermediatePnts-1（線形「B」）",
     .sideFile = {POINTS, "線形名,B\n見出し\nNo.1,1,2,3,4,5\n"}},
    {.name = "NoSuchAlignmentForSlopes",
     .warning = "線形名の一致する線形がないため、ファイルの内容を使いません。\t$/superElevation_temp_1.csv A",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+000.0m,x,,,-2.0 %,,,,-2.0 %,\n"},
     .wholeFile = "<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName="
                  "'9(X,Y)'/><Alignments><Alignment name='B' desc='プロジェクト名 = 名'/></Alignments></LandXML>"},
    {.name = "SurplusRegions",
     .warning = "片勾配（Superelevation）の数より多い区間があり、余る区間のReverseCrownの測点を使いません。\t"
                "$/superElevation_temp_1.csv A（1区間中0区間を使用）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+010.0m,ReverseCrown,,,-2.0 %,,,,-2.0 %,\n"}},
    {.name = "ACsvNumberWithMoreBehindIt",
     .warning = "数値として読み取れない部分のある値があります。\t$/widening_temp_1.csv 3行目（2列目「10m」）",
     .sideFile = {WIDENING, "拡幅\n見出し\nLeft,10m,2,0\n"}},
    {.name = "AWideningOnNoKnownSide",
     .warning = "LeftでもRightでもない拡幅を左側に出力します。\t$/widening_temp_1.csv 3行目（「right」）",
     .sideFile = {WIDENING, "拡幅\n見出し\nright,10,2,0\n"}},
    {.name = "AWideningsCodeThatBecomesZero",
     .warning = "拡幅のコードが0～4ではありません。\t$/widening_temp_1.csv 3行目（「7」を「0」と出力します）",
     .sideFile = {WIDENING, "拡幅\n見出し\nLeft,10,2,7\n"}},
    {.name = "AWideningsCodeThatStays",
     .warning = "拡幅のコードが0～4ではありません。\t$/widening_temp_1.csv 3行目（「円」のまま出力します）",
     .sideFile = {WIDENING, "拡幅\n見出し\nLeft,10,2,円\n"}},
    {.name = "AStationWithoutKilometres",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目"
                "（2列目「+10.0m」）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,+10.0m,x,,,-2.0 %,,,,-2.0 %,\n"}},
    {.name = "AUnitWithinAStation",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目"
                "（2列目「0+1m0」）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+1m0,x,,,-2.0 %,,,,-2.0 %,\n"}},
    {.name = "ALeftSlopeThatIsNone",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目"
                "（6列目「abc%」）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+010.0m,x,,,abc %,,,,-2.0 %,\n"}},
    {.name = "ARightSlopeWithAPlus",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目"
                "（10列目「+2.0%」）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+010.0m,x,,,-2.0 %,,,,+2.0 %,\n"}},
    {.name = "ARightSlopeWithoutAComma",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目"
                "（10列目「」）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,0+010.0m,x,,,-2.0 %,,,,-2.0 %\n"}},
    {.name = "ARegionThatIsNoNumber",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目（1列目「1x」）",
     .work = {.alignment = "<Superelevation/>"},
     .sideFile = {SLOPES, "片勾配\n見出し\n1x,0+010.0m,ReverseCrown,,,-2.0 %,,,,-2.0 %,\n"}},
    {.name = "AStationThatIsNone",
     .warning = "数値として読み取れない部分のある値があります。\t$/superElevation_temp_1.csv 3行目（2列目「No.1」）",
     .sideFile = {SLOPES, "片勾配\n見出し\n1,No.1,x,,,-2.0 %,,,,-2.0 %,\n"}},

    // What is bent
    {.name = "AnExponent",
     .warning = "数値として読み取れない部分のある値があります。\t$/Landxml_temp.xml R／A／測点不連続（「1e3」）",
     .work = {.alignment = "<StaEquation staBack='1e3' staInternal='1000' staAhead='1000'/>"}},
    {.name = "NumbersOnSeveralLines",
     .warning = "数値として読み取れない部分のある値があります。\t$/Landxml_temp.xml "
                "R／A／縦断／地盤／PntList2D（「100 10」）、R／A／縦断／地盤／PntList2D（「101 20」）",
     .work = {.alignment = "<Profile><ProfSurf name='地盤'><PntList2D>0 100\n10 101\n20 102</PntList2D></ProfSurf>"
                           "</Profile>"}},
    {.name = "ATabBetweenNumbers",
     .warning = "数値として読み取れない部分のある値があります。\t$/Landxml_temp.xml R／A／縦断／地盤／PntList2D（「0 "
                "100」）",
     .work = {.alignment = "<Profile><ProfSurf name='地盤'><PntList2D>0\t100 5 10 101</PntList2D></ProfSurf>"
                           "</Profile>"}},
    {.name = "AGroundLineWithoutPoints",
     .warning = "点のない縦断地盤線を出力しません。\t$/Landxml_temp.xml R／A／縦断／地盤",
     .work = {.alignment = "<Profile><ProfSurf name='地盤' desc='注'><PntList2D/></ProfSurf></Profile>"}},
    {.name = "AMarkedAlignmentWithoutPoints",
     .warning = "点のない縦断地盤線を出力しません。\t$/Landxml_temp.xml R／A／縦断／ProfSurf_地盤",
     .work = {.alignment = "<Profile><ProfAlign name='ProfSurf_地盤'/></Profile>"}},
    {.name = "ANoteOnAGroundLine",
     .warning = "縦断地盤線の名前と点列のほかの内容を出力しません。\t$/Landxml_temp.xml R／A／縦断／地盤（desc）",
     .work = {.alignment = "<Profile><ProfSurf name='地盤' desc='注' state=''><PntList2D>0 1</PntList2D></ProfSurf>"
                           "</Profile>"}},
    {.name = "AFeatureOfAGroundLine",
     .warning = "縦断地盤線の名前と点列のほかの内容を出力しません。\t$/Landxml_temp.xml R／A／縦断／地盤／Feature",
     .work = {.alignment = "<Profile><ProfSurf name='地盤'><PntList2D>0 1</PntList2D><Feature/></ProfSurf>"
                           "</Profile>"}},
    {.name = "ANoteOnAMarkedPoint",
     .warning = "縦断地盤線の名前と点列のほかの内容を出力しません。\t$/Landxml_temp.xml "
                "R／A／縦断／ProfSurf_地盤／縦断変化点（desc）",
     .work = {.alignment = "<Profile><ProfAlign name='ProfSurf_地盤'><PVI desc='注'>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "ACurveOfAMarkedAlignment",
     .warning = "縦断地盤線の縦断曲線を出力しません。\t$/Landxml_temp.xml R／A／縦断／ProfSurf_地盤／縦断曲線、"
                "R／A／縦断／ProfSurf_地盤／CircCurve",
     .work = {.alignment = "<Profile><ProfAlign name='ProfSurf_地盤'><PVI>0 1</PVI><ParaCurve length='9'>5 2"
                           "</ParaCurve><CircCurve radius='9'>9 2</CircCurve></ProfAlign></Profile>"}},
    {.name = "APointNearTheLast",
     .warning =
         "縦断地盤線の、直前の点との差がごく小さい点を出力しません。\t$/Landxml_temp.xml R／A／縦断／地盤（1点）",
     .work = {.alignment = "<Profile><ProfSurf name='地盤'><PntList2D>0 1 0 1 0 1.00000001 5 1</PntList2D></ProfSurf>"
                           "</Profile>"}},
    {.name = "AFurtherPointList",
     .warning = "縦断地盤線（ProfSurf）の2つ目以降のPntList2Dを出力しません。\t$/Landxml_temp.xml "
                "R／A／縦断／地盤（2個中1個）",
     .work = {.alignment = "<Profile><ProfSurf name='地盤'><PntList2D>0 1</PntList2D><PntList2D>2 3</PntList2D>"
                           "</ProfSurf></Profile>"}},
    {.name = "AnOddCountOfNumbers",
     .warning = "点列の数値が奇数個のため、最後の1個を出力しません。\t$/Landxml_temp.xml "
                "R／A／縦断／地盤／PntList2D（「7」）",
     .work = {.alignment = "<Profile><ProfSurf name='地盤'><PntList2D>0 1 7</PntList2D></ProfSurf></Profile>"}},
    {.name = "AMarkedPointOnALineOfItsOwn",
     .warning = "測点と標高の組として読み取れない点を「. .」と出力します。\t$/Landxml_temp.xml "
                "R／A／縦断／ProfSurf_地盤／縦断変化点",
     .work = {.alignment = "<Profile><ProfAlign name='ProfSurf_地盤'><PVI>\n 0 1\n</PVI></ProfAlign></Profile>"}},
    {.name = "ASideWithoutACode",
     .warning = "左右を判定できる構成点（codeがあり、中心から離れた点）がないため、sideを推定しました。\t"
                "$/Landxml_temp.xml R／A／横断／No.1／Carriageway（left）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Carriageway'><CrossSectPnt>"
                           "3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects><Profile><ProfAlign name="
                           "'P'><PVI>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "BothSides",
     .warning = "横断構成のsideを書き換えました。\t$/Landxml_temp.xml R／A／横断／No.1／Carriageway（both→right）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Carriageway' side='both'>"
                           "<CrossSectPnt code='x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects>"
                           "<Profile><ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>"}},

    {.name = "AWideningsCodeOfTheWorkFile",
     .warning = "拡幅のコードが0～4ではありません。\t$/Landxml_temp.xml R／A（「5」を「0」と出力します）",
     .work = {.alignment = "<Feature name='WideningList'><Property label='widthLeftValue' value='0 1 5'/></Feature>"}},

    // What is removed
    {.name = "AFormationWithoutAPoint",
     .warning = "取り除いたFormationの離れと高さを出力しません。\t$/Landxml_temp.xml R／A／横断／No.1／Formation"
                "（codeがFormationの、離れと高さの構成点がありません）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Formation'><CrossSectPnt "
                           "code='x'>3 1</CrossSectPnt></DesignCrossSectSurf><DesignCrossSectSurf name='Track'>"
                           "<CrossSectPnt code='x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects>"
                           "<Profile><ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "AFormationThatContradictsTheFirst",
     .warning = "取り除いたFormationの離れと高さを出力しません。\t$/Landxml_temp.xml R／A／横断／No.1／Formation"
                "（前のFormationの値を出力します）",
     .work = {.alignment =
                  "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Formation'><CrossSectPnt code="
                  "'Formation'>0 1</CrossSectPnt></DesignCrossSectSurf><DesignCrossSectSurf name='Formation'>"
                  "<CrossSectPnt code='Formation'>0 1</CrossSectPnt></DesignCrossSectSurf><DesignCrossSectSurf name="
                  "'Formation'><CrossSectPnt code='Formation'>0 2</CrossSectPnt></DesignCrossSectSurf>"
                  "<DesignCrossSectSurf name='Track'><CrossSectPnt code='x'>3 1</CrossSectPnt></DesignCrossSectSurf>"
                  "</CrossSect></CrossSects><Profile><ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "AGroundLineOfNoExistingGround",
     .warning = "横断の地盤線を取り除きました。\t$/Landxml_temp.xml R／A／横断／No.1／EG"
                "（現況地盤のサーフェスではありません）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><CrossSectSurf name='EG_1'/><DesignCrossSectSurf name="
                           "'Track'><CrossSectPnt code='x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect>"
                           "</CrossSects><Profile><ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>",
              .end = "<Surfaces><Surface name='EG' desc='岩盤'/></Surfaces>"}},
    {.name = "ASlopeListThatIsNotUsed",
     .warning = "任意横断勾配リストを使わない線形のため、任意横断勾配リスト（SlopeList）を取り除きました。\t"
                "$/Landxml_temp.xml R／A／SlopeList",
     .work = {.alignment = "<Feature name='SlopeList'><Property label='slopeValue' value='0 2 2'/></Feature>"}},
    {.name = "AGroundLineWithoutASurface",
     .warning = "横断の地盤線を取り除きました。\t$/Landxml_temp.xml R／A／横断／No.1／EG_1（サーフェスがありません）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><CrossSectSurf name='EG_1'/><DesignCrossSectSurf name="
                           "'Carriageway'><CrossSectPnt code='x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect>"
                           "</CrossSects><Profile><ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "AnOpenPavement",
     .warning = "閉じていない（closedAreaがtrueではない）舗装を取り除きました。\t$/Landxml_temp.xml "
                "R／A／横断／No.1／Pavement",
     .work = {.alignment =
                  "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Pavement'><CrossSectPnt code="
                  "'x'>3 1</CrossSectPnt></DesignCrossSectSurf><DesignCrossSectSurf name='Track'><CrossSectPnt "
                  "code='x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects><Profile>"
                  "<ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "PointsOfTheInput",
     .warning = "作業ファイルの座標点（CgPoints）を取り除きました。\t$/Landxml_temp.xml G",
     .work = {.top = "<CgPoints name='G'><CgPoint name='1'>1 2</CgPoint></CgPoints>"}},
    {.name = "ASuperelevationBesideASlopeList",
     .warning = "任意横断勾配リストを使う線形のため、片勾配（Superelevation）を取り除きました。\t$/Landxml_temp.xml "
                "R／A／片勾配",
     .work = {.alignment = "<Superelevation/>"},
     .settings = SLOPE_LIST_SETTINGS},
    {.name = "AnAdverseCrownWithoutARunout",
     .warning = "すりつけ区間の測点がそろわないため、AdverseSEを取り除きました。\t$/Landxml_temp.xml R／A／片勾配",
     .work = {.alignment = "<Superelevation><AdverseSE>adverse</AdverseSE></Superelevation>"}},
    {.name = "WidthStakesBelow1_6",
     .warning = "標準のバージョン1.5では幅杭を出力しません（注記の入力は求められます）。\t$/widthStake_temp_1.csv 左",
     .sideFile = {STAKES, "幅杭\n見出し\n左,K1,,0,1,2,3,4,注記,open\n"},
     .settings = STAKES_15_SETTINGS},
    {.name = "CrossSectsWithoutASection",
     .warning = "横断面のない横断（CrossSects）を取り除きました。\t$/Landxml_temp.xml R／A／横断",
     .work = {.alignment = "<CrossSects/>"}},
    {.name = "ASectionWithoutALine",
     .warning = "地盤線も横断構成もない横断面を出力します。\t$/Landxml_temp.xml R／A／横断／No.1",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'/></CrossSects><Profile><ProfAlign name='P'><PVI>0 1"
                           "</PVI></ProfAlign></Profile>"}},

    // What is left out
    {.name = "NoProfile",
     .warning = "横断に計画縦断線形の参照（profAlignRefs）を出力できません。\t$/Landxml_temp.xml "
                "R／A／横断（縦断（Profile）がありません）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Track'><CrossSectPnt code="
                           "'x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects>"}},
    {.name = "AProfileThatStartsWithItsDesign",
     .warning = "横断に計画縦断線形の参照（profAlignRefs）を出力できません。\t$/Landxml_temp.xml "
                "R／A／横断（ProfileのstaStartより前に始まる縦断線形がありません）",
     .work = {.alignment = "<CrossSects><CrossSect name='No.1'><DesignCrossSectSurf name='Track'><CrossSectPnt code="
                           "'x'>3 1</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects><Profile staStart='0'>"
                           "<ProfAlign name='P'><PVI>0 1</PVI></ProfAlign></Profile>"}},
    {.name = "AClothoidWithoutALength",
     .warning = "クロソイドのパラメーターAを求められません。\t$/Landxml_temp.xml "
                "R／A／平面線形／クロソイド（lengthがありません）",
     .work = {.alignment = "<CoordGeom><Spiral radiusStart='INF' radiusEnd='100'/></CoordGeom>"}},
    {.name = "AClothoidBetweenStraights",
     .warning = "クロソイドのパラメーターAを求められません。\t$/Landxml_temp.xml "
                "R／A／平面線形／クロソイド（両端とも半径がありません）",
     .work = {.alignment = "<CoordGeom><Spiral length='50' radiusStart='INF' radiusEnd='INF'/></CoordGeom>"}},
    {.name = "AnEggBetweenEqualRadii",
     .warning = "クロソイドのパラメーターAを求められません。\t$/Landxml_temp.xml "
                "R／A／平面線形／クロソイド（「inf.」と出力します）",
     .work = {.alignment = "<CoordGeom><Spiral length='50' radiusStart='100' radiusEnd='100'/></CoordGeom>"}},

    {.name = "ADesignValueThatIsNone",
     .warning = "作り直す設計値のFeatureの、読み取れないPropertyを出力しません。\t$/Landxml_temp.xml "
                "R／A／WideningList（widthLeftValue「100」）",
     .work = {.alignment = "<Feature name='WideningList'><Property label='widthLeftValue' value='100'/></Feature>"}},
    {.name = "ADesignValueOfAnotherName",
     .warning = "作り直す設計値のFeatureの、読み取れないPropertyを出力しません。\t$/Landxml_temp.xml "
                "R／A／Interval（step「5」）",
     .work = {.alignment = "<Feature name='Interval'><Property label='step' value='5'/></Feature>"}},

    // What is doubtful
    {.name = "ASurfaceOfAnAlignmentThatIsNotThere",
     .warning = "参照先の線形がありません。\t$/Landxml_temp.xml S（線形「B」）",
     .work = {.end = "<Surfaces><Surface name='S' desc='ExistingGround'><Feature><Property label='alignmentRefs' "
                     "value='B'/></Feature></Surface></Surfaces>"}},
    {.name = "ANoteAgainstTheProject",
     .warning = "最初の線形のdescの値が、プロジェクトまたは座標参照系の値に優先します。\t$/Landxml_temp.xml R／A"
                "（適用基準「MlitLandXmlVer.1.7」、「MlitLandXmlVer.1.5」）",
     .work = {.desc = "適用基準 = MlitLandXmlVer.1.7",
              .project = "<Feature><Property label='applicationCriterion' value='MlitLandXmlVer.1.5'/></Feature>"}},
    {.name = "ANoteAgainstTheChosenVersion",
     .warning = "線形のdescの値が、出力する値と異なります。\t$/Landxml_temp.xml R／A"
                "（適用基準「MlitLandXmlVer.1.7」、「MlitLandXmlVer.1.5」）",
     .work = {.desc = "適用基準 = MlitLandXmlVer.1.7"},
     .settings = VERSION_15_SETTINGS},
    {.name = "AGroundLineWithoutAName",
     .warning = "縦断地盤線（ProfSurf）に名前がないため、スキーマに適合しません。\t$/Landxml_temp.xml "
                "R／A／縦断／縦断地盤線",
     .work = {.alignment = "<Profile><ProfSurf><PntList2D>0 1</PntList2D></ProfSurf></Profile>"}},
    {.name = "AStakeGroupWithoutAName",
     .warning = "幅杭のグループに名前がないため、スキーマに適合しません。\t$/widthStake_temp_1.csv 名前のないグループ",
     .sideFile = {STAKES, "幅杭\n見出し\n,K1,,0,1,2,3,4,注記,open\n"},
     .settings = STAKE_SETTINGS},
    {.name = "AStakeGroupWithoutAType",
     .warning = "幅杭のグループに種別がないため、スキーマに適合しません。\t$/widthStake_temp_1.csv 左",
     .sideFile = {STAKES, "幅杭\n見出し\n左,K1,,0,1,2,3,4,注記,\n"}},
};

class WarningCauses : public RunTest, public testing::WithParamInterface<ProvokedCause>
{
  protected:
    /// The warnings of a run, each without its beginning and with its line's end.
    std::string Warnings(const std::vector<std::wstring>& arguments)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        RunCommandLine(arguments);
        testing::internal::GetCapturedStdout();
        const std::string said = testing::internal::GetCapturedStderr();
        others.clear();
        std::string warnings;
        constexpr std::string_view BEGINNING = "警告: ";
        for (std::size_t begin = 0; begin < said.size();)
        {
            const std::size_t end = std::min(said.find('\n', begin), said.size() - 1) + 1;
            const std::string line = said.substr(begin, end - begin);
            const bool isWarning = line.starts_with(BEGINNING);
            (isWarning ? warnings : others) += isWarning ? line.substr(BEGINNING.size()) : line;
            begin = end;
        }
        return warnings;
    }

    std::string others; ///< what else was said
};

TEST_P(WarningCauses, AreEachToldOnceWithTheirObjectAndFile)
{
    const ProvokedCause& cause = GetParam();
    WorkFile(cause.wholeFile != nullptr ? cause.wholeFile : WorkFileOf(cause.work));
    // A work file of its own has no side files unless the row is about one.
    for (const SideFileRow& sound : SOUND_FILES)
    {
        const bool isReplaced = cause.sideFile.name != nullptr && std::wstring_view(cause.sideFile.name) == sound.name;
        const SideFileRow& file = isReplaced ? cause.sideFile : sound;
        const bool isWanted = cause.wholeFile == nullptr || cause.sideFile.name != nullptr;
        if (file.content == FOLDER_IN_ITS_PLACE)
        {
            std::filesystem::create_directory(folder.Path() / NativePath(file.name));
        }
        else if (file.content != nullptr && isWanted)
        {
            folder.Write(file.name, file.content);
        }
    }
    std::vector<std::wstring> arguments{folder.Name(), L"-s", folder.Write(L"settings.json", cause.settings), L"-o",
                                        folder.Name(L"out.xml")};
    if (cause.routes != nullptr)
    {
        arguments.insert(arguments.end(), {L"--routes", cause.routes});
    }
    std::string expected = cause.warning;
    expected.replace(expected.find('$'), 1, Utf8FromWide(folder.Name()));
    EXPECT_EQ(Warnings(arguments), expected + "\n") << others;
}

INSTANTIATE_TEST_SUITE_P(Cli, WarningCauses, testing::ValuesIn(PROVOKED_CAUSES),
                         [](const auto& row) { return std::string(row.param.name); });

class WarningsOfRuns : public WarningCauses
{};

TEST_F(WarningsOfRuns, AreNoneForASoundFolder)
{
    WorkFile(WorkFileOf({}));
    for (const SideFileRow& sound : SOUND_FILES)
    {
        folder.Write(sound.name, sound.content);
    }
    EXPECT_EQ(Warnings({folder.Name(), L"-s", folder.Write(L"settings.json", WARNING_SETTINGS), L"-o",
                        folder.Name(L"out.xml")}),
              "");
    EXPECT_EQ(others, "");
}

TEST_F(WarningsOfRuns, AreNoneForTheExamples)
{
    for (const wchar_t* const example : {L"road", L"river", L"two-routes"})
    {
        const std::wstring path = std::wstring(JLANDXML_SOURCE_DIR) + L"/examples/" + example;
        EXPECT_EQ(Warnings({path, L"-s", path + L"/settings.json", L"-o", folder.Name(L"out.xml")}), "");
        EXPECT_EQ(others, "");
    }
}

TEST_F(WarningsOfRuns, TellBothOfRemovedPointsAndOfWhatReferredToThem)
{
    WorkFile(WorkFileOf({.top = "<CgPoints name='G'><CgPoint name='1'>1 2</CgPoint></CgPoints>",
                         .alignment = "<CoordGeom><Line><Start pntRef='1'/><End pntRef='2'/></Line></CoordGeom>"}));
    const std::string path = Utf8FromWide(folder.Name()) + "/Landxml_temp.xml";
    EXPECT_EQ(Warnings({folder.Name(), L"-s", folder.Write(L"settings.json", WARNING_SETTINGS), L"-o",
                        folder.Name(L"out.xml")}),
              "作業ファイルの座標点（CgPoints）を取り除きました。\t" + path +
                  " G\n取り除いた座標点をpntRefが参照しています。\t" + path + " R／A／平面線形／直線／始点（1）\n");
}

TEST_F(WarningsOfRuns, SayNothingOfAReferenceToAPointThatASideFileBringsBack)
{
    WorkFile(WorkFileOf({.top = "<CgPoints name='G'><CgPoint name='1'>1 2</CgPoint></CgPoints>",
                         .alignment = "<CoordGeom><Line><Start pntRef='1'/><End pntRef='2'/></Line></CoordGeom>"}));
    for (const SideFileRow& sound : SOUND_FILES)
    {
        folder.Write(sound.name, sound.content);
    }
    folder.Write(POINTS, "線形名,A\n見出し\n1,0,1,2,3,4\n");
    EXPECT_EQ(Warnings({folder.Name(), L"-s", folder.Write(L"settings.json", WARNING_SETTINGS), L"-o",
                        folder.Name(L"out.xml")}),
              "作業ファイルの座標点（CgPoints）を取り除きました。\t" + Utf8FromWide(folder.Name()) +
                  "/Landxml_temp.xml G\n");
}

TEST_F(WarningsOfRuns, NameAllMissingSideFilesOfARouteInOne)
{
    WorkFile(WorkFileOf({}));
    folder.Write(POINTS, "線形名,A\n見出し\n");
    EXPECT_EQ(Warnings({folder.Name(), L"-s", folder.Write(L"settings.json", WARNING_SETTINGS), L"-o",
                        folder.Name(L"out.xml")}),
              "同じ路線のほかの付属CSVファイルがあるのに、このファイルがありません。\t" + Utf8FromWide(folder.Name()) +
                  "/widthStake_temp_1.csv（ほか2件: superElevation_temp_1.csv、widening_temp_1.csv）\n");
}

TEST_F(WarningsOfRuns, TellOfAGroupNameThatTwoRoutesShare)
{
    WorkFile("<LandXML><Project/><CoordinateSystem horizontalDatum='JGD2011' horizontalCoordinateSystemName='9(X,Y)'/>"
             "<Alignments name='R'><Alignment name='A' desc='プロジェクト名 = 名'/><Alignment name='B'/></Alignments>"
             "</LandXML>");
    for (const wchar_t* const route : {L"1", L"2"})
    {
        for (const SideFileRow& sound : SOUND_FILES)
        {
            std::wstring name = sound.name;
            name.replace(name.find(L'1'), 1, route);
            folder.Write(name, sound.content);
        }
        folder.Write(std::wstring(L"widthStake_temp_") + route + L".csv", "幅杭\n見出し\n左,K1,,0,1,2,3,4,注記,open\n");
    }
    folder.Write(L"intermediatePts_temp_2.csv", "線形名,B\n見出し\n");
    const std::wstring settings = folder.Write(
        L"settings.json", R"({"routes": [{"roadClassification": "第1種第1級", "trafficVolume": "1", "alignments":
        [{"mainInterval": "20", "normalCrown": "2"}, {"mainInterval": "20", "normalCrown": "2"}]}]})");
    EXPECT_EQ(Warnings({folder.Name(), L"-s", settings, L"-o", folder.Name(L"out.xml")}),
              "別の路線に同じ名前の幅杭のグループがあります。\t" + Utf8FromWide(folder.Name()) +
                  "/widthStake_temp_2.csv 左\n")
        << others;
}

TEST(WarningTexts, StandInTheManualsInBothLanguages)
{
    for (const wchar_t* const manual : {L"/docs/warnings.md", L"/docs/manual.ja.md"})
    {
        const std::string content = ReadWholeFile(std::wstring(JLANDXML_SOURCE_DIR) + manual).value();
        for (const WarningText& row : WarningTexts())
        {
            const std::string cells = "\n| `" + std::string(row.code) + "` | " + Utf8FromWide(row.text) + " | ";
            EXPECT_NE(content.find(cells), std::string::npos) << row.code;
        }
    }
}

} // namespace
} // namespace jlandxml
