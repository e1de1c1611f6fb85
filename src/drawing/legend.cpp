// SPDX-License-Identifier: MIT

#include "drawing/legend.h"

#include "classify/class_legend.h"
#include "core/data_format.h"
#include "core/overlay_names.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "density/density_legend.h"
#include "derive/slip_arrows.h"
#include "drawing/shown_legend.h"
#include "orientation/angles.h"
#include "rose/rose_legend.h"
#include "statistics/axis_statistics.h"
#include "statistics/plot_region_texts.h"
#include "stereo/axis_rows.h"
#include "stereo/drawable_text.h"
#include "stereo/row_drawing.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quandrel {

namespace {

constexpr std::string_view kCutMark = "...";

LegendLine TextLine(std::string text) {
    return {LegendSample::None, 0, std::move(text)};
}

/// The meaning of a symbol of the main rows.
std::string NounOfRows(const PlotRecord& record) {
    if (IsPlottedAsPole(record, 0)) {
        return "Poles to planes";
    }
    return record.DataKind == kPolarLines ? "Polar lines" : "Lines";
}

/// Samples of downward rows, of upward ones, or of both.
void AddSignedSamples(std::vector<LegendLine>& lines, const Plot& plot, const Styles& styles,
                      std::int32_t first, std::int32_t last, const std::string& noun) {
    const SymbolCode down = CodeOfRows(plot, styles, first, last, false);
    const SymbolCode up = CodeOfRows(plot, styles, first, last, true);
    if (down != 0) {
        lines.push_back({LegendSample::Symbol, down, up != 0 ? noun + ", 'down' plunge" : noun});
    }
    if (up != 0) {
        lines.push_back({LegendSample::Symbol, up, noun + ", 'up' plunge"});
    }
}

/// The style of rows that are drawn as great circles.
LegendLine GreatCircleLine(const Plot& plot, const Styles& styles, std::int32_t first,
                           std::int32_t last, std::string text) {
    const SymbolCode down = CodeOfRows(plot, styles, first, last, false);
    return {LegendSample::GreatCircle,
            down != 0 ? down : CodeOfRows(plot, styles, first, last, true), std::move(text)};
}

void AddDataNames(std::vector<LegendLine>& lines, const PlotRecord& record) {
    if (record.MainFiles.empty()) {
        const std::string& title = record.FileTitle.empty() ? record.PlotTitle : record.FileTitle;
        lines.push_back(TextLine("Data: " + title));
        return;
    }
    std::string lead = "Data: ";
    for (const std::string& path : record.MainFiles) {
        lines.push_back(TextLine(lead + FileTitleOf(path)));
        lead = " + ";
    }
}

void AddBetaLines(std::vector<LegendLine>& lines, const PlotRecord& record, const Styles& styles) {
    lines.push_back({LegendSample::Symbol, CodeOfStyleRow(styles, kRowSymbol),
                     std::to_string(record.BetaCount) + " intersections of"});
    lines.push_back({LegendSample::Indent, 0, std::to_string(record.NumValidData) + " planes"});
}

/// The legend of a plot, line by line.
class Legend {
public:
    Legend(const Plot& plot, const Styles& styles, Formulas formulas)
        : plot_(plot)
        , record_(plot.record)
        , styles_(styles)
        , formulas_(formulas) {}

    [[nodiscard]] std::vector<LegendLine> Lines();

private:
    void Add(std::vector<LegendLine> more) { std::ranges::move(more, std::back_inserter(lines_)); }

    void AddAxisNumbers(AxisKind kind);
    void AddKinematicLines();
    void AddSlipLines();
    void AddMainRows();
    void AddClassifiedRows();
    void AddOverlays();

