// SPDX-License-Identifier: MIT
//
// Confidence regions of the principal axis e3 and of the girdle's pole e1, for large samples.
//
// Each is computed whether its conditions hold or not (region_choice.h). t1 <= t2 <= t3 are the
// eigenvalues; for e3 the centre c is 3 and the others j, k are 1 and 2, for e1 they are 1 and
// 3, 2. A region is undefined where the eigenvalue of the centre does not differ from another by
// kLeastEigenvalue, and where the rows share a line or a great circle.

#pragma once

#include "statistics/confidence_region.h"
#include "statistics/region_sample.h"

namespace quandrel {

/// The cone of axes with rotational symmetry about the centre, sin(q) = sqrt(-ln(1 - level)) s. s
/// is the spherical standard error sqrt((tc - m4)/n)/|tc - t2|, m4 the mean fourth power of the
/// cosine to the centre.
///
/// @param target  the principal axis or the girdle's pole
///
/// Formula: N. I. Fisher, T. Lewis, B. J. J. Embleton, Statistical Analysis of Spherical Data
/// (1987), ch. 6, for Watson's distribution.
[[nodiscard]] ConfidenceRegion WatsonCone(const RegionSample& sample, RegionTarget target,
                                          double level);

/// The ellipse of axes, for any distribution: n d' E^-1 d <= chi-square, d the components along the
/// other eigenvectors, E_jk = mean(p_j p_k p_c^2)/((tc - tj)(tc - tk)), p those of the rows.
///
/// Formula: M. J. Prentice (1984), Biometrika 71, 147-154; Fisher, Lewis, Embleton (1987), ch. 6.
[[nodiscard]] ConfidenceRegion AxisEllipse(const RegionSample& sample, RegionTarget target,
                                           double level);

/// The same ellipse with another limit for n d' E^-1 d, which may be infinite.
[[nodiscard]] ConfidenceRegion AxisEllipseOf(const RegionSample& sample, RegionTarget target,
                                             double level, double limit);

/// The ellipse of Bingham's distribution: the sines of the semi-axes are
/// sqrt(chi-square/(2 n (tc - tj)(kc - kj))), with k by maximum likelihood, k3 = 0. It is where the
/// likelihood, with the concentrations and the other angle as they are, exceeds the bound.
///
/// Formula: C. Bingham (1974), Annals of Statistics 2, 1201-1225.
[[nodiscard]] ConfidenceRegion BinghamEllipse(const RegionSample& sample, RegionTarget target,
                                              double level);

/// Which axis of a frame a target is.
[[nodiscard]] FrameCentre CentreOf(RegionTarget target);

} // namespace quandrel
