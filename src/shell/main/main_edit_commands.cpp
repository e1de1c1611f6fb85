// SPDX-License-Identifier: MIT
//
// The handlers of the Edit menu of the main window.

#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/undo.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdles.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "platform/platform.h"
#include "rotation/rotate_data.h"
#include "session/drops.h"
#include "session/recalculate.h"
#include "shell/controls/control_kit.h"
#include "shell/main/commands.h"
#include "shell/main/geol_plot_main.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/plot_dialogs.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/styles/frm_symbol_select.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <optional>

namespace quandrel {

void GeolPlotMain::ConnectEditCommands() {
    commands_->Connect("mnuEditUndoRotation", [] {
        UndoRotation();
        FollowMovedRows();
    });
    commands_->Connect("mnuEditRefresh", [] { ReplotActivePlot(false); });
    commands_->Connect("mnuEditReCalculate", [] { RecalculateActivePlot(); });
    commands_->Connect("mnuEditRemoveOverlay", [] { RemoveOverlay(); });
    commands_->Connect("mnuEditAdd", [this] { ShowHowToAddPoints(); });
    commands_->Connect("mnuEditAddMode", [] {});
    commands_->Connect("mnuEditLasso", [] {});
    commands_->Connect("mnuEditGirdle", [] { ShowGirdleHelp(); });
    commands_->Connect("mnuEditSmallCircles", [this] { dialogs_->ShowSmallCircles(); });
    for (const char* name : {"mnuEditPreferences", "mnuViewPreferences"}) {
        commands_->Connect(name, [this] { EditPreferences(kSymbolsPage); });
    }
    commands_->Connect("mnuEditGirdles", [this] { commands_->Of("mnuViewLegends_0").trigger(); });
}

void GeolPlotMain::ConnectSelectionCommands() {
    for (int item = kCutItem; item <= kUnselectItem; ++item) {
        commands_->Connect(Numbered("mnuEditSelection", item), [this, item] { Edit(item); });
    }
    commands_->Connect("mnuEditUndo", [this] {
        UndoEdits();
        FollowLayer();
    });
    commands_->Connect("mnuEditRedo", [this] {
        RedoEdits();
        FollowLayer();
    });
}

void GeolPlotMain::ConnectAnnotationCommands() {
    const auto toggle = [] { SetAnnotationsShown(ActiveRecord().ShowAnnotations == 0); };
    commands_->Connect("mnuPlotAnnotation", toggle);
    commands_->Connect("mnuViewAnnotations", toggle);
    commands_->Connect("mnuEditRemoveAnnotation", [] { RemoveAllAnnotations(); });
}

void GeolPlotMain::FollowLayer() {
    if (frmPlotForms* form = ActiveForm()) {
        form->ShowLayer(gActiveLayer);
    }
}

void GeolPlotMain::Edit(int item) {
    if (item == kPasteItem && PasteFromOutside()) {
        return;
    }
    if (item != kChangeSymbolItem) {
        EditSelection(item);
        FollowLayer();
    } else if (gActiveLayer == kAnnotationLayer) {
        ChangeSymbolsOfAnnotations();
    } else {
        ChangeSymbolsOfSelection();
    }
}

/// Opens files that were copied, or makes a plot where none is open. False where rows are pasted
/// into the plot in focus.
bool GeolPlotMain::PasteFromOutside() {
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    const QStringList files = copied != nullptr ? FilesOf(*copied) : QStringList();
    if (!files.isEmpty()) {
        OpenDropped(files);
        return true;
    }
    if (IsOpenSlot(gActivePlot)) {
        return false;
    }
    if (PasteAsPlot(gPlatform.clipboard->Text().value_or(""))) {
        AfterOpening("New");
    }
    UpdatePlotState();
    return true;
}

void GeolPlotMain::ChangeSymbolsOfSelection() {
    if (const std::optional<RowStyles> styles = StylesOfSelection()) {
        const StyleQuestion question{"Symbols of the selected data", StyleKind::Symbol,
                                     styles->down, styles->up};
        if (const std::optional<ChosenStyles> chosen = AskStyle(question, this)) {
            ChangeSymbols({chosen->down, chosen->up});
        }
    }
}

void GeolPlotMain::ChangeSymbolsOfAnnotations() {
    const std::optional<AnnotationStyles> styles = StylesOfSelectedAnnotations();
    if (!styles) {
        Tell(kNoAnnotationsSelected);
        return;
    }
    const StyleQuestion question{"Symbols of the selected annotations", StyleKind::Symbol,
                                 styles->down, styles->up};
    if (const std::optional<ChosenStyles> chosen = AskStyle(question, this)) {
        ChangeAnnotationSymbols({chosen->down, chosen->up});
    }
}

void GeolPlotMain::ShowHowToAddPoints() {
    (void)gPlatform.prompts->Ask(
        {"To add (or delete) data points",
         "Alt+Left mouse button:  to insert a new data point under the mouse pointer\n"
         "(Alt+Right mouse button:  to insert a new data point with 'upward' polarity)\n\n"
         "Drag and select points to delete them.\n"
         "Remember to SAVE the data to make any changes permanent.",
         Icon::Information, Buttons::Ok});
}

} // namespace quandrel
