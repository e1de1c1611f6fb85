// SPDX-License-Identifier: MIT
//
// The handlers of the main window's commands; main_edit_commands.cpp has those of the Edit menu.

#include "core/figure_style.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/replot.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "derive/intersection_lines.h"
#include "derive/kinematic_plots.h"
#include "derive/secondary_data.h"
#include "drawing/plot_state.h"
#include "edit/history/undo.h"
#include "edit/marks/girdles.h"
#include "input/file_loading.h"
#include "input/plot_files.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_link.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "platform/platform.h"
#include "print/print_run.h"
#include "qt/plot_picture.h"
#include "session/closing.h"
#include "session/recalculate.h"
#include "session/start.h"
#include "session/style_commands.h"
#include "session/unplotted_lines.h"
#include "session/window_state.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/ending_text.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_command_search.h"
#include "shell/dialogs/frm_text_window.h"
#include "shell/files/frm_directory_dialog.h"
#include "shell/files/frm_export_figure.h"
#include "shell/grids/data_displays.h"
#include "shell/help/frm_about.h"
#include "shell/help/frm_help.h"
#include "shell/main/commands.h"
#include "shell/main/geol_plot_main.h"
#include "shell/main/main_menus.h"
#include "shell/main/tool_strip.h"
#include "shell/panels/layer_panel.h"
#include "shell/panels/property_panel.h"
#include "shell/panels/text_panel.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/plot_dialogs.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/print/frm_print_dialog.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSlider>
#include <QToolBar>

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

/// In the order of the File menu.
constexpr std::array<const char*, 4> kLoadCommands = {kNewCommand, kMergeCommand, kOverlayCommand,
                                                      kBlankCommand};

/// Pixels per logical pixel of a copied picture: enough for printing.
constexpr double kCopyDensity = 3;

} // namespace

void GeolPlotMain::Open(const char* command) {
    if (HasOpenedPlot(OpenPlotFile(command))) {
        AfterOpening(command);
    }
}

void GeolPlotMain::AfterOpening(const QString& command) {
    frmPlotForms* form = ActiveForm();
    if (form == nullptr) {
        return;
    }
    ForgetUndo();
    const PlotRecord& record = ActiveRecord();
    form->AddLayerTab(QString::fromStdString(record.FileTitle), command);
    const std::string told = OpeningText();
    if (!told.empty()) {
        SetStatusText(QString::fromStdString(told));
    }
    KeepPicture(gActivePlot);
}

void GeolPlotMain::KeepPicture(int slot) const {
    pictures_.Keep(PlotOf(slot), gSettings.files.recent);
}

void GeolPlotMain::CloseOne(int slot) {
    displays_->ApplyEdits(slot);
    KeepPicture(slot);
    ClosePlotWindow(slot);
}

bool GeolPlotMain::CloseAll(Closing closing) {
    ApplyAllEdits();
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            KeepPicture(slot);
        }
    }
    return CloseAllPlots(closing);
}

void GeolPlotMain::ApplyAllEdits() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            displays_->ApplyEdits(slot);
        }
    }
}

void GeolPlotMain::RedrawAllPlots() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            RedrawPlot(slot); // legends name the files
        }
    }
}

void GeolPlotMain::Save(int kind) {
    ApplyAllEdits();
    if (kind == static_cast<int>(SaveKind::SaveAll)) {
        const bool saved = SaveAllPlots();
        RedrawAllPlots();
        TellWhile(saved ? "All plots are saved" : "Not all plots are saved",
                  [saved] { return saved != IsAnyPlotUnsaved(); });
        return;
    }
    if (SaveAsciiPlot(static_cast<SaveKind>(kind)) == SaveOutcome::Saved) {
        RedrawPlot(gActivePlot); // its legend names the file
        TellWhile("Saved as " + ActiveRecord().FileTitle,
                  [] { return !HoldsUnsavedData(gActivePlot); });
    }
}

