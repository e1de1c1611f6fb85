// SPDX-License-Identifier: MIT

#include "shell/main/main_menus.h"

#include "core/path_names.h"
#include "core/settings.h"
#include "shell/controls/plain_tip.h"
#include "shell/main/commands.h"

#include <QMenuBar>

#include <initializer_list>

namespace quandrel {

namespace {

constexpr const char* kGap = "";

/// Adds commands to a menu; an empty name is a separator.
void Add(QMenu& menu, const Commands& commands, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (*name == '\0') {
            menu.addSeparator();
        } else {
            menu.addAction(&commands.Of(name));
        }
    }
}

} // namespace

MainMenus::MainMenus(QWidget& owner, const Commands& commands)
    : owner_(owner) {
    MakeFileMenu(commands);
    MakeEditMenu(commands);
    MakePlotMenu(commands);
    MakeViewMenu(commands);
    MakeOtherMenus(commands);
    RefreshRecent();
}

QMenu* MainMenus::MakeMenu(const char* name, const char* caption) {
    auto* menu = new QMenu(caption, &owner_);
    menu->setObjectName(name);
    menu->setToolTipsVisible(true);
    return menu;
}

void MainMenus::MakeFileMenu(const Commands& commands) {
    mnuFile = MakeMenu("mnuFile", "&File");
    Add(*mnuFile, commands,
        {"mnuFileLoad_0", "mnuFileLoad_1", "mnuFileLoad_2", "mnuFileLoad_3", "mnuFileLoad_4", kGap,
         "mnuFileSave_0", "mnuFileSave_1", "mnuFileSave_2", "mnuFileSave_3", kGap, "mnuFileClose_0",
         "mnuFileClose_1", kGap, "mnuFileFormat", "mnuFileDirectory", kGap, "mnuFileExport",
         "mnuFileFigure"});
    QMenu* copy = MakeMenu("mnuFileCopy", "Cop&y");
    Add(*copy, commands,
        {"mnuFileCopyImage_0", "mnuFileCopyImage_1", kGap, "mnuFileCopyStats_0",
         "mnuFileCopyStats_1"});
    mnuFile->addMenu(copy);
    Add(*mnuFile, commands,
        {kGap, "mnuFilePrint_0", "mnuFilePrint_1", kGap, "mnuFileMILink", kGap});
    for (int i = 0; i < kRecentItems; ++i) {
        auto* item = new QAction(mnuFile);
        item->setObjectName("mnuFilePrevious_" + QString::number(i + 1));
        mnuFile->addAction(item);
        mnuFilePrevious[static_cast<std::size_t>(i)] = item;
    }
    Add(*mnuFile, commands, {kGap, "mnuFileQuit"});
}

void MainMenus::MakeEditMenu(const Commands& commands) {
    mnuEdit = MakeMenu("mnuEdit", "&Edit");
    Add(*mnuEdit, commands,
        {"mnuEditUndo",
         "mnuEditRedo",
         "mnuEditUndoRotation",
         kGap,
         "mnuEditSelection_1",
         "mnuEditSelection_2",
         "mnuEditSelection_3",
         "mnuEditSelection_4",
         "mnuEditSelection_5",
         "mnuEditSelection_6",
         "mnuEditSelection_7",
         "mnuEditSelection_8",
         kGap,
         "mnuEditAdd",
         "mnuEditAddMode",
         "mnuEditLasso",
         "mnuEditGirdle",
         "mnuEditGirdles",
         "mnuEditSmallCircles",
         kGap,
         "mnuEditRemoveOverlay",
         "mnuEditRemoveAnnotation",
         kGap,
         "mnuEditRefresh",
         "mnuEditReCalculate",
         kGap,
         "mnuEditFileFormat",
         "mnuEditPreferences"});
}

