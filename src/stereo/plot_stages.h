// SPDX-License-Identifier: MIT
//
// What the plot driver calls in the folders above it. The driver alone knows the order; each stage
// is put in its place at start-up by the program. An empty stage is passed over.

#pragma once

#include "stereo/axis_rows.h"
#include "stereo/legend.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace quandrel {

struct PlotStages {
    std::function<void()> refreshClassification;   ///< classes of changed rows
    std::function<void()> computePointDensities;   ///< needs the table sorted by x
    std::function<void()> computeFabricStatistics; ///< eigenvectors, means, girdle
    std::function<void()> computeGridDensity;
    std::function<void()> drawGridSymbols;
    std::function<void()> traceContours;
    std::function<void()> drawValueGrid;           ///< gridded values of a classified plot
    std::function<void()> traceContoursClassified; ///< and their contours
    std::function<void()> drawAnnotations;
    std::function<void()> drawSmallCircles;
    std::function<void()> writeStatistics;                  ///< both statistics texts
    std::function<void(bool recalculate)> drawRose;         ///< the whole of a rose
    std::function<void()> acceptRoseSectors;                ///< of a file: they are not asked about
    std::function<double(std::int32_t row)> slipArrowAngle; ///< azimuth of a row's arrow, or NaN
    std::function<bool()> slipSenseIsTold;                  ///< by a slip line of the plot
    /// Number, principal axis and girdle of the axes of one kind, in a plot of both.
    std::function<std::vector<std::string>(AxisKind kind)> axisLegend;
    std::function<std::vector<LegendLine>()> bandLegend;  ///< density bands and contours
    std::function<std::vector<LegendLine>()> classLegend; ///< classes of a classified plot
    std::function<std::vector<LegendLine>()> roseLegend;  ///< kind, classes and bias of a rose
};

extern PlotStages gPlotStages;

} // namespace quandrel
