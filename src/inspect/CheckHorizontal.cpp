#include "inspect/CheckHorizontal.h"

#include "base/Numbers.h"
#include "inspect/Angles.h"
#include "inspect/Course.h"
#include "inspect/Names.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_set>
#include <vector>

namespace jlandxml::inspect
{

namespace
{

/// Visits every element with its alignment.
template <class Visit>
void ForEachElement(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (const PlanElement& element : alignment.elements)
        {
            visit(alignment, element);
        }
    });
}

/// Visits every pair of elements that follow one another.
template <class Visit>
void ForEachJoint(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        for (std::size_t index = 1; index < alignment.elements.size(); ++index)
        {
            visit(alignment, alignment.elements[index - 1], alignment.elements[index]);
        }
    });
}

bool IsPlacedCurve(const PlanElement& element)
{
    return element.kind == ElementKind::Curve && element.start.IsPlaced() && element.end.IsPlaced() &&
           element.center.IsPlaced();
}

std::wstring_view Opposite(std::wstring_view rot)
{
    return rot == L"cw" ? L"ccw" : L"cw";
}

double RadiusOf(const PlanElement& curve)
{
    return curve.radius.IsFinite() ? std::abs(curve.radius.value) : Distance(curve.center, curve.start);
}

/// Which elements of an alignment turn to the other side than their `rot` says. Such an element is named once, not by
/// everything that follows from it.
class Rotations
{
  public:
    explicit Rotations(const Alignment& alignment) : elements_(alignment.elements), areWrong_(elements_.size())
    {
        for (std::size_t index = 0; index < elements_.size(); ++index)
        {
            areWrong_[index] = IsWrongByItself(elements_[index]);
        }
        for (std::size_t index = 0; index < elements_.size(); ++index)
        {
            areWrong_[index] = areWrong_[index] || (ShowsByNeighbours(elements_[index]) && IsWrongByNeighbours(index));
        }
    }

    bool IsWrong(std::size_t index) const { return areWrong_[index]; }

  private:
    /// A curve's length tells its sweep from that to the other side: where it fits that one, and not its own. A half
    /// circle's fits both, a wrong length neither.
    static bool IsCurveWrong(const PlanElement& curve)
    {
        if (!IsPlacedCurve(curve) || !curve.length.IsFinite() || Turn(curve.rot) == 0)
        {
            return false;
        }
        const auto fits = [&](std::wstring_view rot) {
            constexpr double NEAR = 0.1; // metres, the second tolerance of a length
            return std::abs(curve.length.value - RadiusOf(curve) * Sweep(curve, rot)) <= NEAR;
        };
        return fits(Opposite(curve.rot)) && !fits(curve.rot);
    }

    static bool IsSpiralWrong(const PlanElement& spiral)
    {
        if (!spiral.start.IsPlaced() || !spiral.pi.IsPlaced() || !spiral.end.IsPlaced())
        {
            return false;
        }
        return SignedAngle(Azimuth(spiral.pi, spiral.end) - Azimuth(spiral.start, spiral.pi)) * Turn(spiral.rot) < 0;
    }

    static bool IsWrongByItself(const PlanElement& element)
    {
        return element.kind == ElementKind::Spiral ? IsSpiralWrong(element) : IsCurveWrong(element);
    }

    /// Of a curve without a length both sweeps may be meant.
    static bool ShowsByNeighbours(const PlanElement& element)
    {
        return IsPlacedCurve(element) && !element.length.IsFinite() && Turn(element.rot) != 0;
    }

    /// The course of a neighbour by which a curve can be judged.
    std::optional<ElementCourse> Neighbour(std::size_t index) const
    {
        if (index >= elements_.size() || IsWrongByItself(elements_[index]) || ShowsByNeighbours(elements_[index]))
        {
            return {};
        }
        ElementCourse course = CourseOf(elements_[index]);
        return course.IsKnown() ? std::optional(std::move(course)) : std::nullopt;
    }

    /// The bends at both ends of a curve with a `rot`.
    double Bends(PlanElement curve, std::wstring_view rot, const std::optional<ElementCourse>& before,
                 const std::optional<ElementCourse>& behind) const
    {
        curve.rot = rot;
        const ElementCourse course = CourseOf(curve);
        double bends = 0;
        if (course.IsKnown() && before)
        {
            bends += std::abs(SignedAngle(course.StartAzimuth() - before->EndAzimuth()));
        }
        if (course.IsKnown() && behind)
        {
            bends += std::abs(SignedAngle(behind->StartAzimuth() - course.EndAzimuth()));
        }
        return bends;
    }

