// SPDX-License-Identifier: MIT

#include "shell/panels/text_panel.h"

#include <QLabel>
#include <QStackedWidget>

namespace quandrel {

TextPanel::TextPanel(QWidget* parent)
    : QDockWidget("Statistics and description", parent)
    , pages_(new QStackedWidget)
    , lblNoPlot_(new QLabel("No plot is open.")) {
    setObjectName("panTexts");
    lblNoPlot_->setObjectName("lblNoPlot");
    lblNoPlot_->setAlignment(Qt::AlignCenter);
    lblNoPlot_->setEnabled(false);
    pages_->addWidget(lblNoPlot_);
    setWidget(pages_);
}

void TextPanel::Add(QWidget& page) {
    if (pages_->indexOf(&page) < 0) {
        pages_->addWidget(&page);
    }
}

void TextPanel::Show(QWidget* page) {
    pages_->setCurrentWidget(page != nullptr ? page : lblNoPlot_);
}

} // namespace quandrel
