// SPDX-License-Identifier: MIT
//
// The positions of the parts of a plot window.

#pragma once

#include <QRect>
#include <QSize>

namespace quandrel {

/// Which of the parts around the net are visible.
struct PlotParts {
    bool fabric = true;
    bool description = true;
    bool legend = true;
    bool number = true;
    bool statistics = true;
};

/// Sizes that depend on the fonts and on the contents of the boxes, in logical pixels.
struct PlotMetrics {
    int tabs = 24;
    int line = 22;       ///< height of the one-line boxes
    QSize legend;        ///< full size of the legend; empty if unknown
    QSize statistics;    ///< full size of the statistics; empty if unknown
    int description = 0; ///< full height of the description; 0 if unknown

    friend bool operator==(const PlotMetrics&, const PlotMetrics&) = default;
};

/// Rectangles in the window; invisible parts are empty. No two overlap, except that the number is
/// in a corner of the net's square outside the circle.
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

/// The boxes are beside the net or below it, whichever makes the net larger. They are as high as
/// what is in them where there is room, and the net has the rest. A box whose contents are unknown
/// has a share.
[[nodiscard]] PlotLayout LayOutPlot(QSize window, const PlotParts& parts,
                                    const PlotMetrics& metrics);

} // namespace quandrel
