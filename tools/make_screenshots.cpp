// SPDX-License-Identifier: MIT
//
// Pictures of the windows for the documents, made from the examples: the main window with two tiled
// plots and the format dialog on three files, in a light and a dark theme; editing by hand and
// other dialogs in a light theme. QT_SCALE_FACTOR sets the density.
//
// usage: make_screenshots EXAMPLES FOLDER

#include "batch/format_command.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "drawing/layer_list.h"
#include "edit/marks/girdles.h"
#include "edit/marks/plot_views.h"
#include "edit/marks/small_circles.h"
#include "net_hand.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_fabric_plots.h"
#include "shell/dialogs/widget_prompts.h"
#include "shell/files/frm_export_figure.h"
#include "shell/files/frm_figure_sheet.h"
#include "shell/format/frm_file_format.h"
#include "shell/main/commands.h"
#include "shell/main/geol_plot_main.h"
#include "shell/panels/layer_panel.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/print/frm_print_dialog.h"
#include "shell/print/widget_printers.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleFactory>
#include <QTimer>

#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace quandrel;

/// The formats of the examples as a script states them.
const std::map<std::string, std::string>& Formats() {
    static const std::map<std::string, std::string> formats = {
        {"folded_bedding.txt",
         "primary=plane conventions=1 delimiter=tab columns=0,1,2,3,4,5,6,7,2,3 header=yes "
         "appended=numeric,text data=planes numericname=thickness textname=rockType"},
        {"fold_hinges_polar.txt",
         "primary=line conventions=11 delimiter=tab columns=1,0,2,3,4,5,6,7,8,2 header=yes "
         "appended=text data=polar textname=type"},
        {"faults_pitch.txt",
         "primary=plane secondary=pitch conventions=5 delimiter=tab "
         "columns=0,1,2,3,2,2,6,7,8,3 header=yes appended=text data=planes textname=type"},
        {"joints.csv",
         "primary=plane conventions=2 delimiter=comma columns=2,1,2,3,4,5,6,7,3,4 header=yes "
         "appended=numeric,text data=planes numericname=spacing textname=rockType"},
    };
    return formats;
}

QPalette DarkPalette() {
    QPalette palette;
    const QColor window(0x2a, 0x2e, 0x32);
    const QColor base(0x1d, 0x20, 0x23);
    const QColor text(0xec, 0xee, 0xf0);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Button, QColor(0x31, 0x36, 0x3b));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(0x7c, 0x82, 0x88));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x90, 0x96, 0x9c));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x7f, 0xd0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// A program with the examples; the format dialog is accepted with the example's own format.
class Show {
public:
    Show(QString examples, QString folder, QString theme)
        : examples_(std::move(examples))
        , folder_(std::move(folder))
        , theme_(std::move(theme)) {
        gPlatform = {};
        gPlatform.settings = &settings_;
        gPlatform.clipboard = &clipboard_;
        gPlatform.printers = &printers_;
        InitialiseApplication();
        firstFormat_ = gSettings.format;
        window = std::make_unique<GeolPlotMain>();
        gPlatform.prompts = &prompts_;
        prompts_.OnFormat([this](const FormatQuestion& question) { return Answer(question); });
        window->resize(1280, 800);
        window->show();
        QApplication::processEvents();
    }

    ~Show() {
        window.reset();
        MakeStoreTables();
        gPlatform = {};
    }

    Show(const Show&) = delete;
    Show& operator=(const Show&) = delete;

    void Open(const QString& example) { window->OpenFiles({examples_ + "/" + example}); }

    void Press(const QString& command) { window->AllCommands().Of(command).trigger(); }

    void Picture(QWidget& widget, const QString& name) {
        QApplication::processEvents();
        const QString path = folder_ + "/" + name + "_" + theme_ + ".png";
        if (!widget.grab().save(path)) {
            std::cerr << "cannot write " << path.toStdString() << "\n";
        }
    }

