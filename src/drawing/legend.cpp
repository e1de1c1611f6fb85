// SPDX-License-Identifier: MIT

#include "drawing/legend.h"

#include "classify/class_legend.h"
#include "core/data_format.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "density/density_legend.h"
#include "derive/slip_arrows.h"
#include "orientation/angles.h"
#include "rose/rose_legend.h"
#include "statistics/axis_statistics.h"
#include "stereo/axis_rows.h"
#include "stereo/draw_target.h"
#include "stereo/drawable_text.h"
#include "stereo/row_drawing.h"
#include "stereo/row_positions.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quandrel {

namespace {

constexpr std::string_view kCutMark = "...";

LegendLine TextLine(std::string text) {
    return {LegendSample::None, 0, std::move(text)};
}

/// The code that most speaks for rows first to last: that of the first one with a symbol whose
/// shown value has the sign asked for.
SymbolCode CodeOfRows(std::int32_t first, std::int32_t last, bool upward) {
    for (std::int32_t row = first; row <= last; ++row) {
        const SymbolCode code = gDataSymbol(gActivePlot, row);
        const std::int32_t dip = OrientationShown(gActivePlot, row).dip;
        if (dip != kErrorRow && (dip < 0) == upward && CodeSymbol(code) != 0) {
            return code;
        }
    }
    return 0;
}

/// What a symbol of the main rows stands for.
std::string NounOfRows(const PlotRecord& record) {
    if (IsPlottedAsPole(record, 0)) {
        return "Poles to planes";
    }
    return record.DataKind == kPolarLines ? "Polar lines" : "Lines";
}

/// Samples of downward rows, of upward ones, or of both.
void AddSignedSamples(std::vector<LegendLine>& lines, std::int32_t first, std::int32_t last,
                      const std::string& noun) {
    const SymbolCode down = CodeOfRows(first, last, false);
    const SymbolCode up = CodeOfRows(first, last, true);
    if (down != 0) {
        lines.push_back({LegendSample::Symbol, down, up != 0 ? noun + ", 'down' plunge" : noun});
    }
    if (up != 0) {
        lines.push_back({LegendSample::Symbol, up, noun + ", 'up' plunge"});
    }
}

/// The style of rows that are drawn as great circles.
LegendLine GreatCircleLine(std::int32_t first, std::int32_t last, std::string text) {
    const SymbolCode down = CodeOfRows(first, last, false);
    return {LegendSample::GreatCircle, down != 0 ? down : CodeOfRows(first, last, true),
            std::move(text)};
}

/// What an overlay shows: its files, or the other set of the rows, or its number.
std::string TextOfOverlay(const PlotRecord& record, std::size_t overlay) {
    std::string text;
    for (const std::string& path : record.OverlayFiles[overlay]) {
        text += (text.empty() ? "" : " + ") + FileTitleOf(path);
    }
    if (text.empty() && static_cast<std::int16_t>(overlay) == record.SelectedOverlay) {
        return record.OverlayKind[overlay] <= kOverlayPoles ? "Secondary planes"
                                                            : "Secondary lines";
    }
    return text.empty() ? "Overlay " + std::to_string(overlay) : text;
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

void AddBetaLines(std::vector<LegendLine>& lines, const PlotRecord& record) {
    lines.push_back({LegendSample::Symbol, CodeOfStyleRow(kRowSymbol),
                     std::to_string(record.BetaCount) + " intersections of"});
    lines.push_back({LegendSample::Indent, 0, std::to_string(record.NumValidData) + " planes"});
}

/// What there is to tell of the axes of one kind among both.
void AddAxisNumbers(std::vector<LegendLine>& lines, AxisKind kind) {
    for (std::string& text : AxisLegendTexts(kind)) {
        lines.push_back({LegendSample::Indent, 0, std::move(text)});
    }
}

void AddKinematicLines(std::vector<LegendLine>& lines, const PlotRecord& record) {
    const SymbolCode down = CodeOfStyleRow(kDerivedSymbol);
    const SymbolCode up = CodeOfStyleRow(kDerivedUpSymbol);
    if (record.AxesTitle == kShorteningAxes) {
        lines.push_back({LegendSample::Symbol, down, "P Shortening axes"});
    } else if (record.AxesTitle == kExtensionAxes) {
        lines.push_back({LegendSample::Symbol, up, "T Extensional axes"});
    } else {
        lines.push_back({LegendSample::Symbol, down, "P Shortening axes"});
        AddAxisNumbers(lines, AxisKind::Shortening);
        lines.push_back({LegendSample::Symbol, up, "T Extension axes"});
        AddAxisNumbers(lines, AxisKind::Extension);
    }
    if (AssumedSense(record)) {
        lines.push_back({LegendSample::Indent, 0, "sense assumed"});
    }
}

/// Slip lines without a sense need a word, for they look like other marks.
void AddSlipLines(std::vector<LegendLine>& lines, const PlotRecord& record) {
    if (record.NumSymbolsInPlot > 0 && !SlipArrowsTellSense(gActivePlot)) {
        // They are in the colour of their rows: those of the top overlay where there is one.
        const int top = record.OverlayRows[kOverlayCount];
        const std::int32_t first = top > 0 ? FirstRowOfOverlay(record, top) : 1;
        const SymbolCode row = CodeOfRows(first, record.NumLoadedData, false);
        lines.push_back({LegendSample::Line, MakeSymbolCode(CodeColour(row), 0, 1),
                         "Slip lines, sense not told"});
    }
}

void AddMainRows(std::vector<LegendLine>& lines, const PlotRecord& record) {
    if (!record.AxesTitle.empty()) {
        AddKinematicLines(lines, record);
    } else if (record.PlotSymbolMode == kBetaIntersections) {
        AddBetaLines(lines, record);
    } else if (record.PlotSymbolMode == kGreatCircles) {
        lines.push_back(GreatCircleLine(
            1, record.NumData, IsPlottedAsPole(record, 0) ? "Planes" : "Planes normal to lines"));
    } else if (record.PlotSymbolMode <= kPointSymbolsToo) {
        AddSignedSamples(lines, 1, record.NumData, NounOfRows(record));
    }
}

void AddLines(std::vector<LegendLine>& lines, std::vector<LegendLine> more) {
    std::ranges::move(more, std::back_inserter(lines));
}

/// The classes of a classified plot, and what its rows show beside them.
void AddClassifiedRows(std::vector<LegendLine>& lines, const PlotRecord& record) {
    AddLines(lines, ClassLegendLines());
    if (record.PlotSymbolMode == kBetaIntersections && ShowsMainRows(record)
        && record.NumValidData > 0) {
        AddBetaLines(lines, record);
    }
}

void AddOverlays(std::vector<LegendLine>& lines, const PlotRecord& record) {
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        const auto k = static_cast<std::size_t>(overlay);
        const std::int32_t first = FirstRowOfOverlay(record, overlay);
        const std::int32_t last = first + record.OverlayRows[k] - 1;
        const std::string text = TextOfOverlay(record, k);
        if (record.OverlayKind[k] == kOverlayGreatCircles) {
            lines.push_back(GreatCircleLine(first, last, text));
        } else {
            AddSignedSamples(lines, first, last, text);
        }
    }
}

/// The text, cut with a mark so that it is no wider than asked for.
std::string CutToWidth(const Surface& surface, const std::string& text, double width) {
    if (surface.TextWidth(text) <= width) {
        return text;
    }
    std::string cut = text;
    while (!cut.empty()) {
        // A character of several bytes goes whole.
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

/// Where lines go in the legend's box, in plot units from its top left corner.
struct LegendLayout {
    double width = 0;
    double height = 0;
    double lineHeight = 0;
    double sampleWidth = 0;
};

/// Gives the box the units of the plot, so that samples are as large as what they stand for.
LegendLayout LayOut(Surface& box) {
    const UserScale scale = box.Scale();
    const Point pixel = box.PixelSize();
    const double unit = PlotSurface().PixelSize().x;
    LegendLayout layout;
    layout.width = (scale.right - scale.left) / pixel.x * unit;
    layout.height = (scale.top - scale.bottom) / pixel.y * unit;
    box.SetUserScale({0, 0, layout.width, -layout.height});
    DrawState state;
    state.font = gSettings.styles.fonts[kLegendFont].font;
    state.foreColour =
        ColourFromValue(static_cast<std::uint32_t>(gSettings.styles.fonts[kLegendFont].colour));
    box.SetState(state);
    layout.lineHeight = box.TextHeight() * 1.15;
    layout.sampleWidth = 2.5 * box.TextWidth("M");
    return layout;
}

void DrawLineSample(Surface& box, SymbolCode code, double left, double right, double middle) {
    const SavedState saved(box);
    DrawState state = box.State();
    state.drawStyle = CodeSymbol(code);
    state.drawWidth = CodeSize(code);
    box.SetState(state);
    box.Line({left, middle}, {right, middle}, TableColour(CodeColour(code)));
}

void DrawPatch(Surface& box, SymbolCode code, double left, double right, double middle,
               double halfHeight) {
    const SavedState saved(box);
    DrawState state = box.State();
    state.fillStyle = CodeSymbol(code);
    state.fillColour = TableColour(CodeColour(code));
    box.SetState(state);
    const double share = CodeSize(code) == 0 ? 1 : CodeSize(code) / 100.0;
    const double centre = (left + right) / 2;
    const double half = (right - left) / 2 * share;
    const std::array<Point, 4> corners = {{{centre - half, middle + halfHeight},
                                           {centre + half, middle + halfHeight},
                                           {centre + half, middle - halfHeight},
                                           {centre - half, middle - halfHeight}}};
    // Without a fill the outline alone shows the colour.
    box.Polygon(corners, CodeSymbol(code) == kNoFill
                             ? state.fillColour
                             : TableColour(gSymbolTable[kRoseBackgroundStyle][kPlaceSymbol]));
}

void DrawSample(Surface& box, const LegendLine& line, const LegendLayout& layout, double top) {
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
        DrawSymbols(box, std::span(&at, 1), line.code);
        return;
    }
    case LegendSample::GreatCircle:
        box.Line({left, middle}, {right, middle}, TableColour(CodeColour(line.code)));
        return;
    case LegendSample::Line:
        DrawLineSample(box, line.code, left, right, middle);
        return;
    case LegendSample::Patch:
        DrawPatch(box, line.code, left, right, middle, 0.35 * layout.lineHeight);
        return;
    }
}

double LeftOfText(const LegendLine& line, const LegendLayout& layout) {
    return line.sample == LegendSample::None ? 0 : layout.sampleWidth;
}

void DrawLine(Surface& box, const LegendLine& line, const LegendLayout& layout, double top) {
    DrawSample(box, line, layout, top);
    const double left = LeftOfText(line, layout);
    const double textTop = top - (layout.lineHeight - box.TextHeight()) / 2;
    box.Text({left, textTop}, CutToWidth(box, DrawableText(line.text), layout.width - left));
}

void DrawLines(Surface& box, const LegendLayout& layout, const std::vector<LegendLine>& lines) {
    const auto room = static_cast<std::size_t>(std::max(layout.height / layout.lineHeight, 1.0));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double top = -layout.lineHeight * static_cast<double>(i);
        if (i + 1 == room && lines.size() > room) {
            DrawLine(box, TextLine(std::string(kCutMark)), layout, top);
            return;
        }
        DrawLine(box, lines[i], layout, top);
    }
}

} // namespace

