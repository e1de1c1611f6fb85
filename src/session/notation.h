// SPDX-License-Identifier: MIT
//
// What follows a change of the notation of orientations in the plots that are open.

#pragma once

#include <cstdint>
#include <string>

namespace quandrel {

/// What decides how orientations are written.
struct Notation {
    std::int16_t conventions = 0;
    std::string planeSeparator;
    std::string lineSeparator;

    friend bool operator==(const Notation&, const Notation&) = default;
};

[[nodiscard]] Notation NotationInForce();

/// Writes the texts of all open stereo plots anew: statistics, girdles, and legends that hold
/// orientations. The plots stay as they are otherwise; gActivePlot stays.
void RenewOrientationTexts();

} // namespace quandrel
