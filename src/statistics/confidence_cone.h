// SPDX-License-Identifier: MIT
//
// The 95% confidence cone of the principal axis, on the net.

#pragma once

#include "core/formulas.h"
#include "core/plot_record.h"
#include "stereo/drawing.h"

#include <optional>
#include <string>

namespace quandrel {

/// Semi-angle of the cone by the given formulas, radians, from the spherical standard error. Empty
/// where the distribution is not symmetric about its axis, or the error is too large for a cone.
[[nodiscard]] std::optional<double> ConfidenceConeAngle(const PlotRecord& record,
                                                        Formulas formulas = Formulas::Own);

/// The cone of gActivePlot on one line: its axis and semi-angle in degrees, or why there is none.
[[nodiscard]] std::string ConfidenceConeText();

/// Draws the cone about the principal axis, by the formulas of the drawing, if shown and possible.
/// Its line is LookOfRegion.
void DrawConfidenceCone(const PlotRecord& record, const Drawing& drawing);

} // namespace quandrel
