#include "inspect/ProfileLine.h"

#include "inspect/Limits.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

double LengthOf(const Figure& figure)
{
    return figure.IsFinite() ? std::max(figure.value, 0.0) : 0;
}

/// Gradients that differ by no more are the same: a micrometre on a kilometre.
constexpr double SAME_GRADIENT = 1e-9;

/// The radius of a circular curve: the file's own, else the one whose arc is as long as the file says, measured
/// horizontally as the lengths of all vertical curves are: L = R |sin θ2 - sin θ1|, θ the slopes of the tangents.
double CircleRadius(const ProfilePoint& point)
{
    const double turn = std::abs(std::sin(std::atan(point.gradientOut)) - std::sin(std::atan(point.gradientIn)));
    if (point.element->kind != L"CircCurve" || !(turn > 0))
    {
        return 0;
    }
    const Figure& radius = point.element->radius;
    return radius.IsFinite() && radius.value != 0 ? std::abs(radius.value) : (point.lengthIn + point.lengthOut) / turn;
}

/// How far from their point an arc touches its tangents, R tan(Δ/2).
double TangentLength(const ProfilePoint& point)
{
    return point.radius * std::tan(std::abs(std::atan(point.gradientOut) - std::atan(point.gradientIn)) / 2);
}

/// How far from its point a curve ends on one of its tangents, measured horizontally.
double Reach(const ProfilePoint& point, double gradient, double length)
{
    return point.radius > 0 ? TangentLength(point) * std::cos(std::atan(gradient)) : length;
}

/// How far an arc lies above the tangents that it touches.
double ArcOffset(const ProfilePoint& point, double distance)
{
    const double slopeIn = std::atan(point.gradientIn);
    const double slopeOut = std::atan(point.gradientOut);
    const double tangent = TangentLength(point);
    if (distance <= -tangent * std::cos(slopeIn) || distance >= tangent * std::cos(slopeOut))
    {
        return 0;
    }
    // The centre lies above a sag and below a crest.
    const double up = slopeOut > slopeIn ? 1 : -1;
    const double centre = -tangent * std::cos(slopeIn) - up * point.radius * std::sin(slopeIn);
    const double centreHeight = -tangent * std::sin(slopeIn) + up * point.radius * std::cos(slopeIn);
    const double across = distance - centre;
    const double height = centreHeight - up * std::sqrt(point.radius * point.radius - across * across);
    return height - distance * (distance < 0 ? point.gradientIn : point.gradientOut);
}

/// How far the curve of a point lies above the tangents at a distance from the point. The parabola, or the two of an
/// unsymmetric curve, touch the tangents at both ends and each other below or above the point, where they lie
/// (g2 - g1) l1 l2 / 2 (l1 + l2) off it.
double CurveOffset(const ProfilePoint& point, double distance)
{
    if (point.radius > 0)
    {
        return ArcOffset(point, distance);
    }
    const double length = distance < 0 ? point.lengthIn : point.lengthOut;
    const double toEnd = length - std::abs(distance);
    if (toEnd <= 0)
    {
        return 0;
    }
    const double atPoint = (point.gradientOut - point.gradientIn) * point.lengthIn * point.lengthOut /
                           (2 * (point.lengthIn + point.lengthOut));
    return atPoint * (toEnd / length) * (toEnd / length);
}

template <class Line>
std::wstring TextOfHeight(const std::optional<Line>& line, double station, int decimals)
{
    const Figure* const own = line ? line->OwnHeightAt(station) : nullptr;
    if (own != nullptr)
    {
        return std::wstring(own->text);
    }
    const std::optional<double> height = line ? line->HeightAt(station) : std::nullopt;
    return height && std::isfinite(*height) ? FormatFixed(*height, decimals) : std::wstring();
}

} // namespace

bool ProfilePoint::HasBend() const
{
    return std::abs(gradientOut - gradientIn) > SAME_GRADIENT;
}

double ProfilePoint::CurveStart() const
{
    return station - Reach(*this, gradientIn, lengthIn);
}

double ProfilePoint::CurveEnd() const
{
    return station + Reach(*this, gradientOut, lengthOut);
}

std::optional<double> ProfilePoint::CurveRadius() const
{
    if (radius > 0)
    {
        return radius;
    }
    return HasBend() && lengthIn == lengthOut
               ? std::optional((lengthIn + lengthOut) / std::abs(gradientOut - gradientIn))
               : std::nullopt;
}

