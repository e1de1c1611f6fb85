// SPDX-License-Identifier: MIT

#include "statistics/confidence_cone.h"

#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "statistics/draw_regions.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "stereo/cones.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr std::size_t kPrincipalAxis = 3;
constexpr const char* kNoCone =
    "none, for the data are not symmetric about their principal axis, or too few";

std::string ShortDegrees(double radians) {
    return FormatNumber(RadToDeg(radians), "0.00");
}

std::string AngleText(const std::optional<double>& angle) {
    return angle ? ShortDegrees(*angle) : kNoCone;
}

} // namespace

std::optional<double> ConfidenceConeAngle(const PlotRecord& record, Formulas formulas) {
    const double sine = ConeFactor(formulas) * record.FabricValueC;
    if (record.NumValidData < 2 || !(sine > 0) || sine >= 1) {
        return std::nullopt;
    }
    return std::asin(sine);
}

std::string ConfidenceConeText() {
    const PlotRecord& record = ActiveRecord();
    const std::string name = "95% confidence cone: ";
    if (record.PlotKind == kRose) {
        return name + "none on a rose";
    }
    const std::string angle = AngleText(ConfidenceConeAngle(record, FormulasInForce(record)));
    if (angle == kNoCone) {
        return name + angle;
    }
    const AxisLine axis = FabricAxis(record, kPrincipalAxis);
    const std::string text = name + "axis " + ShortDegrees(axis.plunge) + " - "
                             + ShortDegrees(axis.trend) + " (plunge - trend), semi-angle " + angle;
    PlotRecord textbook;
    SetCountOfValid(textbook, record.NumValidData);
    textbook.FabricValueC = StandardErrorOfActivePlot(Formulas::Textbook);
    const std::string other = AngleText(ConfidenceConeAngle(textbook, Formulas::Textbook));
    return other == angle ? text : text + "\n" + TextbookNote(other);
}

void DrawConfidenceCone(const PlotRecord& record, const Drawing& drawing) {
    const std::optional<double> angle = ConfidenceConeAngle(record, drawing.formulas);
    if (!record.ShowConfidenceCone || !angle) {
        return;
    }
    const AxisLine axis = FabricAxis(record, kPrincipalAxis);
    const LineLook look = LookOfRegion(drawing);
    const SavedState saved(drawing.plot);
    drawing.plot.SetState(look.state);
    DrawCone(drawing.plot, record.PlotKind, axis.plunge, axis.trend, *angle, look.colour);
}

} // namespace quandrel
