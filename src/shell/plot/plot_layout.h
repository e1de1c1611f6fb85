// SPDX-License-Identifier: MIT
//
// Where the parts of a plot window stand.

#pragma once

#include <QRect>
#include <QSize>

namespace quandrel {

/// Which of the parts about the net are to be seen.
struct PlotParts {
    bool fabric = true;
    bool description = true;
    bool legend = true;
    bool number = true;
    bool statistics = true;
};

/// Sizes that follow from the fonts, and from what the boxes hold, in logical pixels.
struct PlotMetrics {
    int tabs = 24;
    int line = 22;    ///< height of the one-line boxes
    QSize legend;     ///< that legend and statistics need to be seen whole; empty where that is
    QSize statistics; ///< not known
};

/// Rectangles in the window; parts that are not to be seen are empty. None overlaps another but the
/// number, which stands in the corner of the net's square that the net leaves free.
struct PlotLayout {
    QRect tabs;
    QRect net; ///< a square
    QRect number;
    QRect resizeButton;
    QRect fabric;
    QRect description;
    QRect legend;
    QRect statistics;
};

/// The boxes stand beside the net or below it, wherever the net is larger.
[[nodiscard]] PlotLayout LayOutPlot(QSize window, const PlotParts& parts,
                                    const PlotMetrics& metrics);

} // namespace quandrel
