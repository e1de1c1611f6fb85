// SPDX-License-Identifier: MIT
//
// Rotates the rows of gActivePlot in place, previews a rotation, and undoes the last one.
//
// This folder holds the kernels of rotating, tilting and unfolding, and the rules of their dialog.
// Input: rows of the active plot, and an axis with an angle or what is to become level or vertical.
// Output: rotated rows in the store, or a preview as points and arcs; rows that cannot be rotated
// are reported.

#pragma once

#include "platform/surface.h"
#include "rotation/rotation_pick.h"
#include "rotation/rotation_settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

// Given names.
inline constinit auto& gRotFocusBox = RotationInWork::now.focus;

/// The result of a rotation.
struct RotationReport {
    std::int32_t turned = 0;       ///< rows that were rotated
    std::int32_t withoutAxis = 0;  ///< rows left unchanged for lack of a valid appended line
    std::int32_t withoutPlane = 0; ///< overlay rows that are not planes, not unfolded
};

/// A sentence on the rows that were left unchanged; empty when there are none.
[[nodiscard]] std::string NoteOnRotation(const RotationReport& report);

/// Rotates all rows of gActivePlot, from their measured angles: its columns of whole degrees and of
/// measured angles, and its table. Marks the rows as changed. Draws
/// nothing. UndoRotation restores the rows.
///
/// @param state     RotationState: the operation, negative to put lines into the unfolded beds
/// @param settings  the numbers, checked by CheckRotation; the operation in them is ignored
///
/// Throws std::bad_alloc, with nothing changed.
RotationReport RotateData(std::int16_t state, const RotationSettings& settings);

/// The dialog's "Rotate Plot": rotates gActivePlot by the settings and redraws it. Does nothing
/// while a long loop runs (gBusy).
///
/// @param[out] report  the result
/// @return the refusal, if there is one: then nothing has changed
[[nodiscard]] std::optional<RotationRefusal> ApplyRotation(const RotationSettings& settings,
                                                           RotationReport& report);

/// A row of gActivePlot, and its position after a rotation.
struct PreviewedRow {
    std::int32_t row = 0; ///< point index
    Point place;          ///< plot units
};

/// The positions that all rows of gActivePlot would be drawn at after a rotation. Main rows show
/// the set that is shown, overlays what they show; error rows have no position. Nothing changes in
/// the store. Empty when CheckRotation refuses, or for a rose. O(rows).
[[nodiscard]] std::vector<PreviewedRow> PreviewRotation(const RotationSettings& settings);

/// True while the rows of gActivePlot are as the last rotation left them. O(rows) when this plot
/// was the last one to be rotated.
[[nodiscard]] bool CanUndoRotation();

/// Restores the exact values that the rows of gActivePlot had before the last rotation, and draws
/// them. False when there is nothing to undo.
bool UndoRotation();

/// Makes the last rotation final. Edits of rows that cannot be undone call it; an edit that does
/// not is detected all the same. After edits that can be undone, the rotation can be undone once
/// they have been.
void ForgetRotation();

} // namespace quandrel
