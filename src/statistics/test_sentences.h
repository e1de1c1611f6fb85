// SPDX-License-Identifier: MIT
//
// What the tests of axes and directions mean, each in a sentence or two, at the level kTestLevel.
//
// A hypothesis that is not rejected is not proved: the sentences say that the data are compatible
// with it.

#pragma once

#include "orientation/test_outcome.h"
#include "statistics/fabric_models.h"
#include "statistics/fisher_fit.h"

#include <string>

namespace quandrel {

/// "The axes have a preferred orientation: uniform axes are rejected (S = 17.69, p = 0.003)."
[[nodiscard]] std::string UniformAxesSentence(const TestOutcome& outcome);

/// The same of directions.
[[nodiscard]] std::string UniformDirectionsSentence(const TestOutcome& outcome);

/// "A cluster: a girdle is rejected (p < 0.001), a cluster is not (p = 0.34). Woodcock's K
/// is 2.10."
[[nodiscard]] std::string FabricSentence(const FabricModels& models);

/// "Fisher's distribution is rejected: colatitudes p = 0.43, longitudes p = 0.003, two variables
/// p = 0.21." It is rejected when one of the three tests rejects at a third of the level.
[[nodiscard]] std::string FisherSentence(const FisherFit& fit);

/// "The means differ (G = 12.31, p = 0.002)."
[[nodiscard]] std::string EqualMeansSentence(const TestOutcome& outcome);

} // namespace quandrel
