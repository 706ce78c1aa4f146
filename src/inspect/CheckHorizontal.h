#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

namespace jlandxml::inspect
{

// Checks of the horizontal alignments. The grades of distances and angles are those by which the Finnish infrastructure
// agency's Geoviite judges alignments; the relations between R, L and A are the clothoid's own.

void CheckCoordinates(const LandXmlFile& file, Findings& findings);
void CheckJoints(const LandXmlFile& file, Findings& findings);
void CheckElementLengths(const LandXmlFile& file, Findings& findings);
void CheckRadii(const LandXmlFile& file, Findings& findings);
void CheckDirections(const LandXmlFile& file, Findings& findings);
void CheckClothoidParameters(const LandXmlFile& file, Findings& findings);
void CheckClothoidEnds(const LandXmlFile& file, Findings& findings);
void CheckRotations(const LandXmlFile& file, Findings& findings);
void CheckAlignmentLengths(const LandXmlFile& file, Findings& findings);
void CheckPointNamesThere(const LandXmlFile& file, Findings& findings);
void CheckPointNamesUnique(const LandXmlFile& file, Findings& findings);
void CheckPointNamesInOrder(const LandXmlFile& file, Findings& findings);
void CheckPathEnds(const LandXmlFile& file, Findings& findings);

} // namespace jlandxml::inspect
