// SPDX-License-Identifier: MIT
//
// Confidence regions of axes and directions by the bootstrap, for samples of any size and form.
//
// From the sample, as many rows are drawn with replacement as it is worth. The centre of the sample
// is seen from each resample by T* = n d*' E*^-1 d*, d* its components in the resample's frame, E*
// the resample's matrix (axis_regions.h; of directions V, direction_regions.h). The region is
// n d' E^-1 d <= q, q the quantile of T*: E follows the form of the distribution, q its behaviour
// in samples of this size. N. I. Fisher, P. Hall (1989), J. Amer. Statist. Assoc. 84, 996-1002.

#pragma once

#include "statistics/confidence_region.h"
#include "statistics/region_sample.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace quandrel {

inline constexpr int kFewestResamples = 2000;
inline constexpr int kMostResamples = 10000;

/// The greatest number of rows for which a bootstrap is offered; large samples do not need it.
inline constexpr double kMostRowsOfBootstrap = 10000;

struct BootstrapOptions {
    int resamples = kFewestResamples; ///< 1 or more
    std::uint64_t seed = 19890996;
    unsigned threads = 1; ///< 1 or more, the caller's included

    /// Called by the caller's thread at the start and now and then with the number of resamples
    /// done; false stops.
    std::function<bool(int done)> onDone = nullptr;
};

/// What the resamples say of the centre of the sample.
struct Resampled {
    std::vector<double> statistics; ///< T*, ascending; infinite for a resample without its centre

    /// The centre of each resample in the order of drawing: a unit vector, of axes the lower end;
    /// of no length where directions cancel.
    std::vector<Direction> centres;
};

/// Draws resamples. O(resamples x count).
///
/// @param sample  rows are drawn with probabilities by their weights, the nearest whole number to
///                the count of them
/// @param target  of the kind of the sample
/// @return empty when stopped, and for a sample of no rows or without its centre
///
/// The result depends on sample, target, number and seed alone: each hundred resamples have a
/// random stream of their own, whose bits become rows by integer arithmetic. All else is sums,
/// products, quotients and square roots, which are the same on any machine.
[[nodiscard]] std::optional<Resampled> Resample(const RegionSample& sample, RegionTarget target,
                                                const BootstrapOptions& options);

/// The value that T* stays below at a level: the one in the place level (B + 1), rounded up, of B;
/// infinite without any.
[[nodiscard]] double QuantileOf(const Resampled& resampled, double level);

/// The region of a level from the resamples of the same sample and target.
///
/// It is undefined where the quantile is not finite, or the ellipse is too wide.
[[nodiscard]] ConfidenceRegion BootstrapRegion(const RegionSample& sample, RegionTarget target,
                                               const Resampled& resampled, double level);

} // namespace quandrel
