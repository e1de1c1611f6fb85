// SPDX-License-Identifier: MIT
//
// Probabilities and statistics of tests as texts.

#pragma once

#include "orientation/test_outcome.h"

#include <string>
#include <string_view>

namespace quandrel {

/// "p = 0.21", below 0.1 with three decimals, "p < 0.001" below that.
[[nodiscard]] std::string ProbabilityText(double probability);

/// "U = 161.92, p = 0.079". An infinite statistic is "infinite".
///
/// @param symbol  of the statistic
/// @param factor  from the statistic to the unit in which it is printed
[[nodiscard]] std::string OutcomeText(std::string_view symbol, const TestOutcome& outcome,
                                      double factor = 1);

} // namespace quandrel
