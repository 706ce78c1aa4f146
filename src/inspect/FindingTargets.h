#pragma once

#include "inspect/LandXmlFile.h"

#include <cstddef>
#include <map>
#include <set>

namespace jlandxml::inspect
{

/// Where findings lead that are about something which isn't drawn itself: by each of the lines the line of the nearest
/// element round it that is drawn; 0 where there is none. `drawn` are the lines of all elements that are.
std::map<std::size_t, std::size_t> NearestDrawn(const LandXmlFile& file, const std::set<std::size_t>& lines,
                                                const std::set<std::size_t>& drawn);

} // namespace jlandxml::inspect
