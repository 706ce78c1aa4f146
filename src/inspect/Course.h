#pragma once

#include "inspect/LandXmlFile.h"

#include <optional>
#include <vector>

namespace jlandxml::inspect
{

/// A place in the plane and the direction in which the alignment passes it.
struct Position
{
    double north;   ///< metres
    double east;    ///< metres
    double azimuth; ///< radians, from north, clockwise
};

/// In metres, from one place to another.
double Distance(double northFrom, double eastFrom, double northTo, double eastTo);

/// The azimuth from one place to another in radians, -π to π.
double Azimuth(double northFrom, double eastFrom, double northTo, double eastTo);

double Distance(const PlanPoint& from, const PlanPoint& to);
double Azimuth(const PlanPoint& from, const PlanPoint& to);

/// A stretch of road whose curvature changes evenly along it: a line (both 0), a circular arc (both the same) or a part
/// of a clothoid. Curvatures are 1/m, positive to the right.
struct Stretch
{
    Position start;
    double length; ///< metres
    double curvatureStart;
    double curvatureEnd;

    /// The position so many metres behind the start. For a clothoid the integrals of cos and sin of its tangent angle
    /// az + k0 s + (k1 - k0) s² / (2 L), which are Fresnel's (Abramowitz and Stegun, 7.3.1 and 7.3.2), by Gauss'
    /// quadrature (25.4.30) over parts in which the curve turns less than half a radian: exact to the last digits,
    /// also where the two curvatures are nearly the same and the series of the integrals lose theirs.
    Position At(double distance) const;

    Position End() const { return At(length); }
};

/// The course of one element as its own figures give it; lengths in metres, azimuths in radians.
struct ElementCourse
{
    std::vector<Stretch> stretches; ///< one, but for an IrregularLine; none if the figures don't suffice
    double computedLength = 0;      ///< of a Line, Curve or IrregularLine by its points; of a Spiral the file's figure
    double stationLength = 0;       ///< by which stations count: the file's figure if it has one

    bool IsKnown() const { return !stretches.empty(); }
    double StartAzimuth() const { return stretches.front().start.azimuth; }
    double EndAzimuth() const { return stretches.back().End().azimuth; }
    Position At(double distance) const;
};

/// The angle from the start of a Curve to its end, seen from its centre and in the direction of `rot`: 0 to 2π, in
/// radians.
double Sweep(const PlanElement& curve, std::wstring_view rot);

/// +1 for "cw", -1 for "ccw", 0 for anything else.
int Turn(std::wstring_view rot);

/// The curvature (1/m) of a radius without its sign; 0 for "INF" and for what is no radius.
double CurvatureOf(const Figure& radius);

ElementCourse CourseOf(const PlanElement& element);

/// The course of a whole alignment. Its stations are metres.
class Course
{
  public:
    explicit Course(const Alignment& alignment);

    /// By the elements of the alignment.
    const std::vector<ElementCourse>& Elements() const { return elements_; }

    double StaStart() const { return staStart_; }
    double StaEnd() const { return staEnd_; }

    /// The positions at a station of the alignment's own count: two at a joint, which may be a bend; none outside, or
    /// where the element's figures don't suffice.
    std::vector<Position> At(double station) const;

  private:
    std::vector<ElementCourse> elements_;
    std::vector<double> starts_; ///< the station at which each element starts
    double staStart_ = 0;
    double staEnd_ = 0;
};

} // namespace jlandxml::inspect
