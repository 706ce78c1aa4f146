#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

#include <span>
#include <string_view>
#include <vector>

namespace jlandxml::inspect
{

/// All checks, in the order in which they run and are listed.
std::span<const Check> AllChecks();

/// The same as Inspect takes them.
std::vector<const Check*> EveryCheck();

/// The check of a code; null if there is none.
const Check* FindCheck(std::wstring_view code);

/// Runs checks over a file.
std::vector<Finding> Inspect(const LandXmlFile& file, const std::vector<const Check*>& checks);

} // namespace jlandxml::inspect
