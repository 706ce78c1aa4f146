#include "model/FViewCoordGeom.h"

#include "base/Text.h"
#include "model/FViewFeature.h"
#include "model/NumberText.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* START = L"Start";
constexpr const wchar_t* END = L"End";
constexpr const wchar_t* PI = L"PI";
constexpr const wchar_t* RADIUS = L"radius";
constexpr const wchar_t* RADIUS_START = L"radiusStart";
constexpr const wchar_t* RADIUS_END = L"radiusEnd";
constexpr const wchar_t* LENGTH = L"length";
constexpr const wchar_t* CLOTHOID_PARAMETER = L"A";

/// What the parameter of a clothoid comes from.
constexpr std::array<const wchar_t*, 3> SPIRAL_MEASURES = {LENGTH, RADIUS_START, RADIUS_END};

/// The beginning and the end of the route, by their names on Japanese drawings.
constexpr const wchar_t* BEGIN_OF_PROJECT = L"BP";
constexpr const wchar_t* END_OF_PROJECT = L"EP";
constexpr const wchar_t* SPIRAL_PI = L"IP";

constexpr int RADIUS_DIGITS = 8;
constexpr int PARAMETER_DIGITS = 6;

struct ElementType
{
    std::wstring_view name;
    wchar_t letter;
};

/// By the value of `type`: L, C, S for Line, Curve, Spiral.
constexpr std::array<ElementType, 3> ELEMENT_TYPES = {{{L"Line", L'L'}, {L"Curve", L'C'}, {L"Spiral", L'S'}}};
constexpr wchar_t OTHER_LETTER = L'-';

/// A curve around an intersection point by the elements it is made of, and the names of its points: the start of the
/// first element, the points that two elements share, the end of the last. %d is the number of the intersection point.
struct CurvePattern
{
    std::wstring_view letters;
    std::int32_t kind;
    std::array<const wchar_t*, 6> names;
};

constexpr std::int32_t NOT_RECOGNISED = -1;
constexpr std::int32_t BEND = 0;

/// Tried in this order; the first pattern that fits wins. BC, EC: beginning and end of a circular curve; KA, KE:
/// beginning and end of a clothoid, seen from its straight; KEA, KAE, KEE: where clothoids or their curves meet; PCC:
/// where the radius of a compound curve changes.
constexpr std::array<CurvePattern, 7> CURVE_PATTERNS = {{
    {L"SCSCS", 5, {L"KA.%d-1", L"KE.%d-1", L"KAE.%d-1", L"KEE.%d-1", L"KE.%d-2", L"KA.%d-2"}},
    {L"SS", 4, {L"KA.%d-1", L"KEA.%d", L"KA.%d-2"}},
    {L"SCS", 2, {L"KA.%d-1", L"KE.%d-1", L"KE.%d-2", L"KA.%d-2"}},
    {L"SC", 3, {L"KA.%d-1", L"KE.%d-1", L"KE.%d-2"}},
    {L"CC", 6, {L"BC.%d", L"PCC.%d", L"EC.%d"}},
    {L"C", 1, {L"BC.%d", L"EC.%d"}},
    {L"L", BEND, {nullptr, L"IP.%d"}},
}};

bool IsKnownType(const FViewCoordGeomElement& element)
{
    return element.type >= 0 && static_cast<std::size_t>(element.type) < ELEMENT_TYPES.size();
}

wchar_t LetterOf(const FViewCoordGeomElement& element)
{
    return IsKnownType(element) ? ELEMENT_TYPES[static_cast<std::size_t>(element.type)].letter : OTHER_LETTER;
}

bool Fits(std::span<const FViewCoordGeomElement> elements, std::wstring_view letters)
{
    return elements.size() >= letters.size() &&
           std::equal(letters.begin(), letters.end(), elements.begin(),
                      [](wchar_t letter, const FViewCoordGeomElement& element) { return letter == LetterOf(element); });
}

/// The first pattern that the elements begin with; null if none does.
const CurvePattern* PatternAt(std::span<const FViewCoordGeomElement> elements)
{
    const auto* const hit = std::find_if(CURVE_PATTERNS.begin(), CURVE_PATTERNS.end(),
                                         [&](const CurvePattern& pattern) { return Fits(elements, pattern.letters); });
    return hit == CURVE_PATTERNS.end() ? nullptr : hit;
}

/// True if a line is followed by a curve: then the line only leads to the curve.
bool LeadsToCurve(std::span<const FViewCoordGeomElement> elements)
{
    const CurvePattern* const behind = LetterOf(elements.front()) == L'L' ? PatternAt(elements.subspan(1)) : nullptr;
    return behind != nullptr && behind->kind != BEND;
}

