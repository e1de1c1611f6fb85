// SPDX-License-Identifier: MIT
//
// The girdles that the user has set in a plot, as values that can be put back.

#pragma once

#include "core/plot_record.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quandrel {

/// The rows of AxisItems that are the user's, in their order.
struct KeptGirdles {
    std::vector<std::array<TaggedValue, kAxisValues>> girdles;
    std::int16_t modified = 0;
};

[[nodiscard]] KeptGirdles KeepGirdles(int slot);

/// Gives a plot the girdles that were kept. Modified as in PutRowsBack. Does not draw.
void PutGirdlesBack(int slot, const KeptGirdles& kept);

/// A number that other girdles have not.
[[nodiscard]] std::uint64_t FingerprintOfGirdles(int slot);

} // namespace quandrel
