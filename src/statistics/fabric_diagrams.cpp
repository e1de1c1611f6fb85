// SPDX-License-Identifier: MIT

#include "statistics/fabric_diagrams.h"

#include <algorithm>

namespace quandrel {

std::optional<LogRatioPlace> LogRatioPlaceOf(const DescendingEigenvalues& s) {
    const FabricShape shape = ShapeOf({s[2], s[1], s[0]});
    if (shape.zeta == kFailedResult) {
        return std::nullopt;
    }
    // The solver gives equal eigenvalues in either order of their rounding errors.
    LogRatioPlace place{std::max(shape.ratio12, 0.0), std::max(shape.ratio23, 0.0), {}, 0};
    place.c = place.x + place.y;
    if (shape.gamma != kFailedResult) {
        place.k = shape.gamma;
    }
    return place;
}

FabricShares SharesOf(const DescendingEigenvalues& s) {
    return {s[0] - s[1], 2 * (s[1] - s[2]), 3 * s[2]};
}

double CylindricityOf(const FabricShares& shares) {
    return shares.point + shares.girdle;
}

} // namespace quandrel