    bool IsWrongByNeighbours(std::size_t index) const
    {
        const PlanElement& curve = elements_[index];
        const std::optional<ElementCourse> before = Neighbour(index - 1);
        const std::optional<ElementCourse> behind = Neighbour(index + 1);
        return Bends(curve, Opposite(curve.rot), before, behind) < Bends(curve, curve.rot, before, behind);
    }

    const std::vector<PlanElement>& elements_;
    std::vector<bool> areWrong_;
};

/// Visits every element whose `rot` is right, or that has none, with its alignment.
template <class Visit>
void ForEachElementOfRightRotation(const LandXmlFile& file, Visit&& visit)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        const Rotations rotations(alignment);
        for (std::size_t index = 0; index < alignment.elements.size(); ++index)
        {
            if (!rotations.IsWrong(index))
            {
                visit(alignment, alignment.elements[index]);
            }
        }
    });
}

constexpr Sentence NO_ELEMENTS{L"要素がない", L"no elements"};

/// A point of an element with the word for it.
struct NamedPoint
{
    const PlanPoint* point;
    const wchar_t* word;
};

/// The main points of an alignment in their order: the start of the first element and the end of each.
std::vector<NamedPoint> MainPoints(const Alignment& alignment)
{
    std::vector<NamedPoint> points;
    for (const PlanElement& element : alignment.elements)
    {
        if (points.empty())
        {
            points.push_back({&element.start, L"始点"});
        }
        points.push_back({&element.end, L"終点"});
    }
    return points;
}

/// The number of the intersection point to which a main point belongs, such as 1 in KA.1-2; 0 without one.
std::int32_t IntersectionNumber(std::wstring_view name)
{
    const std::size_t point = name.find(L'.');
    return point == std::wstring_view::npos ? 0 : ParseInt(name.substr(point + 1)).value;
}

/// The elements of a bend by their letters, and the names of its points by the standard: the start of the first
/// element, where elements join, the end of the last. # is the number of the intersection point. A bend between two
/// lines has no elements. A longer one stands in front of the shorter one with which it begins.
struct BendNames
{
    std::wstring_view letters;
    std::array<std::wstring_view, 6> names;
};
constexpr BendNames BEND_NAMES[] = {
    {L"", {L"IP.#"}},
    {L"C", {L"BC.#", L"EC.#"}},
    {L"CC", {L"BC.#", L"PCC.#", L"EC.#"}},
    {L"SCSCS", {L"KA.#-1", L"KE.#-1", L"KAE.#-1", L"KEE.#-1", L"KE.#-2", L"KA.#-2"}},
    {L"SS", {L"KA.#-1", L"KEA.#", L"KA.#-2"}},
    {L"SCS", {L"KA.#-1", L"KE.#-1", L"KE.#-2", L"KA.#-2"}},
    {L"SC", {L"KA.#-1", L"KE.#-1", L"KE.#-2"}},
};

/// The name of a point of a bend, and where another bend begins there without a line between, its first name.
struct BendPoint
{
    std::wstring_view name;
    std::wstring_view ofNext;

    bool MayBe(std::wstring_view numberless) const { return numberless == name || numberless == ofNext; }
};

/// The points of the elements between two lines: of one bend, or of several with spirals, one behind the other, as in
/// an S. Nothing where the standard has no names for elements in that order.
std::vector<BendPoint> PointsOfBends(std::wstring_view letters)
{
    std::vector<BendPoint> points;
    do
    {
        const auto* const bend = std::find_if(std::begin(BEND_NAMES), std::end(BEND_NAMES), [&](const BendNames& one) {
            const bool mayBeFollowed = one.letters.starts_with(L'S');
            return mayBeFollowed ? letters.starts_with(one.letters) : points.empty() && letters == one.letters;
        });
        if (bend == std::end(BEND_NAMES))
        {
            return {};
        }
        if (!points.empty())
        {
            points.back().ofNext = bend->names.front();
        }
        for (std::size_t index = points.empty() ? 0 : 1; index <= bend->letters.size(); ++index)
        {
            points.push_back({bend->names[index], {}});
        }
        letters.remove_prefix(bend->letters.size());
    } while (!letters.empty());
    return points;
}