void MainMenus::MakePlotMenu(const Commands& commands) {
    mnuPlot = MakeMenu("mnuPlot", "&Plot");
    Add(*mnuPlot, commands,
        {"mnuPlotType_0", "mnuPlotType_1", "mnuPlotType_2", kGap, "mnuPlotDataType_0",
         "mnuPlotDataType_1", "mnuPlotDataType_2", kGap, "mnuPlotSecondary", "mnuPlotDecimals"});
    QMenu* formulas = MakeMenu("mnuPlotFormulas", "&Formulas");
    Add(*formulas, commands, {"mnuPlotFormulas_0", "mnuPlotFormulas_1", "mnuPlotFormulas_2"});
    mnuPlot->addMenu(formulas);
    QMenu* style = MakeMenu("mnuPlotStyle", "Styl&e");
    Add(*style, commands,
        {"mnuPlotStyle_0", "mnuPlotStyle_1", "mnuPlotStyle_2", "mnuPlotStyle_3", kGap,
         "mnuPlotStyleOpen", "mnuPlotStyleSave", "mnuPlotStyleNew"});
    mnuPlot->addMenu(style);
    mnuPlot->addSeparator();
    QMenu* symbols = MakeMenu("mnuPlotSymbols", "&Symbols");
    Add(*symbols, commands,
        {"mnuPlotSymbols_0", "mnuPlotSymbols_1", "mnuPlotSymbols_2", "mnuPlotSymbols_3",
         "mnuPlotSymbols_4", "mnuPlotSymbols_5", "mnuPlotSymbols_6", kGap, "mnuPlotSymbols_8",
         "mnuPlotSymbols_9", "mnuPlotSymbols_10", "mnuPlotSymbols_11"});
    mnuPlot->addMenu(symbols);
    QMenu* kinematic = MakeMenu("mnuKinematicPlots", "&Kinematic Axes");
    Add(*kinematic, commands,
        {"mnuKinematicPlots_0", "mnuKinematicPlots_1", "mnuKinematicPlots_2"});
    mnuPlot->addMenu(kinematic);
    Add(*mnuPlot, commands, {"mnuPlotIntersection", "mnuPlotRotate", kGap, "mnuPlotAnnotation"});
}

void MainMenus::MakeViewMenu(const Commands& commands) {
    mnuView = MakeMenu("mnuView", "&View");
    Add(*mnuView, commands,
        {"mnuViewLegends_0",
         "mnuViewLegends_1",
         "mnuViewLegends_2",
         "mnuViewLegends_3",
         "mnuViewLegends_4",
         "mnuViewLegends_5",
         "mnuViewLegends_6",
         "mnuViewLegends_7",
         "mnuViewLegends_8",
         "mnuViewAnnotations",
         kGap,
         "mnuViewTests",
         "mnuViewRegions",
         "mnuViewBestGirdle",
         "mnuViewConfidence",
         "mnuViewAdvStats",
         "mnuViewDensities",
         "mnuViewFabric",
         "mnuViewClassification",
         kGap,
         "mnuViewUnplotted",
         "mnuViewRawData",
         "mnuViewPlotData",
         kGap,
         "mnuViewLayers",
         "mnuViewProperties",
         "mnuViewTexts",
         kGap,
         "mnuViewToolbar",
         "mnuViewLabels",
         "mnuViewPreferences"});
}

void MainMenus::MakeOtherMenus(const Commands& commands) {
    mnuPlotTypes = MakeMenu("mnuPlotTypes", "&Plot Types");
    Add(*mnuPlotTypes, commands,
        {"mnuPlotType_0", "mnuPlotType_1", "mnuPlotType_2", kGap, "mnuPlotDataType_0",
         "mnuPlotDataType_1", "mnuPlotDataType_2", kGap, "mnuFileStruct"});
    mnuMapInfoTop = MakeMenu("mnuMapInfoTop", "&MapInfo");
    Add(*mnuMapInfoTop, commands, {"mnuMapinfo_0", "mnuMapinfo_1", kGap, "mnuMapinfoToolbar"});
    mnuWindow = MakeMenu("mnuWindow", "&Window");
    Add(*mnuWindow, commands, {"mnuWindow_0", "mnuWindow_1", "mnuWindow_2", "mnuWindow_3"});
    mnuHelps = MakeMenu("mnuHelps", "&Help");
    Add(*mnuHelps, commands,
        {"mnuHelpQuandrel_0", "mnuHelpQuandrel_1", "mnuHelpCommands", kGap, "mnuHelpAbout"});
}

void MainMenus::FillBar(QMenuBar& bar, bool hasPlots) const {
    // The mnemonics of hidden menus would remain active, so the bar is filled again.
    bar.clear();
    const QList<QMenu*> menus =
        hasPlots
            ? QList<QMenu*>{mnuFile, mnuEdit, mnuPlot, mnuView, mnuMapInfoTop, mnuWindow, mnuHelps}
            : QList<QMenu*>{mnuFile, mnuPlotTypes, mnuMapInfoTop, mnuHelps};
    for (QMenu* menu : menus) {
        bar.addAction(menu->menuAction());
    }
}

void MainMenus::RefreshRecent() const {
    for (std::size_t i = 0; i < mnuFilePrevious.size(); ++i) {
        QAction& item = *mnuFilePrevious[i];
        const bool isUsed = i < gSettings.files.recent.size();
        item.setVisible(isUsed);
        if (isUsed) {
            // The path is separate from the caption, in which "&" marks a key.
            const QString name = QString::fromStdString(FileTitleOf(gSettings.files.recent[i]));
            item.setText("&" + QString::number(i + 1) + " " + QString(name).replace("&", "&&"));
            item.setToolTip(PlainTip(QString::fromStdString(gSettings.files.recent[i])));
            item.setData(QString::fromStdString(gSettings.files.recent[i]));
        }
    }
}

} // namespace quandrel
