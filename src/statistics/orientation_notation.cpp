// SPDX-License-Identifier: MIT

#include "statistics/orientation_notation.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/notation.h"

#include <cmath>
#include <cstdlib>

namespace quandrel {

namespace {

constexpr int kTrendFirst = 10;

OrientationOptions OptionsInForce(OrientationKind kind) {
    OrientationOptions options;
    options.kind = kind;
    options.planeConvention = std::abs(int{gConventions}) % kTrendFirst;
    // Kept: quadrant notation, a negative code, always has the plunge first.
    options.lineOrder =
        gConventions > kTrendFirst ? LineOrder::kTrendPlunge : LineOrder::kPlungeTrend;
    options.notation = gConventions < 0 ? AzimuthNotation::kQuadrant : AzimuthNotation::kAzimuth;
    options.separator = kind == OrientationKind::kPlane ? gPlaneSeparator : gLineSeparator;
    return options;
}

std::string TextOfPair(double first, double azimuth, const OrientationOptions& options) {
    return OrientationText(RadToDegText(first), WholeAzimuthText(azimuth), options);
}

} // namespace

std::string WholeAzimuthText(double azimuth) {
    const std::string degrees = RadToDegText(azimuth);
    return degrees == "360" ? "0" : degrees;
}

void SettleForPrint(int decimals, double& plunge, double& trend) {
    const double leastShown = 0.5 * std::pow(10.0, -decimals);
    if (plunge < 0 && RadToDeg(plunge) >= -leastShown) {
        plunge = 0;
        trend = WrappedAngle(trend + kPi);
    }
}

std::string TextOfLine(double plunge, double trend) {
    return TextOfLine(plunge, trend, OptionsInForce(OrientationKind::kLine));
}

std::string TextOfLine(double plunge, double trend, const OrientationOptions& options) {
    SettleForPrint(0, plunge, trend);
    return TextOfPair(plunge, trend, options);
}

std::string TextOfPlane(double dip, double dipDirection, const OrientationOptions& options) {
    return TextOfPair(dip, dipDirection, options);
}

std::string TextOfPlaneOfPole(double polePlunge, double poleTrend) {
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(polePlunge, poleTrend, dip, dipDirection);
    return TextOfPlane(dip, dipDirection, OptionsInForce(OrientationKind::kPlane));
}

std::string OrderInForce() {
    const OrientationOptions options = OptionsInForce(OrientationKind::kLine);
    std::string lines(LineOrderCaption(options.lineOrder));
    lines.erase(lines.find_last_not_of(' ') + 1);
    return "planes as " + std::string(PlaneConventionCaption(options.planeConvention))
           + "; lines as " + lines;
}

} // namespace quandrel
