#pragma once

#include "inspect/AlignmentReferences.h"
#include "inspect/LandXmlFile.h"
#include "inspect/ProfileLine.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace jlandxml::inspect
{

/// What a file itself writes at stations of an alignment: sheets show such figures in the file's own text.
class OwnFigures
{
  public:
    /// `references` are those of the file. Keeps pointers into the file.
    OwnFigures(const AlignmentReferences& references, const Alignment& alignment);

    /// A station of the alignment's own count in metres: the file's own text, where a section, a profile, a transition,
    /// a point or a list has that station, else its digits with so many decimals.
    std::wstring StationText(double station, int decimals) const;

    /// A coordinate in metres at a station: that of the intermediate point there, else `computed` with so many
    /// decimals. A point that lies elsewhere than its station isn't meant.
    std::wstring NorthText(double station, double computed, int decimals) const;
    std::wstring EastText(double station, double computed, int decimals) const;

    /// The design height at a station: that of a gradient change or of an intermediate point there, else the computed
    /// one with so many decimals; empty where there is none.
    std::wstring DesignHeightText(const std::optional<ProfileLine>& line, double station, int decimals) const;

  private:
    const CgPoint* PointAt(double station) const;
    void Take(const Figure& station);
    void TakeTransition(const Superelevation& superelevation);
    void TakeProfiles(const Alignment& alignment);
    void TakePoints(const std::vector<const PointGroup*>& groups);

    std::vector<std::pair<double, Figure>> stations_;       ///< rising; of the same ones the first counts
    std::vector<std::pair<double, const CgPoint*>> points_; ///< the intermediate points by their stations
};

} // namespace jlandxml::inspect
