// SPDX-License-Identifier: MIT
//
// Rows of derived plots: which of them are shortening (P) axes, which are extension (T) axes, and
// the row of the parent from which each was derived.
//
// This is stored in the plot's appended text, "P 12" or "T 12", or "12" for intersection lines, so
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

/// The sense of movement assumed for the hanging walls of faults whose rows do not give it.
enum class SlipSense {
    Normal, ///< down
    Reverse ///< up
};

/// Names of the text column of derived plots. Those of axes begin with kAxisColumn. If a sense was
/// assumed, " (sense assumed: normal)", or reverse, follows.
inline constexpr const char* kAxisColumn = "Axis and row";
inline constexpr const char* kRowColumn = "Row of planes";

/// The name of the text column of a plot of axes.
[[nodiscard]] std::string AxisColumnName(std::optional<SlipSense> assumed);

/// The text of an axis derived from a row of the parent: "P 12".
[[nodiscard]] std::string AxisText(AxisKind kind, std::int32_t parentRow);

/// The contents of the text of an axis.
struct AxisSource {
    AxisKind kind = AxisKind::Shortening;
    std::int32_t parentRow = 0;
};

/// The inverse of AxisText; empty for every other text.
[[nodiscard]] std::optional<AxisSource> ReadAxisText(std::string_view text);

/// The sense that was assumed for the faults of a plot of axes, or empty.
[[nodiscard]] std::optional<SlipSense> AssumedSense(const PlotRecord& record);

/// The line in the text boxes that says which sense of movement was assumed, without a line end.
/// Empty where the rows give the sense.
[[nodiscard]] std::string AssumedSenseText(const PlotRecord& record);

/// Whether a plot shows P and T axes together: nothing may be counted over both.
[[nodiscard]] bool HoldsBothAxes(const PlotRecord& record);

/// The kind of axis of a main row in a plot of axes: from its text, else from the sign of its
/// plunge, and from its symbol where it is horizontal.
///
/// @param styles  the source of its symbol
[[nodiscard]] AxisKind AxisOfRow(const Plot& plot, const Styles& styles, std::int32_t row);

/// Restores a plot of axes from rows that were read from a text file. If the name of the text
/// column and the texts of all valid main rows are those of axes, the plot gets their title, and
/// each axis its symbol; a rose of both kinds becomes a net, with a message. Other plots stay.
void RestoreAxes(int slot);

/// Why densities and contours of P and T together are refused, and how to get them.
inline constexpr const char* kMixedAxesRefusal =
    "Densities and contours of P and T axes together would mix the two. Put them on two plots with "
    "\"P & T kinematic axes on separate plots\" and contour each, or let \"Contoured P & T "
    "kinematic axes\" do both at once (batch: kinematic 1, kinematic 2).";

/// Whether a drawing mode counts over all rows in a plot that shows P and T together.
[[nodiscard]] bool MixesAxes(const PlotRecord& record, int symbolMode);

/// Why a rose of P and T together is refused, and how to get one of each.
inline constexpr const char* kMixedRoseRefusal =
    "A rose of P and T axes together would mix the two. Put them on two plots with \"P & T "
    "kinematic "
    "axes on separate plots\" and make a rose of each (batch: kinematic 1).";

/// The text before the refusals when a file holds such a plot.
inline constexpr const char* kOpensAsPoints = "The plot opens with points.\n";
inline constexpr const char* kOpensAsNet = "The plot opens as a net.\n";

/// Whether a kind of plot counts over all rows in a plot that shows P and T together.
[[nodiscard]] bool MixesAxesAsRose(const PlotRecord& record, int plotKind);

/// Changes a plot of P and T together to points if its mode counts over both, and to an equal area
/// net if it is a rose. True when something changed; the table of a former rose must be rebuilt.
bool MendMixedAxes(PlotRecord& record);

} // namespace quandrel
