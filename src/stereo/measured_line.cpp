// SPDX-License-Identifier: MIT

#include "stereo/measured_line.h"

#include "stereo/line_cosines.h"

#include <array>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::size_t kDegrees = 361;

/// Components smaller than this are rounding errors of 0.
constexpr double kRounding = 1e-12;

struct SineCosine {
    double sine = 0;
    double cosine = 1;
};

/// A whole degree with its sine and cosine.
struct DegreeEntry {
    double radians = 0;
    SineCosine value;
};

double WithoutRounding(double value) {
    return std::abs(value) < kRounding ? 0 : value;
}

const std::array<DegreeEntry, kDegrees>& WholeDegrees() {
    static const std::array<DegreeEntry, kDegrees> degrees = [] {
        std::array<DegreeEntry, kDegrees> made;
        for (std::size_t degree = 0; degree < made.size(); ++degree) {
            const double radians = DegToRad(static_cast<double>(degree));
            made[degree] = {
                radians, {WithoutRounding(std::sin(radians)), WithoutRounding(std::cos(radians))}};
        }
        return made;
    }();
    return degrees;
}

/// By the nearest whole degree and series for the rest, which is less than a hundredth of a radian.
///
/// @param angle  0 to kTwoPi
SineCosine SineCosineOf(double angle) {
    const DegreeEntry& near = WholeDegrees()[static_cast<std::size_t>(angle * (180 / kPi) + 0.5)];
    const double rest = angle - near.radians;
    const double square = rest * rest;
    const double sine = rest * (1 - square / 6 * (1 - square / 20));
    const double lessThanOne = square / 2 * (1 - square / 12 * (1 - square / 30));
    const auto [wholeSine, wholeCosine] = near.value;
    return {wholeSine + (wholeCosine * sine - wholeSine * lessThanOne),
            wholeCosine - (wholeSine * sine + wholeCosine * lessThanOne)};
}

} // namespace

LineCosines CosinesOf(const MeasuredLine& line) {
    const SineCosine plunge = SineCosineOf(std::abs(line.plunge));
    const SineCosine trend = SineCosineOf(line.trend);
    return {plunge.sine, plunge.cosine, trend.sine, trend.cosine};
}

Direction AxisOf(const MeasuredLine& line) {
    const LineCosines of = CosinesOf(line);
    return {of.cosinePlunge * of.cosineTrend, of.cosinePlunge * of.sineTrend, of.sinePlunge};
}

Direction DirectionOf(const MeasuredLine& line) {
    const Direction axis = AxisOf(line);
    // The differences give 0 and not -0.
    return line.plunge < 0 ? Direction{0 - axis.l, 0 - axis.m, 0 - axis.n} : axis;
}

} // namespace quandrel
