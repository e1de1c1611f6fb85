// SPDX-License-Identifier: MIT
//
// Random values for the tests of the public interface, and vectors written without the code under
// test. Degrees.

#pragma once

#include "orientation/vectors.h"
#include "quandrel/orientation.h"

#include <random>
#include <vector>

namespace quandrel::api {

/// A source of values with a fixed seed.
class RandomValues {
public:
    explicit RandomValues(std::uint32_t seed)
        : random_(seed) {}

    double Between(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random_);
    }

    /// Lines all over the sphere, pointing down, or either way.
    std::vector<Line> Lines(std::size_t count, double leastPlunge = 0) {
        std::vector<Line> lines(count);
        for (Line& line : lines) {
            line = {Between(leastPlunge, 90), Between(0, 360)};
        }
        return lines;
    }

    std::vector<Plane> Planes(std::size_t count) {
        std::vector<Plane> planes(count);
        for (Plane& plane : planes) {
            plane = {Between(0, 90), Between(0, 360)};
        }
        return planes;
    }

private:
    std::mt19937 random_;
};

inline testing::Vector TrueVector(const Line& line) {
    return testing::LineVector(testing::Radians(line.plunge), testing::Radians(line.trend));
}

inline testing::Vector TrueNormal(const Plane& plane) {
    return testing::PlaneNormal(testing::Radians(plane.dip), testing::Radians(plane.dipDirection));
}

inline double InDegrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

/// Degrees between two lines as axes.
inline double AxesApart(const Line& a, const Line& b) {
    return InDegrees(testing::AcuteAngleOf(TrueVector(a), TrueVector(b)));
}

/// Degrees between two directed lines.
inline double DirectionsApart(const Line& a, const Line& b) {
    return InDegrees(testing::AngleOf(TrueVector(a), TrueVector(b)));
}

} // namespace quandrel::api
