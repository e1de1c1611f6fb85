// SPDX-License-Identifier: MIT

#include "shell/girdle_panel.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/tagged_value.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quandrel {

namespace {

constexpr int kMeanPlaneRow = 9;
constexpr int kAxisRow = 10;

QString CaptionOfRow(int row, bool isOfPlanes) {
    switch (row) {
    case 0:
        return "Mean arrow";
    case kMeanPlaneRow:
        return isOfPlanes ? "Mean S" : "Mean equiv S";
    case kAxisRow:
        return isOfPlanes ? "Beta axis" : "Girdle normal";
    default:
        return "Girdle &" + QString::number(row);
    }
}

} // namespace

GirdlePanel::GirdlePanel(QWidget* parent)
    : QDockWidget("Girdles", parent) {
    setObjectName("panGirdleBox");
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    auto* body = new QWidget;
    auto* grid = new QGridLayout(body);
    auto* label = new QLabel("Dip and direction");
    label->setObjectName("lblGirdle");
    grid->addWidget(label, 0, 1);
    for (int row = 0; row < kGirdleRows; ++row) {
        auto* check = new QCheckBox(CaptionOfRow(row, true));
        check->setObjectName("chkGirdle_" + QString::number(row));
        auto* text = new QLineEdit;
        text->setObjectName("txtGirdle_" + QString::number(row));
        text->setAccessibleName(CaptionOfRow(row, true).remove('&'));
        text->setMaximumWidth(110);
        grid->addWidget(check, row + 1, 0);
        grid->addWidget(text, row + 1, 1);
        chkGirdle[static_cast<std::size_t>(row)] = check;
        txtGirdle[static_cast<std::size_t>(row)] = text;
    }
    const std::array<const char*, 2> captions = {"&Help...", "&Style..."};
    for (int i = 0; i < 2; ++i) {
        auto* button = new QPushButton(captions[static_cast<std::size_t>(i)]);
        button->setObjectName("cmdGirdle_" + QString::number(i));
        grid->addWidget(button, kGirdleRows + 1, i);
    }
    grid->setRowStretch(kGirdleRows + 2, 1);
    // Girdles cannot be laid yet: the panel shows those that files bring.
    body->setEnabled(false);
    setWidget(body);
    hide();
}

void GirdlePanel::Refresh() {
    const bool hasPlot = IsOpenSlot(gActivePlot);
    const bool isOfPlanes = !hasPlot || ActiveRecord().DataKind == kPlanes;
    for (int row = 0; row < kGirdleRows; ++row) {
        const auto i = static_cast<std::size_t>(row);
        chkGirdle[i]->setText(CaptionOfRow(row, isOfPlanes));
        chkGirdle[i]->setChecked(hasPlot && NumberOf(ActiveRecord().AxisItems[i][0]) != 0);
        txtGirdle[i]->setText(
            hasPlot ? QString::fromStdString(TextOf(ActiveRecord().AxisItems[i][1])) : QString());
    }
}

} // namespace quandrel
