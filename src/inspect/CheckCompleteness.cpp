#include "inspect/CheckCompleteness.h"

#include "inspect/Names.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

namespace jlandxml::inspect
{

namespace
{

constexpr std::size_t ANY_COUNT = std::numeric_limits<std::size_t>::max();

/// A value and what the file calls it.
struct NeededValue
{
    std::wstring_view name;
    std::wstring_view text;
};

/// Visits the elements of an alignment, or those of the file, and says what each lacks.
class CompletenessCheck
{
  public:
    CompletenessCheck(const LandXmlFile& file, Findings& findings)
        : isOfTheStandard_(file.IsOfTheStandard()),
          findings_(findings)
    {}

    void Check(const Alignment& alignment)
    {
        const Detail name = NameOf(alignment);
        ExpectValues(name, alignment, {{L"length", alignment.length.text}});
        for (const PlanElement& element : alignment.elements)
        {
            CheckElement(NameOf(alignment, element), element);
        }
        for (const PlanPoint& point : alignment.intersections)
        {
            CheckPoint(Path(name, IntersectionName(point)), point);
        }
        for (const StaEquation& equation : alignment.equations)
        {
            ExpectValues(Path(name, NameOf(equation)), equation,
                         {{L"staAhead", equation.ahead.text}, {L"staInternal", equation.internal.text}});
        }
        for (const Profile& profile : alignment.profiles)
        {
            CheckProfile(name, profile);
        }
        for (const Superelevation& one : alignment.superelevations)
        {
            CheckSuperelevation(name, one);
        }
        CheckStationLists(alignment);
        for (const CrossSects& sects : alignment.crossSects)
        {
            for (const CrossSect& section : sects.sections)
            {
                CheckSection(Path(name, NameOf(section)), section);
            }
        }
    }

    void Check(const PointGroup& group)
    {
        for (const CgPoint& point : group.points)
        {
            const Detail name = Path(NameOf(group), NameOf(point));
            CheckPoint(name, point.point);
            // Where the feature is missing, so is the rest.
            if (group.IsIntermediate() && (point.hasFeature || point.point.featureRef.empty()))
            {
                ExpectValues(name, point.point,
                             {{L"sta", point.station.text}, {L"tangentDirectionAngle", point.direction.text}});
            }
        }
    }

    void Check(const Surface& surface)
    {
        // It is an attribute of the definition: what a surface was made from may stand alone.
        if (isOfTheStandard_ || !surface.points.empty() || !surface.faces.empty())
        {
            ExpectValues(NameOf(surface), surface, {{L"surfType", surface.type}});
        }
        for (const SurfacePointRemark& remark : surface.remarks)
        {
            // Too few are no coordinates.
            const SurfacePoint& point = surface.points[remark.point];
            ExpectCount(NameOf(surface, point), PlaceOf(surface, point), 3 + remark.surplus, 0, 3);
        }
    }

  private:
    void ExpectValues(const Detail& object, const SourcePlace& place, std::initializer_list<NeededValue> values)
    {
        for (const NeededValue& value : values)
        {
            if (value.text.empty())
            {
                findings_.Report(object, place, {{L"{}がない", L"no {}"}, {value.name}});
            }
        }
    }

    void ExpectCount(const Detail& object, const SourcePlace& place, std::size_t count, std::size_t least,
                     std::size_t most)
    {
        const std::size_t expected = std::clamp(count, least, most);
        if (count != expected)
        {
            findings_.Report(object, place,
                             {{L"数値が{}個、{}個のはず", L"{} figures, expected {}"},
                              {std::to_wstring(count), std::to_wstring(expected)}},
                             {static_cast<double>(count), static_cast<double>(expected), {}});
        }
    }

    /// At least one point, and none by half.
    void ExpectPairs(const Detail& object, const std::vector<PairList>& lists)
    {
        for (const PairList& list : lists)
        {
            const std::size_t of = list.figuresOfAPoint;
            const std::size_t whole = std::max<std::size_t>((list.figureCount + of - 1) / of, 1) * of;
            ExpectCount(object, list, list.figureCount, whole, whole);
        }
    }

    /// A point in the plane has a height or none. It may have another's coordinates.
    void CheckPoint(const Detail& object, const PlanPoint& point)
    {
        if (!point.IsOtherPoint())
        {
            ExpectCount(object, point, point.figureCount, 2, 3);
        }
    }

    void CheckElement(const Detail& object, const PlanElement& element)
    {
        for (const PlanPoint* const point : {&element.start, &element.center, &element.pi, &element.end})
        {
            // Too few are no coordinates.
            ExpectCount(object, *point, point->figureCount, 0, 3);
        }
        if (element.kind == ElementKind::Curve)
        {
            ExpectValues(object, element, {{L"radius", element.radius.text}});
        }
        if (element.kind == ElementKind::Spiral)
        {
            ExpectValues(object, element,
                         {{L"length", element.length.text},
                          {L"radiusStart", element.radiusStart.text},
                          {L"radiusEnd", element.radiusEnd.text}});
        }
        if (element.IsClothoid() && isOfTheStandard_)
        {
            ExpectValues(object, element, {{L"A", element.parameter.text}});
        }
        if (element.kind == ElementKind::IrregularLine && element.path.empty())
        {
            ExpectValues(object, element, {{L"PntList2D", {}}});
        }
        ExpectPairs(object, element.path);
    }

