// SPDX-License-Identifier: MIT
//
// What the tests of azimuths mean, each in a sentence, at the level kTestLevel.

#pragma once

#include "orientation/test_outcome.h"

#include <string>

namespace quandrel {

/// Tests of uniform azimuths.
enum class UniformAzimuthTest { Rayleigh, Kuiper, Watson, Rao };

/// "Rayleigh: the azimuths have a preferred direction; uniform ones are rejected (n R^2 = 6.14, p =
/// 0.002)." Each test finds another kind of difference, which its sentence names. Rao's statistic
/// is printed in degrees.
[[nodiscard]] std::string UniformAzimuthSentence(UniformAzimuthTest test,
                                                 const TestOutcome& outcome);

/// Tests of two samples of azimuths.
enum class AzimuthSampleTest { Watson, MardiaWatsonWheeler };

/// "Watson: the samples differ (U^2 = 0.31, p = 0.003)."
[[nodiscard]] std::string AzimuthSampleSentence(AzimuthSampleTest test, const TestOutcome& outcome);

} // namespace quandrel
