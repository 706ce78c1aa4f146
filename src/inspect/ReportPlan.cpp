// Plans. One unit is a metre; east runs to the right, north upward, both from the north-west corner of the whole file,
// so that figures stay short. Texts and points keep their size on the screen: the script sets --u to the metres of a
// pixel.

#include "base/Text.h"
#include "inspect/AlignmentReferences.h"
#include "inspect/Course.h"
#include "inspect/Names.h"
#include "inspect/Report.h"
#include "inspect/StationLabel.h"
#include "inspect/Summary.h"
#include "inspect/SurfaceLines.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

/// A curve is drawn by chords that turn no further than this, in radians.
constexpr double TURN_OF_A_CHORD = 0.02;
constexpr double MOST_CHORDS = 400;

/// Points of an alignment that lie further from it than it is long, and than this in metres, are none to make room for.
constexpr double LEAST_ROOM = 500;
constexpr double LONGEST_ELEMENT = 1e6;

/// Half the length of a tick at a main station, in metres.
constexpr double TICK = 2;

// In pixels.
constexpr double BESIDE_A_TICK = 6;
constexpr double BESIDE_THE_LINE = 12;
constexpr double HALF_A_LETTER = 4;

// More than these, in all plans together, make a page that no browser turns.
constexpr std::size_t MOST_OUTLINE_SEGMENTS = 50000;
constexpr std::size_t MOST_CONTOUR_SEGMENTS = 150000;
constexpr std::size_t MOST_POINTS = 10000;

/// So many names of surfaces are told; the others are counted.
constexpr std::size_t MOST_NAMES = 5;

/// The corner from which a file's plans count.
struct Corner
{
    double north;
    double east;

    double X(double eastValue) const { return eastValue - east; }
    double Y(double northValue) const { return north - northValue; }
};

Corner CornerOf(const LandXmlFile& file)
{
    const Extents extents = ExtentsOf(file);
    return extents.north.IsEmpty() || extents.east.IsEmpty()
               ? Corner{0, 0}
               : Corner{std::ceil(extents.north.Largest()), std::floor(extents.east.Smallest())};
}

/// An alignment with what its drawing is computed from.
struct DrawnAlignment
{
    const Alignment& alignment;
    Course course;
    StationLabels labels;

    explicit DrawnAlignment(const Alignment& one) : alignment(one), course(one), labels(one) {}
};

class PlanDrawer
{
  public:
    PlanDrawer(Drawing& drawing, const LandXmlFile& file, const PlanContent& content)
        : drawing_(drawing),
          page_(drawing.page),
          file_(file),
          groups_(content.groups),
          isWhole_(content.isWhole),
          corner_(CornerOf(file))
    {
        for (const Alignment* const alignment : content.alignments)
        {
            alignments_.emplace_back(*alignment);
        }
    }

    void Draw()
    {
        MeasureView();
        OpenView();
        for (std::size_t index = 0; index < file_.surfaces.size(); ++index)
        {
            DrawSurface(index);
        }
        for (const PointGroup* const group : groups_)
        {
            if (IsShared(*group))
            {
                UseShared(*group);
            }
            else
            {
                DrawStakes(*group);
            }
        }
        for (const DrawnAlignment& one : alignments_)
        {
            for (std::size_t index = 0; index < one.alignment.elements.size(); ++index)
            {
                DrawElement(one, one.alignment.elements[index], one.course.Elements()[index]);
            }
        }
        // Of texts that lie over one another the first stays.
        for (const DrawnAlignment& one : alignments_)
        {
            DrawMainPoints(one.alignment);
        }
        for (const PointGroup* const group : groups_)
        {
            if (!IsShared(*group))
            {
                DrawPoints(*group);
            }
        }
        for (const DrawnAlignment& one : alignments_)
        {
            DrawStations(one);
        }
        DrawScaleBar(page_, left_, bottom_, width_);
        page_.Raw("</svg>");
    }