    void CheckProfile(const Detail& alignment, const Profile& profile)
    {
        for (const ProfAlign& design : profile.designs)
        {
            const Detail name = Path(alignment, NameOf(design));
            for (const ProfileElement& element : design.elements)
            {
                CheckProfileElement(Path(name, NameOf(element)), element);
            }
        }
        for (const ProfSurf& ground : profile.grounds)
        {
            ExpectPairs(Path(alignment, NameOf(ground)), ground.lists);
        }
    }

    void CheckProfileElement(const Detail& object, const ProfileElement& element)
    {
        ExpectCount(object, element, element.figureCount, 2, 2);
        if (element.kind == L"ParaCurve" || element.kind == L"CircCurve")
        {
            ExpectValues(object, element, {{L"length", element.length.text}});
        }
        if (element.kind == L"CircCurve")
        {
            ExpectValues(object, element, {{L"radius", element.radius.text}});
        }
        if (element.kind == L"UnsymParaCurve")
        {
            ExpectValues(object, element,
                         {{L"lengthIn", element.lengthIn.text}, {L"lengthOut", element.lengthOut.text}});
        }
    }

    void CheckSuperelevation(const Detail& alignment, const Superelevation& one)
    {
        const Detail name = Path(alignment, NameOf(one));
        for (const TransitionStation& station : one.stations)
        {
            ExpectValues(name, station, {{station.kind, station.station.text}});
        }
        ExpectValues(name, one, {{L"FullSuperelev", one.fullSuperelev.text}});
    }

    void CheckStationLists(const Alignment& alignment)
    {
        ForEachStationList(alignment, [&](const Sentence& list, const std::vector<StationEntry>& entries) {
            // A station with a width, or with the slope of a single lane or those to both sides.
            for (const StationEntry& entry : entries)
            {
                ExpectCount(Path(NameOf(alignment), list), entry, entry.figures.size(), 2, ANY_COUNT);
            }
        });
    }

    void CheckSection(const Detail& name, const CrossSect& section)
    {
        ExpectValues(name, section, {{L"sta", section.station.text}});
        for (const CrossSectSurf& ground : section.grounds)
        {
            ExpectPairs(Path(name, ground.name), ground.lists);
        }
        for (const DesignCrossSectSurf& surface : section.designs)
        {
            for (const CrossSectPnt& point : surface.points)
            {
                if (!point.IsOtherPoint())
                {
                    ExpectCount(Path(Path(name, surface.name), NameOf(point)), point, point.figureCount, 2, 2);
                }
            }
        }
    }

    const bool isOfTheStandard_;
    Findings& findings_;
};

/// Says of figures of one element that they aren't above 0. A radius without an end is none of these.
void ReportNotPositive(Findings& findings, const Detail& object, const SourcePlace& place,
                       std::initializer_list<NamedFigure> figures)
{
    for (const NamedFigure& one : figures)
    {
        if (one.figure.IsFinite() && one.figure.value <= 0)
        {
            findings.Report(object, place, std::wstring(one.name) + L" " + std::wstring(one.figure.text),
                            {one.figure.value, 0, {}});
        }
    }
}

} // namespace

void CheckComplete(const LandXmlFile& file, Findings& findings)
{
    CompletenessCheck check(file, findings);
    const auto checkOne = [&](const auto& one) { check.Check(one); };
    std::for_each(file.pointGroups.begin(), file.pointGroups.end(), checkOne);
    ForEachAlignment(file, checkOne);
    std::for_each(file.surfaces.begin(), file.surfaces.end(), checkOne);
}

void CheckPositive(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        ReportNotPositive(findings, NameOf(alignment), alignment, {{L"length", alignment.length}});
        for (const PlanElement& element : alignment.elements)
        {
            ReportNotPositive(findings, NameOf(alignment, element), element,
                              {{L"length", element.length},
                               {L"radius", element.radius},
                               {L"radiusStart", element.radiusStart},
                               {L"radiusEnd", element.radiusEnd}});
        }
        for (const Profile& profile : alignment.profiles)
        {
            for (const ProfAlign& design : profile.designs)
            {
                for (const ProfileElement& element : design.elements)
                {
                    ReportNotPositive(findings, Path(Path(NameOf(alignment), NameOf(design)), NameOf(element)), element,
                                      {{L"length", element.length},
                                       {L"radius", element.radius},
                                       {L"lengthIn", element.lengthIn},
                                       {L"lengthOut", element.lengthOut}});
                }
            }
        }
    });
}

} // namespace jlandxml::inspect
