#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

namespace jlandxml::inspect
{

// Checks of stations: their count, their equations, and what lies at them.

void CheckStartStations(const LandXmlFile& file, Findings& findings);
void CheckStationEquations(const LandXmlFile& file, Findings& findings);
void CheckEquationsRise(const LandXmlFile& file, Findings& findings);
void CheckLabelsOnce(const LandXmlFile& file, Findings& findings);
void CheckSectionNamesOnce(const LandXmlFile& file, Findings& findings);
void CheckStationsWithin(const LandXmlFile& file, Findings& findings);
void CheckPointsOnLine(const LandXmlFile& file, Findings& findings);
void CheckPointDirections(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
