#pragma once

#include "cli/ConvertOptions.h"
#include "cli/RunResult.h"
#include "cli/Settings.h"

#include <string>

namespace jlandxml
{

/// Converts one work folder with the settings as the user of the dialog, and checks and draws the file where that is
/// asked for. Nothing is told but what the user asked to be printed, and warnings where want of memory ends the run,
/// which throws std::bad_alloc.
RunResult RunWorkFolder(const ConvertOptions& options, const std::wstring& folder, const Json& settings);

/// True for a folder that is there.
bool IsFolder(const std::wstring& path);

/// What is told of a work folder that isn't there.
ToldLine NoFolderLine(const std::wstring& folder);

/// The number of routes that is asked for or, without, that the side files tell.
std::int32_t RouteCount(const ConvertOptions& options, const std::wstring& folder);

} // namespace jlandxml