void GeolPlotMain::ConnectFileCommands() {
    for (int i = 0; i < static_cast<int>(kLoadCommands.size()); ++i) {
        commands_->Connect(Numbered("mnuFileLoad", i),
                           [this, i] { Open(kLoadCommands[static_cast<std::size_t>(i)]); });
    }
    for (int kind = 0; kind < 3; ++kind) {
        commands_->Connect(Numbered("mnuFileSave", kind), [this, kind] { Save(kind); });
    }
    commands_->Connect("mnuFileLoad_4", [this] {
        if (const auto path = WorkspaceFileDialog(WorkspaceDialog::Open)) {
            OpenFiles({QString::fromStdString(*path)});
        }
    });
    commands_->Connect("mnuFileSave_3", [this] {
        ApplyAllEdits();
        const WorkspaceOutcome outcome = SaveWorkspace();
        RedrawAllPlots();
        if (outcome == WorkspaceOutcome::Saved) {
            TellWhile("Saved as " + gSettings.files.workspaceTitle,
                      [saved = FilesOfOpenPlots()] { return saved == FilesOfOpenPlots(); });
        }
    });
    commands_->Connect("mnuFileClose_0", [this] { CloseOne(gActivePlot); });
    commands_->Connect("mnuFileClose_1",
                       [this] { static_cast<void>(CloseAll(Closing::AllWindows)); });
    commands_->Connect("mnuFileFormat", [this] { EditFormat(); });
    commands_->Connect("mnuFileStruct", [this] { EditFormat(); });
    commands_->Connect("mnuEditFileFormat", [this] { EditFormat(); });
    commands_->Connect("mnuFileDirectory", [this] { ChooseDataFolder(); });
    commands_->Connect("mnuFileExport", [this] { ExportImage(); });
    commands_->Connect("mnuFileFigure", [this] { dialogs_->ShowFigureSheet(); });
    commands_->Connect("mnuFilePrint_0", [this] {
        ShowPrintDialog(this);
        SetStatusText({});
    });
    commands_->Connect("mnuFilePrint_1", [] { static_cast<void>(PrinterSetup()); });
    commands_->Connect("mnuFileQuit", [this] { close(); });
    for (std::size_t i = 0; i < menus_->mnuFilePrevious.size(); ++i) {
        const int index = kFirstRecentFile + static_cast<int>(i);
        connect(menus_->mnuFilePrevious[i], &QAction::triggered, this,
                [this, index] { IntroButtonStart(index); });
    }
}

void GeolPlotMain::ConnectCopyCommands() {
    commands_->Connect("mnuFileCopyImage_0", [this] { CopyImage(false); });
    commands_->Connect("mnuFileCopyImage_1", [this] { CopyImage(true); });
    commands_->Connect("mnuFileCopyStats_0",
                       [] { CopyStatistics(StatisticsOf(ActivePlot()).normal); });
    commands_->Connect("mnuFileCopyStats_1",
                       [] { CopyStatistics(StatisticsOf(ActivePlot()).advanced); });
}

void GeolPlotMain::ConnectStyleCommands() {
    for (int i = 0; i < static_cast<int>(StandardStyles().size()); ++i) {
        commands_->Connect(Numbered("mnuPlotStyle", i),
                           [i] { UseStandardStyle(gActivePlot, static_cast<std::size_t>(i)); });
    }
    commands_->Connect("mnuPlotStyleOpen", [] { OpenStyle(gActivePlot); });
    commands_->Connect("mnuPlotStyleSave", [] { SaveStyle(gActivePlot); });
    commands_->Connect("mnuPlotStyleNew", [] { UseStyleForNewPlots(gActivePlot); });
}

