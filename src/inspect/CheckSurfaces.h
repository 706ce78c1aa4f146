#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

namespace jlandxml::inspect
{

// Checks of surfaces, linear in their points and faces but for one sort.

void CheckSurfacePoints(const LandXmlFile& file, Findings& findings);
void CheckPointIdsUnique(const LandXmlFile& file, Findings& findings);
void CheckFaceCorners(const LandXmlFile& file, Findings& findings);
void CheckFacePoints(const LandXmlFile& file, Findings& findings);
void CheckFaceAreas(const LandXmlFile& file, Findings& findings);
void CheckFaceEdges(const LandXmlFile& file, Findings& findings);
void CheckPointsUsed(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
