#pragma once

#include "inspect/LandXmlFile.h"

#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// The interval of an alignment's main stations in metres; 20 where the file gives none or one that is no interval.
double MainInterval(const Alignment& alignment);

/// What the stakes along an alignment say.
class StationLabels
{
  public:
    explicit StationLabels(const Alignment& alignment);

    /// The label at a station of the alignment's own count: its equations applied, "No.6+10.000" by the main interval,
    /// of a river "2k545" by the kilometre.
    std::wstring At(double station) const;

    /// The stations of the alignment's own count, from `first` to `last`, whose labels are whole multiples of the main
    /// interval. None if there were more than people could read.
    std::vector<double> MainStations(double first, double last) const;

  private:
    double CountAt(double station) const;
    void AddMainStations(double start, double end, std::vector<double>& stations) const;

    std::vector<const StaEquation*> equations_; ///< by their stations
    double interval_;
    bool isRiver_;
};

} // namespace jlandxml::inspect
