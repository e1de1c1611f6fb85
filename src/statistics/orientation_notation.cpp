// SPDX-License-Identifier: MIT

#include "statistics/orientation_notation.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

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

std::string TextOfPair(double first, double azimuth, const OrientationOptions& options,
                       int decimals = 0) {
    return OrientationText(TextOfAngle(first, decimals), TextOfAzimuth(azimuth, decimals), options);
}

} // namespace

int DecimalsShown(const PlotRecord& record) {
    return record.UseDecimals != 0 ? 1 : 0;
}

std::string TextOfAngle(double radians, int decimals) {
    return decimals == 0 ? RadToDegText(radians) : FormatNumber(RadToDeg(radians), "0.0");
}

std::string TextOfAzimuth(double azimuth, int decimals) {
    const std::string degrees = TextOfAngle(azimuth, decimals);
    return degrees.starts_with("360") ? TextOfAngle(0, decimals) : degrees;
}

std::string WholeAzimuthText(double azimuth) {
    return TextOfAzimuth(azimuth, 0);
}

void SettleForPrint(int decimals, double& plunge, double& trend) {
    const double leastShown = 0.5 * std::pow(10.0, -decimals);
    if (plunge < 0 && RadToDeg(plunge) >= -leastShown) {
        plunge = 0;
        trend = WrappedAngle(trend + kPi);
    }
}

std::string TextOfLine(double plunge, double trend, int decimals) {
    SettleForPrint(decimals, plunge, trend);
    return TextOfPair(plunge, trend, OptionsInForce(OrientationKind::kLine), decimals);
}

std::string TextOfLine(double plunge, double trend, const OrientationOptions& options) {
    SettleForPrint(0, plunge, trend);
    return TextOfPair(plunge, trend, options);
}

std::string TextOfPlane(double dip, double dipDirection, const OrientationOptions& options) {
    return TextOfPair(dip, dipDirection, options);
}

std::string TextOfPlaneOfPole(double polePlunge, double poleTrend, int decimals) {
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(polePlunge, poleTrend, dip, dipDirection);
    return TextOfPair(dip, dipDirection, OptionsInForce(OrientationKind::kPlane), decimals);
}

std::string OrderInForce() {
    const OrientationOptions options = OptionsInForce(OrientationKind::kLine);
    std::string lines(LineOrderCaption(options.lineOrder));
    lines.erase(lines.find_last_not_of(' ') + 1);
    return "planes as " + std::string(PlaneConventionCaption(options.planeConvention))
           + "; lines as " + lines;
}

} // namespace quandrel
