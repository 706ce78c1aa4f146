#include "sidefiles/WideningCSVLoader.h"

#include "base/Text.h"
#include "sidefiles/RouteAlignments.h"

#include <optional>
#include <utility>

namespace jlandxml
{

namespace
{

namespace widening_column
{
enum : std::size_t
{
    SIDE,
    STATION,
    WIDTH,
    CODE
};
} // namespace widening_column

/// A row this short is no widening. One without a code is a fault of the file.
constexpr std::size_t LEAST_WIDENING_COLUMNS = 3;
constexpr std::string_view RIGHT = "Right";
constexpr std::string_view LEFT = "Left";

} // namespace

bool WideningCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<WideningCSVLoadException>(path, [this] { ReadWidening(); });
}

void WideningCSVLoader::WarnOfWords(const CsvRow& row, const FViewWidening& widening) const
{
    const std::string_view side = row[widening_column::SIDE];
    if (side != RIGHT && side != LEFT)
    {
        WarnOfRow(WarningCause::UnknownWideningSide, L"「" + WideFromUtf8(side) + L"」");
    }
    if (const std::optional<std::wstring> remark = WideningCodeRemark(widening.code))
    {
        WarnOfRow(WarningCause::UnknownWideningCode, *remark);
    }
}

void WideningCSVLoader::ReadWidening()
{
    PiCmCopyList<FViewWidening> left;
    PiCmCopyList<FViewWidening> right;
    bool isEmpty = true;
    CsvRow row;
    rows.Skip(TITLE_ROWS);
    while (rows.Next(row))
    {
        isEmpty = false;
        if (IsPassedOver(row, LEAST_WIDENING_COLUMNS))
        {
            continue;
        }
        FViewWidening widening;
        widening.station = NumberOf(row, widening_column::STATION);
        widening.width = NumberOf(row, widening_column::WIDTH);
        widening.code = CompactText::FromUtf8(row[widening_column::CODE]);
        WarnOfWords(row, widening);
        (row[widening_column::SIDE] == RIGHT ? right : left).push_back(std::move(widening));
    }
    const FViewAlignment* first = nullptr;
    ForEachRouteAlignment([&](FViewAlignment& alignment) {
        if (first == nullptr)
        {
            alignment.widthLeftValue = std::move(left);
            alignment.widthRightValue = std::move(right);
            first = &alignment;
            return;
        }
        alignment.widthLeftValue = first->widthLeftValue;
        alignment.widthRightValue = first->widthRightValue;
    });
    if (first == nullptr && !isEmpty)
    {
        WarnOfUnknownRoute(rows.Path());
    }
}

} // namespace jlandxml