std::int32_t TypeOf(std::wstring_view name)
{
    const auto* const hit = std::find_if(ELEMENT_TYPES.begin(), ELEMENT_TYPES.end(),
                                         [&](const ElementType& type) { return type.name == name; });
    return hit == ELEMENT_TYPES.end() ? FViewCoordGeomElement::OTHER
                                      : static_cast<std::int32_t>(hit - ELEMENT_TYPES.begin());
}

/// A radius or a parameter: all decimals, but only the point where the number is the one that means "not given".
std::wstring MetresText(double value, int digits)
{
    return value == UNSET_DOUBLE ? L"." : ClosedFixedText(value, digits);
}

void FormatRadius(const WcXmNode& node, const wchar_t* name)
{
    const auto text = node.FindAttribute(name);
    if (text && IsNumericText(*text))
    {
        node.SetAttribute(name, MetresText(ReadNumber(*text), RADIUS_DIGITS));
    }
}

/// The square of the clothoid parameter, from A² = L·R; nothing where both ends are straight. The radius of a straight
/// end is given as INF or 0. An egg clothoid has no straight end: it is the piece of a whole clothoid between two
/// curvatures, so that L / A² = |1/R2 - 1/R1|.
std::optional<double> SquareOfParameter(double length, double radiusStart, double radiusEnd)
{
    const bool fromStraight = std::fabs(radiusStart) < GEOMETRY_TOLERANCE;
    const bool toStraight = std::fabs(radiusEnd) < GEOMETRY_TOLERANCE;
    if (fromStraight && toStraight)
    {
        return std::nullopt;
    }
    if (fromStraight)
    {
        return length * radiusEnd;
    }
    if (toStraight)
    {
        return length * radiusStart;
    }
    return radiusStart * std::fabs(length * radiusEnd / (radiusStart - radiusEnd));
}

} // namespace

void FViewCoordGeomElement::Clear()
{
    type = OTHER;
    startName.clear();
    endName.clear();
    piName.clear();
}

void FViewIPElements::Clear()
{
    kind = NOT_RECOGNISED;
    elements.clear();
}

void FViewIPElements::CollectElements(std::span<FViewCoordGeomElement>& rest)
{
    Clear();
    if (rest.empty())
    {
        return;
    }
    const std::span<FViewCoordGeomElement> group = rest.subspan(LeadsToCurve(rest) ? 1 : 0);
    const CurvePattern* const pattern = PatternAt(group);
    kind = pattern != nullptr ? pattern->kind : NOT_RECOGNISED;
    const std::size_t count = pattern != nullptr ? pattern->letters.size() : 1;
    for (FViewCoordGeomElement& element : group.first(count))
    {
        elements.push_back(&element);
    }
    rest = group.subspan(count);
}

void FViewIPElements::AssignPointNames(int number) const
{
    const auto* const pattern = std::find_if(CURVE_PATTERNS.begin(), CURVE_PATTERNS.end(),
                                             [this](const CurvePattern& row) { return row.kind == kind; });
    if (pattern == CURVE_PATTERNS.end())
    {
        return;
    }
    const std::size_t points = std::min(elements.size() + 1, pattern->names.size());
    for (std::size_t point = 0; point < points; ++point)
    {
        if (pattern->names[point] == nullptr)
        {
            continue;
        }
        const CompactText name = ReplaceAll(pattern->names[point], L"%d", std::to_wstring(number));
        if (point > 0)
        {
            elements[point - 1]->endName = name;
        }
        if (point < elements.size())
        {
            elements[point]->startName = name;
        }
    }
}

void FViewCoordGeom::Clear()
{
    elements.clear();
}

bool FViewCoordGeom::ReadElement(const WcXmNode& node)
{
    Clear();
    WcXmNode child = node;
    for (bool more = child.MoveToFirstChild(); more; more = child.MoveToNextSibling())
    {
        FViewCoordGeomElement& element = elements.emplace_back();
        element.type = TypeOf(child.NodeName());
        if (element.type != FViewCoordGeomElement::OTHER)
        {
            element.startName = ReadPointName(child, START);
            element.endName = ReadPointName(child, END);
        }
        if (element.type == FViewCoordGeomElement::SPIRAL)
        {
            element.piName = ReadPointName(child, PI);
        }
    }
    // Names that the designer has given are kept as they are, gaps included.
    if (!HasName())
    {
        NamePoints();
    }
    return true;
}

bool FViewCoordGeom::HasName() const
{
    return std::any_of(elements.begin(), elements.end(), [](const FViewCoordGeomElement& element) {
        return !element.startName.empty() || !element.endName.empty() || !element.piName.empty();
    });
}

