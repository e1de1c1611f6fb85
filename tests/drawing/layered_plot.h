// SPDX-License-Identifier: MIT
//
// A plot with data of all kinds for layers, and what is drawn of it.

#pragma once

#include "drawing/figure_legend.h"
#include "drawing/layer_list.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <map>
#include <memory>

namespace quandrel {

inline constexpr int kGridSize = 20;
inline constexpr std::int32_t kRows = 60;

/// What is drawn in each group, in the order of their ends.
class GroupSurface : public RecordingSurface {
public:
    GroupSurface()
        : RecordingSurface(500, 500) {}

    void BeginGroup(std::string_view id, std::string_view title) override {
        open_.push_back({std::string(id), std::string(title), Operations().size()});
    }

    void EndGroup() override {
        const Open group = open_.back();
        open_.pop_back();
        titles[group.id] = group.title;
        std::vector<DrawOperation>& drawn = operations[group.id];
        drawn.insert(drawn.end(), Operations().begin() + static_cast<std::ptrdiff_t>(group.first),
                     Operations().end());
    }

    std::map<std::string, std::string> titles;
    std::map<std::string, std::vector<DrawOperation>> operations;

private:
    struct Open {
        std::string id;
        std::string title;
        std::size_t first = 0;
    };

    std::vector<Open> open_;
};

inline FigureLayer LayerOf(const std::string& data, std::int16_t show) {
    FigureLayer layer = DataOfWord(data).value();
    layer.LayerShow = show;
    return layer;
}

class LayeredPlotTest : public EngineTest {
protected:
    /// Faults with slip lines, an overlay of lines, and two classes by appended numbers.
    static Plot Faults() {
        Plot plot;
        plot.record = NewPlotRecord();
        PlotRecord& record = plot.record;
        record.PlotTitle = "Faults";
        record.PlotKind = kEqualArea;
        record.PlotSymbolMode = kPointSymbols;
        record.PrimaryFormat = kPrimaryPlane;
        record.SecondaryFormat = kSecondaryLine;
        record.DataKind = kPlanes;
        record.HasAppendedNumeric = kTrue;
        record.AppNumName = "Throw";
        const Styles styles = StartStyles();
        for (std::int32_t row = 0; row < kRows; ++row) {
            RowValues values;
            values.isData = true;
            values.dip = 30 + row * 7 % 55;
            values.azimuth = row * 37 % 360;
            values.hasSecondary = true;
            values.dip2 = -values.dip; // straight up the plane
            values.azimuth2 = values.azimuth;
            values.code = CodeOfStyleRow(styles, kRowSymbol);
            values.number = static_cast<float>(row % 9);
            values.place =
                PlottedOrientation(record.PlotKind, true, 0, {values.dip, values.azimuth});
            EXPECT_TRUE(AppendRow(plot, 0, values));
        }
        const int overlay = OpenOverlay(record, kOverlayLines);
        for (std::int32_t row = 0; row < 12; ++row) {
            AppendTo(plot, overlay, 10 + 5 * row, 30 * row, CodeOfStyleRow(styles, 2), 0);
        }
        record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
        record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
        record.ClassTable[kLowestRow + 1][kNumberClasses] = 4.0;
        record.ClassTable[kTopRow][kNumberClasses] = 9.0;
        record.ClassMode = 1;
        record.DensityMethod = kDensityByKernel;
        record.DensityUnit = kMultiplesUnit;
        return plot;
    }

    static void WorkOut(Plot& plot, std::vector<std::int32_t> selection = {3, 5, 8, 40}) {
        WorkingOut how{ReplotCause::Rows, gSettings.styles, Formulas::Own, kGridSize};
        how.selection = std::move(selection);
        WorkOutPlot(plot, how);
    }

    Drawing In(Surface& net, std::string_view style = kJournalStyle) {
        Drawing drawing{net, page, gSettings.styles, DrawnFor::Paper};
        drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(style));
        return drawing;
    }

    GroupSurface Drawn(const Plot& plot, std::string_view style = kJournalStyle) {
        GroupSurface net;
        DrawNetOfFigure(plot, In(net, style));
        return net;
    }

    FigureLegend Legend(const Plot& plot) {
        RecordingSurface net(500, 500);
        return LegendOfFigure(plot, In(net));
    }

    /// A plot with one layer, worked out.
    static Plot With(const FigureLayer& layer) {
        Plot plot = Faults();
        plot.record.Layers = {layer};
        WorkOut(plot);
        return plot;
    }

    RecordingSurface page{500, 700};
};

} // namespace quandrel
