#include "model/FViewDesignCrossSectSurf.h"

#include "model/CurrentDesignType.h"
#include "model/NumberText.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* SURFACE_SIDE = L"side";
constexpr const wchar_t* MATERIAL = L"material";
constexpr const wchar_t* CLOSED_AREA = L"closedArea";
constexpr const wchar_t* TYPICAL_THICKNESS = L"typicalThickness";
constexpr const wchar_t* HEIGHT_TYPE = L"heightType";
constexpr const wchar_t* PAVEMENT_CLASS = L"pavementClass";
constexpr int THICKNESS_DIGITS = 8;

struct SurfaceClass
{
    std::wstring_view name;
    const wchar_t* desc;
};

/// Misspelt names are those that the format has.
constexpr std::array<SurfaceClass, 20> ROAD_SURFACES = {{
    {L"Carriageway", L"道路面"},   {L"CenterStrip", L"道路面"}, {L"RoadShoulder", L"道路面"},
    {L"StoppingLane", L"道路面"},  {L"SideWalk", L"道路面"},    {L"PlantingZone", L"道路面"},
    {L"FrontageRoad", L"道路面"},  {L"Track", L"道路面"},       {L"Spearator", L"道路面"},
    {L"MirginalStrip", L"道路面"}, {L"SlopeFill", L"道路面"},   {L"SlopeCut", L"道路面"},
    {L"BermFill", L"道路面"},      {L"BermCut", L"道路面"},     {L"RetainingWall", L"道路面"},
    {L"Drainage", L"道路面"},      {L"Other", L"道路面"},       {L"SubBase", L"路床面"},
    {L"SubGrade", L"路体面"},      {L"Excavation", L"床掘面"},
}};

constexpr std::array<SurfaceClass, 6> RIVER_SURFACES = {{
    {L"Crown", L"計画堤防面"},
    {L"SlopeFill", L"計画堤防面"},
    {L"BermFill", L"計画堤防面"},
    {L"RetainingWall", L"計画堤防面"},
    {L"Other", L"計画堤防面"},
    {L"EarthWorkBaseLineFill", L"余盛堤防面"},
}};

std::span<const SurfaceClass> SurfaceClasses()
{
    return GetCurrentDesignType() == RIVER_DESIGN ? std::span<const SurfaceClass>(RIVER_SURFACES)
                                                  : std::span<const SurfaceClass>(ROAD_SURFACES);
}

/// The second of the fields that blanks separate in a point's text.
double HeightOf(std::wstring_view point)
{
    const std::size_t first = point.find(L' ');
    if (first == std::wstring_view::npos)
    {
        return 0.0;
    }
    const std::wstring_view rest = point.substr(first + 1);
    return ReadNumber(rest.substr(0, rest.find(L' ')));
}

/// The side on which a node's point lies; null if it doesn't tell.
const wchar_t* SideOf(const WcXmNode& point)
{
    double offset = 0.0;
    double height = 0.0;
    if (!point.FindAttribute(attribute_name::CODE) || !SplitNumberPair(point.GetTextContent(), offset, height) ||
        offset == 0.0)
    {
        return nullptr;
    }
    return offset < 0.0 ? format_word::LEFT : format_word::RIGHT;
}

/// What the host had noted is lost where another side is written; where it had noted none, a side that no point tells
/// is a guess.
void WarnOfSide(const WcXmNode& node, const std::wstring& side, bool isDecided)
{
    const auto noted = node.FindAttribute(SURFACE_SIDE);
    if (noted && *noted != side)
    {
        WarnOfElement(WarningCause::SideOverwritten, node, [&] { return std::wstring(*noted) + L"→" + side; });
    }
    else if (!noted && !isDecided)
    {
        WarnOfElement(WarningCause::SideGuessed, node, [&] { return side; });
    }
}

} // namespace

void FViewDesignCrossSectSurf::Clear()
{
    features.clear();
    materials = nullptr;
}

