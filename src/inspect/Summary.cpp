#include "inspect/Summary.h"

#include "inspect/Course.h"
#include "inspect/Finding.h"
#include "inspect/Names.h"

#include <algorithm>
#include <numeric>

namespace jlandxml::inspect
{

namespace
{

/// The texts of surfaces' coordinates aren't kept: up to so many decimals, as far as they say something.
constexpr int DIGITS_OF_SURFACES = 6;

constexpr Sentence NOTHING_GIVEN{L"（指定なし）", L"(not given)"};

/// A line of the summary: how far it is indented, its label and what follows.
class SummaryWriter
{
  public:
    explicit SummaryWriter(Language language) : language_(language) {}

    std::wstring_view Word(const Sentence& word) const
    {
        return language_ == Language::Japanese ? word.japanese : word.english;
    }

    void NamedLine(int depth, std::wstring_view label, std::wstring_view value)
    {
        text_.append(2 * static_cast<std::size_t>(depth), L' ');
        text_.append(label).append(L": ").append(value).append(L"\n");
    }

    void Line(int depth, const Sentence& label, std::wstring_view value) { NamedLine(depth, Word(label), value); }

    std::wstring_view Word(const Detail& word) const
    {
        return language_ == Language::Japanese ? word.japanese : word.english;
    }

    std::wstring Given(std::wstring_view text) const { return NameOr(text, Word(NOTHING_GIVEN)); }

    /// Parts with commas between them; empty ones are left out.
    std::wstring Listed(std::initializer_list<std::wstring_view> parts) const
    {
        return Joined(parts, language_ == Language::Japanese ? L"、" : L", ");
    }

    static std::wstring Joined(std::initializer_list<std::wstring_view> parts, std::wstring_view between)
    {
        std::wstring text;
        for (const std::wstring_view part : parts)
        {
            text.append(text.empty() || part.empty() ? L"" : between).append(part);
        }
        return text;
    }

    /// A word with what follows it: 長さ 400.000000 m.
    std::wstring With(const Sentence& word, std::wstring_view value, std::wstring_view unit = {}) const
    {
        return std::wstring(Word(word)).append(L" ").append(value).append(unit);
    }

    std::wstring Count(const Sentence& what, std::size_t count) const
    {
        return count == 0 ? std::wstring() : With(what, std::to_wstring(count));
    }

    std::wstring Span(const Range& range) const
    {
        return range.IsEmpty() ? std::wstring(Word({L"なし", L"none"}))
                               : range.SmallestText() + L"～" + range.LargestText();
    }

    std::wstring Take() { return std::move(text_); }

