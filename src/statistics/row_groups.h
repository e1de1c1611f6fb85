// SPDX-License-Identifier: MIT
//
// The groups of rows of a plot that have statistics of their own: its main rows, each overlay, each
// class.
//
// Rows are as the plot shows them: measured where it uses decimals, poles of planes, and each row
// counts as one. P and T axes in one plot are groups of their own.

#pragma once

#include "core/plot.h"
#include "core/styles.h"
#include "stereo/distinct_lines.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// The classes of the main rows of a plot.
struct RowClasses {
    std::vector<std::uint8_t> ofRow; ///< [row] from 1, 0 for none; may be empty
    std::vector<std::string> names;  ///< [class] from 1

    friend bool operator==(const RowClasses&, const RowClasses&) = default;
};

enum class RowGroupKind { MainRows, Shortening, Extension, Overlay, Class };

/// Rows that share a statistic.
struct RowGroup {
    std::string name;     ///< of an overlay, a class, P or T axes; empty for main rows
    RowLines lines;       ///< not empty
    bool isPolar = false; ///< rows with a sense: polar lines
    RowGroupKind kind = RowGroupKind::MainRows;
    int number = 0; ///< of an overlay or a class, from 1
};

/// Whether the main rows are polar lines. Kinematic axes are not.
[[nodiscard]] bool HasPolarMainRows(const PlotRecord& record);

/// The groups of a plot that have rows: main rows, overlays, classes, in this order. A plot of P
/// and T axes has no classes, for they would mix the two. O(rows) for each group.
///
/// @param styles   the source of the symbols of P and T axes
/// @param classes  of the plot if its classes are wanted, else empty
/// @param of       sum of RegionsOfCode
[[nodiscard]] std::vector<RowGroup> RowGroupsOf(Plot& plot, const Styles& styles,
                                                const RowClasses& classes, std::int16_t of);

} // namespace quandrel
