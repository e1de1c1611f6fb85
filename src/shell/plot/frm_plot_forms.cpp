// SPDX-License-Identifier: MIT

#include "shell/plot/frm_plot_forms.h"

#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/selection/marquee.h"
#include "rose/petal_tip.h"
#include "session/window_places.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/icons.h"
#include "shell/controls/picture_box.h"
#include "shell/controls/widget_font.h"
#include "shell/plot/window_arrangement.h"
#include "stereo/legend.h"
#include "stereo/plot_driver.h"
#include "stereo/plot_state.h"
#include "stereo/text_lines.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTextBlock>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr const char* kTag = "Tag";
constexpr int kAnnotationTab = 0;
constexpr int kDataTab = 1;
constexpr int kLegendMargin = 5;
constexpr const char* kDescriptionHint = "Enter description of data if required";
constexpr const char* kFabricHint = "Enter name of structural fabric";

/// Sets the tab stops of a statistics box by its font: as on pictures, but narrower in a narrow
/// box, as far as numbers and heads of columns allow.
void FitTabStops(QPlainTextEdit& box) {
    const QFontMetricsF metrics(box.font());
    const double least = std::max(metrics.horizontalAdvance("-0.000 "),
                                  metrics.horizontalAdvance(" Eigenvectors ") / 2);
    const double margins = 2 * (box.document()->documentMargin() + box.frameWidth())
                           + box.verticalScrollBar()->sizeHint().width();
    const double room = (box.width() - margins - metrics.horizontalAdvance("00.000 (0.000) ")) / 3;
    const double most = std::max(least, metrics.horizontalAdvance(kTabSample));
    box.setTabStopDistance(std::clamp(room, least, most));
}

/// Boxes are paper: white, whatever the desktop's colours, for the fonts' colours are the user's.
void UseFont(QWidget& box, PlotFontPlace place) {
    const PlotFont& font = gPlotFonts[place];
    const Colour ink = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    const QColor colour(ink.red, ink.green, ink.blue);
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, colour);
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::PlaceholderText, QColor(0x70, 0x70, 0x70));
    box.setPalette(palette);
    box.setFont(WidgetFont(font));
}

/// Keys that texts and the rows of a plot have in common: they belong to the box that is in use.
bool IsEditingKey(const QKeyEvent& event) {
    constexpr std::array<QKeySequence::StandardKey, 7> kKeys = {
        QKeySequence::Copy,   QKeySequence::Cut,  QKeySequence::Paste, QKeySequence::SelectAll,
        QKeySequence::Delete, QKeySequence::Undo, QKeySequence::Redo};
    return std::any_of(kKeys.begin(), kKeys.end(),
                       [&event](QKeySequence::StandardKey key) { return event.matches(key); });
}

/// Copies the selected part of a text, or the whole where none is selected.
void CopyText(QPlainTextEdit& box) {
    if (box.textCursor().hasSelection()) {
        box.copy();
    } else {
        QGuiApplication::clipboard()->setText(box.toPlainText());
    }
}

/// The size that a box needs to show its text without bars; empty for an empty one. Lines with tabs
/// follow the width that there is.
QSize SizeOfText(const QPlainTextEdit& box) {
    if (box.document()->isEmpty()) {
        return {};
    }
    const QFontMetrics metrics(box.font());
    int width = 0;
    for (QTextBlock line = box.document()->begin(); line.isValid(); line = line.next()) {
        if (!line.text().contains('\t')) {
            width = std::max(width, metrics.horizontalAdvance(line.text()));
        }
    }
    const int margin = 2 * static_cast<int>(std::ceil(box.document()->documentMargin()))
                       + 2 * box.frameWidth() + 2;
    return {width + margin, box.document()->blockCount() * metrics.lineSpacing() + margin};
}

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
    const auto redraw = [this] { RepaintPlot(Slot()); };
    picStereoArea->onStale = redraw;
    picStereoArea->onTip = [this](QPointF share) {
        const double x = kPlotScale.left + share.x() * (kPlotScale.right - kPlotScale.left);
        const double y = kPlotScale.top + share.y() * (kPlotScale.bottom - kPlotScale.top);
        return Slot() == gActivePlot ? QString::fromStdString(PetalTip({x, y})) : QString();
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
    box->viewport()->installEventFilter(this); // the mouse asks there for the menu
    return box;
}

