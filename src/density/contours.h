// SPDX-License-Identifier: MIT
//
// Density contours of the active plot: from the counts of its grid to lines on the net.

#pragma once

#include "core/style_tables.h"
#include "density/contour_trace.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quandrel {

/// Where contours take their styles from.
enum class ContourStyleSource {
    Levels,  ///< gContourStyleTable
    Classes, ///< the colours of the classes in gSymbolTable, as thin solid lines
};

/// The style of level number k, from 0.
[[nodiscard]] AxisStyle ContourStyleOf(int level, ContourStyleSource source);

/// One level with its contour within the primitive.
struct LevelContour {
    std::int16_t level = 0; ///< per cent
    std::vector<ContourSegment> segments;
};

/// The contours of the active plot's DensityGrid at its ContourLevels. The same data give the same
/// segments each time.
[[nodiscard]] std::vector<LevelContour> ContoursOfActivePlot();

/// Finds the levels of the active plot (ContourLevels, NumContours) and draws its contours, each in
/// the style of its level. With gShowIsolatedPts, rows that have no other row within the counting
/// cone are drawn too. A plot without rows or without a grid draws nothing.
void TraceContours();

/// TraceContours in the colours of the classes.
void TraceContoursClassified();

} // namespace quandrel
