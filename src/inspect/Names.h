#pragma once

#include "inspect/LandXmlFile.h"
#include "inspect/Wording.h"

#include <string>
#include <string_view>

namespace jlandxml::inspect
{

/// Parts of a name, from the whole to the part: 線形1／クロソイド KA.1-1～KE.1-1.
Detail Path(const Detail& whole, const Detail& part);

/// A name, or a word for an element that has none.
std::wstring NameOr(std::wstring_view name, std::wstring_view otherwise);
Detail NameOr(std::wstring_view name, const Sentence& otherwise);

/// What an alignment without a name is called.
inline constexpr Sentence UNNAMED_ALIGNMENT{L"（名称のない線形）", L"(alignment without a name)"};

Detail NameOf(const Alignment& alignment);
Detail NameOf(const PointGroup& group);
Detail NameOf(const CgPoint& point);
Detail NameOf(const Surface& surface);
Detail NameOf(const CrossSect& section);
Detail NameOf(const StaEquation& equation);
Detail NameOf(const ProfAlign& design);
std::wstring NameOf(const ProfileElement& element);
Detail NameOf(const ProfSurf& ground);
Detail NameOf(const Superelevation& superelevation);

std::wstring NameOf(const CrossSectPnt& point);

/// A point where an alignment's tangents meet: PI IP.1.
std::wstring IntersectionName(const PlanPoint& point);

/// A point of a surface by its number: 現況地形／点 3.
Detail NameOf(const Surface& surface, const SurfacePoint& point);

/// What kind an element is: 直線, 円曲線, クロソイド, 緩和曲線, 折れ線.
const Sentence& KindOf(const PlanElement& element);

/// An element of an alignment by its kind and the names of its ends, or by its place where these have none.
Detail NameOf(const Alignment& alignment, const PlanElement& element);

} // namespace jlandxml::inspect
