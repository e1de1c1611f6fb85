// SPDX-License-Identifier: MIT

#include "derive/fault_rows.h"

#include "core/plot_store.h"

#include <cmath>

namespace quandrel {

bool IsReadable(Attitude orientation) {
    return orientation.dip != kErrorRow && std::abs(orientation.dip) <= 90
           && orientation.azimuth >= 0 && orientation.azimuth <= 360;
}

namespace {

/// A fault of angles as one of the readers of rows gives them.
Fault FaultOf(const Plot& plot, std::int32_t row,
              Attitude (*read)(const PlotRows&, RowAngles, std::int32_t)) {
    Fault fault{read(plot.rows, RowAngles::Primary, row),
                read(plot.rows, RowAngles::Secondary, row)};
    if (!IsKnown(fault.plane)) {
        fault.line = {kErrorRow, 0}; // no values were read for such a row
    }
    return fault;
}

} // namespace

Fault FaultOfRow(const Plot& plot, std::int32_t row) {
    return FaultOf(plot, row, MeasuredAttitude);
}

Fault FaultShown(const Plot& plot, std::int32_t row) {
    return FaultOf(plot, row, plot.record.UseDecimals != 0 ? MeasuredAttitude : WholeAttitude);
}

Fault FaultOfRow(int slot, std::int32_t row) {
    return FaultOfRow(PlotOf(slot), row);
}

namespace {

bool HasFault(int slot, bool (*isWanted)(const Fault&)) {
    for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
        const Fault fault = FaultOfRow(slot, row);
        if (IsReadable(fault.plane) && IsReadable(fault.line) && isWanted(fault)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool LacksMovement(int slot) {
    return HasFault(slot, [](const Fault&) { return true; })
           && !HasFault(slot, [](const Fault& fault) { return fault.line.dip < 0; });
}

Direction PoleOfFault(const Fault& fault) {
    double plunge = 0;
    double trend = 0;
    OppositeOfPlane(DegToRad(std::abs(fault.plane.dip)), DegToRad(fault.plane.azimuth), plunge,
                    trend);
    return LineToCosines(plunge, trend);
}

Direction SlipLineOfFault(const Fault& fault) {
    return LineToCosines(DegToRad(std::abs(fault.line.dip)), DegToRad(fault.line.azimuth));
}

} // namespace quandrel
