// SPDX-License-Identifier: MIT

#include "edit/rows/add_point.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/row_links.h"
#include "core/settings.h"
#include "derive/derived_plots.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotations.h"
#include "edit/rows/row_change.h"
#include "edit/selection/readout.h"
#include "edit/selection/selected_intersections.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "platform/platform.h"
#include "stereo/row_positions.h"

#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kContinueQuestion = "\nContinue and add the new data point?";

std::string QuestionOfAxes(const PlotRecord& record) {
    std::string text = "If you manually add points to this plot of kinematic axes you will break "
                       "its link to the parent fault data plot.";
    if (record.AxesTitle == kBothAxes) {
        text += "\nThe P & T data will then be treated as a single dataset of lines.";
    }
    return text + kContinueQuestion;
}

/// True when the user accepts losing the links that a new row would break.
[[nodiscard]] bool AcceptLossOfLinks(const PlotRecord& record) {
    if (record.MapInfoLinked != 0
        && !AskYes(std::string("If you manually add points to this plot you will break its link "
                               "to the MapInfo Table")
                       + kContinueQuestion,
                   AtStake::Work)) {
        return false;
    }
    return record.AxesTitle.empty() || AskYes(QuestionOfAxes(record), AtStake::Work);
}

void BreakLinks(PlotRecord& record) {
    if (record.MapInfoLinked != 0) {
        record.MapInfoLinked = 0;
        FollowerOfRows().unlink(gActivePlot);
    }
    if (!record.AxesTitle.empty()) {
        TakeAxesAsLines(record);
    }
}

/// True when rows go over the main data: the plot shows secondary data, or has overlays.
bool GoesOverMainRows(const PlotRecord& record) {
    return record.OverlayRows[kOverlayCount] > 0 || record.ShowSecondary != 0;
}

/// Appends a row to gActivePlot.
[[nodiscard]] bool StorePoint(int overlay, DegreesByHand point) {
    Plot& plot = ActivePlot();
    const PlotRecord& record = plot.record;
    ParsedRow row;
    row.status = LineStatus::Row;
    row.dip = point.dip;
    row.az = point.azimuth;
    row.isPlane = point.keepsAzimuth;
    row.isPlane2 = point.keepsAzimuth;
    if (overlay > 0 && record.ShowSecondary != 0 && record.SecondaryFormat != kNoSecondary) {
        // The store can then swap the orientations of such a row.
        row.secondaryPresent = true;
        row.dip2 = std::exchange(row.dip, kErrorRow);
        row.az2 = std::exchange(row.az, 0);
    }
    const RowTarget target{overlay, record.SecondaryFormat, false, false};
    RowFaults faults;
    if (StoreDataRow(plot, row, target, faults)) {
        return true;
    }
    if (overlay > 0 && record.OverlayRows[static_cast<std::size_t>(overlay)] == 0) {
        CloseOverlay(plot.record, overlay); // it was opened for the row
    }
    return false;
}

/// The row for the line at a position: the plane with that pole, if the plot shows poles.
DegreesByHand RowOfPoint(const NetLine& line, bool isUpward) {
    const PlotRecord& record = ActiveRecord();
    double dip = line.plunge;
    double azimuth = line.trend;
    if (!GoesOverMainRows(record) && IsPlottedAsPole(record, 0)) {
        PoleOfPlane(line.plunge, line.trend, dip, azimuth);
    }
    // A point near the primitive stays on its side of the net, whichever end it points to.
    return {RadToDeg(isUpward ? -dip : dip), RadToDeg(azimuth), true};
}

} // namespace

bool IsOverlayMadeByHand(const PlotRecord& record, int overlay) {
    const auto place = static_cast<std::size_t>(overlay);
    return overlay >= 1 && overlay <= record.OverlayRows[kOverlayCount]
           && overlay != record.SelectedOverlay && record.OverlayKind[place] == kOverlayPolarLines
           && record.OverlayFiles[place].empty();
}

std::optional<int> OverlayForAddedRows(PlotRecord& record) {
    const std::int32_t top = record.OverlayRows[kOverlayCount];
    if (IsOverlayMadeByHand(record, top)) {
        return top;
    }
    if (top >= kMaxOverlays) {
        Tell("You can't overlay any more points on this plot");
        return std::nullopt;
    }
    return OpenOverlay(record, kOverlayPolarLines);
}

void AddStereoPoint(int button, double x, double y) {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return;
    }
    const std::optional<NetLine> line = LineUnder(ActiveRecord().PlotKind, x, y);
    if (!line) {
        return;
    }
    if (gActiveLayer == kAnnotationLayer) {
        (void)AddAnnotation(button, x, y);
        return;
    }
    (void)AddRowByHand(RowOfPoint(*line, button == kRightMouseButton));
}

bool MayAddRow() {
    return !gBusy && IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind != kRose
           && !RefusesBetaPlot() && AcceptLossOfLinks(ActiveRecord());
}

bool StoreRowByHand(DegreesByHand row) {
    PlotRecord& record = ActiveRecord();
    const std::int16_t secondaryOverlay = record.SelectedOverlay;
    int overlay = 0;
    if (GoesOverMainRows(record)) {
        const std::optional<int> taker = OverlayForAddedRows(record);
        if (!taker) {
            return false;
        }
        overlay = *taker;
        record.SelectedOverlay = 0;
    }
    BreakLinks(record);
    if (!StorePoint(overlay, row)) {
        record.SelectedOverlay = secondaryOverlay;
        return false;
    }
    record.RowsChanged = kTrue;
    return true;
}

bool AddRowByHand(DegreesByHand row) {
    if (!MayAddRow()) {
        return false;
    }
    EditStep step(kAddEdit, Before<RowChange>);
    if (!StoreRowByHand(row)) {
        return false;
    }
    step.Finish(Redraw::Rows);
    return true;
}

bool AddPointToPlot(const std::string& dipText, const std::string& azText) {
    return AddRowByHand({ParseNumber(dipText), ParseNumber(azText), false});
}

} // namespace quandrel
