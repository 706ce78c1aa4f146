// Profiles with the bands under them, as they are drawn in Japan: heights drawn out to the height of the graph, and
// below, to the same stations, gradients, heights, fill and cut, distances, stations, the curves of the plan,
// superelevation and widening.

#include "base/Numbers.h"
#include "inspect/Course.h"
#include "inspect/Limits.h"
#include "inspect/Names.h"
#include "inspect/OwnFigures.h"
#include "inspect/ProfileLine.h"
#include "inspect/Report.h"
#include "inspect/StationLabel.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace jlandxml::inspect
{

namespace
{

// Sizes on the sheet, in pixels.
constexpr double LEFT = 110;
constexpr double RIGHT = 30;
constexpr double TOP = 30;
constexpr double GRAPH = 280;
constexpr double TEXT_BAND = 60; ///< a distance of five digits before its point fits
constexpr int TEXT_BANDS = 7;    ///< heights, fill, cut, distances, stations
constexpr double DIAGRAM_BAND = 64;
constexpr double STATION_GAP = 26; ///< between main stations, so that texts on end stand apart
constexpr double NARROWEST = 900;
constexpr double WIDEST = 20000;

/// Of the graph on a sheet of paper; beside it stand the heads of the bands, up to where texts at its first station
/// begin.
constexpr double SHEET = 1350;
constexpr double BESIDE_A_STATION = 13;
constexpr double HEADS = LEFT - BESIDE_A_STATION;

/// Texts on end that stand nearer than this to one another can't be read.
constexpr double TEXT_GAP = 13;

constexpr int DISTANCE_DECIMALS = 3;

constexpr Sentence LEFT_AND_RIGHT{L"実線 左、破線 右", L"dashed: right"};

class ProfileDrawer
{
  public:
    ProfileDrawer(Drawing& drawing, const OwnFigures& own, const Alignment& alignment)
        : drawing_(drawing),
          page_(drawing.page),
          own_(own),
          alignment_(alignment),
          course_(alignment),
          labels_(alignment)
    {}

    void Draw()
    {
        stations_ = labels_.MainStations(course_.StaStart(), course_.StaEnd());
        const double length = course_.StaEnd() - course_.StaStart();
        if (!std::isfinite(length) || length <= 0)
        {
            page_.Words("p class=\"leftout\"", L"線形の長さが求められないため、縦断図はありません。",
                        L"The alignment has no length, so there is no profile.");
            return;
        }
        const double graph = std::clamp(static_cast<double>(stations_.size()) * STATION_GAP, NARROWEST, WIDEST);
        scale_ = graph / length;
        width_ = LEFT + graph + RIGHT;
        MeasureHeights();
        page_.Raw("<svg class=\"profile\" width=\"").Number(width_, 0).Raw("\" height=\"").Number(Height(), 0);
        page_.Raw("\" viewBox=\"0 0 ").Number(width_, 0).Raw(" ").Number(Height(), 0);
        TellScales();
        const std::string id = "profile" + std::to_string(drawing_.profiles++);
        page_.Raw("\"><g id=\"").Raw(id).Raw("\" class=\"profile\">");
        DrawGrid();
        DrawGrounds();
        DrawDesigns();
        DrawBands();
        page_.Raw("</g></svg>");
        DrawSheets(id);
    }

  private:
    bool HasSlopes() const { return !alignment_.superelevations.empty() || !alignment_.slopes.empty(); }
    bool HasWidening() const { return !alignment_.wideningLeft.empty() || !alignment_.wideningRight.empty(); }

    double Height() const
    {
        const int diagrams = 2 + (HasSlopes() ? 1 : 0) + (HasWidening() ? 1 : 0);
        return TOP + GRAPH + TEXT_BANDS * TEXT_BAND + diagrams * DIAGRAM_BAND + 20;
    }

    /// By which pixels are stations and heights again: a place and what is there, and the pixels of a metre.
    void TellScales()
    {
        constexpr int DECIMALS = 9;
        page_.Raw("\" data-x=\"").Number(LEFT).Raw("\" data-station=\"").Number(course_.StaStart(), DECIMALS);
        page_.Raw("\" data-along=\"").Number(scale_, DECIMALS).Raw("\" data-y=\"").Number(TOP + GRAPH);
        page_.Raw("\" data-height=\"").Number(lowest_, DECIMALS).Raw("\" data-up=\"");
        page_.Number(GRAPH / (highest_ - lowest_), DECIMALS);
    }

    /// On paper a profile that is wider than a sheet is cut into several at main stations, each with the heads of its
    /// bands: windows onto what the screen scrolls through.
    void DrawSheets(const std::string& id)
    {
        const double right = width_ - RIGHT;
        const double count = std::ceil((right - LEFT) / SHEET);
        if (count < 2)
        {
            return;
        }
        page_.Raw("<svg class=\"shared\" width=\"0\" height=\"0\"><defs><g id=\"")
            .Raw(id)
            .Raw("heads\" class=\"profile\">");
        page_.Raw(heads_.Take()).Raw("</g></defs></svg>");
        double from = LEFT;
        for (double sheet = 1; sheet <= count; ++sheet)
        {
            const double to = sheet < count ? CutAt(LEFT + (right - LEFT) * sheet / count) : right;
            page_.Raw("<div class=\"sheetofprofile\">");
            page_.Words("p", Detail({L"縦断図 {}/{}　{}～{}", L"Profile {}/{}　{} to {}"},
                                    {ShortNumber(sheet), ShortNumber(count), labels_.At(StationAt(from)),
                                     labels_.At(StationAt(to))}));
            const double width = to - from + 2 * BESIDE_A_STATION;
            page_.Raw("<svg width=\"").Number(HEADS + width, 2).Raw("\" viewBox=\"0 0 ").Number(HEADS + width, 2);
            page_.Raw(" ").Number(Height()).Raw("\"><use href=\"#").Raw(id).Raw("heads\"/><svg x=\"").Number(HEADS);
            page_.Raw("\" width=\"").Number(width, 2).Raw("\" height=\"").Number(Height()).Raw("\" viewBox=\"");
            page_.Number(from - BESIDE_A_STATION, 2).Raw(" 0 ").Number(width, 2).Raw(" ").Number(Height());
            page_.Raw("\"><use href=\"#").Raw(id).Raw("\"/></svg></svg></div>");
            from = to;
        }
    }

    /// The last main station up to a place in the graph, or the place itself if there are none.
    double CutAt(double x) const
    {
        const auto behind = std::upper_bound(stations_.begin(), stations_.end(), StationAt(x));
        return behind != stations_.begin() ? X(behind[-1]) : x;
    }

    double StationAt(double x) const { return course_.StaStart() + (x - LEFT) / scale_; }

    double X(double station) const { return LEFT + (station - course_.StaStart()) * scale_; }

    double Y(double height) const { return TOP + GRAPH - (height - lowest_) / (highest_ - lowest_) * GRAPH; }

    void MeasureHeights()
    {
        Range heights;
        const auto take = [&](double height) {
            // One height that is none would leave nothing to see of the others.
            heights.Take(std::abs(height) < HIGHEST ? height : NAN);
        };
        for (const Profile& profile : alignment_.profiles)
        {
            for (const ProfAlign& design : profile.designs)
            {
                for (const ProfileElement& element : design.elements)
                {
                    take(element.height.value);
                }
            }
            for (const ProfSurf& ground : profile.grounds)
            {
                for (const PairList& list : ground.lists)
                {
                    for (const FigurePair& pair : list.pairs)
                    {
                        take(pair.second.value);
                    }
                }
            }
        }
        const double middle = heights.IsEmpty() ? 0 : (heights.Smallest() + heights.Largest()) / 2;
        const double half = heights.IsEmpty() ? 5 : std::max((heights.Largest() - heights.Smallest()) * 0.6, 1.0);
        // From the datum line on, which is at a whole number of steps, and up to another.
        step_ = RoundStep(half / 2);
        lowest_ = std::floor((middle - half) / step_) * step_;
        highest_ = std::ceil((middle + half) / step_) * step_;
    }

    void Line(const char* kind, double x1, double y1, double x2, double y2)
    {
        page_.Raw("<path class=\"").Raw(kind).Raw("\" d=\"M").Number(x1, 2).Raw(" ").Number(y1, 2).Raw("L");
        page_.Number(x2, 2).Raw(" ").Number(y2, 2).Raw("\"/>");
    }

    void Label(const char* kind, double x, double y, std::wstring_view text) { LabelIn(page_, kind, x, y, text); }

    static void LabelIn(Html& page, const char* kind, double x, double y, std::wstring_view text)
    {
        page.Raw("<text class=\"").Raw(kind).Raw("\" x=\"").Number(x, 1).Raw("\" y=\"").Number(y, 1).Raw("\">");
        page.Text(text).Raw("</text>");
    }

    /// A text on end, read from the right, its foot at a place.
    void UprightLabel(double x, double y, std::wstring_view text)
    {
        page_.Raw("<text class=\"upright\" transform=\"translate(").Number(x + 4, 1).Raw(" ").Number(y, 1);
        page_.Raw(") rotate(-90)\">").Text(text).Raw("</text>");
    }

    void DrawGrid()
    {
        for (double number = std::round(lowest_ / step_); number * step_ <= highest_ + step_ / 2; ++number)
        {
            Line("grid", LEFT, Y(number * step_), width_ - RIGHT, Y(number * step_));
        }
        for (const double station : stations_)
        {
            Line("grid", X(station), TOP, X(station), TOP + GRAPH);
        }
        Line("datum", LEFT, TOP + GRAPH, width_ - RIGHT, TOP + GRAPH);
        DrawHeights(page_);
        DrawHeights(heads_);
    }

    /// The scale of heights, from the datum line (DL) on.
    void DrawHeights(Html& page) const
    {
        constexpr double MARK = 4;
        const double axis = HEADS - 1;
        page.Raw("<path class=\"datum\" d=\"M")
            .Number(axis)
            .Raw(" ")
            .Number(TOP)
            .Raw("V")
            .Number(TOP + GRAPH)
            .Raw("\"/>");
        for (double number = std::round(lowest_ / step_); number * step_ <= highest_ + step_ / 2; ++number)
        {
            const double y = Y(number * step_);
            const std::wstring height = ShortNumber(number * step_, 2);
            const bool isDatum = y > TOP + GRAPH - 1;
            page.Raw("<path class=\"datum\" d=\"M")
                .Number(axis - MARK)
                .Raw(" ")
                .Number(y, 2)
                .Raw("h")
                .Number(MARK)
                .Raw("\"/>");
            LabelIn(page, isDatum ? "axis level" : "axis", axis - MARK - 2, y + (isDatum ? -2 : 4),
                    isDatum ? L"DL=" + height : height);
        }
        const std::wstring times = ShortNumber(GRAPH / (highest_ - lowest_) / scale_, 1);
        page.Words("text x=\"10\" y=\"16\"",
                   Detail({L"標高（m）　縦は横の{}倍", L"Elevation (m), drawn out {} times"}, {times}));
    }

    void DrawGrounds()
    {
        for (const Profile& profile : alignment_.profiles)
        {
            for (const ProfSurf& ground : profile.grounds)
            {
                if (!HasPlace(ground.lists))
                {
                    continue;
                }
                page_.Raw("<path class=\"ground\"");
                DrawId(drawing_, ground);
                page_.Raw(" d=\"");
                for (const PairList& list : ground.lists)
                {
                    const char* step = "M";
                    for (const FigurePair& pair : list.pairs)
                    {
                        if (pair.IsPlaced())
                        {
                            page_.Raw(step).Number(X(pair.first.value), 2).Raw(" ").Number(Y(pair.second.value), 2);
                            step = "L";
                        }
                    }
                }
                page_.Raw("\"><title>").Text(ground.name).Raw("</title></path>");
                if (!ground.lists.front().pairs.empty() && ground.lists.front().pairs.front().IsPlaced())
                {
                    const FigurePair& first = ground.lists.front().pairs.front();
                    LabelLine(first.first.value, first.second.value, ground.name);
                }
            }
        }
    }

    /// The name of a line above its first point.
    void LabelLine(double station, double height, std::wstring_view name)
    {
        Label("name", X(station) + 4, Y(height) - 5, name);
    }

    void DrawDesigns()
    {
        for (const Profile& profile : alignment_.profiles)
        {
            for (const ProfAlign& design : profile.designs)
            {
                DrawDesign(design, ProfileLine(design));
            }
        }
    }

    void DrawDesign(const ProfAlign& design, const ProfileLine& line)
    {
        constexpr int PARTS_OF_A_CURVE = 16;
        if (line.Points().empty())
        {
            return;
        }
        page_.Raw("<path class=\"design\"");
        DrawId(drawing_, design);
        page_.Raw(" d=\"");
        const char* step = "M";
        const auto go = [&](double station, double height) {
            page_.Raw(step).Number(X(station), 2).Raw(" ").Number(Y(height), 2);
            step = "L";
        };
        for (const ProfilePoint& point : line.Points())
        {
            const double length = point.lengthIn + point.lengthOut;
            for (int part = 0; point.HasCurve() && part <= PARTS_OF_A_CURVE; ++part)
            {
                const double station = point.CurveStart() + length * part / PARTS_OF_A_CURVE;
                go(station, line.HeightAt(station).value_or(point.height));
            }
            if (!point.HasCurve())
            {
                go(point.station, point.height);
            }
        }
        page_.Raw("\"><title>").Text(design.name).Raw("</title></path>");
        DrawTangents(line);
        LabelDesign(line);
        LabelLine(line.Points().front().station, line.Points().front().height, design.name);
    }

    void DrawTangents(const ProfileLine& line)
    {
        page_.Raw("<path class=\"tangent\" d=\"");
        const char* step = "M";
        for (const ProfilePoint& point : line.Points())
        {
            page_.Raw(step).Number(X(point.station), 2).Raw(" ").Number(Y(point.height), 2);
            step = "L";
        }
        page_.Raw("\"/>");
    }

    void LabelDesign(const ProfileLine& line)
    {
        for (const ProfilePoint& point : line.Points())
        {
            page_.Raw("<path class=\"vertex\"");
            DrawId(drawing_, *point.element);
            page_.Raw(" d=\"M").Number(X(point.station), 2).Raw(" ").Number(Y(point.height), 2).Raw("h0\"><title>");
            page_.Text(labels_.At(point.station)).Text(L"\nH=").Text(point.element->height.text);
            page_.Raw("</title></path>");
            if (&point != &line.Points().back())
            {
                const ProfilePoint& next = *(&point + 1);
                Label("gradient", X((point.station + next.station) / 2), Y((point.height + next.height) / 2) - 8,
                      L"i=" + ShortNumber(point.gradientOut * 100, 3) + L"%");
            }
            if (point.HasCurve())
            {
                const double length = point.lengthIn + point.lengthOut;
                const std::wstring radius = OwnOr(point.element->radius, point.CurveRadius());
                Label("curvature", X(point.station),
                      Y(point.height) + (point.gradientOut < point.gradientIn ? -10 : 20),
                      L"VCL=" + OwnOr(point.element->length, length) + (radius.empty() ? L"" : L" VCR=" + radius));
            }
        }
    }

    // Bands

    void DrawBands()
    {
        const std::optional<ProfileLine> line = LineOf(DesignProfile(alignment_));
        std::optional<GroundLine> ground;
        for (const Profile& profile : alignment_.profiles)
        {
            if (!ground && !profile.grounds.empty())
            {
                ground.emplace(profile.grounds.front().lists);
            }
        }
        const auto fill = [&](double station) -> std::optional<double> {
            const std::optional<double> road = line ? line->HeightAt(station) : std::nullopt;
            const std::optional<double> soil = ground ? ground->HeightAt(station) : std::nullopt;
            return road && soil ? std::optional(*road - *soil) : std::nullopt;
        };
        double top = TOP + GRAPH;
        GradientBand(top, line);
        TextBand(top, {L"盛土高", L"Fill"}, [&](double station) { return Positive(fill(station), 1); });
        TextBand(top, {L"切土高", L"Cut"}, [&](double station) { return Positive(fill(station), -1); });
        TextBand(top, {L"計画高", L"Design"},
                 [&](double station) { return own_.DesignHeightText(line, station, HEIGHT_DECIMALS); });
        TextBand(top, {L"地盤高", L"Ground"},
                 [&](double station) { return HeightText(ground, station, HEIGHT_DECIMALS); });
        TextBand(top, {L"追加距離", L"Distance"},
                 [&](double station) { return DistanceText(station - course_.StaStart()); });
        TextBand(top, {L"単距離", L"Interval"}, [&](double station) { return IntervalTo(station); });
        TextBand(top, {L"測点", L"Station"}, [&](double station) { return labels_.At(station); });
        CurveBand(top);
        if (HasSlopes())
        {
            SuperelevationBand(top);
        }
        if (HasWidening())
        {
            WideningBand(top);
        }
    }

    /// The file's own figure, else one that was computed.
    static std::wstring OwnOr(const Figure& figure, std::optional<double> computed)
    {
        return figure.IsWritten() ? std::wstring(figure.text) : computed ? ShortNumber(*computed, 3) : std::wstring();
    }

    void BandHead(double top, double height, const Sentence& name, const Sentence* legend = nullptr)
    {
        page_.Raw("<rect class=\"band\" x=\"4\" y=\"").Number(top, 1).Raw("\" width=\"").Number(width_ - 14, 1);
        page_.Raw("\" height=\"").Number(height, 1).Raw("\"/>");
        WriteHead(page_, top + height / 2 + 4, name, legend);
        heads_.Raw("<rect class=\"band\" x=\"4\" y=\"").Number(top, 1).Raw("\" width=\"").Number(HEADS - 4, 1);
        heads_.Raw("\" height=\"").Number(height, 1).Raw("\"/>");
        WriteHead(heads_, top + height / 2 + 4, name, legend);
    }

    static void WriteHead(Html& page, double y, const Sentence& name, const Sentence* legend)
    {
        const int middle = static_cast<int>(y);
        page.Words("text class=\"head\" x=\"10\" y=\"" + std::to_string(middle) + "\"", name);
        if (legend != nullptr)
        {
            page.Words("text class=\"legend\" x=\"10\" y=\"" + std::to_string(middle + 16) + "\"", *legend);
        }
    }

    template <class TextAt>
    void TextBand(double& top, const Sentence& name, TextAt&& textAt)
    {
        BandHead(top, TEXT_BAND, name);
        double last = -TEXT_GAP;
        for (const double station : stations_)
        {
            if (X(station) - last >= TEXT_GAP)
            {
                UprightLabel(X(station), top + TEXT_BAND - 3, textAt(station));
                last = X(station);
            }
        }
        top += TEXT_BAND;
    }

    /// What a difference in height, counted up or down, has above nothing.
    static std::wstring Positive(const std::optional<double>& difference, int sign)
    {
        return difference && std::isfinite(*difference) && sign * *difference > 0
                   ? FormatFixed(std::abs(*difference), HEIGHT_DECIMALS)
                   : std::wstring();
    }

    /// From the main station in front.
    std::wstring IntervalTo(double station) const
    {
        const auto place = std::lower_bound(stations_.begin(), stations_.end(), station);
        return DistanceText(place == stations_.begin() ? 0 : station - place[-1]);
    }

    /// A negative zero would show its sign.
    static std::wstring DistanceText(double distance) { return FormatFixed(distance + 0.0, DISTANCE_DECIMALS); }

    /// Between two gradient changes a line that rises or falls as the road does, over it the gradient, under it the
    /// length in metres.
    void GradientBand(double& top, const std::optional<ProfileLine>& line)
    {
        BandHead(top, DIAGRAM_BAND, {L"縦断勾配", L"Gradient"});
        const double rise = DIAGRAM_BAND * 0.3;
        const double middle = top + DIAGRAM_BAND / 2;
        for (std::size_t index = 1; line && index < line->Points().size(); ++index)
        {
            const ProfilePoint& from = line->Points()[index - 1];
            const ProfilePoint& to = line->Points()[index];
            const double up = from.gradientOut > 0 ? rise : from.gradientOut < 0 ? -rise : 0;
            Line("diagram", X(from.station), middle + up, X(to.station), middle - up);
            Line("grid", X(to.station), top, X(to.station), top + DIAGRAM_BAND);
            const double x = (X(from.station) + X(to.station)) / 2;
            Label("data", x, middle - 6, L"i=" + ShortNumber(from.gradientOut * 100, 3) + L"%");
            Label("data", x, middle + 14, L"L=" + ShortNumber(to.station - from.station, 3) + L"m");
        }
        top += DIAGRAM_BAND;
    }

    /// A curve to the right stands above the band's middle line, one to the left below it; a clothoid leads there.
    void CurveBand(double& top)
    {
        BandHead(top, DIAGRAM_BAND, {L"平面曲線", L"Curves"});
        const double middle = top + DIAGRAM_BAND / 2;
        const double rise = DIAGRAM_BAND * 0.36;
        double station = course_.StaStart();
        for (std::size_t index = 0; index < alignment_.elements.size(); ++index)
        {
            const PlanElement& element = alignment_.elements[index];
            const double end = station + course_.Elements()[index].stationLength;
            const bool isSpiral = element.kind == ElementKind::Spiral;
            const bool isCurve = element.kind == ElementKind::Curve;
            const int turn = isSpiral || isCurve ? Turn(element.rot) : 0;
            const double from = middle - turn * rise * (isSpiral && CurvatureOf(element.radiusStart) == 0 ? 0 : 1);
            const double to = middle - turn * rise * (isSpiral && CurvatureOf(element.radiusEnd) == 0 ? 0 : 1);
            Line("diagram", X(station), from, X(end), to);
            if (isCurve)
            {
                Line("diagram", X(station), middle, X(station), from);
                Line("diagram", X(end), to, X(end), middle);
                Label("data", (X(station) + X(end)) / 2, from + (turn > 0 ? 14 : -6),
                      L"R=" + std::wstring(element.radius.text));
            }
            if (isSpiral && element.parameter.IsWritten())
            {
                Label("data", (X(station) + X(end)) / 2, middle + (turn > 0 ? 14 : -6),
                      L"A=" + std::wstring(element.parameter.text));
            }
            station = end;
        }
        top += DIAGRAM_BAND;
    }

    /// A place in a diagram: a station and the value there.
    struct Step
    {
        double station;
        double value;       ///< upward
        std::wstring shown; ///< what stands beside it
        SourcePlace place;  ///< of the file's element that says so; line 0 for none
    };

    void DrawSteps(const char* kind, double middle, double unit, const std::vector<Step>& steps)
    {
        page_.Raw("<path class=\"").Raw(kind).Raw("\" d=\"");
        const char* step = "M";
        for (const Step& one : steps)
        {
            page_.Raw(step).Number(X(one.station), 2).Raw(" ").Number(middle - one.value * unit, 2);
            step = "L";
        }
        page_.Raw("\"/>");
    }

    static std::vector<Step> StepsOf(const std::vector<StationEntry>& entries, std::size_t column)
    {
        std::vector<Step> steps;
        for (const StationEntry& entry : entries)
        {
            if (entry.Station().IsFinite() && entry.At(column).IsFinite())
            {
                steps.push_back(
                    {entry.Station().value, entry.At(column).value, std::wstring(entry.At(column).text), entry});
            }
        }
        return steps;
    }

    static double Largest(const std::vector<std::vector<Step>>& lists)
    {
        double largest = 0;
        for (const std::vector<Step>& steps : lists)
        {
            for (const Step& step : steps)
            {
                largest = std::max(largest, std::abs(step.value));
            }
        }
        return largest;
    }

    static std::optional<double> StationOf(const Superelevation& one, std::wstring_view kind)
    {
        for (const TransitionStation& station : one.stations)
        {
            if (station.kind == kind && station.station.IsFinite())
            {
                return station.station.value;
            }
        }
        return {};
    }

    /// The stations that features of a name list.
    static std::vector<double> FeatureStations(const Superelevation& one, std::wstring_view name)
    {
        std::vector<double> stations;
        for (const Feature& feature : one.features)
        {
            for (const TransitionStation& station : StationsOf(feature))
            {
                if (station.kind == name && station.station.IsFinite())
                {
                    stations.push_back(station.station.value);
                }
            }
        }
        return stations;
    }

    /// A slope in the file's own digits, uphill from the crown or down.
    struct Slope
    {
        double value;
        std::wstring text;

        explicit Slope(const Figure& figure)
            : value(figure.IsFinite() ? std::abs(figure.value) : 0),
              text(figure.IsFinite() ? figure.text : L"0")
        {
            text.erase(0, text.find_first_not_of(L"+-"));
        }
    };

    static void Add(std::vector<Step>& steps, const std::optional<double>& station, const Slope& slope, int sign)
    {
        if (station)
        {
            steps.push_back(
                {*station, sign * slope.value, (sign < 0 && slope.value > 0 ? L"-" : L"") + slope.text, {}});
        }
    }

    /// The edges of the road through the transitions: the outer one from the crown's slope over level, where its lane
    /// is flat, to the full slope and back, the inner one from where the whole road slopes as its crown does straight
    /// to it.
    void AddTransition(const Superelevation& one, const Slope& crown, std::vector<Step>& outer,
                       std::vector<Step>& inner) const
    {
        const Slope full(one.fullSuperelev);
        const Slope level{Figure()};
        const std::optional<double> begin = StationOf(one, L"BeginRunoutSta");
        const std::optional<double> end = StationOf(one, L"EndofRunoutSta");
        const std::optional<double> fullBegin = StationOf(one, L"FullSuperSta");
        const std::optional<double> fullEnd = StationOf(one, L"RunoffSta");
        Add(outer, begin, crown, -1);
        Add(outer, StationOf(one, L"BeginRunoffSta"), level, 1);
        Add(outer, fullBegin, full, 1);
        Add(outer, fullEnd, full, 1);
        Add(outer, StationOf(one, L"StartofRunoutSta"), level, 1);
        Add(outer, end, crown, -1);
        for (const double flat : FeatureStations(one, L"FlatSta"))
        {
            Add(outer, flat, level, 1);
        }
        const std::vector<double> reverse = FeatureStations(one, L"ReverseCrown");
        Add(inner, reverse.empty() ? begin : reverse.front(), crown, -1);
        Add(inner, fullBegin, full, -1);
        Add(inner, fullEnd, full, -1);
        Add(inner, reverse.size() < 2 ? end : reverse.back(), crown, -1);
    }

    /// +1 where the road turns to the right between two stations, -1 to the left; 0 where it doesn't turn.
    int TurnBetween(double from, double to) const
    {
        double station = course_.StaStart();
        for (std::size_t index = 0; index < alignment_.elements.size(); ++index)
        {
            const PlanElement& element = alignment_.elements[index];
            station += course_.Elements()[index].stationLength;
            if (station > (from + to) / 2)
            {
                const bool isBent = element.kind == ElementKind::Curve || element.kind == ElementKind::Spiral;
                return isBent ? Turn(element.rot) : 0;
            }
        }
        return 0;
    }

    /// A curve's outer edge is the left one where the road turns to the right.
    bool IsLeftEdgeOuter(const Superelevation& one) const
    {
        const double from = StationOf(one, L"FullSuperSta").value_or(one.staStart.value);
        const double to = StationOf(one, L"RunoffSta").value_or(one.staEnd.value);
        return TurnBetween(from, to) >= 0;
    }

    /// A place in the graph for a station that may lie outside.
    double XWithin(double station) const { return std::clamp(X(station), LEFT, width_ - RIGHT); }

    /// Where findings are about superelevations or their stations, these are shown on the band's middle line.
    void MarkSuperelevations(double middle)
    {
        for (const Superelevation& one : alignment_.superelevations)
        {
            if (one.staStart.IsFinite() && one.staEnd.IsFinite() && IsSpotToBeDrawn(drawing_, one))
            {
                page_.Raw("<path class=\"spot\"");
                DrawId(drawing_, one);
                page_.Raw(" d=\"M").Number(XWithin(one.staStart.value), 2).Raw(" ").Number(middle, 2).Raw("H");
                page_.Number(XWithin(one.staEnd.value), 2).Raw("\"/>");
            }
            for (const TransitionStation& station : one.stations)
            {
                MarkStation(station.station, station, middle);
            }
            for (const Feature& feature : one.features)
            {
                for (const Property& property : feature.properties)
                {
                    MarkStation(ReadFigure(property.value), property, middle);
                }
            }
        }
    }

    void MarkStation(const Figure& station, const SourcePlace& place, double y)
    {
        if (station.IsFinite())
        {
            DrawSpot(drawing_, place, XWithin(station.value), y);
        }
    }

    void SuperelevationBand(double& top)
    {
        BandHead(top, DIAGRAM_BAND, {L"片勾配（％）", L"Cross slope (%)"}, &LEFT_AND_RIGHT);
        const Slope crown(ReadFigure(PropertyValue(alignment_.features, L"SuperelevationConfig", L"normalCrown")));
        std::vector<std::vector<Step>> lists{StepsOf(alignment_.slopes, 1), StepsOf(alignment_.slopes, 2)};
        if (alignment_.slopes.empty())
        {
            for (const Superelevation& one : alignment_.superelevations)
            {
                const std::size_t outer = IsLeftEdgeOuter(one) ? 0 : 1;
                AddTransition(one, crown, lists[outer], lists[1 - outer]);
            }
            for (std::vector<Step>& steps : lists)
            {
                // Straight on, the road keeps its crown.
                Add(steps, course_.StaStart(), crown, -1);
                Add(steps, course_.StaEnd(), crown, -1);
                std::stable_sort(steps.begin(), steps.end(),
                                 [](const Step& one, const Step& other) { return one.station < other.station; });
                steps.erase(std::unique(steps.begin(), steps.end(),
                                        [](const Step& one, const Step& other) {
                                            return one.station == other.station && one.value == other.value;
                                        }),
                            steps.end());
            }
        }
        const double middle = top + DIAGRAM_BAND / 2;
        DrawDiagram(top, lists);
        MarkSuperelevations(middle);
    }

    void WideningBand(double& top)
    {
        BandHead(top, DIAGRAM_BAND, {L"拡幅（m）", L"Widening (m)"}, &LEFT_AND_RIGHT);
        std::vector<std::vector<Step>> lists{StepsOf(alignment_.wideningLeft, 1), StepsOf(alignment_.wideningRight, 1)};
        for (Step& step : lists[1])
        {
            step.value = -step.value;
        }
        DrawDiagram(top, lists);
    }

    /// Two lines about the middle of a band, of the left and of the right edge, with their values.
    void DrawDiagram(double& top, const std::vector<std::vector<Step>>& lists)
    {
        const double middle = top + DIAGRAM_BAND / 2;
        const double largest = Largest(lists);
        const double unit = largest > 0 ? DIAGRAM_BAND * 0.3 / largest : 0;
        Line("grid", LEFT, middle, width_ - RIGHT, middle);
        constexpr const char* KINDS[] = {"diagram", "diagram second"};
        for (std::size_t side = 0; side < lists.size(); ++side)
        {
            // There are no more lists than kinds, which the analyzer doesn't see.
            DrawSteps(KINDS[side], middle, unit, lists[side]); // NOLINT(clang-analyzer-core.CallAndMessage)
            double last = -1000;
            for (const Step& step : lists[side])
            {
                DrawSpot(drawing_, step.place, XWithin(step.station), middle - step.value * unit);
                DrawCorner(step, middle - step.value * unit);
                if (X(step.station) - last > 34)
                {
                    Label("data", X(step.station), middle - step.value * unit + (side == 0 ? -3 : 11), step.shown);
                    last = X(step.station);
                }
            }
        }
        top += DIAGRAM_BAND;
    }

    /// Tells the station of a step, and what it says.
    void DrawCorner(const Step& step, double y)
    {
        page_.Raw("<path class=\"corner\" d=\"M").Number(X(step.station), 2).Raw(" ").Number(y, 2).Raw("h0\"><title>");
        page_.Text(labels_.At(step.station)).Raw(" ").Text(own_.StationText(step.station, DISTANCE_DECIMALS));
        page_.Raw(" m\n").Text(step.shown).Raw("</title></path>");
    }

    Drawing& drawing_;
    Html& page_;
    Html heads_; ///< what stands left of the graph, for each sheet
    const OwnFigures& own_;
    const Alignment& alignment_;
    Course course_;
    StationLabels labels_;
    std::vector<double> stations_;
    double scale_ = 1;
    double width_ = 0;
    double lowest_ = 0;
    double highest_ = 1;
    double step_ = 1; ///< of the scale of heights
};

} // namespace

void DrawProfile(Drawing& drawing, const OwnFigures& own, const Alignment& alignment)
{
    ProfileDrawer(drawing, own, alignment).Draw();
}

} // namespace jlandxml::inspect
