#include "inspect/CheckReferences.h"

#include "base/Text.h"
#include "inspect/AlignmentReferences.h"
#include "inspect/Angles.h"
#include "inspect/Names.h"
#include "inspect/PlaneRectangular.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <span>
#include <unordered_map>
#include <unordered_set>

namespace jlandxml::inspect
{

namespace
{

constexpr Sentence NOT_GIVEN{L"指定なし", L"not given"};
constexpr Sentence WHOLE_FILE{L"ファイル", L"File"};
constexpr Sentence UNITS{L"単位系", L"Units"};
constexpr Sentence COORDINATE_SYSTEM{L"座標参照系", L"Coordinate system"};

/// Reports every name, or every number, that stands twice among those of one kind.
template <class Value>
class Unique
{
  public:
    Unique(Findings& findings, Detail kind) : findings_(findings), kind_(std::move(kind)) {}

    void Take(const Value& value, std::wstring_view text, const SourcePlace& place)
    {
        if (!values_.insert(value).second)
        {
            findings_.Report(kind_ + L" " + text, place);
        }
    }

  private:
    Findings& findings_;
    Detail kind_;
    std::unordered_set<Value> values_;
};

class UniqueNames
{
  public:
    UniqueNames(Findings& findings, Detail kind) : names_(findings, std::move(kind)) {}

    void Take(std::wstring_view name, const SourcePlace& place)
    {
        if (!name.empty())
        {
            names_.Take(name, name, place);
        }
    }

  private:
    Unique<std::wstring_view> names_;
};

/// A horizontal datum in the standard's words: 世界測地系 of each year, and 日本測地系.
constexpr std::wstring_view HORIZONTAL_DATUMS[] = {L"JGD2024", L"JGD2011", L"JGD2000", L"TD"};

/// How far a vertical datum lies above the mean sea level of Tokyo Bay (T.P.), in metres.
struct VerticalDatum
{
    std::wstring_view name;
    double differTp;
};
constexpr VerticalDatum VERTICAL_DATUMS[] = {
    {L"T.P", 0},       {L"K.P", -0.8745}, {L"S.P", -0.0873}, {L"Y.P", -0.8402},  {L"A.P", -1.1344},
    {L"A.P", -0.8333}, {L"O.P", -1.3},    {L"T.P.W", 0.113}, {L"B.S.L", 84.371},
};

/// Metric units that LandXML has (metArea, metVolume).
constexpr std::wstring_view AREA_UNITS[] = {L"hectare", L"squareMeter", L"squareMillimeter", L"squareCentimeter"};
constexpr std::wstring_view VOLUME_UNITS[] = {L"cubicMeter", L"liter", L"hectareMeter"};

/// Where an element begins that there may be none of.
template <class Element>
SourcePlace PlaceOf(const std::optional<Element>& element)
{
    return element ? SourcePlace(*element) : SourcePlace();
}

std::optional<int> ZoneOf(const LandXmlFile& file)
{
    return file.coordinateSystem ? ReadZone(file.coordinateSystem->zoneName) : std::nullopt;
}

/// A place in the plane with the element that it belongs to.
struct NamedPlace
{
    Detail name;
    SourcePlace place;
    double north;
    double east;
    std::wstring_view northText; ///< the file's own; empty where it wasn't kept
    std::wstring_view eastText;
};

/// The places of an alignment, of a group of points or of a surface.
struct PlacesOfOne
{
    Detail whole;
    std::vector<NamedPlace> places;

    void Add(Detail name, const PlanPoint& point) { Add(std::move(name), point, point.north, point.east); }

