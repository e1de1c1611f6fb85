// SPDX-License-Identifier: MIT

#include "derive/slip_arrows.h"

#include "core/data_format.h"
#include "derive/fault_rows.h"
#include "orientation/direction_vectors.h"
#include "stereo/row_positions.h"

#include <cmath>
#include <limits>
#include <utility>

namespace quandrel {

namespace {

bool IsTooShort(const Direction& vector) {
    return std::hypot(vector.l, vector.m, vector.n) < kParallelLength;
}

/// The azimuth on the net of a step from a position. The position is (m, l) / (1 + n) in the equal
/// angle net and (m, l) / sqrt(1 + n) in the equal area net; these are the differentials, without a
/// positive factor.
double AzimuthOfStep(int plotKind, const Direction& at, const Direction& step) {
    const double inward = step.n / ((plotKind == kEqualAngle ? 1 : 2) * (1 + at.n));
    return AzimuthBetweenPoints(0, 0, step.m - inward * at.m, step.l - inward * at.l);
}

/// The fault that a row shows. A row of an overlay that was loaded while the secondary data were
/// shown has its pairs swapped.
Fault FaultOfShownRow(const Plot& plot, std::int32_t row) {
    const PlotRecord& record = plot.record;
    const int overlay = OverlayOfRow(record, row);
    if (overlay > 0 && overlay == record.SelectedOverlay) {
        return FaultShown(plot, row - FirstRowOfOverlay(record, overlay) + 1);
    }
    Fault fault = FaultShown(plot, row);
    if (overlay > 0 && record.ShowSecondary != 0) {
        std::swap(fault.plane, fault.line);
    }
    return fault;
}

} // namespace

std::optional<double> SlipArrowAzimuth(int plotKind, const Direction& pole, const Direction& slip,
                                       bool upward, const Direction& at) {
    const Direction axis = CrossProduct(pole, slip); // the slip rotates the pole towards the line
    if (IsTooShort(axis)) {
        return std::nullopt;
    }
    Direction step = CrossProduct(axis, at);
    if (IsTooShort(step)) {
        return std::nullopt;
    }
    if (upward) {
        step = Reversed(step);
    }
    return AzimuthOfStep(plotKind, at, step);
}

namespace {

double RoundedToDegrees(double angle) {
    return std::isfinite(angle) ? DegToRad(RoundToEven(RadToDeg(angle))) : angle;
}

float SlipArrowAngleAt(const Plot& plot, std::int32_t row, const PlottedRow& place) {
    constexpr float kNoArrow = std::numeric_limits<float>::quiet_NaN();
    const Fault fault = FaultOfShownRow(plot, row);
    if (!IsReadable(fault.plane) || !IsReadable(fault.line) || IsErrorRow(place.plunge)) {
        return kNoArrow;
    }
    const std::optional<double> azimuth =
        SlipArrowAzimuth(plot.record.PlotKind, PoleOfFault(fault), SlipLineOfFault(fault),
                         fault.line.dip < 0, LineToCosines(std::abs(place.plunge), place.trend));
    return azimuth ? static_cast<float>(*azimuth) : kNoArrow;
}

} // namespace

float SlipArrowAngle(const Plot& plot, std::int32_t row) {
    const PlotRecord& record = plot.record;
    return SlipArrowAngleAt(plot, row,
                            PlottedOrientation(record.PlotKind,
                                               IsPlottedAsPole(record, OverlayOfRow(record, row)),
                                               row, OrientationShown(plot, row)));
}

bool SlipArrowsTellSense(const Plot& plot) {
    for (std::int32_t row = 1; row <= plot.record.NumLoadedData; ++row) {
        const Fault fault = FaultOfShownRow(plot, row);
        if (IsReadable(fault.plane) && IsReadable(fault.line) && fault.line.dip < 0) {
            return true;
        }
    }
    return false;
}

double DrawnSlipArrowAngle(const Plot& plot, std::int32_t row) {
    return RoundedToDegrees(static_cast<double>(SlipArrowAngle(plot, row)));
}

double DrawnSlipArrowAngle(const Plot& plot, std::int32_t row, const PlottedRow& place) {
    return RoundedToDegrees(static_cast<double>(SlipArrowAngleAt(plot, row, place)));
}

} // namespace quandrel
