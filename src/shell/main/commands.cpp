// SPDX-License-Identifier: MIT

#include "shell/main/commands.h"

#include "core/plot_store.h"
#include "shell/controls/icons.h"

#include <QKeySequence>

namespace quandrel {

namespace {

enum class Kind { Plain, OnOff };

struct CommandSpec {
    const char* name;
    const char* caption;
    const char* tip; ///< tip of the button; if empty, the caption without its marks
    const char* icon;
    const char* shortcut;
    Kind kind = Kind::Plain;
    const char* otherShortcut = "";
};

constexpr const char* kNone = "";

constexpr CommandSpec kCommands[] = {
    // File
    {"mnuFileLoad_0", "Open &New Plot...", "Open a data file as a new plot", "open", "Ctrl+O"},
    {"mnuFileLoad_1", "&Merge Data...", "Add a file's data to this plot as the same data set",
     "merge", "Ctrl+M"},
    {"mnuFileLoad_2", "&Overlay Data...", "Add a file's data to this plot with symbols of its own",
     "overlay", "Ctrl+L"},
    {"mnuFileLoad_3", "&Blank Plot", "Open blank plot", "blank", "Ctrl+N"},
    {"mnuFileLoad_4", "Open Wor&kspace...", "Open the plots of a workspace", "workspace_open",
     kNone},
    {"mnuFileSave_0", "&Save", "Save this plot", "save", "Ctrl+S"},
    {"mnuFileSave_1", "Sa&ve As...", "Save this plot to another file", "save_as", "Ctrl+Shift+S"},
    {"mnuFileSave_2", "Save &All", "Save all plots that have changed", "save_all", kNone},
    {"mnuFileSave_3", "Save &Workspace...", "Save the list of the open plots", "workspace_save",
     kNone},
    {"mnuFileClose_0", "&Close", "Close this plot", "close", "Ctrl+W"},
    {"mnuFileClose_1", "Clos&e All", "Close all plots", kNone, "Ctrl+Shift+W"},
    {"mnuFileFormat", "Data &Format...", "File structure and data conventions", "format", "F6"},
    {"mnuFileStruct", "Data &Format...", "File structure and data conventions", "format", kNone},
    {"mnuFileDirectory", "Defa&ult Data Folder...", "Where file dialogs start", "folder", kNone},
    {"mnuFileExport", "E&xport Image...", "Save a picture of this plot as PNG, SVG, PDF or TIFF",
     "export", "Ctrl+E"},
    {"mnuFileFigure", "New Fi&gure...", "Several plots as panels of one page", kNone, kNone},
    {"mnuFileCopyImage_0", "Copy plot &image to Clipboard", kNone, "copy", "Ctrl+Shift+C"},
    {"mnuFileCopyImage_1", "Copy legen&d image to Clipboard", kNone, "legend", kNone},
    {"mnuFileCopyStats_0", "Copy &statistics to Clipboard", kNone, "statistics", kNone},
    {"mnuFileCopyStats_1", "Copy &advanced statistics to Clipboard", kNone, kNone, kNone},
    {"mnuFilePrint_0", "&Print...", "Print plots", "print", "Ctrl+P"},
    {"mnuFilePrint_1", "Prin&ter Setup...", "Choose printer, paper and orientation", "print",
     kNone},
    {"mnuFileMILink", "Lin&k to Mapinfo...", "Link to a map", "map_link", kNone},
    {"mnuFileQuit", "&Quit", "Leave the program", "quit", "Ctrl+Q"},
    // Edit
    {"mnuEditUndo", "&Undo", "Undo the last edit", "undo", "Ctrl+Z"},
    {"mnuEditRedo", "Redo", "Redo the edit that was undone", "redo", "Ctrl+Shift+Z", Kind::Plain,
     "Ctrl+Y"},
    {"mnuEditUndoRotation", "U&ndo Rotation", "Put the data back as they were before the rotation",
     kNone, kNone},
    {"mnuEditSelection_1", "Cu&t", kNone, "cut", "Ctrl+X"},
    {"mnuEditSelection_2", "&Copy pts", kNone, "copy", "Ctrl+C"},
    {"mnuEditSelection_3", "Copy all &fields", kNone, kNone, kNone},
    {"mnuEditSelection_4", "&Paste", kNone, "paste", "Ctrl+V"},
    {"mnuEditSelection_5", "&Delete", kNone, "delete", "Del"},
    {"mnuEditSelection_6", "Change &Symbol...", kNone, "symbol", kNone},
    {"mnuEditSelection_7", "Select &All", kNone, "select_all", "Ctrl+A"},
    {"mnuEditSelection_8", "Unse&lect", kNone, "unselect", kNone},
    {"mnuEditAdd", "Add Po&int...", kNone, kNone, kNone},
    {"mnuEditAddMode", "Add Points &with a Plain Press",
     "Add points: a plain press on the net does what a press with Alt does", "add_points", kNone,
     Kind::OnOff},
    {"mnuEditLasso", "Select &by a Lasso",
     "Lasso: draw round the points to be selected (or hold L)", "lasso", kNone, Kind::OnOff},
    {"mnuEditGirdle", "To manually edit girdles...", kNone, kNone, kNone},
    {"mnuEditGirdles", "Edit &Girdles...", kNone, "girdles", kNone},
    {"mnuEditSmallCircles", "S&mall Circles...", "Open small circle dialog box", "small_circle",
     kNone},
    {"mnuEditRemoveOverlay", "&Remove Last Overlay", kNone, kNone, kNone},
    {"mnuEditRemoveAnnotation", "Remo&ve Annotations", kNone, kNone, kNone},
    {"mnuEditRefresh", "Refres&h", "Redraw this plot", "refresh", "F5"},
    {"mnuEditReCalculate", "R&ecalculate", "Recompute this plot and redraw it", "recalculate",
     "Ctrl+F5"},
    {"mnuEditFileFormat", "Data F&ormat...", "File structure and data conventions", "format",
     kNone},
    {"mnuEditPreferences", "Preferences...", kNone, "preferences", "Ctrl+,"},
    // Plot
    {"mnuPlotType_0", "E&qual area  projection", "Equal Area plot", "equal_area", kNone,
     Kind::OnOff},
    {"mnuPlotType_1", "Eq&ual a&ngle projection", "Equal angle plot", "equal_angle", kNone,
     Kind::OnOff},
    {"mnuPlotType_2", "&Rose Diagram", "Rose diagram", "rose", kNone, Kind::OnOff},
    {"mnuPlotDataType_0", "&Planes", "Planes", "planes", kNone, Kind::OnOff},
    {"mnuPlotDataType_1", "&Lines", "Lines", "lines", kNone, Kind::OnOff},
    {"mnuPlotDataType_2", "P&olar Lines", "Polar Lines", "polar_lines", kNone, Kind::OnOff},
    {"mnuPlotSecondary", "Plot Secondar&y Data", "Use Secondary Data as base plot",
     "secondary_base", kNone, Kind::OnOff},
    {"mnuPlotDecimals", "Use Deci&mals",
     "Results, drawings and readouts of this plot use decimals of orientations", kNone, kNone,
     Kind::OnOff},
    {"mnuPlotFormulas_0", "As in &Preferences",
     "Results of this plot follow the formulas of Preferences > General", kNone, kNone,
     Kind::OnOff},
    {"mnuPlotFormulas_1", "&Own Definitions",
     "Results of this plot follow Quandrel's own definitions", kNone, kNone, Kind::OnOff},
    {"mnuPlotFormulas_2", "&Textbook", "Results of this plot follow the formulas of the textbooks",
     kNone, kNone, Kind::OnOff},
    {"mnuPlotStyle_0", "&Classic", "Sizes in pixels, from the preferences", kNone, kNone,
     Kind::OnOff},
    {"mnuPlotStyle_1", "&Screen", "Points and millimetres, for the window", kNone, kNone,
     Kind::OnOff},
    {"mnuPlotStyle_2", "&Journal", "Points and millimetres, for print", kNone, kNone, Kind::OnOff},
    {"mnuPlotStyle_3", "&Grey", "Journal without colour", kNone, kNone, Kind::OnOff},
    {"mnuPlotStyleOpen", "&Open...", "Gives the plot the style of a file", kNone, kNone,
     Kind::OnOff},
    {"mnuPlotStyleSave", "Sa&ve As...", "Writes the style of the plot into a file", kNone, kNone},
    {"mnuPlotStyleNew", "Use for &New Plots", "New plots begin with the style of this one", kNone,
     kNone},
    {"mnuPlotSymbols_0", "Great C&ircles", "Cyclographic plot", "great_circles", kNone,
     Kind::OnOff},
    {"mnuPlotSymbols_1", "Point &symbols", "Points only", "points", kNone, Kind::OnOff},
    {"mnuPlotSymbols_2", "&Beta intersections", "Beta intersections of great circles", "beta",
     kNone, Kind::OnOff},
    {"mnuPlotSymbols_3", "&Density symbols at points", "Point density", "point_density", kNone,
     Kind::OnOff},
    {"mnuPlotSymbols_4", "&Gridded density (/1% area) symbols", "Gridded density", "grid_density",
     kNone, Kind::OnOff},
    {"mnuPlotSymbols_5", "&Contours of density/1% area", "Contours of density", "contours", kNone,
     Kind::OnOff},
    {"mnuPlotSymbols_6", "Bot&h contours and gridded symbols", "Contours and gridded density",
     "contours_grid", kNone, Kind::OnOff},
    {"mnuPlotSymbols_8", "&Overlay Secondary on Primary", "Overlay Secondary data",
     "secondary_overlay", kNone, Kind::OnOff},
    {"mnuPlotSymbols_9", "Secondary line slip arrows alone", "Slip arrows alone", "slip_arrows",
     kNone, Kind::OnOff},
    {"mnuPlotSymbols_10", "Secondary slip arrows on planes", "Slip arrows on plane girdles",
     "slip_on_planes", kNone, Kind::OnOff},
    {"mnuPlotSymbols_11", "Slip &arrows on poles to planes", "Slip arrows on poles to planes",
     "slip_on_poles", kNone, Kind::OnOff},
    {"mnuPlotIntersection", "Ne&w plot of intersection Lines",
     "Interesection line plot using primary and secondary planes", "intersections", kNone},
    {"mnuKinematicPlots_0", "P && T &kinematic axes on single plot", kNone, "kinematic", kNone},
    {"mnuKinematicPlots_1", "P && T kin&ematic axes on separate plots", kNone, kNone, kNone},
    {"mnuKinematicPlots_2", "Contoured P && T kinematic a&xes", kNone, kNone, kNone},
    {"mnuPlotRotate", "Rotate &Data...", "Rotate data...", "rotate", kNone},
    {"mnuPlotAnnotation", "Annotation Poin&ts", "Show annotation points", "annotations", kNone,
     Kind::OnOff},
    // View
    {"mnuViewLegends_0", "Show &girdle panel", "Fit girdles...", "girdles", kNone, Kind::OnOff},
    {"mnuViewLegends_1", "Show &fabric label", "Show Fabric text", "fabric", kNone, Kind::OnOff},
    {"mnuViewLegends_2", "Show data &description", "Show description", "description", kNone,
     Kind::OnOff},
    {"mnuViewLegends_3", "Show &legend", "Show legend", "legend", kNone, Kind::OnOff},
    {"mnuViewLegends_4", "Show &number of data", "Show data number", "number", kNone, Kind::OnOff},
    {"mnuViewLegends_5", "Show data &statistics", "Show statistics", "statistics", kNone,
     Kind::OnOff},
    {"mnuViewLegends_6", "Show &Rose Scale numbers", "Show Rose scale", "rose_scale", kNone,
     Kind::OnOff},
    {"mnuViewLegends_7", "Show Rose &Mean Arrow", "Show Rose Mean arrow", "rose_mean", kNone,
     Kind::OnOff},
    {"mnuViewLegends_8", "Show Rose Mean.Dev. &Arc", "Show 95% confidence arc for mean direction",
     "rose_arc", kNone, Kind::OnOff},
    {"mnuViewAnnotations", "Show Ann&otations", kNone, "annotations", kNone},
    {"mnuViewTests", "Tests...",
     "Statistical tests of the rows: uniformity, symmetry, cluster or girdle, two samples", kNone,
     kNone},
    {"mnuViewRegions", "Confidence Regions...",
     "Regions where the axis, the girdle's pole or the mean of the population may lie", kNone,
     kNone},
    {"mnuViewBestGirdle", "Show best girdle and its axis",
     "Draw the girdle that fits the rows best, and the axis at right angles to it", "girdles",
     kNone, Kind::OnOff},
    {"mnuViewConfidence", "S&how 95% confidence cone",
     "Draw the 95% confidence cone of the principal axis", "small_circle", kNone, Kind::OnOff},
    {"mnuViewAdvStats", "Use Advanced Statistics Box", kNone, "advanced_stats", kNone},
    {"mnuViewDensities", "Dens&ities...",
     "Method, unit, levels and picture of the densities of this plot", "densities", kNone},
    {"mnuViewFabric", "Fa&bric Plots...",
     "Woodcock's diagram and the triangle of P, G and R of plots, overlays and classes", "fabric",
     kNone},
    {"mnuViewClassification", "&Classification", "Toggle the stereo classification dialog",
     "classify", kNone, Kind::OnOff},
    {"mnuViewUnplotted", "&Unplotted Lines...", "The lines of the files that hold no data",
     "lines_not_plotted", kNone},
    {"mnuViewRawData", "Ra&w Data...", kNone, "raw_data", kNone},
    {"mnuViewPlotData", "&Plotted Data...", kNone, "plot_data", kNone},
    {"mnuViewToolbar", "Hide &Toolbar", kNone, "toolbar", kNone},
    {"mnuViewLayers", "Data and Layers", "The layers of the plot, and its data", kNone, kNone,
     Kind::OnOff},
    {"mnuViewProperties", "Properties", "The properties of a layer", kNone, kNone, Kind::OnOff},
    {"mnuViewTexts", "Statistics and Description",
     "Statistics, fabric and description of the plot in a panel; closed, they are beside the net",
     kNone, kNone, Kind::OnOff},
    {"mnuViewLabels", "Names below Buttons", "The names of commands below their buttons", kNone,
     kNone, Kind::OnOff},
    {"mnuViewPreferences", "Pr&eferences...", kNone, "preferences", kNone},
    // Map, windows, help
    {"mnuMapinfo_0", "Lin&k to Mapinfo...", kNone, "map_link", kNone},
    {"mnuMapinfo_1", "Clos&e MapInfo Link", kNone, kNone, kNone},
    {"mnuMapinfoToolbar", "Show MapInfo &Toolbar", kNone, "toolbar", kNone, Kind::OnOff},
    {"mnuWindow_0", "&Cascade", kNone, "cascade", kNone},
    {"mnuWindow_1", "Tile &Vertically", kNone, "tile_vertical", kNone},
    {"mnuWindow_2", "Tile &Horizontally", kNone, "tile_horizontal", kNone},
    {"mnuWindow_3", "&Arrange Icons", kNone, "arrange", kNone},
    {"mnuHelpQuandrel_0", "&Contents...", "Help", "help", "F1"},
    {"mnuHelpQuandrel_1", "&How to use Help...", kNone, kNone, kNone},
    {"mnuHelpCommands", "&Search Commands...", "Finds a command by words of its name", kNone,
     "Ctrl+K"},
    {"mnuHelpAbout", "&About Quandrel...", kNone, "about", kNone},
};

/// The keys of a command; menus show the first. Redo also has the other usual key.
QList<QKeySequence> ShortcutsOf(const CommandSpec& spec) {
    QList<QKeySequence> keys;
    for (const char* key : {spec.shortcut, spec.otherShortcut}) {
        if (*key != '\0') {
            keys << QKeySequence(key);
        }
    }
    return keys;
}

/// A caption without its mnemonic.
QString Plain(const QString& caption) {
    QString plain = caption;
    plain.replace("&&", "\x01").remove('&').replace('\x01', '&');
    return plain.remove("...");
}

} // namespace

Commands::Commands(QObject* parent)
    : QObject(parent) {
    for (const CommandSpec& spec : kCommands) {
        auto* action = new QAction(spec.caption, this);
        action->setObjectName(spec.name);
        action->setIcon(IconOf(spec.icon));
        const QString tip = *spec.tip != '\0' ? QString(spec.tip) : Plain(spec.caption);
        const QKeySequence shortcut(spec.shortcut);
        action->setShortcuts(ShortcutsOf(spec));
        action->setToolTip(shortcut.isEmpty() ? tip : tip + " (" + shortcut.toString() + ")");
        // Not a status tip: that would cover the information line under the pointer.
        action->setWhatsThis(tip);
        action->setCheckable(spec.kind == Kind::OnOff);
        action->setEnabled(false);
        actions_[spec.name] = action;
    }
}

QAction& Commands::Of(const QString& name) const {
    return *actions_.at(name);
}

void Commands::Connect(const QString& name, const std::function<void()>& work) {
    working_.insert(name);
    QAction& action = Of(name);
    action.setEnabled(true);
    connect(&action, &QAction::triggered, this, [this, work] {
        if (!gBusy) {
            work();
        }
        Q_EMIT Done();
    });
}

void Commands::Enable(const QString& name, bool enabled) {
    Of(name).setEnabled(enabled && working_.contains(name));
}

void Commands::Enable(const QString& name, bool enabled, bool down) {
    Enable(name, enabled);
    Of(name).setChecked(down);
}

void Commands::Explain(const std::function<QString(const QString& name)>& reasonOf) {
    for (const auto& [name, action] : actions_) {
        if (const auto before = explained_.find(name); before != explained_.end()) {
            action->setToolTip(before->second);
            explained_.erase(before);
        }
        const QString reason = action->isEnabled() ? QString() : reasonOf(name);
        if (!reason.isEmpty()) {
            explained_[name] = action->toolTip();
            action->setToolTip(action->toolTip() + "\n" + reason);
        }
    }
}

} // namespace quandrel