    void Add(Detail name, const SourcePlace& place, const Figure& north, const Figure& east)
    {
        if (north.IsFinite() && east.IsFinite())
        {
            places.push_back({std::move(name), place, north.value, east.value, north.text, east.text});
        }
    }
};

/// Of a list of points those farthest to the south, north, west and east: where these are, it is.
void AddFarthest(PlacesOfOne& all, const Detail& name, const PairList& list)
{
    std::vector<const FigurePair*> placed;
    for (const FigurePair& pair : list.pairs)
    {
        if (pair.IsPlaced())
        {
            placed.push_back(&pair);
        }
    }
    for (const auto side : {&FigurePair::first, &FigurePair::second})
    {
        const auto [least, most] =
            std::minmax_element(placed.begin(), placed.end(), [&](const FigurePair* one, const FigurePair* other) {
                return (one->*side).value < (other->*side).value;
            });
        for (const auto one : {least, most})
        {
            if (one != placed.end())
            {
                all.Add(name, list, (*one)->first, (*one)->second);
            }
        }
    }
}

/// The ends of an alignment's elements, and the farthest points of its irregular lines.
PlacesOfOne MainPlacesOf(const Alignment& alignment)
{
    PlacesOfOne all{NameOf(alignment), {}};
    for (const PlanElement& element : alignment.elements)
    {
        const Detail name = NameOf(alignment, element);
        all.Add(name, element.start);
        all.Add(name, element.end);
        for (const PairList& path : element.path)
        {
            AddFarthest(all, name, path);
        }
    }
    return all;
}

/// The same and the points where its tangents meet. The centre of a curve may lie far from all of them, and so may its
/// own such point where it turns back.
PlacesOfOne PlacesOf(const Alignment& alignment)
{
    PlacesOfOne all = MainPlacesOf(alignment);
    for (const PlanElement& element : alignment.elements)
    {
        if (element.kind != ElementKind::Curve)
        {
            all.Add(NameOf(alignment, element), element.pi);
        }
    }
    for (const PlanPoint& point : alignment.intersections)
    {
        all.Add(Path(NameOf(alignment), IntersectionName(point)), point);
    }
    return all;
}

PlacesOfOne PlacesOf(const PointGroup& group)
{
    PlacesOfOne all{NameOf(group), {}};
    for (const CgPoint& point : group.points)
    {
        all.Add(Path(NameOf(group), NameOf(point)), point.point);
    }
    return all;
}

/// Of a surface the points farthest to the south, west, north and east: where these are, it is.
PlacesOfOne PlacesOf(const Surface& surface)
{
    PlacesOfOne all{NameOf(surface), {}};
    for (const std::size_t side : {0U, 1U, 3U, 4U})
    {
        const FarthestPoint& one = surface.farthest[side];
        if (!one.northText.empty() && std::isfinite(one.point.north) && std::isfinite(one.point.east))
        {
            const std::uint32_t found = surface.index.Find(one.point.id);
            all.places.push_back({NameOf(surface, one.point),
                                  found != NO_POINT ? PlaceOf(surface, surface.points[found]) : SourcePlace(surface),
                                  one.point.north, one.point.east, one.northText, one.eastText});
        }
    }
    return all;
}

/// Areas of use are boxes round coasts and islands; a place this many degrees outside, some ten kilometres, is not yet
/// a mistake.
constexpr double ZONE_MARGIN = 0.1;

bool IsOutside(const std::optional<int>& zone, const NamedPlace& place)
{
    return zone && !IsInZone(*zone, place.north, place.east, ZONE_MARGIN);
}

bool IsInsideWhenSwapped(const std::optional<int>& zone, const NamedPlace& place)
{
    return zone && IsInZone(*zone, place.east, place.north, ZONE_MARGIN);
}

/// The box round places.
class Surroundings
{
  public:
    Surroundings() = default;
    explicit Surroundings(const std::vector<const Alignment*>& alignments)
    {
        for (const Alignment* const alignment : alignments)
        {
            Take(MainPlacesOf(*alignment));
        }
    }

    void Take(const PlacesOfOne& one)
    {
        for (const NamedPlace& place : one.places)
        {
            Take(place.north, place.east);
        }
    }

    void Take(const Surroundings& other)
    {
        if (!other.IsEmpty())
        {
            Take(other.north_.Smallest(), other.east_.Smallest());
            Take(other.north_.Largest(), other.east_.Largest());
        }
    }

    bool IsEmpty() const { return north_.IsEmpty(); }

    double Length() const { return std::max(north_.Largest() - north_.Smallest(), east_.Largest() - east_.Smallest()); }

