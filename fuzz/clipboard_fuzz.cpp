// SPDX-License-Identifier: MIT
//
// Any text on the clipboard, pasted onto the data layer or onto that of the annotations of a plot
// with rows: the plot keeps its counts, and undo puts it back as it was. The first byte chooses the
// layer and what the plot holds.

#include "core/data_format.h"
#include "core/plot_life.h"
#include "core/plot_store.h"
#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "edit/rows/paste_rows.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace quandrel {
namespace {

constexpr std::uint8_t kAnnotationBit = 1;
constexpr std::uint8_t kLinesBit = 2;
constexpr std::uint8_t kEmptyBit = 4;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

struct Engine {
    MemoryClipboard clipboard;
    QuietStatusLine status;
    MemorySettingsStore settings;

    Engine() {
        gPlatform = {};
        gPlatform.status = &status;
        gPlatform.settings = &settings;
        gPlatform.clipboard = &clipboard;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        InitialiseApplication();
    }
};

void NewPlot(std::uint8_t choice) {
    if (IsOpenSlot(gActivePlot)) {
        ClosePlot(gActivePlot);
    }
    gActivePlot = FindFreePlotSlot();
    ResetPlotRecord(gActivePlot);
    ActiveRecord().DataKind = (choice & kLinesBit) != 0 ? kLines : kPlanes;
    ActiveRecord().PrimaryFormat = (choice & kLinesBit) != 0 ? kPrimaryLine : kPrimaryPlane;
    gActiveLayer = kDataLayer;
    if ((choice & kEmptyBit) == 0) {
        gPlatform.clipboard->SetText(";Quandrel\r\n/T1 /C1 /I2\r\n30\t120\r\n45\t270\r\n");
        PasteData();
    }
    ForgetUndo();
    gActiveLayer = (choice & kAnnotationBit) != 0 ? kAnnotationLayer : kDataLayer;
}

void CheckCounts() {
    const PlotRecord& record = ActiveRecord();
    std::int32_t rows = record.NumData;
    for (int overlay = 1; overlay <= record.OverlayRows[0]; ++overlay) {
        rows += record.OverlayRows[static_cast<std::size_t>(overlay)];
    }
    Require(rows == record.NumLoadedData);
    Require(record.NumValidData >= 0 && record.NumValidData <= record.NumData);
}

void Paste(std::uint8_t choice, const std::string& text) {
    static Engine engine;
    // What was asked and shown is kept for scripts; here it would only grow.
    ScriptedPrompts prompts(ScriptedPrompts::Mode::Batch);
    gPlatform.prompts = &prompts;
    NewPlot(choice);
    const std::int32_t before = ActiveRecord().NumLoadedData;
    gPlatform.clipboard->SetText(text);
    PasteData();
    CheckCounts();
    UndoLastEdit();
    CheckCounts();
    Require(ActiveRecord().NumLoadedData == before);
    Require(AnnotationsOf(gActivePlot).empty());
    gPlatform.prompts = nullptr;
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 0) {
        quandrel::Paste(data[0], std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    }
    return 0;
}
