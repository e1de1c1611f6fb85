// SPDX-License-Identifier: MIT

#include "stereo/cell_rows.h"

#include "core/plot_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

/// Attached to a plot whose main rows are cells.
struct CellRows {};

} // namespace

bool HasCellRows(const Plot& plot) {
    return plot.attachments.Find<CellRows>() != nullptr;
}

void SetCellRows(Plot& plot, bool areCells) {
    if (areCells) {
        static_cast<void>(plot.attachments.Of<CellRows>());
    } else {
        plot.attachments.Drop<CellRows>();
    }
}

std::int32_t MeasurementsOfRow(const Plot& plot, std::int32_t row) {
    if (!HasCellRows(plot)) {
        return 1;
    }
    const float number = plot.rows.number(row);
    return number >= 1
               ? static_cast<std::int32_t>(std::min(number, static_cast<float>(kMostOfCell)))
               : 0;
}

void CountMeasurements(Plot& plot) {
    if (!HasCellRows(plot)) {
        return;
    }
    std::int64_t count = 0;
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        count += plot.rows.dip(row) != kErrorRow ? MeasurementsOfRow(plot, row) : 0;
    }
    SetCountOfValid(plot.record, static_cast<std::int32_t>(std::min<std::int64_t>(
                                     count, std::numeric_limits<std::int32_t>::max())));
}

} // namespace quandrel
