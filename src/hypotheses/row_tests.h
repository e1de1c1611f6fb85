// SPDX-License-Identifier: MIT
//
// The statistical tests of the rows of plots.
//
// This folder decides which tests a set of rows has, runs them, and gives their results in words
// and as pictures. The tests themselves are kernels of `statistics` and `rose`.
// Input: sets of rows of plots (row_sets.h), the number of tries and the seed of simulations.
// Output: for each test its name, statistic, probability and a sentence; the quantile plots of the
// tests of Fisher's distribution, drawn on a surface (draw_quantiles.h). Plots are not changed.

#pragma once

#include "hypotheses/row_sets.h"
#include "platform/status_line.h"
#include "statistics/fisher_fit.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The bounds of the number of tries, and the default.
inline constexpr int kFewestTries = 99;
inline constexpr int kMostTries = 99999;
inline constexpr int kUsualTries = 9999;
inline constexpr std::int32_t kUsualSeed = 20261122;

/// How tests are run.
struct TestChoice {
    int tries = kUsualTries; ///< of a simulation
    std::int32_t seed = kUsualSeed;
    bool simulates = true;         ///< false leaves out what is found by simulation
    StatusLine* watcher = nullptr; ///< receives the progress, and says when to stop; may be null
};

/// How far a test came.
enum class TestState {
    Done,
    Undefined, ///< the rows do not have the statistic; the sentence says why
    Waiting,   ///< for a simulation that was not wanted
    Stopped,   ///< its simulation was stopped
};

/// A test or an estimate.
struct RowTest {
    std::string name;
    std::string symbol; ///< of the statistic; empty for a sentence alone
    TestState state = TestState::Done;
    std::optional<double> statistic;
    std::optional<double> probability;
    std::string sentence;
};

/// A quantile plot with its words.
struct QuantilePlot {
    std::string title;
    std::string across; ///< what expected values are
    std::string up;     ///< what found values are
    std::vector<QuantilePoint> points;
    double slope = 1;         ///< of the line through (0, 0) that the hypothesis expects
    bool isAboutZero = false; ///< values of both signs
};

/// The tests of one set of rows, or of two.
struct RowTests {
    std::vector<RowTest> tests;
    std::vector<QuantilePlot> quantiles;
};

/// The tests that a single sample has. Of axes: uniformity, symmetry about e3 and e1, cluster or
/// girdle, Fisher's distribution. Of directions: uniformity, symmetry about the mean, Fisher's
/// distribution, then the tests of axes. Of azimuths: four tests of uniformity, kappa, the mean
/// direction with its interval.
[[nodiscard]] RowTests TestsOf(const TestSample& sample, const TestChoice& choice);

/// The tests of two samples of the same sense: equal means; of azimuths, equal distributions.
[[nodiscard]] RowTests TestsOf(const TestSample& first, const TestSample& second,
                               const TestChoice& choice);

/// Whether a test waits for its simulation, or was stopped.
[[nodiscard]] bool IsUnfinished(const RowTests& tests);

/// Whether the simulations of samples take hardly any time, so that nobody needs to be asked.
///
/// @param rows  of both samples together
[[nodiscard]] bool AreQuick(std::size_t rows, int tries);

} // namespace quandrel
