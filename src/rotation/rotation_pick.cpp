// SPDX-License-Identifier: MIT

#include "rotation/rotation_pick.h"

#include "core/data_format.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/projection.h"

#include <string>

namespace quandrel {

constinit RotationInWork RotationInWork::now;

namespace {

constexpr int kSenseStep = 45;

/// The azimuth of a position, rounded to a step of whole degrees, 0 to 359.
int AzimuthInSteps(double x, double y, int step) {
    const double degrees = RadToDeg(AzimuthBetweenPoints(0, 0, x, y));
    return static_cast<int>(RoundToEven(degrees / step)) * step % 360;
}

int DegreesOf(PickStep step) {
    switch (step) {
    case PickStep::TenDegrees:
        return 10;
    case PickStep::FiveDegrees:
        return 5;
    case PickStep::Exact:
        break;
    }
    return 1;
}

RotationPick PickedOrientation(int plotKind, double x, double y, int operation) {
    double inclination = 0;
    double azimuth = 0;
    UnprojectPosition(plotKind, x, y, inclination, azimuth);
    const RotationOption& option = OptionOfRotation(operation);
    if (operation == kPlaneToVertical) {
        PoleOfPlane(inclination, azimuth, inclination, azimuth);
    }
    // Rounding may put a position that was read back just below a full turn.
    const long degrees = RoundToEvenLong(RadToDeg(azimuth)) % 360;
    RotationPick pick;
    pick.inclination = RadToDegText(inclination);
    pick.azimuth = RadToAzimuthText(DegToRad(static_cast<double>(degrees)));
    pick.information = std::string(option.heading) + ": " + *pick.inclination + "/" + *pick.azimuth;
    return pick;
}

RotationPick PickedStrike(double x, double y, PickStep step) {
    RotationPick pick;
    pick.angle = RadToAzimuthText(DegToRad(AzimuthInSteps(x, y, DegreesOf(step))));
    pick.information =
        std::string(OptionOfRotation(kPlaneToVertical).angleHeading) + ": " + *pick.angle;
    return pick;
}

RotationPick PickedSense(double x, double y) {
    constexpr int kNamesOfSense = 2; // of the sixteen names, every second one is a sense
    RotationPick pick;
    pick.sense = SectorName(AzimuthInSteps(x, y, kSenseStep) / kSenseStep * kNamesOfSense);
    pick.information = "Sense: " + *pick.sense;
    return pick;
}

} // namespace

PickStep PickStepOf(bool shift, bool ctrl) {
    if (ctrl) {
        return PickStep::Exact;
    }
    return shift ? PickStep::FiveDegrees : PickStep::TenDegrees;
}

std::optional<RotationPick> PickRotation(int plotKind, double x, double y, int operation,
                                         std::int16_t focus, PickStep step) {
    const bool isOnNet = x * x + y * y <= kNetRadius * kNetRadius;
    if (!isOnNet || plotKind == kRose || focus == kNoRotationFocus
        || operation == kUnfoldAboutAppended) {
        return std::nullopt;
    }
    const bool wantsAzimuth = operation == kPlaneToVertical && focus != kOrientationFocus;
    if (!wantsAzimuth) {
        return PickedOrientation(plotKind, x, y, operation);
    }
    if (x == 0 && y == 0) {
        return std::nullopt;
    }
    return focus == kSenseFocus ? PickedSense(x, y) : PickedStrike(x, y, step);
}

} // namespace quandrel
