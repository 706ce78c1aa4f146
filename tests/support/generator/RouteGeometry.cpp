#include "support/generator/RouteGeometry.h"

#include <cmath>

namespace jlandxml::generator
{

namespace
{

/// The angle between -pi and pi. floor is exact everywhere.
double Reduced(double angle)
{
    return angle - 2.0 * PI * std::floor((angle + PI) / (2.0 * PI));
}

constexpr int SINE_TERMS = 14; // enough for the last bit of a double up to pi

/// The point of a clothoid at a length from its origin, where its curvature is zero and its direction north.
Point ClothoidPoint(double length, double curvatureGrowth)
{
    constexpr int TERMS = 16;
    const double turned = curvatureGrowth * length * length / 2.0;
    Point point;
    double power = 1.0; // of the angle turned, over the factorial
    for (int term = 0; term < TERMS; ++term)
    {
        const double part = length * power / (2.0 * term + 1.0);
        const bool negative = term % 4 > 1;
        (term % 2 == 0 ? point.north : point.east) += negative ? -part : part;
        power *= turned / (term + 1.0);
    }
    return point;
}

/// A step in a frame of its own, taken from a pose.
Point Moved(const Point& origin, double azimuth, double along, double aside)
{
    const double sine = Sin(azimuth);
    const double cosine = Cos(azimuth);
    return {origin.north + cosine * along - sine * aside, origin.east + sine * along + cosine * aside};
}

} // namespace

double Sin(double angle)
{
    const double x = Reduced(angle);
    double sum = 0.0;
    double term = x;
    for (int n = 1; n <= SINE_TERMS; ++n)
    {
        sum += term;
        term *= -x * x / ((2.0 * n) * (2.0 * n + 1.0));
    }
    return sum;
}

double Cos(double angle)
{
    return Sin(angle + PI / 2.0);
}

Point Beside(const Pose& pose, double offset)
{
    return Moved(pose.point, pose.azimuth, 0.0, offset);
}

Point TangentIntersection(const Pose& first, const Pose& second)
{
    const double north = second.point.north - first.point.north;
    const double east = second.point.east - first.point.east;
    const double along =
        (north * Sin(second.azimuth) - east * Cos(second.azimuth)) / Sin(second.azimuth - first.azimuth);
    return Moved(first.point, first.azimuth, along, 0.0);
}

Pose HorizontalElement::At(double distance) const
{
    const double curvatureGrowth = (endCurvature - startCurvature) / length;
    Pose pose;
    pose.azimuth = start.azimuth + startCurvature * distance + curvatureGrowth * distance * distance / 2.0;
    switch (kind)
    {
    case HorizontalKind::Line:
        pose.point = Moved(start.point, start.azimuth, distance, 0.0);
        break;
    case HorizontalKind::Curve: {
        const double half = startCurvature * distance / 2.0;
        pose.point = Moved(start.point, start.azimuth + half, 2.0 * Sin(half) / startCurvature, 0.0);
        break;
    }
    case HorizontalKind::Spiral: {
        // The element is a piece of a clothoid that begins where the curvature is zero.
        const double first = startCurvature / curvatureGrowth;
        const double last = first + distance;
        const Point from = ClothoidPoint(first, curvatureGrowth);
        const Point to = ClothoidPoint(last, curvatureGrowth);
        const double azimuth = start.azimuth - curvatureGrowth * first * first / 2.0;
        pose.point = Moved(start.point, azimuth, to.north - from.north, to.east - from.east);
        break;
    }
    }
    return pose;
}

void RouteGeometry::Append(HorizontalKind kind, double length, double startCurvature, double endCurvature)
{
    elements_.push_back({kind, length, startCurvature, endCurvature, end_});
    length_ += length;
    end_ = elements_.back().End();
}

Pose RouteGeometry::At(double distance) const
{
    for (const HorizontalElement& element : elements_)
    {
        if (distance <= element.length)
        {
            return element.At(distance);
        }
        distance -= element.length;
    }
    return end_;
}

} // namespace jlandxml::generator