void GeolPlotMain::ConnectPlotCommands() {
    for (int i = 0; i < 3; ++i) {
        commands_->Connect(Numbered("mnuPlotType", i), [this, i] {
            PressPlotType(i);
            if (i + 1 == kRose) {
                dialogs_->ShowRose();
            }
        });
        commands_->Connect(Numbered("mnuPlotDataType", i), [i] { PressDataType(i); });
        commands_->Connect(Numbered("mnuPlotFormulas", i),
                           [i] { UsePlotFormulas(gActivePlot, static_cast<std::int16_t>(i)); });
    }
    for (int i = 0; i < kOverlaySecondaryButton; ++i) {
        commands_->Connect(Numbered("mnuPlotSymbols", i), [i] { SetPlotSymbol(i); });
    }
    for (int button = kOverlaySecondary; button <= kSlipArrowsOnPoles; ++button) {
        // In the menus a separator comes before these commands.
        commands_->Connect(Numbered("mnuPlotSymbols", button + 1), [button] {
            SetSecondaryButton(button, !IsSecondaryButtonDown(button));
        });
    }
    commands_->Connect("mnuPlotSecondary", [] { ToggleSecondaryData(); });
    commands_->Connect("mnuPlotDecimals",
                       [] { UseDecimals(gActivePlot, ActiveRecord().UseDecimals == 0); });
    for (int index = 0; index < 3; ++index) {
        commands_->Connect(Numbered("mnuKinematicPlots", index),
                           [index] { MakeKinematicPlots(index); });
    }
    ConnectStyleCommands();
    commands_->Connect("mnuPlotRotate", [this] { dialogs_->ShowRotation(); });
    commands_->Connect("mnuPlotIntersection", [] { MakeIntersectionPlot(); });
}

void GeolPlotMain::ConnectViewCommands() {
    for (int i = 0; i < kDisplayButtons; ++i) {
        commands_->Connect(Numbered("mnuViewLegends", i),
                           [i] { ShowPlotPart(i, !IsPlotPartShown(i)); });
    }
    commands_->Connect("mnuViewAdvStats",
                       [] { UseAdvancedStatistics(ActiveRecord().StatsBoxKind == 0); });
    commands_->Connect("mnuViewRegions", [this] { dialogs_->ShowRegions(); });
    commands_->Connect("mnuViewTests", [this] { dialogs_->ShowTests(); });
    commands_->Connect("mnuViewBestGirdle", [] {
        const int row = static_cast<int>(kGirdleItem);
        static_cast<void>(ShowGirdle(row, !IsGirdleShown(row)));
    });
    commands_->Connect("mnuViewConfidence", [] {
        ActiveRecord().ShowConfidenceCone = !ActiveRecord().ShowConfidenceCone;
        ReplotActivePlot(false);
    });
    commands_->Connect("mnuViewDensities", [this] { dialogs_->ShowDensities(); });
    commands_->Connect("mnuViewFabric", [this] { dialogs_->ShowFabric(); });
    commands_->Connect("mnuViewClassification", [this] { dialogs_->ToggleClassification(); });
    commands_->Connect("mnuViewUnplotted", [this] { ShowUnplottedLines(); });
    commands_->Connect("mnuViewRawData", [this] { displays_->ShowRawData(); });
    commands_->Connect("mnuViewPlotData", [this] { displays_->ShowPlotData(); });
    commands_->Connect("mnuViewToolbar",
                       [this] { panToolbarBox_->setVisible(panToolbarBox_->isHidden()); });
    commands_->Connect("mnuViewLayers", [this] { ShowOrHide(*panLayers_); });
    commands_->Connect("mnuViewProperties", [this] { ShowOrHide(*panProperties_); });
    commands_->Connect("mnuViewTexts", [this] { ShowOrHide(*panTexts_); });
    commands_->Connect("mnuViewLabels",
                       [] { gSettings.windows.toolLabels = !gSettings.windows.toolLabels; });
}

void GeolPlotMain::SearchCommands() {
    QList<QMenu*> menus;
    for (const QAction* action : menuBar()->actions()) {
        menus << action->menu();
    }
    UpdateEditMenus();
    UpdateUndo();
    UpdatePaste();
    ExplainCommands();
    frmCommandSearch search(this, menus);
    search.exec();
    if (QAction* chosen = search.Chosen()) {
        chosen->trigger();
    }
}

void GeolPlotMain::ConnectWindowCommands() {
    for (int way = 0; way < 4; ++way) {
        commands_->Connect(Numbered("mnuWindow", way), [this, way] { ArrangeWindows(way); });
    }
    for (const char* name : {"mnuFileMILink", "mnuMapinfo_0"}) {
        commands_->Connect(name, [] { static_cast<void>(StartMapInfoLink()); });
    }
    commands_->Connect("mnuMapinfo_1", [] { CloseMapInfoLink(); });
    commands_->Connect("mnuMapinfoToolbar", [] { ShowMIToolbar(!gSettings.windows.mapToolbar); });
    commands_->Connect("mnuHelpQuandrel_0", [] { ShowHelp(); });
    commands_->Connect("mnuHelpQuandrel_1", [] { ShowHelp(kHowToUseHelpPage); });
    commands_->Connect("mnuHelpCommands", [this] { SearchCommands(); });
    commands_->Connect("mnuHelpAbout", [this] { ShowAbout(); });
}

