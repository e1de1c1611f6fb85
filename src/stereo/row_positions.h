// SPDX-License-Identifier: MIT
//
// From the data columns to the table of plotted rows: which orientation of a row is shown, whether
// it is plotted as a pole, and its position on the net.
//
// This folder holds the drawing of rows on the net: positions, symbols, great circles, the net, the
// texts of P and T axes, the caption of a plot, and the Drawing (drawing.h).
// Input: a plot, and a Drawing.
// Output: the row table with the position of each row, and drawing operations on surfaces.

#pragma once

#include "core/plot.h"
#include "core/plot_rows.h"
#include "core/row_table.h"

#include <cstdint>

namespace quandrel {

/// Whether the set of the main rows that is shown was measured as planes.
[[nodiscard]] bool ShowsPlaneData(const PlotRecord& record);

/// Whether rows are plotted as the poles of planes: the plotted set is plane data, or is plotted as
/// planes. `overlay` 0 means the main rows. All conversions between columns and positions ask here.
[[nodiscard]] bool IsPlottedAsPole(const PlotRecord& record, int overlay);

/// An orientation in whole degrees as the columns hold it.
struct ShownOrientation {
    std::int32_t dip = 0; ///< or plunge; kErrorRow where the row cannot be plotted
    std::int32_t azimuth = 0;
};

/// The effective primary dip or plunge of a row. It is kErrorRow also for a row of a plot of
/// intersections whose planes do not meet in a line; the columns mark such a row with -90. All code
/// that reads rows from the columns asks here which of them are data.
[[nodiscard]] std::int32_t DipOfRow(const Plot& plot, std::int32_t row);
[[nodiscard]] std::int32_t DipOfRow(int slot, std::int32_t row);

/// The pole of a plane, or the plane of a pole, in whole degrees. The sign of a dip is ignored.
[[nodiscard]] ShownOrientation PoleInDegrees(ShownOrientation plane);

/// The orientation of a row that is shown: the secondary one of a main row while the plot shows the
/// secondary data, else the primary one.
[[nodiscard]] ShownOrientation OrientationShown(const Plot& plot, std::int32_t row);
[[nodiscard]] ShownOrientation OrientationShown(int slot, std::int32_t row);

/// The line of the table for an orientation in whole degrees, dip -90 to 90, azimuth 0 to 360.
[[nodiscard]] PlottedRow PlottedOrientation(int plotKind, bool asPole, std::int32_t index,
                                            ShownOrientation shown);

/// Writes the line of a row at a position of the table of a slot, or appends it at the end. A
/// missing orientation makes an error row.
void StoreRowPosition(int slot, std::size_t place, std::int32_t index, ShownOrientation shown,
                      bool asPole);

/// Rebuilds the table of a plot from the columns, all rows in order, and marks its rows as changed.
void RebuildRowTable(Plot& plot);
void RebuildRowTable(int slot);

} // namespace quandrel
