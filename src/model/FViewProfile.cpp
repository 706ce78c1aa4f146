#include "model/FViewProfile.h"

#include "base/Text.h"
#include "model/NumberText.h"
#include "xml/ElementNames.h"

#include <algorithm>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* PROF_ALIGN = L"ProfAlign";
constexpr const wchar_t* PVI = L"PVI";

/// What rounds the grades of a vertical alignment.
constexpr std::wstring_view VERTICAL_CURVES[] = {L"ParaCurve", L"UnsymParaCurve", L"CircCurve"};

/// How the host marks a vertical alignment that is a ground line.
constexpr std::wstring_view GROUND_LINE_MARK = L"ProfSurf_";

constexpr int STATION_DIGITS = 4;

// Why cross sections can refer to no design profile.
constexpr const wchar_t* NO_DESIGN = L"計画縦断線形がありません";
constexpr const wchar_t* NO_EARLIER_DESIGN = L"ProfileのstaStartより前に始まる縦断線形がありません";
constexpr const wchar_t* NAMELESS_DESIGN = L"計画縦断線形に名前がありません";

/// The station of the first child of that kind.
template <class Element>
double FirstStation(const WcXmNode& node)
{
    Element element;
    ReadFirstChild(node, element);
    return element.station;
}

/// Of a marked alignment its name and its points become a ground line; whatever else it holds is gone then.
void WarnOfContent(const WcXmNode& profAlign)
{
    WarnOfAttributes(WarningCause::GroundLineContentLeftOut, profAlign, attribute_name::NAME);
    ForEachElementIn(profAlign, [](const WcXmNode& child) {
        if (child.HasName(PVI))
        {
            WarnOfAttributes(WarningCause::GroundLineContentLeftOut, child);
            return;
        }
        const bool isCurve = std::find(std::begin(VERTICAL_CURVES), std::end(VERTICAL_CURVES), child.NodeName()) !=
                             std::end(VERTICAL_CURVES);
        WarnOfElement(isCurve ? WarningCause::VerticalCurveLeftOut : WarningCause::GroundLineContentLeftOut, child);
    });
}

} // namespace

void FViewPVI::Clear()
{
    station = UNSET_DOUBLE;
    elevation = UNSET_DOUBLE;
}

bool FViewPVI::ReadElement(const WcXmNode& node)
{
    Clear();
    const NumberPlace place(node);
    SplitNumberPair(node.GetTextContent(), station, elevation);
    return true;
}

void FViewParaCurve::Clear()
{
    station = UNSET_DOUBLE;
}

bool FViewParaCurve::ReadElement(const WcXmNode& node)
{
    Clear();
    const NumberPlace place(node);
    double elevation = UNSET_DOUBLE;
    SplitNumberPair(node.GetTextContent(), station, elevation);
    return true;
}

void FViewProfAlign::Clear()
{
    name.clear();
    startStation = UNSET_DOUBLE;
}

bool FViewProfAlign::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::NAME, name);
    const double point = FirstStation<FViewPVI>(node);
    const double curve = FirstStation<FViewParaCurve>(node);
    if (point != UNSET_DOUBLE && curve != UNSET_DOUBLE)
    {
        startStation = std::min(point, curve);
    }
    else
    {
        startStation = point != UNSET_DOUBLE ? point : curve;
    }
    return true;
}

void FViewProfile::Clear()
{
    staStart = UNSET_DOUBLE;
    profAlignName.clear();
    whyNameless = NO_PROFILE;
    profSurfs.clear();
}

bool FViewProfile::ReadElement(const WcXmNode& node)
{
    Clear();
    const NumberPlace place(node);
    ReadNumberAttribute(node, attribute_name::STA_START, staStart);
    PiCmCopyList<FViewProfAlign> profAligns;
    ForEachChild(node, PROF_ALIGN, [&](const WcXmNode& child) {
        const std::wstring_view name = child.FindAttribute(attribute_name::NAME).value_or(std::wstring_view());
        if (name.find(GROUND_LINE_MARK) == std::wstring_view::npos)
        {
            profAligns.emplace_back().ReadElement(child);
            return;
        }
        FViewProfSurf& surface = profSurfs.emplace_back();
        surface.name = ReplaceAll(name, GROUND_LINE_MARK, L"");
        ConvertToProfSurf(child, surface);
        if (surface.pntList2D.points.empty())
        {
            WarnOfElement(WarningCause::GroundLineWithoutPoints, child);
        }
        else
        {
            WarnOfContent(child);
        }
        node.RemoveChild(child.appNode);
    });
    ChooseDesignProfile(profAligns);
    ForEachChild(node, FViewProfSurf().GetElementName(), [&](const WcXmNode& child) {
        profSurfs.emplace_back().ReadElement(child);
        node.RemoveChild(child.appNode);
    });
    return true;
}

void FViewProfile::ChooseDesignProfile(const PiCmCopyList<FViewProfAlign>& profAligns)
{
    whyNameless = profAligns.empty() ? NO_DESIGN : NO_EARLIER_DESIGN;
    for (const FViewProfAlign& profAlign : profAligns)
    {
        if (staStart == UNSET_DOUBLE || profAlign.startStation < staStart)
        {
            staStart = profAlign.startStation;
            profAlignName = profAlign.name;
            whyNameless = NAMELESS_DESIGN;
        }
    }
}

bool FViewProfile::WriteElement(const WcXmNode& node)
{
    FormatDoubleAttribute(node, attribute_name::STA_START, staStart, STATION_DIGITS);
    return std::all_of(profSurfs.begin(), profSurfs.end(),
                       [&](FViewProfSurf& surface) { return surface.WriteElement(node); });
}

void ConvertToProfSurf(const WcXmNode& node, FViewProfSurf& surface)
{
    ForEachChild(node, PVI, [&](const WcXmNode& child) {
        FViewPVI pvi;
        pvi.ReadElement(child);
        if (pvi.station == UNSET_DOUBLE)
        {
            WarnOfElement(WarningCause::PointNotRead, child);
        }
        surface.pntList2D.points.emplace_back(pvi.station, pvi.elevation);
    });
}

} // namespace jlandxml
