// SPDX-License-Identifier: MIT
//
// The first rows of a text as a plot, to show what they are in a data format before they are
// loaded.

#pragma once

#include "core/plot.h"
#include "core/settings_value.h"
#include "input/format_choice.h"
#include "platform/surface.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// The number of rows that a sample shows.
inline constexpr std::size_t kSampleRows = 500;

struct FormatSample {
    Plot plot;
    std::vector<std::size_t> lines; ///< of the rows, by row - 1: indexes of the lines
};

/// The rows of the first lines that are rows of a format, worked out. A net, or a rose for
/// directions.
[[nodiscard]] FormatSample SampleOfLines(std::span<const std::string> lines,
                                         const FormatChoice& choice, const Settings& settings);

/// Draws a sample.
///
/// @param legend  of the sample
void DrawSample(const FormatSample& sample, Surface& surface, Surface& legend,
                const Styles& styles);

/// Draws the row of a line above a sample: a plane as its great circle and its pole, a line as a
/// point, a direction as a radius, an axis in a rose as a diameter. Nothing for a line that is not
/// a row.
void DrawRowOfLine(const FormatSample& sample, Surface& surface, const Styles& styles,
                   std::size_t line);

/// The line whose row is nearest to a point; nothing when none is near.
///
/// @param reach  plot units
[[nodiscard]] std::optional<std::size_t> LineAt(const FormatSample& sample, Point at, double reach);

} // namespace quandrel
