// SPDX-License-Identifier: MIT
//
// Columns of a table that can be angles, and pairs of them.

#pragma once

#include "input/suggest/table_columns.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quandrel {

/// Whether a column holds azimuths: quadrants, or numbers from 0 to 360.
[[nodiscard]] bool IsAzimuth(const ColumnEvidence& column);

/// Whether a column holds dips or plunges: numbers from -90 to 90, perhaps with a sense.
[[nodiscard]] bool IsDip(const ColumnEvidence& column);

/// Columns of a dip or a plunge and of its azimuth.
struct AnglePair {
    std::size_t dip = 0;
    std::size_t azimuth = 0;
};

/// Columns without headings that are azimuths above 90 or quadrants, each with a column of dips
/// beside it, from left to right. Columns that rise evenly are numbers of rows.
[[nodiscard]] std::vector<AnglePair> PairsByValues(const std::vector<ColumnEvidence>& columns);

/// The share of rows, 0 to 1, whose line lies in their plane within 10 degrees.
///
/// @param rows  not empty, as wide as the columns
/// @param turn  from the azimuth of the plane to its dip direction, degrees
[[nodiscard]] double ShareInPlane(const std::vector<std::vector<std::string>>& rows,
                                  const AnglePair& plane, const AnglePair& line, double turn);

} // namespace quandrel