    const Plot& plot_;
    const PlotRecord& record_;
    const Styles& styles_;
    Formulas formulas_;
    std::vector<LegendLine> lines_;
};

/// The description of the axes of one kind in a plot of both.
void Legend::AddAxisNumbers(AxisKind kind) {
    for (std::string& text : AxisLegendTexts(StatisticsOfAxes(plot_, styles_, formulas_, kind))) {
        lines_.push_back({LegendSample::Indent, 0, std::move(text)});
    }
}

void Legend::AddKinematicLines() {
    const SymbolCode down = CodeOfStyleRow(styles_, kDerivedSymbol);
    const SymbolCode up = CodeOfStyleRow(styles_, kDerivedUpSymbol);
    if (record_.AxesTitle == kShorteningAxes) {
        lines_.push_back({LegendSample::Symbol, down, "P Shortening axes"});
    } else if (record_.AxesTitle == kExtensionAxes) {
        lines_.push_back({LegendSample::Symbol, up, "T Extensional axes"});
    } else {
        lines_.push_back({LegendSample::Symbol, down, "P Shortening axes"});
        AddAxisNumbers(AxisKind::Shortening);
        lines_.push_back({LegendSample::Symbol, up, "T Extension axes"});
        AddAxisNumbers(AxisKind::Extension);
    }
    if (AssumedSense(record_)) {
        lines_.push_back({LegendSample::Indent, 0, "sense assumed"});
    }
}

/// Slip lines without a sense need a word, because they look like other marks.
void Legend::AddSlipLines() {
    if (record_.NumSymbolsInPlot > 0 && !SlipArrowsTellSense(plot_)) {
        // They are in the colour of their rows: those of the top overlay if there is one.
        const int top = record_.OverlayRows[kOverlayCount];
        const std::int32_t first = top > 0 ? FirstRowOfOverlay(record_, top) : 1;
        const SymbolCode row = CodeOfRows(plot_, styles_, first, record_.NumLoadedData, false);
        lines_.push_back({LegendSample::Line, MakeSymbolCode(CodeColour(row), 0, 1),
                          "Slip lines, sense unknown"});
    }
}

void Legend::AddMainRows() {
    if (!record_.AxesTitle.empty()) {
        AddKinematicLines();
    } else if (record_.PlotSymbolMode == kBetaIntersections) {
        AddBetaLines(lines_, record_, styles_);
    } else if (record_.PlotSymbolMode == kGreatCircles) {
        lines_.push_back(
            GreatCircleLine(plot_, styles_, 1, record_.NumData,
                            IsPlottedAsPole(record_, 0) ? "Planes" : "Planes normal to lines"));
    } else if (record_.PlotSymbolMode <= kPointSymbolsToo) {
        AddSignedSamples(lines_, plot_, styles_, 1, record_.NumData, NounOfRows(record_));
    }
}

/// The classes of a classified plot, and what else its rows show.
void Legend::AddClassifiedRows() {
    Add(ClassLegendLines(plot_, styles_));
    if (record_.PlotSymbolMode == kBetaIntersections && ShowsMainRows(record_)
        && record_.NumValidData > 0) {
        AddBetaLines(lines_, record_, styles_);
    }
}

void Legend::AddOverlays() {
    for (int overlay = 1; overlay <= record_.OverlayRows[kOverlayCount]; ++overlay) {
        const auto k = static_cast<std::size_t>(overlay);
        const std::int32_t first = FirstRowOfOverlay(record_, overlay);
        const std::int32_t last = first + record_.OverlayRows[k] - 1;
        const std::string text = NameOfOverlay(record_, overlay);
        if (record_.OverlayKind[k] == kOverlayGreatCircles) {
            lines_.push_back(GreatCircleLine(plot_, styles_, first, last, text));
        } else {
            AddSignedSamples(lines_, plot_, styles_, first, last, text);
        }
    }
}

std::vector<LegendLine> Legend::Lines() {
    AddDataNames(lines_, record_);
    if (record_.PlotKind == kRose) {
        Add(RoseLegendLines(plot_, styles_));
        return std::move(lines_);
    }
    if (record_.ClassMode > 0) {
        AddClassifiedRows();
    } else if (record_.NumValidData > 0) {
        AddMainRows();
    }
    Add(BandLegendLines(plot_, styles_));
    AddOverlays();
    AddSlipLines();
    Add(RegionLegendLines(plot_, styles_));
    return std::move(lines_);
}

/// The positions of lines in the legend's box, in plot units from its top left corner.
struct LegendLayout {
    double width = 0;
    double height = 0;
    double lineHeight = 0;
    double sampleWidth = 0;
};

/// Gives the box the units of the plot, so that samples have the size of the symbols on the plot.
LegendLayout LayOut(const Drawing& drawing) {
    Surface& box = drawing.legend;
    const UserScale scale = box.Scale();
    const Point pixel = box.PixelSize();
    const double unit = drawing.plot.PixelSize().x;
    LegendLayout layout;
    layout.width = (scale.right - scale.left) / pixel.x * unit;
    layout.height = (scale.top - scale.bottom) / pixel.y * unit;
    box.SetUserScale({0, 0, layout.width, -layout.height});
    DrawState state;
    const PlotFont& font = drawing.styles.fonts[kLegendFont];
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    box.SetState(state);
    layout.lineHeight = box.TextHeight() * 1.15;
    layout.sampleWidth = 2.5 * box.TextWidth("M");
    return layout;
}

void DrawLineSample(const Drawing& drawing, SymbolCode code, double left, double right,
                    double middle) {
    Surface& box = drawing.legend;
    const SavedState saved(box);
    DrawState state = box.State();
    state.drawStyle = CodeSymbol(code);
    state.drawWidth = CodeSize(code);
    box.SetState(state);
    box.Line({left, middle}, {right, middle}, TableColour(drawing.styles, CodeColour(code)));
}

void DrawPatch(const Drawing& drawing, SymbolCode code, double left, double right, double middle,
               double halfHeight) {
    Surface& box = drawing.legend;
    const Styles& styles = drawing.styles;
    const SavedState saved(box);
    DrawState state = box.State();
    state.fillStyle = CodeSymbol(code);
    state.fillColour = TableColour(styles, CodeColour(code));
    box.SetState(state);
    const double share = CodeSize(code) == 0 ? 1 : CodeSize(code) / 100.0;
    const double centre = (left + right) / 2;
    const double half = (right - left) / 2 * share;
    const std::array<Point, 4> corners = {{{centre - half, middle + halfHeight},
                                           {centre + half, middle + halfHeight},
                                           {centre + half, middle - halfHeight},
                                           {centre - half, middle - halfHeight}}};
    // Without a fill only the outline shows the colour.
    box.Polygon(corners,
                CodeSymbol(code) == kNoFill
                    ? state.fillColour
                    : TableColour(styles, styles.symbols[kRoseBackgroundStyle][kPlaceSymbol]));
}

void DrawOutline(const Drawing& drawing, double left, double right, double middle) {
    Surface& box = drawing.legend;
    const SavedState saved(box);
    DrawState state = box.State();
    state.drawStyle = kDashedLine;
    state.drawWidth = 2;
    box.SetState(state);
    box.Line({left, middle}, {right, middle}, AxesColour(drawing));
}

/// A piece of a colour bar: the pieces of consecutive lines touch.
void DrawBand(const Drawing& drawing, const LegendLine& line, double left, double right, double top,
              double height) {
    Surface& box = drawing.legend;
    const SavedState saved(box);
    DrawState state = box.State();
    state.fillStyle = kSolidFill;
    state.fillColour = line.band;
    state.fillOpacity = line.opacity;
    box.SetState(state);
    const std::array<Point, 4> corners = {
        {{left, top}, {right, top}, {right, top - height}, {left, top - height}}};
    box.Polygon(corners, AxesColour(drawing));
}

void DrawSample(const Drawing& drawing, const ShownLegend& legend, const LegendLine& line,
                const LegendLayout& layout, double top) {
    Surface& box = drawing.legend;
    const double middle = top - layout.lineHeight / 2;
    const double centre = layout.sampleWidth / 2.5;
    const double left = 0.2 * centre;
    const double right = 1.8 * centre;
    switch (line.sample) {
    case LegendSample::None:
    case LegendSample::Indent:
        return;
    case LegendSample::Symbol: {
        const Point at{centre, middle};
        DrawSymbols(box, drawing.styles, std::span(&at, 1), line.code);
        return;
    }
    case LegendSample::GreatCircle:
        box.Line({left, middle}, {right, middle},
                 TableColour(drawing.styles, CodeColour(line.code)));
        return;
    case LegendSample::Line:
        DrawLineSample(drawing, line.code, left, right, middle);
        return;
    case LegendSample::Patch:
        DrawPatch(drawing, line.code, left, right, middle, 0.35 * layout.lineHeight);
        return;
    case LegendSample::Outline:
        DrawOutline(drawing, left, right, middle);
        return;
    case LegendSample::Band:
        DrawBand(drawing, line, left, right, top, layout.lineHeight);
        return;
    case LegendSample::Figure:
        DrawFigureSign(box, drawing, legend.signs[static_cast<std::size_t>(line.code)],
                       {centre, middle}, right - left);
        return;
    }
}

double LeftOfText(const LegendLine& line, const LegendLayout& layout) {
    return line.sample == LegendSample::None ? 0 : layout.sampleWidth;
}

void DrawLine(const Drawing& drawing, const ShownLegend& legend, const LegendLine& line,
              const LegendLayout& layout, double top) {
    Surface& box = drawing.legend;
    DrawSample(drawing, legend, line, layout, top);
    const double left = LeftOfText(line, layout);
    const double textTop = top - (layout.lineHeight - box.TextHeight()) / 2;
    box.Text({left, textTop}, CutToWidth(box, DrawableText(line.text), layout.width - left));
}

void DrawLines(const Drawing& drawing, const LegendLayout& layout, const ShownLegend& legend) {
    const std::vector<LegendLine>& lines = legend.lines;
    const auto room = static_cast<std::size_t>(std::max(layout.height / layout.lineHeight, 1.0));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double top = -layout.lineHeight * static_cast<double>(i);
        if (i + 1 == room && lines.size() > room) {
            DrawLine(drawing, legend, TextLine(std::string(kCutMark)), layout, top);
            return;
        }
        DrawLine(drawing, legend, lines[i], layout, top);
    }
}

} // namespace

