#include "inspect/Tables.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "inspect/Angles.h"
#include "inspect/Course.h"
#include "inspect/Limits.h"
#include "inspect/Names.h"
#include "inspect/OwnFigures.h"
#include "inspect/ProfileLine.h"
#include "inspect/StationLabel.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace jlandxml::inspect
{

namespace
{

using Row = std::vector<std::wstring>;

constexpr int COORDINATE_DECIMALS = 4;
constexpr int STATION_DECIMALS = 3;

std::wstring Own(const Figure& figure)
{
    return std::wstring(figure.text);
}

std::wstring Computed(std::optional<double> value, int decimals)
{
    return value && std::isfinite(*value) ? FormatFixed(*value, decimals) : std::wstring();
}

/// A gradient in percent.
std::wstring Percent(double gradient)
{
    return Computed(gradient * 100, 4);
}

const ProfSurf* FirstGround(const Alignment& alignment)
{
    for (const Profile& profile : alignment.profiles)
    {
        if (!profile.grounds.empty())
        {
            return &profile.grounds.front();
        }
    }
    return nullptr;
}

// Alignments

/// The figures of an element that stand beside its start: radii, parameter, length.
Row ElementFigures(const PlanElement& element)
{
    const bool isCurve = element.kind == ElementKind::Curve;
    return {KindOf(element).japanese,
            Own(isCurve ? element.radius : element.radiusStart),
            Own(isCurve ? element.radius : element.radiusEnd),
            Own(element.parameter),
            Own(element.length),
            std::wstring(element.rot)};
}

Row MainPointRow(const Alignment& alignment, const StationLabels& labels, const OwnFigures& own, const PlanPoint& point,
                 double station, const std::wstring& azimuth, const Row& figures)
{
    Row row{NameOf(alignment).japanese,
            std::wstring(point.name),
            own.StationText(station, STATION_DECIMALS),
            labels.At(station),
            Own(point.north),
            Own(point.east),
            azimuth};
    row.insert(row.end(), figures.begin(), figures.end());
    return row;
}

void AddAlignment(const AlignmentReferences& references, const Alignment& alignment, Table& table)
{
    const Course course(alignment);
    const OwnFigures own(references, alignment);
    const StationLabels labels(alignment);
    double station = course.StaStart();
    for (std::size_t index = 0; index < alignment.elements.size(); ++index)
    {
        const PlanElement& element = alignment.elements[index];
        const ElementCourse& one = course.Elements()[index];
        table.rows.push_back(MainPointRow(alignment, labels, own, element.start, station,
                                          one.IsKnown() ? DegreesText(one.StartAzimuth()) : std::wstring(),
                                          ElementFigures(element)));
        station += one.stationLength;
    }
    if (!alignment.elements.empty())
    {
        const ElementCourse& last = course.Elements().back();
        table.rows.push_back(MainPointRow(alignment, labels, own, alignment.elements.back().end, station,
                                          last.IsKnown() ? DegreesText(last.EndAzimuth()) : std::wstring(), Row(6)));
    }
}

// Stations

/// A station to be listed, with the main point that lies there.
struct ListedStation
{
    double station;
    const PlanPoint* point;
};

/// The main stations and main points of an alignment in their order. A main point stands for the station at its place.
std::vector<ListedStation> ListedStations(const Alignment& alignment, const Course& course, const StationLabels& labels)
{
    std::vector<ListedStation> points;
    double station = course.StaStart();
    for (std::size_t index = 0; index < alignment.elements.size(); ++index)
    {
        points.push_back({station, &alignment.elements[index].start});
        station += course.Elements()[index].stationLength;
        if (index + 1 == alignment.elements.size())
        {
            points.push_back({station, &alignment.elements[index].end});
        }
    }
    std::vector<ListedStation> all = points;
    for (const double main : labels.MainStations(course.StaStart(), course.StaEnd()))
    {
        all.push_back({main, nullptr});
    }
    std::stable_sort(all.begin(), all.end(), [](const ListedStation& one, const ListedStation& other) {
        return one.station < other.station - SAME_PRINTED_STATION;
    });
    const auto isSame = [](const ListedStation& one, const ListedStation& other) {
        return other.point == nullptr && std::abs(one.station - other.station) <= SAME_PRINTED_STATION;
    };
    all.erase(std::unique(all.begin(), all.end(), isSame), all.end());
    return all;
}

void AddStations(const AlignmentReferences& references, const Alignment& alignment, Table& table)
{
    const Course course(alignment);
    const OwnFigures own(references, alignment);
    const std::optional<ProfileLine> line = LineOf(DesignProfile(alignment));
    const ProfSurf* const firstGround = FirstGround(alignment);
    const std::optional<GroundLine> ground =
        firstGround != nullptr ? std::optional<GroundLine>(firstGround->lists) : std::nullopt;
    const StationLabels labels(alignment);
    for (const ListedStation& one : ListedStations(alignment, course, labels))
    {
        const std::vector<Position> positions = course.At(one.station);
        const bool isKnown = !positions.empty();
        const bool isPoint = one.point != nullptr && one.point->IsPlaced();
        table.rows.push_back(
            {NameOf(alignment).japanese, labels.At(one.station), std::wstring(isPoint ? one.point->name : L""),
             own.StationText(one.station, STATION_DECIMALS),
             isPoint ? Own(one.point->north)
                     : own.NorthText(one.station, isKnown ? positions.front().north : NAN, COORDINATE_DECIMALS),
             isPoint ? Own(one.point->east)
                     : own.EastText(one.station, isKnown ? positions.front().east : NAN, COORDINATE_DECIMALS),
             isKnown ? DegreesText(positions.front().azimuth) : std::wstring(),
             own.DesignHeightText(line, one.station, COORDINATE_DECIMALS),
             HeightText(ground, one.station, COORDINATE_DECIMALS)});
    }
}

// Profiles

void AddProfile(const OwnFigures& own, const Alignment& alignment, const ProfAlign& design, Table& table)
{
    const std::optional<ProfileLine> line(design);
    const StationLabels labels(alignment);
    for (const ProfilePoint& point : line->Points())
    {
        const bool isFirst = &point == &line->Points().front();
        const bool isLast = &point == &line->Points().back();
        const double length = point.lengthIn + point.lengthOut;
        Row row{NameOf(alignment).japanese,
                std::wstring(design.name),
                labels.At(point.station),
                Own(point.element->station),
                Own(point.element->height),
                isFirst ? std::wstring() : Percent(point.gradientIn),
                isLast ? std::wstring() : Percent(point.gradientOut)};
        const Row curve = point.HasCurve()
                              ? Row{point.element->length.IsWritten() ? Own(point.element->length)
                                                                      : Computed(length, STATION_DECIMALS),
                                    point.element->radius.IsWritten() ? Own(point.element->radius)
                                                                      : Computed(point.CurveRadius(), STATION_DECIMALS),
                                    own.StationText(point.CurveStart(), STATION_DECIMALS),
                                    own.StationText(point.CurveEnd(), STATION_DECIMALS),
                                    own.DesignHeightText(line, point.station, COORDINATE_DECIMALS)}
                              : Row{L"", L"", L"", L"", Own(point.element->height)};
        row.insert(row.end(), curve.begin(), curve.end());
        table.rows.push_back(std::move(row));
    }
}

// Superelevation and widening

/// What users call the stations of a transition.
constexpr std::pair<std::wstring_view, const wchar_t*> TRANSITION_WORDS[] = {
    {L"BeginRunoutSta", L"片勾配すりつけ開始"},     {L"BeginRunoffSta", L"直線勾配から曲線勾配への移行開始"},
    {L"FullSuperSta", L"最大片勾配開始"},           {L"RunoffSta", L"最大片勾配終了"},
    {L"StartofRunoutSta", L"直線勾配への移行終了"}, {L"EndofRunoutSta", L"片勾配すりつけ終了"},
    {L"ReverseCrown", L"逆勾配と同じ勾配"},         {L"FlatSta", L"水平"},
};

std::wstring TransitionWord(std::wstring_view kind)
{
    const auto* const found = std::find_if(std::begin(TRANSITION_WORDS), std::end(TRANSITION_WORDS),
                                           [&](const auto& word) { return word.first == kind; });
    return found != std::end(TRANSITION_WORDS) ? found->second : std::wstring(kind);
}

/// A row of the table with the station by which it is sorted.
struct StationRow
{
    double station;
    Row row;
};

class CrossSlopeRows
{
  public:
    explicit CrossSlopeRows(const Alignment& alignment) : name_(NameOf(alignment).japanese), labels_(alignment) {}

    /// A slope of the whole road, or figures of its left and right side.
    void Add(const std::wstring& kind, const Figure& station, const std::wstring& slope, const std::wstring& left,
             const std::wstring& right)
    {
        const std::wstring label = station.IsFinite() ? labels_.At(station.value) : std::wstring();
        rows_.push_back(
            {station.IsFinite() ? station.value : INFINITY, {name_, kind, label, Own(station), slope, left, right}});
    }

    void MoveInto(Table& table)
    {
        std::stable_sort(rows_.begin(), rows_.end(),
                         [](const StationRow& one, const StationRow& other) { return one.station < other.station; });
        for (StationRow& row : rows_)
        {
            table.rows.push_back(std::move(row.row));
        }
    }

  private:
    std::wstring name_;
    StationLabels labels_;
    std::vector<StationRow> rows_;
};

void AddSuperelevation(const Superelevation& superelevation, CrossSlopeRows& rows)
{
    for (const TransitionStation& one : superelevation.stations)
    {
        const bool isFull = one.kind == L"FullSuperSta" || one.kind == L"RunoffSta";
        const std::wstring slope = isFull ? Own(superelevation.fullSuperelev) : std::wstring();
        rows.Add(TransitionWord(one.kind), one.station, slope, L"", L"");
    }
    for (const Feature& feature : superelevation.features)
    {
        for (const TransitionStation& one : StationsOf(feature))
        {
            rows.Add(TransitionWord(one.kind), one.station, L"", L"", L"");
        }
    }
}

void AddCrossSlopes(const Alignment& alignment, Table& table)
{
    CrossSlopeRows rows(alignment);
    for (const Superelevation& superelevation : alignment.superelevations)
    {
        AddSuperelevation(superelevation, rows);
    }
    for (const StationEntry& slope : alignment.slopes)
    {
        rows.Add(L"横断勾配", slope.Station(), L"", Own(slope.At(1)), Own(slope.At(2)));
    }
    for (const StationEntry& width : alignment.wideningLeft)
    {
        rows.Add(L"左拡幅", width.Station(), L"", Own(width.At(1)), L"");
    }
    for (const StationEntry& width : alignment.wideningRight)
    {
        rows.Add(L"右拡幅", width.Station(), L"", L"", Own(width.At(1)));
    }
    rows.MoveInto(table);
}

// CSV

std::wstring CsvField(std::wstring_view text)
{
    return text.find_first_of(L",\"\r\n") == std::wstring_view::npos ? std::wstring(text)
                                                                     : L"\"" + ReplaceAll(text, L"\"", L"\"\"") + L"\"";
}

template <class Fields>
void AppendCsvLine(std::wstring& text, const Fields& fields)
{
    const wchar_t* comma = L"";
    for (const auto& field : fields)
    {
        text.append(comma).append(CsvField(field));
        comma = L",";
    }
    text += L"\r\n";
}

} // namespace

Table AlignmentTable(const LandXmlFile& file)
{
    Table table{L"線形計算書",
                {L"線形", L"主要点", L"測点（m）", L"測点", L"X", L"Y", L"方向角", L"要素", L"半径（始点）",
                 L"半径（終点）", L"A", L"長さ", L"向き"},
                {},
                7};
    const AlignmentReferences references(file);
    ForEachAlignment(file, [&](const Alignment& alignment) { AddAlignment(references, alignment, table); });
    return table;
}

Table StationTable(const LandXmlFile& file)
{
    Table table{
        L"測点座標一覧", {L"線形", L"測点", L"主要点", L"測点（m）", L"X", L"Y", L"方向角", L"計画高", L"地盤高"}, {}};
    const AlignmentReferences references(file);
    ForEachAlignment(file, [&](const Alignment& alignment) { AddStations(references, alignment, table); });
    return table;
}

Table ProfileTable(const LandXmlFile& file)
{
    Table table{L"縦断計算書",
                {L"線形", L"縦断線形", L"測点", L"測点（m）", L"高さ", L"勾配（手前）％", L"勾配（先）％",
                 L"縦断曲線長", L"縦断曲線半径", L"曲線始点（m）", L"曲線終点（m）", L"計画高"},
                {}};
    const AlignmentReferences references(file);
    ForEachAlignment(file, [&](const Alignment& alignment) {
        const OwnFigures own(references, alignment);
        for (const Profile& profile : alignment.profiles)
        {
            for (const ProfAlign& design : profile.designs)
            {
                AddProfile(own, alignment, design, table);
            }
        }
    });
    return table;
}

Table CrossSlopeTable(const LandXmlFile& file)
{
    Table table{L"片勾配・拡幅表", {L"線形", L"種別", L"測点", L"測点（m）", L"片勾配％", L"左", L"右"}, {}, 1};
    ForEachAlignment(file, [&](const Alignment& alignment) { AddCrossSlopes(alignment, table); });
    return table;
}

Table PointTable(const LandXmlFile& file)
{
    Table table{L"中間点・幅杭一覧",
                {L"種別", L"組", L"注記", L"線形", L"点名", L"X", L"Y", L"高さ", L"測点（m）", L"接線方向角"},
                {},
                0};
    for (const PointGroup& group : file.pointGroups)
    {
        const wchar_t* const kind = group.IsIntermediate() ? L"中間点" : group.IsWidthStakes() ? L"幅杭" : L"座標点";
        for (const CgPoint& point : group.points)
        {
            table.rows.push_back({kind, std::wstring(group.name), std::wstring(group.desc),
                                  std::wstring(group.alignmentRefs), std::wstring(point.point.name),
                                  Own(point.point.north), Own(point.point.east), Own(point.point.height),
                                  Own(point.station), Own(point.direction)});
        }
    }
    return table;
}

std::vector<Table> AllTables(const LandXmlFile& file)
{
    return {AlignmentTable(file), StationTable(file), ProfileTable(file), CrossSlopeTable(file), PointTable(file)};
}

std::string CsvText(const Table& table)
{
    std::wstring text = L"\xFEFF";
    AppendCsvLine(text, table.columns);
    for (const Row& row : table.rows)
    {
        AppendCsvLine(text, row);
    }
    return Utf8FromWide(text);
}

} // namespace jlandxml::inspect
