#include "inspect/Summary.h"

#include "inspect/Course.h"
#include "inspect/Finding.h"
#include "inspect/Names.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

constexpr const wchar_t* NOT_GIVEN = L"（指定なし）";

/// A line of the summary: how far it is indented, its label and what follows.
class SummaryWriter
{
  public:
    void Line(int depth, std::wstring_view label, std::wstring_view value)
    {
        text_.append(static_cast<std::size_t>(2 * depth), L' ');
        text_.append(label).append(L": ").append(value).append(L"\n");
    }

    std::wstring Take() { return std::move(text_); }

  private:
    std::wstring text_;
};

std::wstring Joined(std::initializer_list<std::wstring_view> parts, std::wstring_view between)
{
    std::wstring text;
    for (const std::wstring_view part : parts)
    {
        text.append(text.empty() || part.empty() ? L"" : between).append(part);
    }
    return text;
}

std::wstring Count(const wchar_t* what, std::size_t count)
{
    return count == 0 ? std::wstring() : std::wstring(what) + L" " + std::to_wstring(count);
}

std::wstring Span(const Range& range)
{
    return range.IsEmpty() ? std::wstring(L"なし")
                           : ShortNumber(range.Smallest(), 4) + L"～" + ShortNumber(range.Largest(), 4);
}

void WriteHead(SummaryWriter& out, const LandXmlFile& file)
{
    const std::wstring_view criterion = PropertyValue(file.projectFeatures, L"", L"applicationCriterion");
    out.Line(1, L"形式", L"LandXML " + Joined({file.version, criterion}, L"、"));
    out.Line(1, L"プロジェクト", NameOr(Joined({file.projectName, file.projectDesc}, L"、"), NOT_GIVEN));
    if (!file.application.empty())
    {
        out.Line(1, L"アプリケーション", Joined({file.application, file.applicationVersion}, L" "));
    }
}

void WriteSystems(SummaryWriter& out, const LandXmlFile& file)
{
    std::wstring system = NOT_GIVEN;
    if (file.coordinateSystem)
    {
        const CoordinateSystem& one = *file.coordinateSystem;
        const std::wstring_view difference = PropertyValue(one.features, L"", L"differTP");
        system = Joined({one.horizontalDatum, one.zoneName, one.verticalDatum,
                         difference.empty() ? L"" : L"T.P.との差 " + std::wstring(difference) + L" m"},
                        L"、");
    }
    out.Line(1, L"座標参照系", NameOr(system, NOT_GIVEN));
    out.Line(1, L"単位",
             file.units ? Joined({file.units->system, file.units->linear, file.units->direction}, L"、") : NOT_GIVEN);
    const Extents extents = ExtentsOf(file);
    out.Line(1, L"範囲",
             L"X " + Span(extents.north) + L"、Y " + Span(extents.east) + L"、高さ " + Span(extents.height));
}

void WriteAlignment(SummaryWriter& out, const Alignment& alignment)
{
    const Course course(alignment);
    const std::wstring elements = Joined({Count(L"直線", CountOf(alignment, ElementKind::Line)),
                                          Count(L"円曲線", CountOf(alignment, ElementKind::Curve)),
                                          Count(L"緩和曲線", CountOf(alignment, ElementKind::Spiral)),
                                          Count(L"折れ線", CountOf(alignment, ElementKind::IrregularLine))},
                                         L"、");
    std::size_t designs = 0;
    std::size_t grounds = 0;
    for (const Profile& profile : alignment.profiles)
    {
        designs += profile.designs.size();
        grounds += profile.grounds.size();
    }
    out.Line(2, NameOf(alignment),
             Joined({L"長さ " + NameOr(alignment.length.text, NOT_GIVEN) + L" m",
                     L"測点 " + NameOr(alignment.staStart.text, NOT_GIVEN) + L"～" + ShortNumber(course.StaEnd(), 3),
                     L"要素 " + std::to_wstring(alignment.elements.size()) +
                         (elements.empty() ? std::wstring() : L"（" + elements + L"）"),
                     Count(L"測点定義", alignment.equations.size()), Count(L"縦断線形", designs),
                     Count(L"縦断地盤線", grounds), Count(L"横断面", CountOfSections(alignment)),
                     Count(L"片勾配すりつけ", alignment.superelevations.size()),
                     Count(L"拡幅", alignment.wideningLeft.size() + alignment.wideningRight.size()),
                     Count(L"横断勾配", alignment.slopes.size())},
                    L"、"));
}

