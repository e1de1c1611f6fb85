// SPDX-License-Identifier: MIT
//
// The rows as they were before the last rotation, attached to their plot: only the last rotation of
// all plots can be undone. CanUndoRotation, UndoRotation and ForgetRotation of rotate_data.h work
// on this data.

#pragma once

#include "core/measured_rows.h"
#include "core/style_tables.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quandrel {

/// A row that got the style of its new sense.
struct SymbolChange {
    std::int32_t row = 0;
    SymbolCode formerDrawn = 0; ///< of gDataSymbol
    SymbolCode formerBase = 0;  ///< of gDataSymbolBase
    SymbolCode drawn = 0;
    SymbolCode base = 0;
};

/// PlotRecord::Modified while nothing but a rotation has changed the plot: undoing it restores the
/// previous value. Every other change writes kTrue.
inline constexpr std::int16_t kModifiedByRotation = 2;

/// The columns of a plot that a rotation changes, as they were before it, cell for cell from row 0.
struct RotationMemory {
    int slot = 0;
    std::int16_t rotationState = 0;
    std::int16_t modified = 0;                               ///< PlotRecord::Modified
    std::vector<std::vector<std::int32_t>> orientations;     ///< in the order of the columns
    std::array<MeasuredColumns, kRowAngles.size()> measured; ///< by RowAngles
    std::vector<SymbolChange> symbols;
    std::uint64_t fingerprint = 0; ///< hash of the columns after the rotation
};

/// The present columns of a plot. Throws std::bad_alloc.
[[nodiscard]] RotationMemory RememberRows(int slot);

/// Keeps the rows of gActivePlot as they were before the rotation that was just made.
void KeepForUndo(RotationMemory memory);

/// Takes what is kept for the last rotation, if it was one of this plot. The rotation cannot be
/// undone from then on, until OfferRotation.
[[nodiscard]] std::optional<RotationMemory> TakeRotation(int slot);

/// Makes a rotation undoable again: its plot is as the rotation left it.
void OfferRotation(RotationMemory memory);

} // namespace quandrel
