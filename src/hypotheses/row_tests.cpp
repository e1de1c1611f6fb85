// SPDX-License-Identifier: MIT

#include "hypotheses/row_tests.h"

#include "hypotheses/made_tests.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

/// Rows times tries up to which simulations take a fraction of a second.
constexpr double kQuickWork = 6e6;

constexpr const char* kWaiting = "Its probability is found by simulation.";
constexpr const char* kStopped = "The simulation was stopped.";
constexpr const char* kNoRows = "There are no rows.";
constexpr const char* kNoSingleRows = "A summary has no single rows to test.";
constexpr const char* kOtherSense = "Axes, directions and azimuths are not compared with each "
                                    "other.";

RowTests NoTests(const char* reason) {
    RowTests tests;
    tests.tests.push_back(UndefinedTest("Tests", {}, reason));
    return tests;
}

} // namespace

RowTest DoneTest(const std::string& name, const std::string& symbol, const TestOutcome& outcome,
                 const std::string& sentence) {
    return {name, symbol, TestState::Done, outcome.statistic, outcome.probability, sentence};
}

RowTest UndefinedTest(const std::string& name, const std::string& symbol,
                      const std::string& reason) {
    return {name, symbol, TestState::Undefined, {}, {}, reason};
}

RowTest Remark(const std::string& name, const std::string& sentence) {
    return {name, {}, TestState::Done, {}, {}, sentence};
}

RowTest Estimate(const std::string& name, const std::string& symbol, double value,
                 const std::string& sentence) {
    return {name, symbol, TestState::Done, value, {}, sentence};
}

RowTest SimulatedTest(TestState state, RowTest done, const std::string& undefined) {
    if (state == TestState::Done) {
        return done;
    }
    const std::string words = state == TestState::Waiting   ? kWaiting
                              : state == TestState::Stopped ? kStopped
                                                            : undefined;
    return {done.name, done.symbol, state, {}, {}, words};
}

std::string CountText(std::size_t count, RowsTestedAs as) {
    constexpr std::array<const char*, 4> kNames = {"axes", "directions", "axial azimuths",
                                                   "azimuths"};
    constexpr std::array<const char*, 4> kOfOne = {"axis", "direction", "axial azimuth", "azimuth"};
    const auto place = static_cast<std::size_t>(as);
    return std::to_string(count) + " " + (count == 1 ? kOfOne : kNames)[place];
}

RowTests TestsOf(const TestSample& sample, const TestChoice& choice) {
    if (sample.Count() == 0) {
        return NoTests(sample.areCells ? kNoSingleRows : kNoRows);
    }
    return AreAzimuths(sample.as) ? TestsOfRose(sample, choice) : TestsOfNet(sample);
}

RowTests TestsOf(const TestSample& first, const TestSample& second, const TestChoice& choice) {
    if (first.as != second.as) {
        return NoTests(kOtherSense);
    }
    if (first.Count() == 0 || second.Count() == 0) {
        return NoTests(first.areCells || second.areCells ? kNoSingleRows : kNoRows);
    }
    return AreAzimuths(first.as) ? TestsOfRoses(first, second, choice)
                                 : TestsOfNets(first, second, choice);
}

bool IsUnfinished(const RowTests& tests) {
    return std::ranges::any_of(tests.tests, [](const RowTest& test) {
        return test.state == TestState::Waiting || test.state == TestState::Stopped;
    });
}

bool AreQuick(std::size_t rows, int tries) {
    return static_cast<double>(rows) * tries <= kQuickWork;
}

} // namespace quandrel
