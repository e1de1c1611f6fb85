// SPDX-License-Identifier: MIT
//
// The selection as a value: rows of one plot, and the frame around them. edit/selection/marquee.h
// has its rules.

#pragma once

#include "platform/surface.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quandrel {

struct Selection {
    std::array<float, 7> marquee{};                ///< the last frame, indexed by MarqueePlace
    std::vector<Point> lasso;                      ///< its corners; empty for a rectangle
    std::vector<std::int32_t> rows;                ///< point indices of the plot, ascending
    std::optional<std::vector<std::size_t>> marks; ///< annotations, as PickedMarks gives them
    std::int32_t slot = 0;                         ///< the plot, 0 for none

    static Selection now;
};

} // namespace quandrel