void frmPlotForms::MakeTexts() {
    txtDescBox = MakeTextBox("txtDescBox", "Data description");
    txtDescBox->setPlaceholderText("Data description");
    txtDescBox->setToolTip(kDescriptionHint);
    connect(txtDescBox, &QPlainTextEdit::textChanged, this, [this] {
        description_ = txtDescBox->toPlainText().toStdString();
        DescribePlot(Slot(), description_);
    });
    txtStatsBox[0] = MakeTextBox("txtStatsBox_0", "Statistics");
    txtStatsBox[1] = MakeTextBox("txtStatsBox_1", "Advanced statistics");
    for (QPlainTextEdit* box : txtStatsBox) {
        box->setReadOnly(true);
        // Lines that are too wide go on below rather than behind a bar.
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

void frmPlotForms::ApplyFonts() {
    UseFont(*txtDescBox, kGeneralFont);
    UseFont(*txtFabricBox, kFabricFont);
    for (QPlainTextEdit* box : txtStatsBox) {
        UseFont(*box, kStatsFont);
        FitTabStops(*box);
    }
    UseFont(*lblNumBox, kGeneralFont);
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

std::string frmPlotForms::Caption() const {
    return windowTitle().toStdString();
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
        // What the user writes is a change of the plot; what is shown is none.
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

std::string frmPlotForms::BoxText(PlotBox box) const {
    switch (box) {
    case PlotBox::NumberOfData:
        return lblNumBox->text().toStdString();
    case PlotBox::Fabric:
        return txtFabricBox->text().toStdString();
    case PlotBox::Description:
        return txtDescBox->toPlainText().toStdString();
    case PlotBox::StatsNormal:
        return txtStatsBox[0]->toPlainText().toStdString();
    case PlotBox::StatsAdvanced:
        return txtStatsBox[1]->toPlainText().toStdString();
    }
    return {};
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

void frmPlotForms::Show() {
    if (gActivePlot == Slot()) { // which a drawing makes it
        const LegendSize legend = SizeOfLegend();
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
    if (tabLayers->tabText(kDataTab) != caption) { // naming a tab lays out all of them
        tabLayers->setTabText(kDataTab, caption);
    }
    tabLayers->setTabToolTip(kDataTab, hasData ? "Select main data set"
                                               : "Select 1st data layer for editing");
}

PlotParts frmPlotForms::ShownParts() const {
    const PlotRecord& record = RecordOf(Slot());
    const auto shown = [&record](PlotLayer layer) { return record.LayerVisible[layer] != 0; };
    PlotParts parts;
    parts.fabric = shown(kFabricLayer);
    parts.description = shown(kDescriptionLayer);
    parts.legend = shown(kLegendLayer);
    parts.number = shown(kNumberLayer);
    const QPlainTextEdit* box = txtStatsBox[record.StatsBoxKind != 0 ? 1 : 0];
    parts.statistics = shown(kStatisticsLayer) && !box->document()->isEmpty();
    return parts;
}

void frmPlotForms::FollowRecord() {
    const PlotRecord& record = RecordOf(Slot());
    if (description_ != record.DescriptionText) {
        description_ = record.DescriptionText;
        SetBoxText(PlotBox::Description, description_);
    }
    if (fabric_ != record.FabricText) {
        fabric_ = record.FabricText;
        SetBoxText(PlotBox::Fabric, fabric_);
    }
    NameDataTab();
    LayOut();
}

void frmPlotForms::LayOut() {
    if (!IsOpenSlot(Slot())) {
        return;
    }
    const PlotParts parts = ShownParts();
    PlotMetrics metrics;
    metrics.tabs = std::max(tabLayers->sizeHint().height(), cmdResizeButton->sizeHint().height());
    metrics.line = txtFabricBox->sizeHint().height();
    constexpr int kMargins = 2 * kLegendMargin + 2;
    metrics.legend = legendSize_.isEmpty() ? QSize() : legendSize_ + QSize(kMargins, kMargins);
    metrics.statistics = SizeOfText(*txtStatsBox[RecordOf(Slot()).StatsBoxKind != 0 ? 1 : 0]);
    const PlotLayout layout = LayOutPlot(body_->size(), parts, metrics);
    tabLayers->setGeometry(
        QRect(layout.tabs.topLeft(), tabLayers->sizeHint()).intersected(layout.tabs));
    shpAnnUp->setGeometry(tabLayers->geometry().right() + 4, layout.tabs.top(), metrics.tabs,
                          metrics.tabs);
    cmdResizeButton->setGeometry(layout.resizeButton);
    picStereoArea->setGeometry(layout.net);
    const bool isAdvanced = RecordOf(Slot()).StatsBoxKind != 0;
    const auto show = [](QWidget* widget, bool shown, const QRect& rect) {
        widget->setVisible(shown);
        if (shown) {
            widget->setGeometry(rect);
        }
    };
    show(txtFabricBox, parts.fabric, layout.fabric);
    show(txtDescBox, parts.description, layout.description);
    show(picLegendBox, parts.legend, layout.legend);
    show(lblNumBox, parts.number, layout.number);
    show(txtStatsBox[0], parts.statistics && !isAdvanced, layout.statistics);
    show(txtStatsBox[1], parts.statistics && isAdvanced, layout.statistics);
    for (QPlainTextEdit* box : txtStatsBox) {
        FitTabStops(*box);
    }
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
    // The window goes when the plot goes, after the questions that the plot calls for.
    event->ignore();
    Q_EMIT CloseWanted(Slot());
}

void frmPlotForms::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    if (!placing_ && isVisible() && !isMinimized() && !isMaximized()) {
        Q_EMIT ResizedByHand(size());
    }
}

QWidget* frmPlotForms::BoxOf(const QObject& object) const {
    for (QPlainTextEdit* text : {txtStatsBox[0], txtStatsBox[1], txtDescBox}) {
        if (&object == text || &object == text->viewport()) {
            return text;
        }
    }
    if (&object == txtFabricBox) {
        return txtFabricBox;
    }
    return &object == picLegendBox ? picLegendBox : nullptr;
}

void frmPlotForms::ShowBoxMenu(QWidget& box, const QPoint& at) {
    QMenu* menu = nullptr;
    if (&box == picLegendBox) {
        menu = new QMenu(this);
        menu->addAction("&Copy", this, [this] { Q_EMIT LegendCopyWanted(); });
    } else if (&box == txtFabricBox) {
        menu = txtFabricBox->createStandardContextMenu();
    } else if (&box == txtDescBox) {
        menu = txtDescBox->createStandardContextMenu();
    } else {
        auto& text = static_cast<QPlainTextEdit&>(box);
        menu = new QMenu(this);
        menu->addAction("&Copy", &text, [&text] { CopyText(text); });
        menu->addAction("Select &All", &text, &QPlainTextEdit::selectAll);
    }
    menu->setObjectName("mnuBox");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Q_EMIT BoxMenuWanted(menu, at);
}

bool frmPlotForms::TakeKeyOfBox(QWidget& box, QKeyEvent& event) {
    const bool isEscape = event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier;
    if (event.type() == QEvent::ShortcutOverride) {
        if (isEscape || IsEditingKey(event)) {
            event.accept(); // or the commands of the same keys would work on the rows
        }
        return event.isAccepted() && IsEditingKey(event);
    }
    if (isEscape) {
        picStereoArea->setFocus();
        return true;
    }
    if (box.inherits("QPlainTextEdit") && event.matches(QKeySequence::Copy)) {
        CopyText(static_cast<QPlainTextEdit&>(box));
        return true;
    }
    return false;
}

bool frmPlotForms::eventFilter(QObject* object, QEvent* event) {
    if (lblNumBox == nullptr) { // the boxes are being made
        return QMdiSubWindow::eventFilter(object, event);
    }
    if (object == body_ && event->type() == QEvent::Resize && !isMinimized()) {
        LayOut();
    }
    const bool isText = object == txtStatsBox[0] || object == txtStatsBox[1] || object == txtDescBox
                        || object == txtFabricBox;
    if (event->type() == QEvent::ContextMenu) {
        if (QWidget* box = BoxOf(*object)) {
            ShowBoxMenu(*box, static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        }
    }
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (isText && isKey
        && TakeKeyOfBox(static_cast<QWidget&>(*object), static_cast<QKeyEvent&>(*event))) {
        return true;
    }
    if (object == txtDescBox || object == txtFabricBox) {
        if (event->type() == QEvent::FocusIn) {
            Q_EMIT Hint(object == txtDescBox ? kDescriptionHint : kFabricHint);
        } else if (event->type() == QEvent::FocusOut) {
            Q_EMIT Hint({});
        }
    }
    return QMdiSubWindow::eventFilter(object, event);
}

} // namespace quandrel