void WriteRoutes(SummaryWriter& out, const LandXmlFile& file)
{
    for (const AlignmentGroup& route : file.routes)
    {
        out.Line(1, L"路線",
                 Joined({NameOr(route.name, L"（名称なし）"), PropertyValue(route.features, L"", L"designGmType"),
                         PropertyValue(route.features, L"", L"classification"),
                         L"線形 " + std::to_wstring(route.alignments.size())},
                        L"、"));
        for (const Alignment& alignment : route.alignments)
        {
            WriteAlignment(out, alignment);
        }
    }
}

void WritePoints(SummaryWriter& out, const LandXmlFile& file)
{
    for (const PointGroup& group : file.pointGroups)
    {
        const wchar_t* const kind = group.IsIntermediate() ? L"中間点" : group.IsWidthStakes() ? L"幅杭" : L"座標点";
        out.Line(1, kind,
                 Joined({NameOf(group), group.desc, group.alignmentRefs, Count(L"点", group.points.size())}, L"、"));
    }
}

void WriteSurfaces(SummaryWriter& out, const LandXmlFile& file)
{
    for (const Surface& surface : file.surfaces)
    {
        out.Line(1, L"サーフェス",
                 Joined({NameOf(surface), surface.desc, surface.type, L"点 " + std::to_wstring(surface.points.size()),
                         L"面 " + std::to_wstring(surface.faces.size())},
                        L"、"));
    }
}

} // namespace

void Range::Take(double value)
{
    if (std::isfinite(value))
    {
        smallest_ = std::min(smallest_, value);
        largest_ = std::max(largest_, value);
    }
}

Extents ExtentsOf(const LandXmlFile& file)
{
    Extents extents;
    const auto take = [&](const PlanPoint& point) {
        extents.north.Take(point.north.value);
        extents.east.Take(point.east.value);
        extents.height.Take(point.height.value);
    };
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const PlanElement& element : alignment.elements)
        {
            take(element.start);
            take(element.end);
        }
    });
    for (const PointGroup& group : file.pointGroups)
    {
        for (const CgPoint& point : group.points)
        {
            take(point.point);
        }
    }
    for (const Surface& surface : file.surfaces)
    {
        for (const SurfacePoint& point : surface.points)
        {
            extents.north.Take(point.north);
            extents.east.Take(point.east);
            extents.height.Take(point.height);
        }
    }
    return extents;
}

std::size_t CountOf(const Alignment& alignment, ElementKind kind)
{
    return static_cast<std::size_t>(std::count_if(alignment.elements.begin(), alignment.elements.end(),
                                                  [&](const PlanElement& element) { return element.kind == kind; }));
}

std::size_t CountOfSections(const Alignment& alignment)
{
    std::size_t count = 0;
    for (const CrossSects& sects : alignment.crossSects)
    {
        count += sects.sections.size();
    }
    return count;
}

std::wstring SummaryText(const LandXmlFile& file)
{
    SummaryWriter out;
    out.Line(0, L"ファイル", file.path);
    WriteHead(out, file);
    WriteSystems(out, file);
    WriteRoutes(out, file);
    WritePoints(out, file);
    for (const Roadway& roadway : file.roadways)
    {
        out.Line(1, L"道路", Joined({roadway.name, roadway.alignmentRefs}, L"、"));
    }
    WriteSurfaces(out, file);
    return out.Take();
}

} // namespace jlandxml::inspect
