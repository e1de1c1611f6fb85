// SPDX-License-Identifier: MIT
//
// The greatest densities that rows spread evenly reach by chance, from simulated samples: where a
// plot is denser than nearly all of them anywhere, its density is significant.

#pragma once

#include "density/density_method.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// How even samples are simulated.
struct EvenSampling {
    int samples = 999;
    std::uint64_t seed = 950;
    bool wholeDegrees = false; ///< rows are rounded as those of the plot
    unsigned threads = 1;      ///< 1 or more; the result does not depend on them

    /// Called by the caller's thread from time to time with the samples that are done; false stops.
    std::function<bool(int done)> onDone = nullptr;
};

/// With more rows than this, the numbers of rows in the cells of a lattice are drawn instead.
inline constexpr std::int64_t kMostDrawnRows = 10000;

/// The greatest sum of weights anywhere on the net of each sample, ascending. Nothing when the
/// caller stops it.
///
/// The maxima of smooth methods are accurate to 0.1%; those of counts are the greatest that a
/// search about the densest rows finds. A sample of 1,000 rows takes about a millisecond.
///
/// @param formula  of `rows` rows
[[nodiscard]] std::optional<std::vector<double>>
MaximaOfEvenSamples(const DensityFormula& formula, std::int64_t rows, const EvenSampling& sampling);

/// The sum that an even sample exceeds somewhere with a probability of 5%.
struct EnvelopeLevel {
    double sum = 0;
    double error = 0; ///< standard error by the chance of the simulation
};

/// @param maxima  of MaximaOfEvenSamples, at least 99
[[nodiscard]] EnvelopeLevel EnvelopeOf(std::span<const double> maxima);

} // namespace quandrel
