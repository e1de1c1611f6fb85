// SPDX-License-Identifier: MIT

#include "core/row_block.h"

#include <algorithm>
#include <string>

namespace quandrel {

namespace {

template <class T>
void SetIfThere(RowColumn<T>& column, std::int32_t row, T value) {
    if (row < column.RowCount()) {
        column.At(row) = value;
    }
}

void StoreGoodCells(PlotRows& rows, std::int32_t row, const RowValues& values,
                    const ColumnSet& columns) {
    rows.dip.At(row) = values.dip;
    rows.azimuth.At(row) = values.azimuth;
    rows.symbol.At(row) = values.code;
    rows.symbolBase.At(row) = values.code;
    rows.pointDensity.At(row) = 0;
    if (columns.secondary) {
        rows.dip2.At(row) = values.dip2;
        rows.azimuth2.At(row) = values.azimuth2;
    }
    if (columns.line) {
        rows.lineDip.At(row) = values.lineDip;
        rows.lineAzimuth.At(row) = values.lineAzimuth;
    }
    if (columns.number) {
        rows.number.At(row) = values.number;
    }
    if (columns.text) {
        rows.text.Set(row, values.text);
    }
    for (const RowAngles which : kRowAngles) {
        const std::optional<Attitude>& measured = values.measured[static_cast<std::size_t>(which)];
        if (measured) {
            MeasuredOf(rows, which).Set(row, *measured);
        } else {
            ClearDecimals(rows, which, row);
        }
    }
    if (values.mapPlace) {
        rows.mapPlaces.Set(row, *values.mapPlace);
    } else {
        rows.mapPlaces.Clear(row);
    }
}

} // namespace

void StoreErrorCells(PlotRows& rows, std::int32_t row, std::string_view line) {
    rows.dip.At(row) = kErrorRow;
    rows.azimuth.At(row) = 0;
    rows.symbol.At(row) = 0;
    rows.symbolBase.At(row) = 0;
    rows.pointDensity.At(row) = 0;
    SetIfThere(rows.dip2, row, 0);
    SetIfThere(rows.azimuth2, row, 0);
    SetIfThere(rows.lineDip, row, 0);
    SetIfThere(rows.lineAzimuth, row, 0);
    SetIfThere(rows.number, row, 0.0F);
    if (!rows.text(row).empty()) {
        rows.text.Set(row, {});
    }
    for (const RowAngles which : kRowAngles) {
        ClearDecimals(rows, which, row);
    }
    rows.mapPlaces.Clear(row);
    if (!line.empty()) {
        rows.errorLines[row] = std::string(line);
    }
}

void StoreCells(PlotRows& rows, std::int32_t row, const RowValues& values,
                const ColumnSet& columns) {
    rows.order.At(row) = row;
    if (values.isData) {
        StoreGoodCells(rows, row, values, columns);
    } else {
        StoreErrorCells(rows, row, values.errorLine);
    }
}

void RowBlock::Begin(const ColumnSet& columns, std::int32_t expectedRows) {
    columns_ = columns;
    count_ = 0;
    valid_ = 0;
    range_ = {};
    hasMeasured_ = {};
    hasMapPlaces_ = false;
    cells_.errorLines.clear();
    cells_.text.Clear();
    MakeRoomFor(expectedRows);
}

void RowBlock::MakeRoomFor(std::int32_t rows) {
    GrowBlock(cells_, rows, columns_);
    for (const RowAngles which : kRowAngles) {
        if (MeasuredOf(cells_, which).RowCount() > 0) {
            GrowMeasured(cells_, which, rows);
        }
    }
    if (cells_.mapPlaces.RowCount() > 0) {
        cells_.mapPlaces.Grow(rows);
    }
    const auto places = static_cast<std::size_t>(rows);
    flags_.resize(std::max(flags_.size(), places));
    places_.resize(std::max(places_.size(), places));
}

void RowBlock::MakeRoomForMoreOf(const RowValues& values, std::int32_t row) {
    const std::int32_t capacity = std::max(row, cells_.dip.RowCount() - 1);
    for (const RowAngles which : kRowAngles) {
        const auto place = static_cast<std::size_t>(which);
        if (values.measured[place]) {
            GrowMeasured(cells_, which, capacity);
            hasMeasured_[place] = true;
        }
    }
    if (values.mapPlace) {
        cells_.mapPlaces.Grow(capacity);
        hasMapPlaces_ = true;
    }
}

void RowBlock::Add(const RowValues& values) {
    const auto place = static_cast<std::size_t>(count_);
    const std::int32_t row = count_ + 1;
    if (place >= places_.size()) {
        MakeRoomFor(row + row / 2);
    }
    MakeRoomForMoreOf(values, row);
    StoreCells(cells_, row, values, columns_);
    places_[place] = values.place;
    flags_[place] = {values.isData, values.isInRange};
    if (values.isInRange && columns_.number) {
        TrackNumber(range_, values.number);
    }
    if (values.isInRange && columns_.text) {
        TrackText(range_, values.text);
    }
    count_ = row;
    valid_ += values.isData ? 1 : 0;
}

RowValues RowBlock::Row(std::int32_t row) const {
    RowValues values;
    const Flags flags = flags_[static_cast<std::size_t>(row) - 1];
    values.isData = flags.isData;
    values.dip = cells_.dip(row);
    values.azimuth = cells_.azimuth(row);
    values.code = cells_.symbol(row);
    values.hasSecondary = columns_.secondary;
    values.dip2 = cells_.dip2(row);
    values.azimuth2 = cells_.azimuth2(row);
    values.lineDip = cells_.lineDip(row);
    values.lineAzimuth = cells_.lineAzimuth(row);
    values.number = cells_.number(row);
    values.text = cells_.text(row);
    for (const RowAngles which : kRowAngles) {
        values.measured[static_cast<std::size_t>(which)] = DecimalsOf(cells_, which, row);
    }
    values.isInRange = flags.isInRange;
    values.place = places_[static_cast<std::size_t>(row) - 1];
    if (const auto line = cells_.errorLines.find(row); line != cells_.errorLines.end()) {
        values.errorLine = line->second;
    }
    values.mapPlace = MapPlaceOf(cells_, row);
    return values;
}

} // namespace quandrel
