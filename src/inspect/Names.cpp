#include "inspect/Names.h"

namespace jlandxml::inspect
{

namespace
{

constexpr Sentence KIND_NAMES[] = {
    {L"直線", L"Line"}, {L"円曲線", L"Curve"}, {L"緩和曲線", L"Spiral"}, {L"折れ線", L"Irregular line"}};
constexpr Sentence CLOTHOID_NAME{L"クロソイド", L"Clothoid"};

} // namespace

Detail Path(const Detail& whole, const Detail& part)
{
    return whole + L"／" + part;
}

std::wstring NameOr(std::wstring_view name, std::wstring_view otherwise)
{
    return std::wstring(name.empty() ? otherwise : name);
}

Detail NameOr(std::wstring_view name, const Sentence& otherwise)
{
    return name.empty() ? Detail(otherwise) : Detail(name);
}

Detail NameOf(const Alignment& alignment)
{
    return NameOr(alignment.name, UNNAMED_ALIGNMENT);
}

Detail NameOf(const PointGroup& group)
{
    return NameOr(group.name, Sentence{L"（名称のない座標点の組）", L"(group of points without a name)"});
}

Detail NameOf(const CgPoint& point)
{
    return NameOr(point.point.name, Sentence{L"（名称のない点）", L"(point without a name)"});
}

Detail NameOf(const Surface& surface)
{
    return NameOr(surface.name, Sentence{L"（名称のないサーフェス）", L"(surface without a name)"});
}

Detail NameOf(const Surface& surface, const SurfacePoint& point)
{
    return Path(NameOf(surface), {{L"点 {}", L"Point {}"}, {std::to_wstring(point.id)}});
}

Detail NameOf(const CrossSect& section)
{
    return {{L"横断面 {}", L"Cross section {}"}, {NameOr(section.name, section.station.text)}};
}

Detail NameOf(const StaEquation& equation)
{
    return {{L"測点定義 {}", L"Station equation {}"}, {equation.internal.text}};
}

Detail NameOf(const ProfAlign& design)
{
    return {{L"縦断線形 {}", L"Profile {}"}, {NameOr(design.name, Sentence{L"（名称なし）", L"(no name)"})}};
}

std::wstring NameOf(const ProfileElement& element)
{
    return std::wstring(element.kind) + L" " + std::wstring(element.station.text);
}

Detail NameOf(const ProfSurf& ground)
{
    return {{L"縦断地盤線 {}", L"Ground line {}"}, {ground.name}};
}

Detail NameOf(const Superelevation& superelevation)
{
    return {{L"片勾配すりつけ {}", L"Superelevation {}"}, {superelevation.staStart.text}};
}

std::wstring NameOf(const CrossSectPnt& point)
{
    return L"CrossSectPnt " + std::wstring(point.code);
}

std::wstring IntersectionName(const PlanPoint& point)
{
    return L"PI " + std::wstring(point.name);
}

const Sentence& KindOf(const PlanElement& element)
{
    return element.IsClothoid() ? CLOTHOID_NAME : KIND_NAMES[static_cast<std::size_t>(element.kind)];
}

Detail NameOf(const Alignment& alignment, const PlanElement& element)
{
    const bool isNamed = !element.start.name.empty() || !element.end.name.empty();
    const std::wstring place = std::to_wstring(&element - alignment.elements.data() + 1);
    return Path(NameOf(alignment),
                isNamed ? Detail({L"{} {}～{}", L"{} {}～{}"}, {KindOf(element), element.start.name, element.end.name})
                        : Detail({L"{} {}番目", L"{}, number {}"}, {KindOf(element), place}));
}

} // namespace jlandxml::inspect
