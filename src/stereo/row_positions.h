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

#include "core/measured_rows.h"
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

/// The effective primary dip or plunge of a row. It is kErrorRow also for a row of a plot of
/// intersections whose planes do not meet in a line; the columns mark such a row with -90. All code
/// that reads rows from the columns asks here which of them are data.
[[nodiscard]] std::int32_t DipOfRow(const Plot& plot, std::int32_t row);
[[nodiscard]] std::int32_t DipOfRow(int slot, std::int32_t row);

/// Which orientation of a row is shown: the secondary one of a main row while the plot shows the
/// secondary data, else the primary one.
[[nodiscard]] RowAngles AnglesShown(const PlotRecord& record, std::int32_t row);

/// The orientation of a row that is shown, as the plot shows it: measured if it uses decimals, else
/// in whole degrees. All drawings and results start from it. Its dip is kErrorRow where the row
/// cannot be plotted.
[[nodiscard]] Attitude OrientationShown(const Plot& plot, std::int32_t row);
[[nodiscard]] Attitude OrientationShown(int slot, std::int32_t row);

/// The orientation of a row that is shown, as it was measured, whether the plot uses decimals or
/// not. Operations that make rows from rows start from it.
[[nodiscard]] Attitude MeasuredShown(const Plot& plot, std::int32_t row);

/// The line of the table for an orientation, dip -90 to 90, azimuth 0 to 360 degrees.
[[nodiscard]] PlottedRow PlottedOrientation(int plotKind, bool asPole, std::int32_t index,
                                            const Attitude& shown);

/// Writes the line of a row at a position of the table of a slot, or appends it at the end. A
/// missing orientation makes an error row.
void StoreRowPosition(int slot, std::size_t place, std::int32_t index, const Attitude& shown,
                      bool asPole);

/// Rebuilds the table of a plot from the columns, all rows in order, and marks its rows as changed.
void RebuildRowTable(Plot& plot);
void RebuildRowTable(int slot);

} // namespace quandrel
