#include "model/FViewSuperelevation.h"

#include "model/FViewFeature.h"
#include "model/NumberText.h"
#include "model/SuperelevationStations.h"
#include "xml/ElementNames.h"

namespace jlandxml
{

namespace
{

constexpr const wchar_t* STA_END = L"staEnd";
constexpr const wchar_t* REVERSE_CROWN = L"ReverseCrown";
constexpr const wchar_t* FLAT_STA = L"FlatSta";

bool IsSet(double station)
{
    return station != UNSET_DOUBLE;
}

/// Reads the first child of that kind, its name in any case.
template <class Station>
void ReadStation(const WcXmNode& node, double& station)
{
    Station element;
    if (ReadFirstChildInAnyCase(node, element))
    {
        station = element.value;
    }
}

template <class Station>
bool WriteStation(const WcXmNode& node, double station)
{
    Station element;
    element.value = station;
    return element.WriteElement(node);
}

/// Removes the first child of that name, in any case. False if there is none.
bool RemoveFirstChild(const WcXmNode& node, std::wstring_view name)
{
    WcXmNode child = node;
    const bool isThere = child.SelectFirstChild(name);
    if (isThere)
    {
        node.RemoveChild(child.appNode);
    }
    return isThere;
}

/// Takes the stations of the last `Feature` of that name.
void ReadStationFeature(const WcXmNode& node, std::wstring_view name, PiCmCopyList<WcStString>& stations)
{
    ForEachFeature(node, name, [&](const WcXmNode& child) {
        FViewFeature feature;
        feature.ReadElement(child);
        stations.clear();
        for (FViewProperty& property : feature.properties)
        {
            if (property.label == property_label::STA)
            {
                stations.push_back(std::move(property.value));
            }
        }
    });
}

bool WriteStationFeature(const WcXmNode& node, const wchar_t* name, const PiCmCopyList<WcStString>& stations)
{
    FViewFeature feature(name);
    for (const WcStString& station : stations)
    {
        feature.properties.emplace_back(property_label::STA, station, false);
    }
    return feature.WriteElement(node);
}

} // namespace

void FViewSuperelevation::Clear()
{
    beginRunoutSta = UNSET_DOUBLE;
    endofRunoutSta = UNSET_DOUBLE;
    fullSuperSta = UNSET_DOUBLE;
    runoffSta = UNSET_DOUBLE;
    beginRunoffSta = UNSET_DOUBLE;
    startofRunoutSta = UNSET_DOUBLE;
    adverse = true;
    reverseCrownStations.clear();
    flatStations.clear();
}

bool FViewSuperelevation::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadStation<FViewBeginRonoutSta>(node, beginRunoutSta);
    ReadStation<FViewBeginRunoffSta>(node, beginRunoffSta);
    ReadStation<FViewStartofRunoutSta>(node, startofRunoutSta);
    ReadStation<FViewEndOfRonoutSta>(node, endofRunoutSta);
    ReadStation<FViewFullSuperSta>(node, fullSuperSta);
    ReadStation<FViewRunoffSta>(node, runoffSta);
    FViewAdverseSE adverseSE;
    if (ReadFirstChildInAnyCase(node, adverseSE))
    {
        adverse = adverseSE.adverse;
    }
    ReadStationFeature(node, REVERSE_CROWN, reverseCrownStations);
    ReadStationFeature(node, FLAT_STA, flatStations);
    return true;
}

bool FViewSuperelevation::WriteElement(const WcXmNode& node)
{
    FormatDoubleAttribute(node, attribute_name::STA_START, fullSuperSta, SUPERELEVATION_DIGITS);
    FormatDoubleAttribute(node, STA_END, runoffSta, SUPERELEVATION_DIGITS);
    const bool hadAdverse = RemoveFirstChild(node, FViewAdverseSE().GetElementName());
    if (hadAdverse && !HasWholeRunout())
    {
        WarnOfElement(WarningCause::AdverseRemoved, node);
    }
    RemoveFirstFeature(node, REVERSE_CROWN);
    RemoveFirstFeature(node, FLAT_STA);
    return WriteRunout(node) && WriteAdverse(node) && WriteStationFeature(node, REVERSE_CROWN, reverseCrownStations) &&
           WriteStationFeature(node, FLAT_STA, flatStations);
}

bool FViewSuperelevation::HasOneSidedRunout() const
{
    return !IsSet(beginRunoutSta) && !IsSet(endofRunoutSta) && IsSet(beginRunoffSta) && IsSet(startofRunoutSta);
}

bool FViewSuperelevation::HasWholeRunout() const
{
    return (IsSet(beginRunoutSta) && IsSet(beginRunoffSta)) || (IsSet(startofRunoutSta) && IsSet(endofRunoutSta)) ||
           HasOneSidedRunout();
}

/// Where the host gives begin of runoff and start of runout alone, each is one place off: they are the standard's start
/// and end of runout.
bool FViewSuperelevation::WriteRunout(const WcXmNode& node) const
{
    if (!HasOneSidedRunout())
    {
        return true;
    }
    RemoveFirstChild(node, FViewBeginRunoffSta().GetElementName());
    return WriteStation<FViewEndOfRonoutSta>(node, startofRunoutSta) &&
           WriteStation<FViewStartofRunoutSta>(node, beginRunoffSta);
}

/// The adverse crown means something only where a whole run-out is given.
bool FViewSuperelevation::WriteAdverse(const WcXmNode& node) const
{
    if (!HasWholeRunout())
    {
        return true;
    }
    FViewAdverseSE adverseSE;
    adverseSE.adverse = adverse;
    return adverseSE.WriteElement(node);
}

} // namespace jlandxml
