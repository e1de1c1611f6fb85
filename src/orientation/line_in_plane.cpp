// SPDX-License-Identifier: MIT
//
// Lines given by an angle within a plane.

#include "orientation/angles.h"
#include "orientation/notation.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kRightAngle = kPi / 2;

// Sines and cosines of round angles miss zero by the rounding of kPi. Below this size they count as
// zero.
constexpr double kRounding = 1e-9;

// The line at an angle in the plane, measured downward from the horizontal at strikeAzimuth.
void LineInPlane(double dip, double dipDirection, double strikeAzimuth, double angle,
                 double& outPlunge, double& outTrend) {
    const double along = std::cos(angle);
    const double down = std::sin(angle);
    Direction line;
    line.l = along * std::cos(strikeAzimuth) + down * std::cos(dip) * std::cos(dipDirection);
    line.m = along * std::sin(strikeAzimuth) + down * std::cos(dip) * std::sin(dipDirection);
    line.n = down * std::sin(dip);
    if (std::abs(line.n) < kRounding) {
        line.n = 0; // else a horizontal line might come back as its other end
    }
    CosinesToLine(line, outPlunge, outTrend);
}

} // namespace

void PlaneTrendToLine(double dip, double dipDirection, double trend, double& outPlunge,
                      double& outTrend) {
    const double towardDip = std::cos(trend - dipDirection);
    const bool isAlongStrike = std::abs(towardDip) < kRounding;
    outTrend = WrappedAngle(trend);
    if (isAlongStrike || std::abs(std::cos(dip)) < kRounding) {
        outPlunge = isAlongStrike ? 0 : kRightAngle;
        return;
    }
    outPlunge = std::atan(std::tan(dip) * towardDip);
    if (outPlunge < 0) {
        outPlunge = -outPlunge;
        outTrend = WrappedAngle(outTrend + kPi);
    }
}

bool PlanePitchToLine(double dip, double dipDirection, double pitch, std::string_view sense,
                      double& outPlunge, double& outTrend) {
    if (!IsValidSense(sense)) {
        return false;
    }
    const double rightHandStrike = dipDirection - kRightAngle;
    const double nearness = std::cos(DegToRad(*CompassDegrees(sense)) - rightHandStrike);
    if (std::abs(nearness) < kRounding) {
        return false;
    }
    const double strikeEnd = nearness > 0 ? rightHandStrike : rightHandStrike + kPi;
    LineInPlane(dip, dipDirection, strikeEnd, pitch, outPlunge, outTrend);
    return true;
}

void PlaneHadeToPlunge(double dip, double dipDirection, double hade, double& outPlunge,
                       double& outTrend) {
    LineInPlane(dip, dipDirection, dipDirection - kRightAngle, hade, outPlunge, outTrend);
}

} // namespace quandrel