    /// The format dialog as it opens on an example, in a given format or in that of a first run.
    void Dialog(const QString& example, const std::string& format, const QString& name) {
        const FormatSettings before = gSettings.format;
        FormatQuestion question;
        question.path = (examples_ + "/" + example).toStdString();
        question.command = "New";
        Apply(format);
        question.columnHeadings = gSettings.format.hasHeadings;
        frmFileFormat dialog(question, window.get());
        dialog.show();
        Picture(dialog, name);
        gSettings.format = before;
    }

    std::unique_ptr<GeolPlotMain> window;

private:
    void Apply(const std::string& format) const {
        const Result<std::vector<Command>> commands =
            ParseScript("format " + format, CommandBreak::LineOnly);
        StatedFormat stated;
        const std::string wrong =
            commands ? ApplyFormatArguments(commands->front().arguments, firstFormat_, stated)
                     : "bad words";
        if (!wrong.empty() && !format.empty()) {
            std::cerr << wrong << "\n";
        }
    }

    std::optional<FormatAnswer> Answer(const FormatQuestion& question) const {
        const auto format = Formats().find(
            QFileInfo(QString::fromStdString(question.path)).fileName().toStdString());
        if (format != Formats().end()) {
            Apply(format->second);
        }
        FormatAnswer answer;
        answer.columnHeadings = gSettings.format.hasHeadings;
        return answer;
    }

    QString examples_;
    QString folder_;
    QString theme_;
    FormatSettings firstFormat_;
    MemorySettingsStore settings_;
    MemoryClipboard clipboard_;
    WidgetPrinters printers_;
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
};

void MakePictures(const QString& examples, const QString& folder, const QString& theme) {
    Show show(examples, folder, theme);

    show.Dialog("faults_pitch.txt", Formats().at("faults_pitch.txt"), "format_faults");
    show.Dialog("joints.csv", Formats().at("joints.csv"), "format_joints");
    show.Dialog("lineations_quadrant.txt", "delimiter=tab", "format_suspicious");
    show.Open("folded_bedding.txt");
    show.Press("mnuPlotSymbols_0");
    show.Open("fold_hinges_polar.txt");
    auto& second = static_cast<frmPlotForms&>(FormOf(gActivePlot));
    second.SetBoxText(PlotBox::Description, "Fold hinges, second generation");
    second.SetBoxText(PlotBox::Fabric, "F2");
    show.Press("mnuWindow_1");
    show.Picture(*show.window, "window");
}

/// The first top-level window of a class, by its object name.
QWidget* TopLevel(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && widget->isVisible()) {
            return widget;
        }
    }
    std::cerr << "no window " << name.toStdString() << "\n";
    return nullptr;
}

void PictureOf(Show& show, const QString& name, const QString& picture) {
    if (QWidget* widget = TopLevel(name)) {
        show.Picture(*widget, picture);
    }
}

/// Editing by hand: selection, annotations and girdles, lasso, grid and small circles.
void MakeEditingPictures(const QString& examples, const QString& folder, const QString& theme) {
    Show show(examples, folder, theme);
    show.Open("folded_bedding.txt");
    auto& form = static_cast<frmPlotForms&>(FormOf(gActivePlot));
    form.showMaximized();
    show.Press("mnuEditGirdles");
    QApplication::processEvents();
    form.ReplotIntoWindow();
    FocusGirdle(1);
    Hand::Drag({300, -500}, {420, -330}, Qt::ShiftModifier);
    form.ShowLayer(kAnnotationLayer);
    Hand::Press({-330, 120}, Qt::AltModifier, Qt::LeftButton);
    Hand::Trace({{150, 820}, {260, 700}, {400, 640}}, Qt::AltModifier, Qt::RightButton);
    form.ShowLayer(kDataLayer);
    Hand::Drag({-820, 330}, {-320, -420});
    show.Picture(*show.window, "editing");

    Hand::Press({900, 900}, {}, Qt::LeftButton);
    show.Press("mnuEditLasso");
    Hand::Trace({{-800, 300}, {-350, 380}, {-200, 60}, {-420, -330}, {-760, -250}});
    show.Picture(*form.picStereoArea, "lasso");
    show.Press("mnuEditLasso");

    show.Press("mnuViewPlotData");
    PictureOf(show, "frmDataDisplay", "plotted_data");
    show.Press("mnuEditSmallCircles");
    TypeCircleText(1, CirclePart::kPlunge, "10");
    TypeCircleText(1, CirclePart::kAzimuth, "330");
    TypeCircleText(1, CirclePart::kAngle, "35");
    static_cast<void>(ShowSmallCircle(1, true));
    show.window->UpdatePlotState();
    PictureOf(show, "frmSmallCircle", "small_circles");
    show.Picture(*form.picStereoArea, "small_circle_on_net");
}

