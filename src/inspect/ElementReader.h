#pragma once

#include "inspect/LandXmlFile.h"

#include <functional>
#include <initializer_list>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace jlandxml::inspect
{

/// The name of an element without its namespace's prefix.
std::wstring_view LocalName(pugi::xml_node element);

/// The value of an attribute, trimmed of nothing; empty if there is none.
std::wstring_view AttributeText(pugi::xml_node element, const wchar_t* name);

/// What every part of the reader shares: the place of an element, figures that are none, elements that it doesn't know.
class ElementReader
{
  public:
    explicit ElementReader(LandXmlFile& file) : file_(file) {}

    using ReadChild = std::function<void(pugi::xml_node)>;
    using Children = std::initializer_list<std::pair<std::wstring_view, ReadChild>>;

    SourcePlace PlaceOf(pugi::xml_node element) const;
    std::size_t Line(pugi::xml_node element) const { return PlaceOf(element).line; }

    /// Notes where what is read from an element begins.
    void Locate(SourcePlace& target, pugi::xml_node element) const { target = PlaceOf(element); }

    /// Hands each child element to the function under its name; the others are noted as skipped.
    void ForEachChild(pugi::xml_node element, Children children);

    /// Hands over a child element whose content isn't looked at.
    static void Ignore(pugi::xml_node) {}

    /// The text of an element that holds no other, whatever parts it: a comment, or an element that is noted as
    /// skipped.
    std::wstring_view TextOf(pugi::xml_node element);

    /// Notes that an element wasn't looked at, as those that nobody knows.
    void Skip(pugi::xml_node element);

    /// The figure of an attribute.
    Figure Number(pugi::xml_node element, const wchar_t* attribute);

    /// The figure of an element's text.
    Figure NumberOf(pugi::xml_node element);

    /// The figures of an element's text, or of a property's value.
    std::vector<Figure> Numbers(std::wstring_view text, std::wstring_view what, const SourcePlace& place);

    /// The element's text as pairs; of points in space without their heights.
    PairList Pairs(pugi::xml_node element);

    PlanPoint Point(pugi::xml_node element);

    Feature ReadFeature(pugi::xml_node element);

    /// The figure of a property; an empty one if the pointer is null.
    Figure NumberIn(const Property* property);

    /// Notes those properties of a label in the features of a name whose value is no figure.
    void ExpectFigures(const std::vector<Feature>& features, std::wstring_view name, std::wstring_view label);

  private:
    Figure Noted(Figure figure, std::wstring_view what, const SourcePlace& place);
    /// Notes what every Feature has, also one that nobody reads: its name, and to which alignments it leads.
    void NoteFeature(pugi::xml_node element);

    LandXmlFile& file_;
    std::unordered_map<std::wstring, std::size_t> skipped_; ///< by path: the place in the file's list
};

/// Reads an Alignment element with all below it.
Alignment ReadAlignment(ElementReader& reader, pugi::xml_node element);

} // namespace jlandxml::inspect
