// SPDX-License-Identifier: MIT

#include "qt/plot_picture.h"

#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/settings.h"
#include "drawing/draw_plot.h"
#include "drawing/plot_driver.h"
#include "drawing/work_out.h"
#include "platform/platform.h"
#include "qt/image_surface.h"
#include "qt/painter_surface.h"
#include "stereo/window_drawing.h"

#include <QPainter>

#include <cstddef>

namespace quandrel {

namespace {

constexpr int kUnseenSide = 8; ///< of a picture that is not shown

QRectF Scaled(const RoomRect& box, double factor) {
    return {box.left * factor, box.top * factor, box.width * factor, box.height * factor};
}

/// The statistics text that the plot shows; empty when it shows none.
std::string StatisticsShown(const Plot& plot) {
    return plot.record.LayerVisible[kStatisticsLayer] == 0 ? std::string() : StatisticsInUse(plot);
}

/// The texts for the column beside the net of gActivePlot.
PictureTexts TextsOfActivePlot() {
    const PlotRecord& record = ActiveRecord();
    ImageSurface unseen({kUnseenSide, kUnseenSide}, 1, kWhite);
    PictureTexts texts;
    texts.isDescribed =
        record.LayerVisible[kDescriptionLayer] != 0 && !record.DescriptionText.empty();
    texts.statisticsHeight = HeightOfText(unseen.Drawing(), gSettings.styles.fonts[kStatsFont],
                                          StatisticsShown(ActivePlot()), kPictureTextWidth);
    return texts;
}

PictureLayout LayOut(PicturePart part) {
    return LayOutPicture(part,
                         part == PicturePart::NetAlone ? PictureTexts() : TextsOfActivePlot());
}

/// Everything around the net: what the plot's window shows in its boxes.
void DrawBoxes(QPainter& painter, const PictureLayout& layout, double factor, Medium medium) {
    const PlotRecord& record = ActiveRecord();
    const auto draw = [&](const RoomRect& box, PlotFontPlace font, const std::string& text) {
        PainterSurface surface(painter, Scaled(box, factor), factor, medium);
        DrawTextBox(surface, gSettings.styles.fonts[static_cast<std::size_t>(font)], text,
                    box.width, box.height);
    };
    if (record.LayerVisible[kFabricLayer] != 0) {
        draw(layout.fabric, kFabricFont, record.FabricText);
    }
    if (record.LayerVisible[kDescriptionLayer] != 0) {
        draw(layout.description, kGeneralFont, record.DescriptionText);
    }
    if (record.LayerVisible[kNumberLayer] != 0) {
        draw(layout.number, kGeneralFont, "n = " + NumberBoxText());
    }
    draw(layout.statistics, kStatsFont, StatisticsShown(ActivePlot()));
}

/// Draws the whole picture with `factor` painter units per logical pixel.
void DrawPicture(QPainter& painter, PicturePart part, double factor, Medium medium) {
    Plot& plot = ActivePlot();
    WorkOutUnseen(plot);
    const PictureLayout layout = LayOut(part);
    PainterSurface net(painter, Scaled(layout.net, factor), factor, medium);
    if (part == PicturePart::NetAlone || plot.record.LayerVisible[kLegendLayer] == 0) {
        // The legend is always drawn, even if it is not shown.
        ImageSurface legend({kUnseenSide, kUnseenSide}, factor, kWhite);
        DrawPlot(plot, PaperDrawing(plot.record, net, legend.Drawing()));
    } else {
        PainterSurface legend(painter, Scaled(layout.legend, factor), factor, medium);
        DrawPlot(plot, PaperDrawing(plot.record, net, legend));
    }
    if (part == PicturePart::WholePlot) {
        DrawBoxes(painter, layout, factor, medium);
    }
}

} // namespace

std::string PictureName(const PlotRecord& record) {
    std::string name = record.FileTitle.empty() ? record.PlotTitle : record.FileTitle;
    if (const std::size_t ending = name.rfind('.'); ending != 0 && ending != std::string::npos) {
        name.resize(ending);
    }
    return FileNameOf(name.empty() ? std::string("plot") : name) + ".png";
}

std::string SavePlotPicture(const std::string& path, const PictureOptions& options) {
    const PictureLayout layout = LayOut(options.part);
    const PictureSize picture{layout.width, layout.height,
                              static_cast<double>(options.size) / kPictureHeight,
                              options.bandBytes};
    const BusyPointer busy(*gPlatform.status);
    return SavePicture(path, picture, ActiveRecord().PlotTitle,
                       [&options](QPainter& painter, double factor, Medium medium) {
                           DrawPicture(painter, options.part, factor, medium);
                       });
}

QImage PlotImage(PlotImagePart part, const PlotBoxSizes& boxes, double density) {
    const auto pixels = [density](QSize box) { return (box * density).expandedTo({1, 1}); };
    ImageSurface net(pixels(boxes.net), density, kWhite);
    ImageSurface legend(pixels(boxes.legend), density, kWhite);
    Plot& plot = ActivePlot();
    WorkOutUnseen(plot);
    DrawPlot(plot, PaperDrawing(plot.record, net.Drawing(), legend.Drawing()));
    return part == PlotImagePart::Net ? net.Image().copy() : legend.Image().copy();
}

} // namespace quandrel
