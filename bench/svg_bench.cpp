// SPDX-License-Identifier: MIT
//
// A plot of rows in whole degrees as an SVG document of the width of a column of a journal. The
// memory of the document is reported as bytes.

#include "core/data_format.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "core/row_block.h"
#include "core/settings.h"
#include "drawing/draw_plot.h"
#include "stereo/row_positions.h"
#include "svg/svg_surface.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <random>
#include <stdexcept>
#include <string_view>

namespace quandrel {
namespace {

constexpr double kColumn = 85 / 25.4 * 72; ///< points

Plot PlotOf(std::int64_t rows, std::int16_t symbolMode, const Styles& styles) {
    Plot plot;
    plot.record = NewPlotRecord();
    plot.record.PlotKind = kEqualArea;
    plot.record.PlotSymbolMode = symbolMode;
    plot.record.PrimaryFormat = kPrimaryPlane;
    plot.record.DataKind = kPlanes;
    std::mt19937 random(5);
    for (std::int64_t row = 0; row < rows; ++row) {
        RowValues values;
        values.isData = true;
        values.dip = static_cast<std::int32_t>(random() % 91);
        values.azimuth = static_cast<std::int32_t>(random() % 360);
        values.code = CodeOfStyleRow(styles, kRowSymbol);
        values.place = PlottedOrientation(plot.record.PlotKind, IsPlottedAsPole(plot.record, 0), 0,
                                          {values.dip, values.azimuth});
        if (!AppendRow(plot, 0, values)) {
            throw std::runtime_error("no memory for the rows");
        }
    }
    return plot;
}

void Write(benchmark::State& state, std::int16_t symbolMode,
           std::string_view style = kClassicStyle) {
    const Styles styles = StartStyles();
    const Plot plot = PlotOf(state.range(0), symbolMode, styles);
    const auto figure = std::make_shared<const FigureStyle>(*StandardStyle(style));
    std::size_t bytes = 0;
    for (auto _ : state) {
        SvgWriter writer(2 * kColumn, kColumn, 0.75);
        SvgSurface net(writer, {0, 0, kColumn, kColumn});
        SvgSurface legend(writer, {kColumn, 0, kColumn, kColumn});
        Drawing drawing{net, legend, styles, DrawnFor::Paper};
        drawing.figure = figure;
        DrawPlot(plot, drawing);
        bytes = writer.Document().size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

void Symbols(benchmark::State& state) {
    Write(state, kPointSymbols);
}

/// Symbols that can be seen through, from 20,000 rows on.
void JournalSymbols(benchmark::State& state) {
    Write(state, kPointSymbols, kJournalStyle);
}

void GreatCircles(benchmark::State& state) {
    Write(state, kGreatCircles);
}

BENCHMARK(Symbols)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(JournalSymbols)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(GreatCircles)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
