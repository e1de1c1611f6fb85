// SPDX-License-Identifier: MIT
//
// Which confidence region a sample gets, and when it is refused.
//
// Without a wanted method, fewer than kLeastCountOfAsymptotics rows get the bootstrap. More axes
// get Watson's cone if symmetry about the centre is not rejected, else the ellipse. More directions
// get Fisher's cone under its conditions, else the ellipse from kLeastCountOfEllipse rows on, else
// the bootstrap.
//
// A region of the girdle's pole is refused when symmetry about the principal axis is not rejected,
// one of the principal axis when symmetry about the girdle's pole is not: these axes may then have
// no place of their own. A wanted method is refused when its conditions are not met. A refused
// region is computed all the same.

#pragma once

#include "statistics/bootstrap_region.h"
#include "statistics/confidence_region.h"
#include "statistics/region_sample.h"

#include <optional>
#include <span>

namespace quandrel {

/// The number of rows from which regions for large samples are trusted.
inline constexpr double kLeastCountOfAsymptotics = 50;

/// What region is asked for.
struct RegionChoice {
    RegionTarget target = RegionTarget::PrincipalAxis; ///< of the kind of the sample
    double level = 0.95;                               ///< above 0, below 1
    std::optional<RegionMethod>
        method; ///< one of MethodsFor(target); empty for the automatic choice
    BootstrapOptions bootstrap;
};

/// A region, with the resamples if it is one of the bootstrap.
struct ChosenRegion {
    ConfidenceRegion region;
    Resampled resampled;
};

/// The methods that a target has, in the order of a dialog.
[[nodiscard]] std::span<const RegionMethod> MethodsFor(RegionTarget target);

/// The region of a sample.
///
/// @return empty when the callback of the bootstrap stopped it. A sample without the target has an
///         undefined region with its reason.
[[nodiscard]] std::optional<ChosenRegion> ChooseRegion(const RegionSample& sample,
                                                       const RegionChoice& choice);

/// The region of another level by the same method and from the same resamples. O(n).
///
/// @param chosen  of the same sample
[[nodiscard]] ConfidenceRegion RegionAtLevel(const RegionSample& sample, const ChosenRegion& chosen,
                                             double level);

} // namespace quandrel