    /// The groups that the plans share, without ids and names: each plan has its own.
    void DrawSharedGroups()
    {
        for (const PointGroup* const group : groups_)
        {
            page_.Raw("<g id=\"group").Number(NumberOf(*group), 0).Raw("\">");
            DrawStakes(*group);
            ForEachDrawnPoint(*group, [&](const CgPoint& one) { DrawPoint(*group, one); });
            page_.Raw("</g>");
        }
    }

  private:
    void Take(double north, double east)
    {
        x_.Take(corner_.X(east));
        y_.Take(corner_.Y(north));
    }

    /// The view holds the alignment and its points; surfaces and control points may lie beyond. A plan of the whole
    /// file holds everything.
    void MeasureView()
    {
        if (isWhole_)
        {
            const Extents extents = ExtentsOf(file_);
            Take(extents.north.Smallest(), extents.east.Smallest());
            Take(extents.north.Largest(), extents.east.Largest());
            return;
        }
        for (const DrawnAlignment& one : alignments_)
        {
            TakeAlignment(one);
        }
        // A point with swapped axes would leave nothing to see of the others.
        const double room = std::max({x_.Largest() - x_.Smallest(), y_.Largest() - y_.Smallest(), LEAST_ROOM});
        const Range x = x_;
        const Range y = y_;
        for (const PointGroup* const group : groups_)
        {
            for (const CgPoint& point : group->points)
            {
                const double atX = corner_.X(point.point.east.value);
                const double atY = corner_.Y(point.point.north.value);
                if (!group->alignmentRefs.empty() && IsNear(atX, x, room) && IsNear(atY, y, room))
                {
                    x_.Take(atX);
                    y_.Take(atY);
                }
            }
        }
    }

    /// The ends and the middles of the elements: curves bulge.
    void TakeAlignment(const DrawnAlignment& one)
    {
        for (const PlanElement& element : one.alignment.elements)
        {
            Take(element.start.north.value, element.start.east.value);
            Take(element.end.north.value, element.end.east.value);
        }
        for (const ElementCourse& course : one.course.Elements())
        {
            if (course.IsKnown() && std::abs(course.computedLength) < LONGEST_ELEMENT)
            {
                const Position middle = course.At(course.stationLength / 2);
                Take(middle.north, middle.east);
            }
        }
    }

    static bool IsNear(double value, const Range& range, double room)
    {
        return range.IsEmpty() || (value >= range.Smallest() - room && value <= range.Largest() + room);
    }

    void OpenView()
    {
        const double width = x_.IsEmpty() ? 100 : x_.Largest() - x_.Smallest();
        const double height = y_.IsEmpty() ? 100 : y_.Largest() - y_.Smallest();
        const double margin = std::max({width, height, 10.0}) * 0.08;
        left_ = (x_.IsEmpty() ? 0 : x_.Smallest()) - margin;
        bottom_ = (y_.IsEmpty() ? 100 : y_.Largest()) + margin;
        width_ = width + 2 * margin;
        page_.Raw("<svg class=\"plan\" data-north=\"").Number(corner_.north).Raw("\" data-east=\"");
        page_.Number(corner_.east).Raw("\" viewBox=\"").Number(left_).Raw(" ");
        page_.Number((y_.IsEmpty() ? 0 : y_.Smallest()) - margin).Raw(" ").Number(width_).Raw(" ");
        page_.Number(height + 2 * margin).Raw("\" style=\"--u:").Number(width_ / 1400, 6).Raw("\">");
    }

    void Place(double north, double east) { page_.Number(corner_.X(east)).Raw(" ").Number(corner_.Y(north)); }

    void Place(const PlanPoint& point) { Place(point.north.value, point.east.value); }

    void Label(double north, double east, const char* kind, std::wstring_view text)
    {
        page_.Raw("<text class=\"").Raw(kind).Raw("\" x=\"").Number(corner_.X(east)).Raw("\" y=\"");
        page_.Number(corner_.Y(north)).Raw("\">").Text(text).Raw("</text>");
    }

