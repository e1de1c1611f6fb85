// SPDX-License-Identifier: MIT

#include "fabric/fabric_points.h"

#include "classify/classification.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "drawing/legend.h"
#include "drawing/row_classes.h"
#include "statistics/plot_regions.h"
#include "statistics/row_groups.h"
#include "stereo/axis_rows.h"

#include <cstddef>

namespace quandrel {

namespace {

/// The style of the first rows that have a symbol, downward ones before upward ones.
SymbolCode CodeOfRange(const Plot& plot, const Styles& styles, std::int32_t first,
                       std::int32_t last) {
    const SymbolCode down = CodeOfRows(plot, styles, first, last, false);
    return down != 0 ? down : CodeOfRows(plot, styles, first, last, true);
}

SymbolCode CodeOfGroup(const Plot& plot, const Styles& styles, const RowGroup& group) {
    const PlotRecord& record = plot.record;
    switch (group.kind) {
    case RowGroupKind::Shortening:
        return CodeOfStyleRow(styles, kDerivedSymbol);
    case RowGroupKind::Extension:
        return CodeOfStyleRow(styles, kDerivedUpSymbol);
    case RowGroupKind::Overlay: {
        const std::int32_t first = FirstRowOfOverlay(record, group.number);
        const auto overlay = static_cast<std::size_t>(group.number);
        return CodeOfRange(plot, styles, first, first + record.OverlayRows[overlay] - 1);
    }
    case RowGroupKind::Class:
        return CodeOfClass(styles, group.number);
    case RowGroupKind::MainRows:
        break;
    }
    return CodeOfRange(plot, styles, 1, record.NumData);
}

std::string NameOfGroup(const Plot& plot, const RowGroup& group, bool isOfSeveral) {
    const std::string& title = plot.record.PlotTitle;
    if (group.name.empty()) {
        return title;
    }
    return isOfSeveral ? title + ": " + group.name : group.name;
}

std::optional<FabricPoint> PointOf(const RowGroup& group) {
    const std::optional<AxisSample> sample =
        AxisSampleOf(DirectionsOf(group.lines, LinePolarity::kAxial));
    if (!sample) {
        return std::nullopt;
    }
    FabricPoint point;
    point.count = sample->count;
    const auto [e1, e2, e3] = sample->eigenvalues;
    point.eigenvalues = {e3, e2, e1};
    point.place = LogRatioPlaceOf(point.eigenvalues);
    point.shares = SharesOf(point.eigenvalues);
    return point;
}

void AddPoints(Plot& plot, const Styles& styles, std::int16_t of, bool isOfSeveral,
               std::vector<FabricPoint>& points) {
    const bool wantsClasses = (of & kRegionsOfClasses) != 0;
    const RowClasses classes = wantsClasses ? RowClassesOf(plot) : RowClasses();
    for (const RowGroup& group : RowGroupsOf(plot, styles, classes, of)) {
        if (std::optional<FabricPoint> point = PointOf(group)) {
            const SymbolCode code = CodeOfGroup(plot, styles, group);
            point->name = NameOfGroup(plot, group, isOfSeveral);
            point->symbol = CodeSymbol(code);
            point->colour = TableColour(styles, CodeColour(code));
            points.push_back(*std::move(point));
        }
    }
}

} // namespace

std::vector<FabricPoint> FabricPointsOf(std::span<Plot* const> plots, const Styles& styles,
                                        std::int16_t of) {
    std::vector<FabricPoint> points;
    for (Plot* const plot : plots) {
        AddPoints(*plot, styles, of, plots.size() > 1, points);
    }
    return points;
}

std::vector<Plot*> OpenPlots() {
    std::vector<Plot*> plots;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            plots.push_back(&PlotOf(slot));
        }
    }
    return plots;
}

FabricOffer FabricOfferOf(std::span<Plot* const> plots) {
    FabricOffer offer;
    for (const Plot* const plot : plots) {
        const RegionRows rows = RegionRowsOf(plot->record);
        offer.hasOverlays = offer.hasOverlays || rows.hasOverlays;
        offer.hasClasses = offer.hasClasses || rows.hasClasses;
    }
    return offer;
}

} // namespace quandrel
