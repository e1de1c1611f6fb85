// SPDX-License-Identifier: MIT
//
// The panel that shows the texts of the plot in focus: fabric, description, statistics. The texts
// stay those of their plot window, which lends them to the panel as a page.

#pragma once

#include <QDockWidget>

class QLabel;
class QStackedWidget;

namespace quandrel {

class TextPanel : public QDockWidget {
public:
    explicit TextPanel(QWidget* parent);

    /// Takes the page of a plot window, if it is not in the panel yet. The window removes it.
    void Add(QWidget& page);

    /// Shows one of the pages, or that there is no plot.
    void Show(QWidget* page);

private:
    QStackedWidget* pages_;
    QLabel* lblNoPlot_;
};

} // namespace quandrel
