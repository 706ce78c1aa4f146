#include "inspect/ElementReader.h"

#include "base/Text.h"

#include <algorithm>

namespace jlandxml::inspect
{

std::wstring_view LocalName(pugi::xml_node element)
{
    const std::wstring_view name = element.name();
    return name.substr(name.find(L':') + 1);
}

std::wstring_view AttributeText(pugi::xml_node element, const wchar_t* name)
{
    return element.attribute(name).value();
}

namespace
{

/// An element by its tag and name, and by the alignment or the surface round it: 線形1／Profile 計画.
std::wstring OwnerName(pugi::xml_node element)
{
    std::wstring name(LocalName(element));
    const std::wstring_view own = AttributeText(element, L"name");
    name.append(own.empty() ? L"" : L" ").append(own);
    pugi::xml_node whole = element.parent();
    while (whole && LocalName(whole) != L"Alignment" && LocalName(whole) != L"Surface")
    {
        whole = whole.parent();
    }
    return whole ? std::wstring(AttributeText(whole, L"name")).append(L"／").append(name) : name;
}

} // namespace

SourcePlace ElementReader::PlaceOf(pugi::xml_node element) const
{
    const std::ptrdiff_t offset = element.offset_debug();
    return {file_.source->LineAt(offset), static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0))};
}

void ElementReader::ForEachChild(pugi::xml_node element, Children children)
{
    for (const pugi::xml_node child : element.children())
    {
        if (child.type() != pugi::node_element)
        {
            continue;
        }
        const std::wstring_view name = LocalName(child);
        NoteFeature(child);
        const auto* const known =
            std::find_if(children.begin(), children.end(), [&](const auto& entry) { return entry.first == name; });
        if (known != children.end())
        {
            known->second(child);
        }
        else
        {
            Skip(child);
        }
    }
}

void ElementReader::NoteFeature(pugi::xml_node element)
{
    if (LocalName(element) != L"Feature")
    {
        return;
    }
    file_.featureNames.insert(AttributeText(element, L"name"));
    const std::wstring_view parent = LocalName(element.parent());
    if (parent == L"CgPoints" || parent == L"Surface")
    {
        return;
    }
    for (const pugi::xml_node property : element.children())
    {
        if (AttributeText(property, L"label") == L"alignmentRefs" && LocalName(property) == L"Property")
        {
            file_.furtherReferences.push_back(
                {PlaceOf(property), OwnerName(element.parent()), AttributeText(property, L"value")});
        }
    }
}

std::wstring_view ElementReader::TextOf(pugi::xml_node element)
{
    std::wstring_view text;
    std::wstring* joined = nullptr;
    for (const pugi::xml_node child : element.children())
    {
        if (child.type() == pugi::node_element)
        {
            NoteFeature(child);
            if (LocalName(child) != L"Feature")
            {
                Skip(child);
            }
        }
        else if (text.empty())
        {
            text = child.value();
        }
        else
        {
            joined = joined != nullptr ? joined : &file_.joinedTexts.emplace_back(text);
            joined->append(child.value());
        }
    }
    return joined != nullptr ? std::wstring_view(*joined) : text;
}

void ElementReader::Skip(pugi::xml_node element)
{
    std::wstring path(LocalName(element.parent()));
    path += L'/';
    path += LocalName(element);
    const auto [place, isNew] = skipped_.try_emplace(path, file_.skipped.size());
    if (isNew)
    {
        file_.skipped.push_back({PlaceOf(element), path});
    }
    ++file_.skipped[place->second].count;
}

namespace
{

/// An end of a spiral where it is straight has no radius.
bool MayBeInfinite(std::wstring_view attribute)
{
    return attribute == L"radiusStart" || attribute == L"radiusEnd";
}

} // namespace

Figure ElementReader::Noted(Figure figure, std::wstring_view what, const SourcePlace& place)
{
    if (figure.IsWritten() && !figure.IsFinite())
    {
        file_.unreadable.push_back({place, std::wstring(what), figure.text});
    }
    return figure;
}

Figure ElementReader::Number(pugi::xml_node element, const wchar_t* attribute)
{
    const Figure figure = ReadFigure(AttributeText(element, attribute));
    if (!figure.IsWritten() || figure.IsFinite() || (figure.IsNumber() && MayBeInfinite(attribute)))
    {
        return figure;
    }
    return Noted(figure, std::wstring(LocalName(element)) + L'@' + attribute, PlaceOf(element));
}

Figure ElementReader::NumberOf(pugi::xml_node element)
{
    return Noted(ReadFigure(TextOf(element)), LocalName(element), PlaceOf(element));
}

std::vector<Figure> ElementReader::Numbers(std::wstring_view text, std::wstring_view what, const SourcePlace& place)
{
    std::vector<Figure> figures = ReadFigures(text);
    for (const Figure& figure : figures)
    {
        Noted(figure, what, place);
    }
    return figures;
}

PairList ElementReader::Pairs(pugi::xml_node element)
{
    PairList list;
    Locate(list, element);
    const std::vector<Figure> figures = Numbers(TextOf(element), LocalName(element), list);
    list.figureCount = figures.size();
    list.figuresOfAPoint = LocalName(element) == L"PntList3D" ? 3 : 2;
    for (std::size_t index = 0; index + list.figuresOfAPoint <= figures.size(); index += list.figuresOfAPoint)
    {
        list.pairs.push_back({figures[index], figures[index + 1]});
    }
    return list;
}

PlanPoint ElementReader::Point(pugi::xml_node element)
{
    PlanPoint point;
    point.name = AttributeText(element, L"name");
    point.pntRef = AttributeText(element, L"pntRef");
    point.featureRef = AttributeText(element, L"featureRef");
    Locate(point, element);
    const std::vector<Figure> figures = Numbers(TextOf(element), LocalName(element), point);
    point.figureCount = figures.size();
    Figure* const coordinates[] = {&point.north, &point.east, &point.height};
    for (std::size_t index = 0; index < std::min(figures.size(), std::size(coordinates)); ++index)
    {
        *coordinates[index] = figures[index];
    }
    return point;
}

Feature ElementReader::ReadFeature(pugi::xml_node element)
{
    Feature feature{PlaceOf(element), AttributeText(element, L"name"), {}};
    ForEachChild(element, {{L"Property", [&](pugi::xml_node child) {
                                feature.properties.push_back(
                                    {PlaceOf(child), AttributeText(child, L"label"), AttributeText(child, L"value")});
                                TextOf(child);
                            }}});
    return feature;
}

Figure ElementReader::NumberIn(const Property* property)
{
    return property == nullptr ? Figure() : Noted(ReadFigure(property->value), property->label, *property);
}

void ElementReader::ExpectFigures(const std::vector<Feature>& features, std::wstring_view name, std::wstring_view label)
{
    for (const Feature& feature : features)
    {
        for (const Property& property : feature.properties)
        {
            if (feature.name == name && property.label == label && !ReadFigure(property.value).IsFinite())
            {
                file_.unreadable.push_back({property, std::wstring(label), property.value});
            }
        }
    }
}

} // namespace jlandxml::inspect
