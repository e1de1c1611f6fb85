// SPDX-License-Identifier: MIT
//
// Terzaghi weights, which correct a sample for the direction in which it was taken: structures at a
// small angle to that direction are undersampled. Orientations are in degrees, mostly whole ones;
// angles of results are radians.
//
// Formula: w = 1 / sin x. R. D. Terzaghi, Sources of error in joint surveys, Geotechnique 15
// (1965).

#pragma once

#include "orientation/attitude.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quandrel {

/// Which angle between structure and sample line is used.
enum BiasModeCode : std::int16_t {
    kNoBias = 0,
    kSpaceAngle = 1,      ///< in space: to the plane, or to the line
    kHorizontalAngle = 2, ///< between strike, or trend, and the trend of the sample line
    kDipOnly = 3,         ///< Kept: this makes no correction, all weights are 1
};

struct BiasSettings {
    std::int16_t mode = kNoBias; ///< BiasModeCode
    bool planes = false;         ///< whether the rows are planes, else lines
    int minimumAngle = 0;        ///< degrees; smaller angles count as this one, or as 1 degree
    bool ownLines = false;       ///< each row has its own sample line, else all have the same
};

/// A line as in the columns.
struct DegreeLine {
    std::int32_t plunge = 0; ///< -90 to 90; the sign is ignored
    std::int32_t trend = 0;  ///< any whole degree
};

/// Weight of a structure at an angle to the sample line.
///
/// @param angle  0 to kPi/2
/// @param least  smaller angles count as this one; angles below a degree count as a degree
/// @return at least 1
[[nodiscard]] double TerzaghiWeight(double angle, double least);

/// The weights of rows. Computed weights are cached, so that the cost depends on the number of
/// distinct orientations, not of rows.
class BiasWeights {
public:
    explicit BiasWeights(const BiasSettings& settings);

    /// Weight of a structure: plunge and trend, or dip and dip direction of a plane. Without own
    /// lines the sample line must be the same in every call.
    [[nodiscard]] double operator()(const DegreeLine& structure, const DegreeLine& sampleLine);

    /// The same from angles of any precision, in degrees. Nothing is cached.
    [[nodiscard]] double Measured(const Attitude& structure, const Attitude& sampleLine) const;

private:
    /// Both are indexed by the numbers of their orientations.
    [[nodiscard]] double SpaceWeight(std::size_t structure, std::size_t sampleLine);
    [[nodiscard]] double WorkedOut(std::size_t structure, std::size_t sampleLine);

    BiasSettings settings_;
    double least_;                      ///< radians
    std::vector<Direction> structures_; ///< poles or lines by orientation, zero until computed
    std::vector<Direction> lines_;      ///< sample lines, likewise
    std::vector<double> inSpace_;       ///< weights to the one sample line, likewise
    std::array<double, 91> byDegree_{}; ///< weights of the angles 0 to 90 degrees
};

} // namespace quandrel
