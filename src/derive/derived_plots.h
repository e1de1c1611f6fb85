// SPDX-License-Identifier: MIT
//
// Plots computed from the rows of another plot: what they have in common, and the links between
// parent and child.
//
// KinematicState of a child holds the slot of its parent. IntersectionState of a parent holds the
// slot of the plot of its intersection lines. Axes can be in several plots, so their parent has no
// link to them.
//
// This is the chief header of the folder.
// Input: the rows of a parent, including secondary lines.
// Output: overlays, slip arrows, and plots of kinematic axes and intersection lines, with the links
// by which these are found and recomputed.

#pragma once

#include "core/plot_record.h"
#include "stereo/axis_rows.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// The report about a plot that memory ran out for.
inline constexpr const char* kNotCompleted = "not completed";

/// The left edge of a window that belongs to the right of another one: moved left by quarters of
/// its width until at least three quarters are on the screen.
///
/// @param neighbourLeft,neighbourWidth,width,screenWidth  in the same unit; width above 0
[[nodiscard]] int LeftBeside(int neighbourLeft, int neighbourWidth, int width, int screenWidth);

/// Opens a slot with a window for a plot derived from `source` and makes it active. It uses
/// decimals if its source does, and has the same choice of formulas. Returns 0, with a message,
/// when all slots are taken: then the active plot stays.
[[nodiscard]] int OpenDerivedPlot(int source);

/// Closes a derived plot without asking.
void CloseDerivedPlot(int slot);

/// Removes all rows of a derived plot, including those of its overlays.
void ClearDerivedRows(int slot);

/// Gives a record the form of a plot of derived lines: no second set, columns of plunge and trend,
/// and a text that says where a line comes from.
/// @param dataKind    kLines, or kPolarLines where the sign of the plunge has a meaning
/// @param textColumn  name of the column of texts
void PrepareDerivedPlot(PlotRecord& record, std::int16_t dataKind, const std::string& textColumn);

/// Appends a line as a main row to a derived plot: rounded to whole degrees, and to 1e-6 degree for
/// the measured angles.
/// @param plunge,trend  radians; a negative plunge points upward
/// @param source        text that says where it comes from
/// @return false when memory ran out
[[nodiscard]] bool StoreDerivedLine(int slot, double plunge, double trend,
                                    const std::string& source);

/// Reports that a row could not be stored, and removes all rows of a derived plot.
void GiveUpDerivedRows(int slot);

/// The part of the parent's title that a child takes over: everything after "Plot" and a number at
/// its start, or ": " and the whole title.
[[nodiscard]] std::string RestOfTitle(const std::string& parentTitle);

/// "1 fault", "2 faults".
[[nodiscard]] std::string Counted(std::int64_t count, const std::string& noun);

/// Writes into the description of a derived plot where its rows come from, as a line that replaces
/// the previous one. What the user has written stays.
void DescribeDerivation(PlotRecord& record, const std::string& parentTitle,
                        const std::string& what);

/// Makes a plot the active one and redraws it.
void ShowDerivedPlot(int slot);

/// Ends the links of a plot that is about to close: its children can no longer be recomputed, and
/// its parent makes a new plot of intersections next time. Call it while the plot is open.
void BreakDerivedLinks(int slot);

/// Turns the axes of a plot into measured lines: it no longer has a parent to be recomputed from,
/// and P and T are counted separately.
void TakeAxesAsLines(PlotRecord& record);

} // namespace quandrel
