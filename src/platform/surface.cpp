// SPDX-License-Identifier: MIT

#include "platform/surface.h"

namespace quandrel {

std::string HexOf(Colour colour) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    for (const unsigned channel : {colour.red, colour.green, colour.blue}) {
        text += kDigits[channel / 16];
        text += kDigits[channel % 16];
    }
    return text;
}

} // namespace quandrel
