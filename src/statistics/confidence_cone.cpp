// SPDX-License-Identifier: MIT

#include "statistics/confidence_cone.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/style_tables.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
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

std::string ConfidenceConeText() {
    constexpr const char* kTwoDecimals = "0.00";
    const PlotRecord& record = ActiveRecord();
    const std::string name = "95% confidence cone: ";
    if (record.PlotKind == kRose) {
        return name + "none on a rose";
    }
    const std::optional<double> angle = ConfidenceConeAngle(record);
    if (!angle) {
        return name + "none, for the data are not symmetric about their principal axis, or too few";
    }
    const AxisLine axis = FabricAxis(record, kPrincipalAxis);
    const auto degrees = [](double radians) {
        return FormatNumber(RadToDeg(radians), kTwoDecimals);
    };
    return name + "axis " + degrees(axis.plunge) + " - " + degrees(axis.trend)
           + " (plunge - trend), semi-angle " + degrees(*angle);
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
