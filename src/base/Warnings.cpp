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
    const auto known = std::find_if(notes.begin(), notes.end(), [&](const Noted& one) {
        return one.cause == cause && one.first.front().file == file;
    });
    return known != notes.end() ? *known : notes.emplace_back(Noted{cause, 0, {}});
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
            first.file + (isFileAlone || places.empty() || first.file.empty() ? places : L" " + places),
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
    try
    {
        Noted& noted = NotedOf(cause, place.file);
        if (noted.count < NAMED_PLACES)
        {
            WarningPlace kept = place;
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
        WarnOf(cause, {.file = file, .remark = error != 0 ? ReasonText(error) : std::wstring()});
    }
    catch (const std::bad_alloc&)
    {
        isOneLost = true;
    }
}

std::vector<Warning> TakeWarnings() noexcept
{
    const std::vector<Noted> notes = std::exchange(Notes(), {});
    std::vector<Warning> taken;
    try
    {
        for (const Noted& noted : notes)
        {
            taken.push_back(TellNoted(noted));
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