/// The dialog that saves a plot with decimals, in an empty folder that the picture names.
void MakeSavePicture(Show& show) {
    const QString folder = "survey";
    if (!QDir::temp().mkdir(folder)) {
        std::cerr << "cannot make " << QDir::temp().filePath(folder).toStdString() << "\n";
        return;
    }
    PathQuestion question;
    question.title = "Save As";
    question.folder = QDir::temp().filePath(folder).toStdString();
    question.fileName = "outcrop_model.txt";
    question.filter = gDataFileFilter;
    question.filterIndex = 2;
    QTimer::singleShot(0, [&show] {
        if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            dialog->setSidebarUrls({});
            show.Picture(*dialog, "save_whole_degrees");
            dialog->reject();
        }
    });
    WidgetPrompts prompts(*show.window);
    static_cast<void>(prompts.AskPlotPath(question, true));
    static_cast<void>(QDir::temp().rmdir(folder));
}

void MakeDialogPictures(const QString& examples, const QString& folder, const QString& theme) {
    Show show(examples, folder, theme);
    show.Open("folded_bedding.txt");
    show.Open("fold_hinges_polar.txt");
    frmPreferences preferences(show.window.get(), kPlotStylePage);
    preferences.show();
    show.Picture(preferences, "preferences");
    frmPreferences general(show.window.get(), kGeneralPage);
    general.show();
    show.Picture(general, "preferences_general");
    frmPrintDialog print(show.window.get());
    print.show();
    show.Picture(print, "printing");
    MakeSavePicture(show);
}

/// The window of fabric plots of two plots, at its usual size and smaller.
void MakeFabricPictures(Show& show) {
    show.Open("fold_hinges_polar.txt");
    show.Press("mnuViewFabric");
    auto* window = show.window->findChild<frmFabricPlots*>("frmFabricPlots");
    window->chkAllPlots->setChecked(true);
    show.Picture(*window, "fabric_plots");
    window->optDiagram[0]->setChecked(true);
    window->resize(window->minimumSizeHint());
    show.Picture(*window, "fabric_plots_small");
}

/// Previews follow changes after a while.
void WaitForPreview() {
    QEventLoop wait;
    QTimer::singleShot(400, &wait, &QEventLoop::quit);
    wait.exec();
}

/// The export of poles on their contours.
void MakeExportPicture(Show& show) {
    RecordFigure figure = ActiveRecord();
    FigureLayer poles;
    figure.Layers = WithToggledLayer(ActivePlot(), poles);
    ChangeFigure(gActivePlot, figure);
    frmExportFigure dialog(show.window.get(), ActivePlot());
    dialog.show();
    dialog.resize(760, 560);
    WaitForPreview();
    show.Picture(dialog, "export");
}

