#include "model/FViewWidening.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "model/NumberText.h"

namespace jlandxml
{

namespace
{

constexpr int STATION_DIGITS = 6;
constexpr int WIDTH_DIGITS = 4;
constexpr std::int32_t LAST_CODE = 4;

bool IsKnownCode(std::wstring_view code)
{
    const std::int32_t value = ParseInt(code).value;
    return value >= 0 && value <= LAST_CODE;
}

} // namespace

void FViewWidening::Clear()
{
    station = 0.0;
    width = 0.0;
    code.clear();
}

bool ParseWideningText(std::wstring_view text, double& station, double& width, CompactText& code)
{
    const std::size_t first = text.find(L' ');
    if (first == std::wstring_view::npos)
    {
        return false;
    }
    const std::wstring_view rest = text.substr(first + 1);
    const std::size_t second = rest.find(L' ');
    station = ReadNumber(Trim(text.substr(0, first)));
    width = ReadNumber(Trim(rest.substr(0, second)));
    code = second == std::wstring_view::npos ? std::wstring_view() : rest.substr(second + 1);
    return true;
}

std::optional<std::wstring> WideningCodeRemark(const CompactText& code)
{
    const std::string_view text = code.Bytes();
    if (text.empty() || (text.size() == 1 && text.front() >= '0' && text.front() <= '0' + LAST_CODE))
    {
        return std::nullopt;
    }
    const std::wstring wide = code.Wide();
    return L"「" + wide + L"」" + (IsKnownCode(wide) ? L"のまま出力します" : L"を「0」と出力します");
}

std::wstring FormatWideningText(const FViewWidening& widening)
{
    std::wstring text = NumberText(widening.station, STATION_DIGITS) + L" " + NumberText(widening.width, WIDTH_DIGITS);
    if (!widening.code.empty())
    {
        const std::wstring code = widening.code.Wide();
        text += L" " + (IsKnownCode(code) ? code : L"0");
    }
    return text;
}

} // namespace jlandxml
