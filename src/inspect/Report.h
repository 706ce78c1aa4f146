#pragma once

#include "inspect/Finding.h"
#include "inspect/FindingTargets.h"
#include "inspect/Html.h"
#include "inspect/LandXmlFile.h"
#include "inspect/SurfaceLines.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace jlandxml::inspect
{

class AlignmentReferences;
class OwnFigures;
class ProfileLine;
class RunJournal;

/// The report on a file: one HTML page that needs nothing else, with plans, profiles, cross sections, calculation
/// sheets, findings and a check sheet, and what the run that made the file changed, if its journal is there. UTF-8.
std::string ReportPage(const LandXmlFile& file, const std::vector<Finding>& findings,
                       const RunJournal* journal = nullptr);

/// What the drawings of a page share.
struct Drawing
{
    Html& page;
    /// The places of the file that findings are about.
    const std::set<SourcePlace>& found;
    /// The ids in the page of the file's elements, so that findings lead there.
    PageIds ids = {};
    /// The surfaces, by their places in the file, of which there is an outline to see.
    std::set<std::size_t> outlinedSurfaces = {};
    /// Those whose outline has too many edges: a rectangle round them is drawn instead.
    std::set<std::size_t> boxedSurfaces = {};
    /// The intervals of the surfaces' contour lines, by their places in the file.
    std::vector<ContourInterval> contours = {};
    /// The groups of points that are drawn once and used by the plans that show them.
    std::set<const PointGroup*> sharedGroups = {};
    /// How many points are drawn of groups that have too many.
    std::map<const PointGroup*, std::size_t> mostPoints = {};
    /// How many profiles are drawn.
    std::size_t profiles = 0;

    std::size_t MostPointsOf(const PointGroup& group) const
    {
        const auto limited = mostPoints.find(&group);
        return limited != mostPoints.end() ? limited->second : group.points.size();
    }
};

/// The id of what stands at a place of the file: its line and, behind the first of a line, a number. Nothing, and
/// false, the second time and for line 0.
bool DrawId(Drawing& drawing, const SourcePlace& place);

/// True if a finding is about what stands at the place and nothing has its id yet.
bool IsSpotToBeDrawn(const Drawing& drawing, const SourcePlace& place);

/// A dot at the place of something that isn't drawn but where a finding is about it.
void DrawSpot(Drawing& drawing, const SourcePlace& place, double x, double y);

/// 1, 2 or 5 times a power of ten: the largest that isn't more.
double RoundStep(double most);

/// A bar of 1, 2 or 5 times a power of ten metres, about a sixth of a drawing whose unit is the metre and whose lower
/// left corner and width are given.
void DrawScaleBar(Html& page, double left, double bottom, double width);

/// What a plan shows beside the surfaces.
struct PlanContent
{
    std::vector<const Alignment*> alignments;
    std::vector<const PointGroup*> groups;
    bool isWhole; ///< true: the view holds everything in the file
};

/// An alignment with its groups of points and those that belong to none, such as control points.
PlanContent PlanOf(const LandXmlFile& file, const AlignmentReferences& references, const Alignment& alignment);

/// The whole file, if something with a place is in none of the plans of the alignments that are drawn: there is no
/// alignment, or a group names one that isn't there.
std::optional<PlanContent> PlanOfTheRest(const LandXmlFile& file, const AlignmentReferences& references,
                                         const std::vector<const Alignment*>& drawn);

/// What several plans show in the same place, hidden, to be used by each: the surfaces' outlines and contours and,
/// where every plan couldn't hold its own, the points.
void DrawShared(Drawing& drawing, const LandXmlFile& file, const std::vector<PlanContent>& plans);

/// What is to be said under a plan: the intervals of its contour lines, and what is drawn more coarsely or left out.
void TellOfPlan(const Drawing& drawing, const LandXmlFile& file, const PlanContent& content);

/// A plan: north is up, one unit is a metre.
void DrawPlan(Drawing& drawing, const LandXmlFile& file, const PlanContent& content);

/// Its profile, with the bands below it.
void DrawProfile(Drawing& drawing, const OwnFigures& own, const Alignment& alignment);

/// The heights at a section's centre line, FH of the design profile and GH of the first ground line, behind a blank;
/// those that there are.
std::wstring CentreHeights(const OwnFigures& own, const std::optional<ProfileLine>& design, const CrossSect& section);

/// A cross section, with its heights as elevations where the profile gives one to stand on.
void DrawCrossSection(Drawing& drawing, const std::optional<ProfileLine>& design, const CrossSect& section);

/// The surfaces to turn around in three dimensions, thinned where they have more faces than a page can hold; nothing
/// without a surface.
void DrawTerrain(Drawing& drawing, const LandXmlFile& file);

/// The style and the scripts of a page: plans and language, leafing through cross sections, surfaces.
extern const char* const REPORT_STYLE;
extern const char* const REPORT_SCRIPT;
extern const char* const SECTIONS_SCRIPT;
extern const char* const TERRAIN_SCRIPT;

} // namespace jlandxml::inspect
