#include "inspect/Checks.h"

#include "inspect/CheckCrossSections.h"
#include "inspect/CheckHorizontal.h"
#include "inspect/CheckProfile.h"
#include "inspect/CheckReferences.h"
#include "inspect/CheckStations.h"
#include "inspect/CheckSurfaces.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

constexpr Tolerance METRES{0.001, 0.1, L"m"};
constexpr Tolerance RADIANS{0.001, 0.1, L"rad"};
constexpr Tolerance EQUATION{0.001, 0.001, L"m"};
constexpr Tolerance SECONDS{1, 3600, L"″"};
constexpr Tolerance CLOTHOID_RATIO{1e-5, 1e-3, L""};
constexpr Tolerance RADIUS_RATIO{1e-3, 1e-1, L""};
constexpr Tolerance CURVE_OVERLAP{1e-4, 1e-1, L"m"};
constexpr Tolerance CENTRE_HEIGHT{0.01, 0.1, L"m"};
constexpr Tolerance DATUM{0.00005, 0.1, L"m"};

constexpr const wchar_t* GEOVIITE = L"Geoviite（フィンランド運輸インフラ庁）線形検査の公開基準";
constexpr const wchar_t* CLOTHOID = L"クロソイドの定義 R·L＝A²";
constexpr const wchar_t* XML_SCHEMA = L"W3C XML Schema Datatypes 3.2.5（xs:double）";
constexpr const wchar_t* JLANDXML = L"LandXML 1.2に準じた3次元設計データ交換標準";
constexpr const wchar_t* JLANDXML_XSD = L"J-LandXML 1.7スキーマ（xs:unique）";
constexpr const wchar_t* LANDXML = L"LandXML 1.2スキーマ";
constexpr const wchar_t* ROAD_STRUCTURE = L"道路構造令の解説と運用（縦断曲線）";
constexpr const wchar_t* PLANE_RECTANGULAR = L"平成14年国土交通省告示第9号（平面直角座標系）";
constexpr const wchar_t* ZONE_AREAS = L"EPSG Dataset（JGD2011平面直角座標系の適用区域）";
constexpr const wchar_t* RIVER_DATUMS = L"河川砂防技術基準（特別基準面と東京湾平均海面の差）";
constexpr const wchar_t* TIN = L"LandXML 1.2スキーマ（Definition、Faces）";

constexpr Severity INFORMATION = Severity::Information;
constexpr Severity WARNING = Severity::Warning;
constexpr Severity ERROR_GRADE = Severity::Error;

