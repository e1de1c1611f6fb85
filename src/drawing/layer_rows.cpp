// SPDX-License-Identifier: MIT

#include "drawing/layer_rows.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/data_format.h"
#include "core/measured_rows.h"
#include "core/overlay_names.h"
#include "core/plot_rows.h"
#include "derive/slip_arrows.h"
#include "stereo/row_positions.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace quandrel {

namespace {

constexpr RowRange kAllRows = {1, std::numeric_limits<std::int32_t>::max()};

bool AreSecondaryPlanes(const PlotRecord& record) {
    return record.SecondaryFormat == kSecondaryPlane;
}

/// The secondary orientation of a main row, as the plot shows orientations.
PlottedRow SecondaryPlace(const Plot& plot, std::int32_t row) {
    const PlotRecord& record = plot.record;
    Attitude shown = record.UseDecimals != 0
                         ? MeasuredAttitude(plot.rows, RowAngles::Secondary, row)
                         : WholeAttitude(plot.rows, RowAngles::Secondary, row);
    if (DipOfRow(plot, row) == kErrorRow) {
        shown.dip = kErrorRow;
    }
    return PlottedOrientation(record.PlotKind, AreSecondaryPlanes(record), row, shown);
}

LayerRows OfTable(RowTable table) {
    LayerRows rows;
    rows.range = kAllRows;
    rows.count = static_cast<std::int64_t>(table.size());
    rows.own = std::make_shared<const RowTable>(std::move(table));
    return rows;
}

LayerRows OfRange(RowRange range) {
    LayerRows rows;
    rows.range = range;
    rows.count = std::int64_t{range.last} - range.first + 1;
    return rows;
}

/// The lines of the plot's table that are wanted, in its order.
LayerRows Chosen(const Plot& plot, const std::function<bool(std::int32_t row)>& isWanted) {
    RowTable table;
    for (std::size_t place = 0; place < plot.table.size(); ++place) {
        if (isWanted(plot.table.index[place])) {
            AppendRow(table, plot.table[place]);
        }
    }
    return OfTable(std::move(table));
}

LayerRows MainRowsOf(const PlotRecord& record, LayerRows rows) {
    rows.arePoles = IsPlottedAsPole(record, 0);
    rows.arePolar = record.DataKind == kPolarLines && record.AxesTitle.empty();
    return rows;
}

LayerRows SecondaryRows(const Plot& plot, const Styles& styles) {
    const PlotRecord& record = plot.record;
    if (record.SecondaryFormat == kNoSecondary) {
        return {};
    }
    RowTable table;
    ReserveRows(table, static_cast<std::size_t>(std::max(record.NumData, 0)));
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        AppendRow(table, SecondaryPlace(plot, row));
    }
    LayerRows rows = OfTable(std::move(table));
    rows.code = CodeOfStyleRow(
        styles, kFirstOverlaySymbol + (record.OverlayRows[kOverlayCount] + 1) % kOverlaySymbols);
    rows.arePoles = AreSecondaryPlanes(record);
    return rows;
}

LayerRows OverlayRows(const PlotRecord& record, int overlay) {
    if (overlay < 1 || overlay > record.OverlayRows[kOverlayCount]) {
        return {};
    }
    const std::int32_t first = FirstRowOfOverlay(record, overlay);
    LayerRows rows =
        OfRange({first, first + record.OverlayRows[static_cast<std::size_t>(overlay)] - 1});
    rows.arePoles = IsPlottedAsPole(record, overlay);
    rows.arePolar = record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayPolarLines;
    return rows;
}

LayerRows ClassRows(const Plot& plot, int classNumber) {
    const PlotRecord& record = plot.record;
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    if (!column || classNumber < 1) {
        return {};
    }
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    return MainRowsOf(record, Chosen(plot, [&](std::int32_t row) {
                          return row <= record.NumData
                                 && ClassOfRow(plot, rule, row) == classNumber;
                      }));
}

