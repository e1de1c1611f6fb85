// SPDX-License-Identifier: MIT
//
// Rows of derived plots: which of them are shortening axes and which extension axes, and which row
// of the parent each comes from.
//
// All of it is kept in the plot's appended text, "P 12" or "T 12", for intersection lines "12", so
// that it follows the rows through edits, copies and files. The column's name says whether a sense
// of movement was assumed.

#pragma once

#include "core/plot.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// AxesTitle of kinematic axes.
inline constexpr const char* kBothAxes = "P & T";
inline constexpr const char* kShorteningAxes = "P";
inline constexpr const char* kExtensionAxes = "T";

enum class AxisKind { Shortening, Extension };

/// The sense of movement that is taken for the hanging walls of faults whose rows do not tell it.
enum class SlipSense {
    Normal, ///< down
    Reverse ///< up
};

/// Names of the text column of derived plots. Those of axes begin with kAxisColumn; what follows
/// it is " (sense assumed: normal)", or reverse, where a sense was assumed.
inline constexpr const char* kAxisColumn = "Axis and row";
inline constexpr const char* kRowColumn = "Row of planes";

/// The name of the text column of a plot of axes.
[[nodiscard]] std::string AxisColumnName(std::optional<SlipSense> assumed);

/// The text of an axis that comes from a row of the parent: "P 12".
[[nodiscard]] std::string AxisText(AxisKind kind, std::int32_t parentRow);

/// What the text of an axis says.
struct AxisSource {
    AxisKind kind = AxisKind::Shortening;
    std::int32_t parentRow = 0;
};

/// The inverse of AxisText; nothing for every other text.
[[nodiscard]] std::optional<AxisSource> ReadAxisText(std::string_view text);

/// The sense that was assumed for the faults of a plot of axes, or nothing.
[[nodiscard]] std::optional<SlipSense> AssumedSense(const PlotRecord& record);

/// The line of the boxes that says which sense of movement was assumed, without a line end; empty
/// where the rows tell it.
[[nodiscard]] std::string AssumedSenseText(const PlotRecord& record);

/// True for a plot that shows P and T axes together: nothing may be counted over both.
[[nodiscard]] bool HoldsBothAxes(const PlotRecord& record);

/// Which axis a main row of a plot of axes is: as its text says, else by the sign of its plunge,
/// and by its symbol where it is horizontal.
///
/// @param styles  that its symbol was taken from
[[nodiscard]] AxisKind AxisOfRow(const Plot& plot, const Styles& styles, std::int32_t row);

/// Makes a plot of axes again of rows that were read from a text file: where the name of the text
/// column and the texts of all valid main rows are those of axes, the plot gets their title, and
/// each axis its symbol; a rose of both kinds becomes a net, and a message says why. Other plots
/// stay as they are.
void RestoreAxes(int slot);

/// Why densities and contours of P and T together are refused, with the ways to have them.
inline constexpr const char* kMixedAxesRefusal =
    "Densities and contours of P and T axes together would mix the two. Put them on two plots with "
    "\"P & T kinematic axes on separate plots\" and contour each, or let \"Contoured P & T "
    "kinematic axes\" do both at once (batch: kinematic 1, kinematic 2).";

/// True for a drawing mode that counts over all rows, in a plot that shows P and T together.
[[nodiscard]] bool MixesAxes(const PlotRecord& record, int symbolMode);

/// Why a rose of P and T together is refused, with the way to have one of each.
inline constexpr const char* kMixedRoseRefusal =
    "A rose of P and T axes together would mix the two. Put them on two plots with \"P & T "
    "kinematic "
    "axes on separate plots\" and make a rose of each (batch: kinematic 1).";

/// What comes before the refusals when a file holds such a plot.
inline constexpr const char* kOpensAsPoints = "The plot opens with points.\n";
inline constexpr const char* kOpensAsNet = "The plot opens as a net.\n";

/// True for a kind of plot that counts over all rows, in a plot that shows P and T together.
[[nodiscard]] bool MixesAxesAsRose(const PlotRecord& record, int plotKind);

/// Draws a plot of P and T together as points where its mode would count over both, and as an
/// equal area net where it is a rose. True when it had such a mode or kind; the row table of a
/// plot that was a rose then has to be built anew.
bool MendMixedAxes(PlotRecord& record);

} // namespace quandrel