    /// A label beside the alignment, so many pixels from a place: to its right (negative: left).
    void LabelBeside(const Position& at, double pixels, const char* kind, std::wstring_view text)
    {
        const double x = std::cos(at.azimuth) * pixels;
        const char* const anchor = x > std::abs(pixels) / 3 ? "start" : x < -std::abs(pixels) / 3 ? "end" : "middle";
        page_.Raw("<text class=\"").Raw(kind).Raw("\" x=\"").Number(corner_.X(at.east)).Raw("\" y=\"");
        page_.Number(corner_.Y(at.north)).Raw("\" style=\"--x:").Number(x, 1).Raw(";--y:");
        page_.Number(std::sin(at.azimuth) * pixels + HALF_A_LETTER, 1).Raw(";text-anchor:").Raw(anchor).Raw("\">");
        page_.Text(text).Raw("</text>");
    }

    // Surfaces

    void DrawSurface(std::size_t index)
    {
        const Surface& surface = file_.surfaces[index];
        page_.Raw("<use href=\"#surface").Number(static_cast<double>(index), 0).Raw("\"");
        const bool isFirst = drawing_.outlinedSurfaces.count(index) > 0 && DrawId(drawing_, surface);
        page_.Raw("/>");
        if (!isFirst || drawing_.found.empty())
        {
            return;
        }
        for (const SurfacePoint& point : surface.points)
        {
            DrawSpot(drawing_, SpotOf(surface, point), corner_.X(point.east), corner_.Y(point.north));
        }
        for (const SurfaceFace& face : surface.faces)
        {
            DrawFoundFace(surface, face);
        }
    }

    /// The place of a point or a face of a surface; a fault against a schema tells no more of it than its line.
    template <class Part>
    SourcePlace SpotOf(const Surface& surface, const Part& part) const
    {
        const SourcePlace line{part.line};
        return part.line != surface.line && drawing_.found.count(line) > 0 ? line : PlaceOf(surface, part);
    }

    /// A face that a finding is about, by those of its corners that there are.
    void DrawFoundFace(const Surface& surface, const SurfaceFace& face)
    {
        const SourcePlace spot = SpotOf(surface, face);
        if (!IsSpotToBeDrawn(drawing_, spot))
        {
            return;
        }
        std::vector<const SurfacePoint*> corners;
        for (std::size_t corner = 0; corner < std::min<std::size_t>(face.cornerCount, face.corners.size()); ++corner)
        {
            const std::uint32_t place = surface.index.Find(face.corners[corner]);
            const SurfacePoint* const point = place != NO_POINT ? &surface.points[place] : nullptr;
            if (point != nullptr && std::isfinite(point->north) && std::isfinite(point->east))
            {
                corners.push_back(point);
            }
        }
        if (corners.empty())
        {
            return;
        }
        page_.Raw("<path class=\"spot face\"");
        DrawId(drawing_, spot);
        page_.Raw(" d=\"");
        const char* step = "M";
        for (const SurfacePoint* const corner : corners)
        {
            page_.Raw(step);
            Place(corner->north, corner->east);
            step = "L";
        }
        page_.Raw("Z\"/>");
    }

    // Alignments

