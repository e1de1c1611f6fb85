// SPDX-License-Identifier: MIT

#include "edit/rows/move_rows.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "edit/history/edit_step.h"
#include "edit/rows/row_change.h"
#include "edit/selection/marquee.h"
#include "edit/selection/selected_intersections.h"
#include "orientation/angles.h"
#include "orientation/projection.h"

#include <cstdlib>
#include <functional>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr double kFullTurn = 360;
constexpr double kRightAngle = 90;

/// A row and its new orientation.
struct Change {
    std::int32_t row = 0;
    MovedAttitude wanted;
};

/// A row as it was measured.
struct FormerRow {
    std::int32_t row = 0;
    bool isPole = false; ///< it is plotted as the pole of a plane
    Attitude measured;
};

/// True for rows of the main set that were measured as directions.
bool IsDirection(const PlotRecord& record, const FormerRow& former) {
    return former.row <= record.NumData && record.ShowSecondary == 0 && former.measured.dip == 0
           && record.PrimaryFormat <= kDirections && !IsPlottedAsPole(record, 0);
}

/// The main row of a row in the overlay that shows the secondary data, or 0.
std::int32_t MainRowBehind(const PlotRecord& record, std::int32_t row) {
    const int overlay = record.SelectedOverlay;
    if (overlay < 1 || OverlayOfRow(record, row) != overlay
        || record.OverlayRows[static_cast<std::size_t>(overlay)] != record.NumData) {
        return 0;
    }
    const std::int32_t main = row - FirstRowOfOverlay(record, overlay) + 1;
    return gData2Dip(gActivePlot, main) != kErrorRow ? main : 0;
}

/// When memory runs out, the row keeps the whole degrees alone, and DataFull is set.
void StoreAngles(Plot& plot, RowAngles which, std::int32_t row, const MovedAttitude& wanted) {
    SetWholeAttitude(plot.rows, which, row, wanted.whole);
    if (!SetDecimals(plot.rows, which, row, wanted.measured)) {
        plot.record.DataFull = kTrue;
    }
}

void StoreOrientation(Plot& plot, const Change& change) {
    StoreAngles(plot, AnglesShown(plot.record, change.row), change.row, change.wanted);
    if (const std::int32_t main = MainRowBehind(plot.record, change.row); main != 0) {
        StoreAngles(plot, RowAngles::Secondary, main, change.wanted);
    }
}

/// The new orientations of the selected rows, by a rule; only those that change. The rule gives
/// nothing for a row that stays.
std::vector<Change>
ChangesOfSelection(const std::function<std::optional<MovedAttitude>(const FormerRow&)>& rule) {
    const Plot& plot = ActivePlot();
    std::vector<Change> changes;
    for (const std::int32_t row : SelectedRowsOf(gActivePlot)) {
        if (row < 1 || row > plot.record.NumLoadedData || !IsKnown(MeasuredShown(plot, row))) {
            continue;
        }
        const FormerRow former{row, IsPlottedAsPole(plot.record, OverlayOfRow(plot.record, row)),
                               MeasuredShown(plot, row)};
        const std::optional<MovedAttitude> wanted = rule(former);
        if (wanted && wanted->measured != former.measured) {
            changes.push_back({row, *wanted});
        }
    }
    return changes;
}

std::int32_t Carry(const std::vector<Change>& changes, EditRun run) {
    if (changes.empty()) {
        return 0;
    }
    EditStep step(kMoveEdit, Before<RowChange>, run);
    for (const Change& change : changes) {
        StoreOrientation(ActivePlot(), change);
    }
    RebuildRowTable(gActivePlot);
    step.Finish(Redraw::Rows);
    return static_cast<std::int32_t>(changes.size());
}

/// A line that pointed up and has become level gets the trend that it points to, which is opposite
/// to that of its former lower end.
Attitude SettledUpward(Attitude now, bool isPlane, const Attitude& former) {
    if (!isPlane && former.dip < 0 && now.dip == 0) {
        now.azimuth = std::fmod(now.azimuth + kFullTurn / 2, kFullTurn);
    }
    return now;
}

double OnCompass(double azimuth) {
    return std::fmod(azimuth, kFullTurn);
}

double AsItIs(double azimuth) {
    return azimuth;
}

/// The whole degree of an angle that is kept to 1e-6 degree.
double WholeOfMeasured(double degrees) {
    return RoundToEven(ToMicrodegree(degrees));
}

/// An orientation in both forms, with the sign of the former dip.
///
/// @param now   dip 0 to 90
/// @param wrap  of a rounded azimuth
MovedAttitude BothForms(const Attitude& now, bool isPlane, const Attitude& former,
                        double (*wrap)(double)) {
    const auto rounded = [&](double (*rounding)(double)) {
        const double dip = rounding(now.dip);
        return SettledUpward({former.dip < 0 ? -dip : dip, wrap(rounding(now.azimuth))}, isPlane,
                             former);
    };
    return {rounded(WholeOfMeasured), rounded(ToMicrodegree)};
}