/// A name with # for the number of its intersection point.
std::wstring Numberless(std::wstring_view name)
{
    const std::size_t point = std::min(name.find(L'.'), name.size());
    const std::wstring_view digits = name.substr(std::min(point + 1, name.size()));
    const std::size_t end = std::min(digits.find_first_not_of(L"0123456789"), digits.size());
    return end == 0 ? std::wstring(name)
                    : std::wstring(name.substr(0, point + 1)).append(L"#").append(digits.substr(end));
}

/// True for a name in the standard's words; others are a designer's own.
bool IsStandardName(std::wstring_view numberless)
{
    return std::any_of(std::begin(BEND_NAMES), std::end(BEND_NAMES), [&](const BendNames& bend) {
        return std::find(bend.names.begin(), bend.names.end(), numberless) != bend.names.end() && !numberless.empty();
    });
}

wchar_t LetterOf(const PlanElement& element)
{
    constexpr std::wstring_view LETTERS = L"LCSI";
    return LETTERS[static_cast<std::size_t>(element.kind)];
}

/// Holds the names of a bend's points against its elements: `first` is the place among the main points of the bend's
/// first one. A joint with two names has been told already.
void CheckBendNames(const Alignment& alignment, const std::wstring& letters, std::size_t first, Findings& findings)
{
    const std::vector<BendPoint> points = PointsOfBends(letters);
    const std::vector<PlanElement>& elements = alignment.elements;
    for (std::size_t index = 0; index < points.size(); ++index)
    {
        const std::size_t place = first + index;
        const PlanPoint& point = place < elements.size() ? elements[place].start : elements[place - 1].end;
        const bool isJoined = place == 0 || place == elements.size() || elements[place - 1].end.name == point.name;
        const std::wstring name = Numberless(point.name);
        if (isJoined && IsStandardName(name) && !points[index].MayBe(name))
        {
            std::wstring expected(points[index].name);
            expected.replace(expected.find(L'#'), 1, std::to_wstring(IntersectionNumber(point.name)));
            findings.Report(Path(NameOf(alignment), point.name), point,
                            {{L"要素の並びからは{}", L"by the elements {}"}, {expected}});
        }
    }
}

/// The names of an alignment's ends, and the words for where they belong.
constexpr std::wstring_view START_NAME = L"BP";
constexpr std::wstring_view END_NAME = L"EP";
constexpr Sentence BP_IS_START{L"BPは線形の始点の名称", L"BP is the name of an alignment's start"};
constexpr Sentence EP_IS_END{L"EPは線形の終点の名称", L"EP is the name of an alignment's end"};

/// Says of the names of an alignment's ends that they stand elsewhere. One that stands at its end too is told as a name
/// of two points.
void CheckEndNames(const Alignment& alignment, const std::vector<NamedPoint>& points, Findings& findings)
{
    for (const NamedPoint& one : points)
    {
        const std::wstring_view name = one.point->name;
        const bool isStart = name == START_NAME;
        const NamedPoint& own = isStart ? points.front() : points.back();
        if ((isStart || name == END_NAME) && own.point->name != name)
        {
            findings.Report(Path(NameOf(alignment), name), *one.point, isStart ? BP_IS_START : EP_IS_END);
        }
    }
}

/// Visits every bend of an alignment: the letters of the elements between two lines, and the place of its first point.
template <class Visit>
void ForEachBend(const Alignment& alignment, Visit&& visit)
{
    std::wstring letters;
    std::size_t first = 0;
    for (std::size_t index = 0; index <= alignment.elements.size(); ++index)
    {
        const bool isEnd = index == alignment.elements.size();
        const wchar_t letter = isEnd ? L'L' : LetterOf(alignment.elements[index]);
        if (letter != L'L')
        {
            letters += letter;
            continue;
        }
        // At an end of the alignment a line alone is no bend.
        if (!letters.empty() || (index > 0 && !isEnd))
        {
            visit(letters, first);
        }
        letters.clear();
        first = index + 1;
    }
}

} // namespace

