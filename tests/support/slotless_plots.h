// SPDX-License-Identifier: MIT
//
// Plots that no slot of the store holds, and what is drawn of them.

#pragma once

#include "core/data_format.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "core/row_block.h"
#include "drawing/draw_plot.h"
#include "drawing/work_out.h"
#include "platform/scripted/recording_surface.h"
#include "stereo/row_positions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quandrel {

/// Appends a main row, or one of the last overlay, with an appended number.
inline void AppendTo(Plot& plot, int overlay, std::int32_t dip, std::int32_t azimuth,
                     SymbolCode code, float number) {
    RowValues values;
    values.isData = true;
    values.dip = dip;
    values.azimuth = azimuth;
    values.code = code;
    values.number = number;
    values.place = PlottedOrientation(plot.record.PlotKind, IsPlottedAsPole(plot.record, overlay),
                                      0, {dip, azimuth});
    EXPECT_TRUE(AppendRow(plot, overlay, values));
}

/// A plot of some planes about a girdle, with an overlay of lines, an annotation, a girdle, the
/// mean arrow and a small circle.
///
/// @param seed  turns all of it, so that plots of different seeds differ
inline Plot SlotlessPlot(std::int16_t plotKind, std::int16_t symbolMode, std::int32_t seed) {
    Plot plot;
    plot.record = NewPlotRecord();
    PlotRecord& record = plot.record;
    record.PlotTitle = "Plot " + std::to_string(seed);
    record.PlotKind = plotKind;
    record.PlotSymbolMode = symbolMode;
    record.PrimaryFormat = kPrimaryPlane;
    record.DataKind = kPlanes;
    record.HasAppendedNumeric = kTrue;
    record.AppNumName = "Thickness";
    const Styles styles = StartStyles();
    for (std::int32_t row = 0; row < 60; ++row) {
        AppendTo(plot, 0, 20 + (row * 7 + seed) % 60, (row * row + 11 * seed) % 360,
                 CodeOfStyleRow(styles, kRowSymbol), static_cast<float>(row % 9));
    }
    const int overlay = OpenOverlay(record, kOverlayLines);
    for (std::int32_t row = 0; row < 5; ++row) {
        AppendTo(plot, overlay, 10 * row, (30 * row + seed) % 360,
                 CodeOfStyleRow(styles, kFirstOverlaySymbol), 0);
    }
    Annotation annotation;
    annotation.X = static_cast<std::int16_t>(100 + seed);
    annotation.Tag = "1";
    record.PlotAnnotations = std::make_unique<Annotations>(Annotations{annotation});
    record.ShowAnnotations = kTrue;
    record.AxisItems[3] = {true,           std::string("30/120"), 0.5,
                           0.01 * seed,    std::int16_t{11},      std::int16_t{0},
                           std::int16_t{1}};
    record.AxisItems[kMeanPlaneItem][kItemShown] = true;
    return plot;
}

/// All operations of a drawing, a line each.
inline std::string TextOf(const RecordingSurface& surface) {
    std::string text;
    for (const DrawOperation& operation : surface.Operations()) {
        text += OperationText(operation) + '\n';
    }
    return text;
}

/// Draws a plot onto its own surfaces and returns what was drawn on both.
inline std::string DrawnText(const Plot& plot, const Styles& styles) {
    RecordingSurface net(500, 500);
    RecordingSurface legend(160, 400);
    DrawPlot(plot, {net, legend, styles, DrawnFor::Paper});
    return TextOf(net) + "legend\n" + TextOf(legend);
}

} // namespace quandrel
