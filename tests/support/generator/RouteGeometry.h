#pragma once

#include <numbers>
#include <vector>

namespace jlandxml::generator
{

inline constexpr double PI = std::numbers::pi;

/// Sine and cosine by sums and products alone, which give the same bits on every platform.
double Sin(double angle);
double Cos(double angle);

/// A point of a plane rectangular zone in metres: X to the north, Y to the east.
struct Point
{
    double north = 0.0;
    double east = 0.0;
};

/// A point and the direction in which the alignment passes it: radians, clockwise from north.
struct Pose
{
    Point point;
    double azimuth = 0.0;
};

/// The point at an offset (metres, right is positive) from a pose.
Point Beside(const Pose& pose, double offset);

/// Where the tangents of two poses meet; they must not be parallel.
Point TangentIntersection(const Pose& first, const Pose& second);

enum class HorizontalKind
{
    Line,
    Curve,
    Spiral,
};

/// One element of a horizontal alignment. Curvatures are 1/metre, positive to the right (clockwise).
struct HorizontalElement
{
    HorizontalKind kind = HorizontalKind::Line;
    double length = 0.0; ///< metres
    double startCurvature = 0.0;
    double endCurvature = 0.0;
    Pose start;

    /// The pose at a distance (metres) from the element's start. A spiral is a clothoid: its curvature grows with the
    /// distance, and its points come from Fresnel's integrals.
    Pose At(double distance) const;
    Pose End() const { return At(length); }
};

/// Where the curvature of an alignment leaves zero and comes back to it; lengths along the alignment (metres).
struct Bend
{
    double begin = 0.0;     ///< BC, or KA of the first clothoid
    double fullBegin = 0.0; ///< where the arc begins: BC or KE
    double fullEnd = 0.0;
    double end = 0.0;
    bool toTheRight = true;
};

/// A horizontal alignment whose elements join without gap; only a bend between straights turns at a point.
class RouteGeometry
{
  public:
    explicit RouteGeometry(const Pose& start) : end_(start) {}

    void Append(HorizontalKind kind, double length, double startCurvature, double endCurvature);

    /// Turns on the spot (radians, right is positive).
    void Turn(double angle) { end_.azimuth += angle; }

    /// The pose at a distance from the start (metres).
    Pose At(double distance) const;

    double Length() const { return length_; }
    const Pose& End() const { return end_; }
    const std::vector<HorizontalElement>& Elements() const { return elements_; }

    std::vector<Bend> bends;

  private:
    std::vector<HorizontalElement> elements_;
    double length_ = 0.0;
    Pose end_;
};

} // namespace jlandxml::generator
