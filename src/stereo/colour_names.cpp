// SPDX-License-Identifier: MIT

#include "stereo/colour_names.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

namespace {

/// A colour from hue in degrees and saturation and lightness 0 to 1.
struct HueColour {
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

HueColour HueColourOf(Colour colour) {
    const double red = colour.red / 255.0;
    const double green = colour.green / 255.0;
    const double blue = colour.blue / 255.0;
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double range = most - least;
    HueColour result;
    result.lightness = (most + least) / 2;
    if (range == 0) {
        return result;
    }
    result.saturation = range / (1 - std::abs(2 * result.lightness - 1));
    double sixth = 4 + (red - green) / range;
    if (most == red) {
        sixth = std::fmod((green - blue) / range + 6, 6);
    } else if (most == green) {
        sixth = 2 + (blue - red) / range;
    }
    constexpr double kDegreesOfSixth = 60;
    result.hue = sixth * kDegreesOfSixth;
    return result;
}

std::string NameOfGrey(double lightness) {
    struct Grey {
        double below;
        const char* name;
    };

    constexpr std::array<Grey, 4> kGreys = {
        {{0.06, "black"}, {0.38, "dark grey"}, {0.62, "grey"}, {0.97, "light grey"}}};
    const auto* found = std::ranges::find_if(
        kGreys, [lightness](const Grey& grey) { return lightness < grey.below; });
    return found == kGreys.end() ? "white" : found->name;
}

const char* NameOfHue(double hue) {
    struct Hue {
        double below;
        const char* name;
    };

    constexpr std::array<Hue, 9> kHues = {{{15, "red"},
                                           {45, "orange"},
                                           {70, "yellow"},
                                           {160, "green"},
                                           {190, "turquoise"},
                                           {255, "blue"},
                                           {285, "violet"},
                                           {335, "magenta"},
                                           {361, "red"}}};
    return std::ranges::find_if(kHues, [hue](const Hue& range) { return hue < range.below; })->name;
}

/// The linear-light value of a colour channel.
double LinearLight(std::uint8_t channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
    return 0.2126 * LinearLight(colour.red) + 0.7152 * LinearLight(colour.green)
           + 0.0722 * LinearLight(colour.blue);
}

} // namespace

std::string ColourName(Colour colour) {
    constexpr double kLeastSaturation = 0.12;
    constexpr double kDarkBelow = 0.42;
    constexpr double kLightFrom = 0.66;
    const HueColour parts = HueColourOf(colour);
    if (parts.saturation < kLeastSaturation || parts.lightness < 0.06 || parts.lightness > 0.97) {
        return NameOfGrey(parts.lightness);
    }
    const std::string hue = NameOfHue(parts.hue);
    if (parts.lightness < kDarkBelow) {
        return hue == "orange" ? "brown" : "dark " + hue;
    }
    if (parts.lightness >= kLightFrom) {
        return hue == "red" ? "pink" : "light " + hue;
    }
    return hue;
}

std::string ColourNameAt(int index, Colour colour) {
    return "Colour " + std::to_string(index) + ": " + ColourName(colour);
}

double ContrastOf(Colour a, Colour b) {
    constexpr double kFlare = 0.05;
    const double one = Luminance(a) + kFlare;
    const double other = Luminance(b) + kFlare;
    return std::max(one, other) / std::min(one, other);
}

} // namespace quandrel
