// SPDX-License-Identifier: MIT
//
// Slip arrows: which way the hanging wall of a fault moves, as a direction on the net.
//
// The slip of a fault takes place in its movement plane, which holds the pole of the fault and its
// slip line. An arrow lies along the trace of that plane. Its row stands at the pole or at the slip
// line.
// G. Hoeppener, Tektonik im Schiefergebirge, Geol. Rundschau 44 (1955).

#pragma once

#include "orientation/angles.h"

#include <cstdint>
#include <optional>

namespace quandrel {

/// Azimuth of the arrow at a place of the net: the tangent of the movement plane's trace, pointing
/// from the pole of the fault on to the slip line and beyond for downward polarity, the other way
/// for an upward one.
///
/// @param plotKind  projection: 2 is equal angle, every other value equal area
/// @param pole      downward unit normal of the fault plane
/// @param slip      slip line as a downward unit vector; its trend counts when it is horizontal
/// @param upward    the hanging wall moves up along the slip line
/// @param at        downward unit vector of the place. Beside the movement plane the trace is that
///                  of the cone about the plane's normal through the place
/// @return radians from the net's north, 0 to kTwoPi; nothing when the slip line stands at right
///         angles on the fault or the place is the normal of the movement plane
[[nodiscard]] std::optional<double> SlipArrowAzimuth(int plotKind, const Direction& pole,
                                                     const Direction& slip, bool upward,
                                                     const Direction& at);

/// Azimuth of the arrow of a row, at the place where the row is plotted.
///
/// @param row  point index of a main row, or of a row of an overlay: of the secondary data, whose
///             faults are the main rows in their order, or of a file
/// @return radians, 0 to kTwoPi; NaN for a row that has no arrow: fault or slip line are missing,
///         or tell no direction
[[nodiscard]] float SlipArrowAngle(int slot, std::int32_t row);

/// True when a slip line that the plot shows tells a sense of movement by its negative plunge.
/// Without one arrows have no heads. O(rows).
[[nodiscard]] bool SlipArrowsTellSense(int slot);

/// SlipArrowAngle of a row of gActivePlot as it is drawn, in radians of whole degrees.
[[nodiscard]] double DrawnSlipArrowAngle(std::int32_t row);

} // namespace quandrel
