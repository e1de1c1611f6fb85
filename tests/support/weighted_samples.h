// SPDX-License-Identifier: MIT
//
// Random samples as rows of equal weights.

#pragma once

#include "statistics/fabric_kernels.h"
#include "support/random_samples.h"

namespace quandrel {

/// n of what a procedure draws from a random stream, each of weight 1.
template <class Draw>
WeightedDirections WeightedSampleOf(RandomStream& random, int n, Draw draw) {
    WeightedDirections sample;
    sample.directions = SampleOf(n, [&] { return draw(random); });
    sample.weights.assign(sample.directions.size(), 1);
    return sample;
}

} // namespace quandrel
