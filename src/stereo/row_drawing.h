// SPDX-License-Identifier: MIT
//
// The rows of a plot as symbols, great circles and intersections.
//
// Rows of the same style on the same place show as one; each is drawn once, where the last of them
// stands in the order of the table, which leaves the picture as it was.

#pragma once

#include "core/plot_record.h"
#include "core/row_table.h"
#include "core/style_tables.h"
#include "orientation/angles.h"
#include "platform/surface.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quandrel {

/// True when the main rows of a plot are drawn, in whatever mode it has. A plot that is classified
/// by appended numbers may show their grid instead.
[[nodiscard]] bool ShowsMainRows(const PlotRecord& record);

/// Rows to draw: those of the active plot's table whose point index lies from `first` to `last`.
struct RowRange {
    std::int32_t first = 1;
    std::int32_t last = 0;
};

/// How the symbol of a row is found.
enum class RowStyle {
    Own,         ///< its code in gDataSymbol
    DensityBand, ///< the style of its density band
};

/// The slip arrows that go with rows.
struct SlipArrows {
    /// Azimuth of a row's arrow in radians, NaN for a row without one. Without it there are none.
    std::function<double(std::int32_t row)> azimuth;
    bool haveHeads = true; ///< false: lines to both sides, for the sense is not known
};

/// A symbol for each row with its style, its arrow on top of it. A code of symbol 0 hides a row.
void DrawRowSymbols(RowRange range, RowStyle style = RowStyle::Own, const SlipArrows& arrows = {});

/// The great circle of each row: of the plane whose pole stands in the table, in the colour of the
/// row. A row of a line shows the plane at right angles to it. A code of symbol 0 hides a row.
void DrawRowGreatCircles(RowRange range);

/// A symbol where the planes of each pair of valid main rows meet, hidden ones too, in the style of
/// row 0. Parallel planes have no intersection. Returns how many there are. n different planes cost
/// n (n - 1) / 2.
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
