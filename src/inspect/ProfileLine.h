#pragma once

#include "inspect/LandXmlFile.h"

#include <optional>
#include <vector>

namespace jlandxml::inspect
{

/// A point of a design profile with what follows from its neighbours. Stations and heights in metres, gradients as a
/// ratio, positive uphill.
struct ProfilePoint
{
    double station;
    double height;
    double lengthIn;    ///< of the vertical curve in front of the point; 0 without a curve
    double lengthOut;   ///< and behind it
    double gradientIn;  ///< of the tangent in front; at the first point that behind
    double gradientOut; ///< of the tangent behind; at the last point that in front
    double radius;      ///< of the circle of a CircCurve; 0 for parabolas and without a curve
    const ProfileElement* element;

    bool HasCurve() const { return lengthIn > 0 || lengthOut > 0; }
    /// True if the tangents make a bend that a curve can round.
    bool HasBend() const;
    /// L / |g2 - g1|, of a circle its own; nothing of a curve without a bend, or of two parabolas, which have one each.
    std::optional<double> CurveRadius() const;
    /// Where the curve touches the tangents: half its length before and behind the point, of an arc the horizontal
    /// parts of R tan(Δ/2) along each.
    double CurveStart() const;
    double CurveEnd() const;
};

/// A design profile: tangents between its points, and where these have a curve a parabola, two of them (UnsymParaCurve)
/// or an arc of a circle (CircCurve) that touches both tangents.
class ProfileLine
{
  public:
    /// Points whose station or height is no figure are left out.
    explicit ProfileLine(const ProfAlign& profile);

    const std::vector<ProfilePoint>& Points() const { return points_; }

    /// The height at a station; nothing outside the profile or if its stations don't rise.
    std::optional<double> HeightAt(double station) const;

    /// The file's own figure of that height, where a point without a curve lies at the station; else null.
    const Figure* OwnHeightAt(double station) const;

  private:
    std::vector<ProfilePoint> points_;
    bool isRising_ = true;
};

/// The line of a design profile; nothing for null.
std::optional<ProfileLine> LineOf(const ProfAlign* profile);

/// A ground line of a profile or, with offsets in the place of stations, of a cross section: straight between its
/// points, with gaps between its lists.
class GroundLine
{
  public:
    /// Points in front of those before them are left out; two at one station are a step, such as a wall.
    explicit GroundLine(const std::vector<PairList>& lists);

    /// The height at a station, of a step that of its first point; nothing outside the line and in its gaps.
    std::optional<double> HeightAt(double station) const;

    /// The file's own figure of that height, where a point of the line lies at the station; else null.
    const Figure* OwnHeightAt(double station) const;

  private:
    struct Point
    {
        double station;
        double height;
        bool isConnected; ///< to the point before
        const Figure* figure;
    };

    std::vector<Point>::const_iterator AtOrBehind(double station) const;

    std::vector<Point> points_;
};

/// What drawings show of a computed height, metres.
inline constexpr int HEIGHT_DECIMALS = 3;

/// The height at a station as sheets show it: the file's own figure if it has one there, else the computed one with so
/// many decimals; empty where there is none.
std::wstring HeightText(const std::optional<ProfileLine>& line, double station, int decimals);
std::wstring HeightText(const std::optional<GroundLine>& line, double station, int decimals);

} // namespace jlandxml::inspect