LayerRows SelectedRows(const Plot& plot) {
    const auto* const selection = plot.attachments.Find<ShownSelection>();
    if (selection == nullptr || selection->rows.empty()) {
        return {};
    }
    return MainRowsOf(plot.record, Chosen(plot, [selection](std::int32_t row) {
                          return std::ranges::binary_search(selection->rows, row);
                      }));
}

} // namespace

LayerRows GatherLayerRows(const Plot& plot, const Styles& styles, const FigureLayer& layer) {
    switch (layer.LayerOf) {
    case kLayerOfMainRows:
        return MainRowsOf(plot.record, OfRange({1, plot.record.NumData}));
    case kLayerOfSecondaryRows:
        return SecondaryRows(plot, styles);
    case kLayerOfOverlay:
        return OverlayRows(plot.record, layer.LayerIndex);
    case kLayerOfClass:
        return ClassRows(plot, layer.LayerIndex);
    case kLayerOfSelection:
        return SelectedRows(plot);
    default:
        return {};
    }
}

RowSet SetOf(const Plot& plot, const LayerRows& rows) {
    return {rows.own ? rows.own.get() : &plot.table, rows.range, rows.code, rows.count};
}

void DrawnRows::Add(std::int32_t row, SymbolCode added) {
    if (count++ == 0 || row < first) {
        first = row;
        code = added;
    }
}

DrawnRows RowsBySense::All() const {
    if (down.count == 0 || up.count == 0) {
        return down.count == 0 ? up : down;
    }
    DrawnRows all = down.first < up.first ? down : up;
    all.count = down.count + up.count;
    return all;
}

RowsBySense DrawnRowsOf(const Plot& plot, const Styles& styles, const FigureLayer& layer,
                        const LayerRows& rows) {
    const bool isSecondary = layer.LayerOf == kLayerOfSecondaryRows;
    const RowSet set = SetOf(plot, rows);
    RowsBySense drawn;
    for (std::size_t place = 0; place < set.table->size(); ++place) {
        const std::int32_t row = set.table->index[place];
        if (row < set.range.first || row > set.range.last || IsErrorRow(set.table->plunge[place])) {
            continue;
        }
        const SymbolCode code = CodeInSet(plot, styles, set, row);
        if (CodeSymbol(code) != kNoSymbol) {
            const bool isUp = !isSecondary && OrientationShown(plot, row).dip < 0;
            (isUp ? drawn.up : drawn.down).Add(row, code);
        }
    }
    return drawn;
}

LineSense SenseOfLayer(const PlotRecord& record, const LayerRows& rows) {
    // The sign of the plunge of P and T axes says which they are, not where they point.
    const bool areDirections = rows.arePolar && record.AxesTitle.empty();
    return areDirections && record.DensityMethod != kDensityByCone ? LineSense::Directions
                                                                   : LineSense::Axes;
}

SlipArrows ArrowsOfLayer(const Plot& plot, const FigureLayer& layer) {
    SlipArrows arrows;
    arrows.haveHeads = SlipArrowsTellSense(plot);
    if (layer.LayerOf == kLayerOfSecondaryRows) {
        arrows.azimuth = [&plot](std::int32_t row) {
            return DrawnSlipArrowAngle(plot, row, SecondaryPlace(plot, row));
        };
    } else {
        arrows.azimuth = [&plot](std::int32_t row) { return DrawnSlipArrowAngle(plot, row); };
    }
    return arrows;
}

std::string NameOfLayerData(const Plot& plot, const FigureLayer& layer) {
    const PlotRecord& record = plot.record;
    switch (layer.LayerOf) {
    case kLayerOfSecondaryRows:
        return AreSecondaryPlanes(record) ? "Secondary planes" : "Secondary lines";
    case kLayerOfOverlay:
        return NameOfOverlay(record, layer.LayerIndex);
    case kLayerOfClass: {
        const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
        return column ? ClassLabel(record.ClassTable, *column, layer.LayerIndex,
                                   LimitFormOf(plot, *column))
                      : std::string();
    }
    case kLayerOfSelection:
        return "Selected rows";
    default:
        return {};
    }
}

int LastClassOf(const PlotRecord& record) {
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    return column ? LastClass(RuleOfClassTable(record.ClassTable, *column)) : 0;
}

} // namespace quandrel
