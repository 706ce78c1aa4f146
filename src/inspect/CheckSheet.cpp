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

Detail OrNothing(const std::wstring& text)
{
    return text.empty() ? Detail(NOTHING) : Detail(text);
}

std::wstring Coordinates(const PlanPoint& point)
{
    return std::wstring(point.name) + L"（X " + std::wstring(point.north.text) + L"、Y " +
           std::wstring(point.east.text) + L"）";
}

Detail CoordinateSystemText(const LandXmlFile& file)
{
    if (!file.coordinateSystem)
    {
        return OrNothing(L"");
    }
    const CoordinateSystem& system = *file.coordinateSystem;
    return std::wstring(system.horizontalDatum) + L" " + std::wstring(system.zoneName) + L" " +
           std::wstring(system.verticalDatum);
}

Detail ControlPoints(const LandXmlFile& file)
{
    std::size_t count = 0;
    for (const PointGroup& group : file.pointGroups)
    {
        count += group.kind.empty() ? group.points.size() : 0;
    }
    return count == 0 ? OrNothing(L"") : Detail({L"{}点", L"{} points"}, {std::to_wstring(count)});
}

Detail Ends(const Alignment& alignment)
{
    return alignment.elements.empty()
               ? OrNothing(L"")
               : Coordinates(alignment.elements.front().start) + L"～" + Coordinates(alignment.elements.back().end);
}

Detail MainPointDetail(const Alignment& alignment)
{
    std::wstring text;
    for (std::size_t index = 1; index < alignment.elements.size(); ++index)
    {
        text.append(index > 1 ? L"、" : L"").append(alignment.elements[index].start.name);
    }
    return OrNothing(text);
}

Detail Curves(const Alignment& alignment)
{
    std::wstring text;
    for (const PlanElement& element : alignment.elements)
    {
        const bool isCurve = element.kind == ElementKind::Curve;
        const Figure& figure = isCurve ? element.radius : element.parameter;
        if (isCurve || element.kind == ElementKind::Spiral)
        {
            text.append(text.empty() ? L"" : L"、").append(isCurve ? L"R=" : L"A=").append(figure.text);
        }
    }
    return OrNothing(text);
}

Detail StartAndLength(const Alignment& alignment)
{
    return {{L"{} m、長さ {} m", L"{} m, length {} m"}, {alignment.staStart.text, alignment.length.text}};
}

Detail Equations(const Alignment& alignment)
{
    std::wstring text;
    for (const StaEquation& equation : alignment.equations)
    {
        text.append(text.empty() ? L"" : L"、").append(equation.back.text).append(L"＝").append(equation.ahead.text);
    }
    return OrNothing(text);
}

/// The points of the design profile as station and height.
Detail ProfileEnds(const Alignment& alignment)
{
    const ProfAlign* const design = DesignProfile(alignment);
    if (design == nullptr || design->elements.empty())
    {
        return OrNothing(L"");
    }
    const ProfileElement& first = design->elements.front();
    const ProfileElement& last = design->elements.back();
    return {{L"{} m 高さ {} m～{} m 高さ {} m", L"{} m height {} m～{} m height {} m"},
            {first.station.text, first.height.text, last.station.text, last.height.text}};
}

Detail VerticalCurves(const Alignment& alignment)
{
    const ProfAlign* const design = DesignProfile(alignment);
    std::wstring text;
    for (std::size_t index = 1; design != nullptr && index + 1 < design->elements.size(); ++index)
    {
        const ProfileElement& element = design->elements[index];
        text.append(text.empty() ? L"" : L"、").append(element.station.text).append(L" m");
        text.append(element.length.IsWritten() ? L" VCL=" : L"").append(element.length.text);
    }
    return OrNothing(text);
}

Detail SectionNames(const Alignment& alignment)
{
    std::wstring text;
    for (const CrossSects& sects : alignment.crossSects)
    {
        for (const CrossSect& section : sects.sections)
        {
            text.append(text.empty() ? L"" : L"、").append(section.name.empty() ? section.station.text : section.name);
        }
    }
    return OrNothing(text);
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
        return OrNothing(L"");
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
