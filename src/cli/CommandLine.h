#pragma once

#include <string>
#include <vector>

namespace jlandxml
{

/// How a run of the command line ended.
enum class ExitStatus
{
    FileWritten = 0,
    Findings = 1,   ///< what the user must complete, or with --check an 誤り in the written file
    WrongUsage = 2, ///< the command line or the settings
    NoFile = 3 ///< a message box was shown, no file was produced, or standard output didn't take what was asked for
};

/// Runs the program with its arguments (without the program's name).
ExitStatus RunCommandLine(const std::vector<std::wstring>& arguments);

} // namespace jlandxml
