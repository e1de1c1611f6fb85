// SPDX-License-Identifier: MIT

#include "derive/secondary_data.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "derive/secondary_rows.h"
#include "input/plot_files.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "stereo/data_kind.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"

namespace quandrel {

namespace {

/// Rows with the plain symbols follow the sign of the set that is shown; others keep their symbols.
void FollowShownSigns(int slot) {
    const SymbolCode down = CodeOfStyleRow(kRowSymbol);
    const SymbolCode up = CodeOfStyleRow(kUpRowSymbol);
    for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
        if (!IsKnown(OrientationShown(slot, row))) {
            continue;
        }
        const SymbolCode plain = IsStyledUpward(PlotOf(slot), row) ? up : down;
        for (SymbolCode* code : {&gDataSymbol.At(slot, row), &gDataSymbolBase.At(slot, row)}) {
            *code = *code == down || *code == up ? plain : *code;
        }
    }
}

/// True when the only overlay is that of the arrows on planes.
bool HasOverlayOfArrows(const PlotRecord& record) {
    return record.NumSymbolsInPlot == kArrowsOnPlanes + 1 && record.SelectedOverlay > 0;
}

/// Kept: the arrows on planes take the place of an overlay without a question.
[[nodiscard]] bool AcceptLossOfOverlay(const PlotRecord& record, int option) {
    return record.OverlayRows[kOverlayCount] == 0 || option == kArrowsOnPlanes
           || HasOverlayOfArrows(record)
           || AskToGoOn("This will remove the overlayed data in this plot.\n"
                        "Do you want to continue?",
                        AtStake::Work);
}

[[nodiscard]] bool AcceptFormats(const PlotRecord& record) {
    if (record.PrimaryFormat != kPrimaryPlane
        && !AskToGoOn("You have indicated that your Primary data are not Planes as required by "
                      "this option\n"
                      "Do you want to continue and treat these data as Planes anyway?")) {
        return false;
    }
    return record.SecondaryFormat != kSecondaryPlane
           || AskToGoOn("You have indicated that your Secondary data are Planes not Lines as "
                        "required by this option\n"
                        "Do you want to continue and treat these Secondary data as Lines anyway?");
}

void EndArrows(PlotRecord& record) {
    record.DensityInvalid = 0;
    record.NumSymbolsInPlot = 0;
}

/// Plots the set that an option needs, as the kind that it needs.
void ShowSetOfOption(const PlotRecord& record, int option) {
    if ((record.ShowSecondary != 0) != (option == kArrowsAlone)) {
        ToggleSecondaryData();
    }
    const std::int16_t kind = option == kArrowsOnPlanes ? kPlanes : kPolarLines;
    if (option != kArrowsAlone && record.DataKind != kind) {
        SetDataType(kind);
    }
}

void TellOfError() {
    Tell("An error has been encountered. Not all the data will be plotted");
}

} // namespace

void ToggleSecondaryData() {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    PlotRecord& record = ActiveRecord();
    if (record.SecondaryFormat == kNoSecondary || record.OverlayRows[kOverlayCount] > 0) {
        return;
    }
    record.ShowSecondary = record.ShowSecondary != 0 ? std::int16_t{0} : kTrue;
    RebuildRowTable(gActivePlot);
    FollowShownSigns(gActivePlot);
    SetDataType(DataKindOfSet(ShowsPlaneData(record), record.DataKind));
}

void MakeSecondaryOverlay() {
    PlotRecord& record = ActiveRecord();
    if (record.SecondaryFormat == kNoSecondary) {
        return;
    }
    if (record.ShowSecondary != 0) {
        Tell("The secondary data is already plotted\n"
             "To use this option you need to plot and process the primary data first");
        return;
    }
    if (record.OverlayRows[kOverlayCount] >= kMaxOverlays) {
        Tell("You can't overlay more than 20 datasets in any one plot.", Icon::Stop);
        return;
    }
    const BusyPointer busy(*gPlatform.status);
    EndArrows(record); // an overlay and arrows exclude each other
    const bool isWhole = AppendSecondaryOverlay(
        record.SecondaryFormat == kSecondaryPlane ? kOverlayPoles : kOverlayPolarLines);
    if (!isWhole) {
        TellOfError();
    }
    ReplotActivePlot(false);
}