std::optional<ProfileLine> LineOf(const ProfAlign* profile)
{
    return profile != nullptr ? std::optional<ProfileLine>(*profile) : std::nullopt;
}

ProfileLine::ProfileLine(const ProfAlign& profile)
{
    for (const ProfileElement& element : profile.elements)
    {
        if (element.station.IsFinite() && element.height.IsFinite())
        {
            const double half = LengthOf(element.length) / 2;
            points_.push_back({element.station.value, element.height.value,
                               element.lengthIn.IsFinite() ? LengthOf(element.lengthIn) : half,
                               element.lengthOut.IsFinite() ? LengthOf(element.lengthOut) : half, 0, 0, 0, &element});
        }
    }
    for (std::size_t index = 1; index < points_.size(); ++index)
    {
        ProfilePoint& from = points_[index - 1];
        ProfilePoint& to = points_[index];
        isRising_ = isRising_ && to.station > from.station;
        to.gradientIn = (to.height - from.height) / (to.station - from.station);
        to.gradientOut = to.gradientIn;
        from.gradientOut = to.gradientIn;
    }
    if (points_.size() > 1)
    {
        points_.front().gradientIn = points_.front().gradientOut;
    }
    for (ProfilePoint& point : points_)
    {
        point.radius = CircleRadius(point);
    }
}

std::optional<double> ProfileLine::HeightAt(double station) const
{
    if (!isRising_ || points_.empty() || !(station >= points_.front().station - SAME_PRINTED_STATION) ||
        !(station <= points_.back().station + SAME_PRINTED_STATION))
    {
        return {};
    }
    const auto behind = std::upper_bound(points_.begin(), points_.end(), station,
                                         [](double value, const ProfilePoint& point) { return value < point.station; });
    const auto at = behind == points_.begin() ? behind : behind - 1;
    const double distance = station - at->station;
    double height = at->height + distance * at->gradientOut + CurveOffset(*at, distance);
    if (behind != points_.end() && behind != at)
    {
        height += CurveOffset(*behind, station - behind->station);
    }
    return height;
}

const Figure* ProfileLine::OwnHeightAt(double station) const
{
    const auto at = std::lower_bound(points_.begin(), points_.end(), station - SAME_PRINTED_STATION,
                                     [](const ProfilePoint& point, double value) { return point.station < value; });
    const bool isThere = isRising_ && at != points_.end() && std::abs(at->station - station) <= SAME_PRINTED_STATION;
    return isThere && !at->HasCurve() ? &at->element->height : nullptr;
}

GroundLine::GroundLine(const std::vector<PairList>& lists)
{
    for (const PairList& list : lists)
    {
        bool isConnected = false;
        for (const FigurePair& pair : list.pairs)
        {
            const bool isInFront = !points_.empty() && pair.first.value < points_.back().station;
            if (pair.IsPlaced() && !isInFront)
            {
                points_.push_back({pair.first.value, pair.second.value, isConnected, &pair.second});
                isConnected = true;
            }
        }
    }
}

std::optional<double> GroundLine::HeightAt(double station) const
{
    const auto behind = AtOrBehind(station);
    if (behind == points_.end())
    {
        return {};
    }
    if (std::abs(behind->station - station) <= SAME_PRINTED_STATION)
    {
        return behind->height;
    }
    if (!behind->isConnected)
    {
        return {};
    }
    const Point& before = behind[-1];
    const double part = (station - before.station) / (behind->station - before.station);
    return before.height + part * (behind->height - before.height);
}

const Figure* GroundLine::OwnHeightAt(double station) const
{
    const auto at = AtOrBehind(station);
    return at != points_.end() && std::abs(at->station - station) <= SAME_PRINTED_STATION ? at->figure : nullptr;
}

std::vector<GroundLine::Point>::const_iterator GroundLine::AtOrBehind(double station) const
{
    return std::lower_bound(points_.begin(), points_.end(), station - SAME_PRINTED_STATION,
                            [](const Point& point, double value) { return point.station < value; });
}

std::wstring HeightText(const std::optional<ProfileLine>& line, double station, int decimals)
{
    return TextOfHeight(line, station, decimals);
}

std::wstring HeightText(const std::optional<GroundLine>& line, double station, int decimals)
{
    return TextOfHeight(line, station, decimals);
}

} // namespace jlandxml::inspect