std::vector<LegendLine> LegendLines() {
    const PlotRecord& record = ActiveRecord();
    std::vector<LegendLine> lines;
    AddDataNames(lines, record);
    if (record.PlotKind == kRose) {
        AddLines(lines, RoseLegendLines());
        return lines;
    }
    if (record.ClassMode > 0) {
        AddClassifiedRows(lines, record);
    } else if (record.NumValidData > 0) {
        AddMainRows(lines, record);
    }
    AddLines(lines, BandLegendLines());
    AddOverlays(lines, record);
    AddSlipLines(lines, record);
    return lines;
}

LegendSize SizeOfLegend() {
    LegendSize size;
    if (ActiveRecord().LayerVisible[kLegendLayer] == 0) {
        return size;
    }
    Surface& box = LegendSurface();
    const LegendLayout layout = LayOut(box);
    const Point pixel = box.PixelSize();
    for (const LegendLine& line : LegendLines()) {
        const double left = LeftOfText(line, layout);
        size.width = std::max(size.width, (left + box.TextWidth(line.text)) / pixel.x);
        size.height += layout.lineHeight / pixel.y;
    }
    return size;
}

void DrawLegendLines(Surface& box, const std::vector<LegendLine>& lines) {
    DrawLines(box, LayOut(box), lines);
}

void DrawLegend() {
    Surface& box = LegendSurface();
    const LegendLayout layout = LayOut(box);
    if (!IsDrawingElsewhere()) {
        box.Clear(kWhite);
    }
    if (ActiveRecord().LayerVisible[kLegendLayer] != 0) {
        DrawLines(box, layout, LegendLines());
    }
}

} // namespace quandrel
