// Plans. One unit is a metre; east runs to the right, north upward, both from the north-west corner of the whole file,
// so that figures stay short. Texts and points keep their size on the screen: the script sets --u to the metres of a
// pixel.

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

/// Half the length of a tick at a main station, in metres.
constexpr double TICK = 2;

// In pixels.
constexpr double BESIDE_A_TICK = 6;
constexpr double BESIDE_THE_LINE = 12;
constexpr double HALF_A_LETTER = 4;

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

class PlanDrawer
{
  public:
    PlanDrawer(Drawing& drawing, const LandXmlFile& file, const Alignment& alignment)
        : drawing_(drawing),
          page_(drawing.page),
          file_(file),
          alignment_(alignment),
          course_(alignment),
          labels_(alignment),
          corner_(CornerOf(file))
    {}

    void Draw()
    {
        MeasureView();
        OpenView();
        for (std::size_t index = 0; index < file_.surfaces.size(); ++index)
        {
            page_.Raw("<use href=\"#surface").Number(static_cast<double>(index), 0).Raw("\"/>");
        }
        DrawStakes();
        for (std::size_t index = 0; index < alignment_.elements.size(); ++index)
        {
            DrawElement(alignment_.elements[index], course_.Elements()[index]);
        }
        // Of texts that lie over one another the first stays.
        DrawMainPoints();
        DrawPoints();
        DrawStations();
        DrawScaleBar(page_, left_, bottom_, width_);
        page_.Raw("</svg>");
    }

  private:
    void Take(double north, double east)
    {
        x_.Take(corner_.X(east));
        y_.Take(corner_.Y(north));
    }

    /// The view holds the alignment and its points; surfaces and control points may lie beyond.
    void MeasureView()
    {
        for (const PlanElement& element : alignment_.elements)
        {
            Take(element.start.north.value, element.start.east.value);
            Take(element.end.north.value, element.end.east.value);
        }
        ForEachPoint([this](const PointGroup& group, const CgPoint& point) {
            if (!group.alignmentRefs.empty())
            {
                Take(point.point.north.value, point.point.east.value);
            }
        });
    }

