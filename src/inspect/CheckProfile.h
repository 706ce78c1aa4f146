#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

namespace jlandxml::inspect
{

// Checks of the profiles. Joints between tangents and vertical curves follow from the points and lengths, so that a
// profile closes unless its curves run into each other or past its ends.

void CheckProfileStations(const LandXmlFile& file, Findings& findings);
void CheckVerticalCurvesApart(const LandXmlFile& file, Findings& findings);
void CheckVerticalCurveEnds(const LandXmlFile& file, Findings& findings);
void CheckVerticalRadii(const LandXmlFile& file, Findings& findings);
void CheckProfileReferences(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
