#pragma once

#include "cli/ConvertOptions.h"
#include "cli/Settings.h"

#include <string>

namespace jlandxml
{

/// Converts the work folders, each in a process of `program`, so many at a time as the options say. Each is told in a
/// line of its own, in the order of the command line. None stops the others; the highest status is the result. Where
/// the user interrupts, those that have begun are finished and the others are told.
ExitStatus ConvertMany(const ConvertOptions& options, const Json& settings, const std::wstring& program);

} // namespace jlandxml
