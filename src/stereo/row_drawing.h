// SPDX-License-Identifier: MIT
//
// The rows of a plot as symbols, great circles and intersections.
//
// Rows of the same style on the same place show as one; each is drawn once, where the last of them
// stands in the order of the table, which leaves the picture as it was.

#pragma once

#include "core/plot.h"
#include "orientation/angles.h"
#include "stereo/drawing.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quandrel {

/// True when the main rows of a plot are drawn, in whatever mode it has. A plot that is classified
/// by appended numbers may show their grid instead.
[[nodiscard]] bool ShowsMainRows(const PlotRecord& record);

/// Rows to draw: those of the table whose point index lies from `first` to `last`.
struct RowRange {
    std::int32_t first = 1;
    std::int32_t last = 0;
};

/// How the symbol of a row is found.
enum class RowStyle {
    Own,         ///< its code in the symbol column
    DensityBand, ///< the style of its density band
};

/// The slip arrows that go with rows.
struct SlipArrows {
    /// Azimuth of a row's arrow in radians, NaN for a row without one. Without it there are none.
    std::function<double(std::int32_t row)> azimuth;
    bool haveHeads = true; ///< false: lines to both sides, for the sense is not known
};

/// A symbol for each row with its style, its arrow on top of it. A code of symbol 0 hides a row.
void DrawRowSymbols(const Plot& plot, const Drawing& drawing, RowRange range,
                    RowStyle style = RowStyle::Own, const SlipArrows& arrows = {});

/// The great circle of each row: of the plane whose pole is in the table, in the colour of the row.
/// A row of a line shows the plane at right angles to it. A code of symbol 0 hides a row.
void DrawRowGreatCircles(const Plot& plot, const Drawing& drawing, RowRange range);

/// Where the planes of the main rows meet.
struct BetaIntersections {
    std::vector<Point> places; ///< without repeats, whole plot units
    std::int64_t count = 0;    ///< pairs that meet
};

/// The intersections of each pair of valid main rows, hidden ones too, kept with the plot until its
/// rows or its kind change. Parallel planes have no intersection. n different planes cost
/// n (n - 1) / 2.
///
/// @param watcher  the status line, or nothing
const BetaIntersections& WorkOutBetaIntersections(Plot& plot, StatusLine* watcher);

/// Gives back the memory of the intersections.
void DropBetaIntersections(Plot& plot);

/// A symbol at each intersection, in the style of row 0. Those that are not kept with the plot are
/// worked out for this drawing.
void DrawBetaIntersections(const Plot& plot, const Drawing& drawing);

/// Works out the intersections of gActivePlot and draws them into its window. Returns how many
/// there are.
std::int64_t DrawBetaIntersections();

/// Positions, without repeats, of the intersections of all pairs of planes.
///
/// @param plotKind  projection
/// @param normals   downward unit normals of different planes
/// @param weights   how many planes share each normal, as many as normals
/// @param onPairs   told how many pairs have been looked at, some times in between
/// @param[out] count  pairs of planes that intersect, each of the shared ones counted
[[nodiscard]] std::vector<Point>
IntersectionPositions(int plotKind, std::span<const Direction> normals,
                      std::span<const std::int64_t> weights,
                      const std::function<void(std::int64_t)>& onPairs, std::int64_t& count);

} // namespace quandrel
