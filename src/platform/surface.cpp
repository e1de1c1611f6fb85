// SPDX-License-Identifier: MIT

#include "platform/surface.h"

#include <algorithm>

namespace quandrel {

namespace {

double OpacityOf(const DrawState& state, double opacity) {
    return state.drawMode == kDrawNotXor ? 1 : std::clamp(opacity, 0.0, 1.0);
}

} // namespace

std::string HexOf(Colour colour) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    for (const unsigned channel : {colour.red, colour.green, colour.blue}) {
        text += kDigits[channel / 16];
        text += kDigits[channel % 16];
    }
    return text;
}

double LineOpacityOf(const DrawState& state) {
    return OpacityOf(state, state.lineOpacity);
}

double FillOpacityOf(const DrawState& state) {
    return OpacityOf(state, state.fillOpacity);
}

} // namespace quandrel