    /// True if the place lies in the box or no further than `margin` from it only when its axes are exchanged, and
    /// else far from it: where X and Y are much alike, a place beside the box is near it either way.
    bool HoldOnlyWhenSwapped(const NamedPlace& place, double margin) const
    {
        constexpr double FAR = 5;
        return !Hold(place.north, place.east, FAR * margin) && Hold(place.east, place.north, margin);
    }

  private:
    void Take(double north, double east)
    {
        north_.Take(north);
        east_.Take(east);
    }

    bool Hold(double north, double east, double margin) const
    {
        return !IsEmpty() && north >= north_.Smallest() - margin && north <= north_.Largest() + margin &&
               east >= east_.Smallest() - margin && east <= east_.Largest() + margin;
    }

    Range north_;
    Range east_;
};

/// What is built beside alignments lies no further from them, in metres.
constexpr double BESIDE = 500;

/// True if a part of a file lies where the others do only when the axes of all its places are exchanged, and further
/// away from them than either is long.
bool LiesSwapped(const PlacesOfOne& part, const Surroundings& others)
{
    Surroundings own;
    own.Take(part);
    return !part.places.empty() && !others.IsEmpty() &&
           std::all_of(part.places.begin(), part.places.end(),
                       [&, margin = BESIDE + std::max(own.Length(), others.Length())](const NamedPlace& place) {
                           return others.HoldOnlyWhenSwapped(place, margin);
                       });
}

/// For each part of one kind, where all the others lie. Nowhere if there are fewer than three: of two that don't fit
/// nobody knows which one is wrong.
std::vector<Surroundings> OthersOf(const std::vector<Surroundings>& parts)
{
    constexpr std::size_t FEWEST = 3;
    std::vector<Surroundings> others(parts.size());
    Surroundings before;
    Surroundings behind;
    for (std::size_t index = 0; parts.size() >= FEWEST && index < parts.size(); ++index)
    {
        const std::size_t mirrored = parts.size() - 1 - index;
        others[index].Take(before);
        others[mirrored].Take(behind);
        before.Take(parts[index]);
        behind.Take(parts[mirrored]);
    }
    return others;
}

/// Reports those places of one alignment, group or surface of which `isWrong` is true: one finding, whose object is the
/// place itself where there is but one.
template <class IsWrong>
void ReportPlaces(const std::optional<int>& zone, const PlacesOfOne& all, Findings& findings, IsWrong&& isWrong)
{
    std::set<std::wstring_view> names;
    const NamedPlace* first = nullptr;
    for (const NamedPlace& place : all.places)
    {
        if (isWrong(place))
        {
            names.insert(place.name.japanese);
            first = first != nullptr ? first : &place;
        }
    }
    if (first == nullptr)
    {
        return;
    }
    const bool areMore = names.size() > 1;
    const Sentence words = areMore ? Sentence{L"X {}、Y {}、{}、ほか{}か所", L"X {}, Y {}, {}, and {} more places"}
                                   : Sentence{L"X {}、Y {}、{}", L"X {}, Y {}, {}"};
    const Detail system = zone ? Detail({L"第{}系", L"zone {}"}, {std::to_wstring(*zone)}) : Detail(NOT_GIVEN);
    const std::wstring north = NameOr(first->northText, ShortNumber(first->north));
    const std::wstring east = NameOr(first->eastText, ShortNumber(first->east));
    const std::wstring more = std::to_wstring(names.size() - 1);
    findings.Report(areMore ? all.whole : first->name, first->place, {words, {north, east, system, more}});
}

/// Says of an angle in degrees, minutes and seconds that it is none. It is told under the name of its attribute where
/// an element has several.
void CheckAngle(Findings& findings, const Detail& object, const SourcePlace& place, const Figure& angle,
                std::wstring_view attribute = {})
{
    const std::optional<DegreesMinutesSeconds> parts = ReadDegreesMinutesSeconds(angle.text);
    if (parts && (parts->minutes >= 60 || parts->seconds >= 60))
    {
        const std::wstring text =
            attribute.empty() ? std::wstring(angle.text) : std::wstring(attribute) + L" " + std::wstring(angle.text);
        findings.Report(object, place,
                        {{L"{} → {}分{}秒", L"{} → {} minutes {} seconds"},
                         {text, ShortNumber(parts->minutes), ShortNumber(parts->seconds)}},
                        {parts->minutes >= 60 ? parts->minutes : parts->seconds, 60, {}});
    }
}

/// The angles that elements state of themselves.
void CheckElementAngles(const LandXmlFile& file, Findings& findings, std::vector<NamedFigure> PlanElement::*angles)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const PlanElement& element : alignment.elements)
        {
            for (const NamedFigure& angle : element.*angles)
            {
                CheckAngle(findings, NameOf(alignment, element), element, angle.figure, angle.name);
            }
        }
    });
}

