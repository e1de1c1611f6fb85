// SPDX-License-Identifier: MIT

#include "drawing/plot_state.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "derive/secondary_data.h"
#include "platform/platform.h"
#include "stereo/axis_rows.h"
#include "stereo/data_kind.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <string>

namespace quandrel {

namespace {

static_assert(kOverlaySecondary == kLastModeButton + 1, "button numbers continue");

std::string DataKindQuestion(const PlotRecord& record, std::int16_t kind) {
    if (kind == kPolarLines && ShowsPlaneData(record)) {
        return "You are trying to plot polar lines with plane data\nContinue anyway?";
    }
    return "This will replot the data in the active plot:\n" + record.PlotTitle + "\nContinue?";
}

/// The first two buttons on a plot with overlays: they change the drawing of the top overlay.
void SetTopOverlayForm(PlotRecord& record, int button) {
    std::int16_t& kind =
        record.OverlayKind[static_cast<std::size_t>(record.OverlayRows[kOverlayCount])];
    if (kind > kOverlayPoles) {
        return;
    }
    kind = static_cast<std::int16_t>(button);
    ReplotActivePlot(false);
}

std::int16_t& ShownFlag(PlotRecord& record, int button) {
    switch (button) {
    case kShowRoseScale:
        return record.RoseDisplay6;
    case kShowRoseMean:
        return record.RoseDisplay7;
    case kShowRoseArc:
        return record.RoseDisplay8;
    default:
        return record.LayerVisible.at(static_cast<std::size_t>(button));
    }
}

} // namespace

void ChangePlotKind(std::int16_t kind) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    PlotRecord& record = ActiveRecord();
    if (MixesAxesAsRose(record, kind)) {
        Tell(kMixedRoseRefusal);
        return;
    }
    if (record.PlotKind != kind) {
        record.PlotKind = kind;
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

void SetPlotSymbol(int button) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    PlotRecord& record = ActiveRecord();
    if (record.NumValidData == 0 || record.PlotKind == kRose || button < 0
        || button > kLastModeButton) {
        return;
    }
    const bool hasOverlays = record.OverlayRows[kOverlayCount] > 0;
    if (MixesAxes(record, button + 1)) {
        Tell(kMixedAxesRefusal);
        return;
    }
    if (button >= 2) {
        // Mode 2 does not have a button.
        if (!hasOverlays && record.PlotSymbolMode != button + 1) {
            record.PlotSymbolMode = static_cast<std::int16_t>(button + 1);
            ReplotActivePlot(false);
        }
    } else if (hasOverlays) {
        SetTopOverlayForm(record, button);
    } else {
        record.PlotSymbolMode = static_cast<std::int16_t>(button);
        ReplotActivePlot(false);
    }
}

void ShowPlotPart(int button, bool on) {
    if (gBusy || !IsOpenSlot(gActivePlot) || button < 0 || button >= kDisplayButtons) {
        return;
    }
    PlotRecord& record = ActiveRecord();
    ShownFlag(record, button) = on ? kTrue : std::int16_t{0};
    if (button == kShowStatistics) {
        gSettings.newPlots.statisticsShown = on;
    }
    const bool isOfRose = button >= kShowRoseScale;
    if (isOfRose ? record.PlotKind == kRose : button == kShowLegend) {
        ReplotActivePlot(false);
    }
}

bool IsPlotPartShown(int button) {
    return ShownFlag(ActiveRecord(), button) != 0;
}

void DescribePlot(int slot, const std::string& description) {
    PlotRecord& record = RecordOf(slot);
    if (record.DescriptionText != description) {
        record.DescriptionText = description;
        record.Modified = kTrue;
    }
}

void NameFabric(int slot, const std::string& fabric) {
    PlotRecord& record = RecordOf(slot);
    if (record.FabricText != fabric) {
        record.FabricText = fabric;
        record.Modified = kTrue;
    }
}

void ChooseGridSize(int cells) {
    gSettings.gridSize = std::clamp(cells / kGridStep * kGridStep, kCoarsestGrid, kFinestGrid);
}

void FollowGridOfPlot() {
    if (IsOpenSlot(gActivePlot) && ActiveRecord().GridSize > 0) {
        ChooseGridSize(ActiveRecord().GridSize);
    }
}

void UseGridSize() {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind != kRose && record.PlotSymbolMode >= kGridDensitySymbols
        && record.GridSize != gSettings.gridSize) {
        ReplotActivePlot(false);
    }
}

void UseAdvancedStatistics(bool advanced) {
    gSettings.newPlots.statsBoxKind = advanced ? kTrue : std::int16_t{0};
    ActiveRecord().StatsBoxKind = gSettings.newPlots.statsBoxKind;
}

} // namespace quandrel
