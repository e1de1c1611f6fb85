// SPDX-License-Identifier: MIT
//
// The marquee and the selection: which rows of a plot the next edit is about.
//
// What is inside this room: marquee and selection (this file), the intersections within it
// (selected_intersections.h), the rows of other plots that are lit with it (linked_rows.h), and
// places of the net as lines and as texts (net_line.h, readout.h).
// What enters: places on the net, rows and tables of plots. What leaves: lists of rows, lit places,
// and gSelectionChanged. Nothing here changes a plot.
//
// A marquee is a rectangle on the net, or a lasso, whose record is that of the rectangle about it.
// The rows that it holds are put into gSelectionRows once it stands; a further one may add to them.
// Rows can also be selected one by one, without a marquee. gSelectionRows is what is selected;
// gMarquee is the last frame alone, which the mouse takes hold of. There is one selection, in one
// plot; it stays when another plot becomes the active one. Positions are plot units.

#pragma once

#include "core/plot_record.h"
#include "core/row_table.h"
#include "platform/surface.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Places of gMarquee.
enum MarqueePlace : std::size_t {
    kMarqueeState = 0, ///< not 0 while the marquee is drawn or moved
    kMarqueeX = 1,     ///< first corner
    kMarqueeY = 2,
    kMarqueeWidth = 3,    ///< from the first corner to the opposite one, negative to the left
    kMarqueeHeight = 4,   ///< negative downward
    kMarqueeDragging = 5, ///< kMarqueeSet while the mouse holds it
    kMarqueeStanding = 6, ///< kMarqueeSet while a finished marquee stands
};

/// What the last two places hold when they are set; otherwise 0.
inline constexpr float kMarqueeSet = 9999.0F;

/// How far about a corner a press takes it: plot units, and logical pixels where these are more; of
/// a small frame a third of its extent, so that there is a middle left to take hold of.
inline constexpr double kHandleUnits = 10;
inline constexpr double kHandlePixels = 8;

/// The least extent of a frame about selected rows, plot units: about 20 pixels in a plot of a
/// fifth of the screen.
inline constexpr double kLeastFrame = 100;

/// What a frame does with what was selected before.
enum class SelectionWay {
    Replace, ///< what the frame holds is the selection
    Add,     ///< what the frame holds joins it
    Toggle,  ///< what the frame holds joins it, and leaves it where it was selected
};

extern std::array<float, 7> gMarquee;

/// The plot of the marquee and of gSelectionRows, 0 for none.
extern std::int32_t gMarqueeSlot;

/// Corners of the lasso; empty while the marquee is a rectangle.
extern std::vector<Point> gLasso;

/// Told after each change of the selection, and of a marquee that stands. May be empty.
extern std::function<void()> gSelectionChanged;

/// A rectangle with its edges.
struct PlotRectangle {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
};

/// The rectangle between two opposite corners, in whatever order.
[[nodiscard]] PlotRectangle RectangleBetween(Point corner, Point opposite);

/// True for a position in a rectangle or on its edge.
[[nodiscard]] bool IsWithin(const PlotRectangle& rectangle, Point at);

/// True for a position in a polygon, by the even-odd rule, or on its edge. O(corners).
[[nodiscard]] bool IsWithin(std::span<const Point> polygon, Point at);

/// The four corners of a rectangle with a first corner and an extent: the first corner, then the
/// others around, so that the opposite of corner i is corner (i + 2) % 4.
[[nodiscard]] std::array<Point, 4> CornersOfMarquee();

/// The corner 0 to 3 whose handle holds a position, the first of several, or -1.
///
/// @param pixel  length of a logical pixel in plot units, across and up
[[nodiscard]] int HandleAt(Point at, Point pixel);

/// True while a finished marquee stands; on a certain plot.
[[nodiscard]] bool MarqueeStands();
[[nodiscard]] bool MarqueeStandsOn(std::int32_t slot);

/// The rectangle of gMarquee.
[[nodiscard]] PlotRectangle RectangleOfMarquee();

/// True for a position in the marquee that stands, lasso or rectangle.
[[nodiscard]] bool IsInMarquee(Point at);