/// The references of a point other than those of groups, and the words for it.
struct Reference
{
    std::wstring_view pntRef;
    std::wstring_view featureRef;
    std::wstring_view ownName;
    SourcePlace place;
    std::function<Detail()> object;
    bool isRound = false;
};

/// Visits the references of a surface's points.
template <class Visit>
void ForEachReferenceOf(const Surface& surface, Visit&& visit)
{
    for (const SurfacePointRemark& remark : surface.remarks)
    {
        const SurfacePoint& point = surface.points[remark.point];
        visit(Reference{
            remark.pntRef, remark.featureRef, {}, PlaceOf(surface, point), [&] { return NameOf(surface, point); }});
    }
}

Reference ReferenceOf(const PlanPoint& point, std::function<Detail()> object)
{
    return {point.pntRef, point.featureRef, point.name, point, std::move(object), point.isRound};
}

/// Visits the references of all points of an alignment that have some.
template <class Visit>
void ForEachReferenceOf(const Alignment& alignment, Visit&& visit)
{
    const auto has = [](const auto& point) { return !point.pntRef.empty() || !point.featureRef.empty(); };
    for (const PlanElement& element : alignment.elements)
    {
        for (const PlanPoint* const point : {&element.start, &element.center, &element.pi, &element.end})
        {
            if (has(*point))
            {
                visit(ReferenceOf(*point, [&] { return NameOf(alignment, element); }));
            }
        }
    }
    for (const PlanPoint& point : alignment.intersections)
    {
        if (has(point))
        {
            visit(ReferenceOf(point, [&] { return Path(NameOf(alignment), IntersectionName(point)); }));
        }
    }
    for (const CrossSects& sects : alignment.crossSects)
    {
        for (const CrossSect& section : sects.sections)
        {
            for (const DesignCrossSectSurf& surface : section.designs)
            {
                for (const CrossSectPnt& point : surface.points)
                {
                    if (has(point))
                    {
                        visit(Reference{point.pntRef, point.featureRef, {}, point, [&] {
                                            return Path(Path(NameOf(alignment), NameOf(section)), NameOf(point));
                                        }});
                    }
                }
            }
        }
    }
}

/// True for a point of a section that isn't told by offset and height: by slope and distance, or by another point.
bool IsOfAnotherFormat(const CrossSectPnt& point)
{
    return point.IsOtherPoint() || (!point.dataFormat.empty() && point.dataFormat != OFFSET_AND_HEIGHT);
}

template <class Visit>
void ForEachReference(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) { ForEachReferenceOf(alignment, visit); });
    for (const Surface& surface : file.surfaces)
    {
        ForEachReferenceOf(surface, visit);
    }
}

} // namespace

void CheckAlignmentReferences(const LandXmlFile& file, Findings& findings)
{
    const AlignmentReferences alignments(file);
    const auto check = [&](const Detail& object, const SourcePlace& place, std::wstring_view references) {
        if (Trim(references).empty())
        {
            findings.Report(object, place, Detail(NOT_GIVEN));
            return;
        }
        for (const std::wstring_view name : alignments.Missing(references))
        {
            findings.Report(object, place, name);
        }
    };
    const auto checkFeatures = [&](const Detail& object, const std::vector<Feature>& features) {
        for (const Feature& feature : features)
        {
            if (const Property* const property = FindProperty(feature, L"alignmentRefs"))
            {
                check(object, *property, property->value);
            }
        }
    };
    for (const PointGroup& group : file.pointGroups)
    {
        checkFeatures(NameOf(group), group.features);
        // Intermediate points and width stakes are of an alignment; other points and surfaces need not be.
        if (!group.kind.empty() && FindProperty(group.features, group.kind, L"alignmentRefs") == nullptr)
        {
            check(NameOf(group), group, {});
        }
    }
    for (const Roadway& roadway : file.roadways)
    {
        check(L"Roadway " + std::wstring(roadway.name), roadway, roadway.alignmentRefs);
    }
    for (const Surface& surface : file.surfaces)
    {
        checkFeatures(NameOf(surface), surface.features);
    }
    for (const FurtherReference& reference : file.furtherReferences)
    {
        check(reference.owner, reference, reference.alignmentRefs);
    }
}

