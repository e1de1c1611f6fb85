// SPDX-License-Identifier: MIT

#include "core/measured_rows.h"

#include "core/row_room.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

/// Of rows that may be constant or not.
template <class Rows>
auto& ColumnsOf(Rows& rows, RowAngles which) {
    switch (which) {
    case RowAngles::Secondary:
        return rows.measured2;
    case RowAngles::Line:
        return rows.measuredLine;
    case RowAngles::Primary:
        break;
    }
    return rows.measured;
}

/// An angle from the columns with the digits that it was given: of six decimals, which their
/// offsets of 32 bits miss by less than half of a seventh.
double Regained(double degrees) {
    constexpr double kPrecision = 4e-8;
    const double digits = ToMicrodegree(degrees);
    return std::abs(degrees - digits) < kPrecision ? digits : degrees;
}

Attitude RegainedAt(const MeasuredColumns& measured, std::int32_t row) {
    const Attitude attitude = measured.At(row);
    return {Regained(attitude.dip), Regained(attitude.azimuth)};
}

} // namespace

const MeasuredColumns& MeasuredOf(const PlotRows& rows, RowAngles which) {
    return ColumnsOf(rows, which);
}

MeasuredColumns& MeasuredOf(PlotRows& rows, RowAngles which) {
    return ColumnsOf(rows, which);
}

std::int32_t RowCountOf(const PlotRows& rows, RowAngles which) {
    switch (which) {
    case RowAngles::Secondary:
        return rows.dip2.RowCount();
    case RowAngles::Line:
        return rows.lineDip.RowCount();
    case RowAngles::Primary:
        break;
    }
    return rows.dip.RowCount();
}

Attitude WholeAttitude(const PlotRows& rows, RowAngles which, std::int32_t row) {
    switch (which) {
    case RowAngles::Secondary:
        return {rows.dip2(row), rows.azimuth2(row)};
    case RowAngles::Line:
        return {rows.lineDip(row), rows.lineAzimuth(row)};
    case RowAngles::Primary:
        break;
    }
    return {rows.dip(row), rows.azimuth(row)};
}

void SetWholeAttitude(PlotRows& rows, RowAngles which, std::int32_t row, const Attitude& whole) {
    const bool isLine = which == RowAngles::Line;
    const bool isPrimary = which == RowAngles::Primary;
    auto& dips = isLine ? rows.lineDip : isPrimary ? rows.dip : rows.dip2;
    auto& azimuths = isLine ? rows.lineAzimuth : isPrimary ? rows.azimuth : rows.azimuth2;
    dips.At(row) = WholeDegree(whole.dip);
    azimuths.At(row) = WholeDegree(whole.azimuth);
    ClearDecimals(rows, which, row);
}

Attitude MeasuredAttitude(const PlotRows& rows, RowAngles which, std::int32_t row) {
    const MeasuredColumns& measured = MeasuredOf(rows, which);
    return measured.Has(row) ? RegainedAt(measured, row) : WholeAttitude(rows, which, row);
}

std::optional<Attitude> DecimalsOf(const PlotRows& rows, RowAngles which, std::int32_t row) {
    const MeasuredColumns& measured = MeasuredOf(rows, which);
    return measured.Has(row) ? std::optional(RegainedAt(measured, row)) : std::nullopt;
}

bool HasDecimals(const PlotRows& rows, std::int32_t row) {
    return rows.measured.Has(row) || rows.measured2.Has(row) || rows.measuredLine.Has(row);
}

std::int32_t CountRowsWithDecimals(const PlotRows& rows, std::int32_t first, std::int32_t last) {
    std::int32_t end = 0;
    for (const RowAngles which : kRowAngles) {
        end = std::max(end, MeasuredOf(rows, which).RowCount());
    }
    std::int32_t count = 0;
    for (std::int32_t row = first; row <= std::min(last, end - 1); ++row) {
        count += HasDecimals(rows, row) ? 1 : 0;
    }
    return count;
}

bool SetDecimals(PlotRows& rows, RowAngles which, std::int32_t row, const Attitude& measured) {
    if (measured == WholeAttitude(rows, which, row)) {
        ClearDecimals(rows, which, row);
        return true;
    }
    if (!MakeRoomForMeasured(rows, which, row)) {
        ClearDecimals(rows, which, row);
        return false;
    }
    MeasuredOf(rows, which).Set(row, measured);
    return true;
}

void ClearDecimals(PlotRows& rows, RowAngles which, std::int32_t row) {
    MeasuredOf(rows, which).Clear(row);
}

} // namespace quandrel
