// SPDX-License-Identifier: MIT

#include "stereo/row_drawing.h"

#include "core/plot_store.h"
#include "core/step_progress.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/crowd.h"
#include "stereo/figure_lines.h"
#include "stereo/figure_symbols.h"
#include "stereo/great_circles.h"
#include "stereo/row_bands.h"
#include "stereo/row_sense.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace quandrel {

namespace {

/// A computed pole that points up by more than this is outside the net; it has no great circle.
constexpr double kSteepestUpwardPole = 0.05;

constexpr std::int16_t kByNumbers = 1;      ///< ClassMode of a plot that may show a grid of values
constexpr std::int16_t kPointsAlone = 0;    ///< NumClasses that show rows: this one without a grid,
constexpr std::int16_t kContoursOnRows = 4; ///< this one with contours of the values

/// The occupied positions of the net, in whole plot units. A strip of the net is allocated when its
/// first position is taken, so that drawing a few rows does not need a complete map.
class TakenPlaces {
public:
    /// Takes a position. False when it was taken before. A position that is not a whole number or
    /// is outside the picture is never taken.
    bool Take(std::int16_t x, std::int16_t y) {
        if (x < -kReach || x > kReach || y < -kReach || y > kReach) {
            return true;
        }
        const auto column = static_cast<std::size_t>(x + kReach);
        std::vector<bool>& strip = strips_[column / kStripColumns];
        if (strip.empty()) {
            strip.resize(kStripColumns * kSide);
        }
        auto&& taken = strip[column % kStripColumns * kSide + static_cast<std::size_t>(y + kReach)];
        if (taken) {
            return false;
        }
        taken = true;
        return true;
    }

private:
    static constexpr int kReach = 1100;
    static constexpr std::size_t kSide = 2 * kReach + 1;
    static constexpr std::size_t kStripColumns = 16;
    std::array<std::vector<bool>, kSide / kStripColumns + 1> strips_;
};

/// A row to be drawn: its position in the table, and its code.
struct StyledRow {
    std::uint32_t place = 0;
    SymbolCode code = 0;
};

SymbolCode CodeOfRow(const Plot& plot, const Styles& styles, std::int32_t index, RowStyle style) {
    const SymbolCode own = CodeShown(plot, styles, index);
    if (style == RowStyle::Own || CodeSymbol(own) == kNoSymbol) {
        return own;
    }
    const auto* const bands = plot.attachments.Find<RowBands>();
    const int band = bands != nullptr ? bands->ofRow.at(static_cast<std::size_t>(index))
                                      : plot.rows.pointDensity(index);
    const int row = std::min(kFirstBandSymbol + std::max(band, 1) - 1, kLastBandSymbol);
    return CodeOfStyleRow(styles, row);
}

/// The rows of a range in table order, without hidden rows and those covered by a later row of the
/// same style and position.
std::vector<StyledRow> RowsToDraw(const Plot& plot, const Styles& styles, RowRange range,
                                  RowStyle style) {
    const RowTable& table = plot.table;
    std::unordered_map<SymbolCode, TakenPlaces> taken;
    std::vector<StyledRow> rows;
    SymbolCode currentCode = std::numeric_limits<SymbolCode>::max();
    TakenPlaces* current = nullptr;
    for (std::size_t place = table.size(); place-- > 0;) {
        const std::int32_t index = table.index[place];
        if (index < range.first || index > range.last || IsErrorRow(table.plunge[place])) {
            continue;
        }
        const SymbolCode code = CodeOfRow(plot, styles, index, style);
        if (CodeSymbol(code) == kNoSymbol) {
            continue;
        }
        if (code != currentCode) {
            current = &taken[code];
            currentCode = code;
        }
        if (current->Take(table.x[place], table.y[place])) {
            rows.push_back({static_cast<std::uint32_t>(place), code});
        }
    }
    std::reverse(rows.begin(), rows.end());
    return rows;
}

/// Consecutive rows of the same style are sent to the surface together.
///
/// @param count  rows of the set
void DrawRuns(const Drawing& drawing, const RowTable& table, std::span<const StyledRow> rows,
              std::int64_t count) {
    std::vector<Point> positions;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::uint32_t place = rows[i].place;
        positions.push_back(
            {static_cast<double>(table.x[place]), static_cast<double>(table.y[place])});
        if (i + 1 == rows.size() || rows[i + 1].code != rows[i].code) {
            DrawRowMarkers(drawing.plot, drawing, positions, rows[i].code, count);
            positions.clear();
        }
    }
}