    void DrawElement(const DrawnAlignment& one, const PlanElement& element, const ElementCourse& course)
    {
        if (!course.IsKnown())
        {
            return;
        }
        constexpr const char* KINDS[] = {"line", "curve", "spiral", "irregular"};
        page_.Raw("<path class=\"element ").Raw(KINDS[static_cast<std::size_t>(element.kind)]).Raw("\"");
        DrawId(drawing_, element);
        page_.Raw(" d=\"");
        bool isFirst = true;
        for (const Stretch& stretch : course.stretches)
        {
            const double turn =
                stretch.length * std::max(std::abs(stretch.curvatureStart), std::abs(stretch.curvatureEnd));
            const double chords = std::clamp(std::ceil(turn / TURN_OF_A_CHORD), 1.0, MOST_CHORDS);
            for (double chord = isFirst ? 0 : 1; chord <= chords; ++chord)
            {
                const Position place = stretch.At(stretch.length * chord / chords);
                page_.Raw(isFirst ? "M" : "L");
                Place(place.north, place.east);
                isFirst = false;
            }
        }
        Detail title = NameOf(one.alignment, element);
        const std::pair<const wchar_t*, const Figure*> figures[] = {{L"\nL=", &element.length},
                                                                    {L"\nR=", &element.radius},
                                                                    {L"\nR1=", &element.radiusStart},
                                                                    {L"\nR2=", &element.radiusEnd},
                                                                    {L"\nA=", &element.parameter}};
        for (const auto& [label, figure] : figures)
        {
            title = title + (figure->IsWritten() ? label + std::wstring(figure->text) : std::wstring());
        }
        page_.Raw("\">").Words("title", title).Raw("</path>");
        LabelCurve(element, course);
    }

    /// R or A and L beside the middle of a curve.
    void LabelCurve(const PlanElement& element, const ElementCourse& course)
    {
        const Figure& figure = element.kind == ElementKind::Curve ? element.radius : element.parameter;
        const bool isBent = element.kind == ElementKind::Curve || element.kind == ElementKind::Spiral;
        if (isBent && figure.IsWritten())
        {
            const Position middle = course.At(course.stretches.front().length / 2);
            // On the outer side, where there is room.
            LabelBeside(middle, element.rot == L"ccw" ? BESIDE_THE_LINE : -BESIDE_THE_LINE, "data",
                        (element.kind == ElementKind::Curve ? L"R=" : L"A=") + std::wstring(figure.text) +
                            (element.length.IsWritten() ? L" L=" : L"") + std::wstring(element.length.text));
        }
    }

    void DrawMainPoints(const Alignment& alignment)
    {
        for (const PlanElement& element : alignment.elements)
        {
            const bool isLast = &element == &alignment.elements.back();
            DrawMainPoint(element.start, !element.start.name.empty());
            DrawMainPoint(element.end,
                          isLast || (!element.end.name.empty() && (&element)[1].start.name != element.end.name));
        }
        for (const PlanPoint& point : alignment.intersections)
        {
            if (point.IsPlaced())
            {
                page_.Raw("<path class=\"intersection\"");
                DrawId(drawing_, point);
                page_.Raw(" d=\"M");
                Place(point);
                page_.Raw("h0\"/>");
            }
        }
    }

    /// As a rule an end lies where the next start does and has its name: then it isn't named again.
    void DrawMainPoint(const PlanPoint& point, bool isNamed)
    {
        if (!point.IsPlaced())
        {
            return;
        }
        page_.Raw("<path class=\"main\"");
        DrawId(drawing_, point);
        page_.Raw(" d=\"M");
        Place(point);
        page_.Raw("h0\"><title>").Text(point.name).Text(L"\nX=").Text(point.north.text).Text(L"\nY=");
        page_.Text(point.east.text).Raw("</title></path>");
        if (isNamed)
        {
            Label(point.north.value, point.east.value, "name", point.name);
        }
    }

    /// A tick across the alignment; `place` is that of the element that it stands for, line 0 for none.
    void DrawTick(const DrawnAlignment& one, double station, const SourcePlace& place, const std::wstring& label,
                  const char* kind)
    {
        const std::vector<Position> positions = one.course.At(station);
        if (positions.empty())
        {
            return;
        }
        const Position& at = positions.front();
        const double north = -std::sin(at.azimuth) * TICK;
        const double east = std::cos(at.azimuth) * TICK;
        page_.Raw("<path class=\"tick\"");
        DrawId(drawing_, place);
        page_.Raw(" d=\"M");
        Place(at.north - north, at.east - east);
        page_.Raw("L");
        Place(at.north + north, at.east + east);
        page_.Raw("\"/>");
        LabelBeside({at.north + north, at.east + east, at.azimuth}, BESIDE_A_TICK, kind, label);
    }

