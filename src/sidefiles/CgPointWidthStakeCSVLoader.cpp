#include "sidefiles/CgPointWidthStakeCSVLoader.h"

#include "run/ConversionContext.h"

#include <iterator>
#include <string>
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

FViewCgPointWidthStake MakeStake(const CsvRow& row)
{
    FViewCgPointWidthStake stake;
    stake.groupName = CompactText::FromUtf8(row[stake_column::GROUP_NAME]);
    stake.name = CompactText::FromUtf8(row[stake_column::NAME]);
    stake.stakeText = CompactText::FromUtf8(row[stake_column::STAKE_TEXT]);
    stake.sta = CsvNumber(row[stake_column::STATION]);
    stake.firstCoordinate = CsvNumber(row[stake_column::FIRST_COORDINATE]);
    stake.secondCoordinate = CsvNumber(row[stake_column::SECOND_COORDINATE]);
    stake.thirdCoordinate = CsvNumber(row[stake_column::THIRD_COORDINATE]);
    stake.stakeValue = CsvNumber(row[stake_column::STAKE_VALUE]);
    stake.groupDesc = CompactText::FromUtf8(row[stake_column::GROUP_DESC]);
    stake.groupType = CompactText::FromUtf8(row[stake_column::GROUP_TYPE]);
    return stake;
}

/// A group takes its description and its type from its first stake.
FViewCgPointsWidthStake MakeGroup(const FViewCgPointWidthStake& stake)
{
    FViewCgPointsWidthStake group;
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
        if (row.Size() < stake_column::STAKE_COLUMNS)
        {
            continue;
        }
        FViewCgPointWidthStake stake = MakeStake(row);
        name = stake.groupName.Bytes();
        const auto [entry, isNew] = groupsByName.try_emplace(name, groups.size());
        if (isNew)
        {
            groups.push_back(MakeGroup(stake));
            const auto count = room.find(std::string(row[stake_column::GROUP_NAME]));
            groups.back().points.reserve(count != room.end() ? count->second : 0);
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
