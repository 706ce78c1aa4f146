#include "inspect/CheckSheet.h"

#include "inspect/Finding.h"
#include "inspect/Names.h"
#include "inspect/Summary.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

constexpr Sentence NOTHING{L"なし", L"none"};

Detail Coordinates(const PlanPoint& point)
{
    return {{L"{}（X {}、Y {}）", L"{} (X {}, Y {})"}, {point.name, point.north.text, point.east.text}};
}

/// Items one behind the other.
class ItemList
{
  public:
    void Add(const Detail& item) { text_ = text_.IsEmpty() ? item : text_ + Sentence{L"、", L", "} + item; }

    Detail Take() { return text_.IsEmpty() ? Detail(NOTHING) : std::move(text_); }

  private:
    Detail text_;
};

Detail CoordinateSystemText(const LandXmlFile& file)
{
    if (!file.coordinateSystem)
    {
        return NOTHING;
    }
    const CoordinateSystem& system = *file.coordinateSystem;
    return std::wstring(system.horizontalDatum) + L" " + std::wstring(system.zoneName) + L" " +
           std::wstring(system.verticalDatum);
}

/// More control points than this are only counted: the list of points has all of them.
constexpr std::size_t MOST_CONTROL_POINTS = 20;

Detail ControlPoints(const LandXmlFile& file)
{
    ItemList list;
    std::size_t count = 0;
    for (const PointGroup& group : file.pointGroups)
    {
        for (std::size_t index = 0; group.kind.empty() && index < group.points.size(); ++index)
        {
            const PlanPoint& point = group.points[index].point;
            const Detail height =
                point.height.IsWritten() ? Detail({L" 高さ {}", L" height {}"}, {point.height.text}) : Detail();
            if (++count <= MOST_CONTROL_POINTS)
            {
                list.Add(Coordinates(point) + height);
            }
        }
    }
    if (count > MOST_CONTROL_POINTS)
    {
        list.Add({{L"ほか{}点", L"and {} more"}, {std::to_wstring(count - MOST_CONTROL_POINTS)}});
    }
    return list.Take();
}

Detail Ends(const Alignment& alignment)
{
    return alignment.elements.empty()
               ? Detail(NOTHING)
               : Coordinates(alignment.elements.front().start) + L"～" + Coordinates(alignment.elements.back().end);
}

Detail MainPointDetail(const Alignment& alignment)
{
    ItemList list;
    for (std::size_t index = 1; index < alignment.elements.size(); ++index)
    {
        list.Add(Coordinates(alignment.elements[index].start));
    }
    return list.Take();
}

Detail Curves(const Alignment& alignment)
{
    ItemList list;
    for (const PlanElement& element : alignment.elements)
    {
        const bool isCurve = element.kind == ElementKind::Curve;
        const Figure& figure = isCurve ? element.radius : element.parameter;
        if (isCurve || element.kind == ElementKind::Spiral)
        {
            list.Add({{L"{} {}={} L={}", L"{} {}={} L={}"},
                      {KindOf(element), isCurve ? L"R" : L"A", figure.text, element.length.text}});
        }
    }
    return list.Take();
}

Detail StartAndLength(const Alignment& alignment)
{
    return {{L"{} m、長さ {} m", L"{} m, length {} m"}, {alignment.staStart.text, alignment.length.text}};
}

Detail Equations(const Alignment& alignment)
{
    ItemList list;
    for (const StaEquation& equation : alignment.equations)
    {
        list.Add({{L"{}＝{}", L"{}＝{}"}, {equation.back.text, equation.ahead.text}});
    }
    return list.Take();
}

/// The points of the design profile as station and height.
Detail ProfileEnds(const Alignment& alignment)
{
    const ProfAlign* const design = DesignProfile(alignment);
    if (design == nullptr || design->elements.empty())
    {
        return NOTHING;
    }
    const ProfileElement& first = design->elements.front();
    const ProfileElement& last = design->elements.back();
    return {{L"{} m 高さ {} m～{} m 高さ {} m", L"{} m height {} m～{} m height {} m"},
            {first.station.text, first.height.text, last.station.text, last.height.text}};
}