bool FViewDesignCrossSectSurf::ReadElement(const WcXmNode& /*node*/)
{
    Clear();
    return true;
}

bool FViewDesignCrossSectSurf::WriteElement(const WcXmNode& node)
{
    const std::wstring pavementClass = ClassifyPavement(node);
    if (features.empty())
    {
        FViewFeature height;
        MakeHeightFeature(height, pavementClass);
        height.WriteElement(node);
    }
    for (FViewFeature& feature : features)
    {
        feature.WriteElement(node);
    }
    ClassifySurface(node);
    WriteThickness(node);
    if (materials != nullptr)
    {
        WriteMaterial(node, *materials, pavementClass);
    }
    return true;
}

void FViewDesignCrossSectSurf::MakeHeightFeature(FViewFeature& feature, const std::wstring& pavementClass) const
{
    feature.Clear();
    feature.properties.emplace_back(HEIGHT_TYPE, property_label::FH_OFFSET);
    if (!pavementClass.empty())
    {
        feature.properties.emplace_back(PAVEMENT_CLASS, pavementClass);
    }
}

std::wstring ClassifyPavement(const WcXmNode& node)
{
    const auto* const layer = std::find(PAVEMENT_LAYERS.begin(), PAVEMENT_LAYERS.end(), NameOf(node));
    if (layer == PAVEMENT_LAYERS.end())
    {
        return {};
    }
    node.SetAttribute(attribute_name::NAME, PAVEMENT);
    return std::wstring(*layer);
}

void ClassifySurface(const WcXmNode& node)
{
    const auto name = node.FindAttribute(attribute_name::NAME);
    const auto classes = SurfaceClasses();
    const auto hit =
        std::find_if(classes.begin(), classes.end(), [&](const SurfaceClass& row) { return name == row.name; });
    if (hit != classes.end())
    {
        node.SetAttribute(attribute_name::DESC, hit->desc);
    }
}

void WriteThickness(const WcXmNode& node)
{
    if (!HasName(node, PAVEMENT) || !IsClosed(node))
    {
        return;
    }
    std::size_t count = 0;
    double last = 0.0;
    double beforeLast = 0.0;
    ForEachChild(node, element_name::CROSS_SECT_PNT, [&](const WcXmNode& point) {
        const NumberPlace place(point);
        beforeLast = last;
        last = HeightOf(point.GetTextContent());
        ++count;
    });
    if (count >= 2)
    {
        node.SetAttribute(TYPICAL_THICKNESS, NumberText(std::fabs(last - beforeLast), THICKNESS_DIGITS));
    }
}

void WriteMaterial(const WcXmNode& node, const MaterialMap& materials, std::wstring_view pavementClass)
{
    const auto material = materials.find(pavementClass);
    if (HasName(node, PAVEMENT) && material != materials.end())
    {
        node.SetAttribute(MATERIAL, material->second);
    }
}

void AssignSide(const WcXmNode& node, std::wstring& side)
{
    const wchar_t* decided = nullptr;
    WcXmNode point = node;
    for (bool more = point.SelectFirstChild(element_name::CROSS_SECT_PNT); more; more = point.MoveToNextSibling())
    {
        decided = SideOf(point);
        if (decided != nullptr)
        {
            side = decided;
            break;
        }
    }
    WarnOfSide(node, side, decided != nullptr);
    node.SetAttribute(SURFACE_SIDE, side);
}

bool IsClosed(const WcXmNode& node)
{
    return node.FindAttribute(CLOSED_AREA) == std::wstring_view(format_word::TRUE_TEXT);
}

std::wstring_view NameOf(const WcXmNode& node)
{
    return node.FindAttribute(attribute_name::NAME).value_or(std::wstring_view());
}

bool HasName(const WcXmNode& node, std::wstring_view name)
{
    return node.FindAttribute(attribute_name::NAME) == name;
}

} // namespace jlandxml
