// SPDX-License-Identifier: MIT

#include "stereo/row_positions.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"

#include <array>
#include <atomic>
#include <cmath>
#include <limits>
#include <memory>

namespace quandrel {

namespace {

constexpr std::size_t kPlunges = 91;
constexpr std::size_t kTrends = 361;

/// The position of a line. No line has the default position. Aligned as one word, because some
/// compilers otherwise call a library for atomic values.
struct alignas(std::uint32_t) NetPlace {
    std::int16_t x = std::numeric_limits<std::int16_t>::max();
    std::int16_t y = std::numeric_limits<std::int16_t>::max();

    friend bool operator==(const NetPlace&, const NetPlace&) = default;
};

// Threads that parse rows also ask for positions. A position is one word and always the same, so it
// does not matter which thread computes it first.
using SharedPlace = std::atomic<NetPlace>;
static_assert(SharedPlace::is_always_lock_free);

using WholeDegreePlaces = std::array<std::array<SharedPlace, kTrends>, kPlunges>;

/// Position of a downward whole-degree line. There are few such lines, so each is computed once.
NetPlace PlaceOf(int plotKind, std::int32_t plunge, std::int32_t trend) {
    static const auto known = std::make_unique<std::array<WholeDegreePlaces, 2>>();
    const std::size_t projection = plotKind == kEqualAngle ? 1 : 0;
    SharedPlace& shared =
        (*known)[projection][static_cast<std::size_t>(plunge)][static_cast<std::size_t>(trend)];
    NetPlace place = shared.load(std::memory_order_relaxed);
    if (place == NetPlace{}) {
        ProjectPointInt(plotKind, DegToRad(plunge), DegToRad(trend), place.x, place.y);
        shared.store(place, std::memory_order_relaxed);
    }
    return place;
}

/// DegToRad of whole degrees from -360 to 360, without a division.
double RadiansOf(std::int32_t degrees) {
    static const auto radians = [] {
        std::array<double, 2 * kTrends - 1> table{};
        for (std::int32_t value = -360; value <= 360; ++value) {
            table[static_cast<std::size_t>(value + 360)] = DegToRad(value);
        }
        return table;
    }();
    return radians[static_cast<std::size_t>(degrees + 360)];
}

bool IsOnNet(const Attitude& line) {
    return std::abs(line.dip) <= 90 && line.azimuth >= 0 && line.azimuth <= 360;
}

PlottedRow PlottedWhole(int plotKind, std::int32_t index, std::int32_t plunge, std::int32_t trend) {
    const NetPlace place = PlaceOf(plotKind, std::abs(plunge), trend);
    return {index, place.x, place.y, RadiansOf(plunge), RadiansOf(trend)};
}

PlottedRow PlottedMeasured(int plotKind, std::int32_t index, const Attitude& line) {
    PlottedRow row{index, 0, 0, DegToRad(line.dip), DegToRad(line.azimuth)};
    ProjectPointInt(plotKind, std::abs(row.plunge), row.trend, row.x, row.y);
    return row;
}

/// Whether a plunge marks a row of intersections whose planes do not meet in a line. Such a plot is
/// linked to the plot of the planes.
bool MarksParallelPlanes(const Plot& plot, std::int32_t plunge) {
    constexpr std::int32_t kNoLine = -90;
    const int source = plot.record.KinematicState;
    return plunge == kNoLine && IsOpenSlot(source)
           && PlotSlots::Find(RecordOf(source).IntersectionState) == &plot;
}

/// The shown orientation of a row, measured or in whole degrees.
Attitude Shown(const Plot& plot, std::int32_t row, bool isMeasured) {
    const bool isMain = row <= plot.record.NumData;
    const std::int32_t dip = plot.rows.dip(row);
    const RowAngles which = dip == kErrorRow ? RowAngles::Primary : AnglesShown(plot.record, row);
    Attitude shown =
        isMeasured ? MeasuredAttitude(plot.rows, which, row) : WholeAttitude(plot.rows, which, row);
    if (isMain && MarksParallelPlanes(plot, WholeDegree(shown.dip))) {
        shown.dip = kErrorRow;
    }
    return shown;
}

} // namespace

std::int32_t DipOfRow(const Plot& plot, std::int32_t row) {
    const std::int32_t dip = plot.rows.dip(row);
    return MarksParallelPlanes(plot, dip) ? kErrorRow : dip;
}

std::int32_t DipOfRow(int slot, std::int32_t row) {
    return DipOfRow(PlotOf(slot), row);
}

bool ShowsPlaneData(const PlotRecord& record) {
    return record.ShowSecondary != 0 ? record.SecondaryFormat == kSecondaryPlane
                                     : record.PrimaryFormat == kPrimaryPlane;
}

bool IsPlottedAsPole(const PlotRecord& record, int overlay) {
    if (overlay > 0) {
        return record.OverlayKind[static_cast<std::size_t>(overlay)] <= kOverlayPoles;
    }
    return ShowsPlaneData(record) || record.DataKind == kPlanes;
}

RowAngles AnglesShown(const PlotRecord& record, std::int32_t row) {
    return record.ShowSecondary != 0 && row <= record.NumData ? RowAngles::Secondary
                                                              : RowAngles::Primary;
}

Attitude OrientationShown(const Plot& plot, std::int32_t row) {
    return Shown(plot, row, plot.record.UseDecimals != 0);
}

Attitude MeasuredShown(const Plot& plot, std::int32_t row) {
    return Shown(plot, row, true);
}

Attitude OrientationShown(int slot, std::int32_t row) {
    return OrientationShown(PlotOf(slot), row);
}

PlottedRow PlottedOrientation(int plotKind, bool asPole, std::int32_t index,
                              const Attitude& shown) {
    if (!IsKnown(shown) || !IsOnNet(shown)) {
        return {index, 0, 0, kErrorRow, 0};
    }
    const Attitude line = asPole ? PoleInDegrees(shown) : shown;
    const std::int32_t plunge = WholeDegree(line.dip);
    const std::int32_t trend = WholeDegree(line.azimuth);
    if (plunge == line.dip && trend == line.azimuth) {
        return PlottedWhole(plotKind, index, plunge, trend);
    }
    return PlottedMeasured(plotKind, index, line);
}

namespace {

void StorePosition(Plot& plot, std::size_t place, std::int32_t index, const Attitude& shown,
                   bool asPole) {
    const PlottedRow row = PlottedOrientation(plot.record.PlotKind, asPole, index, shown);
    if (place < plot.table.size()) {
        SetRow(plot.table, place, row);
    } else {
        AppendRow(plot.table, row);
    }
}

} // namespace

void StoreRowPosition(int slot, std::size_t place, std::int32_t index, const Attitude& shown,
                      bool asPole) {
    StorePosition(PlotOf(slot), place, index, shown, asPole);
}

void RebuildRowTable(Plot& plot) {
    PlotRecord& record = plot.record;
    ResizeRowTable(plot.table, static_cast<std::size_t>(record.NumLoadedData));
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        StorePosition(plot, static_cast<std::size_t>(row) - 1, row, OrientationShown(plot, row),
                      IsPlottedAsPole(record, OverlayOfRow(record, row)));
    }
    record.RowsChanged = kTrue;
}

void RebuildRowTable(int slot) {
    RebuildRowTable(PlotOf(slot));
}

} // namespace quandrel