    void DrawStations(const DrawnAlignment& one)
    {
        for (const StaEquation& equation : one.alignment.equations)
        {
            DrawTick(one, equation.internal.value, equation,
                     std::wstring(equation.back.text) + L"＝" + std::wstring(equation.ahead.text), "equation");
        }
        for (const double station : one.labels.MainStations(one.course.StaStart(), one.course.StaEnd()))
        {
            DrawTick(one, station, {}, one.labels.At(station), "station");
        }
    }

    // Points

    bool IsShared(const PointGroup& group) const { return drawing_.sharedGroups.count(&group) > 0; }

    /// Its place in the file.
    double NumberOf(const PointGroup& group) const { return static_cast<double>(&group - file_.pointGroups.data()); }

    /// Visits the points of a group that can be drawn, as far as there is room for them.
    template <class Visit>
    void ForEachDrawnPoint(const PointGroup& group, Visit&& visit) const
    {
        std::size_t room = drawing_.MostPointsOf(group);
        for (const CgPoint& one : group.points)
        {
            if (room > 0 && one.point.IsPlaced())
            {
                visit(one);
            }
            room -= room > 0 ? 1 : 0;
        }
    }

    void DrawStakes(const PointGroup& group)
    {
        if (!group.IsWidthStakes())
        {
            return;
        }
        const char* step = "M";
        page_.Raw("<path class=\"stakes").Raw(IsShared(group) ? " common" : "").Raw("\" d=\"");
        ForEachDrawnPoint(group, [&](const CgPoint& one) {
            page_.Raw(step);
            Place(one.point);
            step = "L";
        });
        const bool isClosed = PropertyValue(group.features, L"WidthStakePnts", L"type") == L"closed";
        page_.Raw(isClosed && *step == 'L' ? "Z" : "").Raw("\">").Words("title", NameOf(group)).Raw("</path>");
    }

    /// The group from where it is drawn, and what findings are about.
    void UseShared(const PointGroup& group)
    {
        page_.Raw("<use href=\"#group").Number(NumberOf(group), 0).Raw("\"");
        if (HasPlaceOf(group))
        {
            DrawId(drawing_, group);
        }
        page_.Raw("/>");
        for (const CgPoint& one : group.points)
        {
            DrawSpot(drawing_, one.point, corner_.X(one.point.east.value), corner_.Y(one.point.north.value));
        }
    }

    static bool HasPlaceOf(const PointGroup& group)
    {
        return std::any_of(group.points.begin(), group.points.end(),
                           [](const CgPoint& one) { return one.point.IsPlaced(); });
    }

    static const char* ClassOf(const PointGroup& group)
    {
        return group.IsWidthStakes() ? "stake" : group.IsIntermediate() ? "intermediate" : "control";
    }

    void DrawPoints(const PointGroup& group)
    {
        page_.Raw("<g");
        if (HasPlaceOf(group))
        {
            DrawId(drawing_, group);
        }
        page_.Raw(">");
        ForEachDrawnPoint(group, [&](const CgPoint& one) { DrawPoint(group, one); });
        page_.Raw("</g>");
    }

    /// Of a point that plans share the script shows the name where there is room.
    void DrawPoint(const PointGroup& group, const CgPoint& one)
    {
        const PlanPoint& point = one.point;
        const bool isShared = IsShared(group);
        page_.Raw("<path class=\"").Raw(ClassOf(group));
        if (isShared)
        {
            page_.Raw(" common\" data-name=\"").Text(point.name).Raw("\"");
        }
        else
        {
            page_.Raw("\"");
            DrawId(drawing_, point);
        }
        page_.Raw(" d=\"M");
        Place(point);
        const Detail figures({L"\nX={}\nY={}\nH={}", L"\nX={}\nY={}\nH={}"},
                             {point.north.text, point.east.text, point.height.text});
        page_.Raw("h0\">").Words("title", Path(NameOf(group), NameOf(one)) + figures).Raw("</path>");
        if (!isShared)
        {
            Label(point.north.value, point.east.value, "point", point.name);
        }
    }