void CheckCoordinates(const LandXmlFile& file, Findings& findings)
{
    ForEachElement(file, [&](const Alignment& alignment, const PlanElement& element) {
        const NamedPoint points[] = {
            {&element.start, L"Start"}, {&element.end, L"End"}, {&element.center, L"Center"}, {&element.pi, L"PI"}};
        for (const NamedPoint& one : points)
        {
            const bool isNeeded = one.point == &element.center ? element.kind == ElementKind::Curve
                                  : one.point == &element.pi   ? element.kind == ElementKind::Spiral
                                                               : true;
            if (isNeeded && !one.point->IsPlaced())
            {
                findings.Report(NameOf(alignment, element), std::max<SourcePlace>(element, *one.point), one.word);
            }
        }
    });
}

void CheckJoints(const LandXmlFile& file, Findings& findings)
{
    ForEachJoint(file, [&](const Alignment& alignment, const PlanElement& before, const PlanElement& behind) {
        if (before.end.IsPlaced() && behind.start.IsPlaced())
        {
            findings.MeasureGap(NameOf(alignment, before), before.end, Distance(before.end, behind.start));
        }
    });
}

void CheckPathEnds(const LandXmlFile& file, Findings& findings)
{
    ForEachElement(file, [&](const Alignment& alignment, const PlanElement& element) {
        if (!HasPlace(element.path))
        {
            return;
        }
        const auto measure = [&](const PlanPoint& point, const wchar_t* word, const PairList& list,
                                 const FigurePair& end) {
            findings.MeasureGap(NameOf(alignment, element), list,
                                Distance(point.north.value, point.east.value, end.first.value, end.second.value), word);
        };
        const auto isFilled = [](const PairList& list) { return !list.pairs.empty(); };
        const auto first = std::find_if(element.path.begin(), element.path.end(), isFilled);
        const auto last = std::find_if(element.path.rbegin(), element.path.rend(), isFilled);
        measure(element.start, L"Start", *first, first->pairs.front());
        measure(element.end, L"End", *last, last->pairs.back());
    });
}

void CheckElementLengths(const LandXmlFile& file, Findings& findings)
{
    ForEachElementOfRightRotation(file, [&](const Alignment& alignment, const PlanElement& element) {
        // A spiral has no length but the one it is given; whether that is right shows at its end.
        if (element.kind == ElementKind::Spiral || !element.length.IsFinite())
        {
            return;
        }
        // A line from a point to itself has no course, but a length: none.
        const bool isPlacedLine =
            element.kind == ElementKind::Line && element.start.IsPlaced() && element.end.IsPlaced();
        const ElementCourse course = CourseOf(element);
        if (course.IsKnown() || isPlacedLine)
        {
            findings.Measure(NameOf(alignment, element), element, element.length, course.computedLength);
        }
    });
}

void CheckRadii(const LandXmlFile& file, Findings& findings)
{
    ForEachElement(file, [&](const Alignment& alignment, const PlanElement& element) {
        if (IsPlacedCurve(element))
        {
            const Figure radius{element.radius.IsFinite() ? element.radius.text : std::wstring_view(),
                                RadiusOf(element)};
            findings.Measure(NameOf(alignment, element), element, radius, Distance(element.start, element.center),
                             {{L"始点まで", L"to the start"}, {}});
            findings.Measure(NameOf(alignment, element), element, radius, Distance(element.end, element.center),
                             {{L"終点まで", L"to the end"}, {}});
        }
    });
}

void CheckDirections(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        const Rotations rotations(alignment);
        for (std::size_t index = 1; index < alignment.elements.size(); ++index)
        {
            const PlanElement& before = alignment.elements[index - 1];
            const PlanElement& behind = alignment.elements[index];
            const ElementCourse from = CourseOf(before);
            const ElementCourse to = CourseOf(behind);
            if (from.IsKnown() && to.IsKnown() && !rotations.IsWrong(index - 1) && !rotations.IsWrong(index))
            {
                findings.MeasureGap(NameOf(alignment, before), before.end,
                                    std::abs(SignedAngle(to.StartAzimuth() - from.EndAzimuth())),
                                    {{L"次は{}", L"next: {}"}, {KindOf(behind)}},
                                    alignment.isRiver ? Severity::Information : Severity::Error);
            }
        }
    });
}

