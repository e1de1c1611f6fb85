// SPDX-License-Identifier: MIT

#include "svg/svg_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

constexpr double kLargestThousandths = 1e15;

} // namespace

void AppendNumber(std::string& text, double value) {
    const double rounded =
        std::nearbyint(std::clamp(value * 1000, -kLargestThousandths, kLargestThousandths));
    const auto thousandths = static_cast<std::int64_t>(std::abs(rounded));
    if (rounded < 0) {
        text += '-';
    }
    std::array<char, 24> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), thousandths / 1000);
    text.append(buffer.data(), end.ptr);
    auto rest = static_cast<int>(thousandths % 1000);
    if (rest > 0) {
        text += '.';
    }
    for (int place = 100; rest > 0; place /= 10) {
        text += static_cast<char>('0' + rest / place);
        rest %= place;
    }
}

std::string NumberText(double value) {
    std::string text;
    AppendNumber(text, value);
    return text;
}

std::string PlaceText(Point place) {
    std::string text = NumberText(place.x);
    text += ' ';
    AppendNumber(text, place.y);
    return text;
}

std::string Attribute(std::string_view name, std::string_view value) {
    std::string text = " ";
    text.append(name).append("=\"").append(value).append("\"");
    return text;
}

std::string Attribute(std::string_view name, double value) {
    return Attribute(name, NumberText(value));
}

std::string ColourText(Colour colour) {
    return "#" + HexOf(colour);
}

} // namespace quandrel
