// SPDX-License-Identifier: MIT
//
// The columns of a suggested format beside its primary orientation: the secondary one, the appended
// line, number and text. Headings name them.

#pragma once

#include "input/format_choice.h"
#include "input/suggest/angle_columns.h"
#include "input/suggest/table_columns.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// "column 2 is headed 'dip' and lies in 0..90".
[[nodiscard]] std::string ReasonOfColumn(const std::vector<ColumnEvidence>& columns,
                                         std::size_t column);

/// The first column with a meaning that a format does not use yet.
[[nodiscard]] std::optional<std::size_t> FreeColumn(const std::vector<ColumnEvidence>& columns,
                                                    HeadingMeaning meaning,
                                                    const FormatChoice& choice);

void SetColumn(FormatChoice& choice, int slot, std::size_t column);

/// Makes a line the secondary data of a format of planes.
void SetSecondaryLine(FormatChoice& choice, const AnglePair& line);

/// Adds the secondary data of planes that headings name: a line; a pitch with its sense; the trend
/// of a line in the plane; or an angle in the plane from 0 to 360. Adds the reasons.
void AddSecondary(const std::vector<ColumnEvidence>& columns, FormatChoice& choice,
                  std::vector<std::string>& reasons);

/// Adds a line, a number and a text that headings name and the format does not use yet. A table of
/// winds has its frequency as the number.
void AddAppended(const std::vector<ColumnEvidence>& columns, FormatChoice& choice);

/// Adds the columns of the place on the map, if headings name both, and the reason.
void AddPlaceColumns(const std::vector<ColumnEvidence>& columns, FormatChoice& choice,
                     std::vector<std::string>& reasons);

/// Gives a format what rows that join those of a plot take from it: how they are plotted, and the
/// names of the appended values; those that the plot does not have are not read.
void TakeFromPlot(const FormatChoice& plot, FormatChoice& choice);

/// Gives a format the convention that names dip and azimuth in the order of their columns. The
/// convention decides how the program writes them.
void FollowOrder(FormatChoice& choice);

} // namespace quandrel
