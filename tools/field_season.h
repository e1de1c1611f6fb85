// SPDX-License-Identifier: MIT

// Tools for an invented field season: a random generator, directions in space, and whole degrees as
// read from a compass.
//
// Angles are degrees, as in data files; directions are unit vectors (north, east, down).
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

namespace quandrel {

inline constexpr double kDegree = std::numbers::pi / 180.0;

// ---- Random numbers -----------------------------------------------------------------------------

/// Random numbers that are the same on every machine, unlike those of <random>. SplitMix64: G. L.
/// Steele, D. Lea, C. H. Flood, Fast splittable pseudorandom number generators, OOPSLA 2014.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : state_(seed) {}

    /// In [0, 1).
    double Uniform() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }

    /// By Box and Muller, one number of the pair.
    double Normal(double mean, double deviation) {
        const double radius = std::sqrt(-2.0 * std::log(1.0 - Uniform()));
        const double angle = 2.0 * std::numbers::pi * Uniform();
        return mean + deviation * radius * std::cos(angle);
    }

    double LogNormal(double median, double deviation) {
        return median * std::exp(Normal(0.0, deviation));
    }

    std::size_t Index(std::size_t count) {
        return static_cast<std::size_t>(Uniform() * static_cast<double>(count));
    }

private:
    std::uint64_t Next() {
        state_ += 0x9e3779b97f4a7c15ULL;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebULL;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state_;
};

// ---- Directions ---------------------------------------------------------------------------------

struct Direction {
    double north, east, down;
};

inline Direction operator*(double factor, const Direction& v) {
    return {factor * v.north, factor * v.east, factor * v.down};
}

inline Direction operator+(const Direction& a, const Direction& b) {
    return {a.north + b.north, a.east + b.east, a.down + b.down};
}

inline double Dot(const Direction& a, const Direction& b) {
    return a.north * b.north + a.east * b.east + a.down * b.down;
}

inline Direction Cross(const Direction& a, const Direction& b) {
    return {a.east * b.down - a.down * b.east, a.down * b.north - a.north * b.down,
            a.north * b.east - a.east * b.north};
}

inline double AzimuthOf(const Direction& v) {
    return std::atan2(v.east, v.north) / kDegree;
}

inline Direction Unit(const Direction& v) {
    return (1.0 / std::sqrt(Dot(v, v))) * v;
}

inline Direction Downward(const Direction& v) {
    return v.down < 0.0 ? -1.0 * v : v;
}

inline Direction LineDirection(double plunge, double trend) {
    const double p = kDegree * plunge;
    const double t = kDegree * trend;
    return {std::cos(p) * std::cos(t), std::cos(p) * std::sin(t), std::sin(p)};
}

inline Direction PoleDirection(double dip, double dipDirection) {
    return LineDirection(90.0 - dip, dipDirection + 180.0);
}

/// Rotates v about a unit axis, right-handed in (north, east, down). O. Rodrigues, 1840.
inline Direction Turned(const Direction& v, const Direction& axis, double degrees) {
    const double angle = kDegree * degrees;
    return std::cos(angle) * v + std::sin(angle) * Cross(axis, v)
           + (Dot(axis, v) * (1.0 - std::cos(angle))) * axis;
}

/// v with a measuring or natural error: rotated in a random direction by a normally distributed
/// angle of the given standard deviation.
inline Direction Scattered(Random& random, const Direction& v, double deviation) {
    const double off = random.Normal(0.0, deviation);
    const double way = 180.0 * random.Uniform();
    const Direction helper = std::abs(v.down) < 0.9 ? Direction{0, 0, 1} : Direction{1, 0, 0};
    return Turned(v, Turned(Unit(Cross(v, helper)), v, way), off);
}

// ---- Whole degrees as read from a compass -------------------------------------------------------

inline int Whole(double value) {
    return static_cast<int>(std::lround(value));
}

inline int WholeAzimuth(double degrees) {
    return ((Whole(degrees) % 360) + 360) % 360;
}

inline double PlungeOf(const Direction& v) {
    return std::asin(std::clamp(v.down, -1.0, 1.0)) / kDegree;
}

struct WholePlane {
    int dip, dipDirection;
};

struct WholeLine {
    int plunge, trend;
};

inline WholePlane PlaneOf(const Direction& pole) {
    const Direction down = Downward(pole);
    return {90 - Whole(PlungeOf(down)), WholeAzimuth(AzimuthOf(down) + 180.0)};
}

/// The strike with the dip to its right.
inline int StrikeOf(const WholePlane& plane) {
    return WholeAzimuth(plane.dipDirection - 90);
}

/// The downward end of a line; the plunge is negative when v itself points upward.
inline WholeLine LineOf(const Direction& v) {
    const Direction down = Downward(v);
    const int plunge = Whole(PlungeOf(down));
    return {v.down < 0.0 ? -plunge : plunge, WholeAzimuth(AzimuthOf(down))};
}

} // namespace quandrel
