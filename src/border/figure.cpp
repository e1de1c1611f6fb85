// SPDX-License-Identifier: MIT

#include "quandrel/figure.h"

#include "border/border.h"
#include "border/figure_settings.h"
#include "border/inner_surface.h"
#include "border/plot_columns.h"
#include "core/figure_style_text.h"
#include "core/plot_formulas.h"
#include "core/plot_style.h"
#include "drawing/figure_page.h"
#include "drawing/layer_list.h"
#include "drawing/work_out.h"
#include "input/data_rows.h"
#include "persistence/plot_file_bytes.h"
#include "persistence/plot_of_file.h"
#include "quandrel/svg.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "stereo/drawable_text.h"
#include "stereo/row_sense.h"
#include "svg/svg_surface.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>
#include <stdexcept>

namespace quandrel::api {

namespace {

constexpr double kPixelsInMillimetre = 96 / 25.4;
constexpr double kPointsInAPixel = 0.75;
constexpr double kLeastLength = 20; ///< of pages and nets, millimetres
constexpr double kMostLength = 1000;
constexpr double kUnseenSide = 1000; ///< of the surface that measures texts
constexpr int kGridSize = 50;

double LengthIn(double length, const char* name) {
    return length == 0 ? 0 : Within(length, kLeastLength, kMostLength, name);
}

FigureSize SizeIn(const FigurePage& page) {
    FigureSize size;
    size.width = LengthIn(page.width, "width");
    size.netDiameter = LengthIn(page.netDiameter, "diameter of the net");
    switch (page.legend) {
    case FigurePage::Legend::kUsual:
        size.legend = UsualPlace(size.width);
        break;
    case FigurePage::Legend::kRight:
        size.legend = LegendPlace::Right;
        break;
    case FigurePage::Legend::kBelow:
        size.legend = LegendPlace::Below;
        break;
    case FigurePage::Legend::kNone:
        size.legend = LegendPlace::None;
        break;
    }
    return size;
}

SurfaceArea InPixels(const FigureBox& box) {
    return {box.left * kPixelsInMillimetre, box.top * kPixelsInMillimetre,
            box.width * kPixelsInMillimetre, box.height * kPixelsInMillimetre};
}

SvgArea InPoints(const FigureBox& box) {
    const SurfaceArea area = InPixels(box);
    return {area.left * kPointsInAPixel, area.top * kPointsInAPixel, area.width * kPointsInAPixel,
            area.height * kPointsInAPixel};
}

/// A recording whose texts have the sizes of the font that figures are written in.
class FigureRecording : public Recording {
public:
    explicit FigureRecording(Extent size)
        : Recording(size)
        , font_(size) {}

    [[nodiscard]] double TextWidth(std::string_view utf8, const Font& font) const override {
        return font_.TextWidth(utf8, font);
    }

    [[nodiscard]] double TextHeight(const Font& font) const override {
        return font_.TextHeight(font);
    }

private:
    SvgPicture font_;
};

ParsedRow ParsedOf(double dip, double azimuth, bool isPlane) {
    ParsedRow row;
    if (std::isnan(dip)) {
        return row;
    }
    row.status = LineStatus::Row;
    row.isPlane = isPlane;
    row.dip = Within(dip, -90, 90, "dip or plunge");
    row.az = Within(azimuth, 0, 360, "azimuth");
    return row;
}

std::vector<ParsedRow> RowsIn(const PlotRows& rows) {
    std::vector<ParsedRow> parsed;
    std::ranges::transform(rows.planes, std::back_inserter(parsed), [](const Plane& plane) {
        return ParsedOf(plane.dip, plane.dipDirection, true);
    });
    std::ranges::transform(rows.lines, std::back_inserter(parsed), [](const Line& line) {
        return ParsedOf(line.plunge, line.trend, false);
    });
    return parsed;
}

} // namespace

/// What is held, with what is worked out for drawings.
struct Figure::Document {
    quandrel::Plot plot;
    Styles styles = StartStyles();
    bool hasNewRows = true; ///< since the plot was worked out

