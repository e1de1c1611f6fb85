// SPDX-License-Identifier: MIT
//
// What can be chosen of a plot's densities, and why texts are refused. These are the rules of the
// dialog of densities, as functions of values.

#pragma once

#include "core/plot_record.h"
#include "core/result.h"
#include "density/density_method.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// What the choice of a plot's densities leaves to be chosen.
struct DensityOffer {
    std::string refusal;   ///< why the plot has no densities, empty if it has; nothing else is then
                           ///< offered
    bool isDrawn = false;  ///< the plot is in a mode that shows densities
    bool hasK = false;     ///< the method has Kamb's k
    bool hasWidth = false; ///< the method has a half-width
    bool hasStep = false;  ///< levels are even
    bool hasList = false;  ///< levels are by hand
    bool hasBands = false; ///< bands are filled: palette and opacity count
    std::string onFieldOnly;        ///< why there is no envelope and no table of maxima, or empty
    std::vector<DensityUnit> units; ///< those of the method, in the order of DensityUnit
};

[[nodiscard]] DensityOffer OfferOf(const PlotRecord& record);

/// The choice with another method, in the first unit of that method if it lacks the present one.
[[nodiscard]] RecordDensityView WithMethod(RecordDensityView view, std::int16_t method);

/// The choice with another rule of levels. Levels by hand start from those that are shown.
///
/// @param shown  ascending; may be empty
[[nodiscard]] RecordDensityView WithLevelRule(RecordDensityView view, std::int16_t rule,
                                              std::span<const double> shown);

/// Cones with a smaller half-angle are narrower than most measurements: 3 degrees, in radians.
inline constexpr double kNarrowCone = kPi / 60;

/// The cone of one of Kamb's methods in words.
struct ConeInWords {
    std::string angle;            ///< its half-angle: "10.4°"
    std::string warning;          ///< a sentence if it is below kNarrowCone, else empty
    std::optional<double> widerK; ///< with the warning, the least k in tenths that needs none;
                                  ///< nothing where that is above kLargestKambK
};

[[nodiscard]] ConeInWords ConeOf(const DensityFormula& formula);

/// A typed k, half-width in degrees, or step of even levels, or the reason why it is refused. An
/// empty step is 0, a round one.
[[nodiscard]] Result<double> KOfText(std::string_view text);
[[nodiscard]] Result<double> WidthOfText(std::string_view text);
[[nodiscard]] Result<double> StepOfText(std::string_view text);

/// Typed levels as the plot keeps them, or the reason why they are refused.
[[nodiscard]] Result<std::string> LevelListOfText(std::string_view text);

/// A number as a box shows it: with up to four decimals.
[[nodiscard]] std::string TextInBox(double value);

} // namespace quandrel
