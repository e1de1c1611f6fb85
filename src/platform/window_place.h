// SPDX-License-Identifier: MIT
//
// The position of a window, as settings and files keep it.

#pragma once

#include <cstdint>

namespace quandrel {

/// State and position of a window, in 1/1440 inch. State 0 normal, 1 minimised, 2 maximised.
struct WindowPlace {
    std::int32_t state = 2;
    std::int32_t top = 0;
    std::int32_t left = 0;
    std::int32_t width = 10000;
    std::int32_t height = 3000;

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

} // namespace quandrel
