#include "sidefiles/LoadSideFiles.h"

#include "base/Files.h"
#include "base/Numbers.h"
#include "run/ConversionContext.h"
#include "sidefiles/CgPointIntermediateCSVLoader.h"
#include "sidefiles/CgPointWidthStakeCSVLoader.h"
#include "sidefiles/SuperElevationCSVLoader.h"
#include "sidefiles/WideningCSVLoader.h"

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

void LoadRoute(const std::wstring& folder, std::int32_t route)
{
    const RouteNameScope scope;
    CgPointIntermediateCSVLoader intermediatePoints;
    intermediatePoints.Load(SideFilePath(folder, SIDE_FILES[0], route));
    CgPointWidthStakeCSVLoader widthStakes;
    widthStakes.Load(SideFilePath(folder, SIDE_FILES[1], route));
    SuperElevationCSVLoader superelevation;
    superelevation.Load(SideFilePath(folder, SIDE_FILES[2], route));
    WideningCSVLoader widening;
    widening.Load(SideFilePath(folder, SIDE_FILES[3], route));
}

} // namespace

std::wstring SideFilePath(const std::wstring& folder, const wchar_t* sideFile, std::int32_t route)
{
    return folder + sideFile + std::to_wstring(route) + L".csv";
}

std::int32_t CountRoutes(const std::wstring& folder)
{
    std::int32_t count = 0;
    for (const std::wstring& name : FileNames(folder))
    {
        for (const wchar_t* const sideFile : SIDE_FILES)
        {
            // Between the beginning and ".csv" stands the number as it would be printed.
            const std::wstring_view beginning = std::wstring_view(sideFile).substr(1);
            const std::int32_t route = name.starts_with(beginning) ? ParseInt(name.substr(beginning.size())).value : 0;
            if (route > count && L"/" + name == SideFilePath(L"", sideFile, route))
            {
                count = route;
            }
        }
    }
    return count;
}

void LoadSideFiles(const std::wstring& folder, std::int32_t routeCount)
{
    for (std::int64_t route = 1; route <= routeCount; ++route)
    {
        LoadRoute(folder, static_cast<std::int32_t>(route));
    }
}

} // namespace jlandxml
