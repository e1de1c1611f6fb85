// SPDX-License-Identifier: MIT

#include "rose/bias_weights.h"

#include "orientation/direction_vectors.h"
#include "orientation/notation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quandrel {

namespace {

constexpr int kSteepest = 90;
constexpr int kTrends = 360;
constexpr std::size_t kPlaces = std::size_t{kSteepest + 1} * kTrends;
constexpr double kRightAngle = kPi / 2;
constexpr double kLeastAngle = kPi / 180; ///< bounds the weights

int WholeTrend(std::int32_t trend) {
    const int turned = trend % 360;
    return turned < 0 ? turned + 360 : turned;
}

/// Direction of a line, or of the pole of a plane.
Direction DirectionOf(double plunge, double trend, bool isPlane) {
    double downward = DegToRad(plunge);
    double azimuth = DegToRad(trend);
    if (isPlane) {
        PoleOfPlane(downward, azimuth, downward, azimuth);
    }
    return LineToCosines(downward, azimuth);
}

double WrappedDegrees(double azimuth) {
    WrapDegrees(azimuth);
    return azimuth;
}

/// Index of an orientation in tables of all whole-degree orientations.
std::size_t PlaceOf(const DegreeLine& line) {
    const int plunge = std::min(std::abs(line.plunge), kSteepest);
    return static_cast<std::size_t>(plunge * kTrends + WholeTrend(line.trend));
}

/// The direction, from a table of those already computed. Rows with a sample line each have too
/// many pairs of lines for AngleBetweenLines, which takes ten sines and cosines each time.
const Direction& Remembered(std::vector<Direction>& table, std::size_t place, bool isPlane) {
    if (table.empty()) {
        table.resize(kPlaces);
    }
    Direction& direction = table[place];
    if (direction.l == 0 && direction.m == 0 && direction.n == 0) {
        const auto number = static_cast<int>(place);
        direction = DirectionOf(number / kTrends, number % kTrends, isPlane);
    }
    return direction;
}

/// Radians 0 to kPi/2 between two horizontal lines, from degrees.
double MeasuredHorizontalAngle(double trend1, double trend2) {
    const double difference = std::fmod(std::abs(trend1 - trend2), 180);
    return DegToRad(difference > 90 ? 180 - difference : difference);
}

/// The angle between a structure and a sample line.
///
/// @param structure  direction of a line, or of the pole of a plane
double SpaceAngle(const Direction& structure, const Direction& line, bool isPlane) {
    const double angle = ArcCos(std::abs(DotProduct(structure, line)));
    return isPlane ? kRightAngle - angle : angle;
}

/// Degrees 0 to 90 between two horizontal lines.
int HorizontalAngle(std::int32_t trend1, std::int32_t trend2) {
    const int difference = std::abs(WholeTrend(trend1) - WholeTrend(trend2)) % 180;
    return difference > 90 ? 180 - difference : difference;
}

} // namespace

double TerzaghiWeight(double angle, double least) {
    return 1 / std::abs(std::sin(std::max({angle, least, kLeastAngle})));
}

BiasWeights::BiasWeights(const BiasSettings& settings)
    : settings_(settings)
    , least_(DegToRad(std::clamp(settings.minimumAngle, 0, 90))) {
    for (std::size_t degrees = 0; degrees < byDegree_.size(); ++degrees) {
        byDegree_[degrees] = TerzaghiWeight(DegToRad(static_cast<double>(degrees)), least_);
    }
}

double BiasWeights::operator()(const DegreeLine& structure, const DegreeLine& sampleLine) {
    switch (settings_.mode) {
    case kSpaceAngle:
        return SpaceWeight(PlaceOf(structure), PlaceOf(sampleLine));
    case kHorizontalAngle: {
        const int trend = settings_.planes ? WholeTrend(structure.trend) + 90 : structure.trend;
        return byDegree_[static_cast<std::size_t>(HorizontalAngle(trend, sampleLine.trend))];
    }
    default:
        return 1;
    }
}

double BiasWeights::SpaceWeight(std::size_t structure, std::size_t sampleLine) {
    if (settings_.ownLines) {
        return WorkedOut(structure, sampleLine);
    }
    if (inSpace_.empty()) {
        inSpace_.resize(kPlaces);
    }
    double& weight = inSpace_[structure];
    if (weight == 0) {
        weight = WorkedOut(structure, sampleLine);
    }
    return weight;
}

double BiasWeights::WorkedOut(std::size_t structure, std::size_t sampleLine) {
    const Direction& a = Remembered(structures_, structure, settings_.planes);
    const Direction& b = Remembered(lines_, sampleLine, false);
    return TerzaghiWeight(SpaceAngle(a, b, settings_.planes), least_);
}

double BiasWeights::Measured(const Attitude& structure, const Attitude& sampleLine) const {
    switch (settings_.mode) {
    case kSpaceAngle: {
        const Direction a = DirectionOf(std::abs(structure.dip), WrappedDegrees(structure.azimuth),
                                        settings_.planes);
        const Direction b =
            DirectionOf(std::abs(sampleLine.dip), WrappedDegrees(sampleLine.azimuth), false);
        return TerzaghiWeight(SpaceAngle(a, b, settings_.planes), least_);
    }
    case kHorizontalAngle: {
        const double trend = settings_.planes ? structure.azimuth + 90 : structure.azimuth;
        return TerzaghiWeight(MeasuredHorizontalAngle(trend, sampleLine.azimuth), least_);
    }
    default:
        return 1;
    }
}

} // namespace quandrel
