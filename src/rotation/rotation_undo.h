// SPDX-License-Identifier: MIT
//
// The rows as they were before the last rotation. CanUndoRotation, UndoRotation and ForgetRotation
// of rotate_data.h work on what is kept here.

#pragma once

#include "core/style_tables.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quandrel {

/// A row that took the style of its new sense.
struct SymbolChange {
    std::int32_t row = 0;
    SymbolCode formerDrawn = 0; ///< of gDataSymbol
    SymbolCode formerBase = 0;  ///< of gDataSymbolBase
    SymbolCode drawn = 0;
    SymbolCode base = 0;
};

/// PlotRecord::Modified while nothing has changed the plot since a rotation: taking that back makes
/// it what it was. Every other change writes kTrue.
inline constexpr std::int16_t kModifiedByRotation = 2;

/// The columns of a plot that a rotation changes, as they were, cell for cell from row 0.
struct RotationMemory {
    int slot = 0;
    std::int16_t rotationState = 0;
    std::int16_t modified = 0;                           ///< PlotRecord::Modified
    std::vector<std::vector<std::int32_t>> orientations; ///< in the order of the columns
    std::vector<SymbolChange> symbols;
    std::uint64_t fingerprint = 0; ///< of the columns as the rotation left them
};

/// The columns of a plot as they stand. Throws std::bad_alloc.
[[nodiscard]] RotationMemory RememberRows(int slot);

/// Keeps the rows of gActivePlot as they were before the rotation that was just made.
void KeepForUndo(RotationMemory memory);

/// What is kept for the last rotation, when it was one of this plot; from now on that cannot be
/// taken back, until OfferRotation.
[[nodiscard]] std::optional<RotationMemory> TakeRotation(int slot);

/// A rotation can be taken back again: its plot is as it left it.
void OfferRotation(RotationMemory memory);

} // namespace quandrel
