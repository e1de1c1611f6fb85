// SPDX-License-Identifier: MIT
//
// The marquee and the selection: the rows of a plot that the next edit applies to.
//
// This folder holds the marquee and the selection (this file), the intersections within it
// (selected_intersections.h), the rows of other plots that are highlighted with it (linked_rows.h),
// and positions on the net as lines and as texts (net_line.h, readout.h).
// Input: positions on the net, rows and tables of plots.
// Output: lists of rows, highlighted positions, and a call after each change (ConnectSelection).
// Nothing here changes a plot.
//
// A marquee is a rectangle on the net, or a lasso, whose record is that of its bounding rectangle.
// When it is complete, its rows are put into gSelectionRows; another one may add to them. Rows can
// also be selected one by one, without a marquee. gSelectionRows is the selection; gMarquee is only
// the last frame, which the mouse can drag. There is one selection, in one plot; it stays when
// another plot becomes active. Positions are plot units.

#pragma once

#include "core/plot_record.h"
#include "core/row_table.h"
#include "core/selection.h"
#include "platform/surface.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Elements of gMarquee.
enum MarqueePlace : std::size_t {
    kMarqueeState = 0, ///< not 0 while the marquee is drawn or moved
    kMarqueeX = 1,     ///< first corner
    kMarqueeY = 2,
    kMarqueeWidth = 3,    ///< from the first corner to the opposite one, negative to the left
    kMarqueeHeight = 4,   ///< negative downward
    kMarqueeDragging = 5, ///< kMarqueeSet while the mouse drags it
    kMarqueeStanding = 6, ///< kMarqueeSet while a complete marquee is shown
};

/// The value of the last two elements when they are set; otherwise 0.
inline constexpr float kMarqueeSet = 9999.0F;

/// The handle of a corner: half its side in plot units, or in logical pixels where these are more;
/// in a small frame a third of the frame's extent, so that its middle can be dragged.
inline constexpr double kHandleUnits = 10;
inline constexpr double kHandlePixels = 8;

/// The smallest extent of a frame around selected rows, in plot units: about 20 pixels in a plot of
/// a fifth of the screen.
inline constexpr double kLeastFrame = 100;

/// How a frame changes the previous selection.
enum class SelectionWay {
    Replace, ///< the contents of the frame are the selection
    Add,     ///< the contents of the frame are added
    Toggle,  ///< the contents of the frame are added, or deselected if selected
};

// Given names.
inline constinit auto& gMarquee = Selection::now.marquee;

/// Sets what to call after each change of the selection, or of a complete marquee; `{}` for none.
void ConnectSelection(std::function<void()> changed);

/// A rectangle including its edges.
struct PlotRectangle {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
};

/// The rectangle between two opposite corners, in any order.
[[nodiscard]] PlotRectangle RectangleBetween(Point corner, Point opposite);

/// True for a position in a rectangle or on its edge.
[[nodiscard]] bool IsWithin(const PlotRectangle& rectangle, Point at);

/// True for a position in a polygon, by the even-odd rule, or on its edge. O(corners).
[[nodiscard]] bool IsWithin(std::span<const Point> polygon, Point at);

/// The four corners of gMarquee: the first corner, then the others around, so that corner i is
/// opposite corner (i + 2) % 4.
[[nodiscard]] std::array<Point, 4> CornersOfMarquee();

/// The index, 0 to 3, of the first corner whose handle contains a position, or -1.
///
/// @param pixel  length of a logical pixel in plot units, across and up
[[nodiscard]] int HandleAt(Point at, Point pixel);

/// True while a complete marquee is shown; with an argument, on that plot.
[[nodiscard]] bool MarqueeStands();
[[nodiscard]] bool MarqueeStandsOn(std::int32_t slot);

/// The rectangle of gMarquee.
[[nodiscard]] PlotRectangle RectangleOfMarquee();

/// True for a position in the marquee that is shown, lasso or rectangle.
[[nodiscard]] bool IsInMarquee(Point at);

/// Shows a rectangle on a plot. Selects nothing.
void StandMarquee(std::int32_t slot, Point corner, Point opposite);

/// Shows a lasso on a plot, closed from its last corner to the first. Selects nothing.
void StandLasso(std::int32_t slot, std::vector<Point> corners);

/// Moves the marquee that is shown; the selected rows stay.
void ShiftMarquee(double dx, double dy);

/// Removes the frame; the rows stay selected.
void WipeMarquee();

/// Removes marquee and selection.
void ClearSelection();

/// Removes those of a plot that closes, or whose rows have changed.
void ClearSelectionOf(std::int32_t slot);

/// Restores marquee and selection. Rows that no longer exist are left out.
void PutSelectionBack(Selection kept);

/// The rows of a table that a marquee selects: valid ones with a symbol, including rows of
/// overlays, in ascending order of their point indices. O(rows).
///
/// @param isInside  whether a position is selected
[[nodiscard]] std::vector<std::int32_t>
RowsInside(const RowTable& table, const std::function<bool(Point)>& isInside,
           const std::function<bool(std::int32_t)>& isVisible);

/// The rows within the marquee that is shown; empty on the annotation layer, and for a rose.
[[nodiscard]] std::vector<std::int32_t> RowsInMarquee();

/// Fills gSelectionRows with the rows in the marquee that is shown. On the annotation layer the
/// list stays empty. A rose has no rows to select.
void SelectRowsInMarquee();

/// As SelectRowsInMarquee for a frame that adds to the previous selection or toggles it; on the
/// annotation layer the same for annotations.
///
/// @param former  the selection before the frame was drawn; ignored if it was in another plot
void SelectInMarquee(SelectionWay way, const Selection& former);

/// The selected annotations, ascending, when frames have added to each other or toggled; nothing
/// while the selection is just those within the frame.
[[nodiscard]] const std::optional<std::vector<std::size_t>>& PickedMarks();

/// The annotations of a plot within the marquee that is shown. Ascending.
[[nodiscard]] std::vector<std::size_t> MarksInMarquee();

/// The number of selected rows, for the status line: "3 rows selected"; empty when there are none.
/// Rows that are all drawn as great circles are selected by a marquee "by their poles". For a plot
/// of beta intersections, the number of these.
[[nodiscard]] std::string SelectionText();

/// Makes a layer of gActivePlot the one to edit. A marquee that is shown on the plot then selects
/// what it holds of that layer.
/// @param layer  kAnnotationLayer or kDataLayer
void UseLayer(std::int16_t layer);

/// Shows a marquee over the whole net of gActivePlot and selects its contents: -1000, 1000, 2000,
/// -2000. For a rose selects all valid rows, without a marquee.
void SelectAll();

/// Selects rows of a plot without a marquee. Indices that are not rows are left out.
void SelectRows(std::int32_t slot, std::vector<std::int32_t> rows);

/// Fits the marquee to the positions of the selected rows.
void FitMarqueeToRows();

/// Enlarges the rectangle that is shown about its centre to the smallest size of a frame, if it is
/// smaller. Selects nothing.
void WidenMarquee();

/// Fits the marquee on gActivePlot to its rows after these have moved, as in a rotation. Removes it
/// when no rows are selected.
void FollowMovedRows();

/// The selected rows of a plot; empty for any other.
[[nodiscard]] std::span<const std::int32_t> SelectedRowsOf(std::int32_t slot);

/// The positions of some rows, each once. Error rows have no position. O(rows).
[[nodiscard]] std::vector<Point> PlacesOfRows(std::int32_t slot,
                                              std::span<const std::int32_t> rows);

} // namespace quandrel
