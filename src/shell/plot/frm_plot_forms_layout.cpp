// SPDX-License-Identifier: MIT
//
// The visible parts of a plot window and their positions.

#include "core/plot_store.h"
#include "core/settings.h"
#include "qt/dark_image.h"
#include "shell/controls/picture_box.h"
#include "shell/controls/widget_font.h"
#include "shell/plot/frm_plot_forms.h"
#include "stereo/text_lines.h"

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

/// Sets the tab stops of a statistics box from its font. They equal those of pictures, but are
/// closer in a narrow box, as far as the numbers and column headings allow.
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

/// Boxes have the colours of paper, because the user chooses those of the fonts; in dark themes
/// both are those of nets there.
void UseFont(QWidget& box, PlotFontPlace place) {
    const PlotFont& font = gSettings.styles.fonts[static_cast<std::size_t>(place)];
    const Colour ink = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    const bool isDark = IsDarkTheme();
    const auto shown = [isDark](const QColor& colour) {
        return isDark ? InDarkColours(colour) : colour;
    };
    const QColor colour = shown(QColor(ink.red, ink.green, ink.blue));
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, shown(Qt::white));
    palette.setColor(QPalette::Text, colour);
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::PlaceholderText, shown(QColor(0x70, 0x70, 0x70)));
    if (box.palette() != palette) {
        box.setPalette(palette);
    }
    box.setFont(WidgetFont(font));
}

/// What a box needs around its text, in either direction.
int MarginOf(const QPlainTextEdit& box) {
    return 2 * static_cast<int>(std::ceil(box.document()->documentMargin())) + 2 * box.frameWidth()
           + 2;
}

/// The height at which a box shows the lines that its text takes in its width, one at least.
int HeightOfText(const QPlainTextEdit& box) {
    return std::max(box.document()->lineCount(), 1) * QFontMetrics(box.font()).lineSpacing()
           + MarginOf(box);
}

/// The size at which a box shows its text without scroll bars; empty for an empty box. Lines that
/// are wrapped count as often as they are now, and those with tabs depend on the available width.
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
    return {width + MarginOf(box), HeightOfText(box)};
}

} // namespace

void frmPlotForms::ApplyFonts() {
    UseFont(*txtDescBox, kGeneralFont);
    UseFont(*txtFabricBox, kFabricFont);
    for (QPlainTextEdit* box : txtStatsBox) {
        UseFont(*box, kStatsFont);
        FitTabStops(*box);
    }
    UseFont(*lblNumBox, kGeneralFont);
}

void frmPlotForms::changeEvent(QEvent* event) {
    QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && lblNumBox != nullptr) {
        ApplyFonts();
    }
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
    PlotParts parts = ShownParts();
    if (page_ != nullptr) {
        ArrangePage(parts);
        parts.fabric = parts.description = parts.statistics = false;
    }
    const PlotMetrics metrics = Metrics();
    Arrange(LayOutPlot(body_->size(), parts, metrics), parts);
    // In boxes of another width, lines may be wrapped in another way.
    if (const PlotMetrics wrapped = Metrics(); wrapped != metrics) {
        Arrange(LayOutPlot(body_->size(), parts, wrapped), parts);
    }
}

PlotMetrics frmPlotForms::Metrics() const {
    PlotMetrics metrics;
    metrics.tabs = std::max(tabLayers->sizeHint().height(), cmdResizeButton->sizeHint().height());
    metrics.line = txtFabricBox->sizeHint().height();
    constexpr int kMargins = 2 * kLegendMargin + 2;
    metrics.legend = legendSize_.isEmpty() ? QSize() : legendSize_ + QSize(kMargins, kMargins);
    metrics.statistics = SizeOfText(*txtStatsBox[RecordOf(Slot()).StatsBoxKind != 0 ? 1 : 0]);
    metrics.description = HeightOfText(*txtDescBox);
    return metrics;
}

void frmPlotForms::Arrange(const PlotLayout& layout, const PlotParts& parts) {
    tabLayers->setGeometry(
        QRect(layout.tabs.topLeft(), tabLayers->sizeHint()).intersected(layout.tabs));
    shpAnnUp->setGeometry(tabLayers->geometry().right() + 4, layout.tabs.top(),
                          layout.tabs.height(), layout.tabs.height());
    cmdResizeButton->setGeometry(layout.resizeButton);
    picStereoArea->setGeometry(layout.net);
    const bool isAdvanced = RecordOf(Slot()).StatsBoxKind != 0;
    const auto show = [](QWidget* widget, bool shown, const QRect& rect) {
        widget->setVisible(shown);
        if (shown) {
            widget->setGeometry(rect);
        }
    };
    show(picLegendBox, parts.legend, layout.legend);
    show(lblNumBox, parts.number, layout.number);
    if (page_ != nullptr) {
        return;
    }
    show(txtFabricBox, parts.fabric, layout.fabric);
    show(txtDescBox, parts.description, layout.description);
    show(txtStatsBox[0], parts.statistics && !isAdvanced, layout.statistics);
    show(txtStatsBox[1], parts.statistics && isAdvanced, layout.statistics);
    for (QPlainTextEdit* box : txtStatsBox) {
        FitTabStops(*box);
    }
}

void frmPlotForms::ArrangePage(const PlotParts& parts) {
    constexpr int kMostLines = 8;
    const bool isAdvanced = RecordOf(Slot()).StatsBoxKind != 0;
    txtFabricBox->setVisible(parts.fabric);
    txtDescBox->setVisible(parts.description);
    const int line = txtFabricBox->sizeHint().height();
    txtDescBox->setFixedHeight(std::clamp(HeightOfText(*txtDescBox), line, kMostLines * line));
    for (QPlainTextEdit* box : txtStatsBox) {
        FitTabStops(*box);
        box->setVisible(parts.statistics && (box == txtStatsBox[1]) == isAdvanced);
        box->setMaximumHeight(HeightOfText(*box));
    }
}

std::array<QWidget*, 4> frmPlotForms::Texts() const {
    return {txtFabricBox, txtDescBox, txtStatsBox[0], txtStatsBox[1]};
}

QWidget& frmPlotForms::TextPage() {
    if (page_ != nullptr) {
        return *page_;
    }
    page_ = new QWidget;
    page_->setObjectName("pagTexts_" + QString::number(Slot()));
    auto* boxes = new QVBoxLayout(page_);
    boxes->setContentsMargins(4, 4, 4, 4);
    for (QWidget* text : Texts()) {
        boxes->addWidget(text);
    }
    boxes->addStretch(1);
    boxes->setStretchFactor(txtStatsBox[0], 1000);
    boxes->setStretchFactor(txtStatsBox[1], 1000);
    page_->installEventFilter(this);
    LayOut();
    return *page_;
}

void frmPlotForms::TakeTextsBack() {
    if (page_ == nullptr) {
        return;
    }
    for (QWidget* text : Texts()) {
        text->setParent(body_);
        text->setMinimumHeight(0);
        text->setMaximumHeight(QWIDGETSIZE_MAX);
    }
    delete page_;
    page_ = nullptr;
    SetOrder();
    LayOut();
}

} // namespace quandrel
