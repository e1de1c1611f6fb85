// SPDX-License-Identifier: MIT
//
// The simulations of a list of tests, one after another: their progress together, and their end
// when the user stops one.

#pragma once

#include "core/told_step.h"
#include "hypotheses/row_tests.h"
#include "orientation/repeated_tries.h"
#include "orientation/test_outcome.h"

#include <chrono>
#include <functional>
#include <optional>

namespace quandrel {

/// The outcome of a test with a state.
struct SimulatedOutcome {
    TestState state = TestState::Done;
    TestOutcome outcome; ///< of a test that is done
};

/// How the probability of a test is found.
enum class ProbabilityBy { Formula, Simulation };

class Simulations {
public:
    /// @param count  of tests that may simulate
    Simulations(const TestChoice& choice, int count);

    /// Runs a test. Once one was stopped, the others that simulate are too.
    ///
    /// @param by    whether the test simulates for this sample
    /// @param test  empty when stopped, or without a statistic
    [[nodiscard]] SimulatedOutcome
    Run(ProbabilityBy by, const std::function<std::optional<TestOutcome>(const Repetition&)>& test);

private:
    [[nodiscard]] bool GoesOn(double done);

    using Clock = std::chrono::steady_clock;

    const TestChoice& choice_;
    ToldStep step_;
    Clock::time_point asked_ = Clock::now(); ///< when the user was last asked whether to stop
    int run_ = 0;
    bool isStopped_ = false;
};

} // namespace quandrel
