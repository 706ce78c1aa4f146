#pragma once

#include "inspect/Finding.h"

namespace jlandxml::inspect
{

/// Values that LandXML 1.2 or J-LandXML requires and that aren't there, and texts with too few or too many figures.
/// Coordinates of horizontal elements and of surfaces' points, `rot` and the alignment's start have checks of their
/// own.
void CheckComplete(const LandXmlFile& file, Findings& findings);

/// Lengths and radii of alignments and of their profiles that are none, since they aren't above 0.
void CheckPositive(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
