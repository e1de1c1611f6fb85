// SPDX-License-Identifier: MIT

#include "qt/figure_picture.h"

#include "core/plot_style.h"
#include "qt/image_surface.h"
#include "qt/unseen_surface.h"
#include "stereo/window_drawing.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kPixelsInMillimetre = 96 / 25.4;

RoomRect InPixels(const FigureBox& box) {
    return {box.left * kPixelsInMillimetre, box.top * kPixelsInMillimetre,
            box.width * kPixelsInMillimetre, box.height * kPixelsInMillimetre};
}

Drawing DrawingOfFigure(const PlotRecord& record, const FigureExport& figure, Surface& net,
                        Surface& page) {
    Drawing drawing = PaperDrawing(record, net, page);
    drawing.figure = StyleOfFigure(figure, record);
    return drawing;
}

} // namespace

std::shared_ptr<const FigureStyle> StyleOfFigure(const FigureExport& figure,
                                                 const PlotRecord& record) {
    return figure.style != nullptr ? figure.style : StyleOfChoice(StyleChoiceForPrint(record));
}

Result<FigureLayout> LayOutExport(const Plot& plot, const FigureExport& figure, Surface& unseen) {
    return LayOutFigureOnPage(plot, DrawingOfFigure(plot.record, figure, unseen, unseen),
                              figure.size, figure.height);
}

RoomRect PageOfFigure(const FigureLayout& layout) {
    return InPixels({0, 0, layout.width, layout.height});
}

void DrawExport(const Plot& plot, const FigureExport& figure, const FigureLayout& layout,
                PicturePage& page) {
    Surface& net = page.In(InPixels(layout.net));
    DrawFigure(plot, DrawingOfFigure(plot.record, figure, net, page.In(PageOfFigure(layout))),
               layout);
}

Result<QImage> FigureImage(const Plot& plot, const FigureExport& figure, QSize room) {
    ImageSurface unseen({kUnseenSide, kUnseenSide}, 1, kWhite);
    const Result<FigureLayout> layout = LayOutExport(plot, figure, unseen.Drawing());
    if (!layout) {
        return Failure{layout.Error()};
    }
    const RoomRect whole = PageOfFigure(*layout);
    const double scale = std::min(room.width() / whole.width, room.height() / whole.height);
    const auto pixels = [scale](double length) {
        return std::max(static_cast<int>(std::lround(length * scale)), 1);
    };
    QImage image(pixels(whole.width), pixels(whole.height), QImage::Format_ARGB32_Premultiplied);
    image.fill(figure.isTransparent ? Qt::transparent : Qt::white);
    QPainter painter(&image);
    PainterPage page(painter, scale, Medium::Raster);
    DrawExport(plot, figure, *layout, page);
    painter.end();
    return image;
}

} // namespace quandrel