void CheckClothoidParameters(const LandXmlFile& file, Findings& findings)
{
    ForEachElement(file, [&](const Alignment& alignment, const PlanElement& element) {
        const double change = std::abs(CurvatureOf(element.radiusStart) - CurvatureOf(element.radiusEnd));
        if (element.IsClothoid() && element.parameter.IsFinite() && element.length.IsFinite() && change > 0)
        {
            findings.MeasureRatio(NameOf(alignment, element), element, element.parameter,
                                  std::sqrt(element.length.value / change));
        }
    });
}

void CheckClothoidEnds(const LandXmlFile& file, Findings& findings)
{
    ForEachElementOfRightRotation(file, [&](const Alignment& alignment, const PlanElement& element) {
        if (!element.IsClothoid() || !element.end.IsPlaced())
        {
            return;
        }
        const ElementCourse course = CourseOf(element);
        if (course.IsKnown())
        {
            const Position end = course.stretches.front().End();
            findings.MeasureGap(NameOf(alignment, element), element.end,
                                Distance(end.north, end.east, element.end.north.value, element.end.east.value),
                                {{L"計算 {} {}", L"computed {} {}"}, {ShortNumber(end.north), ShortNumber(end.east)}});
        }
    });
}

void CheckRotations(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        const Rotations rotations(alignment);
        for (std::size_t index = 0; index < alignment.elements.size(); ++index)
        {
            const PlanElement& element = alignment.elements[index];
            const bool isBent = element.kind == ElementKind::Curve || element.kind == ElementKind::Spiral;
            if (isBent && (Turn(element.rot) == 0 || rotations.IsWrong(index)))
            {
                findings.Report(NameOf(alignment, element), element, L"rot=" + std::wstring(element.rot));
            }
        }
    });
}

void CheckAlignmentLengths(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        // Other files may describe one by its intersections or by its profile alone.
        if (alignment.elements.empty() && !file.IsOfTheStandard())
        {
            return;
        }
        const Course course(alignment);
        findings.Measure(NameOf(alignment), alignment, alignment.length, course.StaEnd() - course.StaStart(),
                         alignment.elements.empty() ? Detail(NO_ELEMENTS) : Detail());
    });
}

void CheckPointNamesThere(const LandXmlFile& file, Findings& findings)
{
    ForEachElement(file, [&](const Alignment& alignment, const PlanElement& element) {
        const NamedPoint points[] = {{&element.start, L"Start"}, {&element.end, L"End"}};
        for (const NamedPoint& one : points)
        {
            if (one.point->IsWritten() && one.point->name.empty())
            {
                findings.Report(NameOf(alignment, element), *one.point, one.word);
            }
        }
    });
}

void CheckPointNamesUnique(const LandXmlFile& file, Findings& findings)
{
    ForEachAlignment(file, [&](const Alignment& alignment) {
        std::unordered_set<std::wstring_view> names;
        for (const NamedPoint& one : MainPoints(alignment))
        {
            if (!one.point->name.empty() && !names.insert(one.point->name).second)
            {
                findings.Report(Path(NameOf(alignment), one.point->name), *one.point);
            }
        }
    });
}

void CheckPointNamesInOrder(const LandXmlFile& file, Findings& findings)
{
    ForEachJoint(file, [&](const Alignment& alignment, const PlanElement& before, const PlanElement& behind) {
        if (before.end.name != behind.start.name)
        {
            findings.Report(NameOf(alignment, before), before.end,
                            {{L"{}の次が{}", L"{} is followed by {}"}, {before.end.name, behind.start.name}});
        }
    });
    ForEachAlignment(file, [&](const Alignment& alignment) {
        std::int32_t highest = 0;
        const std::vector<NamedPoint> points = MainPoints(alignment);
        CheckEndNames(alignment, points, findings);
        for (const NamedPoint& one : points)
        {
            // A designer's own names have an order of their own.
            const bool isStandard = IsStandardName(Numberless(one.point->name));
            const std::int32_t number = isStandard ? IntersectionNumber(one.point->name) : 0;
            if (number > 0 && number < highest)
            {
                findings.Report(Path(NameOf(alignment), one.point->name), *one.point,
                                {{L"番号が{}の後", L"behind number {}"}, {std::to_wstring(highest)}},
                                {static_cast<double>(number), static_cast<double>(highest), {}});
            }
            highest = std::max(highest, number);
        }
        ForEachBend(alignment, [&](const std::wstring& letters, std::size_t first) {
            CheckBendNames(alignment, letters, first, findings);
        });
    });
}

} // namespace jlandxml::inspect
