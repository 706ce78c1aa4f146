#pragma once

#include "base/Warnings.h"
#include "cli/ExitStatus.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace jlandxml
{

/// A line that a run tells. Findings have the same parts as warnings.
using ToldLine = Warning;

/// How much there is of something, by its name.
using Counts = std::vector<std::pair<const char*, std::size_t>>;

/// What the run of one work folder came to.
struct RunResult
{
    std::wstring folder;
    std::wstring output; ///< empty where none was asked for
    ExitStatus status = ExitStatus::NoFile;
    double seconds = 0.0;
    std::vector<ToldLine> findings; ///< whatever stands in the way of the file: findings, messages, settings errors
    std::vector<ToldLine> warnings;
    Counts read;    ///< empty where the run ended before the dialog
    Counts written; ///< empty where no file was written
};

} // namespace jlandxml
