// SPDX-License-Identifier: MIT

#include "session/command_reasons.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

/// What is true of the plot when a command cannot be used.
enum class Case { Any, Rose, Net };

struct Reason {
    std::string_view begins; ///< of the names of commands
    Case when;
    const char* text;
};

constexpr const char* kNotForRoses = "Not for rose diagrams.";
constexpr const char* kNothingSelected = "Nothing is selected.";
constexpr const char* kNoRows = "The plot has no rows.";
constexpr const char* kNoSecondary = "The rows have no secondary orientations.";

/// The first one that fits holds.
constexpr auto kReasons = std::to_array<Reason>({
    {"mnuEditUndoRotation", Case::Any, "The last step was no rotation."},
    {"mnuEditUndo", Case::Any, "There is nothing to undo."},
    {"mnuEditRedo", Case::Any, "There is nothing to redo."},
    {"mnuEditSelection_4", Case::Any, "The clipboard has nothing that can be pasted here."},
    {"mnuEditSelection_7", Case::Any, "There is nothing to select."},
    {"mnuEditSelection", Case::Any, kNothingSelected},
    {"mnuEditRemoveOverlay", Case::Any, "The plot has no overlay."},
    {"mnuEditRemoveAnnotation", Case::Any, "The plot has no annotations."},
    {"mnuViewAnnotations", Case::Any, "The plot has no annotations."},
    {"mnuFileSave_2", Case::Any, "Only one plot is open."},
    {"mnuFileCopyImage_1", Case::Any, "The legend is hidden."},
    {"mnuPlotDataType_0", Case::Any, "Directions cannot be planes."},
    {"mnuPlotSecondary", Case::Any, kNoSecondary},
    {"mnuPlotSymbols", Case::Rose, kNotForRoses},
    {"mnuPlotSymbols_8", Case::Net, kNoSecondary},
    {"mnuPlotSymbols_9", Case::Net, kNoSecondary},
    {"mnuPlotSymbols_1", Case::Net, kNoSecondary}, // 10 and 11; 1 can always be used
    {"mnuPlotIntersection", Case::Any, "Each row has to hold two planes."},
    {"mnuPlotRotate", Case::Any, kNoRows},
    {"mnuKinematicPlots", Case::Any, kNoRows},
    {"mnuViewUnplotted", Case::Any, "All lines of the file were plotted."},
    {"mnuViewRawData", Case::Any, "The plot is not from a text file."},
    {"mnuViewBestGirdle", Case::Net, kNoRows},
    {"mnuViewConfidence", Case::Net, "The rows have no confidence cone."},
    {"mnuMapinfo_1", Case::Any, "No map session is linked."},
    {"mnu", Case::Rose, kNotForRoses},
});

} // namespace

std::string ReasonDisabled(std::string_view command, const ToolbarState& state) {
    const bool needsPlot = !command.starts_with("mnuMapinfo");
    if (!state.hasPlot && needsPlot) {
        return "Open a plot first.";
    }
    const Case now = state.hasPlot && !state.isStereo ? Case::Rose : Case::Net;
    const auto found = std::ranges::find_if(kReasons, [&](const Reason& reason) {
        return command.starts_with(reason.begins)
               && (reason.when == Case::Any || reason.when == now);
    });
    return found == kReasons.end() ? std::string() : found->text;
}

} // namespace quandrel
