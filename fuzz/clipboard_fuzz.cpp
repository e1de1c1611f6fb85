// SPDX-License-Identifier: MIT
//
// Arbitrary text on the clipboard, pasted onto the data layer or the annotation layer of a plot
// with rows: the counts of the plot must be kept, and undo must restore it. The first byte chooses
// the layer and the contents of the plot.

#include "core/data_format.h"
#include "core/plot_life.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "drawing/plot_driver.h"
#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "edit/rows/paste_rows.h"
#include "fuzz_engine.h"
#include "support/plot_rows.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace quandrel {
namespace {

constexpr std::uint8_t kAnnotationBit = 1;
constexpr std::uint8_t kLinesBit = 2;
constexpr std::uint8_t kEmptyBit = 4;
constexpr std::uint8_t kDrawnBits = 0xf0; ///< all of them: the plot is drawn after the paste

void NewPlot(std::uint8_t choice) {
    TakeFreshPlot();
    PlotRecord& record = ActiveRecord();
    record.DataKind = (choice & kLinesBit) != 0 ? kLines : kPlanes;
    record.PrimaryFormat = (choice & kLinesBit) != 0 ? kPrimaryLine : kPrimaryPlane;
    if ((choice & kEmptyBit) == 0) {
        AddRow(30, 120);
        AddRow(45, 270);
    }
    ForgetUndo();
    gActiveLayer = (choice & kAnnotationBit) != 0 ? kAnnotationLayer : kDataLayer;
}

void CheckCounts() {
    const PlotRecord& record = ActiveRecord();
    std::int32_t rows = record.NumData;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        rows += record.OverlayRows[static_cast<std::size_t>(overlay)];
    }
    Require(rows == record.NumLoadedData);
    Require(record.NumValidData >= 0 && record.NumValidData <= record.NumData);
}

void Paste(std::uint8_t choice, const std::string& text) {
    const ScriptedAnswers answers;
    NewPlot(choice);
    const std::int32_t before = ActiveRecord().NumLoadedData;
    gPlatform.clipboard->SetText(text);
    PasteData();
    CheckCounts();
    if ((choice & kDrawnBits) == kDrawnBits) {
        DrawForCause(gActivePlot, ReplotCause::Rows);
    }
    UndoLastEdit();
    CheckCounts();
    Require(ActiveRecord().NumLoadedData == before);
    Require(AnnotationsOf(gActivePlot).empty());
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quandrel::UseEngine(quandrel::Drawings::None);
    if (size > 0) {
        quandrel::Paste(data[0], std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    }
    return 0;
}
