// SPDX-License-Identifier: MIT
//
// The outcome of a statistical test.

#pragma once

namespace quandrel {

/// A test of a hypothesis: small probabilities speak against it.
struct TestOutcome {
    double statistic = 0;
    double probability = 1; ///< of a statistic at least as large under the hypothesis, 0 to 1
};

/// The level of tests in texts: a hypothesis with a probability below it is rejected.
inline constexpr double kTestLevel = 0.05;

/// Whether a test rejects its hypothesis.
[[nodiscard]] inline bool IsRejected(const TestOutcome& outcome, double level = kTestLevel) {
    return outcome.probability < level;
}

} // namespace quandrel