    Drawing& drawing_;
    Html& page_;
    const LandXmlFile& file_;
    const std::vector<const PointGroup*>& groups_;
    std::vector<DrawnAlignment> alignments_;
    bool isWhole_;
    Corner corner_;
    Range x_;
    Range y_;
    double left_ = 0;
    double bottom_ = 0;
    double width_ = 0;
};

/// True for points that don't say of which alignment they are, such as control points.
bool IsOfNone(const PointGroup& group)
{
    return Trim(group.alignmentRefs).empty();
}

void DrawSegments(Html& page, const Corner& corner, const std::vector<PlanSegment>& segments)
{
    for (const PlanLine& line : Chained(segments))
    {
        const char* step = "M";
        for (const auto& [north, east] : line)
        {
            page.Raw(step).Number(corner.X(east), 2).Raw(" ").Number(corner.Y(north), 2);
            step = "L";
        }
    }
}

/// The rectangle that holds a surface's points.
std::vector<PlanSegment> BoxRound(const Surface& surface)
{
    Range north;
    Range east;
    for (const SurfacePoint& point : surface.points)
    {
        north.Take(point.north);
        east.Take(point.east);
    }
    const double south = north.Smallest();
    const double west = east.Smallest();
    return {{south, west, north.Largest(), west},
            {north.Largest(), west, north.Largest(), east.Largest()},
            {north.Largest(), east.Largest(), south, east.Largest()},
            {south, east.Largest(), south, west}};
}

/// The outline of a surface, as long as the page has room for it.
std::vector<PlanSegment> OutlineWithin(Drawing& drawing, const Surface& surface, std::size_t index, std::size_t& room)
{
    const std::optional<std::vector<PlanSegment>> outline = OutlineOf(surface, room);
    if (!outline)
    {
        drawing.boxedSurfaces.insert(index);
        return BoxRound(surface);
    }
    room -= outline->size();
    return *outline;
}

void DrawSurfaces(Drawing& drawing, const LandXmlFile& file)
{
    Html& page = drawing.page;
    const Corner corner = CornerOf(file);
    std::size_t room = MOST_OUTLINE_SEGMENTS;
    drawing.contours = ContourIntervalsOf(file.surfaces, MOST_CONTOUR_SEGMENTS);
    for (std::size_t index = 0; index < file.surfaces.size(); ++index)
    {
        const Surface& surface = file.surfaces[index];
        page.Raw("<g id=\"surface").Number(static_cast<double>(index), 0).Raw("\"><path class=\"outline\" d=\"");
        const std::vector<PlanSegment> outline = OutlineWithin(drawing, surface, index, room);
        if (!outline.empty())
        {
            drawing.outlinedSurfaces.insert(index);
        }
        DrawSegments(page, corner, outline);
        page.Raw("\">").Words("title", NameOf(surface)).Raw("</path>");
        for (const Contour& contour : ContoursOf(surface, drawing.contours[index].drawn))
        {
            const std::wstring height = ShortNumber(contour.height);
            page.Raw("<path class=\"contour");
            if (contour.isIndex)
            {
                page.Raw(" index\" data-name=\"").Text(height);
            }
            page.Raw("\" d=\"");
            DrawSegments(page, corner, contour.segments);
            page.Raw("\">").Words("title", NameOf(surface) + (L" " + height + L" m")).Raw("</path>");
        }
        page.Raw("</g>");
    }
}

