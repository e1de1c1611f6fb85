// SPDX-License-Identifier: MIT

#include "density/direct_density.h"

#include "orientation/direction_vectors.h"

namespace quandrel {

namespace {

template <class Weight>
double SumAt(const Weight& weightOf, bool areAxes, std::span<const Direction> rows,
             std::span<const double> rowWeights, const Direction& place) {
    double sum = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const Direction& line = rows[row];
        const double product = DotProduct(line, place);
        const double weight = weightOf(areAxes ? std::abs(product) : product);
        sum += rowWeights.empty() ? weight : weight * rowWeights[row];
    }
    return sum;
}

} // namespace

double DirectDensity(const DensityFormula& formula, std::span<const Direction> rows,
                     std::span<const double> rowWeights, const Direction& place) {
    const bool areAxes = formula.sense == LineSense::Axes;
    return WithWeight(formula, [&](const auto& weightOf) {
        return SumAt(weightOf, areAxes, rows, rowWeights, place);
    });
}

} // namespace quandrel
