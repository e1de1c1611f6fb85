// SPDX-License-Identifier: MIT
//
// The parts of the main window that depend on the store: buttons, menus and panels, updated after
// each command.

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/settings.h"
#include "derive/derived_plots.h"
#include "drawing/plot_state.h"
#include "drawing/plot_status.h"
#include "edit/selection/marquee.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_link.h"
#include "mapinfo/selection_link.h"
#include "rotation/rotate_data.h"
#include "session/command_reasons.h"
#include "session/unplotted_lines.h"
#include "session/window_state.h"
#include "shell/grids/data_displays.h"
#include "shell/main/commands.h"
#include "shell/main/frm_intro.h"
#include "shell/main/geol_plot_main.h"
#include "shell/main/main_menus.h"
#include "shell/main/tool_strip.h"
#include "shell/map/frm_mapinfo.h"
#include "shell/panels/layer_panel.h"
#include "shell/panels/property_panel.h"
#include "shell/panels/text_panel.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/girdle_panel.h"
#include "shell/plot/net_mouse.h"
#include "shell/plot/plot_dialogs.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>

#include <utility>

namespace quandrel {

namespace {

/// What a command requires to be enabled.
struct CommandNeed {
    const char* command;
    bool ToolbarState::*condition;
};

constexpr CommandNeed kCommandNeeds[] = {
    {"mnuFileLoad_1", &ToolbarState::hasPlot},
    {"mnuFileLoad_2", &ToolbarState::hasPlot},
    {"mnuFileSave_0", &ToolbarState::hasPlot},
    {"mnuFileSave_1", &ToolbarState::hasPlot},
    {"mnuFileSave_2", &ToolbarState::hasSeveralPlots},
    {"mnuFileSave_3", &ToolbarState::hasPlot},
    {"mnuFileClose_0", &ToolbarState::hasPlot},
    {"mnuFileClose_1", &ToolbarState::hasPlot},
    {"mnuFileExport", &ToolbarState::hasPlot},
    {"mnuFileCopyImage_0", &ToolbarState::hasPlot},
    {"mnuFileCopyImage_1", &ToolbarState::showsLegend},
    {"mnuFilePrint_0", &ToolbarState::hasPlot},
    {"mnuEditAdd", &ToolbarState::isStereo},
    {"mnuEditAddMode", &ToolbarState::isStereo},
    {"mnuEditLasso", &ToolbarState::isStereo},
    {"mnuEditGirdle", &ToolbarState::isStereo},
    {"mnuEditRefresh", &ToolbarState::hasPlot},
    {"mnuEditReCalculate", &ToolbarState::hasPlot},
    {"mnuEditSmallCircles", &ToolbarState::isStereo},
    {"mnuEditGirdles", &ToolbarState::isStereo},
    {"mnuPlotIntersection", &ToolbarState::intersections},
    {"mnuPlotRotate", &ToolbarState::hasRows},
    {"mnuPlotStyleSave", &ToolbarState::hasPlot},
    {"mnuPlotStyleNew", &ToolbarState::hasPlot},
    {"mnuKinematicPlots_0", &ToolbarState::hasRows},
    {"mnuKinematicPlots_1", &ToolbarState::hasRows},
    {"mnuKinematicPlots_2", &ToolbarState::hasRows},
    {"mnuViewDensities", &ToolbarState::isStereo},
    {"mnuViewRegions", &ToolbarState::isStereo},
    {"mnuViewFabric", &ToolbarState::hasPlot},
    {"mnuViewTests", &ToolbarState::hasPlot},
    {"mnuViewPlotData", &ToolbarState::hasPlot},
    {"mnuWindow_0", &ToolbarState::hasPlot},
    {"mnuWindow_1", &ToolbarState::hasPlot},
    {"mnuWindow_2", &ToolbarState::hasPlot},
    {"mnuWindow_3", &ToolbarState::hasPlot},
};

} // namespace

void GeolPlotMain::UpdatePlotState() {
    const bool hasPlots = CountOpenPlots() > 0;
    if (hasPlots != menusHavePlots_) {
        ShowMenusFor(hasPlots);
        if (!hasPlots) {
            SetStatusText({});
        }
    }
    FollowNotation();
    dialogs_->FollowActivePlot();
    displays_->FollowPlots();
    FollowGridOfPlot();
    UpdateToolbar();
    UpdateEditMenus();
    UpdateUndo();
    UpdatePlotMenus();
    ExplainCommands();
    status_->FollowPlot(hasPlots ? gActivePlot : 0, QString::fromStdString(HintOfActivePlot()));
    if (hasPlots && Selection::now.slot == gActivePlot
        && status_->Text().toStdString() == StatusOfPlot(ActiveRecord())) {
        ShowSelectionCount(); // a redraw has replaced the text of the selection
    }
    menus_->RefreshRecent();
    RefreshWindowMenu();
    GirdleBoxDisplay();
    UpdateMapLink();
    intro_->setVisible(!hasPlots && !IsMapInfoLinked());
    if (!hasPlots) {
        intro_->Refresh();
        PlaceIntro();
    }
    FollowPanels();
    if (frmPlotForms* form = ActiveForm()) {
        form->FollowRecord();
        const QMdiSubWindow* front = room_->activeSubWindow();
        if (front != form && dynamic_cast<const frmMapinfo*>(front) == nullptr) {
            // The plot that the engine has made active comes to the front, but not in front of the
            // map.
            room_->setActiveSubWindow(form);
        }
    }
}

void GeolPlotMain::ExplainCommands() {
    const ToolbarState state = StateOfToolbar();
    commands_->Explain([&state](const QString& name) {
        return QString::fromStdString(ReasonDisabled(name.toStdString(), state));
    });
}

void GeolPlotMain::FollowNotation() {
    if (Notation now = NotationInForce(); now != notation_) {
        notation_ = std::move(now);
        RenewOrientationTexts();
    }
}

void GeolPlotMain::UpdateToolbar() {
    const ToolbarState state = StateOfToolbar();
    const auto set = [this](const QString& name, const ControlState& control) {
        commands_->Enable(name, control.enabled, control.down);
    };
    for (int i = 0; i < 3; ++i) {
        set("mnuPlotType_" + QString::number(i), state.plotTypes[static_cast<std::size_t>(i)]);
        set("mnuPlotDataType_" + QString::number(i), state.dataTypes[static_cast<std::size_t>(i)]);
        set("mnuPlotFormulas_" + QString::number(i), state.formulas[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < static_cast<int>(state.styles.size()); ++i) {
        set("mnuPlotStyle_" + QString::number(i), state.styles[static_cast<std::size_t>(i)]);
    }
    set("mnuPlotStyleOpen", {state.hasPlot, state.hasOwnStyle});
    for (int i = 0; i < kSymbolButtons; ++i) {
        // The menu has a separator before the items of the secondary data.
        const int item = i < kOverlaySecondaryButton ? i : i + 1;
        set("mnuPlotSymbols_" + QString::number(item), state.symbols[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < kDisplayButtons; ++i) {
        set("mnuViewLegends_" + QString::number(i), state.display[static_cast<std::size_t>(i)]);
    }
    set("mnuPlotSecondary", state.secondary[0]);
    set("mnuPlotDecimals", state.useDecimals);
    set("mnuPlotAnnotation", state.annotations);
    set("mnuViewLayers", {true, panLayers_->isVisibleTo(this)});
    set("mnuViewProperties", {true, panProperties_->isVisibleTo(this)});
    set("mnuViewTexts", {true, !panTexts_->isHidden()});
    set("mnuViewLabels", {true, gSettings.windows.toolLabels});
    panToolbarBox_->ShowLabels(gSettings.windows.toolLabels);
    set("mnuViewBestGirdle", state.bestGirdle);
    set("mnuViewConfidence", state.confidenceCone);
    set("mnuViewClassification", {state.hasPlot, dialogs_->IsClassificationShown()});
    for (const CommandNeed& need : kCommandNeeds) {
        commands_->Enable(need.command, state.*need.condition);
    }
    panToolbarBox_->panGridDensity->setEnabled(state.gridDensity);
    panToolbarBox_->ShowGrid();
}

void GeolPlotMain::UpdateEditMenus() {
    const EditMenuState state = StateOfEditMenu();
    commands_->Enable("mnuEditUndoRotation", CanUndoRotation());
    commands_->Enable("mnuEditSelection_1", state.cut);
    commands_->Enable("mnuEditSelection_2", state.copy);
    commands_->Enable("mnuEditSelection_3", state.copyAllFields);
    commands_->Enable("mnuEditSelection_5", state.remove);
    commands_->Enable("mnuEditSelection_6", state.changeSymbol);
    commands_->Enable("mnuEditSelection_7", state.selectAll);
    commands_->Enable("mnuEditSelection_8", state.unselect);
    commands_->Enable("mnuEditRemoveOverlay", state.removeOverlay);
    commands_->Enable("mnuEditRemoveAnnotation", state.removeAnnotation);
    commands_->Enable("mnuViewAnnotations", state.removeAnnotation);
}

void GeolPlotMain::UpdateUndo() {
    const UndoState state = StateOfUndo();
    commands_->Of("mnuEditUndo").setText(QString::fromStdString(state.undoCaption));
    commands_->Enable("mnuEditUndo", state.undo.enabled);
    commands_->Of("mnuEditRedo").setText(QString::fromStdString(state.redoCaption));
    commands_->Enable("mnuEditRedo", state.redo.enabled);
}

void GeolPlotMain::SelectionChanged() {
    NetMouse::UpdateOverlays();
    displays_->SelectionChanged();
    UpdateEditMenus();
    ShowSelectionCount();
    FollowSelectionInMap();
}

void GeolPlotMain::ShowSelectionCount() {
    const QString former = std::exchange(selectionText_, QString::fromStdString(SelectionText()));
    if (selectionText_.isEmpty()) {
        EndStatusText(former);
    } else {
        SetStatusText(selectionText_);
    }
}

void GeolPlotMain::UpdateMapLink() {
    commands_->Enable("mnuMapinfo_1", IsMapInfoLinked());
    commands_->Enable("mnuMapinfoToolbar", true, gSettings.windows.mapToolbar);
    UpdateMIMenus();
}

void GeolPlotMain::UpdatePaste() {
    const PasteState state = StateOfPaste();
    commands_->Of("mnuEditSelection_4").setText(QString::fromStdString(state.caption));
    commands_->Enable("mnuEditSelection_4", state.enabled);
}

void GeolPlotMain::UpdatePlotMenus() {
    const MenuCaptions captions = CaptionsOfMenus();
    commands_->Of("mnuPlotSymbols_0").setText(QString::fromStdString(captions.greatCircles));
    commands_->Of("mnuPlotSymbols_1").setText(QString::fromStdString(captions.pointSymbols));
    commands_->Of("mnuPlotSecondary").setText(QString::fromStdString(captions.plotSecondary));
    commands_->Of("mnuViewAdvStats").setText(QString::fromStdString(captions.viewAdvStats));
    commands_->Of("mnuViewAnnotations").setText(QString::fromStdString(captions.viewAnnotations));
    commands_->Of("mnuPlotAnnotation").setToolTip(QString::fromStdString(captions.annotationTip));
    commands_->Of("mnuViewToolbar")
        .setText(panToolbarBox_->isHidden() ? "Show &Toolbar" : "Hide &Toolbar");
    const PlotStatistics texts =
        IsOpenSlot(gActivePlot) ? StatisticsOf(ActivePlot()) : PlotStatistics();
    commands_->Enable("mnuViewAdvStats", !texts.normal.empty());
    commands_->Enable("mnuFileCopyStats_0", !texts.normal.empty());
    commands_->Enable("mnuFileCopyStats_1", !texts.advanced.empty());
    commands_->Enable("mnuViewUnplotted", HasUnplottedLines());
    commands_->Enable("mnuViewRawData", HasRawFiles());
}

void GeolPlotMain::GirdleBoxDisplay() {
    const bool shown = IsOpenSlot(gActivePlot) && IsPlotPartShown(kShowGirdles)
                       && ActiveRecord().PlotKind != kRose;
    if (shown) {
        UpdateGirdles();
    }
    panGirdleBox_->setVisible(shown);
}

void GeolPlotMain::UpdateGirdles() {
    panGirdleBox_->Refresh();
}

void GeolPlotMain::RefreshWindowMenu() {
    QMenu& menu = *menus_->mnuWindow;
    for (QAction* action : menu.actions()) {
        if (action->objectName().startsWith("mnuWindowPlot_")) {
            // This action may be running now.
            action->setObjectName({});
            menu.removeAction(action);
            action->deleteLater();
        }
    }
    for (QMdiSubWindow* window : room_->subWindowList()) {
        const auto* form = dynamic_cast<frmPlotForms*>(window);
        if (form != nullptr && !IsOpenSlot(form->Slot())) {
            continue;
        }
        // Windows without a plot include that of the map link.
        const QString title = form != nullptr
                                  ? QString::fromStdString(RecordOf(form->Slot()).PlotTitle)
                                  : window->windowTitle();
        QAction* action = menu.addAction(QString(title).replace("&", "&&"));
        action->setObjectName("mnuWindowPlot_"
                              + QString::number(form != nullptr ? form->Slot() : 0));
        action->setCheckable(true);
        action->setChecked(window == room_->activeSubWindow());
        connect(action, &QAction::triggered, this, [this, window] {
            if (window->isMinimized()) {
                window->showNormal();
            }
            room_->setActiveSubWindow(window);
            UpdatePlotState();
        });
    }
}

} // namespace quandrel
