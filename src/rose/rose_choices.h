// SPDX-License-Identifier: MIT
//
// What of the rose dialog can be chosen, and how one choice follows another. Reasons are tips of
// the controls that they close; an empty one leaves the control open.

#pragma once

#include "classify/class_editing.h"
#include "core/plot_record.h"
#include "rose/rose_go.h"
#include "rose/rose_plot.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quandrel {

inline constexpr std::size_t kRoseKinds = 9;

struct RoseChoices {
    std::array<std::string_view, kRoseKinds> kinds; ///< why not, by RoseKindCode
    std::array<std::string_view, 3> classes;        ///< why not, by RoseClassCode
    std::string_view segments;                      ///< why their shape plays no part
    std::string_view bias;                          ///< why there is no correction at all
    std::array<std::string_view, 4> biasModes;      ///< why not, by the bias mode
    std::string_view ownLines;                      ///< why not sample lines of the rows
    std::array<std::string_view, 3> biasBoxes;      ///< why not, by BiasBox
};

/// What the settings and the columns of a plot leave open.
///
/// @param fault  RoseFault that the rose of these data has met, or kNoRoseFault
[[nodiscard]] RoseChoices ChoicesOfRose(const RoseSettings& settings, const PlotRecord& record,
                                        int fault = kNoRoseFault);

/// Takes classes away from a kind that has none.
void FollowRoseKind(RoseSettings& settings);

/// Makes a rose of frequencies after a fault, and takes away the classes that may have caused it:
/// those by length after kNoRoseValues and kNoRoseLengths, those by type after kNoRoseClasses.
void FollowRoseFault(RoseSettings& settings, int fault);

/// The classes of the rose of gActivePlot, as boxes edit them.
[[nodiscard]] ClassSettings ClassSettingsOfRose();

/// ApplyRoseSettings with the fills of its classes: they stand before it is drawn.
[[nodiscard]] RoseOutcome ApplyRose(const RoseSettings& settings, const ClassStyles& fills);

} // namespace quandrel
