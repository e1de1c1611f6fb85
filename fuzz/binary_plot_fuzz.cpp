// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a binary plot file, or changes to a whole one. A valid plot is stored, drawn,
// written and read again.

#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "fuzz_engine.h"
#include "patched_plot.h"
#include "persistence/binary_plot_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quandrel {
namespace {

std::string BytesOfActivePlot() {
    Result<std::string> bytes = BinaryPlotBytes(gActivePlot);
    Require(static_cast<bool>(bytes));
    return std::move(*bytes);
}

void Store(BinaryPlot plot) {
    TakeFreshPlot();
    Require(StoreBinaryPlot(std::move(plot), "plot.qpx", gActivePlot));
}

/// Simulations are drawn by tests: here they would take minutes and depend on no byte but the seed.
void DrawWithoutSimulations() {
    PlotRecord& record = ActiveRecord();
    record.RegionsAbout = 0;
    record.ShowEnvelope = 0;
    ReplotActivePlot(false);
}

void CheckPlot(BinaryPlot plot) {
    const ScriptedAnswers answers;
    gSettings.gridSize = kCoarsestGrid; // a finer grid takes longer but finds nothing more
    Store(std::move(plot));
    const std::string first = BytesOfActivePlot();
    Result<BinaryPlot> again = ReadBinaryPlot(first);
    Require(static_cast<bool>(again));
    Store(std::move(*again));
    Require(BytesOfActivePlot() == first);
    DrawWithoutSimulations();
    (void)BinaryPlotBytes(gActivePlot);
    // libFuzzer reruns inputs that leave memory allocated, such as a recorded drawing.
    PlotOf(gActivePlot).form.reset();
    ReleasePlotSlot(gActivePlot);
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quandrel;
    UseEngine(Drawings::All);
    const std::string file =
        PlotFileOfInput(std::string_view(reinterpret_cast<const char*>(data), size));
    Result<BinaryPlot> plot = ReadBinaryPlot(file);
    if (plot) {
        CheckPlot(std::move(*plot));
    }
    return 0;
}