/// Stands a rectangle on a plot. Selects nothing.
void StandMarquee(std::int32_t slot, Point corner, Point opposite);

/// Stands a lasso on a plot, closed from its last corner to the first. Selects nothing.
void StandLasso(std::int32_t slot, std::vector<Point> corners);

/// Moves the marquee that stands; the rows stay.
void ShiftMarquee(double dx, double dy);

/// Wipes the frame; the rows stay selected.
void WipeMarquee();

/// Wipes marquee and selection.
void ClearSelection();

/// Wipes those of a plot that closes, or whose rows are no longer the same.
void ClearSelectionOf(std::int32_t slot);

/// Marquee and selection at a moment.
struct KeptSelection {
    std::array<float, 7> marquee{};
    std::vector<Point> lasso;
    std::vector<std::int32_t> rows;
    std::optional<std::vector<std::size_t>> marks; ///< as PickedMarks
    std::int32_t slot = 0;
};

[[nodiscard]] KeptSelection KeepSelection();

/// Makes marquee and selection what they were. Rows that are no longer there are left out.
void PutSelectionBack(KeptSelection kept);

/// The rows of a table that a marquee takes: valid ones with a symbol, rows of overlays too, in
/// ascending order of their point indices. O(rows).
///
/// @param isInside  whether a position is taken
[[nodiscard]] std::vector<std::int32_t>
RowsInside(const RowTable& table, const std::function<bool(Point)>& isInside,
           const std::function<bool(std::int32_t)>& isVisible);

/// The rows within the marquee that stands; none on the annotation layer, and of a rose.
[[nodiscard]] std::vector<std::int32_t> RowsInMarquee();

/// Fills gSelectionRows with what the marquee that stands holds. On the annotation layer the list
/// stays empty. A rose has no rows to select.
void SelectRowsInMarquee();

/// As SelectRowsInMarquee for a frame that adds to what was selected, or toggles it; on the
/// annotation layer the same with its marks.
///
/// @param former  the selection before the frame was drawn; that of another plot does not count
void SelectInMarquee(SelectionWay way, const KeptSelection& former);

/// The annotations that are selected, when frames have added to each other or toggled; nothing
/// while those within the frame alone are. Ascending.
[[nodiscard]] const std::optional<std::vector<std::size_t>>& PickedMarks();

/// The annotations of a plot within the marquee that stands. Ascending.
[[nodiscard]] std::vector<std::size_t> MarksInMarquee();

/// How many rows are selected, for the status line: "3 rows selected"; empty for none. A marquee
/// about rows that are all drawn as great circles has selected them "by their poles". Of a plot of
/// beta intersections, how many of these.
[[nodiscard]] std::string SelectionText();

/// Lets edits of gActivePlot be about a layer. A marquee that stands on the plot holds what that
/// layer has in it.
/// @param layer  kAnnotationLayer or kDataLayer
void UseLayer(std::int16_t layer);

/// A marquee over the whole net of gActivePlot, with all that it holds: -1000, 1000, 2000, -2000.
/// Of a rose all valid rows, without a marquee.
void SelectAll();

/// Selects rows of a plot without a marquee. Indices that are no rows are left out.
void SelectRows(std::int32_t slot, std::vector<std::int32_t> rows);

/// Stands the marquee about the selected rows, where they are plotted.
void FitMarqueeToRows();

/// Gives the rectangle that stands the least size of a frame about its middle, unless it has more.
/// Selects nothing.
void WidenMarquee();

/// Fits the marquee that stands on gActivePlot to its rows after these have moved, as in a
/// rotation. Without selected rows it goes.
void FollowMovedRows();

/// The selected rows of a plot; empty for any other.
[[nodiscard]] std::span<const std::int32_t> SelectedRowsOf(std::int32_t slot);

/// Where the rows of a list are plotted, each place once. Error rows have no place. O(rows).
[[nodiscard]] std::vector<Point> PlacesOfRows(std::int32_t slot,
                                              std::span<const std::int32_t> rows);

} // namespace quandrel
