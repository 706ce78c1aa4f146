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

/// What was done to a folder that no host would do, and where.
struct Oddity
{
    std::string what;              ///< such as "DropChild"; "Damage" where it can't be said what else is wrong
    std::vector<std::string> tags; ///< of the tree: the element, what it lies in, and the child that it was done to
    std::string owner;             ///< the name of the alignment, group, surface or route it lies in; empty outside
};

/// The files of a work folder in which one thing or several are not as a host would write them: names in another case,
/// what is missing, doubled or out of order, odd numbers, any encoding, files that are cut off or broken, settings that
/// leave something open. How its run ends is open. What was done is noted.
FolderFiles OddFiles(SplitMix64& random, Draft draft, std::vector<Oddity>& oddities);

} // namespace jlandxml::generator
