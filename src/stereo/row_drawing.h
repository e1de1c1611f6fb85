// SPDX-License-Identifier: MIT
//
// The rows of a plot as symbols, great circles and intersections.
//
// Rows of the same style at the same position look like one. Only the last of them in table order
// is drawn, which leaves the picture unchanged.

#pragma once

#include "core/plot.h"
#include "core/style_tables.h"
#include "orientation/angles.h"
#include "stereo/drawing.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Whether the main rows of a plot are drawn, in whatever mode. A plot that is classified by
/// appended numbers may show their grid instead.
[[nodiscard]] bool ShowsMainRows(const PlotRecord& record);

/// The rows to draw: those of the table with a point index from `first` to `last`.
struct RowRange {
    std::int32_t first = 1;
    std::int32_t last = 0;
};

/// Some rows at their positions.
struct RowSet {
    const RowTable* table = nullptr; ///< the plot's own, or one of the same rows at other positions
    RowRange range;                  ///< the lines of the table that belong to the set
    std::optional<SymbolCode> code;  ///< of all rows that are not hidden; else each has its own

    /// How many rows the set has, those that are not drawn included.
    std::int64_t count = 0;
};

/// The rows of a range at their positions on a plot.
[[nodiscard]] RowSet RowSetOf(const Plot& plot, RowRange range);

/// The code of a row of a set; symbol 0 hides it.
[[nodiscard]] SymbolCode CodeInSet(const Plot& plot, const Styles& styles, const RowSet& set,
                                   std::int32_t row);

/// The source of the symbol of a row.
enum class RowStyle {
    Own,         ///< its code in the symbol column
    DensityBand, ///< the style of its density band
};

/// The slip arrows of rows.
struct SlipArrows {
    /// Azimuth of a row's arrow in radians, NaN for a row without one. Empty: no arrows.
    std::function<double(std::int32_t row)> azimuth;
    bool haveHeads = true; ///< false: lines to both sides, because the sense is unknown
};

/// Draws a symbol for each row in its style, with its arrow on top. A code of symbol 0 hides a row.
///
/// Positions are in whole plot units, in styles with true great circles exact.
void DrawRowSymbols(const Plot& plot, const Drawing& drawing, const RowSet& rows,
                    RowStyle style = RowStyle::Own, const SlipArrows& arrows = {});

/// The same of rows at their positions on the plot.
void DrawRowSymbols(const Plot& plot, const Drawing& drawing, RowRange range,
                    RowStyle style = RowStyle::Own, const SlipArrows& arrows = {});

/// Draws the slip arrows of rows without their symbols. A code of symbol 0 hides a row.
void DrawRowArrows(const Plot& plot, const Drawing& drawing, const RowSet& rows,
                   const SlipArrows& arrows);

/// Draws the great circle of each row: of the plane whose pole is in the table, in the colour of
/// the row. A row of a line shows the plane at right angles to it. A code of symbol 0 hides a row.
/// A plot that uses decimals has its circles at the measured planes, others at the planes whose
/// poles are at the plotted positions.
void DrawRowGreatCircles(const Plot& plot, const Drawing& drawing, const RowSet& rows);

/// The same of rows at their positions on the plot.
void DrawRowGreatCircles(const Plot& plot, const Drawing& drawing, RowRange range);

/// The state of the surface in which these great circles are drawn: those of many rows are thinner
/// and paler.
[[nodiscard]] DrawState StateOfRowCircles(const Plot& plot, const Drawing& drawing,
                                          const RowSet& rows);

/// The intersections of the planes of some rows.
struct BetaIntersections {
    std::vector<Point> places; ///< distinct, in whole plot units
    std::int64_t count = 0;    ///< intersecting pairs
};

/// The intersections of each pair of valid main rows, including hidden ones. They are cached with
/// the plot until its rows or its kind change. Parallel planes do not intersect. n distinct planes
/// cost n (n - 1) / 2.
///
/// @param watcher  the status line, or null
const BetaIntersections& WorkOutBetaIntersections(Plot& plot, StatusLine* watcher);

/// The intersections of each pair of valid rows of a set, including hidden ones.
[[nodiscard]] BetaIntersections IntersectionsOfRows(const Plot& plot, const RowSet& rows,
                                                    StatusLine* watcher);

/// Frees the memory of the intersections.
void DropBetaIntersections(Plot& plot);

/// Draws a symbol at each intersection, in the style of row 0. Intersections that are not cached
/// are computed for this drawing only.
void DrawBetaIntersections(const Plot& plot, const Drawing& drawing);

/// Computes the intersections of gActivePlot and draws them into its window. Returns their number.
std::int64_t DrawBetaIntersections();

/// Distinct positions of the intersections of all pairs of planes.
///
/// @param plotKind  projection
/// @param normals   downward unit normals of distinct planes
/// @param weights   how many planes share each normal, as many as normals
/// @param onPairs   called from time to time with the number of pairs processed
/// @param[out] count  intersecting pairs of planes, with each of the shared ones counted
[[nodiscard]] std::vector<Point>
IntersectionPositions(int plotKind, std::span<const Direction> normals,
                      std::span<const std::int64_t> weights,
                      const std::function<void(std::int64_t)>& onPairs, std::int64_t& count);

} // namespace quandrel
