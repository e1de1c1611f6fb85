// SPDX-License-Identifier: MIT

#include "shell/plot/girdle_panel.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdles.h"
#include "input/format_model.h"
#include "orientation/notation.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kTextWidth = 110;

/// The order of a girdle's text in the current conventions.
QString OrderOfTexts() {
    const std::string_view caption =
        PlaneConventionCaption(LineFormatFromGlobals(false).planeConvention);
    return QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()))
        .replace(",", ", ");
}

QString MarkedCaption(int row, std::int16_t dataKind) {
    QString caption = QString::fromStdString(GirdleCaption(row, dataKind));
    // The digit is the key of one of the user's rows.
    return IsUserGirdle(row) ? caption.insert(caption.size() - 1, '&') : caption;
}

} // namespace

GirdlePanel::GirdlePanel(QWidget* parent)
    : QDockWidget("Girdles", parent) {
    setObjectName("panGirdleBox");
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    auto* body = new QWidget;
    auto* grid = new QGridLayout(body);
    lblGirdle = new QLabel;
    lblGirdle->setObjectName("lblGirdle");
    grid->addWidget(lblGirdle, 0, 1);
    for (int row = 0; row < kGirdleRows; ++row) {
        AddRow(*grid, row);
    }
    AddButtons(*grid);
    grid->setRowStretch(kGirdleRows + 2, 1);
    setWidget(body);
    hide();
}

void GirdlePanel::AddRow(QGridLayout& grid, int row) {
    const QString number = QString::number(row);
    auto* check = new QCheckBox(MarkedCaption(row, kPlanes));
    check->setObjectName("chkGirdle_" + number);
    check->setToolTip("Hide/show this girdle");
    auto* text = new QLineEdit;
    text->setObjectName("txtGirdle_" + number);
    text->setAccessibleName(QString::fromStdString(GirdleCaption(row, kPlanes)));
    text->setMaximumWidth(kTextWidth);
    if (IsUserGirdle(row)) {
        text->setToolTip("The plane of the girdle. Enter draws it; Shift and a mouse button "
                         "on the net set it while this box is the active one");
        text->installEventFilter(this);
        connect(text, &QLineEdit::editingFinished, this, [this, row] { Take(row); });
    } else {
        text->setReadOnly(true);
        text->setFocusPolicy(Qt::NoFocus);
    }
    connect(check, &QCheckBox::clicked, this, [this, row](bool on) { Tick(row, on); });
    grid.addWidget(check, row + 1, 0, Qt::AlignLeft); // a click counts on the caption only
    grid.addWidget(text, row + 1, 1);
    chkGirdle[static_cast<std::size_t>(row)] = check;
    txtGirdle[static_cast<std::size_t>(row)] = text;
}

void GirdlePanel::AddButtons(QGridLayout& grid) {
    const std::array<const char*, 2> captions = {"He&lp...", "&Style..."};
    const std::array<const char*, 2> tips = {"How girdles are set with the mouse",
                                             "Colours and lines of girdles"};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        auto* button = new QPushButton(captions[i]);
        button->setObjectName("cmdGirdle_" + QString::number(i));
        button->setToolTip(tips[i]);
        grid.addWidget(button, kGirdleRows + 1, static_cast<int>(i));
        connect(button, &QPushButton::clicked, this, [this, i] {
            if (i == 0) {
                ShowGirdleHelp();
            } else if (onStyle) {
                onStyle();
            }
        });
    }
}

void GirdlePanel::Refresh() {
    const bool hasPlot = IsOpenSlot(gActivePlot);
    const std::int16_t dataKind = hasPlot ? ActiveRecord().DataKind : std::int16_t{kPlanes};
    for (int row = 0; row < kGirdleRows; ++row) {
        const auto i = static_cast<std::size_t>(row);
        chkGirdle[i]->setText(MarkedCaption(row, dataKind));
        chkGirdle[i]->setChecked(IsGirdleShown(row));
        const bool isTyped = txtGirdle[i]->hasFocus() && txtGirdle[i]->isModified();
        const QString text = QString::fromStdString(GirdleText(row));
        if (!isTyped && txtGirdle[i]->text() != text) {
            txtGirdle[i]->setText(text);
        }
    }
    lblGirdle->setText(OrderOfTexts());
    widget()->setEnabled(hasPlot);
    MarkActiveRow();
}

void GirdlePanel::MarkActiveRow() {
    for (int row = kFirstUserGirdle; row <= kLastUserGirdle; ++row) {
        QPalette colours = QWidget::palette();
        if (row == gActiveGirdle) {
            colours.setColor(QPalette::Base, colours.color(QPalette::Highlight));
            colours.setColor(QPalette::Text, colours.color(QPalette::HighlightedText));
            // A selected part of the text must be visible in it.
            colours.setColor(QPalette::Highlight, colours.color(QPalette::Window));
            colours.setColor(QPalette::HighlightedText, colours.color(QPalette::WindowText));
        }
        txtGirdle[static_cast<std::size_t>(row)]->setPalette(colours);
    }
}

void GirdlePanel::Take(int row) {
    QLineEdit& box = *txtGirdle[static_cast<std::size_t>(row)];
    if (gBusy || !box.isModified()) {
        return;
    }
    box.setModified(false);
    UpdateGirdle(row, box.text().toStdString());
    Changed();
}

/// Discards the typed text.
void GirdlePanel::LeaveText(int row) {
    QLineEdit& box = *txtGirdle[static_cast<std::size_t>(row)];
    box.setModified(false);
    box.setText(QString::fromStdString(GirdleText(row)));
    if (onLeave) {
        onLeave();
    }
}

void GirdlePanel::Tick(int row, bool on) {
    if (!gBusy) {
        (void)ShowGirdle(row, on);
    }
    Changed();
}

void GirdlePanel::Changed() {
    Refresh();
    if (onChanged) {
        onChanged();
    }
}

bool GirdlePanel::eventFilter(QObject* object, QEvent* event) {
    const auto text = std::find(txtGirdle.begin(), txtGirdle.end(), object);
    const int row = static_cast<int>(text - txtGirdle.begin());
    if (row < kGirdleRows && event->type() == QEvent::FocusIn) {
        FocusGirdle(row);
        MarkActiveRow();
    }
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (row < kGirdleRows && isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        if (event->type() == QEvent::KeyPress) {
            LeaveText(row);
        }
        event->accept(); // otherwise the commands of the same key would act on the rows
        return true;
    }
    return QDockWidget::eventFilter(object, event);
}

void GirdlePanel::hideEvent(QHideEvent* event) {
    LeaveGirdles();
    MarkActiveRow();
    QDockWidget::hideEvent(event);
}

} // namespace quandrel
