#pragma once

#include "xml/WcXmNode.h"

#include <string>
#include <unordered_set>

namespace jlandxml
{

class FViewLandXML;
class FViewCgPointsWidthStakeList;

// What is noted of a document beyond a single element: that it isn't what the converter is made for, or that one part
// of it contradicts another. None of it changes anything.

/// Notes another document element or namespace than LandXML 1.2's, and another unit of length than the metre.
void WarnOfInput(const WcXmNode& root);

/// Notes the groups of points that stand in the document. The result is the names of their points.
std::unordered_set<std::wstring> WarnOfPoints(const WcXmNode& root);

/// Notes the elements that refer to points of these names.
void WarnOfReferencesTo(const std::unordered_set<std::wstring>& names, const WcXmNode& root);

/// Notes where the host's note on the first alignment isn't what the project and the coordinate system say.
void WarnOfOverriddenProject(const FViewLandXML& model, const WcXmNode& root);

/// Notes, of what is about to be written, references to alignments that aren't there, and notes of the host on
/// alignments that stay in the file but contradict the project and the coordinate system.
void WarnOfDoubtful(const FViewLandXML& model, const WcXmNode& root);

/// Notes groups of width stakes that the schema refuses, and names that groups of two routes share.
void WarnOfStakes(const FViewCgPointsWidthStakeList& groups);

/// Notes that no width stakes are written.
void WarnOfStakesLeftOut(const FViewCgPointsWidthStakeList& groups);

} // namespace jlandxml
