#include "sidefiles/CgPointIntermediateCSVLoader.h"

#include "base/Streams.h"
#include "base/Text.h"
#include "run/ConversionContext.h"

namespace jlandxml
{

namespace
{

constexpr std::size_t ALIGNMENT_NAME_COLUMN = 1;

namespace point_column
{
enum : std::size_t
{
    NAME,
    STATION,
    FIRST_COORDINATE,
    SECOND_COORDINATE,
    THIRD_COORDINATE,
    TANGENT_DIRECTION_ANGLE,
    POINT_COLUMNS
};
} // namespace point_column

/// A comma in the name of a point puts its last number behind the last column.
bool IsPointShifted(const CsvRow& row)
{
    bool isNumber = row.Size() == point_column::POINT_COLUMNS + 1 && !row[point_column::POINT_COLUMNS].empty();
    if (isNumber)
    {
        CsvNumber(row[point_column::POINT_COLUMNS], isNumber);
    }
    return isNumber;
}

} // namespace

bool CgPointIntermediateCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<IntermediateCSVLoadException>(path, [this] { ReadPoints(); });
}

void CgPointIntermediateCSVLoader::WarnOfRouteName(const CsvRow& row) const
{
    if (row[ALIGNMENT_NAME_COLUMN].empty())
    {
        WarnOfRow(WarningCause::NoRouteName);
    }
    if (row.Size() > ALIGNMENT_NAME_COLUMN + 1 && !row[ALIGNMENT_NAME_COLUMN + 1].empty())
    {
        WarnOfRow(WarningCause::CommaInName);
    }
}

FViewCgPointIntermediate CgPointIntermediateCSVLoader::MakePoint(const CsvRow& row) const
{
    const bool isShifted = IsPointShifted(row);
    if (isShifted)
    {
        WarnOfRow(WarningCause::CommaInName);
    }
    FViewCgPointIntermediate point;
    point.name = CompactText::FromUtf8(row[point_column::NAME]);
    point.sta = NumberOf(row, point_column::STATION, isShifted);
    point.firstCoordinate = NumberOf(row, point_column::FIRST_COORDINATE, isShifted);
    point.secondCoordinate = NumberOf(row, point_column::SECOND_COORDINATE, isShifted);
    point.thirdCoordinate = NumberOf(row, point_column::THIRD_COORDINATE, isShifted);
    point.tangentDirectionAngle = NumberOf(row, point_column::TANGENT_DIRECTION_ANGLE, isShifted);
    return point;
}

void CgPointIntermediateCSVLoader::ReadPoints()
{
    FViewCgPointsIntermediate group;
    CsvRow row;
    if (rows.Next(row))
    {
        const std::wstring name = WideFromUtf8(row[ALIGNMENT_NAME_COLUMN]);
        WarnOfRouteName(row);
        WriteTraceLine(L"Row Value: " + name + L"\n");
        GetCurrentRouteName() = name;
        rows.Skip(1);
    }
    group.points.reserve(rows.CountRows(point_column::POINT_COLUMNS));
    while (rows.Next(row))
    {
        if (IsPassedOver(row, point_column::POINT_COLUMNS))
        {
            continue;
        }
        group.points.push_back(MakePoint(row));
    }
    FViewCgPointsIntermediateList& groups = GetConversionContext().model.intermediatePoints;
    group.alignmentRefs = GetCurrentRouteName();
    group.sourceFile = rows.Path();
    group.name = L"IntermediatePnts-" + std::to_wstring(groups.size() + 1);
    groups.push_back(std::move(group));
}

} // namespace jlandxml
