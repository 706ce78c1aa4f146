#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// A line of the check sheet on which road engineers tick off that design data agree with the drawings.
struct CheckSheetRow
{
    Sentence subject; ///< 基準点, 平面線形, 縦断線形 or 横断形状
    Detail alignment; ///< of which; empty: of the file
    Sentence what;
    Detail value; ///< what the file has
};

/// The lines in the sheet's order: control points, plan, profile, cross sections, of each alignment.
std::vector<CheckSheetRow> CheckSheet(const LandXmlFile& file);

} // namespace jlandxml::inspect
