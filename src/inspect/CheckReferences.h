#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

namespace jlandxml::inspect
{

// Checks of what elements say of one another, and of units, coordinates and datums.

void CheckAlignmentReferences(const LandXmlFile& file, Findings& findings);
void CheckFeatureReferences(const LandXmlFile& file, Findings& findings);
void CheckPointReferences(const LandXmlFile& file, Findings& findings);
void CheckNamesUnique(const LandXmlFile& file, Findings& findings);
void CheckHorizontalDatum(const LandXmlFile& file, Findings& findings);
void CheckZone(const LandXmlFile& file, Findings& findings);
void CheckZoneDescription(const LandXmlFile& file, Findings& findings);
void CheckCoordinatesInZone(const LandXmlFile& file, Findings& findings);
void CheckAxesInOrder(const LandXmlFile& file, Findings& findings);
void CheckMinutesAndSeconds(const LandXmlFile& file, Findings& findings);
void CheckVerticalDatum(const LandXmlFile& file, Findings& findings);
void CheckMetric(const LandXmlFile& file, Findings& findings);
void CheckAngleUnits(const LandXmlFile& file, Findings& findings);

// What reading the file already shows.

void CheckSkipped(const LandXmlFile& file, Findings& findings);
void CheckUndrawn(const LandXmlFile& file, Findings& findings);
void CheckFigures(const LandXmlFile& file, Findings& findings);
void CheckEncoding(const LandXmlFile& file, Findings& findings);
void CheckForm(const LandXmlFile& file, Findings& findings);
void CheckVersion(const LandXmlFile& file, Findings& findings);
void CheckEntities(const LandXmlFile& file, Findings& findings);
void CheckSchema(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
