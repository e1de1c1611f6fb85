// SPDX-License-Identifier: MIT
//
// Filling the boxes of the rotation dialog from a point on the net.

#pragma once

#include "rotation/rotation_settings.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quandrel {

/// The box that a press on the net fills.
enum RotationFocus : std::int16_t {
    kNoRotationFocus = 0,  ///< the dialog is closed
    kOrientationFocus = 1, ///< the pair of boxes for the axis, plane or line
    kSenseFocus = 2,       ///< txtRotAngleSense
    kNewStrikeFocus = 3,   ///< txtRotAngle(2) of kPlaneToVertical
};

/// The box of the rotation dialog that a press on the net fills.
struct RotationInWork {
    std::int16_t focus = kNoRotationFocus; ///< a RotationFocus

    static RotationInWork now;
};

/// The precision with which a new strike is taken from the net.
enum class PickStep { TenDegrees, FiveDegrees, Exact };

/// The step for the keys that are held: Shift five degrees, Ctrl the exact degree, none ten.
[[nodiscard]] PickStep PickStepOf(bool shift, bool ctrl);

/// What a press on the net puts into the boxes, as texts of whole degrees.
struct RotationPick {
    std::optional<std::string> inclination; ///< into txtRotAngle(0)
    std::optional<std::string> azimuth;     ///< into txtRotAngle(1)
    std::optional<std::string> angle;       ///< into txtRotAngle(2)
    std::optional<std::string> sense;       ///< into txtRotAngleSense
    std::string information;                ///< for the information line while the pointer moves
};

/// What the boxes take from a position on the net: the line there; for kPlaneToVertical the plane
/// whose pole is there; for a new strike the azimuth of the position; for a sense the nearest of
/// the eight compass names.
///
/// @param plotKind   projection of the net, a PlotKindCode
/// @param x,y        plot units
/// @param operation  RotationOperation
/// @param focus      RotationFocus; a box that the operation does not use counts as the orientation
/// @return nothing outside the net, for an operation without boxes, for a rose, for an azimuth at
///         the centre of the net, or while the dialog is closed
[[nodiscard]] std::optional<RotationPick>
PickRotation(int plotKind, double x, double y, int operation, std::int16_t focus, PickStep step);

} // namespace quandrel
