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

FViewCgPointIntermediate MakePoint(const CsvRow& row)
{
    FViewCgPointIntermediate point;
    point.name = CompactText::FromUtf8(row[point_column::NAME]);
    point.sta = CsvNumber(row[point_column::STATION]);
    point.firstCoordinate = CsvNumber(row[point_column::FIRST_COORDINATE]);
    point.secondCoordinate = CsvNumber(row[point_column::SECOND_COORDINATE]);
    point.thirdCoordinate = CsvNumber(row[point_column::THIRD_COORDINATE]);
    point.tangentDirectionAngle = CsvNumber(row[point_column::TANGENT_DIRECTION_ANGLE]);
    return point;
}

} // namespace

bool CgPointIntermediateCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<IntermediateCSVLoadException>(path, [this] { ReadPoints(); });
}

void CgPointIntermediateCSVLoader::ReadPoints()
{
    FViewCgPointsIntermediate group;
    CsvRow row;
    if (rows.Next(row))
    {
        const std::wstring name = WideFromUtf8(row[ALIGNMENT_NAME_COLUMN]);
        WriteTraceLine(L"Row Value: " + name + L"\n");
        GetCurrentRouteName() = name;
        rows.Skip(1);
    }
    group.points.reserve(rows.CountRows(point_column::POINT_COLUMNS));
    while (rows.Next(row))
    {
        if (row.Size() >= point_column::POINT_COLUMNS)
        {
            group.points.push_back(MakePoint(row));
        }
    }
    FViewCgPointsIntermediateList& groups = GetConversionContext().model.intermediatePoints;
    group.alignmentRefs = GetCurrentRouteName();
    group.name = L"IntermediatePnts-" + std::to_wstring(groups.size() + 1);
    groups.push_back(std::move(group));
}

} // namespace jlandxml
