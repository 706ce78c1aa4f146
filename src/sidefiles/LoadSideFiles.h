#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace jlandxml
{

/// The beginnings of the names of a route's side files, in the order in which they are read; the route's number and
/// ".csv" follow.
inline constexpr std::array<const wchar_t*, 4> SIDE_FILES = {L"/intermediatePts_temp_", L"/widthStake_temp_",
                                                             L"/superElevation_temp_", L"/widening_temp_"};

/// The path of a side file of a route.
std::wstring SideFilePath(const std::wstring& folder, const wchar_t* sideFile, std::int32_t route);

/// The number of routes that a work folder has side files of: the largest number for which one of the four exists, 0 if
/// there is none.
std::int32_t CountRoutes(const std::wstring& folder);

/// The paths of the side files in a work folder, of however many routes.
std::vector<std::wstring> SideFilesOf(const std::wstring& folder);

/// Reads the side files of the routes from 1 to the count. The first file of a route names the alignment for the
/// others; the name is empty again after each route. A missing file is normal. Throws the exception of the loader that
/// fails.
void LoadSideFiles(const std::wstring& folder, std::int32_t routeCount);

/// Notes each route beyond the count that has side files: they won't be read.
void WarnOfSideFilesBeyond(const std::wstring& folder, std::int32_t routeCount);

} // namespace jlandxml