Detail VerticalCurves(const Alignment& alignment)
{
    const ProfAlign* const design = DesignProfile(alignment);
    ItemList list;
    for (std::size_t index = 1; design != nullptr && index + 1 < design->elements.size(); ++index)
    {
        const ProfileElement& element = design->elements[index];
        Detail item({L"{} m 高さ {} m", L"{} m height {} m"}, {element.station.text, element.height.text});
        for (const auto& [label, figure] : {std::pair(L" VCL=", element.length), std::pair(L" VCR=", element.radius)})
        {
            item = figure.IsWritten() ? item + label + figure.text : item;
        }
        list.Add(item);
    }
    return list.Take();
}

Detail SectionNames(const Alignment& alignment)
{
    ItemList list;
    for (const CrossSects& sects : alignment.crossSects)
    {
        for (const CrossSect& section : sects.sections)
        {
            list.Add(section.name.empty() ? section.station.text : section.name);
        }
    }
    return list.Take();
}

/// A section's width: from its surfaces' leftmost point to the rightmost, in the file's own text.
Detail SectionWidths(const Alignment& alignment)
{
    Range offsets;
    for (const CrossSects& sects : alignment.crossSects)
    {
        for (const CrossSect& section : sects.sections)
        {
            for (const DesignCrossSectSurf& surface : section.designs)
            {
                for (const CrossSectPnt& point : surface.points)
                {
                    if (point.IsOffsetAndHeight())
                    {
                        offsets.Take(point.offset);
                    }
                }
            }
        }
    }
    if (offsets.IsEmpty())
    {
        return NOTHING;
    }
    return {{L"離れ {} m～{} m", L"offsets {} m～{} m"}, {offsets.SmallestText(), offsets.LargestText()}};
}

/// What is collated of each alignment, in the sheet's order.
struct AlignmentItem
{
    Sentence subject;
    Sentence what;
    Detail (*value)(const Alignment& alignment);
};
constexpr Sentence CONTROL{L"基準点", L"Control points"};
constexpr Sentence PLAN{L"平面線形", L"Plan"};
constexpr Sentence PROFILE{L"縦断線形", L"Profile"};
constexpr Sentence SECTIONS{L"横断形状", L"Cross sections"};
constexpr AlignmentItem ALIGNMENT_ITEMS[] = {
    {PLAN, {L"起終点の座標", L"Coordinates of both ends"}, Ends},
    {PLAN, {L"変化点（線形主要点）", L"Main points"}, MainPointDetail},
    {PLAN, {L"曲線要素の種別・数値", L"Curves: kinds and figures"}, Curves},
    {PLAN, {L"開始測点と長さ", L"Start station and length"}, StartAndLength},
    {PLAN, {L"ブレーキ", L"Station equations"}, Equations},
    {PROFILE, {L"線形起終点の測点、標高", L"Stations and heights of both ends"}, ProfileEnds},
    {PROFILE, {L"縦断変化点と曲線要素", L"Gradient changes and vertical curves"}, VerticalCurves},
    {SECTIONS, {L"作成した測点", L"Stations"}, SectionNames},
    {SECTIONS, {L"幅", L"Width"}, SectionWidths},
};

} // namespace

std::vector<CheckSheetRow> CheckSheet(const LandXmlFile& file)
{
    std::vector<CheckSheetRow> rows{
        {CONTROL, L"", {L"座標参照系", L"Coordinate system"}, CoordinateSystemText(file)},
        {CONTROL, L"", {L"基準点及び工事基準点", L"Control points and those of the works"}, ControlPoints(file)}};
    for (const AlignmentItem& item : ALIGNMENT_ITEMS)
    {
        ForEachAlignment(file, [&](const Alignment& alignment) {
            rows.push_back({item.subject, NameOf(alignment), item.what, item.value(alignment)});
        });
    }
    return rows;
}

} // namespace jlandxml::inspect