void FViewCoordGeom::NamePoints()
{
    if (elements.empty())
    {
        return;
    }
    std::span<FViewCoordGeomElement> rest(elements);
    for (int number = 1; !rest.empty(); ++number)
    {
        FViewIPElements group;
        group.CollectElements(rest);
        group.AssignPointNames(number);
    }
    elements.front().startName = BEGIN_OF_PROJECT;
    elements.back().endName = END_OF_PROJECT;
    NameLineEnds();
    for (std::size_t index = 0; index < elements.size(); ++index)
    {
        FViewCoordGeomElement& element = elements[index];
        const bool curved =
            element.type == FViewCoordGeomElement::CURVE || element.type == FViewCoordGeomElement::SPIRAL;
        if (curved && index + 1 < elements.size())
        {
            element.endName = elements[index + 1].startName;
        }
        if (element.type == FViewCoordGeomElement::SPIRAL)
        {
            element.piName = SPIRAL_PI;
        }
    }
}

void FViewCoordGeom::NameLineEnds()
{
    CompactText previous;
    for (std::size_t index = 0; index < elements.size(); ++index)
    {
        FViewCoordGeomElement& element = elements[index];
        const bool isLine = element.type == FViewCoordGeomElement::LINE;
        if (isLine && element.startName.empty())
        {
            element.startName = previous;
        }
        if (isLine && element.endName.empty()) // the last one has its name
        {
            element.endName = elements[index + 1].startName;
        }
        previous = element.endName;
    }
}

bool FViewCoordGeom::WriteElement(const WcXmNode& node)
{
    WcXmNode child = node;
    bool more = child.MoveToFirstChild();
    for (auto element = elements.begin(); more && element != elements.end();
         ++element, more = child.MoveToNextSibling())
    {
        if (!IsKnownType(*element))
        {
            continue;
        }
        if (element->type == FViewCoordGeomElement::CURVE)
        {
            FormatRadiusAttribute(child);
        }
        if (element->type == FViewCoordGeomElement::SPIRAL)
        {
            FormatSpiralRadiusAttributes(child);
        }
        WritePointName(child, START, element->startName);
        WritePointName(child, END, element->endName);
        if (element->type == FViewCoordGeomElement::SPIRAL)
        {
            WritePointName(child, PI, element->piName);
            WriteClothoidParameter(child);
        }
    }
    return true;
}

CompactText ReadPointName(const WcXmNode& node, const wchar_t* childName)
{
    WcXmNode point = node;
    return point.SelectFirstChild(childName) ? point.FindAttribute(attribute_name::NAME).value_or(std::wstring_view())
                                             : std::wstring_view();
}

void WritePointName(const WcXmNode& node, const wchar_t* childName, const CompactText& text)
{
    WcXmNode point = node;
    if (!text.empty() && point.SelectFirstChild(childName))
    {
        WriteTextAttribute(point, attribute_name::NAME, text.Wide());
    }
}

void FormatRadiusAttribute(const WcXmNode& node)
{
    FormatRadius(node, RADIUS);
}

void FormatSpiralRadiusAttributes(const WcXmNode& node)
{
    FormatRadius(node, RADIUS_START);
    FormatRadius(node, RADIUS_END);
}

void WriteClothoidParameter(const WcXmNode& node)
{
    FViewFeature feature;
    ReadFirstChildInAnyCase(node, feature);
    const bool given = std::any_of(feature.properties.begin(), feature.properties.end(),
                                   [](const FViewProperty& property) { return property.label == CLOTHOID_PARAMETER; });
    if (given)
    {
        return;
    }
    const NumberPlace place(node);
    std::array<double, SPIRAL_MEASURES.size()> measures{};
    for (std::size_t measure = 0; measure < measures.size(); ++measure)
    {
        if (!ReadNumberAttribute(node, SPIRAL_MEASURES[measure], measures[measure]))
        {
            WarnOfElement(WarningCause::ClothoidParameterLeftOut, node,
                          [&] { return std::wstring(SPIRAL_MEASURES[measure]) + L"がありません"; });
            return;
        }
    }
    const std::optional<double> square = SquareOfParameter(measures[0], measures[1], measures[2]);
    if (!square)
    {
        WarnOfElement(WarningCause::ClothoidParameterLeftOut, node,
                      [] { return std::wstring(L"両端とも半径がありません"); });
        return;
    }
    if (!std::isfinite(*square) || *square < 0.0)
    {
        WarnOfElement(WarningCause::ClothoidParameterLeftOut, node,
                      [&] { return L"「" + MetresText(std::sqrt(*square), PARAMETER_DIGITS) + L"」と出力します"; });
    }
    feature.properties.emplace_back(CLOTHOID_PARAMETER, MetresText(std::sqrt(*square), PARAMETER_DIGITS));
    feature.WriteElement(node);
}

} // namespace jlandxml