void CheckFeatureReferences(const LandXmlFile& file, Findings& findings)
{
    for (const PointGroup& group : file.pointGroups)
    {
        for (const CgPoint& point : group.points)
        {
            if (!point.point.featureRef.empty() && !point.hasFeature)
            {
                findings.Report(Path(NameOf(group), NameOf(point)), point.point, point.point.featureRef);
            }
        }
    }
    ForEachReference(file, [&](const Reference& reference) {
        if (!reference.featureRef.empty() && file.featureNames.count(reference.featureRef) == 0)
        {
            findings.Report(reference.object(), reference.place, reference.featureRef);
        }
    });
}

void CheckPointReferences(const LandXmlFile& file, Findings& findings)
{
    std::unordered_map<std::wstring_view, std::size_t> counts;
    ForEachPlanPoint(file, [&](const PlanPoint& point) { ++counts[point.name]; });
    const auto leadsToAnother = [&](std::wstring_view reference, std::wstring_view own) {
        const auto found = counts.find(reference);
        return found != counts.end() && found->second > (reference == own ? 1U : 0U);
    };
    const auto check = [&](const Reference& reference) {
        if (!reference.pntRef.empty() && (reference.isRound || !leadsToAnother(reference.pntRef, reference.ownName)))
        {
            findings.Report(reference.object(), reference.place, reference.pntRef);
        }
    };
    for (const PointGroup& group : file.pointGroups)
    {
        for (const CgPoint& one : group.points)
        {
            check(ReferenceOf(one.point, [&] { return Path(NameOf(group), NameOf(one)); }));
        }
    }
    ForEachReference(file, check);
}

namespace
{

/// Unique within a route by the schema. References don't name the route, so one of another route is told of too.
void CheckAlignmentNames(const LandXmlFile& file, Findings& findings)
{
    std::unordered_map<std::wstring_view, const AlignmentGroup*> routes;
    for (const AlignmentGroup& route : file.routes)
    {
        UniqueNames names(findings, L"Alignment");
        for (const Alignment& alignment : route.alignments)
        {
            names.Take(alignment.name, alignment);
            if (!alignment.name.empty() && routes.try_emplace(alignment.name, &route).first->second != &route)
            {
                findings.Report(L"Alignment " + std::wstring(alignment.name), alignment,
                                Sentence{L"別の路線の線形と同じ名称", L"the name of an alignment of another route"}, {},
                                Severity::Information);
            }
        }
    }
}

} // namespace

void CheckNamesUnique(const LandXmlFile& file, Findings& findings)
{
    UniqueNames groups(findings, L"CgPoints");
    for (const PointGroup& group : file.pointGroups)
    {
        groups.Take(group.name, group);
        UniqueNames points(findings, Path(NameOf(group), L"CgPoint"));
        for (const CgPoint& point : group.points)
        {
            points.Take(point.point.name, point.point);
        }
    }
    CheckAlignmentNames(file, findings);
    ForEachAlignment(file, [&](const Alignment& alignment) {
        // Cross sections name one of the alignment's profiles.
        UniqueNames designs(findings, Path(NameOf(alignment), L"ProfAlign"));
        for (const Profile& profile : alignment.profiles)
        {
            for (const ProfAlign& design : profile.designs)
            {
                designs.Take(Trim(design.name), design);
            }
        }
        for (const CrossSects& sects : alignment.crossSects)
        {
            // By their values: 60. and 60.000 are one station.
            Unique<double> stations(findings, Path(NameOf(alignment), L"CrossSect@sta"));
            for (const CrossSect& section : sects.sections)
            {
                if (section.station.IsNumber())
                {
                    stations.Take(section.station.value, section.station.text, section);
                }
            }
        }
    });
    UniqueNames roadways(findings, L"Roadway");
    for (const Roadway& roadway : file.roadways)
    {
        roadways.Take(roadway.name, roadway);
    }
    UniqueNames surfaces(findings, L"Surface");
    for (const Surface& surface : file.surfaces)
    {
        surfaces.Take(surface.name, surface);
    }
}

