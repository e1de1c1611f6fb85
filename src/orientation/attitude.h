// SPDX-License-Identifier: MIT
//
// An orientation in degrees, as rows and their files have it.

#pragma once

#include "orientation/angles.h"

#include <cstdint>

namespace quandrel {

/// The attitude of a plane or a line in degrees: whole ones in the columns, any where it was
/// measured with decimals.
struct Attitude {
    double dip = 0;     ///< or plunge; kErrorRow where there is no orientation
    double azimuth = 0; ///< dip direction, trend, or direction

    Attitude() = default;

    /// From numbers of any type; angles of a file in 32-bit floats are too coarse for decimals.
    template <class Dip, class Azimuth>
    Attitude(Dip inDip, Azimuth inAzimuth)
        : dip(static_cast<double>(inDip))
        , azimuth(static_cast<double>(inAzimuth)) {}

    friend bool operator==(const Attitude&, const Attitude&) = default;
};

/// False for the mark of a row without an orientation.
[[nodiscard]] inline bool IsKnown(const Attitude& attitude) {
    return attitude.dip != kErrorRow;
}

/// The nearest whole degree, halves to even. The value must be an angle.
[[nodiscard]] std::int32_t WholeDegree(double degrees);

/// True when both angles are whole degrees.
[[nodiscard]] bool IsWhole(const Attitude& attitude);

/// An attitude in whole degrees, halves to even, azimuth 0 to 360. A line that points up by an
/// angle that rounds to 0 becomes level, with the trend that it points to.
[[nodiscard]] Attitude RoundedAttitude(const Attitude& attitude, bool isPlane);

/// The pole of a plane, or the plane of a pole. The sign of a dip is ignored.
[[nodiscard]] Attitude PoleInDegrees(const Attitude& plane);

/// An angle to 1e-6 degree: the precision to which measured angles count.
[[nodiscard]] double ToMicrodegree(double degrees);

/// Both angles to 1e-6 degree.
[[nodiscard]] Attitude ToMicrodegree(const Attitude& attitude);

} // namespace quandrel
