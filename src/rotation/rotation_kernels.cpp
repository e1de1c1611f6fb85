// SPDX-License-Identifier: MIT

#include "rotation/rotation_kernels.h"

#include "orientation/angles.h"
#include "orientation/direction_vectors.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kRightAngle = kPi / 2;
constexpr double kThreeQuarterTurn = 9.42477796076937 / 2;
constexpr double kVerticalAxis = 1e-07; // an axis this steep is vertical

bool IsAbout(double angle, double other, double tolerance) {
    return std::abs(angle - other) < tolerance;
}

// True for a line on the horizontal axis about which a tilt towards axisTrend rotates.
bool LiesOnHinge(double plunge, double trend, double axisTrend, double tolerance) {
    return std::abs(plunge) < tolerance
           && (IsAbout(trend, WrappedAngle(axisTrend + kRightAngle), tolerance)
               || IsAbout(trend, WrappedAngle(axisTrend + kThreeQuarterTurn), tolerance));
}

// A line within the tolerance of horizontal or vertical becomes exactly that, and keeps its sense.
void SettleLine(double down, double tolerance, double& plunge, double& trend) {
    if (std::abs(plunge) < tolerance) {
        if (plunge < 0) {
            // The trend has to name the end that pointed up before.
            trend = WrappedAngle(trend + kPi);
        }
        plunge = 0;
    } else if (IsAbout(std::abs(plunge), kRightAngle, tolerance)) {
        plunge = down < 0 ? -kRightAngle : kRightAngle;
    }
}

} // namespace

void TiltLine(double plunge, double trend, double axisPlunge, double axisTrend, double& outPlunge,
              double& outTrend, double tolerance) {
    if (LiesOnHinge(plunge, trend, axisTrend, tolerance)) {
        outPlunge = plunge;
        outTrend = trend;
        return;
    }
    const Direction line = LineToCosines(plunge, trend);
    const double sinPlunge = std::sin(std::abs(axisPlunge));
    const double cosPlunge = std::cos(std::abs(axisPlunge));
    const double sinTrend = std::sin(axisTrend);
    const double cosTrend = std::cos(axisTrend);
    const double along =
        sinPlunge * cosTrend * line.l + sinPlunge * sinTrend * line.m - cosPlunge * line.n;
    const double across = line.m * cosTrend - line.l * sinTrend;
    const double down =
        cosPlunge * cosTrend * line.l + cosPlunge * sinTrend * line.m + sinPlunge * line.n;
    CosinesToLine(along, across, down, outPlunge, outTrend);
    outTrend = WrappedAngle(outTrend + axisTrend - kTwoPi);
    SettleLine(down, tolerance, outPlunge, outTrend);
}

void RotateLineAboutAxis(double plunge, double trend, double angle, double axisPlunge,
                         double axisTrend, double& outPlunge, double& outTrend, double tolerance) {
    const double downward = std::abs(axisPlunge);
    if (std::abs(kRightAngle - downward) < kVerticalAxis) {
        outPlunge = plunge;
        outTrend = WrappedAngle(trend + angle);
        return;
    }
    double tiltedPlunge = 0;
    double tiltedTrend = 0;
    TiltLine(plunge, trend, downward, axisTrend, tiltedPlunge, tiltedTrend, tolerance);
    TiltLine(tiltedPlunge, WrappedAngle(tiltedTrend + angle), downward,
             WrappedAngle(axisTrend + kPi), outPlunge, outTrend, tolerance);
}

void RotatePlaneAboutAxis(double dip, double dipDir, double axisPlunge, double axisTrend,
                          double angle, double& outDip, double& outDipDir) {
    double polePlunge = 0;
    double poleTrend = 0;
    PoleOfPlane(dip, dipDir, polePlunge, poleTrend);
    RotateLineAboutAxis(polePlunge, poleTrend, angle, axisPlunge, axisTrend, polePlunge, poleTrend);
    PoleOfPlane(polePlunge, poleTrend, outDip, outDipDir);
}

void RotatePlaneToVertical(double plunge, double trend, double strikeAz, double axisPlunge,
                           double axisTrend, double pitch, double newAz, double& outPlunge,
                           double& outTrend, double tolerance) {
    double tiltedPlunge = 0;
    double tiltedTrend = 0;
    TiltLine(plunge, trend, std::abs(axisPlunge), axisTrend, tiltedPlunge, tiltedTrend, tolerance);
    const double turnedTrend = WrappedAngle(tiltedTrend + (newAz - strikeAz));
    // The line that is now at right angles to the pitched one becomes vertical; it plunges to the
    // other end of the strike.
    const double away = pitch < 0 ? WrappedAngle(newAz) : WrappedAngle(newAz - kPi);
    TiltLine(tiltedPlunge, turnedTrend, kRightAngle - std::abs(pitch), away, outPlunge, outTrend,
             tolerance);
}

void UnfoldRow(double dip, double dipDir, double axisPlunge, double axisTrend, double plunge,
               double trend, double& outPlunge, double& outTrend, double tolerance) {
    outPlunge = plunge;
    outTrend = trend;
    if (dip == 0) {
        return;
    }
    // The line at right angles to the fold axis, above it, becomes vertical: the axis itself is
    // then horizontal.
    const double above = kRightAngle - std::abs(axisPlunge);
    const double aboveTrend = WrappedAngle(axisTrend + kPi);
    double polePlunge = 0;
    double poleTrend = 0;
    PoleOfPlane(dip, dipDir, polePlunge, poleTrend);
    TiltLine(polePlunge, poleTrend, above, aboveTrend, polePlunge, poleTrend, tolerance);
    TiltLine(outPlunge, outTrend, above, aboveTrend, outPlunge, outTrend, tolerance);
    TiltLine(outPlunge, outTrend, std::abs(polePlunge), poleTrend, outPlunge, outTrend, tolerance);
    if (dip < 0) {
        // The long way ends half a turn about the strike from the short one. A bed that is already
        // horizontal is rotated about its original strike.
        const double across = polePlunge == kRightAngle ? dipDir : poleTrend;
        RotateLineAboutAxis(outPlunge, outTrend, kPi, 0, WrappedAngle(across + kRightAngle),
                            outPlunge, outTrend, tolerance);
    }
}

void RotationBetweenPlanes(double dip1, double dipDir1, double dip2, double dipDir2,
                           double& axisPlunge, double& axisTrend, double& angle) {
    double plunge1 = 0;
    double trend1 = 0;
    double plunge2 = 0;
    double trend2 = 0;
    PoleOfPlane(dip1, dipDir1, plunge1, trend1);
    PoleOfPlane(dip2, dipDir2, plunge2, trend2);
    const Direction a = LineToCosines(plunge1, trend1);
    Direction b = LineToCosines(plunge2, trend2);
    if (DotProduct(a, b) < 0) {
        b = Reversed(b);
    }
    Direction axis = CrossProduct(a, b);
    const double length = LengthOf(axis);
    if (length < kParallelLength) {
        axisPlunge = 0;
        axisTrend = WrappedAngle(dipDir1 - kRightAngle);
        angle = 0;
        return;
    }
    angle = ArcSin(length);
    if (axis.n < 0) {
        // Axes are read as pointing down; for the opposite end the same rotation has the opposite
        // sign.
        axis = Reversed(axis);
        angle = -angle;
    }
    CosinesToLine(axis, axisPlunge, axisTrend);
}

} // namespace quandrel