/// Where the move of a row starts.
Point StartOf(int plotKind, const FormerRow& former) {
    if (IsWhole(former.measured)) {
        const PlottedRow at =
            PlottedOrientation(plotKind, former.isPole, former.row, former.measured);
        return {static_cast<double>(at.x), static_cast<double>(at.y)};
    }
    const Attitude line = former.isPole ? PoleInDegrees(former.measured) : former.measured;
    Point at;
    ProjectPoint(plotKind, DegToRad(std::abs(line.dip)), DegToRad(line.azimuth), at.x, at.y);
    return at;
}

/// Some orientations share a plotted position.
bool SharePlace(int plotKind, bool isPole, const Attitude& a, const Attitude& b) {
    const PlottedRow placeOfA = PlottedOrientation(plotKind, isPole, 0, a);
    const PlottedRow placeOfB = PlottedOrientation(plotKind, isPole, 0, b);
    return placeOfA.x == placeOfB.x && placeOfA.y == placeOfB.y;
}

/// A row after a move over the net; nothing for a row that stays where it is plotted.
std::optional<MovedAttitude> Moved(const Plot& plot, const FormerRow& former, double dx,
                                   double dy) {
    const int kind = plot.record.PlotKind;
    if (IsErrorRow(PlottedOrientation(kind, former.isPole, former.row, former.measured).plunge)) {
        return std::nullopt;
    }
    const Point start = StartOf(kind, former);
    const std::optional<PushedLine> line = PushLine(kind, start.x, start.y, dx, dy);
    if (!line) {
        return std::nullopt;
    }
    MovedAttitude wanted = MovedOrientation(*line, former.isPole, former.measured);
    if (IsDirection(plot.record, former)) {
        wanted.whole.dip = wanted.measured.dip = former.measured.dip;
    }
    if (SharePlace(kind, former.isPole, wanted.measured, former.measured)) {
        return std::nullopt;
    }
    const Attitude whole =
        WholeAttitude(plot.rows, AnglesShown(plot.record, former.row), former.row);
    if (SharePlace(kind, former.isPole, wanted.whole, whole)) {
        wanted.whole = whole;
    }
    return wanted;
}

bool CanMove() {
    return !gBusy && IsOpenSlot(gActivePlot) && gActivePlot == Selection::now.slot
           && ActiveRecord().PlotKind != kRose;
}

} // namespace

std::optional<PushedLine> PushLine(int plotKind, double x, double y, double dx, double dy) {
    const double toX = x + dx;
    const double toY = y + dy;
    if (toX * toX + toY * toY > kNetRadius * kNetRadius) {
        return std::nullopt;
    }
    PushedLine line;
    UnprojectPosition(plotKind, toX, toY, line.plunge, line.trend);
    return line;
}

MovedAttitude MovedOrientation(const PushedLine& line, bool isPole, const Attitude& former) {
    PushedLine shown = line;
    if (isPole) {
        PoleOfPlane(line.plunge, line.trend, shown.plunge, shown.trend);
    }
    return BothForms({RadToDeg(shown.plunge), RadToDeg(shown.trend)}, isPole, former, OnCompass);
}

MovedAttitude NudgedOrientation(const Attitude& former, bool isPlane, int plungeStep,
                                int trendStep) {
    const double dip = std::abs(former.dip) + plungeStep;
    if (dip < 0 || dip > kRightAngle) {
        return {RoundedAttitude(former, isPlane), former};
    }
    if (trendStep == 0) {
        return BothForms({dip, former.azimuth}, isPlane, former, AsItIs);
    }
    const double azimuth = former.azimuth + std::fmod(trendStep, kFullTurn) + kFullTurn;
    return BothForms({dip, std::fmod(azimuth, kFullTurn)}, isPlane, former, OnCompass);
}

std::int32_t MoveSelection(double dx, double dy) {
    if (!CanMove() || RefusesBetaPlot()) {
        return 0;
    }
    const Plot& plot = ActivePlot();
    const auto moved = [&](const FormerRow& former) { return Moved(plot, former, dx, dy); };
    return Carry(dx == 0 && dy == 0 ? std::vector<Change>() : ChangesOfSelection(moved),
                 EditRun::Alone);
}

std::int32_t NudgeSelection(int plungeStep, int trendStep) {
    if (!CanMove() || RefusesBetaPlot()) {
        return 0;
    }
    const PlotRecord& record = ActiveRecord();
    const auto nudged = [&](const FormerRow& former) {
        return NudgedOrientation(former.measured, former.isPole,
                                 IsDirection(record, former) ? 0 : plungeStep, trendStep);
    };
    const std::int32_t changed = Carry(ChangesOfSelection(nudged), EditRun::Joins);
    if (changed > 0) {
        FitMarqueeToRows();
    }
    return changed;
}

} // namespace quandrel