void CheckHorizontalDatum(const LandXmlFile& file, Findings& findings)
{
    const std::wstring_view datum =
        file.coordinateSystem ? file.coordinateSystem->horizontalDatum : std::wstring_view();
    if (std::find(std::begin(HORIZONTAL_DATUMS), std::end(HORIZONTAL_DATUMS), datum) == std::end(HORIZONTAL_DATUMS))
    {
        findings.Report(COORDINATE_SYSTEM, PlaceOf(file.coordinateSystem),
                        datum.empty() ? Detail(NOT_GIVEN) : Detail(datum));
    }
}

void CheckZone(const LandXmlFile& file, Findings& findings)
{
    if (!ZoneOf(file))
    {
        const std::wstring_view name = file.coordinateSystem ? file.coordinateSystem->zoneName : std::wstring_view();
        findings.Report(COORDINATE_SYSTEM, PlaceOf(file.coordinateSystem),
                        name.empty() ? Detail(NOT_GIVEN) : Detail(name));
    }
}

void CheckZoneDescription(const LandXmlFile& file, Findings& findings)
{
    const std::optional<int> zone = ZoneOf(file);
    const std::optional<int> described =
        file.coordinateSystem ? ZoneInDescription(file.coordinateSystem->desc) : std::nullopt;
    if (zone && described && *zone != *described)
    {
        findings.Report(COORDINATE_SYSTEM, *file.coordinateSystem,
                        {{L"第{}系、説明は第{}系", L"zone {}, described as zone {}"},
                         {std::to_wstring(*zone), std::to_wstring(*described)}},
                        {static_cast<double>(*zone), static_cast<double>(*described), {}});
    }
}

void CheckCoordinatesInZone(const LandXmlFile& file, Findings& findings)
{
    const std::optional<int> zone = ZoneOf(file);
    const auto isWrong = [&](const NamedPlace& place) {
        return IsOutside(zone, place) && !IsInsideWhenSwapped(zone, place);
    };
    const auto report = [&](const auto& one) { ReportPlaces(zone, PlacesOf(one), findings, isWrong); };
    ForEachAlignment(file, report);
    std::for_each(file.pointGroups.begin(), file.pointGroups.end(), report);
    std::for_each(file.surfaces.begin(), file.surfaces.end(), report);
}

void CheckAxesInOrder(const LandXmlFile& file, Findings& findings)
{
    const std::optional<int> zone = ZoneOf(file);
    std::vector<const Alignment*> alignments;
    ForEachAlignment(file, [&](const Alignment& alignment) { alignments.push_back(&alignment); });
    // Near a zone's origin both orders lie in the zone, but only one of them where the rest of the file is. `placesOf`
    // and `besides` are of a part by its number: what the second has, each place of the part lies beside.
    const auto check = [&](std::size_t count, const Surroundings& expected, auto&& placesOf, auto&& besides) {
        std::vector<Surroundings> others(count, expected);
        if (expected.IsEmpty())
        {
            for (std::size_t part = 0; part < count; ++part)
            {
                others[part].Take(placesOf(part));
            }
            others = OthersOf(others);
        }
        for (std::size_t part = 0; part < count; ++part)
        {
            const PlacesOfOne places = placesOf(part);
            const Surroundings own = besides(part);
            const bool isSwapped = LiesSwapped(places, others[part]);
            ReportPlaces(zone, places, findings, [&](const NamedPlace& place) {
                return isSwapped || own.HoldOnlyWhenSwapped(place, BESIDE) ||
                       (IsOutside(zone, place) && IsInsideWhenSwapped(zone, place));
            });
        }
    };
    const auto nothing = [](std::size_t) { return Surroundings(); };
    const Surroundings ofAlignments(alignments);
    const AlignmentReferences references(file);
    check(
        alignments.size(), {}, [&](std::size_t part) { return PlacesOf(*alignments[part]); }, nothing);
    check(
        file.pointGroups.size(), ofAlignments, [&](std::size_t part) { return PlacesOf(file.pointGroups[part]); },
        [&](std::size_t part) { return Surroundings(references.Named(file.pointGroups[part].alignmentRefs)); });
    check(
        file.surfaces.size(), ofAlignments, [&](std::size_t part) { return PlacesOf(file.surfaces[part]); }, nothing);
}

