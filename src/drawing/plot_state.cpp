// SPDX-License-Identifier: MIT

#include "drawing/plot_state.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "derive/secondary_data.h"
#include "drawing/symbol_choice.h"
#include "edit/marks/plot_views.h"
#include "platform/platform.h"
#include "stereo/axis_rows.h"
#include "stereo/data_kind.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace quandrel {

namespace {

static_assert(kOverlaySecondary == kLastModeButton + 1, "button numbers continue");

std::string DataKindQuestion(const PlotRecord& record, std::int16_t kind) {
    if (kind == kPolarLines && ShowsPlaneData(record)) {
        return "You are trying to plot polar lines with plane data\nContinue anyway?";
    }
    return "This will replot the data in the active plot:\n" + record.PlotTitle + "\nContinue?";
}

/// An overlay of planes in a plot without a list of layers is drawn in the form of its kind.
bool HasForm(const PlotRecord& record, const FigureLayer& data, int button) {
    return data.LayerOf == kLayerOfOverlay && record.Layers.empty() && button <= kOverlayPoles
           && record.OverlayKind[static_cast<std::size_t>(data.LayerIndex)] <= kOverlayPoles;
}

void ShowDataBy(int slot, const FigureLayer& data, int button) {
    PlotRecord& record = RecordOf(slot);
    RecordFigure figure = record;
    figure.Layers = LayersByButton(PlotOf(slot), data, button);
    const bool isOfMain = data.LayerOf == kLayerOfMainRows;
    if (isOfMain) {
        record.PlotSymbolMode = ModeOfButton(button);
    }
    if (HasForm(record, data, button)) {
        std::int16_t& form = record.OverlayKind[static_cast<std::size_t>(data.LayerIndex)];
        form = ModeOfButton(button);
        ReplotPlot(slot, ReplotCause::Settings);
    } else if (isOfMain && record.Layers.empty()) {
        ReplotPlot(slot, ReplotCause::Settings);
    } else {
        ChangeFigure(slot, figure);
    }
}

/// Whether a button can act on a plot. Tells why where axes would be mixed.
bool CanPress(const Plot& plot, int button) {
    const PlotRecord& record = plot.record;
    if (gBusy || record.NumValidData == 0 || record.PlotKind == kRose || button < 0
        || button > kLastModeButton) {
        return false;
    }
    const FigureLayer data = ChosenDataOf(plot);
    if (data.LayerOf == kLayerOfMainRows && MixesAxes(record, ModeOfButton(button))) {
        Tell(kMixedAxesRefusal);
        return false;
    }
    return CanShowDataBy(plot, data, button);
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

void SetPlotSymbol(int slot, int button) {
    if (!IsOpenSlot(slot)) {
        return;
    }
    const Plot& plot = PlotOf(slot);
    const FigureLayer data = ChosenDataOf(plot);
    if (CanPress(plot, button) && (button < 2 || !AreDataShownBy(plot, data, button))) {
        ShowDataBy(slot, data, button);
    }
}

void ToggleSymbolLayer(int slot, int button) {
    if (!IsOpenSlot(slot)) {
        return;
    }
    const Plot& plot = PlotOf(slot);
    if (CanPress(plot, button)) {
        RecordFigure figure = plot.record;
        figure.Layers = LayersWithButton(plot, ChosenDataOf(plot), button);
        ChangeFigure(slot, figure);
    }
}

void SetPlotSymbol(int button) {
    SetPlotSymbol(gActivePlot, button);
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
