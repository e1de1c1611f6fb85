// SPDX-License-Identifier: MIT
//
// Repeated random tries, such as resamples, permutations of rows or samples of a hypothesis, and
// the probabilities found by them.
//
// Tries run in blocks of kTriesOfBlock, each with a random stream of its own. The result depends on
// the seed and the number of tries, not on the number of threads.

#pragma once

#include "orientation/random_stream.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace quandrel {

/// Tries with one random stream.
inline constexpr int kTriesOfBlock = 100;

/// How often and with what numbers something is tried.
struct Repetition {
    int tries = 9999; ///< 1 or more
    std::uint64_t seed = 20261122;
    unsigned threads = 1; ///< that work, the caller's among them
    /// Receives the share of the tries that are done, above 0, at most 1; returns false to stop.
    /// Called by the caller's thread, after each of its blocks: at least once.
    std::function<bool(double done)> goesOn;
};

/// Work on the tries from the first one up to the last one, which is not included.
using RandomBlock = std::function<void(RandomStream& random, int first, int last)>;

/// Runs all tries, block by block; false when stopped.
///
/// @param makeBlock  makes the work of one thread, with working memory of its own. Called by the
///                   caller's thread for each thread that works
[[nodiscard]] bool RunBlocks(const Repetition& repetition,
                             const std::function<RandomBlock()>& makeBlock);

/// One try: whether its result counts.
using RandomTry = std::function<bool(RandomStream& random)>;

/// The number of tries that count; empty when stopped.
///
/// @param makeTry  makes the try of one thread, as in RunBlocks
[[nodiscard]] std::optional<int> CountTries(const Repetition& repetition,
                                            const std::function<RandomTry()>& makeTry);

/// The probability of a test by tries under its hypothesis, (1 + counted) / (1 + tries): the data
/// are one of the outcomes. It is never 0, and the test keeps its level exactly. Empty when
/// stopped.
///
/// Formula: M. Dwass (1957), Annals of Mathematical Statistics 28, 181-187.
///
/// @param makeTry  as in CountTries, of tries that count when as extreme as the data or more
[[nodiscard]] std::optional<double> ProbabilityByTries(const Repetition& repetition,
                                                       const std::function<RandomTry()>& makeTry);

} // namespace quandrel
