// SPDX-License-Identifier: MIT
//
// The fabric statistics of a plot, computed from its main rows into its record.
//
// This folder holds fabric statistics, their texts, and a reference in full precision.
// Input: the lines of a plot's rows, and the choice of formulas.
// Output: results in the plot's record, texts, and the confidence cone on a surface.
//
// Angles are radians. The results in PlotRecord:
//   FabricResults           eigenvalues of the orientation tensor, and their axes along north, east
//                           and down, of unit length, pointing down; see PrincipalAxis
//   EigenResults            see EigenPlace
//   FabricValueA, B         plunge and trend of the mean direction: of polar lines the directed one
//                           (of one that points up the plunge is negative, the trend that of its
//                           lower end), else that of the axes
//   FabricValueC            spherical standard error, kNotSymmetric or kFailedResult
//   FabricValueD, E         plunge and trend of the resultant of the axes
//   FabricValueF            variance, 1 - R/n, of the mean in A and B
//   RoseResultant           at kOfAngles the mean resultant length R/n of the same ; a rose
//                           has its own there
//   AxisItems               kMeanItem: the mean direction; kMeanPlaneItem and kGirdleItem: the
//                           planes normal to the greatest and to the least axis
// A mean without a direction has kNoDirection as plunge and trend. The planes of axes that the
// eigenvalues do not determine have the text kUndetermined and no pole.

#pragma once

#include "core/formulas.h"
#include "core/plot_record.h"
#include "stereo/distinct_lines.h"

#include <cstddef>

namespace quandrel {

/// Computes the fabric statistics of a plot. Without a valid row the old ones stay.
///
/// In a plot of P and T axes they are those of P.
void ComputeFabricStatistics(Plot& plot, const Styles& styles, Formulas formulas);

/// The same of gActivePlot, by the formulas in force for it.
void ComputeFabricStatistics();

/// The same of some lines for any record, by its DataKind. Without a line the old ones stay.
void StoreFabricStatistics(PlotRecord& record, const RowLines& lines, Formulas formulas);

/// The part of ComputeFabricStatistics that follows from eigenvalues and axes in the record.
void ComputeFabricDerived();

/// A principal axis of a record.
struct AxisLine {
    double plunge = 0;
    double trend = 0;
};

[[nodiscard]] AxisLine FabricAxis(const PlotRecord& record, std::size_t axis);

/// Whether the eigenvalues of a record determine an axis, 1 to 3.
[[nodiscard]] bool IsAxisDetermined(const PlotRecord& record, std::size_t axis);

/// The spherical standard error of gActivePlot by the given formulas: the value of FabricValueC
/// when these are chosen. kFailedResult without rows.
[[nodiscard]] double StandardErrorOfActivePlot(Formulas formulas);

/// The same of lines whose statistics a record holds.
[[nodiscard]] double StandardErrorOf(const PlotRecord& record, const RowLines& lines,
                                     Formulas formulas);

/// Whether the record has a mean direction.
[[nodiscard]] bool HasMeanDirection(const PlotRecord& record);

} // namespace quandrel
