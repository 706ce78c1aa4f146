#include "inspect/CheckProfile.h"

#include "inspect/Names.h"
#include "inspect/ProfileLine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace jlandxml::inspect
{

namespace
{

Detail DesignName(const Alignment& alignment, const ProfAlign& design)
{
    return Path(NameOf(alignment), NameOf(design));
}

Detail PointName(const Alignment& alignment, const ProfAlign& design, const ProfilePoint& point)
{
    return Path(DesignName(alignment, design), NameOf(*point.element));
}

template <class Visit>
void ForEachDesign(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const Profile& profile : alignment.profiles)
        {
            for (const ProfAlign& design : profile.designs)
            {
                visit(alignment, design);
            }
        }
    });
}

/// Whether a line may have two points at one station, as a ground line has at a wall.
enum class Steps
{
    Lawful,
    Wrong,
};

/// Reports the stations that don't lie behind those before them.
class RisingStations
{
  public:
    RisingStations(Findings& findings, Detail name, Steps steps)
        : findings_(findings),
          name_(std::move(name)),
          steps_(steps)
    {}

    void Take(const Figure& station, const SourcePlace& place)
    {
        if (station.value < last_ || (station.value == last_ && steps_ == Steps::Wrong))
        {
            findings_.Report(name_, place, {{L"測点 {}", L"station {}"}, {station.text}}, {station.value, last_, {}});
        }
        last_ = station.IsFinite() ? station.value : last_;
    }

  private:
    Findings& findings_;
    Detail name_;
    Steps steps_;
    double last_ = -std::numeric_limits<double>::infinity();
};

/// What the length of a vertical curve is the radius' multiple of. Both lie on the horizontal: of a parabola the change
/// of gradient, of a circle that of the sines of its slopes.
double CurveTurn(const ProfilePoint& point)
{
    const auto measure = [&](double gradient) {
        return point.element->kind == L"CircCurve" ? std::sin(std::atan(gradient)) : gradient;
    };
    return std::abs(measure(point.gradientOut) - measure(point.gradientIn));
}

} // namespace

void CheckProfileStations(const LandXmlFile& file, Findings& findings)
{
    ForEachDesign(file, [&](const Alignment& alignment, const ProfAlign& design) {
        RisingStations stations(findings, DesignName(alignment, design), Steps::Wrong);
        for (const ProfileElement& element : design.elements)
        {
            stations.Take(element.station, element);
        }
    });
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const Profile& profile : alignment.profiles)
        {
            for (const ProfSurf& ground : profile.grounds)
            {
                RisingStations stations(findings, Path(NameOf(alignment), NameOf(ground)), Steps::Lawful);
                for (const PairList& list : ground.lists)
                {
                    for (const FigurePair& pair : list.pairs)
                    {
                        stations.Take(pair.first, list);
                    }
                }
            }
        }
    });
}

void CheckVerticalCurvesApart(const LandXmlFile& file, Findings& findings)
{
    ForEachDesign(file, [&](const Alignment& alignment, const ProfAlign& design) {
        const ProfileLine line(design);
        for (std::size_t index = 1; index < line.Points().size(); ++index)
        {
            const ProfilePoint& before = line.Points()[index - 1];
            const ProfilePoint& behind = line.Points()[index];
            // Where the stations don't rise, that is what is wrong.
            if (behind.station > before.station)
            {
                findings.MeasureGap(PointName(alignment, design, behind), *behind.element,
                                    before.CurveEnd() - behind.CurveStart(),
                                    {{L"前の縦断曲線は{}まで、この縦断曲線は{}から",
                                      L"the one before ends at {}, this one begins at {}"},
                                     {ShortNumber(before.CurveEnd()), ShortNumber(behind.CurveStart())}});
            }
        }
    });
}

void CheckVerticalCurveEnds(const LandXmlFile& file, Findings& findings)
{
    ForEachDesign(file, [&](const Alignment& alignment, const ProfAlign& design) {
        const ProfileLine line(design);
        for (const ProfilePoint& point : line.Points())
        {
            const bool isEnd = &point == &line.Points().front() || &point == &line.Points().back();
            if (isEnd && point.HasCurve())
            {
                findings.Report(PointName(alignment, design, point), *point.element);
            }
        }
    });
}

void CheckVerticalRadii(const LandXmlFile& file, Findings& findings)
{
    ForEachDesign(file, [&](const Alignment& alignment, const ProfAlign& design) {
        const ProfileLine line(design);
        for (const ProfilePoint& point : line.Points())
        {
            if (!point.element->radius.IsFinite() || !point.HasCurve())
            {
                continue;
            }
            if (!point.HasBend())
            {
                findings.Report(PointName(alignment, design, point), *point.element,
                                Sentence{L"勾配が変わらない", L"the gradient doesn't change"});
                continue;
            }
            findings.MeasureRatio(PointName(alignment, design, point), *point.element,
                                  {point.element->radius.text, std::abs(point.element->radius.value)},
                                  (point.lengthIn + point.lengthOut) / CurveTurn(point));
        }
    });
}

void CheckProfileReferences(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const CrossSects& sects : alignment.crossSects)
        {
            const Property* const reference = FindStandardProperty(sects.features, L"profAlignRefs");
            if (reference == nullptr)
            {
                continue;
            }
            const auto isThere = [&](std::wstring_view name) { return FindDesign(alignment, name) != nullptr; };
            std::vector<std::wstring_view> names = ReferencedNames(reference->value, isThere);
            if (names.empty())
            {
                names.emplace_back();
            }
            for (const std::wstring_view name : names)
            {
                if (!isThere(name))
                {
                    findings.Report(NameOf(alignment), *reference, name);
                }
            }
        }
    });
}

} // namespace jlandxml::inspect
