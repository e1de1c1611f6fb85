// SPDX-License-Identifier: MIT

#include "session/window_state.h"

#include "core/letter_case.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "drawing/layer_rows.h"
#include "drawing/symbol_choice.h"
#include "edit/history/undo.h"
#include "edit/marks/girdles.h"
#include "edit/rows/clipboard_text.h"
#include "edit/selection/marquee.h"
#include "persistence/binary_plot_file.h"
#include "platform/platform.h"
#include "session/style_commands.h"
#include "statistics/confidence_cone.h"

namespace quandrel {

namespace {

bool IsGridMode(int mode) {
    return mode == kGridDensitySymbols || mode == kContours || mode == kContoursAndGrid;
}

/// The symbol buttons act on the chosen data.
void SetModeButtons(ToolbarState& state, const Plot& plot) {
    if (!state.hasRows || !state.isStereo) {
        return;
    }
    const FigureLayer data = ChosenDataOf(plot);
    for (int button = 0; button < kOverlaySecondaryButton; ++button) {
        state.symbols[static_cast<std::size_t>(button)] = {CanShowDataBy(plot, data, button),
                                                           AreDataShownBy(plot, data, button)};
    }
}

void SetSecondaryButtons(ToolbarState& state, const PlotRecord& record) {
    const bool hasSecondary = record.SecondaryFormat != kNoSecondary && state.hasRows;
    state.secondary[0] = {hasSecondary && record.OverlayRows[kOverlayCount] == 0,
                          record.ShowSecondary != 0};
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
        state.display[static_cast<std::size_t>(button)] = {fits, IsPlotPartShown(button)};
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

void SetStyleItems(ToolbarState& state, const PlotRecord& record) {
    const std::optional<std::size_t> style = StandardStyleOf(record);
    for (std::size_t i = 0; i < state.styles.size(); ++i) {
        state.styles[i] = {true, style == i};
    }
    state.hasOwnStyle = !style;
}

void SetFormulaItems(ToolbarState& state, const PlotRecord& record) {
    for (std::size_t choice = 0; choice < state.formulas.size(); ++choice) {
        state.formulas[choice] = {true, static_cast<std::size_t>(record.PlotFormulas) == choice};
    }
}

bool HasAnnotations(const PlotRecord& record) {
    return record.PlotAnnotations != nullptr && !record.PlotAnnotations->empty();
}

std::string PasteCaption(ClipboardKind kind) {
    switch (kind) {
    case ClipboardKind::OwnRows:
    case ClipboardKind::Marks:
        return "&Paste selection";
    case ClipboardKind::Companion:
        return "&Paste from Velmixoration";
    default:
        return "&Paste external data";
    }
}

bool HasSelectionOn(int slot) {
    return MarqueeStandsOn(slot) || !SelectedRowsOf(slot).empty();
}

/// Rows of the overlay of the secondary data belong to the main rows, those of a linked plot to a
/// table: neither can be removed here.
bool KeepsItsRows(const PlotRecord& record) {
    const bool hasSecondaryBelow =
        record.SelectedOverlay > 0 && record.SelectedOverlay != record.OverlayRows[kOverlayCount];
    return hasSecondaryBelow || record.MapInfoLinked != 0;
}

/// The items for the selection of the active plot.
void SetSelectionItems(EditMenuState& state, const PlotRecord& record) {
    const bool isRows = gActiveLayer == kDataLayer;
    const bool isBeta = isRows && record.PlotSymbolMode == kBetaIntersections;
    const bool keepsRows = isRows && KeepsItsRows(record);
    state.copy = true;
    state.copyAllFields = HasFurtherFields(gActivePlot);
    state.cut = !isBeta && !keepsRows;
    state.remove = state.cut;
    state.changeSymbol = !isBeta;
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
    SetModeButtons(state, ActivePlot());
    SetSecondaryButtons(state, record);
    SetDisplayButtons(state);
    state.useDecimals = {true, record.UseDecimals != 0};
    SetFormulaItems(state, record);
    SetStyleItems(state, record);
    state.annotations = {HasAnnotations(record), record.ShowAnnotations != 0};
    state.bestGirdle = {state.isStereo && state.hasRows, IsGirdleShown(kGirdleItem)};
    state.confidenceCone = {state.isStereo
                                && ConfidenceConeAngle(record, FormulasInForce(record)).has_value(),
                            record.ShowConfidenceCone};
    state.intersections = state.hasRows && record.PrimaryFormat == kPrimaryPlane
                          && record.SecondaryFormat == kSecondaryPlane;
    state.gridDensity = state.hasRows && state.isStereo && IsGridMode(record.PlotSymbolMode);
    return state;
}

MenuCaptions CaptionsOfMenus() {
    const Plot* const plot = IsOpenSlot(gActivePlot) ? &ActivePlot() : nullptr;
    const bool showsSecondary = plot != nullptr && plot->record.ShowSecondary != 0;
    const bool showsAnnotations = plot != nullptr && plot->record.ShowAnnotations != 0;
    const bool isAdvanced = plot != nullptr && plot->record.StatsBoxKind != 0;
    MenuCaptions captions;
    const std::string chosen =
        plot != nullptr ? NameOfLayerData(*plot, ChosenDataOf(*plot)) : std::string();
    const std::string ofWhat = chosen.empty() ? "" : " (" + chosen + ")";
    captions.greatCircles = "Great C&ircles" + ofWhat;
    captions.pointSymbols = "Point &symbols" + ofWhat;
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
    state.changeSymbol = record.OverlayRows[kOverlayCount] >= 1;
    state.unselect = HasSelectionOn(Selection::now.slot);
    if (HasSelectionOn(gActivePlot)) {
        SetSelectionItems(state, record);
    } else {
        state.copy = state.unselect; // from the plot that has the selection
    }
    state.selectAll = record.NumLoadedData > 0 || HasAnnotations(record);
    state.removeOverlay = record.OverlayRows[kOverlayCount] >= 1
                          && record.OverlayRows[kOverlayCount] != record.SelectedOverlay;
    state.removeAnnotation = HasAnnotations(record);
    return state;
}

bool HasRawFiles() {
    if (!IsOpenSlot(gActivePlot) || ActiveRecord().NumFiles < 1) {
        return false;
    }
    const std::string& path = ActiveRecord().FileNames[kFirstFile];
    return !path.empty() && !LowerCase(path).ends_with(kBinaryEnding);
}

std::string HintOfActivePlot() {
    if (!IsOpenSlot(gActivePlot)) {
        return {};
    }
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind == kRose) {
        return record.NumValidData > 0 ? "Rest the pointer on a petal to read it" : "";
    }
    const bool showsRowsAlone = record.PlotSymbolMode != kBetaIntersections;
    return gActiveLayer == kAnnotationLayer || showsRowsAlone ? gHintText : "";
}

UndoState StateOfUndo() {
    UndoState state;
    state.undo.enabled = CanUndo();
    state.redo.enabled = CanRedo();
    state.undoCaption = UndoCaption();
    state.redoCaption = RedoCaption();
    return state;
}

PasteState StateOfPaste() {
    PasteState state;
    const ClipboardKind kind = KindOfClipboard();
    const bool hasPlot = CountOpenPlots() > 0;
    if (kind != ClipboardKind::Empty && (hasPlot || kind != ClipboardKind::Marks)) {
        state.enabled = true;
        state.caption = hasPlot ? PasteCaption(kind) : "&Paste as plot";
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
        // The buttons follow the record, so they show the user's answer.
        static_cast<void>(ChangeDataKind(kind));
    } else if (!gBusy) {
        gPlotDataKind = kind;
    }
}

} // namespace quandrel