void SetOverlaySecondary(bool on) {
    PlotRecord& record = ActiveRecord();
    const std::int16_t overlay = record.SelectedOverlay;
    if (on == (overlay != 0)) {
        return;
    }
    if (on) {
        MakeSecondaryOverlay();
        return;
    }
    EndArrows(record); // arrows on planes have lost their lines
    while (record.OverlayRows[kOverlayCount] >= overlay) {
        RemoveLastOverlay(gActivePlot);
    }
    record.SelectedOverlay = 0;
}

void RefreshSecondaryOverlay() {
    const PlotRecord& record = ActiveRecord();
    const int overlay = record.SelectedOverlay;
    if (overlay <= 0 || overlay > record.OverlayRows[kOverlayCount]) {
        return;
    }
    if (record.OverlayRows[static_cast<std::size_t>(overlay)] == record.NumData) {
        RewriteSecondaryOverlay(overlay);
    } else if (overlay == record.OverlayRows[kOverlayCount]) {
        const std::int16_t kind = record.OverlayKind[static_cast<std::size_t>(overlay)];
        RemoveLastOverlay(gActivePlot);
        if (!AppendSecondaryOverlay(kind)) {
            TellOfError();
        }
    }
}

void SetSlipArrows(int option) {
    PlotRecord& record = ActiveRecord();
    if (record.SecondaryFormat == kNoSecondary || option < kArrowsAlone
        || option > kArrowsOnPoles) {
        return;
    }
    if (record.OverlayRows[kOverlayCount] >= 2) {
        Tell("You already have more than one overlayed dataset in this plot\n"
             "To use this option you need to plot and process the primary data first");
        return;
    }
    if (!AcceptLossOfOverlay(record, option) || !AcceptFormats(record)) {
        return;
    }
    if (record.OverlayRows[kOverlayCount] > 0) {
        RemoveLastOverlay(gActivePlot);
    }
    EndArrows(record);
    if (record.PrimaryFormat != kPrimaryPlane) {
        record.PrimaryFormat = kPrimaryPlane;
        RebuildRowTable(gActivePlot);
    }
    ShowSetOfOption(record, option);
    record.PlotSymbolMode = option == kArrowsOnPlanes ? kGreatCircles : kPointSymbols;
    record.SelectedOverlay = 0;
    if (option == kArrowsOnPlanes && !AppendSecondaryOverlay(kOverlayPolarLines)) {
        TellOfError();
    }
    record.DensityInvalid = kTrue;
    record.NumSymbolsInPlot = static_cast<std::int16_t>(option + 1);
    ReplotActivePlot(false);
}

void ReleaseSlipArrows(int option) {
    PlotRecord& record = ActiveRecord();
    EndArrows(record);
    if (option != kArrowsOnPlanes) {
        record.PlotSymbolMode = kPointSymbols;
    }
    record.SelectedOverlay = 0;
    ReplotActivePlot(false);
}

bool IsSecondaryButtonDown(int button) {
    if (!IsOpenSlot(gActivePlot)) {
        return false;
    }
    const PlotRecord& record = ActiveRecord();
    return button == kOverlaySecondary ? record.SelectedOverlay > 0
                                       : record.NumSymbolsInPlot == button - kOverlaySecondary;
}

void SetSecondaryButton(int button, bool down) {
    if (gBusy || !IsOpenSlot(gActivePlot) || button < kOverlaySecondary
        || button > kSlipArrowsOnPoles) {
        return;
    }
    const PlotRecord& record = ActiveRecord();
    if (record.NumValidData == 0 || record.PlotKind == kRose
        || record.SecondaryFormat == kNoSecondary) {
        return;
    }
    if (button == kOverlaySecondary) {
        SetOverlaySecondary(down);
        if (!down) {
            ReplotActivePlot(false);
        }
    } else if (down) {
        SetSlipArrows(button - kSlipArrowsAlone);
    } else {
        ReleaseSlipArrows(button - kSlipArrowsAlone);
    }
}

} // namespace quandrel
