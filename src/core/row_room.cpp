// SPDX-License-Identifier: MIT

#include "core/row_room.h"

#include "platform/platform.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

namespace quandrel {

namespace {

[[nodiscard]] bool GrowTogether(std::int32_t /*capacity*/) {
    return true;
}

/// Grows a column and then the remaining ones; all shrink back when one of them fails.
template <class Column, class... Rest>
[[nodiscard]] bool GrowTogether(std::int32_t capacity, Column& column, Rest&... rest) {
    const std::int32_t rows = column.RowCount();
    bool grown = capacity <= gPlatform.mostRows;
    if (grown) {
        try {
            column.Grow(capacity);
        } catch (const std::bad_alloc&) {
            grown = false;
        } catch (const std::length_error&) {
            grown = false;
        }
    }
    grown = grown && GrowTogether(capacity, rest...);
    if (!grown) {
        column.Shrink(rows);
    }
    return grown;
}

/// Calls `visit(column)` for the base columns and those of a set.
template <class Visit>
void VisitColumns(PlotRows& rows, const ColumnSet& columns, const Visit& visit) {
    const auto visitIf = [&visit](bool isThere, auto&... column) {
        if (isThere) {
            (visit(column), ...);
        }
    };
    visitIf(true, rows.dip, rows.azimuth, rows.symbol, rows.symbolBase, rows.pointDensity,
            rows.order);
    visitIf(columns.secondary, rows.dip2, rows.azimuth2);
    visitIf(columns.line, rows.lineDip, rows.lineAzimuth);
    visitIf(columns.number, rows.number);
    visitIf(columns.text, rows.text);
}

/// Whether a column has room for a row.
template <class Column>
bool Holds(const Column& column, std::int32_t row) {
    return row < column.RowCount();
}

[[nodiscard]] bool MakeRoomInAppended(PlotRows& rows, std::int32_t last, const ColumnSet& columns) {
    return (!columns.line || Holds(rows.lineAzimuth, last)
            || GrowAppendedColumn(rows, AppendedColumn::Line))
           && (!columns.number || Holds(rows.number, last)
               || GrowAppendedColumn(rows, AppendedColumn::Number))
           && (!columns.text || Holds(rows.text, last)
               || GrowAppendedColumn(rows, AppendedColumn::Text));
}

} // namespace

bool GrowColumns(PlotRows& rows, std::int32_t capacity, bool withSecondary) {
    if (withSecondary) {
        return GrowTogether(capacity, rows.dip, rows.azimuth, rows.symbol, rows.symbolBase,
                            rows.pointDensity, rows.order, rows.dip2, rows.azimuth2);
    }
    return GrowTogether(capacity, rows.dip, rows.azimuth, rows.symbol, rows.symbolBase,
                        rows.pointDensity, rows.order);
}

bool GrowAppendedColumn(PlotRows& rows, AppendedColumn which) {
    const std::int32_t capacity = std::max(rows.dip.RowCount() - 1, 0);
    switch (which) {
    case AppendedColumn::Line:
        return GrowTogether(capacity, rows.lineDip, rows.lineAzimuth);
    case AppendedColumn::Number:
        return GrowTogether(capacity, rows.number);
    case AppendedColumn::Text:
        return GrowTogether(capacity, rows.text);
    }
    return false;
}

bool MakeRoomForMeasured(PlotRows& rows, RowAngles which, std::int32_t row) {
    MeasuredColumns& columns = MeasuredOf(rows, which);
    return Holds(columns.azimuthOffset, row)
           || GrowTogether(std::max(rows.dip.RowCount() - 1, row), columns.dip, columns.dipOffset,
                           columns.azimuth, columns.azimuthOffset);
}

bool MakeRoomForMapPlaces(PlotRows& rows, std::int32_t row) {
    MapColumns& columns = rows.mapPlaces;
    return Holds(columns.yLow, row)
           || GrowTogether(std::max(rows.dip.RowCount() - 1, row), columns.xHigh, columns.xLow,
                           columns.yHigh, columns.yLow);
}

ColumnSet ColumnsOf(const PlotRecord& record, bool withSecondary) {
    return {withSecondary, record.HasAppendedLine != 0, record.HasAppendedNumeric != 0,
            record.HasAppendedText != 0};
}

bool MakeRoom(PlotRows& rows, std::int32_t last, const ColumnSet& columns, RoomAhead ahead) {
    constexpr std::int32_t kLeastAhead = 1024;
    if (!Holds(rows.dip, last) || (columns.secondary && !Holds(rows.dip2, last))) {
        const std::int32_t more =
            ahead == RoomAhead::None
                ? 0
                : std::min(last / 2 + kLeastAhead, std::max(last, gPlatform.mostRows) - last);
        if (!GrowColumns(rows, last + more, columns.secondary)
            && !GrowColumns(rows, last, columns.secondary)) {
            return false;
        }
    }
    return MakeRoomInAppended(rows, last, columns);
}

void GrowBlock(PlotRows& rows, std::int32_t capacity, const ColumnSet& columns) {
    VisitColumns(rows, columns, [capacity](auto& column) { column.Grow(capacity); });
}

void GrowMeasured(PlotRows& rows, RowAngles which, std::int32_t capacity) {
    MeasuredColumns& columns = MeasuredOf(rows, which);
    columns.dip.Grow(capacity);
    columns.dipOffset.Grow(capacity);
    columns.azimuth.Grow(capacity);
    columns.azimuthOffset.Grow(capacity);
}

void ReserveRoom(PlotRows& rows, std::int32_t last, const ColumnSet& columns) {
    try {
        VisitColumns(rows, columns, [last](auto& column) { column.Reserve(last); });
    } catch (const std::bad_alloc&) {
        return; // blocks may find enough memory where the whole did not
    } catch (const std::length_error&) {
        return;
    }
}

} // namespace quandrel
