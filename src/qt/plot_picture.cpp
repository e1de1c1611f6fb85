// SPDX-License-Identifier: MIT

#include "qt/plot_picture.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/plot_texts.h"
#include "core/settings.h"
#include "drawing/draw_plot.h"
#include "drawing/plot_driver.h"
#include "drawing/work_out.h"
#include "persistence/binary_plot.h"
#include "persistence/picture_block.h"
#include "persistence/picture_data.h"
#include "platform/platform.h"
#include "qt/image_surface.h"
#include "qt/picture_page.h"
#include "qt/unseen_surface.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// The statistics text that the plot shows; empty when it shows none.
std::string StatisticsShown(const Plot& plot) {
    return plot.record.LayerVisible[kStatisticsLayer] == 0 ? std::string() : StatisticsInUse(plot);
}

/// The texts for the column beside the net of gActivePlot, measured on a surface.
PictureTexts TextsOfActivePlot(Surface& unseen) {
    const Plot& plot = ActivePlot();
    const PlotRecord& record = plot.record;
    PictureTexts texts;
    texts.isDescribed =
        record.LayerVisible[kDescriptionLayer] != 0 && !record.DescriptionText.empty();
    texts.statisticsHeight = HeightOfText(unseen, gSettings.styles.fonts[kStatsFont],
                                          StatisticsShown(plot), kPictureTextWidth);
    return texts;
}

PictureLayout LayOut(PicturePart part, Surface& unseen) {
    return LayOutPicture(part, part == PicturePart::NetAlone ? PictureTexts()
                                                             : TextsOfActivePlot(unseen));
}

/// Everything around the net: what the plot's window shows in its boxes.
void DrawBoxes(PicturePage& page, const PictureLayout& layout) {
    const PlotRecord& record = ActiveRecord();
    const auto draw = [&](const RoomRect& box, PlotFontPlace font, const std::string& text,
                          const char* id, const char* title) {
        Surface& surface = page.In(box);
        const NamedGroup group(surface, id, title);
        DrawTextBox(surface, gSettings.styles.fonts[static_cast<std::size_t>(font)], text,
                    box.width, box.height);
    };
    if (record.LayerVisible[kFabricLayer] != 0) {
        draw(layout.fabric, kFabricFont, record.FabricText, "fabric", "Fabric");
    }
    if (record.LayerVisible[kDescriptionLayer] != 0) {
        draw(layout.description, kGeneralFont, record.DescriptionText, "description",
             "Description");
    }
    if (record.LayerVisible[kNumberLayer] != 0) {
        draw(layout.number, kGeneralFont, "n = " + NumberBoxText(), "number", "Number of rows");
    }
    draw(layout.statistics, kStatsFont, StatisticsShown(ActivePlot()), "statistics", "Statistics");
}

/// Draws the whole picture.
void DrawPicture(PicturePage& page, PicturePart part, Surface& unseen) {
    Plot& plot = ActivePlot();
    WorkOutUnseen(plot);
    const PictureLayout layout = LayOut(part, unseen);
    Surface& net = page.In(layout.net);
    if (part == PicturePart::NetAlone || plot.record.LayerVisible[kLegendLayer] == 0) {
        // The legend is always drawn, even if it is not shown.
        ImageSurface legend({kUnseenSide, kUnseenSide}, 1, kWhite);
        DrawPlot(plot, PaperDrawing(plot.record, net, legend.Drawing()));
    } else {
        DrawPlot(plot, PaperDrawing(plot.record, net, page.In(layout.legend)));
    }
    if (part == PicturePart::WholePlot) {
        DrawBoxes(page, layout);
    }
}

/// A box of a plot as a document of points.
class SvgBox {
public:
    explicit SvgBox(QSize box)
        : width_(kPointsInAPixel * std::max(box.width(), 1))
        , height_(kPointsInAPixel * std::max(box.height(), 1))
        , writer_(width_, height_, kPointsInAPixel)
        , surface_(writer_, {0, 0, width_, height_}) {
        surface_.Clear(kWhite);
    }

    [[nodiscard]] Surface& Drawing() { return surface_; }

    [[nodiscard]] std::string Document() const { return writer_.Document(); }

private:
    double width_;
    double height_;
    SvgWriter writer_;
    SvgSurface surface_;
};

/// Draws gActivePlot for the clipboard.
void DrawCopy(Surface& net, Surface& legend) {
    Plot& plot = ActivePlot();
    WorkOutUnseen(plot);
    DrawPlot(plot, PaperDrawing(plot.record, net, legend));
}

constexpr double kPixelsInInch = 96;

/// The file of a picture.
struct PictureFile {
    const std::string& path;
    std::string style;
    bool hasData = false;
};

/// Saves a picture of a plot that is worked out.
std::string SaveWithFacts(const Plot& shown, const PictureFile& file, const PictureSize& size,
                          const DrawPictureOn& draw) {
    PictureFacts facts;
    facts.title = shown.record.PlotTitle;
    facts.style = file.style;
    if (!file.hasData) {
        return SavePicture(file.path, size, facts, draw);
    }
    facts.title = PictureViewOf(shown.record).title;
    return SavePictureWithFile(file.path, size, facts, PlotBytesForPicture(shown), draw);
}

std::string SaveFigure(Plot& plot, const std::string& path, const PictureOptions& options) {
    const FigureExport& figure = *options.figure;
    const BusyPointer busy(*gPlatform.status);
    WorkOutUnseen(plot);
    UnseenSurface unseen(path);
    const Result<FigureLayout> layout = LayOutExport(plot, figure, unseen.Drawing());
    if (!layout) {
        return layout.Error();
    }
    const RoomRect whole = PageOfFigure(*layout);
    PictureSize size{whole.width, whole.height, figure.dotsPerInch / kPixelsInInch,
                     options.bandBytes};
    size.isTransparent = figure.isTransparent;
    return SaveWithFacts(plot, {path, StyleOfFigure(figure, plot.record)->name, options.hasData},
                         size, [&](PicturePage& page) { DrawExport(plot, figure, *layout, page); });
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
    Plot& plot = ActivePlot();
    if (options.figure) {
        return SaveFigure(plot, path, options);
    }
    UnseenSurface unseen(path);
    const PictureLayout layout = LayOut(options.part, unseen.Drawing());
    const PictureSize picture{layout.width, layout.height,
                              static_cast<double>(options.size) / kPictureHeight,
                              options.bandBytes};
    const BusyPointer busy(*gPlatform.status);
    WorkOutUnseen(plot);
    return SaveWithFacts(
        plot, {path, StyleOfPlot(plot.record)->name, options.hasData}, picture,
        [&](PicturePage& page) { DrawPicture(page, options.part, unseen.Drawing()); });
}

QImage PlotImage(PlotImagePart part, const PlotBoxSizes& boxes, double density) {
    const auto pixels = [density](QSize box) { return (box * density).expandedTo({1, 1}); };
    ImageSurface net(pixels(boxes.net), density, kWhite);
    ImageSurface legend(pixels(boxes.legend), density, kWhite);
    DrawCopy(net.Drawing(), legend.Drawing());
    return part == PlotImagePart::Net ? net.Image().copy() : legend.Image().copy();
}

std::string PlotSvg(PlotImagePart part, const PlotBoxSizes& boxes) {
    SvgBox net(boxes.net);
    SvgBox legend(boxes.legend);
    DrawCopy(net.Drawing(), legend.Drawing());
    return part == PlotImagePart::Net ? net.Document() : legend.Document();
}

} // namespace quandrel
