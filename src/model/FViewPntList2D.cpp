#include "model/FViewPntList2D.h"

#include "model/NumberText.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace jlandxml
{

namespace
{

constexpr int POINT_DIGITS = 12;
constexpr wchar_t SEPARATOR = L' ';

bool IsSet(const PiGmPoint& point)
{
    return point.x != UNSET_DOUBLE && point.y != UNSET_DOUBLE;
}

bool Repeats(const PiGmPoint& point, const PiGmPoint& last)
{
    return IsSet(last) && std::fabs(point.x - last.x) < GEOMETRY_TOLERANCE &&
           std::fabs(point.y - last.y) < GEOMETRY_TOLERANCE;
}

} // namespace

void FViewPntList2D::Clear()
{
    points.clear();
}

bool FViewPntList2D::ReadElement(const WcXmNode& node)
{
    Clear();
    const NumberPlace place(node);
    const std::wstring_view left = ParsePointList(node.GetTextContent(), points);
    if (!left.empty())
    {
        WarnOfElement(WarningCause::OddNumberCount, node, [&] { return L"「" + std::wstring(left) + L"」"; });
    }
    return true;
}

bool FViewPntList2D::WriteElement(const WcXmNode& node)
{
    std::wstring text;
    PiGmPoint last;
    std::size_t differing = 0; // of those that are left out
    for (const PiGmPoint& point : points)
    {
        if (Repeats(point, last))
        {
            differing += point.x != last.x || point.y != last.y ? 1 : 0;
            continue;
        }
        if (!text.empty())
        {
            text += SEPARATOR;
        }
        AppendNumberText(text, point.x, POINT_DIGITS);
        text += SEPARATOR;
        AppendNumberText(text, point.y, POINT_DIGITS);
        last = point;
    }
    if (differing > 0)
    {
        WarnOfElement(WarningCause::NearPointLeftOut, node, [&] { return std::to_wstring(differing) + L"点"; });
    }
    WcXmNode element = node;
    node.AppendChildElement(GetElementName(), &element);
    element.SetTextContent(text);
    return true;
}

std::wstring_view ParsePointList(std::wstring_view text, PiCmList<PiGmPoint>& points)
{
    // Blanks in a row give empty parts, and an empty part leaves its place to the next.
    std::wstring_view first;
    while (!text.empty())
    {
        const std::size_t blank = std::min(text.find(SEPARATOR), text.size());
        const std::wstring_view part = text.substr(0, blank);
        text.remove_prefix(std::min(blank + 1, text.size()));
        if (part.empty())
        {
            continue;
        }
        if (first.empty())
        {
            first = part;
            continue;
        }
        points.emplace_back(ReadNumber(first), ReadNumber(part));
        first = {};
    }
    return first;
}

} // namespace jlandxml
