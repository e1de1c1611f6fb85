// SPDX-License-Identifier: MIT
//
// The rows of a plot as a rotation would leave them. Nothing here writes to the store.
//
// A row goes through the whole rotation in full; its values are rounded to whole degrees once, at
// the end. Planes turn by their poles, and a negative dip stays negative. A row that comes out as
// it went in keeps its very numbers.

#pragma once

#include "core/plot_record.h"
#include "rotation/rotation_settings.h"
#include "stereo/row_positions.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// A rotation ready to be carried out. Radians.
struct Rotation {
    int operation = kRotateAboutAxis; ///< RotationOperation
    bool forced = false;              ///< lines are laid into the unfolded beds
    double inclination = 0;           ///< plunge of axis or line, dip of the plane
    double azimuth = 0;
    double angle = 0;  ///< or new strike
    double strike = 0; ///< of the plane, the end that comes to the new strike
    double pitch = 0;  ///< from that end, negative from the other one
};

/// The rotation of settings that were checked.
[[nodiscard]] Rotation RotationOf(const RotationSettings& settings);

/// What becomes of the two ends of a line.
enum class EndsOfLine {
    None,     ///< an axis: it ends on the lower hemisphere
    Directed, ///< an arrow: it may end pointing upward, with a negative plunge
    Kept,     ///< an axis whose sign says what it is
    Level,    ///< a direction without a plunge: its azimuth turns, it stays horizontal
};

/// The sense of the main rows' primary lines: directions are level, derived axes keep their sign,
/// and lines are directed when they are plotted as polar lines or one of them points upward.
[[nodiscard]] EndsOfLine SenseOfPrimaryLines(int slot);

/// The sense of the secondary lines: directed when they are plotted as polar lines, drawn as slip
/// arrows, or one of them points upward.
[[nodiscard]] EndsOfLine SenseOfSecondaryLines(int slot);

/// The rows of a plot after a rotation, at the places of their point indices; place 0 is not used.
/// Rows that the rotation leaves alone stand as they are.
struct TurnedRows {
    std::vector<ShownOrientation> primary;
    std::vector<ShownOrientation> secondary; ///< empty without secondary data
    std::vector<ShownOrientation> appended;  ///< empty unless appended lines turn
    std::int32_t turned = 0;                 ///< rows that took part
    std::int32_t withoutAxis = 0;            ///< that could not, for want of an appended line
    std::int32_t withoutPlane = 0;           ///< and rows of overlays that are no planes
};

/// Turns all rows of a plot: the main rows with their secondary data, and the overlays. Appended
/// lines turn with rotations that do not unfold. Error rows are left alone. The overlay that shows
/// the secondary data shows them as they then are.
///
/// The slip line of a fault, a directed line in a row with a plane, tells how the hanging wall
/// moved. When a rotation turns the plane over, the other block hangs, and moves the other way.
/// Unfolding lays beds back, and the line keeps its direction. Throws std::bad_alloc. O(rows).
[[nodiscard]] TurnedRows TurnRows(int slot, const Rotation& rotation);

} // namespace quandrel
