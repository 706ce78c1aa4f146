#pragma once

#include "base/Text.h"
#include "inspect/Figure.h"
#include "inspect/PointIndex.h"
#include "inspect/SchemaValidation.h"
#include "inspect/SourcePlace.h"
#include "inspect/SourceText.h"
#include "inspect/Wording.h"

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace jlandxml::inspect
{

// A LandXML 1.2 or J-LandXML file as plain geometry. Coordinates are metres, "north" is X and "east" is Y of the plane
// rectangular system; stations are metres of the alignment's own count, without station equations. Texts are views into
// the file and live as long as its LandXmlFile. Every struct knows the place of the file where its element begins.

/// A label and its value in a Feature.
struct Property : SourcePlace
{
    std::wstring_view label;
    std::wstring_view value;
};

/// What an application says of an element beyond the standard's attributes.
struct Feature : SourcePlace
{
    std::wstring_view name;
    std::vector<Property> properties;
};

/// The first property of that label; null if there is none.
const Property* FindProperty(const Feature& feature, std::wstring_view label);

/// The same in all features of a name.
const Property* FindProperty(const std::vector<Feature>& features, std::wstring_view name, std::wstring_view label);

/// The value of such a property; empty if there is none.
std::wstring_view PropertyValue(const std::vector<Feature>& features, std::wstring_view name, std::wstring_view label);

/// The first property of a label that the standard writes in a Feature without a name: that of such a Feature, or where
/// none has one, of another, which makers that name all of theirs mean as well. Null if there is none.
const Property* FindStandardProperty(const std::vector<Feature>& features, std::wstring_view label);

/// A point in the plane, with a height if the file gives one: Start, End, Center, PI, CgPoint. One that refers to
/// another by `pntRef` and has no coordinates of its own gets the other's. Line 0: the file has no such point.
struct PlanPoint : SourcePlace
{
    std::wstring_view name;
    std::wstring_view pntRef;
    std::wstring_view featureRef;
    Figure north;
    Figure east;
    Figure height;
    std::size_t figureCount = 0; ///< in its text
    bool isRound = false;        ///< its reference leads to points that refer to one another in a circle

    bool IsWritten() const { return line != 0; }
    bool IsPlaced() const { return north.IsFinite() && east.IsFinite(); }

    /// True if it stands for another point: it names one and has no coordinates of its own.
    bool IsOtherPoint() const { return figureCount == 0 && !pntRef.empty(); }
};

/// A pair of figures: station and height, offset and height, north and east.
struct FigurePair
{
    Figure first;
    Figure second;

    bool IsPlaced() const { return first.IsFinite() && second.IsFinite(); }
};

/// A list of pairs, such as a ground line. A gap in the line parts it into several lists.
struct PairList : SourcePlace
{
    std::vector<FigurePair> pairs;
    std::size_t figuresOfAPoint = 2; ///< 3 where each has a height behind its north and east
    std::size_t figureCount = 0;     ///< in its text: more than those of the pairs if the last point isn't whole
};

enum class ElementKind
{
    Line,
    Curve,
    Spiral,
    IrregularLine,
};

/// True if some pair of the lists is one that can be drawn.
bool HasPlace(const std::vector<PairList>& lists);

/// A figure under the name of its attribute.
struct NamedFigure
{
    std::wstring_view name;
    Figure figure;
};

/// One element of a horizontal alignment.
struct PlanElement : SourcePlace
{
    ElementKind kind{};
    std::wstring_view name;
    PlanPoint start;
    PlanPoint end;
    PlanPoint center; ///< of a Curve
    PlanPoint pi;     ///< of a Spiral: where the tangents of its ends meet
    Figure length;
    Figure radius;      ///< of a Curve
    Figure radiusStart; ///< of a Spiral, "INF" at a line
    Figure radiusEnd;
    Figure parameter;      ///< of a clothoid: A
    std::wstring_view rot; ///< "cw" to the right, "ccw" to the left
    std::wstring_view spiralType;
    std::vector<PairList> path;          ///< of an IrregularLine: north and east of its points
    std::vector<NamedFigure> directions; ///< dir, dirStart, dirEnd, in the file's directionUnit
    std::vector<NamedFigure> angles;     ///< delta, theta, in the file's angularUnit

    bool IsClothoid() const { return kind == ElementKind::Spiral && spiralType == L"clothoid"; }
};

/// A change of the station count: at `internal` of the alignment's own count the label `back` becomes `ahead`.
struct StaEquation : SourcePlace
{
    Figure back;
    Figure ahead;
    Figure internal;
};

/// A point of a profile: a bare change of gradient, or one with a vertical curve.
struct ProfileElement : SourcePlace
{
    std::wstring_view kind; ///< PVI, ParaCurve, UnsymParaCurve, CircCurve
    Figure station;
    Figure height;
    Figure length; ///< of the vertical curve
    Figure radius;
    Figure lengthIn; ///< of an UnsymParaCurve
    Figure lengthOut;
    std::size_t figureCount = 0; ///< in its text
};

/// A design profile.
struct ProfAlign : SourcePlace
{
    std::wstring_view name;
    std::vector<ProfileElement> elements;
};

/// A ground line along the alignment, of one surface.
struct ProfSurf : SourcePlace
{
    std::wstring_view name;
    std::vector<PairList> lists; ///< station and height
};

struct Profile : SourcePlace
{
    std::wstring_view name;
    Figure staStart;
    std::vector<ProfAlign> designs;
    std::vector<ProfSurf> grounds;
};

/// A station of a superelevation transition, under the name of its element.
struct TransitionStation : SourcePlace
{
    std::wstring_view kind; ///< BeginRunoutSta ... EndofRunoutSta, or a Feature's name: ReverseCrown, FlatSta
    Figure station;
};

struct Superelevation : SourcePlace
{
    Figure staStart;
    Figure staEnd;
    std::vector<TransitionStation> stations; ///< in the file's order
    Figure fullSuperelev;                    ///< percent
    std::wstring_view adverse;
    std::vector<Feature> features; ///< ReverseCrown, FlatSta
};

/// The stations that a Feature of a superelevation lists, in its order, whether they are figures or not.
std::vector<TransitionStation> StationsOf(const Feature& feature);

/// An entry of a widening list or of a slope list: its figures, the station first.
struct StationEntry : SourcePlace
{
    std::vector<Figure> figures;

    /// A figure that the entry doesn't have is an empty one.
    Figure At(std::size_t index) const { return index < figures.size() ? figures[index] : Figure{}; }
    Figure Station() const { return At(0); }
};

/// A ground line of a cross section.
struct CrossSectSurf : SourcePlace
{
    std::wstring_view name;
    std::vector<PairList> lists; ///< offset from the centre line, to the right positive, and height
};

/// The format of a design surface's points that the standard asks for; the other one is "Slope Distance".
inline constexpr std::wstring_view OFFSET_AND_HEIGHT = L"Offset Elevation";

/// A point of a design surface.
struct CrossSectPnt : SourcePlace
{
    std::wstring_view code;
    std::wstring_view dataFormat; ///< empty: offset and height
    Figure offset;
    Figure height;
    std::wstring_view pntRef;
    std::wstring_view featureRef;
    std::size_t figureCount = 0; ///< in its text

    /// True if it stands for another point: it names one and has no figures of its own.
    bool IsOtherPoint() const { return figureCount == 0 && !pntRef.empty(); }

    /// True if its figures are offset and height, false if they are slope and distance, or none.
    bool IsOffsetAndHeight() const
    {
        return (dataFormat.empty() || dataFormat == OFFSET_AND_HEIGHT) && offset.IsFinite() && height.IsFinite();
    }
};

struct DesignCrossSectSurf : SourcePlace
{
    std::wstring_view name;
    std::wstring_view side;
    std::wstring_view desc;
    std::wstring_view material;
    std::wstring_view closedArea;
    Figure typicalThickness;
    std::vector<CrossSectPnt> points;
    std::vector<Feature> features; ///< heightType, pavementClass

    /// True if every point lies where its figures say: only then can the surface be drawn.
    bool HasPlace() const;
    bool IsClosed() const { return closedArea == L"true" || closedArea == L"1"; }
    /// True if its heights are offsets from the design profile's height instead of elevations.
    bool IsRelativeToProfile() const;
};

struct CrossSect : SourcePlace
{
    std::wstring_view name;
    Figure station;
    Figure angleSkew;
    std::vector<CrossSectSurf> grounds;
    std::vector<DesignCrossSectSurf> designs;
    std::vector<Feature> features; ///< Formation
};

struct CrossSects : SourcePlace
{
    std::wstring_view name;
    std::vector<CrossSect> sections;
    std::vector<Feature> features; ///< profAlignRefs
};

struct Alignment : SourcePlace
{
    std::wstring_view name;
    std::wstring_view desc;
    Figure length;
    Figure staStart;
    std::vector<PlanElement> elements;
    std::vector<PlanPoint> intersections; ///< the PI points of AlignPIs
    std::vector<StaEquation> equations;
    std::vector<Profile> profiles;
    std::vector<CrossSects> crossSects;
    std::vector<Superelevation> superelevations;
    std::vector<StationEntry> wideningLeft; ///< station, width
    std::vector<StationEntry> wideningRight;
    std::vector<StationEntry> slopes; ///< station, left slope, right slope (percent)
    std::vector<Feature> features;    ///< Horizontal, Interval, SuperelevationConfig
    bool isRiver = false;
};

/// A route: its alignments and what is said of it.
struct AlignmentGroup : SourcePlace
{
    std::wstring_view name;
    std::wstring_view desc;
    std::vector<Alignment> alignments;
    std::vector<Feature> features; ///< designGmType, classification
};

/// A point of a group, with what the Feature says that its `featureRef` names.
struct CgPoint
{
    PlanPoint point;
    std::wstring_view desc;
    Figure station;
    Figure direction; ///< from north, clockwise, in the file's directionUnit
    bool hasFeature = false;
};

/// A group of points: intermediate points or width stakes of an alignment, or any others.
struct PointGroup : SourcePlace
{
    std::wstring_view name;
    std::wstring_view desc;
    /// The name of the feature that says what the points are; empty for a group without a meaning of that kind.
    std::wstring_view kind;
    std::wstring_view alignmentRefs; ///< of that feature
    std::vector<CgPoint> points;
    std::vector<Feature> features; ///< that of the group's kind, and one for each point that refers to one

    bool IsIntermediate() const { return kind == L"IntermediatePnts"; }
    bool IsWidthStakes() const { return kind == L"WidthStakePnts"; }
};

struct Roadway : SourcePlace
{
    std::wstring_view name;
    std::wstring_view alignmentRefs;
    std::vector<std::wstring_view> designSpeeds;
};

/// A point of a surface than which none lies farther to some side, with the file's own texts.
struct FarthestPoint
{
    SurfacePoint point{};
    std::wstring northText; ///< empty: there is no such point
    std::wstring eastText;
    std::wstring heightText;
};

struct Surface : SourcePlace
{
    std::wstring_view name;
    std::wstring_view desc;
    std::wstring_view type; ///< TIN or grid
    std::vector<SurfacePoint> points;
    std::vector<SurfaceFace> faces;
    std::vector<SurfacePointRemark> remarks; ///< of few points, in their order
    PointIndex index;                        ///< of the points, once all of them are read
    std::array<FarthestPoint, 6> farthest;   ///< to the south, west, bottom, north, east and top
    std::vector<Feature> features;           ///< alignmentRefs
};

/// A point or a face of a surface, by its surface and its number in it.
SourcePlace PlaceOf(const Surface& surface, const SurfacePoint& point);
SourcePlace PlaceOf(const Surface& surface, const SurfaceFace& face);

struct CoordinateSystem : SourcePlace
{
    std::wstring_view name;
    std::wstring_view desc;
    std::wstring_view horizontalDatum;
    std::wstring_view verticalDatum;
    std::wstring_view zoneName;    ///< horizontalCoordinateSystemName, such as 9(X,Y)
    std::vector<Feature> features; ///< differTP
};

struct Units : SourcePlace
{
    std::wstring_view system; ///< Metric or Imperial
    std::wstring_view linear;
    std::wstring_view area;
    std::wstring_view volume;
    std::wstring_view angular;
    std::wstring_view direction;
};

/// Elements of one name that the reader doesn't know. The place is that of the first.
struct SkippedElements : SourcePlace
{
    std::wstring path; ///< the parent's name and the element's
    std::size_t count = 0;
};

/// A text where a figure belongs.
struct UnreadableFigure : SourcePlace
{
    std::wstring what; ///< the element and, of an attribute, its name
    std::wstring_view text;
};

/// The alignmentRefs of a Feature that isn't one of a group of points or of a surface.
struct FurtherReference : SourcePlace
{
    std::wstring owner; ///< the Feature's parent by its names
    std::wstring_view alignmentRefs;
};

/// The version of LandXML that the checks know, and the namespace of its elements.
inline constexpr std::wstring_view LANDXML_VERSION = L"1.2";
inline constexpr std::wstring_view LANDXML_NAMESPACE = L"http://www.landxml.org/schema/LandXML-1.2";

/// A whole file.
struct LandXmlFile
{
    std::wstring path;
    SourcePlace root;
    std::wstring_view version;
    std::wstring_view nameSpace; ///< of the outermost element; empty: none
    std::wstring_view projectName;
    std::wstring_view projectDesc;
    std::vector<Feature> projectFeatures; ///< projectPhase, applicationCriterion
    std::wstring_view application;
    std::wstring_view applicationVersion;
    std::optional<CoordinateSystem> coordinateSystem;
    std::optional<Units> units;
    std::vector<PointGroup> pointGroups;
    std::vector<AlignmentGroup> routes;
    std::vector<Roadway> roadways;
    std::vector<Surface> surfaces;
    std::vector<SkippedElements> skipped;
    std::vector<UnreadableFigure> unreadable;
    std::deque<std::wstring> joinedTexts;               ///< of elements whose text something else parts
    std::unordered_set<std::wstring_view> featureNames; ///< of every Feature that the reader came by
    std::vector<FurtherReference> furtherReferences;
    SchemaFaults schemaFaults;         ///< of the schema that the file was held against, if any
    std::optional<XmlFault> formFault; ///< where the file isn't well-formed, if it isn't and that is known
    SourceEncoding encoding;           ///< how the bytes were read
    std::optional<SourcePlace>
        entities; ///< where the file begins to declare entities of its own, which aren't resolved

    /// What the texts are views into.
    std::unique_ptr<SourceText> source;
    std::unique_ptr<pugi::xml_document> tree;

    /// True if the file says that it is of the version that the checks know.
    bool IsOfTheVersion() const { return version == LANDXML_VERSION && nameSpace == LANDXML_NAMESPACE; }

    /// True if the file says that it follows the Japanese standard, which asks for more than LandXML 1.2.
    bool IsOfTheStandard() const
    {
        return PropertyValue(projectFeatures, L"", L"applicationCriterion").starts_with(L"MlitLandXmlVer");
    }
};

/// Visits every alignment of every route, in the file's order.
template <class Visit>
void ForEachAlignment(const LandXmlFile& file, Visit&& visit)
{
    for (const AlignmentGroup& route : file.routes)
    {
        for (const Alignment& alignment : route.alignments)
        {
            visit(alignment);
        }
    }
}

/// Visits every point in the plane that may refer to another by its name, or be referred to: those of alignments'
/// elements, their intersection points and the points of groups. `file` is a LandXmlFile, or a const one.
template <class File, class Visit>
void ForEachPlanPoint(File& file, Visit&& visit)
{
    for (auto& group : file.pointGroups)
    {
        for (auto& point : group.points)
        {
            visit(point.point);
        }
    }
    for (auto& route : file.routes)
    {
        for (auto& alignment : route.alignments)
        {
            for (auto& element : alignment.elements)
            {
                for (auto* const point : {&element.start, &element.center, &element.pi, &element.end})
                {
                    visit(*point);
                }
            }
            for (auto& point : alignment.intersections)
            {
                visit(point);
            }
        }
    }
}

/// Visits the lists of widenings and cross slopes of an alignment with the words for them.
template <class Visit>
void ForEachStationList(const Alignment& alignment, Visit&& visit)
{
    visit(Sentence{L"左拡幅", L"Widening left"}, alignment.wideningLeft);
    visit(Sentence{L"右拡幅", L"Widening right"}, alignment.wideningRight);
    visit(Sentence{L"横断勾配", L"Cross slope"}, alignment.slopes);
}

/// The names in a text of references: one name, which may hold blanks, or several with white space between them.
template <class IsName>
std::vector<std::wstring_view> ReferencedNames(std::wstring_view references, IsName&& isName)
{
    const std::wstring_view whole = Trim(references);
    return isName(whole) ? std::vector{whole} : Words(whole);
}

/// The design profile of a name; null if the alignment has none.
const ProfAlign* FindDesign(const Alignment& alignment, std::wstring_view name);

/// The first design profile that the profAlignRefs of cross sections name; null if they name none that is there.
const ProfAlign* NamedDesign(const Alignment& alignment, const CrossSects& sects);

/// The design profile that cross sections hang on: the first that their profAlignRefs names, or the alignment's first;
/// null if it has none.
const ProfAlign* DesignProfile(const Alignment& alignment, const CrossSects& sects);

/// The same of the first of an alignment's cross sections that name one.
const ProfAlign* DesignProfile(const Alignment& alignment);

} // namespace jlandxml::inspect
