#pragma once

#include "inspect/LandXmlFile.h"

#include <string>
#include <string_view>

namespace jlandxml::inspect
{

/// Parts of a name, from the whole to the part: 線形1／クロソイド KA.1-1～KE.1-1.
std::wstring Path(std::wstring_view whole, std::wstring_view part);

/// A name, or a word for an element that has none.
std::wstring NameOr(std::wstring_view name, std::wstring_view otherwise);

std::wstring NameOf(const Alignment& alignment);
std::wstring NameOf(const PointGroup& group);
std::wstring NameOf(const CgPoint& point);
std::wstring NameOf(const Surface& surface);
std::wstring NameOf(const CrossSect& section);

/// What kind an element is: 直線, 円曲線, クロソイド, 緩和曲線, 折れ線.
const wchar_t* KindOf(const PlanElement& element);

/// An element of an alignment by its kind and the names of its ends, or by its place where these have none.
std::wstring NameOf(const Alignment& alignment, const PlanElement& element);

} // namespace jlandxml::inspect
