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

SymbolCode CodeOfRow(const Plot& plot, const Styles& styles, const RowSet& set, std::int32_t index,
                     RowStyle style) {
    const SymbolCode own = CodeInSet(plot, styles, set, index);
    if (style == RowStyle::Own || CodeSymbol(own) == kNoSymbol) {
        return own;
    }
    const auto* const bands = plot.attachments.Find<RowBands>();
    const int band = bands != nullptr ? bands->ofRow.at(static_cast<std::size_t>(index))
                                      : plot.rows.pointDensity(index);
    const int row = std::min(kFirstBandSymbol + std::max(band, 1) - 1, kLastBandSymbol);
    return CodeOfStyleRow(styles, row);
}

bool IsIn(const RowSet& set, std::size_t place) {
    const std::int32_t index = set.table->index[place];
    return index >= set.range.first && index <= set.range.last
           && !IsErrorRow(set.table->plunge[place]);
}

/// The rows of a set in table order, without hidden rows and those covered by a later row of the
/// same style and position.
std::vector<StyledRow> RowsToDraw(const Plot& plot, const Styles& styles, const RowSet& set,
                                  RowStyle style) {
    const RowTable& table = *set.table;
    std::unordered_map<SymbolCode, TakenPlaces> taken;
    std::vector<StyledRow> rows;
    SymbolCode currentCode = std::numeric_limits<SymbolCode>::max();
    TakenPlaces* current = nullptr;
    for (std::size_t place = table.size(); place-- > 0;) {
        if (!IsIn(set, place)) {
            continue;
        }
        const SymbolCode code = CodeOfRow(plot, styles, set, table.index[place], style);
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

/// The position of a row as a style wants it. In whole plot units, a line may lie beside the true
/// great circle of a plane that holds it.
Point PlaceOnNet(const Drawing& drawing, int plotKind, const RowTable& table, std::size_t place) {
    Point at{static_cast<double>(table.x[place]), static_cast<double>(table.y[place])};
    if (FigureOf(drawing).lines.trueCircles) {
        ProjectPoint(plotKind, std::abs(table.plunge[place]), table.trend[place], at.x, at.y);
    }
    return at;
}

/// Consecutive rows of the same style are sent to the surface together.
void DrawRuns(const Drawing& drawing, int plotKind, const RowSet& set,
              std::span<const StyledRow> rows) {
    std::vector<Point> positions;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        positions.push_back(PlaceOnNet(drawing, plotKind, *set.table, rows[i].place));
        if (i + 1 == rows.size() || rows[i + 1].code != rows[i].code) {
            DrawRowMarkers(drawing.plot, drawing, positions, rows[i].code, set.count);
            positions.clear();
        }
    }
}

/// Rows that can be seen through: each place as dark as its rows are together.
void DrawCrowd(const Plot& plot, const Drawing& drawing, const RowSet& set, RowStyle style,
               double opacity) {
    const RowTable& table = *set.table;
    std::map<SymbolCode, Crowd> crowds;
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (!IsIn(set, place)) {
            continue;
        }
        const SymbolCode code = CodeOfRow(plot, drawing.styles, set, table.index[place], style);
        if (CodeSymbol(code) != kNoSymbol && crowds[code].Add(table.x[place], table.y[place])) {
            crowds[code].PlaceLast(PlaceOnNet(drawing, plot.record.PlotKind, table, place));
        }
    }
    for (const auto& [code, crowd] : crowds) {
        for (const CrowdLevel& level : crowd.Levels(opacity)) {
            DrawRowMarkers(drawing.plot, drawing, level.places, code, set.count, level.rows);
        }
    }
}

enum class ArrowSymbols { Below, None };

/// Each row's arrow, on top of its symbol where that is drawn, in order. Arrows differ, so no row
/// is skipped.
void DrawArrowsInOrder(const Plot& plot, const Drawing& drawing, const RowSet& set, RowStyle style,
                       const SlipArrows& arrows, ArrowSymbols symbols) {
    const RowTable& table = *set.table;
    const int arrow = arrows.haveHeads ? kSlipArrowSymbol : kSlipLineSymbol;
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (!IsIn(set, place)) {
            continue;
        }
        const std::int32_t index = table.index[place];
        const SymbolCode code = CodeOfRow(plot, drawing.styles, set, index, style);
        if (CodeSymbol(code) == kNoSymbol) {
            continue;
        }
        const Point at = PlaceOnNet(drawing, plot.record.PlotKind, table, place);
        if (symbols == ArrowSymbols::Below) {
            DrawRowMarkers(drawing.plot, drawing, std::span(&at, 1), code, set.count);
        }
        const double angle = arrows.azimuth(index);
        if (std::isfinite(angle)) {
            DrawSlipArrow(drawing.plot, drawing, at, {code, set.count}, arrow, angle);
        }
    }
}

