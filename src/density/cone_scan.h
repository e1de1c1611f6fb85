// SPDX-License-Identifier: MIT
//
// Whole-degree lines within a cone. On a ring of equal plunge they form an arc about the trend of
// the cone's axis; where the cone extends over the rim, there is a second, opposite arc.
//
// The result for each line is exactly that of AngleBetweenLines: if the end of an arc is too close
// to a line to decide quickly, the lines are tested one by one.

#pragma once

#include "orientation/angles.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

inline constexpr int kRings = 91;       ///< plunges 0 to 90
inline constexpr int kRingTrends = 361; ///< trends 0 to 360; the last equals the first

/// Arcs are given in degrees from -kArcReach to 360 + kArcReach, so that none has to be split.
inline constexpr int kArcReach = 200;

/// A cone about a line, at both of its ends.
class CountingCone {
public:
    /// @param plunge  radians; the sign is ignored
    /// @param trend   radians
    /// @param angle   half-angle, radians, below kPi / 4
    CountingCone(double plunge, double trend, double angle);

    /// Whether AngleBetweenLines of the axis and a line is at most the half-angle.
    [[nodiscard]] bool Contains(int plungeDegrees, int trendDegrees) const;

    /// Reports what is within the cone by calls of
    ///     total.AddRing(plunge)               all lines of a ring
    ///     total.AddArc(plunge, first, last)   those with trends of an arc, degrees
    ///     total.AddLine(plunge, trend)        one line, trend 0 to 360
    /// No line is reported twice.
    template <class Total>
    void Scan(Total& total) const;

private:
    enum class Part { None, Arc, Ring, Unsure };

    /// The intersection of the cone, or of its opposite end, with a ring.
    struct RingPart {
        Part part = Part::None;
        int first = 0; ///< degrees, of an arc
        int last = -1;
    };

    /// @param centre  trend in degrees of the middle of the arc
    /// @param bound   cosine of half its width
    [[nodiscard]] static RingPart PartOf(double centre, double bound);

    double plunge_;
    double trend_;
    double angle_;
    double cosAngle_;
    double sinPlunge_;
    double cosPlunge_;
    double sinTrend_;
    double cosTrend_;
    double trendDegrees_;
    int firstRing_;
    int lastRing_;
};

/// Sines and cosines of whole degrees from 0 to 360, of the radians of DegToRad.
struct WholeDegrees {
    std::array<double, kRingTrends> sine{};
    std::array<double, kRingTrends> cosine{};
};

[[nodiscard]] const WholeDegrees& WholeDegreeTable();

// The distance to a bound within which the arithmetic is not trusted. The widths of arcs are
// accurate to 1e-7 degrees while the product of the cosines and the bound are not near 0 or 1.
inline constexpr double kUnsureDegrees = 1e-6;
inline constexpr double kUnsureBound = 1e-6;
inline constexpr double kUnsureProduct = 1e-4;

inline CountingCone::RingPart CountingCone::PartOf(double centre, double bound) {
    if (bound > 1 + kUnsureBound) {
        return {};
    }
    if (bound < -1 - kUnsureBound) {
        return {Part::Ring, 0, 0};
    }
    if (std::abs(bound) > 1 - kUnsureBound) {
        return {Part::Unsure, 0, 0};
    }
    const double halfWidth = std::acos(bound) * (180 / kPi);
    const double first = std::ceil(centre - halfWidth - kUnsureDegrees);
    const double last = std::floor(centre + halfWidth + kUnsureDegrees);
    if (first < centre - halfWidth + kUnsureDegrees || last > centre + halfWidth - kUnsureDegrees) {
        return {Part::Unsure, 0, 0};
    }
    return {Part::Arc, static_cast<int>(first), static_cast<int>(last)};
}

template <class Total>
void CountingCone::Scan(Total& total) const {
    const WholeDegrees& degrees = WholeDegreeTable();
    for (int ring = firstRing_; ring <= lastRing_; ++ring) {
        const auto place = static_cast<std::size_t>(ring);
        const double product = cosPlunge_ * degrees.cosine[place];
        RingPart near{Part::Unsure, 0, 0};
        RingPart far{Part::Unsure, 0, 0};
        if (product > kUnsureProduct) {
            const double height = sinPlunge_ * degrees.sine[place];
            near = PartOf(trendDegrees_, (cosAngle_ - height) / product);
            far = PartOf(trendDegrees_ + (trendDegrees_ < 180 ? 180 : -180),
                         (cosAngle_ + height) / product);
        }
        if (near.part == Part::Unsure || far.part == Part::Unsure) {
            for (int trend = 0; trend < kRingTrends; ++trend) {
                if (Contains(ring, trend)) {
                    total.AddLine(ring, trend);
                }
            }
            continue;
        }
        if (near.part == Part::Ring) {
            total.AddRing(ring);
            continue;
        }
        for (const RingPart& arc : {near, far}) {
            if (arc.part == Part::Arc) {
                total.AddArc(ring, arc.first, arc.last);
            }
        }
    }
}

} // namespace quandrel
