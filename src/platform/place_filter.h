// SPDX-License-Identifier: MIT
//
// Markers of one style at one position: only the last of them is visible.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// A position in whole steps.
struct StepPlace {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const StepPlace&, const StepPlace&) = default;
};

/// The indices, in order, of those positions that do not occur again later. O(n).
[[nodiscard]] std::vector<std::uint32_t> LastOfEachPlace(std::span<const StepPlace> places);

} // namespace quandrel
