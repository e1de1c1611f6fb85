// SPDX-License-Identifier: MIT

#include "shell/plot/frm_plot_forms.h"

#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "derive/derived_plots.h"
#include "drawing/legend.h"
#include "drawing/plot_state.h"
#include "edit/selection/marquee.h"
#include "rose/petal_tip.h"
#include "session/window_places.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/icons.h"
#include "shell/controls/picture_box.h"
#include "shell/plot/window_arrangement.h"
#include "stereo/window_drawing.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QToolButton>

#include <cmath>

namespace quandrel {

namespace {

constexpr const char* kTag = "Tag";
constexpr int kAnnotationTab = 0;
constexpr int kDataTab = 1;
constexpr const char* kDescriptionHint = "Enter description of data if required";
constexpr const char* kFabricHint = "Enter name of structural fabric";

} // namespace

frmPlotForms::frmPlotForms(int slot) {
    setObjectName("frmPlotForms_" + QString::number(slot));
    setProperty(kTag, QString::number(slot));
    setWindowIcon(IconOf("equal_area"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    body_ = new QWidget;
    setWidget(body_);
    MakePictures();
    MakeTexts();
    MakeTabs();
    SetOrder();
    ApplyFonts();
    body_->installEventFilter(this);
    setMinimumSize(240, 200);
    // The keys of the window's own menu belong to the commands of the main window.
    for (QAction* action : systemMenu()->actions()) {
        action->setShortcuts(QList<QKeySequence>());
    }
}

frmPlotForms::~frmPlotForms() {
    delete page_; // it may be in a panel
}

int frmPlotForms::Slot() const {
    return property(kTag).toString().toInt();
}

void frmPlotForms::MakePictures() {
    picStereoArea = new PictureBox(body_);
    picStereoArea->setObjectName("picStereoArea");
    picStereoArea->setAccessibleName("Plot");
    picStereoArea->setFocusPolicy(Qt::StrongFocus);
    picStereoArea->setMouseTracking(true);
    picLegendBox = new PictureBox(body_, kLegendMargin);
    picLegendBox->setObjectName("picLegendBox");
    picLegendBox->setAccessibleName("Legend");
    picLegendBox->installEventFilter(this);
    picLegendBox->onPress = [this](Point, const QMouseEvent& event) {
        if (event.button() != Qt::LeftButton) {
            return false;
        }
        Q_EMIT LegendPressed(event.position() - QPointF(kLegendMargin, kLegendMargin),
                             event.type() == QEvent::MouseButtonDblClick);
        return true;
    };
    const auto redraw = [this] { RepaintPlot(Slot()); };
    picStereoArea->onStale = redraw;
    picStereoArea->onTip = [this](QPointF share) {
        const double x = kPlotScale.left + share.x() * (kPlotScale.right - kPlotScale.left);
        const double y = kPlotScale.top + share.y() * (kPlotScale.bottom - kPlotScale.top);
        return Slot() == gActivePlot ? QString::fromStdString(PetalTip(ActivePlot(), {x, y}))
                                     : QString();
    };
    picLegendBox->onStale = redraw;
}

QPlainTextEdit* frmPlotForms::MakeTextBox(const QString& name, const QString& title) {
    auto* box = new QPlainTextEdit(body_);
    box->setObjectName(name);
    box->setAccessibleName(title);
    box->setAcceptDrops(false);
    box->setTabChangesFocus(true);
    box->installEventFilter(this);
    box->viewport()->installEventFilter(this); // the context menu event arrives at the viewport
    return box;
}

void frmPlotForms::MakeTexts() {
    txtDescBox = MakeTextBox("txtDescBox", "Data description");
    txtDescBox->setPlaceholderText("Data description");
    txtDescBox->setToolTip(kDescriptionHint);
    connect(txtDescBox, &QPlainTextEdit::textChanged, this, [this] {
        description_ = txtDescBox->toPlainText().toStdString();
        DescribePlot(Slot(), description_);
        LayOut(); // the box is as high as its text
    });
    txtStatsBox[0] = MakeTextBox("txtStatsBox_0", "Statistics");
    txtStatsBox[1] = MakeTextBox("txtStatsBox_1", "Advanced statistics");
    for (QPlainTextEdit* box : txtStatsBox) {
        box->setReadOnly(true);
        // Long lines wrap instead of requiring a scroll bar.
        box->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        box->hide();
    }
    txtFabricBox = new QLineEdit(body_);
    txtFabricBox->setObjectName("txtFabricBox");
    txtFabricBox->setAccessibleName("Fabric");
    txtFabricBox->setPlaceholderText("Fabric");
    txtFabricBox->setToolTip(kFabricHint);
    txtFabricBox->setAcceptDrops(false);
    txtFabricBox->installEventFilter(this);
    connect(txtFabricBox, &QLineEdit::textEdited, this, [this](const QString& text) {
        fabric_ = text.toStdString();
        NameFabric(Slot(), fabric_);
    });
    lblNumBox = new QLabel("0 Pts", body_);
    lblNumBox->setObjectName("lblNumBox");
    lblNumBox->setTextFormat(Qt::PlainText);
    lblNumBox->setToolTip("Number of data");
    lblNumBox->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void frmPlotForms::MakeTabs() {
    tabLayers = new QTabBar(body_);
    tabLayers->setObjectName("tabLayers");
    tabLayers->setAccessibleName("Layer under edit");
    tabLayers->setDrawBase(false);
    tabLayers->addTab("Annotations");
    tabLayers->setTabToolTip(kAnnotationTab, "Select Annotation layer for editing");
    tabLayers->addTab("Data Layer");
    NameDataTab();
    tabLayers->setCurrentIndex(kDataTab);
    shpAnnUp = new QLabel(QString(QChar(0x25B2)), body_);
    shpAnnUp->setObjectName("shpAnnUp");
    shpAnnUp->setToolTip("The annotation layer is under edit");
    shpAnnUp->setAlignment(Qt::AlignCenter);
    shpAnnUp->setStyleSheet("color: #d1402f");
    shpAnnUp->hide();
    connect(tabLayers, &QTabBar::currentChanged, this, [this] { UseOwnLayer(); });
    cmdResizeButton = new QToolButton(body_);
    cmdResizeButton->setObjectName("cmdResizeButton");
    cmdResizeButton->setIcon(IconOf("resize"));
    cmdResizeButton->setToolTip("Replot into current window");
    cmdResizeButton->setAccessibleName("Replot into current window");
    cmdResizeButton->setAutoRaise(true);
    connect(cmdResizeButton, &QToolButton::clicked, this, [this] { ReplotIntoWindow(); });
}

void frmPlotForms::SetOrder() {
    TabOrder().Then(std::array<QWidget*, 7>{picStereoArea, tabLayers, txtFabricBox, txtDescBox,
                                            txtStatsBox[0], txtStatsBox[1], cmdResizeButton});
    body_->setFocusProxy(picStereoArea);
    lblNumBox->raise();
}

Surface& frmPlotForms::PlotSurface() {
    return picStereoArea->Picture();
}

Surface& frmPlotForms::LegendSurface() {
    return picLegendBox->Picture();
}

void frmPlotForms::SetCaption(const std::string& caption) {
    setWindowTitle(QString::fromStdString(caption));
}

void frmPlotForms::SetBoxText(PlotBox box, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    switch (box) {
    case PlotBox::NumberOfData:
        lblNumBox->setText(shown);
        break;
    case PlotBox::Fabric:
        txtFabricBox->setText(shown);
        break;
    case PlotBox::Description: {
        // A text from the user changes the plot; a text from the program does not.
        const QSignalBlocker quiet(*txtDescBox);
        txtDescBox->setPlainText(shown);
        break;
    }
    case PlotBox::StatsNormal:
        txtStatsBox[0]->setPlainText(shown);
        break;
    case PlotBox::StatsAdvanced:
        txtStatsBox[1]->setPlainText(shown);
        break;
    }
}

WindowPlace frmPlotForms::Place() const {
    const WindowState state = isMaximized()   ? WindowState::Maximised
                              : isMinimized() ? WindowState::Minimised
                                              : WindowState::Normal;
    WindowPlace place;
    place.state = static_cast<std::int32_t>(state);
    place.top = y() * kUnitsPerPixel;
    place.left = x() * kUnitsPerPixel;
    place.width = width() * kUnitsPerPixel;
    place.height = height() * kUnitsPerPixel;
    return place;
}

void frmPlotForms::SetPlace(const WindowPlace& place) {
    const QWidget* room = parentWidget();
    const QPoint corner(place.left / kUnitsPerPixel, place.top / kUnitsPerPixel);
    const QSize size(place.width / kUnitsPerPixel, place.height / kUnitsPerPixel);
    if (room != nullptr && room->rect().contains(corner)) {
        Place(WithinRoom(QRect(corner, size.expandedTo(minimumSize())), room->size()));
    }
    if (place.state == static_cast<int>(WindowState::Maximised)) {
        showMaximized();
    } else if (place.state == static_cast<int>(WindowState::Minimised)) {
        showMinimized();
    }
}

void frmPlotForms::PlaceBeside(const PlotForm& neighbour) {
    const WindowPlace beside = neighbour.Place();
    const QSize room = parentWidget() != nullptr ? parentWidget()->size() : size();
    QRect place = geometry();
    place.moveTopLeft({LeftBeside(beside.left / kUnitsPerPixel, beside.width / kUnitsPerPixel,
                                  place.width(), room.width()),
                       beside.top / kUnitsPerPixel});
    Place(WithinRoom(place, room));
}

void frmPlotForms::Show() {
    if (gActivePlot == Slot()) { // a drawing makes its plot the active one
        const LegendSize legend = SizeOfLegend(ActivePlot(), WindowDrawing(gActivePlot));
        legendSize_ = {static_cast<int>(std::ceil(legend.width)),
                       static_cast<int>(std::ceil(legend.height))};
    }
    FollowRecord();
    picStereoArea->update();
    picLegendBox->update();
}

void frmPlotForms::Raise() {
    if (isMinimized()) {
        showNormal();
    }
    if (mdiArea() != nullptr) {
        mdiArea()->setActiveSubWindow(this);
    }
}

void frmPlotForms::Close() {
    hide();
}

void frmPlotForms::AddLayerTab(const QString& name, const QString& kind) {
    if (kind != "New" && kind != "File" && kind != "Binary") {
        return;
    }
    isNamedFile_ = name.startsWith("File");
    NameDataTab();
    tabLayers->setCurrentIndex(kDataTab);
}

void frmPlotForms::NameDataTab() {
    const bool hasData = IsOpenSlot(Slot()) && RecordOf(Slot()).NumData > 0;
    const QString ofData = isNamedFile_ ? "File" : "Data layer";
    const QString caption = hasData ? ofData : "Data Layer";
    if (tabLayers->tabText(kDataTab) != caption) { // naming a tab lays out all tabs
        tabLayers->setTabText(kDataTab, caption);
    }
    tabLayers->setTabToolTip(kDataTab, hasData ? "Select main data set"
                                               : "Select 1st data layer for editing");
}

void frmPlotForms::Place(const QRect& rect) {
    placing_ = true;
    setGeometry(rect);
    placing_ = false;
}

void frmPlotForms::ReplotIntoWindow() {
    if (gBusy) {
        return;
    }
    const PlotInWork work(Slot());
    FollowRecord();
    ReplotActivePlot(false);
}

void frmPlotForms::ShowLayer(int layer) {
    tabLayers->setCurrentIndex(layer == kAnnotationLayer ? kAnnotationTab : kDataTab);
    UseOwnLayer();
}

void frmPlotForms::UseOwnLayer() {
    const bool isAnnotations = tabLayers->currentIndex() == kAnnotationTab;
    UseLayer(isAnnotations ? kAnnotationLayer : kDataLayer);
    shpAnnUp->setVisible(isAnnotations);
}

void frmPlotForms::closeEvent(QCloseEvent* event) {
    // The window closes with its plot, after the questions that the plot requires.
    event->ignore();
    Q_EMIT CloseWanted(Slot());
}

void frmPlotForms::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    if (!placing_ && isVisible() && !isMinimized() && !isMaximized()) {
        Q_EMIT ResizedByHand(size());
    }
}

} // namespace quandrel
