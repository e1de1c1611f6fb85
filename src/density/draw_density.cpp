// SPDX-License-Identifier: MIT

#include "density/draw_density.h"

#include "core/plot_store.h"
#include "density/contours.h"
#include "density/density_levels.h"
#include "density/density_look.h"
#include "density/grid_geometry.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "platform/colour_space.h"
#include "stereo/figure_symbols.h"
#include "stereo/figure_text.h"
#include "stereo/net.h"
#include "stereo/shown_layers.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <span>
#include <string>

namespace quandrel {

namespace {

constexpr double kMarkRadius = 18; ///< of the cross at a maximum, plot units
constexpr double kEnvelopeWidth = 2;

Point PointOf(int plotKind, const NetPlace& place) {
    Point at;
    ProjectPoint(plotKind, DegToRad(place.plunge), DegToRad(place.trend), at.x, at.y);
    return at;
}

std::vector<Point> PointsOf(int plotKind, const std::vector<NetPlace>& places) {
    std::vector<Point> points;
    points.reserve(places.size() + 1);
    for (const NetPlace& place : places) {
        points.push_back(PointOf(plotKind, place));
    }
    return points;
}

/// A closed line repeats its first point.
std::vector<Point> LineOnNet(int plotKind, const FieldLine& line) {
    std::vector<Point> points = PointsOf(plotKind, line.vertices);
    if (line.isClosed) {
        points.push_back(points.front());
    }
    return points;
}

/// Adds the outlines of the region of a level; nothing above the last one.
void AddRegion(int plotKind, std::span<const PlotDensity::Contour> contours, std::size_t level,
               std::vector<std::vector<Point>>& rings) {
    if (level < contours.size()) {
        for (const std::vector<NetPlace>& ring : contours[level].region) {
            rings.push_back(PointsOf(plotKind, ring));
        }
    }
}

bool ShowsContours(const PlotRecord& record) {
    return ShowsMainRowsAs(record, kShowContours) || ShowsMainRowsAs(record, kShowBands);
}

LegendLine TextLineOf(const std::string& text) {
    return {LegendSample::None, 0, text};
}

/// The bounds of the band above a level.
std::string TextOfBand(const PlotDensity& density, std::size_t level) {
    const std::span<const double> levels = density.Levels();
    const auto text = [](double value) { return FormatNumber(value, "0.####"); };
    return level + 1 < levels.size() ? " " + text(levels[level]) + " - " + text(levels[level + 1])
                                     : " > " + text(levels[level]);
}

LegendLine LineOfLevel(const PlotRecord& record, const Styles& styles, const PlotDensity& density,
                       std::size_t level) {
    const auto number = static_cast<int>(level);
    if (!ShowsContours(record)) {
        return {LegendSample::Symbol, CodeOfLevels(styles, number + 1),
                " > " + TextInUnit(density.Levels()[level], density.Unit())};
    }
    if (ShowsMainRowsAs(record, kShowBands)) {
        LegendLine line{LegendSample::Band, 0, TextOfBand(density, level)};
        line.band = ColourOfBand(styles, record, number, static_cast<int>(density.Levels().size()));
        line.opacity = record.BandOpacity;
        return line;
    }
    const AxisStyle style = ContourStyleOf(styles, number);
    return {LegendSample::Line,
            MakeSymbolCode(style[kStyleColour], style[kStyleLine], style[kStyleWidth]),
            " > " + TextInUnit(density.Levels()[level], density.Unit())};
}

/// Whether the band of a value is darker than it is light, over white.
bool IsOnDarkBand(const PlotRecord& record, const DensityLook& look, double value) {
    constexpr double kMiddleLightness = 50;
    const auto reached = std::ranges::count_if(look.levels, [=](double l) { return value >= l; });
    if (record.ContourPicture == kContourLines || !ShowsContours(record) || reached == 0) {
        return false;
    }
    const double lightness = LabOf(look.bands[static_cast<std::size_t>(reached) - 1]).lightness;
    const double overWhite = 100 - look.opacity * (100 - lightness);
    return overWhite < kMiddleLightness;
}

} // namespace

SymbolCode CodeOfLevels(const Styles& styles, int reached) {
    return CodeOfStyleRow(styles, std::min(kFirstBandSymbol + reached, kLastBandSymbol));
}

void FillBands(const PlotRecord& record, const Drawing& drawing, const PlotDensity& density) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    const CircleClip clip(surface, {0, 0}, kNetRadius);
    DrawState state = surface.State();
    state.drawStyle = kNoLine;
    state.fillStyle = kSolidFill;
    const DensityLook look = LookOfDensity(record, drawing, density);
    const LookContours contours(density, look);
    state.fillOpacity = look.opacity;
    for (std::size_t level = 0; level < look.levels.size(); ++level) {
        std::vector<std::vector<Point>> rings;
        AddRegion(record.PlotKind, contours.All(), level, rings);
        // Opaque bands lie on top of each other, so that no seam shows between them.
        if (look.opacity < 1) {
            AddRegion(record.PlotKind, contours.All(), level + 1, rings);
        }
        state.fillColour = look.bands[level];
        surface.SetState(state);
        surface.Path(rings, state.fillColour);
    }
}

