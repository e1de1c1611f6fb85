// SPDX-License-Identifier: MIT

#include "derive/intersection_lines.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "derive/fault_rows.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "stereo/plot_title.h"

#include <cmath>
#include <string>

namespace quandrel {

namespace {

/// Counts of the rows of a source by their results.
struct PairCounts {
    std::int32_t stored = 0;
    std::int32_t parallel = 0; ///< of the stored ones
    std::int32_t withoutSecond = 0;
    bool outOfMemory = false;
};

/// The plot of intersections of a source, or 0.
int PlotOfIntersections(int source) {
    const int slot = RecordOf(source).IntersectionState;
    return IsOpenSlot(slot) && RecordOf(slot).KinematicState == source ? slot : 0;
}

/// A new plot for the intersections of a source, or 0.
int OpenPlotOfIntersections(int source) {
    const int slot = OpenDerivedPlot(source);
    if (slot != 0) {
        ActiveRecord().PlotTitle = "Plot " + std::to_string(slot)
                                   + ": Intersection lines of planes in Plot "
                                   + std::to_string(source);
        UpdateTitle();
    }
    return slot;
}

/// Stores the intersection of the planes of a row of the source. False when memory ran out.
[[nodiscard]] bool StoreIntersection(int slot, std::int32_t sourceRow, const Fault& planes,
                                     PairCounts& counts) {
    double plunge = 0;
    double trend = 0;
    IntersectPlanes(DegToRad(planes.plane.dip), DegToRad(planes.plane.azimuth),
                    DegToRad(planes.line.dip), DegToRad(planes.line.azimuth), plunge, trend);
    const std::int32_t row = counts.stored + 1;
    if (!StoreDerivedLine(slot, plunge, trend, std::to_string(sourceRow))) {
        return false;
    }
    if (plunge < 0) {
        ++counts.parallel;
        SetRow(TableOf(slot), static_cast<std::size_t>(row) - 1,
               {row, 0, 0, static_cast<double>(kErrorRow), 0});
    }
    counts.stored = row;
    return true;
}

/// Stores the intersections of all rows of a source, in row order.
PairCounts StoreAllIntersections(int source, int slot) {
    PairCounts counts;
    const std::int32_t last = RecordOf(source).NumData;
    for (std::int32_t row = 1; row <= last; ++row) {
        const Fault planes = FaultOfRow(source, row);
        if (!IsReadable(planes.plane)) {
            continue;
        }
        if (!IsReadable(planes.line)) {
            ++counts.withoutSecond;
        } else if (!StoreIntersection(slot, row, planes, counts)) {
            counts.outOfMemory = true;
            break;
        }
    }
    return counts;
}

std::string TextOfCounts(const PairCounts& counts) {
    const std::int32_t lines = counts.stored - counts.parallel;
    std::string text = "intersection lines of " + std::to_string(lines) + " of "
                       + Counted(counts.stored + counts.withoutSecond, "row");
    if (counts.parallel > 0) {
        text += "; " + std::to_string(counts.parallel) + " without a line: parallel planes";
    }
    if (counts.withoutSecond > 0) {
        text += "; " + std::to_string(counts.withoutSecond) + " left out: no second plane";
    }
    return text;
}

/// Fills a plot with the intersections of a source. False when memory ran out.
[[nodiscard]] bool FillFrom(int source, int slot) {
    const BusyPointer busy(*gPlatform.status);
    const PairCounts counts = StoreAllIntersections(source, slot);
    PlotRecord& record = RecordOf(slot);
    DescribeDerivation(record, RecordOf(source).PlotTitle,
                       counts.outOfMemory ? kNotCompleted : TextOfCounts(counts));
    if (counts.outOfMemory) {
        GiveUpDerivedRows(slot);
        return false;
    }
    SetCountOfValid(record, counts.stored - counts.parallel);
    return true;
}

} // namespace

bool MakeIntersectionPlot() {
    if (gBusy || !IsOpenSlot(gActivePlot)) {
        return false;
    }
    const int source = gActivePlot;
    if (RecordOf(source).SecondaryFormat != kSecondaryPlane
        || RecordOf(source).PrimaryFormat != kPrimaryPlane) {
        return false;
    }
    int slot = PlotOfIntersections(source);
    if (slot != 0 && RecordOf(slot).Modified != 0) {
        ShowDerivedPlot(slot);
        return false;
    }
    slot = slot != 0 ? slot : OpenPlotOfIntersections(source);
    if (slot == 0) {
        return false;
    }
    PrepareIntersectionPlot(slot);
    RecordOf(source).IntersectionState = static_cast<std::int16_t>(slot);
    RecordOf(slot).KinematicState = static_cast<std::int16_t>(source);
    const bool filled = FillFrom(source, slot);
    ShowDerivedPlot(slot);
    return filled;
}

void PrepareIntersectionPlot(int slot) {
    ClearDerivedRows(slot);
    PrepareDerivedPlot(RecordOf(slot), kLines, kRowColumn);
}

} // namespace quandrel
