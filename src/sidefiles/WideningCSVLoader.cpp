#include "sidefiles/WideningCSVLoader.h"

#include "sidefiles/RouteAlignments.h"

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

} // namespace

bool WideningCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<WideningCSVLoadException>(path, [this] { ReadWidening(); });
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
        if (row.Size() < LEAST_WIDENING_COLUMNS)
        {
            WarnOfRow(WarningCause::ShortRow);
            continue;
        }
        FViewWidening widening;
        widening.station = NumberOf(row, widening_column::STATION);
        widening.width = NumberOf(row, widening_column::WIDTH);
        widening.code = CompactText::FromUtf8(row[widening_column::CODE]);
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
