// SPDX-License-Identifier: MIT
//
// Any bytes as a binary plot file, or changes to a whole one. What is a plot is stored, drawn,
// written and read again.

#include "core/plot_store.h"
#include "core/replot.h"
#include "patched_plot.h"
#include "persistence/binary_plot_file.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace quandrel {
namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void UseEngine() {
    static ScriptedPrompts prompts{ScriptedPrompts::Mode::Batch};
    static QuietStatusLine status;
    static MemorySettingsStore settings;
    gPlatform = {};
    gPlatform.prompts = &prompts;
    gPlatform.status = &status;
    gPlatform.settings = &settings;
    gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
    InitialiseApplication();
}

std::string BytesOfActivePlot() {
    const Result<std::string> bytes = BinaryPlotBytes(gActivePlot);
    Require(static_cast<bool>(bytes));
    return *bytes;
}

void Store(BinaryPlot plot) {
    MakeStoreTables();
    gActivePlot = FindFreePlotSlot();
    ResetPlotRecord(gActivePlot);
    Require(StoreBinaryPlot(std::move(plot), "plot.qpx", gActivePlot));
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quandrel;
    static const bool isReady = (UseEngine(), true);
    (void)isReady;
    const std::string file =
        PlotFileOfInput(std::string_view(reinterpret_cast<const char*>(data), size));
    Result<BinaryPlot> plot = ReadBinaryPlot(file);
    if (!plot) {
        return 0;
    }
    Store(std::move(*plot));
    const std::string first = BytesOfActivePlot();
    Result<BinaryPlot> again = ReadBinaryPlot(first);
    Require(static_cast<bool>(again));
    Store(std::move(*again));
    Require(BytesOfActivePlot() == first);
    ReplotActivePlot(false);
    (void)BinaryPlotBytes(gActivePlot);
    return 0;
}