/// The window with both panels, on poles over their densities, at two sizes.
void MakePanelPictures(const QString& examples, const QString& folder, const QString& theme) {
    Show show(examples, folder, theme);
    show.Open("folded_bedding.txt");
    RecordDensityView view;
    view.DensityMethod = kDensityByKernel;
    view.DensityUnit = kMultiplesUnit;
    view.ContourPicture = kLinesOverBands;
    ActiveRecord().PlotSymbolMode = kContours;
    ChangeDensities(gActivePlot, view);
    RecordFigure figure = ActiveRecord();
    figure.Layers = WithToggledLayer(ActivePlot(), FigureLayer());
    ChangeFigure(gActivePlot, figure);
    show.Press("mnuViewLayers");
    show.Press("mnuViewProperties");
    show.window->findChild<LayerPanel*>("panLayers")->ChoosePlace(2);
    const auto at = [&show](int width, int height, const QString& name) {
        show.window->resize(width, height);
        QApplication::processEvents();
        static_cast<frmPlotForms&>(FormOf(gActivePlot)).showMaximized();
        show.Picture(*show.window, name);
    };
    at(1366, 768, "panels");
    at(1600, 1000, "panels_large");
    show.Press("mnuViewTexts");
    at(1366, 768, "panel_texts");
}

/// The window of figures with two plots and their statistics, at its usual size and smaller.
void MakeSheetPictures(const QString& examples, const QString& folder, const QString& theme) {
    Show show(examples, folder, theme);
    show.Open("folded_bedding.txt");
    show.Press("mnuFileFigure");
    auto* window = show.window->findChild<frmFigureSheet*>("frmFigureSheet");
    const auto add = [window](PanelKind kind) {
        window->cboKind->setCurrentIndex(static_cast<int>(kind));
        window->cmdAdd->click();
    };
    add(PanelKind::Plot);
    add(PanelKind::Statistics);
    show.Open("fold_hinges_polar.txt");
    add(PanelKind::Plot);
    WaitForPreview();
    show.Picture(*window, "figure_sheet");
    window->resize(window->minimumSizeHint());
    WaitForPreview();
    show.Picture(*window, "figure_sheet_small");
}

/// Densities and confidence regions with their dialogs, over the example of a fold.
void MakeAnalysisPictures(const QString& examples, const QString& folder, const QString& theme) {
    Show show(examples, folder, theme);
    show.Open("folded_bedding.txt");
    RecordDensityView view;
    view.DensityMethod = kDensityByKambExponential;
    view.DensityUnit = kSigmaUnit;
    view.LevelRule = kEvenLevels;
    view.ContourPicture = kLinesOverBands;
    view.BandPalette = 1;
    view.ShowMaxima = kTrue;
    ActiveRecord().PlotSymbolMode = kContours;
    ChangeDensities(gActivePlot, view);
    show.Press("mnuViewDensities");
    PictureOf(show, "frmDensities", "densities");
    RecordRegions regions;
    regions.RegionsAbout = kRegionOfAxis | kRegionOfGirdle;
    ChangeRegions(gActivePlot, regions);
    show.Press("mnuViewRegions");
    PictureOf(show, "frmConfidenceRegions", "confidence_regions");
    auto& form = static_cast<frmPlotForms&>(FormOf(gActivePlot));
    show.Picture(*form.picStereoArea, "densities_on_net");
    MakeExportPicture(show);
    MakeFabricPictures(show);
    show.Press("mnuViewTests");
    PictureOf(show, "frmStatisticalTests", "tests");
    if (QWidget* tests = TopLevel("frmStatisticalTests")) {
        tests->resize(1000, 760);
    }
    PictureOf(show, "frmStatisticalTests", "tests_large");
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: make_screenshots EXAMPLES FOLDER\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    const QPalette light = QApplication::palette();
    MakePictures(argv[1], argv[2], "light");
    MakeEditingPictures(argv[1], argv[2], "light");
    MakeDialogPictures(argv[1], argv[2], "light");
    MakeAnalysisPictures(argv[1], argv[2], "light");
    MakePanelPictures(argv[1], argv[2], "light");
    MakeSheetPictures(argv[1], argv[2], "light");
    QApplication::setPalette(DarkPalette());
    MakePictures(argv[1], argv[2], "dark");
    MakeAnalysisPictures(argv[1], argv[2], "dark");
    MakePanelPictures(argv[1], argv[2], "dark");
    MakeSheetPictures(argv[1], argv[2], "dark");
    QApplication::setPalette(light);
    return 0;
}
