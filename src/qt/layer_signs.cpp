// SPDX-License-Identifier: MIT

#include "qt/layer_signs.h"

#include "core/plot_style.h"
#include "qt/image_surface.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

constexpr int kUnseenSide = 8;

bool IsSame(const FigureLayer& a, const FigureLayer& b) {
    return a.LayerOf == b.LayerOf && a.LayerIndex == b.LayerIndex && a.LayerShow == b.LayerShow;
}

Drawing DrawingOf(const Plot& plot, Surface& surface) {
    Drawing drawing = PaperDrawing(plot.record, surface, surface);
    drawing.figure = StyleOfPlot(plot.record);
    return drawing;
}

/// The darkest colours of a bar, side by side.
void DrawBar(const FigureBar& bar, QImage& image) {
    const int bands = std::min(static_cast<int>(bar.colours.size()), 4);
    for (int x = 0; x < image.width(); ++x) {
        const std::size_t band = bar.colours.size() - static_cast<std::size_t>(bands)
                                 + static_cast<std::size_t>(x * bands / image.width());
        const Colour& colour = bar.colours[band];
        for (int y = 0; y < image.height(); ++y) {
            image.setPixel(x, y, qRgb(colour.red, colour.green, colour.blue));
        }
    }
}

} // namespace

LayerSigns::LayerSigns(const Plot& plot, int side, double density)
    : plot_(plot)
    , side_(side)
    , density_(density) {
    ImageSurface unseen({kUnseenSide, kUnseenSide}, 1, kWhite);
    legend_ = LegendOfFigure(plot, DrawingOf(plot, unseen.Drawing()));
}

QImage LayerSigns::Of(const FigureLayer& layer) const {
    ImageSurface image(PixelsOf({side_, side_}, density_), density_, kWhite);
    const auto bar = std::ranges::find_if(
        legend_.bars, [&layer](const FigureBar& one) { return IsSame(one.layer, layer); });
    if (bar != legend_.bars.end() && !bar->colours.empty()) {
        QImage bands = image.Image();
        DrawBar(*bar, bands);
        return bands;
    }
    const auto entry = std::ranges::find_if(legend_.entries, [&layer](const FigureEntry& one) {
        return IsSame(one.layer, layer) && one.sign != FigureSign::None
               && one.sign != FigureSign::Blank;
    });
    if (entry == legend_.entries.end()) {
        return {};
    }
    Surface& surface = image.Drawing();
    const double half = side_ / 2.0;
    surface.SetUserScale({-half, half, half, -half});
    DrawFigureSign(surface, DrawingOf(plot_, surface), *entry, {0, 0}, side_ - 2);
    return image.Image();
}

} // namespace quandrel
