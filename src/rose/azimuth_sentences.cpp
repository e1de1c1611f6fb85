// SPDX-License-Identifier: MIT

#include "rose/azimuth_sentences.h"

#include "orientation/probability_text.h"

#include <numbers>

namespace quandrel {

namespace {

/// The words of a test.
struct TestWords {
    const char* name;
    const char* symbol;
    const char* rejected; ///< what is found
};

constexpr double kDegrees = 180 / std::numbers::pi;

TestWords WordsOf(UniformAzimuthTest test) {
    switch (test) {
    case UniformAzimuthTest::Rayleigh:
        return {"Rayleigh", "n R^2", "the azimuths have a preferred direction"};
    case UniformAzimuthTest::Kuiper:
        return {"Kuiper", "V", "the azimuths are not evenly distributed"};
    case UniformAzimuthTest::Watson:
        return {"Watson", "U^2", "the azimuths are not evenly distributed"};
    case UniformAzimuthTest::Rao:
        break;
    }
    return {"Rao", "U", "the azimuths are not evenly spaced"};
}

} // namespace

std::string UniformAzimuthSentence(UniformAzimuthTest test, const TestOutcome& outcome) {
    const auto& [name, symbol, rejected] = WordsOf(test);
    const double factor = test == UniformAzimuthTest::Rao ? kDegrees : 1;
    const std::string start = std::string(name) + ": ";
    const std::string numbers = " (" + OutcomeText(symbol, outcome, factor) + ").";
    return IsRejected(outcome) ? start + rejected + "; uniform ones are rejected" + numbers
                               : start + "the azimuths may be uniform" + numbers;
}

std::string AzimuthSampleSentence(AzimuthSampleTest test, const TestOutcome& outcome) {
    const bool isWatson = test == AzimuthSampleTest::Watson;
    const std::string start = isWatson ? "Watson: " : "Mardia, Watson and Wheeler: ";
    return start
           + (IsRejected(outcome) ? "the samples differ ("
                                  : "the samples may be of one distribution (")
           + OutcomeText(isWatson ? "U^2" : "W", outcome) + ").";
}

} // namespace quandrel