/// Each plan has its own points, with names, as long as all of them together aren't too many. Else those that several
/// plans show are drawn once, and no more of them than there is room for.
std::vector<const PointGroup*> SharePoints(Drawing& drawing, const LandXmlFile& file,
                                           const std::vector<PlanContent>& plans)
{
    std::map<const PointGroup*, std::size_t> planCounts;
    std::size_t points = 0;
    for (const PlanContent& plan : plans)
    {
        for (const PointGroup* const group : plan.groups)
        {
            ++planCounts[group];
            points += group->points.size();
        }
    }
    std::vector<const PointGroup*> shared;
    std::size_t room = MOST_POINTS;
    for (const PointGroup& group : file.pointGroups)
    {
        if (points > MOST_POINTS)
        {
            drawing.mostPoints[&group] = std::min(group.points.size(), room);
            room -= drawing.mostPoints[&group];
            if (planCounts[&group] > 1)
            {
                shared.push_back(&group);
                drawing.sharedGroups.insert(&group);
            }
        }
    }
    return shared;
}

/// The names of some surfaces, and how many more there are.
Detail NamesOf(const LandXmlFile& file, const std::vector<std::size_t>& surfaces)
{
    Detail names;
    for (std::size_t place = 0; place < std::min(surfaces.size(), MOST_NAMES); ++place)
    {
        names =
            names + (place > 0 ? Detail(Sentence{L"、", L", "}) : Detail()) + NameOf(file.surfaces[surfaces[place]]);
    }
    if (surfaces.size() > MOST_NAMES)
    {
        const std::wstring more = std::to_wstring(surfaces.size() - MOST_NAMES);
        names = names + Detail({L"、ほか{}面", L" and {} more"}, {more});
    }
    return names;
}

/// How surfaces with such contour lines are told of; the names follow.
Detail TextOf(const ContourInterval& interval)
{
    const std::wstring drawn = ShortNumber(interval.drawn);
    if (interval.drawn <= 0)
    {
        return Sentence{L"線が多すぎるため、等高線を省略しました：",
                        L"Left out because there are too many contour lines: "};
    }
    const Detail text({L"等高線 {} m間隔、計曲線 {} m間隔", L"Contours every {} m, index contours every {} m"},
                      {drawn, ShortNumber(interval.drawn * INDEX_CONTOUR)});
    return interval.drawn > interval.wanted ? text + Detail({L"（{} m間隔では線が多すぎるため広げました）：",
                                                             L" (every {} m there would be too many lines): "},
                                                            {ShortNumber(interval.wanted)})
                                            : text + Detail(Sentence{L"：", L": "});
}

void TellOfSurfaces(const Drawing& drawing, const LandXmlFile& file)
{
    const auto isBefore = [](const ContourInterval& one, const ContourInterval& other) {
        return std::pair(one.drawn, one.wanted) < std::pair(other.drawn, other.wanted);
    };
    std::map<ContourInterval, std::vector<std::size_t>, decltype(isBefore)> surfaces(isBefore);
    for (std::size_t index = 0; index < drawing.contours.size(); ++index)
    {
        if (drawing.contours[index].wanted > 0)
        {
            surfaces[drawing.contours[index]].push_back(index);
        }
    }
    for (const auto& [interval, indexes] : surfaces)
    {
        drawing.page.Words(interval.drawn == interval.wanted ? "p class=\"note\"" : "p class=\"leftout\"",
                           TextOf(interval) + NamesOf(file, indexes));
    }
    if (!drawing.boxedSurfaces.empty())
    {
        drawing.page.Words("p class=\"leftout\"",
                           Detail(Sentence{L"線が多すぎるため、外形線の代わりに外接する長方形を示します：",
                                           L"A rectangle instead of the outline, which has too many lines: "}) +
                               NamesOf(file, {drawing.boxedSurfaces.begin(), drawing.boxedSurfaces.end()}));
    }
}

} // namespace

bool DrawId(Drawing& drawing, const SourcePlace& place)
{
    const std::string id = place.line > 0 ? drawing.ids.Add(place) : std::string();
    if (!id.empty())
    {
        drawing.page.Raw(" id=\"").Raw(id).Raw("\"");
    }
    return !id.empty();
}

