#pragma once

#include "support/generator/RouteGeometry.h"
#include "support/generator/SplitMix64.h"

#include <string>
#include <vector>

namespace jlandxml::generator
{

/// A point of intersection of a vertical alignment.
struct GradePoint
{
    double distance = 0.0;    ///< from the alignment's start, metres
    double height = 0.0;      ///< metres
    double curveLength = 0.0; ///< of the parabola, metres; 0 for a bend
};

/// The slopes of a cross section in percent, positive where the edge lies higher than the centre line.
struct CrossSlopes
{
    double left = 0.0;
    double right = 0.0;
};

/// A stretch of superelevation along one bend; distances from the alignment's start (metres).
struct SlopeStation
{
    double distance = 0.0;
    const char* description = "";
    CrossSlopes slopes;
};

/// One alignment as a designer made it, before it is written in any form.
class HostAlignment
{
  public:
    HostAlignment(SplitMix64& random, const Pose& start, bool river, std::string alignmentName);

    double HeightAt(double distance) const;
    double GroundHeightAt(double distance) const;
    /// The ground beside the centre line; it falls to the right.
    double GroundHeightAt(double distance, double offset) const { return GroundHeightAt(distance) - 0.02 * offset; }
    CrossSlopes SlopesAt(double distance) const;

    /// The changes of the cross slopes along one bend, in order.
    std::vector<SlopeStation> SlopeStations(const Bend& bend) const;

    /// The distance from the start at which the slopes of a bend begin to leave the normal crown, and come back to it.
    double RunoutBegin(const Bend& bend) const { return bend.begin - runout; }
    double RunoutEnd(const Bend& bend) const { return bend.end + runout; }

    std::string name;
    bool river = false;
    double startStation = 0.0; ///< metres
    double mainInterval = 20.0;
    RouteGeometry geometry;
    std::vector<GradePoint> grades;
    double normalCrown = 2.0; ///< percent
    double fullSlope = 4.0;   ///< percent
    double runout = 15.0;     ///< metres from the normal crown to the level one
    bool singleLane = false;
    bool slopeList = false;
    double equationDistance = -1.0; ///< of a station equation; negative: there is none
    double equationJump = 0.0;      ///< metres that the shown station is ahead of the distance behind it

    /// The station that drawings show (metres).
    double ShownStation(double distance) const;

  private:
    void DrawHorizontal(SplitMix64& random);
    void DrawProfile(SplitMix64& random);

    double groundPhase_ = 0.0;
    double groundSwing_ = 1.0; ///< metres
};

} // namespace jlandxml::generator
