// SPDX-License-Identifier: MIT
//
// Rows as faults: the plane of a row is its primary orientation, the slip line its secondary one.
// Both are read from the data columns, never from the table of plotted rows, which may show either
// of them.

#pragma once

#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <cstdint>

namespace quandrel {

/// A fault in degrees. A negative plunge of the line means upward polarity: the hanging wall
/// moves up along it. The trend is still that of its downward end.
struct Fault {
    Attitude plane;
    Attitude line;
};

/// True when an orientation was read: not a marker, dip -90 to 90, azimuth 0 to 360.
[[nodiscard]] bool IsReadable(Attitude orientation);

/// The fault of a main row as it was measured, whether the plot uses decimals or not. Values that
/// the row lacks are not readable.
[[nodiscard]] Fault FaultOfRow(const Plot& plot, std::int32_t row);
[[nodiscard]] Fault FaultOfRow(int slot, std::int32_t row);

/// The same as the plot shows it: measured if it uses decimals, else in whole degrees.
[[nodiscard]] Fault FaultShown(const Plot& plot, std::int32_t row);

/// True when the main rows hold faults with slip lines, and none of these states its sense of
/// movement by a negative plunge. O(rows).
[[nodiscard]] bool LacksMovement(int slot);

/// The downward unit normal of the fault plane. The sign of the dip is ignored.
[[nodiscard]] Direction PoleOfFault(const Fault& fault);

/// The slip line as a unit vector: downward, or horizontal along its trend.
[[nodiscard]] Direction SlipLineOfFault(const Fault& fault);

} // namespace quandrel
