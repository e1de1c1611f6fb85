// SPDX-License-Identifier: MIT

#include "qt/plot_picture.h"

#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "platform/platform.h"
#include "qt/image_surface.h"
#include "qt/painter_surface.h"
#include "stereo/plot_driver.h"
#include "stereo/text_lines.h"

#include <QPainter>

#include <algorithm>
#include <string_view>

namespace quandrel {

namespace {

constexpr int kUnseenSide = 8; ///< of a picture that nobody sees

/// The places of a picture's parts, in logical pixels.
struct PictureLayout {
    QSizeF size;
    QRectF net;
    QRectF legend;
    QRectF description;
    QRectF statistics;
    QRectF fabric;
    QRectF number;
};

DrawState StateOfFont(const PlotFont& font) {
    DrawState state;
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    return state;
}

/// Lines of text from the top of a box down; what does not fit is left out.
void DrawTextBox(QPainter& painter, const QRectF& box, double factor, Medium medium,
                 const PlotFont& font, const std::string& text) {
    const QRectF area(box.topLeft() * factor, box.size() * factor);
    PainterSurface surface(painter, area, factor, medium);
    surface.SetState(StateOfFont(font));
    double top = 0;
    for (const std::string& line : WrappedLines(surface, text, box.width())) {
        if (top + surface.TextHeight() > box.height()) {
            return;
        }
        DrawTabbedLine(surface, {0, -top}, line);
        top += surface.TextHeight();
    }
}

/// The statistics text that the plot shows; empty when it shows none.
std::string StatisticsShown(const PlotRecord& record, const PlotForm& form) {
    if (record.LayerVisible[kStatisticsLayer] == 0) {
        return {};
    }
    return form.BoxText(record.StatsBoxKind != 0 ? PlotBox::StatsAdvanced : PlotBox::StatsNormal);
}

/// Height of a text in a column of a width, logical pixels.
double HeightOfText(const PlotFont& font, const std::string& text, double width) {
    ImageSurface unseen({kUnseenSide, kUnseenSide}, 1, kWhite);
    Surface& surface = unseen.Drawing();
    surface.SetState(StateOfFont(font));
    return static_cast<double>(WrappedLines(surface, text, width).size()) * surface.TextHeight();
}

/// Statistics stand at the foot of the column and take what they need, the description above them;
/// the legend has the rest.
PictureLayout LayOut(PicturePart part) {
    constexpr double kSide = kPictureHeight;
    constexpr double kColumn = 290;
    constexpr double kMargin = 10;
    constexpr double kLine = 24;
    constexpr double kLeastLegend = 120;
    PictureLayout layout;
    layout.net = QRectF(0, 0, kSide, kSide);
    layout.size = QSizeF(kSide, kSide);
    if (part == PicturePart::NetAlone) {
        return layout;
    }
    layout.size.setWidth(kSide + kColumn);
    const PlotRecord& record = ActiveRecord();
    const double left = kSide + kMargin;
    const double width = kColumn - 2 * kMargin;
    const bool isDescribed =
        record.LayerVisible[kDescriptionLayer] != 0 && !record.DescriptionText.empty();
    const double description = isDescribed ? 4 * kLine : 0;
    const double room = kSide - 3 * kMargin - description - kLeastLegend;
    const double needed =
        HeightOfText(gPlotFonts[kStatsFont], StatisticsShown(record, FormOf(gActivePlot)), width);
    const double statistics = std::min(needed + 1, room);
    const double top = kSide - kMargin - statistics;
    layout.statistics = QRectF(left, top, width, statistics);
    layout.description = QRectF(left, top - description, width, description);
    layout.legend = QRectF(left, 2 * kMargin, width, top - description - 3 * kMargin);
    layout.fabric = QRectF(kMargin, kMargin, 150, kLine);
    layout.number = QRectF(kMargin, kSide - kMargin - kLine, 150, kLine);
    return layout;
}

/// Everything about the net: what the plot's window shows in its boxes.
void DrawBoxes(QPainter& painter, const PictureLayout& layout, double factor, Medium medium) {
    const PlotRecord& record = ActiveRecord();
    const PlotForm& form = FormOf(gActivePlot);
    const auto draw = [&](const QRectF& box, PlotFontPlace font, const std::string& text) {
        DrawTextBox(painter, box, factor, medium, gPlotFonts[font], text);
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
    draw(layout.statistics, kStatsFont, StatisticsShown(record, form));
}

/// Draws the whole picture with `factor` painter units to the logical pixel.
void DrawPicture(QPainter& painter, PicturePart part, double factor, Medium medium) {
    const PictureLayout layout = LayOut(part);
    const auto scaled = [factor](const QRectF& box) {
        return QRectF(box.topLeft() * factor, box.size() * factor);
    };
    PainterSurface net(painter, scaled(layout.net), factor, medium);
    if (part == PicturePart::NetAlone || ActiveRecord().LayerVisible[kLegendLayer] == 0) {
        // The legend is drawn all the same, where nobody sees it.
        ImageSurface legend({kUnseenSide, kUnseenSide}, factor, kWhite);
        DrawActivePlotOn(net, legend.Drawing());
    } else {
        PainterSurface legend(painter, scaled(layout.legend), factor, medium);
        DrawActivePlotOn(net, legend);
    }
    if (part == PicturePart::WholePlot) {
        DrawBoxes(painter, layout, factor, medium);
    }
}

} // namespace

std::string PictureName(const PlotRecord& record) {
    std::string name = record.FileTitle.empty() ? record.PlotTitle : record.FileTitle;
    if (const std::size_t ending = name.rfind('.'); ending != 0 && ending != name.npos) {
        name.resize(ending);
    }
    return FileNameOf(name.empty() ? std::string("plot") : name) + ".png";
}

std::string SavePlotPicture(const std::string& path, const PictureOptions& options) {
    const QSizeF size = LayOut(options.part).size;
    const PictureSize picture{size.width(), size.height(),
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
    DrawActivePlotOn(net.Drawing(), legend.Drawing());
    return part == PlotImagePart::Net ? net.Image().copy() : legend.Image().copy();
}

} // namespace quandrel
