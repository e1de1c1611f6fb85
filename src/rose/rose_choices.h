// SPDX-License-Identifier: MIT
//
// The available choices of the rose dialog, and how one choice affects others. Each reason is a
// tooltip of the control that it disables; an empty reason leaves the control enabled.

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
    std::array<std::string_view, kRoseKinds> kinds; ///< why disabled, by RoseKindCode
    std::array<std::string_view, 3> classes;        ///< why disabled, by RoseClassCode
    std::string_view segments;                      ///< why their shape has no effect
    std::string_view bias;                          ///< why no correction is possible
    std::array<std::string_view, 4> biasModes;      ///< why disabled, by the bias mode
    std::string_view ownLines;                      ///< why rows cannot have sample lines
    std::array<std::string_view, 3> biasBoxes;      ///< why disabled, by BiasBox
};

/// The choices that the settings and the columns of a plot allow.
///
/// @param fault  RoseFault of the last rose of these data, or kNoRoseFault
[[nodiscard]] RoseChoices ChoicesOfRose(const RoseSettings& settings, const PlotRecord& record,
                                        int fault = kNoRoseFault);

/// Removes the classes of a kind that does not have any.
void FollowRoseKind(RoseSettings& settings);

/// Selects a rose of frequencies after a fault, and removes the classes that may have caused it:
/// those by length after kNoRoseValues and kNoRoseLengths, those by type after kNoRoseClasses.
void FollowRoseFault(RoseSettings& settings, int fault);

/// The classes of the rose of gActivePlot, as shown in text boxes.
[[nodiscard]] ClassSettings ClassSettingsOfRose();

/// ApplyRoseSettings with the fills of its classes, which are set before it is drawn.
[[nodiscard]] RoseOutcome ApplyRose(const RoseSettings& settings, const ClassStyles& fills);

} // namespace quandrel