void CheckMinutesAndSeconds(const LandXmlFile& file, Findings& findings)
{
    if (!file.units)
    {
        return;
    }
    if (IsDegreesMinutesSeconds(file.units->direction))
    {
        for (const PointGroup& group : file.pointGroups)
        {
            for (const CgPoint& point : group.points)
            {
                CheckAngle(findings, Path(NameOf(group), NameOf(point)), point.point, point.direction);
            }
        }
        CheckElementAngles(file, findings, &PlanElement::directions);
    }
    if (IsDegreesMinutesSeconds(file.units->angular))
    {
        CheckElementAngles(file, findings, &PlanElement::angles);
        ForEachAlignment(file, [&](const Alignment& alignment) {
            for (const CrossSects& sects : alignment.crossSects)
            {
                for (const CrossSect& section : sects.sections)
                {
                    CheckAngle(findings, Path(NameOf(alignment), NameOf(section)), section, section.angleSkew);
                }
            }
        });
    }
}

void CheckVerticalDatum(const LandXmlFile& file, Findings& findings)
{
    if (!file.coordinateSystem)
    {
        return;
    }
    const CoordinateSystem& system = *file.coordinateSystem;
    const Figure differTp = ReadFigure(PropertyValue(system.features, L"", L"differTP"));
    const VerticalDatum* nearest = nullptr;
    for (const VerticalDatum& datum : VERTICAL_DATUMS)
    {
        const auto miss = [&](const VerticalDatum& one) { return std::abs(one.differTp - differTp.value); };
        if (datum.name == system.verticalDatum && (nearest == nullptr || miss(datum) < miss(*nearest)))
        {
            nearest = &datum;
        }
    }
    if (nearest == nullptr && !system.verticalDatum.empty())
    {
        findings.Report(COORDINATE_SYSTEM, system,
                        {{L"{}は標準の鉛直原子ではありません", L"{} isn't one of the standard's vertical datums"},
                         {system.verticalDatum}},
                        {}, Severity::Warning);
    }
    else if (nearest != nullptr && !differTp.IsWritten() && nearest->differTp != 0)
    {
        findings.Report(COORDINATE_SYSTEM, system,
                        {{L"{}、differTPの指定なし", L"{}, no differTP"}, {system.verticalDatum}},
                        {{}, nearest->differTp, {}}, Severity::Warning);
    }
    else if (nearest != nullptr)
    {
        findings.Measure(COORDINATE_SYSTEM, system, differTp, nearest->differTp, system.verticalDatum);
    }
}

void CheckMetric(const LandXmlFile& file, Findings& findings)
{
    if (!file.units || file.units->system != L"Metric" || file.units->linear != L"meter")
    {
        findings.Report(UNITS, PlaceOf(file.units),
                        file.units ? Detail(std::wstring(file.units->system) + L" " + std::wstring(file.units->linear))
                                   : Detail(NOT_GIVEN));
    }
    if (!file.units || file.units->system != L"Metric")
    {
        return;
    }
    const auto check = [&](const wchar_t* name, std::wstring_view unit, std::span<const std::wstring_view> units) {
        if (!unit.empty() && std::find(units.begin(), units.end(), unit) == units.end())
        {
            findings.Report(UNITS, *file.units, std::wstring(name) + L"=" + std::wstring(unit));
        }
    };
    check(L"areaUnit", file.units->area, AREA_UNITS);
    check(L"volumeUnit", file.units->volume, VOLUME_UNITS);
}

