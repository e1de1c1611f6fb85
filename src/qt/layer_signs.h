// SPDX-License-Identifier: MIT
//
// The signs of the layers of a plot as small images: those of the legend of its figure.

#pragma once

#include "core/plot.h"
#include "drawing/figure_legend.h"
#include "stereo/drawing.h"

#include <QImage>

namespace quandrel {

class LayerSigns {
public:
    /// The signs of a plot that is worked out. It outlives them.
    ///
    /// @param side     of an image, logical pixels
    /// @param density  image pixels per logical pixel
    LayerSigns(const Plot& plot, int side, double density);

    /// The sign of a layer on a white ground; null for one that has none in the legend.
    [[nodiscard]] QImage Of(const FigureLayer& layer) const;

private:
    const Plot& plot_;
    int side_;
    double density_;
    FigureLegend legend_;
};

} // namespace quandrel
