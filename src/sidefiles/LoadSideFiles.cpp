#include "sidefiles/LoadSideFiles.h"

#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Warnings.h"
#include "model/CurrentDesignType.h"
#include "run/ConversionContext.h"
#include "sidefiles/CgPointIntermediateCSVLoader.h"
#include "sidefiles/CgPointWidthStakeCSVLoader.h"
#include "sidefiles/SuperElevationCSVLoader.h"
#include "sidefiles/WideningCSVLoader.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

namespace jlandxml
{

namespace
{

/// Empties the route name at the end of a route, also if one of its files fails: the next call sees only its own input.
class RouteNameScope
{
  public:
    RouteNameScope() = default;
    RouteNameScope(const RouteNameScope&) = delete;
    RouteNameScope& operator=(const RouteNameScope&) = delete;
    ~RouteNameScope() { GetCurrentRouteName().clear(); }
};

/// So many routes are asked for one by one; of more, the folder says which have a file.
constexpr std::int32_t MANY_ROUTES = 1000;

/// The numbers from 1 that stand in front of an extension in the names of a folder's files. The name itself is left to
/// the system, which may know the file in another case. A missing folder has none; nothing if the folder is there but
/// doesn't tell all its names.
std::optional<std::set<std::int32_t>> NumbersInNames(const std::wstring& folder)
{
    std::set<std::int32_t> numbers;
    const std::optional<std::vector<std::wstring>> names = FileNames(folder + L"/");
    if (!names)
    {
        return PathExists(folder + L"/") ? std::nullopt : std::optional(numbers);
    }
    for (const std::wstring& name : *names)
    {
        const std::wstring_view stem = std::wstring_view(name).substr(0, name.rfind(L'.'));
        const std::int32_t number = ParseInt(stem.substr(stem.find_last_not_of(L"0123456789") + 1)).value;
        if (number > 0)
        {
            numbers.insert(number);
        }
    }
    return numbers;
}

bool HasSideFile(const std::wstring& folder, std::int32_t route)
{
    return std::any_of(SIDE_FILES.begin(), SIDE_FILES.end(),
                       [&](const wchar_t* sideFile) { return PathExists(SideFilePath(folder, sideFile, route)); });
}

/// A river has no cross slopes and no widening of a carriageway.
constexpr std::size_t RIVER_SIDE_FILES = 2;

/// True if the alignment of the current route belongs to a river.
bool IsRiverRoute()
{
    const FViewAlignmentsList& routes = GetConversionContext().model.alignments;
    return std::any_of(routes.begin(), routes.end(), [](const FViewAlignments& route) {
        return route.designGmType == RIVER_DESIGN &&
               std::any_of(route.alignments.begin(), route.alignments.end(),
                           [](const FViewAlignment& alignment) { return alignment.name == GetCurrentRouteName(); });
    });
}

/// Which of a route's side files are there.
using FilesThere = std::array<bool, SIDE_FILES.size()>;

/// How many files there are behind the first one, and their names, which stand behind so many characters of their
/// paths.
std::wstring OtherFiles(const std::vector<std::wstring>& paths, std::size_t folderLength)
{
    std::wstring names;
    for (std::size_t file = 1; file < paths.size(); ++file)
    {
        names += (names.empty() ? L"" : L"、") + paths[file].substr(folderLength);
    }
    return names.empty() ? names : L"ほか" + std::to_wstring(paths.size() - 1) + L"件: " + names;
}

void WarnOfMissingFiles(const std::wstring& folder, std::int32_t route, const FilesThere& isThere)
{
    const std::size_t wanted = IsRiverRoute() ? RIVER_SIDE_FILES : SIDE_FILES.size();
    const bool isAnyThere = std::find(isThere.begin(), isThere.end(), true) != isThere.end();
    std::vector<std::wstring> missing;
    for (std::size_t file = 0; file < wanted && isAnyThere; ++file)
    {
        if (!isThere[file])
        {
            missing.push_back(SideFilePath(folder, SIDE_FILES[file], route));
        }
    }
    if (!missing.empty())
    {
        WarnOf(WarningCause::MissingSideFile,
               WarningPlace{.file = missing.front(), .remark = OtherFiles(missing, folder.size() + 1)});
    }
}

void LoadRoute(const std::wstring& folder, std::int32_t route)
{
    const RouteNameScope scope;
    FilesThere isThere{};
    CgPointIntermediateCSVLoader intermediatePoints;
    isThere[0] = intermediatePoints.Load(SideFilePath(folder, SIDE_FILES[0], route));
    CgPointWidthStakeCSVLoader widthStakes;
    isThere[1] = widthStakes.Load(SideFilePath(folder, SIDE_FILES[1], route));
    SuperElevationCSVLoader superelevation;
    isThere[2] = superelevation.Load(SideFilePath(folder, SIDE_FILES[2], route));
    WideningCSVLoader widening;
    isThere[3] = widening.Load(SideFilePath(folder, SIDE_FILES[3], route));
    WarnOfMissingFiles(folder, route, isThere);
}

} // namespace

std::wstring SideFilePath(const std::wstring& folder, const wchar_t* sideFile, std::int32_t route)
{
    return folder + sideFile + std::to_wstring(route) + L".csv";
}

std::int32_t CountRoutes(const std::wstring& folder)
{
    const std::set<std::int32_t> numbers = NumbersInNames(folder).value_or(std::set<std::int32_t>());
    const auto largest = std::find_if(numbers.rbegin(), numbers.rend(),
                                      [&](std::int32_t number) { return HasSideFile(folder, number); });
    return largest != numbers.rend() ? *largest : 0;
}

std::vector<std::wstring> SideFilesOf(const std::wstring& folder)
{
    std::vector<std::wstring> paths;
    for (const std::int32_t number : NumbersInNames(folder).value_or(std::set<std::int32_t>()))
    {
        for (const wchar_t* const sideFile : SIDE_FILES)
        {
            std::wstring path = SideFilePath(folder, sideFile, number);
            if (PathExists(path))
            {
                paths.push_back(std::move(path));
            }
        }
    }
    return paths;
}

void LoadSideFiles(const std::wstring& folder, std::int32_t routeCount)
{
    if (const auto numbers = routeCount > MANY_ROUTES ? NumbersInNames(folder) : std::nullopt)
    {
        std::for_each(numbers->begin(), numbers->upper_bound(routeCount),
                      [&](std::int32_t number) { LoadRoute(folder, number); });
        return;
    }
    for (std::int64_t route = 1; route <= routeCount; ++route)
    {
        LoadRoute(folder, static_cast<std::int32_t>(route));
    }
}

void WarnOfSideFilesBeyond(const std::wstring& folder, std::int32_t routeCount)
{
    const std::set<std::int32_t> numbers = NumbersInNames(folder).value_or(std::set<std::int32_t>());
    std::for_each(numbers.upper_bound(std::max(routeCount, 0)), numbers.end(), [&](std::int32_t number) {
        if (HasSideFile(folder, number))
        {
            WarnOf(WarningCause::SideFileBeyondRoutes,
                   WarningPlace{.file = folder, .object = L"路線" + std::to_wstring(number), .remark = {}});
        }
    });
}

} // namespace jlandxml