void GeolPlotMain::ConnectSlider() {
    QSlider* slider = panToolbarBox_->sldGridDensity;
    connect(slider, &QSlider::valueChanged, this, [this, slider](int value) {
        ChooseGridSize(value);
        panToolbarBox_->ShowGrid();
        if (!slider->isSliderDown()) {
            UseGridSize();
        }
    });
    connect(slider, &QSlider::sliderReleased, this, [this] {
        panToolbarBox_->ShowGrid();
        UseGridSize();
    });
}

void GeolPlotMain::EditFormat() {
    FormatQuestion question;
    question.command = "None";
    if (IsOpenSlot(gActivePlot)) {
        question.path = ActiveRecord().FileNames[kFirstFile];
        question.showSecondary = ActiveRecord().ShowSecondary != 0;
        question.columnHeadings = gSettings.format.hasHeadings;
    }
    if (gPlatform.prompts->AskFormat(question)) {
        SetStatusText("The data format applies to the next file");
    }
}

void GeolPlotMain::ChooseDataFolder() {
    frmDirectoryDialog dialog(QString::fromStdString(gSettings.files.folder), this);
    if (dialog.exec() == QDialog::Accepted) {
        gSettings.files.folder = dialog.Folder().toStdString();
        if (!SaveSettings(SettingsGroup::DataFolder)) {
            Tell("The data folder applies to this session, but it could not be saved.");
        }
    }
}

void GeolPlotMain::ExportImage() {
    frmExportFigure dialog(this, ActivePlot());
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    gSettings.files.exportStyle = dialog.Style();
    PathQuestion question;
    question.title = "Export Image";
    question.folder = gSettings.files.lastFolder;
    question.fileName = PictureName(ActiveRecord());
    question.filter = kPictureFilter;
    const std::optional<std::string> path = gPlatform.prompts->AskSavePath(question);
    if (!path) {
        return;
    }
    gBusy = true;
    gPlatform.status->SetText("Please wait - drawing the picture. Esc stops it");
    const std::string error = SavePlotPicture(*path, dialog.Options());
    gBusy = false;
    if (error.empty()) {
        SetStatusText("The picture is " + QString::fromStdString(*path));
    } else if (error == kPictureStopped) {
        SetStatusText(kPictureStopped);
    } else {
        SetStatusText({});
        Tell(error);
    }
}

void GeolPlotMain::CopyImage(bool legend) {
    const frmPlotForms& form = *ActiveForm();
    const PlotBoxSizes boxes{form.picStereoArea->PictureSize(), form.picLegendBox->PictureSize()};
    const PlotImagePart part = legend ? PlotImagePart::Legend : PlotImagePart::Net;
    auto* copied = new QMimeData; // the clipboard's
    copied->setImageData(PlotImage(part, boxes, kCopyDensity));
    copied->setData("image/svg+xml", QByteArray::fromStdString(PlotSvg(part, boxes)));
    QGuiApplication::clipboard()->setMimeData(copied);
    clipboardText_ = legend ? "The legend is on the clipboard" : "The plot is on the clipboard";
    SetStatusText(clipboardText_);
}

void GeolPlotMain::EditPreferences(int tab) {
    if (!ShowPreferences(this, tab)) {
        return;
    }
    UseInfoFonts(*panInfoLine, *panDipAzBox);
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            static_cast<frmPlotForms&>(FormOf(slot)).ApplyFonts();
        }
    }
}

void GeolPlotMain::ShowUnplottedLines() {
    frmTextWindow window("Unplotted lines: " + QString::fromStdString(ActiveRecord().PlotTitle),
                         QString::fromStdString(UnplottedLinesText()), this);
    window.exec();
}

void GeolPlotMain::ShowAbout() {
    frmAbout about(this);
    about.exec();
}

} // namespace quandrel
