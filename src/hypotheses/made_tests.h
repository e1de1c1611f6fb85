// SPDX-License-Identifier: MIT
//
// Parts from which lists of tests are made.

#pragma once

#include "hypotheses/row_tests.h"
#include "hypotheses/simulations.h"
#include "orientation/test_outcome.h"

#include <string>

namespace quandrel {

/// A test with its outcome.
[[nodiscard]] RowTest DoneTest(const std::string& name, const std::string& symbol,
                               const TestOutcome& outcome, const std::string& sentence);

/// A test that the rows do not have.
[[nodiscard]] RowTest UndefinedTest(const std::string& name, const std::string& symbol,
                                    const std::string& reason);

/// A sentence about the tests before it.
[[nodiscard]] RowTest Remark(const std::string& name, const std::string& sentence);

/// A number estimated from the rows.
[[nodiscard]] RowTest Estimate(const std::string& name, const std::string& symbol, double value,
                               const std::string& sentence);

/// A test that may have been simulated.
///
/// @param done  the test, if it came to an end
/// @param undefined  why the rows do not have it
[[nodiscard]] RowTest SimulatedTest(TestState state, RowTest done, const std::string& undefined);

/// "12 axes": a number with what is counted, in the singular of one.
[[nodiscard]] std::string CountText(std::size_t count, RowsTestedAs as);

/// The tests of a sample of a net and of two of them, which TestsOf chooses from.
[[nodiscard]] RowTests TestsOfNet(const TestSample& sample);
[[nodiscard]] RowTests TestsOfNets(const TestSample& first, const TestSample& second,
                                   const TestChoice& choice);

/// Those of roses.
[[nodiscard]] RowTests TestsOfRose(const TestSample& sample, const TestChoice& choice);
[[nodiscard]] RowTests TestsOfRoses(const TestSample& first, const TestSample& second,
                                    const TestChoice& choice);

} // namespace quandrel