/// Rows that can be seen through: each place as dark as its rows are together.
void DrawCrowd(const Plot& plot, const Drawing& drawing, RowRange range, RowStyle style,
               double opacity) {
    const RowTable& table = plot.table;
    std::map<SymbolCode, Crowd> crowds;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t index = table.index[place];
        if (index < range.first || index > range.last || IsErrorRow(table.plunge[place])) {
            continue;
        }
        const SymbolCode code = CodeOfRow(plot, drawing.styles, index, style);
        if (CodeSymbol(code) != kNoSymbol) {
            crowds[code].Add(table.x[place], table.y[place]);
        }
    }
    const std::int64_t count = std::int64_t{range.last} - range.first + 1;
    for (const auto& [code, crowd] : crowds) {
        for (const CrowdLevel& level : crowd.Levels(opacity)) {
            DrawRowMarkers(drawing.plot, drawing, level.places, code, count, level.rows);
        }
    }
}

/// Each row's symbol with its arrow on top, in order. Arrows differ, so no row is skipped.
void DrawWithSlipArrows(const Plot& plot, const Drawing& drawing, RowRange range, RowStyle style,
                        const SlipArrows& arrows) {
    const RowTable& table = plot.table;
    const int arrow = arrows.haveHeads ? kSlipArrowSymbol : kSlipLineSymbol;
    const std::int64_t count = std::int64_t{range.last} - range.first + 1;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t index = table.index[place];
        if (index < range.first || index > range.last || IsErrorRow(table.plunge[place])) {
            continue;
        }
        const SymbolCode code = CodeOfRow(plot, drawing.styles, index, style);
        if (CodeSymbol(code) == kNoSymbol) {
            continue;
        }
        const Point at{static_cast<double>(table.x[place]), static_cast<double>(table.y[place])};
        DrawRowMarkers(drawing.plot, drawing, std::span(&at, 1), code, count);
        const double angle = arrows.azimuth(index);
        if (std::isfinite(angle)) {
            DrawSymbol(drawing.plot, drawing.styles, table.x[place], table.y[place],
                       CodeColour(code), arrow, CodeSize(code), angle);
        }
    }
}

/// The width and the opacity of the great circles of so many rows.
void UseCircleStyle(const Drawing& drawing, std::size_t circles) {
    const LineStyle& lines = FigureOf(drawing).lines;
    const bool areMany = circles > static_cast<std::size_t>(lines.manyCircles);
    SetWidthInPoints(drawing.plot, areMany ? lines.manyCirclesWidth : lines.circleWidth);
    DrawState state = drawing.plot.State();
    state.fillStyle = kNoFill;
    if (lines.circleWidth > 0 && areMany) {
        state.lineOpacity = lines.manyCirclesOpacity;
    }
    LineLook look{state, {}};
    TakeLayer(drawing.layer, look);
    drawing.plot.SetState(look.state);
}

/// The distinct planes of some rows.
struct DistinctPlanes {
    std::vector<Direction> normals;
    std::vector<std::int64_t> weights; ///< number of rows of each
};

/// The planes of the valid main rows of a plot, from their poles.
DistinctPlanes PlanesOfMainRows(const Plot& plot) {
    const RowTable& table = plot.table;
    const std::int32_t last = plot.record.NumData;
    std::map<std::pair<double, double>, std::int64_t> rows;
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (table.index[place] <= last && !IsErrorRow(table.plunge[place])) {
            ++rows[{std::abs(table.plunge[place]), table.trend[place]}];
        }
    }
    DistinctPlanes planes;
    for (const auto& [pole, weight] : rows) {
        planes.normals.push_back(LineToCosines(pole.first, pole.second));
        planes.weights.push_back(weight);
    }
    return planes;
}

BetaIntersections BetaIntersectionsOf(const Plot& plot, StatusLine* watcher) {
    const DistinctPlanes planes = PlanesOfMainRows(plot);
    const auto n = static_cast<std::int64_t>(planes.normals.size());
    StepProgress progress(std::max(n * (n - 1) / 2, std::int64_t{1}), kDrawingWithoutProgress,
                          watcher);
    BetaIntersections found;
    found.places = IntersectionPositions(
        plot.record.PlotKind, planes.normals, planes.weights,
        [&progress](std::int64_t pairs) { progress.Reach(pairs); }, found.count);
    return found;
}

/// The intersections of a plot with the data they were computed from.
struct KeptIntersections {
    std::uint64_t version = 0; ///< of the table; 0 for none
    std::int32_t lastIndex = 0;
    std::int16_t plotKind = 0;
    BetaIntersections found;

    [[nodiscard]] bool AreOf(const Plot& plot) const {
        return version == plot.table.version && lastIndex == plot.record.NumData
               && plotKind == plot.record.PlotKind;
    }
};

} // namespace

bool ShowsMainRows(const PlotRecord& record) {
    return record.ClassMode != kByNumbers || record.NumClasses == kPointsAlone
           || record.NumClasses == kContoursOnRows;
}

