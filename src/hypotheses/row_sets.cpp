// SPDX-License-Identifier: MIT

#include "hypotheses/row_sets.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/data_format.h"
#include "core/overlay_names.h"
#include "core/plot_rows.h"
#include "drawing/row_classes.h"
#include "rose/rose_tables.h"
#include "statistics/axis_statistics.h"
#include "statistics/fabric_kernels.h"
#include "stereo/axis_rows.h"
#include "stereo/cell_rows.h"

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

constexpr const char* kMainRows = "Main rows";

RowsTestedAs SenseOfMainRows(const PlotRecord& record) {
    if (record.PlotKind == kRose) {
        return LayoutOfRose(record).directional ? RowsTestedAs::PolarAzimuths
                                                : RowsTestedAs::AxialAzimuths;
    }
    return HasPolarMainRows(record) ? RowsTestedAs::Directions : RowsTestedAs::Axes;
}

void AddOverlaySets(const PlotRecord& record, std::vector<RowSet>& sets) {
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        const auto place = static_cast<std::size_t>(overlay);
        sets.push_back({{RowGroupKind::Overlay, overlay},
                        NameOfOverlay(record, overlay),
                        record.OverlayKind[place] == kOverlayPolarLines ? RowsTestedAs::Directions
                                                                        : RowsTestedAs::Axes});
    }
}

void AddClassSets(const Plot& plot, std::vector<RowSet>& sets) {
    const PlotRecord& record = plot.record;
    const std::optional<ClassColumn> column =
        record.PlotKind == kRose ? RoseClassColumn(record) : ColumnOfClassMode(record.ClassMode);
    if (!column) {
        return;
    }
    const LimitForm form = LimitFormOf(plot, *column);
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    for (int number = 1; number <= LastClass(rule); ++number) {
        if (!CanHoldValues(rule, number)) {
            continue;
        }
        sets.push_back({{RowGroupKind::Class, number},
                        ClassLabel(record.ClassTable, *column, number, form),
                        SenseOfMainRows(record)});
    }
}

/// The choice of groups with those of a kind, a RegionsOfCode.
std::int16_t GroupsWith(RowGroupKind kind) {
    switch (kind) {
    case RowGroupKind::Overlay:
        return kRegionsOfOverlays;
    case RowGroupKind::Class:
        return kRegionsOfClasses;
    default:
        return kRegionsOfPlot;
    }
}

} // namespace

std::vector<Direction> EachRow(const WeightedDirections& rows) {
    std::vector<Direction> each;
    for (std::size_t i = 0; i < rows.directions.size(); ++i) {
        each.insert(each.end(), static_cast<std::size_t>(rows.weights[i]), rows.directions[i]);
    }
    return each;
}

bool AreAzimuths(RowsTestedAs as) {
    return as == RowsTestedAs::AxialAzimuths || as == RowsTestedAs::PolarAzimuths;
}

bool AreSame(const TestSample& one, const TestSample& other) {
    const auto isSame = [](const Direction& a, const Direction& b) {
        return a.l == b.l && a.m == b.m && a.n == b.n;
    };
    return one.as == other.as && one.azimuths.steps == other.azimuths.steps
           && one.azimuths.angles == other.azimuths.angles
           && std::ranges::equal(one.directions, other.directions, isSame);
}

std::vector<RowSet> RowSetsOf(const Plot& plot) {
    const PlotRecord& record = plot.record;
    std::vector<RowSet> sets;
    if (HoldsBothAxes(record)) {
        for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
            sets.push_back(
                {{kind == AxisKind::Shortening ? RowGroupKind::Shortening : RowGroupKind::Extension,
                  0},
                 NameOfAxes(kind),
                 RowsTestedAs::Axes});
        }
        AddOverlaySets(record, sets);
        return sets;
    }
    sets.push_back({{}, kMainRows, SenseOfMainRows(record)});
    if (record.PlotKind != kRose) {
        AddOverlaySets(record, sets);
    }
    AddClassSets(plot, sets);
    return sets;
}

TestSample TestSampleOf(Plot& plot, const Styles& styles, const RowSet& set) {
    TestSample sample;
    sample.as = set.as;
    sample.areCells = HasCellRows(plot) && set.id.kind != RowGroupKind::Overlay;
    if (sample.areCells) {
        return sample;
    }
    if (AreAzimuths(set.as)) {
        sample.azimuths = AnglesOfRose(plot, set.id.number);
        return sample;
    }
    const bool isClass = set.id.kind == RowGroupKind::Class;
    const std::vector<RowGroup> groups = RowGroupsOf(
        plot, styles, isClass ? RowClassesOf(plot) : RowClasses(), GroupsWith(set.id.kind));
    for (const RowGroup& group : groups) {
        if (RowSetId{group.kind, group.number} == set.id) {
            sample.directions = EachRow(DirectionsOf(group.lines, set.as == RowsTestedAs::Directions
                                                                      ? LinePolarity::kDirected
                                                                      : LinePolarity::kAxial));
        }
    }
    return sample;
}

} // namespace quandrel