constexpr Check CHECKS[] = {
    // Reading
    {L"X01",
     INFORMATION,
     {},
     L"検査の対象でない要素を読み飛ばしました",
     L"必要な要素であれば、名前の綴りと置く場所を確かめてください",
     JLANDXML,
     CheckSkipped},
    {L"X02", ERROR_GRADE, {}, L"数値でない値があります", L"数値を入力してください", XML_SCHEMA, CheckFigures},
    {L"X03",
     ERROR_GRADE,
     {},
     L"文字コードに合わないバイトがあります",
     L"XML宣言の文字コードで保存し直してください",
     L"XML 1.0 4.3.3",
     CheckEncoding},
    {L"S01",
     ERROR_GRADE,
     {},
     L"スキーマに合いません",
     L"要素と属性を基準のスキーマのとおりにしてください",
     L"--schemaで指定したスキーマ",
     CheckSchema},

    // Horizontal alignments
    {L"H01", ERROR_GRADE, {}, L"要素の座標がありません", L"座標を入力してください", JLANDXML, CheckCoordinates},
    {L"H02", ERROR_GRADE, METRES, L"要素の終点と次の要素の始点が離れています",
     L"Endの座標と次の要素のStartの座標を合わせてください", GEOVIITE, CheckJoints},
    {L"H03", ERROR_GRADE, METRES, L"要素の長さが座標からの計算と合いません", L"lengthか両端の座標を確かめてください",
     GEOVIITE, CheckElementLengths},
    {L"H04", ERROR_GRADE, METRES, L"半径と、中心から端点までの距離が合いません",
     L"radius、Center、Start、Endを確かめてください", GEOVIITE, CheckRadii},
    {L"H05", ERROR_GRADE, RADIANS, L"要素の終点と次の要素の始点で方向が変わります",
     L"接線の方向を合わせてください。河川の法線の折れ点は問題ありません", GEOVIITE, CheckDirections},
    {L"H06", ERROR_GRADE, CLOTHOID_RATIO, L"クロソイドのパラメータAが半径と長さに合いません",
     L"A＝√（L÷｜1/R1－1/R2｜）となるように直してください", CLOTHOID, CheckClothoidParameters},
    {L"H07", ERROR_GRADE, METRES, L"クロソイドの終点が計算と合いません",
     L"Start、PI、End、length、radiusStart、radiusEndを確かめてください", GEOVIITE, CheckClothoidEnds},
    {L"H08",
     ERROR_GRADE,
     {},
     L"曲線の向きrotが座標と合いません",
     L"右回りはcw、左回りはccwにしてください",
     LANDXML,
     CheckRotations},
    {L"H09", ERROR_GRADE, METRES, L"線形の長さが要素の長さの合計と合いません",
     L"Alignment@lengthか要素のlengthを確かめてください", LANDXML, CheckAlignmentLengths},
    {L"H10",
     WARNING,
     {},
     L"主要点の名称がありません",
     L"StartとEndにnameを付けてください",
     JLANDXML,
     CheckPointNamesThere},
    {L"H11",
     WARNING,
     {},
     L"主要点の名称が重複しています",
     L"線形の中で一つだけの名称にしてください",
     JLANDXML,
     CheckPointNamesUnique},
    {L"H12",
     WARNING,
     {},
     L"主要点の名称が順番どおりではありません",
     L"要素の終点と次の要素の始点は同じ名称に、番号は起点から順にしてください",
     JLANDXML,
     CheckPointNamesInOrder},

    // Stations
    {L"T01",
     ERROR_GRADE,
     {},
     L"開始測点がないか、平面と縦断で異なります",
     L"Alignment@staStartとProfile@staStartを合わせてください",
     JLANDXML,
     CheckStartStations},
    {L"T02", ERROR_GRADE, EQUATION, L"測点定義が前の測点から続きません",
     L"staBackは前のstaAheadにstaInternalの差を加えた値にしてください", LANDXML, CheckStationEquations},
    {L"T03",
     WARNING,
     {},
     L"測点定義が起点から順に並んでいません",
     L"staInternalの順に並べてください",
     LANDXML,
     CheckEquationsRise},
    {L"T04",
     INFORMATION,
     {},
     L"測点の表示が二度現れる区間があります",
     L"ブレーキによる重複か確かめてください",
     LANDXML,
     CheckLabelsOnce},
    {L"T05",
     WARNING,
     {},
     L"横断面の名称が重複しています",
     L"測点ごとに異なる名称にしてください",
     JLANDXML,
     CheckSectionNamesOnce},
    {L"T06",
     WARNING,
     {},
     L"測点が線形の範囲の外にあります",
     L"測点か線形の長さを確かめてください",
     LANDXML,
     CheckStationsWithin},
    {L"T07", ERROR_GRADE, METRES, L"中間点が中心線の上にありません", L"座標か測点staを確かめてください", JLANDXML,
     CheckPointsOnLine},
    {L"T08", ERROR_GRADE, SECONDS, L"中間点の接線方向角が計算と合いません",
     L"北から右回りの方向角を、directionUnitの単位で入力してください", JLANDXML, CheckPointDirections},

    // Profiles
    {L"V01",
     ERROR_GRADE,
     {},
     L"縦断の測点が起点から順に並んでいません",
     L"測点の順に並べてください",
     LANDXML,
     CheckProfileStations},
    {L"V02", ERROR_GRADE, CURVE_OVERLAP, L"縦断曲線が前の縦断曲線と重なり、高さと勾配が続きません",
     L"縦断曲線長か勾配変移点の測点を確かめてください", ROAD_STRUCTURE, CheckVerticalCurvesApart},
    {L"V03",
     WARNING,
     {},
     L"縦断線形の端に縦断曲線があり、勾配が決まりません",
     L"端は縦断曲線のない勾配変移点にしてください",
     LANDXML,
     CheckVerticalCurveEnds},
    {L"V04", ERROR_GRADE, RADIUS_RATIO, L"縦断曲線の半径が長さと勾配に合いません",
     L"R＝L÷｜g2－g1｜となるように直してください", ROAD_STRUCTURE, CheckVerticalRadii},
    {L"V05",
     ERROR_GRADE,
     {},
     L"profAlignRefsの縦断線形がありません",
     L"同じ線形のProfAlignの名称にしてください",
     JLANDXML,
     CheckProfileReferences},

    // Superelevation and cross sections
    {L"C01",
     ERROR_GRADE,
     {},
     L"片勾配すりつけの測点の順番が逆です",
     L"すりつけ開始から終了まで、進む方向の順の測点にしてください",
     LANDXML,
     CheckTransitionOrder},
    {L"C02",
     WARNING,
     {},
     L"横断面が起点から順に並んでいません",
     L"測点の順に並べてください",
     LANDXML,
     CheckSectionOrder},
    {L"C03", ERROR_GRADE, METRES, L"閉じた構築形状の始点と終点が離れています",
     L"最後の構成点を最初の構成点と同じにしてください", JLANDXML, CheckOutlinesClosed},
    {L"C04",
     WARNING,
     {},
     L"横断地形線が左から右に並んでいません",
     L"離れの順に並べてください",
     JLANDXML,
     CheckGroundFromLeftToRight},
    {L"C05",
     WARNING,
     {},
     L"構築形状が反対側にはみ出しています",
     L"sideと構成点の離れの符号を確かめてください",
     JLANDXML,
     CheckSides},
    {L"C06", ERROR_GRADE, CENTRE_HEIGHT, L"横断面の計画高の位置の高さが縦断と合いません",
     L"heightTypeがfhOffsetなら計画高からの高さ、そうでなければ標高を入力してください", JLANDXML, CheckCentreHeights},
    {L"C07", ERROR_GRADE, METRES, L"舗装の層が重なっています", L"構成点の高さを確かめてください", JLANDXML,
     CheckPavementLayersApart},
    {L"C08",
     INFORMATION,
     {},
     L"横断地形線の名称のサーフェスがありません",
     L"サーフェスの名称か種別を横断地形線の名称にしてください",
     JLANDXML,
     CheckGroundNames},

    // Surfaces
    {L"F01",
     ERROR_GRADE,
     {},
     L"サーフェスの点に番号か座標がありません",
     L"id、X、Y、高さを入力してください",
     TIN,
     CheckSurfacePoints},
    {L"F02",
     ERROR_GRADE,
     {},
     L"サーフェスの点の番号が重複しています",
     L"サーフェスの中で一つだけの番号にしてください",
     JLANDXML_XSD,
     CheckPointIdsUnique},
    {L"F03",
     ERROR_GRADE,
     {},
     L"面の頂点の数がサーフェスの種類と合いません",
     L"TINは3点、gridは4点にしてください",
     TIN,
     CheckFaceCorners},
    {L"F04", ERROR_GRADE, {}, L"面の頂点の点がありません", L"Pntsにある点の番号にしてください", TIN, CheckFacePoints},
    {L"F05", WARNING, {}, L"面積のない面があります", L"面を取り除くか、頂点を直してください", TIN, CheckFaceAreas},
    {L"F06",
     WARNING,
     {},
     L"三つ以上の面が共有する辺があります",
     L"重なった面を取り除いてください",
     TIN,
     CheckFaceEdges},
    {L"F07",
     INFORMATION,
     {},
     L"どの面にも使われない点があります",
     L"不要な点であれば取り除いてください",
     TIN,
     CheckPointsUsed},

    // References and units
    {L"R01",
     ERROR_GRADE,
     {},
     L"alignmentRefsの線形がありません",
     L"ファイルにある線形の名称にしてください",
     JLANDXML,
     CheckAlignmentReferences},
    {L"R02",
     ERROR_GRADE,
     {},
     L"featureRefのFeatureがありません",
     L"同じ組の中のFeatureの名称にしてください",
     LANDXML,
     CheckFeatureReferences},
    {L"R03",
     ERROR_GRADE,
     {},
     L"pntRefの点がありません",
     L"ファイルにあるCgPointの名称にしてください",
     LANDXML,
     CheckPointReferences},
    {L"R04",
     ERROR_GRADE,
     {},
     L"一つだけでなければならない名称が重複しています",
     L"異なる名称にしてください",
     JLANDXML_XSD,
     CheckNamesUnique},
    {L"R05",
     ERROR_GRADE,
     {},
     L"測地原子が標準のものではありません",
     L"JGD2024、JGD2011、JGD2000、TDのいずれかにしてください",
     JLANDXML,
     CheckHorizontalDatum},
    {L"R06",
     ERROR_GRADE,
     {},
     L"平面直角座標系が1系から19系のX,Yの順ではありません",
     L"horizontalCoordinateSystemNameを9(X,Y)のように入力してください",
     PLANE_RECTANGULAR,
     CheckZone},
    {L"R07",
     WARNING,
     {},
     L"座標系の番号が説明と合いません",
     L"horizontalCoordinateSystemNameとdescを合わせてください",
     PLANE_RECTANGULAR,
     CheckZoneDescription},
    {L"R08",
     WARNING,
     {},
     L"座標が座標系の区域の外にあります",
     L"座標系の番号と座標を確かめてください",
     ZONE_AREAS,
     CheckCoordinatesInZone},
    {L"R09",
     ERROR_GRADE,
     {},
     L"XとYが入れ替わっているようです",
     L"北のXを先に、東のYを後にしてください",
     ZONE_AREAS,
     CheckAxesInOrder},
    {L"R10",
     ERROR_GRADE,
     {},
     L"度分秒の分か秒が60以上です",
     L"30°45′は30.45と入力してください",
     L"LandXML 1.2スキーマ（angularType）",
     CheckMinutesAndSeconds},
    {L"R11", WARNING, DATUM, L"T.P.との標高差が鉛直原子と合いません", L"differTPを確かめてください", RIVER_DATUMS,
     CheckVerticalDatum},
    {L"R12", ERROR_GRADE, {}, L"単位がメートルではありません", L"Metricのmeterにしてください", JLANDXML, CheckMetric},
};

} // namespace

std::span<const Check> AllChecks()
{
    return CHECKS;
}

const Check* FindCheck(std::wstring_view code)
{
    const auto* const found =
        std::find_if(std::begin(CHECKS), std::end(CHECKS), [&](const Check& check) { return check.code == code; });
    return found != std::end(CHECKS) ? found : nullptr;
}

std::vector<Finding> Inspect(const LandXmlFile& file, const std::vector<const Check*>& checks)
{
    Findings findings;
    for (const Check* const check : checks)
    {
        findings.Run(*check, file);
    }
    return findings.All();
}

} // namespace jlandxml::inspect