  private:
    Language language_;
    std::wstring text_;
};

void WriteHead(SummaryWriter& out, const LandXmlFile& file)
{
    const std::wstring_view criterion = PropertyValue(file.projectFeatures, L"", L"applicationCriterion");
    std::wstring format = L"LandXML " + out.Given(out.Listed({file.version, criterion}));
    if (!file.IsOfTheVersion())
    {
        format.append(out.Word(Detail({L"（LandXML {}として検査）", L" (checked as LandXML {})"}, {LANDXML_VERSION})));
    }
    out.Line(1, {L"形式", L"Format"}, format);
    out.Line(1, {L"プロジェクト", L"Project"}, out.Given(out.Listed({file.projectName, file.projectDesc})));
    if (!file.application.empty())
    {
        out.Line(1, {L"アプリケーション", L"Application"},
                 SummaryWriter::Joined({file.application, file.applicationVersion}, L" "));
    }
}

void WriteSystems(SummaryWriter& out, const LandXmlFile& file)
{
    std::wstring system;
    if (file.coordinateSystem)
    {
        const CoordinateSystem& one = *file.coordinateSystem;
        const std::wstring_view difference = PropertyValue(one.features, L"", L"differTP");
        system = out.Listed(
            {one.horizontalDatum, one.zoneName, one.verticalDatum,
             difference.empty() ? std::wstring() : out.With({L"T.P.との差", L"from T.P."}, difference, L" m")});
    }
    out.Line(1, {L"座標参照系", L"Coordinate system"}, out.Given(system));
    out.Line(1, {L"単位", L"Units"},
             out.Given(file.units ? out.Listed({file.units->system, file.units->linear, file.units->direction})
                                  : std::wstring()));
    const Extents extents = ExtentsOf(file);
    out.Line(1, {L"範囲", L"Extents"},
             out.Listed({L"X " + out.Span(extents.north), L"Y " + out.Span(extents.east),
                         out.With({L"高さ", L"height"}, out.Span(extents.height))}));
}

void WriteAlignment(SummaryWriter& out, const Alignment& alignment)
{
    const Course course(alignment);
    const std::wstring kinds =
        out.Listed({out.Count({L"直線", L"lines"}, CountOf(alignment, ElementKind::Line)),
                    out.Count({L"円曲線", L"curves"}, CountOf(alignment, ElementKind::Curve)),
                    out.Count({L"緩和曲線", L"spirals"}, CountOf(alignment, ElementKind::Spiral)),
                    out.Count({L"折れ線", L"irregular lines"}, CountOf(alignment, ElementKind::IrregularLine))});
    std::wstring elements = out.With({L"要素", L"elements"}, std::to_wstring(alignment.elements.size()));
    if (!kinds.empty())
    {
        elements.append(out.Word({L"（", L" ("})).append(kinds).append(out.Word({L"）", L")"}));
    }
    out.NamedLine(
        2, out.Word(NameOf(alignment)),
        out.Listed({out.With({L"長さ", L"length"}, out.Given(alignment.length.text), L" m"),
                    out.With({L"測点", L"stations"},
                             out.Given(alignment.staStart.text) + L"～" + ShortNumber(course.StaEnd(), 3)),
                    elements, out.Count({L"測点定義", L"station equations"}, alignment.equations.size()),
                    out.Count({L"縦断線形", L"profiles"}, CountOfDesigns(alignment)),
                    out.Count({L"縦断地盤線", L"ground lines"}, CountOfGrounds(alignment)),
                    out.Count({L"横断面", L"cross sections"}, CountOfSections(alignment)),
                    out.Count({L"片勾配すりつけ", L"superelevations"}, alignment.superelevations.size()),
                    out.Count({L"拡幅", L"widenings"}, alignment.wideningLeft.size() + alignment.wideningRight.size()),
                    out.Count({L"横断勾配", L"cross slopes"}, alignment.slopes.size())}));
}

void WriteRoutes(SummaryWriter& out, const LandXmlFile& file)
{
    for (const AlignmentGroup& route : file.routes)
    {
        out.Line(1, {L"路線", L"Route"},
                 out.Listed({NameOr(route.name, out.Word({L"（名称なし）", L"(no name)"})),
                             PropertyValue(route.features, L"", L"designGmType"),
                             PropertyValue(route.features, L"", L"classification"),
                             out.With({L"線形", L"alignments"}, std::to_wstring(route.alignments.size()))}));
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
        const Sentence kind = group.IsIntermediate()  ? Sentence{L"中間点", L"Intermediate points"}
                              : group.IsWidthStakes() ? Sentence{L"幅杭", L"Width stakes"}
                                                      : Sentence{L"座標点", L"Points"};
        out.Line(1, kind,
                 out.Listed({out.Word(NameOf(group)), group.desc, group.alignmentRefs,
                             out.Count({L"点", L"points"}, group.points.size())}));
    }
}

void WriteSurfaces(SummaryWriter& out, const LandXmlFile& file)
{
    for (const Surface& surface : file.surfaces)
    {
        out.Line(1, {L"サーフェス", L"Surface"},
                 out.Listed({out.Word(NameOf(surface)), surface.desc, surface.type,
                             out.With({L"点", L"points"}, std::to_wstring(surface.points.size())),
                             out.With({L"面", L"faces"}, std::to_wstring(surface.faces.size()))}));
    }
}

} // namespace

void Range::Take(double value, std::wstring_view text)
{
    if (!std::isfinite(value))
    {
        return;
    }
    if (value < smallest_)
    {
        smallest_ = value;
        smallestText_ = text;
    }
    if (value > largest_)
    {
        largest_ = value;
        largestText_ = text;
    }
}

std::wstring Range::SmallestText() const
{
    return smallestText_.empty() ? ShortNumber(smallest_, DIGITS_OF_SURFACES) : std::wstring(smallestText_);
}

std::wstring Range::LargestText() const
{
    return largestText_.empty() ? ShortNumber(largest_, DIGITS_OF_SURFACES) : std::wstring(largestText_);
}

Extents ExtentsOf(const LandXmlFile& file)
{
    Extents extents;
    const auto take = [&](const PlanPoint& point) {
        extents.north.Take(point.north);
        extents.east.Take(point.east);
        extents.height.Take(point.height);
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
        for (const FarthestPoint& one : surface.farthest)
        {
            if (!one.northText.empty())
            {
                extents.north.Take(one.point.north, one.northText);
                extents.east.Take(one.point.east, one.eastText);
                extents.height.Take(one.point.height, one.heightText);
            }
        }
    }
    return extents;
}

std::size_t CountOf(const Alignment& alignment, ElementKind kind)
{
    return static_cast<std::size_t>(std::count_if(alignment.elements.begin(), alignment.elements.end(),
                                                  [&](const PlanElement& element) { return element.kind == kind; }));
}

namespace
{

/// How many elements the lists of such members have together.
template <class Owner, class Element>
std::size_t CountIn(const std::vector<Owner>& owners, std::vector<Element> Owner::*list)
{
    return std::accumulate(owners.begin(), owners.end(), std::size_t{0},
                           [&](std::size_t sum, const Owner& owner) { return sum + (owner.*list).size(); });
}

} // namespace

std::size_t CountOfSections(const Alignment& alignment)
{
    return CountIn(alignment.crossSects, &CrossSects::sections);
}

std::size_t CountOfDesigns(const Alignment& alignment)
{
    return CountIn(alignment.profiles, &Profile::designs);
}

std::size_t CountOfGrounds(const Alignment& alignment)
{
    return CountIn(alignment.profiles, &Profile::grounds);
}

std::wstring SummaryText(const LandXmlFile& file, Language language)
{
    SummaryWriter out(language);
    out.Line(0, {L"ファイル", L"File"}, file.path);
    WriteHead(out, file);
    WriteSystems(out, file);
    WriteRoutes(out, file);
    WritePoints(out, file);
    for (const Roadway& roadway : file.roadways)
    {
        out.Line(1, {L"道路", L"Roadway"}, out.Listed({roadway.name, roadway.alignmentRefs}));
    }
    WriteSurfaces(out, file);
    return out.Take();
}

} // namespace jlandxml::inspect
