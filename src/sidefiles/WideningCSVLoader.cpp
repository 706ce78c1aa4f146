#include "sidefiles/WideningCSVLoader.h"

#include "sidefiles/RouteAlignments.h"

namespace jlandxml
{

namespace
{

enum WideningColumn : std::size_t
{
    SIDE,
    STATION,
    WIDTH,
    CODE
};

/// A row this short is no widening. One without a code is a fault of the file.
constexpr std::size_t LEAST_COLUMNS = 3;
constexpr std::wstring_view RIGHT = L"Right";

} // namespace

bool WideningCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<WideningCSVLoadException>(path, [this] { ReadWidening(); });
}

void WideningCSVLoader::ReadWidening()
{
    CsvRow row;
    rows.Skip(TITLE_ROWS);
    while (rows.Next(row))
    {
        if (row.Size() < LEAST_COLUMNS)
        {
            continue;
        }
        FViewWidening widening;
        widening.station = CsvNumber(row[STATION]);
        widening.width = CsvNumber(row[WIDTH]);
        widening.code = row[CODE];
        (row[SIDE] == RIGHT ? right_ : left_).push_back(std::move(widening));
    }
    ForEachRouteAlignment([this](FViewAlignment& alignment) {
        alignment.widthLeftValue = left_;
        alignment.widthRightValue = right_;
    });
}

} // namespace jlandxml