/// The width and the opacity of so many great circles.
DrawState StateOfCircles(const Drawing& drawing, std::size_t circles) {
    const LineStyle& lines = FigureOf(drawing).lines;
    const bool areMany = circles > static_cast<std::size_t>(lines.manyCircles);
    const double points = areMany ? lines.manyCirclesWidth : lines.circleWidth;
    LineLook look{drawing.plot.State(), {}};
    if (points > 0) {
        look.state.widthInPoints = points;
    }
    look.state.fillStyle = kNoFill;
    if (lines.circleWidth > 0 && areMany) {
        look.state.lineOpacity = lines.manyCirclesOpacity;
    }
    TakeLayer(drawing.layer, look);
    return look.state;
}

/// The distinct planes of some rows.
struct DistinctPlanes {
    std::vector<Direction> normals;
    std::vector<std::int64_t> weights; ///< number of rows of each
};

/// The planes of the valid rows of a set, from their poles.
DistinctPlanes PlanesOf(const RowSet& set) {
    const RowTable& table = *set.table;
    std::map<std::pair<double, double>, std::int64_t> rows;
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (IsIn(set, place)) {
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
    return IntersectionsOfRows(plot, RowSetOf(plot, {1, plot.record.NumData}), watcher);
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

RowSet RowSetOf(const Plot& plot, RowRange range) {
    return {&plot.table, range, std::nullopt, std::int64_t{range.last} - range.first + 1};
}

SymbolCode CodeInSet(const Plot& plot, const Styles& styles, const RowSet& set, std::int32_t row) {
    const SymbolCode own = CodeShown(plot, styles, row);
    return CodeSymbol(own) == kNoSymbol ? own : set.code.value_or(own);
}

void DrawRowSymbols(const Plot& plot, const Drawing& drawing, const RowSet& set, RowStyle style,
                    const SlipArrows& arrows) {
    if (arrows.azimuth) {
        DrawArrowsInOrder(plot, drawing, set, style, arrows, ArrowSymbols::Below);
        return;
    }
    const double opacity = OpacityOfRows(drawing, set.count);
    if (opacity > 0 && opacity < 1) {
        DrawCrowd(plot, drawing, set, style, opacity);
        return;
    }
    DrawRuns(drawing, plot.record.PlotKind, set, RowsToDraw(plot, drawing.styles, set, style));
}

void DrawRowSymbols(const Plot& plot, const Drawing& drawing, RowRange range, RowStyle style,
                    const SlipArrows& arrows) {
    DrawRowSymbols(plot, drawing, RowSetOf(plot, range), style, arrows);
}

void DrawRowArrows(const Plot& plot, const Drawing& drawing, const RowSet& set,
                   const SlipArrows& arrows) {
    if (arrows.azimuth) {
        DrawArrowsInOrder(plot, drawing, set, RowStyle::Own, arrows, ArrowSymbols::None);
    }
}

void DrawRowGreatCircles(const Plot& plot, const Drawing& drawing, const RowSet& set) {
    const RowTable& table = *set.table;
    const int plotKind = plot.record.PlotKind;
    const bool isMeasured = plot.record.UseDecimals != 0;
    const std::vector<StyledRow> rows = RowsToDraw(plot, drawing.styles, set, RowStyle::Own);
    const SavedState saved(drawing.plot);
    drawing.plot.SetState(StateOfCircles(drawing, rows.size()));
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
        DrawPlane(drawing, plotKind, plunge, trend, ColourOfRows(drawing, row.code));
    }
}

void DrawRowGreatCircles(const Plot& plot, const Drawing& drawing, RowRange range) {
    DrawRowGreatCircles(plot, drawing, RowSetOf(plot, range));
}

DrawState StateOfRowCircles(const Plot& plot, const Drawing& drawing, const RowSet& rows) {
    return StateOfCircles(drawing, RowsToDraw(plot, drawing.styles, rows, RowStyle::Own).size());
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

BetaIntersections IntersectionsOfRows(const Plot& plot, const RowSet& rows, StatusLine* watcher) {
    const DistinctPlanes planes = PlanesOf(rows);
    const auto n = static_cast<std::int64_t>(planes.normals.size());
    StepProgress progress(std::max(n * (n - 1) / 2, std::int64_t{1}), kDrawingWithoutProgress,
                          watcher);
    BetaIntersections found;
    found.places = IntersectionPositions(
        plot.record.PlotKind, planes.normals, planes.weights,
        [&progress](std::int64_t pairs) { progress.Reach(pairs); }, found.count);
    return found;
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