void DrawFieldContours(const PlotRecord& record, const Drawing& drawing,
                       const PlotDensity& density) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    const DensityLook look = LookOfDensity(record, drawing, density);
    const LookContours contours(density, look);
    int level = 0;
    for (const PlotDensity::Contour& contour : contours.All()) {
        const double value = look.levels.at(static_cast<std::size_t>(level));
        const LineLook line = LookOfContour(surface, drawing, look, level++);
        for (const FieldLine& at : contour.lines) {
            DrawContourAs(drawing, line, LineOnNet(record.PlotKind, at), value);
        }
    }
}

void DrawEnvelope(const PlotRecord& record, const Drawing& drawing,
                  const DensityEnvelope& envelope) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.drawStyle = kDashedLine;
    state.drawWidth = kEnvelopeWidth;
    state.widthInPoints = FigureOf(drawing).lines.regionWidth;
    surface.SetState(state);
    for (const FieldLine& line : envelope.lines) {
        surface.Polyline(LineOnNet(record.PlotKind, line), AxesColour(drawing));
    }
}

void DrawFieldSymbols(const PlotRecord& record, const Drawing& drawing, const PlotDensity& density,
                      int gridSize) {
    if (gridSize < kSmallestGridSize || gridSize > kLargestGridSize) {
        return;
    }
    const DensityLook look = LookOfDensity(record, drawing, density);
    const int step = GridStep(gridSize);
    std::map<int, std::vector<Point>> places; // by the levels that they reach
    for (int i = 0; i < GridNodes(gridSize); ++i) {
        for (int j = 0; j < GridNodes(gridSize); ++j) {
            const int x = NodePosition(i, step);
            const int y = NodePosition(j, step);
            if (static_cast<double>(x * x + y * y) > kNetRadius * kNetRadius) {
                continue;
            }
            MeasuredLine line;
            UnprojectPoint(record.PlotKind, x, y, line.plunge, line.trend);
            if (const int reached = density.ReachedAt(line, look.levels); reached > 0) {
                places[reached].push_back({static_cast<double>(x), static_cast<double>(y)});
            }
        }
    }
    for (const auto& [reached, at] : places) {
        DrawBandMarkers(drawing.plot, drawing, at, CodeOfLevels(drawing.styles, reached));
    }
}

void DrawMaxima(const PlotRecord& record, const Drawing& drawing, const PlotDensity& density) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.font = FontInFigure(drawing, kLegendFont);
    const DensityLook look = LookOfDensity(record, drawing, density);
    int rank = 0;
    for (const FieldMaximum& maximum : density.Maxima()) {
        const Point at = PointOf(record.PlotKind, maximum.place);
        const Colour colour =
            IsOnDarkBand(record, look, maximum.value) ? kWhite : AxesColour(drawing);
        state.foreColour = colour;
        surface.SetState(state);
        surface.Line({at.x - kMarkRadius, at.y}, {at.x + kMarkRadius, at.y}, colour);
        surface.Line({at.x, at.y - kMarkRadius}, {at.x, at.y + kMarkRadius}, colour);
        surface.Text({at.x + kMarkRadius, at.y + kMarkRadius + surface.TextHeight()},
                     std::to_string(++rank));
    }
}

void DrawDensityMarks(const Plot& plot, const Drawing& drawing, const PlotDensity& density) {
    if (const DensityEnvelope* envelope = EnvelopeOf(plot)) {
        const NamedGroup group(drawing.plot, "envelope", "Envelope of significance");
        DrawEnvelope(plot.record, drawing, *envelope);
    }
    if (plot.record.ShowMaxima != 0) {
        const NamedGroup group(drawing.plot, "maxima", "Maxima");
        DrawMaxima(plot.record, drawing, density);
    }
}

std::vector<LegendLine> FieldLegendLines(const Plot& plot, const Styles& styles,
                                         const PlotDensity& density) {
    const PlotRecord& record = plot.record;
    std::vector<LegendLine> lines;
    lines.push_back(TextLineOf(NameOfMethod(density.Formula(), record.DensityK)));
    lines.push_back(TextLineOf(NameOfUnit(density.Unit())));
    for (std::size_t level = 0; level < density.Levels().size(); ++level) {
        lines.push_back(LineOfLevel(record, styles, density, level));
    }
    if (const DensityEnvelope* envelope = EnvelopeOf(plot)) {
        lines.push_back({LegendSample::Outline, 0,
                         " 5% envelope: " + FormatNumber(envelope->level, "0.00") + " ± "
                             + FormatNumber(envelope->error, "0.00")});
    }
    lines.push_back({LegendSample::Indent, 0,
                     "(Max. =" + FormatNumber(density.Greatest().value, "0.00") + ")"});
    return lines;
}

} // namespace quandrel
