// SPDX-License-Identifier: MIT

#include "program/window_state.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "platform/platform.h"
#include "statistics/confidence_cone.h"
#include "stereo/plot_stages.h"

#include <cctype>
#include <optional>

namespace quandrel {

namespace {

/// True when the plots of a mode can be drawn: the densities may not be there.
bool CanDrawMode(int mode) {
    switch (mode) {
    case kPointDensitySymbols:
        return static_cast<bool>(gPlotStages.computePointDensities);
    case kGridDensitySymbols:
        return gPlotStages.computeGridDensity && gPlotStages.drawGridSymbols;
    case kContours:
        return gPlotStages.computeGridDensity && gPlotStages.traceContours;
    case kContoursAndGrid:
        return CanDrawMode(kGridDensitySymbols) && CanDrawMode(kContours);
    default:
        return true;
    }
}

/// The drawing mode of a symbol button 0 to 6. There is no button of mode 2.
int ModeOfButton(int button) {
    return button < 2 ? button : button + 1;
}

bool IsGridMode(int mode) {
    return mode == kGridDensitySymbols || mode == kContours || mode == kContoursAndGrid;
}

/// The symbol buttons of a plot with overlays act on the top one, and only on planes.
void SetTopOverlayButtons(ToolbarState& state, const PlotRecord& record) {
    const std::int16_t kind = record.OverlayKind[static_cast<std::size_t>(record.OverlayRows[0])];
    const bool isOfPlanes = kind <= kOverlayPoles;
    state.symbols[0] = {isOfPlanes, kind == kOverlayGreatCircles};
    state.symbols[1] = {isOfPlanes, kind != kOverlayGreatCircles};
}

void SetModeButtons(ToolbarState& state, const PlotRecord& record) {
    if (!state.hasRows || !state.isStereo) {
        return;
    }
    if (record.OverlayRows[0] > 0) {
        SetTopOverlayButtons(state, record);
        return;
    }
    const int mode =
        record.PlotSymbolMode == kPointSymbolsToo ? kPointSymbols : int{record.PlotSymbolMode};
    for (int button = 0; button < kOverlaySecondaryButton; ++button) {
        const int own = ModeOfButton(button);
        state.symbols[static_cast<std::size_t>(button)] = {CanDrawMode(own), own == mode};
    }
}

void SetSecondaryButtons(ToolbarState& state, const PlotRecord& record) {
    const bool hasSecondary = record.SecondaryFormat != kNoSecondary && state.hasRows;
    state.secondary[0] = {hasSecondary && record.OverlayRows[0] == 0, record.ShowSecondary != 0};
    state.secondary[1] = {hasSecondary && state.isStereo, record.SelectedOverlay > 0};
    state.symbols[kOverlaySecondaryButton] = state.secondary[1];
    for (int option = 0; option < 3; ++option) {
        state.symbols[static_cast<std::size_t>(kOverlaySecondaryButton + 1 + option)] = {
            hasSecondary && state.isStereo, record.NumSymbolsInPlot == option + 1};
    }
}

void SetDisplayButtons(ToolbarState& state) {
    for (int button = 0; button < kDisplayButtons; ++button) {
        const bool isOfRose = button >= kShowRoseScale;
        const bool fits = isOfRose ? !state.isStereo : button != kShowGirdles || state.isStereo;
        const bool exists = button != kShowStatistics || gPlotStages.writeStatistics;
        state.display[static_cast<std::size_t>(button)] = {fits && exists, IsPlotPartShown(button)};
    }
}

void SetTypeButtons(ToolbarState& state, int plotKind, int dataKind, bool isOfDirections) {
    for (int kind = kEqualArea; kind <= kRose; ++kind) {
        state.plotTypes[static_cast<std::size_t>(kind - 1)] = {true, kind == plotKind};
    }
    for (int kind = kPlanes; kind <= kPolarLines; ++kind) {
        state.dataTypes[static_cast<std::size_t>(kind - 1)] = {kind != kPlanes || !isOfDirections,
                                                               kind == dataKind};
    }
}

bool HasAnnotations(const PlotRecord& record) {
    return record.PlotAnnotations != nullptr && !record.PlotAnnotations->empty();
}

std::string PasteCaption(const std::string& text) {
    std::string head = text.substr(0, 5);
    for (char& c : head) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    if (head == ";QNDR") {
        return "&Paste selection";
    }
    return head == ";VLMX" ? "&Paste from Velmixoration" : "&Paste external data";
}

} // namespace

ToolbarState StateOfToolbar() {
    ToolbarState state;
    state.hasPlot = IsOpenSlot(gActivePlot);
    if (!state.hasPlot) {
        SetTypeButtons(state, gPlotKind, gPlotDataKind, false);
        return state;
    }
    const PlotRecord& record = ActiveRecord();
    state.hasRows = record.NumValidData > 0;
    state.isStereo = record.PlotKind != kRose;
    state.hasSeveralPlots = CountOpenPlots() > 1;
    state.showsLegend = IsPlotPartShown(kShowLegend);
    SetTypeButtons(state, record.PlotKind, record.DataKind, record.PrimaryFormat <= kDirections);
    SetModeButtons(state, record);
    SetSecondaryButtons(state, record);
    SetDisplayButtons(state);
    state.annotations = {HasAnnotations(record), record.ShowAnnotations != 0};
    state.confidenceCone = {state.isStereo && ConfidenceConeAngle(record).has_value(),
                            record.ShowConfidenceCone};
    state.intersections = state.hasRows && record.PrimaryFormat == kPrimaryPlane
                          && record.SecondaryFormat == kSecondaryPlane;
    state.gridDensity = state.hasRows && state.isStereo && IsGridMode(record.PlotSymbolMode)
                        && CanDrawMode(record.PlotSymbolMode);
    return state;
}

MenuCaptions CaptionsOfMenus() {
    const bool hasPlot = IsOpenSlot(gActivePlot);
    const bool showsSecondary = hasPlot && ActiveRecord().ShowSecondary != 0;
    const bool showsAnnotations = hasPlot && ActiveRecord().ShowAnnotations != 0;
    const bool isAdvanced = hasPlot && ActiveRecord().StatsBoxKind != 0;
    MenuCaptions captions;
    captions.plotSecondary = showsSecondary ? "Plot Primar&y Data" : "Plot Secondar&y Data";
    captions.viewAdvStats =
        isAdvanced ? "Use Normal Statistics Box" : "Use Advanced Statistics Box";
    captions.viewAnnotations = showsAnnotations ? "Hide Ann&otations" : "Show Ann&otations";
    captions.annotationTip = showsAnnotations ? "Hide annotation points" : "Show annotation points";
    return captions;
}

EditMenuState StateOfEditMenu() {
    EditMenuState state;
    if (!IsOpenSlot(gActivePlot)) {
        return state;
    }
    const PlotRecord& record = ActiveRecord();
    state.changeSymbol = record.OverlayRows[0] >= 1;
    state.selectAll = record.NumLoadedData > 0 || HasAnnotations(record);
    state.removeOverlay =
        record.OverlayRows[0] >= 1 && record.OverlayRows[0] != record.SelectedOverlay;
    state.removeAnnotation = HasAnnotations(record);
    return state;
}

PasteState StateOfPaste() {
    PasteState state;
    if (!IsOpenSlot(gActivePlot)) {
        return state;
    }
    if (const std::optional<std::string> text = gPlatform.clipboard->Text()) {
        state.enabled = true;
        state.caption = PasteCaption(*text);
    }
    return state;
}

void PressPlotType(int button) {
    const auto kind = static_cast<std::int16_t>(button + 1);
    if (IsOpenSlot(gActivePlot)) {
        ChangePlotKind(kind);
    } else if (!gBusy) {
        gPlotKind = kind;
    }
}

void PressDataType(int button) {
    const auto kind = static_cast<std::int16_t>(button + 1);
    if (IsOpenSlot(gActivePlot)) {
        // What the user answers shows in the buttons, which follow the record.
        static_cast<void>(ChangeDataKind(kind));
    } else if (!gBusy) {
        gPlotDataKind = kind;
    }
}

} // namespace quandrel