    /// The points of the alignment's groups and of those that belong to none, such as control points.
    template <class Visit>
    void ForEachPoint(Visit&& visit) const
    {
        for (const PointGroup& group : file_.pointGroups)
        {
            if (group.alignmentRefs == alignment_.name || group.alignmentRefs.empty())
            {
                for (const CgPoint& point : group.points)
                {
                    visit(group, point);
                }
            }
        }
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

    void DrawElement(const PlanElement& element, const ElementCourse& course)
    {
        if (!course.IsKnown())
        {
            return;
        }
        constexpr const char* KINDS[] = {"line", "curve", "spiral", "irregular"};
        page_.Raw("<path class=\"element ").Raw(KINDS[static_cast<std::size_t>(element.kind)]).Raw("\"");
        DrawId(drawing_, element.line);
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
        page_.Raw("\"><title>").Text(NameOf(alignment_, element));
        const std::pair<const wchar_t*, const Figure*> figures[] = {{L"\nL=", &element.length},
                                                                    {L"\nR=", &element.radius},
                                                                    {L"\nR1=", &element.radiusStart},
                                                                    {L"\nR2=", &element.radiusEnd},
                                                                    {L"\nA=", &element.parameter}};
        for (const auto& [label, figure] : figures)
        {
            page_.Text(figure->IsWritten() ? label + std::wstring(figure->text) : std::wstring());
        }
        page_.Raw("</title></path>");
        LabelCurve(element, course);
    }

    /// R or A beside the middle of a curve.
    void LabelCurve(const PlanElement& element, const ElementCourse& course)
    {
        const Figure& figure = element.kind == ElementKind::Curve ? element.radius : element.parameter;
        const bool isBent = element.kind == ElementKind::Curve || element.kind == ElementKind::Spiral;
        if (isBent && figure.IsWritten())
        {
            const Position middle = course.At(course.stretches.front().length / 2);
            // On the outer side, where there is room.
            LabelBeside(middle, element.rot == L"ccw" ? BESIDE_THE_LINE : -BESIDE_THE_LINE, "data",
                        (element.kind == ElementKind::Curve ? L"R=" : L"A=") + std::wstring(figure.text));
        }
    }

    void DrawMainPoints()
    {
        for (const PlanElement& element : alignment_.elements)
        {
            const bool isLast = &element == &alignment_.elements.back();
            DrawMainPoint(element.start, !element.start.name.empty());
            DrawMainPoint(element.end,
                          isLast || (!element.end.name.empty() && (&element)[1].start.name != element.end.name));
        }
        for (const PlanPoint& point : alignment_.intersections)
        {
            if (point.IsPlaced())
            {
                page_.Raw("<path class=\"intersection\" d=\"M");
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
        DrawId(drawing_, point.line);
        page_.Raw(" d=\"M");
        Place(point);
        page_.Raw("h0\"><title>").Text(point.name).Text(L"\nX=").Text(point.north.text).Text(L"\nY=");
        page_.Text(point.east.text).Raw("</title></path>");
        if (isNamed)
        {
            Label(point.north.value, point.east.value, "name", point.name);
        }
    }

    void DrawTick(double station, const std::wstring& label, const char* kind)
    {
        const std::vector<Position> positions = course_.At(station);
        if (positions.empty())
        {
            return;
        }
        const Position& at = positions.front();
        const double north = -std::sin(at.azimuth) * TICK;
        const double east = std::cos(at.azimuth) * TICK;
        page_.Raw("<path class=\"tick\" d=\"M");
        Place(at.north - north, at.east - east);
        page_.Raw("L");
        Place(at.north + north, at.east + east);
        page_.Raw("\"/>");
        LabelBeside({at.north + north, at.east + east, at.azimuth}, BESIDE_A_TICK, kind, label);
    }

    void DrawStations()
    {
        for (const StaEquation& equation : alignment_.equations)
        {
            DrawTick(equation.internal.value,
                     std::wstring(equation.back.text) + L"＝" + std::wstring(equation.ahead.text), "equation");
        }
        for (const double station : labels_.MainStations(course_.StaStart(), course_.StaEnd()))
        {
            DrawTick(station, labels_.At(station), "station");
        }
    }

    void DrawStakes()
    {
        for (const PointGroup& group : file_.pointGroups)
        {
            if (!group.IsWidthStakes() || group.alignmentRefs != alignment_.name)
            {
                continue;
            }
            bool isFirst = true;
            page_.Raw("<path class=\"stakes\" d=\"");
            for (const CgPoint& point : group.points)
            {
                if (point.point.IsPlaced())
                {
                    page_.Raw(isFirst ? "M" : "L");
                    Place(point.point);
                    isFirst = false;
                }
            }
            const bool isClosed = PropertyValue(group.features, L"WidthStakePnts", L"type") == L"closed";
            page_.Raw(isClosed && !isFirst ? "Z" : "").Raw("\"><title>").Text(NameOf(group)).Raw("</title></path>");
        }
    }

    static const char* ClassOf(const PointGroup& group)
    {
        return group.IsWidthStakes() ? "stake" : group.IsIntermediate() ? "intermediate" : "control";
    }

    void DrawPoints()
    {
        ForEachPoint([this](const PointGroup& group, const CgPoint& one) {
            const PlanPoint& point = one.point;
            if (!point.IsPlaced())
            {
                return;
            }
            page_.Raw("<path class=\"").Raw(ClassOf(group)).Raw("\"");
            DrawId(drawing_, point.line);
            page_.Raw(" d=\"M");
            Place(point);
            page_.Raw("h0\"><title>").Text(Path(NameOf(group), NameOf(one))).Text(L"\nX=").Text(point.north.text);
            page_.Text(L"\nY=").Text(point.east.text).Text(L"\nH=").Text(point.height.text).Raw("</title></path>");
            Label(point.north.value, point.east.value, "point", point.name);
        });
    }

    Drawing& drawing_;
    Html& page_;
    const LandXmlFile& file_;
    const Alignment& alignment_;
    Course course_;
    StationLabels labels_;
    Corner corner_;
    Range x_;
    Range y_;
    double left_ = 0;
    double bottom_ = 0;
    double width_ = 0;
};

void DrawSegments(Html& page, const Corner& corner, const std::vector<PlanSegment>& segments)
{
    for (const PlanSegment& segment : segments)
    {
        page.Raw("M").Number(corner.X(segment.eastFrom), 2).Raw(" ").Number(corner.Y(segment.northFrom), 2);
        page.Raw("L").Number(corner.X(segment.eastTo), 2).Raw(" ").Number(corner.Y(segment.northTo), 2);
    }
}

} // namespace

void DrawId(Drawing& drawing, std::size_t line)
{
    if (line > 0 && drawing.drawnLines.insert(line).second)
    {
        drawing.page.Raw(" id=\"l").Number(static_cast<double>(line), 0).Raw("\"");
    }
}

void DrawScaleBar(Html& page, double left, double bottom, double width)
{
    const double power = std::pow(10, std::floor(std::log10(width / 6)));
    const double length = power * (width / 6 >= 5 * power ? 5 : width / 6 >= 2 * power ? 2 : 1);
    const double x = left + width * 0.02;
    const double y = bottom - width * 0.015;
    page.Raw("<path class=\"scale\" d=\"M").Number(x).Raw(" ").Number(y).Raw("h").Number(length).Raw("\"/>");
    page.Raw("<text class=\"scale\" x=\"").Number(x).Raw("\" y=\"").Number(y - width * 0.005).Raw("\">");
    page.Number(length).Raw(" m</text>");
}

void DrawSurfaces(Drawing& drawing, const LandXmlFile& file)
{
    Html& page = drawing.page;
    const Corner corner = CornerOf(file);
    page.Raw("<svg class=\"shared\" width=\"0\" height=\"0\"><defs>");
    for (std::size_t index = 0; index < file.surfaces.size(); ++index)
    {
        const Surface& surface = file.surfaces[index];
        page.Raw("<g id=\"surface").Number(static_cast<double>(index), 0).Raw("\"><path class=\"outline\" d=\"");
        DrawSegments(page, corner, OutlineOf(surface));
        page.Raw("\"><title>").Text(NameOf(surface)).Raw("</title></path>");
        for (const Contour& contour : ContoursOf(surface))
        {
            page.Raw("<path class=\"contour\" d=\"");
            DrawSegments(page, corner, contour.segments);
            page.Raw("\"><title>").Text(NameOf(surface)).Raw(" ").Number(contour.height).Raw(" m</title></path>");
        }
        page.Raw("</g>");
    }
    page.Raw("</defs></svg>");
}

void DrawPlan(Drawing& drawing, const LandXmlFile& file, const Alignment& alignment)
{
    PlanDrawer(drawing, file, alignment).Draw();
}

} // namespace jlandxml::inspect
