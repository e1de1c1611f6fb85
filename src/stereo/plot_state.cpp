// SPDX-License-Identifier: MIT

#include "stereo/plot_state.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "platform/platform.h"
#include "stereo/plot_driver.h"
#include "stereo/row_positions.h"

#include <string>

namespace quandrel {

namespace {

constexpr int kLastModeButton = 6;

std::string DataKindQuestion(const PlotRecord& record, std::int16_t kind) {
    if (kind == kPolarLines && ShowsPlaneData(record)) {
        return "You are trying to plot polar lines with plane data\nContinue anyway?";
    }
    return "This will replot the data in the active plot:\n" + record.PlotTitle + "\nContinue?";
}

void SetMode(PlotRecord& record, std::int16_t mode) {
    record.PlotSymbolMode = mode;
    record.Modified = kTrue;
}

/// The first two buttons on a plot with overlays: the top one takes the form.
void SetTopOverlayForm(PlotRecord& record, int button) {
    std::int16_t& kind = record.OverlayKind[static_cast<std::size_t>(record.OverlayRows[0])];
    if (kind > kOverlayPoles) {
        return;
    }
    if (kind != button) {
        kind = static_cast<std::int16_t>(button);
        record.Modified = kTrue;
    }
    ReplotActivePlot(false);
}

} // namespace

void ChangePlotKind(std::int16_t kind) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    PlotRecord& record = ActiveRecord();
    if (record.PlotKind != kind) {
        record.PlotKind = kind;
        record.Modified = kTrue;
        RebuildRowTable(gActivePlot);
    }
    ReplotActivePlot(false);
}

bool ChangeDataKind(std::int16_t kind) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return false;
    }
    const PlotRecord& record = ActiveRecord();
    if (record.DataKind != kind && record.NumValidData > 0) {
        const Message question{gCaption, DataKindQuestion(record, kind), Icon::Question,
                               Buttons::OkCancel};
        if (gPlatform.prompts->Ask(question) != Button::Ok) {
            return false;
        }
    }
    SetDataType(kind);
    return true;
}

void SetDataType(std::int16_t kind) {
    PlotRecord& record = ActiveRecord();
    if (record.DataKind != kind) {
        record.DataKind = kind;
        record.Modified = kTrue;
        RebuildRowTable(gActivePlot);
    }
    ReplotActivePlot(false);
}

void SetPlotSymbol(int button) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    PlotRecord& record = ActiveRecord();
    if (record.NumValidData == 0 || record.PlotKind == kRose || button < 0
        || button > kLastModeButton) {
        return;
    }
    const bool hasOverlays = record.OverlayRows[0] > 0;
    if (button >= 2) {
        // There is no button of mode 2.
        if (!hasOverlays && record.PlotSymbolMode != button + 1) {
            SetMode(record, static_cast<std::int16_t>(button + 1));
            ReplotActivePlot(false);
        }
    } else if (hasOverlays) {
        SetTopOverlayForm(record, button);
    } else {
        if (record.PlotSymbolMode != button) {
            SetMode(record, static_cast<std::int16_t>(button));
        }
        ReplotActivePlot(false);
    }
}

} // namespace quandrel
