// SPDX-License-Identifier: MIT
//
// The rows that a layer of a plot shows, as values: main rows, the secondary orientations, an
// overlay, a class, the selection. The same rows may be in several layers.

#pragma once

#include "core/plot.h"
#include "core/record_figure.h"
#include "core/styles.h"
#include "density/density_method.h"
#include "stereo/row_drawing.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The selected rows of a plot, as its layers show them.
struct ShownSelection {
    std::vector<std::int32_t> rows; ///< point indices, ascending
};

/// Rows of a layer. They stay valid when the plot is moved, and until its rows change.
struct LayerRows {
    std::shared_ptr<const RowTable> own; ///< their positions; null for those of the plot's table
    RowRange range;                      ///< the lines of the table that belong to them
    std::optional<SymbolCode> code;      ///< as RowSet::code
    std::int64_t count = 0;              ///< as RowSet::count
    bool arePoles = false;               ///< plotted as poles of planes
    bool arePolar = false;               ///< lines with a sense
};

/// The rows of a layer of rows; none for other layers, and where the plot lacks the overlay or the
/// class. O(rows) for classes, the selection and the secondary set.
///
/// Rows of the secondary set have the symbol of the overlay after the last one; a hidden row is
/// hidden there too.
[[nodiscard]] LayerRows GatherLayerRows(const Plot& plot, const Styles& styles,
                                        const FigureLayer& layer);

/// The same as a set for drawing, which refers to both arguments.
[[nodiscard]] RowSet SetOf(const Plot& plot, const LayerRows& rows);

/// The rows of a layer that are drawn.
struct DrawnRows {
    std::int64_t count = 0;
    std::int32_t first = 0; ///< the lowest point index
    SymbolCode code = 0;    ///< of the first row

    void Add(std::int32_t row, SymbolCode added);
};

/// Drawn rows by the sense in which they are shown.
struct RowsBySense {
    DrawnRows down;
    DrawnRows up; ///< of negative dip or plunge

    [[nodiscard]] DrawnRows All() const;
};

/// The drawn rows of a layer. Those of the secondary set all count as downward: they have one sign.
/// O(rows).
[[nodiscard]] RowsBySense DrawnRowsOf(const Plot& plot, const Styles& styles,
                                      const FigureLayer& layer, const LayerRows& rows);

/// Whether signs of plunges count in densities of these rows.
[[nodiscard]] LineSense SenseOfLayer(const PlotRecord& record, const LayerRows& rows);

/// The slip arrows of the rows of a layer, at their positions.
[[nodiscard]] SlipArrows ArrowsOfLayer(const Plot& plot, const FigureLayer& layer);

/// What the data of a layer are called: "Overlay 2", "Secondary lines", "2-4" for a class,
/// "Selected rows". Empty for main rows and results.
[[nodiscard]] std::string NameOfLayerData(const Plot& plot, const FigureLayer& layer);

/// The number of the last class of a classified plot, else 0.
[[nodiscard]] int LastClassOf(const PlotRecord& record);

} // namespace quandrel
