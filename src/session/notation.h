// SPDX-License-Identifier: MIT
//
// Updates open plots after a change of the notation of orientations.

#pragma once

#include <cstdint>
#include <string>

namespace quandrel {

/// The settings for writing orientations.
struct Notation {
    std::int16_t conventions = 0;
    std::string planeSeparator;
    std::string lineSeparator;

    friend bool operator==(const Notation&, const Notation&) = default;
};

[[nodiscard]] Notation NotationInForce();

/// Rewrites the orientation texts of all open stereo plots: statistics, girdles, and legends that
/// hold orientations. The plots are otherwise unchanged; gActivePlot stays.
void RenewOrientationTexts();

} // namespace quandrel
