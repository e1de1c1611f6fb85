// SPDX-License-Identifier: MIT
//
// Slip arrows: the direction on the net in which the hanging wall of a fault moves.
//
// The slip of a fault takes place in its movement plane, which holds the pole of the fault and its
// slip line. An arrow lies along the trace of that plane, at the pole or at the slip line.
// G. Hoeppener, Tektonik im Schiefergebirge, Geol. Rundschau 44 (1955).

#pragma once

#include "core/plot.h"
#include "orientation/angles.h"

#include <cstdint>
#include <optional>

namespace quandrel {

/// Azimuth of the arrow at a position on the net: the tangent to the movement plane's trace. For
/// downward polarity it points from the pole of the fault to the slip line and beyond, for upward
/// polarity the other way.
///
/// @param plotKind  projection: 2 is equal angle, every other value equal area
/// @param pole      downward unit normal of the fault plane
/// @param slip      slip line as a downward unit vector; its trend counts when it is horizontal
/// @param upward    the hanging wall moves up along the slip line
/// @param at        downward unit vector of the position. Off the movement plane the trace is that
///                  of the cone about the plane's normal through the position
/// @return radians from the net's north, 0 to kTwoPi; nothing when the slip line is at right angles
///         to the fault or the position is the normal of the movement plane
[[nodiscard]] std::optional<double> SlipArrowAzimuth(int plotKind, const Direction& pole,
                                                     const Direction& slip, bool upward,
                                                     const Direction& at);

/// Azimuth of the arrow of a row, at its position on the plot.
///
/// @param row  point index of a main row, or of a row of an overlay: of the secondary data, whose
///             faults are the main rows in the same order, or of a file
/// @return radians, 0 to kTwoPi; NaN for a row without an arrow: fault or slip line are missing, or
///         give no direction
[[nodiscard]] float SlipArrowAngle(const Plot& plot, std::int32_t row);

/// True when a slip line that the plot shows states a sense of movement by its negative plunge.
/// Otherwise arrows have no heads. O(rows).
[[nodiscard]] bool SlipArrowsTellSense(const Plot& plot);

/// SlipArrowAngle of a row as it is drawn, in radians of whole degrees.
[[nodiscard]] double DrawnSlipArrowAngle(const Plot& plot, std::int32_t row);

/// The same at another position of the row, such as that of its other orientation.
[[nodiscard]] double DrawnSlipArrowAngle(const Plot& plot, std::int32_t row,
                                         const PlottedRow& place);

} // namespace quandrel
