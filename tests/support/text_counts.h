// SPDX-License-Identifier: MIT
//
// How often something stands in a text.

#pragma once

#include <cstddef>
#include <string_view>

namespace quandrel {

/// The places where a part begins; they may overlap.
inline std::size_t CountOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

} // namespace quandrel
