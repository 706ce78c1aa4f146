#include "base/Warnings.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <new>
#include <utility>

namespace jlandxml
{

namespace
{

struct CauseText
{
    WarningCause cause;
    std::string_view code;
    const wchar_t* text;
};

constexpr CauseText CAUSES[] = {
    {WarningCause::UnreadableFile, "unreadable-file", L"ファイルを読み込めません。"},
    {WarningCause::UnreadableFolder, "unreadable-folder", L"フォルダーを読み込めません。"},
    {WarningCause::MalformedXml, "malformed-xml", L"XMLとして正しくないため、読み込みません。"},
    {WarningCause::NoMemoryForFile, "no-memory-for-file", L"メモリーが足りないため、読み込みません。"},
    {WarningCause::NoMemory, "no-memory", L"メモリーが足りないため、読み込まなかったデータがあります。"},
    {WarningCause::TargetNotRestored, "target-not-restored",
     L"出力先のファイルを元に戻せません。元の内容を一時フォルダーに残しました。"},

    {WarningCause::OtherRoot, "other-root", L"ルート要素がLandXMLではありません。"},
    {WarningCause::OtherNamespace, "other-namespace", L"名前空間がLandXML 1.2ではありません。"},
    {WarningCause::NotMetric, "not-metric", L"長さの単位がメートルではありません。"},
    {WarningCause::NoRoute, "no-route", L"路線（Alignments）がありません。"},

    {WarningCause::SideFileBeyondRoutes, "side-file-beyond-routes",
     L"指定の路線数を超える番号の付属CSVファイルは読み込みません。"},
    {WarningCause::MissingSideFile, "missing-side-file",
     L"同じ路線のほかの付属CSVファイルがあるのに、このファイルがありません。"},
    {WarningCause::NoRouteName, "no-route-name",
     L"1行目に線形名がないため、この路線の付属CSVファイルを線形に対応付けられません。"},
    {WarningCause::NoAlignmentForSideFile, "no-alignment-for-side-file",
     L"線形名の一致する線形がないため、ファイルの内容を使いません。"},
    {WarningCause::NotUtf8, "not-utf8", L"UTF-8ではない文字があり、正しく読み込めません。"},
    {WarningCause::ShortRow, "short-row", L"列の足りない行を読み飛ばしました。"},
    {WarningCause::EmptySlopeRow, "empty-slope-row", L"測点または横断勾配のない行があり、空の値を出力します。"},
    {WarningCause::CommaInName, "comma-in-name",
     L"列が多く、値の位置がずれています。名前にコンマを使っていないか確認してください。"},
    {WarningCause::SurplusRegions, "surplus-regions",
     L"片勾配（Superelevation）の数より多い区間があり、余る区間のReverseCrownの測点を使いません。"},
    {WarningCause::UnknownWideningSide, "unknown-widening-side", L"LeftでもRightでもない拡幅を左側に出力します。"},
    {WarningCause::UnknownWideningCode, "unknown-widening-code", L"拡幅のコードが0～4ではありません。"},
    {WarningCause::StakeNoteLeftOut, "stake-note-left-out",
     L"幅杭のグループの最初の行と異なる注記または種別を出力しません。"},

    {WarningCause::NumberNotWhole, "number-not-whole", L"数値として読み取れない部分のある値があります。"},
    {WarningCause::GroundLineWithoutPoints, "ground-line-without-points", L"点のない縦断地盤線を出力しません。"},
    {WarningCause::FurtherPointList, "further-point-list",
     L"縦断地盤線（ProfSurf）の2つ目以降のPntList2Dを出力しません。"},
    {WarningCause::GroundLineContentLeftOut, "ground-line-content-left-out",
     L"縦断地盤線の名前と点列のほかの内容を出力しません。"},
    {WarningCause::VerticalCurveLeftOut, "vertical-curve-left-out", L"縦断地盤線の縦断曲線を出力しません。"},
    {WarningCause::NearPointLeftOut, "near-point-left-out",
     L"縦断地盤線の、直前の点との差がごく小さい点を出力しません。"},
    {WarningCause::OddNumberCount, "odd-number-count", L"点列の数値が奇数個のため、最後の1個を出力しません。"},
    {WarningCause::PointNotRead, "point-not-read", L"測点と標高の組として読み取れない点を「. .」と出力します。"},
    {WarningCause::SideGuessed, "side-guessed",
     L"左右を判定できる構成点（codeがあり、中心から離れた点）がないため、sideを推定しました。"},
    {WarningCause::SideOverwritten, "side-overwritten", L"横断構成のsideを書き換えました。"},

    {WarningCause::GroundLineRemoved, "ground-line-removed", L"横断の地盤線を取り除きました。"},
    {WarningCause::OpenPavementRemoved, "open-pavement-removed",
     L"閉じていない（closedAreaがtrueではない）舗装を取り除きました。"},
    {WarningCause::FormationLeftOut, "formation-left-out", L"取り除いたFormationの離れと高さを出力しません。"},
    {WarningCause::CgPointsRemoved, "cgpoints-removed", L"作業ファイルの座標点（CgPoints）を取り除きました。"},
    {WarningCause::DanglingPntRef, "dangling-pntref", L"取り除いた座標点をpntRefが参照しています。"},
    {WarningCause::SuperelevationRemoved, "superelevation-removed",
     L"任意横断勾配リストを使う線形のため、片勾配（Superelevation）を取り除きました。"},
    {WarningCause::SlopeListRemoved, "slope-list-removed",
     L"任意横断勾配リストを使わない線形のため、任意横断勾配リスト（SlopeList）を取り除きました。"},
    {WarningCause::AdverseRemoved, "adverse-removed",
     L"すりつけ区間の測点がそろわないため、AdverseSEを取り除きました。"},
    {WarningCause::WidthStakesLeftOut, "width-stakes-left-out",
     L"標準のバージョン1.5では幅杭を出力しません（注記の入力は求められます）。"},
    {WarningCause::EmptyCrossSectsRemoved, "empty-crosssects-removed",
     L"横断面のない横断（CrossSects）を取り除きました。"},
    {WarningCause::CrossSectionLeftEmpty, "cross-section-left-empty", L"地盤線も横断構成もない横断面を出力します。"},

    {WarningCause::ProfAlignRefsLeftOut, "profalignrefs-left-out",
     L"横断に計画縦断線形の参照（profAlignRefs）を出力できません。"},
    {WarningCause::ClothoidParameterLeftOut, "clothoid-parameter-left-out",
     L"クロソイドのパラメーターAを求められません。"},
    {WarningCause::DesignValueLeftOut, "design-value-left-out",
     L"作り直す設計値のFeatureの、読み取れないPropertyを出力しません。"},

    {WarningCause::SameGroupName, "same-group-name", L"別の路線に同じ名前の幅杭のグループがあります。"},
    {WarningCause::NoSuchAlignment, "no-such-alignment", L"参照先の線形がありません。"},
    {WarningCause::DescOverridesProject, "desc-overrides-project",
     L"最初の線形のdescの値が、プロジェクトまたは座標参照系の値に優先します。"},
    {WarningCause::DescDiffers, "desc-differs", L"線形のdescの値が、出力する値と異なります。"},
    {WarningCause::GroundLineWithoutName, "ground-line-without-name",
     L"縦断地盤線（ProfSurf）に名前がないため、スキーマに適合しません。"},
    {WarningCause::StakeGroupWithoutName, "stake-group-without-name",
     L"幅杭のグループに名前がないため、スキーマに適合しません。"},
    {WarningCause::StakeGroupWithoutType, "stake-group-without-type",
     L"幅杭のグループに種別がないため、スキーマに適合しません。"},
};

struct Reason
{
    int error;
    const wchar_t* text;
};

constexpr Reason REASONS[] = {
    {ENOENT, L"ありません"},
    {ENOTDIR, L"ありません"},
    {EACCES, L"アクセス権がありません"},
    {EPERM, L"アクセス権がありません"},
    {ENOMEM, L"メモリーが足りません"},
    {EMFILE, L"開いているファイルが多すぎます"},
    {ENFILE, L"開いているファイルが多すぎます"},
    {EISDIR, L"通常のファイルではありません"},
    {EEXIST, L"同じ名前のファイルがあります"},
    {EIO, L"読み取り中にエラーが発生しました"},
    {ENOSPC, L"空き容量がありません"},
    {EROFS, L"読み取り専用です"},
    {ENAMETOOLONG, L"名前が長すぎます"},
};

/// As many places of a cause as are named; the others are only counted.
constexpr std::size_t NAMED_PLACES = 3;

/// A cause in a file, with its places.
struct Noted
{
    WarningCause cause{};
    std::size_t count = 0;
    std::array<WarningPlace, NAMED_PLACES> first;
};

std::vector<Noted>& Notes()
{
    static std::vector<Noted> notes;
    return notes;
}

/// Set where not even a warning found memory.
bool isOneLost = false;

Noted& NotedOf(WarningCause cause, const std::wstring& file)
{
    std::vector<Noted>& notes = Notes();
    // What was noted last is what comes again.
    const auto known = std::find_if(notes.rbegin(), notes.rend(), [&](const Noted& one) {
        return one.cause == cause && one.first.front().file == file;
    });
    return known != notes.rend() ? *known : notes.emplace_back(Noted{cause, 0, {}});
}

/// The named places joined, each as `tell` puts it, and how many more there are.
template <class Tell>
std::wstring JoinPlaces(const Noted& noted, Tell&& tell)
{
    std::wstring joined;
    for (std::size_t i = 0; i < std::min(noted.count, NAMED_PLACES); ++i)
    {
        const std::wstring one = tell(noted.first[i]);
        joined += (joined.empty() || one.empty() ? L"" : L"、") + one;
    }
    const bool areMore = noted.count > NAMED_PLACES && !joined.empty();
    return areMore ? joined + L"ほか" + std::to_wstring(noted.count - NAMED_PLACES) + L"件" : joined;
}

std::wstring TellPlace(const WarningPlace& place)
{
    std::wstring told = place.object;
    if (place.row)
    {
        told += (told.empty() ? L"" : L" ") + std::to_wstring(*place.row) + L"行目";
    }
    return place.remark.empty() ? told : told + L"（" + place.remark + L"）";
}

Warning TellNoted(const Noted& noted)
{
    const auto* const cause = std::find_if(std::begin(CAUSES), std::end(CAUSES),
                                           [&](const CauseText& one) { return one.cause == noted.cause; });
    const WarningPlace& first = noted.first.front();
    const std::wstring places = JoinPlaces(noted, TellPlace);
    // A lone reason stands behind its file like a remark behind its object.
    const bool isFileAlone = first.object.empty() && !first.row;
    return {cause->code,
            cause->text,
            first.file + (isFileAlone || first.file.empty() ? places : L" " + places),
            first.path,
            JoinPlaces(noted, [](const WarningPlace& place) { return place.object; }),
            first.file,
            first.row,
            noted.count};
}

} // namespace

std::wstring ReasonText(int error)
{
    const auto* const reason =
        std::find_if(std::begin(REASONS), std::end(REASONS), [&](const Reason& one) { return one.error == error; });
    return reason != std::end(REASONS) ? reason->text : L"システムのエラー" + std::to_wstring(error);
}

void WarnOf(WarningCause cause, const WarningPlace& place) noexcept
{
    WarnOf(cause, place.file, [&] { return place; });
}

void WarnOf(WarningCause cause, const std::wstring& file, const std::function<WarningPlace()>& place) noexcept
{
    try
    {
        Noted& noted = NotedOf(cause, file);
        if (noted.count < NAMED_PLACES)
        {
            WarningPlace kept = place();
            kept.file = file;
            noted.first.at(noted.count) = std::move(kept);
        }
        ++noted.count;
    }
    catch (const std::bad_alloc&)
    {
        isOneLost = true;
    }
}

void WarnOf(WarningCause cause, const std::wstring& file, int error) noexcept
{
    try
    {
        WarnOf(cause, WarningPlace{.file = file, .remark = error != 0 ? ReasonText(error) : std::wstring()});
    }
    catch (const std::bad_alloc&)
    {
        isOneLost = true;
    }
}

std::vector<WarningText> WarningTexts()
{
    std::vector<WarningText> texts;
    for (const CauseText& row : CAUSES)
    {
        texts.push_back({row.code, row.text});
    }
    return texts;
}

void ForgetWarnings() noexcept
{
    Notes().clear();
    isOneLost = false;
}

std::vector<Warning> TakeWarnings() noexcept
{
    const std::vector<Noted> notes = std::exchange(Notes(), {});
    std::vector<Warning> taken;
    try
    {
        for (const Noted& noted : notes)
        {
            if (noted.count > 0) // none of its places found memory otherwise
            {
                taken.push_back(TellNoted(noted));
            }
        }
    }
    catch (const std::bad_alloc&)
    {
        isOneLost = true;
    }
    if (std::exchange(isOneLost, false))
    {
        try
        {
            taken.push_back(TellNoted({WarningCause::NoMemory, 1, {}}));
        }
        catch (const std::bad_alloc&)
        {
            isOneLost = true;
        }
    }
    return taken;
}

} // namespace jlandxml
