#pragma once

#include <string>
#include <vector>

namespace jlandxml
{

/// How an inspection ended.
enum class InspectStatus
{
    NothingFound = 0, ///< nothing at or above the severity asked for
    Findings = 1,
    WrongUsage = 2,
    NotRead = 3 ///< a file couldn't be read, or what was found out couldn't be written
};

/// Runs jlandxml-inspect with its arguments (without the program's name). Of several files the highest status counts.
InspectStatus RunInspectCommandLine(const std::vector<std::wstring>& arguments);

} // namespace jlandxml
