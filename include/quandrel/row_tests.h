// SPDX-License-Identifier: MIT
//
// Statistical tests of lines and of azimuths, with their results in words.
//
// Angles are degrees; values are used unrounded. Probabilities that no table has are simulated with
// a seed: the same rows, tries and seed give the same results on any machine and with any number of
// threads.
//
// Example: whether some axes are evenly spread.
//
//     namespace qd = quandrel::api;
//     const std::vector<qd::Line> axes = {{60, 120}, {62, 118}, {58, 125}, {61, 300}, {64, 110}};
//     const std::vector<qd::RowTest> tests = qd::TestsOf(axes, qd::Sense::kAxes, {.tries = 999});
//     std::cout << tests[0].name << '\n'; // -> Uniform axes (Bingham)
//     std::cout << (*tests[0].probability < 0.05) << '\n'; // -> 1

#pragma once

#include "quandrel/orientation.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel::api {

struct TestChoice {
    int tries = 9999; ///< of a simulation, 99 to 99,999
    std::int32_t seed = 20261122;
};

/// A test or an estimate.
struct RowTest {
    std::string name;
    std::string symbol;              ///< of the statistic; empty for a sentence alone
    std::optional<double> statistic; ///< nothing where the rows do not have it
    std::optional<double> probability;
    std::string sentence;
};

/// The tests of n lines. Of axes: uniformity, symmetry about both ends of the fabric, cluster or
/// girdle, Fisher's distribution. Of directions also uniformity, symmetry about the mean and
/// Fisher's distribution as directions.
[[nodiscard]] std::vector<RowTest> TestsOf(std::span<const Line> lines, Sense sense,
                                           const TestChoice& choice = {});

/// The tests of two samples: equal mean axes, or mean directions.
[[nodiscard]] std::vector<RowTest> TestsOf(std::span<const Line> first,
                                           std::span<const Line> second, Sense sense,
                                           const TestChoice& choice = {});

/// The tests of n azimuths: uniformity (four tests), von Mises' kappa, the mean direction with its
/// interval.
[[nodiscard]] std::vector<RowTest> TestsOf(std::span<const double> azimuths, Sense sense,
                                           const TestChoice& choice = {});

/// The tests of two samples of azimuths: equal means, equal distributions.
[[nodiscard]] std::vector<RowTest> TestsOf(std::span<const double> first,
                                           std::span<const double> second, Sense sense,
                                           const TestChoice& choice = {});

} // namespace quandrel::api
