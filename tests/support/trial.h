// SPDX-License-Identifier: MIT
//
// Long trials: the suite runs a tenth of each, tools/trials all of it. The name of such a test
// contains "Trial", by which tools/trials finds it.

#pragma once

#include <cstdlib>
#include <random>

namespace quandrel {

/// Whether trials run at full length: with QUANDREL_WHOLE_TRIALS in the environment.
inline bool AreTrialsWhole() {
    return std::getenv("QUANDREL_WHOLE_TRIALS") != nullptr;
}

/// Number of rounds for a trial.
///
/// @param whole  its full length
inline int TrialRounds(int whole) {
    return AreTrialsWhole() ? whole : (whole + 9) / 10;
}

/// Selects the cases of an exhaustive trial: a tenth, at random with a fixed seed, or all.
class TrialShare {
public:
    /// Whether to run the next case.
    bool Takes() { return random_() % 10 == 0 || isWhole_; }

private:
    bool isWhole_ = AreTrialsWhole();
    std::mt19937 random_{20261122};
};

} // namespace quandrel
