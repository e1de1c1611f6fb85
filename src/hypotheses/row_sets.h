// SPDX-License-Identifier: MIT
//
// The sets of rows of a plot that can be tested, and their samples.
//
// Rows are as the plot shows them: measured where it uses decimals, poles of planes; those of a
// rose are the azimuths that it counts. P and T axes in one plot are sets of their own.

#pragma once

#include "core/plot.h"
#include "core/styles.h"
#include "orientation/angles.h"
#include "rose/rose_sectors.h"
#include "statistics/fabric_kernels.h"
#include "statistics/row_groups.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quandrel {

/// Which rows of a plot.
struct RowSetId {
    RowGroupKind kind = RowGroupKind::MainRows;
    int number = 0; ///< of an overlay or a class, from 1

    friend bool operator==(const RowSetId&, const RowSetId&) = default;
};

/// What the rows of a set are. Only sets of the same sense are compared.
enum class RowsTestedAs {
    Axes,          ///< on a net: lines without a sense, poles
    Directions,    ///< on a net: polar lines
    AxialAzimuths, ///< of a rose: angles are doubled
    PolarAzimuths, ///< of a rose of polar lines
};

/// A set of rows with its name: "Main rows", that of an overlay as in the legend, the label of a
/// class, "P shortening axes".
struct RowSet {
    RowSetId id;
    std::string name;
    RowsTestedAs as = RowsTestedAs::Axes;
};

/// The sets of a plot: main rows, overlays, classes that can have rows. A rose has no overlays; a
/// plot of P and T axes has no classes, for they would mix the two. Sets may be without rows. O(1).
[[nodiscard]] std::vector<RowSet> RowSetsOf(const Plot& plot);

/// The rows of a set, each once.
struct TestSample {
    RowsTestedAs as = RowsTestedAs::Axes;
    std::vector<Direction> directions; ///< of a net; axes by their lower ends
    AzimuthSample azimuths;            ///< of a rose
    bool areCells = false; ///< the plot is one of a summary, which has no single rows to test

    [[nodiscard]] std::size_t Count() const { return directions.size() + azimuths.angles.size(); }
};

/// Directions by their rows: each as often as it has rows.
[[nodiscard]] std::vector<Direction> EachRow(const WeightedDirections& rows);

/// Whether two samples are of the same rows in the same order.
[[nodiscard]] bool AreSame(const TestSample& one, const TestSample& other);

/// The sample of a set of a plot; without rows if the plot does not have the set. O(rows).
///
/// @param styles  the source of the symbols of P and T axes
[[nodiscard]] TestSample TestSampleOf(Plot& plot, const Styles& styles, const RowSet& set);

/// Whether a sense is that of a rose.
[[nodiscard]] bool AreAzimuths(RowsTestedAs as);

} // namespace quandrel
