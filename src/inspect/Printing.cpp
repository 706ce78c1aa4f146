#include "inspect/Printing.h"

#include "base/Text.h"
#include "inspect/Checks.h"
#include "inspect/Course.h"
#include "inspect/Names.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

namespace jlandxml::inspect
{

namespace
{

using Json = nlohmann::ordered_json;

std::string Text(std::wstring_view text)
{
    return Utf8FromWide(text);
}

/// A number; null if it is none, since JSON has no other word for that.
Json Number(double value)
{
    return std::isfinite(value) ? Json(value) : Json();
}

Json Span(const Range& range)
{
    return range.IsEmpty() ? Json() : Json::array({range.Smallest(), range.Largest()});
}

Json CoordinateSystemJson(const LandXmlFile& file)
{
    if (!file.coordinateSystem)
    {
        return {};
    }
    const CoordinateSystem& system = *file.coordinateSystem;
    return {{"horizontalDatum", Text(system.horizontalDatum)},
            {"verticalDatum", Text(system.verticalDatum)},
            {"horizontalCoordinateSystemName", Text(system.zoneName)},
            {"differTP", Text(PropertyValue(system.features, L"", L"differTP"))}};
}

Json UnitsJson(const LandXmlFile& file)
{
    if (!file.units)
    {
        return {};
    }
    return {{"system", Text(file.units->system)},
            {"linearUnit", Text(file.units->linear)},
            {"angularUnit", Text(file.units->angular)},
            {"directionUnit", Text(file.units->direction)}};
}

Json AlignmentJson(const AlignmentGroup& route, const Alignment& alignment)
{
    const Course course(alignment);
    return {{"route", Text(route.name)},
            {"name", Text(alignment.name)},
            {"length", Number(alignment.length.value)},
            {"staStart", Number(alignment.staStart.value)},
            {"staEnd", Number(course.StaEnd())},
            {"elements", alignment.elements.size()},
            {"lines", CountOf(alignment, ElementKind::Line)},
            {"curves", CountOf(alignment, ElementKind::Curve)},
            {"spirals", CountOf(alignment, ElementKind::Spiral)},
            {"irregularLines", CountOf(alignment, ElementKind::IrregularLine)},
            {"staEquations", alignment.equations.size()},
            {"profiles", CountOfDesigns(alignment)},
            {"groundLines", CountOfGrounds(alignment)},
            {"crossSects", CountOfSections(alignment)},
            {"superelevations", alignment.superelevations.size()},
            {"widenings", alignment.wideningLeft.size() + alignment.wideningRight.size()},
            {"crossSlopes", alignment.slopes.size()}};
}

Json RoadwayJson(const Roadway& roadway)
{
    Json speeds = Json::array();
    for (const std::wstring_view speed : roadway.designSpeeds)
    {
        speeds.push_back(Number(ReadFigure(speed).value));
    }
    return {{"name", Text(roadway.name)}, {"alignmentRefs", Text(roadway.alignmentRefs)}, {"designSpeeds", speeds}};
}

Json SummaryJson(const LandXmlFile& file)
{
    const Extents extents = ExtentsOf(file);
    Json summary{{"version", Text(file.version)},
                 {"applicationCriterion", Text(PropertyValue(file.projectFeatures, L"", L"applicationCriterion"))},
                 {"project", Text(file.projectName)},
                 {"coordinateSystem", CoordinateSystemJson(file)},
                 {"units", UnitsJson(file)},
                 {"extents",
                  Json{{"north", Span(extents.north)}, {"east", Span(extents.east)}, {"height", Span(extents.height)}}},
                 {"alignments", Json::array()},
                 {"pointGroups", Json::array()},
                 {"roadways", Json::array()},
                 {"surfaces", Json::array()}};
    for (const AlignmentGroup& route : file.routes)
    {
        for (const Alignment& alignment : route.alignments)
        {
            summary["alignments"].push_back(AlignmentJson(route, alignment));
        }
    }
    for (const PointGroup& group : file.pointGroups)
    {
        summary["pointGroups"].push_back(
            Json{{"name", Text(group.name)}, {"kind", Text(group.kind)}, {"points", group.points.size()}});
    }
    for (const Roadway& roadway : file.roadways)
    {
        summary["roadways"].push_back(RoadwayJson(roadway));
    }
    for (const Surface& surface : file.surfaces)
    {
        summary["surfaces"].push_back(Json{{"name", Text(surface.name)},
                                           {"desc", Text(surface.desc)},
                                           {"type", Text(surface.type)},
                                           {"points", surface.points.size()},
                                           {"faces", surface.faces.size()}});
    }
    return summary;
}

Json FindingJson(const Finding& finding)
{
    Json json{{"code", Text(finding.check->code)},
              {"severity", Text(SeverityName(finding.severity))},
              {"text", Text(finding.text)},
              {"object", Text(finding.object.japanese)},
              {"line", finding.line}};
    const std::pair<const char*, const std::optional<double>*> numbers[] = {
        {"value", &finding.value}, {"expected", &finding.expected}, {"tolerance", &finding.tolerance}};
    for (const auto& [key, number] : numbers)
    {
        if (*number)
        {
            json[key] = Number(**number);
        }
    }
    return json;
}

std::wstring JsonText(const Json& json)
{
    return WideFromUtf8(json.dump()) + L"\n";
}

std::wstring ToleranceText(const Check& check)
{
    if (!check.tolerance)
    {
        return L"-";
    }
    const std::wstring warning = ShortNumber(check.tolerance->warning);
    const std::wstring error = ShortNumber(check.tolerance->error);
    return (warning == error ? warning : warning + L"／" + error) + check.tolerance->unit;
}

} // namespace

std::wstring FindingLine(const Finding& finding)
{
    std::wstring text = SeverityName(finding.severity) + (L" " + std::wstring(finding.check->code));
    text.append(finding.line > 0 ? L" " + std::to_wstring(finding.line) + L"行目" : L"");
    text.append(finding.object.IsEmpty() ? L"" : L" ").append(finding.object.japanese);
    return text.append(L": ").append(finding.text).append(L"\n");
}

std::wstring FindingsText(const std::vector<Finding>& findings)
{
    std::wstring text = L"  検査結果: ";
    for (std::size_t index = SEVERITY_NAMES.size(); index-- > 0;)
    {
        const auto count = std::count_if(findings.begin(), findings.end(), [&](const Finding& finding) {
            return static_cast<std::size_t>(finding.severity) == index;
        });
        text += SEVERITY_NAMES[index] + (L" " + std::to_wstring(count)) + (index > 0 ? L"、" : L"\n");
    }
    for (const Finding& finding : findings)
    {
        text.append(L"    ").append(FindingLine(finding));
    }
    return text;
}

std::wstring JsonLine(const LandXmlFile& file, const std::vector<Finding>& findings)
{
    Json json{{"file", Text(file.path)}, {"summary", SummaryJson(file)}, {"findings", Json::array()}};
    for (const Finding& finding : findings)
    {
        json["findings"].push_back(FindingJson(finding));
    }
    return JsonText(json);
}

std::wstring JsonErrorLine(const std::wstring& path, const std::wstring& error)
{
    return JsonText(Json{{"file", Text(path)}, {"error", Text(error)}});
}

std::wstring ChecksText()
{
    std::wstring text;
    for (const Check& check : AllChecks())
    {
        text.append(check.code).append(L"\t").append(SeverityName(check.severity)).append(L"\t");
        text.append(ToleranceText(check)).append(L"\t").append(check.text.japanese).append(L"\t");
        text.append(check.remedy.japanese).append(L"\t").append(check.source).append(L"\n");
    }
    return text;
}

std::wstring ChecksJsonLines()
{
    std::wstring lines;
    for (const Check& check : AllChecks())
    {
        Json json{{"code", Text(check.code)}, {"severity", Text(SeverityName(check.severity))}};
        if (check.tolerance)
        {
            json["tolerance"] = Json{{"warning", check.tolerance->warning},
                                     {"error", check.tolerance->error},
                                     {"unit", Text(check.tolerance->unit)}};
        }
        json["text"] = Text(check.text.japanese);
        json["remedy"] = Text(check.remedy.japanese);
        json["source"] = Text(check.source);
        lines += JsonText(json);
    }
    return lines;
}

} // namespace jlandxml::inspect
