#pragma once

#include "support/generator/Draft.h"
#include "support/generator/SplitMix64.h"

#include <string>
#include <utility>
#include <vector>

namespace jlandxml::generator
{

/// The files of a work folder: name and bytes.
using FolderFiles = std::vector<std::pair<std::string, std::string>>;

/// The files of a work folder in which one thing or several are not as a host would write them: names in another case,
/// what is missing, doubled or out of order, odd numbers, any encoding, files that are cut off or broken, settings that
/// leave something open. How its run ends is open.
FolderFiles OddFiles(SplitMix64& random, Draft draft);

} // namespace jlandxml::generator
