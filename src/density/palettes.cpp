// SPDX-License-Identifier: MIT

#include "density/palettes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace quandrel {

namespace {

/// The hue and chroma at a place of a path; places are at equal distances.
struct Tint {
    double a = 0;
    double b = 0;
};

// Within sRGB at their lightness. Both arms of the diverging palette have the same chroma at the
// same distance from the middle.
constexpr std::array<Tint, 5> kWarm{{{-4, 22}, {10, 50}, {30, 50}, {44, 38}, {36, 22}}};
constexpr std::array<Tint, 5> kCool{{{-6, 4}, {-20, 0}, {-20, -16}, {-4, -34}, {16, -36}}};
constexpr std::array<Tint, 3> kDivergingCool{{{0, 0}, {-9, -35}, {6, -39.5}}};
constexpr std::array<Tint, 3> kDivergingWarm{{{0, 0}, {13.5, 33.5}, {26.5, 30}}};

constexpr double kLightest = 96;
constexpr double kDarkest = 24;
constexpr double kDivergingDarkest = 32;

LabColour PlaceOn(std::span<const Tint> path, double lightest, double darkest, double part) {
    const double place = part * static_cast<double>(path.size() - 1);
    const auto first = std::min(static_cast<std::size_t>(place), path.size() - 2);
    const double rest = place - static_cast<double>(first);
    const Tint& from = path[first];
    const Tint& to = path[first + 1];
    return {lightest + (darkest - lightest) * part, std::lerp(from.a, to.a, rest),
            std::lerp(from.b, to.b, rest)};
}

} // namespace

int BestPaletteSteps(Palette palette) {
    return palette == Palette::Diverging ? 7 : 6;
}

LabColour PalettePlace(Palette palette, double part) {
    const double within = std::clamp(part, 0.0, 1.0);
    switch (palette) {
    case Palette::Warm:
        return PlaceOn(kWarm, kLightest, kDarkest, within);
    case Palette::Cool:
        return PlaceOn(kCool, kLightest, kDarkest, within);
    case Palette::Diverging:
        return PlaceOn(within < 0.5 ? std::span<const Tint>(kDivergingCool)
                                    : std::span<const Tint>(kDivergingWarm),
                       kLightest, kDivergingDarkest, std::abs(2 * within - 1));
    case Palette::Grey:
        break;
    }
    return {kLightest + (kDarkest - kLightest) * within, 0, 0};
}

Colour PaletteColour(Palette palette, int step, int steps, PaletteOrder order) {
    const int last = std::clamp(steps, kLeastPaletteSteps, kMostPaletteSteps) - 1;
    const int forward = std::clamp(step, 0, last);
    const int place = order == PaletteOrder::Reversed ? last - forward : forward;
    return ColourOfLab(PalettePlace(palette, static_cast<double>(place) / last));
}

} // namespace quandrel