    [[nodiscard]] Formulas FormulasInUse() const { return FormulasOf(plot.record, Formulas::Own); }

    void WorkOut() {
        if (plot.record.PlotKind == kRose) {
            WorkOutRoseUnasked(plot, FormulasInUse());
        } else {
            WorkOutPlot(plot, {hasNewRows ? ReplotCause::Rows : ReplotCause::Settings, styles,
                               FormulasInUse(), kGridSize});
            hasNewRows = false;
        }
    }

    [[nodiscard]] quandrel::Drawing DrawingOn(quandrel::Surface& net,
                                              quandrel::Surface& page) const {
        quandrel::Drawing drawing{net, page, styles, quandrel::DrawnFor::Paper, FormulasInUse()};
        drawing.figure = StyleOfPlot(plot.record);
        return drawing;
    }

    /// The page of the plot as it is, divided.
    [[nodiscard]] quandrel::Result<FigureLayout> LayOut(const FigurePage& page) {
        WorkOut();
        SvgWriter document(kUnseenSide, kUnseenSide, 1);
        SvgSurface unseen(document, {0, 0, kUnseenSide, kUnseenSide});
        return LayOutFigureOnPage(plot, DrawingOn(unseen, unseen), SizeIn(page),
                                  LengthIn(page.height, "height"));
    }
};

Figure::Figure(std::unique_ptr<Document> document)
    : document_(std::move(document)) {}

Figure::Figure(const Plot& plot)
    : document_(std::make_unique<Document>()) {
    if (!TakeBinaryPlot(PlotIn(plot), document_->plot)) {
        throw std::bad_alloc();
    }
    quandrel::SetStyle(document_->plot.record, ChoiceOfStandard(kJournalStyle));
}

Figure::Figure(Figure&&) noexcept = default;
Figure& Figure::operator=(Figure&&) noexcept = default;
Figure::~Figure() = default;

Result<Figure> Figure::Read(std::string_view bytes) {
    quandrel::Result<quandrel::Plot> plot = quandrel::ReadPlotFile(bytes);
    if (!plot) {
        return Failure{plot.Error()};
    }
    auto document = std::make_unique<Document>();
    document->plot = std::move(*plot);
    return Figure(std::move(document));
}

Result<std::string> Figure::Bytes() const {
    quandrel::Result<std::string> bytes = PlotFileBytes(document_->plot);
    if (!bytes) {
        return Failure{bytes.Error()};
    }
    return std::move(*bytes);
}

Result<Plot> Figure::Rows() const {
    const Result<std::string> bytes = Bytes();
    return bytes ? ReadPlot(*bytes) : Result<Plot>(Failure{bytes.Error()});
}

void Figure::AddOverlay(const PlotOverlay& overlay) {
    quandrel::Plot& plot = document_->plot;
    if (plot.record.OverlayRows[kOverlayCount] >= static_cast<std::int32_t>(kMostOverlays)) {
        throw std::invalid_argument("there are more than 20 overlays");
    }
    const std::vector<ParsedRow> rows = RowsIn(overlay.rows);
    if (rows.empty() || rows.size() > kMostOverlayRows) {
        throw std::invalid_argument("an overlay has no rows, or more than 32767");
    }
    const int number = OpenOverlay(plot.record, static_cast<std::int16_t>(overlay.kind));
    RowForm form{.target = {number, kNoSecondary, false, false},
                 .columns = ColumnsOf(plot.record, false),
                 .usesDecimals = plot.record.UseDecimals != 0,
                 .isPlottedAsPole = IsPlottedAsPole(plot.record, number),
                 .plotKind = plot.record.PlotKind,
                 .codes = {CodeOfNewRow(document_->styles, plot.record, number, false),
                           CodeOfNewRow(document_->styles, plot.record, number, true)}};
    for (const ParsedRow& row : rows) {
        RowFaults faults;
        if (!AppendRow(plot, number, ValuesOfRow(row, form, faults))) {
            throw std::bad_alloc();
        }
    }
    document_->hasNewRows = true;
}

void Figure::SetKind(PlotKind kind) {
    document_->plot.record.PlotKind = static_cast<std::int16_t>(
        Within(static_cast<int>(kind), kEqualArea, quandrel::kRose, "kind of plot"));
    document_->hasNewRows = true;
}

void Figure::SetStyle(std::string_view style) {
    StyleChoice choice;
    if (StandardStyle(style) != nullptr) {
        choice = ChoiceOfStandard(style);
    } else {
        const quandrel::Result<FigureStyle> read = StyleOfText(style);
        if (!read) {
            throw std::invalid_argument(read.Error());
        }
        choice = {read->name, std::string(style)};
    }
    quandrel::SetStyle(document_->plot.record, choice);
}

std::string Figure::Style() const {
    return StyleOfPlot(document_->plot.record)->name;
}

std::vector<FigureLayer> Figure::Layers() const {
    std::vector<FigureLayer> layers;
    std::ranges::transform(LayersOf(document_->plot), std::back_inserter(layers), LayerOut);
    return layers;
}

void Figure::SetLayers(std::span<const FigureLayer> layers) {
    quandrel::Plot& plot = document_->plot;
    if (plot.record.PlotKind == quandrel::kRose) {
        throw std::invalid_argument("a rose has no layers");
    }
    std::vector<quandrel::FigureLayer> in;
    std::ranges::transform(layers, std::back_inserter(in),
                           [&plot](const FigureLayer& layer) { return LayerIn(plot, layer); });
    if (in.size() > kMostLayers) {
        throw std::invalid_argument("there are more than 200 layers");
    }
    plot.record.Layers = std::move(in);
}

void Figure::SetDensities(const FigureDensities& densities) {
    PlotRecord& record = document_->plot.record;
    static_cast<RecordDensityView&>(record) = DensitiesIn(densities, record);
}

void Figure::SetRegions(const FigureRegions& regions) {
    PlotRecord& record = document_->plot.record;
    static_cast<RecordRegions&>(record) = RegionsIn(regions, record);
}

void Figure::SetRose(const FigureRose& rose) {
    PlotRecord& record = document_->plot.record;
    record.RoseSectorSize = Within(rose.sectorSize, 0.1, 360, "sector size");
    record.RoseOddSectorSize = DivideCircle(record.RoseSectorSize).oddSize;
    record.RoseStartAngle = Within(rose.start, 0, 360, "start");
    record.RoseEqualArea = rose.hasEqualArea ? kTrue : std::int16_t{0};
    document_->hasNewRows = true;
}

Result<std::string> Figure::Svg(const FigurePage& page) const {
    const quandrel::Result<FigureLayout> layout = document_->LayOut(page);
    if (!layout) {
        return Failure{layout.Error()};
    }
    const SvgArea whole = InPoints({0, 0, layout->width, layout->height});
    SvgWriter writer(whole.width, whole.height, kPointsInAPixel);
    writer.SetTitle(DrawableText(document_->plot.record.PlotTitle));
    writer.SetDescription("Drawn by Quandrel in the style " + DrawableText(Style()));
    if (!page.isTransparent) {
        writer.Add(BoxShape({0, 0}, {whole.width, whole.height}), kNoSvgPen,
                   {kSolidFill, kWhite, 1, {}});
    }
    SvgSurface onNet(writer, InPoints(layout->net));
    SvgSurface onPage(writer, whole);
    DrawFigure(document_->plot, document_->DrawingOn(onNet, onPage), *layout);
    return writer.Document();
}

Result<Figure::Picture> Figure::Operations(const FigurePage& page) const {
    const quandrel::Result<FigureLayout> layout = document_->LayOut(page);
    if (!layout) {
        return Failure{layout.Error()};
    }
    const SurfaceArea whole = InPixels({0, 0, layout->width, layout->height});
    FigureRecording recording({whole.width, whole.height});
    InnerSurface onNet(recording, InPixels(layout->net));
    InnerSurface onPage(recording, whole);
    DrawFigure(document_->plot, document_->DrawingOn(onNet, onPage), *layout);
    return Picture{recording.Size(), recording.Operations()};
}

} // namespace quandrel::api
