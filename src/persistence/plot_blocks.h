// SPDX-License-Identifier: MIT
//
// The properties of a plot that a binary plot file keeps in its extension: measured angles of rows,
// whether the plot uses them, places of rows on the map, its formulas, densities and confidence
// regions. Also blocks that this version does not know.

#pragma once

#include "core/plot.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_stream.h"
#include "persistence/plot_extension.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// RecordView::UseDecimals, a truth value.
inline constexpr BlockHead kUseDecimalsBlock{{'U', 'D', 'E', 'C'}, true};

/// RecordView::PlotFormulas of a plot with a choice of its own: 1 or 2.
inline constexpr BlockHead kFormulasBlock{{'F', 'O', 'R', 'M'}, true};

/// Main rows are cells (stereo/cell_rows.h), a truth value; only in plots of summaries.
inline constexpr BlockHead kCellRowsBlock{{'C', 'E', 'L', 'L'}, true};

/// Attached to a plot: blocks of its file that this version does not know.
struct UnknownBlocks {
    std::vector<ExtensionBlock> blocks;
    std::uint64_t rows = 0; ///< FingerprintOfRows of the plot that they came with
};

/// A 64-bit hash of what blocks about rows may rely on: the rows of a plot, their order, the
/// overlays, and the values of the rows. How rows look plays no part. O(rows).
[[nodiscard]] std::uint64_t FingerprintOfRows(const Plot& plot);

/// The value of a block of kUseDecimalsBlock; nothing when it is damaged.
[[nodiscard]] std::optional<std::int16_t> UseDecimalsOfBlock(std::string_view bytes);

/// The same of a block of kFormulasBlock.
[[nodiscard]] std::optional<std::int16_t> FormulasOfBlock(std::string_view bytes);

/// Reads what follows the last field of a file into the plot of its fields. What is damaged, or
/// does not belong to the rows, is named in `leftOut`, and the plot is as without it.
///
/// @param bytes  of a file, from the end of its last field on
void ReadBlocks(std::string_view bytes, BinaryPlot& plot);

/// Stores the blocks of a file with its plot, whose rows are complete.
void TakeBlocks(BinaryPlot& file, Plot& plot);

/// Appends the extension of a plot to the fields of its file. A plot without decimals, that uses
/// none and follows the formulas of the preferences, has none, unless unknown blocks are kept with
/// it.
///
/// @param writer  has written the last field
/// @param rows    of the plot, as they were written
/// @param view    of a plot in a picture
void WriteBlocks(BinaryWriter& writer, const Plot& plot, std::span<const BinaryRow> rows,
                 const std::optional<PictureView>& view);

} // namespace quandrel
