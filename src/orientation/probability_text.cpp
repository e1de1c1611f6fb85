// SPDX-License-Identifier: MIT

#include "orientation/probability_text.h"

#include "orientation/number_text.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kLeastPrinted = 0.001;
constexpr double kMoreDecimalsBelow = 0.1;

} // namespace

std::string ProbabilityText(double probability) {
    if (probability < kLeastPrinted) {
        return "p < " + FormatNumber(kLeastPrinted, "0.000");
    }
    return "p = " + FormatNumber(probability, probability < kMoreDecimalsBelow ? "0.000" : "0.00");
}

std::string OutcomeText(std::string_view symbol, const TestOutcome& outcome, double factor) {
    const double statistic = factor * outcome.statistic;
    const std::string number = std::isinf(statistic) ? "infinite" : FormatNumber(statistic, "0.00");
    return std::string(symbol) + " = " + number + ", " + ProbabilityText(outcome.probability);
}

} // namespace quandrel
