// SPDX-License-Identifier: MIT
//
// Confidence regions of principal axes and mean directions.
//
// Angles are degrees. Lines are used unrounded.
//
// Example: the region of the fold axis of a girdle of poles, chosen by the program.
//
//     namespace qd = quandrel::api;
//     const std::vector<qd::Line> poles = {{70, 180}, {50, 131}, {50, 229}, {20, 105}, {21, 255},
//                                          {62, 150}, {61, 211}, {35, 117}, {34, 242}, {71, 178}};
//     const auto region = qd::RegionOf(poles, {.about = qd::RegionAbout::kGirdlePole});
//     std::cout << region->method << ' ' << region->isGiven << '\n'; // -> bootstrap 1
//     std::cout << region->outline.size() << '\n'; // -> 181
//     std::cout << (region->semiAxes->at(0) < 30) << '\n'; // -> 1

#pragma once

#include "quandrel/orientation.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel::api {

/// What is estimated.
enum class RegionAbout {
    kPrincipalAxis = 1, ///< the axis of the greatest eigenvalue
    kGirdlePole = 2,    ///< the axis of the least, such as a fold axis of poles
    kMeanDirection = 4, ///< of directions: the signs of the plunges matter
};

enum class RegionMethod {
    kAutomatic = 0,
    kFisherCone = 1,       ///< of directions; R. A. Fisher (1953), Proc. R. Soc. London A 217
    kDirectionEllipse = 2, ///< of directions, any distribution; Fisher, Lewis, Embleton (1987)
    kWatsonCone = 3,       ///< of axes; Fisher, Lewis, Embleton (1987), ch. 6
    kAxisEllipse = 4,      ///< of axes, any distribution; M. J. Prentice (1984), Biometrika 71
    kBingham = 5,          ///< of axes; C. Bingham (1974), Annals of Statistics 2
    kBootstrap = 6,        ///< of both, up to 10,000 lines
};

struct RegionChoice {
    RegionAbout about = RegionAbout::kPrincipalAxis;
    RegionMethod method = RegionMethod::kAutomatic; ///< one that `about` has
    double level = 0.95;                            ///< above 0 and below 1
    int resamples = 2000;                           ///< of a bootstrap, 2,000 to 10,000
    std::uint64_t seed = 1;
    unsigned threads = 1; ///< 1 or more; no result depends on them
};

struct Region {
    bool isGiven = false; ///< false where the conditions of the method are not met; the reason says
                          ///< why, and bounds are those that it would have
    std::string reason;   ///< empty for a region that is given
    std::string method;   ///< "cone of Watson", "bootstrap"
    double count = 0;     ///< n, the sum of the counts
    std::optional<Line> centre;
    std::optional<std::array<double, 2>> semiAxes; ///< the longer first; nothing without bounds
    std::optional<Line> towards;                   ///< direction of the longer one
    std::vector<Line> outline;      ///< closed: the last is the first one; a line beyond the
                                    ///< primitive has a negative plunge. Empty without bounds
    std::optional<double> symmetry; ///< probability of rotational symmetry about the centre
    int resamples = 0;              ///< of a bootstrap
};

/// The region of n lines.
///
/// @param counts  n numbers >= 0: measurements that share a line; empty for one each
/// @return nothing without lines. Throws std::invalid_argument for a method that `about` lacks
///
/// The automatic choice takes the bootstrap for fewer than 50 lines, a cone where symmetry about
/// the centre is not rejected, else an ellipse.
[[nodiscard]] std::optional<Region> RegionOf(std::span<const Line> lines,
                                             const RegionChoice& choice = {},
                                             std::span<const double> counts = {});

} // namespace quandrel::api
