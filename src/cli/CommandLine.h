#pragma once

#include "cli/ExitStatus.h"

#include <string>
#include <vector>

namespace jlandxml
{

/// Runs the program with its arguments (without the program's name). Several work folders are handed one by one to
/// processes of `program`, which is this program; without it they can't be converted.
ExitStatus RunCommandLine(const std::vector<std::wstring>& arguments, const std::wstring& program = {});

} // namespace jlandxml
