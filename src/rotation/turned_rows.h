// SPDX-License-Identifier: MIT
//
// The rows of a plot as a rotation would leave them. Nothing here writes to the store.
//
// A row starts from its measured angles and goes through the whole rotation unrounded; its values
// are rounded once, at the end: to whole degrees, or to 1e-6 degree for the measured columns.
// Planes are rotated by their poles, and a negative dip stays negative. A row that the rotation
// does not move keeps its exact numbers.

#pragma once

#include "core/plot_record.h"
#include "rotation/rotation_settings.h"
#include "stereo/row_positions.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// A rotation that is ready to be applied. Angles are radians.
struct Rotation {
    int operation = kRotateAboutAxis; ///< RotationOperation
    bool forced = false;              ///< put lines into the unfolded beds
    double inclination = 0;           ///< plunge of axis or line, dip of the plane
    double azimuth = 0;
    double angle = 0;  ///< or the new strike
    double strike = 0; ///< of the plane: the end that is rotated to the new strike
    double pitch = 0;  ///< from that end; negative from the other one
};

/// The rotation of checked settings.
[[nodiscard]] Rotation RotationOf(const RotationSettings& settings);

/// How a rotation treats the two ends of a line.
enum class EndsOfLine {
    None,     ///< an axis: its result is on the lower hemisphere
    Directed, ///< an arrow: its result may point upward, with a negative plunge
    Kept,     ///< an axis whose sign identifies it
    Level,    ///< a direction without a plunge: its azimuth is rotated, it stays horizontal
};

/// The sense of the main rows' primary lines: directions are level, derived axes keep their sign,
/// and lines are directed when they are plotted as polar lines or one of them points upward.
[[nodiscard]] EndsOfLine SenseOfPrimaryLines(int slot);

/// The sense of the secondary lines: directed when they are plotted as polar lines, drawn as slip
/// arrows, or one of them points upward.
[[nodiscard]] EndsOfLine SenseOfSecondaryLines(int slot);

/// The columns that the results of a rotation are rounded for.
enum class AngleColumns : std::uint8_t {
    Whole,    ///< whole degrees
    Measured, ///< 1e-6 degree
};

/// The rows of a plot after a rotation, indexed by point index; element 0 is not used. Rows that
/// the rotation does not affect are unchanged.
struct TurnedRows {
    std::vector<Attitude> primary;
    std::vector<Attitude> secondary; ///< empty without secondary data
    std::vector<Attitude> appended;  ///< empty unless appended lines are rotated
    std::int32_t turned = 0;         ///< rows that were rotated
    std::int32_t withoutAxis = 0;    ///< and those without an appended line
    std::int32_t withoutPlane = 0;   ///< and rows of overlays that are not planes
};

/// Rotates all rows of a plot, for one kind of its columns: the main rows with their secondary
/// data, and the overlays. Rotations that do not unfold also rotate appended lines. Error rows are
/// left unchanged. The overlay that shows the secondary data shows the rotated ones.
///
/// The slip line of a fault, a directed line in a row with a plane, states how the hanging wall
/// moved. When a rotation turns the plane over, the other block becomes the hanging wall and moves
/// the other way. Unfolding restores beds, and the line keeps its direction. Throws
/// std::bad_alloc. O(rows).
[[nodiscard]] TurnedRows TurnRows(int slot, const Rotation& rotation, AngleColumns columns);

} // namespace quandrel
