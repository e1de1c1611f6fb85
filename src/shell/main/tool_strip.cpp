// SPDX-License-Identifier: MIT

#include "shell/main/tool_strip.h"

#include "core/settings_value.h"
#include "shell/controls/flow_layout.h"
#include "shell/controls/icons.h"
#include "shell/main/commands.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include <algorithm>

namespace quandrel {

namespace {

struct StripButton {
    const char* name; ///< empty for a gap
    const char* command;
    const char* label = ""; ///< below the button; empty for none
};

constexpr StripButton kButtons[] = {
    {"cmdOpenButton", "mnuFileLoad_0", "Open"},
    {"cmdMergeButton", "mnuFileLoad_1", "Merge"},
    {"cmdOverlayButton", "mnuFileLoad_2", "Overlay"},
    {"cmdBlankButton", "mnuFileLoad_3", "Blank"},
    {"cmdSaveButton", "mnuFileSave_0", "Save"},
    {"cmdPrintButton", "mnuFilePrint_0", "Print"},
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
    {"cmdRotateButton", "mnuPlotRotate", "Rotate"},
    {"cmdSmallCircle", "mnuEditSmallCircles"},
    {"cmdIntersecLinButton", "mnuPlotIntersection"},
    {"cmdClassifToggle", "mnuViewClassification", "Classify"},
};

constexpr int kIconSize = 20;
constexpr int kSliderWidth = 90;
constexpr int kGap = 1;

} // namespace

ToolStrip::ToolStrip(const Commands& commands)
    : QToolBar("Toolbar")
    , rows_(new QWidget) {
    setObjectName("panToolbarBox");
    setIconSize(QSize(kIconSize, kIconSize));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    rows_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    new FlowLayout(rows_, kGap);
    AddGridSlider();
    for (const StripButton& button : kButtons) {
        const QString name = button.name;
        if (name.isEmpty()) {
            AddGap();
        } else if (name == panGridDensity->objectName()) {
            rows_->layout()->addWidget(panGridDensity);
        } else {
            AddButton(commands, button.name, button.command, button.label);
        }
    }
    // A strip may be as narrow as its widest button; the window is not widened by it.
    rows_->setMinimumWidth(rows_->layout()->minimumSize().width());
    addWidget(rows_);
    FitRows();
}

void ToolStrip::AddButton(const Commands& commands, const char* name, const char* command,
                          const char* label) {
    auto* button = new QToolButton;
    QAction& action = commands.Of(command);
    button->setObjectName(name);
    if (*label != '\0') {
        action.setIconText(label);
        labelled_.push_back(button);
    }
    button->setDefaultAction(&action);
    button->setIconSize(iconSize());
    button->setAccessibleName(action.whatsThis());
    button->setAutoRaise(true);
    rows_->layout()->addWidget(button);
}

void ToolStrip::AddGap() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFixedSize(2 * kGap + 5, kIconSize);
    rows_->layout()->addWidget(line);
}

void ToolStrip::ShowLabels(bool shown) {
    for (QToolButton* button : labelled_) {
        button->setToolButtonStyle(shown ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
    }
    FitRows();
}

void ToolStrip::resizeEvent(QResizeEvent* event) {
    QToolBar::resizeEvent(event);
    FitRows();
}

/// Makes the strip as high as its rows need.
void ToolStrip::FitRows() {
    rows_->layout()->invalidate();
    const int frame = layout()->contentsMargins().left() + layout()->contentsMargins().right();
    const int height = rows_->layout()->heightForWidth(std::max(width() - frame, 1));
    if (rows_->height() != height || rows_->minimumHeight() != height) {
        rows_->setFixedHeight(height);
        updateGeometry();
    }
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
