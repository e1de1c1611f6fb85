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

constexpr std::int32_t kFullTurn = 360;
constexpr std::int32_t kRightAngle = 90;

std::int32_t WholeDegrees(double radians) {
    return static_cast<std::int32_t>(RoundToEven(RadToDeg(radians)));
}

bool IsSame(Attitude a, Attitude b) {
    return a.dip == b.dip && a.azimuth == b.azimuth;
}

/// A row and its new orientation.
struct Change {
    std::int32_t row = 0;
    Attitude wanted;
};

/// True for rows of the main set that were measured as directions.
bool IsDirection(const PlotRecord& record, std::int32_t row, Attitude former) {
    return row <= record.NumData && record.ShowSecondary == 0 && former.dip == 0
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

void StoreOrientation(const Change& change) {
    const PlotRecord& record = ActiveRecord();
    PlotRows& rows = ActivePlot().rows;
    SetWholeAttitude(rows, AnglesShown(record, change.row), change.row, change.wanted);
    if (const std::int32_t main = MainRowBehind(record, change.row); main != 0) {
        SetWholeAttitude(rows, RowAngles::Secondary, main, change.wanted);
    }
}

/// The new orientations of the selected rows, by a rule that takes the row's index and orientation;
/// only those that change.
std::vector<Change>
ChangesOfSelection(const std::function<Attitude(std::int32_t, Attitude)>& rule) {
    std::vector<Change> changes;
    for (const std::int32_t row : SelectedRowsOf(gActivePlot)) {
        const Attitude former = OrientationShown(gActivePlot, row);
        if (row < 1 || row > ActiveRecord().NumLoadedData || former.dip == kErrorRow) {
            continue;
        }
        const Attitude wanted = rule(row, former);
        if (!IsSame(wanted, former)) {
            changes.push_back({row, wanted});
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
        StoreOrientation(change);
    }
    RebuildRowTable(gActivePlot);
    step.Finish(Redraw::Rows);
    return static_cast<std::int32_t>(changes.size());
}

/// A line that pointed up and has become level gets the trend that it points to, which is opposite
/// to that of its former lower end.
Attitude SettledUpward(Attitude now, bool isPlane, Attitude former) {
    if (!isPlane && former.dip < 0 && now.dip == 0) {
        now.azimuth = std::fmod(now.azimuth + kFullTurn / 2, kFullTurn);
    }
    return now;
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

Attitude MovedOrientation(const PushedLine& line, bool isPole, Attitude former) {
    PushedLine shown = line;
    if (isPole) {
        PoleOfPlane(line.plunge, line.trend, shown.plunge, shown.trend);
    }
    const std::int32_t dip = WholeDegrees(shown.plunge);
    return SettledUpward({former.dip < 0 ? -dip : dip, WholeDegrees(shown.trend) % kFullTurn},
                         isPole, former);
}

Attitude NudgedOrientation(Attitude former, bool isPlane, int plungeStep, int trendStep) {
    const double dip = std::abs(former.dip) + plungeStep;
    if (dip < 0 || dip > kRightAngle) {
        return former;
    }
    const double azimuth = std::fmod(former.azimuth + trendStep % kFullTurn + kFullTurn, kFullTurn);
    return SettledUpward({former.dip < 0 ? -dip : dip, trendStep == 0 ? former.azimuth : azimuth},
                         isPlane, former);
}

std::int32_t MoveSelection(double dx, double dy) {
    if (!CanMove() || RefusesBetaPlot()) {
        return 0;
    }
    const PlotRecord& record = ActiveRecord();
    const auto moved = [&](std::int32_t row, Attitude former) {
        const bool isPole = IsPlottedAsPole(record, OverlayOfRow(record, row));
        const PlottedRow at = PlottedOrientation(record.PlotKind, isPole, row, former);
        if (IsErrorRow(at.plunge)) {
            return former;
        }
        const std::optional<PushedLine> line = PushLine(record.PlotKind, at.x, at.y, dx, dy);
        if (!line) {
            return former;
        }
        Attitude wanted = MovedOrientation(*line, isPole, former);
        wanted.dip = IsDirection(record, row, former) ? former.dip : wanted.dip;
        // Some orientations share a position on the net: a row that stays there keeps its values.
        const PlottedRow to = PlottedOrientation(record.PlotKind, isPole, row, wanted);
        return to.x == at.x && to.y == at.y ? former : wanted;
    };
    return Carry(dx == 0 && dy == 0 ? std::vector<Change>() : ChangesOfSelection(moved),
                 EditRun::Alone);
}

std::int32_t NudgeSelection(int plungeStep, int trendStep) {
    if (!CanMove() || RefusesBetaPlot()) {
        return 0;
    }
    const PlotRecord& record = ActiveRecord();
    const auto nudged = [&](std::int32_t row, Attitude former) {
        const bool isPlane = IsPlottedAsPole(record, OverlayOfRow(record, row));
        return NudgedOrientation(former, isPlane, IsDirection(record, row, former) ? 0 : plungeStep,
                                 trendStep);
    };
    const std::int32_t changed = Carry(ChangesOfSelection(nudged), EditRun::Joins);
    if (changed > 0) {
        FitMarqueeToRows();
    }
    return changed;
}

} // namespace quandrel
