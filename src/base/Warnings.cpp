#include "base/Warnings.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace jlandxml
{

namespace
{

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
};

std::vector<Warning>& Warnings()
{
    static std::vector<Warning> warnings;
    return warnings;
}

/// Set where not even a warning found memory.
bool isOneLost = false;

std::wstring ReasonText(int error)
{
    const auto* const reason =
        std::find_if(std::begin(REASONS), std::end(REASONS), [&](const Reason& one) { return one.error == error; });
    return reason != std::end(REASONS) ? reason->text : L"システムのエラー" + std::to_wstring(error);
}

} // namespace

void WarnOf(std::wstring_view text, const std::wstring& path, int error) noexcept
{
    try
    {
        Warnings().push_back(
            {std::wstring(text), error != 0 ? path + L"（" + ReasonText(error) + L"）" : std::wstring(path)});
    }
    catch (const std::bad_alloc&)
    {
        isOneLost = true;
    }
}

std::vector<Warning> TakeWarnings() noexcept
{
    std::vector<Warning> taken = std::exchange(Warnings(), {});
    if (std::exchange(isOneLost, false))
    {
        try
        {
            taken.push_back({L"メモリーが足りないため、読み込まなかったデータがあります。", {}});
        }
        catch (const std::bad_alloc&)
        {
            isOneLost = true;
        }
    }
    return taken;
}

} // namespace jlandxml
