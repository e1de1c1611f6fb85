// SPDX-License-Identifier: MIT
//
// The rows of a plot, and its annotations, as values that can be put back exactly as they were.

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace quandrel {

/// Modified of a plot that nothing has changed since the edit that can be taken back was made. Any
/// other change writes kTrue, saving 0.
inline constexpr std::int16_t kModifiedByLastEdit = 1;

/// What Modified is once the last edit is taken back, or made again.
/// @param now   of the plot, before that
/// @param kept  of the plot on the other side of the edit
[[nodiscard]] std::int16_t ModifiedWithout(std::int16_t now, std::int16_t kept);

/// What the record of a plot says of its rows.
struct RowSettings {
    std::int32_t numValidData = 0;
    std::int32_t numData = 0;
    std::int32_t numLoadedData = 0;
    std::int16_t primaryFormat = 0;
    std::int16_t secondaryFormat = 0;
    std::int16_t showSecondary = 0;
    std::int16_t dataKind = 0;
    std::int16_t plotKind = 0;
    std::int16_t selectedOverlay = 0;
    std::int16_t hasAppendedLine = 0;
    std::int16_t hasAppendedNumeric = 0;
    std::int16_t hasAppendedText = 0;
    std::int16_t dataFull = 0;
    std::int16_t modified = 0;
    std::int16_t mapInfoLinked = 0; ///< put back by those who keep the links
    std::int16_t classMode = 0;
    std::string numberName;
    std::string textName;
    std::string axesTitle;
    std::string plotTitle;
    std::vector<std::string> fileNames;
    std::array<std::int32_t, kMaxOverlays + 1> overlayRows{};
    std::array<std::int16_t, kMaxOverlays + 1> overlayKind{};
    std::array<std::vector<std::string>, kMaxOverlays + 1> overlayFiles;
    std::array<double, 2> appendedMin{};
    std::array<double, 2> appendedMax{};
    Table<TaggedValue, kDistinctValues, 2> distinctValues;
};

/// The rows of a plot: the cells of its columns from row 0 on, fewer where a column is shorter.
struct KeptRows {
    RowSettings settings;
    std::array<std::vector<std::int32_t>, 8> whole; ///< in the order of WholeColumns
    std::array<std::vector<SymbolCode>, 2> symbols; ///< drawn, base
    std::vector<float> numbers;
    std::vector<std::string> texts;
    std::unordered_map<std::int32_t, std::string> errorLines;
    std::shared_ptr<const void> links; ///< what gRowFollower knew of them
};

/// The rows of a plot as they stand. Throws std::bad_alloc. O(rows).
[[nodiscard]] KeptRows KeepRows(int slot);

/// Gives a plot the rows that were kept, and makes its table anew. Modified says that the plot
/// differs from its file when it was saved, or changed in other ways, since. Throws std::bad_alloc.
/// O(rows).
void PutRowsBack(int slot, const KeptRows& rows);

/// A number that other rows of a plot have not: of its orientations, appended values, symbols, and
/// the order and overlays of its rows. What each drawing works out anew plays no part. O(rows).
[[nodiscard]] std::uint64_t FingerprintOfRows(int slot);

/// The annotations of a plot.
struct KeptAnnotations {
    Annotations annotations;
    std::int16_t shown = 0;
    std::int16_t modified = 0;
};

[[nodiscard]] KeptAnnotations KeepAnnotations(int slot);
void PutAnnotationsBack(int slot, const KeptAnnotations& kept);
[[nodiscard]] std::uint64_t FingerprintOfAnnotations(int slot);

/// Takes rows out of a plot: out of its columns, its counts, its overlays and its table. An overlay
/// that has none left goes. Does not draw. O(rows of the plot).
///
/// @param rows  point indices in ascending order, without repeats
void RemoveRows(int slot, std::span<const std::int32_t> rows);

/// Works the range and the distinct values of the appended data of gActivePlot out anew.
void RecountAppendedRange();

} // namespace quandrel
