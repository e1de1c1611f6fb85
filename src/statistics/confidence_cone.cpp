// SPDX-License-Identifier: MIT

#include "statistics/confidence_cone.h"

#include "core/plot_store.h"
#include "core/style_tables.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "stereo/cones.h"
#include "stereo/draw_target.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr std::size_t kPrincipalAxis = 3;

} // namespace

std::optional<double> ConfidenceConeAngle(const PlotRecord& record, Formulas formulas) {
    const double sine = ConeFactor(formulas) * record.FabricValueC;
    if (record.NumValidData < 2 || !(sine > 0) || sine >= 1) {
        return std::nullopt;
    }
    return std::asin(sine);
}

void DrawConfidenceCone() {
    const PlotRecord& record = ActiveRecord();
    const std::optional<double> angle = ConfidenceConeAngle(record, gFormulas);
    if (!record.ShowConfidenceCone || !angle) {
        return;
    }
    const AxisLine axis = FabricAxis(record, kPrincipalAxis);
    const AxisStyle& style = gAxisStyleTable[kSmallCircleStyle];
    Surface& surface = PlotSurface();
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.drawStyle = style[1];
    state.drawWidth = style[2];
    surface.SetState(state);
    DrawCone(surface, record.PlotKind, axis.plunge, axis.trend, *angle, TableColour(style[0]));
}

} // namespace quandrel