SymbolCode CodeOfRows(const Plot& plot, const Styles& styles, std::int32_t first, std::int32_t last,
                      bool upward) {
    for (std::int32_t row = first; row <= last; ++row) {
        const SymbolCode code = CodeShown(plot, styles, row);
        const double dip = OrientationShown(plot, row).dip;
        if (dip != kErrorRow && (dip < 0) == upward && CodeSymbol(code) != 0) {
            return code;
        }
    }
    return 0;
}

std::string CutToWidth(const Surface& surface, const std::string& text, double width) {
    if (surface.TextWidth(text) <= width) {
        return text;
    }
    std::string cut = text;
    while (!cut.empty()) {
        // Removes a multi-byte character as a whole.
        while (cut.size() > 1 && (static_cast<unsigned char>(cut.back()) & 0xc0U) == 0x80U) {
            cut.pop_back();
        }
        cut.pop_back();
        const std::string marked = cut + std::string(kCutMark);
        if (surface.TextWidth(marked) <= width) {
            return marked;
        }
    }
    return {};
}

std::vector<LegendLine> LegendLines(const Plot& plot, const Styles& styles, Formulas formulas) {
    return Legend(plot, styles, formulas).Lines();
}

LegendSize SizeOfLegend(const Plot& plot, const Drawing& drawing) {
    LegendSize size;
    if (plot.record.LayerVisible[kLegendLayer] == 0) {
        return size;
    }
    const LegendLayout layout = LayOut(drawing);
    const Point pixel = drawing.legend.PixelSize();
    for (const LegendLine& line : LegendShown(plot, drawing).lines) {
        const double left = LeftOfText(line, layout);
        size.width = std::max(size.width, (left + drawing.legend.TextWidth(line.text)) / pixel.x);
        size.height += layout.lineHeight / pixel.y;
    }
    return size;
}

std::optional<std::size_t> LegendLineAt(const Drawing& drawing, Point at) {
    const LegendLayout layout = LayOut(drawing);
    const Point pixel = drawing.legend.PixelSize();
    const double x = at.x * pixel.x;
    const double y = at.y * pixel.y;
    if (x < 0 || y < 0 || x > layout.width || y > layout.height) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(y / layout.lineHeight);
}

void DrawLegendLines(const Drawing& drawing, const std::vector<LegendLine>& lines) {
    DrawLines(drawing, LayOut(drawing), {lines, {}, {}});
}

void DrawLegend(const Plot& plot, const Drawing& drawing) {
    const LegendLayout layout = LayOut(drawing);
    if (drawing.purpose == DrawnFor::Window) {
        drawing.legend.Clear(kWhite);
    }
    if (plot.record.LayerVisible[kLegendLayer] != 0) {
        const NamedGroup group(drawing.legend, "legend", "Legend");
        DrawLines(drawing, layout, LegendShown(plot, drawing));
    }
}

void DrawLegend() {
    DrawLegend(ActivePlot(), WindowDrawing(gActivePlot));
}

} // namespace quandrel
