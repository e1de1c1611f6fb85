// SPDX-License-Identifier: MIT
//
// Plots that are worked out from the rows of another one: what they have in common, and the links
// between parent and child.
//
// KinematicState of a child holds the slot of its parent. IntersectionState of a parent holds the
// slot of the plot of its intersection lines; axes can be in several plots, and have no link back.
//
// This is the chief header of the folder. Enters: the rows of a parent, secondary lines among them.
// Leaves: overlays, slip arrows, kinematic axes and intersection lines, in plots of their own where
// they are rows, and the links by which these are found and made anew.

#pragma once

#include "core/plot_record.h"
#include "stereo/axis_rows.h"

#include <cstdint>
#include <functional>
#include <string>

namespace quandrel {

/// What is said of a plot that memory ran out for.
inline constexpr const char* kNotCompleted = "not completed";

/// Puts the window of a plot to the right of its neighbour's. Set by the windows; may be empty.
extern std::function<void(int slot, int neighbour)> gPlaceBeside;

/// Where the left edge of a window goes that belongs to the right of another one: as far back by
/// quarters of its width as it takes to have at least three quarters on the screen.
///
/// @param neighbourLeft,neighbourWidth,width,screenWidth  in one unit; width above 0
[[nodiscard]] int LeftBeside(int neighbourLeft, int neighbourWidth, int width, int screenWidth);

/// A slot with a window for a derived plot, made the active one; 0, with a message, when all are
/// taken: then the active plot stays.
[[nodiscard]] int OpenDerivedPlot();

/// Closes a derived plot without asking.
void CloseDerivedPlot(int slot);

/// Empties a derived plot of its rows, those of its overlays too.
void ClearDerivedRows(int slot);

/// Gives a record the form of a plot of derived lines: no second set, columns of plunge and trend,
/// and a text that says where a line comes from.
/// @param dataKind    kLines, or kPolarLines where the sign of the plunge means something
/// @param textColumn  name of the column of texts
void PrepareDerivedPlot(PlotRecord& record, std::int16_t dataKind, const std::string& textColumn);

/// Appends a line as a main row to a derived plot, rounded to whole degrees.
/// @param plunge,trend  radians; a negative plunge points upward
/// @param source        where it comes from
/// @return false when memory ran out
[[nodiscard]] bool StoreDerivedLine(int slot, double plunge, double trend,
                                    const std::string& source);

/// Tells that a row could not be stored, and takes all rows out of a derived plot.
void GiveUpDerivedRows(int slot);

/// What a child's title takes over of its parent's: all behind "Plot" and a number at its front, or
/// ": " and the whole title.
[[nodiscard]] std::string RestOfTitle(const std::string& parentTitle);

/// "1 fault", "2 faults".
[[nodiscard]] std::string Counted(std::int64_t count, const std::string& noun);

/// Writes into the description of a derived plot where its rows come from, in a line of its own
/// that takes the place of the former one. What the user has written stays.
void DescribeDerivation(PlotRecord& record, const std::string& parentTitle,
                        const std::string& what);

/// Makes a plot the active one and draws it anew.
void ShowDerivedPlot(int slot);

/// Ends the links of a plot that is about to close: its children can no longer be recomputed, and
/// its parent makes a new plot of intersections next time. To be called while the plot is open.
void BreakDerivedLinks(int slot);

/// Makes measured lines of the axes of a plot: it has no parent to be recomputed from any more,
/// and P and T count each for itself.
void TakeAxesAsLines(PlotRecord& record);

} // namespace quandrel
