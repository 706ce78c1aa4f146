#include "inspect/CheckSheet.h"

#include "inspect/Finding.h"
#include "inspect/Names.h"
#include "inspect/Summary.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

constexpr const wchar_t* NOTHING = L"なし";

std::wstring OrNothing(std::wstring text)
{
    return text.empty() ? NOTHING : text;
}

std::wstring Coordinates(const PlanPoint& point)
{
    return std::wstring(point.name) + L"（X " + std::wstring(point.north.text) + L"、Y " +
           std::wstring(point.east.text) + L"）";
}

std::wstring CoordinateSystemText(const LandXmlFile& file)
{
    if (!file.coordinateSystem)
    {
        return NOTHING;
    }
    const CoordinateSystem& system = *file.coordinateSystem;
    return std::wstring(system.horizontalDatum) + L" " + std::wstring(system.zoneName) + L" " +
           std::wstring(system.verticalDatum);
}

std::wstring ControlPoints(const LandXmlFile& file)
{
    std::size_t count = 0;
    for (const PointGroup& group : file.pointGroups)
    {
        count += group.kind.empty() ? group.points.size() : 0;
    }
    return count == 0 ? NOTHING : std::to_wstring(count) + L"点";
}

std::wstring Ends(const Alignment& alignment)
{
    return alignment.elements.empty()
               ? NOTHING
               : Coordinates(alignment.elements.front().start) + L"～" + Coordinates(alignment.elements.back().end);
}

std::wstring MainPoints(const Alignment& alignment)
{
    std::wstring text;
    for (std::size_t index = 1; index < alignment.elements.size(); ++index)
    {
        text.append(index > 1 ? L"、" : L"").append(alignment.elements[index].start.name);
    }
    return OrNothing(text);
}

std::wstring Curves(const Alignment& alignment)
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

std::wstring StartAndLength(const Alignment& alignment)
{
    return std::wstring(alignment.staStart.text) + L" m、長さ " + std::wstring(alignment.length.text) + L" m";
}

std::wstring Equations(const Alignment& alignment)
{
    std::wstring text;
    for (const StaEquation& equation : alignment.equations)
    {
        text.append(text.empty() ? L"" : L"、").append(equation.back.text).append(L"＝").append(equation.ahead.text);
    }
    return OrNothing(text);
}

/// The points of the design profile as station and height.
std::wstring ProfileEnds(const Alignment& alignment)
{
    const ProfAlign* const design = DesignProfile(alignment);
    if (design == nullptr || design->elements.empty())
    {
        return NOTHING;
    }
    const auto text = [](const ProfileElement& element) {
        return std::wstring(element.station.text) + L" m 高さ " + std::wstring(element.height.text) + L" m";
    };
    return text(design->elements.front()) + L"～" + text(design->elements.back());
}

std::wstring VerticalCurves(const Alignment& alignment)
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

std::wstring SectionNames(const Alignment& alignment)
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

/// A section's width: from its surfaces' leftmost point to the rightmost.
std::wstring SectionWidths(const Alignment& alignment)
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
                    offsets.Take(point.offset.value);
                }
            }
        }
    }
    return offsets.IsEmpty()
               ? NOTHING
               : L"左 " + ShortNumber(-offsets.Smallest(), 3) + L" m、右 " + ShortNumber(offsets.Largest(), 3) + L" m";
}

/// What is collated of each alignment, in the sheet's order.
struct AlignmentItem
{
    const wchar_t* subject;
    const wchar_t* what;
    std::wstring (*value)(const Alignment& alignment);
};
constexpr AlignmentItem ALIGNMENT_ITEMS[] = {
    {L"平面線形", L"起終点の座標", Ends},
    {L"平面線形", L"変化点（線形主要点）", MainPoints},
    {L"平面線形", L"曲線要素の種別・数値", Curves},
    {L"平面線形", L"開始測点と長さ", StartAndLength},
    {L"平面線形", L"ブレーキ", Equations},
    {L"縦断線形", L"線形起終点の測点、標高", ProfileEnds},
    {L"縦断線形", L"縦断変化点と曲線要素", VerticalCurves},
    {L"横断形状", L"作成した測点", SectionNames},
    {L"横断形状", L"幅", SectionWidths},
};

} // namespace

std::vector<CheckSheetRow> CheckSheet(const LandXmlFile& file)
{
    std::vector<CheckSheetRow> rows{{L"基準点", L"座標参照系", CoordinateSystemText(file)},
                                    {L"基準点", L"基準点及び工事基準点", ControlPoints(file)}};
    for (const AlignmentItem& item : ALIGNMENT_ITEMS)
    {
        ForEachAlignment(file, [&](const Alignment& alignment) {
            rows.push_back({Path(item.subject, NameOf(alignment)), item.what, item.value(alignment)});
        });
    }
    return rows;
}

} // namespace jlandxml::inspect
