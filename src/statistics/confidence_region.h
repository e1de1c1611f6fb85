// SPDX-License-Identifier: MIT
//
// Confidence regions on the sphere: what they are, whether they hold a direction, their outlines.
//
// A region is bounded by an ellipse in the components of a unit vector along two axes at right
// angles to the centre: (d1/c1)^2 + (d2/c2)^2 <= 1. A cone is one with c1 = c2. It is not an
// ellipse on any map: its points are (d1, d2, sqrt(1 - d1^2 - d2^2)).

#pragma once

#include "orientation/angles.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace quandrel {

/// The levels that are offered.
inline constexpr std::array kRegionLevels = {0.63, 0.90, 0.95, 0.99};

/// What is estimated: the axis of the greatest eigenvalue, the axis of the least (the pole of the
/// girdle), or the mean of directions.
enum class RegionTarget { PrincipalAxis, GirdlePole, MeanDirection };

/// How a region is computed. The ellipse is that of directions for the mean of directions, else
/// that of axes.
enum class RegionMethod { FisherCone, WatsonCone, Ellipse, Bingham, Bootstrap };

/// Given; refused, because its conditions are not met, but computed all the same; or without
/// bounds.
enum class RegionState { Given, Refused, Undefined };

/// Why a region is refused or undefined.
enum class RegionReason {
    None,
    TooFewRows,
    TooManyRows,      ///< for a bootstrap
    AxesAlike,        ///< the eigenvalue of the centre, or the mean, is not set apart
    RowsAlike,        ///< the rows share a line or a great circle
    WithoutBounds,    ///< a semi-axis, or the quantile of the bootstrap, is not finite
    NotAGirdle,       ///< symmetry about the principal axis is not rejected
    NotACluster,      ///< symmetry about the girdle's pole is not rejected
    NotSymmetric,     ///< about the centre, as the method requires
    TooDispersed,     ///< the concentration is below that of the method
    FewForTheEllipse, ///< of directions
    NoMaximum,        ///< of the likelihood
};

/// Why the method was taken.
enum class RegionGrounds { Wanted, FewRows, Symmetric, NotSymmetric, TooDispersed };

/// A region with what is known of it. Angles are in radians.
struct ConfidenceRegion {
    RegionTarget target = RegionTarget::PrincipalAxis;
    RegionMethod method = RegionMethod::Ellipse;
    double level = 0; ///< 0 to 1
    double count = 0; ///< number of rows, or the effective number of weighted ones

    Direction centre;                 ///< unit; of an axis the lower end
    std::array<Direction, 2> frame{}; ///< unit, at right angles to the centre and each other

    /// The bounds of the components along the frame, the greater first: sines of the semi-axes.
    /// Above 1 or infinite in a region without bounds, 0 where there is no centre or no spread.
    std::array<double, 2> components{};

    RegionState state = RegionState::Given;
    RegionReason reason = RegionReason::None;
    RegionGrounds grounds = RegionGrounds::Wanted;

    /// Probability by the test of symmetry about the centre, where it was made.
    std::optional<double> symmetry;

    /// For axes, probability by the test of symmetry about the other of e1 and e3.
    std::optional<double> otherSymmetry;

    /// Fisher's k, or the two lesser concentrations of Bingham, where they were estimated.
    std::optional<double> concentration;
    std::optional<std::array<double, 2>> binghamConcentrations;

    int resamples = 0; ///< of a bootstrap
};

/// Whether a region can be drawn: it is given, or refused but bounded.
[[nodiscard]] bool HasBounds(const ConfidenceRegion& region);

/// The semi-axes in radians, 0 to pi/2, the longer first; empty without bounds.
[[nodiscard]] std::optional<std::array<double, 2>> SemiAxes(const ConfidenceRegion& region);

/// Whether a region holds a direction, or, of axes, the line along it. One with a bound above 1 is
/// taken by its formula; an infinite one holds everything.
[[nodiscard]] bool Contains(const ConfidenceRegion& region, const Direction& direction);

/// The outline as a closed polygon: its last vertex is the first one.
///
/// @param sides  3 or more
/// @return sides + 1 unit vectors in order, on the side of the centre; empty without bounds
[[nodiscard]] std::vector<Direction> RegionOutline(const ConfidenceRegion& region,
                                                   std::size_t sides);

/// The band of the great circles whose poles are in a region: its two edges, closed polygons.
///
/// @param sides  3 or more
/// @return sides + 1 unit vectors each, on the side of the centre and on the other; empty without
///         bounds
///
/// The poles form an elliptic cone with the tangents t1, t2 of the semi-axes, so the band is its
/// dual: a unit vector x is in it where x3^2 <= (t1 x1)^2 + (t2 x2)^2, x3 along the centre.
[[nodiscard]] std::array<std::vector<Direction>, 2> GirdleBand(const ConfidenceRegion& region,
                                                               std::size_t sides);

/// A region from a quadratic form.
///
/// @param plane       two unit vectors at right angles to the centre and each other
/// @param covariance  [0] and [2] of the components along them, [1] mixed
/// @param limit       the region is d' covariance^-1 d <= limit, limit >= 0 or infinite
///
/// Sets centre, frame and components, and the state: undefined without bounds, or where the
/// covariance is singular.
void SetEllipse(ConfidenceRegion& region, const Direction& centre,
                const std::array<Direction, 2>& plane, const std::array<double, 3>& covariance,
                double limit);

/// Samples of fewer rows have no region.
inline constexpr double kFewestRowsOfRegion = 2;

/// A region without its bounds: undefined, because of too few rows until there is another reason.
[[nodiscard]] ConfidenceRegion UnboundedRegion(RegionTarget target, RegionMethod method,
                                               double level, double count);

/// A region of given semi-axes along given axes, as sines. They are sorted; the state is set.
void SetSemiAxes(ConfidenceRegion& region, const Direction& centre,
                 const std::array<Direction, 2>& plane, const std::array<double, 2>& components);

} // namespace quandrel
