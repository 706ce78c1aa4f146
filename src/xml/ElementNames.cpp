#include "xml/ElementNames.h"

#include "base/Text.h"
#include "xml/WcXmDocument.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace jlandxml
{

namespace
{

struct ElementWord
{
    std::wstring_view element;
    std::wstring_view word; ///< empty: one that stands alone needs no word
};

/// What the elements are called on Japanese drawings and in the standard's own text.
constexpr ElementWord WORDS[] = {
    {L"LandXML", L""},
    {L"Project", L"プロジェクト"},
    {L"Units", L"単位"},
    {L"CoordinateSystem", L"座標参照系"},
    {L"Alignments", L"路線"},
    {L"Alignment", L"線形"},
    {L"StaEquation", L"測点不連続"},
    {L"CoordGeom", L"平面線形"},
    {L"Line", L"直線"},
    {L"Curve", L"円曲線"},
    {L"Spiral", L"クロソイド"},
    {L"Start", L"始点"},
    {L"End", L"終点"},
    {L"Center", L"中心点"},
    {L"PI", L"交点"},
    {L"Profile", L"縦断"},
    {L"ProfAlign", L"縦断線形"},
    {L"ProfSurf", L"縦断地盤線"},
    {L"PVI", L"縦断変化点"},
    {L"ParaCurve", L"縦断曲線"},
    {L"CrossSects", L"横断"},
    {L"CrossSect", L"横断面"},
    {L"CrossSectSurf", L"横断地盤線"},
    {L"DesignCrossSectSurf", L"横断構成"},
    {L"CrossSectPnt", L"構成点"},
    {L"Superelevation", L"片勾配"},
    {L"CgPoints", L"座標点グループ"},
    {L"CgPoint", L"座標点"},
    {L"Surfaces", L"サーフェスの組"},
    {L"Surface", L"サーフェス"},
};

/// Elements that stand for the whole of what lies in them: without a name of their own they aren't called by any.
constexpr std::wstring_view FRAMES[] = {L"LandXML", L"Alignments", L"Surfaces"};

/// The attributes that a person calls an element by; the first one that holds a text counts.
constexpr const wchar_t* NAMING_ATTRIBUTES[] = {L"name", L"label", L"sta"};

PlaceAmongSame PlaceOf(const pugi::xml_node& element)
{
    std::size_t count = 0;
    std::size_t number = 0;
    for (pugi::xml_node other = element.parent().first_child(); other; other = other.next_sibling())
    {
        count += IsElement(other) && EqualsText(other.name(), element.name()) ? 1 : 0;
        number = other == element ? count : number;
    }
    return {number, count == 1};
}

/// The elements from the document element to this one.
std::vector<pugi::xml_node> Line(pugi::xml_node element)
{
    std::vector<pugi::xml_node> line;
    for (; IsElement(element); element = element.parent())
    {
        line.push_back(element);
    }
    std::reverse(line.begin(), line.end());
    return line;
}

} // namespace

void AppendName(std::wstring& names, std::wstring_view name)
{
    names.append(names.empty() || name.empty() ? std::wstring_view() : NAME_SEPARATOR).append(name);
}

std::wstring PositionStep(std::size_t position)
{
    return L"/*[" + std::to_wstring(position) + L"]";
}

std::wstring ElementLabel(const pugi::xml_node& element, const PlaceAmongSame& place)
{
    for (const wchar_t* const name : NAMING_ATTRIBUTES)
    {
        const pugi::xml_attribute attribute = element.attribute(name);
        if (attribute.value()[0] != L'\0')
        {
            return attribute.value();
        }
    }
    const std::wstring_view name = element.name();
    if (place.isOnlyOne && std::find(std::begin(FRAMES), std::end(FRAMES), name) != std::end(FRAMES))
    {
        return {};
    }
    const auto* const known =
        std::find_if(std::begin(WORDS), std::end(WORDS), [&](const ElementWord& row) { return row.element == name; });
    std::wstring label(known != std::end(WORDS) && !known->word.empty() ? known->word : name);
    return place.isOnlyOne ? label : label + std::to_wstring(place.number);
}

std::wstring NamedPath(const pugi::xml_node& element)
{
    std::wstring path;
    for (const pugi::xml_node& one : Line(element))
    {
        AppendName(path, ElementLabel(one, PlaceOf(one)));
    }
    return path.empty() ? element.name() : path;
}

std::wstring PositionPath(const pugi::xml_node& element)
{
    std::wstring path;
    for (const pugi::xml_node& one : Line(element))
    {
        std::size_t position = 1;
        for (pugi::xml_node other = one.previous_sibling(); other; other = other.previous_sibling())
        {
            position += IsElement(other) ? 1 : 0;
        }
        path += PositionStep(position);
    }
    return path;
}

void ForEachElement(const WcXmNode& top, const std::function<void(const WcXmNode& element)>& visit)
{
    WcXmNode element = top;
    for (pugi::xml_node& node = element.appNode.node; node; node = NextInOrder(node, top.appNode.node))
    {
        if (IsElement(node))
        {
            visit(element);
        }
    }
}

void ForEachElementIn(const WcXmNode& parent, const std::function<void(const WcXmNode& element)>& visit)
{
    WcXmNode element = parent;
    for (const pugi::xml_node& child : parent.appNode.node.children())
    {
        if (IsElement(child))
        {
            element.appNode.node = child;
            visit(element);
        }
    }
}

pugi::xml_node NextInOrder(pugi::xml_node node, const pugi::xml_node& top)
{
    if (const pugi::xml_node child = node.first_child())
    {
        return child;
    }
    while (node && node != top && !node.next_sibling())
    {
        node = node.parent();
    }
    return node == top ? pugi::xml_node() : node.next_sibling();
}

void WarnOfElement(WarningCause cause, const WcXmNode& node, const std::function<std::wstring()>& remark) noexcept
{
    static const std::wstring NO_FILE;
    const WcXmAppDocument* const document = node.document->appDocument.get();
    WarnOf(cause, document != nullptr ? document->loadedPath : NO_FILE, [&] {
        WarningPlace place;
        place.object = NamedPath(node.appNode.node);
        place.path = PositionPath(node.appNode.node);
        place.remark = remark ? remark() : std::wstring();
        return place;
    });
}

void WarnOfAttributes(WarningCause cause, const WcXmNode& node, std::wstring_view except) noexcept
{
    for (const pugi::xml_attribute& attribute : node.appNode.node.attributes())
    {
        if (attribute.value()[0] != L'\0' && !EqualsText(attribute.name(), except))
        {
            WarnOfElement(cause, node, [&] { return std::wstring(attribute.name()); });
        }
    }
}

} // namespace jlandxml
