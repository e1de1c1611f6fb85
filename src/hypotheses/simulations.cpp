// SPDX-License-Identifier: MIT

#include "hypotheses/simulations.h"

#include "platform/platform.h"

namespace quandrel {

namespace {

constexpr std::int64_t kStepsOfTest = 1000;

/// The user presses Esc and sees the end of it at once, and asking takes no time.
constexpr std::chrono::milliseconds kBetweenQuestions{100};

} // namespace

Simulations::Simulations(const TestChoice& choice, int count)
    : choice_(choice)
    , step_(" Please wait - simulating for tests; Esc stops it", count * kStepsOfTest,
            choice.watcher) {}

bool Simulations::GoesOn(double done) {
    step_.Reach(run_ * kStepsOfTest + static_cast<std::int64_t>(done * kStepsOfTest));
    if (choice_.watcher != nullptr && Clock::now() - asked_ >= kBetweenQuestions) {
        isStopped_ = isStopped_ || choice_.watcher->CancelRequested();
        asked_ = Clock::now();
    }
    return !isStopped_;
}

SimulatedOutcome
Simulations::Run(ProbabilityBy by,
                 const std::function<std::optional<TestOutcome>(const Repetition&)>& test) {
    if (by == ProbabilityBy::Simulation && !choice_.simulates) {
        return {TestState::Waiting, {}};
    }
    if (by == ProbabilityBy::Simulation && isStopped_) {
        return {TestState::Stopped, {}};
    }
    Repetition repetition;
    repetition.tries = choice_.tries;
    repetition.seed = static_cast<std::uint64_t>(choice_.seed);
    repetition.threads = ThreadsToUse();
    repetition.goesOn = [this](double done) { return GoesOn(done); };
    const std::optional<TestOutcome> outcome = test(repetition);
    ++run_;
    if (outcome) {
        return {TestState::Done, *outcome};
    }
    return {isStopped_ ? TestState::Stopped : TestState::Undefined, {}};
}

} // namespace quandrel
