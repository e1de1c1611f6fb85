// SPDX-License-Identifier: MIT

#include "shell/main/tool_strip.h"

#include "core/settings_value.h"
#include "shell/controls/icons.h"
#include "shell/main/commands.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

namespace quandrel {

namespace {

struct StripButton {
    const char* name; ///< empty for a gap
    const char* command;
};

constexpr StripButton kButtons[] = {
    {"cmdOpenButton", "mnuFileLoad_0"},
    {"cmdMergeButton", "mnuFileLoad_1"},
    {"cmdOverlayButton", "mnuFileLoad_2"},
    {"cmdBlankButton", "mnuFileLoad_3"},
    {"cmdSaveButton", "mnuFileSave_0"},
    {"cmdPrintButton", "mnuFilePrint_0"},
    {"", ""},
    {"grpPlotTypeButton_0", "mnuPlotType_0"},
    {"grpPlotTypeButton_1", "mnuPlotType_1"},
    {"grpPlotTypeButton_2", "mnuPlotType_2"},
    {"", ""},
    {"grpDataTypeButton_0", "mnuPlotDataType_0"},
    {"grpDataTypeButton_1", "mnuPlotDataType_1"},
    {"grpDataTypeButton_2", "mnuPlotDataType_2"},
    {"", ""},
    {"grpSymbolButton_0", "mnuPlotSymbols_0"},
    {"grpSymbolButton_1", "mnuPlotSymbols_1"},
    {"grpSymbolButton_2", "mnuPlotSymbols_2"},
    {"grpSymbolButton_3", "mnuPlotSymbols_3"},
    {"grpSymbolButton_4", "mnuPlotSymbols_4"},
    {"grpSymbolButton_5", "mnuPlotSymbols_5"},
    {"grpSymbolButton_6", "mnuPlotSymbols_6"},
    {"panGridDensity", ""},
    {"", ""},
    {"grpPlotSecondary_0", "mnuPlotSecondary"},
    {"grpPlotSecondary_1", "mnuPlotSymbols_8"},
    {"grpSymbolButton_8", "mnuPlotSymbols_9"},
    {"grpSymbolButton_9", "mnuPlotSymbols_10"},
    {"grpSymbolButton_10", "mnuPlotSymbols_11"},
    {"", ""},
    {"grpDisplayButton_0", "mnuViewLegends_0"},
    {"grpDisplayButton_1", "mnuViewLegends_1"},
    {"grpDisplayButton_2", "mnuViewLegends_2"},
    {"grpDisplayButton_3", "mnuViewLegends_3"},
    {"grpDisplayButton_4", "mnuViewLegends_4"},
    {"grpDisplayButton_5", "mnuViewLegends_5"},
    {"grpDisplayButton_6", "mnuViewLegends_6"},
    {"grpDisplayButton_7", "mnuViewLegends_7"},
    {"grpDisplayButton_8", "mnuViewLegends_8"},
    {"grpAnnotationButton", "mnuPlotAnnotation"},
    {"", ""},
    {"cmdAddPoints", "mnuEditAddMode"},
    {"cmdLasso", "mnuEditLasso"},
    {"cmdRotateButton", "mnuPlotRotate"},
    {"cmdSmallCircle", "mnuEditSmallCircles"},
    {"cmdIntersecLinButton", "mnuPlotIntersection"},
    {"cmdClassifToggle", "mnuViewClassification"},
};

constexpr int kIconSize = 20;
constexpr int kSliderWidth = 90;

} // namespace

ToolStrip::ToolStrip(const Commands& commands)
    : QToolBar("Toolbar") {
    setObjectName("panToolbarBox");
    setIconSize(QSize(kIconSize, kIconSize));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    AddGridSlider();
    for (const StripButton& button : kButtons) {
        const QString name = button.name;
        if (name.isEmpty()) {
            addSeparator();
        } else if (name == panGridDensity->objectName()) {
            addWidget(panGridDensity);
        } else {
            AddButton(commands, button.name, button.command);
        }
    }
}

void ToolStrip::AddButton(const Commands& commands, const char* name, const char* command) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setDefaultAction(&commands.Of(command));
    button->setAccessibleName(commands.Of(command).whatsThis());
    button->setAutoRaise(true);
    addWidget(button);
}

void ToolStrip::AddGridSlider() {
    panGridDensity = new QWidget;
    panGridDensity->setObjectName("panGridDensity");
    panGridDensity->setToolTip("Set contour grid density");
    sldGridDensity = new QSlider(Qt::Horizontal);
    sldGridDensity->setObjectName("sldGridDensity");
    sldGridDensity->setAccessibleName("Set contour grid density");
    sldGridDensity->setRange(kCoarsestGrid, kFinestGrid);
    sldGridDensity->setSingleStep(kGridStep);
    sldGridDensity->setPageStep(2 * kGridStep);
    sldGridDensity->setFixedWidth(kSliderWidth);
    auto* layout = new QHBoxLayout(panGridDensity);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(sldGridDensity);
}

void ToolStrip::ShowGrid() {
    const QSignalBlocker quiet(*sldGridDensity);
    if (!sldGridDensity->isSliderDown()) {
        sldGridDensity->setValue(gSettings.gridSize);
    }
    panGridDensity->setToolTip("Set contour grid density (" + QString::number(gSettings.gridSize)
                               + ")");
}

} // namespace quandrel
