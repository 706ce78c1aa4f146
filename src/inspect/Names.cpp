#include "inspect/Names.h"

namespace jlandxml::inspect
{

namespace
{

constexpr const wchar_t* KINDS[] = {L"直線", L"円曲線", L"緩和曲線", L"折れ線"};

} // namespace

std::wstring Path(std::wstring_view whole, std::wstring_view part)
{
    return std::wstring(whole) + L"／" + std::wstring(part);
}

std::wstring NameOr(std::wstring_view name, std::wstring_view otherwise)
{
    return std::wstring(name.empty() ? otherwise : name);
}

std::wstring NameOf(const Alignment& alignment)
{
    return NameOr(alignment.name, L"（名称のない線形）");
}

std::wstring NameOf(const PointGroup& group)
{
    return NameOr(group.name, L"（名称のない座標点の組）");
}

std::wstring NameOf(const CgPoint& point)
{
    return NameOr(point.point.name, L"（名称のない点）");
}

std::wstring NameOf(const Surface& surface)
{
    return NameOr(surface.name, L"（名称のないサーフェス）");
}

std::wstring NameOf(const CrossSect& section)
{
    return L"横断面 " + NameOr(section.name, section.station.text);
}

const wchar_t* KindOf(const PlanElement& element)
{
    const bool isClothoid = element.kind == ElementKind::Spiral && element.spiralType == L"clothoid";
    return isClothoid ? L"クロソイド" : KINDS[static_cast<std::size_t>(element.kind)];
}

std::wstring NameOf(const Alignment& alignment, const PlanElement& element)
{
    std::wstring name = KindOf(element);
    if (!element.start.name.empty() || !element.end.name.empty())
    {
        name.append(L" ").append(element.start.name).append(L"～").append(element.end.name);
    }
    else
    {
        name += L" " + std::to_wstring(&element - alignment.elements.data() + 1) + L"番目";
    }
    return Path(NameOf(alignment), name);
}

} // namespace jlandxml::inspect
