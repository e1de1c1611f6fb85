// SPDX-License-Identifier: MIT
//
// Long trials: the suite does a tenth of each, tools/trials all of it. The name of such a test
// contains "Trial", by which tools/trials finds it.

#pragma once

#include <cstdlib>
#include <random>

namespace quandrel {

/// Whether trials run at full length: with QUANDREL_WHOLE_TRIALS in the environment.
inline bool AreTrialsWhole() {
    return std::getenv("QUANDREL_WHOLE_TRIALS") != nullptr;
}

/// How many rounds a trial does here.
///
/// @param whole  its full length
inline int TrialRounds(int whole) {
    return AreTrialsWhole() ? whole : (whole + 9) / 10;
}

/// Picks the cases of a trial that goes through all there are: a tenth, at random with a fixed
/// seed, or each.
class TrialShare {
public:
    /// Whether the next case is taken.
    bool Takes() { return random_() % 10 == 0 || isWhole_; }

private:
    bool isWhole_ = AreTrialsWhole();
    std::mt19937 random_{20261122};
};

} // namespace quandrel
