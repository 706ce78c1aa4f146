#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

namespace jlandxml::inspect
{

// Checks of superelevation and cross sections.

void CheckTransitionOrder(const LandXmlFile& file, Findings& findings);
void CheckStationLists(const LandXmlFile& file, Findings& findings);
void CheckSectionOrder(const LandXmlFile& file, Findings& findings);
void CheckOutlinesClosed(const LandXmlFile& file, Findings& findings);
void CheckFromLeftToRight(const LandXmlFile& file, Findings& findings);
void CheckSides(const LandXmlFile& file, Findings& findings);
void CheckCentreHeights(const LandXmlFile& file, Findings& findings);
void CheckPavementLayersApart(const LandXmlFile& file, Findings& findings);
void CheckGroundNames(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
