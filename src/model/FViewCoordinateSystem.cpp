#include "model/FViewCoordinateSystem.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "model/FViewFeature.h"
#include "model/NumberText.h"

#include <algorithm>
#include <array>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* HORIZONTAL_DATUM = L"horizontalDatum";
constexpr const wchar_t* VERTICAL_DATUM = L"verticalDatum";
constexpr const wchar_t* HORIZONTAL_COORDINATE_SYSTEM_NAME = L"horizontalCoordinateSystemName";
constexpr const wchar_t* DIFFER_TP = L"differTP";
constexpr const wchar_t* SYSTEM_NAME = L"CRS1";

struct DatumWords
{
    std::wstring_view words;
    const wchar_t* horizontalDatum;
};

/// How the host's descriptions name the geodetic datums of Japan, tried in this order: of two in one description the
/// upper one counts, wherever it stands.
constexpr std::array<DatumWords, 4> DATUMS = {{
    {L"Japan GSI Plane", L"TD"},
    {L"Japan Geodetic Datum 2000", L"JGD2000"},
    {L"Japan Geodetic Datum 2011", L"JGD2011"},
    {L"Japan Geodetic Datum 2024", L"JGD2024"},
}};

/// The host names a datum after JGD2000 and a transformation of seven parameters; the finished file calls it JGD2011.
constexpr std::wstring_view DATUM_BY_SEVEN_PARAMETERS = L"JGD2000-7P";
constexpr const wchar_t* DATUM_2011 = L"JGD2011";

/// What stands before the number of the zone in a description; the first one counts.
constexpr std::wstring_view ZONE_MARK = L"No. ";
constexpr std::size_t ZONE_WIDTH = 2;
constexpr int ZONE_COUNT = 19;

std::wstring ZoneName(int zone)
{
    return std::to_wstring(zone) + L"(X,Y)";
}

bool IsDatum(std::wstring_view text)
{
    return std::any_of(DATUMS.begin(), DATUMS.end(),
                       [&](const DatumWords& row) { return row.horizontalDatum == text; });
}

bool IsZoneName(std::wstring_view text)
{
    for (int zone = 1; zone <= ZONE_COUNT; ++zone)
    {
        if (text == ZoneName(zone))
        {
            return true;
        }
    }
    return false;
}

} // namespace

void FViewCoordinateSystem::Clear()
{
    name.clear();
    horizontalDatum.clear();
    verticalDatum.clear();
    horizontalCoordinateSystemName.clear();
    differTP.clear();
}

bool FViewCoordinateSystem::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    ReadTextAttribute(node, HORIZONTAL_DATUM, horizontalDatum);
    ReadTextAttribute(node, VERTICAL_DATUM, verticalDatum);
    ReadTextAttribute(node, HORIZONTAL_COORDINATE_SYSTEM_NAME, horizontalCoordinateSystemName);
    if (const auto desc = node.FindAttribute(attribute_name::DESC))
    {
        ReadDescription(*desc);
    }
    ForEachFeatureProperty(node, format_word::NAMELESS, [this](const FViewProperty& property) {
        if (property.label == DIFFER_TP)
        {
            differTP = property.value;
        }
    });
    return true;
}

void FViewCoordinateSystem::ReadDescription(std::wstring_view desc)
{
    if (IsDatum(horizontalDatum) && IsZoneName(horizontalCoordinateSystemName))
    {
        return;
    }
    if (horizontalDatum == DATUM_BY_SEVEN_PARAMETERS)
    {
        horizontalDatum = DATUM_2011;
        ReadZone(desc);
        return;
    }
    horizontalDatum.clear();
    const auto* const datum = std::find_if(DATUMS.begin(), DATUMS.end(), [&](const DatumWords& row) {
        return desc.find(row.words) != std::wstring_view::npos;
    });
    if (datum != DATUMS.end())
    {
        horizontalDatum = datum->horizontalDatum;
        ReadZone(desc);
    }
}

void FViewCoordinateSystem::ReadZone(std::wstring_view desc)
{
    horizontalCoordinateSystemName.clear();
    const std::size_t mark = desc.find(ZONE_MARK);
    if (mark == std::wstring_view::npos)
    {
        return;
    }
    const std::wstring_view digits = Trim(desc.substr(mark + ZONE_MARK.size(), ZONE_WIDTH));
    const ParsedInt zone = ParseInt(digits);
    if (zone.length == digits.size() && zone.value >= 1 && zone.value <= ZONE_COUNT)
    {
        horizontalCoordinateSystemName = ZoneName(zone.value);
    }
}

bool FViewCoordinateSystem::WriteElement(const WcXmNode& node)
{
    node.SetAttribute(attribute_name::NAME, name.empty() ? std::wstring_view(SYSTEM_NAME) : name);
    WriteTextAttribute(node, HORIZONTAL_DATUM, horizontalDatum);
    WriteTextAttribute(node, VERTICAL_DATUM, verticalDatum);
    WriteTextAttribute(node, HORIZONTAL_COORDINATE_SYSTEM_NAME, horizontalCoordinateSystemName);
    FViewFeature feature(format_word::NAMELESS);
    feature.properties.emplace_back(DIFFER_TP, differTP);
    return feature.WriteElement(node);
}

} // namespace jlandxml