bool IsSpotToBeDrawn(const Drawing& drawing, const SourcePlace& place)
{
    return drawing.found.count(place) > 0 && !drawing.ids.Has(place);
}

void DrawSpot(Drawing& drawing, const SourcePlace& place, double x, double y)
{
    if (std::isfinite(x) && std::isfinite(y) && IsSpotToBeDrawn(drawing, place))
    {
        drawing.page.Raw("<path class=\"spot\"");
        DrawId(drawing, place);
        drawing.page.Raw(" d=\"M").Number(x).Raw(" ").Number(y).Raw("h0\"/>");
    }
}

double RoundStep(double most)
{
    const double power = std::pow(10, std::floor(std::log10(most)));
    return power * (most >= 5 * power ? 5 : most >= 2 * power ? 2 : 1);
}

void DrawScaleBar(Html& page, double left, double bottom, double width)
{
    const double length = RoundStep(width / 6);
    const double x = left + width * 0.02;
    const double y = bottom - width * 0.015;
    page.Raw("<path class=\"scale\" d=\"M").Number(x).Raw(" ").Number(y).Raw("h").Number(length).Raw("\"/>");
    page.Raw("<text class=\"scale\" x=\"").Number(x).Raw("\" y=\"").Number(y - width * 0.005).Raw("\">");
    page.Number(length).Raw(" m</text>");
}

void DrawShared(Drawing& drawing, const LandXmlFile& file, const std::vector<PlanContent>& plans)
{
    drawing.page.Raw("<svg class=\"shared\" width=\"0\" height=\"0\"><defs>");
    DrawSurfaces(drawing, file);
    PlanDrawer(drawing, file, {{}, SharePoints(drawing, file, plans), false}).DrawSharedGroups();
    drawing.page.Raw("</defs></svg>");
}

void TellOfPlan(const Drawing& drawing, const LandXmlFile& file, const PlanContent& content)
{
    TellOfSurfaces(drawing, file);
    std::size_t left = 0;
    for (const PointGroup* const group : content.groups)
    {
        left += group->points.size() - drawing.MostPointsOf(*group);
    }
    if (left > 0)
    {
        drawing.page.Words("p class=\"leftout\"", Detail({L"点が多いため、ほか{}点は省略しました。",
                                                          L"Too many points: another {} are left out."},
                                                         {std::to_wstring(left)}));
    }
}

PlanContent PlanOf(const LandXmlFile& file, const AlignmentReferences& references, const Alignment& alignment)
{
    PlanContent content{{&alignment}, {}, false};
    for (const PointGroup& group : file.pointGroups)
    {
        if (IsOfNone(group) || references.LeadTo(group.alignmentRefs, alignment))
        {
            content.groups.push_back(&group);
        }
    }
    return content;
}

std::optional<PlanContent> PlanOfTheRest(const LandXmlFile& file, const AlignmentReferences& references,
                                         const std::vector<const Alignment*>& drawn)
{
    const auto isDrawn = [&](const PointGroup& group) {
        const std::vector<const Alignment*> named = references.Named(group.alignmentRefs);
        return IsOfNone(group)
                   ? !drawn.empty()
                   : std::find_first_of(named.begin(), named.end(), drawn.begin(), drawn.end()) != named.end();
    };
    PlanContent whole{drawn, {}, true};
    bool isNeeded = drawn.empty() && !file.surfaces.empty();
    for (const PointGroup& group : file.pointGroups)
    {
        whole.groups.push_back(&group);
        isNeeded = isNeeded || (!group.points.empty() && !isDrawn(group));
    }
    const Extents extents = ExtentsOf(file);
    const bool isPlaced = !extents.north.IsEmpty() && !extents.east.IsEmpty();
    return isNeeded && isPlaced ? std::optional(whole) : std::nullopt;
}

void DrawPlan(Drawing& drawing, const LandXmlFile& file, const PlanContent& content)
{
    PlanDrawer(drawing, file, content).Draw();
}

} // namespace jlandxml::inspect