void CheckAngleUnits(const LandXmlFile& file, Findings& findings)
{
    const std::pair<const wchar_t*, std::wstring_view> units[] = {
        {L"angularUnit", file.units ? file.units->angular : std::wstring_view()},
        {L"directionUnit", file.units ? file.units->direction : std::wstring_view()},
    };
    for (const auto& [name, unit] : units)
    {
        if (!IsAngleUnit(unit))
        {
            findings.Report(UNITS, *file.units, std::wstring(name) + L"=" + std::wstring(unit));
        }
    }
}

void CheckSkipped(const LandXmlFile& file, Findings& findings)
{
    for (const SkippedElements& skipped : file.skipped)
    {
        findings.Report(skipped.path, skipped, {{L"{}件", L"{} of them"}, {std::to_wstring(skipped.count)}});
    }
}

void CheckUndrawn(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const PlanElement& element : alignment.elements)
        {
            if (element.kind == ElementKind::Spiral && element.spiralType != L"clothoid")
            {
                findings.Report(NameOf(alignment, element), element, L"spiType=" + std::wstring(element.spiralType));
            }
        }
        for (const CrossSects& sects : alignment.crossSects)
        {
            for (const CrossSect& section : sects.sections)
            {
                for (const DesignCrossSectSurf& surface : section.designs)
                {
                    const auto other = std::find_if(surface.points.begin(), surface.points.end(), IsOfAnotherFormat);
                    if (other != surface.points.end())
                    {
                        findings.Report(Path(Path(NameOf(alignment), NameOf(section)), surface.name), *other,
                                        other->IsOtherPoint() ? L"pntRef=" + std::wstring(other->pntRef)
                                                              : L"dataFormat=" + std::wstring(other->dataFormat));
                    }
                }
            }
        }
    });
}

void CheckFigures(const LandXmlFile& file, Findings& findings)
{
    for (const UnreadableFigure& figure : file.unreadable)
    {
        findings.Report(figure.what, figure, figure.text);
    }
}

void CheckForm(const LandXmlFile& file, Findings& findings)
{
    if (file.formFault)
    {
        findings.Report(file.formFault->path, {file.formFault->line}, file.formFault->reason);
    }
}

void CheckSchema(const LandXmlFile& file, Findings& findings)
{
    // In front of the others, since it says why there are no more of them.
    const std::optional<XmlFault>& end = file.schemaFaults.end;
    if (end && !file.formFault)
    {
        findings.Report(end->path, {end->line}, end->reason);
    }
    for (const XmlFault& fault : file.schemaFaults.listed)
    {
        findings.Report(fault.path, {fault.line},
                        fault.count > 1
                            ? Detail({L"{}、{}件", L"{} {} of them."}, {fault.reason, std::to_wstring(fault.count)})
                            : Detail(fault.reason));
    }
    findings.CountMore(file.schemaFaults.more);
}

void CheckEncoding(const LandXmlFile& file, Findings& findings)
{
    const SourceEncoding& encoding = file.encoding;
    if (encoding.fault == EncodingFault::MalformedBytes)
    {
        findings.Report(WHOLE_FILE, {1});
    }
    else if (encoding.fault != EncodingFault::None)
    {
        // One that isn't read here may still be the file's own.
        findings.Report(
            WHOLE_FILE, {1},
            {{L"encoding={}、{}として読みました", L"encoding={}, read as {}"}, {encoding.declared, encoding.read}}, {},
            encoding.fault == EncodingFault::UnknownDeclared ? Severity::Warning : Severity::Error);
    }
}

void CheckVersion(const LandXmlFile& file, Findings& findings)
{
    if (!file.IsOfTheVersion())
    {
        findings.Report(
            WHOLE_FILE, file.root,
            {{L"version={}、xmlns={}、LandXML {}として検査しました", L"version={}, xmlns={}, checked as LandXML {}"},
             {NameOr(file.version, NOT_GIVEN), NameOr(file.nameSpace, NOT_GIVEN), LANDXML_VERSION}});
    }
}

void CheckEntities(const LandXmlFile& file, Findings& findings)
{
    if (file.entities)
    {
        findings.Report(WHOLE_FILE, *file.entities);
    }
}

} // namespace jlandxml::inspect
