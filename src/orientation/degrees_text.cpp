// SPDX-License-Identifier: MIT

#include "orientation/degrees_text.h"

#include "orientation/number_text.h"

#include <cstdint>

namespace quandrel {

std::string DegreesText(double degrees) {
    if (IsWholeNumber(degrees)) {
        return std::to_string(static_cast<std::int64_t>(degrees)); // quick: most rows are whole
    }
    return FormatNumber(degrees, "0.######");
}

} // namespace quandrel
