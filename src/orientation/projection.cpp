// SPDX-License-Identifier: MIT

#include "orientation/projection.h"

#include <cmath>
#include <limits>

namespace quandrel {

namespace {

constexpr int kAreaKind = 1;
constexpr int kAngleKind = 2;

constexpr double kRightAngle = kPi / 2;

// Near-vertical planes are drawn at a fixed dip, so that their arcs stay stable.
constexpr double kSteepDip = 1.539380400258997;             // 88.2 degrees
constexpr double kVerySteepDip = 1.5550883635269461;        // 89.1 degrees
constexpr double kSteepestArcDip = 279.6017461694913 / 180; // 89 degrees

// A dip computed from its pole has a rounding error, which must not carry it over a limit.
constexpr double kDipRounding = 1e-12;

// An arc whose centre is this close to the middle of the net is the primitive.
constexpr double kCentred = 1e-6;

int SignOf(double value) {
    return (value > 0) - (value < 0);
}

std::int16_t Rounded(double coordinate) {
    const long whole = RoundToEvenLong(coordinate);
    constexpr long kLeast = std::numeric_limits<std::int16_t>::min();
    constexpr long kMost = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(whole < kLeast ? kLeast : whole > kMost ? kMost : whole);
}

// The position moved through the rim to the other side of the net.
NetPosition ReflectedPosition(double x, double y, double distance) {
    const double angle = x == 0 ? kRightAngle : std::abs(std::atan(y / x));
    const double reflected = 2 * kNetRadius - distance;
    return {-SignOf(x) * reflected * std::cos(angle), -SignOf(y) * reflected * std::sin(angle)};
}

// Angle from the vertical of a position on the net whose trend is known up to half a turn.
double ColatitudeAt(int kind, const NetPosition& position, double trend) {
    const double sine = std::sin(trend);
    const double rho =
        sine == 0 ? position.y / (std::cos(trend) * kNetRadius) : position.x / (sine * kNetRadius);
    // Kept: here every kind but equal area counts as equal angle; projecting takes it the other way
    // round.
    return kind == kAreaKind ? ArcCos(1 - rho * rho) : 2 * std::atan(rho);
}

// Restores the half turns that atan loses.
double TurnedTrend(double trend, const NetPosition& position) {
    if (trend < 0) {
        return trend + (position.x >= 0 && position.y <= 0 ? kPi : kTwoPi);
    }
    return trend + (position.x >= 0 && position.y >= 0 ? 0.0 : kPi);
}

double DrawnDip(double dip) {
    if (dip > kSteepDip + kDipRounding && dip < kRightAngle) {
        return dip <= kVerySteepDip + kDipRounding ? kSteepestArcDip : kRightAngle;
    }
    return dip;
}

double AngleAt(double dx, double dy) {
    return WrappedAngle(std::atan2(dy, dx));
}

} // namespace

void ProjectPoint(int kind, double plunge, double trend, double& x, double& y) {
    const double colatitude = kRightAngle - std::abs(plunge);
    const double rho =
        kind == kAngleKind ? std::tan(colatitude / 2) : std::sqrt(1 - std::cos(colatitude));
    x = rho * std::sin(trend) * kNetRadius;
    y = rho * std::cos(trend) * kNetRadius;
}

void ProjectPointInt(int kind, double plunge, double trend, std::int16_t& x, std::int16_t& y) {
    double east = 0;
    double north = 0;
    ProjectPoint(kind, plunge, trend, east, north);
    x = Rounded(east);
    y = Rounded(north);
}

NetPosition PositionOfDirection(int kind, const Direction& direction) {
    const double sum = 1 + std::abs(direction.n);
    const double scale =
        (direction.n < 0 ? -kNetRadius : kNetRadius) / (kind == kAngleKind ? sum : std::sqrt(sum));
    return {direction.m * scale, direction.l * scale};
}

void UnprojectPoint(int kind, std::int32_t x, std::int32_t y, double& plunge, double& trend) {
    UnprojectPosition(kind, x, y, plunge, trend);
}

void UnprojectPosition(int kind, double x, double y, double& plunge, double& trend) {
    const double distance = std::sqrt(x * x + y * y);
    const bool isOutside = distance > kNetRadius;
    const NetPosition position = isOutside ? ReflectedPosition(x, y, distance) : NetPosition{x, y};
    const double acute =
        position.y == 0 ? SignOf(position.x) * kRightAngle : std::atan(position.x / position.y);
    plunge = kRightAngle - std::abs(ColatitudeAt(kind, position, acute));
    trend = TurnedTrend(acute, position) + 0.0; // + 0.0 turns -0 into 0
    if (isOutside) {
        plunge = -plunge;
    }
}

GreatCircle GreatCircleArc(int kind, double polePlunge, double poleTrend) {
    double dip = 0;
    double dipDir = 0;
    PoleOfPlane(polePlunge, poleTrend, dip, dipDir);
    dip = DrawnDip(dip);
    GreatCircle circle;
    if (dip > kSteepestArcDip) {
        ProjectPoint(kind, polePlunge, poleTrend, circle.cx, circle.cy);
        circle.radius = kStraightRadius;
        return circle;
    }
    double lowX = 0;
    double lowY = 0;
    ProjectPoint(kind, dip, dipDir, lowX, lowY);
    double strikeX = 0;
    double strikeY = 0;
    ProjectPoint(kind, 0, dipDir - kRightAngle, strikeX, strikeY);

    // The centre is at s u, u the unit vector from the middle of the net to the lowest point D. It
    // is as far from D = rho u as from the strike end S, which is at right angles to u: (rho - s)^2
    // = s^2 + |S|^2. Solving for s avoids a slope that could become infinite.
    const double rho = std::hypot(lowX, lowY);
    const double strikeSquared = strikeX * strikeX + strikeY * strikeY;
    const double offset = (rho * rho - strikeSquared) / (2 * rho);
    if (std::abs(offset) < kCentred) {
        return {0, 0, kNetRadius, 0, kTwoPi};
    }
    circle.cx = lowX / rho * offset;
    circle.cy = lowY / rho * offset;
    // The flattest arc, at 89 degrees, has a radius of 57300, below kStraightRadius: no clamp is
    // needed.
    circle.radius = rho - offset;
    circle.start = AngleAt(-strikeX - circle.cx, -strikeY - circle.cy);
    circle.end = AngleAt(strikeX - circle.cx, strikeY - circle.cy);
    return circle;
}

void GreatCircleArc(int kind, double polePlunge, double poleTrend, double& cx, double& cy,
                    double& radius, double& start, double& end) {
    const GreatCircle circle = GreatCircleArc(kind, polePlunge, poleTrend);
    cx = circle.cx;
    cy = circle.cy;
    radius = circle.radius;
    start = circle.start;
    end = circle.end;
}

} // namespace quandrel
