// SPDX-License-Identifier: MIT
//
// Rotates the rows of gActivePlot in place, shows where they would go, and takes the last rotation
// back.
//
// Inside the folder: the kernels of turning, tilting and unfolding, and the rules of their dialog.
// Enters: rows of the active plot, an axis and an angle or what is to become level or upright.
// Leaves: turned rows in the store, or a preview as points and arcs; what cannot be turned is told.

#pragma once

#include "platform/surface.h"
#include "rotation/rotation_settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// What a rotation did.
struct RotationReport {
    std::int32_t turned = 0;       ///< rows that took part
    std::int32_t withoutAxis = 0;  ///< left as they were, for want of a valid appended line
    std::int32_t withoutPlane = 0; ///< rows of overlays that are no planes, left when unfolding
};

/// A sentence on the rows that were left as they were; empty when there are none.
[[nodiscard]] std::string NoteOnRotation(const RotationReport& report);

/// Rotates all rows of gActivePlot: its columns, and its table. Marks the rows as changed. Draws
/// nothing. The rows as they were can be had back by UndoRotation.
///
/// @param state     RotationState: the operation, negative to lay lines into the unfolded beds
/// @param settings  the numbers, checked by CheckRotation; their operation plays no part
///
/// Throws std::bad_alloc; then nothing has changed.
RotationReport RotateData(std::int16_t state, const RotationSettings& settings);

/// The dialog's "Rotate Plot": rotates gActivePlot by the settings and draws it anew. Does nothing
/// while a long loop runs (gBusy).
///
/// @param[out] report  what was done
/// @return the refusal, if there is one: then nothing has changed
[[nodiscard]] std::optional<RotationRefusal> ApplyRotation(const RotationSettings& settings,
                                                           RotationReport& report);

/// A row of gActivePlot, and where it would stand after a rotation.
struct PreviewedRow {
    std::int32_t row = 0; ///< point index
    Point place;          ///< plot units
};

/// Where all rows of gActivePlot would stand after a rotation, to the very place that they would
/// take. Main rows show the set that is shown, overlays what they show; error rows have no place.
/// Nothing changes in the store. Empty when CheckRotation refuses, or for a rose. O(rows).
[[nodiscard]] std::vector<PreviewedRow> PreviewRotation(const RotationSettings& settings);

/// True while the rows of gActivePlot stand as the last rotation left them. O(rows) when this plot
/// was the last that was rotated.
[[nodiscard]] bool CanUndoRotation();

/// Gives the rows of gActivePlot the very values that they had before the last rotation, and draws
/// them. False when there is nothing to take back.
bool UndoRotation();

/// From now on the last rotation cannot be taken back. Edits of rows that are not kept for undo
/// call it; one that does not is found out all the same. After those that are kept the rotation can
/// be taken back once they have been.
void ForgetRotation();

} // namespace quandrel
