// SPDX-License-Identifier: MIT

#include "density/contour_levels.h"

#include "density/grid_density.h"

#include <cmath>
#include <limits>

namespace quandrel {

ContourLevelSet ContourLevelsOf(std::int32_t n, double mostDensity) {
    ContourLevelSet set;
    if (n < 1) {
        return set;
    }
    const double most = std::floor(mostDensity);
    std::int32_t level = GridBandBase(n);
    while (set.count < kMostContourLevels && level <= most
           && level <= std::numeric_limits<std::int16_t>::max()) {
        set.levels[static_cast<std::size_t>(set.count)] = static_cast<std::int16_t>(level);
        ++set.count;
        level *= 2;
    }
    return set;
}

} // namespace quandrel