void DrawRowSymbols(const Plot& plot, const Drawing& drawing, RowRange range, RowStyle style,
                    const SlipArrows& arrows) {
    if (arrows.azimuth) {
        DrawWithSlipArrows(plot, drawing, range, style, arrows);
        return;
    }
    const std::int64_t count = std::int64_t{range.last} - range.first + 1;
    if (const double opacity = OpacityOfRows(drawing, count); opacity > 0 && opacity < 1) {
        DrawCrowd(plot, drawing, range, style, opacity);
        return;
    }
    DrawRuns(drawing, plot.table, RowsToDraw(plot, drawing.styles, range, style), count);
}

void DrawRowGreatCircles(const Plot& plot, const Drawing& drawing, RowRange range) {
    const RowTable& table = plot.table;
    const int plotKind = plot.record.PlotKind;
    const bool isMeasured = plot.record.UseDecimals != 0;
    const std::vector<StyledRow> rows = RowsToDraw(plot, drawing.styles, range, RowStyle::Own);
    const SavedState saved(drawing.plot);
    UseCircleStyle(drawing, rows.size());
    const bool hasColour = drawing.layer != nullptr && drawing.layer->LayerColour != kColourOfStyle;
    const bool isTrue = FigureOf(drawing).lines.trueCircles;
    StepProgress progress(std::max(static_cast<std::int64_t>(rows.size()), std::int64_t{1}),
                          kDrawingWithoutProgress, drawing.watcher);
    std::int64_t drawn = 0;
    for (const StyledRow& row : rows) {
        progress.Reach(drawn++);
        double plunge = std::abs(table.plunge[row.place]);
        double trend = table.trend[row.place];
        if (!isMeasured && !isTrue) {
            UnprojectPoint(plotKind, table.x[row.place], table.y[row.place], plunge, trend);
        }
        if (plunge < -kSteepestUpwardPole) {
            continue;
        }
        DrawPlane(drawing, plotKind, plunge, trend,
                  hasColour
                      ? ColourFromValue(static_cast<std::uint32_t>(drawing.layer->LayerColour))
                      : TableColour(drawing.styles, CodeColour(row.code)));
    }
}

std::vector<Point> IntersectionPositions(int plotKind, std::span<const Direction> normals,
                                         std::span<const std::int64_t> weights,
                                         const std::function<void(std::int64_t)>& onPairs,
                                         std::int64_t& count) {
    TakenPlaces taken;
    std::vector<Point> positions;
    std::int64_t pairs = 0;
    count = 0;
    for (std::size_t i = 0; i < normals.size(); ++i) {
        onPairs(pairs);
        pairs += static_cast<std::int64_t>(normals.size() - i - 1);
        for (std::size_t j = i + 1; j < normals.size(); ++j) {
            const std::optional<Direction> line = IntersectionDirection(normals[i], normals[j]);
            if (!line) {
                continue;
            }
            count += weights[i] * weights[j];
            const NetPosition position = PositionOfDirection(plotKind, *line);
            const auto column = static_cast<std::int16_t>(RoundToEven(position.x));
            const auto row = static_cast<std::int16_t>(RoundToEven(position.y));
            if (taken.Take(column, row)) {
                positions.push_back({static_cast<double>(column), static_cast<double>(row)});
            }
        }
    }
    return positions;
}

const BetaIntersections& WorkOutBetaIntersections(Plot& plot, StatusLine* watcher) {
    auto& kept = plot.attachments.Of<KeptIntersections>();
    if (!kept.AreOf(plot)) {
        kept = {plot.table.version, plot.record.NumData, plot.record.PlotKind,
                BetaIntersectionsOf(plot, watcher)};
    }
    return kept.found;
}

void DropBetaIntersections(Plot& plot) {
    plot.attachments.Drop<KeptIntersections>();
}

void DrawBetaIntersections(const Plot& plot, const Drawing& drawing) {
    const SymbolCode code = CodeOfStyleRow(drawing.styles, kRowSymbol);
    const auto* kept = plot.attachments.Find<KeptIntersections>();
    if (kept != nullptr && kept->AreOf(plot)) {
        DrawRowMarkers(drawing.plot, drawing, kept->found.places, code, kept->found.count);
    } else {
        const BetaIntersections found = BetaIntersectionsOf(plot, drawing.watcher);
        DrawRowMarkers(drawing.plot, drawing, found.places, code, found.count);
    }
}

std::int64_t DrawBetaIntersections() {
    const Drawing drawing = WindowDrawing(gActivePlot);
    const std::int64_t count = WorkOutBetaIntersections(ActivePlot(), drawing.watcher).count;
    DrawBetaIntersections(ActivePlot(), drawing);
    return count;
}

} // namespace quandrel
