#include "sidefiles/CgPointWidthStakeCSVLoader.h"

#include "run/ConversionContext.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>
#include <unordered_map>

namespace jlandxml
{

namespace
{

namespace stake_column
{
enum : std::size_t
{
    GROUP_NAME,
    NAME,
    STAKE_TEXT,
    STATION,
    FIRST_COORDINATE,
    SECOND_COORDINATE,
    THIRD_COORDINATE,
    STAKE_VALUE,
    GROUP_DESC,
    GROUP_TYPE,
    STAKE_COLUMNS
};
} // namespace stake_column

/// Whether the stakes of a group enclose an area.
constexpr std::array<std::string_view, 2> GROUP_TYPES = {"open", "closed"};

/// A comma in a name moves the columns behind it: the station is empty or a text then.
bool IsStakeShifted(const CsvRow& row)
{
    bool isStation = true;
    if (row.Size() > stake_column::STAKE_COLUMNS)
    {
        CsvNumber(row[stake_column::STATION], isStation);
        isStation = isStation && !row[stake_column::STATION].empty();
    }
    return !isStation;
}

bool IsGroupType(std::string_view field)
{
    return std::find(GROUP_TYPES.begin(), GROUP_TYPES.end(), field) != GROUP_TYPES.end();
}

/// A comma in the note puts the type behind the last column.
bool IsTypeShifted(const CsvRow& row)
{
    bool isFurther = false;
    for (std::size_t column = stake_column::STAKE_COLUMNS; column < row.Size(); ++column)
    {
        isFurther = isFurther || IsGroupType(row[column]);
    }
    return isFurther && !IsGroupType(row[stake_column::GROUP_TYPE]);
}

/// An empty field says nothing that could be lost.
bool Differs(const CompactText& field, const CompactText& first)
{
    return !field.empty() && !(field == first);
}

/// A group takes its description and its type from its first stake.
FViewCgPointsWidthStake MakeGroup(const FViewCgPointWidthStake& stake, const std::wstring& file)
{
    FViewCgPointsWidthStake group;
    group.sourceFile = file;
    group.name = stake.groupName;
    group.desc = stake.groupDesc;
    group.type = stake.groupType;
    return group;
}

} // namespace

bool CgPointWidthStakeCSVLoader::Load(const std::wstring& path)
{
    return LoadRows<WidthStakeCSVLoadException>(path, [this] { ReadStakes(); });
}

FViewCgPointWidthStake CgPointWidthStakeCSVLoader::MakeStake(const CsvRow& row) const
{
    const bool isShifted = IsStakeShifted(row);
    if (isShifted || IsTypeShifted(row))
    {
        WarnOfRow(WarningCause::CommaInName);
    }
    FViewCgPointWidthStake stake;
    stake.groupName = CompactText::FromUtf8(row[stake_column::GROUP_NAME]);
    stake.name = CompactText::FromUtf8(row[stake_column::NAME]);
    stake.stakeText = CompactText::FromUtf8(row[stake_column::STAKE_TEXT]);
    stake.sta = NumberOf(row, stake_column::STATION, isShifted);
    stake.firstCoordinate = NumberOf(row, stake_column::FIRST_COORDINATE, isShifted);
    stake.secondCoordinate = NumberOf(row, stake_column::SECOND_COORDINATE, isShifted);
    stake.thirdCoordinate = NumberOf(row, stake_column::THIRD_COORDINATE, isShifted);
    stake.stakeValue = NumberOf(row, stake_column::STAKE_VALUE, isShifted);
    stake.groupDesc = CompactText::FromUtf8(row[stake_column::GROUP_DESC]);
    stake.groupType = CompactText::FromUtf8(row[stake_column::GROUP_TYPE]);
    return stake;
}

void CgPointWidthStakeCSVLoader::ReadStakes()
{
    PiCmCopyList<FViewCgPointsWidthStake> groups; // in the order in which they first appear
    std::unordered_map<std::string, std::size_t> groupsByName;
    std::string name;
    CsvRow row;
    rows.Skip(TITLE_ROWS);
    const auto room = rows.CountByFirstField(stake_column::STAKE_COLUMNS);
    while (rows.Next(row))
    {
        if (IsPassedOver(row, stake_column::STAKE_COLUMNS))
        {
            continue;
        }
        FViewCgPointWidthStake stake = MakeStake(row);
        name = stake.groupName.Bytes();
        const auto [entry, isNew] = groupsByName.try_emplace(name, groups.size());
        if (isNew)
        {
            groups.push_back(MakeGroup(stake, rows.Path()));
            const auto count = room.find(std::string(row[stake_column::GROUP_NAME]));
            groups.back().points.reserve(count != room.end() ? count->second : 0);
        }
        else if (const FViewCgPointWidthStake& first = groups[entry->second].points.front();
                 Differs(stake.groupDesc, first.groupDesc) || Differs(stake.groupType, first.groupType))
        {
            WarnOfRow(WarningCause::StakeNoteLeftOut);
        }
        groups[entry->second].points.push_back(std::move(stake));
    }
    for (FViewCgPointsWidthStake& group : groups)
    {
        group.alignmentRefs = GetCurrentRouteName();
    }
    FViewCgPointsWidthStakeList& all = GetConversionContext().model.widthStakePoints;
    all.insert(all.end(), std::make_move_iterator(groups.begin()), std::make_move_iterator(groups.end()));
}

} // namespace jlandxml
